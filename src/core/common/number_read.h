// The number readers: lenient for header and settings values, strict for table and data fields.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

#include "core/common/runtime_failure.h"

namespace marlview {

// The leading number of a text, 0 when there is none ("2.40 => Water Table" gives 2.4, "abc" 0).
// Blanks in front are skipped.
double LenientNumber(std::string_view text);

// A field that must be a number: blanks around it are allowed, nothing else. Anything else fails
// with "Type mismatch"; a value beyond the range of a 32-bit float fails with "Overflow".
double StrictNumber(std::string_view field);
// The strict read for a reader that refuses with its own message: nothing where StrictNumber fails.
std::optional<double> StrictNumberOrNone(std::string_view field);

// Reads a number as the PX DAS field computers wrote it, strictly otherwise. The locale reads only
// its own decimal separator, so the other one is turned into it first: with decimal_comma a "."
// becomes ",", otherwise a "," becomes "."; a file written under either locale reads the same.
double ParseNumber(std::string_view text, bool decimal_comma = false);
// The same, lenient: a text that is not a number gives 0.
double ParseLocalNumber(std::string_view text);

// A value stored in a 32-bit field; a value beyond its range is "Overflow".
inline float ToSingle(double value) {
  if (!(std::fabs(value) <= std::numeric_limits<float>::max())) Fail(kErrOverflow);
  return static_cast<float>(value);
}

// A value stored in a 16-bit field; a value beyond its range is "Overflow".
inline int16_t ToInteger16(double value) {
  const double rounded = std::nearbyint(value);
  if (!(rounded >= -32768 && rounded <= 32767)) Fail(kErrOverflow);
  return static_cast<int16_t>(rounded);
}

// The shortest text that reads back to the same 32-bit float ("1.5", "0.1", "-32768").
std::string ShortestText(float value);
// ShortestText onto the end of out.
void AppendShortestText(std::string& out, float value);
// The shortest text that reads back to the same double.
std::string ShortestText(double value);

}  // namespace marlview
