// The main window's logic: modes, the open flow, the channel lists and their checks.
#include <gtest/gtest.h>

#include "core/shell/shell_controller.h"
#include "support/test_support.h"

namespace marlview {
namespace {

class ShellTest : public ::testing::Test {
 protected:
  ShellTest() : controller(*t.session, t.prompts) {}

  void Open(const std::string& path) {
    t.prompts.Script({path});
    controller.ChooseMode(ProcessingMode::kSounding);
  }
  void OpenSample(const std::string& name) { Open(test::SamplesDirectory() + "/" + name); }
  void SelectRows(std::initializer_list<int> rows) {
    for (int row : rows) controller.ClickAvailableChannel(row);
  }

  test::TestSession t;
  ShellController controller;
};

TEST_F(ShellTest, OpeningASoundingFillsTheListsInRoleOrder) {
  test::DatFile file = test::SimpleDat(3);
  file.channels.insert(file.channels.begin(), {.sensor = "Inclination X"});
  file.channels.insert(file.channels.begin(), {.sensor = "Not Connected"});
  file.channels.push_back({.sensor = "Temperature"});
  for (auto& row : file.rows) {
    row.insert(row.begin() + 1, {0.0, 0.0});
    row.push_back(0.6);
  }
  t.data.Write("CPT-T01.DAT", file.Bytes());
  Open(t.data.File("CPT-T01.DAT"));
  const ShellView& view = controller.View();
  EXPECT_EQ(t.prompts.LastFileRequest().filter_index, 3);
  EXPECT_EQ(t.prompts.LastFileRequest().filter,
            "PX DAS (*.CPT)|*.CPT|QRD FIELDBOX (*.DAT)|*.DAT|ALL SYSTEMS (*.CPT;*.DAT)|*.CPT;*.DAT");
  EXPECT_FALSE(view.test_type_visible);
  EXPECT_TRUE(view.sounding_frame_visible);
  EXPECT_TRUE(view.edit_visible);
  EXPECT_TRUE(t.session->SoundingOpen);
  const std::vector<std::string> rows = {"Tip Resistance (Qc)", "Sleeve Friction", "Pore Pressure U2",
                                         "Inclination X", "Temperature"};
  EXPECT_EQ(view.available_rows, rows);
  EXPECT_EQ(controller.AvailableChannels(), (std::vector<int>{3, 4, 5, 2, 6}));
  EXPECT_EQ(view.sounding_info, "FILENAME: CPT-T01.DAT\nLOCATION: Richmond, BC\nDISTANCE PUSHED: 0.06 (m)");
  EXPECT_EQ(t.session->SoundingDirectory, t.data.Path() + "/");

  // The next open starts in the same folder, on the DAT filter.
  t.session->DepthUnitIsMetric = 0;
  Open(t.data.File("CPT-T01.DAT"));
  EXPECT_EQ(t.prompts.LastFileRequest().filter_index, 2);
  EXPECT_EQ(t.prompts.LastFileRequest().start_directory, t.data.Path() + "/");
  EXPECT_EQ(view.sounding_info, "FILENAME: CPT-T01.DAT\nLOCATION: Richmond, BC\nDISTANCE PUSHED: 0.20 (ft)");
}

TEST_F(ShellTest, NamesThatAreNotSoundingsTakeTheWayBack) {
  for (const std::string path : {"", "a.x", "/field/notes.txt"}) {
    Open(path);
    EXPECT_TRUE(controller.View().test_type_visible) << path;
    EXPECT_EQ(controller.View().checked_mode, ProcessingMode::kNone);
  }
  // Four characters pass the length test and then fail to open.
  t.prompts.ClearLog();
  Open(".dat");
  EXPECT_EQ(t.prompts.Texts(),
            std::vector<std::string>{
                "! Marlview has encountered an error: Error #53: 'File not found' from 'OpenDatSounding'"});
  EXPECT_TRUE(controller.View().test_type_visible);
  EXPECT_FALSE(t.session->SoundingOpen);
}

TEST_F(ShellTest, ListingNeedsASelection) {
  OpenSample("CPT-A01.DAT");
  controller.ListSounding();
  EXPECT_EQ(t.prompts.Log().back(), "! Select parameter(s) first !");
}

TEST_F(ShellTest, PlotChecksRefuseWhatCannotBeDrawn) {
  OpenSample("CPT-A01.DAT");
  SelectRows({0, 1, 2, 3, 4, 5, 6});
  EXPECT_FALSE(controller.CheckPlotSelection());
  EXPECT_EQ(t.prompts.Log().back(), "! A maximum of 6 channels can be graphed at a time.");
  controller.ClickAvailableChannel(6);
  EXPECT_TRUE(controller.CheckPlotSelection());

  SoundingStore& s = t.session->Sounding();
  s.TimeChannel = 4;
  EXPECT_FALSE(controller.CheckPlotSelection());
  EXPECT_EQ(t.prompts.Log().back(), "! CANNOT PLOT TIME DATA");
  s.TimeChannel = 0;
  s.Sbt83Channel = 4;
  s.Sbt86FrChannel = 5;
  EXPECT_FALSE(controller.CheckPlotSelection());
  EXPECT_EQ(t.prompts.Log().back(), "! CANNOT PLOT SBT(83), SBT(86) and SBT(90) TOGETHER");
  s.Sbt86FrChannel = 0;
  s.Sbt86PpChannel = 0;
  s.Sbt90QtChannel = 0;
  EXPECT_TRUE(controller.CheckPlotSelection());
  EXPECT_EQ(controller.SbtChartChoice(), 1);
}

TEST_F(ShellTest, DoneAsksAboutEachOpenWindowInTurn) {
  OpenSample("CPT-A01.DAT");
  t.session->flags = {true, false, true, true};
  std::vector<ViewWindow> closed;
  auto close = [&closed](ViewWindow w) { closed.push_back(w); };
  t.prompts.Script({"Yes", "Yes", "No"});
  EXPECT_FALSE(controller.SoundingDone(close));
  EXPECT_EQ(closed, (std::vector<ViewWindow>{ViewWindow::kPlot, ViewWindow::kEcp}));
  EXPECT_FALSE(t.session->flags.PlotWindowOpen) << "windows already closed stay closed";
  EXPECT_TRUE(t.session->flags.EditWindowOpen);
  EXPECT_TRUE(t.session->SoundingOpen);
  EXPECT_EQ(t.prompts.Texts().back(), "? Edit window is open. Close window and continue? -> No");

  t.prompts.Script({"Yes"});
  EXPECT_TRUE(controller.SoundingDone(close));
  EXPECT_FALSE(t.session->SoundingOpen);
  EXPECT_EQ(t.session->Sounding().ReadingCount, 0);
  EXPECT_TRUE(controller.View().test_type_visible);
  EXPECT_TRUE(controller.View().available_rows.empty());
}

TEST_F(ShellTest, OtherModesSayTheyAreNotThereYet) {
  controller.ChooseMode(ProcessingMode::kSeismic);
  EXPECT_EQ(t.prompts.Log(),
            std::vector<std::string>{"! Seismic processing is not available in this version of Marlview yet."});
  EXPECT_TRUE(controller.View().test_type_visible);
  EXPECT_EQ(controller.View().checked_mode, ProcessingMode::kNone);
}

TEST_F(ShellTest, PiezoFilterMovesTheSleeveAndRealigns) {
  OpenSample("CPT-A01.DAT");
  const SoundingStore& s = t.session->Sounding();
  const float without = s.ChannelOffset[2];
  const float aligned = s.AlignedReadings(10, KindColumn(2, kGraphOutput));
  controller.SetPiezoFilterPresent(true);
  EXPECT_NEAR(s.ChannelOffset[2] - without, 0.245 / 12 / kFeetPerMetre, 1e-6);
  EXPECT_NE(s.AlignedReadings(10, KindColumn(2, kGraphOutput)), aligned);
  EXPECT_TRUE(controller.View().piezo_checked);
}

}  // namespace
}  // namespace marlview
