// The main window's logic: modes, the open flow, the channel lists and their checks.
#include <gtest/gtest.h>

#include <algorithm>

#include "core/editing/edit_operations.h"
#include "core/seismic/seismic_open.h"
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
            "PX DAS (*.CPT)|*.CPT|QRD FIELDBOX (*.DAT)|*.DAT|ALL SYSTEMS (*.CPT;*.DAT)|*.CPT;*.DAT|GEF (*.GEF)|*.GEF");
  EXPECT_FALSE(view.test_type_visible);
  EXPECT_TRUE(view.sounding_frame_visible);
  EXPECT_TRUE(view.edit_visible);
  EXPECT_TRUE(t.session->SoundingOpen);
  // The roles first, then the other channels in channel order; "Not Connected" (1) is left out.
  EXPECT_EQ(controller.AvailableChannels(),
            (std::vector<int>{3, 8, 4, 5, 9, 2, 13, 7, 14, 6, 10, 11, 12, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24}));
  const std::vector<std::string> first = {"Tip Resistance (Qc)", "Tip Resistance (Qt)", "Sleeve Friction",
                                          "Pore Pressure U2", "Friction Ratio (Fs/Qt)", "Inclination X"};
  EXPECT_EQ(std::vector<std::string>(view.available_rows.begin(), view.available_rows.begin() + 6), first);
  EXPECT_EQ(view.sounding_info, "FILENAME: CPT-T01.DAT\nLOCATION: Richmond, BC\nDISTANCE PUSHED: 0.06 (m)");
  EXPECT_EQ(t.session->SoundingDirectory, t.data.Path() + "/");

  // The next open starts in the same folder, on the DAT filter.
  t.session->DepthUnitIsMetric = 0;
  Open(t.data.File("CPT-T01.DAT"));
  EXPECT_EQ(t.prompts.LastFileRequest().filter_index, 2);
  EXPECT_EQ(t.prompts.LastFileRequest().start_directory, t.data.Path() + "/");
  EXPECT_EQ(view.sounding_info, "FILENAME: CPT-T01.DAT\nLOCATION: Richmond, BC\nDISTANCE PUSHED: 0.20 (ft)");
}

TEST_F(ShellTest, APxDasSoundingOpensReadOnlyAndToldOfItsDrillout) {
  std::vector<std::string> lines = test::SimpleCpt(4).Lines();
  lines.insert(lines.begin() + 26, "***** DRILLOUT *****");
  std::string bytes;
  for (const auto& line : lines) bytes += line + "\r\n";
  t.data.Write("CPT-T01.cpt", bytes);
  Open(t.data.File("CPT-T01.cpt"));
  const ShellView& view = controller.View();
  EXPECT_EQ(t.prompts.Texts(), std::vector<std::string>{"! DRILLOUT detected in file at 0.06 m"});
  EXPECT_TRUE(t.session->SoundingOpen);
  EXPECT_FALSE(view.edit_visible) << "a PX DAS file is not edited";
  EXPECT_EQ(t.session->Sounding().AcquisitionFamily, kPxDasFamily);
  EXPECT_EQ(view.sounding_info,
            "FILENAME: CPT-T01.cpt\nLOCATION: North Approach, Richmond BC\nDISTANCE PUSHED: 0.08 (m)");
  EXPECT_EQ(std::vector<std::string>(view.available_rows.begin(), view.available_rows.begin() + 4),
            (std::vector<std::string>{"Tip Resistance (Qc)", "Tip Resistance (Qt)", "Sleeve Friction",
                                      "Pore Pressure U2"}));

  // The next open starts on the PX DAS filter; in feet the drillout is told in feet.
  t.prompts.ClearLog();
  t.session->DepthUnitIsMetric = 0;
  Open(t.data.File("CPT-T01.cpt"));
  EXPECT_EQ(t.prompts.LastFileRequest().filter_index, 1);
  EXPECT_EQ(t.prompts.Texts(), std::vector<std::string>{"! DRILLOUT detected in file at 0.20 ft"});
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
  EXPECT_FALSE(controller.ListSounding());
  EXPECT_EQ(t.prompts.Log().back(), "! Select parameter(s) first !");
  controller.ClickAvailableChannel(0);
  t.prompts.ClearLog();
  EXPECT_TRUE(controller.ListSounding());
  EXPECT_TRUE(t.prompts.Log().empty());
}

