// The sounding editor's controller: the slots over many channels, the grid's texts in each view,
// the cursor, the header boxes, the changed flag and the question on leaving, and the checks of
// its dialogs. The test sounding's pressures in psi equal their raw readings.
#include "core/editing/editor.h"

#include <gtest/gtest.h>

#include "core/io/dat_reader.h"
#include "support/test_support.h"

namespace marlview {
namespace {

using test::DatFile;
using test::SimpleDat;

constexpr const char* kLeaveQuestion =
    "Data has been modified but not saved. Changes will be temporary and discarded after processing is "
    "finished. Are you sure you want to exit?";

// SimpleDat with aux channels "Aux4".."AuxN" after its three, each reading 0.5.
DatFile WideDat(int channels, int readings) {
  DatFile file = SimpleDat(readings);
  for (int c = 4; c <= channels; ++c) file.channels.push_back({.sensor = "Aux" + std::to_string(c)});
  for (auto& row : file.rows) row.resize(static_cast<size_t>(channels) + 1, 0.5);
  return file;
}

class EditorTest : public ::testing::Test {
 protected:
  SoundingEditor& Open(const DatFile& file, const std::string& name = "T.DAT") {
    t.data.Write(name, file.Bytes());
    EXPECT_EQ(OpenDatSounding(*t.session, t.prompts, t.data.File(name)), ReadOutcome::kLoaded);
    t.session->SoundingOpen = true;
    t.prompts.ClearLog();
    editor = std::make_unique<SoundingEditor>(*t.session, t.prompts);
    return *editor;
  }
  SoundingStore& s() { return t.session->Sounding(); }

