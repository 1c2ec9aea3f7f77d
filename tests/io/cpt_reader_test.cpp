// The PX DAS reader on good files: the header and channel table, the data line layouts, the ball
// tip, the sensor table and the engineering value of each unit a file can name.
#include <gtest/gtest.h>

#include <algorithm>

#include "core/common/number_format.h"
#include "core/io/cpt_reader.h"
#include "core/model/catalogue.h"
#include "support/test_support.h"

namespace marlview {
namespace {

using test::CptChannel;
using test::CptFile;
using test::SimpleCpt;

// Pounds per square inch and tons per square foot in kPa, from their definitions.
constexpr double kPsiKpa = 6.894757;
constexpr double kTsfKpa = 95.76052;
constexpr int kBarUnit = 3;

std::string Join(const std::vector<std::string>& lines) {
  std::string bytes;
  for (const auto& line : lines) bytes += line + "\r\n";
  return bytes;
}

class CptReaderTest : public ::testing::Test {
 protected:
  Session& session() { return *t.session; }
  SoundingStore& store() { return session().SpareStore(); }
  float Aligned(int r, int c, int k = kGraphOutput) { return store().AlignedReadings(r, KindColumn(c, k)); }

  ReadOutcome Read(const std::string& bytes) {
    return ReadCptSounding(bytes, "/field/CPT-T01.CPT", session(), store(), t.prompts);
  }
  ReadOutcome Read(const CptFile& file) { return Read(file.Bytes()); }

