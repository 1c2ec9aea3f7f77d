// Picks, delays and interval velocities.
#include "core/seismic/arrival_picking.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "core/common/file_access.h"
#include "core/common/number_format.h"
#include "core/common/number_read.h"
#include "core/common/text_rules.h"

namespace marlview {
namespace {

bool PickableKind(int kind) { return kind == kStrikeA || kind == kStrikeB || kind == kStrikeP; }

float TimeAt(const SeismicStore& s, int test, float sample) {
  const int kind = s.ArrivalKind[test];
  if (!PickableKind(kind)) return s.DelayTime[test];
  if (!(sample >= 0 && sample <= static_cast<float>(kMaxStrikeSamples))) Fail(kErrSubscript);
  const int index = static_cast<int>(sample);
  return s.StrikeTime(StrikeSlot(kind, test), index);
}

void ClearPick(SeismicStore& s, int test) {
  s.ArrivalKind[test] = kNoStrike;
  s.ArrivalSample[test] = 0;
  s.DelayTime[test] = 0;
  s.IntervalVelocity[test] = 0;
}

// S and P picks never stand together: the newer kind wins and the older picks go or move.
void CheckSAndP(SeismicStore& s, UserPrompts& prompts, int test, std::vector<int>& changed) {
  const int kind = s.ArrivalKind[test];
  if (kind == kStrikeP) {
    bool s_picks = false;
    for (int j = 1; j <= s.TestCount; ++j) {
      s_picks = s_picks || (s.ArrivalSample[j] > 0 && (s.ArrivalKind[j] == kStrikeA || s.ArrivalKind[j] == kStrikeB));
    }
    if (!s_picks) return;
    prompts.Tell("S AND P WAVES CANNOT BE USED TOGETHER FOR VELOCITY CALCULATIONS. S WAVE DELAYS WILL BE RESET TO 0");
    for (int j = 1; j <= s.TestCount; ++j) {
      if (s.ArrivalKind[j] != kStrikeA && s.ArrivalKind[j] != kStrikeB) continue;
      if (s.HasStrikeP[j]) {
        s.ArrivalKind[j] = kStrikeP;
      } else {
        ClearPick(s, j);
      }
      changed.push_back(j);
    }
  } else if (kind == kStrikeA || kind == kStrikeB) {
    bool p_picks = false;
    for (int j = 1; j <= s.TestCount; ++j) p_picks = p_picks || (s.ArrivalSample[j] > 0 && s.ArrivalKind[j] == kStrikeP);
    if (!p_picks) return;
    prompts.Tell("S AND P WAVES CANNOT BE USED TOGETHER FOR VELOCITY CALCULATIONS. P WAVE DELAYS WILL BE RESET TO 0");
    for (int j = 1; j <= s.TestCount; ++j) {
      if (s.ArrivalKind[j] != kStrikeP) continue;
      if (kind == kStrikeB) {
        if (s.HasStrikeB[j]) s.ArrivalKind[j] = kStrikeB; else ClearPick(s, j);
      } else if (s.HasStrikeA[j]) {
        s.ArrivalKind[j] = kStrikeA;
      } else if (!s.HasStrikeB[j]) {
        ClearPick(s, j);
      } else {
        s.ArrivalKind[j] = kStrikeB;
      }
      changed.push_back(j);
    }
  }
}

std::string Column(double value, int width) { return FormatText(FormatNumber(value, "###0.00"), std::string(static_cast<size_t>(width), '@')); }

// The save dialog of the two exports: the overwrite question sends the user back to it.
std::string AskSavePath(const Session& session, UserPrompts& prompts, const char* extension, const char* overwrite) {
  for (;;) {
    FileDialogRequest request;
    request.title = "Save As";
    request.filter = std::string("*") + extension + "|*" + extension;
    request.asks_overwrite = true;
    if (DirectoryExists(session.SoundingDirectory)) request.start_directory = session.SoundingDirectory;
    std::string path = prompts.SaveFile(request);
    if (path.empty()) return {};
    // The extension goes on first: the file to be replaced is the one with it.
    if (!EndsWithNoCase(path, extension)) path += extension;
    if (FileExists(path) && prompts.Ask(overwrite, Buttons::kYesNo) != Answer::kYes) continue;
    return path;
  }
}

}  // namespace

void CalculateDelays(SeismicStore& s) {
  for (int i = 1; i <= s.TestCount; ++i) {
    s.ArrivalSample[i] = static_cast<float>(s.ArrivalFromFile[i]);
    if (PickableKind(s.ArrivalKind[i])) s.DelayTime[i] = TimeAt(s, i, s.ArrivalSample[i]);
  }
}

std::vector<int> CalculateVelocities(SeismicStore& s, UserPrompts& prompts, int changed_test) {
  for (int i = s.TestCount; i >= 2; --i) {
    s.ReferenceTest[i] = 0;
    for (int j = i - 1; j >= 1; --j) {
      if (s.DelayTime[j] > 0) {
        s.ReferenceTest[i] = static_cast<int16_t>(j);
        break;
      }
    }
  }
  for (int i = 2; i <= s.TestCount; ++i) {
    const int r = s.ReferenceTest[i];
    if (r < 1 || !(s.DelayTime[i] > 0)) {
      s.IntervalVelocity[i] = 0;
      continue;
    }
    const double h = s.HammerDistance;
    const double di = s.TestDepth[i], dr = s.TestDepth[r];
    s.PathDifference = static_cast<float>(std::sqrt(di * di + h * h) - std::sqrt(dr * dr + h * h));
    if (s.DelayTime[i] != s.DelayTime[r]) {
      s.IntervalVelocity[i] = static_cast<float>(static_cast<double>(s.PathDifference) /
                                                 (static_cast<double>(s.DelayTime[i]) - s.DelayTime[r]) * 1000);
    } else {
      prompts.Tell("STRIKES " + std::to_string(i) + " AND " + std::to_string(r) +
                   " HAVE THE SAME DELAY TIME. CANNOT CALCULATE VELOCITY");
      s.IntervalVelocity[i] = 0;
    }
  }
  std::vector<int> redraw;
  if (changed_test == 0) {
    for (int i = 1; i <= s.TestCount; ++i) redraw.push_back(i);
    return redraw;
  }
  redraw.push_back(changed_test);
  for (int i = changed_test + 1; i <= s.TestCount; ++i) {
    if (s.DelayTime[i] > 0) {
      redraw.push_back(i);
      break;
    }
  }
  return redraw;
}

int SnapTarget(const SeismicStore& s, int slot, int c) {
  const int n = std::clamp(s.SampleCount[slot], 0, kMaxStrikeSamples);
  if (c < 1 || c > n) return 0;
  const int lo = c > kSnapWindow ? c - kSnapWindow : 1;
  const int hi = c < n - kSnapWindow ? c + kSnapWindow : n;
  int peak = 0, trough = 0;
  float high = s.StrikeAmplitude(slot, c), low = high;
  for (int k = lo; k <= hi; ++k) {
    if (s.StrikeAmplitude(slot, k) > high) high = s.StrikeAmplitude(slot, k), peak = k;
  }
  for (int k = lo; k <= hi; ++k) {
    if (s.StrikeAmplitude(slot, k) < low) low = s.StrikeAmplitude(slot, k), trough = k;
  }
  if (peak > c && trough > c) return peak > hi - kSnapEdgeGuard ? trough : peak;
  if (peak < c && trough < c) return peak < lo + kSnapEdgeGuard ? trough : peak;
  const int to_peak = std::abs(peak - c), to_trough = std::abs(trough - c);
  if (to_peak == to_trough) return 0;
  const int chosen = to_peak < to_trough ? peak : trough;
  return std::abs(chosen - c) < kSnapNearestLimit ? chosen : 0;
}

PickOutcome PlaceArrival(SeismicStore& s, UserPrompts& prompts, int test, int cursor_sample, bool shift) {
  PickOutcome outcome;
  if (s.AcquisitionFamily == kSlgFamily || test < 1 || test > s.TestCount) return outcome;
  const int kind = s.ArrivalKind[test];
  if (s.ArrivalSample[test] == 0) {
    // A click before a strike is chosen for the pick has nothing to land on.
    if (!PickableKind(kind) || !s.HasStrike(kind, test)) return outcome;
    const int slot = StrikeSlot(kind, test);
    int c = cursor_sample;
    if (shift) c = SnapTarget(s, slot, c);
    if (c < 1 || c > s.SampleCount[slot]) return outcome;
    s.ArrivalSample[test] = static_cast<float>(c);
    s.DelayTime[test] = s.StrikeTime(slot, c);
    outcome.placed = true;
  }
  outcome.checked = true;
  CheckSAndP(s, prompts, test, outcome.changed_tests);
  outcome.redraw = CalculateVelocities(s, prompts, test);
  return outcome;
}

std::vector<int> MoveArrival(SeismicStore& s, UserPrompts& prompts, int test, int step) {
  if (s.ArrivalSample[test] == 0) return {};
  const int kind = s.ArrivalKind[test];
  if (!PickableKind(kind)) {
    // Without a strike for the pick only the move to the left has a sample to go to; the delay stays.
    if (step < 0) s.ArrivalSample[test] = std::max(1.0f, s.ArrivalSample[test] + static_cast<float>(step));
  } else {
    const int n = s.SampleCount[StrikeSlot(kind, test)];
    s.ArrivalSample[test] =
        std::clamp(s.ArrivalSample[test] + static_cast<float>(step), 1.0f, static_cast<float>(std::max(n, 1)));
    s.DelayTime[test] = TimeAt(s, test, s.ArrivalSample[test]);
  }
  return CalculateVelocities(s, prompts, test);
}

std::vector<int> ResetArrival(SeismicStore& s, UserPrompts& prompts, int test) {
  s.ArrivalSample[test] = 0;
  s.DelayTime[test] = 0;
  return CalculateVelocities(s, prompts, test);
}

bool SetArrivalStrike(SeismicStore& s, int test, int16_t kind) {
  if (s.ArrivalKind[test] == kind) return false;
  s.ArrivalKind[test] = kind;
  s.DelayTime[test] = 0;
  s.ArrivalSample[test] = 0;
  return true;
}

bool ChooseArrivalStrike(SeismicStore& s, UserPrompts& prompts, int test, int16_t kind) {
  if (!SetArrivalStrike(s, test, kind)) return false;
  CalculateVelocities(s, prompts, test);
  return true;
}

bool NeedsDelayWarning(const SeismicStore& s) {
  int n_a = 0, n_b = 0, n_p = 0;
  for (int i = 1; i <= s.TestCount; ++i) {
    if (s.ArrivalFromFile[i] < 1) continue;
    n_a += s.ArrivalKind[i] == kStrikeA;
    n_b += s.ArrivalKind[i] == kStrikeB;
    n_p += s.ArrivalKind[i] == kStrikeP;
  }
  return (n_a >= 1 || n_b >= 1) && n_p >= 1;
}

void ApplyDelayWarning(SeismicStore& s, bool keep_s_waves) {
  for (int i = 1; i <= s.TestCount; ++i) {
    if (keep_s_waves) {
      // Every pick goes, the S picks too: the operator picks the S waves afresh.
      s.ArrivalKind[i] = s.HasStrikeA[i] ? kStrikeA : s.HasStrikeB[i] ? kStrikeB : kNoStrike;
    } else {
      if (s.ArrivalKind[i] == kStrikeP) continue;
      s.ArrivalKind[i] = s.HasStrikeP[i] ? kStrikeP : kNoStrike;
    }
    s.ArrivalSample[i] = 0;
    s.ArrivalFromFile[i] = 0;
  }
}

ArrivalErrorChoice ArrivalErrorChoices(const SeismicStore& s) {
  ArrivalErrorChoice choice;
  int a = 0, b = 0, p = 0;
  for (int i = 1; i <= s.TestCount; ++i) {
    if (s.ArrivalFromFile[i] <= 0) continue;
    choice.needed = choice.needed || s.ArrivalKind[i] == kNoStrike;
    a += s.HasStrikeA[i] != 0;
    b += s.HasStrikeB[i] != 0;
    p += s.HasStrikeP[i] != 0;
  }
  choice.a_enabled = a > 1;
  choice.b_enabled = b > 1;
  choice.p_enabled = p > 1;
  if (a > b && a > p && choice.a_enabled) {
    choice.initial = kStrikeA;
  } else if (b > a && b > p && choice.b_enabled) {
    choice.initial = kStrikeB;
  } else if (p > a && p > b && choice.p_enabled) {
    choice.initial = kStrikeP;
  } else {
    choice.initial = choice.a_enabled ? kStrikeA : choice.b_enabled ? kStrikeB : choice.p_enabled ? kStrikeP : kNoStrike;
  }
  return choice;
}

void ApplyArrivalError(SeismicStore& s, int16_t kind) {
  for (int i = 1; i <= s.TestCount; ++i) {
    if (s.ArrivalFromFile[i] <= 0) continue;
    s.ArrivalKind[i] = PickableKind(kind) && s.HasStrike(kind, i) ? kind : kNoStrike;
  }
  CalculateDelays(s);
}

void LoadHammerDistance(const Session& session, SeismicStore& s) {
  const std::optional<std::string> bytes = TryReadWholeFile(session.SettingsPath("Hammer Distance.txt"));
  if (!bytes) {
    s.AskHammerDistance = 1;
    s.HammerDistance = 0;
    return;
  }
  const std::vector<std::string_view> lines = SplitLines(*bytes);
  s.HammerDistance = ToSingle(lines.empty() ? 0.0 : LenientNumber(lines[0]));
  s.AskHammerDistance = static_cast<int16_t>(lines.size() < 2 ? 1 : (LenientNumber(lines[1]) == 0 ? 0 : 1));
}

void SaveHammerDistance(const Session& session, float distance_m, bool ask) {
  WriteFileAtomically(session.SettingsPath("Hammer Distance.txt"),
                      ShortestText(distance_m) + "\r\n" + (ask ? "1" : "0") + "\r\n");
}

std::string DelayFileText(const SeismicStore& s) {
  std::string out = "step\r\nSeismic Arrival\r\nSeismic Arrival\r\n(milliseconds)\r\nDepth(m) module1.delay(ms)\r\n";
  const auto row = [&](double from, double to, double delay) {
    out += Column(from, 7) + "   " + Column(to, 7) + "   " + Column(delay, 7) + "\r\n";
  };
  for (int i = 0; i <= s.TestCount - 1; ++i) {
    if (s.DelayTime[i] > 0) row(s.TestDepth[i], s.TestDepth[i + 1], s.DelayTime[i]);
  }
  const int last = s.TestCount;
  row(s.TestDepth[last], static_cast<double>(s.TestDepth[last]) + 0.1, s.DelayTime[last]);
  return out;
}

std::string VelocityFileText(const SeismicStore& s) {
  std::string out = "step\r\nSeismic Velocity\r\nSeismic Velocity\r\n(m/s)\r\nDepth1(m) Depth2(m) velocity(m/s)\r\n";
  for (int i = 2; i <= s.TestCount; ++i) {
    if (!(s.DelayTime[i] > 0)) continue;
    out += Column(s.TestDepth[s.ReferenceTest[i]], 9) + " " + Column(s.TestDepth[i], 9) + " " +
           Column(s.IntervalVelocity[i], 13) + "\r\n";
  }
  return out;
}

bool GenDelay(const Session& session, const SeismicStore& s, UserPrompts& prompts) {
  bool missing = false;
  for (int i = 1; i <= s.TestCount; ++i) missing = missing || s.DelayTime[i] == 0;
  if (missing && prompts.Ask("Not all delays have been determined. Continue?", Buttons::kYesNo) != Answer::kYes) return false;
  const std::string path = AskSavePath(session, prompts, ".dly", "File exits.  Overwrite?");
  if (path.empty()) return false;
  WriteFileAtomically(path, DelayFileText(s));
  return true;
}

bool GenVelocity(const Session& session, const SeismicStore& s, UserPrompts& prompts) {
  bool missing = false;
  for (int i = 1; i <= s.TestCount; ++i) missing = missing || s.IntervalVelocity[i] == 0;
  if (missing && prompts.Ask("Not all velocities have been determined. Continue?", Buttons::kYesNo) != Answer::kYes) return false;
  const std::string path = AskSavePath(session, prompts, ".vss", "File exists.  Overwrite?");
  if (path.empty()) return false;
  WriteFileAtomically(path, VelocityFileText(s));
  return true;
}

}  // namespace marlview
