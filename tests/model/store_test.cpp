// The store's bounds and reset, the slots, the unit tables and the per-id choices.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "core/model/catalogue.h"
#include "core/model/sounding_slots.h"
#include "core/model/unit_tables.h"
#include "support/test_support.h"

namespace marlview {
namespace {

TEST(SoundingStore, BoundsAreDeclaredAndAnIndexPastThemFails) {
  SoundingStore store;
  EXPECT_EQ(store.RawReadings.MaxRow(), 10000);
  EXPECT_EQ(store.RawReadings.MaxColumn(), 100);
  EXPECT_EQ(store.ChannelReadings.MaxColumn(), 500);
  EXPECT_EQ(store.AlignedReadings.MaxRow(), 30000);
  EXPECT_EQ(store.AlignedReadings.MaxColumn(), 540);
  EXPECT_EQ(store.CptRawReadings.MaxColumn(), 20);
  store.RawReadings(10000, 100) = 1;
  EXPECT_FAILURE(store.RawReadings(10001, 1) = 1, kErrSubscript, "");
  EXPECT_FAILURE(store.ChannelReadings(1, 501) = 1, kErrSubscript, "");
  EXPECT_FAILURE(store.DepthTable(-1, 1), kErrSubscript, "");
  // Row 0 and channel 0 exist and read as empty.
  EXPECT_EQ(store.AlignedReadings(0, 0), 0);
}

TEST(ColumnTable, AColumnHoldsTheRowsWrittenToItAndNoMore) {
  ColumnTable<float> table(30000, 540);
  EXPECT_EQ(table.CellsHeld(), 0u);
  table(12, 7) = 2.5f;
  EXPECT_EQ(table.RowsHeld(7), 13);
  EXPECT_EQ(table.RowsHeld(8), 0);
  // Rows below the one written, and every row of an unwritten column, read as 0.
  EXPECT_EQ(table(3, 7), 0);
  const ColumnTable<float>& read_only = table;
  EXPECT_EQ(read_only(29999, 540), 0);
  EXPECT_EQ(table.RowsHeld(540), 0) << "reading through a const table grows nothing";
  EXPECT_FAILURE(read_only(30001, 1), kErrSubscript, "");

  // A channel walked in depth order: its rows lie together.
  float* column = table.Column(9, 100);
  for (int r = 0; r <= 100; ++r) column[r] = static_cast<float>(r);
  EXPECT_EQ(table(57, 9), 57);
  table.ClearColumnRows(9, 1, 99);
  EXPECT_EQ(table(57, 9), 0);
  EXPECT_EQ(table(100, 9), 100);
  EXPECT_FAILURE(table.Column(table.MaxColumn() + 1, 1), kErrSubscript, "");

  ColumnTable<float> copy(30000, 540);
  copy.CopyColumnsFrom(table, 7, 8);
  EXPECT_EQ(copy(12, 7), 2.5f);
  EXPECT_EQ(copy.RowsHeld(9), 0);
  ColumnTable<float> other_shape(10000, 100);
  EXPECT_FAILURE(other_shape.CopyColumnsFrom(table, 1, 2), kErrSubscript, "");

  table.Clear();
  EXPECT_EQ(table.CellsHeld(), 0u);
  EXPECT_EQ(table(12, 7), 0);
}

TEST(SoundingStore, ResetEmptiesTheSoundingAndWhatWasUsed) {
  SoundingStore store;
  store.AcquisitionFamily = kKorvanDatFamily;
  store.TestId = "A01";
  store.ReadingCount = 3;
  store.TipChannel = 2;
  store.ChannelName[2] = "Tip Resistance (Qc)";
  store.ChannelCalRows[2][1] = 5;
  store.RawReadings(3, 2) = 1.5f;
  store.AlignedReadings(3, KindColumn(2, kEcpOutput)) = 7;
  store.DepthTable(3, 2) = 9;
  store.RowTail[3] = "tail";
  store.ResetSounding();
  EXPECT_EQ(store.AcquisitionFamily, kNoSounding);
  EXPECT_EQ(store.TestId, "");
  EXPECT_EQ(store.ReadingCount, 0);
  EXPECT_EQ(store.TipChannel, 0);
  EXPECT_EQ(store.ChannelName[2], "");
  EXPECT_EQ(store.ChannelCalRows[2][1], 0);
  EXPECT_EQ(store.RawReadings(3, 2), 0);
  EXPECT_EQ(store.AlignedReadings(3, KindColumn(2, kEcpOutput)), 0);
  EXPECT_EQ(store.DepthTable(3, 2), 0);
  EXPECT_EQ(store.RowTail[3], "");
  EXPECT_TRUE(store.ChannelEnabled[100]);
  EXPECT_EQ(store.ChannelCurveStyle[1], -1);
}

TEST(SoundingSlots, SaveAndLoadAreMirrors) {
  SoundingStore store;
  SoundingSlots slots;
  store.AcquisitionFamily = kPlainDatFamily;
  store.SoundingFileName = "CPT-C12.DAT";
  store.Location = "Pier 4";
  store.ReadingCount = 2;
  store.TotalChannels = 1;
  store.ChannelName[1] = "Tip Resistance (Qc)";
  store.ChannelCatalogueId[1] = 1;
  store.TipChannel = 1;
  store.DepthTable(2, 1) = 0.04f;
  store.RawReadings(2, 1) = 0.25f;
  store.CptRawReadings(2, 3) = 12;
  store.RowTail[2] = " x";
  SaveToSlot(store, slots, 7);
  EXPECT_EQ(slots[7].ChannelOfId[1], 1);
  EXPECT_EQ(slots[7].IdOfChannel[1], 1);

  SoundingStore other;
  other.ReadingCount = 4;
  other.DepthTable(4, 1) = 3;
  LoadFromSlot(other, slots, 7);
  EXPECT_EQ(other.AcquisitionFamily, kPlainDatFamily);
  EXPECT_EQ(other.SoundingFileName, "CPT-C12.DAT");
  EXPECT_EQ(other.Location, "Pier 4");
  EXPECT_EQ(other.ChannelName[1], "Tip Resistance (Qc)");
  EXPECT_EQ(other.TipChannel, 1);
  EXPECT_EQ(other.ReadingCount, 2);
  EXPECT_FLOAT_EQ(other.DepthTable(2, 1), 0.04f);
  EXPECT_EQ(other.DepthTable(4, 1), 0);
  EXPECT_FLOAT_EQ(other.RawReadings(2, 1), 0.25f);
  EXPECT_FLOAT_EQ(other.CptRawReadings(2, 3), 12);
  EXPECT_EQ(other.RowTail[2], " x");
  EXPECT_FAILURE(slots[31], kErrSubscript, "");
}

TEST(UnitTables, FilesAndBuiltInGroups) {
  UnitTables units;
  SetupTYRChannels(units, test::DefaultsDirectory(), kFeetPerMetre);
  EXPECT_EQ(units.UnitGroupName[kPressureGroup], "PRESS");
  EXPECT_EQ(units.Name(kKpaUnit, kPressureGroup), "kPa");
  EXPECT_EQ(units.Name(kTsfUnit, kPressureGroup), "tsf");
  EXPECT_EQ(units.Name(kPsiUnit, kPressureGroup), "psi");
  EXPECT_EQ(units.Name(kMpaUnit, kPressureGroup), "MPa");
  // 1 psi is 6.8947573 kPa: the factor ratio converts between units of a group.
  EXPECT_NEAR(units.Factor(kPsiUnit, kPressureGroup) / units.Factor(kKpaUnit, kPressureGroup), 6.8947573, 1e-5);
  EXPECT_EQ(units.Name(4, kLengthGroup), "ft");
  // The FFD group offers two of its three spellings, and the 1986 chart's unit has no factor.
  EXPECT_EQ(units.UnitCount[kFfdGroup], 2);
  EXPECT_EQ(units.Name(3, kFfdGroup), "VDC");
  EXPECT_EQ(units.Factor(1, kSbt86Group), 0);
  EXPECT_NEAR(units.Factor(2, kSptGroup), kFeetPerMetre, 1e-6);
  EXPECT_EQ(units.Name(2, kNoUnitsGroup), "");
}

TEST(UnitTables, MissingUnitFilesGiveTheInstalledTables) {
  UnitTables installed, built_in;
  SetupTYRChannels(installed, test::DefaultsDirectory(), kFeetPerMetre);
  test::TempDirectory empty;
  SetupTYRChannels(built_in, empty.Path(), kFeetPerMetre);
  for (int group = kForceGroup; group <= kVolumeGroup; ++group) {
    ASSERT_EQ(built_in.UnitCount[group], installed.UnitCount[group]) << group;
    for (int unit = 1; unit <= installed.UnitCount[group]; ++unit) {
      EXPECT_EQ(built_in.Name(unit, group), installed.Name(unit, group));
      EXPECT_FLOAT_EQ(built_in.Factor(unit, group), installed.Factor(unit, group));
    }
  }
}

// Pressure factors are pascals per unit, so that a lone factor (the head of a metre of water in a
// dissipation file's unit) is right, and a ratio of two converts as before.
TEST(UnitTables, TheInstalledPressureTableIsInPascalsPerUnit) {
  UnitTables units;
  SetupTYRChannels(units, test::DefaultsDirectory(), kFeetPerMetre);
  const std::vector<std::pair<const char*, double>> rows = {
      {"Pa", 1},          {"kPa", 1000},       {"bar", 100000},    {"mbar", 100},     {"kg/cm^2", 98066.5},
      {"kgf/cm^2", 98066.5}, {"t/m^2", 9806.65}, {"ksf", 47880.259}, {"psf", 47.880259}, {"atm", 101325},
      {"tsf", 95760.518}, {"ksi", 6894757.3}, {"kN/m^2", 1000},   {"psi", 6894.7573}, {"MPa", 1000000}};
  ASSERT_EQ(units.UnitCount[kPressureGroup], static_cast<int>(rows.size()));
  for (size_t i = 0; i < rows.size(); ++i) {
    const int unit = static_cast<int>(i) + 1;
    EXPECT_EQ(units.Name(unit, kPressureGroup), rows[i].first);
    EXPECT_NEAR(units.Factor(unit, kPressureGroup), rows[i].second, rows[i].second * 1e-7) << rows[i].first;
    // Conversions divide the single-precision kilopascal factors of earlier tables, bit for bit,
    // so that an export keeps every digit it had.
    EXPECT_EQ(units.ConversionFactor(unit, kPressureGroup), static_cast<float>(rows[i].second / 1000))
        << rows[i].first;
  }
  EXPECT_EQ(units.ConversionFactor(kPsiUnit, kPressureGroup), 6.8947573f);
  EXPECT_EQ(units.ConversionFactor(kTsfUnit, kPressureGroup), 95.760518f);
  EXPECT_EQ(units.ConversionFactor(4, kLengthGroup), units.Factor(4, kLengthGroup));
}

TEST(UnitTables, AnOldKilopascalPressureTableIsReadInPascals) {
  const std::string old_table =
      "Pa\r\n0.001\r\nkPa\r\n1\r\nbar\r\n100\r\ntsf\r\n95.760518\r\npsi\r\n6.8947573\r\nMPa\r\n1000\r\n";
  UnitTables units;
  ReadUnitFile(units, kPressureGroup, old_table);
  ASSERT_EQ(units.UnitCount[kPressureGroup], 6);
  EXPECT_FLOAT_EQ(units.Factor(1, kPressureGroup), 1);
  EXPECT_FLOAT_EQ(units.Factor(2, kPressureGroup), 1000);
  EXPECT_FLOAT_EQ(units.Factor(3, kPressureGroup), 100000);
  EXPECT_FLOAT_EQ(units.Factor(4, kPressureGroup), 95760.518f);
  EXPECT_FLOAT_EQ(units.Factor(5, kPressureGroup), 6894.7573f);
  EXPECT_FLOAT_EQ(units.Factor(6, kPressureGroup), 1000000);
  // A table already in pascals, and the other groups, are taken as written.
  ReadUnitFile(units, kPressureGroup, "Pa\r\n1\r\nkPa\r\n1000\r\npsi\r\n6894.757\r\n");
  EXPECT_FLOAT_EQ(units.Factor(2, kPressureGroup), 1000);
  EXPECT_FLOAT_EQ(units.Factor(3, kPressureGroup), 6894.757f);
  ReadUnitFile(units, kForceGroup, "N\r\n1\r\nkPa\r\n1\r\n");
  EXPECT_FLOAT_EQ(units.Factor(2, kForceGroup), 1);
  // An old table in a data directory gives the same factors as the installed one.
  test::TempDirectory data;
  data.Write("PressureUnits.txt",
             "Pa\r\n0.001\r\nkPa\r\n1\r\nbar\r\n100\r\nmbar\r\n0.1\r\nkg/cm^2\r\n98.0665\r\nkgf/cm^2\r\n"
             "98.0665\r\nt/m^2\r\n9.80665\r\nksf\r\n47.880259\r\npsf\r\n0.047880259\r\natm\r\n101.325\r\n"
             "tsf\r\n95.760518\r\nksi\r\n6894.7573\r\nkN/m^2\r\n1\r\npsi\r\n6.8947573\r\nMPa\r\n1000\r\n");
  UnitTables from_old, installed;
  SetupTYRChannels(from_old, data.Path(), kFeetPerMetre);
  SetupTYRChannels(installed, test::DefaultsDirectory(), kFeetPerMetre);
  ASSERT_EQ(from_old.UnitCount[kPressureGroup], installed.UnitCount[kPressureGroup]);
  for (int unit = 1; unit <= installed.UnitCount[kPressureGroup]; ++unit) {
    EXPECT_FLOAT_EQ(from_old.Factor(unit, kPressureGroup), installed.Factor(unit, kPressureGroup)) << unit;
    EXPECT_EQ(from_old.ConversionFactor(unit, kPressureGroup), installed.ConversionFactor(unit, kPressureGroup)) << unit;
  }
}

TEST(UnitTables, AUnitFileIsPairsOfNameAndFactorUpToTwenty) {
  UnitTables units;
  std::string bytes = "N\r\n1\r\nkN\r\n1000\r\nbad\r\nxyz\r\norphan";
  ReadUnitFile(units, kForceGroup, bytes);
  EXPECT_EQ(units.UnitCount[kForceGroup], 3);
  EXPECT_EQ(units.Factor(3, kForceGroup), 0);
  std::string many;
  for (int i = 1; i <= 25; ++i) many += "u" + std::to_string(i) + "\n" + std::to_string(i) + "\n";
  ReadUnitFile(units, kForceGroup, many);
  EXPECT_EQ(units.UnitCount[kForceGroup], 20);
}

TEST(ChannelChoices, DisplayUnitsFileRoundTripsAndAShortFileFails) {
  ChannelChoices choices;
  choices.UseUnitsFromFile = 0;
  choices.UnitChoice[kCorOutput][1] = kMpaUnit;
  choices.LabelChoice[kTxtOutput][3] = 2;
  choices.FormatChoice[kCsvOutput][52] = "0.0000E+00!";
  const std::string bytes = WriteDisplayUnits(choices);
  ChannelChoices read;
  ReadDisplayUnits(read, bytes);
  EXPECT_EQ(read.UseUnitsFromFile, 0);
  EXPECT_EQ(read.UnitChoice[kCorOutput][1], kMpaUnit);
  EXPECT_EQ(read.LabelChoice[kTxtOutput][3], 2);
  EXPECT_EQ(read.FormatChoice[kCsvOutput][52], "0.0000E+00!");
  EXPECT_FAILURE(ReadDisplayUnits(read, bytes.substr(0, bytes.size() / 2)), kErrPastEndOfFile, "");
}

TEST(ChannelChoices, RegisterChannelTakesTheChoicesOfEachOutput) {
  UnitTables units;
  SetupTYRChannels(units, test::DefaultsDirectory(), kFeetPerMetre);
  ChannelChoices choices;
  ReadExportLabels(choices, 1, "QC\r\nCone resistance\r\n");
  choices.LabelChoice[kTxtOutput][1] = 2;
  choices.UnitChoice[kGraphOutput][1] = kTsfUnit;
  choices.FormatChoice[kGraphOutput][1] = "######0.00";
  SoundingStore store;
  RegisterChannel(store, units, choices, 4, kPressureGroup, 1);
  EXPECT_EQ(store.ChannelCatalogueId[4], 1);
  EXPECT_EQ(store.ChannelUnitLabel[4][kGraphOutput], "(tsf)");
  EXPECT_EQ(store.ChannelUnitLabel[4][kTxtOutput], "(psi)");
  EXPECT_EQ(store.ChannelLabel[4][kGraphOutput], "QC");
  EXPECT_EQ(store.ChannelLabel[4][kTxtOutput], "Cone resistance");
  EXPECT_EQ(store.ChannelFormat[4][kGraphOutput], "######0.00");
  EXPECT_EQ(store.ChannelDisplayUnit[4][kGraphOutput], kTsfUnit);
  EXPECT_FAILURE(RegisterChannel(store, units, choices, 101, kPressureGroup, 1), kErrSubscript, "");
}

}  // namespace
}  // namespace marlview
