// The number formatter: renders numbers and text through the format patterns and alignment masks
// the program's files and screens use.
#pragma once

#include <string>
#include <string_view>

namespace marlview {

// Renders value through a numeric pattern of '0' (mandatory digit), '#' (optional digit), '.',
// an exponent marker "E+"/"E-" and an optional trailing '!' (left alignment, left to the caller).
// Rounds half away from zero on the shortest decimal text of value: "##0.00#" gives 1.5 as "1.50",
// "0.0000E+00" gives 1234.5 as "1.2345E+03". Any other pattern character is copied as it stands;
// an empty pattern gives the shortest text. Non-finite values give "NaN", "Inf" or "-Inf".
std::string FormatNumber(double value, std::string_view pattern);
// FormatNumber onto the end of out, for writers that build a whole file in one text.
void AppendNumber(std::string& out, double value, std::string_view pattern);

// Aligns text in a mask of n '@': right-aligned in n columns ("@@@@@@" gives "12.5" as "  12.5"),
// or, when the mask starts with '!', left-aligned and cut to n columns. Longer text is kept whole
// when right-aligned. A mask without '@' leaves the text as it is. Lengths count bytes.
std::string FormatText(std::string_view text, std::string_view mask);
// FormatText onto the end of out; text must not lie inside out.
void AppendText(std::string& out, std::string_view text, std::string_view mask);

}  // namespace marlview
