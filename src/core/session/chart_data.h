// The soil behaviour charts' data the session holds from start-up: the 1983 chart's table of zone
// curves read from "intubc.asc", with the SPT N equivalent of each zone, and the fixed zone labels,
// titles and notes of the 1986 and 1990 charts.
#pragma once

#include <array>
#include <string>
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

}  // namespace marlview
