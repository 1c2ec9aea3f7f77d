// The zone colour tables.
#include "core/settings/sbt_colors.h"

#include <algorithm>

namespace marlview {

std::vector<ZoneRgb> SbtZoneColors(int zones, float brightness) {
  static const std::vector<ZoneRgb> kNine = {{219, 37, 67},   {219, 133, 149}, {129, 144, 219},
                                             {58, 121, 130},  {185, 210, 134}, {205, 200, 163},
                                             {235, 184, 133}, {130, 130, 130}, {201, 201, 201}};
  static const std::vector<ZoneRgb> kTwelve = {{219, 37, 67},   {219, 133, 149}, {129, 144, 219}, {93, 96, 225},
                                               {58, 121, 130},  {80, 235, 136},  {185, 210, 134}, {222, 224, 140},
                                               {205, 200, 163}, {235, 184, 133}, {201, 201, 201}, {130, 130, 130}};
  std::vector<ZoneRgb> colours = zones == 9 ? kNine : kTwelve;
  const int lift = static_cast<int>(brightness);
  for (ZoneRgb& colour : colours) {
    for (int& component : colour) component = std::clamp(component + lift, 0, 255);
  }
  return colours;
}

}  // namespace marlview
