// ch by Teh and Houlsby against hand-worked numbers, the square-root-time start correction on a
// test with a rising start, and the last computation each test keeps for the AGS export.
#include <gtest/gtest.h>

#include "core/dissipation/consolidation.h"
#include "core/dissipation/t50_utility.h"
#include "support/test_support.h"

namespace marlview {
namespace {

// By hand, a 10 cm2 cone: r2 = 10 / pi cm2 = 3.1831E-04 m2.
TEST(ChFromT50, WorksTheTimeFactorRadiusAndRigidityIndexAsByHand) {
  // u2: 0.245 * 3.1831E-04 * sqrt(100) / 60 s = 1.29977E-05 m2/s.
  EXPECT_NEAR(ChFromT50(60, ChInputs{}), 1.29977e-5, 1e-10);
  // u1: 0.118 * 3.1831E-04 * sqrt(400) / 60 s = 1.25202E-05 m2/s.
  EXPECT_NEAR(ChFromT50(60, ChInputs{400, 10, kFilterU1}), 1.25202e-5, 1e-10);
  ConsolidationResult last;
  EXPECT_EQ(ChResultTexts(last).PerSecondCm2, "");
  last.HasCh = true;
  last.Ch = ChFromT50(60, ChInputs{});
  // 0.129977 cm2/s, and 1.29977E-05 * 31557600 s = 410.175 m2/year.
  EXPECT_EQ(ChResultTexts(last).PerSecondCm2, "1.2998E-01");
  EXPECT_EQ(ChResultTexts(last).PerYearM2, "410.175");
}

TEST(ChInputs, RefusesARigidityIndexOrAreaThatIsNotAboveZero) {
  ScriptedPrompts prompts;
  ChInputs inputs;
  EXPECT_FALSE(ReadChInputs("0", "abc", kFilterU2, inputs, prompts));
  EXPECT_FALSE(ReadChInputs("150", "abc", kFilterU2, inputs, prompts));
  EXPECT_FALSE(ReadChInputs("150", "-10", kFilterU2, inputs, prompts));
  EXPECT_EQ(prompts.Texts(), (std::vector<std::string>{"! Please enter a valid rigidity index",
                                                       "! Please enter a valid cone area",
                                                       "! Please enter a valid cone area"}));
  EXPECT_EQ(inputs.RigidityIndex, 100);
  EXPECT_TRUE(ReadChInputs("150", "15", kFilterU1, inputs, prompts));
  EXPECT_EQ(inputs.RigidityIndex, 150);
  EXPECT_EQ(inputs.ConeAreaCm2, 15);
  EXPECT_EQ(inputs.Filter, kFilterU1);
}

// Test 1 rises from 140 to its largest pressure 196 at 4 s, then falls on sqrt(t - 4) = 0, 1, 2, 3
// through 196, 190, 180, 170, then 150 at 20 s and 130 at 29 s. With U100 = 100 the fit keeps the
// rows down to 100 + 0.6 * 96 = 157.6: four rows, whose least-squares line is p = 197.2 - 8.8 x
// (sums 6, 736, 14, 1060). U50 = 148.6 lies between 150 and 130: t = 20 + 1.4 * 9 / 20 = 20.63 s,
// so T50 = 16.63 s from the peak.
class RootTimeTest : public ::testing::Test {
 protected:
  RootTimeTest() {
    DissipationSet& s = Set();
    s.DissipationCount = 2;
    for (int test : {1, 2}) {
      for (const auto& [time, pressure] : std::initializer_list<std::pair<int, float>>{
               {0, 140}, {2, 180}, {4, 196}, {5, 190}, {8, 180}, {13, 170}, {20, 150}, {29, 130}, {60, 105}}) {
        const int k = DissipationRows::Append(s, test);
        s.RowTime(test, k) = time;
        s.RowPressure(test, k) = pressure;
      }
    }
  }
  DissipationSet& Set() { return t.session->Dissipation(); }
  ChResult Compute(float u0, float u100, bool root_time, int test = 1) {
    return ComputeCh(Set(), ChRequest{test, u0, u100, root_time, ChInputs{}}, t.prompts);
  }
  test::TestSession t;
};

TEST_F(RootTimeTest, FitsFromThePeakAndCountsT50FromIt) {
  const RootTimeFit fit = FitRootTime(Set(), 1, 100);
  EXPECT_EQ(fit.StartRow, 3);
  EXPECT_EQ(fit.StartTime, 4);
  EXPECT_EQ(fit.FitRows, 4);
  EXPECT_NEAR(fit.CorrectedU0, 197.2, 1e-9);
  EXPECT_NEAR(fit.Slope, -8.8, 1e-9);

  const ChResult r = Compute(0, 100, true);
  EXPECT_FLOAT_EQ(r.U0, 196);
  EXPECT_NEAR(*r.Ui, 197.2f, 1e-4);
  EXPECT_NEAR(*r.U50, 148.6f, 1e-4);
  EXPECT_NEAR(*r.T50, 16.63f, 1e-3);
  EXPECT_NEAR(*r.Ch, ChFromT50(16.63, ChInputs{}), 1e-9);
  EXPECT_TRUE(t.prompts.Texts().empty());
  const ConsolidationResult& last = Set().LastConsolidation[1];
  EXPECT_TRUE(last.HasT50 && last.HasCh);
  EXPECT_NEAR(last.U0, 197.2f, 1e-4);
  EXPECT_EQ(last.U100, 100);
  EXPECT_NEAR(last.T50, 16.63f, 1e-3);
  EXPECT_EQ(last.RigidityIndex, 100);

  // Without the correction the rising start brackets U50 = 148 at once: 0 + 8 * 2 / 40 = 0.4 s.
  EXPECT_NEAR(*Compute(196, 100, false).T50, 0.4f, 1e-6);
}

TEST_F(RootTimeTest, TooFewFitRowsOrNoBracketGiveNoCh) {
  Compute(0, 100, true);
  // The floor 180 + 0.6 * 16 = 189.6 keeps 196 and 190 only.
  ChResult r = Compute(0, 180, true);
  EXPECT_FALSE(r.T50 || r.Ch);
  // Down to 0 the fit keeps six rows and U50 falls near 99, below the last row's 105.
  r = Compute(0, 0, true);
  EXPECT_FALSE(r.T50 || r.Ch);
  EXPECT_TRUE(r.Ui);
  EXPECT_EQ(t.prompts.Texts(),
            (std::vector<std::string>{"! TOO FEW ROWS FOR THE SQUARE-ROOT-TIME FIT", "! T50 NOT REACHED"}));
  // The failed computation is the last one made: the earlier ch no longer stands.
  EXPECT_FALSE(Set().LastConsolidation[1].HasT50 || Set().LastConsolidation[1].HasCh);
}

TEST_F(RootTimeTest, EachTestKeepsItsLastComputationThroughMovesAndDeletions) {
  Compute(196, 100, false, 2);
  ASSERT_TRUE(Set().LastConsolidation[2].HasCh);
  // The T50 utility's own T50 of other lines replaces the ch, which belonged to the old T50.
  T50State utility;
  utility.U0 = 196, utility.U100 = 100, utility.U50 = 148, utility.T50 = 0.4f;
  NoteT50(utility, Set(), 2);
  EXPECT_TRUE(Set().LastConsolidation[2].HasCh) << "the same T50 again leaves the ch";
  // U100 = 140: U50 = 168, met between 140 and 180 at 28 * 2 / 40 = 1.4 s.
  utility.U100 = 140, utility.U50 = 168, utility.T50 = 1.4f;
  NoteT50(utility, Set(), 2);
  EXPECT_TRUE(Set().LastConsolidation[2].HasT50);
  EXPECT_FALSE(Set().LastConsolidation[2].HasCh);
  EXPECT_EQ(Set().LastConsolidation[2].U100, 140);
  EXPECT_NEAR(Set().LastConsolidation[2].T50, 1.4f, 1e-6);

  Compute(196, 100, false, 2);
  DissipationRows::RemoveTest(Set(), 1);
  EXPECT_TRUE(Set().LastConsolidation[1].HasCh) << "test 2's record moves with it to number 1";
  EXPECT_FALSE(Set().LastConsolidation[2].HasT50);
}

}  // namespace
}  // namespace marlview
