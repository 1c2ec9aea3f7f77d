// The sounding plot engine on the recording surface.
#include <gtest/gtest.h>

#include <cmath>

#include "core/io/dat_reader.h"
#include "core/presentation/recording_surface.h"
#include "core/presentation/sounding_plot.h"
#include "support/test_support.h"

namespace marlview {
namespace {

class PlotTest : public ::testing::Test {
 protected:
  void Open(const test::DatFile& file) { ASSERT_EQ(test::OpenSounding(t, file), ReadOutcome::kLoaded); }
  SoundingStore& s() { return t.session->Sounding(); }
  void Draw(RecordingSurface& surface) { GraphData(surface, 1600, 1200, plot, *t.session); }

  test::TestSession t;
  PlotState plot;
};

TEST(StepFinder, StepsAndMinorTicksFromTheAxisMaximum) {
  EXPECT_EQ(FindAxisSteps(10, 0).step, 1);
  EXPECT_EQ(FindAxisSteps(10, 0).minor, 1) << "a step of 1 over a range of 3 or more";
  EXPECT_EQ(FindAxisSteps(10.0001, 0).step, 2);
  EXPECT_EQ(FindAxisSteps(10.0001, 0).minor, 3);
  const AxisSteps zero = FindAxisSteps(0, 0);
  EXPECT_EQ(zero.step, 1);
  EXPECT_EQ(zero.minor, 10);
  EXPECT_EQ(zero.upper, 1.0);
  const AxisSteps one = FindAxisSteps(5, 4);
  EXPECT_EQ(one.step, 1);
  EXPECT_EQ(one.minor, 10) << "a range of exactly 1";
  EXPECT_EQ(FindAxisSteps(2.5, 0).minor, 9);
  EXPECT_EQ(FindAxisSteps(-450, -600).step, 50);
  EXPECT_EQ(FindAxisSteps(350000, 0).step, 50000);
  EXPECT_EQ(FindAxisSteps(2e6, 0).upper, 1e6);
}

TEST_F(PlotTest, ColumnsShareThePlotWidthAndATipColumnTakesTwoShares) {
  Open(test::SimpleDat(10));
  plot.PlotAreaLeft = 100;
  plot.PlotAreaWidth = 1000;
  const int tip = s().TipChannel, fr = s().FrictionRatioQcChannel;
  const double tip_widths[] = {0, 1000, 666, 500, 400, 333, 285};
  const double other_widths[] = {0, 1000, 333, 250, 200, 166, 142};
  const double equal_widths[] = {0, 1000, 500, 333, 250, 200, 166};
  for (int n = 1; n <= 6; ++n) {
    plot.PlotChannelCount = n;
    for (int i = 1; i <= n; ++i) plot.PlotChannels[i] = i == 2 ? tip : fr;
    DivideColumns(plot, s());
    EXPECT_EQ(plot.PlotColumnLeft[1], 100) << n;
    for (int i = 1; i <= n; ++i) {
      const double expected = n == 1 ? 1000 : (i == 2 ? tip_widths[n] : other_widths[n]);
      EXPECT_EQ(plot.PlotColumnWidth[i], expected) << n << " columns, column " << i;
      if (i > 1) {
        EXPECT_EQ(plot.PlotColumnLeft[i], plot.PlotColumnLeft[i - 1] + plot.PlotColumnWidth[i - 1]);
      }
    }
    for (int i = 1; i <= n; ++i) plot.PlotChannels[i] = fr;
    DivideColumns(plot, s());
    EXPECT_EQ(plot.PlotColumnWidth[n], equal_widths[n]) << n;
  }
}

TEST_F(PlotTest, SegmentsAreCutAtTheLimitsAndDroppedBeyondThem) {
  test::DatFile file = test::SimpleDat(0);
  // Tip values 0.05, 0.15, 0.25 psi at 1, 2, 3 m.
  for (int r = 1; r <= 3; ++r) file.rows.push_back({1.0 * r, 0.1 * r - 0.05, 0.001, 0.0});
  Open(file);
  SetupPlot(plot, *t.session, {s().TipChannel}, 1);
  ASSERT_TRUE(ApplyUserScale(plot, 1, 3, {{0, 0.2, false}}, t.prompts));
  RecordingSurface surface;
  Draw(surface);
  std::vector<RecordedCall> red;
  for (const auto& line : surface.Lines()) {
    if (line.colour == kRed) red.push_back(line);
  }
  ASSERT_EQ(red.size(), 2u);
  const double right = plot.PlotColumnLeft[1] + plot.PlotColumnWidth[1];
  // The first segment lies inside; the second is cut where it leaves the value axis, halfway down.
  EXPECT_NEAR(red[1].x2, right, 1e-6);
  EXPECT_NEAR(red[1].y2, DepthToY(plot, 2.5), 1e-3);
  // A segment beyond one limit at both ends is not drawn at all.
  ASSERT_TRUE(ApplyUserScale(plot, 1, 3, {{0.3, 0.5, false}}, t.prompts));
  RecordingSurface beyond;
  Draw(beyond);
  for (const auto& line : beyond.Lines()) EXPECT_NE(line.colour, kRed);
}

TEST_F(PlotTest, ZonesAreBarsInTheirColoursAndZoneZeroDrawsNothing) {
  Open(test::SimpleDat(20));
  SetupPlot(plot, *t.session, {s().Sbt90QtChannel}, 3);
  EXPECT_EQ(plot.AxisMax[1], 9);
  const int c = s().Sbt90QtChannel;
  for (int r = 1; r <= 20; ++r) s().AlignedReadings(r, KindColumn(c, 0)) = r <= 10 ? 0.0f : 6.0f;
  RecordingSurface surface;
  Draw(surface);
  int bars = 0;
  for (const auto& call : surface.Calls()) {
    if (call.kind == RecordedCall::kBox && call.filled) {
      ++bars;
      EXPECT_EQ(call.colour, (Colour{128, 128, 0}));
      EXPECT_GE(call.y1, DepthToY(plot, 0.20) - 1e-6) << "nothing above the classified readings";
    }
  }
  EXPECT_EQ(bars, 10);
  EXPECT_TRUE(surface.HasText("SBT/SPT CORRELATION: Robertson 1990"));
  EXPECT_EQ(ZoneColour(2, 30), (Colour{206, 206, 206}));
  EXPECT_EQ(ZoneColour(1, 30), (Colour{255, 30, 30}));
}

TEST_F(PlotTest, ElevationReadsDownwardFromZeroAndFeetConvert) {
  Open(test::SimpleDat(50));
  SetupPlot(plot, *t.session, {s().TipChannel}, 1);
  plot.ElevationMode = true;
  RecordingSurface surface;
  Draw(surface);
  EXPECT_TRUE(surface.HasText("Elev. (m)"));
  EXPECT_TRUE(surface.HasText("-1"));
  t.session->DepthUnitIsMetric = 0;
  SetupPlot(plot, *t.session, {s().TipChannel}, 1);
  EXPECT_NEAR(plot.DepthAxisMax, 1.0 * kFeetPerMetre, 1e-4);
}

TEST_F(PlotTest, OneReadingDrawsNoCurveAndTheMouseReadsValues) {
  Open(test::SimpleDat(1));
  SetupPlot(plot, *t.session, {s().TipChannel, s().PorePressureChannel}, 1);
  RecordingSurface surface;
  Draw(surface);
  for (const auto& line : surface.Lines()) EXPECT_NE(line.colour, kRed);
  EXPECT_TRUE(surface.HasText("WT: 2.40 (m)")) << "the file's water table, below the only reading";

  Open(test::SimpleDat(10));
  SetupPlot(plot, *t.session, {s().TipChannel, s().PorePressureChannel}, 1);
  Draw(surface);
  const auto inside = ReadoutAt(plot, *t.session, plot.PlotAreaLeft + 10, DepthToY(plot, 0.05));
  ASSERT_TRUE(inside.has_value());
  EXPECT_EQ(inside->depth, "0.06 (m)");
  ASSERT_EQ(inside->values.size(), 2u);
  EXPECT_EQ(inside->values[0], "0.103");
  EXPECT_FALSE(ReadoutAt(plot, *t.session, 0, DepthToY(plot, 0.05)).has_value());
  // The marker line of a reading leaves the axis minimum in, as it always did.
  EXPECT_NEAR(*LineDrawY(plot, *t.session, 2),
              0.04 / (plot.DepthAxisMax - plot.DepthAxisMin) * plot.PlotAreaHeight + plot.PlotAreaTop, 1e-3);
  EXPECT_FALSE(LineDrawY(plot, *t.session, 0).has_value());
}

TEST_F(PlotTest, CommentsAreCheckedInTheirOrder) {
  Open(test::SimpleDat(50));
  SetupPlot(plot, *t.session, {s().TipChannel}, 1);
  EXPECT_FALSE(AddComment(plot, *t.session, "", "", t.prompts));
  EXPECT_FALSE(AddComment(plot, *t.session, "Gravel", "", t.prompts));
  EXPECT_FALSE(AddComment(plot, *t.session, "Gravel", "0.01", t.prompts));
  EXPECT_FALSE(AddComment(plot, *t.session, "Gravel", "9", t.prompts));
  EXPECT_TRUE(AddComment(plot, *t.session, "Gravel", "0.5", t.prompts));
  const std::vector<std::string> expected = {"! NO TEXT TO PLACE", "! NO DEPTH SPECIFIED",
                                             "! DEPTH MUST BE GREATER THAN: 0.02 (m)",
                                             "! DEPTH MUST BE LESS THAN: 1.00 (m)"};
  EXPECT_EQ(t.prompts.Log(), expected);
  RecordingSurface surface;
  Draw(surface);
  EXPECT_TRUE(surface.HasText("Gravel"));
}

TEST_F(PlotTest, ScaleFilesRoundTripAndRefuseOtherUnits) {
  Open(test::SimpleDat(50));
  SetupPlot(plot, *t.session, {s().TipChannel, s().SleeveChannel}, 1);
  ASSERT_TRUE(ApplyUserScale(plot, 0.1, 0.9, {{0, 5, true}, {1, 2, false}}, t.prompts));
  const std::string scale = WriteScaleFile(plot, s());
  PlotState other;
  SetupPlot(other, *t.session, {s().SleeveChannel, s().TipChannel}, 1);
  LoadScaleFile(other, s(), scale, t.prompts);
  EXPECT_EQ(other.DepthAxisMin, 0.1);
  EXPECT_EQ(other.AxisMax[2], 5);
  EXPECT_TRUE(other.AxisMinorTicks[2]);
  EXPECT_EQ(other.AxisMin[1], 1);
  EXPECT_TRUE(t.prompts.Log().empty());

  // Saved in metres, loaded on a plot in feet with the tip now shown in another unit.
  PlotState feet;
  t.session->DepthUnitIsMetric = 0;
  SetupPlot(feet, *t.session, {s().TipChannel, s().SleeveChannel}, 1);
  const double depth_max = feet.DepthAxisMax;
  s().ChannelDisplayUnit[s().TipChannel][kGraphOutput] = kKpaUnit;
  LoadScaleFile(feet, s(), scale, t.prompts);
  const std::vector<std::string> expected = {
      "! Saved depth scale is in meters. Current depth units are in feet. Cannot set depth min/max",
      "! Cannot load scale for Tip Resistance (Qc) because current units do not match saved scale units."};
  EXPECT_EQ(t.prompts.Log(), expected);
  EXPECT_EQ(feet.DepthAxisMax, depth_max);
  EXPECT_EQ(feet.AxisMax[2], 2) << "the sleeve still takes its scale";
  EXPECT_FALSE(ApplyUserScale(feet, 1, 1, {}, t.prompts));
  EXPECT_EQ(t.prompts.Log().back(), "! MIN value(s) must be less than MAX value(s)");
}

}  // namespace
}  // namespace marlview
