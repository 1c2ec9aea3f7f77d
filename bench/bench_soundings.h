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

// A 100 m push of 10000 readings through layers of sand, silt and clay, in psi: a tip that stays
// above the overburden all the way down, so every reading is normalised and n is iterated.
inline test::DatFile LongSoilSounding() {
  test::DatFile file = test::SimpleDat(0);
  for (int r = 1; r <= kMaxReadings; ++r) {
    const double depth = 0.01 * r;
    const double tip = 400 + 12 * depth + 350 * std::sin(depth * 0.9);
    const double ratio = 0.012 + 0.01 * std::cos(depth * 1.7);
    file.rows.push_back({depth, tip, tip * ratio, 1.42 * depth + 15 * std::sin(depth * 2.3)});
  }
  return file;
}

// The six most plotted and printed channels.
inline std::vector<int> SixChannels(const SoundingStore& s) {
  return {s.TipChannel, s.SleeveChannel, s.PorePressureChannel, s.FrictionRatioQtChannel, s.Sbt90QtChannel,
          s.SptChannel};
}

}  // namespace marlview::bench
