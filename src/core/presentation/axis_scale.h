// Axis limits rounded to a step from a fixed table, with the major and minor division counts;
// shared by the dissipation plot and the verification chart.
#pragma once

#include <cstdint>

namespace marlview {

// Chooses the step and minor count from the span |max - min|, moves min down and max up to
// multiples of the step, and counts the major divisions between them.
void SetAxisScale(float& max, float& min, float& step, int16_t& major_count, int16_t& minor_count);

}  // namespace marlview
