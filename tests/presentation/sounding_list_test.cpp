// The sounding list: the rows an interval keeps, the depth texts, the settings it writes, saving
// an export.
#include <gtest/gtest.h>

#include "core/common/file_access.h"
#include "core/io/dat_reader.h"
#include "core/presentation/sounding_list.h"
#include "support/test_support.h"

namespace marlview {
namespace {

class ListTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(test::OpenSounding(t, test::SimpleDat(50)), ReadOutcome::kLoaded);
    view.channels = {t.session->Sounding().TipChannel};
  }
  std::vector<std::string> ShownDepths() {
    std::vector<std::string> depths;
    for (int r : ListRows(*t.session, view)) depths.push_back(ListDepthText(*t.session, view, r));
    return depths;
  }

  test::TestSession t;
  ListView view;
};

TEST_F(ListTest, IntervalKeepsTheFirstRowAtOrPastEachMultiple) {
  EXPECT_EQ(ShownDepths().size(), 50u);
  view.depth_interval = 0.15;
  EXPECT_EQ(ShownDepths(), (std::vector<std::string>{"0.020", "0.160", "0.300", "0.460", "0.600", "0.760", "0.900"}));
  view.depth_interval = 0.1;  // readings that land on the multiples themselves
  EXPECT_EQ(ShownDepths().size(), 11u);
  EXPECT_EQ(ShownDepths().back(), "1.000");
}

TEST_F(ListTest, DepthFollowsTheUnitAndTheElevationMode) {
  EXPECT_EQ(ListDepthText(*t.session, view, 1), "0.020");
  view.depth_unit = 2;
  EXPECT_EQ(ListDepthText(*t.session, view, 1), "0.066");
  view.elevation = true;
  EXPECT_EQ(ListDepthText(*t.session, view, 1), "-0.066");
  EXPECT_EQ(ListHeading(*t.session, view).front(), "Elev.\n(ft)");
}

TEST_F(ListTest, EntriesAreCheckedBeforeTheyChangeAnything) {
  const std::string file = t.session->SettingsPath("Column Widths");
  EXPECT_TRUE(ChangeColumnWidth(*t.session, t.prompts, "30"));
  EXPECT_EQ(t.session->ColumnWidth, 30);
  EXPECT_EQ(ReadWholeFile(file), "30\r\n");
  EXPECT_FALSE(ChangeColumnWidth(*t.session, t.prompts, "0"));
  EXPECT_FALSE(ChangeColumnWidth(*t.session, t.prompts, "wide"));
  EXPECT_FALSE(ChangeColumnWidth(*t.session, t.prompts, ""));  // cancelled: nothing said
  EXPECT_EQ(t.session->ColumnWidth, 30);
  EXPECT_EQ(ReadWholeFile(file), "30\r\n");

  EXPECT_TRUE(ChangeListInterval(view, t.prompts, "250"));
  EXPECT_DOUBLE_EQ(view.depth_interval, 0.25);
  EXPECT_EQ(ListIntervalEntry(view), "250");
  EXPECT_FALSE(ChangeListInterval(view, t.prompts, "-5"));
  EXPECT_FALSE(ChangeListInterval(view, t.prompts, ""));
  EXPECT_DOUBLE_EQ(view.depth_interval, 0.25);
  EXPECT_EQ(t.prompts.Texts(), (std::vector<std::string>{"! Please enter a valid column width",
                                                         "! Please enter a valid column width",
                                                         "! Please enter a valid interval"}));
}

TEST_F(ListTest, SaveAddsTheExtensionAndAsksBeforeOverwriting) {
  t.session->SoundingDirectory = t.data.Path();
  const std::string path = t.data.File("out");
  t.prompts.Script({path, path + ".CSV"});
  EXPECT_TRUE(SaveExport(*t.session, t.prompts, "csv", [] { return std::string("first"); }));
  EXPECT_EQ(t.prompts.LastFileRequest().start_directory, t.data.Path());
  EXPECT_EQ(ReadWholeFile(path + ".csv"), "first");
  // A name that already ends in the extension, in any case, keeps it.
  EXPECT_TRUE(SaveExport(*t.session, t.prompts, "csv", [] { return std::string("second"); }));
  EXPECT_EQ(ReadWholeFile(path + ".CSV"), "second");
  t.prompts.Script({path + ".csv", "No", ""});
  EXPECT_FALSE(SaveExport(*t.session, t.prompts, "csv", [] { return std::string("third"); }));
  EXPECT_FALSE(SaveExport(*t.session, t.prompts, "csv", [] { return std::string("third"); }));
  EXPECT_EQ(ReadWholeFile(path + ".csv"), "first");
  EXPECT_TRUE(t.prompts.ScriptUsedUp());
}

}  // namespace
}  // namespace marlview
