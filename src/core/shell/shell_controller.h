// The main window's logic: processing modes, opening a sounding, the channel lists and their
// checks. The window mirrors View() after each call and owns no state of its own.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "core/common/user_prompts.h"
#include "core/dissipation/dissipation_controller.h"
#include "core/session/session.h"
#include "core/video/process_runner.h"
#include "core/video/video_session.h"

namespace marlview {

enum class ProcessingMode { kNone, kSounding, kSoundingsBatch, kDissipations, kSeismic, kVideo, kVerification };

enum class ViewWindow { kPlot, kList, kEcp, kEdit };

struct ShellView {
  // frmSelectTestType
  bool test_type_visible = true;
  // frmSelectSoundingChannels, with lstAvailableChannels and lstSelectedChannels
  bool sounding_frame_visible = false;
  bool available_list_visible = false;
  ProcessingMode checked_mode = ProcessingMode::kNone;
  std::vector<std::string> available_rows;
  std::vector<std::string> selected_rows;
  bool plot_enabled = false;
  bool list_enabled = false;
  bool edit_visible = false;
  bool piezo_checked = false;
  // lblSoundingInfo, one line each for the file, the location and the depth pushed.
  std::string sounding_info;
  // A seismic test set is open in the log window; the processing options wait until it closes.
  bool seismic_open = false;
  // A verification file is open in its window; likewise.
  bool verification_open = false;
  // A video session is open in frmVideoProcessor; the processing options wait until it closes.
  bool video_open = false;
  // The set of soundings is open in its window; likewise.
  bool plural_open = false;
};

class ShellController {
 public:
  ShellController(Session& session, UserPrompts& prompts);

  const ShellView& View() const { return view_; }
  // The channel behind each row of the upper list, and the channels chosen, in order.
  const std::vector<int>& AvailableChannels() const { return available_; }
  const std::vector<int>& SelectedChannels() const { return selected_; }
  int SbtChartChoice() const { return sbt_chart_choice_; }

  // A click on one of the six processing options.
  void ChooseMode(ProcessingMode mode);
  // A click on a row of the upper list: adds the channel below, or takes it out when already there.
  void ClickAvailableChannel(int row);
  void ClearSelection();
  // UseSoundingTemplate: the selection becomes the template's channels that the sounding has, in
  // the template's order; the names are kept as the stored selection.
  void UseSoundingTemplate(const std::vector<std::string>& names);
  // The checks of the plot button; true when the selection can be plotted.
  bool CheckPlotSelection();
  // The plot button: true when the plot window is to open on the selected channels.
  bool PlotSounding();
  // The list button: true when the list window is to open on the selected channels.
  bool ListSounding();
  // The ECP list button: true when the ECP window is to open on the current sounding.
  bool ListEcp();
  // The edit button: true when the editor is to open, which it does for a DAT sounding only.
  bool EditSounding();
  // The editor changed the sounding: its channels may have moved, so the lists are built again and
  // a chosen channel that is no longer there leaves the selection.
  void SoundingEdited();
  // Closes the sounding after asking about each open window; close_window closes one. False when
  // the user kept a window open.
  bool SoundingDone(const std::function<void(ViewWindow)>& close_window);
  void SetPiezoFilterPresent(bool present);
  // Adds one channel from a text file of depths and values to the current sounding.
  void AddData();
  void SetSingleTest();
  void SetMultipleTests();
  // The settings menu's "Normalised classification": keeps the choice in its file and derives the
  // open sounding again, with or without the normalised channels.
  void SetNormalisedClassification(bool on);
  // The log window's way back to the main window.
  void SeismicDone();
  // The verification window's way back to the main window.
  void VerificationDone();
  // The set window's way back to the main window.
  void PluralDone();

  // The video session while video mode is on, and the video window's way back.
  VideoSession* Video() { return video_.get(); }
  void VideoDone();
  // The programs the video session runs; tests answer them without ffmpeg.
  void SetProcessRunner(ProcessRunner& runner) { runner_ = &runner; }

  // The dissipation mode's list and buttons.
  DissipationController& Dissipations() { return dissipation_; }
  // cmdDissipationDone: the list cleared and the mode choice shown again.
  void DissipationDone();

 private:
  void ProcessSounding();
  void ProcessSeismic();
  void ProcessVerification();
  void ProcessVideo();
  bool OpenSoundingFile();
  void PopulateChannelList();
  void BackToModeChoice();
  void FillSoundingInfo();
  void UpdateButtons();
  // Runs an event, reporting a run-time failure with the general error text.
  void Guarded(const char* source, const std::function<void()>& event);

  Session& session_;
  UserPrompts& prompts_;
  ShellView view_;
  std::vector<int> available_;
  std::vector<int> selected_;
  int sbt_chart_choice_ = 1;
  DissipationController dissipation_;
  PosixProcessRunner posix_runner_;
  ProcessRunner* runner_ = &posix_runner_;
  std::unique_ptr<VideoSession> video_;
};

}  // namespace marlview
