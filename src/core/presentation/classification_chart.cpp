// The 1983 classification chart: axes, zone boundaries, zone numbers, the readings and the
// read-out of the reading at the scroll position.
#include "core/presentation/classification_chart.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string>

#include "core/common/number_format.h"
#include "core/common/runtime_failure.h"
#include "core/derivation/derived_channels.h"
#include "core/derivation/normalised_sbt.h"
#include "core/derivation/sbt1990.h"
#include "core/presentation/print_job.h"
#include "core/session/session.h"

namespace marlview {
namespace {

// Decades of tip resistance the chart spans, from 1 to 1000 bar.
constexpr double kDecades = 3;
constexpr Colour kGridColour{192, 192, 192};
constexpr Colour kReadingColour{255, 0, 0};
constexpr Colour kCurrentColour{0, 0, 255};
constexpr double kPageMarginPoints = 54;
constexpr Colour kIcColour{0, 128, 0};

// The 1990 chart's span in decades: friction ratio 0.1 to 10 %, Qtn 1 to 1000.
constexpr double kLowLogFr = -1, kHighLogFr = 1, kLowLogQtn = 0, kHighLogQtn = 3;
// Samples along a boundary curve and around an Ic circle: finer than a pixel on any window.
constexpr int kBoundarySamples = 400;
constexpr int kContourSamples = 720;
// The Ic circles' centre, in log10 Fr and log10 Qtn.
constexpr double kIcCentreLogFr = -1.22, kIcCentreLogQtn = 3.47;

ChartPlace NormalisedPlace(double log_fr, double log_qtn) {
  return {(log_fr - kLowLogFr) / (kHighLogFr - kLowLogFr), 1 - (log_qtn - kLowLogQtn) / (kHighLogQtn - kLowLogQtn)};
}

// Clips the segment a-b (log Fr, log Qtn) to the chart's span; false when none of it lies inside.
bool ClipToChart(double& ax, double& ay, double& bx, double& by) {
  double t0 = 0, t1 = 1;
  const double dx = bx - ax, dy = by - ay;
  const double p[] = {-dx, dx, -dy, dy};
  const double q[] = {ax - kLowLogFr, kHighLogFr - ax, ay - kLowLogQtn, kHighLogQtn - ay};
  for (int i = 0; i < 4; ++i) {
    if (p[i] == 0) {
      if (q[i] < 0) return false;
      continue;
    }
    const double r = q[i] / p[i];
    if (p[i] < 0) t0 = std::max(t0, r);
    else t1 = std::min(t1, r);
    if (t0 > t1) return false;
  }
  bx = ax + t1 * dx, by = ay + t1 * dy;
  ax = ax + t0 * dx, ay = ay + t0 * dy;
  return true;
}

double ColumnsOf(const ChartData& chart) { return std::max(chart.ColumnLimit(), 1); }

class ChartDrawing {
 public:
  ChartDrawing(DrawingSurface& surface, double width, double height, const Session& session, const ChartView& view)
      : g_(surface), width_(width), height_(height), session_(session), chart_(session.chart), view_(view) {}

  // Inside the given frame of the surface, with the title block at its top.
  void Draw(double left, double top, double right, double bottom, bool print_file_name);

 private:
  double X(double fraction) const { return left_ + fraction * width_in_; }
  double Y(double fraction) const { return top_ + fraction * height_in_; }
  bool Inside(const ChartPlace& p) const { return p.x >= 0 && p.x <= 1 && p.y >= 0 && p.y <= 1; }
  void Text(double x, double y, const std::string& text) {
    g_.SetCurrentXY(x, y);
    g_.Print(text);
  }
  void Axes(double line);
  void NormalisedAxes(double line);
  void Polyline(const ChartPolyline& line, Colour colour);
  void NormalisedReadings();
  void NormalisedReadout(double y);
  void Boundaries();
  void ZoneNumbers();
  void Readings();
  // Every reading from the scroll position down, place_of(row) giving its place on the chart.
  template <typename PlaceOf>
  void DrawReadings(PlaceOf place_of);
  void Readout(double y);

