// The dissipation list of one test, its text and CSV exports, the printed list, and the editors'
// whole-file exports, against hand-worked numbers and reviewed golden files.
#include "core/dissipation/dissipation_list.h"

#include <gtest/gtest.h>

#include <deque>

#include "core/common/file_access.h"
#include "core/dissipation/dissipation_controller.h"
#include "core/presentation/print_job.h"
#include "core/presentation/recording_surface.h"
#include "core/shell/shell_controller.h"
#include "dissipation_files.h"
#include "support/test_support.h"

namespace marlview {
namespace {

using test::DissipationTest;
using test::Join;

const DissipationTest kShallow{6.5, {{1, 2.4, 90.0, 620.0}, {2, 2.3, 85.0, 580.0}, {10, 1.2, 40.0, 300.0}}};
const DissipationTest kDeep{12.75, {{1, 2.4, 90.0, 700.0}, {5, 2.3, 85.0, -3.5}}};
// PX DAS raw counts: kPa = (raw - 1000) / 2 x 0.5.
const DissipationTest kPxShallow{5.25, {{1, 0, 0, 3400}, {2, 0, 0, 3000}, {30, 0, 0, 1400}}};
const DissipationTest kPxDeep{9.75, {{1, 0, 0, 5000}, {12345, 0, 0, 200}}};

// Pages of a fixed size, each drawn on a surface of its own.
struct RecordingJob : PrintJob {
  DrawingSurface& NewPage() override { return pages.emplace_back(); }
  bool EndDoc() override { return true; }
  double PageWidthPoints() const override { return 612; }
  double PageHeightPoints() const override { return 792; }
  std::deque<RecordingSurface> pages;
};

class DissipationListTest : public ::testing::Test {
 protected:
  DissipationListTest() : shell(*t.session, t.prompts) {}

  void Open(const std::string& name, const std::string& bytes) {
    t.data.Write(name, bytes);
    t.prompts.Script({t.data.File(name)});
    shell.ChooseMode(ProcessingMode::kDissipations);
    ASSERT_TRUE(shell.Dissipations().View().frame_visible) << name;
    t.prompts.ClearLog();
  }
  void SetWaterTable(float metres) {
    t.session->Dissipation().WaterTableDepth = metres;
    shell.Dissipations().WaterTableChanged();
  }
  const DissipationSet& Set() const { return t.session->Dissipation(); }

