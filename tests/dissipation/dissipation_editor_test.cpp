// The dissipation editors' operations and the two writers, against hand-worked numbers and a read
// of what they wrote.
#include "core/dissipation/dissipation_editor.h"

#include <gtest/gtest.h>

#include "core/common/file_access.h"
#include "core/common/runtime_failure.h"
#include "core/common/text_rules.h"
#include "core/dissipation/dissipation_readers.h"
#include "core/dissipation/dissipation_writers.h"
#include "core/session/session.h"
#include "core/shell/shell_controller.h"
#include "dissipation_files.h"
#include "support/test_support.h"

namespace marlview {
namespace {

using test::DissipationTest;
using test::Join;

const DissipationTest kShallow{6.5, {{1, 2.4, 90.0, 620.0}, {2, 2.3, 85.0, 580.0}, {10, 1.2, 40.0, -3.5}}};
const DissipationTest kDeep{12.75, {{1, 2.4, 90.0, 700.0}, {5, 2.3, 85.0, 310.0}}};
// PX DAS raw counts: kPa = (raw - 1000) / 2 x 0.5.
const DissipationTest kPxShallow{5.25, {{1, 0, 0, 3400}, {2, 0, 0, 3000}}};
const DissipationTest kPxDeep{9.75, {{1, 0, 0, 5000}}};

class DissipationEditorTest : public ::testing::Test {
 protected:
  DissipationEditorTest() : shell(*t.session, t.prompts), editor(*t.session, t.prompts) {}

  void Open(const std::string& name, const std::string& bytes) {
    t.data.Write(name, bytes);
    t.prompts.Script({t.data.File(name)});
    shell.ChooseMode(ProcessingMode::kDissipations);
    ASSERT_TRUE(shell.Dissipations().View().frame_visible) << name;
    t.prompts.ClearLog();
  }
  DissipationSet& Set() { return t.session->Dissipation(); }
  std::vector<std::string> Saved(const std::string& name) {
    EXPECT_TRUE(editor.SaveAs(t.data.File(name)));
    const std::string bytes = ReadWholeFile(t.data.File(name));
    const auto lines = SplitLines(bytes);
    return std::vector<std::string>(lines.begin(), lines.end());
  }
  // The saved file read back into a store of its own.
  DissipationSet ReadBack(const std::string& name) {
    DissipationSet back;
    back.FileKind = Set().FileKind;
    ReadDissipation(ReadWholeFile(t.data.File(name)), t.session->units, back);
    return back;
  }

