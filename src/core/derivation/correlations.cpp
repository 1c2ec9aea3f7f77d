// Correlations gated by the 1990 zone: friction angle in sands, shear strength in fine soils.
#include "core/derivation/correlations.h"

#include <cmath>

namespace marlview {
namespace {

// The pi of the published correlation's worked tables.
constexpr double kCorrelationPi = 3.141592;

}  // namespace

void CalculateFrictionAngle(ChannelValues& v, int c) {
  const SoundingStore& s = v.s;
  for (int r = 1; r <= s.ReadingCount; ++r) {
    if (v.Kind(r, s.Sbt90QtChannel, 0) < 4 || v.Kind(r, s.OverburdenChannel, 0) == 0 ||
        v.Kind(r, s.TipChannel, 0) <= 0) {
      v.SetKinds(r, c, 0);
      continue;
    }
    for (int k = 0; k < kOutputKinds; ++k) {
      // The measured tip over the total overburden, as the correlation was published.
      const float x = ToSingle(v.InDefaultUnit(r, s.TipChannel, k) / v.InDefaultUnit(r, s.OverburdenChannel, k));
      if (x <= 0) Fail(kErrInvalidCall);
      v.SetKind(r, c, k, std::atan(0.38 * std::log(x) / std::log(10.0) + 0.1) * 180 / kCorrelationPi);
    }
    v.SetMirrors(r, c, v.Kind(r, c, 0));
  }
}

void CalculateShearStrength(ChannelValues& v, int c, double nk) {
  const SoundingStore& s = v.s;
  const int unit = v.PressureUnit();
  for (int r = 1; r <= s.ReadingCount; ++r) {
    if (v.Kind(r, s.Sbt90QtChannel, 0) > 5) {
      v.SetKinds(r, c, 0);
      continue;
    }
    const double su = (v.InDefaultUnit(r, s.TipChannel) - v.InDefaultUnit(r, s.OverburdenChannel)) / nk;
    for (int k = 0; k < kOutputKinds; ++k) v.SetKind(r, c, k, su * v.Factor(c, k));
    for (int m = 0; m < kFixedPressureTables; ++m) v.SetMirror(r, c, m, su * v.ToMirrorUnit(unit, m));
  }
}

void CalculateOverConsolidation(ChannelValues& v, int c) {
  const SoundingStore& s = v.s;
  for (int r = 1; r <= s.ReadingCount; ++r) {
    if (v.Kind(r, s.EffOverburdenChannel, 0) == 0) {
      v.SetKinds(r, c, 0);
      continue;
    }
    // The corrected tip is brought to its own unit with the measured tip's factor.
    const double qt = s.TipQtChannel == 0 ? 0 : v.Kind(r, s.TipQtChannel, 0) / v.Factor(s.TipChannel, 0);
    const double ratio = (qt - v.InDefaultUnit(r, s.OverburdenChannel)) / v.InDefaultUnit(r, s.EffOverburdenChannel);
    const double ocr = ratio <= 0 ? 0 : ratio * 0.3;
    v.SetKinds(r, c, ocr);
    v.SetMirrors(r, c, ocr);
  }
}

}  // namespace marlview
