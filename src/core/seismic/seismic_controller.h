// The logic of seismic mode's two windows, the log window (Seisform) and the enlarged waveform
// workbench (frmEnlargedSeismicGraph): their loading, menus, buttons, clicks and view state. The
// windows and the command line drive it and mirror its state; it asks through the prompts and
// the two dialogs of the loading checks, and tells its listener what to redraw.
#pragma once

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "core/common/user_prompts.h"
#include "core/seismic/arrival_picking.h"
#include "core/session/seismic_store.h"
#include "core/session/session.h"

namespace marlview {

// The log window's help command, shown with the title "Marlview Help".
inline constexpr const char* kSeismicHelpText =
    "Click on a graph with the left mouse button to enlarge it.  Click on a graph with the right mouse button to "
    "change reference layer.";

// frmDelayWarning and frmArrivalError, answered by a window, the command line or a test.
class SeismicDialogs {
 public:
  virtual ~SeismicDialogs() = default;
  // True for the S option, false for the P option.
  virtual bool AskDelayWarning() = 0;
  // The kind chosen, kNoStrike for "NO WAVE".
  virtual int16_t AskArrivalError(const ArrivalErrorChoice& choice) = 0;
};

// What the windows redraw; every entry does nothing unless a window listens.
class SeismicListener {
 public:
  virtual ~SeismicListener() = default;
  virtual void GraphWaves(int /*test*/) {}
  // All graphs, and the rows and scroll bar when the count of tests or seconds changed.
  virtual void GraphAllWaves() {}
  virtual void GraphStrike() {}
  virtual void OpenWorkbench() {}
};

struct SeismicViewState {
  float SeismicTimeAxisMax = 0;
  float SeismicTimeAxisMin = 0;
  float TimeAxisStep = 0;
  int TimeAxisDivisions = 0;
  int16_t ShownTest = 1;
  bool WorkbenchOpen = false;
  int16_t SelectedStrike = kStrikeA;
  int32_t CursorSample = 0;
  // By strike kind, with the hole at 2.
  std::array<int32_t, 4> DisplayShift{};
  std::array<float, 4> DisplayShiftTime{};
  bool ReferenceShown = true;
  bool WorkbenchAutoScale = true;
  int32_t WorkbenchXMin = 0, WorkbenchXMax = 0;
  float TimeStart = 0, TimeEnd = 0;
  bool SnapEnabled = false;
  // cmdArrivalLeft, cmdArrivalRight and the zoom view.
  bool ArrivalControlsVisible = false;
  bool ArrivalLeftEnabled = true, ArrivalRightEnabled = true;
  // Frame3, the hammer distance frame.
  bool HammerFrameVisible = false;
  bool CoverSheet = false;
  // The strike the cross-correlation compares (kNoStrike: A, else B) and the start it skips.
  int16_t XcorrKind = kNoStrike;
  float XcorrSkipMs = 5;
};

struct SeismicMenus {
  bool remove_a = false, remove_b = false, remove_p = false;
  bool gain_visible = false;
  bool shift_log_visible = false;
  bool combine_smc = false, combine_sei = false;
};

struct WorkbenchCaptions {
  std::string heading_file, heading_depth;
  std::string sa_geophone, sb_geophone, p_geophone;
  std::string sa_offset, sb_offset, p_offset;
  std::string test_depth, ref_depth, ref_delay, delay, amplitude, velocity;
  std::string x_units;
};

// Label and value of each heading index, 0..22.
std::vector<std::pair<std::string, std::string>> SeismicHeaderFields(const Session& session, const SeismicStore& store);

class SeismicController {
 public:
  SeismicController(Session& session, UserPrompts& prompts, SeismicDialogs& dialogs);

