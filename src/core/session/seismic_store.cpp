// The seismic store: allocation once at full size, resets that touch only what was used, the
// strike means and the removal of a test.
#include "core/session/seismic_store.h"

#include <algorithm>
#include <cstring>

namespace marlview {

SeismicStore::SeismicStore()
    : time_(kStrikeSlots, kMaxStrikeSamples),
      amplitude_(kStrikeSlots, kMaxStrikeSamples),
      log_time_(kMaxLogSamples, 0),
      log_amplitude_(kMaxLogSamples, 2),
      header_lines_(kMaxSeismicTests + 1) {
  Reset();
}

void SeismicStore::Reset() {
  for (int slot = 0; slot <= kStrikeSlots; ++slot) {
    const int32_t used = high_water_[static_cast<size_t>(slot)];
    if (used > 0) {
      std::memset(time_.Row(slot), 0, (static_cast<size_t>(used) + 1) * sizeof(float));
      std::memset(amplitude_.Row(slot), 0, (static_cast<size_t>(used) + 1) * sizeof(float));
    }
    high_water_[static_cast<size_t>(slot)] = 0;
  }
  if (log_high_water_ > 0) {
    log_time_.ClearRows(0, log_high_water_);
    log_amplitude_.ClearRows(0, log_high_water_);
  }
  log_high_water_ = 0;
  for (int i = 0; i <= std::min<int>(std::max<int>(TestCount, 1), kMaxSeismicTests); ++i) {
    for (auto& line : header_lines_[static_cast<size_t>(i)]) line.clear();
  }
  AcquisitionFamily = -1;
  TestCount = 0;
  TestFile.Fill({});
  TestTitle.Fill({});
  TestDepth.Fill(0);
  SampleInterval.Fill(0);
  StartIndex.Fill(0);
  EndIndex.Fill(0);
  ArrivalFromFile.Fill(0);
  ArrivalSample.Fill(0);
  ArrivalKind.Fill(kNoStrike);
  HasStrikeA.Fill(0);
  HasStrikeB.Fill(0);
  HasStrikeP.Fill(0);
  for (auto& row : GeophoneOf) row.Fill(kGeophoneUnknown);
  for (auto& row : StrikeMeanRemoved) row.Fill(0);
  SampleCount.Fill(0);
  DelayTime.Fill(0);
  ReferenceTest.Fill(0);
  IntervalVelocity.Fill(0);
  XcorrVelocity.Fill(0);
  XcorrLagSamples.Fill(0);
  XcorrCoefficient.Fill(0);
  XcorrComputed = false;
  HammerDistance = 0;
  AskHammerDistance = 1;
  PathDifference = 0;
  AmplitudeBias = 0;
  AmplitudeScale = 0;
  LegacyHalfRateB = false;
  header = {};
  LogSeconds = 0;
  LogSecondStart.Fill(0);
  LogSecondEnd.Fill(0);
  LogHasGainLine = 0;
  LogGain = 1;
}

std::string& SeismicStore::HeaderLine(int test, int k) {
  if (test < 0 || test > kMaxSeismicTests || k < 0 || k > kMaxSeismicHeaderLines) Fail(kErrSubscript);
  return header_lines_[static_cast<size_t>(test)][static_cast<size_t>(k)];
}

const std::string& SeismicStore::HeaderLine(int test, int k) const {
  if (test < 0 || test > kMaxSeismicTests || k < 0 || k > kMaxSeismicHeaderLines) Fail(kErrSubscript);
  return header_lines_[static_cast<size_t>(test)][static_cast<size_t>(k)];
}

void SeismicStore::MarkUsed(int slot, int last_sample) {
  if (slot < 0 || slot > kStrikeSlots) Fail(kErrSubscript);
  Touch(slot, std::min(last_sample, kMaxStrikeSamples));
}

bool SeismicStore::HasStrike(int kind, int test) const {
  switch (kind) {
    case kStrikeA: return HasStrikeA[test] != 0;
    case kStrikeB: return HasStrikeB[test] != 0;
    case kStrikeP: return HasStrikeP[test] != 0;
    default: return false;
  }
}

void SeismicStore::SetHasStrike(int kind, int test, bool present) {
  const int16_t value = present ? kTrue16 : 0;
  switch (kind) {
    case kStrikeA: HasStrikeA[test] = value; break;
    case kStrikeB: HasStrikeB[test] = value; break;
    case kStrikeP: HasStrikeP[test] = value; break;
    default: Fail(kErrSubscript);
  }
}

int SeismicStore::StrikeCountOf(int test) const {
  int count = 0;
  for (int16_t kind : kStrikeKinds) count += HasStrike(kind, test) ? 1 : 0;
  return count;
}

float SeismicStore::StrikeMean(int test, int kind) const {
  const int slot = StrikeSlot(kind, test);
  const int32_t n = SampleCount[slot];
  if (n <= 0) return 0;
  if (n > kMaxStrikeSamples) Fail(kErrSubscript);
  const float* a = AmplitudeRow(slot);
  float sum = 0;
  for (int s = 1; s <= n; ++s) sum += a[s];
  return sum / static_cast<float>(n);
}

void SeismicStore::RemoveStrikeMeans() {
  for (int i = 1; i <= TestCount; ++i) {
    for (int16_t kind : kStrikeKinds) {
      if (!HasStrike(kind, i)) continue;
      const int slot = StrikeSlot(kind, i);
      const int32_t n = SampleCount[slot];
      if (n <= 0) continue;
      const float mean = StrikeMean(i, kind);
      float* a = AmplitudeRow(slot);
      for (int s = 1; s <= n; ++s) a[s] -= mean;
    }
  }
}

void SeismicStore::CopyTest(int from, int to) {
  TestFile[to] = TestFile[from];
  TestTitle[to] = TestTitle[from];
  TestDepth[to] = TestDepth[from];
  SampleInterval[to] = SampleInterval[from];
  StartIndex[to] = StartIndex[from];
  EndIndex[to] = EndIndex[from];
  ArrivalFromFile[to] = ArrivalFromFile[from];
  ArrivalSample[to] = ArrivalSample[from];
  ArrivalKind[to] = ArrivalKind[from];
  DelayTime[to] = DelayTime[from];
  ReferenceTest[to] = ReferenceTest[from];
  IntervalVelocity[to] = IntervalVelocity[from];
  HasStrikeA[to] = HasStrikeA[from];
  HasStrikeB[to] = HasStrikeB[from];
  HasStrikeP[to] = HasStrikeP[from];
  for (int16_t kind : kStrikeKinds) {
    GeophoneOf[static_cast<size_t>(kind)][to] = GeophoneOf[static_cast<size_t>(kind)][from];
    StrikeMeanRemoved[static_cast<size_t>(kind)][to] = StrikeMeanRemoved[static_cast<size_t>(kind)][from];
    const int source = StrikeSlot(kind, from), target = StrikeSlot(kind, to);
    const int32_t n = std::clamp(SampleCount[source], 0, kMaxStrikeSamples);
    SampleCount[target] = SampleCount[source];
    std::memcpy(TimeRow(target), TimeRow(source), (static_cast<size_t>(n) + 1) * sizeof(float));
    std::memcpy(AmplitudeRow(target), AmplitudeRow(source), (static_cast<size_t>(n) + 1) * sizeof(float));
    MarkUsed(target, n);
  }
  for (int k = 0; k <= kMaxSeismicHeaderLines; ++k) HeaderLine(to, k) = HeaderLine(from, k);
}

void SeismicStore::DropTest(int test) {
  if (test < 1 || test > TestCount) Fail(kErrSubscript);
  for (int i = test; i < TestCount; ++i) CopyTest(i + 1, i);
  const int last = TestCount;
  HasStrikeA[last] = HasStrikeB[last] = HasStrikeP[last] = 0;
  for (int16_t kind : kStrikeKinds) SampleCount[StrikeSlot(kind, last)] = 0;
  ArrivalSample[last] = DelayTime[last] = IntervalVelocity[last] = 0;
  ArrivalKind[last] = kNoStrike;
  --TestCount;
}

float* SeismicStore::Scratch(int samples) {
  const size_t needed = static_cast<size_t>(std::max(samples, 0)) + 1;
  if (scratch_.size() < needed) scratch_.resize(needed);
  return scratch_.data();
}

}  // namespace marlview
