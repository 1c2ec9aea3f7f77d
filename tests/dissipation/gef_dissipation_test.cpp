// GEF dissipation reports through the dissipation option: the public files, skipped rows, the
// refusals across modes, and the pairing with the sounding the test was taken in.
#include <gtest/gtest.h>

#include <algorithm>

#include "core/common/file_access.h"
#include "core/dissipation/dissipation_controller.h"
#include "core/presentation/recording_surface.h"
#include "core/presentation/sounding_plot.h"
#include "core/session/gef_pairing.h"
#include "core/shell/shell_controller.h"
#include "support/test_support.h"

namespace marlview {
namespace {

class GefDissipationTest : public ::testing::Test {
 protected:
  GefDissipationTest() : shell(*t.session, t.prompts) {}

  std::string Copy(const std::string& name) {
    t.data.Write(name, ReadWholeFile(test::TestDataPath("gef/" + name)));
    return t.data.File(name);
  }
  bool OpenDissipation(const std::string& path) {
    t.prompts.ClearLog();
    t.prompts.Script({path});
    shell.ChooseMode(ProcessingMode::kDissipations);
    return shell.Dissipations().View().frame_visible;
  }
  bool OpenSounding(const std::string& path) {
    t.prompts.ClearLog();
    t.prompts.Script({path});
    shell.ChooseMode(ProcessingMode::kSounding);
    return t.session->SoundingOpen;
  }
  const DissipationSet& Set() const { return t.session->Dissipation(); }

  test::TestSession t;
  ShellController shell;
};

TEST_F(GefDissipationTest, PublicReportsOpenAsOneTestInKpa) {
  ASSERT_TRUE(OpenDissipation(Copy("example_diss.gef")));
  EXPECT_EQ(Set().FileKind, kGefDissipation);
  EXPECT_EQ(Set().DissipationCount, 1);
  EXPECT_EQ(Set().RowCount[1], 603);
  EXPECT_FLOAT_EQ(Set().TestDepth[1], 39.98f);
  EXPECT_EQ(Set().ParentFile, "CPT000000036524A.gef");
  EXPECT_EQ(Set().PressureUnitName, "kPa");
  EXPECT_FLOAT_EQ(Set().PressurePerMetreHead, 9.804f);
  // First row: 0.0 s; u2 0.388 MPa; qc 36.721 MPa.
  EXPECT_EQ(Set().RowTime(1, 1), 0);
  EXPECT_FLOAT_EQ(Set().RowPressure(1, 1), 388);
  EXPECT_FLOAT_EQ(Set().RowChannelB(1, 1), 0.388f);
  EXPECT_FLOAT_EQ(Set().RowChannelA(1, 1), 36721);
  // 1.1 s rounds to 1.
  EXPECT_EQ(Set().RowTime(1, 2), 1);
  EXPECT_TRUE(t.prompts.Texts().empty());
}

TEST_F(GefDissipationTest, VoidRowsAndAMissingParentDepthAreTold) {
  t.data.Write("D02.gef",
               "#REPORTCODE= GEF-DISS-Report\r\n#COLUMNINFO= 1, s, t, 12\r\n"
               "#COLUMNINFO= 2, kPa, u1, 5\r\n#COLUMNVOID= 2, -1\r\n#PARENT= S02.gef\r\n#EOH=\r\n"
               "0.5 120\r\n1.5 -1\r\n2.5 110\r\n");
  ASSERT_TRUE(OpenDissipation(t.data.File("D02.gef")));
  EXPECT_EQ(Set().RowCount[1], 2);
  // Half a second rounds away from zero.
  EXPECT_EQ(Set().RowTime(1, 1), 1);
  EXPECT_EQ(Set().RowTime(1, 2), 3);
  EXPECT_FLOAT_EQ(Set().TestDepth[1], 0);
  EXPECT_EQ(t.prompts.Texts(),
            (std::vector<std::string>{"! D02.gef: no #PARENT depth; the test depth is set to 0",
                                      "! D02.gef: 1 rows without time or pressure were left out"}));
}

TEST_F(GefDissipationTest, EachModeRefusesTheOthersReport) {
  EXPECT_FALSE(OpenDissipation(Copy("cpt3.gef")));
  EXPECT_EQ(t.prompts.Texts(), std::vector<std::string>{"! cpt3.gef is a sounding file"});
  EXPECT_FALSE(OpenSounding(Copy("example_diss.gef")));
  EXPECT_EQ(t.prompts.Texts(), std::vector<std::string>{"! example_diss.gef is a dissipation file"});
  t.data.Write("D03.gef", "#REPORTCODE= GEF-DISS-Report\r\n#COLUMNINFO= 1, s, t, 12\r\n#EOH=\r\n1\r\n");
  EXPECT_FALSE(OpenDissipation(t.data.File("D03.gef")));
  EXPECT_EQ(t.prompts.Texts(),
            std::vector<std::string>{"! D03.gef: no pore pressure column (quantity 5, 6 or 7)"});
}

TEST_F(GefDissipationTest, AChildOfTheOpenSoundingIsMarkedOnItsPlot) {
  ASSERT_TRUE(OpenSounding(Copy("test-artf52193cpt.gef")));
  EXPECT_FALSE(shell.View().edit_visible);
  EXPECT_NE(shell.View().sounding_info.find("\n#CHILD= 1, test-artf52193dis.gef, 5.990"), std::string::npos);
  ASSERT_TRUE(OpenDissipation(Copy("test-artf52193dis.gef")));
  EXPECT_EQ(PairedDissipationDepth(t.session->Sounding(), Set()), 5.99f);
  EXPECT_NE(shell.Dissipations().View().info.find("\nDISSIPATION OF test-artf52193cpt.gef"),
            std::string::npos);

  RecordingSurface surface;
  PlotState plot;
  SetupPlot(plot, *t.session, {t.session->Sounding().TipChannel}, 0);
  GraphData(surface, 800, 1000, plot, *t.session);
  const auto texts = surface.Texts();
  EXPECT_TRUE(
      std::any_of(texts.begin(), texts.end(), [](const RecordedCall& call) { return call.text == "DISS"; }));

  // A report of another sounding changes nothing on this one.
  t.data.Write("OTHER.gef",
               "#REPORTCODE= GEF-DISS-Report\r\n#COLUMNINFO= 1, s, t, 12\r\n"
               "#COLUMNINFO= 2, kPa, u2, 6\r\n#PARENT= S99.gef, 3.0\r\n#EOH=\r\n1 100\r\n");
  ASSERT_TRUE(OpenDissipation(t.data.File("OTHER.gef")));
  EXPECT_FALSE(PairedDissipationDepth(t.session->Sounding(), Set()));
}

}  // namespace
}  // namespace marlview
