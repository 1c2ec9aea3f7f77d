// The several-soundings mode's set: up to 30 soundings held side by side, each in its own store,
// with the tests ticked and the common depth interval. The mode's logic lives with the set's
// windows; the session only owns the data, so nothing of it is global.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "core/model/sounding_store.h"

namespace marlview {

inline constexpr int kMaxSetTests = 30;

struct SetTest {
  std::unique_ptr<SoundingStore> store;
  // chkSelectTest of the slot.
  bool selected = true;
  // TestDepthOffset: metres added to every depth of the test by the depth adjustment.
  float DepthOffset = 0;
};

struct SoundingSet {
  // Slot 1 first.
  std::vector<SetTest> tests;
  // txtDepthInterval, in the session's depth unit; 0 when blank.
  float CommonDepthInterval = 0;
  // 1: one scale per channel over all tests; 0: each test its own.
  int16_t ScalingMode = 1;
  // The slot whose store is lent to the session as its current sounding, 0 for none; while lent,
  // the slot holds the session's own store in its place.
  int LentSlot = 0;
};

}  // namespace marlview
