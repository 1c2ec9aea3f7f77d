// The main window's logic: the processing modes and the sounding flow up to the channel lists.
#include "core/shell/shell_controller.h"

#include <algorithm>

#include "core/common/file_access.h"
#include "core/common/number_format.h"
#include "core/common/runtime_failure.h"
#include "core/common/text_rules.h"
#include "core/derivation/artefacts.h"
#include "core/derivation/derived_channels.h"
#include "core/multisounding/set_model.h"
#include "core/io/cpt_reader.h"
#include "core/io/dat_reader.h"
#include "core/io/gef_reader.h"
#include "core/model/conversion.h"
#include "core/presentation/sounding_list.h"
#include "core/seismic/seismic_open.h"
#include "core/settings/settings_files.h"
#include "core/settings/templates.h"
#include "core/shell/add_data.h"
#include "core/verification/verification.h"

namespace marlview {
namespace {

constexpr const char* kSoundingFilter =
    "PX DAS (*.CPT)|*.CPT|QRD FIELDBOX (*.DAT)|*.DAT|ALL SYSTEMS (*.CPT;*.DAT)|*.CPT;*.DAT|GEF (*.GEF)|*.GEF";
constexpr size_t kMaxPlotColumns = 6;

}  // namespace

ShellController::ShellController(Session& session, UserPrompts& prompts)
    : session_(session), prompts_(prompts), dissipation_(session, prompts) {
  view_.piezo_checked = session_.PiezoFilterPresent;
}

void ShellController::Guarded(const char* source, const std::function<void()>& event) {
  TellFailures(prompts_, source, event);
}

void ShellController::ChooseMode(ProcessingMode mode) {
  Guarded("Form1", [&] {
    switch (mode) {
      case ProcessingMode::kSounding:
        session_.SoundingSelectionMode = 0;
        view_.checked_mode = mode;
        ProcessSounding();
        return;
      case ProcessingMode::kSoundingsBatch:
        // The option is unchecked at once; the set's window takes over until its Return.
        session_.SoundingSelectionMode = 1;
        view_.checked_mode = ProcessingMode::kNone;
        view_.plural_open = true;
        return;
      case ProcessingMode::kDissipations:
        view_.checked_mode = mode;
        view_.test_type_visible = false;
        if (!dissipation_.OpenDissipationFile()) BackToModeChoice();
        return;
      case ProcessingMode::kSeismic:
        ProcessSeismic();
        return;
      case ProcessingMode::kVideo:
        ProcessVideo();
        return;
      case ProcessingMode::kVerification:
        ProcessVerification();
        return;
      case ProcessingMode::kNone:
        break;
    }
    view_.checked_mode = ProcessingMode::kNone;
  });
}

void ShellController::DissipationDone() {
  Guarded("cmdDissipationDone_Click", [&] {
    dissipation_.DissipationDone();
    BackToModeChoice();
  });
}

// The option is unchecked at once; the log window opens only on a file that was read.
void ShellController::ProcessSeismic() {
  view_.checked_mode = ProcessingMode::kNone;
  view_.seismic_open = OpenSeismicFile(session_, prompts_) == SeismicOpenOutcome::kLoaded;
}

void ShellController::SeismicDone() { view_.seismic_open = false; }

// As the seismic option: unchecked at once, the window opens only on a file that was read.
void ShellController::ProcessVerification() {
  view_.checked_mode = ProcessingMode::kNone;
  view_.verification_open = OpenVerificationFile(session_, prompts_);
}

void ShellController::VerificationDone() { view_.verification_open = false; }

// The option is unchecked at once; the video window opens only on a session whose files were read.
void ShellController::ProcessVideo() {
  view_.checked_mode = ProcessingMode::kNone;
  if (view_.video_open) return;
  auto video = std::make_unique<VideoSession>(session_, prompts_, *runner_);
  if (!video->OpenVideoSession()) return;
  video_ = std::move(video);
  view_.video_open = true;
}

// The session outlives its window's last event; the next video session replaces it.
void ShellController::VideoDone() { view_.video_open = false; }

void ShellController::PluralDone() { view_.plural_open = false; }

void ShellController::ProcessSounding() {
  view_.test_type_visible = false;
  view_.sounding_frame_visible = true;
  session_.Sounding().WaterTableDepth = -99;
  // The default template's channels fill the selection of the sounding about to open; a default
  // whose file is gone leaves it empty.
  session_.TemplateSelection.clear();
  TellFailures(prompts_, "ProcessSounding", [&] {
    session_.TemplateSelection = ReadDefaultTemplateSelection(session_.Paths().data_directory);
  });
  bool opened = false;
  if (!TellFailures(prompts_, "ProcessSounding", [&] { opened = OpenSoundingFile(); })) {
    // A read that fails leaves no half-read sounding on show.
    BackToModeChoice();
    return;
  }
  if (opened) FillSoundingInfo();
}

bool ShellController::OpenSoundingFile() {
  session_.StartDepthAnswer = -1;
  session_.RemoveSpikesAnswer = -1;
  view_.available_rows.clear();
  available_.clear();
  view_.selected_rows.clear();
  selected_.clear();
  UpdateButtons();

  const int family = session_.Sounding().AcquisitionFamily;
  FileDialogRequest request;
  request.title = "Open";
  request.filter = kSoundingFilter;
  request.filter_index = (family == kKorvanDatFamily || family == kPlainDatFamily) ? 2
                         : family == kPxDasFamily                                ? 1
                         : family == kGefFamily                                  ? 4
                                                                                 : 3;
  if (DirectoryExists(session_.SoundingDirectory)) request.start_directory = session_.SoundingDirectory;
  const std::string path = prompts_.OpenFile(request);
  if (path.size() < 4) {
    BackToModeChoice();
    return false;
  }
  const bool px_das = EndsWithNoCase(path, "cpt");
  const bool gef = EndsWithNoCase(path, ".gef");
  if (!px_das && !gef && !EndsWithNoCase(path, "dat")) {
    BackToModeChoice();
    return false;
  }
  // PX DAS and GEF files are read only: their readings are not edited.
  view_.edit_visible = !px_das && !gef;
  const ReadOutcome outcome = px_das ? OpenCptSounding(session_, prompts_, path)
                              : gef  ? OpenGefSounding(session_, prompts_, path)
                                     : OpenDatSounding(session_, prompts_, path);
  if (outcome != ReadOutcome::kLoaded) {
    BackToModeChoice();
    return false;
  }
  if (const auto drillout = DrilloutMessage(session_)) prompts_.Tell(*drillout);
  PopulateChannelList();
  if (!session_.TemplateSelection.empty()) UseSoundingTemplate(session_.TemplateSelection);
  view_.available_list_visible = true;
  session_.SoundingDirectory = std::string(FolderPart(path));
  session_.SoundingOpen = true;
  return true;
}

void ShellController::BackToModeChoice() {
  view_.checked_mode = ProcessingMode::kNone;
  view_.test_type_visible = true;
  view_.sounding_frame_visible = false;
  view_.available_list_visible = false;
  view_.available_rows.clear();
  view_.selected_rows.clear();
  view_.sounding_info.clear();
  available_.clear();
  selected_.clear();
  session_.SoundingOpen = false;
  UpdateButtons();
}

void ShellController::FillSoundingInfo() {
  const SoundingStore& s = session_.Sounding();
  const bool metric = session_.DepthUnitIsMetric == 1;
  const double pushed = metric ? s.MaxDepth : s.MaxDepth * session_.FeetPerMetre;
  const std::string& location = s.AcquisitionFamily == kPxDasFamily ? s.LocationName : s.Location;
  view_.sounding_info = "FILENAME: " + s.SoundingFileName + "\nLOCATION: " + location +
                        "\nDISTANCE PUSHED: " + FormatNumber(pushed, "###0.00") +
                        (metric ? " (m)" : " (ft)");
  // A GEF file's header is shown as the file gives it, one key a line.
  for (const auto& [key, value] : s.GefHeader) view_.sounding_info += "\n#" + key + "= " + value;
}

void ShellController::PopulateChannelList() {
  const SoundingStore& s = session_.Sounding();
  available_ = AvailableChannelList(s);
  view_.available_rows.clear();
  for (int channel : available_) view_.available_rows.push_back(s.ChannelName[channel]);
}

void ShellController::UpdateButtons() {
  view_.plot_enabled = !selected_.empty();
  view_.list_enabled = !selected_.empty();
}

void ShellController::ClickAvailableChannel(int row) {
  if (row < 0 || row >= static_cast<int>(available_.size())) return;
  const int channel = available_[row];
  const auto found = std::find(selected_.begin(), selected_.end(), channel);
  if (found != selected_.end()) {
    view_.selected_rows.erase(view_.selected_rows.begin() + (found - selected_.begin()));
    selected_.erase(found);
  } else {
    selected_.push_back(channel);
    view_.selected_rows.push_back(session_.Sounding().ChannelName[channel]);
  }
  UpdateButtons();
}

void ShellController::UseSoundingTemplate(const std::vector<std::string>& names) {
  session_.TemplateSelection = names;
  selected_.clear();
  view_.selected_rows.clear();
  for (int row : marlview::UseSoundingTemplate(view_.available_rows, names)) {
    selected_.push_back(available_[static_cast<size_t>(row)]);
    view_.selected_rows.push_back(view_.available_rows[static_cast<size_t>(row)]);
  }
  UpdateButtons();
}

void ShellController::ClearSelection() {
  selected_.clear();
  view_.selected_rows.clear();
  UpdateButtons();
}

bool ShellController::CheckPlotSelection() {
  const SoundingStore& s = session_.Sounding();
  auto year_of = [&s](int c) {
    if (c == 0) return 0;
    if (c == s.Sbt83Channel) return 1;
    if (c == s.Sbt86FrChannel || c == s.Sbt86PpChannel) return 2;
    if (c == s.Sbt90QtChannel || c == s.Sbt90BqChannel) return 3;
    return 0;
  };
  for (int c : selected_) {
    if (s.TimeChannel != 0 && c == s.TimeChannel) {
      prompts_.Tell("CANNOT PLOT TIME DATA");
      return false;
    }
    if (s.MunsellChannel != 0 && c == s.MunsellChannel) {
      prompts_.Tell("CANNOT PLOT MUNSELL (TEXT) DATA");
      return false;
    }
    const int year = year_of(c);
    if (year == 0) continue;
    for (int other : selected_) {
      const int other_year = year_of(other);
      if (other_year != 0 && other_year != year) {
        prompts_.Tell("CANNOT PLOT SBT(83), SBT(86) and SBT(90) TOGETHER");
        return false;
      }
    }
    sbt_chart_choice_ = year;
  }
  if (selected_.size() > kMaxPlotColumns) {
    prompts_.Tell("A maximum of 6 channels can be graphed at a time.");
    return false;
  }
  return true;
}

bool ShellController::PlotSounding() {
  bool open = false;
  Guarded("cmdPlotSounding_Click", [&] { open = CheckPlotSelection(); });
  return open;
}

bool ShellController::ListSounding() {
  bool open = false;
  Guarded("cmdListSounding_Click", [&] {
    if (selected_.empty()) {
      prompts_.Tell("Select parameter(s) first !");
      return;
    }
    open = true;
  });
  return open;
}

bool ShellController::ListEcp() { return session_.SoundingOpen; }
bool ShellController::EditSounding() {
  const int family = session_.Sounding().AcquisitionFamily;
  return session_.SoundingOpen && (family == kKorvanDatFamily || family == kPlainDatFamily);
}

void ShellController::SoundingEdited() {
  Guarded("SoundingEdited", [&] {
    if (!session_.SoundingOpen) return;
    PopulateChannelList();
    const SoundingStore& s = session_.Sounding();
    std::vector<int> kept;
    std::vector<std::string> kept_rows;
    for (size_t i = 0; i < selected_.size(); ++i) {
      const int c = selected_[i];
      if (c > s.TotalChannels || s.ChannelName[c] != view_.selected_rows[i]) continue;
      kept.push_back(c);
      kept_rows.push_back(view_.selected_rows[i]);
    }
    selected_ = std::move(kept);
    view_.selected_rows = std::move(kept_rows);
    UpdateButtons();
    FillSoundingInfo();
  });
}

bool ShellController::SoundingDone(const std::function<void(ViewWindow)>& close_window) {
  bool done = false;
  Guarded("cmdSoundingDone_Click", [&] {
    struct OpenWindow {
      bool WindowFlags::*flag;
      ViewWindow window;
      const char* question;
    };
    static constexpr OpenWindow kWindows[] = {
        {&WindowFlags::PlotWindowOpen, ViewWindow::kPlot, "Plot window is open. Close window and continue?"},
        {&WindowFlags::ListWindowOpen, ViewWindow::kList, "List window is open. Close window and continue?"},
        {&WindowFlags::EcpWindowOpen, ViewWindow::kEcp, "ECP window is open. Close window and continue?"},
        {&WindowFlags::EditWindowOpen, ViewWindow::kEdit, "Edit window is open. Close window and continue?"},
    };
    for (const OpenWindow& open : kWindows) {
      if (!(session_.flags.*open.flag)) continue;
      if (prompts_.Ask(open.question, Buttons::kYesNo) == Answer::kNo) return;
      close_window(open.window);
      session_.flags.*open.flag = false;
    }
    session_.Sounding().ReadingCount = 0;
    BackToModeChoice();
    done = true;
  });
  return done;
}

void ShellController::SetPiezoFilterPresent(bool present) {
  Guarded("chkPiezoFilterPresent_Click", [&] {
    session_.PiezoFilterPresent = present;
    view_.piezo_checked = present;
    SoundingStore& s = session_.Sounding();
    if (!session_.SoundingOpen || s.SleeveChannel == 0 || s.AcquisitionFamily == kPxDasFamily) return;
    s.ChannelOffset[s.SleeveChannel] = SleeveOffsetMetres(s, present, session_.FeetPerMetre);
    AlignChannel(s, s.SleeveChannel);
    ComputeDerivedChannels(session_, s.ChannelCount);
    PopulateChannelList();
  });
}

void ShellController::AddData() {
  Guarded("mnuAddData_Click", [&] {
    if (!session_.SoundingOpen) return;
    FileDialogRequest request;
    request.title = "Add Data";
    request.filter = "All Files (*.*)|*.*";
    if (DirectoryExists(session_.SoundingDirectory)) request.start_directory = session_.SoundingDirectory;
    const std::string path = prompts_.OpenFile(request);
    if (path.empty()) return;
    const std::string bytes = ReadWholeFile(path);
    const int channel = AddChannelFromText(session_, bytes, path, prompts_);
    if (channel == 0) return;
    available_.push_back(channel);
    view_.available_rows.push_back(session_.Sounding().ChannelName[channel]);
  });
}

void ShellController::SetSingleTest() {
  Guarded("mnuSingleTest_Click", [&] {
    session_.SoundingSelectionMode = 0;
    WriteFileAtomically(session_.SettingsPath("Sounding Selection Settings"), NumberLine(0));
  });
}

void ShellController::SetMultipleTests() {
  Guarded("mnuMultipleTests_Click", [&] {
    session_.SoundingSelectionMode = 1;
    WriteFileAtomically(session_.SettingsPath("Sounding Selection Settings"), NumberLine(1));
  });
}

void ShellController::SetNormalisedClassification(bool on) {
  Guarded("mnuNormalisedClassification_Click", [&] {
    WriteFileAtomically(session_.SettingsPath(kNormalisedClassificationFile), NumberLine(on ? 1 : 0));
    session_.NormalisedClassification = on ? 1 : 0;
    if (session_.SoundingOpen) ComputeDerivedChannels(session_, session_.Sounding().ChannelCount);
    DeriveSetAgain(session_);
  });
  // The six channels come or go at the end of the list; a chosen one that went leaves the selection.
  SoundingEdited();
}

}  // namespace marlview
