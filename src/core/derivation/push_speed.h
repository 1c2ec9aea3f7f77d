// The speed at which the cone was pushed, reading by reading, in cm/s.
#pragma once

#include <string_view>

#include "core/derivation/channel_values.h"

namespace marlview {

struct PushSpeedSettings {
  // Smooth the pauses at rod breaks out of the speed.
  bool remove_rod_breaks = true;
  float rod_break_threshold_s = 10;
};

// PX DAS files carry the speed; the QRD files give it from depth and each reading's time stamp.
void CalculatePushSpeed(ChannelValues& v, int channel, const PushSpeedSettings& settings);

// The time stamp of a reading in seconds: the number in milliseconds that stands before the last
// nine characters of the data line's tail; 0 when there is none.
double TailSeconds(std::string_view tail);

}  // namespace marlview
