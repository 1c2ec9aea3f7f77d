// The 1986 charts: each zone boundary is ten to the power of a polynomial, giving a tip in MPa.
#include "core/derivation/sbt1986.h"

#include <cmath>

namespace marlview {
namespace {

double Pow10(double exponent) { return std::pow(10.0, exponent); }

}  // namespace

int16_t ClassifySoil1986Friction(double q, double r) {
  if (!(r >= 0 && r <= 8 && q >= 0.1 && q <= 100)) return 0;
  // Each boundary is worked out only when its test is reached; the tests run in the chart's order.
  const double r2 = r * r, r3 = r2 * r, r4 = r3 * r;
  auto a1 = [&] { return Pow10(0.0329 * r - 1); };
  auto a2 = [&] { return Pow10(0.1415 * r - 1.433); };
  auto a3 = [&] { return Pow10(0.001601 * r + 0.7638); };
  auto a4 = [&] { return Pow10(-0.3224 * r + 2.331); };
  auto a5 = [&] { return Pow10(-21.85 * r3 + 131 * r2 - 262.4 * r + 177.2); };
  auto a6 = [&] { return Pow10(-0.02305 * r4 + 0.05842 * r3 - 0.123 * r2 - 0.01447 * r - 0.001068); };
  auto a7 = [&] { return Pow10(0.01371 * r3 - 0.07343 * r2 + 0.3159 * r - 0.8289); };
  auto a8 = [&] { return Pow10(0.01532 * r3 - 0.06146 * r2 + 0.2602 * r - 0.544); };
  auto a9 = [&] { return Pow10(0.02183 * r3 - 0.07234 * r2 + 0.2767 * r - 0.2224); };
  auto a10 = [&] { return Pow10(0.9264 * r - 2.563); };
  auto a11 = [&] { return Pow10(0.06953 * r2 + 0.1194 * r + 0.1662); };
  auto a12 = [&] { return Pow10(0.1322 * r2 + 0.104 * r + 0.5019); };
  auto a13 = [&] { return Pow10(0.3023 * r4 - 0.8252 * r3 + 0.9256 * r2 - 0.1688 * r + 0.8847); };
  auto a14 = [&] { return Pow10(0.8188 * r4 - 1.512 * r3 + 1.124 * r2 - 0.003238 * r + 1.255); };

  if ((r < 3.988 && a1() > q) || a2() > q) return 2;
  if (a6() > q) return 1;
  if (a3() < q && a4() < q && r < 2.2002272 && a5() < q) {
    // The second limit always holds here; the charts' own code tests it all the same.
    return r < 4.5986 && a10() < q ? 12 : 11;
  }
  if (a7() > q) return 3;
  if (a8() > q) return 4;
  if (a9() > q) return 5;
  if (a11() > q) return 6;
  if (a12() > q) return 7;
  if (a13() > q) return 8;
  return a14() <= q ? 10 : 9;
}

int16_t ClassifySoil1986PorePressure(double qt, double u, double u0, double sigma_v, double) {
  const double q = qt / 145.033;
  if (qt == sigma_v) return -9;
  return Zone1986PorePressure(q, (u - u0) / (qt - sigma_v));
}

int16_t Zone1986PorePressure(double q, double bq) {
  auto g = [bq](double slope, double intercept) { return Pow10(slope * bq + intercept); };
  // Below and above zero the pore pressure ratio has its own boundary.
  auto below = [&](double slope_negative, double slope_positive, double intercept) {
    return (bq <= 0 && g(slope_negative, intercept) > q) || (bq > 0 && g(slope_positive, intercept) > q);
  };
  if (!(bq >= -0.2 && bq <= 1.4 && q >= 0.1 && q <= 100)) return 0;
  if ((g(65.09, 3.699) < q && g(39.51, 2.796) < q) || g(-1.741, -0.6691) > q) return 0;
  if (bq > 0.05 && g(-4.289, 1.893) < q && g(-0.8467, 1.14) < q) return 0;
  if (g(0.9024, -1.209) > q && g(-1.021, -0.1836) > q) return 2;
  if (g(1.894, -2.515) > q) return 1;
  if (below(-1.361, 1.35, -0.4935)) return 3;
  if (below(-1.162, 2.253, -0.2803)) return 4;
  if (below(-1.708, 3.473, -0.06253)) return 5;
  if (below(-1.544, 4.086, 0.2398)) return 6;
  if (below(-1.631, 5.137, 0.5235)) return 7;
  if (below(-1.079, 6.317, 0.8743)) return 8;
  if (below(-0.959, 6.254, 1.367)) return 9;
  return 10;
}

}  // namespace marlview
