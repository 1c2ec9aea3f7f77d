// Number readers on std::from_chars: no locale is ever consulted.
#include "core/common/number_read.h"

#include <charconv>
#include <cmath>
#include <limits>

#include "core/common/runtime_failure.h"
#include "core/common/text_rules.h"

namespace marlview {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Length of the longest number at the start of text (sign, digits, one point, exponent), 0 if none.
size_t NumberPrefixLength(std::string_view text) {
  size_t i = 0;
  if (i < text.size() && (text[i] == '+' || text[i] == '-')) ++i;
  size_t digits = 0;
  while (i < text.size() && IsDigit(text[i])) ++i, ++digits;
  if (i < text.size() && text[i] == '.') {
    ++i;
    while (i < text.size() && IsDigit(text[i])) ++i, ++digits;
  }
  if (digits == 0) return 0;
  if (i < text.size() && (text[i] == 'E' || text[i] == 'e' || text[i] == 'D' || text[i] == 'd')) {
    size_t j = i + 1;
    if (j < text.size() && (text[j] == '+' || text[j] == '-')) ++j;
    size_t exponent_digits = 0;
    while (j < text.size() && IsDigit(text[j])) ++j, ++exponent_digits;
    if (exponent_digits > 0) i = j;
  }
  return i;
}

// Converts a text already known to be a well-formed number prefix. A field of a data line is a
// few dozen characters at most; a longer number is cleaned on the heap.
double Convert(std::string_view number) {
  char local[64];
  std::string long_text;
  char* clean = local;
  if (number.size() > sizeof local) {
    long_text.resize(number.size());
    clean = long_text.data();
  }
  size_t size = 0;
  for (char c : number) {
    if (c == '+' && size == 0) continue;
    clean[size++] = c == 'D' || c == 'd' ? 'E' : c;
  }
  size_t first = 0;
  // "-+1.5": the sign after the minus goes.
  if (size > 1 && clean[0] == '-' && clean[1] == '+') {
    clean[1] = '-';
    first = 1;
  }
  const std::string_view text(clean + first, size - first);
  double value = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  if (result.ec == std::errc::result_out_of_range) {
    // Underflow reads as zero; overflow is reported by the caller's range check.
    const size_t exponent = text.find_first_of("eE");
    const bool big = exponent != std::string_view::npos && exponent + 1 < text.size() && text[exponent + 1] != '-';
    return big ? std::numeric_limits<double>::infinity() : 0.0;
  }
  return value;
}

}  // namespace

double LenientNumber(std::string_view text) {
  text = TrimLeftBlanks(text);
  const size_t length = NumberPrefixLength(text);
  if (length == 0) return 0;
  const double value = Convert(text.substr(0, length));
  return std::isfinite(value) ? value : 0;
}

double StrictNumber(std::string_view field) {
  field = TrimBlanks(field);
  const size_t length = NumberPrefixLength(field);
  if (length == 0 || length != field.size()) Fail(kErrTypeMismatch);
  const double value = Convert(field);
  if (!std::isfinite(value) || std::fabs(value) > std::numeric_limits<float>::max()) Fail(kErrOverflow);
  return value;
}

std::optional<double> StrictNumberOrNone(std::string_view field) {
  field = TrimBlanks(field);
  const size_t length = NumberPrefixLength(field);
  if (length == 0 || length != field.size()) return std::nullopt;
  const double value = Convert(field);
  if (!std::isfinite(value) || std::fabs(value) > std::numeric_limits<float>::max()) return std::nullopt;
  return value;
}

double ParseNumber(std::string_view text, bool decimal_comma) {
  text = TrimBlanks(text);
  const char own = decimal_comma ? ',' : '.';
  const char other = decimal_comma ? '.' : ',';
  // A field of a data line is a few dozen characters at most; a longer text is cleaned on the heap.
  char local[64];
  std::string long_text;
  char* clean = local;
  if (text.size() > sizeof local) {
    long_text.resize(text.size());
    clean = long_text.data();
  }
  for (size_t i = 0; i < text.size(); ++i) {
    char c = text[i] == other ? own : text[i];
    // The locale's conversion reads its own separator as the decimal point; from_chars knows only ".".
    if (c == own) c = '.';
    clean[i] = c;
  }
  return StrictNumber(std::string_view(clean, text.size()));
}

double ParseLocalNumber(std::string_view text) {
  std::string swapped(TrimBlanks(text));
  for (char& c : swapped) {
    if (c == ',') c = '.';
  }
  return LenientNumber(swapped);
}

std::string ShortestText(float value) {
  std::string out;
  AppendShortestText(out, value);
  return out;
}

void AppendShortestText(std::string& out, float value) {
  char buffer[32];
  out.append(buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr);
}

std::string ShortestText(double value) {
  char buffer[40];
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
  return std::string(buffer, result.ptr);
}

}  // namespace marlview
