// Number and text formatting on std::to_chars: no locale is consulted, the point is always ".".
#include "core/common/number_format.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>

namespace marlview {
namespace {

// A non-negative decimal number 0.d1d2...dn * 10^point; no digits means zero.
struct Decimal {
  std::string digits;  // No trailing zeros.
  int point = 0;
};

// The pieces of a numeric pattern; the exponent fields are used only when scientific is set.
struct Pattern {
  std::string_view integer;   // Before the point (the mantissa's, for a scientific pattern).
  bool has_point = false;
  std::string_view fraction;  // After the point.
  bool scientific = false;
  std::string_view exponent_marker;  // "E+", "E-", "e+" or "e-".
  std::string_view exponent;         // After the marker.
};

bool IsPlaceholder(char c) { return c == '0' || c == '#'; }

int CountPlaceholders(std::string_view section) {
  return static_cast<int>(std::count_if(section.begin(), section.end(), IsPlaceholder));
}

// Drops trailing zeros so that zero is exactly "no digits".
void Normalize(Decimal& number) {
  while (!number.digits.empty() && number.digits.back() == '0') number.digits.pop_back();
  if (number.digits.empty()) number.point = 0;
}

// Assumes value is finite; the sign is ignored. Reads the shortest text that round-trips, so that
// 2.675 rounds as the 2.675 the user typed rather than as its binary neighbour 2.67499999...
Decimal ToDecimal(double value) {
  char buffer[64];
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, std::fabs(value),
                                    std::chars_format::scientific);
  const std::string_view text(buffer, static_cast<size_t>(result.ptr - buffer));
  const size_t e = text.find('e');
  Decimal number;
  for (char c : text.substr(0, e)) {
    if (c != '.') number.digits.push_back(c);
  }
  number.point = std::atoi(std::string(text.substr(e + 1)).c_str()) + 1;
  Normalize(number);
  return number;
}

// Keeps the first `keep` digits, rounding half away from zero; a carry out of the first digit
// moves the point ("999" kept to 2 becomes "1" one place higher).
void RoundToDigits(Decimal& number, int keep) {
  if (keep >= static_cast<int>(number.digits.size())) return;
  if (keep < 0) {
    number.digits.clear();
    Normalize(number);
    return;
  }
  const bool round_up = number.digits[static_cast<size_t>(keep)] >= '5';
  number.digits.resize(static_cast<size_t>(keep));
  if (round_up) {
    int i = keep - 1;
    while (i >= 0 && number.digits[static_cast<size_t>(i)] == '9') {
      number.digits[static_cast<size_t>(i)] = '0';
      --i;
    }
    if (i >= 0) {
      ++number.digits[static_cast<size_t>(i)];
    } else {
      number.digits.insert(number.digits.begin(), '1');
      ++number.point;
    }
  }
  Normalize(number);
}

// The digits in front of the point, without leading zeros ("" for a number below 1).
std::string IntegerDigits(const Decimal& number) {
  if (number.point <= 0) return "";
  std::string digits = number.digits.substr(0, static_cast<size_t>(number.point));
  digits.resize(static_cast<size_t>(number.point), '0');
  return digits;
}

// The first `count` digits after the point, zero-padded.
std::string FractionDigits(const Decimal& number, int count) {
  std::string digits;
  for (int i = 0; i < count; ++i) {
    const int index = number.point + i;
    const bool inside = index >= 0 && index < static_cast<int>(number.digits.size());
    digits.push_back(inside ? number.digits[static_cast<size_t>(index)] : '0');
  }
  return digits;
}

// Assumes digits has no leading zeros. Fills the placeholders right to left; zeros pad from the
// first '0' on, and digits beyond the placeholders all go into the leftmost one. A section with
// no placeholder takes the digits at its end.
std::string RenderIntegerSection(std::string_view section, std::string digits) {
  const int placeholders = CountPlaceholders(section);
  const size_t first_zero = section.find('0');
  const int mandatory =
      first_zero == std::string_view::npos ? 0 : CountPlaceholders(section.substr(first_zero));
  if (static_cast<int>(digits.size()) < mandatory) {
    digits.insert(0, static_cast<size_t>(mandatory) - digits.size(), '0');
  }
  if (placeholders == 0) return std::string(section) + digits;
  std::string out;
  int placeholders_left = placeholders;
  for (auto c = section.rbegin(); c != section.rend(); ++c) {
    if (!IsPlaceholder(*c)) {
      out.insert(out.begin(), *c);
      continue;
    }
    --placeholders_left;
    const size_t take = placeholders_left == 0 ? digits.size() : std::min<size_t>(1, digits.size());
    out.insert(0, digits.substr(digits.size() - take));
    digits.resize(digits.size() - take);
  }
  return out;
}

// Assumes digits holds one digit per placeholder. A '#' shows its digit only when a nonzero digit
// or a '0' placeholder follows it, so trailing zeros in optional places are dropped.
std::string RenderFractionSection(std::string_view section, const std::string& digits) {
  int last_shown = -1;
  int index = 0;
  for (char c : section) {
    if (!IsPlaceholder(c)) continue;
    if (c == '0' || digits[static_cast<size_t>(index)] != '0') last_shown = index;
    ++index;
  }
  std::string out;
  index = 0;
  for (char c : section) {
    if (!IsPlaceholder(c)) {
      out.push_back(c);
      continue;
    }
    if (index <= last_shown) out.push_back(digits[static_cast<size_t>(index)]);
    ++index;
  }
  return out;
}

// Assumes the left-alignment '!' is already removed. The exponent marker is the first E or e
// followed by a sign; the point is the first '.' in front of it.
Pattern SplitPattern(std::string_view text) {
  Pattern pattern;
  for (size_t i = 0; i + 1 < text.size(); ++i) {
    if ((text[i] == 'E' || text[i] == 'e') && (text[i + 1] == '+' || text[i + 1] == '-')) {
      pattern.scientific = true;
      pattern.exponent_marker = text.substr(i, 2);
      pattern.exponent = text.substr(i + 2);
      text = text.substr(0, i);
      break;
    }
  }
  const size_t point = text.find('.');
  pattern.has_point = point != std::string_view::npos;
  pattern.integer = text.substr(0, point);
  if (pattern.has_point) pattern.fraction = text.substr(point + 1);
  return pattern;
}

// Assumes number is rounded to the pattern's fraction placeholders.
std::string RenderFixed(const Decimal& number, const Pattern& pattern) {
  std::string out = RenderIntegerSection(pattern.integer, IntegerDigits(number));
  if (pattern.has_point) out.push_back('.');
  const int fraction_places = CountPlaceholders(pattern.fraction);
  out += RenderFractionSection(pattern.fraction, FractionDigits(number, fraction_places));
  return out;
}

// Assumes number is rounded to the pattern's significant digits. The mantissa gets as many integer
// digits as the pattern has placeholders before the point (none: normalised to .xxxx).
std::string RenderScientific(Decimal number, const Pattern& pattern) {
  const int integer_places = CountPlaceholders(pattern.integer);
  const int exponent = number.digits.empty() ? 0 : number.point - integer_places;
  number.point -= exponent;
  std::string out = RenderFixed(number, pattern);
  out += pattern.exponent_marker[0];
  if (exponent < 0) {
    out.push_back('-');
  } else if (pattern.exponent_marker[1] == '+') {
    out.push_back('+');
  }
  const std::string exponent_digits = exponent == 0 ? "" : std::to_string(std::abs(exponent));
  return out + RenderIntegerSection(pattern.exponent, exponent_digits);
}

// Assumes value is finite. Zero loses its sign, as "-0" would only confuse a reader.
std::string ShortestDecimalText(double value) {
  if (value == 0) return "0";
  char buffer[64];
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
  return std::string(buffer, result.ptr);
}

}  // namespace

