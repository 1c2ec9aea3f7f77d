// The three dissipation readers, the open flow with its refusals, and the percentage series.
#include "core/dissipation/dissipation_readers.h"

#include <gtest/gtest.h>

#include "core/dissipation/dissipation_controller.h"
#include "core/model/unit_tables.h"
#include "core/session/session.h"
#include "core/shell/shell_controller.h"
#include "dissipation_files.h"
#include "support/test_support.h"

namespace marlview {
namespace {

using test::DissipationRow;
using test::DissipationTest;
using test::Join;

const DissipationTest kShallow{6.5, {{1, 2.4, 90.0, 620.0}, {2, 2.3, 85.0, 580.0}, {10, 1.2, 40.0, 300.0}}};
const DissipationTest kDeep{12.75, {{1, 2.4, 90.0, 700.0}, {5, 2.3, 85.0, 350.0}}};

class DissipationOpenTest : public ::testing::Test {
 protected:
  DissipationOpenTest() : shell(*t.session, t.prompts) {}

  // Writes bytes as name in the data folder and opens it through the dissipation option.
  bool Open(const std::string& name, const std::string& bytes) {
    t.data.Write(name, bytes);
    return OpenPath(t.data.File(name));
  }
  bool OpenPath(const std::string& path) {
    t.prompts.ClearLog();
    t.prompts.Script({path});
    shell.ChooseMode(ProcessingMode::kDissipations);
    return shell.Dissipations().View().frame_visible;
  }
  const DissipationSet& Set() const { return t.session->Dissipation(); }

