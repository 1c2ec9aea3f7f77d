// The 1983 soil behaviour chart, a table of zone curves over friction ratio read from "intubc.asc",
// with the SPT N equivalent of each zone; also the fixed zone labels of the 1986 and 1990 charts.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace marlview {

inline constexpr int kZoneTableRows = 18;
inline constexpr int kZoneTableColumns = 100;
inline constexpr int kMaxZoneCurves = 8;
// The lookup tries curves 1..7 only, whatever the file holds.
inline constexpr int kLookupCurves = 7;

enum SbtChart : int { kChart1983 = 0, kChart1986 = 1, kChart1990 = 2 };

struct ChartData {
  // [row][column]: rows 1..8 zone numbers above curve k, rows 10..17 log10 of the tip in bar of
  // that curve; column i stands for a friction ratio of i / 10 %.
  std::array<std::array<float, kZoneTableColumns + 1>, kZoneTableRows + 1> ZoneTable1983{};
  int CurveCount = 0;
  int ColumnMax = 0;
  int ColumnMin = 0;
  int ZoneCount = 0;
  std::array<int, 8> HeaderWords{};
  std::array<float, 3> HeaderFloats{};
  // Tip (bar) over SPT N, by zone.
  std::vector<float> SptRatio;
  // [chart][zone]: the padded label as the chart shows it; the legend copy without blanks.
  std::array<std::vector<std::string>, 3> SbtLabels;
  std::array<std::vector<std::string>, 3> SbtLegendLabels;
  // Label position on the drawn chart, by zone of the 1983 chart.
  std::vector<std::array<float, 2>> LabelPositions;
  std::array<std::string, 3> ChartTitle;
  std::array<std::string, 3> NoteText;
  std::string Reference;
  std::string OutOfRange1986;
  std::string OutOfRange1990;

  int ColumnLimit() const { return ColumnMax - ColumnMin; }
  float Zone(int curve, int column) const { return ZoneTable1983[curve][column]; }
  float Boundary(int curve, int column) const { return ZoneTable1983[curve + 9][column]; }
};

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
