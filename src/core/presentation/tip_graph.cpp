// The rod break tool: the pointer and click rules, removal and undo, the window of depth, the
// labels, and the large and overview graphs on the sounding plot's mapping.
#include "core/presentation/tip_graph.h"

#include <algorithm>
#include <cmath>

#include "core/common/number_format.h"
#include "core/session/session.h"

namespace marlview {
namespace {

constexpr Colour kGridColour{192, 192, 192};
// The reading under the pointer, and the readings chosen on either side of a break.
constexpr Colour kHighlightColour{0, 0, 255};
constexpr Colour kPointColour{0, 160, 0};
constexpr Colour kWindowColour{0, 0, 255};
constexpr const char* kLabelPattern = "##0.00";
// A wheel notch moves the window by this share of its height.
constexpr double kNotchShare = 0.25;
// Readings get a marker of their own only while they stand at least this many pixels apart.
constexpr double kMarkerSpacingPixels = 6;
constexpr double kMarkerPixels = 2;

}  // namespace

TipGraph::TipGraph(Session& session, int depth_unit)
    : session_(session), depth_unit_(depth_unit == 1 ? 1 : 2) {
  session_.flags.TipGraphWindowOpen = true;
  y_max_ = depth_unit_ == 1 ? kTipGraphWindowMetres : kTipGraphWindowFeet;
  FindMaxima();
}

TipGraph::~TipGraph() { session_.flags.TipGraphWindowOpen = false; }

int TipGraph::Channel(TipGraphChannel graph) const {
  const SoundingStore& s = session_.Sounding();
  return graph == TipGraphChannel::kTip ? s.TipChannel : s.SleeveChannel;
}

double TipGraph::Maximum(TipGraphChannel graph) const {
  return graph == TipGraphChannel::kTip ? tip_maximum_ : friction_maximum_;
}

const ColumnTable<float>& TipGraph::Table() const {
  const SoundingStore& s = session_.Sounding();
  return s.AcquisitionFamily == kPxDasFamily ? s.AlignedReadings : s.ChannelReadings;
}

double TipGraph::RowDepth(int row) const {
  const double metres = session_.Sounding().DepthTable(row, 1);
  return depth_unit_ == 1 ? metres : metres * session_.FeetPerMetre;
}

void TipGraph::FindMaxima() {
  const SoundingStore& s = session_.Sounding();
  const ColumnTable<float>& table = Table();
  auto largest = [&](int channel) {
    double maximum = kTipGraphMaximumStart;
    for (int r = 1; r <= s.ReadingCount; ++r) {
      maximum = std::max(maximum, static_cast<double>(table(r, KindColumn(channel, kGraphOutput))));
    }
    return maximum;
  };
  tip_maximum_ = largest(s.TipChannel);
  friction_maximum_ = largest(s.SleeveChannel);
}

double TipGraph::SoundingTop() const {
  return session_.Sounding().ReadingCount >= 1 ? std::min(0.0, RowDepth(1)) : 0.0;
}

double TipGraph::SoundingBottom() const {
  const int n = session_.Sounding().ReadingCount;
  const double top = SoundingTop();
  const double bottom = n >= 1 ? RowDepth(n) : top;
  return bottom > top ? bottom : top + (y_max_ - y_min_);
}

void TipGraph::ClampWindow() {
  const double span = y_max_ - y_min_;
  const double top = SoundingTop();
  // The last reading may come up to the middle of the window, never above it.
  const double lowest = std::max(top, SoundingBottom() - span / 2);
  y_min_ = std::clamp(y_min_, top, lowest);
  y_max_ = y_min_ + span;
}

void TipGraph::PointerMove(TipGraphChannel graph, double y, double picture_height) {
  pointer_graph_ = graph;
  highlight_row_ = 0;
  if (picture_height <= 0) return;
  const double depth = y / picture_height * (y_max_ - y_min_) + y_min_;
  const int n = session_.Sounding().ReadingCount;
  for (int r = 1; r <= n; ++r) {
    if (RowDepth(r) >= depth) {
      highlight_row_ = r;
      return;
    }
  }
}

void TipGraph::PointerLeave() { highlight_row_ = 0; }

void TipGraph::LeftClick() {
  if (first_point_ == 0) {
    first_point_ = highlight_row_;
  } else if (second_point_ != 0) {
    first_point_ = second_point_ = 0;
  } else if (highlight_row_ != first_point_) {
    second_point_ = highlight_row_;
  } else {
    first_point_ = 0;
  }
}

bool TipGraph::RightClick() {
  bool removed = false;
  if (first_point_ == 0 && second_point_ == 0 && highlight_row_ >= 1) {
    first_point_ = second_point_ = highlight_row_;
    Remove(first_point_, second_point_);
    removed = true;
  }
  first_point_ = second_point_ = 0;
  return removed;
}

bool TipGraph::DeleteKey() {
  if (first_point_ == 0 || second_point_ == 0) return false;
  Remove(first_point_, second_point_);
  first_point_ = second_point_ = 0;
  return true;
}

void TipGraph::Remove(int first, int last) {
  RemoveReadings(session_, first, last, undo_);
  if (undo_.size() > static_cast<size_t>(kMaxRemovalUndoSteps)) undo_.erase(undo_.begin());
  FindMaxima();
}

bool TipGraph::Undo() {
  if (!UndoRemoveReadings(session_, undo_)) return false;
  FindMaxima();
  return true;
}

void TipGraph::Scroll(int notches) {
  const double shift = notches * kNotchShare * (y_max_ - y_min_);
  y_min_ += shift;
  y_max_ += shift;
  ClampWindow();
}

void TipGraph::ScrollPages(int pages) {
  const double shift = pages * (y_max_ - y_min_);
  y_min_ += shift;
  y_max_ += shift;
  ClampWindow();
}

void TipGraph::CentreOn(double y, double picture_height) {
  if (picture_height <= 0) return;
  const double top = SoundingTop();
  const double depth = top + y / picture_height * (SoundingBottom() - top);
  const double span = y_max_ - y_min_;
  y_min_ = depth - span / 2;
  y_max_ = y_min_ + span;
  ClampWindow();
}

TipGraphLabels TipGraph::Labels() const {
  TipGraphLabels labels;
  const bool tip = pointer_graph_ == TipGraphChannel::kTip;
  labels.tip_caption = tip ? "TIP " : "FRICTION ";
  const std::string depth_caption = depth_unit_ == 1 ? "DEPTH (m):" : "DEPTH (ft):";
  if (highlight_row_ >= 1) {
    const double value = Table()(highlight_row_, KindColumn(Channel(pointer_graph_), kGraphOutput));
    labels.tip_value = FormatNumber(value, kLabelPattern);
    labels.depth_caption = depth_caption + " " + FormatNumber(RowDepth(highlight_row_), kLabelPattern);
  } else {
    labels.tip_value = "N/A";
    labels.depth_caption = depth_caption + " N/A";
  }
  labels.y_min = FormatNumber(y_min_, kLabelPattern);
  labels.y_max = FormatNumber(y_max_, kLabelPattern);
  labels.x_min = FormatNumber(0, kLabelPattern);
  labels.x_max = FormatNumber(Maximum(pointer_graph_), kLabelPattern);
  return labels;
}

// One column filling the picture, from 0 to the channel's maximum across and over the given depths
// down: the sounding plot's mapping with no margins.
PlotState TipGraph::Frame(TipGraphChannel graph, double width, double height, double depth_min,
                          double depth_max) const {
  PlotState plot;
  plot.PlotChannelCount = 1;
  plot.PlotChannels[1] = Channel(graph);
  plot.PlotAreaLeft = 0;
  plot.PlotAreaWidth = width;
  plot.PlotAreaTop = 0;
  plot.PlotAreaHeight = height;
  plot.PlotColumnLeft[1] = 0;
  plot.PlotColumnWidth[1] = width;
  plot.DepthAxisMin = depth_min;
  plot.DepthAxisMax = depth_max;
  plot.AxisMin[1] = 0;
  plot.AxisMax[1] = Maximum(graph);
  plot.DepthUnit = depth_unit_;
  return plot;
}

// A line across the picture at the reading's depth and a box on its value, when it is in view.
void TipGraph::MarkRow(DrawingSurface& g, const PlotState& plot, int row, TipGraphChannel graph,
                       Colour colour) const {
  if (row < 1 || row > session_.Sounding().ReadingCount) return;
  const double depth = RowDepth(row);
  if (depth < plot.DepthAxisMin || depth > plot.DepthAxisMax) return;
  const double y = DepthToY(plot, depth);
  const double x = ValueToX(plot, 1, Table()(row, KindColumn(Channel(graph), kGraphOutput)));
  const double dx = 2 * kMarkerPixels * std::abs(g.PixelWidth()), dy = 2 * kMarkerPixels * std::abs(g.PixelHeight());
  g.Line(plot.PlotAreaLeft, y, plot.PlotAreaLeft + plot.PlotAreaWidth, y, colour);
  g.Box(x - dx, y - dy, x + dx, y + dy, colour, true);
}

void TipGraph::GraphData(DrawingSurface& g, TipGraphChannel graph, double width, double height) const {
  g.SetScale(0, 0, width, height);
  g.Cls();
  g.SetFont("Arial", 8, false, false);
  g.SetDrawWidth(1);
  const PlotState plot = Frame(graph, width, height, y_min_, y_max_);
  const int channel = Channel(graph);
  // A line at each major step of the value and at each minor step of the depth, fine enough at a
  // large scale to judge a reading against its neighbours.
  const AxisSteps value_steps = FindAxisSteps(plot.AxisMax[1], 0);
  for (double v = value_steps.step; v < plot.AxisMax[1]; v += value_steps.step) {
    const double x = ValueToX(plot, 1, v);
    g.Line(x, 0, x, height, kGridColour);
  }
  const AxisSteps depth_steps = FindAxisSteps(y_max_ - y_min_, 0);
  const double depth_step = depth_steps.step / std::max(1, depth_steps.minor);
  for (double d = std::ceil(y_min_ / depth_step) * depth_step; d < y_max_; d += depth_step) {
    const double y = DepthToY(plot, d);
    g.Line(0, y, width, y, kGridColour);
  }
  DrawTrace(g, plot, session_, 1, Table(), KindColumn(channel, kGraphOutput), kRed);
  // Each reading in view, while they stand apart, so the user sees which rows a click can choose.
  const SoundingStore& s = session_.Sounding();
  int in_view = 0;
  for (int r = 1; r <= s.ReadingCount; ++r) {
    const double depth = RowDepth(r);
    if (depth >= y_min_ && depth <= y_max_) ++in_view;
  }
  const double pixel_y = std::abs(g.PixelHeight());
  if (in_view > 0 && pixel_y > 0 && height / in_view >= kMarkerSpacingPixels * pixel_y) {
    const double dx = kMarkerPixels * std::abs(g.PixelWidth()), dy = kMarkerPixels * pixel_y;
    for (int r = 1; r <= s.ReadingCount; ++r) {
      const double depth = RowDepth(r);
      if (depth < y_min_ || depth > y_max_) continue;
      const double x = ValueToX(plot, 1, Table()(r, KindColumn(channel, kGraphOutput)));
      const double y = DepthToY(plot, depth);
      g.Box(x - dx, y - dy, x + dx, y + dy, kRed, false);
    }
  }
  MarkRow(g, plot, first_point_, graph, kPointColour);
  MarkRow(g, plot, second_point_, graph, kPointColour);
  MarkRow(g, plot, highlight_row_, graph, kHighlightColour);
  // Each graph carries its own scale: the labels below follow only the graph under the pointer.
  const std::string maximum = FormatNumber(plot.AxisMax[1], kLabelPattern);
  g.SetCurrentXY(width - g.TextWidth(maximum) - 3 * std::abs(g.PixelWidth()), 2 * std::abs(g.PixelHeight()));
  g.Print(maximum);
  g.Box(0, 0, width, height, kBlack, false);
}

void TipGraph::GraphOverview(DrawingSurface& g, TipGraphChannel graph, double width, double height) const {
  g.SetScale(0, 0, width, height);
  g.Cls();
  g.SetDrawWidth(1);
  const PlotState plot = Frame(graph, width, height, SoundingTop(), SoundingBottom());
  DrawTrace(g, plot, session_, 1, Table(), KindColumn(Channel(graph), kGraphOutput), kRed);
  const double top = std::clamp(DepthToY(plot, y_min_), 0.0, height);
  const double bottom = std::clamp(DepthToY(plot, y_max_), 0.0, height);
  g.Box(0, top, width, bottom, kWindowColour, false);
  for (int row : {first_point_, second_point_}) {
    if (row >= 1 && row <= session_.Sounding().ReadingCount) {
      const double y = DepthToY(plot, RowDepth(row));
      g.Line(0, y, width, y, kPointColour);
    }
  }
  g.Box(0, 0, width, height, kBlack, false);
}

}  // namespace marlview
