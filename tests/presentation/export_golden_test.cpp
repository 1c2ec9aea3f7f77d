// Every export form of small soundings of both DAT families, compared whole with files checked by
// hand against the layouts: header blocks, tables, ECP and gIN in its pressure units.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "core/presentation/ecp_list.h"
#include "core/presentation/sounding_exports.h"
#include "support/test_support.h"

namespace marlview {
namespace {

// Ten readings of a stiff clay over a sand, in psi: tip, sleeve and pore pressure. The sleeve
// sits 3 inches behind the tip, so the last four readings have no sleeve of their own.
constexpr int kRows = 10;
constexpr double kReadings[kRows][3] = {{212.5, 9.75, 24.2},  {245.0, 10.5, 25.1}, {268.0, 10.25, 26.4},
                                        {301.5, 9.5, 23.9},   {512.0, 8.25, 12.2}, {910.0, 7.5, 6.4},
                                        {1322.5, 7.25, 3.9},  {1605.0, 7.75, 4.2}, {1688.0, 8.0, 4.6},
                                        {1702.5, 8.25, 4.9}};

test::DatFile KorvanSounding() {
  test::DatFile file = test::SimpleDat(0);
  file.tip = "Ball Dia mm 44 => Tip Configuration";
  for (int r = 0; r < kRows; ++r) {
    file.rows.push_back({0.5 + 0.02 * r, kReadings[r][0], kReadings[r][1], kReadings[r][2]});
  }
  return file;
}

// The plain family: no depth field, a rod channel of two volts a foot.
test::DatFile RodDepthSounding() {
  test::DatFile file = test::SimpleDat(0);
  file.family = 2;
  file.channels.push_back({.sensor = "Rod Depth", .cal = {4000, 1, 0.5f, 0, 0}});
  for (int r = 0; r < kRows; ++r) {
    file.rows.push_back({kReadings[r][0], kReadings[r][1], kReadings[r][2], 2 * (1.0 + 0.1 * r)});
  }
  return file;
}

// The same ground pushed with a PX DAS piezocone: the field computer's counts of tip, sleeve and
// pore pressure in kPa ranges, an inclinometer and the cone's temperature, one sleeve reading lost.
test::CptFile PxDasSounding() {
  test::CptFile file;
  file.water_table = "0.55";
  file.channels = {{.name = "TIP", .sensitivity = 30000, .zero = 100, .range = "50000 kPa"},
                   {.name = "FRICTION", .sensitivity = 30000, .zero = -85, .range = "500 kPa"},
                   {.name = "U2", .sensitivity = 30000, .zero = 310, .range = "2000 kPa"},
                   {.name = "X Incl", .sensitivity = 20000, .zero = 0, .range = "20 deg"},
                   {.name = "TEMP", .sensitivity = 10000, .zero = 0, .range = "100 C"}};
  const double kpa_per_psi = 6.894757;
  for (int r = 0; r < kRows; ++r) {
    auto counts = [&](double psi, double zero, double range) {
      return std::round(zero + psi * kpa_per_psi / range * 30000);
    };
    file.rows.push_back({0.5 + 0.02 * r, 1.95 + 0.01 * r, counts(kReadings[r][0], 100, 50000),
                         r == 6 ? -32768 : counts(kReadings[r][1], -85, 500), counts(kReadings[r][2], 310, 2000),
                         300.0 + 10 * r, 1250.0 + r});
  }
  return file;
}

class ExportGoldenTest : public ::testing::Test {
 protected:
  void Open(const test::DatFile& file) {
    ASSERT_EQ(test::OpenSounding(t, file), ReadOutcome::kLoaded);
    t.session->Sounding().WaterTableDepth = -99;
  }
  SoundingStore& s() { return t.session->Sounding(); }
  ExportOptions Listed() {
    return {.channels = {s().TipChannel, s().SleeveChannel, s().PorePressureChannel, s().FrictionRatioQtChannel,
                         s().Sbt90QtChannel, s().SptChannel}};
  }
  std::string Ecp(int unit) {
    EcpView view;
    view.unit = unit;
    ChooseEcpColumns(*t.session, view);
    return EcpExport(*t.session, view);
  }

