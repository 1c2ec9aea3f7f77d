// Conditioning of the waves.
#include "core/seismic/conditioning.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

namespace marlview {
namespace {

bool IsLog(const SeismicStore& s) { return s.AcquisitionFamily == kSlgFamily; }

// The samples of a present strike, 0 when it has none or the test lacks it.
int CountOf(const SeismicStore& s, int test, int kind) {
  if (!s.HasStrike(kind, test)) return 0;
  return std::clamp(s.SampleCount[StrikeSlot(kind, test)], 0, kMaxStrikeSamples);
}

int LogCount(const SeismicStore& s) { return std::clamp(s.SampleCount[1], 0, kMaxLogSamples); }

// The log's columns interleave; passes work on a copy of one column and put it back.
template <typename Body>
void OnLogColumns(SeismicStore& s, Body&& body) {
  const int n = LogCount(s);
  std::vector<float> column(static_cast<size_t>(n) + 1);
  for (int16_t kind : kStrikeKinds) {
    if (!s.HasStrike(kind, 1)) continue;
    const int c = LogColumn(kind);
    for (int k = 1; k <= n; ++k) column[static_cast<size_t>(k)] = s.LogAmplitude(k, c);
    body(column.data(), n);
    for (int k = 1; k <= n; ++k) s.LogAmplitude(k, c) = column[static_cast<size_t>(k)];
  }
}

// The filter spends its time in the division by 3 of every sample of every round; processors that
// divide eight floats at once get a copy of the pass built for them, chosen when the program loads.
// The quotients are the same on either path.
#if defined(__GNUC__) && !defined(__clang__) && defined(__x86_64__)
#define MARLVIEW_WIDE_DIVISION __attribute__((target_clones("avx2", "default")))
#else
#define MARLVIEW_WIDE_DIVISION
#endif

// The three-point mean of one pass from src into dst.
MARLVIEW_WIDE_DIVISION void SmoothInto(const float* __restrict src, float* __restrict dst, int n) {
  dst[1] = (src[1] + src[2]) * 0.5f;
  for (int s = 2; s <= n - 1; ++s) dst[s] = (src[s - 1] + src[s] + src[s + 1]) / 3;
  dst[n] = (src[n - 1] + src[n]) * 0.5f;
}

// Passes alternate between the strike and the store's scratch row, so no pass copies; the last
// result is put back into the strike.
void Smooth(SeismicStore& s, float* a, int n, int passes) {
  if (n < 2 || passes <= 0) return;
  float* src = a;
  float* dst = s.Scratch(n);
  for (int p = 0; p < passes; ++p) {
    SmoothInto(src, dst, n);
    std::swap(src, dst);
  }
  if (src != a) std::memcpy(a + 1, src + 1, static_cast<size_t>(n) * sizeof(float));
}

// Normalises samples 10..n-10 so the largest swing stands at 0.75; gain carries over a flat strike.
void Enhance(float* a, int n, float& gain) {
  if (n < 20) return;
  float hi = 0.0f, lo = 1.0f;
  for (int s = 10; s <= n - 10; ++s) {
    hi = std::max(hi, a[s]);
    lo = std::min(lo, a[s]);
  }
  const float value = std::fabs(lo) >= std::fabs(hi) ? lo : hi;
  if (value != 0) gain = std::fabs(0.75f / value);
  for (int s = 10; s <= n - 10; ++s) a[s] *= gain;
}

bool OutsideFullScale(const float* a, int n) {
  for (int s = 2; s <= n - 1; ++s) {
    if (!(a[s] > -1.0f && a[s] < 1.0f)) return true;
  }
  return false;
}

void Trim(SeismicStore& s, int test, double time_ms, bool half_rate_b) {
  const float interval = s.SampleInterval[test];
  if (!(interval > 0)) return;
  const double limit = std::nearbyint(time_ms / interval);
  for (int16_t kind : kStrikeKinds) {
    const int slot = StrikeSlot(kind, test);
    const double kind_limit = kind == kStrikeB && half_rate_b ? 2 * limit : limit;
    if (s.SampleCount[slot] > kind_limit) s.SampleCount[slot] = static_cast<int32_t>(kind_limit);
  }
  s.EndIndex[test] = s.SampleCount[StrikeSlot(kStrikeA, test)];
}

}  // namespace

void SmoothOnce(float* a, int n, float* out) {
  if (n < 2) return;
  SmoothInto(a, out, n);
  std::memcpy(a + 1, out + 1, static_cast<size_t>(n) * sizeof(float));
}

void FilterAllGraphs(SeismicStore& s) {
  if (IsLog(s)) {
    OnLogColumns(s, [&s](float* a, int n) { Smooth(s, a, n, kFilterRounds); });
    return;
  }
  // Each strike is smoothed its 15 rounds while it is at hand; the rounds of a strike never
  // depend on another strike, so the order of the work does not change the result.
  for (int i = 1; i <= s.TestCount; ++i) {
    for (int16_t kind : kStrikeKinds) {
      const int n = CountOf(s, i, kind);
      if (n > 0) Smooth(s, s.AmplitudeRow(StrikeSlot(kind, i)), n, kFilterRounds);
    }
  }
}

void FilterStrike(SeismicStore& s, int test, int kind, int passes) {
  const int n = CountOf(s, test, kind);
  if (n > 0) Smooth(s, s.AmplitudeRow(StrikeSlot(kind, test)), n, passes);
}

void AttenuateAllGraphs(SeismicStore& s) {
  const auto attenuate = [&s](auto&& strikes) {
    for (int round = 0; round < kMaxAttenuateRounds; ++round) {
      bool done = true;
      for (auto& [a, n] : strikes) {
        if (n < 3 || !OutsideFullScale(a, n)) continue;
        done = false;
        Smooth(s, a, n, 1);
      }
      if (done) return;
    }
  };
  if (IsLog(s)) {
    OnLogColumns(s, [&](float* a, int n) {
      std::vector<std::pair<float*, int>> one{{a, n}};
      attenuate(one);
    });
    return;
  }
  for (int i = 1; i <= s.TestCount; ++i) {
    std::vector<std::pair<float*, int>> strikes;
    for (int16_t kind : kStrikeKinds) {
      const int n = CountOf(s, i, kind);
      if (n > 0) strikes.emplace_back(s.AmplitudeRow(StrikeSlot(kind, i)), n);
    }
    attenuate(strikes);
  }
}

void EnhanceAllGraphs(SeismicStore& s) {
  float gain = 0;
  if (IsLog(s)) {
    OnLogColumns(s, [&](float* a, int n) { Enhance(a, n, gain); });
    return;
  }
  for (int i = 1; i <= s.TestCount; ++i) {
    for (int16_t kind : kStrikeKinds) {
      const int n = CountOf(s, i, kind);
      if (n > 0) Enhance(s.AmplitudeRow(StrikeSlot(kind, i)), n, gain);
    }
  }
}

void EnhanceStep(SeismicStore& s, int test, int kind, bool plus) {
  const int n = CountOf(s, test, kind);
  if (n <= 0) return;
  const float mean = s.StrikeMean(test, kind);
  const float f = plus ? kEnhancePlus : kEnhanceMinus;
  float* a = s.AmplitudeRow(StrikeSlot(kind, test));
  for (int k = 1; k <= n; ++k) a[k] = (a[k] - mean) * f + mean;
}

void ShiftStrike(SeismicStore& s, int test, int kind, bool up) {
  const int n = CountOf(s, test, kind);
  float* a = s.AmplitudeRow(StrikeSlot(kind, test));
  for (int k = 1; k <= n; ++k) a[k] += up ? kShiftStep : -kShiftStep;
}

TimeAxis NiceTimeStep(double max, double min) {
  struct Row {
    double span;
    float step;
    int divisions;
  };
  static constexpr Row kRows[] = {{10, 1, 10},       {20, 2, 1},        {50, 5, 5},        {100, 10, 5},
                                  {200, 20, 4},      {500, 50, 5},      {1000, 100, 5},    {2000, 200, 4},
                                  {5000, 500, 5},    {10000, 1000, 5},  {20000, 2000, 3},  {50000, 5000, 4},
                                  {100000, 10000, 4}, {200000, 20000, 3}, {500000, 50000, 4}};
  const double span = std::fabs(max - min);
  for (const Row& row : kRows) {
    if (span <= row.span) return {row.step, row.divisions};
  }
  return {100000, 4};
}

float SeismicTimeAxisMaxOf(const SeismicStore& s) {
  if (IsLog(s)) return 1;
  float greatest = 0;
  for (int i = 1; i <= s.TestCount; ++i) {
    for (int16_t kind : kStrikeKinds) {
      const int slot = StrikeSlot(kind, i);
      const int n = std::clamp(s.SampleCount[slot], 0, kMaxStrikeSamples);
      if (n > 0) greatest = std::max(greatest, s.StrikeTime(slot, n));
    }
  }
  return greatest;
}

bool TrimAllGraphs(SeismicStore& s, double time_ms, UserPrompts& prompts) {
  if (!(time_ms > 0)) {
    prompts.Tell(kInvalidTime);
    return false;
  }
  for (int i = 1; i <= s.TestCount; ++i) {
    // The PX DAS layout keeps B at twice the count when P is there too, after the legacy records.
    const bool half_rate_b = s.AcquisitionFamily == kSmcFamily && s.HasStrikeB[i] && s.HasStrikeP[i];
    Trim(s, i, time_ms, half_rate_b);
  }
  return true;
}

bool TrimTest(SeismicStore& s, int test, double time_ms, UserPrompts& prompts) {
  if (!(time_ms > 0)) {
    prompts.Tell(kInvalidTime);
    return false;
  }
  Trim(s, test, time_ms, false);
  return true;
}

float TrimTestDefault(const SeismicStore& s, int test) {
  for (int16_t kind : kStrikeKinds) {
    if (!s.HasStrike(kind, test)) continue;
    const int slot = StrikeSlot(kind, test);
    const int n = std::clamp(s.SampleCount[slot], 0, kMaxStrikeSamples);
    return s.StrikeTime(slot, n);
  }
  return 0;
}

void RemoveStrikeKind(SeismicStore& s, int kind) {
  const int last = IsLog(s) ? std::min<int>(1, s.TestCount) : s.TestCount;
  for (int i = 1; i <= last; ++i) {
    if (!s.HasStrike(kind, i)) continue;
    if (s.ArrivalKind[i] == kind) {
      s.DelayTime[i] = 0;
      s.ArrivalSample[i] = 0;
      s.ArrivalKind[i] = kNoStrike;
    }
    s.SetHasStrike(kind, i, false);
  }
  if (IsLog(s)) return;
  for (int i = s.TestCount; i >= 1; --i) {
    if (s.StrikeCountOf(i) == 0) s.DropTest(i);
  }
}

void SetLogGain(SeismicStore& s, float gain) {
  if (s.LogGain == 0) Fail(kErrDivisionByZero);
  const int n = LogCount(s);
  for (int16_t kind : kStrikeKinds) {
    if (!s.HasStrike(kind, 1)) continue;
    const int c = LogColumn(kind);
    for (int k = 1; k <= n; ++k) s.LogAmplitude(k, c) = s.LogAmplitude(k, c) / s.LogGain * gain;
  }
  s.LogGain = gain;
}

void TrimLog(SeismicStore& s, int seconds) {
  if (seconds < 1 || seconds > s.LogSeconds) Fail(kErrSubscript);
  s.LogSeconds = static_cast<int16_t>(seconds);
  s.SampleCount[1] = s.LogSecondEnd[seconds];
}

void ShiftLogStrike(SeismicStore& s, int kind, bool up) {
  if (!s.HasStrike(kind, 1)) return;
  const int n = LogCount(s), c = LogColumn(kind);
  for (int k = 1; k <= n; ++k) s.LogAmplitude(k, c) += up ? kShiftStep : -kShiftStep;
}

}  // namespace marlview
