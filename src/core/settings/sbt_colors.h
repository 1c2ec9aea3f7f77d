// The zone colours of the soil behaviour charts, lifted by the user's brightness factor.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace marlview {

using ZoneRgb = std::array<int, 3>;

// SBTZoneColor of the nine-zone or the twelve-zone chart, in zone order; each component raised by
// the brightness factor and held at 255.
std::vector<ZoneRgb> SbtZoneColors(int zones, float brightness);

}  // namespace marlview
