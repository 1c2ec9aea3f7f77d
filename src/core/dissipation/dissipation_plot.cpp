// The dissipation plot engine: autoscale, the three time axes, the mapping of rows, grid, texts,
// footer, the T50 lines and the list's row marker.
#include "core/dissipation/dissipation_plot.h"

#include <algorithm>
#include <cmath>

#include "core/common/file_access.h"
#include "core/common/number_format.h"
#include "core/common/number_read.h"
#include "core/common/runtime_failure.h"
#include "core/presentation/axis_scale.h"
#include "core/session/session.h"
#include "core/settings/settings_files.h"

namespace marlview {
namespace {

constexpr const char* kDefaultFormatFile = "DefaultPPFormat.txt";
constexpr Colour kGridColour{176, 176, 176};
constexpr Colour kMinorGridColour{224, 224, 224};
constexpr Colour kT50Colour{0, 128, 0};
constexpr Colour kSlopeColour{192, 0, 192};
constexpr Colour kTestColours[] = {{0, 0, 255},   {255, 0, 0},   {0, 128, 0},  {128, 0, 128},
                                   {255, 128, 0}, {0, 128, 128}, {128, 64, 0}, {0, 0, 0}};
// Half the width of the list's row marker, in surface units.
constexpr double kMarkerHalfWidth = 200;
constexpr double kSecondsPerMinute = 60;
// The logo's box on the plot, in inches at a scale of 100 %.
constexpr double kLogoWidthInches = 1.2;
constexpr double kLogoHeightInches = 0.6;
constexpr double kUnitsPerInch = 1440;

Colour TestColour(int test) { return kTestColours[static_cast<size_t>(test - 1) % std::size(kTestColours)]; }

// The whole of a row's drawing position; nothing when a manual scale drops it.
struct RowPoint {
  double x, y;
};

std::optional<RowPoint> PlacedRow(const DissipationPlotState& plot, const DissipationSet& set, int test,
                                  int row) {
  double time_fraction = TimeFraction(plot, set.RowTime(test, row));
  // On the log axis the first row stands at the left edge, whatever its time.
  if (plot.TimeFormat == kLogTime && row == 1) time_fraction = 0;
  double value = ShownValue(plot, set, test, row);
  if (plot.ManualScale) {
    if (time_fraction < 0 || time_fraction > 1) return std::nullopt;
    value = std::clamp(value, static_cast<double>(plot.PressureMin), static_cast<double>(plot.PressureMax));
  }
  return RowPoint{plot.PlotLeft + time_fraction * plot.PlotWidth,
                  plot.PlotTop + ValueFraction(plot, value) * plot.PlotHeight};
}

// Draws a series of points; on screen the points within one pixel column are drawn as one
// vertical stroke, so a long test draws in the time of its width.
class Trace {
 public:
  Trace(DrawingSurface& g, Colour colour)
      : g_(g), colour_(colour), pixel_(g.IsPrinter() ? 0 : g.PixelWidth()) {}
  ~Trace() { Flush(); }

  void Add(double x, double y) {
    if (!started_) {
      started_ = true;
      x_ = x, y_ = y, low_ = high_ = y;
      return;
    }
    if (pixel_ > 0 && std::fabs(x - x_) < pixel_) {
      low_ = std::min(low_, y), high_ = std::max(high_, y);
      last_y_ = y;
      pending_ = true;
      return;
    }
    Flush();
    g_.Line(x_, pending_ ? last_y_ : y_, x, y, colour_);
    x_ = x, y_ = y, low_ = high_ = y, pending_ = false;
  }

 private:
  void Flush() {
    if (high_ > low_) g_.Line(x_, low_, x_, high_, colour_);
    if (pending_) y_ = last_y_;
    low_ = high_ = y_;
  }

  DrawingSurface& g_;
  Colour colour_;
  double pixel_;
  bool started_ = false, pending_ = false;
  double x_ = 0, y_ = 0, low_ = 0, high_ = 0, last_y_ = 0;
};

// Steps of manual limits: the table's step for their span, the limits kept as the user gave them.
void ManualSteps(float max, float min, float& step, int16_t& major, int16_t& minor) {
  float snapped_max = max, snapped_min = min;
  SetAxisScale(snapped_max, snapped_min, step, major, minor);
  major = static_cast<int16_t>(std::floor((max - min) / step + 1e-6));
}

class DissipationDrawing {
 public:
  DissipationDrawing(DrawingSurface& g, double width, double height, DissipationPlotState& plot,
                     const Session& session)
      : g_(g), width_(width), height_(height), plot_(plot), session_(session), set_(session.Dissipation()) {}