  void SetListener(SeismicListener* listener) { listener_ = listener; }
  SeismicStore& Store() { return session_.Seismic(); }
  const SeismicStore& Store() const { return session_.Seismic(); }
  SeismicViewState& View() { return view_; }
  const SeismicViewState& View() const { return view_; }
  bool IsLog() const { return Store().AcquisitionFamily == kSlgFamily; }
  bool Feet() const { return session_.DepthUnitIsMetric != 1; }
  float FeetPerMetre() const { return session_.FeetPerMetre; }
  // Rows of the log window: tests, or seconds of a log.
  int RowCount() const;
  SeismicMenus Menus() const;
  std::string Caption() const;

  // Form_Load: the hammer distance, the time axis, the delays and the checks at loading.
  void Load();

  // The log window's menus.
  void FilterAll();
  void EnhanceAll();
  void AttenuateAll();
  void AttenuateAndEnhanceAll();
  void EnhanceAndFilterAll();
  bool TrimAll(double time_ms);
  void RemoveStrikes(int16_t kind);
  void SetGain(float gain);
  void TrimLogSeconds(int seconds);
  void ShiftLog(int16_t kind, bool up);
  // mnuHammerDistance shows the frame; Command10 takes Text6 and Check1.
  void ShowHammerDistance();
  void ApplyHammerDistance(const std::string& text, bool do_not_ask);
  bool AdjustDepth(const std::string& measured, const std::string& observed);
  bool GenDelayFile();
  bool GenVelocityFile();
  // The velocity menu's true-interval velocities by cross-correlation of successive tests.
  void TrueIntervalVelocities();

  // The workbench.
  void OpenTest(int test);
  void CloseWorkbench();
  void NextTest();
  void PreviousTest();
  bool PreviousEnabled() const;
  bool NextEnabled() const;
  void SelectStrike(int16_t kind);
  bool StrikePresent(int16_t kind) const;
  void FilterTick();
  void EnhanceStep(bool plus);
  void ShiftUpDown(bool up);
  // Display only: fine 1 sample, gross 20, left negative.
  void Nudge(int samples);
  bool TrimShownTest(double time_ms);
  float TrimShownTestDefault() const;
  void ChooseArrivalStrike(int16_t kind);
  // The sample of the pick's strike nearest a time on the view's axis.
  int SampleAtTime(double time_ms) const;
  void Click(int cursor_sample, bool shift, bool right_button);
  // The strike option of kind, then a left click on the wave, as one operation with one run of
  // the velocities (the command line's pick).
  void PickOnStrike(int16_t kind, int cursor_sample, bool shift);
  void ArrivalLeft();
  void ArrivalRight();
  void ResetWave();
  void SwitchAtoB();
  void SwitchBtoA();
  void SwapAandB();
  void CloneAtoB();
  void CloneBtoA();
  void RemoveStrikeOfTest(int16_t kind);
  void RemoveAllStrikesOfTest();
  bool SetScale(const std::string& xmin, const std::string& xmax);
  void ResetScale();
  bool ChangeDepth(const std::string& value);
  // The change-depth dialog's texts in the session's depth unit: the box's label and depth, and the
  // limits the new depth must keep between its neighbours.
  struct DepthChangeTexts {
    std::string label, depth, more_than, less_than;
  };
  DepthChangeTexts ChangeDepthTexts() const;
  void ToggleReference();
  WorkbenchCaptions Captions() const;
  // The x range of the view in use, after GraphStrike's rule.
  void UpdateWorkbenchRange();

 private:
  void RedrawAll();
  void RedrawTests(const std::vector<int>& tests);
  void RedrawStrike();
  void ClearDisplayShifts();
  void UpdateStrikeOptions();
  void UpdateArrivalButtons();
  void AfterConditioning();
  void Velocities(int changed_test);
  PickOutcome ClickWave(int cursor_sample, bool shift);
  void MoveStrike(int16_t from, int16_t to, bool keep_source, bool negate);

  Session& session_;
  UserPrompts& prompts_;
  SeismicDialogs& dialogs_;
  SeismicListener* listener_ = nullptr;
  SeismicViewState view_;
};

}  // namespace marlview
