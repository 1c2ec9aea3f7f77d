// Every export form of small soundings of both DAT families, compared whole with files checked by
// hand against the layouts: header blocks, tables, ECP and gIN in its pressure units.
#include <gtest/gtest.h>

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

}  // namespace
}  // namespace marlview
