// The T50 utility: the time at which excess pore pressure has fallen half way from U0 to U100,
// with U0 from a tilted line over the early curve or set by hand, and U100 set by hand.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "core/dissipation/dissipation_plot.h"

namespace marlview {

inline constexpr float kStartSlopeAngle = 0.762f;
// Short of a right angle, so the cosine never reaches 0.
inline constexpr float kSlopeAngleLimit = 1.55334f;
inline constexpr int kFullRepeatSpeed = 40;

enum U0Source : int16_t { kU0Manual = 0, kU0StraightLine = 1 };

// The buttons that move the lines while held.
enum RepeatCode : int {
  kRepeatNone = -1,
  kMoveLeft = 0,
  kMoveRight = 1,
  kCounterClockwise = 2,
  kClockwise = 3,
  kUpU100 = 4,
  kDownU100 = 5,
  kUpU0 = 6,
  kDownU0 = 7,
};

// Positions are in the plot's surface units, on its rectangle.
struct T50State {
  int16_t U0Mode = kU0StraightLine;
  int32_t SlopePivotX = 0, SlopePivotY = 0;
  float SlopeAngle = kStartSlopeAngle;
  int32_t U0LineY = 0, U100LineY = 0;
  float U0 = 0, U50 = 0, U100 = 0;
  // Seconds; nothing until a row pair first brackets U50.
  std::optional<float> T50;
  float PivotPressure = 0;
  bool IncludeLines = false;
  int RepeatAction = kRepeatNone;
  int RepeatTicks = 0;
  T50Lines lines;
  // The test and values last noted as the test's computation.
  struct Noted {
    int test = 0;
    float u0 = 0, u100 = 0, t50 = 0;
    bool operator==(const Noted&) const = default;
  };
  std::optional<Noted> noted;
};

// The lines' start on the plot's current rectangle.
T50State StartT50(const DissipationPlotState& plot, int16_t u0_mode);
// The pressure a height of the plot stands for.
double PressureAtY(const DissipationPlotState& plot, double y);
// Recomputes U0, U50, U100, T50 and every line; the result also goes to plot.overlay.
void DrawSlopeLine(T50State& t50, DissipationPlotState& plot, const DissipationSet& set);
// T50 of test by the first row pair from first_row on that brackets u50; nothing when none does.
std::optional<float> FindT50(const DissipationSet& set, int test, float u50, int first_row = 1);
// The utility's T50, when it has moved since it was last noted, as the test's last computation:
// a ch worked out before no longer goes with it.
void NoteT50(T50State& t50, DissipationSet& set, int test);
// A T50 without a ch as the test's last computation.
void RecordT50(DissipationSet& set, int test, float u0, float u100, float t50);
// A button pressed or let go, and one tick of its timer: the step grows by one each tick up to 40.
void PressRepeat(T50State& t50, int code);
void ReleaseRepeat(T50State& t50);
void RepeatTick(T50State& t50, const DissipationPlotState& plot);
// After a redraw on new limits: the pivot moves to the height of the pressure it stood for.
void KeepPivotPressure(T50State& t50, const DissipationPlotState& plot);
// After a scale change: the limits of an autoscale, the pivot kept on its pressure, the lines anew.
void RescaleT50(T50State& t50, DissipationPlotState& plot, const DissipationSet& set);
// cmdSetScale: the pressure limits from the two boxes; false (and told) when they are no range.
bool SetT50Scale(DissipationPlotState& plot, const std::string& minimum, const std::string& maximum,
                 UserPrompts& prompts);
// The boxes' texts of the pressure limits.
std::string T50ScaleText(float value);

}  // namespace marlview