  test::TestSession t;
  ShellController shell;
};

TEST_F(DissipationOpenTest, FieldboxFileFillsHeaderChannelsAndTests) {
  ASSERT_TRUE(Open("DIS-T01.DIS", Join(test::FieldboxLines({kShallow, kDeep}))));
  const DissipationSet& s = Set();
  EXPECT_EQ(s.FileKind, kFieldboxDissipation);
  EXPECT_EQ(t.prompts.LastFileRequest().filter,
            "PX DAS/QRD FIELDBOX-FLDREC (*.DIS)|*.DIS|QRD-FIELDBOX-FLDACQ (*.*)|*.*|ALL SYSTEMS "
            "(*.DIS;*.*)|*.DIS;*.*|GEF (*.GEF)|*.GEF");
  EXPECT_EQ(s.SectionMarker, "HARBOURLINE GEOTECHNICAL LTD.");
  EXPECT_EQ(s.TestId, "A01");
  EXPECT_EQ(s.Operator, "M. Lindqvist");
  EXPECT_EQ(s.Crew, "R. Osei");
  EXPECT_EQ(s.Location, "CPT-A01 east");
  EXPECT_EQ(s.GpsLatitude, "49.2031N");
  EXPECT_EQ(s.GpsQuality, "2 ");
  EXPECT_EQ(s.DasVersion, "4.2.1");
  EXPECT_EQ(s.ProbeSerialNumber, "DC-15T-0417");
  ASSERT_EQ(s.ChannelCount, 3);
  EXPECT_EQ(s.ChannelName[3], "Pore Pressure");
  EXPECT_EQ(s.ChannelUnit[3], "(psi)");
  EXPECT_EQ(s.PorePressureChannel, 3);
  // "-1.#IND" stands for an undefined factor and reads as 1.
  EXPECT_FLOAT_EQ(s.ChannelBaseline[2], 1.0f);
  EXPECT_FLOAT_EQ(s.ChannelCal[2][1], 98.41f);
  // kPa is row 2 of the pressure units: a metre of water is 9.806 kPa.
  EXPECT_EQ(s.PressureUnitIndex, 2);
  EXPECT_FLOAT_EQ(s.PressurePerMetreHead, 9.806f);
  ASSERT_EQ(s.DissipationCount, 2);
  EXPECT_FLOAT_EQ(s.TestDepth[2], 12.75f);
  ASSERT_EQ(s.RowCount[1], 3);
  EXPECT_EQ(s.RowTime(1, 3), 10);
  EXPECT_FLOAT_EQ(s.RowChannelB(1, 3), 40.0f);
  EXPECT_FLOAT_EQ(s.RowPressure(1, 3), 300.0f);
  EXPECT_FLOAT_EQ(s.MaxPressure[1], 620.0f);
  EXPECT_FLOAT_EQ(s.PercentMax(1, 3), 300.0f / 620.0f * 100.0f);
  const DissipationView& view = shell.Dissipations().View();
  EXPECT_EQ(view.list_caption, "AVAILABLE DISSIPATION DEPTHS (m)");
  EXPECT_EQ(view.depth_rows, (std::vector<std::string>{"6.50", "12.75"}));
  EXPECT_EQ(view.info, "FILENAME: DIS-T01.DIS\nLOCATION: CPT-A01 east\nWATER TABLE DEPTH: UNDEFINED");
  EXPECT_EQ(t.session->DissipationDirectory, t.data.Path() + "/");
  EXPECT_TRUE(t.prompts.Texts().empty());
}

TEST_F(DissipationOpenTest, FieldboxRowsShorterThan55CharactersAreSkipped) {
  std::vector<std::string> lines = test::FieldboxLines({{4.0, {{1, 1, 1, 100}, {2, 1, 1, 90}}}});
  ASSERT_EQ(lines.back().size(), 55u);
  lines.back().pop_back();  // 54 characters
  lines.push_back(test::FieldboxRow({3, 1, 1, 80}) + "   ");
  ASSERT_TRUE(Open("ROWS.DIS", Join(lines)));
  ASSERT_EQ(Set().RowCount[1], 2);
  EXPECT_EQ(Set().RowTime(1, 2), 3);
}

TEST_F(DissipationOpenTest, TheUnitLineIsReadOnceAndAnUnknownUnitLeavesNoHead) {
  ASSERT_TRUE(Open("PSI.DIS", Join(test::FieldboxLines({kShallow}, "psi"))));
  EXPECT_EQ(Set().PressureUnitIndex, 14);
  EXPECT_NEAR(Set().PressurePerMetreHead, 1.42223, 1e-4);
  ASSERT_TRUE(Open("ODD.DIS", Join(test::FieldboxLines({kShallow}, "furlongs"))));
  EXPECT_EQ(Set().PressureUnitIndex, 0);
  t.session->Dissipation().WaterTableDepth = 1;
  ComputeHeadPercent(t.session->Dissipation(), 1);
  EXPECT_FLOAT_EQ(Set().PercentHead(1, 1), 0);
}

// A metre of water is 9806 Pa: the head per metre is 9806 over the unit's pascals.
TEST_F(DissipationOpenTest, TheHeadOfAMetreOfWaterInEachUnitAFileCanName) {
  struct Case {
    const char* unit;
    int row;
    double per_metre;
  };
  const Case cases[] = {
      {"Pa", 1, 9806.0},         // 9806 / 1
      {"kPa", 2, 9.806},         // 9806 / 1000
      {"bar", 3, 0.09806},       // 9806 / 100000
      {"atm", 10, 0.0967777},    // 9806 / 101325
      {"tsf", 11, 0.1024013},    // 9806 / 95760.518
      {"kN/m^2", 13, 9.806},     // 9806 / 1000
      {"psi", 14, 1.4222401},    // 9806 / 6894.7573
      {"MPa", 15, 0.009806},     // 9806 / 1000000
  };
  for (const Case& c : cases) {
    ASSERT_TRUE(Open("UNIT.DIS", Join(test::FieldboxLines({kShallow}, c.unit)))) << c.unit;
    EXPECT_EQ(Set().PressureUnitIndex, c.row) << c.unit;
    EXPECT_NEAR(Set().PressurePerMetreHead, c.per_metre, c.per_metre * 1e-6) << c.unit;
  }
  // A data directory that still holds the kilopascal table of earlier versions gives the same heads.
  t.data.Write("PressureUnits.txt", "Pa\r\n0.001\r\nkPa\r\n1\r\nbar\r\n100\r\nMPa\r\n1000\r\n");
  SetupTYRChannels(t.session->units, t.data.Path(), t.session->FeetPerMetre);
  ASSERT_TRUE(Open("OLD.DIS", Join(test::FieldboxLines({kShallow}, "kPa"))));
  EXPECT_FLOAT_EQ(Set().PressurePerMetreHead, 9.806f);
  ASSERT_TRUE(Open("OLD.DIS", Join(test::FieldboxLines({kShallow}, "MPa"))));
  EXPECT_FLOAT_EQ(Set().PressurePerMetreHead, 0.009806f);
}

TEST_F(DissipationOpenTest, HydrostaticPressureAndPercentOfHeadOfTheDemoFile) {
  ASSERT_TRUE(OpenPath(test::SamplesDirectory() + "/DIS-A01.DIS"));
  t.session->Dissipation().WaterTableDepth = 2.4f;
  shell.Dissipations().WaterTableChanged();
  const DissipationSet& s = Set();
  // Test 1 at 6.5 m: 4.1 m of water is 4.1 x 9.806 = 40.2046 kPa; the first row, 411.34083 kPa, is
  // (411.34083 - 40.2046) / 40.2046 x 100 = 923.119 % of the head.
  EXPECT_NEAR(s.HydrostaticPressure[1], 40.2046, 1e-3);
  EXPECT_NEAR(s.PercentHead(1, 1), 923.119, 1e-2);
  // Test 2 at 12.8 m: 10.4 x 9.806 = 101.9824 kPa; 635.80188 kPa is 523.443 % of it.
  EXPECT_NEAR(s.HydrostaticPressure[2], 101.9824, 1e-3);
  EXPECT_NEAR(s.PercentHead(2, 1), 523.443, 1e-2);
}

TEST_F(DissipationOpenTest, PxDasFileConvertsItsRawColumn) {
  ASSERT_TRUE(Open("PXD-T04.DIS", Join(test::PxLines({{5.25, {{1, 0, 0, 3400}, {2, 0, 0, 3000}}},
                                                      {9.75, {{1, 0, 0, 5000}}}}))));
  const DissipationSet& s = Set();
  EXPECT_EQ(s.FileKind, kPxDasDissipation);
  EXPECT_EQ(s.Customer, "Northfield Drilling");
  EXPECT_EQ(s.PxLocation, "Pier 7");
  EXPECT_EQ(s.Comment3, "comment three");
  EXPECT_EQ(s.GpsLatitude, "4912.1860N");
  EXPECT_EQ(s.GpsLongitude, "12254.9420W");
  EXPECT_EQ(s.GpsElevation, "4.2");
  EXPECT_EQ(s.GpsSatellites, "0");
  EXPECT_FLOAT_EQ(s.WaterTableDepth, 2.1f);
  EXPECT_EQ(s.PressureColumn, 41);
  EXPECT_EQ(s.PressureChannelName, "PRESSURE U2");
  EXPECT_EQ(s.PressureUnitName, "kPa");
  EXPECT_EQ(s.PXHeaderLine[1], "PX DAS DISSIPATION RECORD");
  EXPECT_NEAR(s.PressurePerMetreHead, 1 / 0.102, 1e-4);
  ASSERT_EQ(s.DissipationCount, 2);
  EXPECT_FLOAT_EQ(s.TestDepth[1], 5.25f);
  // The divisor "2,000" is written with a decimal comma: (3400 - 1000) / 2 x 0.5 x 1.
  EXPECT_FLOAT_EQ(s.RowPressure(1, 1), 600.0f);
  EXPECT_FLOAT_EQ(s.RowChannelA(1, 2), 3000.0f);
  EXPECT_EQ(s.RowText[1][2], test::PxRow(2, 3000));
  EXPECT_FLOAT_EQ(s.HydrostaticPressure[1], (5.25f - 2.1f) * s.PressurePerMetreHead);
  EXPECT_EQ(shell.Dissipations().View().info,
            "FILENAME: PXD-T04.DIS\nLOCATION: Pier 7\nWATER TABLE DEPTH: 2.10 (m)");
}

TEST_F(DissipationOpenTest, ADisFileOfUnknownFirstLineIsReadAsTheKindBefore) {
  std::vector<std::string> lines = test::PxLines({{5.25, {{1, 0, 0, 3400}}}});
  ASSERT_TRUE(Open("PXD-T04.DIS", Join(lines)));
  lines[0] = "Dissipation export of some other kind";
  lines[1] = "Another customer";
  ASSERT_TRUE(Open("OTHER.dis", Join(lines)));
  EXPECT_EQ(Set().FileKind, kPxDasDissipation);
  EXPECT_EQ(Set().Customer, "Another customer");
}

TEST_F(DissipationOpenTest, FldacqFileReadsFeetAndOpensATestAtEachMarker) {
  const std::string marker = "COASTAL SITE INVESTIGATIONS INC.";
  ASSERT_TRUE(Open("FLDACQ-T02-001",
                   Join(test::FldacqLines(
                       {{21.33, {{1, 0, 0, 62.5}, {2, 0, 0, 61.0}}}, {38.06, {{1, 0, 0, 118.0}}}}, marker))));
  const DissipationSet& s = Set();
  EXPECT_EQ(s.FileKind, kFldacqDissipation);
  EXPECT_EQ(s.SectionMarker, marker);
  EXPECT_EQ(s.TestId, "A01");
  EXPECT_EQ(s.Crew, "R. Osei");
  EXPECT_EQ(s.DasSystem, "FIELDBOX-FLDACQ");
  EXPECT_EQ(s.ChannelName[1], "Tip");
  ASSERT_EQ(s.DissipationCount, 2);
  EXPECT_FLOAT_EQ(s.TestDepth[1], static_cast<float>(21.33 / 3.281));
  EXPECT_FLOAT_EQ(s.TestDepth[2], static_cast<float>(38.06 / 3.281));
  EXPECT_EQ(s.RowCount[1], 2);
  EXPECT_FLOAT_EQ(s.RowPressure(1, 2), 61.0f);
  EXPECT_FLOAT_EQ(s.RowChannelB(2, 1), 118.0f);
  EXPECT_FLOAT_EQ(s.PressurePerMetreHead, 1.423885f);
  EXPECT_EQ(DissipationUnitText(s, t.session->units), "(PSI)");
}

TEST_F(DissipationOpenTest, AnFldacqRowEqualToTheFirstLineOpensANewTest) {
  // A marker that is also a reading: the row opens a test whose header swallows the next 48 lines.
  const std::string marker = test::FldacqRow(1, 50.0);
  std::vector<std::string> lines = test::FldacqLines({{20.0, {{1, 0, 0, 50.0}, {2, 0, 0, 49.0}}}}, marker);
  lines.insert(lines.end(), 47, "filler");
  lines.push_back(test::FldacqRow(3, 48.0));
  ASSERT_TRUE(Open("FLDACQ-MARK", Join(lines)));
  EXPECT_EQ(Set().DissipationCount, 2);
  EXPECT_EQ(Set().RowCount[1], 0);
  ASSERT_EQ(Set().RowCount[2], 1);
  EXPECT_EQ(Set().RowTime(2, 1), 3);
}

TEST_F(DissipationOpenTest, SoundingAndSeismicFilesAreRefusedByName) {
  for (const auto& [name, message] :
       std::vector<std::pair<std::string, std::string>>{{"CPT-A01.DAT", "! CPT-A01.DAT is a sounding file"},
                                                        {"push.cpt", "! push.cpt is a sounding file"},
                                                        {"SCPT-3.SEI", "! SCPT-3.SEI is a seismic file"},
                                                        {"wave.smc", "! wave.smc is a seismic file"}}) {
    EXPECT_FALSE(OpenPath(t.data.File(name))) << name;
    EXPECT_EQ(t.prompts.Texts(), std::vector<std::string>{message});
    EXPECT_TRUE(shell.View().test_type_visible);
    EXPECT_EQ(shell.View().checked_mode, ProcessingMode::kNone);
  }
  // A cancelled dialog changes nothing either.
  EXPECT_FALSE(OpenPath(""));
  EXPECT_TRUE(t.prompts.Texts().empty());
}

struct BadFile {
  const char* name;
  std::string bytes;
  std::string message;
};

TEST_F(DissipationOpenTest, BadFilesEndInTheirMessageAndLeaveTheFileBefore) {
  std::vector<std::string> good = test::FieldboxLines({kShallow});
  std::vector<std::string> truncated(good.begin(), good.begin() + 20);
  std::vector<std::string> non_numeric = good;
  non_numeric.back().replace(41, 14, "    n/a       ");
  std::vector<std::string> too_many = good;
  for (int k = 0; k < 10000; ++k) too_many.push_back(test::FieldboxRow({k, 1, 1, 5}));
  std::vector<std::string> px_without_column = test::PxLines({{5.25, {{1, 0, 0, 3400}}}});
  px_without_column[16] = "  TIME     TIP RAW    SLEEVE RAW";
  std::vector<std::string> too_many_tests = good;
  for (int i = 0; i < 100; ++i) {
    too_many_tests.push_back("1.0 => Test Depth (m)");
    too_many_tests.push_back(test::FieldboxRow({1, 1, 1, 5}));
  }
  std::vector<std::string> px = test::PxLines({{5.25, {{1, 0, 0, 3400}}}});
  std::vector<std::string> px_truncated(px.begin(), px.begin() + 18);
  std::vector<std::string> px_too_many = px;
  for (int k = 0; k < 10000; ++k) px_too_many.push_back(test::PxRow(k, 3000));
  std::vector<std::string> px_no_divisor = px;
  px_no_divisor[17] = px_no_divisor[17].substr(0, 40) + "               0.000";
  const std::string marker = "COASTAL";
  std::vector<std::string> fldacq = test::FldacqLines({{20.0, {{1, 0, 0, 50.0}}}}, marker);
  std::vector<std::string> fldacq_too_many = fldacq;
  for (int k = 0; k < 10000; ++k) fldacq_too_many.push_back(test::FldacqRow(k, 40.0));
  std::vector<std::string> fldacq_cut_test = fldacq;
  fldacq_cut_test.push_back(marker);
  fldacq_cut_test.push_back("only the first line of the next test's header");
  const std::vector<BadFile> cases = {
      {"EMPTY.DIS", "", "Error #62: 'Input past end of file' from 'ReadFieldboxDissipation'"},
      {"TRUNC.DIS", Join(truncated), "Error #62: 'Input past end of file' from 'ReadFieldboxDissipation'"},
      {"ROWS.DIS", Join(too_many), "Error #9: 'Subscript out of range' from 'ReadFieldboxDissipation'"},
      {"TESTS.DIS", Join(too_many_tests),
       "Error #9: 'Subscript out of range' from 'ReadFieldboxDissipation'"},
      {"PXCOL.DIS", Join(px_without_column),
       "Error #5: 'Invalid procedure call or argument' from 'ReadPXDissipation'"},
      {"FLDACQ-SHORT", "COASTAL\r\nDissipation Test\r\n",
       "Error #62: 'Input past end of file' from 'ReadFldacqDissipation'"},
      {"FLDACQ-EMPTY", "", "Error #62: 'Input past end of file' from 'ReadFldacqDissipation'"},
      {"FLDACQ-ROWS", Join(fldacq_too_many),
       "Error #9: 'Subscript out of range' from 'ReadFldacqDissipation'"},
      {"FLDACQ-CUT", Join(fldacq_cut_test),
       "Error #62: 'Input past end of file' from 'ReadFldacqDissipation'"},
      {"PXTRUNC.DIS", Join(px_truncated), "Error #62: 'Input past end of file' from 'ReadPXDissipation'"},
      {"PXROWS.DIS", Join(px_too_many), "Error #9: 'Subscript out of range' from 'ReadPXDissipation'"},
      {"PXZERO.DIS", Join(px_no_divisor), "Error #11: 'Division by zero' from 'ReadPXDissipation'"},
      // A .DIS file of no known first line is read as the kind of the file open: QRD FIELDBOX.
      {"BLANK.DIS", "", "Error #62: 'Input past end of file' from 'ReadFieldboxDissipation'"},
  };
  ASSERT_TRUE(Open("GOOD.DIS", Join(good)));
  for (const BadFile& bad : cases) {
    EXPECT_FALSE(Open(bad.name, bad.bytes)) << bad.name;
    ASSERT_EQ(t.prompts.Texts().size(), 1u) << bad.name;
    EXPECT_EQ(t.prompts.Texts()[0], "! Marlview has encountered an error: " + bad.message) << bad.name;
    EXPECT_TRUE(shell.View().test_type_visible) << bad.name;
    // The file open before is untouched and opens again.
    EXPECT_EQ(Set().DissipationFileName, "GOOD.DIS");
    EXPECT_EQ(Set().RowCount[1], 3);
  }
  // Junk in a data field reads as 0, as the field systems' own readers do.
  ASSERT_TRUE(Open("JUNK.DIS", Join(non_numeric)));
  EXPECT_FLOAT_EQ(Set().RowPressure(1, 3), 0.0f);
  ASSERT_TRUE(Open("GOOD.DIS", Join(good)));
  EXPECT_FLOAT_EQ(Set().RowPressure(1, 3), 300.0f);
}

TEST(DissipationPercentTest, HeadAndMaximumFollowTheirRules) {
  DissipationSet set;
  set.DissipationCount = 1;
  set.TestDepth[1] = 10;
  set.PressurePerMetreHead = 10;
  for (float p : {0.0f, 0.0f}) set.RowPressure(1, DissipationRows::Append(set, 1)) = p;
  ComputeMaxPercent(set, 1);
  EXPECT_FLOAT_EQ(set.MaxPressure[1], 0);
  EXPECT_FLOAT_EQ(set.PercentMax(1, 2), 0);

  set.RowPressure(1, 1) = 150, set.RowPressure(1, 2) = 100;
  set.WaterTableDepth = 5;
  ComputeHeadPercent(set, 1);
  EXPECT_FLOAT_EQ(set.HydrostaticPressure[1], 50);
  EXPECT_FLOAT_EQ(set.PercentHead(1, 1), 200);
  EXPECT_FLOAT_EQ(set.PercentHead(1, 2), 100);
  // A water table at the test's depth, or undefined, leaves no head.
  for (float water_table : {10.0f, 12.0f, kUndefinedWaterTable}) {
    set.WaterTableDepth = water_table;
    ComputeHeadPercent(set, 1);
    EXPECT_FLOAT_EQ(set.HydrostaticPressure[1], 0) << water_table;
    EXPECT_FLOAT_EQ(set.PercentHead(1, 1), 0) << water_table;
  }
}

TEST_F(DissipationOpenTest, SelectionRulesAndTheDoneButton) {
  ASSERT_TRUE(Open("DIS-T01.DIS", Join(test::FieldboxLines({kShallow, kDeep}))));
  DissipationController& d = shell.Dissipations();
  EXPECT_FALSE(d.View().plot_enabled || d.View().list_enabled || d.View().done_enabled);
  t.prompts.ClearLog();
  EXPECT_FALSE(d.PlotDissipation());
  EXPECT_EQ(t.prompts.Texts(), std::vector<std::string>{"! Select depth(s) first !"});
  d.SetSelection({1});
  EXPECT_TRUE(d.View().plot_enabled && d.View().list_enabled && d.View().done_enabled);
  d.SetSelection({1, 0});
  EXPECT_TRUE(d.View().plot_enabled && !d.View().list_enabled && d.View().done_enabled);
  const auto plot = d.PlotDissipation();
  ASSERT_TRUE(plot);
  EXPECT_EQ(plot->selection.SelectedCount, 2);
  EXPECT_EQ(plot->selection.SelectedFlag[1], 65535);
  EXPECT_EQ(plot->selection.ShallowSelected, 1);
  EXPECT_EQ(plot->selection.DeepSelected, 2);
  EXPECT_EQ(plot->selection.LastSelected, 2);
  EXPECT_EQ(plot->Title, "PORE PRESSURE DISSIPATION VERSUS TIME");
  EXPECT_EQ(plot->UnitText, "(kPa)");

  t.session->Dissipation().WaterTableDepth = 2.0f;
  t.session->DepthUnitIsMetric = 0;
  d.WaterTableChanged();
  EXPECT_EQ(d.View().depth_rows, (std::vector<std::string>{"21.325", "41.831"}));
  EXPECT_NE(d.View().info.find("WATER TABLE DEPTH: 6.56 (ft)"), std::string::npos);
  shell.DissipationDone();
  EXPECT_EQ(Set().WaterTableDepth, kUndefinedWaterTable);
  EXPECT_TRUE(d.View().depth_rows.empty());
  EXPECT_TRUE(shell.View().test_type_visible);
}

TEST(DissipationSamplesTest, TheDemoFilesOpen) {
  test::TestSession t;
  for (const char* name : {"DIS-A01.DIS", "PXD-B04.DIS", "FLDACQ-C02-001"}) {
    t.prompts.ClearLog();
    ASSERT_TRUE(OpenDissipationPath(*t.session, t.prompts, test::SamplesDirectory() + "/" + name)) << name;
    const DissipationSet& s = t.session->Dissipation();
    EXPECT_GE(s.DissipationCount, 2) << name;
    for (int i = 1; i <= s.DissipationCount; ++i) {
      EXPECT_EQ(s.RowCount[static_cast<size_t>(i)], 228) << name;
      EXPECT_GT(s.MaxPressure[static_cast<size_t>(i)], 0) << name;
    }
    EXPECT_TRUE(t.prompts.Texts().empty()) << name;
  }
}

}  // namespace
}  // namespace marlview
