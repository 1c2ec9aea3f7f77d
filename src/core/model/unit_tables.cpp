// Unit groups: five from the installed unit files, the rest fixed.
#include "core/model/unit_tables.h"

#include <initializer_list>
#include <string_view>
#include <utility>

#include "core/common/file_access.h"
#include "core/common/line_cursor.h"
#include "core/common/number_read.h"
#include "core/common/runtime_failure.h"

namespace marlview {
namespace {

constexpr double kPascalsPerKilopascal = 1000.0;

// A unit's factor as the table gives it, in pascals per unit for pressures.
void SetFactor(UnitTables& units, int unit, int group, double factor) {
  units.UnitFactors[unit][group] = ToSingle(factor);
  if (group == kPressureGroup) units.KilopascalFactors[unit] = ToSingle(factor / kPascalsPerKilopascal);
}

void SetGroup(UnitTables& units, int group, const char* name,
              std::initializer_list<std::pair<const char*, double>> list, int count) {
  units.UnitGroupName[group] = name;
  int unit = 0;
  for (const auto& [unit_name, factor] : list) {
    ++unit;
    units.UnitNames[unit][group] = unit_name;
    SetFactor(units, unit, group, factor);
  }
  units.UnitCount[group] = count;
}

void SetGroup(UnitTables& units, int group, const char* name,
              std::initializer_list<std::pair<const char*, double>> list) {
  SetGroup(units, group, name, list, static_cast<int>(list.size()));
}

// The units of the five unit files as installed; a data directory without one of the files uses
// these. Pressure rows 2, 11, 14 and 15 are kPa, tsf, psi and MPa, which the program relies on;
// pressure factors are pascals per unit, so a lone factor (a metre of water is 9806 Pa) reads true.
void SetBuiltInFileGroup(UnitTables& units, int group) {
  switch (group) {
    case kForceGroup:
      SetGroup(units, group, "FORCE",
               {{"N", 1}, {"kN", 1000}, {"lbf", 4.4482216}, {"kip", 4448.2216}, {"kgf", 9.80665},
                {"tonf", 8896.4432}});
      break;
    case kPressureGroup:
      SetGroup(units, group, "PRESS",
               {{"Pa", 1}, {"kPa", 1000}, {"bar", 100000}, {"mbar", 100}, {"kg/cm^2", 98066.5},
                {"kgf/cm^2", 98066.5}, {"t/m^2", 9806.65}, {"ksf", 47880.259}, {"psf", 47.880259},
                {"atm", 101325}, {"tsf", 95760.518}, {"ksi", 6894757.3}, {"kN/m^2", 1000},
                {"psi", 6894.7573}, {"MPa", 1000000}});
      break;
    case kLengthGroup:
      SetGroup(units, group, "STRAIN",
               {{"m", 1}, {"mm", 0.001}, {"cm", 0.01}, {"ft", 0.3048}, {"in", 0.0254}});
      break;
    case kAreaGroup:
      SetGroup(units, group, "AREA",
               {{"m^2", 1}, {"cm^2", 0.0001}, {"mm^2", 0.000001}, {"in^2", 0.00064516},
                {"ft^2", 0.09290304}});
      break;
    case kVolumeGroup:
      SetGroup(units, group, "VOLUME",
               {{"m^3", 1}, {"cm^3", 0.000001}, {"L", 0.001}, {"in^3", 0.000016387064},
                {"ft^3", 0.028316847}});
      break;
  }
}

// Pressure tables of earlier versions gave kilopascals per unit (kPa 1, psi 6.8947573). Their kPa
// row tells them apart; scaled to pascals here, an existing data directory keeps its results.
bool IsKilopascalTable(const std::array<std::string, kMaxUnitsInGroup + 1>& names,
                       const std::array<double, kMaxUnitsInGroup + 1>& factors, int count) {
  int kpa = 0;
  for (int unit = 1; unit <= count && kpa == 0; ++unit) {
    if (names[static_cast<size_t>(unit)] == "kPa") kpa = unit;
  }
  if (kpa == 0 && kKpaUnit <= count) kpa = kKpaUnit;
  return kpa != 0 && factors[static_cast<size_t>(kpa)] == 1;
}

}  // namespace

const std::string& UnitTables::Name(int unit, int group) const {
  if (unit < 0 || unit > kMaxUnitsInGroup || group < 0 || group > kMaxUnitGroup) Fail(kErrSubscript);
  return UnitNames[unit][group];
}

float UnitTables::Factor(int unit, int group) const {
  if (unit < 0 || unit > kMaxUnitsInGroup || group < 0 || group > kMaxUnitGroup) Fail(kErrSubscript);
  return UnitFactors[unit][group];
}

float UnitTables::ConversionFactor(int unit, int group) const {
  if (group != kPressureGroup) return Factor(unit, group);
  if (unit < 0 || unit > kMaxUnitsInGroup) Fail(kErrSubscript);
  return KilopascalFactors[static_cast<size_t>(unit)];
}

void ReadUnitFile(UnitTables& units, int group, std::string_view bytes) {
  LineCursor lines(bytes);
  std::array<std::string, kMaxUnitsInGroup + 1> names;
  std::array<double, kMaxUnitsInGroup + 1> factors{};
  int unit = 0;
  while (!lines.AtEnd() && unit < kMaxUnitsInGroup) {
    const std::string_view name = lines.Next();
    if (lines.AtEnd()) break;
    ++unit;
    names[static_cast<size_t>(unit)] = std::string(name);
    factors[static_cast<size_t>(unit)] = LenientNumber(lines.Next());
  }
  const double scale =
      group == kPressureGroup && IsKilopascalTable(names, factors, unit) ? kPascalsPerKilopascal : 1;
  for (int u = 1; u <= unit; ++u) {
    units.UnitNames[u][group] = std::move(names[static_cast<size_t>(u)]);
    SetFactor(units, u, group, factors[static_cast<size_t>(u)] * scale);
  }
  units.UnitCount[group] = unit;
}

void SetupTYRChannels(UnitTables& units, const std::string& data_directory, float feet_per_metre) {
  units = UnitTables{};
  static constexpr std::pair<int, const char*> kFiles[] = {
      {kForceGroup, "ForceUnits.txt"},   {kPressureGroup, "PressureUnits.txt"},
      {kLengthGroup, "LengthUnits.txt"}, {kAreaGroup, "AreaUnits.txt"},
      {kVolumeGroup, "VolumeUnits.txt"},
  };
  for (const auto& [group, file] : kFiles) {
    SetBuiltInFileGroup(units, group);
    if (auto bytes = TryReadWholeFile(data_directory + "/" + file)) {
      for (int unit = 1; unit <= kMaxUnitsInGroup; ++unit) {
        units.UnitNames[unit][group].clear();
        units.UnitFactors[unit][group] = 0;
        if (group == kPressureGroup) units.KilopascalFactors[unit] = 0;
      }
      ReadUnitFile(units, group, *bytes);
    }
  }
  SetGroup(units, kTemperatureGroup, "TEMP", {{"C", 1}, {"F", 1}, {"deg C", 1}, {"deg F", 1}});
  SetGroup(units, kVoltageGroup, "VOLTAGE", {{"V", 1}, {"Vdc", 1}, {"VDC", 1}});
  SetGroup(units, kInclinationGroup, "INCLINATION", {{"deg", 1}, {"Deg", 1}, {"DEG", 1}});
  // Only two of the three voltage spellings are offered for the FFD channels.
  SetGroup(units, kFfdGroup, "FFD", {{"V", 1}, {"Vdc", 1}, {"VDC", 1}}, 2);
  SetGroup(units, kResistivityGroup, "RESISTIVITY", {{"Ohm-m", 1}, {"Ohm-meter", 1}});
  SetGroup(units, kSoilMoistureGroup, "SOIL MOISTURE",
           {{"%", 1}, {"percent", 1}, {"percentage", 1}, {"PERCENT", 1}, {"PERCENTAGE", 1}});
  SetGroup(units, kPercentageGroup, "PERCENTAGE",
           {{"%", 1}, {"percent", 1}, {"percentage", 1}, {"PERCENT", 1}, {"PERCENTAGE", 1}});
  SetGroup(units, kNoUnitsGroup, "NO UNITS", {{"UNITLESS", 1}, {"", 1}});
  SetGroup(units, kConductivityGroup, "CONDUCTIVITY", {{"mS/m", 1}, {"milliSiemens/meter", 1}});
  SetGroup(units, kSptGroup, "SPT CORRELATION", {{"blows/ft", 1}, {"blows/m", feet_per_metre}});
  SetGroup(units, kSbt83Group, "SOIL BEHAVIOR TYPE", {{"RC 1983", 1}});
  SetGroup(units, kDensityGroup, "DENSITY",
           {{"kgf/m^3", 1}, {"kg/m^3", 1}, {"kgf/m3", 1}, {"kg/m3", 1}, {"lb/ft^3", 16.0185},
            {"lb/ft3", 16.0185}, {"pcf", 16.0185}, {"PCF", 16.0185}});
  SetGroup(units, kSpeedGroup, "SPEED", {{"cm/sec", 1}, {"cm/s", 1}});
  SetGroup(units, kSbt90Group, "SOIL BEHAVIOR TYPE", {{"Rob. 1990", 1}});
  // The 1986 chart's unit has no factor: that group is never converted.
  SetGroup(units, kSbt86Group, "SOIL BEHAVIOR TYPE", {{"Rob. 1986", 0}});
}

}  // namespace marlview
