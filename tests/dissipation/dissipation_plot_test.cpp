// The axis step table, the plot's scales and mapping, its modes and gates, the footer, the scale
// dialog and the default time format.
#include "core/dissipation/dissipation_plot.h"

#include <gtest/gtest.h>

#include <cmath>

#include "core/common/file_access.h"
#include "core/presentation/axis_scale.h"
#include "core/presentation/recording_surface.h"
#include "support/test_support.h"

namespace marlview {
namespace {

struct AxisCase {
  float max, min;
  float step, snapped_max, snapped_min;
  int16_t major, minor;
};

TEST(SetAxisScaleTest, StepsFromTheTableAndLimitsOnItsMultiples) {
  const AxisCase cases[] = {
      {10, 0, 1, 10, 0, 10, 10},
      {10.0001f, 0, 2, 12, 0, 6, 1},
      {637.4f, 41.2f, 100, 700, 0, 7, 5},
      {30, 0, 5, 30, 0, 6, 5},
      {-3.5f, -17.2f, 2, -2, -18, 8, 1},
      {0, 0, 1, 1, 0, 1, 10},  // a flat zero line still gets a span of one step
      {2.6f, 1.8f, 1, 3, 1, 2, 10},
      {1.5f, 1.2f, 1, 2, 1, 1, 10},  // one unit apart: step 1 and ten minor divisions
      {750000, 5, 100000, 1000000, 0, 10, 4},
  };
  for (const AxisCase& c : cases) {
    float max = c.max, min = c.min, step = 0;
    int16_t major = 0, minor = 0;
    SetAxisScale(max, min, step, major, minor);
    EXPECT_EQ(step, c.step) << c.max << " " << c.min;
    EXPECT_EQ(max, c.snapped_max) << c.max << " " << c.min;
    EXPECT_EQ(min, c.snapped_min) << c.max << " " << c.min;
    EXPECT_EQ(major, c.major) << c.max << " " << c.min;
    EXPECT_EQ(minor, c.minor) << c.max << " " << c.min;
  }
}

class DissipationPlotTest : public ::testing::Test {
 protected:
  DissipationPlotTest() {
    DissipationSet& s = Set();
    s.FileKind = kFieldboxDissipation;
    s.PressureUnitIndex = 2;
    s.PressurePerMetreHead = 9.806f;
    s.DissipationFileName = "DIS-T01.DIS";
    s.DissipationCount = 2;
    s.TestDepth[1] = 6.5f;
    s.TestDepth[2] = 12.8f;
    // Test 1 falls from 400 to 100 kPa over 30 minutes; test 2 from 600 to 300 over 10.
    AddRows(1, {{0, 400}, {60, 300}, {600, 150}, {1800, 100}});
    AddRows(2, {{1, 600}, {600, 300}});
    for (int i = 1; i <= 2; ++i) {
      ComputeMaxPercent(s, i);
      ComputeHeadPercent(s, i);
    }
  }
  void AddRows(int test, std::initializer_list<std::pair<int, float>> rows) {
    for (const auto& [time, pressure] : rows) {
      const int k = DissipationRows::Append(Set(), test);
      Set().RowTime(test, k) = time;
      Set().RowPressure(test, k) = pressure;
    }
  }
  DissipationSet& Set() { return t.session->Dissipation(); }
  DissipationPlotState Plot(std::initializer_list<int> tests) {
    DissipationSelection selection;
    for (int test : tests) {
      selection.SelectedFlag[static_cast<size_t>(test)] = kSelectedFlag;
      if (selection.SelectedCount++ == 0) selection.ShallowSelected = test;
      selection.DeepSelected = selection.LastSelected = test;
    }
    return NewDissipationPlot(*t.session, selection);
  }
  RecordingSurface Draw(DissipationPlotState& plot) {
    RecordingSurface surface(1200, 900);
    GraphDissipation(surface, 18000, 13500, plot, *t.session);
    return surface;
  }
  // The lines of the curve of test, in the colour the plot gives it.
  static std::vector<RecordedCall> CurveLines(const RecordingSurface& surface, Colour colour) {
    std::vector<RecordedCall> lines;
    for (const RecordedCall& call : surface.Lines()) {
      if (call.colour == colour) lines.push_back(call);
    }
    return lines;
  }

