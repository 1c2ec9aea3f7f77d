// The dissipation mode of the main window, from the open dialog to the plot button.
#include "core/dissipation/dissipation_controller.h"

#include <algorithm>

#include "core/common/file_access.h"
#include "core/common/number_format.h"
#include "core/common/runtime_failure.h"
#include "core/dissipation/dissipation_readers.h"
#include "core/session/gef_pairing.h"
#include "core/session/session.h"

namespace marlview {
namespace {

constexpr const char* kDissipationFilter =
    "PX DAS/QRD FIELDBOX-FLDREC (*.DIS)|*.DIS|QRD-FIELDBOX-FLDACQ (*.*)|*.*|ALL SYSTEMS "
    "(*.DIS;*.*)|*.DIS;*.*|GEF (*.GEF)|*.GEF";

}  // namespace

DissipationController::DissipationController(Session& session, UserPrompts& prompts)
    : session_(session), prompts_(prompts) {}

bool DissipationController::OpenDissipationFile() {
  view_.frame_visible = false;
  const bool metric = session_.DepthUnitIsMetric == 1;
  view_.list_caption = metric ? "AVAILABLE DISSIPATION DEPTHS (m)" : "AVAILABLE DISSIPATION DEPTHS (ft)";
  FileDialogRequest request;
  request.title = "Open";
  request.filter = kDissipationFilter;
  request.filter_index = 1;
  if (DirectoryExists(session_.DissipationDirectory)) request.start_directory = session_.DissipationDirectory;
  const std::string path = prompts_.OpenFile(request);
  if (path.empty()) return false;
  bool opened = false;
  TellFailures(prompts_, "OpenDissipationFile", [&] { opened = OpenDissipationPath(session_, prompts_, path); });
  if (!opened) return false;
  selected_.clear();
  Refill();
  view_.frame_visible = true;
  return true;
}

void DissipationController::Refill() {
  const DissipationSet& set = session_.Dissipation();
  const bool metric = session_.DepthUnitIsMetric == 1;
  view_.depth_rows.clear();
  for (int i = 1; i <= set.DissipationCount; ++i) {
    const double depth = set.TestDepth[static_cast<size_t>(i)] * (metric ? 1.0 : session_.FeetPerMetre);
    view_.depth_rows.push_back(FormatNumber(depth, "##0.00#"));
  }
  view_.info = SetDissipationInfo(set, metric, session_.FeetPerMetre);
  if (PairedDissipationDepth(session_.Sounding(), set)) view_.info += "\nDISSIPATION OF " + session_.Sounding().SoundingFileName;
  UpdateButtons();
}

void DissipationController::SetSelection(std::vector<int> rows) {
  std::sort(rows.begin(), rows.end());
  rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
  const int count = static_cast<int>(view_.depth_rows.size());
  rows.erase(std::remove_if(rows.begin(), rows.end(), [count](int row) { return row < 0 || row >= count; }),
             rows.end());
  selected_ = std::move(rows);
  UpdateButtons();
}

void DissipationController::UpdateButtons() {
  view_.plot_enabled = !selected_.empty();
  view_.list_enabled = selected_.size() == 1;
  view_.done_enabled = !selected_.empty();
}

std::optional<DissipationPlotState> DissipationController::PlotDissipation() {
  if (selected_.empty()) {
    prompts_.Tell("Select depth(s) first !");
    return std::nullopt;
  }
  DissipationSelection selection;
  for (int row : selected_) {
    const int test = row + 1;
    // The marks are declared for 100 tests; a deeper row is past them.
    if (test > kMaxDissipations) Fail(kErrSubscript, "cmdPlotDissipation_Click");
    selection.SelectedFlag[static_cast<size_t>(test)] = kSelectedFlag;
    if (selection.SelectedCount == 0) selection.ShallowSelected = test;
    selection.DeepSelected = test;
    selection.LastSelected = test;
    ++selection.SelectedCount;
  }
  return NewDissipationPlot(session_, selection);
}

void DissipationController::WaterTableChanged() {
  DissipationSet& set = session_.Dissipation();
  for (int i = 1; i <= std::min<int>(set.DissipationCount, kMaxDissipations); ++i) ComputeHeadPercent(set, i);
  Refill();
}

void DissipationController::DissipationDone() {
  session_.Dissipation().WaterTableDepth = kUndefinedWaterTable;
  view_ = DissipationView{};
  selected_.clear();
}

}  // namespace marlview
