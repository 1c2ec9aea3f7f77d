// Saving the current sounding to a slot and loading it back.
#include "core/model/sounding_slots.h"

#include <algorithm>

#include "core/common/runtime_failure.h"

namespace marlview {

SoundingSlot::SoundingSlot()
    : depths(kMaxReadings, 2),
      raw(kMaxReadings, kMaxChannels),
      cpt_raw(kMaxReadings, kMaxCptRawChannels),
      row_tail(kMaxReadings + 1),
      munsell_chips(kMaxReadings + 1) {}

SoundingSlots::SoundingSlots() {
  for (auto& slot : slots_) slot = std::make_unique<SoundingSlot>();
}

SoundingSlot& SoundingSlots::operator[](int slot) {
  if (slot < 0 || slot > kMaxSlots) Fail(kErrSubscript);
  return *slots_[slot];
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
  const int rows = std::max(s.rows_used, static_cast<int>(store.ReadingCount));
  s.scalars = store;
  s.channels = store;
  s.korvan = store;
  s.cpt = store;
  s.roles = store;
  for (int r = 0; r <= rows; ++r) {
    s.depths(r, 1) = store.DepthTable(r, 1);
    s.depths(r, 2) = store.DepthTable(r, 2);
    s.row_tail[r] = store.RowTail[r];
    s.munsell_chips[r] = store.MunsellChips[r];
  }
  s.raw.CopyRowsFrom(store.RawReadings, 0, rows);
  s.cpt_raw.CopyRowsFrom(store.CptRawReadings, 0, rows);
  s.rows_used = store.ReadingCount;
  slots.RecordCatalogue(slot, store);
}

void LoadFromSlot(SoundingStore& store, SoundingSlots& slots, int slot) {
  SoundingSlot& s = slots[slot];
  const int rows = std::max(s.rows_used, std::max(store.RowsUsed(), static_cast<int>(store.ReadingCount)));
  for (int r = 1; r <= std::min(rows, kMaxReadings); ++r) {
    store.DepthTable(r, 1) = 0;
    store.DepthTable(r, 2) = 0;
  }
  static_cast<SoundingScalars&>(store) = s.scalars;
  static_cast<ChannelTables&>(store) = s.channels;
  static_cast<KorvanHeader&>(store) = s.korvan;
  static_cast<CptHeader&>(store) = s.cpt;
  static_cast<ChannelRoles&>(store) = s.roles;
  for (int r = 0; r <= rows; ++r) {
    store.DepthTable(r, 1) = s.depths(r, 1);
    store.DepthTable(r, 2) = s.depths(r, 2);
    store.RowTail[r] = s.row_tail[r];
    store.MunsellChips[r] = s.munsell_chips[r];
  }
  store.RawReadings.CopyRowsFrom(s.raw, 0, rows);
  store.CptRawReadings.CopyRowsFrom(s.cpt_raw, 0, rows);
  store.NoteRowsUsed(rows);
}

}  // namespace marlview
