// Axis limits rounded to a step from a fixed table, with the major and minor division counts, and
// the axis labels; shared by the dissipation plot and the verification chart.
#pragma once

#include <cstdint>
#include <string>

namespace marlview {

// Chooses the step and minor count from the span |max - min|, moves min down and max up to
// multiples of the step, and counts the major divisions between them.
void SetAxisScale(float& max, float& min, float& step, int16_t& major_count, int16_t& minor_count);

// A label of such an axis: whole numbers without a decimal point, others to two places.
std::string AxisLabel(double value);

}  // namespace marlview