std::string FormatNumber(double value, std::string_view pattern) {
  if (std::isnan(value)) return "NaN";
  if (std::isinf(value)) return value < 0 ? "-Inf" : "Inf";
  if (!pattern.empty() && pattern.back() == '!') pattern.remove_suffix(1);
  if (pattern.empty()) return ShortestDecimalText(value);

  const Pattern parts = SplitPattern(pattern);
  Decimal number = ToDecimal(value);
  const int fraction_places = CountPlaceholders(parts.fraction);
  if (parts.scientific) {
    RoundToDigits(number, CountPlaceholders(parts.integer) + fraction_places);
  } else {
    RoundToDigits(number, number.point + fraction_places);
  }
  const std::string body =
      parts.scientific ? RenderScientific(number, parts) : RenderFixed(number, parts);
  // A value that rounds to all zeros is shown without its sign.
  const bool negative = std::signbit(value) && !number.digits.empty();
  return negative ? "-" + body : body;
}

std::string FormatText(std::string_view text, std::string_view mask) {
  const bool left_aligned = !mask.empty() && mask.front() == '!';
  const size_t width = static_cast<size_t>(std::count(mask.begin(), mask.end(), '@'));
  if (width == 0) return std::string(text);
  if (left_aligned) {
    std::string out(text.substr(0, width));
    out.resize(width, ' ');
    return out;
  }
  if (text.size() >= width) return std::string(text);
  return std::string(width - text.size(), ' ') + std::string(text);
}

}  // namespace marlview
