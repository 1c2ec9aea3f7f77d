// The channel catalogue and the per-id choices.
#include "core/model/catalogue.h"

#include <algorithm>
#include <cmath>

#include "core/common/line_cursor.h"
#include "core/common/number_read.h"
#include "core/common/runtime_failure.h"
#include "core/model/unit_tables.h"

namespace marlview {
namespace {

struct Row {
  int id;
  const char* name;
  int group;
  int display_unit;
};

constexpr Row kCatalogue[] = {
    {1, "Tip Resistance (Qc)", kPressureGroup, kPsiUnit},
    {2, "Tip Resistance (Qt)", kPressureGroup, kPsiUnit},
    {3, "Sleeve Friction", kPressureGroup, kPsiUnit},
    {4, "Pore Pressure U1, U2, U3", kPressureGroup, kPsiUnit},
    {5, "Exc Sense", kVoltageGroup, 1},
    {6, "Temperature", kTemperatureGroup, 1},
    {7, "Inclination X", kInclinationGroup, 1},
    {8, "Inclination Y", kInclinationGroup, 1},
    {9, "Inclination Total", kInclinationGroup, 1},
    {10, "HFFD", kFfdGroup, 1},
    {11, "LFFD", kFfdGroup, 1},
    {12, "Rod Depth", kLengthGroup, 1},
    {13, "Aux1", kVoltageGroup, 1},
    {14, "Aux2", kVoltageGroup, 1},
    {15, "Ref", kVoltageGroup, 1},
    {16, "MFFD", kVoltageGroup, 1},
    {17, "VREF RATIO", kVoltageGroup, 1},
    {18, "Feed Force C", kNoUnitsGroup, 1},
    {19, "Feed Force F", kNoUnitsGroup, 1},
    {20, "Blows C", kNoUnitsGroup, 1},
    {21, "Blows F", kNoUnitsGroup, 1},
    {22, "RPM C", kNoUnitsGroup, 1},
    {23, "RPM F", kNoUnitsGroup, 1},
    {24, "Multi-SL1", kPressureGroup, kPsiUnit},
    {25, "Multi-SL2", kPressureGroup, kPsiUnit},
    {26, "Multi-SL3", kPressureGroup, kPsiUnit},
    {27, "Multi-SL4", kPressureGroup, kPsiUnit},
    {28, "Multi-PP1", kPressureGroup, kPsiUnit},
    {29, "Multi-PP2", kPressureGroup, kPsiUnit},
    {30, "Multi-PP3", kPressureGroup, kPsiUnit},
    {31, "Multi-PP4", kPressureGroup, kPsiUnit},
    {32, "Multi-PP5", kPressureGroup, kPsiUnit},
    {33, "Resistivity", kResistivityGroup, 1},
    {34, "Conductivity", kConductivityGroup, 1},
    {35, "Soil Moist", kSoilMoistureGroup, 1},
    {36, "Friction Ratio (Fs/Qc)", kPercentageGroup, 1},
    {37, "Friction Ratio (Fs/Qt)", kPercentageGroup, 1},
    {38, "Overburden", kPressureGroup, kPsiUnit},
    {39, "Eff. Overburden", kPressureGroup, kPsiUnit},
    {40, "Friction Angle", kInclinationGroup, 1},
    {41, "Shear Strength", kPressureGroup, kPsiUnit},
    {42, "Over Consolidation Ratio", kPercentageGroup, 1},
    {43, "SBT(1983)*", kSbt83Group, 1},
    {44, "SBT(QT)(1990)*", kSbt90Group, 1},
    {45, "SBT(Bq)(1990)*", kSbt90Group, 1},
    {46, "SPT N*", kSptGroup, 1},
    {47, "Head Pressure", kPressureGroup, kPsiUnit},
    {48, "Wet Density", kDensityGroup, 1},
    {49, "Push Speed", kSpeedGroup, 1},
    {51, "SBT FR(1986)*", kSbt86Group, 1},
    {52, "SBT PP(1986)*", kSbt86Group, 1},
    {54, "RED", kNoUnitsGroup, 1},
    {55, "GREEN", kNoUnitsGroup, 1},
    {56, "BLUE", kNoUnitsGroup, 1},
    {57, "CLEAR", kNoUnitsGroup, 1},
    {59, "Seismic P", kVoltageGroup, 1},
    {60, "Seismic S1", kVoltageGroup, 1},
    {61, "Seismic S2", kVoltageGroup, 1},
    {62, "Stress Exponent n", kNoUnitsGroup, 1},
    {63, "Qtn", kNoUnitsGroup, 1},
    {64, "Fr (Normalised)", kPercentageGroup, 1},
    {65, "Ic", kNoUnitsGroup, 1},
    {66, "SBTn(2009)*", kSbt90Group, 1},
    {67, "Bq", kNoUnitsGroup, 1},
    {99, "any other sensor", kVoltageGroup, 1},
};

constexpr std::string_view kDefaultFormat = "######0.000";

// A choice read from the settings, kept within the choices there are.
int16_t ClampChoice(double value, int low, int high) {
  const double clamped = std::min<double>(std::max<double>(std::nearbyint(value), low), high);
  return static_cast<int16_t>(clamped);
}

}  // namespace

CatalogueEntry CatalogueLookup(int id) {
  for (const Row& row : kCatalogue) {
    if (row.id == id) return {row.id, row.name, row.group, row.display_unit};
  }
  return {};
}

bool HasChannelSettings(int id) { return id >= 1 && id <= kLastSettingsId && id != kUnusedCatalogueId; }

ChannelChoices::ChannelChoices() {
  for (int id = 0; id <= kMaxCatalogueId; ++id) {
    const CatalogueEntry entry = CatalogueLookup(id);
    for (int k = 0; k < kOutputKinds; ++k) {
      LabelChoice[k][id] = 1;
      UnitChoice[k][id] = static_cast<int16_t>(entry.id != 0 ? entry.display_unit : 1);
      FormatChoice[k][id] = std::string(kDefaultFormat);
    }
  }
}

void ReadExportLabels(ChannelChoices& choices, int id, std::string_view bytes) {
  LineCursor lines(bytes);
  int count = 0;
  while (!lines.AtEnd() && count < kMaxLabelVariants) {
    choices.LabelVariants[++count][id] = std::string(lines.Next());
  }
  choices.LabelVariantCount[id] = static_cast<int16_t>(count);
}

void ReadDisplayUnits(ChannelChoices& choices, std::string_view bytes) {
  LineCursor lines(bytes);
  choices.UseUnitsFromFile = ToInteger16(LenientNumber(lines.Next()));
  choices.DepthLabelFormat = ToInteger16(LenientNumber(lines.Next()));
  for (int id = 1; id <= kLastSettingsId; ++id) {
    if (!HasChannelSettings(id)) continue;
    for (int k = 0; k < kOutputKinds; ++k) {
      choices.LabelChoice[k][id] = ClampChoice(LenientNumber(lines.Next()), 0, kMaxLabelVariants);
    }
    for (int k = 0; k < kOutputKinds; ++k) {
      choices.UnitChoice[k][id] = ClampChoice(LenientNumber(lines.Next()), 1, kMaxUnitsInGroup);
    }
    for (int k = 0; k < kOutputKinds; ++k) choices.FormatChoice[k][id] = std::string(lines.Next());
  }
}

std::string WriteDisplayUnits(const ChannelChoices& choices) {
  std::string out;
  auto line = [&out](const std::string& text) { out += text + "\r\n"; };
  line(std::to_string(choices.UseUnitsFromFile));
  line(std::to_string(choices.DepthLabelFormat));
  for (int id = 1; id <= kLastSettingsId; ++id) {
    if (!HasChannelSettings(id)) continue;
    for (int k = 0; k < kOutputKinds; ++k) line(std::to_string(choices.LabelChoice[k][id]));
    for (int k = 0; k < kOutputKinds; ++k) line(std::to_string(choices.UnitChoice[k][id]));
    for (int k = 0; k < kOutputKinds; ++k) line(choices.FormatChoice[k][id]);
  }
  return out;
}

void RegisterChannel(SoundingStore& store, const UnitTables& units, const ChannelChoices& choices,
                     int channel, int group, int id) {
  if (channel < 1 || channel > kMaxChannels || id < 0 || id > kMaxCatalogueId) Fail(kErrSubscript);
  store.ChannelCatalogueId[channel] = static_cast<int16_t>(id);
  store.ChannelUnitGroup[channel] = static_cast<int16_t>(group);
  for (int k = 0; k < kOutputKinds; ++k) {
    const int unit = choices.UnitChoice[k][id];
    store.ChannelUnitLabel[channel][k] = "(" + units.Name(unit, group) + ")";
    store.ChannelFormat[channel][k] = choices.FormatChoice[k][id];
    store.ChannelLabel[channel][k] = choices.LabelVariants[choices.LabelChoice[k][id]][id];
    store.ChannelDisplayUnit[channel][k] = static_cast<int16_t>(unit);
  }
}

}  // namespace marlview
