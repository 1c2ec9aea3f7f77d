// The T50 utility: start geometry, the slope line cut to the plot, U0 in both modes, the bracket
// search, the held buttons and their limits, and the pivot kept on its pressure.
#include <gtest/gtest.h>

#include <cmath>

#include "core/dissipation/t50_utility.h"
#include "core/presentation/recording_surface.h"
#include "support/test_support.h"

namespace marlview {
namespace {

class T50Test : public ::testing::Test {
 protected:
  T50Test() {
    DissipationSet& s = t.session->Dissipation();
    s.DissipationCount = 1;
    s.TestDepth[1] = 10;
    // 500 kPa falling to 100 kPa: 300 kPa is crossed between 60 s and 120 s.
    for (const auto& [time, pressure] :
         std::initializer_list<std::pair<int, float>>{{0, 500}, {60, 400}, {120, 200}, {600, 100}}) {
      const int k = DissipationRows::Append(s, 1);
      s.RowTime(1, k) = time;
      s.RowPressure(1, k) = pressure;
    }
    ComputeMaxPercent(s, 1);
    plot.selection.SelectedFlag[1] = kSelectedFlag;
    plot.selection.SelectedCount = 1;
    plot.selection.LastSelected = 1;
    // A rectangle of 10000 x 5000 units for 0..500 kPa over 0..10 minutes.
    plot.PlotLeft = 1000, plot.PlotRight = 11000, plot.PlotWidth = 10000;
    plot.PlotTop = 500, plot.PlotBottom = 5500, plot.PlotHeight = 5000;
    plot.PressureMin = 0, plot.PressureMax = 500, plot.TimeMin = 0, plot.TimeMax = 10;
  }
  const DissipationSet& Set() const { return t.session->Dissipation(); }

