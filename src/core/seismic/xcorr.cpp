// The cross-correlation of successive tests: the mean product of the two centred waves at each
// lag, the best lag refined between samples by a parabola, and the slant-path velocity over it.
#include "core/seismic/xcorr.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace marlview {
namespace {

// A strike's samples 1..n with its mean taken off, at index s - 1.
std::vector<double> Centred(const SeismicStore& s, int slot, int n) {
  std::vector<double> wave(static_cast<size_t>(n));
  double sum = 0;
  for (int k = 1; k <= n; ++k) sum += wave[static_cast<size_t>(k - 1)] = s.StrikeAmplitude(slot, k);
  const double mean = n > 0 ? sum / n : 0;
  for (double& value : wave) value -= mean;
  return wave;
}

// The sum of a[k] * b[k] over n terms, in four running sums so the loop keeps the processor's
// pipelines full: a full record of 30000 samples is correlated at up to 1000 lags per pair.
double ProductSum(const double* a, const double* b, int n) {
  double s0 = 0, s1 = 0, s2 = 0, s3 = 0;
  int k = 0;
  for (; k + 4 <= n; k += 4) {
    s0 += a[k] * b[k];
    s1 += a[k + 1] * b[k + 1];
    s2 += a[k + 2] * b[k + 2];
    s3 += a[k + 3] * b[k + 3];
  }
  for (; k < n; ++k) s0 += a[k] * b[k];
  return (s0 + s1) + (s2 + s3);
}

struct PairResult {
  bool correlated = false;
  double lag_samples = 0;
  double coefficient = 0;
};

// x the reference wave, y the deeper one, both over the samples first..last (1-based).
PairResult Correlate(const std::vector<double>& x, const std::vector<double>& y, int first, int last,
                     double interval_ms) {
  PairResult result;
  const int length = last - first + 1;
  const int max_lag = std::min(length - 1, static_cast<int>(std::floor(kMaxXcorrLagMs / interval_ms + 1e-6)));
  if (max_lag < 1) return result;
  auto at = [](const std::vector<double>& wave, int s) { return wave[static_cast<size_t>(s - 1)]; };
  std::vector<double> c(static_cast<size_t>(max_lag) + 1, 0.0);
  int best = 1;
  for (int lag = 1; lag <= max_lag; ++lag) {
    c[static_cast<size_t>(lag)] =
        ProductSum(&x[static_cast<size_t>(first - 1)], &y[static_cast<size_t>(first - 1 + lag)],
                   last - lag - first + 1) /
        (last - lag - first + 1);
    if (c[static_cast<size_t>(lag)] > c[static_cast<size_t>(best)]) best = lag;
  }
  const double peak = c[static_cast<size_t>(best)];
  if (!(peak > 0)) return result;
  double delta = 0;
  if (best > 1 && best < max_lag) {
    const double before = c[static_cast<size_t>(best - 1)], after = c[static_cast<size_t>(best + 1)];
    const double curvature = before - 2 * peak + after;
    if (curvature != 0) delta = (before - after) / (2 * curvature);
  }
  double xx = 0, yy = 0;
  for (int s = first; s + best <= last; ++s) {
    xx += at(x, s) * at(x, s);
    yy += at(y, s + best) * at(y, s + best);
  }
  const int overlap = last - best - first + 1;
  const double scale = std::sqrt(xx / overlap * (yy / overlap));
  result.correlated = true;
  result.lag_samples = best + delta;
  result.coefficient = scale > 0 ? peak / scale : 0;
  return result;
}

}  // namespace

int16_t XcorrKindOf(const SeismicStore& store, int reference, int test, int16_t chosen) {
  auto shared = [&](int16_t kind) { return store.HasStrike(kind, reference) && store.HasStrike(kind, test); };
  if (chosen != kNoStrike) return shared(chosen) ? chosen : kNoStrike;
  for (int16_t kind : {kStrikeA, kStrikeB}) {
    if (shared(kind)) return kind;
  }
  return kNoStrike;
}

void ForgetXcorr(SeismicStore& s) {
  s.XcorrVelocity.Fill(0);
  s.XcorrLagSamples.Fill(0);
  s.XcorrCoefficient.Fill(0);
  s.XcorrComputed = false;
}

void CrossCorrelateTests(SeismicStore& s, UserPrompts& prompts, const XcorrOptions& options) {
  ForgetXcorr(s);
  for (int i = 2; i <= s.TestCount; ++i) {
    const int r = i - 1;
    const int16_t kind = XcorrKindOf(s, r, i, options.kind);
    if (kind == kNoStrike) continue;
    const std::string pair = std::to_string(r) + " AND " + std::to_string(i);
    const double interval = s.SampleInterval[i];
    if (s.SampleInterval[r] != s.SampleInterval[i] || !(interval > 0)) {
      prompts.Tell("SAMPLE INTERVALS OF TESTS " + pair + " DIFFER");
      continue;
    }
    const int slot_x = StrikeSlot(kind, r), slot_y = StrikeSlot(kind, i);
    // A count a damaged file left below 0 has no samples.
    const int last = std::max(0, std::min({s.SampleCount[slot_x], s.SampleCount[slot_y], kMaxStrikeSamples}));
    int first = 1;
    while (first <= last &&
           (s.StrikeTime(slot_x, first) < options.skip_ms || s.StrikeTime(slot_y, first) < options.skip_ms)) {
      ++first;
    }
    const PairResult found =
        Correlate(Centred(s, slot_x, last), Centred(s, slot_y, last), first, last, interval);
    if (!found.correlated) {
      prompts.Tell("NO CORRELATION BETWEEN TESTS " + pair);
      continue;
    }
    s.XcorrLagSamples[i] = static_cast<float>(found.lag_samples);
    s.XcorrCoefficient[i] = static_cast<float>(found.coefficient);
    const double h = s.HammerDistance, depth = s.TestDepth[i], above = s.TestDepth[r];
    // A test no deeper than its reference has no interval to travel.
    if (depth <= above) continue;
    const double path = std::sqrt(depth * depth + h * h) - std::sqrt(above * above + h * h);
    s.XcorrVelocity[i] = static_cast<float>(path / (found.lag_samples * interval) * 1000);
  }
  s.XcorrComputed = true;
}

}  // namespace marlview
