// The sounding plot engine: scales, column division, the mapping and cutting of segments, the
// three curve styles, axes, grid, water table and comments.
#include "core/presentation/sounding_plot.h"

#include <algorithm>
#include <cmath>

#include "core/common/line_cursor.h"
#include "core/common/number_format.h"
#include "core/common/number_read.h"
#include "core/common/runtime_failure.h"
#include "core/common/text_rules.h"
#include "core/derivation/normalised_sbt.h"
#include "core/presentation/sounding_report.h"
#include "core/session/gef_pairing.h"
#include "core/session/session.h"

namespace marlview {
namespace {

// Share of the plot width per column, for 1 to 6 columns: equal, beside a tip column, the tip column.
constexpr double kEqualShare[] = {0, 1, 0.5, 0.33333333, 0.25, 0.2, 0.16666666};
constexpr double kBesideTipShare[] = {0, 1, 0.333333, 0.25, 0.2, 0.1666666, 0.142857};
constexpr double kTipShare[] = {0, 1, 0.666666, 0.5, 0.4, 0.3333333, 0.2857143};

constexpr Colour kZoneColours[] = {
    {255, 255, 255}, {255, 0, 0},   {176, 176, 176}, {128, 128, 128}, {128, 0, 0},
    {128, 64, 64},   {128, 128, 0}, {0, 64, 0},      {0, 128, 128},   {192, 192, 255},
    {255, 160, 0},   {255, 0, 16},  {128, 128, 255},
};
constexpr Colour kGridColour{192, 192, 192};
constexpr Colour kWaterTableColour{0, 0, 255};
constexpr Colour kCommentColour{0, 0, 128};
constexpr Colour kDissipationColour{0, 128, 0};

struct StepRow {
  double up_to;
  double step;
  int minor;  // 0: not given
};
constexpr StepRow kStepRows[] = {
    {10, 1, 10},        {20, 2, 3},         {50, 5, 0},          {100, 10, 0},       {200, 20, 3},
    {500, 50, 4},       {1000, 100, 0},     {2000, 200, 3},      {5000, 500, 4},     {10000, 1000, 0},
    {20000, 2000, 3},   {50000, 5000, 4},   {100000, 10000, 0},  {200000, 20000, 3}, {500000, 50000, 4},
};
// Minor ticks of the rows that give none.
constexpr int kDefaultMinor = 5;

double Value(const SoundingStore& s, int r, int c) { return s.AlignedReadings(r, KindColumn(c, kGraphOutput)); }

std::string DepthUnitText(const PlotState& plot) { return plot.DepthUnit == 1 ? "(m)" : "(ft)"; }

// Cuts the segment (x0, y0)-(x1, y1) to the rectangle; false when nothing of it is inside.
bool CutToRectangle(double& x0, double& y0, double& x1, double& y1, double left, double top, double right,
                    double bottom) {
  double t0 = 0, t1 = 1;
  const double dx = x1 - x0, dy = y1 - y0;
  const double p[] = {-dx, dx, -dy, dy};
  const double q[] = {x0 - left, right - x0, y0 - top, bottom - y0};
  for (int i = 0; i < 4; ++i) {
    if (p[i] == 0) {
      if (q[i] < 0) return false;
      continue;
    }
    const double t = q[i] / p[i];
    if (p[i] < 0) t0 = std::max(t0, t);
    else t1 = std::min(t1, t);
  }
  if (t0 > t1) return false;
  const double ax = x0 + t0 * dx, ay = y0 + t0 * dy, bx = x0 + t1 * dx, by = y0 + t1 * dy;
  x0 = ax, y0 = ay, x1 = bx, y1 = by;
  return true;
}

class PlotDrawing {
 public:
  PlotDrawing(DrawingSurface& surface, PlotState& plot, const Session& session, const PlotPens& pens)
      : g_(surface), plot_(plot), session_(session), s_(session.Sounding()), pens_(pens) {}

  void Draw(double left, double top, double right, double bottom);

