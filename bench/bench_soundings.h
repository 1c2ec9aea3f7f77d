// The soundings the plot and report benchmarks draw: a 100 m push of 10000 readings.
#pragma once

#include <cmath>
#include <vector>

#include "core/model/sounding_store.h"
#include "support/test_support.h"

namespace marlview::bench {

// Tip, sleeve and pore pressure swinging at different rates, one reading a centimetre.
inline test::DatFile LongSounding() {
  test::DatFile file = test::SimpleDat(0);
  for (int r = 1; r <= kMaxReadings; ++r) {
    const double depth = 0.01 * r;
    file.rows.push_back({depth, 0.5 + 0.4 * std::sin(depth * 3), 0.004 + 0.002 * std::cos(depth * 7),
                         0.1 + 0.05 * std::sin(depth * 11)});
  }
  return file;
}

// The six most plotted and printed channels.
inline std::vector<int> SixChannels(const SoundingStore& s) {
  return {s.TipChannel, s.SleeveChannel, s.PorePressureChannel, s.FrictionRatioQtChannel, s.Sbt90QtChannel,
          s.SptChannel};
}

}  // namespace marlview::bench
