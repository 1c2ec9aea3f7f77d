// Copies of soundings kept beside the current one, swapped in one at a time.
#pragma once

#include <array>
#include <memory>

#include "core/model/catalogue.h"
#include "core/model/sounding_store.h"

namespace marlview {

inline constexpr int kMaxSlots = 30;

struct SoundingSlot {
  SoundingSlot();

  SoundingScalars scalars;
  ChannelTables channels;
  KorvanHeader korvan;
  CptHeader cpt;
  ChannelRoles roles;
  // Depth columns 1 and 2, raw readings and PX DAS raw numbers, by row.
  ColumnTable<float> depths;
  ColumnTable<float> raw;
  ColumnTable<float> cpt_raw;
  ReadingList<std::string> row_tail;
  ReadingList<std::string> munsell_chips;
  // The channel that carries each catalogue id, and the catalogue id of each channel.
  std::array<int16_t, kMaxCatalogueId + 1> ChannelOfId{};
  std::array<int16_t, kMaxChannels + 1> IdOfChannel{};
};

// Slots 0..30; a slot takes memory only when a sounding is first saved to it or read from it.
class SoundingSlots {
 public:
  SoundingSlot& operator[](int slot);
  // Whether the slot has been used at all.
  bool Held(int slot) const;

  // Records the catalogue ids of the store's channels for the slot, both ways.
  void RecordCatalogue(int slot, const SoundingStore& store);

 private:
  std::array<std::unique_ptr<SoundingSlot>, kMaxSlots + 1> slots_;
};

// Copies every field of the current sounding into the slot.
void SaveToSlot(const SoundingStore& store, SoundingSlots& slots, int slot);
// Copies the slot back; depths of rows 1..10000 are cleared first.
void LoadFromSlot(SoundingStore& store, SoundingSlots& slots, int slot);

}  // namespace marlview
