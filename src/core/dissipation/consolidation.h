// The horizontal coefficient of consolidation of a dissipation test, from its T50 by the
// strain path solution of Teh and Houlsby (1991).
#pragma once

namespace marlview {

enum FilterPosition : int { kFilterU2 = 0, kFilterU1 = 1 };

struct ChInputs {
  double RigidityIndex = 100;
  // Projected cone area, cm2; a standard cone is 10.
  double ConeAreaCm2 = 10;
  int Filter = kFilterU2;
};

inline constexpr double kSecondsPerYear = 31557600.0;

// The modified time factor T* at 50 % dissipation for the filter position.
double TimeFactor50(int filter);
// ch in m2/s for a T50 in seconds (above 0).
double ChFromT50(double t50_seconds, const ChInputs& inputs);

}  // namespace marlview
