// Robertson's normalised soil behaviour type (2009), with the Qtn of Robertson and Wride (1998):
// the tip is normalised by the effective stress raised to an exponent that itself depends on the
// soil type, so n and Ic are found together by iteration.
#include "core/derivation/normalised_sbt.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "core/derivation/sbt1990.h"

namespace marlview {
namespace {

constexpr int kMaxPasses = 100;
constexpr double kExponentTolerance = 1e-6;

double NormalisedTip(double net, double sigma_eff, double n) {
  return net / kAtmosphericKpa * std::pow(kAtmosphericKpa / sigma_eff, n);
}

// Converts a pressure channel's graph output to kPa, as its own unit over kPa.
class KpaReader {
 public:
  KpaReader(const ChannelValues& v, int c) : v_(v), c_(c) {
    if (c == 0) return;
    const double kpa = v.units.ConversionFactor(kKpaUnit, kPressureGroup);
    if (kpa == 0) Fail(kErrDivisionByZero);
    to_kpa_ = v.units.ConversionFactor(v.s.ChannelDefaultUnit[c], kPressureGroup) / kpa;
  }
  // An absent channel reads 0.
  double operator()(int r) const { return c_ == 0 ? 0 : v_.InDefaultUnit(r, c_) * to_kpa_; }

 private:
  const ChannelValues& v_;
  int c_;
  double to_kpa_ = 0;
};

}  // namespace

double SbtIndex(double qtn, double fr) {
  const double a = 3.47 - std::log10(qtn), b = std::log10(fr) + 1.22;
  return std::sqrt(a * a + b * b);
}

int16_t SbtnZone(double qtn, double fr, double ic) {
  // Sensitive fine soils and the very stiff overconsolidated soils keep their place on the chart;
  // the index cannot tell them from their neighbours.
  const int16_t chart = Zone1990Qt(qtn, fr);
  if (chart == 1 || chart == 8 || chart == 9) return chart;
  if (ic <= 1.31) return 7;
  if (ic <= 2.05) return 6;
  if (ic <= 2.60) return 5;
  if (ic <= 2.95) return 4;
  if (ic <= 3.60) return 3;
  return 2;
}

NormalisedSbt ClassifyNormalised(const NormalisedInput& in) {
  const double net = in.qt - in.sigma_v0;
  if (net <= 0 || in.fs <= 0 || in.sigma_eff <= 0) return {};
  NormalisedSbt out;
  out.fr = 100 * in.fs / net;
  double n = 1;
  for (int pass = 0; pass < kMaxPasses; ++pass) {
    const double ic = SbtIndex(NormalisedTip(net, in.sigma_eff, n), out.fr);
    const double next = std::clamp(0.381 * ic + 0.05 * in.sigma_eff / kAtmosphericKpa - 0.15, 0.0, 1.0);
    const bool settled = std::fabs(next - n) < kExponentTolerance;
    n = next;
    if (settled) break;
  }
  // Qtn and Ic once more with the exponent the channels show, so the three agree.
  out.n = n;
  out.qtn = NormalisedTip(net, in.sigma_eff, n);
  out.ic = SbtIndex(out.qtn, out.fr);
  out.zone = SbtnZone(out.qtn, out.fr, out.ic);
  out.bq = (in.u2 - in.u0) / net;
  return out;
}

NormalisedChannels FindNormalisedChannels(const SoundingStore& s) {
  NormalisedChannels ch;
  const int last = std::min<int>(s.TotalChannels, kMaxChannels);
  for (int c = 1; c <= last; ++c) {
    switch (s.ChannelCatalogueId[c]) {
      case kStressExponentId: ch.n = c; break;
      case kQtnId: ch.qtn = c; break;
      case kFrNormalisedId: ch.fr = c; break;
      case kIcId: ch.ic = c; break;
      case kSbtnId: ch.sbtn = c; break;
      case kBqId: ch.bq = c; break;
      default: break;
    }
  }
  return ch;
}

void CalculateNormalisedSbt(ChannelValues& v, const NormalisedChannels& ch) {
  SoundingStore& s = v.s;
  const int qt_channel = v.TipSource();
  const int sigma_v0_channel = s.OverburdenChannel;
  const int sigma_eff_channel = s.EffOverburdenChannel != 0 ? s.EffOverburdenChannel : sigma_v0_channel;
  const KpaReader qt(v, qt_channel), fs(v, s.SleeveChannel), sigma_v0(v, sigma_v0_channel),
      sigma_eff(v, sigma_eff_channel), u2(v, s.PorePressureChannel), u0(v, s.HeadPressureChannel);
  // Only a file with voids marks readings missing; the others are spared the look-up.
  std::vector<int> may_miss;
  for (int c : {qt_channel, int{s.TipChannel}, int{s.SleeveChannel}, int{s.PorePressureChannel}, sigma_v0_channel,
                sigma_eff_channel, int{s.HeadPressureChannel}}) {
    if (c != 0 && s.MissingReading.RowsHeld(c) != 0) may_miss.push_back(c);
  }
  const std::array<int, 5> outputs = {ch.n, ch.qtn, ch.fr, ch.ic, ch.bq};
  for (int r = 1; r <= s.ReadingCount; ++r) {
    const bool missing =
        std::any_of(may_miss.begin(), may_miss.end(), [&s, r](int c) { return s.IsMissing(r, c); });
    NormalisedSbt sbt;
    if (!missing) sbt = ClassifyNormalised({qt(r), fs(r), sigma_v0(r), sigma_eff(r), u2(r), u0(r)});
    const std::array<double, 5> values = {sbt.n, sbt.qtn, sbt.fr, sbt.ic, sbt.bq};
    for (size_t i = 0; i < outputs.size(); ++i) {
      if (outputs[i] == 0) continue;
      v.SetKinds(r, outputs[i], values[i]);
      v.SetMirrors(r, outputs[i], values[i]);
    }
    v.SetZone(r, ch.sbtn, sbt.zone);
  }
}

}  // namespace marlview