  DrawingSurface& g_;
  double width_, height_;
  const Session& session_;
  const ChartData& chart_;
  const ChartView& view_;
  double left_ = 0, top_ = 0, width_in_ = 1, height_in_ = 1;
};

void ChartDrawing::Draw(double left, double top, double right, double bottom, bool print_file_name) {
  g_.SetScale(0, 0, width_, height_);
  g_.Cls();
  g_.SetDrawWidth(1);
  g_.SetFont("Arial", 10, true, false);
  const double title_line = g_.TextHeight("Ag");
  Text(left, top, "Classification Data:");
  g_.SetFont("Arial", 8, false, false);
  const double line = g_.TextHeight("Ag");
  const bool normalised = view_.kind == ChartKind::kNormalised;
  double y = top + title_line;
  const std::string titles[] = {normalised ? "Robertson 1990 Qt-Fr chart, normalised: Qtn and Ic (Robertson 2009)"
                                           : "Robertson and Campanella UBC-1983",
                                normalised ? "Ic contours 1.31, 2.05, 2.60, 2.95, 3.60" : chart_.Reference};
  for (const std::string& text : titles) {
    Text(left, y, text);
    y += line;
  }
  if (print_file_name && session_.SoundingOpen) {
    Text(left, y, "FILENAME: " + session_.Sounding().SoundingFileName);
    y += line;
  }
  // Room on the left for the decade labels and the axis caption, below for the friction labels,
  // the axis caption and the read-out.
  left_ = left + std::max(g_.TextWidth("  (Bars)"), g_.TextWidth("1000")) + line;
  top_ = y + line * 3;
  width_in_ = std::max(1.0, right - left_ - line);
  height_in_ = std::max(1.0, bottom - top_ - line * 5);
  if (normalised) {
    NormalisedAxes(line);
    // The chart itself never changes: worked out once, drawn on every paint as the scroll moves.
    static const std::vector<ChartPolyline> kBoundaries = NormalisedChartBoundaries();
    static const std::vector<ChartZoneLabel> kZoneLabels = NormalisedZoneLabels();
    for (const ChartPolyline& boundary : kBoundaries) Polyline(boundary, kBlack);
    for (double ic : kIcContours) {
      for (const ChartPolyline& contour : IcContour(ic)) Polyline(contour, kIcColour);
    }
    for (const ChartZoneLabel& label : kZoneLabels) {
      const std::string text = FormatNumber(label.zone, "###0");
      Text(X(label.place->x) - g_.TextWidth(text) / 2, Y(label.place->y) - g_.TextHeight(text) / 2, text);
    }
    if (view_.readings) NormalisedReadings();
    NormalisedReadout(top_ + height_in_ + line * 3.2);
    return;
  }
  Axes(line);
  Boundaries();
  ZoneNumbers();
  if (view_.readings) Readings();
  Readout(top_ + height_in_ + line * 3.2);
}

void ChartDrawing::NormalisedAxes(double line) {
  const double right = X(1), bottom = Y(1);
  const double fr_decades = kHighLogFr - kLowLogFr, qtn_decades = kHighLogQtn - kLowLogQtn;
  for (int decade = 0; decade < qtn_decades; ++decade) {
    for (int m = 2; m <= 9; ++m) {
      const double y = Y(1 - (decade + std::log10(m)) / qtn_decades);
      g_.Line(left_, y, right, y, kGridColour);
    }
  }
  for (int decade = 0; decade < fr_decades; ++decade) {
    for (int m = 2; m <= 9; ++m) {
      const double x = X((decade + std::log10(m)) / fr_decades);
      g_.Line(x, top_, x, bottom, kGridColour);
    }
  }
  for (int decade = 0; decade <= qtn_decades; ++decade) {
    const double y = Y(1 - decade / qtn_decades);
    g_.Line(left_, y, right, y, kGridColour);
    const std::string label = FormatNumber(std::pow(10.0, kLowLogQtn + decade), "###0");
    Text(left_ - g_.TextWidth(label) - line * 0.3, y - line / 2, label);
  }
  for (int decade = 0; decade <= fr_decades; ++decade) {
    const double x = X(decade / fr_decades);
    g_.Line(x, top_, x, bottom, kGridColour);
    static constexpr const char* kFrLabels[] = {"0.1", "1", "10"};
    const std::string label = kFrLabels[decade];
    Text(x - g_.TextWidth(label) / 2, bottom + line * 0.2, label);
  }
  g_.Box(left_, top_, right, bottom, kBlack, false);
  Text(left_ - g_.TextWidth("  (Bars)") - line, top_ - line * 1.2, "Qtn");
  Text(left_ + width_in_ / 2 - g_.TextWidth("Fr (%)") / 2, bottom + line * 1.3, "Fr (%)");
}

void ChartDrawing::Polyline(const ChartPolyline& points, Colour colour) {
  for (size_t i = 1; i < points.size(); ++i) {
    g_.Line(X(points[i - 1].x), Y(points[i - 1].y), X(points[i].x), Y(points[i].y), colour);
  }
}

void ChartDrawing::NormalisedReadings() {
  DrawReadings([this](int r) { return NormalisedChartPointOf(session_, r, view_.depth_unit).place; });
}

void ChartDrawing::NormalisedReadout(double y) {
  const int count = session_.Sounding().ReadingCount;
  if (!view_.readings || view_.first_row < 1 || view_.first_row > count) return;
  // A sounding derived without the normalised classification has nothing to read out.
  if (FindNormalisedChannels(session_.Sounding()).qtn == 0) return;
  const NormalisedChartPoint p = NormalisedChartPointOf(session_, view_.first_row, view_.depth_unit);
  const std::string unit = view_.depth_unit == 1 ? " (m)" : " (ft)";
  Text(left_, y,
       "Depth" + unit + ": " + FormatNumber(p.depth, "##0.00") + "    Fr (%): " + FormatNumber(p.fr, "##0.00") +
           "    Qtn: " + FormatNumber(p.qtn, "##0.00") + "    Ic: " + FormatNumber(p.ic, "##0.00") +
           "    SBTn: " + FormatNumber(p.zone, "###0"));
}

void ChartDrawing::Axes(double line) {
  const double right = X(1), bottom = Y(1);
  for (int decade = 0; decade < kDecades; ++decade) {
    for (int m = 2; m <= 9; ++m) {
      const double y = Y(1 - (decade + std::log10(m)) / kDecades);
      g_.Line(left_, y, right, y, kGridColour);
    }
  }
  for (int decade = 0; decade <= kDecades; ++decade) {
    const double y = Y(1 - decade / kDecades);
    g_.Line(left_, y, right, y, decade == 0 || decade == kDecades ? kBlack : kGridColour);
    const std::string label = FormatNumber(std::pow(10.0, decade), "###0");
    Text(left_ - g_.TextWidth(label) - line * 0.3, y - line / 2, label);
  }
  const double columns = ColumnsOf(chart_);
  for (int percent = 0; percent * 10 <= columns; ++percent) {
    const double x = X(percent * 10 / columns);
    g_.Line(x, top_, x, bottom, percent == 0 ? kBlack : kGridColour);
    const std::string label = FormatNumber(percent, "###0");
    Text(x - g_.TextWidth(label) / 2, bottom + line * 0.2, label);
  }
  g_.Box(left_, top_, right, bottom, kBlack, false);
  Text(left_ - g_.TextWidth("  (Bars)") - line, top_ - line * 2.2, "Tip (Qt)");
  Text(left_ - g_.TextWidth("  (Bars)") - line, top_ - line * 1.2, "  (Bars)");
  Text(left_ + width_in_ / 2 - g_.TextWidth("Fs/Qt (%)") / 2, bottom + line * 1.3, "Fs/Qt (%)");
}

// Each zone's boundary joins, column by column, the curves that have that zone above them.
void ChartDrawing::Boundaries() {
  const double columns = ColumnsOf(chart_);
  const int last_curve = std::min(chart_.CurveCount, kMaxZoneCurves);
  for (int zone = 1; zone <= chart_.ZoneCount; ++zone) {
    bool started = false;
    double last_x = 0, last_y = 0;
    for (int i = 0; i <= chart_.ColumnLimit(); ++i) {
      for (int k = 1; k <= last_curve; ++k) {
        if (chart_.Zone(k, i) != static_cast<float>(zone)) continue;
        const double x = X(i / columns);
        const double y = Y(std::clamp(1 - chart_.Boundary(k, i) / kDecades, 0.0, 1.0));
        if (started) g_.Line(last_x, last_y, x, y, kBlack);
        started = true;
        last_x = x, last_y = y;
      }
    }
  }
}

void ChartDrawing::ZoneNumbers() {
  for (const ChartZoneLabel& label : ZoneLabelPlaces(chart_)) {
    if (!label.place || !Inside(*label.place)) continue;
    const std::string text = FormatNumber(label.zone, "###0");
    Text(X(label.place->x) - g_.TextWidth(text) / 2, Y(label.place->y) - g_.TextHeight(text) / 2, text);
  }
}

void ChartDrawing::Readings() {
  DrawReadings([this](int r) { return ChartPointOf(session_, r, view_.depth_unit).place; });
}

template <typename PlaceOf>
void ChartDrawing::DrawReadings(PlaceOf place_of) {
  const int count = session_.Sounding().ReadingCount;
  const double half = std::min(width_in_, height_in_) / 400;
  for (int r = std::max(view_.first_row, 1); r <= count; ++r) {
    // The reading at the scroll position stands out, drawn larger and last of all.
    if (r == view_.first_row) continue;
    const std::optional<ChartPlace> place = place_of(r);
    if (!place || !Inside(*place)) continue;
    g_.Box(X(place->x) - half, Y(place->y) - half, X(place->x) + half, Y(place->y) + half, kReadingColour, true);
  }
  if (view_.first_row < 1 || view_.first_row > count) return;
  const std::optional<ChartPlace> current = place_of(view_.first_row);
  if (!current || !Inside(*current)) return;
  const double x = X(current->x), y = Y(current->y);
  g_.Box(x - half * 2, y - half * 2, x + half * 2, y + half * 2, kCurrentColour, true);
}

void ChartDrawing::Readout(double y) {
  const int count = session_.Sounding().ReadingCount;
  if (!view_.readings || view_.first_row < 1 || view_.first_row > count) return;
  const ChartPoint point = ChartPointOf(session_, view_.first_row, view_.depth_unit);
  const std::string unit = view_.depth_unit == 1 ? " (m)" : " (ft)";
  Text(left_, y,
       "Depth" + unit + ": " + FormatNumber(point.depth, "##0.00") + "    Fs/Qt (%): " +
           FormatNumber(point.friction_ratio, "##0.00") + "    Tip (Qt)  (Bars): " + FormatNumber(point.tip_bar, "##0.00"));
}

}  // namespace

std::optional<ChartPlace> PlaceOnChart(const ChartData& chart, double friction_ratio, double tip_bar) {
  if (friction_ratio <= 0 || tip_bar <= 0) return std::nullopt;
  return ChartPlace{friction_ratio * 10 / ColumnsOf(chart), 1 - std::log10(tip_bar) / kDecades};
}

std::vector<ChartZoneLabel> ZoneLabelPlaces(const ChartData& chart) {
  std::vector<ChartZoneLabel> labels;
  for (int zone = 1; zone < static_cast<int>(chart.LabelPositions.size()); ++zone) {
    const auto& [friction_ratio, tip] = chart.LabelPositions[static_cast<size_t>(zone)];
    ChartZoneLabel label{zone, std::nullopt};
    if (tip > 0) label.place = ChartPlace{friction_ratio * 10 / ColumnsOf(chart), 1 - std::log10(tip) / kDecades};
    labels.push_back(label);
  }
  return labels;
}

std::optional<ChartPlace> PlaceOnNormalisedChart(double fr, double qtn) {
  if (fr <= 0 || qtn <= 0) return std::nullopt;
  return NormalisedPlace(std::log10(fr), std::log10(qtn));
}

// A sample of a curve is on a boundary when the zones just above and just below it differ.
std::vector<ChartPolyline> NormalisedChartBoundaries() {
  std::vector<ChartPolyline> lines;
  for (int curve = 1; curve <= kBoundaryCurves1990Qt; ++curve) {
    ChartPolyline current;
    for (int i = 0; i <= kBoundarySamples; ++i) {
      const double log_fr = kLowLogFr + (kHighLogFr - kLowLogFr) * i / kBoundarySamples;
      const double fr = std::pow(10.0, log_fr);
      const double qtn = Boundary1990Qt(curve, fr);
      const bool parts = qtn > 1 && qtn < 1000 && Zone1990Qt(qtn * (1 + 1e-6), fr) != Zone1990Qt(qtn * (1 - 1e-6), fr);
      if (parts) current.push_back(NormalisedPlace(log_fr, std::log10(qtn)));
      if ((!parts || i == kBoundarySamples) && !current.empty()) {
        if (current.size() > 1) lines.push_back(std::move(current));
        current.clear();
      }
    }
  }
  return lines;
}

// The circle of radius ic about (-1.22, 3.47) in log10 Fr and log10 Qtn, in pieces where it
// crosses the chart.
std::vector<ChartPolyline> IcContour(double ic) {
  std::vector<ChartPolyline> lines;
  ChartPolyline current;
  auto point = [ic](int i, double& x, double& y) {
    const double angle = 2 * std::numbers::pi * i / kContourSamples;
    x = kIcCentreLogFr + ic * std::cos(angle);
    y = kIcCentreLogQtn + ic * std::sin(angle);
  };
  for (int i = 0; i < kContourSamples; ++i) {
    double ax = 0, ay = 0, bx = 0, by = 0;
    point(i, ax, ay);
    point(i + 1, bx, by);
    const bool whole_start = ax >= kLowLogFr && ax <= kHighLogFr && ay >= kLowLogQtn && ay <= kHighLogQtn;
    if (!ClipToChart(ax, ay, bx, by)) continue;
    // A piece that enters the chart at a clipped start begins a new line.
    if (!whole_start && !current.empty()) {
      lines.push_back(std::move(current));
      current.clear();
    }
    if (current.empty()) current.push_back(NormalisedPlace(ax, ay));
    current.push_back(NormalisedPlace(bx, by));
  }
  if (!current.empty()) lines.push_back(std::move(current));
  return lines;
}

// Each zone's number at the grid cell of that zone nearest the middle of all its cells.
std::vector<ChartZoneLabel> NormalisedZoneLabels() {
  constexpr int kCells = 60;
  struct Cell {
    double x, y;
  };
  std::vector<std::vector<Cell>> cells(10);
  for (int i = 0; i < kCells; ++i) {
    for (int j = 0; j < kCells; ++j) {
      const double x = (i + 0.5) / kCells, y = (j + 0.5) / kCells;
      const double log_fr = kLowLogFr + x * (kHighLogFr - kLowLogFr);
      const double log_qtn = kHighLogQtn - y * (kHighLogQtn - kLowLogQtn);
      const int zone = Zone1990Qt(std::pow(10.0, log_qtn), std::pow(10.0, log_fr));
      if (zone >= 1 && zone <= 9) cells[static_cast<size_t>(zone)].push_back({x, y});
    }
  }
  std::vector<ChartZoneLabel> labels;
  for (int zone = 1; zone <= 9; ++zone) {
    const std::vector<Cell>& in = cells[static_cast<size_t>(zone)];
    if (in.empty()) continue;
    double mx = 0, my = 0;
    for (const Cell& c : in) {
      mx += c.x;
      my += c.y;
    }
    mx /= static_cast<double>(in.size()), my /= static_cast<double>(in.size());
    const Cell* best = &in.front();
    for (const Cell& c : in) {
      if (std::hypot(c.x - mx, c.y - my) < std::hypot(best->x - mx, best->y - my)) best = &c;
    }
    labels.push_back({zone, ChartPlace{best->x, best->y}});
  }
  return labels;
}

NormalisedChartPoint NormalisedChartPointOf(const Session& session, int row, int depth_unit) {
  const SoundingStore& s = session.Sounding();
  const NormalisedChannels ch = FindNormalisedChannels(s);
  NormalisedChartPoint point;
  point.row = row;
  point.depth = s.DepthTable(row, depth_unit == 1 ? 1 : 2);
  auto value = [&s, row](int c) { return c == 0 ? 0.0 : s.AlignedReadings(row, KindColumn(c, kGraphOutput)); };
  point.fr = value(ch.fr);
  point.qtn = value(ch.qtn);
  point.ic = value(ch.ic);
  point.zone = static_cast<int>(value(ch.sbtn));
  point.place = PlaceOnNormalisedChart(point.fr, point.qtn);
  return point;
}

ChartPoint ChartPointOf(const Session& session, int row, int depth_unit) {
  const SoundingStore& s = session.Sounding();
  const Sbt1983Input in = ReadSbt1983Input(s, row);
  ChartPoint point;
  point.row = row;
  point.depth = s.DepthTable(row, depth_unit == 1 ? 1 : 2);
  point.friction_ratio = in.friction_ratio;
  point.tip_bar = in.tip_bar;
  point.place = PlaceOnChart(session.chart, in.friction_ratio, in.tip_bar);
  point.zone = static_cast<int>(s.LastSbt83Zone[row]);
  return point;
}

void DrawClassificationChart(DrawingSurface& surface, double width, double height, const Session& session,
                             const ChartView& view) {
  InProcedure("Form_Paint", [&] {
    const double margin = std::min(width, height) * 0.03;
    ChartDrawing(surface, width, height, session, view).Draw(margin, margin, width - margin, height - margin, false);
  });
}

void PrintChart(PrintJob& job, const Session& session, const ChartView& view) {
  InProcedure("PrintChart", [&] {
    const double width = job.PageWidthPoints(), height = job.PageHeightPoints();
    DrawingSurface& page = job.NewPage();
    // A square chart across the page's width keeps the decades as wide as on screen.
    const double right = width - kPageMarginPoints;
    const double bottom = std::min(height - kPageMarginPoints, kPageMarginPoints * 2.5 + (right - kPageMarginPoints));
    ChartDrawing(page, width, height, session, view).Draw(kPageMarginPoints, kPageMarginPoints, right, bottom, true);
  });
}

}  // namespace marlview
