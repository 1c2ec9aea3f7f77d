// Start-up on a fresh and on a used data directory.
#include <gtest/gtest.h>

#include "core/common/file_access.h"
#include "core/shell/startup.h"
#include "support/test_support.h"

namespace marlview {
namespace {

TEST(Startup, AFreshDataDirectoryGetsTheDefaultsAndTheTwoWrittenBack) {
  test::TestSession t;
  EXPECT_TRUE(t.prompts.Log().empty());
  for (const char* name : {"PressureUnits.txt", "ForceUnits.txt", "LengthUnits.txt", "AreaUnits.txt",
                           "VolumeUnits.txt", "Dimensio.csv"}) {
    EXPECT_TRUE(FileExists(t.data.File(name))) << name;
  }
  EXPECT_EQ(ReadWholeFile(t.data.File("Rod Break Threshold.txt")), "10\r\n1\r\n");
  EXPECT_EQ(ReadWholeFile(t.data.File("Logo Scale Factor.txt")), "100\r\n");
  const Session& s = *t.session;
  EXPECT_EQ(s.units.Name(kPsiUnit, kPressureGroup), "psi");
  EXPECT_EQ(s.SoundingSelectionMode, 1);
  EXPECT_EQ(s.ColumnWidth, 21);
  EXPECT_EQ(s.DepthUnitIsMetric, 1);
  EXPECT_EQ(s.choices.UseUnitsFromFile, 1);
  EXPECT_EQ(s.Sounding().AcquisitionFamily, kNoSounding);
  ASSERT_FALSE(s.probe_dimensions.empty());
  EXPECT_EQ(s.probe_dimensions[0].model, "C10CFIIP");
  EXPECT_NEAR(s.probe_dimensions[0].lengths_m[0], 1.406 * 0.0254, 1e-6);
}

TEST(Startup, SettingsFilesAreReadAndOnlyMissingOnesWritten) {
  test::TempDirectory data;
  data.Write("Rod Break Threshold.txt", "25\r\n0\r\n");
  data.Write("Sounding Selection Settings", "0\r\n");
  data.Write("GENERAL SETTINGS.txt",
             "Coastline Geotechnical\r\nDelta Bridge\r\n2\r\n0\r\n0\r\n118.5\r\n1\r\n0.75\r\n1\r\n0.004\r\n1\r\n");
  data.Write("Ball Tip Area Calculation.txt", "1\r\n");
  data.Write("Export Labels Channel 3.txt", "FS\r\nSleeve friction\r\n");
  std::string custom;
  for (int line = 1; line <= 32; ++line) custom += "h" + std::to_string(line) + "\r\n";
  data.Write("CUSTOM HEADERS.txt", custom);
  Session session({data.Path(), test::DefaultsDirectory()});
  ScriptedPrompts prompts;
  RunStartup(session, prompts);
  EXPECT_TRUE(prompts.Log().empty());
  EXPECT_EQ(ReadWholeFile(data.File("Rod Break Threshold.txt")), "25\r\n0\r\n");
  EXPECT_FLOAT_EQ(session.rod_break.Threshold, 25);
  EXPECT_EQ(session.rod_break.RemoveOnOpen, 0);
  EXPECT_EQ(session.SoundingSelectionMode, 0);
  EXPECT_EQ(session.general.CompanyGraphTitle, "Coastline Geotechnical");
  EXPECT_EQ(session.DepthUnitIsMetric, 0);
  EXPECT_EQ(session.DuplicateDepthCheck, 1);
  EXPECT_FLOAT_EQ(session.DuplicateDepthThreshold, 0.004f);
  EXPECT_EQ(session.BallAreaDoubled, 1);
  EXPECT_EQ(session.choices.LabelVariantCount[3], 2);
  EXPECT_EQ(session.choices.LabelVariants[2][3], "Sleeve friction");
  // Row by row, each column's label then its value.
  EXPECT_EQ(session.custom_headers.label[0][1], "h3");
  EXPECT_EQ(session.custom_headers.value[3][3], "h32");
}

TEST(Startup, AShortSettingsFileIsReportedAndStartUpGoesOn) {
  test::TempDirectory data;
  data.Write("GENERAL SETTINGS.txt", "Coastline Geotechnical\r\nDelta Bridge\r\n2\r\n");
  data.Write("Ordered ECP Channels.txt", "1\r\n2\r\n");
  data.Write("Q3MTL SEISMIC HEADERS.txt", "0\r\n1\r\n");
  data.Write("Logo Settings.txt", "80\r\n90\r\n100\r\n100\r\n100\r\n10\r\n-20\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n");
  ChannelChoices choices;
  choices.UseUnitsFromFile = 0;
  data.Write("Display Units.txt", WriteDisplayUnits(choices));
  Session session({data.Path(), test::DefaultsDirectory()});
  ScriptedPrompts prompts;
  RunStartup(session, prompts);
  const std::vector<std::string> expected = {
      "! Marlview has encountered an error: Error #62: 'Input past end of file' from 'ReadGeneralSettings'",
      "! Marlview has encountered an error: Error #62: 'Input past end of file' from 'ReadQ3mtlSeismicHeaders'",
      "! Marlview has encountered an error: Error #62: 'Input past end of file' from 'ReadOrderedEcpChannels'",
  };
  EXPECT_EQ(prompts.Log(), expected);
  EXPECT_EQ(session.general.CompanyGraphTitle, "") << "a file that fails keeps its defaults";
  EXPECT_EQ(session.choices.UseUnitsFromFile, 0) << "the files after it are still read";
  EXPECT_FLOAT_EQ(session.logo.LogoScale[0], 80);
  EXPECT_EQ(session.logo.LogoOffsetY[0], -20);
  EXPECT_EQ(session.Report(ReportFamily::kPxDas, ReportKind::kSeismic).Cover.MainHeaderSource[0], 1)
      << "a short print settings file keeps all its defaults, not the lines it had";
}

}  // namespace
}  // namespace marlview
