// The lenient and strict number readers.
#include <gtest/gtest.h>

#include "core/common/number_read.h"
#include "support/test_support.h"

namespace marlview {
namespace {

TEST(NumberRead, LenientTakesTheLeadingNumberOrZero) {
  const struct {
    const char* text;
    double value;
  } cases[] = {
      {"2.40 => Water Table Depth (m)", 2.4}, {"  -1.5abc", -1.5}, {"abc", 0}, {"", 0},
      {".5", 0.5},  {"1E3 ft", 1000},  {"1e", 1}, {"+7", 7}, {"20(mm)", 20}, {"1D2", 100},
      {"1e999", 0},
  };
  for (const auto& c : cases) EXPECT_DOUBLE_EQ(LenientNumber(c.text), c.value) << c.text;
}

TEST(NumberRead, StrictAcceptsFieldsWithBlanksAroundThem) {
  EXPECT_DOUBLE_EQ(StrictNumber("+1.2345678901E+000"), 1.2345678901);
  EXPECT_DOUBLE_EQ(StrictNumber("   -4.5000000000E-003 "), -0.0045);
  EXPECT_DOUBLE_EQ(StrictNumber("  12.0400"), 12.04);
}

TEST(NumberRead, StrictRefusesAnythingElse) {
  for (const char* field : {"", "   ", "1.2.3", "12a", "abc", "--1", "nan", "inf", "1,5", "+", "e5"}) {
    EXPECT_FAILURE(StrictNumber(field), kErrTypeMismatch, "");
  }
  EXPECT_FAILURE(StrictNumber("1E+39"), kErrOverflow, "");
}

TEST(NumberRead, ParseNumberTakesEitherDecimalSeparatorUnderEitherLocale) {
  for (const bool decimal_comma : {false, true}) {
    SCOPED_TRACE(decimal_comma ? "decimal comma" : "decimal point");
    EXPECT_DOUBLE_EQ(ParseNumber("2,5", decimal_comma), 2.5);
    EXPECT_DOUBLE_EQ(ParseNumber(" -1234.75 ", decimal_comma), -1234.75);
    EXPECT_DOUBLE_EQ(ParseNumber("-32768", decimal_comma), -32768);
    // Every separator becomes the decimal one, so a grouped thousand is no number in either locale.
    for (const char* field : {"1.234,5", "1,234.5", "1,234,567", "x", ""}) {
      EXPECT_FAILURE(ParseNumber(field, decimal_comma), kErrTypeMismatch, "");
    }
  }
  EXPECT_DOUBLE_EQ(ParseNumber("2.5"), 2.5);
  EXPECT_DOUBLE_EQ(ParseLocalNumber("x"), 0);
}

TEST(NumberRead, ShortestTextReadsBackToTheSameFloat) {
  EXPECT_EQ(ShortestText(1.5f), "1.5");
  EXPECT_EQ(ShortestText(0.1f), "0.1");
  EXPECT_EQ(ShortestText(-32768.0f), "-32768");
  for (float f : {0.3048f, 6894.7568f, 1e-7f, 12345.678f}) {
    EXPECT_EQ(static_cast<float>(StrictNumber(ShortestText(f))), f);
  }
}

}  // namespace
}  // namespace marlview
