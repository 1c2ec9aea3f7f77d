// The dissipation plot: pressure, percent of maximum or percent over head of the selected tests
// against linear, logarithmic or square-root time, drawn once on any drawing surface.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/common/user_prompts.h"
#include "core/presentation/drawing_surface.h"
#include "core/session/dissipation_set.h"

namespace marlview {

class Session;

// Surface units of the plot: 1/1440 inch, on the screen (at 96 pixels an inch) and on the page.
inline constexpr double kPlotUnitsPerPixel = 15.0;
inline constexpr double kPlotUnitsPerPoint = 20.0;
inline constexpr uint16_t kSelectedFlag = 65535;

// The tests chosen in the main window's list.
struct DissipationSelection {
  std::array<uint16_t, kMaxDissipations + 1> SelectedFlag{};
  int SelectedCount = 0;
  int ShallowSelected = 0;
  int DeepSelected = 0;
  int LastSelected = 0;
  bool Selected(int i) const {
    return i >= 1 && i <= kMaxDissipations && SelectedFlag[static_cast<size_t>(i)] == kSelectedFlag;
  }
};

enum PressureDisplay : int16_t { kPressureValues = 0, kPercentOfMax = 1, kPercentOverHead = 2 };
enum TimeAxisForm : int16_t { kLinearTime = 0, kLogTime = 1, kSquareRootTime = 2 };

// The lines of the T50 utility, kept on the plot while its window is open. Positions are fractions
// of the plot rectangle (x from its left, y from its top), so the window and a page draw them alike.
struct T50Lines {
  double slope_x1 = 0, slope_y1 = 0, slope_x2 = 0, slope_y2 = 0;
  double u0_y = 0, u50_y = 0, u100_y = 0;
  std::optional<double> t50_x;
  // The screen's labels; a printed page writes the values in its own format.
  std::string u0_text, u50_text, u100_text, t50_text;
  float u0 = 0, u50 = 0, u100 = 0;
  std::optional<float> t50;
};

struct DissipationPlotState {
  DissipationSelection selection;
  std::string Title = "PORE PRESSURE DISSIPATION VERSUS TIME";
  std::string AxisWord = "PRESSURE";
  std::string UnitText;

  int16_t PressureDisplayMode = kPressureValues;
  int16_t TimeFormat = kLinearTime;
  int16_t GridMode = 1;
  bool ManualScale = false;
  float TimeMin = 0, TimeMax = 1, PressureMin = 0, PressureMax = 1;
  float TimeStep = 1, PressureStep = 1;
  int16_t TimeMajor = 1, TimeMinor = 1, PressureMajor = 1, PressureMinor = 1;
  int16_t TimeDecades = 1;
  int32_t PlotTop = 0, PlotBottom = 1, PlotLeft = 0, PlotRight = 1, PlotWidth = 1, PlotHeight = 1;

  // The family's print settings words "Yes" for the maximum and hydrostatic footer lines.
  bool PrintMaxPressure = true;
  bool PrintHydrostatic = true;
  // The T50 utility's lines, drawn while set.
  std::optional<T50Lines> overlay;
};

// cmdPlotDissipation: the selection marks and the axis title of the file's pressure unit.
DissipationPlotState NewDissipationPlot(const Session& session, const DissipationSelection& selection);

// The window's caption: "DISSIPATION PLOT: " and the file name.
std::string DissipationPlotCaption(const DissipationSet& set);

// "\DefaultPPFormat.txt": the time axis form a new plot starts with; 0 when missing.
int16_t ReadDefaultTimeFormat(const Session& session);
// A time menu: sets the form; the logarithmic and square-root forms give up a manual scale.
void SetTimeFormat(DissipationPlotState& plot, int16_t format);
// The question after a time menu; Yes writes the form to "\DefaultPPFormat.txt".
void AskDefaultTimeFormat(const Session& session, int16_t format, UserPrompts& prompts);
// A mode menu; percent over head is refused, with its message, when the water table lies below
// the deepest selected test. True when the mode was applied.
bool SetPressureDisplayMode(DissipationPlotState& plot, const DissipationSet& set, int16_t mode,
                            UserPrompts& prompts);

// Limits from the data of the selected tests, when no manual scale is set.
void AutoScaleDissipation(DissipationPlotState& plot, const DissipationSet& set);
// The time axis derived from its limits: decades of the log axis.
void DeriveTimeAxis(DissipationPlotState& plot);

// The value a row shows in the current mode.
float ShownValue(const DissipationPlotState& plot, const DissipationSet& set, int test, int row);
// Fractions of the plot rectangle: time from the left, value from the top.
double TimeFraction(const DissipationPlotState& plot, double seconds);
double ValueFraction(const DissipationPlotState& plot, double value);

// GraphDissipation: the whole drawing on surface, of logical size width x height (surface units).
void GraphDissipation(DrawingSurface& surface, double width, double height, DissipationPlotState& plot,
                      const Session& session);

// Marks row k of test i by a cross; nothing for a row outside manual limits.
void LineDraw(DrawingSurface& surface, const DissipationPlotState& plot, const DissipationSet& set, int test,
              int row);

// frmScaleDissipation: what the boxes show, and OK's checks. Entries "N/A" leave the time limits
// as they are. On a refusal the message is told and the box named by bad_box is to be restored.
struct DissipationScaleEntry {
  std::string time_min, time_max, pressure_min, pressure_max;
};
enum class ScaleBox { kNone, kTimeMin, kTimeMax, kPressureMax };
DissipationScaleEntry DissipationScaleTexts(const DissipationPlotState& plot);
std::string DissipationScaleLabel(const DissipationPlotState& plot);
bool ApplyDissipationScale(DissipationPlotState& plot, const DissipationScaleEntry& entry,
                           UserPrompts& prompts, ScaleBox& bad_box);

// The footer lines of values under the plot.
std::vector<std::string> DissipationFooter(const DissipationPlotState& plot, const Session& session);

}  // namespace marlview
