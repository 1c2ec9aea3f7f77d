// The soil behaviour charts on their own: boundaries, off-chart readings and the 1983 table rules.
#include <gtest/gtest.h>

#include <cmath>

#include "core/common/file_access.h"
#include "core/derivation/sbt1983.h"
#include "core/derivation/sbt1986.h"
#include "core/derivation/sbt1990.h"
#include "support/test_support.h"

namespace marlview {
namespace {

TEST(Chart1986Friction, LimitsOfTheChart) {
  EXPECT_NE(ClassifySoil1986Friction(0.1, 1), 0);
  EXPECT_NE(ClassifySoil1986Friction(100, 1), 0);
  EXPECT_NE(ClassifySoil1986Friction(5, 0), 0);
  EXPECT_NE(ClassifySoil1986Friction(5, 8), 0);
  EXPECT_EQ(ClassifySoil1986Friction(0.0999, 1), 0);
  EXPECT_EQ(ClassifySoil1986Friction(100.001, 1), 0);
  EXPECT_EQ(ClassifySoil1986Friction(5, 8.0001), 0);
  EXPECT_EQ(ClassifySoil1986Friction(5, -0.01), 0);
  // A tip below every curve past the chart's right edge is off the chart, not sensitive soil.
  EXPECT_EQ(ClassifySoil1986Friction(0.05, 9), 0);
}

TEST(Chart1986Friction, ZonesOfThePublishedChart) {
  EXPECT_EQ(ClassifySoil1986Friction(0.2, 6), 2);   // organic, low tip and high friction
  EXPECT_EQ(ClassifySoil1986Friction(30, 0.3), 10);  // gravelly sand
  EXPECT_EQ(ClassifySoil1986Friction(15, 0.6), 9);   // sand
  EXPECT_EQ(ClassifySoil1986Friction(1, 4), 3);      // clay
  EXPECT_EQ(ClassifySoil1986Friction(60, 2.1), 12);  // very stiff sand to clayey sand
  // Very stiff soils are looked for left of 2.2 % only, as the coded chart does.
  EXPECT_LT(ClassifySoil1986Friction(60, 2.3), 11);
}

TEST(Chart1986PorePressure, TipAtTheOverburdenAndLimits) {
  EXPECT_EQ(ClassifySoil1986PorePressure(50, 10, 5, 50, 45), -9);
  EXPECT_EQ(Zone1986PorePressure(10, -0.2001), 0);
  EXPECT_EQ(Zone1986PorePressure(10, 1.4001), 0);
  EXPECT_EQ(Zone1986PorePressure(0.0999, 0.5), 0);
  EXPECT_EQ(Zone1986PorePressure(0.5, 0.8), 3);  // clay: low tip, high pore pressure ratio
  EXPECT_EQ(Zone1986PorePressure(20, 0), 9);     // sand
  // Zones 11 and 12 belong to the friction chart only.
  for (double q = 0.1; q <= 100; q *= 1.3) {
    for (double bq = -0.2; bq <= 1.4; bq += 0.05) {
      const int zone = Zone1986PorePressure(q, bq);
      ASSERT_TRUE(zone >= 0 && zone <= 10) << q << " " << bq;
    }
  }
}

TEST(Chart1990, NormalisedFrictionChart) {
  EXPECT_EQ(Zone1990Qt(100, 0.5), 6);  // clean sand
  EXPECT_EQ(Zone1990Qt(5, 3), 3);      // clay
  EXPECT_EQ(Zone1990Qt(1, 1), 0);
  EXPECT_EQ(Zone1990Qt(1000, 1), 0);
  // Friction ratios of 10 to 20 % extend the chart; 10 itself is on neither side.
  EXPECT_EQ(Zone1990Qt(50, 10), 0);
  EXPECT_EQ(Zone1990Qt(50, 15), 3);
  EXPECT_EQ(Zone1990Qt(100, 15), 9);
  EXPECT_EQ(Zone1990Qt(100, 20), 0);
}

TEST(Chart1990, PorePressureRatioChart) {
  EXPECT_EQ(Zone1990Bq(100, 0), 6);
  EXPECT_EQ(Zone1990Bq(4, 0.6), 3);
  EXPECT_EQ(Zone1990Bq(1, 0.3), 0);
  EXPECT_EQ(Zone1990Bq(50, -0.2), 0);
  EXPECT_EQ(Zone1990Bq(50, 1.4), 0);
  for (double qn = 1.5; qn < 1000; qn *= 1.5) {
    for (double bq = -0.19; bq < 1.4; bq += 0.07) {
      const int zone = Zone1990Bq(qn, bq);
      ASSERT_TRUE(zone != 2 && zone != 8 && zone != 9) << qn << " " << bq;
    }
  }
}

TEST(Chart1990, TipAtTheOverburdenIsMovedByAHair) {
  // Fn and Bq are taken over -0.00001 and so change sign.
  const Normalised1990 n = Normalise1990(50, 1, 20, 10, 50, 30);
  EXPECT_NEAR(n.fn, -1e7, 10);
  EXPECT_NEAR(n.bq, -1e6, 1);
  EXPECT_DOUBLE_EQ(n.qn, 0);
  // An effective stress of 0 divides by a hair too: a huge Qn is off the chart.
  EXPECT_DOUBLE_EQ(Normalise1990(60, 1, 0, 0, 50, 0).qn, 10 / 0.00001);
  EXPECT_EQ(ClassifySoil1990Qt(60, 1, 50, 0), 0);
}

// A small table: two curves over three columns, zone 3 above curve 1 and zone 5 above curve 2,
// curve 2 ending after column 1, and an eighth curve that the lookup never tries.
ChartData SmallChart() {
  ChartData chart;
  SetChartData(chart,
               "8, 3, 0, 8, 0,0,0,0,0,0,0,0\n1, 2, 3\n"
               "1, 1, \"one\", 0, 0\n2, 2, \"two\", 0, 0\n3, 3, \"three\", 0, 0\n4, 4, \"four\", 0, 0\n"
               "5, 5, \"five\", 0, 0\n6, 6, \"six\", 0, 0\n7, 7, \"seven\", 0, 0\n8, 8, \"eight\", 0, 0\n"
               "\"Test chart\"\n"
               "3,1.0, 5,2.0, 0,0, 0,0, 0,0, 0,0, 0,0, 8,0.1\n"
               "3,1.0, 5,2.0, 0,0, 0,0, 0,0, 0,0, 0,0, 8,0.1\n"
               "3,1.2, 6,2.2, 0,0, 0,0, 0,0, 0,0, 0,0, 8,0.1\n"
               "3,1.4, 6,2.4, 0,0, 0,0, 0,0, 0,0, 0,0, 8,0.1\n");
  return chart;
}

TEST(Chart1983, ColumnRulesOfTheLookup) {
  const ChartData chart = SmallChart();
  EXPECT_EQ(chart.ColumnLimit(), 3);
  EXPECT_EQ(chart.NoteText[kChart1983], "*Soil behavior type and SPT based on data from Test chart");
  // r = 0.15 lies between columns 1 and 2: curve 1 carries on and is interpolated (1.1).
  EXPECT_EQ(LookupZone1983(chart, std::pow(10, 1.05), 0.15).zone, 2) << "below every curve: zone 2";
  EXPECT_EQ(LookupZone1983(chart, std::pow(10, 1.15), 0.15).zone, 3);
  // Zone 5 of column 1 is gone in column 2: its boundary is held at 2.0 over the whole tenth.
  EXPECT_EQ(LookupZone1983(chart, std::pow(10, 2.05), 0.19).zone, 5);
  const Zone1983 low = LookupZone1983(chart, 9, 0.1);
  EXPECT_TRUE(low.classified);
  EXPECT_FALSE(low.curve_applied);
  EXPECT_EQ(low.zone, 2);
  EXPECT_EQ(low.spt, 5) << "tip 9 bar over zone 2's ratio of 2, rounded";
  EXPECT_EQ(LookupZone1983(chart, 1000, 0.3).zone, 0) << "at the last column: unclassified";
  EXPECT_EQ(LookupZone1983(chart, 1000, 0.29).zone, 6);
  EXPECT_FALSE(LookupZone1983(chart, 1000, 0).classified);
  EXPECT_FALSE(LookupZone1983(chart, 0, 1).classified);
  // Only curves 1 to 7: the eighth would put every reading in zone 8.
  EXPECT_NE(LookupZone1983(chart, 5, 0.05).zone, 8);
}

TEST(Chart1983, InstalledChartPutsReadingsWellInsideEachZoneInIt) {
  ChartData chart;
  SetChartData(chart, ReadWholeFile(test::DefaultsDirectory() + "/intubc.asc"));
  EXPECT_EQ(chart.Reference, "Robertson and Campanella (1983)");
  const struct {
    double rf, qc_bar;
    const char* zone;
  } points[] = {
      {0.3, 300, "Sands"},        {1.0, 100, "Silty sands"}, {1.8, 100, "Sandy silts and silts"},
      {2.5, 60, "Clayey silts"},  {3.0, 20, "Silty clays"},   {4.5, 8, "Clays"},
      {5.5, 3, "Peat"},
  };
  for (const auto& p : points) {
    const Zone1983 z = LookupZone1983(chart, p.qc_bar, p.rf);
    ASSERT_GT(z.zone, 0);
    EXPECT_EQ(chart.SbtLegendLabels[kChart1983][static_cast<size_t>(z.zone)], p.zone) << p.rf << " " << p.qc_bar;
  }
  EXPECT_EQ(chart.SbtLabels[kChart1990][8], "   Very stiff sand to clayey sand **     ");
  EXPECT_EQ(chart.SbtLabels[kChart1986][8], "    sand to silty sand     ");
  EXPECT_EQ(chart.OutOfRange1986.size(), 27u);
  EXPECT_EQ(chart.OutOfRange1990.size(), 41u);
}

TEST(Chart1983, AMalformedFileFails) {
  ChartData chart;
  EXPECT_FAILURE(SetChartData(chart, "7, 60, 0, 7"), kErrPastEndOfFile, "");
  EXPECT_FAILURE(SetChartData(chart, "7, 200, 0, 7, 0,0,0,0,0,0,0,0, 1,2,3"), kErrSubscript, "");
  EXPECT_FAILURE(SetChartData(chart, "seven"), kErrTypeMismatch, "");
}

}  // namespace
}  // namespace marlview
