// The 1990 charts: boundaries of normalised tip against normalised friction ratio or Bq.
#include "core/derivation/sbt1990.h"

#include <cmath>

#include "core/common/runtime_failure.h"

namespace marlview {
namespace {

constexpr double kNudge = 0.00001;

double Pow10(double exponent) { return std::pow(10.0, exponent); }
double Quartic(double f, double c0, double c1, double c2, double c3, double c4) {
  return c0 + c1 * f + c2 * f * f + c3 * f * f * f + c4 * f * f * f * f;
}

}  // namespace

Normalised1990 Normalise1990(double qt, double fs, double u, double u0, double sigma_v, double sigma_eff) {
  // A tip equal to the overburden is moved by a hair so the ratios stay finite; they change sign.
  const double net = qt == sigma_v ? qt - (sigma_v + kNudge) : qt - sigma_v;
  return {(qt - sigma_v) / (sigma_eff == 0 ? kNudge : sigma_eff), 100 * fs / net, (u - u0) / net};
}

double Boundary1990Qt(int curve, double f) {
  switch (curve) {
    case 1: return Quartic(f, 151.18, -78.04, 1576.83, -2307.44, 1624.55);
    case 2: return Quartic(f, 26.15, 7.04, 49.38, -23.55, 6.16);
    case 3: return Quartic(f, 7.673, 0.68, 11.4002, -4.721, 0.8294);
    case 4: return Pow10(5.3558 * std::log10(f) - 1.2027);
    case 5: return Pow10(12.8928 * std::log10(f) - 6.1783);
    case 6: return Quartic(f, 5.0123, -2.1898, 3.351, -0.7415, 0.08035);
    case 7: return Quartic(f, 0.07886, 0.82224, -0.1838, 0.025918, -0.00083187);
    case 8: return Pow10(-2.3866 * std::log10(f) + 3.3177);
    case 9: return Pow10(-1.9115 * std::log10(f) + 3.1199);
    case 10: return Quartic(f, 605.16, -280.8, 54.73, -4.77, 0.1557);
    case 11: return Quartic(f, 11.66, -13.23, 4.41, 0.7095, -0.5156);
    default: Fail(kErrSubscript);
  }
}

int16_t Zone1990Qt(double qn, double f) {
  if (qn <= 1 || qn >= 1000 || f <= 0.1 || f >= 10) {
    // Friction ratios of 10 to 20 % are taken into the chart as clays or stiff fine soils.
    if (qn <= 1 || qn >= 1000 || f <= 10 || f >= 20) return 0;
    return qn < 60 ? 3 : 9;
  }
  // Each boundary is worked out only when its test is reached.
  auto c = [f](int curve) { return Boundary1990Qt(curve, f); };
  if (c(11) > qn) return 1;
  if (c(1) < qn) return 7;
  if (c(2) < qn && c(8) > qn) return 6;
  if (c(3) < qn && c(9) > qn) return 5;
  if (c(6) < qn && c(10) > qn) return 4;
  if (c(7) < qn && c(10) > qn) return 3;
  if (c(7) > qn) return 2;
  return c(4) < qn && c(5) < qn ? 8 : 9;
}

int16_t ClassifySoil1990Qt(double qt, double fs, double sigma_v, double sigma_eff) {
  const Normalised1990 n = Normalise1990(qt, fs, 0, 0, sigma_v, sigma_eff);
  return Zone1990Qt(n.qn, n.fn);
}

int16_t Zone1990Bq(double qn, double b) {
  auto h = [b](double slope, double intercept) { return Pow10(slope * b + intercept); };
  if (qn <= 1 || qn >= 1000 || b <= -0.2 || b >= 1.4) return 0;
  if (b < 0) {
    if (h(23.74157, 3.967879) < qn || h(-1.775331, 0.2698504) > qn) return 0;
    if (qn < h(-0.8438376, 0.6689503)) return 3;
    if (h(-1.135938, 1.029044) > qn) return 4;
    if (h(-0.75822, 1.447429) > qn) return 5;
    return h(-0.6085044, 2.221018) > qn ? 6 : 7;
  }
  if ((h(-11.20391, 3.718103) < qn && h(-0.8030466, 2.137132) < qn) || h(-1.775331, 0.2698504) > qn) return 0;
  if (h(1.700884, -1.365927) > qn) return 1;
  if (qn < h(1.648806, 0.6689503)) return 3;
  if (qn < h(1.891431, 1.029044)) return 4;
  if (h(2.432609, 1.447429) > qn) return 5;
  return h(2.055385, 2.221018) > qn ? 6 : 7;
}

int16_t ClassifySoil1990Bq(double qt, double u, double u0, double sigma_v, double sigma_eff) {
  const Normalised1990 n = Normalise1990(qt, 0, u, u0, sigma_v, sigma_eff);
  return Zone1990Bq(n.qn, n.bq);
}

}  // namespace marlview
