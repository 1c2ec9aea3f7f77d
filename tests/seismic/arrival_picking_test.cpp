// Picks, the snap rule, delays, references, velocities, the loading checks and the two exports.
#include <gtest/gtest.h>

#include <cmath>

#include "core/common/file_access.h"
#include "core/seismic/arrival_picking.h"
#include "seismic_builders.h"
#include "support/test_support.h"

namespace marlview::test {
namespace {

SeismicStore& Store() {
  static SeismicStore store;
  return store;
}

void Pick(SeismicStore& s, int test, int16_t kind, float delay_ms) {
  s.ArrivalKind[test] = kind;
  s.ArrivalSample[test] = delay_ms * 10;
  s.DelayTime[test] = delay_ms;
}

TEST(Velocity, SlantPathWithAndWithoutHammerDistance) {
  SeismicStore& s = Store();
  FillTests(s, {2, 3});
  Pick(s, 1, kStrikeA, 10);
  Pick(s, 2, kStrikeA, 12);
  ScriptedPrompts prompts;
  s.HammerDistance = 1;
  CalculateVelocities(s, prompts, 0);
  EXPECT_EQ(s.ReferenceTest[2], 1);
  EXPECT_NEAR(s.IntervalVelocity[2], 463.10, 0.005);
  EXPECT_EQ(s.IntervalVelocity[1], 0);
  s.HammerDistance = 0;
  CalculateVelocities(s, prompts, 0);
  EXPECT_NEAR(s.IntervalVelocity[2], 500.0, 1e-3);
  // A deeper test with the earlier delay gives a negative velocity, shown as it comes.
  Pick(s, 2, kStrikeA, 8);
  CalculateVelocities(s, prompts, 0);
  EXPECT_NEAR(s.IntervalVelocity[2], -500.0, 1e-3);
  EXPECT_TRUE(prompts.Texts().empty());
}

TEST(Velocity, ReferencesSkipTestsWithoutAPickAndEqualDelaysAreTold) {
  SeismicStore& s = Store();
  FillTests(s, {2, 3, 4, 5});
  Pick(s, 1, kStrikeA, 10);
  Pick(s, 3, kStrikeA, 14);
  Pick(s, 4, kStrikeA, 14);
  ScriptedPrompts prompts;
  const std::vector<int> redraw = CalculateVelocities(s, prompts, 2);
  EXPECT_EQ(s.ReferenceTest[3], 1);
  EXPECT_EQ(s.ReferenceTest[2], 1);
  EXPECT_EQ(s.IntervalVelocity[2], 0);
  EXPECT_NEAR(s.IntervalVelocity[3], 2000.0 / 4, 1e-3);
  EXPECT_EQ(s.IntervalVelocity[4], 0);
  EXPECT_EQ(prompts.Texts(), std::vector<std::string>{"! STRIKES 4 AND 3 HAVE THE SAME DELAY TIME. CANNOT CALCULATE VELOCITY"});
  EXPECT_EQ(redraw, (std::vector<int>{2, 3}));
}

// A strike of 300 zero samples with a peak and a trough where the case puts them.
int Snap(int click, int peak, int trough) {
  SeismicStore& s = Store();
  FillTests(s, {1}, 300);
  std::vector<float> wave(300, 0.0f);
  if (peak > 0) wave[static_cast<size_t>(peak - 1)] = 0.5f;
  if (trough > 0) wave[static_cast<size_t>(trough - 1)] = -0.4f;
  SetStrike(s, 1, kStrikeA, wave);
  return SnapTarget(s, StrikeSlot(kStrikeA, 1), click);
}

TEST(Snap, FollowsTheRuleOnBothSides) {
  // Both to the right: the peak, unless it lies within 5 samples of the window's end.
  EXPECT_EQ(Snap(100, 130, 102), 130);
  EXPECT_EQ(Snap(100, 147, 120), 120);
  // Both to the left: the peak, unless within 5 samples of the window's start.
  EXPECT_EQ(Snap(100, 70, 98), 70);
  EXPECT_EQ(Snap(100, 52, 98), 98);
  // One each side: the nearer, within 40 samples; equal distances drop the click.
  EXPECT_EQ(Snap(100, 110, 80), 110);
  EXPECT_EQ(Snap(100, 145, 55), 0);
  EXPECT_EQ(Snap(100, 145, 80), 80);
  EXPECT_EQ(Snap(100, 120, 80), 0);
  // Near the first sample the window starts at 1.
  EXPECT_EQ(Snap(10, 3, 8), 8);
  EXPECT_EQ(Snap(10, 8, 4), 8);
}

TEST(PlaceArrival, PlacesSnapsAndKeepsAStandingPick) {
  SeismicStore& s = Store();
  FillTests(s, {2, 3}, 300);
  std::vector<float> wave(300, 0.0f);
  wave[129] = 0.5f;
  wave[101] = -0.4f;
  SetStrike(s, 2, kStrikeA, wave);
  s.ArrivalKind[1] = kStrikeA;
  s.ArrivalKind[2] = kStrikeA;
  ScriptedPrompts prompts;
  PickOutcome first = PlaceArrival(s, prompts, 1, 50, false);
  EXPECT_TRUE(first.placed);
  EXPECT_FLOAT_EQ(s.DelayTime[1], 5.0f);
  EXPECT_TRUE(PlaceArrival(s, prompts, 2, 100, true).placed);
  EXPECT_FLOAT_EQ(s.ArrivalSample[2], 130);
  EXPECT_NEAR(s.IntervalVelocity[2], 125.0, 0.2);
  // A second click changes nothing until the pick is cleared.
  EXPECT_FALSE(PlaceArrival(s, prompts, 2, 20, false).placed);
  EXPECT_FLOAT_EQ(s.ArrivalSample[2], 130);
  ResetArrival(s, prompts, 2);
  EXPECT_EQ(s.DelayTime[2], 0);
  EXPECT_EQ(s.IntervalVelocity[2], 0);
  // Without a strike chosen for the pick a click lands nowhere.
  s.ArrivalKind[2] = kNoStrike;
  EXPECT_FALSE(PlaceArrival(s, prompts, 2, 20, false).placed);
}

TEST(PlaceArrival, MovesStayOnTheStrike) {
  SeismicStore& s = Store();
  FillTests(s, {2}, 10);
  s.ArrivalKind[1] = kStrikeB;
  ScriptedPrompts prompts;
  PlaceArrival(s, prompts, 1, 2, false);
  MoveArrival(s, prompts, 1, -1);
  MoveArrival(s, prompts, 1, -1);
  EXPECT_FLOAT_EQ(s.ArrivalSample[1], 1);
  for (int k = 0; k < 12; ++k) MoveArrival(s, prompts, 1, +1);
  EXPECT_FLOAT_EQ(s.ArrivalSample[1], 10);
  EXPECT_FLOAT_EQ(s.DelayTime[1], 1.0f);
  EXPECT_TRUE(ChooseArrivalStrike(s, prompts, 1, kStrikeA));
  EXPECT_EQ(s.ArrivalSample[1], 0);
  EXPECT_FALSE(ChooseArrivalStrike(s, prompts, 1, kStrikeA));
}

TEST(PlaceArrival, SAndPPicksNeverStandTogether) {
  SeismicStore& s = Store();
  FillTests(s, {2, 3, 4}, 50);
  SetStrike(s, 2, kStrikeP, std::vector<float>(50, 0.0f));
  SetStrike(s, 3, kStrikeP, std::vector<float>(50, 0.0f));
  Pick(s, 1, kStrikeA, 1.0f);
  Pick(s, 2, kStrikeB, 1.5f);
  s.ArrivalKind[3] = kStrikeP;
  ScriptedPrompts prompts;
  PickOutcome outcome = PlaceArrival(s, prompts, 3, 20, false);
  EXPECT_EQ(prompts.Texts(), std::vector<std::string>{
      "! S AND P WAVES CANNOT BE USED TOGETHER FOR VELOCITY CALCULATIONS. S WAVE DELAYS WILL BE RESET TO 0"});
  // Test 1 has no P strike: its pick goes. Test 2 keeps its pick, now counted as a P pick.
  EXPECT_EQ(s.ArrivalKind[1], kNoStrike);
  EXPECT_EQ(s.DelayTime[1], 0);
  EXPECT_EQ(s.ArrivalKind[2], kStrikeP);
  EXPECT_FLOAT_EQ(s.DelayTime[2], 1.5f);
  EXPECT_EQ(outcome.changed_tests, (std::vector<int>{1, 2}));
  prompts.ClearLog();
  s.ArrivalKind[1] = kStrikeA;
  PlaceArrival(s, prompts, 1, 5, false);
  EXPECT_EQ(prompts.Texts(), std::vector<std::string>{
      "! S AND P WAVES CANNOT BE USED TOGETHER FOR VELOCITY CALCULATIONS. P WAVE DELAYS WILL BE RESET TO 0"});
  EXPECT_EQ(s.ArrivalKind[2], kStrikeA);
  EXPECT_EQ(s.ArrivalKind[3], kStrikeA);
}

TEST(LoadingChecks, DelayWarningClearsEveryPickAndArrivalErrorSetsKinds) {
  SeismicStore& s = Store();
  FillTests(s, {2, 3, 4}, 50);
  SetStrike(s, 3, kStrikeP, std::vector<float>(50, 0.0f));
  s.HasStrikeA[2] = 0;
  s.ArrivalFromFile[1] = 10, s.ArrivalKind[1] = kStrikeA;
  s.ArrivalFromFile[2] = 12, s.ArrivalKind[2] = kStrikeB;
  s.ArrivalFromFile[3] = 14, s.ArrivalKind[3] = kStrikeP;
  ASSERT_TRUE(NeedsDelayWarning(s));
  ApplyDelayWarning(s, true);
  EXPECT_EQ(s.ArrivalFromFile[1], 0);
  EXPECT_EQ(s.ArrivalKind[1], kStrikeA);
  EXPECT_EQ(s.ArrivalKind[2], kStrikeB);
  EXPECT_EQ(s.ArrivalKind[3], kStrikeA);
  EXPECT_FALSE(NeedsDelayWarning(s));

  s.ArrivalFromFile[1] = 10, s.ArrivalKind[1] = kStrikeA;
  s.ArrivalFromFile[3] = 14, s.ArrivalKind[3] = kStrikeP;
  ApplyDelayWarning(s, false);
  EXPECT_EQ(s.ArrivalKind[1], kNoStrike);
  EXPECT_EQ(s.ArrivalKind[3], kStrikeP);
  EXPECT_EQ(s.ArrivalFromFile[3], 14);
  EXPECT_EQ(s.ArrivalFromFile[1], 0);

  for (int i = 1; i <= 3; ++i) s.ArrivalFromFile[i] = 10 + i, s.ArrivalKind[i] = kNoStrike;
  ArrivalErrorChoice choice = ArrivalErrorChoices(s);
  EXPECT_TRUE(choice.needed);
  EXPECT_TRUE(choice.a_enabled);
  EXPECT_TRUE(choice.b_enabled);
  EXPECT_FALSE(choice.p_enabled);
  EXPECT_EQ(choice.initial, kStrikeB);
  ApplyArrivalError(s, kStrikeA);
  EXPECT_EQ(s.ArrivalKind[1], kStrikeA);
  EXPECT_EQ(s.ArrivalKind[2], kNoStrike);
  EXPECT_FLOAT_EQ(s.ArrivalSample[3], 13);
  EXPECT_FLOAT_EQ(s.DelayTime[3], 1.3f);
}

TEST(HammerDistance, FileAbsentAsksAndTheAskLineIsKept) {
  TestSession t;
  SeismicStore& s = Store();
  LoadHammerDistance(*t.session, s);
  EXPECT_EQ(s.AskHammerDistance, 1);
  EXPECT_EQ(s.HammerDistance, 0);
  SaveHammerDistance(*t.session, 0.6f, false);
  EXPECT_EQ(ReadWholeFile(t.session->SettingsPath("Hammer Distance.txt")), "0.6\r\n0\r\n");
  LoadHammerDistance(*t.session, s);
  EXPECT_EQ(s.AskHammerDistance, 0);
  EXPECT_FLOAT_EQ(s.HammerDistance, 0.6f);
}

TEST(Exports, DelayAndVelocityFilesWithTheirQuestions) {
  TestSession t;
  TempDirectory out;
  SeismicStore& s = Store();
  FillTests(s, {1.5f, 3, 4.5f});
  Pick(s, 1, kStrikeA, 9.25f);
  Pick(s, 3, kStrikeA, 16.5f);
  s.HammerDistance = 0.6f;
  CalculateVelocities(s, t.prompts, 0);
  EXPECT_EQ(DelayFileText(s),
            "step\r\nSeismic Arrival\r\nSeismic Arrival\r\n(milliseconds)\r\nDepth(m) module1.delay(ms)\r\n"
            "   1.50      3.00      9.25\r\n   4.50      4.60     16.50\r\n");
  EXPECT_EQ(VelocityFileText(s),
            "step\r\nSeismic Velocity\r\nSeismic Velocity\r\n(m/s)\r\nDepth1(m) Depth2(m) velocity(m/s)\r\n"
            "     1.50      4.50        403.35\r\n");
  out.Write("old.dly", "x");
  t.prompts.Script({"Yes", out.File("old.dly"), "No", out.File("new"), "No"});
  EXPECT_TRUE(GenDelay(*t.session, s, t.prompts));
  EXPECT_EQ(ReadWholeFile(out.File("old.dly")), "x");
  EXPECT_EQ(ReadWholeFile(out.File("new.dly")), DelayFileText(s));
  EXPECT_FALSE(GenVelocity(*t.session, s, t.prompts));
  EXPECT_EQ(t.prompts.Texts(), (std::vector<std::string>{"? Not all delays have been determined. Continue? -> Yes",
                                                          "? File exits.  Overwrite? -> No",
                                                          "? Not all velocities have been determined. Continue? -> No"}));
}

// A name typed without its extension names the file with it: that file is the one replaced, so
// the question is asked of it.
TEST(Exports, AnExistingFileIsOverwrittenOnlyWhenTheUserSaysYes) {
  TestSession t;
  TempDirectory out;
  SeismicStore& s = Store();
  FillTests(s, {1.5f, 3});
  Pick(s, 1, kStrikeA, 9.25f);
  Pick(s, 2, kStrikeA, 16.5f);
  CalculateVelocities(s, t.prompts, 0);
  out.Write("log.dly", "old delays");
  out.Write("log.vss", "old velocities");
  t.prompts.Script({out.File("log"), "No", ""});
  EXPECT_FALSE(GenDelay(*t.session, s, t.prompts));
  EXPECT_EQ(ReadWholeFile(out.File("log.dly")), "old delays");
  // The first test never has a velocity, so the velocities always ask to go on.
  t.prompts.Script({"Yes", out.File("log"), "No", ""});
  EXPECT_FALSE(GenVelocity(*t.session, s, t.prompts));
  EXPECT_EQ(ReadWholeFile(out.File("log.vss")), "old velocities");
  EXPECT_EQ(t.prompts.Texts(), (std::vector<std::string>{"? File exits.  Overwrite? -> No",
                                                          "? Not all velocities have been determined. Continue? -> Yes",
                                                          "? File exists.  Overwrite? -> No"}));
  t.prompts.ClearLog();
  t.prompts.Script({out.File("log"), "Yes", "Yes", out.File("LOG.VSS"), "Yes"});
  out.Write("LOG.VSS", "old velocities");
  EXPECT_TRUE(GenDelay(*t.session, s, t.prompts));
  EXPECT_TRUE(GenVelocity(*t.session, s, t.prompts));
  EXPECT_EQ(ReadWholeFile(out.File("log.dly")), DelayFileText(s));
  EXPECT_EQ(ReadWholeFile(out.File("LOG.VSS")), VelocityFileText(s));
  EXPECT_EQ(t.prompts.Texts(), (std::vector<std::string>{"? File exits.  Overwrite? -> Yes",
                                                          "? Not all velocities have been determined. Continue? -> Yes",
                                                          "? File exists.  Overwrite? -> Yes"}));
}

}  // namespace
}  // namespace marlview::test