  test::TestSession t;
};

const Colour kFirstTestColour{0, 0, 255};
const Colour kSecondTestColour{255, 0, 0};

TEST_F(DissipationPlotTest, AutoscaleOverTheSelectedTestsInEachTimeForm) {
  DissipationPlotState plot = Plot({1, 2});
  AutoScaleDissipation(plot, Set());
  EXPECT_EQ(plot.TimeMax, 30);  // minutes
  EXPECT_EQ(plot.TimeStep, 5);
  EXPECT_EQ(plot.PressureMin, 100);
  EXPECT_EQ(plot.PressureMax, 600);
  EXPECT_EQ(plot.PressureStep, 50);
  EXPECT_EQ(plot.PressureMajor, 11);  // ten divisions, eleven labels
  plot.TimeFormat = kSquareRootTime;
  AutoScaleDissipation(plot, Set());
  EXPECT_EQ(plot.TimeMax, 45);  // sqrt(1800) = 42.4 root-seconds, snapped up
  plot.TimeFormat = kLogTime;
  AutoScaleDissipation(plot, Set());
  EXPECT_EQ(plot.TimeDecades, 4);  // 1800 s lies beyond 10^3
  EXPECT_DOUBLE_EQ(TimeFraction(plot, 100), 0.5);
}

TEST_F(DissipationPlotTest, RowsAreMappedOntoThePlotRectangle) {
  DissipationPlotState plot = Plot({1});
  const RecordingSurface surface = Draw(plot);
  const std::vector<RecordedCall> curve = CurveLines(surface, kFirstTestColour);
  // The legend's sample stroke is drawn after the curve.
  // The axis runs from 100 to 400 kPa over 30 minutes.
  ASSERT_EQ(curve.size(), 4u);
  EXPECT_DOUBLE_EQ(curve[0].x1, plot.PlotLeft);
  EXPECT_DOUBLE_EQ(curve[0].y1, plot.PlotTop);
  EXPECT_DOUBLE_EQ(curve[1].x2, plot.PlotLeft + plot.PlotWidth / 3.0);
  EXPECT_DOUBLE_EQ(curve[1].y2, plot.PlotTop + plot.PlotHeight * 250.0 / 300.0);
  EXPECT_DOUBLE_EQ(curve[2].x2, plot.PlotRight);
  EXPECT_DOUBLE_EQ(curve[2].y2, plot.PlotBottom);
  EXPECT_TRUE(surface.HasText("PRESSURE (kPa)"));
  EXPECT_TRUE(surface.HasText("TIME: (MINUTES)"));
  EXPECT_TRUE(surface.HasText("PORE PRESSURE DISSIPATION PLOT: DIS-T01.DIS"));
  EXPECT_TRUE(surface.HasText("DEPTH (m)"));
  EXPECT_TRUE(surface.HasText("6.50"));
  EXPECT_TRUE(surface.HasText("MAXIMUM PRESSURE = 400.0 (kPa)"));
  EXPECT_TRUE(surface.HasText("HYDROSTATIC PRESSURE = N/A , WATER TABLE: UNDEFINED"));
}

TEST_F(DissipationPlotTest, TheLogAxisPutsTheFirstRowOnTheLeftEdge) {
  DissipationPlotState plot = Plot({1});
  plot.TimeFormat = kLogTime;
  const RecordingSurface surface = Draw(plot);
  const std::vector<RecordedCall> curve = CurveLines(surface, kFirstTestColour);
  ASSERT_FALSE(curve.empty());
  EXPECT_DOUBLE_EQ(curve[0].x1, plot.PlotLeft);  // t = 0
  EXPECT_DOUBLE_EQ(curve[0].x2, plot.PlotLeft + std::log10(60.0) / 4 * plot.PlotWidth);
  EXPECT_TRUE(surface.HasText("TIME: (SECONDS)"));
  EXPECT_TRUE(surface.HasText("10000"));
  plot.TimeFormat = kSquareRootTime;
  const RecordingSurface root = Draw(plot);
  EXPECT_TRUE(root.HasText(" .5"));
  EXPECT_TRUE(root.HasText(": (SECONDS)"));
}

TEST_F(DissipationPlotTest, PercentModesDrawOnlyTheLastSelectedTest) {
  DissipationPlotState plot = Plot({1, 2});
  const RecordingSurface both = Draw(plot);
  EXPECT_FALSE(CurveLines(both, kFirstTestColour).empty());
  EXPECT_FALSE(CurveLines(both, kSecondTestColour).empty());
  EXPECT_TRUE(both.HasText("MAXIMUM PRESSURE = N/A (MORE THAN ONE DISSIPATION SELECTED)"));

  ASSERT_TRUE(SetPressureDisplayMode(plot, Set(), kPercentOfMax, t.prompts));
  const RecordingSurface percent = Draw(plot);
  EXPECT_TRUE(CurveLines(percent, kFirstTestColour).empty());
  EXPECT_FALSE(CurveLines(percent, kSecondTestColour).empty());
  EXPECT_EQ(plot.PressureMax, 100);
  EXPECT_EQ(plot.PressureMin, 50);
  EXPECT_TRUE(percent.HasText("% MAX PRESSURE (%)"));
  EXPECT_TRUE(percent.HasText("MAXIMUM PRESSURE = N/A (MORE THAN ONE DISSIPATION SELECTED)"));
}

TEST_F(DissipationPlotTest, PercentOverHeadIsGatedByTheWaterTable) {
  DissipationPlotState plot = Plot({1, 2});
  // Undefined: told, then applied.
  ASSERT_TRUE(SetPressureDisplayMode(plot, Set(), kPercentOverHead, t.prompts));
  EXPECT_EQ(t.prompts.Texts(),
            std::vector<std::string>{
                "! WATER TABLE DEPTH IS CURRENTLY UNDEFINED. CLICK 'Water Table Depth' TO CHANGE "
                "IF INCORRECT"});
  t.prompts.ClearLog();
  plot.PressureDisplayMode = kPressureValues;
  // Below the deepest test: refused; at its depth: applied.
  Set().WaterTableDepth = 13;
  EXPECT_FALSE(SetPressureDisplayMode(plot, Set(), kPercentOverHead, t.prompts));
  EXPECT_EQ(plot.PressureDisplayMode, kPressureValues);
  EXPECT_EQ(t.prompts.Texts(),
            std::vector<std::string>{
                "! WATER TABLE DEPTH IS GREATER THAN DISSIPATION DEPTH. CANNOT DISPLAY PERCENT "
                "HEAD PRESSURE"});
  t.prompts.ClearLog();
  Set().WaterTableDepth = 12.8f;
  EXPECT_TRUE(SetPressureDisplayMode(plot, Set(), kPercentOverHead, t.prompts));
  EXPECT_TRUE(t.prompts.Texts().empty());
}

TEST_F(DissipationPlotTest, TheFooterOfOneTestWithAWaterTable) {
  Set().WaterTableDepth = 2.5f;
  ComputeHeadPercent(Set(), 1);
  DissipationPlotState plot = Plot({1});
  EXPECT_EQ(DissipationFooter(plot, *t.session),
            (std::vector<std::string>{"MAXIMUM PRESSURE = 400.0 (kPa)",
                                      "HYDROSTATIC PRESSURE = 39.224 (kPa), WATER TABLE: 2.50 m"}));
  t.session->DepthUnitIsMetric = 0;
  plot.PrintMaxPressure = false;
  EXPECT_EQ(DissipationFooter(plot, *t.session),
            (std::vector<std::string>{"HYDROSTATIC PRESSURE = 39.224 (kPa), WATER TABLE: 8.20 ft"}));
  // The mode brings its line back whatever the settings say.
  plot.PrintHydrostatic = false;
  plot.PressureDisplayMode = kPercentOfMax;
  EXPECT_EQ(DissipationFooter(plot, *t.session),
            (std::vector<std::string>{"MAXIMUM PRESSURE = 400.0 (kPa)"}));
}

TEST_F(DissipationPlotTest, ManualLimitsDropAndClampRows) {
  DissipationPlotState plot = Plot({1});
  ScaleBox bad = ScaleBox::kNone;
  DissipationScaleEntry entry = DissipationScaleTexts(plot);
  EXPECT_EQ(entry.time_max, "1.00");
  entry = {"0", "15", "200", "350"};
  ASSERT_TRUE(ApplyDissipationScale(plot, entry, t.prompts, bad));
  const RecordingSurface surface = Draw(plot);
  const std::vector<RecordedCall> curve = CurveLines(surface, kFirstTestColour);
  // 0, 1 and 10 minutes stay (30 is dropped); 400 kPa is clamped to the top. The legend's stroke
  // comes last.
  ASSERT_EQ(curve.size(), 3u);
  EXPECT_DOUBLE_EQ(curve[0].y1, plot.PlotTop);
  EXPECT_DOUBLE_EQ(curve[1].y2, plot.PlotBottom);
  EXPECT_DOUBLE_EQ(curve[1].x2, plot.PlotLeft + plot.PlotWidth * 10.0 / 15.0);
}

TEST_F(DissipationPlotTest, TheScaleDialogRefusesBadLimits) {
  DissipationPlotState plot = Plot({1});
  ScaleBox bad = ScaleBox::kNone;
  const std::pair<DissipationScaleEntry, std::string> refused[] = {
      {{"-1", "10", "0", "100"}, "! Min time must be greater than 0."},
      {{"0", "0", "0", "100"}, "! Min time must be less than max time."},
      {{"0", "10", "100", "100"}, "! Min pressure must be less than max pressure."},
  };
  for (const auto& [entry, message] : refused) {
    t.prompts.ClearLog();
    EXPECT_FALSE(ApplyDissipationScale(plot, entry, t.prompts, bad));
    EXPECT_EQ(t.prompts.Texts(), std::vector<std::string>{message});
    EXPECT_FALSE(plot.ManualScale);
  }
  // On the log axis the time boxes show "N/A" and nothing tests them.
  plot.TimeFormat = kLogTime;
  const DissipationScaleEntry log_entry = DissipationScaleTexts(plot);
  EXPECT_EQ(log_entry.time_min, "N/A");
  EXPECT_TRUE(ApplyDissipationScale(plot, {"N/A", "N/A", "0", "500"}, t.prompts, bad));
  EXPECT_TRUE(plot.ManualScale);
  EXPECT_EQ(plot.PressureMax, 500);
  EXPECT_EQ(DissipationScaleLabel(plot), "PRESSURE");
  // Leaving the linear axis gives up the manual scale.
  SetTimeFormat(plot, kSquareRootTime);
  EXPECT_FALSE(plot.ManualScale);
}

TEST_F(DissipationPlotTest, TheDefaultTimeFormatIsKeptInItsFile) {
  EXPECT_EQ(ReadDefaultTimeFormat(*t.session), kLinearTime);
  t.prompts.Script({"No", "Yes"});
  AskDefaultTimeFormat(*t.session, kSquareRootTime, t.prompts);
  EXPECT_FALSE(FileExists(t.session->SettingsPath("DefaultPPFormat.txt")));
  AskDefaultTimeFormat(*t.session, kLogTime, t.prompts);
  EXPECT_EQ(t.prompts.Texts(), (std::vector<std::string>{
                                   "? Would you like to set the default format to 'Square Root'? -> No",
                                   "? Would you like to set the default format to 'Logarithmic'? -> Yes"}));
  EXPECT_EQ(ReadDefaultTimeFormat(*t.session), kLogTime);
  EXPECT_EQ(Plot({1}).TimeFormat, kLogTime);
}

TEST_F(DissipationPlotTest, LineDrawKeepsItsOwnLogMapping) {
  DissipationPlotState plot = Plot({1});
  Draw(plot);
  RecordingSurface marker(1200, 900);
  LineDraw(marker, plot, Set(), 1, 3);  // 600 s at 150 kPa
  ASSERT_EQ(marker.Lines().size(), 2u);
  EXPECT_DOUBLE_EQ(marker.Lines()[1].x1, plot.PlotLeft + plot.PlotWidth / 3.0);
  EXPECT_DOUBLE_EQ(marker.Lines()[0].x2 - marker.Lines()[0].x1, 400);
  plot.TimeFormat = kLogTime;
  Draw(plot);
  RecordingSurface log_marker(1200, 900);
  LineDraw(log_marker, plot, Set(), 1, 3);
  EXPECT_NEAR(log_marker.Lines()[1].x1, plot.PlotLeft + std::log(600 / std::log(10.0)) / 4 * plot.PlotWidth,
              1e-6);
  // A row outside manual limits is not marked.
  plot.TimeFormat = kLinearTime;
  plot.ManualScale = true;
  plot.TimeMax = 5;
  RecordingSurface none(1200, 900);
  LineDraw(none, plot, Set(), 1, 3);
  EXPECT_TRUE(none.Lines().empty());
}

}  // namespace
}  // namespace marlview
