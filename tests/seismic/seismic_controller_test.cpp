// The log window's and the workbench's logic on a loaded sounding, and their drawings.
#include <gtest/gtest.h>

#include <algorithm>
#include <deque>

#include "core/common/file_access.h"
#include "core/common/number_format.h"
#include "core/presentation/recording_surface.h"
#include "core/seismic/seismic_open.h"
#include "core/seismic/seismic_plots.h"
#include "seismic_builders.h"
#include "seismic_files.h"
#include "support/test_support.h"

namespace marlview::test {
namespace {

struct ScriptedDialogs : SeismicDialogs {
  bool s_wave = true;
  int16_t arrival_kind = kNoStrike;
  std::vector<std::string> asked;
  ArrivalErrorChoice last_choice;
  bool AskDelayWarning() override {
    asked.push_back("frmDelayWarning");
    return s_wave;
  }
  int16_t AskArrivalError(const ArrivalErrorChoice& choice) override {
    asked.push_back("frmArrivalError");
    last_choice = choice;
    return arrival_kind;
  }
};

struct Counting : SeismicListener {
  std::vector<int> waves;
  int all = 0, strike = 0, workbench = 0;
  void GraphWaves(int test) override { waves.push_back(test); }
  void GraphAllWaves() override { ++all; }
  void GraphStrike() override { ++strike; }
  void OpenWorkbench() override { ++workbench; }
};

class SeismicWindows : public ::testing::Test {
 protected:
  void Open(const std::string& sample) {
    ASSERT_EQ(OpenSeismicPath(*t.session, t.prompts, SamplesDirectory() + "/" + sample), SeismicOpenOutcome::kLoaded);
    controller.Load();
  }
  TestSession t;
  ScriptedDialogs dialogs;
  Counting listener;
  SeismicController controller{*t.session, t.prompts, dialogs};
};

TEST_F(SeismicWindows, LoadWaitsForTheHammerDistanceThenComputesVelocities) {
  controller.SetListener(&listener);
  Open("SCPT-A01.SEI");
  const SeismicStore& s = controller.Store();
  EXPECT_TRUE(controller.View().HammerFrameVisible);
  EXPECT_EQ(controller.Caption(), "SEISMIC TEST: SCPT-A01.SEI");
  EXPECT_GT(s.DelayTime[2], s.DelayTime[1]);
  EXPECT_EQ(s.IntervalVelocity[2], 0);
  EXPECT_FLOAT_EQ(controller.View().SeismicTimeAxisMax, 130.0f);
  EXPECT_EQ(controller.View().TimeAxisStep, 20);
  controller.ApplyHammerDistance("0.6", true);
  EXPECT_FALSE(controller.View().HammerFrameVisible);
  EXPECT_EQ(ReadWholeFile(t.session->SettingsPath("Hammer Distance.txt")), "0.6\r\n0\r\n");
  // The demo ground runs from about 150 to 290 m/s.
  for (int i = 2; i <= s.TestCount; ++i) {
    EXPECT_GT(s.IntervalVelocity[i], 120) << i;
    EXPECT_LT(s.IntervalVelocity[i], 340) << i;
  }
  EXPECT_EQ(listener.waves.size(), 12u);
  EXPECT_TRUE(controller.Menus().remove_a);
  EXPECT_FALSE(controller.Menus().remove_p);
  EXPECT_FALSE(controller.Menus().gain_visible);
  // With the answer kept, the next load computes at once.
  controller.Load();
  EXPECT_FALSE(controller.View().HammerFrameVisible);
  EXPECT_GT(s.IntervalVelocity[3], 0);
}

TEST_F(SeismicWindows, TrimPastTheRecordMovesOnlyTheAxis) {
  Open("SCPT-A01.SEI");
  const int slot = StrikeSlot(kStrikeA, 1);
  EXPECT_TRUE(controller.TrimAll(500));
  EXPECT_EQ(controller.Store().SampleCount[slot], 1300);
  EXPECT_FLOAT_EQ(controller.View().SeismicTimeAxisMax, 500.0f);
  EXPECT_EQ(controller.View().TimeAxisStep, 50);
  EXPECT_EQ(controller.View().TimeAxisDivisions, 5);
  // Cutting below a pick leaves the pick where it was.
  const float pick = controller.Store().ArrivalSample[12];
  EXPECT_TRUE(controller.TrimAll(40));
  EXPECT_EQ(controller.Store().SampleCount[slot], 400);
  EXPECT_EQ(controller.Store().ArrivalSample[12], pick);
  EXPECT_FALSE(controller.TrimAll(-1));
  EXPECT_FLOAT_EQ(controller.View().SeismicTimeAxisMax, 40.0f);
}

TEST_F(SeismicWindows, DisplayShiftsMoveThePictureNotThePick) {
  Open("SCPT-A01.SEI");
  controller.ApplyHammerDistance("0.6", false);
  controller.OpenTest(3);
  const float delay = controller.Store().DelayTime[3];
  controller.SelectStrike(kStrikeA);
  controller.Nudge(20);
  controller.Nudge(-1);
  EXPECT_EQ(controller.View().DisplayShift[kStrikeA], 19);
  EXPECT_NEAR(controller.View().DisplayShiftTime[kStrikeA], 1.9, 1e-5);
  EXPECT_EQ(controller.Store().DelayTime[3], delay);
  EXPECT_EQ(controller.Captions().sa_offset,
            "S(A) OFFSET (mS): " + FormatNumber(controller.View().DisplayShiftTime[kStrikeA], "##0.0"));
  controller.NextTest();
  EXPECT_EQ(controller.View().DisplayShift[kStrikeA], 0);
  EXPECT_EQ(controller.View().ShownTest, 4);
}

TEST_F(SeismicWindows, WorkbenchPicksWithClickAndShift) {
  Open("SCPT-B07.SMC");
  controller.ApplyHammerDistance("0.6", false);
  SeismicStore& s = controller.Store();
  controller.OpenTest(1);
  EXPECT_FALSE(controller.PreviousEnabled());
  controller.ChooseArrivalStrike(kStrikeA);
  controller.Click(controller.SampleAtTime(20.0), false, false);
  EXPECT_FLOAT_EQ(s.ArrivalSample[1], 200);
  EXPECT_TRUE(controller.View().ArrivalControlsVisible);
  controller.ArrivalRight();
  EXPECT_FLOAT_EQ(s.DelayTime[1], 20.1f);
  controller.OpenTest(2);
  controller.ChooseArrivalStrike(kStrikeA);
  controller.Click(250, true, false);
  const int snapped = static_cast<int>(s.ArrivalSample[2]);
  EXPECT_NE(snapped, 250);
  EXPECT_GT(snapped, 0);
  EXPECT_GT(s.IntervalVelocity[2], 0);
  const WorkbenchCaptions c = controller.Captions();
  EXPECT_EQ(c.ref_depth, "2.000");
  EXPECT_EQ(c.sa_geophone, "S(A) GEOPHONE: SGEO1");
  EXPECT_EQ(c.delay, FormatNumber(s.DelayTime[2], "###0.00"));
  // The right button clears the pick.
  controller.Click(0, false, true);
  EXPECT_EQ(s.ArrivalSample[2], 0);
  EXPECT_EQ(controller.Captions().velocity, "N/A");
}

TEST_F(SeismicWindows, LoadingChecksAskTheirDialogs) {
  TempDirectory files;
  SeiRecord a = SeiTest("002.00 m", "A(SGEO1)B(SGEO2)", 50);
  a.arrival = "   10A";
  SeiRecord p = SeiTest("003.00 m", "A(SGEO1)Z(PGEO)", 50);
  p.arrival = "   12Z";
  SeiRecord n = SeiTest("004.00 m", "A(SGEO1)B(SGEO2)", 50);
  n.arrival = "   14N";
  files.Write("mixed.SEI", SeiFile({a, p, n}));
  ASSERT_EQ(OpenSeismicPath(*t.session, t.prompts, files.File("mixed.SEI")), SeismicOpenOutcome::kLoaded);
  controller.SetListener(&listener);
  dialogs.s_wave = true;
  controller.Load();
  // The S option clears every pick, so no arrival is left to set.
  EXPECT_EQ(dialogs.asked, std::vector<std::string>{"frmDelayWarning"});
  EXPECT_EQ(listener.workbench, 1);
  EXPECT_EQ(controller.Store().ArrivalSample[1], 0);

  files.Write("unset.SEI", SeiFile({a, n, n}));
  ASSERT_EQ(OpenSeismicPath(*t.session, t.prompts, files.File("unset.SEI")), SeismicOpenOutcome::kLoaded);
  dialogs.asked.clear();
  dialogs.arrival_kind = kStrikeB;
  controller.Load();
  EXPECT_EQ(dialogs.asked, std::vector<std::string>{"frmArrivalError"});
  EXPECT_EQ(dialogs.last_choice.initial, kStrikeA);
  EXPECT_EQ(controller.Store().ArrivalKind[1], kStrikeB);
  EXPECT_EQ(controller.Store().ArrivalKind[3], kStrikeB);
  EXPECT_FLOAT_EQ(controller.Store().DelayTime[3], 1.4f);
}

// Every run of the velocities tells each pair of equal delays once, in a box the user must close:
// each operation runs them once.
TEST_F(SeismicWindows, EachOperationTellsEqualDelaysOnce) {
  TempDirectory files;
  std::vector<SeiRecord> records;
  for (int i = 0; i < 4; ++i) {
    SeiRecord r = SeiTest("00" + std::to_string(2 + i) + ".00 m", "A(SGEO1)B(SGEO2)", 30);
    r.arrival = "   10A";
    records.push_back(r);
  }
  records[3].arrival = "   10N";  // an arrival without its wave: frmArrivalError sets it
  files.Write("same.SEI", SeiFile(records));
  t.data.Write("Hammer Distance.txt", "1\r\n0\r\n");
  ASSERT_EQ(OpenSeismicPath(*t.session, t.prompts, files.File("same.SEI")), SeismicOpenOutcome::kLoaded);
  const auto told = [&] {
    const auto texts = t.prompts.Texts();
    const auto count = std::count_if(texts.begin(), texts.end(), [](const std::string& text) {
      return text.find("HAVE THE SAME DELAY TIME") != std::string::npos;
    });
    t.prompts.ClearLog();
    return count;
  };
  dialogs.arrival_kind = kStrikeA;
  controller.Load();
  // Four tests at 1.0 ms after the arrival is set: three equal pairs, told once each.
  EXPECT_EQ(dialogs.asked, std::vector<std::string>{"frmArrivalError"});
  EXPECT_EQ(told(), 3);
  controller.OpenTest(2);
  controller.ArrivalRight();  // 2 moves off 1 and 3: pair 4-3 stays
  EXPECT_EQ(told(), 1);
  controller.ArrivalLeft();  // back: three pairs again
  EXPECT_EQ(told(), 3);
  controller.ResetWave();  // 3 refers to 1 now: pairs 3-1 and 4-3
  EXPECT_EQ(told(), 2);
  controller.PickOnStrike(kStrikeB, 10, false);  // B at the same time: three pairs
  EXPECT_EQ(told(), 3);
  controller.ChooseArrivalStrike(kStrikeA);  // the option alone clears the pick: two pairs
  EXPECT_EQ(told(), 2);
  controller.Click(10, false, false);
  EXPECT_EQ(told(), 3);
}

TEST_F(SeismicWindows, SwitchCloneRemoveAndTheirGuards) {
  Open("SCPT-A01.SEI");
  SeismicStore& s = controller.Store();
  controller.OpenTest(2);
  const std::vector<float> a = Amplitudes(s, 2, kStrikeA);
  controller.CloneAtoB();
  const std::vector<float> b = Amplitudes(s, 2, kStrikeB);
  ASSERT_EQ(a.size(), b.size());
  EXPECT_EQ(b[100], -a[100]);
  controller.SwitchAtoB();
  EXPECT_FALSE(s.HasStrike(kStrikeA, 2));
  EXPECT_EQ(s.DelayTime[2], 0);
  EXPECT_EQ(Amplitudes(s, 2, kStrikeB)[100], a[100]);
  // The last strike of a test stays.
  controller.RemoveStrikeOfTest(kStrikeB);
  EXPECT_TRUE(s.HasStrike(kStrikeB, 2));
  controller.RemoveAllStrikesOfTest();
  EXPECT_EQ(s.TestCount, 11);
  EXPECT_FLOAT_EQ(s.TestDepth[2], 4.5f);
  EXPECT_FALSE(controller.SetScale("10", "10"));
  EXPECT_FALSE(controller.SetScale("-1", "10"));
  EXPECT_TRUE(controller.SetScale("10.7", "40.2"));
  EXPECT_EQ(controller.View().TimeStart, 10);
  EXPECT_EQ(controller.View().TimeEnd, 40);
  EXPECT_FALSE(controller.ChangeDepth("1"));
  EXPECT_FALSE(controller.ChangeDepth("6"));
  EXPECT_TRUE(controller.ChangeDepth("5"));
  EXPECT_FLOAT_EQ(s.TestDepth[2], 5.0f);
  controller.OpenTest(1);
  EXPECT_FALSE(controller.ChangeDepth("-1"));
  EXPECT_FALSE(controller.AdjustDepth("0", "3"));
  EXPECT_FALSE(controller.AdjustDepth("2", "0"));
  EXPECT_TRUE(controller.AdjustDepth("2", "3"));
  EXPECT_FLOAT_EQ(s.TestDepth[1], 2.25f);
  EXPECT_EQ(t.prompts.Texts(),
            (std::vector<std::string>{"! Xmin must be less than Xmax", "! Xmin and Xmax cannot be negative",
                                      "! Value is too low.", "! Value is too high.", "! Value cannot be negative.",
                                      "! Invalid measured depth. Value must be greater than 0",
                                      "! Invalid observed depth. Value must be greater than 0"}));
}

TEST_F(SeismicWindows, LogModeMenusGainAndNoPicks) {
  Open("SCPT-C12.SLG");
  EXPECT_EQ(controller.RowCount(), 4);
  EXPECT_TRUE(controller.Menus().gain_visible);
  EXPECT_TRUE(controller.Menus().shift_log_visible);
  EXPECT_FALSE(controller.Menus().remove_p);
  EXPECT_FLOAT_EQ(controller.View().SeismicTimeAxisMax, 1.0f);
  EXPECT_FALSE(controller.View().HammerFrameVisible);
  const float before = controller.Store().LogAmplitude(800, 0);
  controller.SetGain(10);
  EXPECT_FLOAT_EQ(controller.Store().LogAmplitude(800, 0), before * 10);
  controller.OpenTest(2);
  controller.Click(100, false, false);
  EXPECT_EQ(controller.Store().ArrivalSample[1], 0);
  EXPECT_EQ(controller.Captions().x_units, "Time (S)");
}

TEST(SeismicPlots, GraphWavesMapsAmplitudeAndHoldsTheMarkInside) {
  SeismicStore s;
  FillTests(s, {2});
  std::vector<float> wave(200, 0.0f);
  wave[99] = 1.2f;
  SetStrike(s, 1, kStrikeA, wave);
  s.HasStrikeB[1] = 0;
  s.ArrivalKind[1] = kStrikeA;
  s.ArrivalSample[1] = 100;
  SeismicViewState view;
  view.SeismicTimeAxisMax = 40;
  RecordingSurface g(400, 100);
  GraphWaves(g, 400, 100, s, view, 1);
  // 200 samples in 400 pixels: every segment is drawn, the first from (0.1 ms, half height).
  const auto lines = g.Lines();
  ASSERT_GE(lines.size(), 199u);
  EXPECT_NEAR(lines[0].x1, 1.0, 1e-5);
  EXPECT_NEAR(lines[0].y1, 50.0, 1e-5);
  EXPECT_NEAR(lines[98].y2, -10.0, 1e-4);
  // The mark of the overdriven pick is held one unit inside the top.
  bool held = false;
  for (const RecordedCall& line : lines) held = held || (line.colour == kBlack && line.y1 == 1.0 && line.y2 == 1.0);
  EXPECT_TRUE(held);
}

TEST(SeismicPlots, LongStrikesDrawOneStrokePerColumnOnScreenAndEveryPointOnPaper) {
  std::vector<float> t(30001), a(30001);
  for (int k = 1; k <= 30000; ++k) t[static_cast<size_t>(k)] = 0.05f * static_cast<float>(k), a[static_cast<size_t>(k)] = static_cast<float>(k % 7) / 10.0f;
  RecordingSurface screen(500, 100);
  screen.SetScale(0, 0, 500, 100);
  DrawWave(screen, 0, 0, 500, 100, 0, 1500, t.data(), a.data(), 30000, 0, kBlack);
  EXPECT_LE(screen.Lines().size(), 1002u);
  RecordingSurface paper(500, 100, true);
  paper.SetScale(0, 0, 500, 100);
  DrawWave(paper, 0, 0, 500, 100, 0, 1500, t.data(), a.data(), 30000, 0, kBlack);
  EXPECT_EQ(paper.Lines().size(), 29999u);
}

TEST_F(SeismicWindows, ReferenceWaveOnlyWhereTheReferenceHasItsStrike) {
  Open("SCPT-A01.SEI");
  controller.ApplyHammerDistance("0.6", false);
  controller.OpenTest(3);
  controller.UpdateWorkbenchRange();
  RecordingSurface g(800, 400);
  GraphStrike(g, 800, 400, controller);
  EXPECT_TRUE(g.HasText("Previous arrival"));
  EXPECT_TRUE(g.HasText("Arrival"));
  SeismicStore& s = controller.Store();
  s.ArrivalKind[2] = kStrikeP;
  RecordingSurface without(800, 400);
  GraphStrike(without, 800, 400, controller);
  EXPECT_FALSE(without.HasText("Previous arrival"));
  EXPECT_EQ(RightLabelText(controller, 1), "1.50\nm\nArr: " + FormatNumber(s.DelayTime[1], "###0.00") + " mS\nVs: *");
}

// Pages of a fixed size, each drawn on a surface of its own.
struct RecordingJob : PrintJob {
  DrawingSurface& NewPage() override { return pages.emplace_back(612 * 4, 792 * 4, true); }
  bool EndDoc() override { return true; }
  double PageWidthPoints() const override { return 612; }
  double PageHeightPoints() const override { return 792; }
  std::deque<RecordingSurface> pages;
  bool Has(std::string_view text) const {
    for (const RecordingSurface& page : pages) {
      if (page.HasText(text)) return true;
    }
    return false;
  }
};

TEST_F(SeismicWindows, PrintedLogHasEveryTestItsTableAndTheFoot) {
  Open("SCPT-A01.SEI");
  controller.ApplyHammerDistance("0.6", false);
  RecordingJob plain;
  PrintSeismicLog(plain, *t.session, controller);
  ASSERT_GE(plain.pages.size(), 2u);
  EXPECT_TRUE(plain.pages[0].HasText("SEISMIC TEST"));
  EXPECT_TRUE(plain.pages[0].HasText("COMPANY: ACME GEOTECHNICAL LTD."));
  EXPECT_TRUE(plain.Has("Depth 1.50m"));
  EXPECT_TRUE(plain.Has("Depth 18.00m"));
  EXPECT_TRUE(plain.Has("Ref *"));
  EXPECT_TRUE(plain.Has("Velocity *"));
  EXPECT_TRUE(plain.Has("Velocity " + FormatNumber(controller.Store().IntervalVelocity[12], "###0.00") + "m/S"));
  EXPECT_TRUE(plain.pages.back().HasText("Hammer to Rod String Distance (m): 0.60"));
  EXPECT_TRUE(plain.pages.back().HasText("* = Not Determined"));
  EXPECT_TRUE(plain.pages.back().HasText("Time (mS)"));
  // A printed page draws every point: the first test's A strike alone is 1299 segments.
  EXPECT_GT(plain.pages[0].Lines().size(), 1299u * 2);
  controller.View().CoverSheet = true;
  RecordingJob covered;
  PrintSeismicLog(covered, *t.session, controller);
  EXPECT_EQ(covered.pages.size(), plain.pages.size() + 1);
  EXPECT_FALSE(covered.pages[0].HasText("Depth 1.50m"));
}

TEST_F(SeismicWindows, PrintedLogOfASlgFileHasARowPerSecond) {
  Open("SCPT-C12.SLG");
  RecordingJob job;
  PrintSeismicLog(job, *t.session, controller);
  ASSERT_EQ(job.pages.size(), 1u);
  EXPECT_TRUE(job.Has("4S "));
  EXPECT_TRUE(job.Has("Time"));
  EXPECT_FALSE(job.Has("* = Not Determined"));
}

}  // namespace
}  // namespace marlview::test
