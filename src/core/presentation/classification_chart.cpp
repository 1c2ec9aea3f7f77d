// The 1983 classification chart: axes, zone boundaries, zone numbers, the readings and the
// read-out of the reading at the scroll position.
#include "core/presentation/classification_chart.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "core/common/number_format.h"
#include "core/common/runtime_failure.h"
#include "core/derivation/derived_channels.h"
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
  void Boundaries();
  void ZoneNumbers();
  void Readings();
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
  double y = top + title_line;
  for (const std::string& text : {std::string("Robertson and Campanella UBC-1983"), chart_.Reference}) {
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
  Axes(line);
  Boundaries();
  ZoneNumbers();
  if (view_.readings) Readings();
  Readout(top_ + height_in_ + line * 3.2);
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
  const int count = session_.Sounding().ReadingCount;
  const double half = std::min(width_in_, height_in_) / 400;
  for (int r = std::max(view_.first_row, 1); r <= count; ++r) {
    const ChartPoint point = ChartPointOf(session_, r, view_.depth_unit);
    if (!point.place || !Inside(*point.place)) continue;
    const double x = X(point.place->x), y = Y(point.place->y);
    // The reading at the scroll position stands out, drawn larger and last of all.
    if (r == view_.first_row) continue;
    g_.Box(x - half, y - half, x + half, y + half, kReadingColour, true);
  }
  if (view_.first_row < 1 || view_.first_row > count) return;
  const ChartPoint current = ChartPointOf(session_, view_.first_row, view_.depth_unit);
  if (!current.place || !Inside(*current.place)) return;
  const double x = X(current.place->x), y = Y(current.place->y);
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
