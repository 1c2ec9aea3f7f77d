#include "core/dissipation/consolidation.h"

#include <cmath>
#include <numbers>

namespace marlview {

double TimeFactor50(int filter) { return filter == kFilterU1 ? 0.118 : 0.245; }

double ChFromT50(double t50_seconds, const ChInputs& inputs) {
  // The cone radius from its area, cm to m.
  const double radius = std::sqrt(inputs.ConeAreaCm2 / std::numbers::pi) / 100.0;
  return TimeFactor50(inputs.Filter) * radius * radius * std::sqrt(inputs.RigidityIndex) / t50_seconds;
}

}  // namespace marlview