  test::TestSession t;
  ShellController shell;
  DissipationEditor editor;
};

TEST_F(DissipationEditorTest, FieldboxWriterLinesAndRoundTrip) {
  Open("DIS-T01.DIS", Join(test::FieldboxLines({kShallow, kDeep})));
  const std::string bytes = FieldboxDissipationBytes(Set(), t.session->units, "OUT.DIS");
  EXPECT_NE(bytes.find("\r\n"), std::string::npos);
  const auto lines = SplitLines(bytes);
  ASSERT_GE(lines.size(), 64u);
  EXPECT_EQ(lines[0], "KORVAN FILE VER: DIS.10.12.2012");
  EXPECT_EQ(lines[3], "OUT.DIS => Filename");
  EXPECT_EQ(lines[5], "M. Lindqvist | R. Osei => Operator / Crew");
  EXPECT_EQ(lines[12], "49.2031N,122.9157W,4.2,9,2  => GPS Data (Lat, Lon, Elev, NSat, Qual)");
  EXPECT_EQ(lines[28], "1 => Sample Rate");
  EXPECT_EQ(lines[30], "Channel                    Tip          Sleeve   Pore Pressure");
  EXPECT_EQ(lines[32], "Range                 1.000000        1.000000        1.000000");
  EXPECT_EQ(lines[35], "Excitation    4.0             4.0             4.0");
  EXPECT_EQ(lines[36], "Baseline              0.012450        1.000000        0.008720");
  EXPECT_EQ(lines[38], "Cal Factor            0.000000       98.410000       37.502000");
  EXPECT_EQ(lines[53], "Dig. Sensor         Digital NC");
  EXPECT_EQ(lines[55], "6.5000000000000 => Test Depth (m)");
  EXPECT_EQ(lines[56], "   time(s)    pressure(V)  pressure(PSI)  pressure(kPa)");
  EXPECT_EQ(lines[57], "     1.000      +2.400000     +90.000000    +620.000000");
  EXPECT_EQ(lines[59], "    10.000      +1.200000     +40.000000      -3.500000");
  EXPECT_EQ(lines[60], "12.7500000000000 => Test Depth (m)");
  EXPECT_EQ(lines[63], "     5.000      +2.300000     +85.000000    +310.000000");

  Saved("OUT.DIS");
  const DissipationSet back = ReadBack("OUT.DIS");
  EXPECT_EQ(back.TestId, "A01");
  EXPECT_EQ(back.Crew, "R. Osei");
  EXPECT_EQ(back.ChannelSensor[3], "PP-500");
  EXPECT_EQ(back.ChannelCal[2][1], 98.41f);
  EXPECT_EQ(back.PressureUnitIndex, Set().PressureUnitIndex);
  ASSERT_EQ(back.DissipationCount, 2);
  EXPECT_EQ(back.TestDepth[2], 12.75f);
  ASSERT_EQ(back.RowCount[1], 3);
  EXPECT_EQ(back.RowTime(1, 3), 10);
  EXPECT_EQ(back.RowChannelA(1, 2), 2.3f);
  EXPECT_EQ(back.RowPressure(1, 3), -3.5f);
  // A second save of what was read gives the same bytes.
  EXPECT_EQ(FieldboxDissipationBytes(back, t.session->units, "OUT.DIS"), ReadWholeFile(t.data.File("OUT.DIS")));
}

TEST_F(DissipationEditorTest, PxWriterLinesAndRoundTrip) {
  Open("PXD-T01.DIS", Join(test::PxLines({kPxShallow, kPxDeep})));
  // The seventh line is the session's hole number, not the file's.
  t.session->Sounding().HoleNumber = "BH-99";
  const auto lines = Saved("OUT.DIS");
  ASSERT_EQ(lines.size(), 23u + 2 + 3);
  EXPECT_EQ(lines[0], "Kestrelmoor Dissipation File");
  EXPECT_EQ(lines[1], "Northfield Drilling");
  EXPECT_EQ(lines[6], "BH-99");
  EXPECT_EQ(lines[11], "$GPGGA,153012.00,4912.1860,N,12254.9420,W,1,09,0.9,4.2,M,-16.3,M,,*5C");
  EXPECT_EQ(lines[12], "2.10");
  EXPECT_EQ(lines[13], "");
  EXPECT_EQ(lines[17], "CAL DIVISOR                                            2,000");
  EXPECT_EQ(lines[20], "UNIT                                                     kPa");
  EXPECT_EQ(lines[21], "CONVERSION                                             1.000");
  EXPECT_EQ(lines[22], "");
  EXPECT_EQ(lines[23], "5.25 m");
  EXPECT_EQ(lines[24], "     1    2040.0     412.0                        3400.00000");

  const DissipationSet back = ReadBack("OUT.DIS");
  EXPECT_EQ(back.HoleNumber, "BH-99");
  EXPECT_EQ(back.Comment3, "comment three");
  EXPECT_EQ(back.PressureColumn, 41);
  EXPECT_EQ(back.PressureUnitName, "kPa");
  ASSERT_EQ(back.DissipationCount, 2);
  EXPECT_EQ(back.TestDepth[1], 5.25f);
  EXPECT_EQ(back.RowTime(1, 2), 2);
  EXPECT_EQ(back.RowChannelA(2, 1), 5000.0f);
  EXPECT_EQ(back.RowPressure(2, 1), 1000.0f);
}

TEST_F(DissipationEditorTest, FieldboxUnitConversionUsesPascalsPerUnit) {
  Open("DIS-T01.DIS", Join(test::FieldboxLines({kShallow, kDeep})));
  const auto units = editor.PressureUnits();
  int psi = -1;
  for (size_t u = 0; u < units.size(); ++u) {
    if (units[u].name == "psi") psi = static_cast<int>(u);
  }
  ASSERT_GE(psi, 0);
  EXPECT_EQ(units[static_cast<size_t>(editor.PressureUnitChoice())].name, "kPa");
  editor.ChangePressureUnit(psi);
  // 620 kPa = 620000 Pa / 6894.7573 Pa per psi; a metre of water 9806 / 6894.7573 psi.
  EXPECT_NEAR(Set().RowPressure(1, 1), 89.92340, 1e-4);
  EXPECT_NEAR(Set().PressurePerMetreHead, 1.422240, 1e-5);
  EXPECT_EQ(editor.PressureHeading(), "PRESS (psi)");
  EXPECT_EQ(editor.PressureUnitChoice(), psi);
  EXPECT_NEAR(Set().PercentMax(1, 2), 580.0 / 620.0 * 100, 1e-3);
  EXPECT_TRUE(editor.Changed());
  EXPECT_EQ(ReadBack("DIS-T01.DIS").PressureUnitIndex, 2) << "nothing saved yet";
  Saved("PSI.DIS");
  EXPECT_EQ(ReadBack("PSI.DIS").PressureUnitIndex, psi + 1);
}

TEST_F(DissipationEditorTest, PxUnitConversionUsesUnitsPerKilopascalAndKeepsTheColumn) {
  Open("PXD-T01.DIS", Join(test::PxLines({kPxShallow, kPxDeep})));
  EXPECT_EQ(editor.PressureUnitChoice(), 0);
  editor.ChangePressureUnit(3);  // PSI
  // (3400 - 1000) / 2 x 0.5 = 600 kPa = 87.02262 psi; a metre of water 0.1450377 / 0.102 psi.
  EXPECT_NEAR(Set().RowPressure(1, 1), 87.02262, 1e-4);
  EXPECT_NEAR(Set().PressurePerMetreHead, 1.421938, 1e-5);
  EXPECT_EQ(Set().RowChannelA(1, 1), 3400.0f);
  editor.ChangePressureUnit(1);  // MPA
  EXPECT_NEAR(Set().RowPressure(1, 1), 0.6, 1e-6);
  EXPECT_NEAR(Set().PressurePerMetreHead, 0.001 / 0.102, 1e-7);
  const auto lines = Saved("MPA.DIS");
  EXPECT_EQ(lines[20], "UNIT                                                     MPA");
  EXPECT_EQ(lines[21], "CONVERSION                                             0.001");
  const DissipationSet back = ReadBack("MPA.DIS");
  EXPECT_EQ(back.PressureColumn, 41);
  EXPECT_EQ(back.PressureUnitName, "MPA");
  EXPECT_NEAR(back.RowPressure(1, 1), 0.6, 1e-6);
}

TEST_F(DissipationEditorTest, CellEditsOfBothFamilies) {
  Open("DIS-T01.DIS", Join(test::FieldboxLines({kShallow, kDeep})));
  EXPECT_FALSE(editor.EditCell(1, 1, DissipationCell::kPressure, "6 2a"));
  EXPECT_TRUE(t.prompts.Texts().empty()) << "the QRD FIELDBOX grid says nothing";
  EXPECT_TRUE(editor.EditCell(1, 1, DissipationCell::kPressure, " 1 240 "));
  EXPECT_EQ(Set().RowPressure(1, 1), 1240.0f);
  EXPECT_EQ(Set().MaxPressure[1], 1240.0f);
  EXPECT_NEAR(Set().PercentMax(1, 2), 580.0 / 1240.0 * 100, 1e-3);
  EXPECT_TRUE(editor.EditCell(1, 2, DissipationCell::kTime, "7.6"));
  EXPECT_EQ(Set().RowTime(1, 2), 8);
  EXPECT_TRUE(editor.EditCell(1, 2, DissipationCell::kPsi, "-1.5"));
  EXPECT_EQ(Set().RowChannelB(1, 2), -1.5f);
  EXPECT_EQ(editor.CellText(1, 2, DissipationCell::kTime), "8.00");
  EXPECT_EQ(editor.CellText(1, 1, DissipationCell::kVolts), "2.4000");

  Open("PXD-T01.DIS", Join(test::PxLines({kPxShallow, kPxDeep})));
  EXPECT_FALSE(editor.EditCell(1, 1, DissipationCell::kRaw, "x"));
  EXPECT_EQ(t.prompts.Texts(), std::vector<std::string>{"! Please enter a valid number"});
  EXPECT_EQ(editor.CellText(1, 1, DissipationCell::kRaw, true), "3400.0000");
  EXPECT_EQ(editor.CellText(1, 1, DissipationCell::kPressure, true), "600.0000");
  // Raw 2200 reads (2200 - 1000) / 2 x 0.5 = 300 kPa; 150 kPa is raw 150 / 0.5 x 2 + 1000 = 1600.
  EXPECT_TRUE(editor.EditCell(1, 1, DissipationCell::kRaw, "2200"));
  EXPECT_EQ(Set().RowPressure(1, 1), 300.0f);
  EXPECT_TRUE(editor.EditCell(1, 2, DissipationCell::kPressure, "150"));
  EXPECT_EQ(Set().RowChannelA(1, 2), 1600.0f);
  EXPECT_TRUE(editor.EditCell(1, 2, DissipationCell::kTime, "123"));
  const auto lines = Saved("EDIT.DIS");
  EXPECT_EQ(lines[25], "   123    2040.0     412.0                        1600.00000");
  EXPECT_EQ(ReadBack("EDIT.DIS").RowTime(1, 2), 123);
}

TEST_F(DissipationEditorTest, DepthChangesRefusedAndAccepted) {
  Open("DIS-T01.DIS", Join(test::FieldboxLines({kShallow, kDeep})));
  for (const char* bad : {"", "  ", "abc", "-0.5"}) EXPECT_FALSE(editor.ChangeDepth(2, bad)) << bad;
  EXPECT_EQ(t.prompts.Texts(), std::vector<std::string>(4, "! Please enter a valid depth"));
  EXPECT_EQ(Set().TestDepth[2], 12.75f);
  EXPECT_FALSE(editor.Changed());
  EXPECT_TRUE(editor.ChangeDepth(2, "13.5"));
  EXPECT_EQ(Set().TestDepth[2], 13.5f);
  t.session->DepthUnitIsMetric = 0;
  EXPECT_TRUE(editor.ChangeDepth(1, "10"));
  EXPECT_NEAR(Set().TestDepth[1], 3.048, 1e-5);
  EXPECT_EQ(editor.DepthEntries()[0], "10.000");
  // The head follows the new depth: water table at 2 m, 1.5 m of water at 1 m per 9.806 kPa.
  Set().WaterTableDepth = 2.0f;
  t.session->DepthUnitIsMetric = 1;
  EXPECT_TRUE(editor.ChangeDepth(1, "3.5"));
  EXPECT_NEAR(Set().HydrostaticPressure[1], 1.5 * 9.806, 1e-3);

  t.prompts.ClearLog();
  EXPECT_FALSE(editor.AdjustDepths("0", "5"));
  EXPECT_FALSE(editor.AdjustDepths("10", "-1"));
  EXPECT_EQ(t.prompts.Texts(), (std::vector<std::string>{"! Invalid measured depth. Value must be greater than 0",
                                                          "! Invalid observed depth. Value must be greater than 0"}));
  EXPECT_TRUE(editor.AdjustDepths("12", "10"));
  EXPECT_NEAR(Set().TestDepth[1], 4.2, 1e-5);
  EXPECT_NEAR(Set().TestDepth[2], 16.2, 1e-5);
}

TEST_F(DissipationEditorTest, DeletingTests) {
  Open("DIS-T01.DIS", Join(test::FieldboxLines({kShallow, kDeep})));
  t.prompts.Script({"No"});
  EXPECT_FALSE(editor.DeleteTest(1));
  EXPECT_EQ(Set().DissipationCount, 2);
  editor.SelectTest(2);
  t.prompts.Script({"Yes"});
  EXPECT_TRUE(editor.DeleteTest(1));
  // The last but one gone: the one left is the selection, and the deep test moved down.
  EXPECT_EQ(Set().DissipationCount, 1);
  EXPECT_EQ(editor.SelectedTest(), 1);
  EXPECT_EQ(Set().TestDepth[1], 12.75f);
  EXPECT_EQ(Set().RowCount[1], 2);
  EXPECT_EQ(Set().RowPressure(1, 2), 310.0f);
  EXPECT_EQ(Set().RowPressure(1, 3), 0.0f) << "the longer test's rows are gone";
  EXPECT_EQ(Set().MaxPressure[1], 700.0f);
  t.prompts.ClearLog();
  t.prompts.Script({"Yes"});
  EXPECT_FALSE(editor.DeleteTest(1));
  EXPECT_EQ(t.prompts.Texts(), (std::vector<std::string>{
                                   "? Are you sure you want to delete the currently selected test -> Yes",
                                   "! File contains only 1 dissipation. Cannot delete single dissipation"}));
  EXPECT_EQ(Set().DissipationCount, 1);
}

TEST_F(DissipationEditorTest, AppendingFiles) {
  Open("DIS-T01.DIS", Join(test::FieldboxLines({kShallow, kDeep})));
  t.data.Write("PX.DIS", Join(test::PxLines({kPxShallow})));
  EXPECT_FALSE(editor.AppendWithOffset(t.data.File("PX.DIS"), "0"));
  EXPECT_EQ(t.prompts.Texts(), std::vector<std::string>{
                                   "! The number of channels in the two files do not match. The two files cannot be combined"});
  EXPECT_EQ(Set().DissipationCount, 2);
  EXPECT_FALSE(editor.AppendWithOffset(t.data.File("PX.DIS"), "-1"));
  EXPECT_EQ(t.prompts.Texts().back(), "! OFFSET CANNOT BE NEGATIVE");

  t.data.Write("SECOND.DIS", Join(test::FieldboxLines({kShallow, kDeep})));
  EXPECT_TRUE(editor.AppendWithOffset(t.data.File("SECOND.DIS"), "0"));
  ASSERT_EQ(Set().DissipationCount, 4);
  EXPECT_EQ(Set().TestDepth[3], 6.5f) << "offset 0 keeps the source's depths";
  EXPECT_EQ(Set().RowPressure(4, 2), 310.0f);
  EXPECT_EQ(Set().MaxPressure[4], 700.0f);
  t.session->DepthUnitIsMetric = 0;
  EXPECT_TRUE(editor.AppendWithOffset(t.data.File("SECOND.DIS"), "10"));
  EXPECT_NEAR(Set().TestDepth[5], 6.5 + 3.048, 1e-5);

  // Tests 7 to 101 from a file of 95: the 101st is past the tables, and nothing is added.
  std::vector<DissipationTest> many(95, DissipationTest{1.0, {{1, 1, 1, 1}}});
  t.data.Write("MANY.DIS", Join(test::FieldboxLines(many)));
  try {
    editor.AppendWithOffset(t.data.File("MANY.DIS"), "0");
    ADD_FAILURE() << "no failure";
  } catch (const RuntimeFailure& failure) {
    EXPECT_EQ(GeneralErrorText(failure),
              "Marlview has encountered an error: Error #9: 'Subscript out of range' from 'AppendDissipationFile'");
  }
  EXPECT_EQ(Set().DissipationCount, 6);
  many.pop_back();
  t.data.Write("FITS.DIS", Join(test::FieldboxLines(many)));
  EXPECT_TRUE(editor.AppendWithOffset(t.data.File("FITS.DIS"), "0"));
  EXPECT_EQ(Set().DissipationCount, 100);
  EXPECT_THROW(editor.AppendWithOffset(t.data.File("GONE.DIS"), "0"), RuntimeFailure);
}

TEST_F(DissipationEditorTest, SavingAndLeaving) {
  Open("DIS-T01.DIS", Join(test::FieldboxLines({kShallow, kDeep})));
  EXPECT_TRUE(editor.MayLeave());
  editor.SetHeader("Site", "Berth 4");
  EXPECT_TRUE(editor.Changed());
  t.prompts.Script({"No"});
  EXPECT_FALSE(editor.MayLeave());
  EXPECT_EQ(t.prompts.Texts().back(), "? Changes have been made. Are you sure you want to exit? -> No");
  EXPECT_FALSE(editor.SaveAs(t.data.File("DIS-T01.DIS")));
  EXPECT_EQ(t.prompts.Texts().back(), "! DIS-T01.DIS already exists. Cannot overwrite.");
  // A disk that fills up part way leaves the file as it was and the changes unsaved.
  const std::string before = ReadWholeFile(t.data.File("DIS-T01.DIS"));
  EXPECT_FALSE(editor.Save([](std::FILE*, std::string_view bytes) { return bytes.size() / 2; }));
  EXPECT_EQ(ReadWholeFile(t.data.File("DIS-T01.DIS")), before);
  EXPECT_TRUE(editor.Changed());
  EXPECT_TRUE(editor.Save());
  EXPECT_FALSE(editor.Changed());
  EXPECT_EQ(ReadBack("DIS-T01.DIS").Site, "Berth 4");
}

}  // namespace
}  // namespace marlview