 private:
  void DepthAxis();
  void Column(int i);
  void StepCurve(int i, bool zones);
  void WaterTable();
  void Comments();
  void PairedDissipation();
  double Depth(int r) const { return PlotDepth(plot_, session_, s_.DepthTable(r, 1)); }
  void Text(double x, double y, const std::string& text) {
    g_.SetCurrentXY(x, y);
    g_.Print(text);
  }
  // A line in a pen of its own width, back to the border's pen after it.
  void PenLine(double x1, double y1, double x2, double y2, Colour colour, int width) {
    g_.SetDrawWidth(width);
    g_.Line(x1, y1, x2, y2, colour);
    g_.SetDrawWidth(pens_.border);
  }
  Colour Trace() const { return pens_.colour ? kRed : kBlack; }

  DrawingSurface& g_;
  PlotState& plot_;
  const Session& session_;
  const SoundingStore& s_;
  const PlotPens& pens_;
};

// The column captions and scales stand in the top of the frame, the depth labels in its left.
void PlotDrawing::Draw(double left, double top, double right, double bottom) {
  g_.SetFont("Arial", 8, false, false);
  g_.SetDrawWidth(pens_.border);
  const double line = g_.TextHeight("Ag");
  const double width = right - left;
  plot_.PlotAreaLeft = std::floor(left + width * 0.08);
  plot_.PlotAreaWidth = std::floor(width * 0.91);
  plot_.PlotAreaTop = std::floor(top + line * 3.5);
  plot_.PlotAreaHeight = std::max(1.0, std::floor(bottom - plot_.PlotAreaTop));
  DivideColumns(plot_, s_);
  DepthAxis();
  for (int i = 1; i <= plot_.PlotChannelCount; ++i) Column(i);
  WaterTable();
  Comments();
  PairedDissipation();
}

void PlotDrawing::DepthAxis() {
  const double top = plot_.PlotAreaTop, bottom = top + plot_.PlotAreaHeight;
  const double left = plot_.PlotAreaLeft;
  g_.Line(left, top, left, bottom, kBlack);
  const std::string caption = (plot_.ElevationMode ? "Elev. " : "Depth ") + DepthUnitText(plot_);
  Text(std::max(0.0, left - g_.TextWidth(caption) - 2), top - g_.TextHeight("Ag") * 2.2, caption);
  const double step = plot_.DepthAxisStep > 0 ? plot_.DepthAxisStep : 1;
  const double first = std::ceil(plot_.DepthAxisMin / step) * step;
  for (double d = first; d <= plot_.DepthAxisMax + step * 1e-9; d += step) {
    const double y = DepthToY(plot_, d);
    g_.Line(left - 4, y, left, y, kBlack);
    const std::string label = FormatNumber(plot_.ElevationMode ? -d : d, "###0");
    Text(left - g_.TextWidth(label) - 6, y - g_.TextHeight(label) / 2, label);
    if (plot_.GridOn) PenLine(left, y, left + plot_.PlotAreaWidth, y, kGridColour, pens_.grid);
  }
}

void PlotDrawing::Column(int i) {
  const int c = plot_.PlotChannels[i];
  const double left = plot_.PlotColumnLeft[i], width = plot_.PlotColumnWidth[i];
  const double top = plot_.PlotAreaTop, bottom = top + plot_.PlotAreaHeight;
  const double line = g_.TextHeight("Ag");
  g_.Box(left, top, left + width, bottom, kBlack, false);
  Text(left + 2, top - line * 3.2, s_.ChannelShortName[c]);
  Text(left + 2, top - line * 2.2, s_.ChannelUnitLabel[c][kGraphOutput]);
  // Ticks and labels at the minimum, at each major step and at the maximum.
  const double min = plot_.AxisMin[i], max = plot_.AxisMax[i], step = plot_.AxisStep[i];
  const char* pattern = (max - min) <= 10 ? "##0.00" : "####0.0";
  std::vector<double> ticks{min};
  if (step > 0) {
    for (double v = std::floor(min / step + 1) * step; v < max - step * 1e-9; v += step) ticks.push_back(v);
  }
  ticks.push_back(max);
  double last_label_right = -1e300;
  for (double v : ticks) {
    const double x = ValueToX(plot_, i, v);
    g_.Line(x, top, x, top - 4, kBlack);
    if (plot_.GridOn && v != min && v != max) PenLine(x, top, x, bottom, kGridColour, pens_.grid);
    const std::string label = FormatNumber(v, pattern);
    // Labels stay inside their column and never run into the one before.
    const double label_left = std::clamp(x - g_.TextWidth(label) / 2, left + 1, left + width - g_.TextWidth(label) - 1);
    if (label_left > last_label_right + 3) {
      Text(label_left, top - line * 1.1, label);
      last_label_right = label_left + g_.TextWidth(label);
    }
  }
  if (plot_.AxisMinorTicks[i] && step > 0 && plot_.MinorCount[i] > 0) {
    const double minor = step / plot_.MinorCount[i];
    for (double v = min; v <= max; v += minor) {
      const double x = ValueToX(plot_, i, v);
      g_.Line(x, top, x, top + 3, kBlack);
    }
  }
  const int style = s_.ChannelCurveStyle[c];
  if (style == 2) StepCurve(i, true);
  else if (style == 1) StepCurve(i, false);
  else {
    g_.SetDrawWidth(pens_.data);
    DrawTrace(g_, plot_, session_, i, s_.AlignedReadings, KindColumn(c, kGraphOutput), Trace());
    g_.SetDrawWidth(pens_.border);
  }
}

// Soil behaviour types as bars in their zone colours; SPT N* as a step trace of its own.
void PlotDrawing::StepCurve(int i, bool zones) {
  const int c = plot_.PlotChannels[i];
  const double left = plot_.PlotColumnLeft[i], right = left + plot_.PlotColumnWidth[i];
  const double top = plot_.PlotAreaTop, bottom = top + plot_.PlotAreaHeight;
  const int brightness = static_cast<int>(session_.SbtBrightnessFactor);
  double previous_y = DepthToY(plot_, Depth(1));
  for (int r = 1; r <= s_.ReadingCount; ++r) {
    const double y = DepthToY(plot_, Depth(r));
    const double y0 = std::clamp(std::min(previous_y, y), top, bottom);
    const double y1 = std::clamp(std::max(previous_y, y), top, bottom);
    previous_y = y;
    const double v = Value(s_, r, c);
    if (zones) {
      const int zone = static_cast<int>(v);
      if (zone < 1 || zone > 12 || static_cast<double>(zone) != v) continue;
      const double x = std::clamp(ValueToX(plot_, i, v), left, right);
      const Colour colour = ZoneColour(zone, brightness);
      // Without colour a zone keeps its lightness as a grey.
      const auto grey = static_cast<uint8_t>((colour.r * 30 + colour.g * 59 + colour.b * 11) / 100);
      if (y1 > y0) g_.Box(left, y0, x, y1, pens_.colour ? colour : Colour{grey, grey, grey}, true);
      continue;
    }
    if (v <= plot_.AxisMin[i]) continue;
    const double x = std::clamp(ValueToX(plot_, i, v), left, right);
    PenLine(left, y1, x, y1, Trace(), pens_.data);
    if (y1 > y0) PenLine(x, y0, x, y1, Trace(), pens_.data);
  }
}

void PlotDrawing::WaterTable() {
  if (s_.WaterTableDepth == -99) return;
  const double d = PlotDepth(plot_, session_, s_.WaterTableDepth);
  if (d < plot_.DepthAxisMin || d > plot_.DepthAxisMax) return;
  const double y = DepthToY(plot_, d);
  const double left = plot_.PlotAreaLeft;
  g_.Line(left - 10, y, left + plot_.PlotAreaWidth, y, pens_.colour ? kWaterTableColour : kBlack);
  Text(left + 2, y - g_.TextHeight("Ag"), " WT: " + FormatNumber(d, " ###0"));
}

// The dissipation taken in this push, marked at its depth across the plot.
void PlotDrawing::PairedDissipation() {
  const std::optional<float> depth_m = PairedDissipationDepth(s_, session_.Dissipation());
  if (!depth_m) return;
  const double d = PlotDepth(plot_, session_, *depth_m);
  if (d < plot_.DepthAxisMin || d > plot_.DepthAxisMax) return;
  const double y = DepthToY(plot_, d);
  const double right = plot_.PlotAreaLeft + plot_.PlotAreaWidth;
  g_.Line(right - 40, y, right, y, pens_.colour ? kDissipationColour : kBlack);
  Text(right - 40, y - g_.TextHeight("Ag"), "DISS");
}

void PlotDrawing::Comments() {
  for (const PlotComment& comment : plot_.comments) {
    const double d = PlotDepth(plot_, session_, comment.depth_m);
    if (d < plot_.DepthAxisMin || d > plot_.DepthAxisMax) continue;
    const double y = DepthToY(plot_, d);
    g_.Line(plot_.PlotAreaLeft, y, plot_.PlotAreaLeft + 12, y, kCommentColour);
    Text(plot_.PlotAreaLeft + 14, y - g_.TextHeight("Ag") / 2, comment.text);
  }
}

}  // namespace

AxisSteps FindAxisSteps(double maximum, double minimum) {
  const double r = std::fabs(maximum);
  AxisSteps steps;
  if (r == 0) return {1, 10, 1.0};
  bool found = false;
  for (const StepRow& row : kStepRows) {
    if (r <= row.up_to) {
      steps.step = row.step;
      steps.minor = row.minor != 0 ? row.minor : kDefaultMinor;
      found = true;
      break;
    }
  }
  if (!found) {
    steps.step = 100000;
    steps.minor = kDefaultMinor;
    steps.upper = 1e6;
  }
  if (maximum - minimum == 1) return {1, 10, steps.upper};
  if (steps.step == 1) steps.minor = std::floor(maximum - minimum) < 3 ? 9 : 1;
  return steps;
}

double PlotDepth(const PlotState& plot, const Session& session, double depth_m) {
  return plot.DepthUnit == 1 ? depth_m : depth_m * session.FeetPerMetre;
}

double DepthToY(const PlotState& plot, double depth) {
  const double span = plot.DepthAxisMax - plot.DepthAxisMin;
  if (span == 0) return plot.PlotAreaTop;
  return plot.PlotAreaTop + (depth - plot.DepthAxisMin) / span * plot.PlotAreaHeight;
}

double ValueToX(const PlotState& plot, int column, double value) {
  const double span = plot.AxisMax[column] - plot.AxisMin[column];
  const double left = plot.PlotColumnLeft[column], width = plot.PlotColumnWidth[column];
  if (span == 0) return left;
  return std::clamp(left + (value - plot.AxisMin[column]) / span * width, left, left + width);
}

void SetupPlot(PlotState& plot, const Session& session, const std::vector<int>& channels, int sbt_chart_choice) {
  plot.PlotChannelCount = std::min<int>(static_cast<int>(channels.size()), kMaxPlotColumns);
  plot.PlotChannels.fill(0);
  for (int i = 1; i <= plot.PlotChannelCount; ++i) plot.PlotChannels[i] = channels[i - 1];
  plot.DepthUnit = session.DepthUnitIsMetric == 1 ? 1 : 2;
  plot.SbtChartChoice = sbt_chart_choice;
  plot.ScaleSetByUser = false;
  AutoScale(plot, session);
}

void AutoScale(PlotState& plot, const Session& session) {
  const SoundingStore& s = session.Sounding();
  for (int i = 1; i <= plot.PlotChannelCount; ++i) {
    const int c = plot.PlotChannels[i];
    plot.AxisMinorTicks[i] = false;
    if (c == s.Sbt83Channel || c == s.Sbt86FrChannel || c == s.Sbt86PpChannel) {
      plot.AxisMin[i] = 0, plot.AxisMax[i] = 12, plot.AxisStep[i] = 1, plot.MinorCount[i] = 13;
      continue;
    }
    if (c == s.Sbt90QtChannel || c == s.Sbt90BqChannel || IsSbtnChannel(s, c)) {
      plot.AxisMin[i] = 0, plot.AxisMax[i] = 9, plot.AxisStep[i] = 1, plot.MinorCount[i] = 10;
      continue;
    }
    double low = 1e30, high = -1e30;
    for (int r = 1; r <= s.ReadingCount; ++r) {
      low = std::min(low, Value(s, r, c));
      high = std::max(high, Value(s, r, c));
    }
    if (s.ReadingCount == 0) low = high = 0;
    const bool inclination = c != 0 && (c == s.InclXChannel || c == s.InclYChannel);
    plot.AxisMin[i] = inclination && low < -15 ? -15 : 0;
    plot.AxisMax[i] = high;
    const AxisSteps steps = FindAxisSteps(plot.AxisMax[i], plot.AxisMin[i]);
    plot.AxisStep[i] = steps.step;
    plot.MinorCount[i] = steps.minor;
    if (steps.upper) plot.AxisMax[i] = *steps.upper;
    if (plot.AxisMax[i] <= plot.AxisMin[i]) plot.AxisMax[i] = plot.AxisMin[i] + steps.step;
  }
  const int n = s.ReadingCount;
  double top = n >= 1 ? s.DepthTable(1, 1) - s.StartDepth : 0;
  if (top > -s.StartDepth && top < 0) top = 0;
  plot.DepthAxisMin = PlotDepth(plot, session, top);
  plot.DepthAxisMax = PlotDepth(plot, session, n >= 1 ? s.DepthTable(n, 1) : 1);
  if (plot.DepthAxisMax <= plot.DepthAxisMin) plot.DepthAxisMax = plot.DepthAxisMin + 1;
  plot.DepthAxisStep = FindAxisSteps(plot.DepthAxisMax - plot.DepthAxisMin, 0).step;
}

void DivideColumns(PlotState& plot, const SoundingStore& s) {
  const int n = std::clamp(plot.PlotChannelCount, 0, kMaxPlotColumns);
  int tip = 0;
  for (int i = 1; i <= n && tip == 0; ++i) {
    const int c = plot.PlotChannels[i];
    if (c != 0 && (c == s.TipChannel || c == s.TipQtChannel)) tip = i;
  }
  double left = plot.PlotAreaLeft;
  for (int i = 1; i <= n; ++i) {
    const double share = tip == 0 ? kEqualShare[n] : (i == tip ? kTipShare[n] : kBesideTipShare[n]);
    plot.PlotColumnLeft[i] = std::floor(left);
    plot.PlotColumnWidth[i] = std::floor(share * plot.PlotAreaWidth);
    left = plot.PlotColumnLeft[i] + plot.PlotColumnWidth[i];
  }
}

// A connected trace through the readings, cut at the column's limits; on screen a long series is
// drawn as the range of its values in each pixel row.
void DrawTrace(DrawingSurface& g, const PlotState& plot, const Session& session, int i,
               const ColumnTable<float>& table, int table_column, Colour colour) {
  const SoundingStore& s = session.Sounding();
  const double left = plot.PlotColumnLeft[i], right = left + plot.PlotColumnWidth[i];
  const double top = plot.PlotAreaTop, bottom = top + plot.PlotAreaHeight;
  const double min = plot.AxisMin[i], max = plot.AxisMax[i];
  const double span = max - min;
  if (span == 0) return;
  auto x_of = [&](double v) { return left + (v - min) / span * plot.PlotColumnWidth[i]; };
  auto value = [&](int r) { return static_cast<double>(table(r, table_column)); };
  auto depth = [&](int r) { return PlotDepth(plot, session, s.DepthTable(r, 1)); };
  // A reading the file did not give leaves a gap: no line is drawn to or from it.
  const int channel = table_column % 100;
  const bool gaps = s.MissingReading.RowsHeld(channel) > 0;
  auto missing = [&](int r) { return gaps && s.IsMissing(r, channel); };
  const int n = s.ReadingCount;
  const double pixel = std::abs(g.PixelHeight());
  const bool decimate = !g.IsPrinter() && pixel > 0 && n > 2 * plot.PlotAreaHeight / pixel;
  if (!decimate) {
    for (int r = 2; r <= n; ++r) {
      if (missing(r - 1) || missing(r)) continue;
      double x0 = x_of(value(r - 1)), y0 = DepthToY(plot, depth(r - 1));
      double x1 = x_of(value(r)), y1 = DepthToY(plot, depth(r));
      if (CutToRectangle(x0, y0, x1, y1, left, top, right, bottom)) g.Line(x0, y0, x1, y1, colour);
    }
    return;
  }
  // One vertical stroke per pixel row from the least to the greatest value in it, joined to the next.
  double row_y = -1, low = 0, high = 0, last_x = 0, last_y = -1;
  auto flush = [&] {
    if (row_y < 0) return;
    double a = low, b = high, ya = row_y, yb = row_y;
    if (last_y >= 0) {
      double jx0 = last_x, jy0 = last_y, jx1 = a, jy1 = row_y;
      if (CutToRectangle(jx0, jy0, jx1, jy1, left, top, right, bottom)) g.Line(jx0, jy0, jx1, jy1, colour);
    }
    if (CutToRectangle(a, ya, b, yb, left, top, right, bottom)) g.Line(a, ya, b, yb, colour);
    last_x = high, last_y = row_y;
  };
  for (int r = 1; r <= n; ++r) {
    if (missing(r)) {
      flush();
      row_y = -1, last_y = -1;
      continue;
    }
    const double y = DepthToY(plot, depth(r));
    const double snapped = top + std::floor((y - top) / pixel) * pixel;
    const double x = x_of(value(r));
    if (snapped != row_y) {
      flush();
      row_y = snapped, low = x, high = x;
    } else {
      low = std::min(low, x), high = std::max(high, x);
    }
  }
  flush();
}

void DrawPlotArea(DrawingSurface& surface, double left, double top, double right, double bottom, PlotState& plot,
                  const Session& session, const PlotPens& pens) {
  PlotDrawing(surface, plot, session, pens).Draw(left, top, right, bottom);
}

void GraphData(DrawingSurface& surface, double width, double height, PlotState& plot, const Session& session) {
  InProcedure("GraphData", [&] { DrawPlotWindowPage(surface, width, height, plot, session); });
}

std::optional<double> LineDrawY(const PlotState& plot, const Session& session, int row) {
  if (row < 1 || row > session.Sounding().ReadingCount) return std::nullopt;
  const double span = plot.DepthAxisMax - plot.DepthAxisMin;
  if (span == 0) return std::nullopt;
  const double depth = PlotDepth(plot, session, session.Sounding().DepthTable(row, 1));
  return depth / span * plot.PlotAreaHeight + plot.PlotAreaTop;
}

std::optional<Readout> ReadoutAt(const PlotState& plot, const Session& session, double x, double y) {
  if (x < plot.PlotAreaLeft || x > plot.PlotAreaLeft + plot.PlotAreaWidth || y < plot.PlotAreaTop ||
      y > plot.PlotAreaTop + plot.PlotAreaHeight || plot.PlotAreaHeight <= 0) {
    return std::nullopt;
  }
  const SoundingStore& s = session.Sounding();
  const double depth =
      plot.DepthAxisMin + (y - plot.PlotAreaTop) / plot.PlotAreaHeight * (plot.DepthAxisMax - plot.DepthAxisMin);
  Readout readout;
  int row = 0;
  for (int r = 1; r <= s.ReadingCount && row == 0; ++r) {
    if (PlotDepth(plot, session, s.DepthTable(r, 1)) >= depth) row = r;
  }
  if (row == 0) {
    readout.depth = "No Data";
    readout.values.assign(static_cast<size_t>(plot.PlotChannelCount), "No Data");
    return readout;
  }
  readout.depth = FormatNumber(PlotDepth(plot, session, s.DepthTable(row, 1)), "###0.00") + " " + DepthUnitText(plot);
  for (int i = 1; i <= plot.PlotChannelCount; ++i) {
    const int c = plot.PlotChannels[i];
    const std::string& pattern = s.ChannelFormat[c][kGraphOutput];
    readout.values.push_back(FormatNumber(Value(s, row, c), pattern.empty() ? "######0.000" : pattern));
  }
  return readout;
}

bool AddComment(PlotState& plot, const Session& session, std::string_view text, std::string_view depth,
                UserPrompts& prompts) {
  if (text.empty()) {
    prompts.Tell("NO TEXT TO PLACE");
    return false;
  }
  if (TrimBlanks(depth).empty()) {
    prompts.Tell("NO DEPTH SPECIFIED");
    return false;
  }
  const double value = LenientNumber(depth);
  const std::string unit = plot.DepthUnit == 1 ? " (m)" : " (ft)";
  if (value < plot.DepthAxisMin) {
    prompts.Tell("DEPTH MUST BE GREATER THAN: " + FormatNumber(plot.DepthAxisMin, "###0.00") + unit);
    return false;
  }
  if (value > plot.DepthAxisMax) {
    prompts.Tell("DEPTH MUST BE LESS THAN: " + FormatNumber(plot.DepthAxisMax, "###0.00") + unit);
    return false;
  }
  plot.comments.push_back({std::string(text), plot.DepthUnit == 1 ? value : value / session.FeetPerMetre});
  return true;
}

bool ApplyUserScale(PlotState& plot, double depth_min, double depth_max, const std::vector<ColumnScale>& columns,
                    UserPrompts& prompts) {
  bool good = depth_min < depth_max;
  for (const ColumnScale& column : columns) good = good && column.min < column.max;
  if (!good) {
    prompts.Tell("MIN value(s) must be less than MAX value(s)");
    return false;
  }
  plot.DepthAxisMin = depth_min;
  plot.DepthAxisMax = depth_max;
  plot.DepthAxisStep = FindAxisSteps(depth_max - depth_min, 0).step;
  for (size_t i = 0; i < columns.size() && static_cast<int>(i) < plot.PlotChannelCount; ++i) {
    const int column = static_cast<int>(i) + 1;
    plot.AxisMin[column] = columns[i].min;
    plot.AxisMax[column] = columns[i].max;
    plot.AxisMinorTicks[column] = columns[i].minor_ticks;
    const AxisSteps steps = FindAxisSteps(columns[i].max, columns[i].min);
    plot.AxisStep[column] = steps.step;
    plot.MinorCount[column] = steps.minor;
  }
  plot.ScaleSetByUser = true;
  return true;
}

//   Depth
//   1
//   0
//   25
//   Tip Resistance (Qc)        then per column: name, display unit, min, max, minor tick flag
std::string WriteScaleFile(const PlotState& plot, const SoundingStore& s) {
  std::string out = "Depth\r\n";
  auto number = [&out](double value) { out += ShortestText(value) + "\r\n"; };
  number(plot.DepthUnit == 1 ? 1 : 2);
  number(plot.DepthAxisMin);
  number(plot.DepthAxisMax);
  for (int i = 1; i <= plot.PlotChannelCount; ++i) {
    const int c = plot.PlotChannels[i];
    out += s.ChannelName[c] + "\r\n";
    number(s.ChannelDisplayUnit[c][kGraphOutput]);
    number(plot.AxisMin[i]);
    number(plot.AxisMax[i]);
    number(plot.AxisMinorTicks[i] ? 1 : 0);
  }
  return out;
}

void LoadScaleFile(PlotState& plot, const SoundingStore& s, std::string_view bytes, UserPrompts& prompts) {
  InProcedure("LoadScale", [&] {
    LineCursor lines(bytes);
    lines.Next();
    const int unit = static_cast<int>(LenientNumber(lines.Next()));
    const double depth_min = LenientNumber(lines.Next());
    const double depth_max = LenientNumber(lines.Next());
    const bool saved_metres = unit == 1, now_metres = plot.DepthUnit == 1;
    if (saved_metres == now_metres) {
      plot.DepthAxisMin = depth_min;
      plot.DepthAxisMax = depth_max;
      plot.DepthAxisStep = FindAxisSteps(depth_max - depth_min, 0).step;
    } else if (saved_metres) {
      prompts.Tell("Saved depth scale is in meters. Current depth units are in feet. Cannot set depth min/max");
    } else {
      prompts.Tell("Saved depth scale is in feet. Current depth units are in meters. Cannot set depth min/max");
    }
    while (!lines.AtEnd()) {
      const std::string name(lines.Next());
      if (lines.AtEnd() && name.empty()) break;
      const double display_unit = LenientNumber(lines.Next());
      const double min = LenientNumber(lines.Next());
      const double max = LenientNumber(lines.Next());
      const bool minor = LenientNumber(lines.Next()) != 0;
      for (int i = 1; i <= plot.PlotChannelCount; ++i) {
        const int c = plot.PlotChannels[i];
        if (s.ChannelName[c] != name) continue;
        if (s.ChannelDisplayUnit[c][kGraphOutput] != display_unit) {
          prompts.Tell("Cannot load scale for " + name + " because current units do not match saved scale units.");
          continue;
        }
        plot.AxisMin[i] = min;
        plot.AxisMax[i] = max;
        plot.AxisMinorTicks[i] = minor;
        const AxisSteps steps = FindAxisSteps(max, min);
        plot.AxisStep[i] = steps.step;
        plot.MinorCount[i] = steps.minor;
      }
    }
    plot.ScaleSetByUser = true;
  });
}

Colour ZoneColour(int zone, int brightness) {
  if (zone < 0 || zone > 12) return kWhite;
  const Colour base = kZoneColours[zone];
  auto lighten = [brightness](uint8_t value) {
    return static_cast<uint8_t>(std::clamp(static_cast<int>(value) + brightness, 0, 255));
  };
  return {lighten(base.r), lighten(base.g), lighten(base.b)};
}

}  // namespace marlview
