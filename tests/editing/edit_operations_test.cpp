// The sounding's edit operations: their checks and messages, what each changes in the tables, and
// the recomputation after it. The test sounding's pressures in psi equal their raw readings.
#include "core/editing/edit_operations.h"

#include <gtest/gtest.h>

#include "core/io/dat_reader.h"
#include "support/test_support.h"

namespace marlview {
namespace {

using test::DatFile;
using test::SimpleDat;

class EditTest : public ::testing::Test {
 protected:
  void Open(const DatFile& file, const std::string& name = "T.DAT") {
    t.data.Write(name, file.Bytes());
    ASSERT_EQ(OpenDatSounding(*t.session, t.prompts, t.data.File(name)), ReadOutcome::kLoaded);
    t.session->SoundingOpen = true;
    t.prompts.ClearLog();
  }
  SoundingStore& s() { return t.session->Sounding(); }
  float Graph(int r, int c) { return s().ChannelReadings(r, KindColumn(c, kGraphOutput)); }
  float Aligned(int r, int c, int k = kGraphOutput) { return s().AlignedReadings(r, KindColumn(c, k)); }

  test::TestSession t;
};

TEST_F(EditTest, StartDepthMovesEveryDepthAndIsEnteredInTheUsersUnit) {
  Open(SimpleDat(10));
  EXPECT_EQ(StartDepthDialogText(*t.session), "000.00");
  EXPECT_FALSE(ChangeStartDepth(*t.session, "1.5 m", t.prompts));
  EXPECT_EQ(t.prompts.Log(), std::vector<std::string>{"! Please enter a valid depth"});
  ASSERT_TRUE(ChangeStartDepth(*t.session, "1.5", t.prompts));
  EXPECT_FLOAT_EQ(s().StartDepth, 1.5f);
  EXPECT_FLOAT_EQ(s().DepthTable(1, 1), 1.52f);
  EXPECT_NEAR(s().DepthTable(10, 2), 1.7 / 0.3048, 1e-4);
  EXPECT_FLOAT_EQ(s().MaxDepth, 1.7f);
  // Overburden follows the new depths: 1.52 m of soil at 120 pcf, in psi.
  EXPECT_NEAR(Aligned(1, s().OverburdenChannel), 120.0 / 1728 * (1.52 / 0.3048) * 12, 1e-3);

  t.session->DepthUnitIsMetric = 0;
  EXPECT_EQ(StartDepthDialogText(*t.session), "004.92");
  EXPECT_EQ(DepthUnitText(*t.session), "(ft)");
  ASSERT_TRUE(ChangeStartDepth(*t.session, "10", t.prompts));
  EXPECT_NEAR(s().StartDepth, 3.048, 1e-5);
  EXPECT_NEAR(s().DepthTable(1, 1), 3.068, 1e-5);
}

TEST_F(EditTest, RemoveNegativesLiftsOnlyReadingsBelowZero) {
  DatFile file = SimpleDat(4);
  file.rows[0][3] = -0.05;  // pore pressure below zero
  file.rows[1][3] = 0;      // exactly zero is not negative
  Open(file);
  const int u2 = s().PorePressureChannel;
  RemoveNegatives(*t.session, {u2});
  EXPECT_FLOAT_EQ(Graph(1, u2), 0.0001f);
  EXPECT_FLOAT_EQ(s().RawReadings(1, u2), 0.0001f) << "the raw reading follows";
  EXPECT_FLOAT_EQ(Aligned(1, u2, kCsvOutput), 0.0001f) << "and every output";
  EXPECT_EQ(Graph(2, u2), 0);
  EXPECT_FLOAT_EQ(Graph(3, u2), 0.03f);
}

TEST_F(EditTest, ShiftAddsTheAmountToEveryReadingOfTheChannel) {
  Open(SimpleDat(5));
  ShiftChannels(*t.session, {{s().TipChannel, 2.5}, {s().SleeveChannel, 0}});
  EXPECT_FLOAT_EQ(Graph(3, s().TipChannel), 2.603f);
  EXPECT_FLOAT_EQ(s().RawReadings(3, s().TipChannel), 2.603f);
  EXPECT_FLOAT_EQ(Graph(3, s().SleeveChannel), 0.002f);
}

TEST_F(EditTest, AdjustDepthScalesTheDepths) {
  Open(SimpleDat(10));
  EXPECT_FALSE(AdjustDepth(*t.session, "0", "1", t.prompts));
  ASSERT_TRUE(AdjustDepth(*t.session, "0.2", "0.3", t.prompts));
  EXPECT_FLOAT_EQ(s().DepthTable(10, 1), 0.3f);
  EXPECT_NEAR(s().DepthTable(5, 2), 0.15 / 0.3048, 1e-5);
}

TEST_F(EditTest, TipConfigurationConvertsTheTipAgain) {
  DatFile file = SimpleDat(3);
  file.channels[0].unit_factors = {0, 0, 2.0, 0, 0};  // a 2 square inch tip: 0.0012903 m^2
  Open(file);
  const float conical = Graph(1, s().TipChannel);
  EXPECT_EQ(TipConfigurationText(*t.session), "CONVENTIONAL");
  EXPECT_FALSE(ChangeTipConfiguration(*t.session, true, "0", t.prompts));
  EXPECT_EQ(t.prompts.Log().back(), "! BALL TIP DIAMETER cannot be less than or equal to 0");
  ASSERT_TRUE(ChangeTipConfiguration(*t.session, true, "44", t.prompts));
  EXPECT_EQ(TipConfigurationText(*t.session), " 44mm BALL");
  // The ball's area with the field systems' short pi: 3.14159 x 0.022^2 m^2.
  const double ball_area = 3.14159 * 0.022 * 0.022;
  EXPECT_NEAR(Graph(1, s().TipChannel), conical * (2.0 * 0.00064516) / ball_area, 1e-4);
  ASSERT_TRUE(ChangeTipConfiguration(*t.session, false, "", t.prompts));
  EXPECT_FLOAT_EQ(Graph(1, s().TipChannel), conical);
}

TEST_F(EditTest, TheGridTakesValuesInEitherView) {
  Open(SimpleDat(10));
  const int tip = s().TipChannel;
  EXPECT_FALSE(SetReading(*t.session, 2, tip, "abc", false, t.prompts));
  EXPECT_EQ(t.prompts.Log(), std::vector<std::string>{"! Please enter a valid number"});
  ASSERT_TRUE(SetReading(*t.session, 2, tip, " 7.25 ", false, t.prompts));
  EXPECT_FLOAT_EQ(s().RawReadings(2, tip), 7.25f);
  EXPECT_FLOAT_EQ(Aligned(2, tip, kCorOutput), 7.25f);
  ASSERT_TRUE(SetReading(*t.session, 3, tip, "4", true, t.prompts));
  EXPECT_FLOAT_EQ(Graph(3, tip), 4);
  // The friction ratio is derived again from the new tip.
  EXPECT_NEAR(Aligned(3, s().FrictionRatioQcChannel), 100 * 0.002 / 4, 1e-6);
  EXPECT_FAILURE(SetReading(*t.session, 11, tip, "1", false, t.prompts), kErrSubscript, "");

  ASSERT_TRUE(SetChannelBox(*t.session, tip, ChannelBox::kInitialBaseline, "0.5", t.prompts));
  EXPECT_FLOAT_EQ(Graph(3, tip), 3.5f);
  EXPECT_EQ(ChannelBoxText(*t.session, tip, ChannelBox::kInitialBaseline), "5.000000E-001");
}

TEST_F(EditTest, DeletingARowIsForTheUnadjustedViewOnly) {
  Open(SimpleDat(5));
  EXPECT_FALSE(DeleteReading(*t.session, 2, true, t.prompts));
  EXPECT_EQ(t.prompts.Log(), std::vector<std::string>{"! CURRENT CHANNEL VIEW: ADJUSTED FOR OFFSET (READINGS CANNOT BE DELETED)"});
  EXPECT_EQ(s().ReadingCount, 5);
  ASSERT_TRUE(DeleteReading(*t.session, 2, false, t.prompts));
  EXPECT_EQ(s().ReadingCount, 4);
  EXPECT_FLOAT_EQ(s().DepthTable(2, 1), 0.06f);
  EXPECT_FLOAT_EQ(Graph(2, s().TipChannel), 0.103f);
  EXPECT_EQ(s().DepthTable(5, 1), 0);
  EXPECT_FLOAT_EQ(s().MaxDepth, 0.10f);
}

TEST_F(EditTest, RemovingAChannelKeepsItsLimitsAndMovesTheRestDown) {
  DatFile file = SimpleDat(3);
  file.channels.push_back({.sensor = "Incl X"});
  file.channels.push_back({.sensor = "Rod Depth", .default_units = "m", .display_units = "m"});
  for (auto& row : file.rows) row.insert(row.end(), {0.5, 1.0});
  Open(file);
  ASSERT_EQ(s().ChannelCount, 5);
  EXPECT_FALSE(RemoveChannel(*t.session, s().TipChannel, t.prompts));
  EXPECT_FALSE(RemoveChannel(*t.session, s().SleeveChannel, t.prompts));
  t.prompts.Script({"No", "No"});
  EXPECT_FALSE(RemoveChannel(*t.session, s().PorePressureChannel, t.prompts));
  EXPECT_FALSE(RemoveChannel(*t.session, s().RodDepthChannel, t.prompts));
  EXPECT_EQ(t.prompts.Texts(), (std::vector<std::string>{
                                   "! CANNOT REMOVE TIP CHANNEL", "! CANNOT REMOVE FRICTION CHANNEL",
                                   "? SELECTED CHANNEL IS PORE PRESSURE. ARE YOU SURE YOU WANT TO REMOVE? -> No",
                                   "? SELECTED CHANNEL IS ROD DEPTH. ARE YOU SURE YOU WANT TO REMOVE? -> No"}));
  EXPECT_EQ(s().ChannelCount, 5);

  t.prompts.Script({"Yes"});
  ASSERT_TRUE(RemoveChannel(*t.session, 3, t.prompts));
  EXPECT_EQ(s().ChannelCount, 4);
  EXPECT_EQ(s().PorePressureChannel, 0);
  EXPECT_EQ(s().InclXChannel, 3);
  EXPECT_EQ(s().RodDepthChannel, 4);
  EXPECT_EQ(s().ChannelName[3], "Inclination X");
  EXPECT_FLOAT_EQ(s().RawReadings(2, 3), 0.5f);
  EXPECT_EQ(s().HeadPressureChannel, 0) << "no pore pressure, no head pressure";
  EXPECT_EQ(s().ChannelName[s().TotalChannels], "Push Speed");

  // A file without the version line keeps its rod depth: its depths come from it.
  DatFile plain = file;
  plain.family = 2;
  Open(plain, "P.DAT");
  EXPECT_FALSE(RemoveChannel(*t.session, s().RodDepthChannel, t.prompts));
  EXPECT_EQ(t.prompts.Log().back(), "! CANNOT REMOVE ROD DEPTH");
}

TEST_F(EditTest, NormalizingResamplesTheReadingsAtTheInterval) {
  DatFile file = SimpleDat(0);
  // Depths every 3 cm from 0.03 to 0.30 m; the tip is 10 x depth.
  for (int r = 1; r <= 10; ++r) file.rows.push_back({0.03 * r, 0.3 * r, 0.002, 0.01});
  Open(file);
  EXPECT_FALSE(NormalizeDepthIntervals(*t.session, "", t.prompts));
  EXPECT_EQ(t.prompts.Log(), std::vector<std::string>{"! Please enter a valid interval"});
  EXPECT_EQ(s().ReadingCount, 10) << "an empty interval changes nothing";

  // An edit made before resampling stays.
  ASSERT_TRUE(SetReading(*t.session, 10, s().TipChannel, "9", false, t.prompts));
  ASSERT_TRUE(NormalizeDepthIntervals(*t.session, "20", t.prompts));
  // (0.30 - 0) / 0.02 + 1 targets from the start depth.
  EXPECT_EQ(s().ReadingCount, 16);
  EXPECT_TRUE(s().DepthIncrementMode);
  EXPECT_FLOAT_EQ(s().DepthTable(2, 1), 0.02f);
  EXPECT_FLOAT_EQ(s().DepthTable(16, 1), 0.30f);
  EXPECT_NEAR(Graph(5, s().TipChannel), 0.8, 1e-5) << "0.08 m between the readings at 0.06 and 0.09";
  EXPECT_NEAR(Graph(1, s().TipChannel), 0.3, 1e-6) << "above the first reading: the first reading";
  EXPECT_FLOAT_EQ(Graph(16, s().TipChannel), 9);
}

TEST_F(EditTest, CombiningChecksTheFamiliesAndAddsTheSecondFileBelow) {
  DatFile first = SimpleDat(5);
  Open(first);
  DatFile plain = SimpleDat(3);
  plain.family = 2;
  t.data.Write("PLAIN.DAT", plain.Bytes());
  EXPECT_FALSE(AppendDatFile(*t.session, t.prompts, t.data.File("PLAIN.DAT"), "0"));
  EXPECT_EQ(t.prompts.Log().back(),
            "! First file is a FLDACQ compatible file and cannot be combined with a FLDREC compatible file.");

  DatFile second = SimpleDat(0);
  for (int r = 1; r <= 4; ++r) second.rows.push_back({0.05 * r, 1.0 + r, 0.004, 0.02});
  t.data.Write("SECOND.DAT", second.Bytes());
  DatFile other_sensors = second;
  other_sensors.channels[2].sensor = "Temperature";
  t.data.Write("OTHER.DAT", other_sensors.Bytes());
  EXPECT_FALSE(AppendDatFile(*t.session, t.prompts, t.data.File("OTHER.DAT"), "0"));
  EXPECT_EQ(t.prompts.Log().back(),
            "! The number of channels in the two files do not match. The two files cannot be combined");
  EXPECT_FALSE(AppendDatFile(*t.session, t.prompts, t.data.File("SECOND.DAT"), "-1"));

  ASSERT_TRUE(AppendDatFile(*t.session, t.prompts, t.data.File("SECOND.DAT"), "0.5"));
  // The header's line count takes the second file's first reading with it: three are added.
  EXPECT_EQ(s().ReadingCount, 8);
  EXPECT_FLOAT_EQ(s().DepthTable(6, 1), 0.10f + 0.5f + 0.10f);
  EXPECT_FLOAT_EQ(Graph(6, s().TipChannel), 3.0f);
  EXPECT_FLOAT_EQ(s().StartDepth, 0) << "the first file's header stays";
  EXPECT_FLOAT_EQ(s().MaxDepth, 0.10f + 0.5f + 0.20f);

  // The other way round: a file without the version line does not take a KORVAN file.
  Open(plain, "PLAIN2.DAT");
  EXPECT_FALSE(AppendDatFile(*t.session, t.prompts, t.data.File("SECOND.DAT"), "0"));
  EXPECT_EQ(t.prompts.Log().back(),
            "! First file is a FLDREC compatible file cannot be combined with a FLDACQ compatible file.");
}

TEST_F(EditTest, TheListedChannelsStopAtThirty) {
  DatFile file = SimpleDat(2);
  for (int c = 4; c <= 31; ++c) file.channels.push_back({.sensor = "Aux" + std::to_string(c)});
  for (auto& row : file.rows) row.resize(32, 0.1);
  Open(file);
  EXPECT_EQ(EditableChannels(*t.session, t.prompts).size(), 30u);
  EXPECT_EQ(t.prompts.Log(), std::vector<std::string>{"! MORE THAN 30 CHANNELS PRESENT. CANNOT LIST ALL CHANNELS"});
}

}  // namespace
}  // namespace marlview