  test::TestSession t;
  std::unique_ptr<SoundingEditor> editor;
};

TEST_F(EditorTest, TenSlotsScrollOverTheFilesChannels) {
  SoundingEditor& e = Open(WideDat(13, 3));
  EXPECT_EQ(e.ChannelCount(), 13);
  EXPECT_EQ(e.LastFirstColumn(), 4);
  EXPECT_EQ(e.SlotChannel(1), 1);
  EXPECT_EQ(e.SlotChannel(10), 10);
  EXPECT_EQ(e.SlotChannel(11), 0);
  EXPECT_EQ(e.SlotHeading(4), "Aux4\n(V)");

  // The right arrow walks on past slot 10, the slots following; it stops at the last channel.
  e.SetCurrent(1, 10);
  e.MoveChannel(1);
  EXPECT_EQ(e.CurrentChannel(), 11);
  EXPECT_EQ(e.FirstColumn(), 2);
  EXPECT_EQ(e.SlotChannel(10), 11);
  for (int i = 0; i < 5; ++i) e.MoveChannel(1);
  EXPECT_EQ(e.CurrentChannel(), 13);
  EXPECT_EQ(e.FirstColumn(), 4);
  e.MoveChannel(-12);
  EXPECT_EQ(e.CurrentChannel(), 1);
  EXPECT_EQ(e.FirstColumn(), 1);

  // Scrolling the slots keeps the cursor on a channel in view, and stops at the last column.
  e.SetFirstColumn(99);
  EXPECT_EQ(e.FirstColumn(), 4);
  EXPECT_EQ(e.CurrentChannel(), 4);
  EXPECT_EQ(e.SlotBoxText(10, ChannelBox::kInitialBaseline), "0.000000E+000");

  // A sounding of three channels leaves slots 4..10 empty and does not scroll.
  SoundingEditor& narrow = Open(SimpleDat(3), "N.DAT");
  EXPECT_EQ(narrow.LastFirstColumn(), 1);
  EXPECT_EQ(narrow.SlotChannel(3), 3);
  EXPECT_EQ(narrow.SlotChannel(4), 0);
  EXPECT_EQ(narrow.SlotHeading(4), "");
  EXPECT_EQ(narrow.SlotBoxText(4, ChannelBox::kCal), "");
  narrow.SetFirstColumn(2);
  EXPECT_EQ(narrow.FirstColumn(), 1);
}

TEST_F(EditorTest, TheGridShowsTheTableOfTheView) {
  DatFile file = SimpleDat(10);
  file.channels[2].offset = 0.04f;  // pore pressure two readings behind the tip
  SoundingEditor& e = Open(file);
  const int u2 = s().PorePressureChannel;
  EXPECT_EQ(e.Caption(), "EDIT SOUNDING FILE: T.DAT");
  EXPECT_EQ(e.StatusText(), "CURRENT CHANNEL VIEW: UN-ADJUSTED FOR OFFSET (READINGS CAN BE DELETED)");
  EXPECT_EQ(e.DataUnitsMenuCaption(), "Display Voltage Data");
  EXPECT_EQ(e.DepthCaption(), "DEPTH(m)");
  EXPECT_EQ(e.DepthText(3), "0.060");
  EXPECT_EQ(e.ValueText(3, u2), "0.0300");
  EXPECT_EQ(e.UnitsText(), "(psi)");
  EXPECT_EQ(e.ReadingNumberText(), "1");

  e.SetViewAdjustedForOffset(true);
  EXPECT_EQ(e.StatusText(), "CURRENT CHANNEL VIEW: ADJUSTED FOR OFFSET (READINGS CANNOT BE DELETED)");
  EXPECT_EQ(e.ValueText(3, u2), "0.0500") << "the reading taken when the element reached 0.06 m";

  e.SetShowRawVolts(true);
  EXPECT_EQ(e.DataUnitsMenuCaption(), "Display Eng. Unit Data");
  EXPECT_EQ(e.UnitsText(), "RAW VOLTS");
  EXPECT_EQ(e.SlotHeading(1), "Tip Resistance (Qc)\nRAW VOLTS");
  EXPECT_EQ(e.ValueText(3, u2), "3.000000E-002");

  e.SetEditDepthInFeet(true);
  EXPECT_EQ(e.DepthCaption(), "DEPTH(ft)");
  EXPECT_EQ(e.DepthText(3), "0.197");
  // A printed line: the depth in ten columns, each slot in sixteen.
  EXPECT_EQ(e.RowLine(3), "     0.197   1.030000E-001   2.000000E-003   3.000000E-002");
  const std::vector<std::string> lines = e.PrintLines();
  ASSERT_EQ(lines.size(), 5u + 10u);
  EXPECT_EQ(lines[0], "EDIT SOUNDING FILE: T.DAT");
  EXPECT_EQ(lines[3].substr(0, 10), " DEPTH(ft)");
  EXPECT_EQ(lines[7], e.RowLine(3));
}

TEST_F(EditorTest, AValueTakesOnlyAChangedNumberAndMarksTheSoundingChanged) {
  SoundingEditor& e = Open(SimpleDat(5));
  const int tip = s().TipChannel;
  EXPECT_FALSE(e.SetValue(2, tip, " 0.1020 ")) << "the value as shown is no change";
  EXPECT_FALSE(e.EditDirty());
  EXPECT_FALSE(e.SetValue(2, tip, "1.0.2"));
  EXPECT_EQ(t.prompts.Log(), std::vector<std::string>{"! Please enter a valid number"});
  EXPECT_FALSE(e.EditDirty());
  ASSERT_TRUE(e.SetValue(2, tip, "3.5"));
  EXPECT_TRUE(e.EditDirty());
  EXPECT_FLOAT_EQ(s().RawReadings(2, tip), 3.5f);
  EXPECT_EQ(e.ValueText(2, tip), "3.5000");
  // In the raw view the entry is the logged reading.
  e.SetShowRawVolts(true);
  ASSERT_TRUE(e.SetValue(3, tip, "2"));
  EXPECT_FLOAT_EQ(s().ChannelReadings(3, KindColumn(tip, kGraphOutput)), 2.0f);

  // A channel box: an unchanged entry is let be, a new one converts the channel again.
  EXPECT_FALSE(e.SetSlotBox(1, ChannelBox::kInitialBaseline, "0.000000E+000"));
  ASSERT_TRUE(e.SetSlotBox(1, ChannelBox::kInitialBaseline, "0.5"));
  EXPECT_EQ(e.SlotBoxText(1, ChannelBox::kInitialBaseline), "5.000000E-001");
  e.SetShowRawVolts(false);
  EXPECT_EQ(e.ValueText(3, tip), "1.5000");
}

TEST_F(EditorTest, DeletingIsRefusedInTheAdjustedViewAndTheCursorStaysOnARow) {
  SoundingEditor& e = Open(SimpleDat(4));
  e.SetCurrent(4, 2);
  e.SetViewAdjustedForOffset(true);
  EXPECT_FALSE(e.DeleteCurrentReading());
  EXPECT_EQ(t.prompts.Log(), std::vector<std::string>{
                                 "! CURRENT CHANNEL VIEW: ADJUSTED FOR OFFSET (READINGS CANNOT BE DELETED)"});
  EXPECT_EQ(e.RowCount(), 4);
  EXPECT_FALSE(e.EditDirty());

  e.SetViewAdjustedForOffset(false);
  ASSERT_TRUE(e.DeleteCurrentReading());
  EXPECT_EQ(e.RowCount(), 3);
  EXPECT_EQ(e.CurrentRow(), 3) << "the last row went: the cursor moves up to the new last";
  EXPECT_TRUE(e.EditDirty());
  e.MoveRow(-10);
  EXPECT_EQ(e.CurrentRow(), 1);
  e.MoveRow(10);
  EXPECT_EQ(e.CurrentRow(), 3);
}

TEST_F(EditorTest, RemovingTheChannelUnderTheCursorPullsTheSlotsBack) {
  SoundingEditor& e = Open(WideDat(13, 2));
  e.SetCurrent(1, 13);
  ASSERT_EQ(e.FirstColumn(), 4);
  ASSERT_TRUE(e.RemoveCurrentChannel());
  EXPECT_EQ(e.ChannelCount(), 12);
  EXPECT_EQ(e.CurrentChannel(), 12);
  EXPECT_EQ(e.FirstColumn(), 3);
  EXPECT_EQ(e.SlotChannel(10), 12);
  e.SetCurrent(1, s().TipChannel);
  EXPECT_FALSE(e.RemoveCurrentChannel());
  EXPECT_EQ(t.prompts.Log().back(), "! CANNOT REMOVE TIP CHANNEL");
}

TEST_F(EditorTest, HeaderBoxesWriteTheirFields) {
  DatFile file = SimpleDat(2);
  file.family = 2;
  SoundingEditor& e = Open(file);
  EXPECT_EQ(e.HeaderText(HeaderBox::kCrew), "D. Okafor");
  EXPECT_EQ(e.HeaderText(HeaderBox::kGpsLat), "49.2031N");
  EXPECT_EQ(e.HeaderText(HeaderBox::kStartDepth), "0.00");
  const std::pair<HeaderBox, std::string SoundingStore::*> fields[] = {
      {HeaderBox::kDate, &SoundingStore::TestDate},
      {HeaderBox::kTime, &SoundingStore::StartTime},
      {HeaderBox::kCrew, &SoundingStore::Crew},
      {HeaderBox::kDasId, &SoundingStore::DasSystem},
      {HeaderBox::kClient, &SoundingStore::Client},
      {HeaderBox::kClientRep, &SoundingStore::ClientRepresentative},
      {HeaderBox::kComments, &SoundingStore::Comments},
      {HeaderBox::kGpsLon, &SoundingStore::GpsLon},
      {HeaderBox::kGpsElev, &SoundingStore::GpsElev},
      {HeaderBox::kGpsNSat, &SoundingStore::GpsNSat},
      {HeaderBox::kWeather, &SoundingStore::Weather},
      {HeaderBox::kFilename, &SoundingStore::SoundingFileName},
  };
  for (const auto& [box, field] : fields) {
    e.SetHeaderText(box, "typed");
    EXPECT_EQ(s().*field, "typed");
    EXPECT_EQ(e.HeaderText(box), "typed");
  }
  EXPECT_TRUE(e.EditDirty());
  EXPECT_EQ(e.Caption(), "EDIT SOUNDING FILE: typed");
  // Without a version line the file's first line is also its company line.
  e.SetHeaderText(HeaderBox::kCompany, "Delta Probe Services");
  EXPECT_EQ(s().FileProductLine, "Delta Probe Services");
  EXPECT_EQ(s().FileVersionLine, "Delta Probe Services");
  const float first_depth = s().DepthTable(2, 1);
  e.SetHeaderText(HeaderBox::kStartDepth, "1.25 m");
  EXPECT_FLOAT_EQ(s().StartDepth, 1.25f);
  EXPECT_EQ(s().DepthTable(2, 1), first_depth) << "the readings stay where they are";
}

TEST_F(EditorTest, LeavingAsksOnlyAfterAChangeAndKeepsTheSoundingInItsSlot) {
  SoundingEditor& e = Open(SimpleDat(3));
  EXPECT_TRUE(e.ConfirmLeave());
  EXPECT_TRUE(t.prompts.Log().empty());
  e.Changed();
  t.prompts.Script({"No", "Yes"});
  EXPECT_FALSE(e.ConfirmLeave());
  EXPECT_TRUE(e.ConfirmLeave());
  EXPECT_EQ(t.prompts.Texts(), (std::vector<std::string>{std::string("? ") + kLeaveQuestion + " -> No",
                                                         std::string("? ") + kLeaveQuestion + " -> Yes"}));
  ASSERT_TRUE(e.SetValue(2, s().TipChannel, "9"));
  e.Leave();
  SoundingSlot& slot = t.session->Slots()[t.session->CurrentSlot];
  EXPECT_EQ(slot.scalars.SoundingFileName, "T.DAT");
  EXPECT_EQ(slot.scalars.ReadingCount, 3);
  EXPECT_FLOAT_EQ(slot.raw(2, s().TipChannel), 9.0f);
}

TEST_F(EditorTest, DialogEntriesAreCheckedBeforeAnythingChanges) {
  Open(SimpleDat(3));
  const int tip = s().TipChannel, sleeve = s().SleeveChannel;
  EXPECT_FALSE(ShiftChannelEntries(*t.session, {{tip, "1"}, {sleeve, "two"}}, t.prompts));
  EXPECT_EQ(t.prompts.Log(), std::vector<std::string>{"! Please enter a valid number"});
  EXPECT_FLOAT_EQ(s().RawReadings(1, tip), 0.101f) << "nothing shifted";
  ASSERT_TRUE(ShiftChannelEntries(*t.session, {{tip, "1"}, {sleeve, ""}}, t.prompts));
  EXPECT_FLOAT_EQ(s().RawReadings(1, tip), 1.101f);
  EXPECT_FLOAT_EQ(s().RawReadings(1, sleeve), 0.002f);

  EXPECT_EQ(AdjustDepthDialogText(*t.session), "0.060");
  t.session->DepthUnitIsMetric = 0;
  EXPECT_EQ(AdjustDepthDialogText(*t.session), "0.197");

  t.prompts.ClearLog();
  EXPECT_FALSE(CheckAppendOffset("-0.5", t.prompts));
  EXPECT_FALSE(CheckAppendOffset("", t.prompts));
  EXPECT_TRUE(CheckAppendOffset("0", t.prompts));
  EXPECT_EQ(t.prompts.Log(),
            (std::vector<std::string>{"! Please enter a valid depth", "! Please enter a valid depth"}));

  EXPECT_EQ(BallDiameterText(*t.session), "");
  ASSERT_TRUE(ChangeTipConfiguration(*t.session, true, "44", t.prompts));
  EXPECT_EQ(BallDiameterText(*t.session), "44");
}

TEST_F(EditorTest, CombiningStopsAtTheCautionTheDialogOrAFileOfTheOtherFamily) {
  Open(SimpleDat(3));
  t.prompts.Script({"Cancel"});
  EXPECT_EQ(ChooseDatToAppend(*t.session, t.prompts), "");
  EXPECT_TRUE(t.prompts.ScriptUsedUp()) << "no file dialog after Cancel";

  t.prompts.Script({"OK", ""});
  EXPECT_EQ(ChooseDatToAppend(*t.session, t.prompts), "");
  EXPECT_EQ(t.prompts.LastFileRequest().title, "Select DAT to add");
  EXPECT_EQ(t.prompts.LastFileRequest().filter, "DAT Files (*.dat)|*.dat");

  DatFile plain = SimpleDat(2);
  plain.family = 2;
  t.data.Write("PLAIN.DAT", plain.Bytes());
  t.prompts.Script({"OK", t.data.File("PLAIN.DAT")});
  EXPECT_EQ(ChooseDatToAppend(*t.session, t.prompts), "");
  EXPECT_EQ(t.prompts.Log().back(),
            "! First file is a FLDACQ compatible file and cannot be combined with a FLDREC compatible file.");

  t.data.Write("MORE.DAT", SimpleDat(4).Bytes());
  t.prompts.Script({"OK", t.data.File("MORE.DAT")});
  EXPECT_EQ(ChooseDatToAppend(*t.session, t.prompts), t.data.File("MORE.DAT"));
}

TEST_F(EditorTest, ConeDimensionsComeFromTheDimensionsFile) {
  Open(SimpleDat(2));
  const std::vector<std::string> names = ConeNames(*t.session);
  ASSERT_FALSE(names.empty());
  EXPECT_EQ(names[0], "C10CFIIP 10 cm2 piezocone u2");
  EXPECT_EQ(ConeOfSounding(*t.session), 0);
  s().ProbeSerial = "C15CFIIS 2211";
  EXPECT_EQ(ConeOfSounding(*t.session), 3);
  // 10 cm2 cone: tip 1.218 in, filter 0.197 in, sleeve 5.236 in, tip to filter 1.218 in.
  ConeDimensionTexts metric = ConeDimensionsText(*t.session, 0);
  EXPECT_EQ(metric.tip, "0.0309");
  EXPECT_EQ(metric.tip_shoulder, "0.0050");
  EXPECT_EQ(metric.sleeve, "0.1330");
  EXPECT_EQ(metric.pore_pressure, "0.0309");
  EXPECT_EQ(metric.unit, "(m)");
  t.session->DepthUnitIsMetric = 0;
  ConeDimensionTexts imperial = ConeDimensionsText(*t.session, 0);
  EXPECT_EQ(imperial.sleeve, "5.236");
  EXPECT_EQ(imperial.unit, "(in)");
  EXPECT_EQ(ConeDimensionsText(*t.session, 99).tip, "");
}

}  // namespace
}  // namespace marlview
