// Conversion of raw readings by sensor kind, and alignment to the tip's depth.
#include <gtest/gtest.h>

#include "core/model/conversion.h"
#include "core/model/unit_tables.h"
#include "support/test_support.h"

namespace marlview {
namespace {

class ConversionTest : public ::testing::Test {
 protected:
  ConversionTest() {
    SetupTYRChannels(units, test::DefaultsDirectory(), kFeetPerMetre);
    store.ResetSounding();
  }

  // A channel with excitation e (mV), gain g, calibration c and unit factor row 2 f2.
  void Channel(int c, const std::string& name, float e, float g, float cal, float f2 = 1) {
    store.ChannelName[c] = name;
    store.ChannelCalRows[c] = {e, g, cal, 0, 0};
    store.ChannelUnitFactorRows[c] = {0, 0, f2, 0, 0};
    store.ChannelUnitFactor[c].fill(1);
    store.ChannelDefaultUnit[c] = kPsiUnit;
    store.ChannelCount = static_cast<int16_t>(std::max<int>(store.ChannelCount, c));
  }

  float Convert(int c, float raw, int kind = kGraphOutput) {
    store.RawReadings(1, c) = raw;
    ConvertReading(store, units, c, 1);
    return store.ChannelReadings(1, KindColumn(c, kind));
  }