  test::TestSession t;
};

TEST_F(CptReaderTest, DemoSoundingsOpenWithoutAQuestion) {
  ASSERT_EQ(Read(test::ReadSample("PXC-E05.CPT")), ReadOutcome::kLoaded);
  const SoundingStore& s = store();
  EXPECT_EQ(s.ReadingCount, 1000);
  EXPECT_EQ(s.ChannelCount, 6);
  EXPECT_EQ(s.CptDepthDecimals, 2);
  EXPECT_FLOAT_EQ(s.WaterTableDepth, 1.8f);
  EXPECT_FLOAT_EQ(s.MaxDepth, 20);
  EXPECT_NEAR(s.DepthInterval, 0.02, 1e-6);
  EXPECT_TRUE(s.EndBaselinePresent);
  EXPECT_NEAR(s.EndBaselineValues[6][kGraphOutput], 14.8, 1e-4);
  EXPECT_NE(s.InclTotalChannel, 0);
  for (int r = 1; r <= s.ReadingCount; ++r) {
    const float tip_kpa = s.AlignedFixedPressure[2](r, 1);
    ASSERT_TRUE(tip_kpa > 150 && tip_kpa < 45000) << r;
  }

  ASSERT_EQ(Read(test::ReadSample("PXC-F02.CPT")), ReadOutcome::kLoaded);
  EXPECT_EQ(store().ReadingCount, 300);
  EXPECT_EQ(store().CptDepthDecimals, 3);
  EXPECT_TRUE(store().BallTip);
  EXPECT_FLOAT_EQ(store().BallDiameter, 113);
  EXPECT_FLOAT_EQ(store().ConicalTipArea, 1000);
  EXPECT_FLOAT_EQ(store().MaxDepth, 15);
  // The ball's resistance in soft clay: tens to a few hundred kPa.
  for (int r = 1; r <= store().ReadingCount; ++r) {
    const float ball_kpa = store().AlignedFixedPressure[2](r, 1);
    ASSERT_TRUE(ball_kpa > 40 && ball_kpa < 600) << r;
  }
  EXPECT_TRUE(t.prompts.Log().empty());
}

TEST_F(CptReaderTest, HeaderLinesAndTheChannelTableGoToTheirFields) {
  CptFile file = SimpleCpt(2);
  file.channels[1].sensitivity = 25000;
  file.channels[1].zero = -85.5;
  file.channels[1].range = "500 kPa";
  file.channels[1].number = 7.5;
  ASSERT_EQ(Read(file), ReadOutcome::kLoaded);
  const SoundingStore& s = store();
  EXPECT_EQ(s.AcquisitionFamily, kPxDasFamily);
  EXPECT_EQ(s.SoundingFileName, "CPT-T01.CPT");
  EXPECT_EQ(s.CptTitle, "FRASER RIVER CROSSING - PIEZOCONE");
  EXPECT_EQ(s.CommentLine3, "Predrilled 0.5 m");
  // Split at the commas whatever they hold; the family gives no satellites or fix quality.
  EXPECT_EQ(s.GpsLat, "49.2031");
  EXPECT_EQ(s.GpsLon, "-122.9157");
  EXPECT_EQ(s.GpsElev, "4.2");
  EXPECT_EQ(s.GpsNSat, "0");
  EXPECT_EQ(s.GpsQual, "0");
  EXPECT_FLOAT_EQ(s.WaterTableDepth, 2.35f);

  EXPECT_EQ(s.CptChannelNumber[2], "2");
  EXPECT_EQ(s.ChannelSensor[2], "FRICTION");
  EXPECT_FLOAT_EQ(s.ChannelSensitivity[2], 25000);
  EXPECT_FLOAT_EQ(s.ChannelZero[2], -85.5f);
  EXPECT_FLOAT_EQ(s.ChannelRange[2], 500);
  EXPECT_EQ(s.CptUnitText[2], "kPa");
  EXPECT_EQ(s.CptRowTextA[3], "A3");
  EXPECT_FLOAT_EQ(s.CptRowNumberB[2], 7.5f);
  EXPECT_EQ(s.TotalChannels, s.ChannelCount + 17);
  EXPECT_EQ(s.ChannelName[s.TotalChannels], "Push Speed");
  EXPECT_EQ(s.TimeChannel, 0) << "a PX DAS line carries no clock";
  // The derived channels read the family's pressures in kPa: Fs / Qc in percent.
  EXPECT_NEAR(Aligned(1, s.FrictionRatioQcChannel), (21 + 85.5) / 25000 * 500 / 1010 * 100, 1e-5);
  EXPECT_TRUE(t.prompts.Log().empty());

  // A file's water table of 0 leaves the one shown before.
  file.water_table = " 0";
  session().Sounding().WaterTableDepth = -99;
  ASSERT_EQ(Read(file), ReadOutcome::kLoaded);
  EXPECT_FLOAT_EQ(store().WaterTableDepth, -99);
}

TEST_F(CptReaderTest, TableCellsStartAtColumn14AndDataCellsAtColumn15) {
  CptFile file = SimpleCpt(1);
  file.channels[0].text = "ABCDEFGHIJKLMNOPQRST";  // a text row cell filled to its 20 characters
  std::vector<std::string> lines = file.Lines();
  // The writer puts the first number at column 14 as in the table; the reader starts at 15.
  std::string& data = lines.back();
  ASSERT_EQ(data.substr(0, 13), "  0.02   1.90");
  data = data.substr(0, 13) + "9" + data.substr(14);
  ASSERT_EQ(Read(Join(lines)), ReadOutcome::kLoaded);
  EXPECT_EQ(store().CptRowTextA[1], "ABCDEFGHIJKLMNOPQRST");
  EXPECT_FLOAT_EQ(store().CptRawReadings(1, 1), 1010);
  EXPECT_FLOAT_EQ(store().CptRawReadings(1, 3), 5);

  // The channels are the whole 20-character cells of the numbers row: one blank more makes a
  // fourth channel, whose empty sensitivity is no number.
  lines[15] += std::string(6, ' ');
  ASSERT_EQ(Read(Join(lines)), ReadOutcome::kLoaded);
  EXPECT_EQ(store().ChannelCount, 3);
  lines[15] += " ";
  EXPECT_FAILURE(Read(Join(lines)), kErrTypeMismatch, "OpenCptSounding");
}

TEST_F(CptReaderTest, DepthsWithTwoOrThreeDecimalsAndTheSpeedBesideThem) {
  for (const int decimals : {2, 3}) {
    SCOPED_TRACE(decimals);
    CptFile file = SimpleCpt(3);
    file.depth_decimals = decimals;
    file.heading = decimals == 2 ? "   (m) (cm/s)" : "    (m)(cm/s)";
    file.rows[1][0] = 0.045;
    file.rows[2][1] = 2.15;
    ASSERT_EQ(Read(file), ReadOutcome::kLoaded);
    const SoundingStore& s = store();
    EXPECT_EQ(s.CptDepthDecimals, decimals);
    EXPECT_EQ(s.ReadingCount, 3);
    EXPECT_FLOAT_EQ(s.DepthTable(2, 1), decimals == 2 ? 0.05f : 0.045f);
    EXPECT_FLOAT_EQ(s.DepthTable(3, 1), 0.06f);
    EXPECT_FLOAT_EQ(s.DepthTable(3, 2), 0.06f * kFeetPerMetre);
    EXPECT_FLOAT_EQ(s.DepthInterval, s.DepthTable(2, 1) - s.DepthTable(1, 1));
    EXPECT_FLOAT_EQ(s.MaxDepth, 0.06f);
    EXPECT_FLOAT_EQ(s.PushSpeed[3], 2.15f);
    EXPECT_FLOAT_EQ(s.CptRawReadings(2, 1), 1020);
    // The push speed channel takes the file's speed.
    EXPECT_FLOAT_EQ(Aligned(3, s.TotalChannels), 2.15f);
  }
}

TEST_F(CptReaderTest, NegativeDepthsAreTurnedDownward) {
  CptFile file = SimpleCpt(3);
  for (auto& row : file.rows) row[0] = -row[0];
  ASSERT_EQ(Read(file), ReadOutcome::kLoaded);
  EXPECT_TRUE(store().DepthReversed);
  for (int r = 1; r <= 3; ++r) EXPECT_FLOAT_EQ(store().DepthTable(r, 1), 0.02f * static_cast<float>(r)) << r;
  EXPECT_FLOAT_EQ(store().MaxDepth, 0.06f);

  ASSERT_EQ(Read(SimpleCpt(3)), ReadOutcome::kLoaded);
  EXPECT_FALSE(store().DepthReversed);
}

TEST_F(CptReaderTest, BaselineDrilloutAndOddLinesAmongTheReadings) {
  std::vector<std::string> lines = SimpleCpt(5).Lines();
  // After the heading (line 23) come readings 1..5; marks go in between.
  lines.insert(lines.begin() + 25, "DRILLOUT");
  lines.insert(lines.begin() + 27, "COMMENT: rods changed");
  lines.insert(lines.begin() + 29, "");
  lines.push_back(test::CptTableRow({"100", "-2", "4"}));
  lines.push_back("  ");
  ASSERT_EQ(Read(Join(lines)), ReadOutcome::kLoaded);
  const SoundingStore& s = store();
  // Five readings, the comment and the empty line: each odd line is a reading of zeros.
  ASSERT_EQ(s.ReadingCount, 7);
  EXPECT_EQ(s.DrilloutFlag, 1);
  EXPECT_FLOAT_EQ(s.DrilloutDepth, 0.04f);
  EXPECT_FLOAT_EQ(s.DepthTable(3, 1), 0.06f) << "the readings after the mark still count";
  for (int r : {4, 6}) {
    EXPECT_EQ(s.DepthTable(r, 1), 0) << r;
    EXPECT_EQ(s.CptRawReadings(r, 1), 0) << r;
    EXPECT_EQ(s.PushSpeed[r], 0) << r;
    for (int k = 0; k < kOutputKinds; ++k) EXPECT_EQ(Aligned(r, 1, k), 0) << r;
  }
  EXPECT_FLOAT_EQ(s.CptRawReadings(7, 1), 1050);
  EXPECT_FLOAT_EQ(s.MaxDepth, 0.10f);
  EXPECT_TRUE(s.EndBaselinePresent);
  EXPECT_FLOAT_EQ(s.CptEndBaseline[1], 100);
  EXPECT_FLOAT_EQ(s.CptEndBaseline[2], -2);
  EXPECT_NEAR(s.EndBaselineValues[1][kGraphOutput], 100 / kPsiKpa, 1e-4);

  // A line of stars marks a drillout as well; the last mark gives the depth.
  lines.insert(lines.begin() + 31, "****************");
  ASSERT_EQ(Read(Join(lines)), ReadOutcome::kLoaded);
  EXPECT_EQ(store().ReadingCount, 7);
  EXPECT_FLOAT_EQ(store().DrilloutDepth, 0.10f);
}

TEST_F(CptReaderTest, MissingNumbersLeaveZeroEngineeringValues) {
  CptFile file = SimpleCpt(2);
  file.rows[0][2] = -32768;
  file.channels[0].zero = 50;
  ASSERT_EQ(Read(file), ReadOutcome::kLoaded);
  EXPECT_EQ(store().CptRawReadings(1, 1), -32768);
  for (int k = 0; k < kOutputKinds; ++k) EXPECT_EQ(Aligned(1, 1, k), 0) << k;
  for (int m = 0; m < kFixedPressureTables; ++m) EXPECT_EQ(store().AlignedFixedPressure[m](1, 1), 0) << m;
  EXPECT_NEAR(Aligned(2, 1, kGraphOutput), (1020 - 50) / kPsiKpa, 1e-3);
  EXPECT_NEAR(Aligned(1, 2, kGraphOutput), 21 / kPsiKpa, 1e-4) << "the other channels of the line are read";
}

TEST_F(CptReaderTest, SensorsAreIdentifiedInTableOrder) {
  CptFile file = SimpleCpt(0);
  const char* names[] = {"TIP",     "FRICTION", "PORE U2",  "U1 FILTER",    "U3",          "X Incl",
                         "Y Incl",  "Pos Seis", "Neg Seis", "TEMP",         "UC TEMP",     "CEMENTED TIP",
                         "Resistivity", "COND",  "tip 2"};
  file.channels.clear();
  for (const char* name : names) file.channels.push_back({.name = name, .range = "100 x"});
  ASSERT_EQ(Read(file), ReadOutcome::kLoaded);
  const SoundingStore& s = store();
  const struct {
    int c;
    const char* name;
    const char* short_name;
    const char* legend;
    int id;
    int group;
  } expected[] = {
      {1, "Tip Resistance (Qc)", "Tip (Qc)", "Qc", 1, kPressureGroup},
      {2, "Sleeve Friction", "Sleeve (Fs)", "Fs", 3, kPressureGroup},
      {3, "Pore Pressure U2", "Pressure (U2)", "U2", 4, kPressureGroup},
      {4, "Pore Pressure U1", "Pressure (U1)", "U1", 4, kPressureGroup},
      {5, "Pore Pressure U3", "Pressure (U3)", "U3", 4, kPressureGroup},
      {6, "Inclination X", "Inclination X", "Incl.X", 7, kInclinationGroup},
      {7, "Inclination Y", "Inclination Y", "Incl.Y", 8, kInclinationGroup},
      {8, "Seismic S1", "Seismic S1", "Seis. S1", 60, kVoltageGroup},
      {9, "Seismic S2", "Seismic S2", "Seis. S2", 61, kVoltageGroup},
      {10, "Temperature", "Temperature", "TMP", 6, kTemperatureGroup},
      // "UC TEMP" and "CEMENTED TIP" are caught by the rows above their own.
      {11, "Temperature", "Temperature", "TMP", 6, kTemperatureGroup},
      {12, "Tip Resistance (Qc)", "Tip (Qc)", "Qc", 1, kPressureGroup},
      {13, "Resistivity", "Resistivity", "Resist.", 33, kResistivityGroup},
      {14, "UNDEFINED", "", "", 0, 0},
      {15, "Tip Resistance (Qc)", "Tip (Qc)", "Qc", 1, kPressureGroup},
  };
  for (const auto& e : expected) {
    SCOPED_TRACE(names[e.c - 1]);
    EXPECT_EQ(s.ChannelName[e.c], e.name);
    EXPECT_EQ(s.ChannelShortName[e.c], e.short_name);
    EXPECT_EQ(s.ChannelShortLegend[e.c], e.legend);
    EXPECT_EQ(s.ChannelCatalogueId[e.c], e.id);
    EXPECT_EQ(s.ChannelUnitGroup[e.c], e.group);
    EXPECT_TRUE(s.ChannelEnabled[e.c]);
    EXPECT_EQ(s.ChannelCurveStyle[e.c], 0);
  }
  EXPECT_EQ(s.TipChannel, 15) << "the last tip wins";
  EXPECT_EQ(s.SleeveChannel, 2);
  EXPECT_EQ(s.PorePressureChannel, 3) << "only u2 is the pore pressure";
  EXPECT_EQ(s.InclXChannel, 6);
  EXPECT_EQ(s.InclYChannel, 7);
  EXPECT_EQ(s.TemperatureChannel, 11);
  EXPECT_EQ(s.ResistivityChannel, 13);
  EXPECT_NE(s.InclTotalChannel, 0);
  EXPECT_NE(s.ConductivityChannel, 0);
  EXPECT_EQ(s.ChannelLegend[14], "(x):") << "an unknown sensor keeps the file's unit";
  EXPECT_EQ(s.ChannelLegend[1], "Qc(psi):");
}

TEST_F(CptReaderTest, AU1OrU3ChannelRenamesTheU2Labels) {
  const char* variants[] = {"Pore pressure(U2)", "PP (U2)", "Pressure (U2)", "U2", "Pore water (U2)"};
  for (int v = 1; v <= 5; ++v) session().choices.LabelVariants[v][4] = variants[v - 1];
  for (int k = 0; k < kOutputKinds; ++k) session().choices.LabelChoice[k][4] = static_cast<int16_t>(k + 1);
  CptFile file = SimpleCpt(1);
  file.channels.push_back({.name = "U1"});
  file.channels.push_back({.name = "U3"});
  file.rows[0].insert(file.rows[0].end(), {1.0, 2.0});
  ASSERT_EQ(Read(file), ReadOutcome::kLoaded);
  const PerKind u2 = {"Pore pressure(U2)", "PP (U2)", "Pressure (U2)", "U2", "Pore water (U2)"};
  const PerKind u1 = {"Pore pressure(U1)", "PP (U1)", "Pressure (U1)", "U1", "Pore water (U2)"};
  const PerKind u3 = {"Pore pressure(U3)", "PP (U3)", "Pressure (U3)", "U3", "Pore water (U2)"};
  EXPECT_EQ(store().ChannelLabel[3], u2);
  EXPECT_EQ(store().ChannelLabel[4], u1);
  EXPECT_EQ(store().ChannelLabel[5], u3);
}

// Tip resistance written in each unit a range can name, shown in a different unit for each output.
TEST_F(CptReaderTest, EachPressureUnitOfTheRangeGivesTheSameEngineeringValue) {
  const int shown[kOutputKinds] = {kPsiUnit, kKpaUnit, kMpaUnit, kTsfUnit, kBarUnit};
  for (int k = 0; k < kOutputKinds; ++k) session().choices.UnitChoice[k][1] = static_cast<int16_t>(shown[k]);
  const struct {
    const char* range;
    double zero, sensitivity, number;
    int file_unit;
    double kpa;  // (number - zero) / sensitivity * range, worked by hand
  } cases[] = {
      {"50000 kPa", 100, 30000, 2800, kKpaUnit, 4500},
      {"50 MPa", 100, 30000, 2800, kMpaUnit, 4500},
      {"500 bar", 100, 30000, 2800, kBarUnit, 4500},
      {"7500 psi", 0, 30000, 2000, kPsiUnit, 500 * kPsiKpa},
      {"500 tsf", 0, 10000, 1000, kTsfUnit, 50 * kTsfKpa},
      {"50000 KPA", 100, 30000, 2800, kKpaUnit, 4500},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.range);
    CptFile file = SimpleCpt(1);
    file.channels[0] = {.name = "TIP", .sensitivity = c.sensitivity, .zero = c.zero, .range = c.range};
    file.rows[0][2] = c.number;
    ASSERT_EQ(Read(file), ReadOutcome::kLoaded);
    EXPECT_EQ(store().ChannelDefaultUnit[1], c.file_unit);
    const double expected[kOutputKinds] = {c.kpa / kPsiKpa, c.kpa, c.kpa / 1000, c.kpa / kTsfKpa, c.kpa / 100};
    for (int k = 0; k < kOutputKinds; ++k) EXPECT_NEAR(Aligned(1, 1, k), expected[k], expected[k] * 2e-6) << k;
    // The fixed-unit copies: psi, tsf, kPa and MPa.
    const double fixed[kFixedPressureTables] = {c.kpa / kPsiKpa, c.kpa / kTsfKpa, c.kpa, c.kpa / 1000};
    for (int m = 0; m < kFixedPressureTables; ++m) {
      EXPECT_NEAR(store().AlignedFixedPressure[m](1, 1), fixed[m], fixed[m] * 2e-6) << m;
    }
    EXPECT_EQ(store().ChannelUnitLabel[1][kEcpOutput], "(MPa)");
  }
}

TEST_F(CptReaderTest, TemperatureInclinationAndOtherUnits) {
  // Temperature shown in C, F, deg F, deg C and C.
  const int16_t temperature_units[kOutputKinds] = {1, 2, 4, 3, 1};
  for (int k = 0; k < kOutputKinds; ++k) session().choices.UnitChoice[k][6] = temperature_units[k];
  CptFile file = SimpleCpt(1);
  file.channels.push_back({.name = "TEMP", .sensitivity = 10000, .zero = 0, .range = "100 C"});
  file.channels.push_back({.name = "X Incl", .sensitivity = 20000, .zero = -40, .range = "20 deg"});
  file.channels.push_back({.name = "Resistivity", .sensitivity = 10000, .range = "200 Ohm-m"});
  file.channels.push_back({.name = "Pos Seis", .sensitivity = 32768, .range = "10 V"});
  file.channels.push_back({.name = "COND", .sensitivity = 1000, .range = "2000 mS/m"});
  file.rows[0].insert(file.rows[0].end(), {1850.0, 2460.0, 4215.0, 16384.0, 250.0});
  ASSERT_EQ(Read(file), ReadOutcome::kLoaded);
  const double celsius = 18.5, fahrenheit = 18.5 * 9 / 5 + 32;
  const double temperature[kOutputKinds] = {celsius, fahrenheit, fahrenheit, celsius, celsius};
  for (int k = 0; k < kOutputKinds; ++k) {
    EXPECT_NEAR(Aligned(1, 4, k), temperature[k], 1e-4) << k;
    EXPECT_NEAR(Aligned(1, 5, k), 2.5, 1e-6) << k;
    EXPECT_NEAR(Aligned(1, 6, k), 84.3, 1e-4) << k;
    EXPECT_NEAR(Aligned(1, 7, k), 5, 1e-6) << k;
    EXPECT_NEAR(Aligned(1, 8, k), 500, 1e-4) << k;
  }
  EXPECT_EQ(store().ChannelUnitLabel[4][kTxtOutput], "(F)");
  EXPECT_EQ(store().ChannelUnitLabel[8][kGraphOutput], "(mS/m)");
  EXPECT_NEAR(store().AlignedFixedPressure[2](1, 4), celsius, 1e-4) << "only pressures change unit there";
  EXPECT_NEAR(Aligned(1, store().ConductivityChannel), 1 / 84.3, 1e-6);
}

TEST_F(CptReaderTest, ABallTipScalesTheTipByTheStandardConesArea) {
  CptFile file = SimpleCpt(1);
  file.channels[0].name = "TIP BALL mm113";
  file.rows[0][2] = 2000;
  // The file gives the standard cone's area after "AREA", in 20 characters from column 26 or 27.
  const std::string area = FormatText("1000", "@@@@@@@@@@@@@@@@@@@@");
  for (const std::string& heading : {"   (m) (cm/s) AREA (mm^2)" + area, "   (m) (cm/s)  AREA (mm^2)" + area,
                                     "   (m) (cm/s) AREA (mm^2) " + area}) {
    file.heading = heading;
    ASSERT_EQ(Read(file), ReadOutcome::kLoaded);
    const SoundingStore& s = store();
    EXPECT_TRUE(s.BallTip);
    EXPECT_FLOAT_EQ(s.BallDiameter, 113);
    EXPECT_NEAR(s.BallArea, 3.14159 * 56.5 * 56.5, 1e-2);
    EXPECT_FLOAT_EQ(s.ConicalTipArea, 1000);
    EXPECT_EQ(s.CptChannelName[1], "TIP BA");
    EXPECT_EQ(s.TipChannel, 1);
    // 2000 kPa over a ball of 10028.74 mm^2 against a 1000 mm^2 cone; the sleeve is as read.
    EXPECT_NEAR(Aligned(1, 1, kCsvOutput), 199.42683 / kPsiKpa, 1e-4);
    EXPECT_NEAR(s.AlignedFixedPressure[2](1, 1), 199.42683, 1e-3);
    EXPECT_NEAR(Aligned(1, 2, kCsvOutput), 21 / kPsiKpa, 1e-5);
  }
  EXPECT_TRUE(t.prompts.Log().empty());

  session().BallAreaDoubled = 1;
  file.heading = "    (m)(cm/s) AREA (mm^2)" + FormatText("1500", "@@@@@@@@@@@@@@@@@@@@");
  ASSERT_EQ(Read(file), ReadOutcome::kLoaded);
  EXPECT_NEAR(store().BallArea, 2 * 3.14159 * 56.5 * 56.5, 2e-2);
  EXPECT_NEAR(store().AlignedFixedPressure[2](1, 1), 2000 * 1500 / (2 * 3.14159 * 56.5 * 56.5), 1e-3);
}

TEST_F(CptReaderTest, TheStandardAreaIsAskedOnlyForABallTipWithoutIt) {
  const std::string question =
      "input ENTER STANDARD CONICAL TIP AREA: File indicates a ball tip was used, but the file does not contain "
      "the standard conical tip area which is needed to calculate tip pressure. Please enter the standard tip "
      "area in mm^2 (e.g. 1000) -> ";
  CptFile file = SimpleCpt(1);
  ASSERT_EQ(Read(file), ReadOutcome::kLoaded);
  EXPECT_TRUE(t.prompts.Log().empty()) << "a standard cone is not asked about";

  file.channels[0].name = "TIP BALL mm 87";
  t.prompts.Script({""});
  ASSERT_EQ(Read(file), ReadOutcome::kLoaded);
  EXPECT_EQ(t.prompts.Log(), std::vector<std::string>{question});
  EXPECT_FLOAT_EQ(store().BallDiameter, 87);
  EXPECT_FLOAT_EQ(store().ConicalTipArea, 1000) << "an empty answer is the standard 1000 mm^2";

  t.prompts.ClearLog();
  t.prompts.Script({"1500"});
  ASSERT_EQ(Read(file), ReadOutcome::kLoaded);
  EXPECT_EQ(t.prompts.Log(), std::vector<std::string>{question + "1500"});
  EXPECT_FLOAT_EQ(store().ConicalTipArea, 1500);
  EXPECT_NEAR(store().AlignedFixedPressure[2](1, 1), 1010.0 * 1500 / (3.14159 * 43.5 * 43.5), 1e-3);
}

TEST_F(CptReaderTest, DecimalCommasReadUnderEitherSetting) {
  CptFile file = SimpleCpt(2);
  file.channels[0].zero = 0.5;
  std::vector<std::string> lines = file.Lines();
  for (size_t i = 17; i < lines.size(); ++i) std::replace(lines[i].begin(), lines[i].end(), '.', ',');
  for (const bool decimal_comma : {false, true}) {
    session().DecimalComma = decimal_comma;
    for (const std::string& bytes : {file.Bytes(), Join(lines)}) {
      ASSERT_EQ(Read(bytes), ReadOutcome::kLoaded);
      EXPECT_FLOAT_EQ(store().ChannelZero[1], 0.5f);
      EXPECT_FLOAT_EQ(store().DepthTable(2, 1), 0.04f);
      EXPECT_FLOAT_EQ(store().PushSpeed[2], 1.9f);
    }
  }
}

TEST_F(CptReaderTest, ExactlyTenThousandReadingsFit) {
  ASSERT_EQ(Read(SimpleCpt(kMaxReadings)), ReadOutcome::kLoaded);
  EXPECT_EQ(store().ReadingCount, kMaxReadings);
  EXPECT_NEAR(store().MaxDepth, 200.0, 1e-3);
}

}  // namespace
}  // namespace marlview
