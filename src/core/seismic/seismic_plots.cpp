// The drawings of seismic mode.
#include "core/seismic/seismic_plots.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "core/common/number_format.h"
#include "core/seismic/conditioning.h"

namespace marlview {
namespace {

double YOf(double top, double height, double amplitude) { return top + (0.5 - amplitude / 2) * height; }

void Mark(DrawingSurface& g, double x, double y, double top, double height, Colour colour) {
  // The mark of an overdriven wave is held just inside the picture.
  y = std::trunc(y);
  y = std::clamp(y, top + 1, top + height - 1);
  const double size = std::max(3.0, height / 12);
  g.Line(x, y - size, x, y + size, colour);
  g.Line(x - size / 2, y, x + size / 2, y, colour);
}

void DrawStrikesOf(DrawingSurface& g, double left, double top, double width, double height, double t_min,
                   double t_max, const SeismicStore& s, const SeismicViewState* view, int test) {
  for (int16_t kind : kStrikeKinds) {
    if (!s.HasStrike(kind, test)) continue;
    const int slot = StrikeSlot(kind, test);
    const int n = std::clamp(s.SampleCount[slot], 0, kMaxStrikeSamples);
    const double shift = view ? view->DisplayShiftTime[static_cast<size_t>(kind)] : 0.0;
    DrawWave(g, left, top, width, height, t_min, t_max, s.TimeRow(slot), s.AmplitudeRow(slot),
             n, shift, StrikeColour(kind));
  }
}

bool PickDrawable(const SeismicStore& s, int test) {
  const int kind = s.ArrivalKind[test];
  return s.ArrivalSample[test] > 0 && (kind == kStrikeA || kind == kStrikeB || kind == kStrikeP) &&
         s.HasStrike(kind, test) && s.ArrivalSample[test] <= static_cast<float>(kMaxStrikeSamples);
}

std::string VelocityText(const SeismicController& c, int test) {
  const SeismicStore& s = c.Store();
  if (test == 1) return "Vs: *";
  if (s.IntervalVelocity[test] == 0) return "Vs: ?";
  if (c.Feet()) return "Vs: " + FormatNumber(s.IntervalVelocity[test] * c.FeetPerMetre(), "###0.00") + "ft/S";
  return "Vs: " + FormatNumber(s.IntervalVelocity[test], "###0.00") + "m/S";
}

std::string ArrivalText(const SeismicStore& s, int test) {
  return s.DelayTime[test] == 0 ? "Arr: ?" : "Arr: " + FormatNumber(s.DelayTime[test], "###0.00") + " mS";
}

}  // namespace

std::vector<std::string> VelocityTableHeaders(const SeismicController& c) {
  return {"Test", c.Feet() ? "Depth (ft)" : "Depth (m)", "Vs", "Vs XCORR", "Coef."};
}

std::vector<VelocityTableRow> VelocityTable(const SeismicController& c) {
  const SeismicStore& s = c.Store();
  std::vector<VelocityTableRow> rows;
  if (c.IsLog()) return rows;
  const double unit = c.Feet() ? c.FeetPerMetre() : 1.0;
  auto velocity = [&](int test, float value) {
    if (test == 1) return std::string("*");
    return value == 0 ? std::string("?") : FormatNumber(value * unit, "###0.00");
  };
  for (int i = 1; i <= s.TestCount; ++i) {
    VelocityTableRow row;
    row.test = std::to_string(i);
    row.depth = FormatNumber(s.TestDepth[i] * unit, "##0.00#");
    row.velocity = velocity(i, s.IntervalVelocity[i]);
    if (s.XcorrComputed) {
      row.xcorr_velocity = velocity(i, s.XcorrVelocity[i]);
      // A pair that correlated has a lag; one refused or without correlation has no quality to show.
      if (i > 1 && s.XcorrLagSamples[i] != 0) row.coefficient = FormatNumber(s.XcorrCoefficient[i], "0.00");
    }
    rows.push_back(std::move(row));
  }
  return rows;
}

Colour StrikeColour(int kind) {
  return kind == kStrikeA ? kStrikeColourA : kind == kStrikeB ? kStrikeColourB : kStrikeColourP;
}

void DrawWave(DrawingSurface& g, double left, double top, double width, double height, double t_min, double t_max,
              const float* times, const float* amplitudes, int n, double time_shift, Colour colour, size_t stride) {
  if (n < 1 || !(t_max > t_min)) return;
  const double span = t_max - t_min;
  const auto x_of = [&](int k) { return left + (times[static_cast<size_t>(k) * stride] + time_shift - t_min) / span * width; };
  const auto y_of = [&](int k) { return YOf(top, height, amplitudes[static_cast<size_t>(k) * stride]); };
  const double pixel = std::fabs(g.PixelWidth());
  if (g.IsPrinter() || !(pixel > 0) || n <= 2 * width / pixel) {
    for (int k = 2; k <= n; ++k) g.Line(x_of(k - 1), y_of(k - 1), x_of(k), y_of(k), colour);
    return;
  }
  // One vertical stroke per device column from the least to the greatest sample in it, joined to
  // the next column from its last sample.
  int k = 1;
  double previous_x = 0, previous_y = 0;
  bool have_previous = false;
  while (k <= n) {
    const double column = std::floor(x_of(k) / pixel);
    const double x = (column + 0.5) * pixel;
    const double first_y = y_of(k);
    double low = first_y, high = first_y, last_y = first_y;
    int j = k + 1;
    while (j <= n && std::floor(x_of(j) / pixel) == column) {
      last_y = y_of(j);
      low = std::min(low, last_y);
      high = std::max(high, last_y);
      ++j;
    }
    if (have_previous) g.Line(previous_x, previous_y, x, first_y, colour);
    if (high > low) g.Line(x, low, x, high, colour);
    previous_x = x, previous_y = last_y, have_previous = true;
    k = j;
  }
}

void GraphWaves(DrawingSurface& g, double width, double height, const SeismicStore& s, const SeismicViewState& view,
                int test) {
  g.SetScale(0, 0, width, height);
  g.Cls();
  g.SetDrawWidth(1);
  if (test < 1 || test > s.TestCount) return;
  const double t_max = view.SeismicTimeAxisMax > 0 ? view.SeismicTimeAxisMax : 1;
  DrawStrikesOf(g, 0, 0, width, height, 0, t_max, s, nullptr, test);
  if (PickDrawable(s, test)) {
    const int slot = StrikeSlot(s.ArrivalKind[test], test);
    const int k = static_cast<int>(s.ArrivalSample[test]);
    Mark(g, s.StrikeTime(slot, k) / t_max * width, YOf(0, height, s.StrikeAmplitude(slot, k)), 0, height, kBlack);
  }
}

void GraphLogWaves(DrawingSurface& g, double width, double height, const SeismicStore& s, int second) {
  g.SetScale(0, 0, width, height);
  g.Cls();
  g.SetDrawWidth(1);
  if (second < 1 || second > s.LogSeconds) return;
  const int first = std::max(1, s.LogSecondStart[second]);
  const int last = std::min(s.LogSecondEnd[second], std::min(s.SampleCount[1], kMaxLogSamples));
  const int n = last - first + 1;
  if (n < 1) return;
  std::vector<float> x(static_cast<size_t>(n) + 1), a(static_cast<size_t>(n) + 1);
  for (int16_t kind : kStrikeKinds) {
    if (!s.HasStrike(kind, 1)) continue;
    for (int k = 1; k <= n; ++k) {
      x[static_cast<size_t>(k)] = static_cast<float>(k - 1) / static_cast<float>(std::max(1, n - 1));
      a[static_cast<size_t>(k)] = s.LogAmplitude(first + k - 1, LogColumn(kind));
    }
    DrawWave(g, 0, 0, width, height, 0, 1, x.data(), a.data(), n, 0, StrikeColour(kind));
  }
}

void DrawTimeAxis(DrawingSurface& g, double left, double top, double width, double t_min, double t_max, double step,
                  int divisions) {
  if (!(t_max > t_min) || !(step > 0)) return;
  const double span = t_max - t_min;
  const double tick = std::max(4.0, g.TextHeight("0") / 3);
  g.Line(left, top, left + width, top, kBlack);
  const int minor = std::max(1, divisions);
  const double minor_step = step / minor;
  // Ticks stand on whole multiples of the step, wherever the axis begins.
  const double first = std::ceil(t_min / minor_step - 1e-9);
  for (double k = first; k * minor_step <= t_max + 1e-9 && k - first < 10000; ++k) {
    const double t = k * minor_step;
    const double x = left + (t - t_min) / span * width;
    const bool major = std::fmod(k, minor) == 0;
    g.Line(x, top, x, top + (major ? tick : tick / 2), kBlack);
    if (major) {
      const std::string label = FormatNumber(t, "####0.##");
      const std::string text = label.back() == '.' ? label.substr(0, label.size() - 1) : label;
      g.SetCurrentXY(x - g.TextWidth(text) / 2, top + tick);
      g.Print(text);
    }
  }
}

std::string LeftLabelText(int row) { return FormatNumber(row, "##0"); }

std::string RightLabelText(const SeismicController& c, int test) {
  const SeismicStore& s = c.Store();
  const int row = c.IsLog() ? 1 : test;
  const double depth = c.Feet() ? s.TestDepth[row] * c.FeetPerMetre() : s.TestDepth[row];
  std::string text = FormatNumber(depth, "##0.00#") + "\n" + (c.Feet() ? "ft" : "m");
  if (!c.IsLog()) text += "\n" + ArrivalText(s, test) + "\n" + VelocityText(c, test);
  return text;
}

void GraphStrike(DrawingSurface& g, double width, double height, const SeismicController& c) {
  const SeismicStore& s = c.Store();
  const SeismicViewState& view = c.View();
  g.SetScale(0, 0, width, height);
  g.Cls();
  g.SetDrawWidth(1);
  g.SetFont("Arial", 8, false, false);
  const int test = view.ShownTest;
  const double margin = g.TextHeight("0") * 1.5;
  const double plot_h = height - 2 * margin;
  const double t_min = view.TimeStart, t_max = view.TimeEnd;
  g.Box(0, margin, width, margin + plot_h, kBlack, false);
  g.Line(0, margin + plot_h / 2, width, margin + plot_h / 2, Colour{190, 190, 190});
  const TimeAxis axis = NiceTimeStep(t_max, t_min);
  if (c.IsLog()) {
    GraphLogWaves(g, width, height, s, test);
    return;
  }
  if (test < 1 || test > s.TestCount) return;
  // The reference test's wave, on the strike of its own pick, behind the shown test.
  const int ref = s.ReferenceTest[test];
  if (view.ReferenceShown && test >= 2 && ref > 0 && PickDrawable(s, ref)) {
    const int kind = s.ArrivalKind[ref];
    const int slot = StrikeSlot(kind, ref);
    const Colour grey{160, 160, 160};
    DrawWave(g, 0, margin, width, plot_h, t_min, t_max, s.TimeRow(slot), s.AmplitudeRow(slot),
             std::clamp(s.SampleCount[slot], 0, kMaxStrikeSamples), 0, grey);
    const double x = (s.DelayTime[ref] - t_min) / (t_max - t_min) * width;
    g.Line(x, margin, x, margin + plot_h, grey);
    g.SetCurrentXY(x + 2, margin + 2);
    g.Print("Previous arrival");
  }
  DrawStrikesOf(g, 0, margin, width, plot_h, t_min, t_max, s, &view, test);
  if (PickDrawable(s, test)) {
    const int kind = s.ArrivalKind[test];
    const int slot = StrikeSlot(kind, test);
    const int k = static_cast<int>(s.ArrivalSample[test]);
    const double x = (s.StrikeTime(slot, k) + view.DisplayShiftTime[static_cast<size_t>(kind)] - t_min) / (t_max - t_min) * width;
    g.Line(x, margin, x, margin + plot_h, kBlack);
    Mark(g, x, YOf(margin, plot_h, s.StrikeAmplitude(slot, k)), margin, plot_h, kBlack);
    g.SetCurrentXY(x + 2, margin + plot_h - 2 * g.TextHeight("0"));
    g.Print("Arrival");
    g.SetCurrentXY(x + 2, margin + plot_h - g.TextHeight("0"));
    g.Print(FormatNumber(s.DelayTime[test], "###0.00") + " mSec");
  }
  DrawTimeAxis(g, 0, margin + plot_h, width, t_min, t_max, axis.step, axis.divisions);
}

void ShowZoom(DrawingSurface& g, double width, double height, const SeismicController& c, int center) {
  const SeismicStore& s = c.Store();
  g.SetScale(0, 0, width, height);
  g.Cls();
  const int test = c.View().ShownTest;
  if (c.IsLog() || test < 1 || test > s.TestCount) return;
  int kind = s.ArrivalKind[test];
  if (kind != kStrikeA && kind != kStrikeB && kind != kStrikeP) kind = c.View().SelectedStrike;
  if (!s.HasStrike(kind, test)) return;
  const int slot = StrikeSlot(kind, test);
  const int n = std::clamp(s.SampleCount[slot], 0, kMaxStrikeSamples);
  g.Box(0, 0, width, height, kBlack, false);
  double px = 0, py = 0;
  bool have = false;
  for (int k = center - 30; k <= center + 29; ++k) {
    if (k < 1 || k > n) {
      have = false;
      continue;
    }
    const double x = static_cast<double>(k - (center - 30)) / 60 * width;
    const double y = YOf(0, height, s.StrikeAmplitude(slot, k));
    if (have) g.Line(px, py, x, y, StrikeColour(kind));
    px = x, py = y, have = true;
  }
  const int pick = static_cast<int>(s.ArrivalSample[test]);
  if (pick > 0 && pick >= center - 30 && pick <= center + 29) {
    const double x = static_cast<double>(pick - (center - 30)) / 60 * width;
    g.Line(x, 0, x, height, kBlack);
  }
}

namespace {

// The heading: the fields of the family in two columns.
double PrintHeading(DrawingSurface& g, const Session& session, const SeismicController& c, double left, double top,
                    double width) {
  const auto fields = SeismicHeaderFields(session, c.Store());
  g.SetFont("Arial", 12, true, false);
  g.SetCurrentXY(left, top);
  g.Print(fields[1].second);
  double y = top + g.TextHeight("0") * 1.5;
  g.SetFont("Arial", 8, false, false);
  const double line = g.TextHeight("0") * 1.2;
  int column = 0;
  for (size_t k = 2; k < fields.size(); ++k) {
    if (fields[k].first.empty() && fields[k].second.empty()) continue;
    g.SetCurrentXY(left + column * width / 2, y);
    g.Print(fields[k].first + fields[k].second);
    column = 1 - column;
    if (column == 0) y += line;
  }
  return y + 2 * line;
}

// The cover sheet, when chosen: the heading alone on a page of its own.
void PrintCoverSheet(PrintJob& job, const Session& session, const SeismicController& c) {
  if (!c.View().CoverSheet) return;
  const double w = job.PageWidthPoints(), h = job.PageHeightPoints();
  DrawingSurface& g = job.NewPage();
  g.SetScale(0, 0, w, h);
  PrintHeading(g, session, c, 72, h / 3, w - 144);
}

}  // namespace

void PrintSeismicLog(PrintJob& job, const Session& session, const SeismicController& c) {
  const SeismicStore& s = c.Store();
  const SeismicViewState& view = c.View();
  const double w = job.PageWidthPoints(), h = job.PageHeightPoints();
  const double margin = 36;
  const int rows = c.RowCount();
  PrintCoverSheet(job, session, c);
  int row = 1;
  do {
    DrawingSurface& g = job.NewPage();
    g.SetScale(0, 0, w, h);
    g.SetDrawWidth(1);
    double y = PrintHeading(g, session, c, margin, margin, w - 2 * margin);
    g.SetFont("Arial", 8, false, false);
    const double label_w = g.TextWidth("Velocity 9999.99ft/S") + 8;
    const double depth_w = g.TextWidth("Depth 999.99ft") + 8;
    const double graph_left = margin + depth_w + label_w;
    const double graph_w = w - margin - graph_left;
    const double row_h = 40;
    const double foot = 4 * g.TextHeight("0");
    if (!c.IsLog()) {
      g.SetCurrentXY(margin, y);
      g.Print("Depth ");
      g.SetCurrentXY(margin + depth_w, y);
      g.Print("Ref* Arrival* Velocity*");
      y += g.TextHeight("0") * 1.5;
    }
    while (row <= rows && y + row_h <= h - margin - foot) {
      const double unit = c.Feet() ? c.FeetPerMetre() : 1.0;
      g.SetCurrentXY(margin, y);
      if (c.IsLog()) {
        g.Print(LeftLabelText(row) + "S ");
        DrawingSurface& page = g;
        const int first = std::max(1, s.LogSecondStart[row]);
        const int last = std::min(s.LogSecondEnd[row], s.SampleCount[1]);
        std::vector<float> x, a;
        for (int16_t kind : kStrikeKinds) {
          if (!s.HasStrike(kind, 1) || last < first) continue;
          x.assign(static_cast<size_t>(last - first + 2), 0);
          a.assign(x.size(), 0);
          for (int k = first; k <= last; ++k) {
            x[static_cast<size_t>(k - first + 1)] = static_cast<float>(k - first) / static_cast<float>(std::max(1, last - first));
            a[static_cast<size_t>(k - first + 1)] = s.LogAmplitude(k, LogColumn(kind));
          }
          DrawWave(page, graph_left, y, graph_w, row_h, 0, 1, x.data(), a.data(), last - first + 1, 0, StrikeColour(kind));
        }
      } else {
        const int ref = s.ReferenceTest[row];
        g.Print("Depth " + FormatNumber(s.TestDepth[row] * unit, "##0.00") + (c.Feet() ? "ft" : "m"));
        g.SetCurrentXY(margin + depth_w, y);
        g.Print("Ref " + (ref > 0 ? FormatNumber(ref, "##0") : std::string("*")));
        g.SetCurrentXY(margin + depth_w, y + g.TextHeight("0"));
        g.Print("Arrival " + (s.DelayTime[row] > 0 ? FormatNumber(s.DelayTime[row], "###0.00") + "mS" : std::string("*")));
        g.SetCurrentXY(margin + depth_w, y + 2 * g.TextHeight("0"));
        g.Print("Velocity " + (s.IntervalVelocity[row] != 0
                                   ? FormatNumber(s.IntervalVelocity[row] * unit, "###0.00") + (c.Feet() ? "ft/S" : "m/S")
                                   : std::string("*")));
        const double t_max = view.SeismicTimeAxisMax > 0 ? view.SeismicTimeAxisMax : 1;
        DrawStrikesOf(g, graph_left, y, graph_w, row_h, 0, t_max, s, nullptr, row);
      }
      g.Line(graph_left, y + row_h, graph_left + graph_w, y + row_h, Colour{200, 200, 200});
      y += row_h;
      ++row;
    }
    if (c.IsLog()) {
      DrawTimeAxis(g, graph_left, y, graph_w, 0, 1, 0.2, 2);
      g.SetCurrentXY(graph_left + graph_w / 2, y + 2 * g.TextHeight("0"));
      g.Print("Time");
    } else {
      DrawTimeAxis(g, graph_left, y, graph_w, 0, view.SeismicTimeAxisMax, view.TimeAxisStep, view.TimeAxisDivisions);
      g.SetCurrentXY(graph_left + graph_w / 2 - g.TextWidth("Time (mS)") / 2, y + 2 * g.TextHeight("0"));
      g.Print("Time (mS)");
      const double distance = c.Feet() ? s.HammerDistance * c.FeetPerMetre() : s.HammerDistance;
      g.SetCurrentXY(margin, h - margin - 2 * g.TextHeight("0"));
      g.Print(std::string(c.Feet() ? "Hammer to Rod String Distance (ft): " : "Hammer to Rod String Distance (m): ") +
              FormatNumber(distance, "##0.00"));
      g.SetCurrentXY(margin, h - margin - g.TextHeight("0"));
      g.Print("* = Not Determined");
    }
  } while (row <= rows);
}

void PrintWorkbench(PrintJob& job, const Session& session, const SeismicController& c) {
  const double w = job.PageWidthPoints(), h = job.PageHeightPoints();
  PrintCoverSheet(job, session, c);
  DrawingSurface& g = job.NewPage();
  g.SetScale(0, 0, w, h);
  const double y = PrintHeading(g, session, c, 36, 36, w - 72);
  const WorkbenchCaptions captions = c.Captions();
  g.SetFont("Arial", 9, false, false);
  double line = y;
  for (const std::string& text : {captions.heading_file, captions.heading_depth, "Delay (mS): " + captions.delay,
                                  "Velocity: " + captions.velocity}) {
    g.SetCurrentXY(36, line);
    g.Print(text);
    line += g.TextHeight("0") * 1.3;
  }
  // The view itself, drawn at the page's scale in a box of the page.
  struct Offset : DrawingSurface {
    DrawingSurface& inner;
    double dx, dy;
    Offset(DrawingSurface& in, double x, double y) : inner(in), dx(x), dy(y) {}
    void SetScale(double, double, double, double) override {}
    void Cls() override {}
    void Line(double x1, double y1, double x2, double y2, Colour c) override { inner.Line(x1 + dx, y1 + dy, x2 + dx, y2 + dy, c); }
    void Box(double x1, double y1, double x2, double y2, Colour c, bool f) override { inner.Box(x1 + dx, y1 + dy, x2 + dx, y2 + dy, c, f); }
    void Print(std::string_view t) override { inner.Print(t); }
    void SetCurrentXY(double x, double y) override { inner.SetCurrentXY(x + dx, y + dy); }
    double CurrentX() const override { return inner.CurrentX() - dx; }
    double CurrentY() const override { return inner.CurrentY() - dy; }
    double TextWidth(std::string_view t) override { return inner.TextWidth(t); }
    double TextHeight(std::string_view t) override { return inner.TextHeight(t); }
    void SetFont(std::string_view n, double s, bool b, bool i) override { inner.SetFont(n, s, b, i); }
    void SetDrawWidth(int p) override { inner.SetDrawWidth(p); }
    void PaintPicture(const Picture& p, double x, double y, double ww, double hh) override { inner.PaintPicture(p, x + dx, y + dy, ww, hh); }
    double PixelWidth() const override { return inner.PixelWidth(); }
    double PixelHeight() const override { return inner.PixelHeight(); }
    bool IsPrinter() const override { return inner.IsPrinter(); }
  } view(g, 36, line + 12);
  GraphStrike(view, w - 72, std::min(h - line - 60, (w - 72) * 0.6), c);
}

}  // namespace marlview