  UnitTables units;
  SoundingStore store;
};

TEST_F(ConversionTest, EachSensorKindHasItsFormula) {
  Channel(1, "Tip Resistance (Qc)", 5000, 2, 0.01f, 1.55f);
  store.ChannelBaseline[1] = 0.1f;
  EXPECT_NEAR(Convert(1, 0.6f), 0.5 / (5 * 2 * 0.01) / 1.55, 1e-4);
  Channel(2, "Pore Pressure U2", 5000, 2, 0.01f);
  EXPECT_NEAR(Convert(2, 0.5f), 5.0, 1e-5);
  Channel(3, "Exc Sense", 2, 0, 0);
  EXPECT_NEAR(Convert(3, 2.5f), 5.0, 1e-6);
  Channel(4, "Temperature", 10, 50, 1);
  EXPECT_NEAR(Convert(4, 0.6f), 10.0, 1e-4);
  Channel(5, "Inclination X", 4000, 0.05f, 1);
  EXPECT_NEAR(Convert(5, 0.2f), 1.0, 1e-5);
  Channel(6, "HFFD", 0, 0, 0);
  store.ChannelBaseline[6] = 1;
  EXPECT_NEAR(Convert(6, 3), 2, 1e-6);
  Channel(7, "VREF RATIO", 4, 0, 0);
  EXPECT_NEAR(Convert(7, 2), 50, 1e-5);
  Channel(8, "Rod Depth", 4000, 1, 0.025f);
  EXPECT_NEAR(Convert(8, 1), (1 / (4.0 / 2)) / 0.05, 1e-4);
  Channel(9, "RED", 0, 0, 0);
  EXPECT_NEAR(Convert(9, 0.001234f), 1234, 1e-2);
  Channel(10, "Resistivity", 2, 1, 1);
  store.ChannelCalRows[10][3] = 0;
  EXPECT_NEAR(Convert(10, 2), (5000.0 / 2 - 2000) * 2, 1e-3);
  EXPECT_NEAR(Convert(10, 5), 1e-8, 1e-12);  // at or below zero the floor value
  Channel(11, "Soil Moist", 0, 1, 3);
  store.ChannelUnitFactorRows[11] = {2, 0.5f, 0, 0, 0};
  EXPECT_NEAR(Convert(11, 2), 1 * 0.5 + 0.5 * 2, 1e-6);
  Channel(12, "Sonic Probe", 5000, 1, 1);
  EXPECT_FLOAT_EQ(Convert(12, 1.25f), 1.25f);
}

TEST_F(ConversionTest, SpellingsDecideTheFormulaAsTheFieldSystemsDo) {
  // "AUX 1" is scaled by its factor; "Aux1" falls through to the unchanged value.
  Channel(1, "AUX 1", 0, 0, 0);
  store.ChannelUnitFactor[1].fill(3);
  EXPECT_FLOAT_EQ(Convert(1, 2), 6);
  Channel(2, "Aux1", 0, 0, 0);
  store.ChannelUnitFactor[2].fill(3);
  EXPECT_FLOAT_EQ(Convert(2, 2), 2);
}

TEST_F(ConversionTest, ZeroCalibrationGivesZeroNotADivisionError) {
  for (int zero = 0; zero < 4; ++zero) {
    Channel(1, "Sleeve Friction", 5000, 2, 0.01f, 23.25f);
    if (zero < 3) store.ChannelCalRows[1][zero] = 0;
    else store.ChannelUnitFactorRows[1][2] = 0;
    EXPECT_EQ(Convert(1, 1), 0) << zero;
  }
  Channel(2, "Temperature", 0, 50, 1);
  EXPECT_EQ(Convert(2, 1), 0);
  Channel(3, "Incl Y", 4000, 0, 1);
  EXPECT_EQ(Convert(3, 1), 0);
  Channel(4, "Resistivity", 1, 1, 1);
  store.ChannelCalRows[4][3] = 2;
  EXPECT_FAILURE(Convert(4, 2), kErrDivisionByZero, "");
}

TEST_F(ConversionTest, OutputsHoldTheirOwnUnitsAndTheFixedTablesTheirs) {
  Channel(1, "Tip Resistance (Qc)", 1000, 1, 1, 1);
  store.ChannelUnitFactor[1] = {1, 1, 1, 1, static_cast<float>(6.8947573 / 1000)};  // psi, and MPa for COR
  Convert(1, 100);
  EXPECT_FLOAT_EQ(store.ChannelReadings(1, KindColumn(1, kGraphOutput)), 100);
  EXPECT_NEAR(store.ChannelReadings(1, KindColumn(1, kCorOutput)), 0.68947573, 1e-6);
  EXPECT_FLOAT_EQ(store.AlignedReadings(1, KindColumn(1, kCorOutput)),
                  store.ChannelReadings(1, KindColumn(1, kCorOutput)));
  EXPECT_NEAR(store.FixedPressureReadings[0](1, 1), 100, 1e-3);        // psi
  EXPECT_NEAR(store.FixedPressureReadings[1](1, 1), 7.19995, 1e-3);    // tsf
  EXPECT_NEAR(store.FixedPressureReadings[2](1, 1), 689.47573, 1e-2);  // kPa
  EXPECT_NEAR(store.FixedPressureReadings[3](1, 1), 0.68947573, 1e-6); // MPa
}

TEST_F(ConversionTest, FahrenheitOnlyForTheOutputsThatAskForIt) {
  Channel(1, "Temperature", 10, 50, 1);
  store.TemperatureInFahrenheit = {false, true, false, false, false};
  Convert(1, 0.6f);
  EXPECT_NEAR(store.ChannelReadings(1, KindColumn(1, kGraphOutput)), 10, 1e-4);
  EXPECT_NEAR(store.ChannelReadings(1, KindColumn(1, kTxtOutput)), 50, 1e-4);
}

TEST_F(ConversionTest, BallTipScalesTheTipByTheAreaRatio) {
  Channel(1, "Tip Resistance (Qc)", 1000, 1, 1, 1);
  Channel(2, "Sleeve Friction", 1000, 1, 1, 1);
  store.TipChannel = 1;
  store.BallTip = true;
  store.ConicalTipArea = 0.001f;
  store.BallArea = 0.004f;
  EXPECT_FLOAT_EQ(Convert(1, 100), 25);
  EXPECT_FLOAT_EQ(Convert(2, 100), 100);
  store.BallArea = 0;
  EXPECT_FAILURE(Convert(1, 100), kErrDivisionByZero, "");
}

TEST_F(ConversionTest, InvertReadingGivesBackTheRawVolts) {
  Channel(1, "Tip Resistance (Qc)", 5000, 2, 0.01f, 1.55f);
  store.ChannelBaseline[1] = 0.1f;
  store.ChannelUnitFactor[1].fill(2);
  Convert(1, 0.75f);
  store.RawReadings(1, 1) = 0;
  InvertReading(store, 1, 1);
  EXPECT_NEAR(store.RawReadings(1, 1), 0.75, 1e-6);
  Channel(2, "Temperature", 10, 50, 1);
  store.TemperatureInFahrenheit.fill(true);
  Convert(2, 0.6f);
  InvertReading(store, 2, 1);
  EXPECT_NEAR(store.RawReadings(1, 2), 0.6, 1e-6);
}

class AlignTest : public ConversionTest {
 protected:
  // Five readings 0.1 m apart; channel 1 carries 10 * depth in every table.
  AlignTest() {
    store.ReadingCount = 5;
    for (int r = 1; r <= 5; ++r) {
      store.DepthTable(r, 1) = 0.1f * static_cast<float>(r);
      for (int k = 0; k < kOutputKinds; ++k) store.ChannelReadings(r, KindColumn(1, k)) = static_cast<float>(r);
      for (int i = 0; i < kFixedPressureTables; ++i) {
        store.FixedPressureReadings[i](r, 1) = 10.0f * static_cast<float>(i + 1) * static_cast<float>(r);
      }
      store.RawReadings(r, 1) = 0.5f * static_cast<float>(r);
    }
  }
};

TEST_F(AlignTest, NoOffsetCopiesTheRowAsItIs) {
  AlignChannel(store, 1);
  EXPECT_FLOAT_EQ(store.AlignedReadings(3, KindColumn(1, kCsvOutput)), 3);
  EXPECT_FLOAT_EQ(store.AlignedFixedPressure[3](3, 1), 120);
  EXPECT_FLOAT_EQ(store.RawAlignedReadings(3, 1), 1.5f);
  EXPECT_EQ(store.AlignedReadings(0, 1), 0);
}

TEST_F(AlignTest, OffsetInterpolatesToTheSensorsDepthAndZeroesBeyondTheEnd) {
  store.ChannelOffset[1] = 0.15f;
  AlignChannel(store, 1);
  EXPECT_NEAR(store.AlignedReadings(1, KindColumn(1, kGraphOutput)), 2.5, 1e-5);
  EXPECT_NEAR(store.AlignedReadings(3, KindColumn(1, kTxtOutput)), 4.5, 1e-5);
  EXPECT_NEAR(store.AlignedFixedPressure[0](2, 1), 35, 1e-4);
  EXPECT_EQ(store.AlignedReadings(4, KindColumn(1, kGraphOutput)), 0);
  EXPECT_EQ(store.AlignedFixedPressure[1](5, 1), 0);
  EXPECT_EQ(store.RawAlignedReadings(2, 1), 0);
}

TEST_F(AlignTest, TheLastFixedTableStartsFromTheTableBeforeIt) {
  store.ChannelOffset[1] = 0.15f;
  AlignChannel(store, 1);
  // Between rows 2 and 3 halfway: table 2 at row 2 is 60, table 3 at row 3 is 120.
  EXPECT_NEAR(store.AlignedFixedPressure[3](1, 1), 60 + (120 - 60) * 0.5, 1e-3);
  EXPECT_NEAR(store.AlignedFixedPressure[2](1, 1), 60 + (90 - 60) * 0.5, 1e-3);
}

TEST_F(AlignTest, DepthsThatGoBackAreSearchedInRowOrder) {
  store.DepthTable(3, 1) = 0.05f;  // the rods were pulled back a little
  store.ChannelOffset[1] = 0.05f;
  AlignChannel(store, 1);
  // Row 1 at 0.10 m looks for 0.15 m: the first row at or below it is row 2 (0.20 m).
  EXPECT_NEAR(store.AlignedReadings(1, KindColumn(1, kGraphOutput)), 1.5, 1e-5);
  // Row 3 at 0.05 m looks for 0.10 m: row 1 is the first at or below it.
  EXPECT_NEAR(store.AlignedReadings(3, KindColumn(1, kGraphOutput)), 1.0, 1e-5);
}

TEST_F(ConversionTest, SleeveOffsetAddsTheFilterOnlyWithAPorePressureChannel) {
  store.TipChannel = 1;
  store.SleeveChannel = 2;
  store.ChannelUnitFactorRows[1][0] = 0;
  store.ChannelUnitFactorRows[2][0] = 12;
  EXPECT_NEAR(SleeveOffsetMetres(store, true, kFeetPerMetre), 0.5 * 0.3048, 1e-6);
  store.PorePressureChannel = 3;
  EXPECT_NEAR(SleeveOffsetMetres(store, true, kFeetPerMetre), (6.245 / 12) * 0.3048, 1e-6);
  EXPECT_NEAR(SleeveOffsetMetres(store, false, kFeetPerMetre), 0.5 * 0.3048, 1e-6);
}

}  // namespace
}  // namespace marlview
