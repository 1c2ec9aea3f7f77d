// Tests of the number formatter against the patterns and masks the program's files and screens use.
#include "core/common/number_format.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace marlview {
namespace {

struct NumberCase {
  double value;
  const char* pattern;
  const char* expected;
};

void ExpectAll(const std::vector<NumberCase>& cases) {
  for (const NumberCase& c : cases) {
    EXPECT_EQ(FormatNumber(c.value, c.pattern), c.expected)
        << "value " << c.value << " pattern \"" << c.pattern << "\"";
  }
}

TEST(FormatNumberTest, PlaceholdersAndPoint) {
  ExpectAll({
      {12345, "##0", "12345"}, {5, "000.00", "005.00"}, {0, "##0", "0"},
      {0.5, "#.000", ".500"}, {12.5, "#.000", "12.500"}, {0.5, "##0.00", "0.50"},
      {12, "##0.", "12."}, {0.4, "######0.", "0."}, {12345678.9, "######0.0", "12345678.9"},
      // Trailing zeros in '#' places are dropped, a '#' in front of a '0' is not.
      {1.5, "##0.00#", "1.50"}, {1.2345, "##0.00#", "1.235"}, {1.25, "##0.00#", "1.25"},
      {1.0, "0.##", "1."}, {1.0, "0.#0", "1.00"},
  });
}

TEST(FormatNumberTest, RoundsHalfAwayFromZeroOnTheShortestDecimal) {
  ExpectAll({
      {2.675, "0.00", "2.68"}, {0.125, "0.00", "0.13"}, {1.005, "0.00", "1.01"},
      {-2.5, "0", "-3"}, {2.4999, "0", "2"}, {12.6, "####0", "13"}, {0.5, "0", "1"},
      {9.995, "0.00", "10.00"}, {999.9996, "###0.000", "1000.000"}, {0.05, "#.0", ".1"},
      {0.0005, "0.000", "0.001"}, {0.00049, "0.000", "0.000"}, {1e-20, "0.00", "0.00"},
      // Values read from files as 32-bit floats.
      {double(0.1f), "0.00", "0.10"}, {double(0.1f), "######0.000000", "0.100000"},
      {double(0.1f), "0.0000E+00", "1.0000E-01"}, {double(123.456f), "###0.000", "123.456"},
  });
}

TEST(FormatNumberTest, SignIsDroppedWhenTheValueRoundsToZero) {
  ExpectAll({
      {-1.5, "##0.00", "-1.50"}, {-0.5, "#.000", "-.500"}, {-12345, "##0", "-12345"},
      {-0.0001, "0.00", "0.00"}, {-0.0, "0.00", "0.00"},
      {-0.004, "0.0000E+00", "-4.0000E-03"}, {-0.0, "0.0000E+00", "0.0000E+00"},
  });
}

TEST(FormatNumberTest, Scientific) {
  ExpectAll({
      {1234.5, "0.0000E+00", "1.2345E+03"}, {0.001234, "0.0000E+00", "1.2340E-03"},
      {0, "0.0000E+00", "0.0000E+00"}, {9.99994, "0.0000E+00", "9.9999E+00"},
      {9.99996, "0.0000E+00", "1.0000E+01"}, {0.99996, ".0000E+00", ".1000E+01"},
      {12.34, ".0000E+00", ".1234E+02"}, {0.01234, ".0000E+00", ".1234E-01"},
      {0, ".0000E+00", ".0000E+00"}, {1.5e-120, "0.0000000000E+000", "1.5000000000E-120"},
      {1.5e100, "0.0E+0", "1.5E+100"}, {1234.5, "00.00E+00", "12.35E+02"},
      {1234.5, "0.00E-00", "1.23E03"}, {0.0123, "0.00E-00", "1.23E-02"},
      {1234.5, "0.00e+00", "1.23e+03"},
      // The shortest text of the smallest denormal is "5e-324".
      {std::numeric_limits<double>::denorm_min(), "0.0000E+00", "5.0000E-324"},
      {std::numeric_limits<double>::max(), "0.0000E+000", "1.7977E+308"},
  });
}

TEST(FormatNumberTest, EveryPatternInUse) {
  ExpectAll({
      {-12.3456, "##0.00#", "-12.346"}, {12.3456, "###0.000", "12.346"},
      {12.3456, "###0.00", "12.35"}, {12.3456, "###0.0000", "12.3456"},
      {12.3456, "##0.0000", "12.3456"}, {12.3456, "####0.00000", "12.34560"},
      {12.3456, "##0.00", "12.35"}, {12.3456, "##0.000", "12.346"}, {12.3456, "##0", "12"},
      {12.3456, "#.000", "12.346"}, {12.3456, "0.0000E+00", "1.2346E+01"},
      {12.3456, "0.000000E+000", "1.234560E+001"}, {12.3456, ".0000E+00", ".1235E+02"},
      {12.3456, "0.0000000000E+000", "1.2345600000E+001"}, {12.3456, "000.00", "012.35"},
      {12.3456, "####0", "12"}, {12.3456, "##0.", "12."}, {12.3456, "######0.0", "12.3"},
      {12.3456, "######0.000000", "12.345600"}, {12.3456, "######0.00000", "12.34560"},
      {12.3456, "######0.0000", "12.3456"}, {12.3456, "######0.000", "12.346"},
      {12.3456, "######0.00", "12.35"}, {12.3456, "######0.", "12."},
      {12.3456, "######0", "12"}, {12.3456, "0.0000E+00!", "1.2346E+01"},
      {12.3456, "0.00", "12.35"}, {12.3456, "0", "12"},
  });
}

TEST(FormatNumberTest, UnusualPatternsAndValues) {
  const double inf = std::numeric_limits<double>::infinity();
  ExpectAll({
      {12.5, "", "12.5"}, {-0.0, "", "0"}, {1e21, "", "1e+21"}, {12.5, "!", "12.5"},
      {12.5, "0.0 m", "12.5 m"}, {5, "x##0", "x5"}, {1234, "#,##0", "1,234"},
      {12.5, ".00", "12.50"}, {7, "abc", "abc7"}, {12.5, "0.0.0", "12.5.0"},
      {std::numeric_limits<double>::quiet_NaN(), "##0.00", "NaN"},
      {inf, "0.0000E+00", "Inf"}, {-inf, "", "-Inf"},
  });
  const std::string huge = FormatNumber(1e300, "##0.00");
  EXPECT_EQ(huge.size(), 304u);
  EXPECT_EQ(huge.substr(0, 2) + huge.substr(huge.size() - 4), "100.00");
}

TEST(FormatTextTest, Alignment) {
  const std::vector<std::vector<const char*>> cases = {  // text, mask, expected
      {"12.5", "@@@@@@", "  12.5"}, {"12.5", "@@@@", "12.5"}, {"123456789", "@@@@", "123456789"},
      {"", "@@@", "   "}, {"ab", "!@@@@", "ab  "}, {"abcdef", "!@@@@", "abcd"},
      {"\xE9t\xE9", "@@@@@", "  \xE9t\xE9"}, {"\xE9t\xE9", "!@@", "\xE9t"},
      {"abc", "", "abc"}, {"abc", "!", "abc"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(FormatText(c[0], c[1]), c[2]) << "text \"" << c[0] << "\" mask \"" << c[1] << "\"";
  }
}

}  // namespace
}  // namespace marlview
