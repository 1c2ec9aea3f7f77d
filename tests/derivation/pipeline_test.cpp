// The derivation pipeline on soundings built reading by reading.
#include <gtest/gtest.h>

#include <cmath>

#include "core/derivation/correlations.h"
#include "core/derivation/derived_channels.h"
#include "core/derivation/normalised_sbt.h"
#include "core/derivation/push_speed.h"
#include "support/test_support.h"

namespace marlview {
namespace {

using Role = int16_t ChannelRoles::*;

struct Reading {
  double depth_m, qc, fs, u;
};

constexpr double kKpaPerPsi = 6.8947573;

class PipelineTest : public ::testing::Test {
 protected:
  // Tip, sleeve and pore pressure in the family's own unit (psi, or kPa for family 0), each shown
  // in that unit; channels left out with sleeve or pore false.
  void Make(int family, const std::vector<Reading>& readings, bool sleeve = true, bool pore = true) {
    s.ResetSounding();
    s.AcquisitionFamily = static_cast<int16_t>(family);
    s.WaterTableDepth = -99;
    s.ReadingCount = static_cast<int>(readings.size());
    int c = 0;
    auto channel = [&](const char* name, Role role, double Reading::*field) {
      ++c;
      s.ChannelName[c] = name;
      s.*role = static_cast<int16_t>(c);
      s.ChannelUnitGroup[c] = kPressureGroup;
      s.ChannelDefaultUnit[c] = static_cast<int16_t>(family == kPxDasFamily ? kKpaUnit : kPsiUnit);
      s.ChannelDisplayUnit[c].fill(s.ChannelDefaultUnit[c]);
      s.ChannelUnitFactor[c].fill(1);
      for (size_t r = 1; r <= readings.size(); ++r) {
        for (int k = 0; k < kOutputKinds; ++k) {
          s.AlignedReadings(static_cast<int>(r), KindColumn(c, k)) = static_cast<float>(readings[r - 1].*field);
        }
      }
    };
    channel("Tip Resistance (Qc)", &ChannelRoles::TipChannel, &Reading::qc);
    if (sleeve) channel("Sleeve Friction", &ChannelRoles::SleeveChannel, &Reading::fs);
    if (pore) channel("Pore Pressure U2", &ChannelRoles::PorePressureChannel, &Reading::u);
    for (size_t r = 1; r <= readings.size(); ++r) {
      s.DepthTable(static_cast<int>(r), 1) = static_cast<float>(readings[r - 1].depth_m);
      s.DepthTable(static_cast<int>(r), 2) = static_cast<float>(readings[r - 1].depth_m * kFeetPerMetre);
    }
    s.ChannelCount = s.TotalChannels = static_cast<int16_t>(c);
    Derive();
  }
  void Derive() { ComputeDerivedChannels(*t.session, s.ChannelCount); }
  float Kind(int r, Role role, int k = kGraphOutput) { return s.AlignedReadings(r, KindColumn(s.*role, k)); }
  float Mirror(int r, Role role, int m) { return s.AlignedFixedPressure[m](r, s.*role); }

