// The 1983 soil classification chart: the zone boundaries of "intubc.asc" on a logarithmic tip
// axis against the friction ratio, with the sounding's readings over them, drawn once for the
// window, the picture and the printed page.
#pragma once

#include <optional>
#include <vector>

#include "core/presentation/drawing_surface.h"

namespace marlview {

class PrintJob;
class Session;
struct ChartData;

// A place in the chart rectangle as fractions of its width (from the left) and height (from the
// top); outside 0..1 when off the chart.
struct ChartPlace {
  double x = 0;
  double y = 0;
};

// Where a friction ratio (%) and a tip (bar) fall: three decades of tip from 1 bar at the bottom
// to 1000 at the top, the friction ratio linear over the table's columns. Nothing when either is
// 0 or less, for such a reading is never drawn.
std::optional<ChartPlace> PlaceOnChart(const ChartData& chart, double friction_ratio, double tip_bar);

struct ChartZoneLabel {
  int zone = 0;
  // Nothing when the record's tip is 0 or less.
  std::optional<ChartPlace> place;
};
// The place of each zone's number, from the two label floats of its record: a friction ratio (%)
// and a tip (bar), placed as a reading is.
std::vector<ChartZoneLabel> ZoneLabelPlaces(const ChartData& chart);

// A reading as the chart shows it.
struct ChartPoint {
  int row = 0;
  // In the chart's depth unit.
  double depth = 0;
  double friction_ratio = 0;
  double tip_bar = 0;
  std::optional<ChartPlace> place;
  // The reading's 1983 zone; 0 when unclassified.
  int zone = 0;
};
// depth_unit 1: metres; otherwise feet.
ChartPoint ChartPointOf(const Session& session, int row, int depth_unit);

// The 1983 chart of the zone table, or the 1990 Qt-Fr chart with the normalised readings (Qtn
// against the normalised friction ratio) and the Ic contours over it.
enum class ChartKind { kUbc1983, kNormalised };

// Where a normalised friction ratio (%) and a Qtn fall on the 1990 chart: two decades of friction
// ratio from 0.1 % at the left, three of Qtn from 1 at the bottom. Nothing when either is 0 or less.
std::optional<ChartPlace> PlaceOnNormalisedChart(double fr, double qtn);
using ChartPolyline = std::vector<ChartPlace>;
// The zone boundaries of the 1990 Qt-Fr chart: the pieces of its boundary curves that part two zones.
std::vector<ChartPolyline> NormalisedChartBoundaries();
// The curve of one soil behaviour type index, clipped to the chart.
std::vector<ChartPolyline> IcContour(double ic);
// The indices whose contours part the SBTn zones.
inline constexpr double kIcContours[] = {1.31, 2.05, 2.60, 2.95, 3.60};
// Where each zone's number goes on the 1990 chart: inside the zone, near its middle.
std::vector<ChartZoneLabel> NormalisedZoneLabels();

// A reading of the normalised channels; no place when the sounding has none or the reading was
// not normalised.
struct NormalisedChartPoint {
  int row = 0;
  double depth = 0;
  double fr = 0;
  double qtn = 0;
  double ic = 0;
  int zone = 0;
  std::optional<ChartPlace> place;
};
NormalisedChartPoint NormalisedChartPointOf(const Session& session, int row, int depth_unit);

// What the chart window shows: the readings from first_row on; row first_row is the one read out.
struct ChartView {
  ChartKind kind = ChartKind::kUbc1983;
  int first_row = 1;
  int depth_unit = 1;
  // False draws the chart alone, as the fixed picture of the chart.
  bool readings = true;
};

// The chart on a surface of logical size width x height.
void DrawClassificationChart(DrawingSurface& surface, double width, double height, const Session& session,
                             const ChartView& view);
// The same on one printed page, with the title block.
void PrintChart(PrintJob& job, const Session& session, const ChartView& view);

}  // namespace marlview
