// Adds one channel to the current sounding from a text file: "str" files of depth and value
// pairs, interpolated, and "step" files of depth ranges with one value each (seismic velocities).
#pragma once

#include <string>
#include <string_view>

#include "core/common/user_prompts.h"
#include "core/session/session.h"

namespace marlview {

// Adds the channel after the last one and returns its number, or 0 when the file is not a channel
// file ("Not a valid file." is shown). Fails with a run-time failure on a field that is not a
// number, a file that ends inside a pair, or a sounding that already holds 100 channels.
int AddChannelFromText(Session& session, std::string_view bytes, const std::string& path,
                       UserPrompts& prompts);

}  // namespace marlview
