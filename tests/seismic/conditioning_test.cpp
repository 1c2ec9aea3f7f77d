// Conditioning of the waves on one strike and on all tests.
#include <gtest/gtest.h>

#include "core/seismic/conditioning.h"
#include "seismic_builders.h"

namespace marlview::test {
namespace {

SeismicStore& Store() {
  static SeismicStore store;
  return store;
}

TEST(SmoothOnce, AveragesWithNeighboursAndHalvesAtTheEnds) {
  float a[] = {0, 0, 3, 0, 3};
  float scratch[5];
  SmoothOnce(a, 4, scratch);
  EXPECT_FLOAT_EQ(a[1], 1.5f);
  EXPECT_FLOAT_EQ(a[2], 1.0f);
  EXPECT_FLOAT_EQ(a[3], 2.0f);
  EXPECT_FLOAT_EQ(a[4], 1.5f);
  float one[] = {0, 7};
  SmoothOnce(one, 1, scratch);
  EXPECT_FLOAT_EQ(one[1], 7);
}

TEST(Filter, FifteenRoundsOnEveryStrikeAndTicksOfFourteen) {
  SeismicStore& s = Store();
  FillTests(s, {1, 2}, 40);
  std::vector<float> spike(40, 0.0f);
  spike[19] = 1;
  SetStrike(s, 2, kStrikeB, spike);
  FilterAllGraphs(s);
  std::vector<float> expected = spike;
  std::vector<float> scratch(42);
  expected.insert(expected.begin(), 0.0f);
  for (int r = 0; r < 15; ++r) SmoothOnce(expected.data(), 40, scratch.data());
  const std::vector<float> got = Amplitudes(s, 2, kStrikeB);
  for (int k = 0; k < 40; ++k) EXPECT_FLOAT_EQ(got[static_cast<size_t>(k)], expected[static_cast<size_t>(k) + 1]);
  SetStrike(s, 1, kStrikeA, spike);
  FilterStrike(s, 1, kStrikeA, kFilterTickPasses);
  EXPECT_LT(Amplitudes(s, 1, kStrikeA)[19], 0.25f);
  // A strike the test lacks is left alone.
  FilterStrike(s, 1, kStrikeP, kFilterTickPasses);
}

TEST(Enhance, ScalesTheMiddleAndKeepsTheGainOverAFlatStrike) {
  SeismicStore& s = Store();
  FillTests(s, {1, 2}, 30);
  std::vector<float> wave(30, 0.0f);
  wave[14] = 0.2f;
  wave[2] = 0.9f;
  SetStrike(s, 1, kStrikeA, wave);
  std::vector<float> ends(30, 0.0f);
  ends[0] = 0.5f;
  ends[11] = 0.1f;
  SetStrike(s, 2, kStrikeA, ends);
  EnhanceAllGraphs(s);
  const std::vector<float> got = Amplitudes(s, 1, kStrikeA);
  EXPECT_FLOAT_EQ(got[14], 0.75f);
  EXPECT_FLOAT_EQ(got[2], 0.9f);
  // Test 1's B strike is all zeros: it stays zero and the gain of 3.75 stays in force.
  EXPECT_EQ(Amplitudes(s, 1, kStrikeB), std::vector<float>(30, 0.0f));
  const std::vector<float> second = Amplitudes(s, 2, kStrikeA);
  EXPECT_FLOAT_EQ(second[11], 0.75f);
  EXPECT_FLOAT_EQ(second[0], 0.5f);
  // A strike of fewer than 20 samples is untouched.
  SetStrike(s, 1, kStrikeA, std::vector<float>(19, 0.1f));
  EnhanceAllGraphs(s);
  EXPECT_EQ(Amplitudes(s, 1, kStrikeA), std::vector<float>(19, 0.1f));
}

TEST(Enhance, FlatFirstStrikeTakesTheRunsInitialGainOfZero) {
  SeismicStore& s = Store();
  FillTests(s, {1}, 30);
  SetStrike(s, 1, kStrikeA, std::vector<float>(30, 0.0f));
  EnhanceAllGraphs(s);
  EXPECT_EQ(Amplitudes(s, 1, kStrikeA), std::vector<float>(30, 0.0f));
}

TEST(EnhanceStep, PlusThenMinusComesBackWithinOnePartInAHundredThousand) {
  SeismicStore& s = Store();
  FillTests(s, {1}, 5);
  SetStrike(s, 1, kStrikeA, {0.1f, -0.3f, 0.5f, 0.2f, 0.0f});
  const std::vector<float> before = Amplitudes(s, 1, kStrikeA);
  EnhanceStep(s, 1, kStrikeA, true);
  EXPECT_NEAR(Amplitudes(s, 1, kStrikeA)[2], (0.5 - 0.1) * 1.1 + 0.1, 1e-6);
  EnhanceStep(s, 1, kStrikeA, false);
  const std::vector<float> after = Amplitudes(s, 1, kStrikeA);
  for (size_t k = 0; k < before.size(); ++k) EXPECT_NEAR(after[k], before[k], 1e-5);
  ShiftStrike(s, 1, kStrikeA, true);
  EXPECT_NEAR(Amplitudes(s, 1, kStrikeA)[0], after[0] + 0.05, 1e-6);
}

TEST(Attenuate, SmoothsOnlyStrikesBeyondFullScaleInsideTheirEnds) {
  SeismicStore& s = Store();
  FillTests(s, {1}, 10);
  std::vector<float> inside(10, 0.0f);
  inside[4] = 1.0f;
  std::vector<float> at_end(10, 0.0f);
  at_end[0] = 1.0f;
  SetStrike(s, 1, kStrikeA, inside);
  SetStrike(s, 1, kStrikeB, at_end);
  AttenuateAllGraphs(s);
  EXPECT_LT(Amplitudes(s, 1, kStrikeA)[4], 1.0f);
  EXPECT_EQ(Amplitudes(s, 1, kStrikeB), at_end);
  // A wave smoothing cannot bring inside stops after its bound of rounds.
  SetStrike(s, 1, kStrikeA, std::vector<float>(10, 5.0f));
  AttenuateAllGraphs(s);
  EXPECT_FLOAT_EQ(Amplitudes(s, 1, kStrikeA)[5], 5.0f);
}

TEST(Trim, CutsCountsMovesNothingPastTheRecordAndRefusesNonPositiveTimes) {
  SeismicStore& s = Store();
  FillTests(s, {1, 2}, 100);
  ScriptedPrompts prompts;
  EXPECT_FALSE(TrimAllGraphs(s, 0, prompts));
  EXPECT_FALSE(TrimTest(s, 1, -2, prompts));
  EXPECT_EQ(prompts.Texts(), (std::vector<std::string>{"! Invalid time.", "! Invalid time."}));
  EXPECT_TRUE(TrimAllGraphs(s, 50, prompts));
  EXPECT_EQ(s.SampleCount[StrikeSlot(kStrikeA, 1)], 100);
  EXPECT_TRUE(TrimAllGraphs(s, 5, prompts));
  EXPECT_EQ(s.SampleCount[StrikeSlot(kStrikeB, 2)], 50);
  EXPECT_EQ(s.EndIndex[2], 50);
  EXPECT_FLOAT_EQ(TrimTestDefault(s, 1), 5.0f);
  EXPECT_TRUE(TrimTest(s, 1, 2, prompts));
  EXPECT_EQ(s.SampleCount[StrikeSlot(kStrikeA, 1)], 20);
  EXPECT_EQ(s.SampleCount[StrikeSlot(kStrikeA, 2)], 50);
  // PX DAS keeps B at twice the count when the test has P too.
  s.AcquisitionFamily = kSmcFamily;
  SetStrike(s, 2, kStrikeP, std::vector<float>(50, 0.0f));
  EXPECT_TRUE(TrimAllGraphs(s, 1, prompts));
  EXPECT_EQ(s.SampleCount[StrikeSlot(kStrikeB, 2)], 20);
  EXPECT_EQ(s.SampleCount[StrikeSlot(kStrikeP, 2)], 10);
  EXPECT_FLOAT_EQ(SeismicTimeAxisMaxOf(s), 2.0f);
}

TEST(NiceTimeStep, BoundsAreInclusive) {
  struct Case {
    double span;
    float step;
    int divisions;
  } cases[] = {{10, 1, 10}, {10.01, 2, 1}, {160, 20, 4}, {249.9, 50, 5}, {100000, 10000, 4}, {100001, 20000, 3},
               {300000, 50000, 4}, {900000, 100000, 4}};
  for (const Case& c : cases) {
    const TimeAxis axis = NiceTimeStep(c.span, 0);
    EXPECT_EQ(axis.step, c.step) << c.span;
    EXPECT_EQ(axis.divisions, c.divisions) << c.span;
  }
  EXPECT_EQ(NiceTimeStep(0, 15).step, 2);
}

TEST(RemoveStrikes, ClearsPicksOnTheKindAndDropsEmptyTests) {
  SeismicStore& s = Store();
  FillTests(s, {1, 2, 3}, 10);
  s.HasStrikeB[2] = 0;
  s.ArrivalKind[1] = kStrikeA;
  s.ArrivalSample[1] = 4;
  s.DelayTime[1] = 0.4f;
  s.ArrivalKind[3] = kStrikeB;
  s.DelayTime[3] = 0.5f;
  SetStrike(s, 3, kStrikeA, std::vector<float>(10, 0.3f));
  RemoveStrikeKind(s, kStrikeA);
  ASSERT_EQ(s.TestCount, 2);
  EXPECT_EQ(s.ArrivalKind[1], kNoStrike);
  EXPECT_EQ(s.DelayTime[1], 0);
  EXPECT_FLOAT_EQ(s.TestDepth[2], 3);
  EXPECT_EQ(s.ArrivalKind[2], kStrikeB);
  EXPECT_FLOAT_EQ(s.DelayTime[2], 0.5f);
  EXPECT_FALSE(s.HasStrike(kStrikeA, 2));
}

TEST(Log, GainTrimAndShiftWorkOnTheWholeColumn) {
  SeismicStore& s = Store();
  s.Reset();
  s.AcquisitionFamily = kSlgFamily;
  s.TestCount = 1;
  s.SetHasStrike(kStrikeB, 1, true);
  s.SampleCount[1] = 30;
  s.LogSeconds = 3;
  for (int n = 1; n <= 3; ++n) s.LogSecondStart[n] = (n - 1) * 10, s.LogSecondEnd[n] = n * 10;
  for (int k = 1; k <= 30; ++k) s.LogAmplitude(k, 1) = 0.01f * static_cast<float>(k % 3);
  s.LogGain = 10;
  SetLogGain(s, 25);
  EXPECT_FLOAT_EQ(s.LogAmplitude(2, 1), 0.05f);
  EXPECT_FLOAT_EQ(s.LogGain, 25);
  ShiftLogStrike(s, kStrikeB, false);
  EXPECT_NEAR(s.LogAmplitude(3, 1), -0.05, 1e-6);
  FilterAllGraphs(s);
  EXPECT_NEAR(s.LogAmplitude(15, 1), -0.025, 1e-3);
  TrimLog(s, 2);
  EXPECT_EQ(s.LogSeconds, 2);
  EXPECT_EQ(s.SampleCount[1], 20);
  EXPECT_FLOAT_EQ(SeismicTimeAxisMaxOf(s), 1.0f);
}

}  // namespace
}  // namespace marlview::test
