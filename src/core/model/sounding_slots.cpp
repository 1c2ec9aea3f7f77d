// Saving the current sounding to a slot and loading it back.
#include "core/model/sounding_slots.h"

#include <algorithm>
#include <memory>

#include "core/common/runtime_failure.h"

namespace marlview {

SoundingSlot::SoundingSlot()
    : depths(kDeclaredTableRows, kWideTableColumns),
      raw(kMaxReadings, kMaxChannels),
      cpt_raw(kMaxReadings, kMaxCptRawChannels),
      row_tail(kMaxReadings),
      munsell_chips(kMaxReadings) {}

SoundingSlot& SoundingSlots::operator[](int slot) {
  if (slot < 0 || slot > kMaxSlots) Fail(kErrSubscript);
  auto& held = slots_[static_cast<size_t>(slot)];
  if (!held) held = std::make_unique<SoundingSlot>();
  return *held;
}

bool SoundingSlots::Held(int slot) const {
  return slot >= 0 && slot <= kMaxSlots && slots_[static_cast<size_t>(slot)] != nullptr;
}

void SoundingSlots::RecordCatalogue(int slot, const SoundingStore& store) {
  SoundingSlot& s = (*this)[slot];
  s.ChannelOfId.fill(0);
  s.IdOfChannel.fill(0);
  for (int c = 1; c <= std::min<int>(store.TotalChannels, kMaxChannels); ++c) {
    const int id = store.ChannelCatalogueId[c];
    s.IdOfChannel[c] = static_cast<int16_t>(id);
    if (id > 0 && id <= kMaxCatalogueId) s.ChannelOfId[id] = static_cast<int16_t>(c);
  }
}

void SaveToSlot(const SoundingStore& store, SoundingSlots& slots, int slot) {
  SoundingSlot& s = slots[slot];
  s.scalars = store;
  s.channels = store;
  s.korvan = store;
  s.cpt = store;
  s.roles = store;
  s.depths.CopyColumnsFrom(store.DepthTable, 1, 2);
  s.raw = store.RawReadings;
  s.cpt_raw = store.CptRawReadings;
  s.row_tail = store.RowTail;
  s.munsell_chips = store.MunsellChips;
  slots.RecordCatalogue(slot, store);
}

void LoadFromSlot(SoundingStore& store, SoundingSlots& slots, int slot) {
  SoundingSlot& s = slots[slot];
  static_cast<SoundingScalars&>(store) = s.scalars;
  static_cast<ChannelTables&>(store) = s.channels;
  static_cast<KorvanHeader&>(store) = s.korvan;
  static_cast<CptHeader&>(store) = s.cpt;
  static_cast<ChannelRoles&>(store) = s.roles;
  // The depths of the slot replace the current ones row for row, rows past the slot's reading 0.
  store.DepthTable.CopyColumnsFrom(s.depths, 1, 2);
  store.RawReadings = s.raw;
  store.CptRawReadings = s.cpt_raw;
  store.RowTail = s.row_tail;
  store.MunsellChips = s.munsell_chips;
}

}  // namespace marlview
