// The two normalised soil behaviour charts of 1990, in closed form; all inputs in psi.
#pragma once

#include <cstdint>

namespace marlview {

struct Normalised1990 {
  double qn;  // (qt - sigmaV) / sigmaEff
  double fn;  // 100 fs / (qt - sigmaV), %
  double bq;  // (u - u0) / (qt - sigmaV)
};

Normalised1990 Normalise1990(double qt, double fs, double u, double u0, double sigma_v, double sigma_eff);

// Zone 1..9 of the normalised friction ratio chart, 0 off the chart.
int16_t ClassifySoil1990Qt(double qt, double fs, double sigma_v, double sigma_eff);
int16_t Zone1990Qt(double qn, double fn);
// Boundary curve C1..C11 of that chart: the Qn on the curve at friction ratio fn (%).
inline constexpr int kBoundaryCurves1990Qt = 11;
double Boundary1990Qt(int curve, double fn);
// Zone of the pore pressure ratio chart, 0 off the chart.
int16_t ClassifySoil1990Bq(double qt, double u, double u0, double sigma_v, double sigma_eff);
int16_t Zone1990Bq(double qn, double bq);

}  // namespace marlview
