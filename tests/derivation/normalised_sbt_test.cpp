// The normalised soil behaviour type of single readings, in kPa, against values worked by hand.
#include <gtest/gtest.h>

#include "core/derivation/normalised_sbt.h"

namespace marlview {
namespace {

TEST(NormalisedSbt, ClayStopsAtTheUpperLimitOfTheExponent) {
  // qt 1000, fs 30, sigma_v0 150, sigma'_v0 80 kPa: net 850, Fr = 3000 / 850 = 3.5294 %.
  // n = 1: Qtn = 8.5 x 100 / 80 = 10.625; Ic = sqrt((3.47 - 1.02633)^2 + (0.54770 + 1.22)^2) = 3.01601;
  // n' = 0.381 x 3.01601 + 0.04 - 0.15 = 1.0391, held at 1, the same n: done after one pass.
  const NormalisedSbt clay = ClassifyNormalised({1000, 30, 150, 80, 400, 70});
  EXPECT_EQ(clay.n, 1);
  EXPECT_NEAR(clay.qtn, 10.625, 1e-9);
  EXPECT_NEAR(clay.fr, 3.529412, 1e-6);
  EXPECT_NEAR(clay.ic, 3.016007, 1e-6);
  EXPECT_NEAR(clay.bq, 330.0 / 850, 1e-9);
  // Zone 3 on the 1990 chart, and 2.95 < Ic <= 3.60 by the index.
  EXPECT_EQ(clay.zone, 3);
}

TEST(NormalisedSbt, SandIteratesToItsExponent) {
  // qt 15000, fs 90, sigma_v0 100, sigma'_v0 60: net 14900, Fr 0.604027 %.
  // n 1 -> 0.439650 -> 0.475187 -> 0.472885 -> 0.473034 -> 0.473024 -> 0.4730246 (settled).
  const NormalisedSbt sand = ClassifyNormalised({15000, 90, 100, 60, 50, 40});
  EXPECT_NEAR(sand.n, 0.4730246, 1e-6);
  EXPECT_NEAR(sand.qtn, 189.7257, 1e-3);
  EXPECT_NEAR(sand.fr, 0.604027, 1e-6);
  EXPECT_NEAR(sand.ic, 1.556495, 1e-5);
  EXPECT_EQ(sand.zone, 6);
}

TEST(NormalisedSbt, ExponentHeldAtZero) {
  // A very high tip at almost no stress: n 1 -> 0.6152 -> 0.3220 -> 0.0986 -> below 0, held at 0.
  // With n = 0, Qtn = 299998 / 100 = 2999.98 and Fr = 18000 / 299998 = 0.06 %: Ic = 0.00735.
  const NormalisedSbt row = ClassifyNormalised({300000, 180, 2, 1, 0, 0});
  EXPECT_EQ(row.n, 0);
  EXPECT_NEAR(row.qtn, 2999.98, 1e-6);
  EXPECT_NEAR(row.ic, 0.007354, 1e-6);
  // Off the 1990 chart (Fr below 0.1 %), so the index decides: Ic <= 1.31 is zone 7.
  EXPECT_EQ(row.zone, 7);
}

TEST(NormalisedSbt, ReadingsThatCannotBeNormalisedAreZero) {
  const NormalisedInput cases[] = {
      {150, 30, 150, 80, 10, 0},   // qt at the overburden
      {140, 30, 150, 80, 10, 0},   // qt below it
      {1000, 0, 150, 80, 10, 0},   // no sleeve friction
      {1000, -1, 150, 80, 10, 0},  // negative sleeve friction
      {1000, 30, 150, 0, 10, 0},   // no effective stress
      {1000, 30, 150, -5, 10, 0},  // negative effective stress
  };
  for (const NormalisedInput& in : cases) {
    const NormalisedSbt out = ClassifyNormalised(in);
    EXPECT_TRUE(out.n == 0 && out.qtn == 0 && out.fr == 0 && out.ic == 0 && out.zone == 0 && out.bq == 0);
  }
}

TEST(NormalisedSbt, ChartZonesOneEightAndNineStandOverTheIndex) {
  // Fr 1 %: C11 = 11.66 - 13.23 + 4.41 + 0.7095 - 0.5156 = 3.034 above Qtn 2: zone 1.
  EXPECT_EQ(SbtnZone(2, 1, 2.0), 1);
  // Fr 2 %, Qtn 500: above C4 = 2.57 and C5 = 0.005, beyond C8 = 398 and C10 = 227: zone 8.
  EXPECT_EQ(SbtnZone(500, 2, 1.0), 8);
  // Fr 6 %, Qtn 500: below C4 = 922: zone 9.
  EXPECT_EQ(SbtnZone(500, 6, 3.0), 9);
}

TEST(NormalisedSbt, IndexBandsIncludeTheirUpperEdge) {
  // Qtn 0.5 is below the chart, so only the index counts.
  const std::pair<double, int> edges[] = {{1.31, 7}, {1.3101, 6}, {2.05, 6}, {2.0501, 5}, {2.60, 5},
                                          {2.6001, 4}, {2.95, 4}, {2.9501, 3}, {3.60, 3}, {3.6001, 2}};
  for (const auto& edge : edges) EXPECT_EQ(SbtnZone(0.5, 1, edge.first), edge.second) << edge.first;
}

}  // namespace
}  // namespace marlview