  void Draw();

 private:
  void Header();
  void Frame();
  void TimeAxis();
  void ValueAxis();
  void Curves();
  void DepthLegend();
  void Footer();
  void Overlay();
  void Text(double x, double y, const std::string& text) {
    g_.SetCurrentXY(x, y);
    g_.Print(text);
  }
  double TimeX(double fraction) const { return plot_.PlotLeft + fraction * plot_.PlotWidth; }
  void TimeLine(double x, bool major);
  bool Metric() const { return session_.DepthUnitIsMetric == 1; }

  DrawingSurface& g_;
  double width_, height_;
  DissipationPlotState& plot_;
  const Session& session_;
  const DissipationSet& set_;
  double line_ = 1;
};

void DissipationDrawing::Draw() {
  g_.SetScale(0, 0, width_, height_);
  g_.Cls();
  g_.SetFont("Arial", 8, false, false);
  g_.SetDrawWidth(1);
  line_ = g_.TextHeight("Ag");
  const std::vector<std::string> footer = DissipationFooter(plot_, session_);
  plot_.PlotLeft = static_cast<int32_t>(std::floor(width_ * 0.12));
  plot_.PlotRight = static_cast<int32_t>(std::floor(width_ * 0.95));
  plot_.PlotTop = static_cast<int32_t>(std::floor(line_ * 6));
  const double below = line_ * (4.5 + static_cast<double>(footer.size()));
  plot_.PlotBottom = static_cast<int32_t>(std::max(plot_.PlotTop + 1.0, std::floor(height_ - below)));
  plot_.PlotWidth = std::max(1, plot_.PlotRight - plot_.PlotLeft);
  plot_.PlotHeight = std::max(1, plot_.PlotBottom - plot_.PlotTop);
  if (!plot_.ManualScale)
    AutoScaleDissipation(plot_, set_);
  else
    DeriveTimeAxis(plot_);
  Header();
  ValueAxis();
  TimeAxis();
  Frame();
  Curves();
  DepthLegend();
  Footer();
  Overlay();
}

void DissipationDrawing::Header() {
  double y = line_ * 0.3;
  const std::string& company = session_.general.CompanyGraphTitle;
  if (!company.empty()) {
    g_.SetFont("Arial", 15, true, false);
    Text(plot_.PlotLeft, y, company);
    y += g_.TextHeight(company);
    g_.SetFont("Arial", 8, false, false);
  }
  g_.SetFont("Arial", 8, true, false);
  Text(plot_.PlotLeft, y, "PORE PRESSURE DISSIPATION PLOT: " + set_.DissipationFileName);
  g_.SetFont("Arial", 8, false, false);
  const bool px = set_.FileKind == kPxDasDissipation;
  Text(plot_.PlotLeft, y + line_, "LOCATION: " + (px ? set_.PxLocation : set_.Location));
  Text(plot_.PlotLeft + plot_.PlotWidth / 2.0, y + line_,
       "DATE: " + (px ? set_.TestDateText : set_.TestDate));
  Text(plot_.PlotLeft, y + line_ * 2, plot_.Title);
  const std::string logo = session_.SettingsPath("logo.jpg");
  if (FileExists(logo)) {
    const double scale = session_.logo.LogoScale[2] / 100.0;
    const double w = kLogoWidthInches * kUnitsPerInch * scale, h = kLogoHeightInches * kUnitsPerInch * scale;
    g_.PaintPicture(Picture{logo}, plot_.PlotRight - w, line_ * 0.3, w,
                    std::min(h, plot_.PlotTop - line_ * 0.6));
  }
}

void DissipationDrawing::Frame() {
  g_.Box(plot_.PlotLeft, plot_.PlotTop, plot_.PlotRight, plot_.PlotBottom, kBlack, false);
}

void DissipationDrawing::TimeLine(double x, bool major) {
  if (plot_.GridMode >= (major ? 1 : 2)) {
    g_.Line(x, plot_.PlotTop, x, plot_.PlotBottom, major ? kGridColour : kMinorGridColour);
  }
  const double tick = line_ * (major ? 0.4 : 0.2);
  g_.Line(x, plot_.PlotBottom, x, plot_.PlotBottom + tick, kBlack);
}

void DissipationDrawing::TimeAxis() {
  const double label_y = plot_.PlotBottom + line_ * 0.5;
  auto label = [&](double x, const std::string& text) { Text(x - g_.TextWidth(text) / 2, label_y, text); };
  if (plot_.TimeFormat == kLogTime) {
    const int decades = std::max<int>(1, plot_.TimeDecades);
    for (int d = 0; d <= decades; ++d) {
      const double x = TimeX(static_cast<double>(d) / decades);
      TimeLine(x, true);
      label(x, FormatNumber(std::pow(10.0, d), "0"));
      if (d == decades) break;
      for (int m = 2; m <= 9; ++m) TimeLine(TimeX((d + std::log10(m)) / decades), false);
    }
  } else {
    const double span = plot_.TimeFormat == kLinearTime ? plot_.TimeMax - plot_.TimeMin : plot_.TimeMax;
    const double origin = plot_.TimeFormat == kLinearTime ? plot_.TimeMin : 0;
    const double step = plot_.TimeStep > 0 ? plot_.TimeStep : 1;
    if (span > 0) {
      const int minor = std::max<int>(1, plot_.TimeMinor);
      for (int j = 0; j <= plot_.TimeMajor; ++j) {
        const double value = origin + j * step;
        if (value - origin > span * (1 + 1e-6)) break;
        const double x = TimeX((value - origin) / span);
        TimeLine(x, true);
        label(x, AxisLabel(value));
        for (int n = 1; n < minor && j < plot_.TimeMajor; ++n) {
          const double sub = value + step * n / minor;
          if (sub - origin < span) TimeLine(TimeX((sub - origin) / span), false);
        }
      }
    }
  }
  const double title_y = plot_.PlotBottom + line_ * 1.7;
  const double centre = plot_.PlotLeft + plot_.PlotWidth / 2.0;
  if (plot_.TimeFormat == kLogTime) {
    const std::string title = "TIME: (SECONDS)";
    Text(centre - g_.TextWidth(title) / 2, title_y, title);
  } else if (plot_.TimeFormat == kLinearTime) {
    const std::string title = "TIME: (MINUTES)";
    Text(centre - g_.TextWidth(title) / 2, title_y, title);
  } else {
    // "TIME", the exponent raised by half a line, then the unit.
    const double width = g_.TextWidth("TIME") + g_.TextWidth(" .5") + g_.TextWidth(": (SECONDS)");
    double x = centre - width / 2;
    Text(x, title_y, "TIME");
    x += g_.TextWidth("TIME");
    Text(x, title_y - line_ * 0.4, " .5");
    x += g_.TextWidth(" .5");
    Text(x, title_y, ": (SECONDS)");
  }
}

void DissipationDrawing::ValueAxis() {
  const double span = plot_.PressureMax - plot_.PressureMin;
  const double step = plot_.PressureStep > 0 ? plot_.PressureStep : 1;
  const int minor = std::max<int>(1, plot_.PressureMinor);
  if (span > 0) {
    for (int j = 0; j < plot_.PressureMajor; ++j) {
      const double value = plot_.PressureMin + j * step;
      if (value > plot_.PressureMax + span * 1e-6) break;
      const double y = plot_.PlotTop + ValueFraction(plot_, value) * plot_.PlotHeight;
      if (plot_.GridMode >= 1) g_.Line(plot_.PlotLeft, y, plot_.PlotRight, y, kGridColour);
      g_.Line(plot_.PlotLeft - line_ * 0.4, y, plot_.PlotLeft, y, kBlack);
      const std::string text = AxisLabel(value);
      Text(plot_.PlotLeft - line_ * 0.6 - g_.TextWidth(text), y - line_ / 2, text);
      for (int n = 1; n < minor; ++n) {
        const double sub = value + step * n / minor;
        if (sub > plot_.PressureMax) break;
        const double sub_y = plot_.PlotTop + ValueFraction(plot_, sub) * plot_.PlotHeight;
        if (plot_.GridMode >= 2) g_.Line(plot_.PlotLeft, sub_y, plot_.PlotRight, sub_y, kMinorGridColour);
        g_.Line(plot_.PlotLeft - line_ * 0.2, sub_y, plot_.PlotLeft, sub_y, kBlack);
      }
    }
  }
  std::string title = plot_.PressureDisplayMode == kPercentOfMax      ? "% MAX PRESSURE (%)"
                      : plot_.PressureDisplayMode == kPercentOverHead ? "% HEAD PRESSURE (%)"
                                                                      : plot_.AxisWord + " " + plot_.UnitText;
  Text(std::max(0.0, plot_.PlotLeft - g_.TextWidth(title) / 2), plot_.PlotTop - line_ * 1.3, title);
}

void DissipationDrawing::Curves() {
  const bool one = plot_.PressureDisplayMode != kPressureValues;
  for (int test = 1; test <= std::min<int>(set_.DissipationCount, kMaxDissipations); ++test) {
    if (!plot_.selection.Selected(test)) continue;
    if (one && test != plot_.selection.LastSelected) continue;
    Trace trace(g_, TestColour(test));
    for (int k = 1; k <= set_.RowCount[static_cast<size_t>(test)]; ++k) {
      if (const auto point = PlacedRow(plot_, set_, test, k)) trace.Add(point->x, point->y);
    }
  }
}

void DissipationDrawing::DepthLegend() {
  const std::string heading = Metric() ? "DEPTH (m)" : "DEPTH (ft)";
  const double x = plot_.PlotRight - g_.TextWidth("DEPTH (ft)  ") - line_ * 2;
  double y = plot_.PlotTop + line_ * 0.3;
  Text(x, y, heading);
  const bool one = plot_.PressureDisplayMode != kPressureValues;
  for (int test = 1; test <= std::min<int>(set_.DissipationCount, kMaxDissipations); ++test) {
    if (!plot_.selection.Selected(test) || (one && test != plot_.selection.LastSelected)) continue;
    y += line_;
    const double depth = set_.TestDepth[static_cast<size_t>(test)] * (Metric() ? 1.0 : session_.FeetPerMetre);
    g_.Line(x, y + line_ / 2, x + line_ * 1.5, y + line_ / 2, TestColour(test));
    Text(x + line_ * 2, y, FormatNumber(depth, "##0.00#"));
  }
}

void DissipationDrawing::Footer() {
  double y = plot_.PlotBottom + line_ * 3.0;
  for (const std::string& text : DissipationFooter(plot_, session_)) {
    Text(plot_.PlotLeft, y, text);
    y += line_;
  }
}

// The T50 lines, placed by their fractions of the plot rectangle.
void DissipationDrawing::Overlay() {
  if (!plot_.overlay) return;
  const T50Lines& lines = *plot_.overlay;
  const double left = plot_.PlotLeft, right = plot_.PlotRight;
  auto x = [&](double fraction) { return plot_.PlotLeft + fraction * plot_.PlotWidth; };
  auto y = [&](double fraction) { return plot_.PlotTop + fraction * plot_.PlotHeight; };
  g_.Line(x(lines.slope_x1), y(lines.slope_y1), x(lines.slope_x2), y(lines.slope_y2), kSlopeColour);
  const bool page = g_.IsPrinter();
  auto text = [&](const char* name, float value, const std::string& shown) {
    return page ? std::string(name) + FormatNumber(value, "###0.00") : shown;
  };
  struct Level {
    double y;
    std::string label;
    Colour colour;
  };
  const Level levels[] = {{lines.u0_y, text("U0: ", lines.u0, lines.u0_text), kBlue},
                          {lines.u50_y, text("U50: ", lines.u50, lines.u50_text), kT50Colour},
                          {lines.u100_y, text("U100: ", lines.u100, lines.u100_text), kBlue}};
  for (const Level& level : levels) {
    g_.Line(left, y(level.y), right, y(level.y), level.colour);
    // Above its line, or below it when the line runs along the top of the plot.
    const double above = y(level.y) - line_;
    Text(left + line_ * 0.3, above < plot_.PlotTop ? y(level.y) + line_ * 0.1 : above, level.label);
  }
  if (lines.t50_x && lines.t50) {
    const std::string label = page ? "T50: " + FormatNumber(*lines.t50, "###0.00") + " Sec" : lines.t50_text;
    g_.Line(x(*lines.t50_x), plot_.PlotTop, x(*lines.t50_x), plot_.PlotBottom, kT50Colour);
    Text(x(*lines.t50_x) + line_ * 0.3, plot_.PlotTop + line_ * 0.3, label);
  }
}

}  // namespace

DissipationPlotState NewDissipationPlot(const Session& session, const DissipationSelection& selection) {
  DissipationPlotState plot;
  plot.selection = selection;
  plot.UnitText = DissipationUnitText(session.Dissipation(), session.units);
  plot.TimeFormat = ReadDefaultTimeFormat(session);
  plot.GridMode = 1;
  plot.PressureDisplayMode = kPressureValues;
  return plot;
}

std::string DissipationPlotCaption(const DissipationSet& set) {
  return "DISSIPATION PLOT: " + set.DissipationFileName;
}

int16_t ReadDefaultTimeFormat(const Session& session) {
  const auto bytes = TryReadWholeFile(session.SettingsPath(kDefaultFormatFile));
  if (!bytes) return kLinearTime;
  const double value = LenientNumber(*bytes);
  return value == 1 ? kLogTime : value == 2 ? kSquareRootTime : kLinearTime;
}

void SetTimeFormat(DissipationPlotState& plot, int16_t format) {
  plot.TimeFormat = format;
  if (format != kLinearTime) plot.ManualScale = false;
}

void AskDefaultTimeFormat(const Session& session, int16_t format, UserPrompts& prompts) {
  const char* name = format == kLogTime          ? "Logarithmic"
                     : format == kSquareRootTime ? "Square Root"
                                                 : "Linear";
  const std::string question = std::string("Would you like to set the default format to '") + name + "'?";
  if (prompts.Ask(question, Buttons::kYesNo) != Answer::kYes) return;
  InProcedure("SetDefaultFormat",
              [&] { WriteFileAtomically(session.SettingsPath(kDefaultFormatFile), NumberLine(format)); });
}

bool SetPressureDisplayMode(DissipationPlotState& plot, const DissipationSet& set, int16_t mode,
                            UserPrompts& prompts) {
  if (mode == kPercentOverHead) {
    float deepest = -1e30f;
    for (int i = 1; i <= std::min<int>(set.DissipationCount, kMaxDissipations); ++i) {
      if (plot.selection.Selected(i)) deepest = std::max(deepest, set.TestDepth[static_cast<size_t>(i)]);
    }
    if (deepest < set.WaterTableDepth) {
      prompts.Tell(
          "WATER TABLE DEPTH IS GREATER THAN DISSIPATION DEPTH. CANNOT DISPLAY PERCENT HEAD PRESSURE");
      return false;
    }
    if (set.WaterTableDepth == kUndefinedWaterTable) {
      prompts.Tell(
          "WATER TABLE DEPTH IS CURRENTLY UNDEFINED. CLICK 'Water Table Depth' TO CHANGE IF INCORRECT");
    }
  }
  // Manual limits of one kind of value mean nothing for another.
  if (mode != plot.PressureDisplayMode) plot.ManualScale = false;
  plot.PressureDisplayMode = mode;
  return true;
}

float ShownValue(const DissipationPlotState& plot, const DissipationSet& set, int test, int row) {
  switch (plot.PressureDisplayMode) {
    case kPercentOfMax:
      return set.PercentMax(test, row);
    case kPercentOverHead:
      return set.PercentHead(test, row);
    default:
      return set.RowPressure(test, row);
  }
}

void DeriveTimeAxis(DissipationPlotState& plot) {
  if (plot.TimeFormat != kLogTime) return;
  const double seconds = static_cast<double>(plot.TimeMax) * kSecondsPerMinute;
  if (!(seconds >= 1)) {
    plot.TimeDecades = 1;
    return;
  }
  int decades = static_cast<int>(std::floor(std::log10(seconds)));
  if (std::pow(10.0, decades) / kSecondsPerMinute < plot.TimeMax) ++decades;
  plot.TimeDecades = static_cast<int16_t>(std::max(1, decades));
}

void AutoScaleDissipation(DissipationPlotState& plot, const DissipationSet& set) {
  plot.TimeMin = 0;
  plot.TimeMax = -1e30f;
  plot.PressureMin = 1e30f;
  plot.PressureMax = -1e30f;
  const bool one = plot.PressureDisplayMode != kPressureValues;
  for (int test = 1; test <= std::min<int>(set.DissipationCount, kMaxDissipations); ++test) {
    if (!plot.selection.Selected(test)) continue;
    const int rows = set.RowCount[static_cast<size_t>(test)];
    for (int k = 1; k <= rows; ++k) {
      plot.TimeMax = std::max(plot.TimeMax, static_cast<float>(set.RowTime(test, k) / kSecondsPerMinute));
    }
    if (one && test != plot.selection.LastSelected) continue;
    for (int k = 1; k <= rows; ++k) {
      const float value = ShownValue(plot, set, test, k);
      plot.PressureMin = std::min(plot.PressureMin, value);
      plot.PressureMax = std::max(plot.PressureMax, value);
    }
  }
  // A selection without rows has nothing to scale by.
  if (plot.TimeMax < 0) plot.TimeMax = 0;
  if (plot.PressureMin > plot.PressureMax) plot.PressureMin = plot.PressureMax = 0;
  if (plot.TimeFormat == kSquareRootTime) {
    plot.TimeMax = static_cast<float>(std::sqrt(static_cast<double>(plot.TimeMax) * kSecondsPerMinute));
  }
  SetAxisScale(plot.TimeMax, plot.TimeMin, plot.TimeStep, plot.TimeMajor, plot.TimeMinor);
  DeriveTimeAxis(plot);
  SetAxisScale(plot.PressureMax, plot.PressureMin, plot.PressureStep, plot.PressureMajor, plot.PressureMinor);
  ++plot.PressureMajor;
}

double TimeFraction(const DissipationPlotState& plot, double seconds) {
  switch (plot.TimeFormat) {
    case kLogTime:
      return seconds <= 0 ? 0.0 : std::log10(seconds) / std::max<int>(1, plot.TimeDecades);
    case kSquareRootTime:
      return plot.TimeMax <= 0 ? 0.0 : std::sqrt(std::max(0.0, seconds)) / plot.TimeMax;
    default: {
      const double span = static_cast<double>(plot.TimeMax) - plot.TimeMin;
      return span == 0 ? 0.0 : (seconds / kSecondsPerMinute - plot.TimeMin) / span;
    }
  }
}

double ValueFraction(const DissipationPlotState& plot, double value) {
  const double span = static_cast<double>(plot.PressureMax) - plot.PressureMin;
  return span == 0 ? 0.0 : (plot.PressureMax - value) / span;
}

void GraphDissipation(DrawingSurface& surface, double width, double height, DissipationPlotState& plot,
                      const Session& session) {
  InProcedure("GraphDissipation", [&] {
    if (plot.ManualScale) {
      ManualSteps(plot.PressureMax, plot.PressureMin, plot.PressureStep, plot.PressureMajor,
                  plot.PressureMinor);
      ++plot.PressureMajor;
      if (plot.TimeFormat == kLinearTime && plot.TimeMax > plot.TimeMin) {
        ManualSteps(plot.TimeMax, plot.TimeMin, plot.TimeStep, plot.TimeMajor, plot.TimeMinor);
      }
    }
    DissipationDrawing(surface, width, height, plot, session).Draw();
  });
}

void LineDraw(DrawingSurface& surface, const DissipationPlotState& plot, const DissipationSet& set, int test,
              int row) {
  if (test < 1 || test > kMaxDissipations || row < 1 || row > set.RowCount[static_cast<size_t>(test)]) return;
  const double t = set.RowTime(test, row);
  double fraction = TimeFraction(plot, t);
  // The marker's own log mapping, which is where the list has always put it.
  if (plot.TimeFormat == kLogTime) {
    fraction = t <= 0 ? 0.0 : std::log(t / std::log(10.0)) / std::max<int>(1, plot.TimeDecades);
  }
  double value = ShownValue(plot, set, test, row);
  if (plot.ManualScale) {
    if (fraction < 0 || fraction > 1 || value < plot.PressureMin || value > plot.PressureMax) return;
  }
  const double x = plot.PlotLeft + fraction * plot.PlotWidth;
  const double y = plot.PlotTop + ValueFraction(plot, value) * plot.PlotHeight;
  surface.Line(x - kMarkerHalfWidth, y, x + kMarkerHalfWidth, y, kRed);
  surface.Line(x, y - kMarkerHalfWidth, x, y + kMarkerHalfWidth, kRed);
}

DissipationScaleEntry DissipationScaleTexts(const DissipationPlotState& plot) {
  DissipationScaleEntry entry;
  const bool linear = plot.TimeFormat == kLinearTime;
  entry.time_min = linear ? FormatNumber(plot.TimeMin, "###0.00") : "N/A";
  entry.time_max = linear ? FormatNumber(plot.TimeMax, "###0.00") : "N/A";
  entry.pressure_min = FormatNumber(plot.PressureMin, "###0.00");
  entry.pressure_max = FormatNumber(plot.PressureMax, "###0.00");
  return entry;
}

std::string DissipationScaleLabel(const DissipationPlotState& plot) {
  return plot.PressureDisplayMode == kPercentOfMax      ? "% MAX PRESSURE"
         : plot.PressureDisplayMode == kPercentOverHead ? "% HEAD PRESSURE"
                                                        : "PRESSURE";
}

bool ApplyDissipationScale(DissipationPlotState& plot, const DissipationScaleEntry& entry,
                           UserPrompts& prompts, ScaleBox& bad_box) {
  bad_box = ScaleBox::kNone;
  const bool linear = plot.TimeFormat == kLinearTime;
  const double time_min = LenientNumber(entry.time_min), time_max = LenientNumber(entry.time_max);
  const double pressure_min = LenientNumber(entry.pressure_min),
               pressure_max = LenientNumber(entry.pressure_max);
  if (linear && time_min < 0) {
    prompts.Tell("Min time must be greater than 0.");
    bad_box = ScaleBox::kTimeMin;
    return false;
  }
  if (linear && !(time_max > time_min)) {
    prompts.Tell("Min time must be less than max time.");
    bad_box = ScaleBox::kTimeMax;
    return false;
  }
  if (!(pressure_max > pressure_min)) {
    prompts.Tell("Min pressure must be less than max pressure.");
    bad_box = ScaleBox::kPressureMax;
    return false;
  }
  if (linear) {
    plot.TimeMin = ToSingle(time_min);
    plot.TimeMax = ToSingle(time_max);
  }
  plot.PressureMin = ToSingle(pressure_min);
  plot.PressureMax = ToSingle(pressure_max);
  plot.ManualScale = true;
  return true;
}

std::vector<std::string> DissipationFooter(const DissipationPlotState& plot, const Session& session) {
  const DissipationSet& set = session.Dissipation();
  std::vector<std::string> lines;
  const bool one = plot.selection.SelectedCount == 1;
  const int test = plot.selection.LastSelected;
  const bool test_known = test >= 1 && test <= kMaxDissipations;
  if (plot.PrintMaxPressure || plot.PressureDisplayMode == kPercentOfMax) {
    lines.push_back(
        one && test_known
            ? "MAXIMUM PRESSURE = " + FormatNumber(set.MaxPressure[static_cast<size_t>(test)], "###0.0##") +
                  " " + plot.UnitText
            : "MAXIMUM PRESSURE = N/A (MORE THAN ONE DISSIPATION SELECTED)");
  }
  if (plot.PrintHydrostatic || plot.PressureDisplayMode == kPercentOverHead) {
    const bool defined = set.WaterTableDepth != kUndefinedWaterTable;
    if (one && test_known && defined) {
      const bool metric = session.DepthUnitIsMetric == 1;
      const double depth = metric ? set.WaterTableDepth : set.WaterTableDepth * session.FeetPerMetre;
      lines.push_back("HYDROSTATIC PRESSURE = " +
                      FormatNumber(set.HydrostaticPressure[static_cast<size_t>(test)], "###0.0##") + " " +
                      plot.UnitText + ", WATER TABLE: " + FormatNumber(depth, "##0.00") +
                      (metric ? " m" : " ft"));
    } else if (!defined) {
      lines.push_back(std::string("HYDROSTATIC PRESSURE = N/A ") + ", WATER TABLE: " + "UNDEFINED");
    } else {
      lines.push_back("HYDROSTATIC PRESSURE = N/A (MORE THAN ONE DISSIPATION SELECTED)");
    }
  }
  return lines;
}

}  // namespace marlview
