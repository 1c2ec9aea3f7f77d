// The T50 utility's geometry: the slope line cut to the plot, the three pressure levels, the
// bracket search and the held buttons.
#include "core/dissipation/t50_utility.h"

#include <algorithm>
#include <cmath>

#include "core/common/number_format.h"
#include "core/common/number_read.h"
#include "core/common/runtime_failure.h"

namespace marlview {
namespace {

constexpr double kAngleStepPerTick = 0.001;

// Where the slope line leaves the plot on one side: y at the edge, or, when that lies above or
// below the rectangle, the point where the line meets its top or bottom.
void LineEnd(const DissipationPlotState& plot, double edge_x, double edge_y, double angle, double& x,
             double& y) {
  const double sine = std::sin(angle), cosine = std::cos(angle);
  x = edge_x;
  y = edge_y;
  if (sine == 0) return;
  if (edge_y < plot.PlotTop) {
    x = (plot.PlotTop - edge_y) / sine * cosine + edge_x;
    y = plot.PlotTop;
  } else if (edge_y > plot.PlotBottom) {
    x = (plot.PlotBottom - edge_y) / sine * cosine + edge_x;
    y = plot.PlotBottom;
  }
}

double ClampY(const DissipationPlotState& plot, double y) {
  return std::clamp(y, static_cast<double>(plot.PlotTop), static_cast<double>(plot.PlotBottom));
}

double FractionX(const DissipationPlotState& plot, double x) { return (x - plot.PlotLeft) / plot.PlotWidth; }
double FractionY(const DissipationPlotState& plot, double y) { return (y - plot.PlotTop) / plot.PlotHeight; }

}  // namespace

T50State StartT50(const DissipationPlotState& plot, int16_t u0_mode) {
  T50State t50;
  t50.U0Mode = u0_mode;
  t50.SlopePivotX = static_cast<int32_t>(plot.PlotLeft + 0.5 * plot.PlotWidth);
  t50.SlopePivotY = static_cast<int32_t>(plot.PlotTop + 0.5 * plot.PlotHeight);
  t50.SlopeAngle = kStartSlopeAngle;
  t50.U100LineY = static_cast<int32_t>(plot.PlotTop + 0.6 * plot.PlotHeight);
  t50.U0LineY = static_cast<int32_t>(plot.PlotTop + 0.4 * plot.PlotHeight);
  return t50;
}

double PressureAtY(const DissipationPlotState& plot, double y) {
  return (plot.PlotBottom - y) / plot.PlotHeight *
             (static_cast<double>(plot.PressureMax) - plot.PressureMin) +
         plot.PressureMin;
}

void DrawSlopeLine(T50State& t50, DissipationPlotState& plot, const DissipationSet& set) {
  T50Lines& lines = t50.lines;
  t50.PivotPressure = static_cast<float>(PressureAtY(plot, t50.SlopePivotY));
  const double angle = t50.SlopeAngle;
  const double tangent = std::sin(angle) / std::cos(angle);
  const double left_y = t50.SlopePivotY - (t50.SlopePivotX - plot.PlotLeft) * tangent;
  const double right_y = t50.SlopePivotY + (plot.PlotRight - t50.SlopePivotX) * tangent;
  double x1, y1, x2, y2;
  LineEnd(plot, plot.PlotLeft, left_y, angle, x1, y1);
  LineEnd(plot, plot.PlotRight, right_y, angle, x2, y2);
  lines.slope_x1 = FractionX(plot, x1), lines.slope_y1 = FractionY(plot, y1);
  lines.slope_x2 = FractionX(plot, x2), lines.slope_y2 = FractionY(plot, y2);

  if (t50.U0Mode == kU0Manual) {
    const double y = ClampY(plot, t50.U0LineY);
    t50.U0 = static_cast<float>(PressureAtY(plot, t50.U0LineY));
    lines.u0_y = FractionY(plot, y);
  } else {
    // The line's own height at the left edge, however far outside the plot it lies.
    t50.U0 = static_cast<float>(PressureAtY(plot, left_y));
    lines.u0_y = FractionY(plot, ClampY(plot, left_y));
  }
  const double u100_y = ClampY(plot, t50.U100LineY);
  t50.U100 = static_cast<float>(PressureAtY(plot, u100_y));
  lines.u100_y = FractionY(plot, u100_y);
  t50.U50 = t50.U0 + (t50.U100 - t50.U0) * 0.5f;
  const double span = static_cast<double>(plot.PressureMax) - plot.PressureMin;
  const double u50_y =
      span == 0 ? plot.PlotBottom : plot.PlotBottom - (t50.U50 - plot.PressureMin) / span * plot.PlotHeight;
  lines.u50_y = FractionY(plot, ClampY(plot, u50_y));
  lines.u0_text = "U0: " + FormatNumber(t50.U0, "#####0.00");
  lines.u100_text = "U100: " + FormatNumber(t50.U100, "#####0.00");
  lines.u50_text = "U50: " + FormatNumber(t50.U50, "#####0.000");
  lines.u0 = t50.U0, lines.u50 = t50.U50, lines.u100 = t50.U100;

  // Without a bracket the T50 found before stays, on screen and in the store.
  if (const auto found = FindT50(set, plot.selection.LastSelected, t50.U50)) {
    t50.T50 = found;
    lines.t50_text = "T50: " + FormatNumber(*found, "###0.0") + " Sec";
  }
  lines.t50 = t50.T50;
  if (t50.T50) {
    lines.t50_x = TimeFraction(plot, *t50.T50);
  } else {
    lines.t50_x.reset();
  }
  plot.overlay = lines;
}

std::optional<float> FindT50(const DissipationSet& set, int test, float u50, int first_row) {
  if (test < 1 || test > kMaxDissipations) return std::nullopt;
  const int rows = set.RowCount[static_cast<size_t>(test)];
  for (int k = std::max(first_row, 1); k <= rows - 1; ++k) {
    const float p1 = set.RowPressure(test, k), p2 = set.RowPressure(test, k + 1);
    const bool brackets = (p1 <= u50 && u50 <= p2) || (p2 <= u50 && u50 <= p1);
    if (!brackets) continue;
    const float t1 = static_cast<float>(set.RowTime(test, k)),
                t2 = static_cast<float>(set.RowTime(test, k + 1));
    // A flat pair at U50 touches it from its first row.
    if (p2 == p1) return t1;
    return t1 + (u50 - p1) * (t2 - t1) / (p2 - p1);
  }
  return std::nullopt;
}

void NoteT50(T50State& t50, DissipationSet& set, int test) {
  if (!t50.T50 || test < 1 || test > kMaxDissipations) return;
  // Only a T50 found for the present U50: one kept from before belongs to other lines.
  const std::optional<float> found = FindT50(set, test, t50.U50);
  if (!found) return;
  const T50State::Noted now{test, t50.U0, t50.U100, *found};
  if (t50.noted == now) return;
  t50.noted = now;
  // A ch worked out for these very lines stays.
  const ConsolidationResult& last = set.LastConsolidation[static_cast<size_t>(test)];
  if (last.HasT50 && last.U0 == now.u0 && last.U100 == now.u100 && last.T50 == now.t50) return;
  RecordT50(set, test, now.u0, now.u100, now.t50);
}

void RecordT50(DissipationSet& set, int test, float u0, float u100, float t50) {
  if (test < 1 || test > kMaxDissipations) Fail(kErrSubscript);
  ConsolidationResult& last = set.LastConsolidation[static_cast<size_t>(test)];
  last = ConsolidationResult{};
  last.HasT50 = true;
  last.U0 = u0;
  last.U100 = u100;
  last.T50 = t50;
}

void PressRepeat(T50State& t50, int code) {
  t50.RepeatAction = code;
  t50.RepeatTicks = 0;
}

void ReleaseRepeat(T50State& t50) {
  t50.RepeatAction = kRepeatNone;
  t50.RepeatTicks = 0;
}

void RepeatTick(T50State& t50, const DissipationPlotState& plot) {
  if (t50.RepeatAction == kRepeatNone) return;
  ++t50.RepeatTicks;
  const int step = std::min(t50.RepeatTicks, kFullRepeatSpeed);
  switch (t50.RepeatAction) {
    case kMoveLeft:
      t50.SlopePivotX = std::max(t50.SlopePivotX - step, plot.PlotLeft);
      break;
    case kMoveRight:
      t50.SlopePivotX = std::min(t50.SlopePivotX + step, plot.PlotRight);
      break;
    case kCounterClockwise:
      t50.SlopeAngle =
          std::max(static_cast<float>(t50.SlopeAngle - step * kAngleStepPerTick), -kSlopeAngleLimit);
      break;
    case kClockwise:
      t50.SlopeAngle =
          std::min(static_cast<float>(t50.SlopeAngle + step * kAngleStepPerTick), kSlopeAngleLimit);
      break;
    case kUpU100:
      t50.U100LineY = std::max(t50.U100LineY - step, plot.PlotTop);
      break;
    case kDownU100:
      t50.U100LineY = std::min(t50.U100LineY + step, plot.PlotBottom);
      break;
    case kUpU0:
      t50.U0LineY = std::max(t50.U0LineY - step, plot.PlotTop);
      break;
    case kDownU0:
      t50.U0LineY = std::min(t50.U0LineY + step, plot.PlotBottom);
      break;
    default:
      break;
  }
}

void KeepPivotPressure(T50State& t50, const DissipationPlotState& plot) {
  const double span = static_cast<double>(plot.PressureMax) - plot.PressureMin;
  if (span == 0) return;
  t50.SlopePivotY = static_cast<int32_t>(
      std::lround(plot.PlotBottom - (t50.PivotPressure - plot.PressureMin) / span * plot.PlotHeight));
}

void RescaleT50(T50State& t50, DissipationPlotState& plot, const DissipationSet& set) {
  if (!plot.ManualScale) AutoScaleDissipation(plot, set);
  KeepPivotPressure(t50, plot);
  DrawSlopeLine(t50, plot, set);
}

bool SetT50Scale(DissipationPlotState& plot, const std::string& minimum, const std::string& maximum,
                 UserPrompts& prompts) {
  const double low = LenientNumber(minimum), high = LenientNumber(maximum);
  if (!(high > low)) {
    prompts.Tell("Min pressure must be less than max pressure.");
    return false;
  }
  plot.PressureMin = ToSingle(low);
  plot.PressureMax = ToSingle(high);
  plot.ManualScale = true;
  return true;
}

std::string T50ScaleText(float value) { return FormatNumber(value, "###0"); }

}  // namespace marlview
