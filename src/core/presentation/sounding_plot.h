// The sounding plot: up to six channel columns against a common depth axis, with scales, grid,
// water table and comments, drawn once on any drawing surface.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/common/user_prompts.h"
#include "core/model/column_table.h"
#include "core/presentation/drawing_surface.h"

namespace marlview {

class Session;
class SoundingStore;

inline constexpr int kMaxPlotColumns = 6;
inline constexpr int kMaxListColumns = 30;

struct PlotComment {
  std::string text;
  // Metres.
  double depth_m = 0;
};

// The plot's state, shared with the scale dialog and the list.
struct PlotState {
  int PlotChannelCount = 0;
  std::array<int, kMaxListColumns + 1> PlotChannels{};
  double PlotAreaLeft = 0, PlotAreaWidth = 0, PlotAreaTop = 0, PlotAreaHeight = 0;
  std::array<double, kMaxListColumns + 1> PlotColumnLeft{}, PlotColumnWidth{};
  // In the current depth unit.
  double DepthAxisMin = 0, DepthAxisMax = 1, DepthAxisStep = 1;
  std::array<double, kMaxListColumns + 1> AxisMin{}, AxisMax{}, AxisStep{};
  std::array<int, kMaxListColumns + 1> MinorCount{};
  std::array<bool, kMaxListColumns + 1> AxisMinorTicks{};
  bool ElevationMode = false;
  // 1: metres; otherwise feet.
  int DepthUnit = 1;
  bool GridOn = true;
  bool ScaleSetByUser = false;
  // Which soil behaviour chart the SBT columns show: 1 (1983), 2 (1986) or 3 (1990).
  int SbtChartChoice = 1;
  std::vector<PlotComment> comments;
};

struct AxisSteps {
  double step = 1;
  int minor = 10;
  // Set where the finder also fixes the axis's upper bound.
  std::optional<double> upper;
};

// The major step and minor tick count of an axis from its maximum and minimum.
AxisSteps FindAxisSteps(double maximum, double minimum);

// Chooses the columns (at most six) and scales them and the depth axis automatically.
void SetupPlot(PlotState& plot, const Session& session, const std::vector<int>& channels, int sbt_chart_choice);
void AutoScale(PlotState& plot, const Session& session);
// Divides the plot area between the columns; the first tip column takes a double share.
void DivideColumns(PlotState& plot, const SoundingStore& store);

// A depth in the plot's depth unit, from metres.
double PlotDepth(const PlotState& plot, const Session& session, double depth_m);
double DepthToY(const PlotState& plot, double depth);
double ValueToX(const PlotState& plot, int column, double value);

// The trace of column i from table_column of table (a kind of a channel), by the plot's mapping and
// cut at the column's limits; the rod break tool draws its graphs through it too.
void DrawTrace(DrawingSurface& surface, const PlotState& plot, const Session& session, int i,
               const ColumnTable<float>& table, int table_column, Colour colour);

// Draws the plot window's picture on surface, whose logical size is width x height: the plot page
// of the sounding report as the window holds it, with the header of the print settings.
void GraphData(DrawingSurface& surface, double width, double height, PlotState& plot, const Session& session);
// The pens of the print settings: widths of the borders, the curves and the grid, and colour or
// black and grey.
struct PlotPens {
  int border = 1;
  int data = 1;
  int grid = 1;
  bool colour = true;
};
// The plot itself (depth axis, columns with their captions and scales, water table, comments) in
// the frame left..right, top..bottom of a surface already scaled; the captions take the frame's top.
void DrawPlotArea(DrawingSurface& surface, double left, double top, double right, double bottom, PlotState& plot,
                  const Session& session, const PlotPens& pens = {});

// The y of the marker line of a reading: its depth over the axis span, without taking off the
// axis minimum (kept as the plot always drew it). Nothing for a row below 1.
std::optional<double> LineDrawY(const PlotState& plot, const Session& session, int row);

// The read-out under the mouse at logical (x, y): the depth and each column's value, "No Data"
// past the last reading, nothing outside the plot area.
struct Readout {
  std::string depth;
  std::vector<std::string> values;
};
std::optional<Readout> ReadoutAt(const PlotState& plot, const Session& session, double x, double y);

// frmComments' OK: the comment is checked and, when good, kept for the sounding.
bool AddComment(PlotState& plot, const Session& session, std::string_view text, std::string_view depth,
                UserPrompts& prompts);

// frmScaleSounding's OK; false (and the message) when a minimum is not below its maximum.
struct ColumnScale {
  double min = 0, max = 1;
  bool minor_ticks = false;
};
bool ApplyUserScale(PlotState& plot, double depth_min, double depth_max, const std::vector<ColumnScale>& columns,
                    UserPrompts& prompts);

// Scale files (.SCL): the depth axis and each column's axis.
std::string WriteScaleFile(const PlotState& plot, const SoundingStore& store);
void LoadScaleFile(PlotState& plot, const SoundingStore& store, std::string_view bytes, UserPrompts& prompts);

// A zone's colour on the soil behaviour columns, lightened by the brightness setting.
Colour ZoneColour(int zone, int brightness);

}  // namespace marlview
