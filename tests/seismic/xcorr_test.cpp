// True-interval velocities by cross-correlation: the lag of a wave shifted by a known time, the
// slant-path velocity over it, the pairs that give none, and the table beside the picks.
#include <gtest/gtest.h>

#include <cmath>

#include "core/common/number_format.h"
#include "core/seismic/seismic_controller.h"
#include "core/seismic/seismic_plots.h"
#include "core/seismic/xcorr.h"
#include "seismic_builders.h"
#include "support/test_support.h"

namespace marlview::test {
namespace {

// 200 ms at 0.1 ms: the mean product's count changes little across the peak, so it hardly tilts it.
constexpr int kSamples = 2000;

// A smooth pulse of 0.5 ms half-width arriving at arrival_ms, sampled at 0.1 ms.
std::vector<float> Pulse(double arrival_ms) {
  std::vector<float> wave(kSamples);
  for (int k = 0; k < kSamples; ++k) {
    const double t = 0.1 * (k + 1) - arrival_ms;
    wave[static_cast<size_t>(k)] = static_cast<float>(0.5 * std::exp(-t * t / (2 * 0.25)));
  }
  return wave;
}

struct NoDialogs : SeismicDialogs {
  bool AskDelayWarning() override { return true; }
  int16_t AskArrivalError(const ArrivalErrorChoice&) override { return kNoStrike; }
};

class XcorrTest : public ::testing::Test {
 protected:
  // Depths 2, 3 and 4 m, 1 m from the hammer; the pulse arrives at 20, 25.2 and 30.45 ms, so the
  // lags are 52 and 52.5 samples.
  XcorrTest() {
    FillTests(s, {2, 3, 4}, kSamples);
    s.HammerDistance = 1;
    const double arrivals[] = {20, 25.2, 30.45};
    for (int i = 1; i <= 3; ++i) SetStrike(s, i, kStrikeA, Pulse(arrivals[i - 1]));
  }
  TestSession t;
  SeismicStore& s = t.session->Seismic();
};

TEST_F(XcorrTest, FindsWholeAndPartSampleLagsAndTheSlantVelocityOverThem) {
  CrossCorrelateTests(s, t.prompts, XcorrOptions{});
  EXPECT_TRUE(t.prompts.Texts().empty());
  EXPECT_TRUE(s.XcorrComputed);
  EXPECT_EQ(s.XcorrVelocity[1], 0);
  EXPECT_NEAR(s.XcorrLagSamples[2], 52, 0.05);
  EXPECT_NEAR(s.XcorrLagSamples[3], 52.5, 0.05);
  // (sqrt(3^2 + 1) - sqrt(2^2 + 1)) / 5.2 ms = 0.926210 m / 5.2 ms = 178.12 m/s;
  // (sqrt(17) - sqrt(10)) / 5.25 ms = 0.960828 m / 5.25 ms = 183.01 m/s.
  EXPECT_NEAR(s.XcorrVelocity[2], 178.12, 0.2);
  EXPECT_NEAR(s.XcorrVelocity[3], 183.01, 0.2);
  // The same pulse at both depths matches itself.
  EXPECT_GT(s.XcorrCoefficient[2], 0.99);
  EXPECT_LE(s.XcorrCoefficient[2], 1.0001);
}

TEST_F(XcorrTest, PairsOfOtherIntervalsFlatWavesAndNoDepthGiveNoVelocity) {
  SetStrike(s, 1, kStrikeA, Pulse(20), 0.2f);
  SetStrike(s, 3, kStrikeA, std::vector<float>(kSamples, 0.25f));
  CrossCorrelateTests(s, t.prompts, XcorrOptions{});
  EXPECT_EQ(t.prompts.Texts(), (std::vector<std::string>{"! SAMPLE INTERVALS OF TESTS 1 AND 2 DIFFER",
                                                         "! NO CORRELATION BETWEEN TESTS 2 AND 3"}));
  for (int i = 1; i <= 3; ++i) EXPECT_EQ(s.XcorrVelocity[i], 0) << "test " << i;

  // A test no deeper than the one above keeps its lag but has no interval to give a velocity.
  FillTests(s, {3, 3}, kSamples);
  SetStrike(s, 1, kStrikeB, Pulse(20));
  SetStrike(s, 2, kStrikeB, Pulse(25.2));
  s.SetHasStrike(kStrikeA, 2, false);
  EXPECT_EQ(XcorrKindOf(s, 1, 2, kNoStrike), kStrikeB) << "A is not in both, so B";
  EXPECT_EQ(XcorrKindOf(s, 1, 2, kStrikeP), kNoStrike);
  CrossCorrelateTests(s, t.prompts, XcorrOptions{});
  EXPECT_NEAR(s.XcorrLagSamples[2], 52, 0.05);
  EXPECT_EQ(s.XcorrVelocity[2], 0);
}

TEST_F(XcorrTest, TheVelocityTableShowsThemBesideThePicksUntilTheWavesChange) {
  NoDialogs dialogs;
  SeismicController controller(*t.session, t.prompts, dialogs);
  s.IntervalVelocity[2] = 180.5f;
  controller.TrueIntervalVelocities();
  std::vector<VelocityTableRow> rows = VelocityTable(controller);
  ASSERT_EQ(rows.size(), 3u);
  EXPECT_EQ(VelocityTableHeaders(controller)[3], "Vs XCORR");
  EXPECT_EQ(rows[0].xcorr_velocity, "*");
  EXPECT_EQ(rows[1].depth, "3.00");
  EXPECT_EQ(rows[1].velocity, "180.50");
  EXPECT_EQ(rows[1].xcorr_velocity, FormatNumber(s.XcorrVelocity[2], "###0.00"));
  EXPECT_EQ(rows[1].xcorr_velocity.substr(0, 4), "178.");
  EXPECT_EQ(rows[1].coefficient, "1.00");
  EXPECT_EQ(rows[2].velocity, "?");
  // Filtering changes the waves the correlation came from.
  controller.FilterAll();
  EXPECT_FALSE(s.XcorrComputed);
  EXPECT_EQ(VelocityTable(controller)[1].xcorr_velocity, "");
}

}  // namespace
}  // namespace marlview::test
