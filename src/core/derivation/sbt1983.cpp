// The 1983 chart's table lookup and the chart data file.
#include "core/derivation/sbt1983.h"

#include <cmath>

#include "core/common/input_fields.h"
#include "core/common/runtime_failure.h"

namespace marlview {
namespace {

int Whole16(double value) {
  const double rounded = std::nearbyint(value);
  if (!(rounded >= -32768 && rounded <= 32767)) Fail(kErrOverflow);
  return static_cast<int>(rounded);
}

// At most 30 blanks are taken from each end for the legend.
std::string LegendCopy(const std::string& label) {
  size_t begin = 0, end = label.size();
  while (begin < end && begin < 30 && label[begin] == ' ') ++begin;
  size_t trimmed = 0;
  while (end > begin && trimmed < 30 && label[end - 1] == ' ') --end, ++trimmed;
  return label.substr(begin, end - begin);
}

void SetFixedLabels(ChartData& chart) {
  chart.ChartTitle[kChart1990] = "Robertson 1990";
  chart.SbtLabels[kChart1990] = {
      "",
      "         Sensitive, fine grained         ",
      "          Organic soils - peats          ",
      "       Clays - clay to silty clay        ",
      "Silt mixtures - clayey silt to silty clay",
      " Sand mixtures - silty sand to sandy silt",
      "    Sands - clean sand to silty sand     ",
      "         Gravelly sand to sand           ",
      "   Very stiff sand to clayey sand **     ",
      "      Very stiff, fine grained **        ",
  };
  chart.ChartTitle[kChart1986] = " Robertson 1986";
  chart.SbtLabels[kChart1986] = {
      "",
      "  Sensitive fine grained   ",
      "     Organic material      ",
      "          Clays            ",
      "    Silty clay to clay     ",
      " Clayey silt to silty clay ",
      " Sandy silt to clayey silt ",
      "  Silty sand to sandy silt ",
      "    sand to silty sand     ",
      "          Sand             ",
      "  Gravelly sand to sand   ",
      "Very stiff fine grained **",
      "  Sand to clayey sand **  ",
  };
  for (int c : {kChart1986, kChart1990}) {
    chart.SbtLegendLabels[c].clear();
    for (const auto& label : chart.SbtLabels[c]) chart.SbtLegendLabels[c].push_back(LegendCopy(label));
    chart.NoteText[c] = "*Soil behavior type and SPT based on data from " + chart.ChartTitle[c];
  }
  chart.OutOfRange1986 = "      <out of range>       ";
  chart.OutOfRange1990 = "             <out of range>              ";
}

}  // namespace

//   7, 90, 0, 12, ...                      curves, last and first column, zones, 8 more words
//   1.0, 1000.0, 0.0                       three numbers for the drawn chart
//   1, 1.0, "   Sensitive fine grained  ", 0.4, 1.3     a zone: number, tip/N, label, label position
//   "Robertson and Campanella (1983)"
//   2, 0.0, 0, 0.0, ...                    per column, per curve: zone above, log10 tip of the curve
void SetChartData(ChartData& chart, std::string_view bytes) {
  chart = ChartData{};
  InputFields in(bytes);
  chart.CurveCount = Whole16(in.Number());
  chart.ColumnMax = Whole16(in.Number());
  chart.ColumnMin = Whole16(in.Number());
  chart.ZoneCount = Whole16(in.Number());
  for (int& word : chart.HeaderWords) word = Whole16(in.Number());
  for (float& number : chart.HeaderFloats) number = static_cast<float>(in.Number());
  if (chart.CurveCount < 0 || chart.CurveCount > kMaxZoneCurves || chart.ColumnLimit() < 0 ||
      chart.ColumnLimit() >= kZoneTableColumns || chart.ZoneCount < 0 || chart.ZoneCount > 1000) {
    Fail(kErrSubscript);
  }
  chart.SptRatio.assign(static_cast<size_t>(chart.ZoneCount) + 1, 0.0f);
  chart.SbtLabels[kChart1983].assign(static_cast<size_t>(chart.ZoneCount) + 1, std::string());
  chart.LabelPositions.assign(static_cast<size_t>(chart.ZoneCount) + 1, {0, 0});
  for (int zone = 1; zone <= chart.ZoneCount; ++zone) {
    in.Number();  // the zone's own number: the record's place is what counts
    chart.SptRatio[zone] = static_cast<float>(in.Number());
    chart.SbtLabels[kChart1983][zone] = in.Text();
    chart.LabelPositions[zone] = {static_cast<float>(in.Number()), static_cast<float>(in.Number())};
  }
  chart.Reference = in.Text();
  for (int i = 0; i <= chart.ColumnLimit(); ++i) {
    for (int k = 1; k <= chart.CurveCount; ++k) {
      chart.ZoneTable1983[k][i] = static_cast<float>(in.Number());
      chart.ZoneTable1983[k + 9][i] = static_cast<float>(in.Number());
    }
  }
  chart.ChartTitle[kChart1983] = chart.Reference;
  chart.NoteText[kChart1983] = "*Soil behavior type and SPT based on data from " + chart.Reference;
  for (const auto& label : chart.SbtLabels[kChart1983]) chart.SbtLegendLabels[kChart1983].push_back(LegendCopy(label));
  SetFixedLabels(chart);
}

Zone1983 LookupZone1983(const ChartData& chart, double tip, double r) {
  Zone1983 result;
  if (r <= 0 || tip <= 0) return result;
  auto spt_of = [&](float zone) {
    if (!(zone >= 0 && zone < static_cast<float>(chart.SptRatio.size())) || std::floor(zone) != zone) {
      Fail(kErrSubscript);
    }
    const double ratio = chart.SptRatio[static_cast<size_t>(zone)];
    if (ratio == 0) Fail(kErrDivisionByZero);
    return std::floor(tip / ratio + 0.5);
  };
  const double column = std::floor(r * 10);
  if (column >= chart.ColumnLimit()) return result;
  const int i = static_cast<int>(column);
  const int j = i + 1;
  // A reading above no curve keeps the default zone 2.
  result.zone = 2;
  result.spt = spt_of(2);
  result.classified = true;
  const double log_tip = std::log(tip) * 0.4342945;
  for (int k = 1; k <= kLookupCurves; ++k) {
    const double b = chart.Boundary(k, i);
    int m = 0;
    for (int n = 1; n <= kLookupCurves; ++n) {
      if (chart.Zone(k, i) == chart.Zone(n, j)) m = n;
    }
    // Between two columns a curve that carries on is interpolated; one that ends is held flat.
    const double boundary = m > 0 ? (r * 10 - i) * (chart.Boundary(m, j) - b) + b : b;
    if (boundary > 0 && log_tip > boundary) {
      result.zone = chart.Zone(k, i);
      result.spt = spt_of(result.zone);
      result.curve_applied = true;
    }
  }
  return result;
}

}  // namespace marlview