TEST_F(ShellTest, PlotChecksRefuseWhatCannotBeDrawn) {
  OpenSample("CPT-A01.DAT");
  auto select = [this](std::initializer_list<const char*> names) {
    controller.ClearSelection();
    const auto& rows = controller.View().available_rows;
    for (const char* name : names) {
      controller.ClickAvailableChannel(static_cast<int>(std::find(rows.begin(), rows.end(), name) - rows.begin()));
    }
  };
  select({"Tip Resistance (Qc)", "Sleeve Friction", "Pore Pressure U2", "Inclination X", "Inclination Y",
          "Temperature", "Exc Sense"});
  EXPECT_FALSE(controller.CheckPlotSelection());
  EXPECT_EQ(t.prompts.Log().back(), "! A maximum of 6 channels can be graphed at a time.");
  controller.ClickAvailableChannel(0);
  EXPECT_TRUE(controller.CheckPlotSelection());

  select({"Tip Resistance (Qc)", "Time"});
  EXPECT_FALSE(controller.CheckPlotSelection());
  EXPECT_EQ(t.prompts.Log().back(), "! CANNOT PLOT TIME DATA");
  select({"SBT(1983)*", "SBT FR(1986)*"});
  EXPECT_FALSE(controller.CheckPlotSelection());
  EXPECT_EQ(t.prompts.Log().back(), "! CANNOT PLOT SBT(83), SBT(86) and SBT(90) TOGETHER");
  // The two 1986 charts belong together, and so do the two of 1990.
  select({"SBT FR(1986)*", "SBT PP(1986)*", "Tip Resistance (Qt)"});
  EXPECT_TRUE(controller.CheckPlotSelection());
  EXPECT_EQ(controller.SbtChartChoice(), 2);
  select({"SBT(QT)(1990)*", "SBT(Bq)(1990)*"});
  EXPECT_TRUE(controller.CheckPlotSelection());
  EXPECT_EQ(controller.SbtChartChoice(), 3);
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

TEST_F(ShellTest, VideoModeEndsWhenFfmpegIsNotThere) {
  t.prompts.Script({"Cancel"});
  controller.ChooseMode(ProcessingMode::kVideo);
  EXPECT_EQ(t.prompts.Texts(),
            (std::vector<std::string>{"? FFMPEG directory has not been specified. If FFMPEG has been previously "
                                      "installed, press OK to search for FFMPEG -> Cancel",
                                      "! FFMPEG directory has not been set.  Cannot continue"}));
  EXPECT_FALSE(controller.View().video_open);
  EXPECT_EQ(controller.Video(), nullptr);
  EXPECT_TRUE(controller.View().test_type_visible);
}

TEST_F(ShellTest, SeismicModeOpensTheLogWindowOnlyOnAFileThatWasRead) {
  t.prompts.Script({""});
  controller.ChooseMode(ProcessingMode::kSeismic);
  EXPECT_FALSE(controller.View().seismic_open);
  EXPECT_EQ(t.prompts.LastFileRequest().filter, kSeismicOpenFilter);
  t.prompts.Script({test::SamplesDirectory() + "/SCPT-A01.SEI"});
  controller.ChooseMode(ProcessingMode::kSeismic);
  EXPECT_TRUE(controller.View().seismic_open);
  EXPECT_EQ(controller.View().checked_mode, ProcessingMode::kNone);
  EXPECT_EQ(t.session->Seismic().TestCount, 12);
  controller.SeismicDone();
  EXPECT_FALSE(controller.View().seismic_open);
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

TEST_F(ShellTest, TheEditorOpensOnADatSoundingAndItsChangesReachTheLists) {
  EXPECT_FALSE(controller.EditSounding()) << "no sounding open";
  test::DatFile file = test::SimpleDat(3);
  file.channels.push_back({.sensor = "Temperature"});
  for (auto& row : file.rows) row.push_back(0.6);
  t.data.Write("CPT-T01.DAT", file.Bytes());
  Open(t.data.File("CPT-T01.DAT"));
  EXPECT_TRUE(controller.EditSounding());
  const auto row_of = [&](const std::string& name) {
    const auto& rows = controller.View().available_rows;
    return static_cast<int>(std::find(rows.begin(), rows.end(), name) - rows.begin());
  };
  SelectRows({row_of("Tip Resistance (Qc)"), row_of("Temperature")});
  ASSERT_EQ(controller.View().selected_rows.size(), 2u);

  // The editor took the temperature out: it leaves both lists, the tip stays chosen.
  SoundingStore& s = t.session->Sounding();
  ASSERT_TRUE(RemoveChannel(*t.session, 4, t.prompts));
  controller.SoundingEdited();
  EXPECT_EQ(controller.View().selected_rows, std::vector<std::string>{"Tip Resistance (Qc)"});
  EXPECT_EQ(controller.SelectedChannels(), std::vector<int>{s.TipChannel});
  EXPECT_EQ(row_of("Temperature"), static_cast<int>(controller.View().available_rows.size()));
  EXPECT_TRUE(controller.View().plot_enabled);
}

}  // namespace
}  // namespace marlview
