// The 1983 soil behaviour chart, a table of zone curves over friction ratio read from "intubc.asc",
// with the SPT N equivalent of each zone; also the fixed zone labels of the 1986 and 1990 charts.
#pragma once

#include <string_view>

#include "core/session/chart_data.h"

namespace marlview {

// Reads "intubc.asc" and sets the fixed labels of the other charts. A file that is malformed or
// ends early fails with the run-time failure.
void SetChartData(ChartData& chart, std::string_view intubc_bytes);

struct Zone1983 {
  float zone = 0;
  // The SPT N equivalent in whole blows.
  double spt = 0;
  // False for a reading off the table; a reading on it that no curve lies below keeps zone 2.
  bool classified = false;
  bool curve_applied = false;
};
// Zone of tip (bar) and friction ratio r (%) on the table; 0 when unclassified.
Zone1983 LookupZone1983(const ChartData& chart, double tip_bar, double r);

}  // namespace marlview
