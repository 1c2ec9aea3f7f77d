// The channel catalogue, and the user's label, unit and format choices for each catalogue id.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/model/sounding_store.h"

namespace marlview {

inline constexpr int kMaxCatalogueId = 99;
inline constexpr int kLastSettingsId = 52;
inline constexpr int kUnusedCatalogueId = 50;
inline constexpr int kMaxLabelVariants = 20;
inline constexpr int kOtherSensorId = 99;

struct CatalogueEntry {
  int id = 0;
  std::string_view name;
  int group = 0;
  // The unit a fresh installation shows the channel in.
  int display_unit = 1;
};

// The entry of a catalogue id, or one with id 0 for an id the catalogue does not hold.
CatalogueEntry CatalogueLookup(int id);
// Ids that carry label, unit and format settings: 1..52 except 50.
bool HasChannelSettings(int id);

// The patterns offered for a channel's number format.
inline constexpr std::array<std::string_view, 9> kFormatPatterns = {
    "######0.000000", "######0.00000", "######0.0000", "######0.000", "######0.00",
    "######0.0",      "######0.",      "######0",      "0.0000E+00!"};

struct ChannelChoices {
  // [variant 1..20][id]
  std::array<std::array<std::string, kMaxCatalogueId + 1>, kMaxLabelVariants + 1> LabelVariants;
  std::array<int16_t, kMaxCatalogueId + 1> LabelVariantCount{};
  // [kind][id]
  std::array<std::array<int16_t, kMaxCatalogueId + 1>, kOutputKinds> LabelChoice{};
  std::array<std::array<int16_t, kMaxCatalogueId + 1>, kOutputKinds> UnitChoice{};
  std::array<std::array<std::string, kMaxCatalogueId + 1>, kOutputKinds> FormatChoice;
  int16_t UseUnitsFromFile = 1;
  int16_t DepthLabelFormat = 0;

  // The choices of a fresh installation: first label, the catalogue's unit, three decimals.
  ChannelChoices();
};

// Reads "Export Labels Channel <id>.txt": one label variant a line, up to 20.
void ReadExportLabels(ChannelChoices& choices, int id, std::string_view bytes);
// Reads "Display Units.txt": UseUnitsFromFile, DepthLabelFormat, then for each id with settings
// five label choices, five unit choices and five format patterns, each in output order.
void ReadDisplayUnits(ChannelChoices& choices, std::string_view bytes);
std::string WriteDisplayUnits(const ChannelChoices& choices);

struct UnitTables;
// Records the catalogue id of a channel and takes the user's label, unit and format for each output.
void RegisterChannel(SoundingStore& store, const UnitTables& units, const ChannelChoices& choices,
                     int channel, int group, int id);

}  // namespace marlview
