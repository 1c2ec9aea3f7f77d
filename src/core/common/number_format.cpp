// Number and text formatting on std::to_chars: no locale is consulted, the point is always ".".
// Every number is rendered straight onto the end of the caller's text, so an export of 10000
// readings formats its cells without a heap allocation of its own.
#include "core/common/number_format.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>

namespace marlview {
namespace {

// A non-negative decimal number 0.d1d2...dn * 10^point; no digits means zero. The shortest text of
// a double has at most 17 significant digits, and rounding adds at most one.
struct Decimal {
  char digits[24];
  int size = 0;  // No trailing zeros.
  int point = 0;

  // Digit i of the significand, '0' past the last one.
  char Digit(int i) const { return i >= 0 && i < size ? digits[i] : '0'; }
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
  while (number.size > 0 && number.digits[number.size - 1] == '0') --number.size;
  if (number.size == 0) number.point = 0;
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
    if (c != '.') number.digits[number.size++] = c;
  }
  // The exponent as to_chars writes it: "e+05", "e-120".
  std::string_view exponent = text.substr(e + 1);
  if (!exponent.empty() && exponent.front() == '+') exponent.remove_prefix(1);
  int power = 0;
  std::from_chars(exponent.data(), exponent.data() + exponent.size(), power);
  number.point = power + 1;
  Normalize(number);
  return number;
}

// Keeps the first `keep` digits, rounding half away from zero; a carry out of the first digit
// moves the point ("999" kept to 2 becomes "1" one place higher).
void RoundToDigits(Decimal& number, int keep) {
  if (keep >= number.size) return;
  if (keep < 0) {
    number.size = 0;
    Normalize(number);
    return;
  }
  const bool round_up = number.digits[keep] >= '5';
  number.size = keep;
  if (round_up) {
    int i = keep - 1;
    while (i >= 0 && number.digits[i] == '9') {
      number.digits[i] = '0';
      --i;
    }
    if (i >= 0) {
      ++number.digits[i];
    } else {
      // Every kept digit was a nine: the number is now a one, a place higher.
      number.digits[0] = '1';
      number.size = 1;
      ++number.point;
    }
  }
  Normalize(number);
}

// Appends an integer section. The digits are digit(0..count-1), without leading zeros; zeros pad
// them from the first '0' placeholder on. The placeholders are filled right to left, and digits
// beyond the placeholders all go into the leftmost one. A section with no placeholder takes the
// digits at its end.
template <typename DigitAt>
void AppendIntegerSection(std::string& out, std::string_view section, int count, DigitAt digit) {
  const int placeholders = CountPlaceholders(section);
  const size_t first_zero = section.find('0');
  const int mandatory = first_zero == std::string_view::npos ? 0 : CountPlaceholders(section.substr(first_zero));
  const int padding = std::max(0, mandatory - count);
  const int total = padding + count;
  auto padded = [&](int i) { return i < padding ? '0' : digit(i - padding); };
  if (placeholders == 0) {
    out += section;
    for (int i = 0; i < total; ++i) out.push_back(padded(i));
    return;
  }
  // Every digit is placed and every other character of the section kept, so the length is known
  // and the section is written right to left in place.
  const size_t start = out.size();
  out.resize(start + section.size() - static_cast<size_t>(placeholders) + static_cast<size_t>(total));
  size_t at = out.size();
  int remaining = total;
  int placeholders_left = placeholders;
  for (auto c = section.rbegin(); c != section.rend(); ++c) {
    if (!IsPlaceholder(*c)) {
      out[--at] = *c;
      continue;
    }
    --placeholders_left;
    const int take = placeholders_left == 0 ? remaining : std::min(1, remaining);
    for (int i = 0; i < take; ++i) out[--at] = padded(--remaining);
  }
}

// Appends a fraction section whose placeholders take digit(0), digit(1), ... A '#' shows its
// digit only when a nonzero digit or a '0' placeholder follows it, so trailing zeros in optional
// places are dropped.
template <typename DigitAt>
void AppendFractionSection(std::string& out, std::string_view section, DigitAt digit) {
  int last_shown = -1;
  int index = 0;
  for (char c : section) {
    if (!IsPlaceholder(c)) continue;
    if (c == '0' || digit(index) != '0') last_shown = index;
    ++index;
  }
  index = 0;
  for (char c : section) {
    if (!IsPlaceholder(c)) {
      out.push_back(c);
      continue;
    }
    if (index <= last_shown) out.push_back(digit(index));
    ++index;
  }
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
void AppendFixed(std::string& out, const Decimal& number, const Pattern& pattern) {
  // The digits in front of the point, without leading zeros (none for a number below 1).
  const int integer_digits = std::max(number.point, 0);
  AppendIntegerSection(out, pattern.integer, integer_digits, [&](int i) { return number.Digit(i); });
  if (pattern.has_point) out.push_back('.');
  AppendFractionSection(out, pattern.fraction, [&](int i) { return number.Digit(number.point + i); });
}

// Assumes number is rounded to the pattern's significant digits. The mantissa gets as many integer
// digits as the pattern has placeholders before the point (none: normalised to .xxxx).
void AppendScientific(std::string& out, Decimal number, const Pattern& pattern) {
  const int integer_places = CountPlaceholders(pattern.integer);
  const int exponent = number.size == 0 ? 0 : number.point - integer_places;
  number.point -= exponent;
  AppendFixed(out, number, pattern);
  out += pattern.exponent_marker[0];
  if (exponent < 0) {
    out.push_back('-');
  } else if (pattern.exponent_marker[1] == '+') {
    out.push_back('+');
  }
  char digits[16];
  const int count = exponent == 0
                        ? 0
                        : static_cast<int>(std::to_chars(digits, digits + sizeof digits, std::abs(exponent)).ptr - digits);
  AppendIntegerSection(out, pattern.exponent, count, [&](int i) { return digits[i]; });
}

}  // namespace

void AppendNumber(std::string& out, double value, std::string_view pattern) {
  if (std::isnan(value)) {
    out += "NaN";
    return;
  }
  if (std::isinf(value)) {
    out += value < 0 ? "-Inf" : "Inf";
    return;
  }
  if (!pattern.empty() && pattern.back() == '!') pattern.remove_suffix(1);
  // A whole number in a pattern of zeros only ("00000"): the seismic files write millions of raw
  // samples so. The digits are the same as the general path gives, zeros in front, none cut.
  if (!pattern.empty() && value >= 0 && value < 4294967296.0 && value == std::floor(value) &&
      pattern.find_first_not_of('0') == std::string_view::npos) {
    auto whole = static_cast<uint32_t>(value);
    char digits[16];
    int count = 0;
    do {
      digits[count++] = static_cast<char>('0' + whole % 10);
      whole /= 10;
    } while (whole != 0);
    if (count < static_cast<int>(pattern.size())) out.append(pattern.size() - static_cast<size_t>(count), '0');
    while (count > 0) out.push_back(digits[--count]);
    return;
  }
  if (pattern.empty()) {
    // Zero loses its sign, as "-0" would only confuse a reader.
    if (value == 0) value = 0;
    char buffer[64];
    out.append(buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr);
    return;
  }
  const Pattern parts = SplitPattern(pattern);
  Decimal number = ToDecimal(value);
  const int fraction_places = CountPlaceholders(parts.fraction);
  if (parts.scientific) {
    RoundToDigits(number, CountPlaceholders(parts.integer) + fraction_places);
  } else {
    RoundToDigits(number, number.point + fraction_places);
  }
  // A value that rounds to all zeros is shown without its sign.
  if (std::signbit(value) && number.size > 0) out.push_back('-');
  if (parts.scientific) {
    AppendScientific(out, number, parts);
  } else {
    AppendFixed(out, number, parts);
  }
}

std::string FormatNumber(double value, std::string_view pattern) {
  std::string out;
  AppendNumber(out, value, pattern);
  return out;
}

void AppendText(std::string& out, std::string_view text, std::string_view mask) {
  const bool left_aligned = !mask.empty() && mask.front() == '!';
  const size_t width = static_cast<size_t>(std::count(mask.begin(), mask.end(), '@'));
  if (width == 0) {
    out += text;
  } else if (left_aligned) {
    const std::string_view kept = text.substr(0, width);
    out += kept;
    out.append(width - kept.size(), ' ');
  } else {
    if (text.size() < width) out.append(width - text.size(), ' ');
    out += text;
  }
}

std::string FormatText(std::string_view text, std::string_view mask) {
  std::string out;
  AppendText(out, text, mask);
  return out;
}

}  // namespace marlview
