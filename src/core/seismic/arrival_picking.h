// Picks, delays and interval velocities: the click on a wave and its snap to a peak or trough, the
// fine moves of a pick, the checks of the picks read from a file, and the slant-path velocity.
#pragma once

#include <string>
#include <vector>

#include "core/common/user_prompts.h"
#include "core/session/seismic_store.h"
#include "core/session/session.h"

namespace marlview {

inline constexpr int kSnapWindow = 50;
inline constexpr int kSnapEdgeGuard = 5;
inline constexpr int kSnapNearestLimit = 40;

// ArrivalSample from ArrivalFromFile, and the delay at it on the strike of the pick.
void CalculateDelays(SeismicStore& store);
// References and velocities; returns the tests whose graphs change: all when changed_test is 0,
// else the changed test and the next picked test behind it.
std::vector<int> CalculateVelocities(SeismicStore& store, UserPrompts& prompts, int changed_test);

// Where a Shift-click at sample c of a slot lands: a peak or trough near it, or 0 when the click
// is dropped.
int SnapTarget(const SeismicStore& store, int slot, int c);

struct PickOutcome {
  // A new pick was stored.
  bool placed = false;
  // The click went through to the checks (a pick stands on the test afterwards or before).
  bool checked = false;
  // Tests whose picks the S and P check cleared or moved.
  std::vector<int> changed_tests;
  // Tests to redraw after the velocities.
  std::vector<int> redraw;
};
// A left click on the wave of test at cursor_sample; shift is the Shift key alone.
PickOutcome PlaceArrival(SeismicStore& store, UserPrompts& prompts, int test, int cursor_sample, bool shift);
// cmdArrivalLeft (-1) and cmdArrivalRight (+1), with their one run of the velocities; returns the
// tests to redraw, none when the pick did not move.
std::vector<int> MoveArrival(SeismicStore& store, UserPrompts& prompts, int test, int step);
// cmdResetWave, with its one run of the velocities; returns the tests to redraw.
std::vector<int> ResetArrival(SeismicStore& store, UserPrompts& prompts, int test);
// The strike of the pick set without the velocities: true when the kind really changed, and then
// the pick and the delay are cleared.
bool SetArrivalStrike(SeismicStore& store, int test, int16_t kind);
// optArrivalAStrike and the others: SetArrivalStrike, then the velocities when the kind changed.
bool ChooseArrivalStrike(SeismicStore& store, UserPrompts& prompts, int test, int16_t kind);

// frmDelayWarning: whether picks of the file stand on S and P waves at once.
bool NeedsDelayWarning(const SeismicStore& store);
inline constexpr const char* kDelayWarningText =
    "WARNING!  DELAY POINTS PRESENT ON S WAVES and P WAVES! THIS WILL LEAD TO INCORRECT VELOCITY CALCULATIONS!";
void ApplyDelayWarning(SeismicStore& store, bool keep_s_waves);

// frmArrivalError ("SET ARRIVAL WAVE(S)").
struct ArrivalErrorChoice {
  bool needed = false;
  bool a_enabled = false, b_enabled = false, p_enabled = false;
  // The option it starts on; kNoStrike when none.
  int16_t initial = kNoStrike;
};
inline constexpr const char* kArrivalErrorCaption = "SET ARRIVAL WAVE(S)";
ArrivalErrorChoice ArrivalErrorChoices(const SeismicStore& store);
// kind kNoStrike is the "NO WAVE" option.
void ApplyArrivalError(SeismicStore& store, int16_t kind);

// "Hammer Distance.txt": the distance in metres and "1" to ask at each load or "0".
void LoadHammerDistance(const Session& session, SeismicStore& store);
void SaveHammerDistance(const Session& session, float distance_m, bool ask);

// The .dly and .vss files.
std::string DelayFileText(const SeismicStore& store);
std::string VelocityFileText(const SeismicStore& store);
// GenDelay and GenVelocity with their questions and save dialog; false when nothing was written.
bool GenDelay(const Session& session, const SeismicStore& store, UserPrompts& prompts);
bool GenVelocity(const Session& session, const SeismicStore& store, UserPrompts& prompts);

}  // namespace marlview
