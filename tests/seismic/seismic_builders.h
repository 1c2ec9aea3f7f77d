// Seismic stores filled in code: tests of given depths with strikes of given samples.
#pragma once

#include <vector>

#include "core/session/seismic_store.h"

namespace marlview::test {

// Sets test i's strike of kind to the amplitudes, at interval_ms from time interval_ms on.
inline void SetStrike(SeismicStore& s, int test, int kind, const std::vector<float>& amplitudes, float interval_ms = 0.1f) {
  const int slot = StrikeSlot(kind, test);
  s.SetHasStrike(kind, test, true);
  s.SampleInterval[test] = interval_ms;
  s.SampleCount[slot] = static_cast<int32_t>(amplitudes.size());
  for (size_t k = 0; k < amplitudes.size(); ++k) {
    s.StrikeTime(slot, static_cast<int>(k) + 1) = interval_ms * static_cast<float>(k + 1);
    s.StrikeAmplitude(slot, static_cast<int>(k) + 1) = amplitudes[k];
  }
  s.EndIndex[test] = s.SampleCount[StrikeSlot(kStrikeA, test)];
}

// A store of SEI tests at the depths, each with A and B strikes of n zeros.
inline void FillTests(SeismicStore& s, const std::vector<float>& depths, int n = 200) {
  s.Reset();
  s.AcquisitionFamily = kSeiFamily;
  s.TestCount = static_cast<int16_t>(depths.size());
  for (int i = 1; i <= s.TestCount; ++i) {
    s.TestDepth[i] = depths[static_cast<size_t>(i - 1)];
    SetStrike(s, i, kStrikeA, std::vector<float>(static_cast<size_t>(n), 0.0f));
    SetStrike(s, i, kStrikeB, std::vector<float>(static_cast<size_t>(n), 0.0f));
  }
}

inline std::vector<float> Amplitudes(const SeismicStore& s, int test, int kind) {
  std::vector<float> out;
  const int slot = StrikeSlot(kind, test);
  for (int k = 1; k <= s.SampleCount[slot]; ++k) out.push_back(s.StrikeAmplitude(slot, k));
  return out;
}

}  // namespace marlview::test