  test::TestSession t;
};

TEST_F(ExportGoldenTest, KorvanFamilyBallTipAndUndefinedWaterTable) {
  Open(KorvanSounding());
  ExportOptions o = Listed();
  test::ExpectGolden(TxtExport(*t.session, o), "presentation/korvan.expected.txt");
  test::ExpectGolden(CsvExport(*t.session, o, "csv"), "presentation/korvan.expected.csv");
  test::ExpectGolden(CsvExport(*t.session, o, "cor"), "presentation/korvan.expected.cor");
  o.include_header = false;
  test::ExpectGolden(TxtExport(*t.session, o) + CsvExport(*t.session, o, "csv") + CsvExport(*t.session, o, "cor"),
                     "presentation/korvan_no_header.expected.txt");
  test::ExpectGolden(Ecp(kEcpTsf), "presentation/korvan_tsf.expected.ecp");
  test::ExpectGolden(GinExport(*t.session, GinUnit::kPsi), "presentation/korvan_psi.expected.gin");
  test::ExpectGolden(GinExport(*t.session, GinUnit::kMpa), "presentation/korvan_mpa.expected.gin");
  // Zones are numbers in the comma forms: no label (two of the 1990 ones hold a comma, as in this
  // clay's zone 9) and no "<out of range>", so every row has as many fields as its heading.
  ExportOptions zones{.channels = {s().Sbt83Channel, s().Sbt86FrChannel, s().Sbt86PpChannel, s().Sbt90QtChannel,
                                   s().Sbt90BqChannel},
                      .include_header = false};
  for (const char* extension : {"csv", "cor"}) {
    const std::string rows = CsvExport(*t.session, zones, extension);
    EXPECT_EQ(std::count(rows.begin(), rows.end(), ','), 5 * (2 + kRows)) << rows;
    EXPECT_EQ(rows.find('<'), std::string::npos) << rows;
  }
}

TEST_F(ExportGoldenTest, ElevationFeetRawAndZoneOnlySelections) {
  Open(KorvanSounding());
  ExportOptions zones{.channels = {s().Sbt83Channel, s().Sbt86FrChannel, s().Sbt86PpChannel, s().Sbt90QtChannel,
                                   s().Sbt90BqChannel}};
  test::ExpectGolden(TxtExport(*t.session, zones) + CsvExport(*t.session, zones, "csv"),
                     "presentation/zones_only.expected.txt");
  ExportOptions elevation = Listed();
  elevation.elevation = true;
  elevation.depth_unit = 2;
  s().WaterTableDepth = 0.51f;
  test::ExpectGolden(TxtExport(*t.session, elevation) + CsvExport(*t.session, elevation, "csv"),
                     "presentation/elevation_feet.expected.txt");
  ExportOptions raw = Listed();
  raw.raw = true;
  test::ExpectGolden(TxtExport(*t.session, raw) + CsvExport(*t.session, raw, "csv"), "presentation/raw.expected.txt");
}

TEST_F(ExportGoldenTest, RodDepthFamilyAndASoundingWithoutPorePressure) {
  Open(RodDepthSounding());
  const ExportOptions o = Listed();
  test::ExpectGolden(TxtExport(*t.session, o) + CsvExport(*t.session, o, "cor"), "presentation/rod_depth.expected.txt");
  test::ExpectGolden(Ecp(kEcpKpa), "presentation/rod_depth_kpa.expected.ecp");
  test::ExpectGolden(GinExport(*t.session, GinUnit::kTsf), "presentation/rod_depth_tsf.expected.gin");

  test::DatFile dry = KorvanSounding();
  dry.channels.pop_back();
  for (auto& row : dry.rows) row.pop_back();
  Open(dry);
  test::ExpectGolden(GinExport(*t.session, GinUnit::kKpa), "presentation/dry_kpa.expected.gin");
}

TEST_F(ExportGoldenTest, PxDasFamilyHeaderBlockAndItsKpaReadings) {
  ASSERT_EQ(test::OpenSounding(t, PxDasSounding()), ReadOutcome::kLoaded);
  ExportOptions o = Listed();
  o.channels.push_back(s().InclXChannel);
  o.channels.push_back(s().TemperatureChannel);
  test::ExpectGolden(TxtExport(*t.session, o) + CsvExport(*t.session, o, "csv"), "presentation/px_das.expected.txt");
  test::ExpectGolden(Ecp(kEcpKpa), "presentation/px_das_kpa.expected.ecp");
  test::ExpectGolden(GinExport(*t.session, GinUnit::kKpa), "presentation/px_das_kpa.expected.gin");
}

}  // namespace
}  // namespace marlview
