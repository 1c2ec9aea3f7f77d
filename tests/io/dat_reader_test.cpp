// The DAT reader on good files: layouts, header rules, the channel table and the data lines.
#include <gtest/gtest.h>

#include "core/common/file_access.h"
#include "core/io/dat_reader.h"
#include "support/test_support.h"

namespace marlview {
namespace {

using test::DatChannel;
using test::DatFile;
using test::SimpleDat;

class DatReaderTest : public ::testing::Test {
 protected:
  Session& session() { return *t.session; }
  SoundingStore& store() { return session().SpareStore(); }

  ReadOutcome Read(const std::string& bytes, const std::string& path = "/field/CPT-T01.DAT") {
    return ReadDatSounding(bytes, path, session(), store(), t.prompts);
  }
  ReadOutcome Read(const DatFile& file) { return Read(file.Bytes()); }

  test::TestSession t;
};

size_t LineOf(const std::vector<std::string>& lines, const std::string& start) {
  for (size_t i = 0; i < lines.size(); ++i) {
    if (lines[i].starts_with(start)) return i + 1;
  }
  return 0;
}

TEST_F(DatReaderTest, DemoSoundingsOpenWithTheirHeadersAndChannels) {
  ASSERT_EQ(Read(test::ReadSample("CPT-A01.DAT")), ReadOutcome::kLoaded);
  EXPECT_EQ(store().AcquisitionFamily, kKorvanDatFamily);
  EXPECT_EQ(store().ReadingCount, 1250);
  EXPECT_EQ(store().ChannelCount, 8);
  EXPECT_EQ(store().TotalChannels, 8 + 19) << "every derived channel, Inclination Total and Time included";
  EXPECT_FLOAT_EQ(store().WaterTableDepth, 2.4f);
  EXPECT_FLOAT_EQ(store().MaxDepth, 25.0f);
  EXPECT_NEAR(store().DepthInterval, 0.02, 1e-6);
  EXPECT_TRUE(store().EndBaselinePresent);
  EXPECT_TRUE(store().DepthIncrementMode);
  EXPECT_EQ(store().DepthIncrement, "20");
  EXPECT_EQ(store().SampleRate, "N/A");
  EXPECT_EQ(store().TipChannel, 1);
  EXPECT_EQ(store().SleeveChannel, 2);
  EXPECT_EQ(store().PorePressureChannel, 3);
  EXPECT_EQ(store().ChannelName[3], "Pore Pressure U2");
  EXPECT_EQ(store().ChannelLegend[1], "Qc(psi):");
  EXPECT_FLOAT_EQ(store().ChannelPascalFactor[1], 6894.7568f);
  for (int r = 1; r <= store().ReadingCount; ++r) {
    const float tip = store().AlignedReadings(r, KindColumn(1, kGraphOutput));
    ASSERT_TRUE(tip > 50 && tip < 4000) << r;
  }
  EXPECT_TRUE(t.prompts.Log().empty());

  ASSERT_EQ(Read(test::ReadSample("CPT-B07.DAT")), ReadOutcome::kLoaded);
  EXPECT_TRUE(store().BallTip);
  EXPECT_FLOAT_EQ(store().BallDiameter, 44);
  EXPECT_NEAR(store().BallArea, 3.14159 * 0.022 * 0.022, 1e-9);
  EXPECT_NEAR(store().ConicalTipArea, 1.55 * 0.00064516, 1e-9);
  EXPECT_FLOAT_EQ(store().StartDepth, 1.5f);
  EXPECT_FLOAT_EQ(store().DepthTable(1, 1), 1.5f);
  EXPECT_FLOAT_EQ(store().WaterTableDepth, -99) << "no water table line in a 2012 file";
  EXPECT_EQ(store().SampleRate, "1 Hz");

  ASSERT_EQ(Read(test::ReadSample("CPT-C12.DAT")), ReadOutcome::kLoaded);
  EXPECT_EQ(store().AcquisitionFamily, kPlainDatFamily);
  EXPECT_EQ(store().FileVersionLine, store().FileProductLine);
  EXPECT_EQ(store().RodDepthChannel, 4);
  EXPECT_NEAR(store().MaxDepth, 12.0, 0.01);
  EXPECT_GT(store().ChannelOffset[2], 0);
  EXPECT_EQ(store().ChannelOffset[3], 0) << "only the tip and sleeve get offsets in this layout";
}

TEST_F(DatReaderTest, LayoutsDifferByTheVersionLineTheWaterTableLineAndTheTipLine) {
  DatFile with_water = SimpleDat(3);
  DatFile without_water = SimpleDat(3);
  without_water.version = "KORVAN FILE VER: 10.12.2012";
  DatFile plain = SimpleDat(3);
  plain.family = 2;
  plain.channels.push_back({.sensor = "Rod Depth", .cal = {4000, 1, 0.5f, 0, 0}});
  for (auto& row : plain.rows) {
    row.erase(row.begin());
    row.push_back(0.1);
  }
  EXPECT_EQ(LineOf(with_water.Lines(), "Channel"), 33u);
  EXPECT_EQ(LineOf(without_water.Lines(), "Channel"), 32u);
  EXPECT_EQ(LineOf(plain.Lines(), "Channel"), 30u);
  for (const DatFile* file : {&with_water, &without_water, &plain}) {
    ASSERT_EQ(Read(*file), ReadOutcome::kLoaded);
    EXPECT_EQ(store().ProbeSerial, "CN15-2291");
    EXPECT_EQ(store().Weather, "Overcast, 9 C");
    EXPECT_EQ(store().DasVersion, "Version 4.12.7");
    EXPECT_EQ(store().ChannelSensor[2], "          Sleeve");
    EXPECT_EQ(store().ReadingCount, 3);
  }
  EXPECT_FLOAT_EQ(store().DepthTable(2, 2), 0.1f / (4 * 0.5f) / 1.0f);
  EXPECT_NEAR(store().DepthTable(2, 1), 0.05 / kFeetPerMetre, 1e-6);
}

TEST_F(DatReaderTest, HeaderValuesStandBeforeTheArrow) {
  DatFile file = SimpleDat(1);
  file.operator_crew = "A. Singh | => Operator / Crew";
  ASSERT_EQ(Read(file), ReadOutcome::kLoaded);
  EXPECT_EQ(store().TestId, "T01");
  EXPECT_EQ(store().Location, "Richmond, BC");
  EXPECT_EQ(store().Operator, "A. Singh");
  EXPECT_EQ(store().Crew, "");

  const struct {
    const char* line;
    const char* op;
    const char* crew;
  } crews[] = {
      {"J. Ferreira | D. Okafor => Operator / Crew", "J. Ferreira", "D. Okafor"},
      {"J. Ferreira |  => Operator / Crew", "J. Ferreira", ""},
      {"J. Ferreira => Operator / Crew", "J. Ferreira", ""},
      {"J. Ferreira | D. Okafor=> Operator / Crew", "J. Ferreira", "D. Okafor"},
  };
  for (const auto& c : crews) {
    file.operator_crew = c.line;
    ASSERT_EQ(Read(file), ReadOutcome::kLoaded);
    EXPECT_EQ(store().Operator, c.op) << c.line;
    EXPECT_EQ(store().Crew, c.crew) << c.line;
  }
  // An empty value is written with nothing before " =>"; the reader then keeps the blank before "=>".
  std::vector<std::string> lines = SimpleDat(1).Lines();
  lines[4] = " => Test Id";
  std::string bytes;
  for (const auto& line : lines) bytes += line + "\r\n";
  ASSERT_EQ(Read(bytes), ReadOutcome::kLoaded);
  EXPECT_EQ(store().TestId, " ");
}

TEST_F(DatReaderTest, GpsIsSplitOnlyWithAHemisphereLetter) {
  DatFile file = SimpleDat(1);
  ASSERT_EQ(Read(file), ReadOutcome::kLoaded);
  EXPECT_EQ(store().GpsLat, "49.2031N");
  EXPECT_EQ(store().GpsLon, "122.9157W");
  EXPECT_EQ(store().GpsElev, "4.2");
  EXPECT_EQ(store().GpsNSat, "9");
  // The value runs up to the first " =>": of the two blanks before it, one stays with the quality.
  EXPECT_EQ(store().GpsQual, "2 ");

  file.gps = "-36.84853,174.76333,12.5,7,1  => GPS Data (Lat, Lon, Elev, NSat, Qual)";
  ASSERT_EQ(Read(file), ReadOutcome::kLoaded);
  EXPECT_EQ(store().GpsLine, "-36.84853,174.76333,12.5,7,1 ");
  for (const std::string* piece : {&store().GpsLat, &store().GpsLon, &store().GpsElev, &store().GpsNSat,
                                   &store().GpsQual}) {
    EXPECT_EQ(*piece, "0");
  }
  file.gps = "33.9S,,18.4E  => GPS Data (Lat, Lon, Elev, NSat, Qual)";
  ASSERT_EQ(Read(file), ReadOutcome::kLoaded);
  EXPECT_EQ(store().GpsLat, "33.9S");
  EXPECT_EQ(store().GpsLon, "0");
  EXPECT_EQ(store().GpsElev, "18.4E ");
  EXPECT_EQ(store().GpsQual, "0");
}

TEST_F(DatReaderTest, SensorsAreIdentifiedInTableOrder) {
  DatFile file = SimpleDat(0);
  file.channels = {{.sensor = "Cemented Tip"}, {.sensor = "Sleeve"},     {.sensor = "tip 2"},
                   {.sensor = "Aux1"},         {.sensor = "AUX 1"},      {.sensor = "VREF RATIO"},
                   {.sensor = "Not Connected"}, {.sensor = "S Wave 2"},  {.sensor = "Geophone"}};
  ASSERT_EQ(Read(file), ReadOutcome::kLoaded);
  const SoundingStore& s = store();
  EXPECT_EQ(s.ChannelName[1], "Tip Resistance (Qc)");
  EXPECT_EQ(s.TipChannel, 3) << "the last tip wins";
  EXPECT_EQ(s.ChannelCatalogueId[4], 13);
  EXPECT_EQ(s.ChannelShortName[4], "Aux1");
  EXPECT_EQ(s.ChannelCatalogueId[5], kOtherSensorId) << "AUX 1 is not Aux1";
  EXPECT_EQ(s.ChannelShortLegend[5], "AUX ");
  EXPECT_EQ(s.ChannelCatalogueId[6], 15) << "VREF RATIO holds \"Ref\"";
  EXPECT_EQ(s.ChannelUnitLabel[7][kGraphOutput], "(V)");
  EXPECT_EQ(s.ChannelName[8], "Seismic S2");
  EXPECT_EQ(s.ChannelName[9], "Geophone");
  EXPECT_EQ(s.ChannelLegend[9], "Geop(V):");
  for (int c = 1; c <= 9; ++c) {
    EXPECT_TRUE(s.ChannelEnabled[c]);
    EXPECT_EQ(s.ChannelCurveStyle[c], 0);
  }
}

TEST_F(DatReaderTest, UnitsFromTheFileOrFromTheUsersChoices) {
  DatFile file = SimpleDat(1);
  file.channels[0].default_units = "kPa";
  file.channels[0].display_units = "tsf";
  file.channels[0].conv_factor = "2.000000E+000";
  file.channels.push_back({.sensor = "Temperature", .cal = {10, 50, 1, 0, 0}, .default_units = "C",
                           .display_units = "deg F", .conv_factor = "IND"});
  file.channels.push_back({.sensor = "Aux1", .default_units = "V", .display_units = "mm/s"});
  for (auto& row : file.rows) {
    row.push_back(0.6);
    row.push_back(1);
  }
  ASSERT_EQ(Read(file), ReadOutcome::kLoaded);
  EXPECT_EQ(store().ChannelDefaultUnit[1], kKpaUnit);
  EXPECT_EQ(store().ChannelDisplayUnit[1][kCorOutput], kTsfUnit);
  EXPECT_EQ(store().ChannelUnitLabel[1][kTxtOutput], "(tsf)");
  EXPECT_EQ(store().ChannelLegend[1], "Qc(tsf):");
  EXPECT_FLOAT_EQ(store().ChannelUnitFactor[1][kCsvOutput], 2);
  EXPECT_TRUE(store().TemperatureInFahrenheit[kGraphOutput]);
  EXPECT_NEAR(store().AlignedReadings(1, KindColumn(4, kGraphOutput)), 50, 1e-4);
  EXPECT_EQ(store().ChannelUnitGroup[5], kPrivateUnitGroup);
  EXPECT_EQ(store().ChannelUnitLabel[5][kEcpOutput], "(mm/s)");

  t.session->choices.UseUnitsFromFile = 0;
  ASSERT_EQ(Read(file), ReadOutcome::kLoaded);
  EXPECT_EQ(store().ChannelDefaultUnit[1], kPsiUnit);
  EXPECT_EQ(store().ChannelUnitLabel[1][kTxtOutput], "(psi)");
  EXPECT_FLOAT_EQ(store().ChannelUnitFactor[1][kCsvOutput], 1);
  EXPECT_FALSE(store().TemperatureInFahrenheit[kGraphOutput]);
  EXPECT_NEAR(store().AlignedReadings(1, KindColumn(4, kGraphOutput)), 10, 1e-4);
  // The sensor's own unit does not depend on the setting.
  EXPECT_EQ(store().ChannelUnitLabel[5][kEcpOutput], "(mm/s)");
}

TEST_F(DatReaderTest, StartDepthInMetresFeetOrAskedOncePerRun) {
  DatFile file = SimpleDat(2);
  file.test_depth = "1.50 => Test Depth (m)";
  ASSERT_EQ(Read(file), ReadOutcome::kLoaded);
  EXPECT_FLOAT_EQ(store().StartDepth, 1.5f);
  EXPECT_FLOAT_EQ(store().DepthTable(1, 1), 1.52f);
  file.test_depth = "1.50 => Test Depth (ft)";
  ASSERT_EQ(Read(file), ReadOutcome::kLoaded);
  EXPECT_FLOAT_EQ(store().StartDepth, 1.5f) << "a stated unit is not converted";
  EXPECT_TRUE(t.prompts.Log().empty());

  file.test_depth = "5 => Test Depth";
  t.prompts.Script({"No"});
  ASSERT_EQ(Read(file), ReadOutcome::kLoaded);
  EXPECT_NEAR(store().StartDepth, 5 / kFeetPerMetre, 1e-6);
  ASSERT_EQ(Read(file), ReadOutcome::kLoaded);
  EXPECT_NEAR(store().StartDepth, 5 / kFeetPerMetre, 1e-6);
  EXPECT_EQ(t.prompts.Log(),
            std::vector<std::string>{"? Start Depth of 5 is detected. Is this value in meters? -> No"});

  session().StartDepthAnswer = -1;
  t.prompts.Script({"Yes"});
  ASSERT_EQ(Read(file), ReadOutcome::kLoaded);
  EXPECT_FLOAT_EQ(store().StartDepth, 5);
  file.test_depth = "0.00 => Test Depth";
  session().StartDepthAnswer = -1;
  ASSERT_EQ(Read(file), ReadOutcome::kLoaded);
  EXPECT_EQ(t.prompts.Log().size(), 2u) << "a start depth of 0 is never asked about";
}

TEST_F(DatReaderTest, ExactlyTenThousandReadingsFit) {
  DatFile file = SimpleDat(kMaxReadings);
  ASSERT_EQ(Read(file), ReadOutcome::kLoaded);
  EXPECT_EQ(store().ReadingCount, kMaxReadings);
  EXPECT_NEAR(store().MaxDepth, 200.0, 1e-3);
}

TEST_F(DatReaderTest, DuplicateDepthsAreDroppedOnlyWhenAsked) {
  DatFile file = SimpleDat(4);
  file.rows[2][0] = file.rows[1][0];       // the rods paused
  file.rows[3][0] = file.rows[1][0] - 0.5;  // and went back
  ASSERT_EQ(Read(file), ReadOutcome::kLoaded);
  EXPECT_EQ(store().ReadingCount, 4);
  session().DuplicateDepthCheck = 1;
  session().DuplicateDepthThreshold = 0.005f;
  ASSERT_EQ(Read(file), ReadOutcome::kLoaded);
  EXPECT_EQ(store().ReadingCount, 2);
  EXPECT_FLOAT_EQ(store().RawReadings(2, 1), 0.102f);
}

TEST_F(DatReaderTest, PlainLayoutTakesDepthsFromTheRodAndDropsReadingsThatGoBack) {
  DatFile file = SimpleDat(0);
  file.family = 2;
  file.channels.push_back({.sensor = "Rod Depth", .cal = {4000, 1, 0.5f, 0, 0}});
  // Two rod volts a foot: 1, 2, 2, 1.5 and 3 ft; the tip reads the same number.
  for (double feet : {1.0, 2.0, 2.0, 1.5, 3.0}) file.rows.push_back({feet, 0.001, 0.002, 2 * feet});
  session().DuplicateDepthCheck = 1;
  session().DuplicateDepthThreshold = 0.005f;
  ASSERT_EQ(Read(file), ReadOutcome::kLoaded);
  ASSERT_EQ(store().ReadingCount, 3);
  EXPECT_NEAR(store().DepthTable(3, 2), 3, 1e-5);
  EXPECT_NEAR(store().RawReadings(3, 1), 3, 1e-5);
  EXPECT_EQ(store().RawReadings(4, 1), 0);

  // The start depth goes into the feet and once more into the metres.
  file.test_depth = "0.50 => Test Depth";
  t.prompts.Script({"Yes"});
  ASSERT_EQ(Read(file), ReadOutcome::kLoaded);
  EXPECT_NEAR(store().DepthTable(1, 2), 1.5, 1e-5);
  EXPECT_NEAR(store().DepthTable(1, 1), 1.5 / kFeetPerMetre + 0.5, 1e-5);
}

TEST_F(DatReaderTest, ClosingBaselineExtraHeaderAndRowTails) {
  DatFile file = SimpleDat(2);
  file.extra_header = {"R 2.1 RESET COUNT 3", "Cal 2026-09-30"};
  file.end_baseline = {0.0005, 0.001, 0.002};
  std::vector<std::string> lines = file.Lines();
  lines.insert(lines.end() - 2, "BASELINE  " + test::RawField(9) + " " + test::RawField(9) + " " + test::RawField(9));
  lines[lines.size() - 2] += "  17:02:44";
  std::string bytes;
  for (const auto& line : lines) bytes += line + "\n";  // a copy saved with plain line feeds
  ASSERT_EQ(Read(bytes), ReadOutcome::kLoaded);
  EXPECT_TRUE(store().ExtraHeaderPresent);
  EXPECT_EQ(store().ExtraHeaderLine2, "Cal 2026-09-30");
  EXPECT_EQ(store().ReadingCount, 2);
  EXPECT_TRUE(store().EndBaselinePresent);
  EXPECT_FLOAT_EQ(store().ChannelEndBaseline[3], 0.002f) << "the last baseline line wins";
  EXPECT_NEAR(store().EndBaselineValues[1][kGraphOutput], 0.0005, 1e-9);
  EXPECT_NEAR(store().FinalBaselineValue[store().TipQtChannel][kCsvOutput], 0.0005, 1e-9);
  EXPECT_EQ(store().RowTail[2], "  17:02:44");
}

TEST_F(DatReaderTest, ColourProbeChipsComeFromTheCompanionFile) {
  const std::string folder = t.data.Path() + "/";
  const std::string main = test::ReadSample("CPT-D03.DAT");
  t.data.Write("CPT-D03.DAT", main);
  t.data.Write("cpt-d03(munsell).dat", test::ReadSample("CPT-D03(MUNSELL).DAT"));
  t.prompts.Script({"Yes"});
  ASSERT_EQ(Read(main, folder + "CPT-D03.DAT"), ReadOutcome::kLoaded);
  EXPECT_EQ(t.prompts.Log(),
            std::vector<std::string>{"? COLOR PROBE DATA PRESENT. IMPORT MUNSELL COLOR PROBE DATA? -> Yes"});
  const SoundingStore& s = store();
  EXPECT_EQ(s.MunsellChannel, 8);
  EXPECT_EQ(s.ChannelCount, 8);
  EXPECT_EQ(s.ChannelName[8], "MUNSELL Color");
  EXPECT_EQ(s.ChannelOffset[8], s.ChannelOffset[s.RedChannel]);
  EXPECT_TRUE(s.MunsellChips[1].starts_with("10YR 3/2")) << s.MunsellChips[1];
  EXPECT_EQ(s.ChannelUnitLabel[s.RedChannel][kGraphOutput], "()");
  const float red = s.RawReadings(1, s.RedChannel);

  // The companion opened on its own reads as the colour probe's layout.
  ASSERT_EQ(Read(test::ReadSample("CPT-D03(MUNSELL).DAT"), folder + "CPT-D03(MUNSELL).DAT"), ReadOutcome::kLoaded);
  EXPECT_TRUE(store().IsMunsellFile);
  EXPECT_EQ(store().ReadingCount, 300);
  EXPECT_TRUE(store().MunsellChips[1].starts_with("10YR 3/2"));
  EXPECT_FLOAT_EQ(store().RawReadings(1, 2), red);

  t.prompts.Script({"Yes"});
  EXPECT_FAILURE(Read(main, folder + "CPT-D04.DAT"), kErrFileNotFound, "OpenDatSounding");
  t.prompts.Script({"No"});
  ASSERT_EQ(Read(main, folder + "CPT-D04.DAT"), ReadOutcome::kLoaded);
  EXPECT_EQ(store().MunsellChannel, 0);
}

}  // namespace
}  // namespace marlview
