// The axis step table and the snapping of the limits to its steps.
#include "core/presentation/axis_scale.h"

#include <cmath>

#include "core/common/number_format.h"

namespace marlview {
namespace {

struct StepRow {
  double up_to;
  float step;
  int16_t minor;
};
constexpr StepRow kStepRows[] = {
    {10, 1, 10},      {20, 2, 1},       {50, 5, 5},         {100, 10, 5},       {200, 20, 4},
    {500, 50, 5},     {1000, 100, 5},   {2000, 200, 4},     {5000, 500, 5},     {10000, 1000, 5},
    {20000, 2000, 3}, {50000, 5000, 4}, {100000, 10000, 4}, {200000, 20000, 3}, {500000, 50000, 4},
};
constexpr float kWidestStep = 100000;
constexpr int16_t kWidestMinor = 4;
constexpr float kWidestMax = 1000000;
// Limits are snapped by a scan over this many multiples; a limit beyond it stays as it is.
constexpr int kSnapMultiples = 1000;

// The multiple of step at or below value.
float SnapDown(float value, float step) {
  if (value >= 0) {
    for (int n = 1; n <= kSnapMultiples; ++n) {
      if (value < step * static_cast<float>(n)) return step * static_cast<float>(n - 1);
    }
    return value;
  }
  for (int n = 1; n <= kSnapMultiples; ++n) {
    if (-step * static_cast<float>(n) <= value) return -step * static_cast<float>(n);
  }
  return value;
}

// The multiple of step at or above value; a limit of 0 moves up to one step.
float SnapUp(float value, float step) {
  if (value >= 0) {
    for (int n = 1; n <= kSnapMultiples; ++n) {
      if (step * static_cast<float>(n) >= value) return step * static_cast<float>(n);
    }
    return value;
  }
  for (int n = 1; n <= kSnapMultiples; ++n) {
    if (-step * static_cast<float>(n) < value) return -step * static_cast<float>(n - 1);
  }
  return value;
}

}  // namespace

void SetAxisScale(float& max, float& min, float& step, int16_t& major_count, int16_t& minor_count) {
  const double range = std::fabs(static_cast<double>(max) - static_cast<double>(min));
  step = kWidestStep;
  minor_count = kWidestMinor;
  bool found = false;
  for (const StepRow& row : kStepRows) {
    if (range <= row.up_to) {
      step = row.step;
      minor_count = row.minor;
      found = true;
      break;
    }
  }
  if (!found) {
    max = kWidestMax;
    min = 0;
  }
  min = SnapDown(min, step);
  max = SnapUp(max, step);
  if (max - min == 1) {
    step = 1;
    minor_count = 10;
  }
  major_count = static_cast<int16_t>(std::lround((max - min) / step));
}

std::string AxisLabel(double value) {
  return FormatNumber(value, std::fabs(value - std::round(value)) < 1e-9 ? "###0" : "####0.0#");
}

}  // namespace marlview
