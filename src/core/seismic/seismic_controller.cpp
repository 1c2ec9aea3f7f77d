// The logic of the log window and the workbench.
#include "core/seismic/seismic_controller.h"

#include <algorithm>
#include <cmath>

#include "core/common/number_format.h"
#include "core/common/number_read.h"
#include "core/common/text_rules.h"
#include "core/seismic/conditioning.h"
#include "core/seismic/xcorr.h"

namespace marlview {
namespace {

std::string Metres(const Session& session, double metres, const char* pattern) {
  const bool feet = session.DepthUnitIsMetric != 1;
  return FormatNumber(feet ? metres * session.FeetPerMetre : metres, pattern);
}

}  // namespace

std::vector<std::pair<std::string, std::string>> SeismicHeaderFields(const Session& session, const SeismicStore& s) {
  const SeismicHeader& h = s.header;
  const CustomHeaders& custom = session.custom_headers;
  std::vector<std::pair<std::string, std::string>> fields;
  const auto custom_field = [&](int row, bool colon) {
    const std::string& label = custom.label[static_cast<size_t>(row)][2];
    fields.emplace_back(label + (colon ? ": " : ""), custom.value[static_cast<size_t>(row)][2]);
  };
  if (s.AcquisitionFamily == kSmcFamily) {
    const std::string gps = FormatNumber(LenientNumber(h.GpsLat), "####0.00") + "," +
                            FormatNumber(LenientNumber(h.GpsLon), "####0.00") + "," +
                            FormatNumber(LenientNumber(h.GpsElev), "####0.0");
    fields = {{"", ""},
              {"", "SEISMIC TEST"},
              {"CUSTOMER: ", h.Customer.empty() ? h.PXTitle : h.Customer},
              {"OPERATOR: ", h.Operator},
              {"CONE ID: ", h.ConeId},
              {"LOCATION: ", h.Location},
              {"JOB NUMBER: ", h.JobNumber},
              {"HOLE NUMBER: ", h.HoleNumber},
              {"TEST DATE: ", h.TestDate},
              {"COMMENT: ", h.Comment1},
              {"COMMENT: ", h.Comment2},
              {"COMMENT: ", h.Comment3},
              {"GPS DATA: ", gps},
              {"FILENAME: ", s.TestTitle[1]},
              {"", session.general.CompanyGraphTitle}};
    for (int row = 0; row < kCustomHeaderRows; ++row) custom_field(row, row != 1);
    return fields;
  }
  const std::string gps = FormatNumber(LenientNumber(h.GpsLat), "####0.00") + "," +
                          FormatNumber(LenientNumber(h.GpsLon), "####0.00") + "," +
                          FormatNumber(LenientNumber(h.GpsElev), "####0.0");
  fields = {{"", ""},
            {"", "SEISMIC TEST"},
            {"COMPANY: ", h.FileSecondLine},
            {"FILENAME: ", s.TestTitle[1]},
            {"PROBE ID: ", h.ProbeSerial},
            {"TEST ID: ", h.TestId},
            {"PROJECT: ", h.Project},
            {"SITE: ", h.Site},
            {"LOCATION: ", h.Location},
            {"OPERATOR: ", h.Operator},
            {"CREW: ", h.Crew},
            {"CLIENT: ", h.Client},
            {"CLIENT REP: ", h.ClientRepresentative},
            {"TEST DATE: ", h.TestDate},
            {"START TIME: ", h.StartTime},
            {"GPS DATA: ", gps},
            {"WEATHER: ", h.Weather},
            {"COMMENTS: ", h.Comments},
            {"", session.general.CompanyGraphTitle}};
  for (int row = 0; row < kCustomHeaderRows; ++row) custom_field(row, row != 1);
  return fields;
}

SeismicController::SeismicController(Session& session, UserPrompts& prompts, SeismicDialogs& dialogs)
    : session_(session), prompts_(prompts), dialogs_(dialogs) {}

int SeismicController::RowCount() const { return IsLog() ? Store().LogSeconds : Store().TestCount; }

SeismicMenus SeismicController::Menus() const {
  const SeismicStore& s = Store();
  SeismicMenus m;
  m.combine_smc = s.AcquisitionFamily == kSmcFamily;
  m.combine_sei = !m.combine_smc;
  if (IsLog()) {
    m.shift_log_visible = true;
    m.gain_visible = s.LogHasGainLine != 0;
    m.remove_a = s.HasStrike(kStrikeA, 1);
    m.remove_b = s.HasStrike(kStrikeB, 1);
    m.remove_p = s.HasStrike(kStrikeP, 1);
    return m;
  }
  for (int i = 1; i <= s.TestCount; ++i) {
    m.remove_a = m.remove_a || s.HasStrike(kStrikeA, i);
    m.remove_b = m.remove_b || s.HasStrike(kStrikeB, i);
    m.remove_p = m.remove_p || s.HasStrike(kStrikeP, i);
  }
  return m;
}

std::string SeismicController::Caption() const { return "SEISMIC TEST: " + Store().TestTitle[1]; }

void SeismicController::RedrawAll() {
  if (!listener_) return;
  listener_->GraphAllWaves();
  if (view_.WorkbenchOpen) listener_->GraphStrike();
}

void SeismicController::RedrawTests(const std::vector<int>& tests) {
  if (!listener_) return;
  for (int test : tests) listener_->GraphWaves(test);
}

void SeismicController::RedrawStrike() {
  if (listener_ && view_.WorkbenchOpen) listener_->GraphStrike();
}

void SeismicController::Velocities(int changed_test) {
  RedrawTests(CalculateVelocities(Store(), prompts_, changed_test));
}

void SeismicController::Load() {
  SeismicStore& s = Store();
  ForgetXcorr(s);
  view_ = SeismicViewState{};
  view_.ShownTest = 1;
  LoadHammerDistance(session_, s);
  view_.SeismicTimeAxisMax = SeismicTimeAxisMaxOf(s);
  const TimeAxis axis = NiceTimeStep(view_.SeismicTimeAxisMax, view_.SeismicTimeAxisMin);
  view_.TimeAxisStep = axis.step;
  view_.TimeAxisDivisions = axis.divisions;
  CalculateDelays(s);
  RedrawAll();
  if (NeedsDelayWarning(s)) {
    ApplyDelayWarning(s, dialogs_.AskDelayWarning());
    CalculateDelays(s);
    view_.ShownTest = 1;
    if (s.TestCount > 0 && !IsLog()) {
      view_.WorkbenchOpen = true;
      UpdateStrikeOptions();
      if (listener_) listener_->OpenWorkbench();
    }
  }
  // A log has no tests to measure velocities between, so it asks for no hammer distance.
  if (s.AskHammerDistance == 1 && !IsLog()) view_.HammerFrameVisible = true;
  const ArrivalErrorChoice choice = ArrivalErrorChoices(s);
  if (choice.needed) ApplyArrivalError(s, dialogs_.AskArrivalError(choice));
  // The velocities run once per load, on the delays the checks leave, and not while the hammer
  // distance waits for the operator: each equal pair of delays is a box the user must close.
  if (!view_.HammerFrameVisible) Velocities(0);
  if (choice.needed) RedrawAll();
}

void SeismicController::AfterConditioning() {
  ForgetXcorr(Store());
  RedrawAll();
}

void SeismicController::FilterAll() {
  FilterAllGraphs(Store());
  AfterConditioning();
}
void SeismicController::EnhanceAll() {
  EnhanceAllGraphs(Store());
  AfterConditioning();
}
void SeismicController::AttenuateAll() {
  AttenuateAllGraphs(Store());
  AfterConditioning();
}
void SeismicController::AttenuateAndEnhanceAll() {
  AttenuateAllGraphs(Store());
  EnhanceAllGraphs(Store());
  AfterConditioning();
}
void SeismicController::EnhanceAndFilterAll() {
  EnhanceAllGraphs(Store());
  FilterAllGraphs(Store());
  AfterConditioning();
}

bool SeismicController::TrimAll(double time_ms) {
  if (!TrimAllGraphs(Store(), time_ms, prompts_)) return false;
  view_.SeismicTimeAxisMax = static_cast<float>(time_ms);
  const TimeAxis axis = NiceTimeStep(view_.SeismicTimeAxisMax, view_.SeismicTimeAxisMin);
  view_.TimeAxisStep = axis.step;
  view_.TimeAxisDivisions = axis.divisions;
  AfterConditioning();
  return true;
}

void SeismicController::RemoveStrikes(int16_t kind) {
  ForgetXcorr(Store());
  RemoveStrikeKind(Store(), kind);
  if (Store().TestCount == 0) {
    view_.WorkbenchOpen = false;
  } else {
    view_.ShownTest = static_cast<int16_t>(std::clamp<int>(view_.ShownTest, 1, Store().TestCount));
    UpdateStrikeOptions();
  }
  CalculateVelocities(Store(), prompts_, 0);
  RedrawAll();
}

void SeismicController::SetGain(float gain) {
  SetLogGain(Store(), gain);
  RedrawAll();
}

void SeismicController::TrimLogSeconds(int seconds) {
  TrimLog(Store(), seconds);
  RedrawAll();
}

void SeismicController::ShiftLog(int16_t kind, bool up) {
  ShiftLogStrike(Store(), kind, up);
  RedrawAll();
}

void SeismicController::ShowHammerDistance() { view_.HammerFrameVisible = true; }

void SeismicController::ApplyHammerDistance(const std::string& text, bool do_not_ask) {
  const float distance = ToSingle(LenientNumber(text));
  SaveHammerDistance(session_, distance, !do_not_ask);
  Store().HammerDistance = distance;
  Store().AskHammerDistance = do_not_ask ? 0 : 1;
  view_.HammerFrameVisible = false;
  Velocities(0);
  ForgetXcorr(Store());
  RedrawStrike();
}

bool SeismicController::AdjustDepth(const std::string& measured_text, const std::string& observed_text) {
  const double measured = LenientNumber(measured_text), observed = LenientNumber(observed_text);
  if (measured <= 0) {
    prompts_.Tell("Invalid measured depth. Value must be greater than 0");
    return false;
  }
  if (observed == 0) {
    prompts_.Tell("Invalid observed depth. Value must be greater than 0");
    return false;
  }
  const float ratio = static_cast<float>(observed / measured);
  SeismicStore& s = Store();
  for (int i = 1; i <= s.TestCount; ++i) s.TestDepth[i] = s.TestDepth[i] * ratio;
  ForgetXcorr(s);
  CalculateVelocities(s, prompts_, 0);
  RedrawAll();
  return true;
}

bool SeismicController::GenDelayFile() { return GenDelay(session_, Store(), prompts_); }
bool SeismicController::GenVelocityFile() { return GenVelocity(session_, Store(), prompts_); }

void SeismicController::TrueIntervalVelocities() {
  if (IsLog()) return;
  CrossCorrelateTests(Store(), prompts_, XcorrOptions{view_.XcorrKind, view_.XcorrSkipMs});
  RedrawAll();
}

void SeismicController::ClearDisplayShifts() {
  view_.DisplayShift.fill(0);
  view_.DisplayShiftTime.fill(0);
}

bool SeismicController::StrikePresent(int16_t kind) const {
  if (view_.ShownTest < 1 || view_.ShownTest > Store().TestCount) return false;
  return Store().HasStrike(kind, view_.ShownTest);
}

void SeismicController::UpdateStrikeOptions() {
  if (StrikePresent(view_.SelectedStrike)) return;
  for (int16_t kind : kStrikeKinds) {
    if (StrikePresent(kind)) {
      view_.SelectedStrike = kind;
      return;
    }
  }
}

void SeismicController::UpdateArrivalButtons() {
  const SeismicStore& s = Store();
  const int test = view_.ShownTest;
  view_.ArrivalControlsVisible = s.ArrivalSample[test] > 0;
  const int kind = s.ArrivalKind[test];
  const int n = kind == kStrikeA || kind == kStrikeB || kind == kStrikeP ? s.SampleCount[StrikeSlot(kind, test)] : 0;
  view_.ArrivalLeftEnabled = s.ArrivalSample[test] > 1;
  view_.ArrivalRightEnabled = s.ArrivalSample[test] < static_cast<float>(n);
}

void SeismicController::OpenTest(int test) {
  const int last = IsLog() ? Store().LogSeconds : Store().TestCount;
  if (test < 1 || test > last) Fail(kErrSubscript);
  if (test != view_.ShownTest) ClearDisplayShifts();
  view_.ShownTest = static_cast<int16_t>(test);
  view_.WorkbenchOpen = true;
  view_.WorkbenchAutoScale = true;
  UpdateStrikeOptions();
  if (!IsLog()) UpdateArrivalButtons();
  UpdateWorkbenchRange();
  if (listener_) listener_->OpenWorkbench();
  RedrawStrike();
}

void SeismicController::CloseWorkbench() { view_.WorkbenchOpen = false; }

bool SeismicController::PreviousEnabled() const { return view_.ShownTest > 1; }
bool SeismicController::NextEnabled() const { return view_.ShownTest < RowCount(); }

void SeismicController::NextTest() {
  if (NextEnabled()) OpenTest(view_.ShownTest + 1);
}

void SeismicController::PreviousTest() {
  if (PreviousEnabled()) OpenTest(view_.ShownTest - 1);
}

void SeismicController::SelectStrike(int16_t kind) { view_.SelectedStrike = kind; }

void SeismicController::FilterTick() {
  FilterStrike(Store(), view_.ShownTest, view_.SelectedStrike, kFilterTickPasses);
  ForgetXcorr(Store());
  RedrawStrike();
  RedrawTests({view_.ShownTest});
}

void SeismicController::EnhanceStep(bool plus) {
  if (!StrikePresent(view_.SelectedStrike)) return;
  marlview::EnhanceStep(Store(), view_.ShownTest, view_.SelectedStrike, plus);
  ForgetXcorr(Store());
  RedrawStrike();
  RedrawTests({view_.ShownTest});
}

void SeismicController::ShiftUpDown(bool up) {
  if (!StrikePresent(view_.SelectedStrike)) return;
  ShiftStrike(Store(), view_.ShownTest, view_.SelectedStrike, up);
  RedrawStrike();
  RedrawTests({view_.ShownTest});
}

void SeismicController::Nudge(int samples) {
  const int16_t kind = view_.SelectedStrike;
  if (!StrikePresent(kind)) return;
  view_.DisplayShift[static_cast<size_t>(kind)] += samples;
  view_.DisplayShiftTime[static_cast<size_t>(kind)] =
      static_cast<float>(view_.DisplayShift[static_cast<size_t>(kind)]) * Store().SampleInterval[view_.ShownTest];
  RedrawStrike();
}

bool SeismicController::TrimShownTest(double time_ms) {
  if (!TrimTest(Store(), view_.ShownTest, time_ms, prompts_)) return false;
  ForgetXcorr(Store());
  UpdateWorkbenchRange();
  RedrawStrike();
  RedrawTests({view_.ShownTest});
  return true;
}

float SeismicController::TrimShownTestDefault() const { return TrimTestDefault(Store(), view_.ShownTest); }

void SeismicController::ChooseArrivalStrike(int16_t kind) {
  if (IsLog()) return;
  if (marlview::ChooseArrivalStrike(Store(), prompts_, view_.ShownTest, kind)) {
    view_.ArrivalControlsVisible = false;
    RedrawTests({view_.ShownTest});
  }
  RedrawStrike();
}

void SeismicController::PickOnStrike(int16_t kind, int cursor_sample, bool shift) {
  if (IsLog()) return;
  const int test = view_.ShownTest;
  const bool changed = SetArrivalStrike(Store(), test, kind);
  if (changed) view_.ArrivalControlsVisible = false;
  const PickOutcome outcome = ClickWave(cursor_sample, shift);
  // A dropped click still owes the velocities to the cleared pick.
  if (!outcome.checked && changed) Velocities(test);
  RedrawStrike();
}

int SeismicController::SampleAtTime(double time_ms) const {
  const SeismicStore& s = Store();
  const int test = view_.ShownTest;
  if (IsLog() || test < 1 || test > s.TestCount) return 0;
  int kind = s.ArrivalKind[test];
  if (kind != kStrikeA && kind != kStrikeB && kind != kStrikeP) kind = view_.SelectedStrike;
  const int slot = StrikeSlot(kind, test);
  const int n = std::clamp(s.SampleCount[slot], 0, kMaxStrikeSamples);
  if (n < 1) return 0;
  const double shift = view_.DisplayShiftTime[static_cast<size_t>(kind)];
  const double first = s.StrikeTime(slot, 1) + shift;
  const double interval = n > 1 ? (static_cast<double>(s.StrikeTime(slot, n)) - s.StrikeTime(slot, 1)) / (n - 1) : 1.0;
  if (!(interval > 0)) return 1;
  return static_cast<int>(std::clamp(std::nearbyint((time_ms - first) / interval) + 1, 1.0, static_cast<double>(n)));
}

void SeismicController::Click(int cursor_sample, bool shift, bool right_button) {
  if (IsLog()) return;
  if (right_button) {
    ResetWave();
    return;
  }
  if (ClickWave(cursor_sample, shift).checked) RedrawStrike();
}

PickOutcome SeismicController::ClickWave(int cursor_sample, bool shift) {
  view_.CursorSample = cursor_sample;
  view_.SnapEnabled = shift;
  const PickOutcome outcome = PlaceArrival(Store(), prompts_, view_.ShownTest, cursor_sample, shift);
  if (!outcome.checked) return outcome;
  UpdateArrivalButtons();
  RedrawTests(outcome.changed_tests);
  RedrawTests(outcome.redraw);
  return outcome;
}

// The fine moves and the reset run the velocities themselves, once; the controller redraws.
void SeismicController::ArrivalLeft() {
  if (!view_.ArrivalLeftEnabled) return;
  const std::vector<int> redraw = MoveArrival(Store(), prompts_, view_.ShownTest, -1);
  UpdateArrivalButtons();
  RedrawTests(redraw);
  RedrawStrike();
}

void SeismicController::ArrivalRight() {
  if (!view_.ArrivalRightEnabled) return;
  const std::vector<int> redraw = MoveArrival(Store(), prompts_, view_.ShownTest, +1);
  UpdateArrivalButtons();
  RedrawTests(redraw);
  RedrawStrike();
}

void SeismicController::ResetWave() {
  if (IsLog()) return;
  const std::vector<int> redraw = ResetArrival(Store(), prompts_, view_.ShownTest);
  view_.ArrivalControlsVisible = false;
  RedrawTests(redraw);
  RedrawStrike();
}

void SeismicController::MoveStrike(int16_t from, int16_t to, bool keep_source, bool negate) {
  SeismicStore& s = Store();
  const int test = view_.ShownTest;
  if (!s.HasStrike(from, test)) return;
  ForgetXcorr(s);
  const int source = StrikeSlot(from, test), target = StrikeSlot(to, test);
  const int n = std::clamp(s.SampleCount[source], 0, kMaxStrikeSamples);
  for (int k = 1; k <= n; ++k) {
    s.StrikeTime(target, k) = s.StrikeTime(source, k);
    s.StrikeAmplitude(target, k) = negate ? -s.StrikeAmplitude(source, k) : s.StrikeAmplitude(source, k);
  }
  s.SampleCount[target] = s.SampleCount[source];
  s.GeophoneOf[static_cast<size_t>(to)][test] = s.GeophoneOf[static_cast<size_t>(from)][test];
  s.SetHasStrike(to, test, true);
  if (!keep_source) {
    s.SetHasStrike(from, test, false);
    if (s.ArrivalKind[test] == from && s.DelayTime[test] > 0) {
      s.DelayTime[test] = 0;
      s.ArrivalSample[test] = 0;
      Velocities(test);
    }
  }
}

void SeismicController::SwitchAtoB() {
  MoveStrike(kStrikeA, kStrikeB, false, false);
  UpdateStrikeOptions();
  RedrawStrike();
  RedrawTests({view_.ShownTest});
}

void SeismicController::SwitchBtoA() {
  MoveStrike(kStrikeB, kStrikeA, false, false);
  UpdateStrikeOptions();
  RedrawStrike();
  RedrawTests({view_.ShownTest});
}

void SeismicController::SwapAandB() {
  SeismicStore& s = Store();
  const int test = view_.ShownTest;
  const int a = StrikeSlot(kStrikeA, test), b = StrikeSlot(kStrikeB, test);
  ForgetXcorr(s);
  const int n = std::clamp(std::max(s.SampleCount[a], s.SampleCount[b]), 0, kMaxStrikeSamples);
  for (int k = 1; k <= n; ++k) {
    std::swap(s.StrikeTime(a, k), s.StrikeTime(b, k));
    std::swap(s.StrikeAmplitude(a, k), s.StrikeAmplitude(b, k));
  }
  std::swap(s.SampleCount[a], s.SampleCount[b]);
  std::swap(s.GeophoneOf[kStrikeA][test], s.GeophoneOf[kStrikeB][test]);
  if (s.ArrivalKind[test] == kStrikeA && s.DelayTime[test] > 0) {
    s.DelayTime[test] = 0;
    s.ArrivalSample[test] = 0;
    Velocities(test);
  }
  UpdateStrikeOptions();
  RedrawStrike();
  RedrawTests({test});
}

void SeismicController::CloneAtoB() {
  MoveStrike(kStrikeA, kStrikeB, true, true);
  UpdateStrikeOptions();
  RedrawStrike();
  RedrawTests({view_.ShownTest});
}

void SeismicController::CloneBtoA() {
  MoveStrike(kStrikeB, kStrikeA, true, true);
  UpdateStrikeOptions();
  RedrawStrike();
  RedrawTests({view_.ShownTest});
}

void SeismicController::RemoveStrikeOfTest(int16_t kind) {
  SeismicStore& s = Store();
  const int test = view_.ShownTest;
  if (!s.HasStrike(kind, test) || s.StrikeCountOf(test) <= 1) return;
  ForgetXcorr(s);
  if (s.ArrivalKind[test] == kind) {
    s.DelayTime[test] = 0;
    s.ArrivalSample[test] = 0;
    const int16_t other = kind == kStrikeA ? kStrikeB : kind == kStrikeB ? kStrikeA : kNoStrike;
    s.ArrivalKind[test] = other != kNoStrike && s.HasStrike(other, test) ? other : kNoStrike;
  }
  s.SetHasStrike(kind, test, false);
  view_.ArrivalControlsVisible = false;
  UpdateStrikeOptions();
  Velocities(test);
  RedrawStrike();
}

void SeismicController::RemoveAllStrikesOfTest() {
  SeismicStore& s = Store();
  if (s.TestCount == 1) {
    prompts_.Tell("CANNOT REMOVE LAST REMAINING STRIKE");
    return;
  }
  const int test = view_.ShownTest;
  s.HasStrikeA[test] = s.HasStrikeB[test] = s.HasStrikeP[test] = 0;
  ForgetXcorr(s);
  s.DropTest(test);
  CalculateVelocities(s, prompts_, 0);
  ClearDisplayShifts();
  view_.ShownTest = static_cast<int16_t>(std::min<int>(test, s.TestCount));
  UpdateStrikeOptions();
  UpdateArrivalButtons();
  RedrawAll();
}

bool SeismicController::SetScale(const std::string& xmin_text, const std::string& xmax_text) {
  const double xmin = LenientNumber(xmin_text), xmax = LenientNumber(xmax_text);
  if (xmin < 0 || xmax < 0) {
    prompts_.Tell("Xmin and Xmax cannot be negative");
    return false;
  }
  if (!(xmax > xmin)) {
    prompts_.Tell("Xmin must be less than Xmax");
    return false;
  }
  view_.WorkbenchAutoScale = false;
  view_.WorkbenchXMin = static_cast<int32_t>(std::min(xmin, 2e9));
  view_.WorkbenchXMax = static_cast<int32_t>(std::min(xmax, 2e9));
  UpdateWorkbenchRange();
  RedrawStrike();
  return true;
}

void SeismicController::ResetScale() {
  view_.WorkbenchAutoScale = true;
  UpdateWorkbenchRange();
  RedrawStrike();
}

SeismicController::DepthChangeTexts SeismicController::ChangeDepthTexts() const {
  const SeismicStore& s = Store();
  const int test = view_.ShownTest;
  const double unit = Feet() ? session_.FeetPerMetre : 1.0;
  auto depth = [&](int i) { return FormatNumber(s.TestDepth[i] * unit, "##0.00#"); };
  return {Feet() ? "NEW DEPTH (ft)" : "NEW DEPTH (m)", depth(test),
          test > 1 ? "MORE THAN " + depth(test - 1) : "NOT NEGATIVE",
          test < s.TestCount ? "LESS THAN " + depth(test + 1) : ""};
}

bool SeismicController::ChangeDepth(const std::string& text) {
  SeismicStore& s = Store();
  const int i = view_.ShownTest;
  double value = LenientNumber(text);
  if (Feet()) value /= session_.FeetPerMetre;
  const bool first = i == 1, last = i == s.TestCount;
  if (first && value < 0) {
    prompts_.Tell("Value cannot be negative.");
    return false;
  }
  if (!first && value < s.TestDepth[i - 1]) {
    prompts_.Tell("Value is too low.");
    return false;
  }
  if (!last && s.TestDepth[i + 1] != 0 && value >= s.TestDepth[i + 1]) {
    prompts_.Tell("Value is too high.");
    return false;
  }
  s.TestDepth[i] = ToSingle(value);
  ForgetXcorr(s);
  CalculateVelocities(s, prompts_, 0);
  RedrawAll();
  return true;
}

void SeismicController::ToggleReference() {
  view_.ReferenceShown = !view_.ReferenceShown;
  RedrawStrike();
}

void SeismicController::UpdateWorkbenchRange() {
  const SeismicStore& s = Store();
  const int test = view_.ShownTest;
  if (IsLog()) {
    view_.TimeStart = 0;
    view_.TimeEnd = 1;
    return;
  }
  if (!view_.WorkbenchAutoScale) {
    view_.TimeStart = static_cast<float>(view_.WorkbenchXMin);
    view_.TimeEnd = static_cast<float>(view_.WorkbenchXMax);
    return;
  }
  bool first = true;
  view_.TimeEnd = 0;
  for (int16_t kind : kStrikeKinds) {
    if (!s.HasStrike(kind, test)) continue;
    const int slot = StrikeSlot(kind, test);
    const int n = std::clamp(s.SampleCount[slot], 0, kMaxStrikeSamples);
    if (first) view_.TimeStart = s.StrikeTime(slot, 1);
    first = false;
    if (n > 0) view_.TimeEnd = std::max(view_.TimeEnd, s.StrikeTime(slot, n));
  }
  if (view_.TimeEnd <= view_.TimeStart) view_.TimeEnd = view_.TimeStart + 1;
}

WorkbenchCaptions SeismicController::Captions() const {
  const SeismicStore& s = Store();
  WorkbenchCaptions c;
  const int test = view_.ShownTest;
  const bool feet = Feet();
  c.x_units = IsLog() ? "Time (S)" : "Time (mS)";
  if (test < 1 || test > std::max<int>(s.TestCount, 1)) return c;
  const int row = IsLog() ? 1 : test;
  c.heading_file = "FILENAME: " + s.TestTitle[row];
  c.heading_depth = (feet ? "DEPTH (ft): " : "DEPTH (m): ") + Metres(session_, s.TestDepth[row], "##0.00");
  const auto geophone = [&](int kind, const std::string& label) {
    const int g = s.GeophoneOf[static_cast<size_t>(kind)][row];
    return label + (g == kGeophoneSgeo1 ? "SGEO1" : g == kGeophoneSgeo2 ? "SGEO2" : "UNKNOWN");
  };
  c.sa_geophone = geophone(kStrikeA, "S(A) GEOPHONE: ");
  c.sb_geophone = geophone(kStrikeB, "S(B) GEOPHONE: ");
  c.p_geophone = "P GEOPHONE: PGEO";
  const auto offset = [&](int kind, const std::string& label) {
    return label + (s.HasStrike(kind, row) ? FormatNumber(view_.DisplayShiftTime[static_cast<size_t>(kind)], "##0.0") : "N/A");
  };
  c.sa_offset = offset(kStrikeA, "S(A) OFFSET (mS): ");
  c.sb_offset = offset(kStrikeB, "S(B) OFFSET (mS): ");
  c.p_offset = offset(kStrikeP, "P OFFSET (mS): ");
  c.test_depth = Metres(session_, s.TestDepth[row], "##0.000");
  const int ref = IsLog() ? 0 : s.ReferenceTest[row];
  c.ref_depth = ref > 0 ? Metres(session_, s.TestDepth[ref], "##0.000") : "N/A";
  c.ref_delay = ref > 0 ? FormatNumber(s.DelayTime[ref], "###0.00") : "N/A";
  const bool picked = !IsLog() && s.ArrivalSample[row] > 0;
  c.delay = picked ? FormatNumber(s.DelayTime[row], "###0.00") : "N/A";
  const int kind = s.ArrivalKind[row];
  if (picked && (kind == kStrikeA || kind == kStrikeB || kind == kStrikeP)) {
    c.amplitude = FormatNumber(s.StrikeAmplitude(StrikeSlot(kind, row), static_cast<int>(s.ArrivalSample[row])), "#0.000");
  } else {
    c.amplitude = "N/A";
  }
  const double velocity = feet ? s.IntervalVelocity[row] * session_.FeetPerMetre : s.IntervalVelocity[row];
  c.velocity = s.IntervalVelocity[row] != 0 && !IsLog() ? FormatNumber(velocity, "###0.00") : "N/A";
  return c;
}

}  // namespace marlview
