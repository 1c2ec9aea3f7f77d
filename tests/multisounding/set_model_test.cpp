#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "core/common/file_access.h"
#include "core/common/text_rules.h"
#include "core/multisounding/batch_export.h"
#include "core/multisounding/combined_list.h"
#include "core/multisounding/set_model.h"
#include "core/multisounding/set_plot.h"
#include "core/presentation/sounding_exports.h"
#include "core/presentation/sounding_list.h"
#include "support/test_support.h"

namespace marlview::test {
namespace {

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  size_t start = 0;
  while (start < text.size()) {
    const size_t end = text.find("\r\n", start);
    lines.push_back(text.substr(start, end - start));
    start = end + 2;
  }
  return lines;
}

// A DAT sounding whose readings lie every step metres from first to last.
DatFile Spaced(double first, double step, int readings) {
  DatFile file = SimpleDat(readings);
  for (int r = 0; r < readings; ++r) file.rows[static_cast<size_t>(r)][0] = first + step * r;
  return file;
}

class SoundingSetTest : public ::testing::Test {
 protected:
  std::string Dat(const std::string& name, const DatFile& file) {
    files_.Write(name, file.Bytes());
    return files_.File(name);
  }
  Session& session() { return *t_.session; }

  TestSession t_;
  TempDirectory files_;
};

TEST_F(SoundingSetTest, ThirtyTestsLoadAndTheThirtyFirstIsRefusedBeforeAnyRead) {
  const std::string path = Dat("A.DAT", SimpleDat(5));
  std::vector<std::string> paths(30, path);
  EXPECT_EQ(LoadSetFiles(session(), t_.prompts, paths), SetLoadOutcome::kLoaded);
  EXPECT_EQ(session().set.tests.size(), 30u);
  t_.prompts.ClearLog();
  EXPECT_EQ(LoadSetFiles(session(), t_.prompts, {files_.File("missing.DAT")}), SetLoadOutcome::kRefused);
  EXPECT_EQ(t_.prompts.Texts(), std::vector<std::string>{"! MORE THAN 30 TESTS HAVE BEEN LOADED AND SELECTED"});
  EXPECT_EQ(session().set.tests.size(), 30u);
  // A test made current and put back leaves the session's own sounding where it was.
  SoundingStore* own = &session().Sounding();
  { CurrentTest current(session(), 3); EXPECT_NE(&session().Sounding(), own); }
  EXPECT_EQ(&session().Sounding(), own);
}

TEST_F(SoundingSetTest, AFileFailingInTheMiddleKeepsTheTestsBeforeIt) {
  const std::string good = Dat("A.DAT", SimpleDat(5));
  files_.Write("BAD.DAT", "not a sounding\r\n");
  EXPECT_EQ(LoadSetFiles(session(), t_.prompts, {good, files_.File("BAD.DAT"), good}), SetLoadOutcome::kFailed);
  EXPECT_EQ(session().set.tests.size(), 1u);
  EXPECT_FALSE(t_.prompts.Texts().empty());
}

TEST_F(SoundingSetTest, TestsOfDifferentIntervalsAndStartsShareOneGrid) {
  const std::string fine = Dat("FINE.DAT", Spaced(0.02, 0.02, 50));     // 0.02 .. 1.00
  const std::string coarse = Dat("SHORT.DAT", Spaced(0.5, 0.05, 3));    // 0.50 .. 0.60
  ASSERT_EQ(LoadSetFiles(session(), t_.prompts, {fine, coarse}), SetLoadOutcome::kLoaded);
  const SoundingStore& b = *session().set.tests[1].store;
  const std::vector<int> rows = CommonGridRows(b, 0.1f, 1);
  // Six rows to 0.60; none above the first reading less half a step; the nearest reading after.
  EXPECT_EQ(rows, (std::vector<int>{0, 0, 0, 0, 1, 3}));
  // Two equally near readings give the earlier: 0.625 between 0.50 and 0.75.
  ASSERT_EQ(LoadSetFiles(session(), t_.prompts, {Dat("TIE.DAT", Spaced(0.5, 0.25, 3))}), SetLoadOutcome::kLoaded);
  EXPECT_EQ(CommonGridRows(*session().set.tests[2].store, 0.125f, 1)[4], 1);
  session().set.tests[2].selected = false;

  session().set.CommonDepthInterval = 0.1f;
  const std::string name = SetChannelNames(session()).front();
  const auto lines = Lines(CombinedListExport(session(), {{name}, CombinedForm::kCsv, false}));
  ASSERT_EQ(lines.size(), 12u);  // heading, units, ten grid rows to 1.00
  EXPECT_EQ(lines[2].substr(0, 6), "0.100,");
  EXPECT_EQ(lines[2].back(), ',');                       // the short test is empty above its start
  EXPECT_NE(lines[6].back(), ',');                       // and filled at 0.50
  EXPECT_EQ(lines[11].substr(0, 6), "1.000,");
  EXPECT_EQ(lines[11].back(), ',');                      // and empty past its end

  // The plot's read-out below the short test's end shows "No Data" for it alone.
  const SetPlotLayout layout = LayoutSetPlot(session(), SetView::kCombined, {name});
  EXPECT_EQ(layout.legend[1].max_depth, GridDepth(0.1f, 6));
  const auto readout = SetReadoutAt(layout, {0, 0, 100, 100}, session(), 90);
  ASSERT_TRUE(readout.has_value());
  EXPECT_EQ(readout->depth, "0.90");
  EXPECT_NE(readout->values[0][0], "No Data");
  EXPECT_EQ(readout->values[0][1], "No Data");
  EXPECT_FALSE(SetReadoutAt(layout, {0, 0, 100, 100}, session(), 120).has_value());
}

TEST_F(SoundingSetTest, AChannelOneTestLacksLeavesItsCellsEmpty) {
  DatFile two = SimpleDat(5);
  two.channels.pop_back();
  for (auto& row : two.rows) row.pop_back();
  ASSERT_EQ(LoadSetFiles(session(), t_.prompts, {Dat("A.DAT", SimpleDat(5)), Dat("B.DAT", two)}),
            SetLoadOutcome::kLoaded);
  session().set.CommonDepthInterval = 0.02f;
  const SoundingStore& a = *session().set.tests[0].store;
  const std::string pore = a.ChannelName[a.PorePressureChannel];
  const auto lines = Lines(CombinedListExport(session(), {{pore}, CombinedForm::kCsv, false}));
  // Both columns headed from the first test, the second test's cells empty.
  EXPECT_EQ(std::count(lines[0].begin(), lines[0].end(), ','), 2);
  const size_t first = lines[0].find(','), second = lines[0].rfind(',');
  EXPECT_EQ(lines[0].substr(first + 1, second - first - 1), lines[0].substr(second + 1));
  EXPECT_EQ(lines[3].back(), ',');
}

TEST_F(SoundingSetTest, HeaderBlocksOfBothFamiliesInEveryForm) {
  files_.Write("P.CPT", SimpleCpt(5).Bytes());
  ASSERT_EQ(LoadSetFiles(session(), t_.prompts, {Dat("A.DAT", SimpleDat(5)), files_.File("P.CPT")}),
            SetLoadOutcome::kLoaded);
  session().set.CommonDepthInterval = 0.02f;
  const auto dat = CombinedHeaderBlock(session(), 1, 1);
  EXPECT_EQ(dat.front(), "CPT DATA,TEST #1");
  EXPECT_EQ(dat[1], "FILENAME,A.DAT");
  EXPECT_EQ(dat[3], "OPERATOR,CREW,J. Ferreira,D. Okafor");
  EXPECT_EQ(dat[17], "TIP CONFIGURATION: Conventional");
  EXPECT_EQ(dat[18], "WATER TABLE (m),2.40");
  EXPECT_EQ(std::vector<std::string>(dat.end() - 3, dat.end()),
            (std::vector<std::string>{"HEADER: ", "FOOTNOTE 1: ", "FOOTNOTE 2: "}));
  const auto cpt = CombinedHeaderBlock(session(), 2, 2);
  EXPECT_EQ(cpt.front(), "CPT DATA,TEST #2");
  EXPECT_EQ(cpt[1], "FILE,P.CPT");
  EXPECT_EQ(cpt[8], "GPS (Lat Lon Elev),49.2031,-122.9157,4.2");
  EXPECT_EQ(cpt[9], "WATER TABLE (m),2.35");
  EXPECT_EQ(cpt[10], "HEADER: Pushed beside BH-3");

  const std::string name = SetChannelNames(session()).front();
  for (CombinedForm form : {CombinedForm::kTxt, CombinedForm::kCsv, CombinedForm::kCor}) {
    const auto lines = Lines(CombinedListExport(session(), {{name}, form, true}));
    const size_t blocks = dat.size() + cpt.size();
    EXPECT_EQ(std::vector<std::string>(lines.begin(), lines.begin() + static_cast<long>(dat.size())), dat);
    EXPECT_EQ(lines[dat.size()], cpt.front());
    const size_t heading = blocks + (form == CombinedForm::kCor ? 2 : 0);
    EXPECT_EQ(TrimBlanks(lines[heading]).substr(0, 5), "Depth") << CombinedExtension(form);
    const auto bare = Lines(CombinedListExport(session(), {{name}, form, false}));
    EXPECT_EQ(std::vector<std::string>(lines.begin() + static_cast<long>(heading), lines.end()), bare);
  }
}

TEST_F(SoundingSetTest, BatchFilesEqualTheSingleExportsAndAFailingFileLetsTheRunGoOn) {
  const std::string a = Dat("A.DAT", SimpleDat(8));
  files_.Write("P.CPT", SimpleCpt(6).Bytes());
  ASSERT_EQ(LoadSetFiles(session(), t_.prompts, {a, files_.File("P.CPT")}), SetLoadOutcome::kLoaded);
  BatchSettings b;
  b.ListTxt = b.ListCsv = b.ListCor = b.ListEcp = b.ListGin = true;
  b.IncludeHeaderCsv = false;
  b.GinUnit = 3;
  TempDirectory out;
  // A folder in the way of one target makes that file fail.
  std::filesystem::create_directories(out.File("P.csv"));
  int calls = 0;
  const BatchReport report = RunBatchExport(session(), t_.prompts, b,
                                            {out.Path(), {}, {}, [&](int, int) { return ++calls, false; }});
  EXPECT_EQ(report.written, 9);
  EXPECT_EQ(report.failed, 1);
  EXPECT_EQ(t_.prompts.Texts().back(), "! EXPORT/PRINT COMPLETE");

  // The same sounding opened alone and exported by the single writers.
  TestSession single;
  ASSERT_EQ(OpenSounding(single, SimpleDat(8)), ReadOutcome::kLoaded);
  Session& s = *single.session;
  s.Sounding().SoundingFileName = session().set.tests[0].store->SoundingFileName;
  ExportOptions o;
  o.channels = DefaultListSelection(s.Sounding());
  EXPECT_EQ(ReadWholeFile(out.File("A.txt")), TxtExport(s, o));
  o.include_header = false;
  EXPECT_EQ(ReadWholeFile(out.File("A.csv")), CsvExport(s, o, "csv"));
  EXPECT_EQ(ReadWholeFile(out.File("A.gIN")), GinExport(s, GinUnit::kMpa));
  EXPECT_TRUE(FileExists(out.File("P.ecp")));

  // Cancel between files: nothing after it is written.
  TempDirectory second;
  const BatchReport stopped = RunBatchExport(session(), t_.prompts, b,
                                             {second.Path(), {}, {}, [](int done, int) { return done == 1; }});
  EXPECT_TRUE(stopped.cancelled);
  EXPECT_EQ(stopped.written, 1);
  EXPECT_EQ(ReadBatchSettings(session()).GinUnit, 3);
}

TEST_F(SoundingSetTest, SelectionChecksRefuseInTheirOrder) {
  ASSERT_EQ(LoadSetFiles(session(), t_.prompts, std::vector<std::string>(7, Dat("A.DAT", SimpleDat(5)))),
            SetLoadOutcome::kLoaded);
  std::vector<std::string> channels;
  const auto names = SetChannelNames(session());
  for (int i = 0; i < 6; ++i) EXPECT_TRUE(ToggleSetChannel(channels, names[static_cast<size_t>(i)], t_.prompts));
  EXPECT_FALSE(ToggleSetChannel(channels, names[6], t_.prompts));
  EXPECT_EQ(t_.prompts.Texts().back(), "! A maximum of 6 channels can be graphed at a time.");
  EXPECT_FALSE(CheckSetPlot(session(), SetView::kCombined, channels, t_.prompts));
  EXPECT_EQ(t_.prompts.Texts().back(), "! A MAXIMUM OF 6 TESTS CAN BE SELECTED");
  session().set.tests[6].selected = false;
  EXPECT_FALSE(CheckSetList(session(), SetView::kCombined, {names[0]}, t_.prompts));
  EXPECT_EQ(t_.prompts.Texts().back(), "! DEPTH INTERVAL MUST BE GREATER THAN 0");
}

}  // namespace
}  // namespace marlview::test
