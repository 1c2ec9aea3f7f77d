// The two soil behaviour charts of 1986, friction ratio and pore pressure ratio, in closed form.
#pragma once

#include <cstdint>

namespace marlview {

// Zone 1..12 of the friction ratio chart for tip q (MPa) and friction ratio r (%), 0 off the chart.
int16_t ClassifySoil1986Friction(double q, double r);
// Zone of the pore pressure chart for corrected tip qt, pore pressure u, hydrostatic pressure u0 and
// total and effective overburden; -9 where the tip equals the total overburden.
int16_t ClassifySoil1986PorePressure(double qt, double u, double u0, double sigma_v, double sigma_eff);
// The zone tests of the pore pressure chart for tip q (MPa) and pore pressure ratio Bq.
int16_t Zone1986PorePressure(double q, double bq);

}  // namespace marlview
