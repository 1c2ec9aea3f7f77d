// Text rules: case-blind searches, fixed columns, line ends, Latin-1, failures.
#include <gtest/gtest.h>

#include "core/common/line_cursor.h"
#include "core/common/runtime_failure.h"
#include "core/common/text_rules.h"
#include "support/test_support.h"

namespace marlview {
namespace {

TEST(TextRules, ContainsIgnoresCaseAndFindsTheEmptyText) {
  EXPECT_TRUE(ContainsNoCase("Cemented TIP", "tip"));
  EXPECT_TRUE(ContainsNoCase("VREF RATIO", "Ref"));
  EXPECT_FALSE(ContainsNoCase("AUX 1", "Aux1"));
  EXPECT_TRUE(ContainsNoCase("anything", ""));
  EXPECT_FALSE(ContainsNoCase("ab", "abc"));
  EXPECT_TRUE(EndsWithNoCase("CPT-A01.Dat", ".DAT"));
}

TEST(TextRules, ColumnsNeverReadPastTheEnd) {
  EXPECT_EQ(Columns("abcdef", 2, 3), "cde");
  EXPECT_EQ(Columns("abcdef", 4, 16), "ef");
  EXPECT_EQ(Columns("abc", 9, 4), "");
  EXPECT_EQ(ColumnsFrom("abc", 3), "");
}

TEST(TextRules, LinesEndInCrLfLfOrCr) {
  const auto lines = SplitLines("a\r\nb\nc\rd\r\n\r\ne");
  const std::vector<std::string_view> expected = {"a", "b", "c", "d", "", "e"};
  EXPECT_EQ(lines, expected);
  EXPECT_TRUE(SplitLines("").empty());
}

TEST(TextRules, ReadingPastTheLastLineFails) {
  LineCursor lines("one\r\ntwo\r\n");
  EXPECT_EQ(lines.Next(), "one");
  lines.Skip(1);
  EXPECT_TRUE(lines.AtEnd());
  EXPECT_FAILURE(lines.Next(), kErrPastEndOfFile, "");
}

TEST(TextRules, Latin1BecomesUtf8AndUtf8StaysAsItIs) {
  EXPECT_EQ(ToUtf8("Montr\xe9"
                   "al"),
            "Montr\xc3\xa9"
            "al");
  EXPECT_EQ(ToUtf8("Montr\xc3\xa9"
                   "al"),
            "Montr\xc3\xa9"
            "al");
  EXPECT_FALSE(IsValidUtf8("\xc3"));
}

TEST(RuntimeFailureText, GeneralErrorTextNamesNumberDescriptionAndSource) {
  EXPECT_EQ(GeneralErrorText(RuntimeFailure(kErrTypeMismatch, "OpenDatSounding")),
            "Marlview has encountered an error: Error #13: 'Type mismatch' from 'OpenDatSounding'");
  EXPECT_EQ(GeneralErrorText(RuntimeFailure(kErrPastEndOfFile, "Form_Load")),
            "Marlview has encountered an error: Error #62: 'Input past end of file' from 'Form_Load'");
  // The innermost named procedure keeps its name; helpers below it leave the source empty.
  EXPECT_FAILURE(InProcedure("Outer", [] { InProcedure("Inner", [] { Fail(kErrSubscript); }); }),
                 kErrSubscript, "Inner");
}

}  // namespace
}  // namespace marlview