  test::TestSession t;
  DissipationPlotState plot;
};

TEST_F(T50Test, StartsOnTheMiddleOfThePlotWithManualLinesAtFortyAndSixtyPercent) {
  T50State t50 = StartT50(plot, kU0Manual);
  EXPECT_EQ(t50.SlopePivotX, 6000);
  EXPECT_EQ(t50.SlopePivotY, 3000);
  EXPECT_FLOAT_EQ(t50.SlopeAngle, 0.762f);
  EXPECT_EQ(t50.U0LineY, 2500);
  EXPECT_EQ(t50.U100LineY, 3500);
  DrawSlopeLine(t50, plot, Set());
  EXPECT_FLOAT_EQ(t50.U0, 300);
  EXPECT_FLOAT_EQ(t50.U100, 200);
  EXPECT_FLOAT_EQ(t50.U50, 250);
  ASSERT_TRUE(t50.T50);
  EXPECT_FLOAT_EQ(*t50.T50, 60 + (250 - 400) * 60.0f / (200 - 400));
  EXPECT_EQ(t50.lines.t50_text, "T50: 105.0 Sec");
  EXPECT_EQ(t50.lines.u0_text, "U0: 300.00");
  EXPECT_EQ(t50.lines.u50_text, "U50: 250.000");
  EXPECT_DOUBLE_EQ(*t50.lines.t50_x, 105.0 / 60 / 10);
  ASSERT_TRUE(plot.overlay);
  // The lines go to the plot, which draws them where they were set.
  RecordingSurface surface(1200, 900);
  GraphDissipation(surface, 18000, 13500, plot, *t.session);
  EXPECT_TRUE(surface.HasText("T50: 105.0 Sec"));
  EXPECT_TRUE(surface.HasText("U100: 200.00"));
  // A printed page gives every value with two decimals.
  RecordingSurface page(1200, 900, true);
  GraphDissipation(page, 18000, 13500, plot, *t.session);
  EXPECT_TRUE(page.HasText("U50: 250.00"));
  EXPECT_TRUE(page.HasText("T50: 105.00 Sec"));
}

TEST_F(T50Test, TheSlopeLineIsCutWhereItLeavesThePlot) {
  T50State t50 = StartT50(plot, kU0StraightLine);
  DrawSlopeLine(t50, plot, Set());
  // tan(0.762) x 5000 = 4740 units: both ends leave through the top and bottom.
  const double rise = 5000 * std::tan(0.762);
  EXPECT_DOUBLE_EQ(t50.lines.slope_y1, 0);
  EXPECT_NEAR(t50.lines.slope_x1, (6000 - 2500 / std::tan(0.762) - 1000) / 10000.0, 1e-6);
  EXPECT_DOUBLE_EQ(t50.lines.slope_y2, 1);
  // U0 comes from the line's height at the left edge, beyond the plot and unclamped.
  EXPECT_NEAR(t50.U0, (5500 - (3000 - rise)) / 5000.0 * 500, 0.01);
  EXPECT_GT(t50.U0, 500);
  EXPECT_DOUBLE_EQ(t50.lines.u0_y, 0);  // the line itself stays on the plot
  // A level line never leaves through the top or bottom.
  t50.SlopeAngle = 0;
  DrawSlopeLine(t50, plot, Set());
  EXPECT_DOUBLE_EQ(t50.lines.slope_x1, 0);
  EXPECT_DOUBLE_EQ(t50.lines.slope_x2, 1);
  EXPECT_FLOAT_EQ(t50.U0, 250);
}

TEST_F(T50Test, BracketRules) {
  // U100 equal to U0: U50 is both, and the first pair that touches it gives T50.
  T50State t50 = StartT50(plot, kU0Manual);
  t50.U0LineY = t50.U100LineY = 3500;  // 200 kPa, the third row exactly
  DrawSlopeLine(t50, plot, Set());
  EXPECT_FLOAT_EQ(t50.U50, 200);
  EXPECT_FLOAT_EQ(*t50.T50, 120);
  // No crossing: the T50 found before stays, on screen too.
  t50.U0LineY = t50.U100LineY = 500;  // 500 kPa ... touched by the first row
  DrawSlopeLine(t50, plot, Set());
  EXPECT_FLOAT_EQ(*t50.T50, 0);
  t50.U0LineY = 500;
  t50.U100LineY = 500;
  plot.PressureMax = 1000;  // the lines now stand for 1000 kPa, above every row
  DrawSlopeLine(t50, plot, Set());
  EXPECT_FLOAT_EQ(t50.U50, 1000);
  EXPECT_FLOAT_EQ(*t50.T50, 0);
  EXPECT_EQ(t50.lines.t50_text, "T50: 0.0 Sec");
  // A flat pair at U50 gives the first row's time.
  DissipationSet& s = t.session->Dissipation();
  s.RowPressure(1, 2) = s.RowPressure(1, 3) = 300;
  EXPECT_FLOAT_EQ(*FindT50(s, 1, 300), 60);
  EXPECT_FALSE(FindT50(s, 1, 50));
}

TEST_F(T50Test, HeldButtonsSpeedUpToFortyUnitsAndStopAtTheirLimits) {
  T50State t50 = StartT50(plot, kU0Manual);
  PressRepeat(t50, kMoveRight);
  int moved = 0;
  for (int tick = 1; tick <= 45; ++tick) {
    const int before = t50.SlopePivotX;
    RepeatTick(t50, plot);
    moved = t50.SlopePivotX - before;
    if (tick <= 40) {
      EXPECT_EQ(moved, tick);
    }
  }
  EXPECT_EQ(moved, 40);
  ReleaseRepeat(t50);
  const int32_t still = t50.SlopePivotX;
  RepeatTick(t50, plot);
  EXPECT_EQ(t50.SlopePivotX, still);

  PressRepeat(t50, kClockwise);
  for (int tick = 0; tick < 200; ++tick) RepeatTick(t50, plot);
  EXPECT_FLOAT_EQ(t50.SlopeAngle, kSlopeAngleLimit);
  DrawSlopeLine(t50, plot, Set());  // a steep line still cuts cleanly
  EXPECT_TRUE(std::isfinite(t50.lines.slope_x1));
  PressRepeat(t50, kCounterClockwise);
  for (int tick = 0; tick < 300; ++tick) RepeatTick(t50, plot);
  EXPECT_FLOAT_EQ(t50.SlopeAngle, -kSlopeAngleLimit);
  EXPECT_GT(std::cos(t50.SlopeAngle), 0);

  PressRepeat(t50, kUpU100);
  for (int tick = 0; tick < 200; ++tick) RepeatTick(t50, plot);
  EXPECT_EQ(t50.U100LineY, plot.PlotTop);
  PressRepeat(t50, kDownU0);
  for (int tick = 0; tick < 200; ++tick) RepeatTick(t50, plot);
  EXPECT_EQ(t50.U0LineY, plot.PlotBottom);
  PressRepeat(t50, kMoveLeft);
  for (int tick = 0; tick < 400; ++tick) RepeatTick(t50, plot);
  EXPECT_EQ(t50.SlopePivotX, plot.PlotLeft);
}

TEST_F(T50Test, InManualModeTheSlopeButtonsDoNotMoveU0) {
  T50State t50 = StartT50(plot, kU0Manual);
  DrawSlopeLine(t50, plot, Set());
  const float u0 = t50.U0;
  PressRepeat(t50, kClockwise);
  for (int tick = 0; tick < 20; ++tick) RepeatTick(t50, plot);
  DrawSlopeLine(t50, plot, Set());
  EXPECT_FLOAT_EQ(t50.U0, u0);
  EXPECT_NE(t50.SlopeAngle, kStartSlopeAngle);
}

TEST_F(T50Test, ARescaleKeepsThePivotOnItsPressure) {
  T50State t50 = StartT50(plot, kU0StraightLine);
  DrawSlopeLine(t50, plot, Set());
  EXPECT_FLOAT_EQ(t50.PivotPressure, 250);
  ASSERT_TRUE(SetT50Scale(plot, "100", "300", t.prompts));
  EXPECT_TRUE(plot.ManualScale);
  RescaleT50(t50, plot, Set());
  EXPECT_EQ(t50.SlopePivotY, 5500 - 3750);
  EXPECT_FLOAT_EQ(t50.PivotPressure, 250);
  EXPECT_EQ(T50ScaleText(plot.PressureMax), "300");
  EXPECT_FALSE(SetT50Scale(plot, "300", "100", t.prompts));
  EXPECT_EQ(t.prompts.Texts().back(), "! Min pressure must be less than max pressure.");
  // A reset scales to the data again: 100 to 500 kPa.
  plot.ManualScale = false;
  RescaleT50(t50, plot, Set());
  EXPECT_EQ(plot.PressureMin, 100);
  EXPECT_EQ(plot.PressureMax, 500);
  EXPECT_EQ(t50.SlopePivotY, 5500 - 1875);
}

}  // namespace
}  // namespace marlview
