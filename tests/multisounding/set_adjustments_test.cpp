// The set's adjustments: a test moved in depth, the plot colours kept with the print settings, the
// folder of the last load, the push speed of a combined view, batch files named one by one and a
// setting that changes the derived channels of every test.
#include <gtest/gtest.h>

#include <filesystem>

#include "core/common/file_access.h"
#include "core/derivation/derived_channels.h"
#include "core/multisounding/batch_export.h"
#include "core/multisounding/last_data_directory.h"
#include "core/multisounding/set_model.h"
#include "core/multisounding/set_plot.h"
#include "core/settings/report_settings.h"
#include "support/test_support.h"

namespace marlview::test {
namespace {

class SetAdjustmentsTest : public ::testing::Test {
 protected:
  std::string Write(const std::string& name, const std::string& bytes) {
    files_.Write(name, bytes);
    return files_.File(name);
  }
  Session& session() { return *t_.session; }

  TestSession t_;
  TempDirectory files_;
};

TEST_F(SetAdjustmentsTest, UpAndDownMoveATestByTheIntervalInEitherDepthUnit) {
  // Readings every 0.1 m from 0.1 to 1.0.
  DatFile file = SimpleDat(10);
  for (int r = 0; r < 10; ++r) file.rows[static_cast<size_t>(r)][0] = 0.1 * (r + 1);
  ASSERT_EQ(LoadSetFiles(session(), t_.prompts, {Write("A.DAT", file.Bytes()), Write("B.DAT", file.Bytes())}),
            SetLoadOutcome::kLoaded);
  session().set.CommonDepthInterval = 0.1f;
  const SoundingStore& a = *session().set.tests[0].store;
  ShiftTestDepth(session(), 1, 1);
  EXPECT_NEAR(a.DepthTable(1, 1), 0.2, 1e-6);
  EXPECT_NEAR(a.DepthTable(10, 2), 1.1 * 3.28084, 1e-4);
  EXPECT_EQ(DepthOffsetText(session(), 1), "0.10");
  EXPECT_EQ(DepthOffsetText(session(), 2), "0.00");
  // The grid sees the test one row deeper: nothing at 0.1, the first reading at 0.2, eleven rows.
  const std::vector<int> rows = CommonGridRows(a, 0.1f, 1);
  ASSERT_EQ(rows.size(), 11u);
  EXPECT_EQ(rows[0], 0);
  EXPECT_EQ(rows[1], 1);
  ShiftTestDepth(session(), 1, -1);
  EXPECT_EQ(DepthOffsetText(session(), 1), "0.00");
  EXPECT_NEAR(a.DepthTable(1, 1), 0.1, 1e-6);

  // In feet the interval is feet: 0.5 ft up is 0.1524 m, shown back as -0.50.
  session().DepthUnitIsMetric = 0;
  session().set.CommonDepthInterval = 0.5f;
  ShiftTestDepth(session(), 2, -1);
  EXPECT_NEAR(session().set.tests[1].DepthOffset, -0.1524, 1e-6);
  EXPECT_NEAR(session().set.tests[1].store->DepthTable(1, 1), 0.1 - 0.1524, 1e-6);
  EXPECT_EQ(DepthOffsetText(session(), 2), "-0.50");
}

TEST_F(SetAdjustmentsTest, PlotColoursComeFromTheSoundingSettingsFileOrTheDefaults) {
  ASSERT_EQ(LoadSetFiles(session(), t_.prompts, {Write("A.DAT", SimpleDat(5).Bytes()), Write("B.DAT", SimpleDat(5).Bytes())}),
            SetLoadOutcome::kLoaded);
  const ReportFamily family = ReportFamilyOf(session().set.tests[0].store->AcquisitionFamily);
  const std::string fixed = WriteReportSettings(DefaultReportSettings(family, ReportKind::kSounding),
                                                ReportKind::kSounding);
  // Without a table: the plot's own colours, red first, no two alike.
  EXPECT_EQ(SetPlotColour(session(), 1), (Colour{255, 0, 0}));
  EXPECT_NE(SetPlotColour(session(), 1), SetPlotColour(session(), 2));
  // A table cut short is not taken.
  EXPECT_TRUE(ReadReportSettings(fixed + "10\r\n20\r\n", family, ReportKind::kSounding).SetTestColours.empty());

  // Thirty reds, thirty greens, thirty blues; slot 2 is (2, 32, 62), out-of-range values capped.
  std::string table;
  for (int component = 0; component < 3; ++component) {
    for (int slot = 1; slot <= 30; ++slot) table += std::to_string(slot == 30 ? 300 : component * 30 + slot) + "\r\n";
  }
  ReportSettings read = ReadReportSettings(fixed + table, family, ReportKind::kSounding);
  ASSERT_EQ(read.SetTestColours.size(), 30u);
  EXPECT_EQ(read.SetTestColours[29][2], 255);
  // Saving the print settings keeps the table.
  EXPECT_EQ(ReadReportSettings(WriteReportSettings(read, ReportKind::kSounding), family, ReportKind::kSounding)
                .SetTestColours,
            read.SetTestColours);
  session().Report(family, ReportKind::kSounding) = read;
  EXPECT_EQ(SetPlotColour(session(), 2), (Colour{2, 32, 62}));
  session().set.CommonDepthInterval = 0.02f;
  const SetPlotLayout layout = LayoutSetPlot(session(), SetView::kCombined, {SetChannelNames(session()).front()});
  EXPECT_EQ(layout.legend[1].colour, (Colour{2, 32, 62}));
}

TEST_F(SetAdjustmentsTest, TheLastDataDirectoryFallsBackAsFarAsItMust) {
  const std::string first_drive = "/";
  const auto last = [&] { return ReadLastDataDirectory(session(), t_.prompts, first_drive); };
  // Never written: the first drive, without a word.
  EXPECT_EQ(last().folder, first_drive);
  EXPECT_TRUE(t_.prompts.Texts().empty());

  WriteLastDataDirectory(session(), files_.Path());
  EXPECT_EQ(ReadWholeFile(session().SettingsPath("Last Data Directory.txt")), files_.Path() + "\r\n/\r\n");
  EXPECT_EQ(last().folder, files_.Path());
  EXPECT_TRUE(t_.prompts.Texts().empty());

  const std::string file = session().SettingsPath("Last Data Directory.txt");
  WriteFileAtomically(file, files_.File("gone") + "\r\n" + files_.Path() + "\r\n");
  EXPECT_EQ(last().folder, files_.Path());
  WriteFileAtomically(file, files_.Path() + "\r\n" + files_.File("no drive") + "\r\n");
  EXPECT_EQ(last().folder, first_drive);
  WriteFileAtomically(file, files_.Path() + "\r\n");
  EXPECT_EQ(last().folder, first_drive);
  EXPECT_EQ(t_.prompts.Texts(),
            (std::vector<std::string>{
                "! Last directory used is missing. Switching to the root directory of the last drive used.",
                "! Last drive used is missing. Switching to the root drive.",
                "! An unkown error has occurred. Default drive and path values have been loaded."}));
}

TEST_F(SetAdjustmentsTest, PushSpeedIsLeftOutInACombinedViewAndBackForTheBatch) {
  SetSelectionMode(session(), 1);
  ASSERT_EQ(LoadSetFiles(session(), t_.prompts, {Write("P.CPT", SimpleCpt(6).Bytes())}), SetLoadOutcome::kLoaded);
  // Read as a sounding of its own: the file's speeds, and the combined view still on afterwards.
  EXPECT_TRUE(session().CombinedModeActive);
  SoundingStore& p = *session().set.tests[0].store;
  const int speed = ChannelNamed(p, "Push Speed");
  ASSERT_NE(speed, 0);
  EXPECT_FLOAT_EQ(p.AlignedReadings(3, speed), 1.9f);

  const auto rederive = [&] {
    CurrentTest current(session(), 1);
    ComputeDerivedChannels(session(), session().Sounding(), session().Sounding().ChannelCount);
  };
  for (int mode : {1, 2}) {
    SetSelectionMode(session(), mode);
    rederive();
    EXPECT_FLOAT_EQ(p.AlignedReadings(3, speed), 0) << mode;
    EXPECT_FALSE(p.PushSpeedDerived);
  }
  // A batch run from the combined view exports the speeds of the sounding opened alone.
  BatchSettings b;
  TempDirectory out;
  RunBatchExport(session(), t_.prompts, b, {out.Path(), {}, {}, {}});
  EXPECT_FLOAT_EQ(p.AlignedReadings(3, speed), 1.9f);
  EXPECT_TRUE(session().CombinedModeActive);
  // And so does going back to batch mode.
  rederive();
  SetSelectionMode(session(), 0);
  EXPECT_FLOAT_EQ(p.AlignedReadings(3, speed), 1.9f);
  EXPECT_FALSE(session().CombinedModeActive);
}

TEST_F(SetAdjustmentsTest, TheNormalisedClassificationReachesEveryTestOfTheSet) {
  ASSERT_EQ(LoadSetFiles(session(), t_.prompts, {Write("A.DAT", SimpleDat(5).Bytes()), Write("P.CPT", SimpleCpt(5).Bytes())}),
            SetLoadOutcome::kLoaded);
  const auto has_ic = [this](int slot) { return ChannelNamed(SetStore(session(), slot), "Ic") != 0; };
  session().NormalisedClassification = 1;
  DeriveSetAgain(session());
  EXPECT_TRUE(has_ic(1) && has_ic(2));
  session().NormalisedClassification = 0;
  DeriveSetAgain(session());
  EXPECT_FALSE(has_ic(1) || has_ic(2));
}

TEST_F(SetAdjustmentsTest, WithoutAutomaticNamesEachBatchFileIsNamedInTheSaveDialog) {
  ASSERT_EQ(LoadSetFiles(session(), t_.prompts, {Write("A.DAT", SimpleDat(5).Bytes()), Write("P.CPT", SimpleCpt(5).Bytes())}),
            SetLoadOutcome::kLoaded);
  BatchSettings b;
  b.ListCsv = true;
  b.AutoFilenaming = false;
  TempDirectory out;
  // The first named without its extension, the second dialog cancelled.
  t_.prompts.Script({out.File("first"), ""});
  const BatchReport report = RunBatchExport(session(), t_.prompts, b, {out.Path(), {}, {}, {}});
  EXPECT_EQ(report.written, 1);
  EXPECT_EQ(report.skipped, 1);
  EXPECT_TRUE(FileExists(out.File("first.csv")));
  EXPECT_FALSE(FileExists(out.File("P.csv")));
  EXPECT_EQ(t_.prompts.LastFileRequest().default_name, "P.csv");
  EXPECT_EQ(t_.prompts.Texts().back(), "! EXPORT/PRINT COMPLETE");
}

}  // namespace
}  // namespace marlview::test
