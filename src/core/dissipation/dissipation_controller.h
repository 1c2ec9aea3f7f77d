// The main window's dissipation mode: opening a file, the list of test depths, the information
// lines and the selection rules of its buttons. The window mirrors View() after each call.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/common/user_prompts.h"
#include "core/dissipation/dissipation_plot.h"

namespace marlview {

class Session;

struct DissipationView {
  bool frame_visible = false;
  // "AVAILABLE DISSIPATION DEPTHS (m)" or "(ft)".
  std::string list_caption;
  std::vector<std::string> depth_rows;
  // lblDissipationInfo's three lines.
  std::string info;
  bool plot_enabled = false;
  bool list_enabled = false;
  bool done_enabled = false;
};

class DissipationController {
 public:
  DissipationController(Session& session, UserPrompts& prompts);

  const DissipationView& View() const { return view_; }
  // The rows of the list that are selected, 0-based and in list order.
  const std::vector<int>& SelectedRows() const { return selected_; }

  // optProcessDissipations: the open dialog and the reader. False when nothing was opened (the
  // dialog cancelled, a refused file or a failed read, each told); the mode choice then returns.
  bool OpenDissipationFile();
  // The list's selection changed.
  void SetSelection(std::vector<int> rows);
  // cmdPlotDissipation: the plot's state when it is to open, nothing (and the message) otherwise.
  std::optional<DissipationPlotState> PlotDissipation();
  // The plot's water table dialog and the head percentages derived again.
  void WaterTableChanged();
  // cmdDissipationDone: clears the list and makes the water table undefined.
  void DissipationDone();
  // Fills the list and the information lines from the store.
  void Refill();

 private:
  void UpdateButtons();

  Session& session_;
  UserPrompts& prompts_;
  DissipationView view_;
  std::vector<int> selected_;
};

}  // namespace marlview
