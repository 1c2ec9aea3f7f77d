// The combined and side-by-side plots of the set: what is drawn (the layout) and the drawing on any
// surface, the window's picture, an image, a PDF or a printed page alike.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/multisounding/set_model.h"
#include "core/presentation/drawing_surface.h"
#include "core/presentation/print_job.h"

namespace marlview {

// The colour of the test in slot k (1..30) when the settings hold none; no two alike.
Colour SetTestColour(int k);
// The colour of a slot's test: from the set colours kept with the sounding print settings of the
// family of the set's first ticked test, else the default above.
Colour SetPlotColour(const Session& session, int slot);

struct SetPlotAxis {
  // The test's slot and its running number among the ticked tests.
  int slot = 0;
  int number = 0;
  // False when the test lacks the panel's channel: no axis and no curve.
  bool present = false;
  double min = 0, max = 1;
  std::string caption;
};

struct SetPlotPanel {
  std::string channel;
  std::string unit;
  // 83, 86 or 90 for a classification channel, else 0.
  int chart = 0;
  std::vector<SetPlotAxis> tests;
};

struct SetLegendEntry {
  int number = 0;
  int slot = 0;
  std::string name;
  double max_depth = 0;
  Colour colour;
};

struct SetPlotLayout {
  SetView view = SetView::kCombined;
  std::string title;
  bool common_scaling = true;
  // mnuElevation: the axis counts down from the surface ("Elev."), as the sounding plot does.
  bool elevation = false;
  // mnuGridOn, mnuGridOff: the depth grid lines across the panels.
  bool grid_on = true;
  std::string depth_label;
  double depth_min = 0, depth_max = 1;
  std::vector<SetLegendEntry> legend;
  std::vector<SetPlotPanel> panels;
  std::optional<std::string> footnote;
};

// The layout of the ticked tests and the channels named, on the common grid.
SetPlotLayout LayoutSetPlot(const Session& session, SetView view, const std::vector<std::string>& channels,
                            bool elevation = false);
// Where the panels lie on the surface, top to bottom of the depth axis.
struct SetPlotArea {
  double left = 0, top = 0, right = 0, bottom = 0;
};

// Draws the plot on surface, whose logical size is width x height, and gives the panels' area.
SetPlotArea DrawSetPlot(DrawingSurface& surface, double width, double height, const SetPlotLayout& layout,
                        const Session& session);

// The read-out at the height y of the plot: the depth, and per panel each test's value on the grid
// row nearest that depth ("No Data" where the test has none); nothing outside the panels.
struct SetReadout {
  std::string depth;
  std::vector<std::vector<std::string>> values;
};
std::optional<SetReadout> SetReadoutAt(const SetPlotLayout& layout, const SetPlotArea& area, const Session& session,
                                       double y);
// The plot printed: with cover sheets, one page per test headed "CPT DATA: TEST #k" first.
void PrintSetPlot(PrintJob& job, const SetPlotLayout& layout, const Session& session, bool cover_sheets);
// The lines of a test's cover sheet.
std::vector<std::string> CoverSheetLines(const Session& session, int slot, int k);

}  // namespace marlview
