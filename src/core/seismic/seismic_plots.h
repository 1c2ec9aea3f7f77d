// The drawings of seismic mode on any drawing surface: the small graph of a test and the row of a
// log second in the log window, the large view and the detail view of the workbench, and the
// printed pages of both. Long strikes are drawn at the surface's resolution.
#pragma once

#include <string>
#include <vector>

#include "core/presentation/drawing_surface.h"
#include "core/presentation/print_job.h"
#include "core/seismic/seismic_controller.h"

namespace marlview {

inline constexpr Colour kStrikeColourA{200, 0, 0};
inline constexpr Colour kStrikeColourB{0, 0, 200};
inline constexpr Colour kStrikeColourP{0, 128, 0};
Colour StrikeColour(int kind);

// Connects the samples 1..n of a wave inside the box; on a screen each device column draws the
// span of its samples, so 30000 samples cost what the box's width costs.
void DrawWave(DrawingSurface& g, double left, double top, double width, double height, double t_min, double t_max,
              const float* times, const float* amplitudes, int n, double time_shift, Colour colour, size_t stride = 1);

// GraphWaves: the strikes of a test across a graph of width x height, amplitude +1 at the top.
void GraphWaves(DrawingSurface& g, double width, double height, const SeismicStore& store, const SeismicViewState& view,
                int test);
// GraphLogWaves: one second of the log across the graph.
void GraphLogWaves(DrawingSurface& g, double width, double height, const SeismicStore& store, int second);
// The time axis under the graphs: ticks every step with their numbers.
void DrawTimeAxis(DrawingSurface& g, double left, double top, double width, double t_min, double t_max, double step,
                  int divisions);

// lblLeftLabel and lblRightLabel of a row.
std::string LeftLabelText(int row);
std::string RightLabelText(const SeismicController& controller, int test);

// The log window's velocity table: per test the pick-based pseudo-interval velocity beside the
// true-interval velocity by cross-correlation and its coefficient, in the depth unit shown.
struct VelocityTableRow {
  std::string test, depth, velocity, xcorr_velocity, coefficient;
};
std::vector<std::string> VelocityTableHeaders(const SeismicController& controller);
std::vector<VelocityTableRow> VelocityTable(const SeismicController& controller);

// GraphStrike: the workbench's view of the shown test with its reference wave and pick.
void GraphStrike(DrawingSurface& g, double width, double height, const SeismicController& controller);
// ShowZoom: samples c - 30 .. c + 29 of the pick's strike.
void ShowZoom(DrawingSurface& g, double width, double height, const SeismicController& controller, int center_sample);

// The printed log: heading, a table of the tests and their graphs, as many pages as they need.
void PrintSeismicLog(PrintJob& job, const Session& session, const SeismicController& controller);
// The printed workbench view.
void PrintWorkbench(PrintJob& job, const Session& session, const SeismicController& controller);

}  // namespace marlview