  test::TestSession t;
  ShellController shell;
};

TEST_F(DissipationListTest, ColumnsHeadingsAndCellsOfAFieldboxTest) {
  Open("DIS-T01.DIS", Join(test::FieldboxLines({kShallow, kDeep})));
  EXPECT_EQ(DissipationListCaption(Set()), "DIS-T01.DISDISSIPATION D");
  DissipationListView view{1, false, false};
  std::vector<std::string> lines = DissipationListLines(*t.session, view);
  ASSERT_EQ(lines.size(), 5u);
  // "   Pore Pressure" is 16 characters, wider than the 15 of the pressure format.
  EXPECT_EQ(lines[0], "   Time   Pore Pressure");
  EXPECT_EQ(lines[1], "    (S)           (kPa)");
  EXPECT_EQ(lines[2], "    1.0         620.000");
  EXPECT_EQ(lines[4], "   10.0         300.000");

  // Percent of maximum: 580 / 620 = 93.548 %, 300 / 620 = 48.387 %.
  view.show_percent_max = true;
  lines = DissipationListLines(*t.session, view);
  EXPECT_EQ(lines[0], "   Time   Pore Pressure   % Max Pressure");
  EXPECT_EQ(lines[1], "    (S)           (kPa)                %");
  EXPECT_EQ(lines[3], "    2.0         580.000            93.55");
  EXPECT_EQ(lines[4], "   10.0         300.000            48.39");

  // Without a water table the head column stays away even with its menu on.
  view.show_percent_head = true;
  EXPECT_FALSE(PercentHeadAvailable(Set(), 1));
  EXPECT_EQ(DissipationListColumns(*t.session, view).size(), 3u);
  SetWaterTable(2.4f);
  ASSERT_TRUE(PercentHeadAvailable(Set(), 1));
  const std::vector<DissipationColumn> columns = DissipationListColumns(*t.session, view);
  ASSERT_EQ(columns.size(), 4u);
  EXPECT_EQ(columns[3].heading, "   % Over Head Pressure");
  EXPECT_EQ(columns[3].unit_line, "                      %");
  EXPECT_EQ(DissipationListCell(Set(), view, 1, 3).size(), 23u);
  // Head percent only: it takes the third column.
  view.show_percent_max = false;
  EXPECT_EQ(DissipationListCell(Set(), view, 1, 2), DissipationListCell(Set(), {1, true, true}, 1, 3));
}

TEST_F(DissipationListTest, PxDasHeadPercentWorkedByHand) {
  Open("PXD-T04.DIS", Join(test::PxLines({kPxShallow, kPxDeep})));
  // Water table 2.10 m, test at 5.25 m, a metre of water 1 / 0.102 kPa: head 30.882 kPa.
  const DissipationListView view{1, true, true};
  const std::vector<std::string> lines = DissipationListLines(*t.session, view);
  EXPECT_EQ(lines[0], "   Time    PRESSURE U2   % Max Pressure   % Over Head Pressure");
  EXPECT_EQ(lines[1], "    (S)          (kPa)                %                      %");
  // 600 kPa: 100 % of the maximum, (600 - 30.882) / 30.882 = 1842.86 % over head.
  EXPECT_EQ(lines[2], "    1.0        600.000           100.00                1842.86");
  // 100 kPa: 16.67 % of the maximum, 223.81 % over head.
  EXPECT_EQ(lines[4], "   30.0        100.000            16.67                 223.81");
  // The time of five digits fills its column.
  EXPECT_EQ(DissipationListCell(Set(), {2, false, false}, 2, 0), "12345.0");
  EXPECT_EQ(DissipationListCell(Set(), {2, false, false}, 2, 1), "       -200.000");
}

TEST_F(DissipationListTest, CsvColumnsFollowTheTwoMenus) {
  Open("DIS-T01.DIS", Join(test::FieldboxLines({kShallow, kDeep})));
  auto lines_of = [&](const DissipationListView& view) {
    std::vector<std::string> lines;
    const std::string csv = DissipationCsvExport(*t.session, view);
    for (size_t at = 0, end; (end = csv.find("\r\n", at)) != std::string::npos; at = end + 2) {
      lines.push_back(csv.substr(at, end - at));
    }
    return lines;
  };
  std::vector<std::string> lines = lines_of({2, false, false});
  // Undefined water table: the head stays away, and the head line says so with its blank.
  EXPECT_EQ(lines[18], "WATER TABLE DEPTH (m), UNDEFINED");
  EXPECT_EQ(lines[19], "PP TEST DEPTH (m),12.75");
  // The column line keeps its comma after the pressure; the rows end without one.
  EXPECT_EQ(lines[20], "Time (S),Pore Pressure (kPa),");
  EXPECT_EQ(lines[21], "1.0,700.000");
  // A negative pressure has no "+" in the list's export.
  EXPECT_EQ(lines[22], "5.0,-3.500");
  ASSERT_EQ(lines.size(), 23u);

  SetWaterTable(2.4f);
  lines = lines_of({2, false, true});
  EXPECT_EQ(lines[18], "WATER TABLE DEPTH (m),2.40");
  EXPECT_EQ(lines[20], "Time (S),Pore Pressure (kPa),Percent Over Hydrostatic (%)");
  lines = lines_of({2, true, false});
  EXPECT_EQ(lines[20], "Time (S),Pore Pressure (kPa),Percent Max Pressure (%)");
  EXPECT_EQ(lines[22], "5.0,-3.500,-0.50");

  t.session->DepthUnitIsMetric = 0;
  lines = lines_of({2, true, true});
  EXPECT_EQ(lines[18], "WATER TABLE DEPTH (ft),7.87");
  EXPECT_EQ(lines[19], "PP TEST DEPTH (ft),41.83");
  EXPECT_EQ(lines[20], "Time (S),Pore Pressure (kPa),Percent Max Pressure (%),Percent Over Hydrostatic (%)");
}

TEST_F(DissipationListTest, FieldboxListExportsMatchTheirGoldenFiles) {
  Open("DIS-T01.DIS", Join(test::FieldboxLines({kShallow, kDeep})));
  SetWaterTable(2.4f);
  test::ExpectGolden(DissipationTxtExport(*t.session, {1, true, true}),
                     "dissipation/fieldbox_list.expected.txt");
  test::ExpectGolden(DissipationCsvExport(*t.session, {1, true, true}),
                     "dissipation/fieldbox_list.expected.csv");
}

TEST_F(DissipationListTest, PxDasAndFldacqListExportsTakeThePxHeader) {
  Open("PXD-T04.DIS", Join(test::PxLines({kPxShallow, kPxDeep})));
  test::ExpectGolden(DissipationTxtExport(*t.session, {1, true, false}), "dissipation/px_list.expected.txt");
  test::ExpectGolden(DissipationCsvExport(*t.session, {1, false, true}), "dissipation/px_list.expected.csv");
  Open("FLDACQ-T02-001", Join(test::FldacqLines({{20.0, {{1, 0, 0, 30.5}, {4, 0, 0, 22.25}}}}, "ACME CPT")));
  const std::string txt = DissipationTxtExport(*t.session, {1, false, false});
  EXPECT_TRUE(txt.starts_with("CPT PORE PRESSURE DATA\r\nFILE: FLDACQ-T02-001\r\nTEST DATE / TIME: \r\n"))
      << txt;
  EXPECT_TRUE(
      txt.ends_with("    (S)           (PSI)\r\n    1.0          30.500\r\n    4.0          22.250\r\n"))
      << txt;
}

TEST_F(DissipationListTest, PrintedListHasItsHeaderThenTheTable) {
  Open("DIS-T01.DIS", Join(test::FieldboxLines({kShallow, kDeep})));
  EXPECT_EQ(DissipationPrintHeader(*t.session, {1, false, false}),
            (std::vector<std::string>{"PORE PRESSURE DISSIPATION DATA: DIS-T01.DIS", "LOCATION: CPT-A01 east",
                                      "DATE: " + Set().TestDate, "", "DISSIPATION DEPTH (m): 6.50",
                                      "MAXIMUM PRESSURE (kPa): 620.000", "WATER TABLE DEPTH (m): UNDEFINED",
                                      "HEAD PRESSURE (kPa): 0.000"}));
  RecordingJob job;
  PrintDissipationList(job, *t.session, {1, true, false});
  ASSERT_EQ(job.pages.size(), 1u);
  std::vector<std::string> texts;
  for (const RecordedCall& call : job.pages[0].Texts()) texts.push_back(call.text);
  EXPECT_EQ(texts.front(), "PORE PRESSURE DISSIPATION DATA: DIS-T01.DIS");
  // Each cell is printed apart, right-aligned at its column's edge.
  EXPECT_EQ(std::vector<std::string>(texts.end() - 3, texts.end()),
            (std::vector<std::string>{"10.0", "300.000", "48.39"}));
  const std::vector<RecordedCall> calls = job.pages[0].Texts();
  EXPECT_DOUBLE_EQ(calls[calls.size() - 2].x1 + 7 * job.pages[0].TextWidth("0"),
                   calls[calls.size() - 5].x1 + 7 * job.pages[0].TextWidth("0"));

  // A long test runs onto further pages.
  Open("DIS-T02.DIS",
       Join(test::FieldboxLines({{3.0, std::vector<test::DissipationRow>(120, {1, 0, 0, 5})}})));
  RecordingJob long_job;
  PrintDissipationList(long_job, *t.session, {1, false, false});
  EXPECT_GE(long_job.pages.size(), 3u);
}

TEST_F(DissipationListTest, ListSaveAsksBeforeReplacingAFile) {
  Open("DIS-T01.DIS", Join(test::FieldboxLines({kShallow, kDeep})));
  const std::string path = t.data.File("list.csv");
  t.prompts.Script({path});
  ASSERT_TRUE(SaveDissipationList(*t.session, t.prompts, {1, false, false}, true));
  EXPECT_EQ(t.prompts.LastFileRequest().filter, "CSV Files (*.csv)|*.csv");
  EXPECT_EQ(ReadWholeFile(path), DissipationCsvExport(*t.session, {1, false, false}));
  t.prompts.Script({t.data.File("list"), "No"});
  EXPECT_FALSE(SaveDissipationList(*t.session, t.prompts, {1, true, false}, true));
  EXPECT_EQ(t.prompts.Texts().back(), "? list.csv already exists. Overwrite? -> No");
  EXPECT_EQ(ReadWholeFile(path), DissipationCsvExport(*t.session, {1, false, false}));
  t.prompts.Script({t.data.File("list.txt")});
  ASSERT_TRUE(SaveDissipationList(*t.session, t.prompts, {1, false, false}, false));
  EXPECT_EQ(t.prompts.LastFileRequest().filter, "TXT Files (*.txt)|*.txt");
  t.prompts.Script({""});
  EXPECT_FALSE(SaveDissipationList(*t.session, t.prompts, {1, false, false}, false));
}

TEST_F(DissipationListTest, WholeFileExportsOfBothEditors) {
  Open("DIS-T01.DIS", Join(test::FieldboxLines({kShallow, kDeep})));
  test::ExpectGolden(DissipationWholeFileExport(*t.session, false),
                     "dissipation/fieldbox_whole.expected.txt");
  test::ExpectGolden(DissipationWholeFileExport(*t.session, true), "dissipation/fieldbox_whole.expected.csv");
  Open("PXD-T04.DIS", Join(test::PxLines({kPxShallow, kPxDeep})));
  test::ExpectGolden(DissipationWholeFileExport(*t.session, false), "dissipation/px_whole.expected.txt");
  test::ExpectGolden(DissipationWholeFileExport(*t.session, true), "dissipation/px_whole.expected.csv");
}

TEST_F(DissipationListTest, WholeFileRowsSignAndPad) {
  Open("DIS-T01.DIS", Join(test::FieldboxLines({kShallow, kDeep})));
  const std::string csv = DissipationWholeFileExport(*t.session, true, {2});
  EXPECT_NE(csv.find("DISSIPATION DEPTH (m):,12.75\r\nTIME (S),PRESSURE (kPa)\r\n"
                     "     1.000,      +700.000\r\n     5.000,        -3.500\r\n"),
            std::string::npos)
      << csv;
  const std::string txt = DissipationWholeFileExport(*t.session, false, {1});
  EXPECT_NE(
      txt.find("DISSIPATION DEPTH (m):6.50\r\nTIME (S)    PRESSURE (kPa)\r\n     1.000      +620.000\r\n"),
      std::string::npos)
      << txt;
}

TEST_F(DissipationListTest, OneFilePerTestNamedByDepthAskingBeforeReplacing) {
  Open("DIS-T01.DIS", Join(test::FieldboxLines({kShallow, kDeep})));
  const std::string out = t.data.File("out.csv");
  EXPECT_EQ(PerTestExportPath(*t.session, out, 2), t.data.File("out_12.75.csv"));
  EXPECT_EQ(PerTestExportPath(*t.session, t.data.Path() + "/a.b/out", 1), t.data.Path() + "/a.b/out_6.50");
  t.data.Write("out_6.50.csv", "kept");
  t.prompts.Script({"No"});
  ExportWholeDissipationFile(*t.session, t.prompts, out, true, true);
  EXPECT_EQ(t.prompts.Texts(), (std::vector<std::string>{"? out_6.50.csv already exists. Overwrite? -> No"}));
  EXPECT_EQ(ReadWholeFile(t.data.File("out_6.50.csv")), "kept");
  EXPECT_EQ(ReadWholeFile(t.data.File("out_12.75.csv")), DissipationWholeFileExport(*t.session, true, {2}));
  EXPECT_FALSE(FileExists(out));

  t.session->DepthUnitIsMetric = 0;
  EXPECT_EQ(PerTestExportPath(*t.session, out, 1), t.data.File("out_21.33.csv"));
  ExportWholeDissipationFile(*t.session, t.prompts, t.data.File("all.txt"), false, false);
  EXPECT_NE(ReadWholeFile(t.data.File("all.txt")).find("DISSIPATION DEPTH (ft):41.83\r\n"),
            std::string::npos);
}

TEST_F(DissipationListTest, AnExportPastTheTestsFailsWithItsProcedure) {
  Open("DIS-T01.DIS", Join(test::FieldboxLines({kShallow})));
  EXPECT_FAILURE(DissipationCsvExport(*t.session, {2, false, false}), kErrSubscript, "");
  t.prompts.Script({t.data.File("x.txt")});
  EXPECT_FAILURE(SaveDissipationList(*t.session, t.prompts, {2, false, false}, false), kErrSubscript,
                 "mnuSaveFile_Click");
  EXPECT_FALSE(FileExists(t.data.File("x.txt")));
}

}  // namespace
}  // namespace marlview