  test::TestSession t;
  SoundingStore& s = t.session->Sounding();
};

// A psi sounding: dense sand, clay and silt readings at 2 m, 6 m and 9 m.
std::vector<Reading> Soils(double to_unit = 1) {
  return {{2.0, 2200 * to_unit, 9 * to_unit, 2 * to_unit},
          {6.0, 120 * to_unit, 4.5 * to_unit, 60 * to_unit},
          {9.0, 700 * to_unit, 14 * to_unit, 25 * to_unit}};
}

TEST_F(PipelineTest, ChannelsComeInTheirOrderWithTheirNamesAndStyles) {
  Make(kKorvanDatFamily, Soils());
  const std::vector<std::string> names = {
      "Friction Ratio (Fs/Qc)", "Tip Resistance (Qt)", "Friction Ratio (Fs/Qt)", "Head Pressure", "Overburden",
      "Eff. Overburden", "SBT(1983)*", "SPT N*", "SBT FR(1986)*", "SBT PP(1986)*", "SBT(QT)(1990)*",
      "Friction Angle", "Shear Strength", "Over Consolidation Ratio", "SBT(Bq)(1990)*", "Wet Density", "Time",
      "Push Speed"};
  ASSERT_EQ(s.TotalChannels, 3 + static_cast<int>(names.size()));
  for (size_t i = 0; i < names.size(); ++i) EXPECT_EQ(s.ChannelName[4 + i], names[i]);
  EXPECT_EQ(s.ChannelShortName[s.TipQtChannel], "Tip (Qt)");
  EXPECT_EQ(s.ChannelLegend[s.Sbt90QtChannel], "SBT(QT90):");
  EXPECT_EQ(s.ChannelCurveStyle[s.Sbt83Channel], 2);
  EXPECT_EQ(s.ChannelCurveStyle[s.SptChannel], 1);
  EXPECT_EQ(s.ChannelCurveStyle[s.OverburdenChannel], 0);
  EXPECT_EQ(s.ChannelUnitLabel[s.TimeChannel][kCsvOutput], "");
  EXPECT_EQ(s.ChannelUnitName[s.TimeChannel][kCsvOutput], "Time");
  EXPECT_FLOAT_EQ(s.ChannelBaseFactor[s.ShearStrengthChannel], 6894.7568359375f);
}

TEST_F(PipelineTest, HeadPressureStartsBelowTheWaterTable) {
  Make(kKorvanDatFamily, {{2.40, 100, 1, 1}, {2.41, 100, 1, 1}, {3.40, 100, 1, 1}});
  EXPECT_EQ(Kind(1, &ChannelRoles::HeadPressureChannel), 0) << "no water table";
  EXPECT_EQ(Kind(3, &ChannelRoles::EffOverburdenChannel), Kind(3, &ChannelRoles::OverburdenChannel));
  s.WaterTableDepth = 2.40f;
  Derive();
  EXPECT_EQ(Kind(1, &ChannelRoles::HeadPressureChannel), 0) << "exactly at the water table";
  EXPECT_EQ(s.HydrostaticPressure(1, kGraphOutput), 0);
  EXPECT_NEAR(Mirror(2, &ChannelRoles::HeadPressureChannel, 2), 0.09804, 1e-4) << "kPa, 1 cm below";
  EXPECT_NEAR(Kind(2, &ChannelRoles::HeadPressureChannel), 0.09804 / kKpaPerPsi, 1e-5) << "shown in psi";
  // The first two fixed copies carry the head per foot: kept as the reports expect it.
  EXPECT_NEAR(Mirror(3, &ChannelRoles::HeadPressureChannel, 0), 9.804 * kFeetPerMetre, 1e-3);
  EXPECT_NEAR(Mirror(3, &ChannelRoles::HeadPressureChannel, 3), 9.804, 1e-4);
  EXPECT_NEAR(s.HydrostaticPressure(3, kGraphOutput), 1.4218, 1e-5);
  EXPECT_NEAR(Kind(3, &ChannelRoles::EffOverburdenChannel),
              Kind(3, &ChannelRoles::OverburdenChannel) - 1.4218, 1e-5);
}

TEST_F(PipelineTest, OverburdenAndCorrectedTip) {
  t.session->general.SoilDensity = 120;
  t.session->general.NetAreaRatio = 0.8f;
  Make(kKorvanDatFamily, {{3.048, 100, 1, 50}});
  // 120 pcf over 10 ft is 1200 psf, 8.333 psi.
  EXPECT_NEAR(Kind(1, &ChannelRoles::OverburdenChannel), 1200.0 / 144, 1e-3);
  EXPECT_NEAR(Mirror(1, &ChannelRoles::OverburdenChannel, 2), 1200.0 / 144 * kKpaPerPsi, 1e-2);
  EXPECT_NEAR(Kind(1, &ChannelRoles::TipQtChannel), 100 + 0.2 * 50, 1e-4);
  EXPECT_NEAR(Mirror(1, &ChannelRoles::TipQtChannel, 3), 110 * kKpaPerPsi / 1000, 1e-5);
  EXPECT_NEAR(Kind(1, &ChannelRoles::FrictionRatioQtChannel), 100.0 / 110, 1e-5);
  EXPECT_NEAR(Kind(1, &ChannelRoles::WetDensityChannel), 120 * 16.0185, 0.1) << "kg/m3";
  EXPECT_EQ(Mirror(1, &ChannelRoles::WetDensityChannel, 0), 120);
}

TEST_F(PipelineTest, WithoutPorePressureTheFrictionChartsUseTheMeasuredTip) {
  Make(kKorvanDatFamily, Soils(), true, false);
  for (Role absent : {&ChannelRoles::TipQtChannel, &ChannelRoles::FrictionRatioQtChannel,
                      &ChannelRoles::HeadPressureChannel, &ChannelRoles::EffOverburdenChannel,
                      &ChannelRoles::Sbt86PpChannel, &ChannelRoles::OcrChannel, &ChannelRoles::Sbt90BqChannel}) {
    EXPECT_EQ(s.*absent, 0);
  }
  EXPECT_NE(s.FrictionRatioQcChannel, 0);
  // 2200 psi (152 bar) at 0.41 %: sand on the 1983 chart, read over Fs/Qc.
  EXPECT_EQ(Kind(1, &ChannelRoles::Sbt83Channel), 7);
  EXPECT_EQ(Kind(1, &ChannelRoles::SptChannel), static_cast<float>(std::floor(2200 * 0.0689476 / 5 + 0.5)));
}

TEST_F(PipelineTest, WithoutASleeveNothingIsClassifiedOnTheFrictionCharts) {
  Make(kKorvanDatFamily, Soils(), false, true);
  EXPECT_EQ(s.FrictionRatioQcChannel, 0);
  EXPECT_EQ(s.FrictionRatioQtChannel, 0);
  EXPECT_EQ(s.TipQtChannel, 0);
  for (int r = 1; r <= 3; ++r) {
    EXPECT_EQ(Kind(r, &ChannelRoles::Sbt83Channel), 0);
    EXPECT_EQ(Mirror(r, &ChannelRoles::Sbt83Channel, 1), -99) << "unclassified in the fixed copies";
    EXPECT_EQ(Mirror(r, &ChannelRoles::SptChannel, 3), -99);
  }
}

TEST_F(PipelineTest, TipOfZeroOrBelow) {
  Make(kKorvanDatFamily, {{1, 0, 2, 0}, {2, -100, 2, 0}});
  EXPECT_EQ(Kind(1, &ChannelRoles::FrictionRatioQcChannel), 0);
  EXPECT_NEAR(Kind(2, &ChannelRoles::FrictionRatioQcChannel), -2, 1e-6);
  EXPECT_EQ(Kind(2, &ChannelRoles::FrictionRatioQtChannel), 0) << "a corrected tip at or below 0";
  EXPECT_EQ(Kind(1, &ChannelRoles::FrictionAngleChannel), 0);
}

TEST_F(PipelineTest, ConductivityHasACeilingForResistivityOfZeroOrLess) {
  Make(kKorvanDatFamily, {{1, 100, 1, 1}, {2, 100, 1, 1}, {3, 100, 1, 1}});
  const int c = 4;
  s.ChannelName[c] = "Resistivity";
  s.ResistivityChannel = c;
  s.ChannelCount = 4;
  const float ohm_m[] = {0, -5, 50};
  for (int r = 1; r <= 3; ++r) s.AlignedReadings(r, KindColumn(c, kGraphOutput)) = ohm_m[r - 1];
  Derive();
  EXPECT_FLOAT_EQ(Kind(1, &ChannelRoles::ConductivityChannel), 1e8f);
  EXPECT_FLOAT_EQ(Kind(2, &ChannelRoles::ConductivityChannel, kCorOutput), 1e8f);
  EXPECT_FLOAT_EQ(Mirror(3, &ChannelRoles::ConductivityChannel, 2), 0.02f);
}

TEST_F(PipelineTest, ARerunGivesWhatTheFirstRunGave) {
  Make(kKorvanDatFamily, Soils());
  s.WaterTableDepth = 1.5f;
  Derive();
  std::vector<float> first;
  for (int c = 4; c <= s.TotalChannels; ++c) {
    for (int r = 1; r <= 3; ++r) {
      for (int k = 0; k < kOutputKinds; ++k) first.push_back(s.AlignedReadings(r, KindColumn(c, k)));
      for (int m = 0; m < kFixedPressureTables; ++m) first.push_back(s.AlignedFixedPressure[m](r, c));
    }
  }
  const int total = s.TotalChannels;
  s.WaterTableDepth = 7;
  Derive();
  s.WaterTableDepth = 1.5f;
  Derive();
  ASSERT_EQ(s.TotalChannels, total);
  size_t i = 0;
  for (int c = 4; c <= s.TotalChannels; ++c) {
    for (int r = 1; r <= 3; ++r) {
      for (int k = 0; k < kOutputKinds; ++k) ASSERT_EQ(s.AlignedReadings(r, KindColumn(c, k)), first[i++]) << c;
      for (int m = 0; m < kFixedPressureTables; ++m) ASSERT_EQ(s.AlignedFixedPressure[m](r, c), first[i++]) << c;
    }
  }
}

TEST_F(PipelineTest, TheSameSoilInKpaAndInPsiGivesTheSameZones) {
  const Role charts[] = {&ChannelRoles::Sbt83Channel, &ChannelRoles::Sbt86FrChannel,
                         &ChannelRoles::Sbt90QtChannel, &ChannelRoles::Sbt90BqChannel, &ChannelRoles::SptChannel};
  std::vector<float> psi_zones, kpa_zones;
  for (int family : {kKorvanDatFamily, kPxDasFamily}) {
    Make(family, Soils(family == kPxDasFamily ? kKpaPerPsi : 1));
    s.WaterTableDepth = 1;
    Derive();
    for (Role chart : charts) {
      for (int r = 1; r <= 3; ++r) (family == kPxDasFamily ? kpa_zones : psi_zones).push_back(Kind(r, chart));
    }
  }
  EXPECT_EQ(psi_zones, kpa_zones);
  EXPECT_NE(psi_zones[0], 0) << "the sand reading is classified";
}

TEST(Correlations, TheNineteenNinetyZoneGatesEachCorrelation) {
  SoundingStore s;
  UnitTables units;
  SetupTYRChannels(units, test::DefaultsDirectory(), kFeetPerMetre);
  s.AcquisitionFamily = kKorvanDatFamily;
  s.ReadingCount = 4;
  s.TipChannel = 1;
  s.OverburdenChannel = 2;
  s.Sbt90QtChannel = 3;
  for (int c = 1; c <= 5; ++c) s.ChannelUnitFactor[c].fill(1);
  for (int r = 1; r <= 4; ++r) {
    for (int k = 0; k < kOutputKinds; ++k) {
      s.AlignedReadings(r, KindColumn(1, k)) = 1000;
      s.AlignedReadings(r, KindColumn(2, k)) = 10;
      s.AlignedReadings(r, KindColumn(3, k)) = static_cast<float>(r + 2);  // zones 3, 4, 5, 6
    }
  }
  ChannelValues v(s, units);
  CalculateFrictionAngle(v, 4);
  CalculateShearStrength(v, 5, kShearFactorNk);
  auto angle = [&](int r) { return s.AlignedReadings(r, KindColumn(4, 0)); };
  auto su = [&](int r) { return s.AlignedReadings(r, KindColumn(5, 0)); };
  EXPECT_EQ(angle(1), 0) << "zone 3";
  EXPECT_NEAR(angle(2), std::atan(0.38 * 2 + 0.1) * 180 / 3.141592, 1e-4) << "zone 4";
  EXPECT_GT(angle(3), 0) << "zone 5";
  EXPECT_NEAR(su(1), (1000 - 10) / 15.0, 1e-3);
  EXPECT_GT(su(3), 0) << "zone 5";
  EXPECT_EQ(su(4), 0) << "zone 6";
  EXPECT_NEAR(s.AlignedFixedPressure[2](2, 5), (1000 - 10) / 15.0 * kKpaPerPsi, 1e-2);
}

TEST(PushSpeed, FileSpeedsBelowHalfACentimetreTakeTheirNeighbours) {
  SoundingStore s;
  UnitTables units;
  s.AcquisitionFamily = kPxDasFamily;
  s.ReadingCount = 5;
  const float speeds[] = {0.2f, 1.0f, 0.49f, 2.0f, 0.5f};
  for (int r = 1; r <= 5; ++r) s.PushSpeed[r] = speeds[r - 1];
  ChannelValues v(s, units);
  CalculatePushSpeed(v, 9, {});
  auto speed = [&](int r) { return s.AlignedReadings(r, KindColumn(9, kCorOutput)); };
  EXPECT_FLOAT_EQ(speed(1), 0.2f) << "the first row is kept";
  EXPECT_FLOAT_EQ(speed(3), 1.5f);
  EXPECT_FLOAT_EQ(speed(5), 0.5f);
}

// Readings in kPa: one at 5 m worked by hand, one with the tip below the overburden, and one
// whose sleeve reading is missing.
std::vector<Reading> NormalisedRows(double to_unit = 1) {
  return {{5.0, 2480 * to_unit, 40 * to_unit, 100 * to_unit},
          {6.0, 50 * to_unit, 1 * to_unit, 0},
          {7.0, 2480 * to_unit, 40 * to_unit, 100 * to_unit}};
}

TEST_F(PipelineTest, NormalisedClassificationFollowsPushSpeed) {
  t.session->NormalisedClassification = 1;
  Make(kPxDasFamily, NormalisedRows());
  s.MissingReading(3, s.SleeveChannel) = 1;
  Derive();
  const int first = s.TotalChannels - 5;
  ASSERT_EQ(s.ChannelName[first - 1], "Push Speed");
  struct Expected {
    const char* name;
    const char* short_name;
    int id, group, style;
  };
  const Expected expected[] = {{"Stress Exponent n", "n", 62, 12, 0}, {"Qtn", "Qtn", 63, 12, 0},
                               {"Fr (Normalised)", "Fr (Norm.)", 64, 11, 0}, {"Ic", "Ic", 65, 12, 0},
                               {"SBTn(2009)*", "SBTn", 66, 18, 2},         {"Bq", "Bq", 67, 12, 0}};
  for (int i = 0; i < 6; ++i) {
    const int c = first + i;
    EXPECT_EQ(s.ChannelName[c], expected[i].name);
    EXPECT_EQ(s.ChannelShortName[c], expected[i].short_name);
    EXPECT_EQ(s.ChannelCatalogueId[c], expected[i].id);
    EXPECT_EQ(s.ChannelUnitGroup[c], expected[i].group);
    EXPECT_EQ(s.ChannelCurveStyle[c], expected[i].style);
  }
  // 5 m: sigma_v0 = sigma'_v0 = 120 / 1728 x 16.4042 ft x 12 x 6.89476 = 94.2525 kPa (no water table),
  // qt = 2480 + 0.2 x 100 = 2500, net 2405.7475, Fr = 4000 / 2405.7475 = 1.662685 %.
  // n 1 -> 0.8558603 -> 0.8570181 -> 0.8570088 (settled); Qtn 25.30936, Ic 2.519377: zone 5.
  const double row1[] = {0.8570088, 25.30936, 1.662685, 2.519377, 5, 100 / 2405.7475};
  for (int i = 0; i < 6; ++i) {
    const int c = first + i;
    for (int k = 0; k < kOutputKinds; ++k) EXPECT_NEAR(s.AlignedReadings(1, KindColumn(c, k)), row1[i], 2e-5);
    for (int m = 0; m < kFixedPressureTables; ++m) EXPECT_NEAR(s.AlignedFixedPressure[m](1, c), row1[i], 2e-5);
    // The tip below the overburden and the missing sleeve reading give 0; an unclassified zone
    // is -99 in the fixed copies, as in every classification.
    for (int r : {2, 3}) {
      EXPECT_EQ(s.AlignedReadings(r, KindColumn(c, kCsvOutput)), 0) << "row " << r << " channel " << i;
      EXPECT_EQ(s.AlignedFixedPressure[1](r, c), i == 4 ? -99 : 0) << "row " << r << " channel " << i;
    }
  }

  t.session->NormalisedClassification = 0;
  Derive();
  EXPECT_EQ(s.TotalChannels, first - 1) << "the setting off leaves Push Speed last";
}

TEST_F(PipelineTest, NormalisedClassificationInPsiAndWithoutPorePressure) {
  t.session->NormalisedClassification = 1;
  Make(kKorvanDatFamily, NormalisedRows(1 / kKpaPerPsi));
  const int first = s.TotalChannels - 5;
  EXPECT_NEAR(s.AlignedReadings(1, KindColumn(first + 1, kGraphOutput)), 25.30936, 1e-3) << "Qtn as in kPa";
  EXPECT_NEAR(s.AlignedReadings(1, KindColumn(first + 3, kGraphOutput)), 2.519377, 1e-5) << "Ic as in kPa";

  Make(kPxDasFamily, NormalisedRows(), true, false);
  EXPECT_EQ(s.ChannelName[s.TotalChannels], "SBTn(2009)*") << "no Bq without a pore pressure channel";
  EXPECT_EQ(s.ChannelName[s.TotalChannels - 5], "Push Speed");
}

TEST(PushSpeed, TimeStampsAndDepthsOfTheDataLines) {
  EXPECT_DOUBLE_EQ(TailSeconds(" 1234567 12:34:56"), 1234.567);
  EXPECT_EQ(TailSeconds(""), 0);
  EXPECT_EQ(TailSeconds("12:34:56"), 0);

  SoundingStore s;
  UnitTables units;
  s.AcquisitionFamily = kKorvanDatFamily;
  s.ReadingCount = 5;
  // 2 cm a second, with a reading whose time stamp repeats the one before.
  const double depths[] = {1.00, 1.02, 1.04, 1.06, 1.08};
  const char* tails[] = {" 10000 09:00:10", " 11000 09:00:11", " 11000 09:00:11", " 13000 09:00:13",
                         " 14000 09:00:14"};
  for (int r = 1; r <= 5; ++r) {
    s.DepthTable(r, 1) = static_cast<float>(depths[r - 1]);
    s.RowTail[r] = tails[r - 1];
  }
  ChannelValues v(s, units);
  CalculatePushSpeed(v, 9, {.remove_rod_breaks = false});
  auto speed = [&](int r) { return s.AlignedReadings(r, KindColumn(9, kGraphOutput)); };
  EXPECT_NEAR(speed(2), 2, 1e-4);
  // The repeated stamp takes the speed to the next later reading, scaled back to its own step.
  EXPECT_NEAR(speed(3), (0.04 / 2 * 100) * 0.02 / 0.04, 1e-4);
  EXPECT_NEAR(speed(4), 1, 1e-4);
  EXPECT_NEAR(speed(5), 1, 1e-4) << "the last reading takes the speed of the one before";
}

}  // namespace
}  // namespace marlview
