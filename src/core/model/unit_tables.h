// The unit groups: names and factors of every unit a channel can be shown in.
#pragma once

#include <array>
#include <string>

namespace marlview {

inline constexpr int kMaxUnitGroup = 100;
inline constexpr int kMaxUnitsInGroup = 20;
inline constexpr int kPrivateUnitGroup = 100;

enum UnitGroup : int {
  kForceGroup = 0,
  kPressureGroup = 1,
  kLengthGroup = 2,
  kAreaGroup = 3,
  kVolumeGroup = 4,
  kTemperatureGroup = 5,
  kVoltageGroup = 6,
  kInclinationGroup = 7,
  kFfdGroup = 8,
  kResistivityGroup = 9,
  kSoilMoistureGroup = 10,
  kPercentageGroup = 11,
  kNoUnitsGroup = 12,
  kConductivityGroup = 13,
  kSptGroup = 14,
  kSbt83Group = 15,
  kDensityGroup = 16,
  kSpeedGroup = 17,
  kSbt90Group = 18,
  kSbt86Group = 19,
};

// Rows of the pressure unit file that the program relies on.
inline constexpr int kKpaUnit = 2;
inline constexpr int kTsfUnit = 11;
inline constexpr int kPsiUnit = 14;
inline constexpr int kMpaUnit = 15;
// The units of the four fixed pressure tables, in table order.
inline constexpr std::array<int, 4> kFixedPressureUnits = {kPsiUnit, kTsfUnit, kKpaUnit, kMpaUnit};

struct UnitTables {
  std::array<std::string, kMaxUnitGroup + 1> UnitGroupName;
  // [unit 1..20][group]; a value in unit u converts to unit w by UnitFactors[u] / UnitFactors[w].
  std::array<std::array<std::string, kMaxUnitGroup + 1>, kMaxUnitsInGroup + 1> UnitNames;
  std::array<std::array<float, kMaxUnitGroup + 1>, kMaxUnitsInGroup + 1> UnitFactors{};
  std::array<int, kMaxUnitGroup + 1> UnitCount{};
  // The pressure rows in kilopascals per unit, each rounded once to single precision from the
  // table's value, as the kilopascal tables of earlier versions held them.
  std::array<float, kMaxUnitsInGroup + 1> KilopascalFactors{};

  const std::string& Name(int unit, int group) const;
  // Pressures: pascals per unit, for a lone factor such as the head of a metre of water.
  float Factor(int unit, int group) const;
  // The factor a conversion between two units of a group divides by another. A ratio is unit
  // free, but its last bit follows where each single-precision factor was rounded: pressures
  // convert through KilopascalFactors so that exports keep the numbers earlier versions wrote.
  float ConversionFactor(int unit, int group) const;
};

// Fills the unit tables at start: groups 0..4 from the five unit files of the data directory (a
// missing file gives the installed table), the others built in.
void SetupTYRChannels(UnitTables& units, const std::string& data_directory, float feet_per_metre);

// Reads one unit file: pairs of lines, the unit's name then its factor, up to 20 units.
void ReadUnitFile(UnitTables& units, int group, std::string_view bytes);

}  // namespace marlview
