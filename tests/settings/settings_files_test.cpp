// The settings files: byte-for-byte round trips, start-up on bad files, the general settings OK and
// the channel templates.
#include <gtest/gtest.h>

#include "core/common/file_access.h"
#include "core/settings/sbt_colors.h"
#include "core/settings/settings_files.h"
#include "core/settings/templates.h"
#include "core/shell/settings_dialogs.h"
#include "core/shell/startup.h"
#include "support/test_support.h"

namespace marlview {
namespace {

TEST(SettingsFiles, EachFileReadsAndWritesBackByteForByte) {
  const std::string general =
      "Coastline Geotechnical\r\nDelta Bridge\r\n3\r\n1\r\n1\r\n120\r\n0\r\n0.8\r\n1\r\n0.005\r\n1\r\n";
  EXPECT_EQ(WriteGeneralSettings(ReadGeneralSettings(general)), general);
  EXPECT_EQ(WriteGeneralSettings(GeneralSettings{}), "\r\n\r\n3\r\n1\r\n1\r\n120\r\n0\r\n0.8\r\n1\r\n0.005\r\n1\r\n");
  const std::string rod = "12.5\r\n0\r\n";
  EXPECT_EQ(WriteRodBreakSettings(ReadRodBreakSettings(rod)), rod);
  const std::string logo = "80\r\n100\r\n125.5\r\n100\r\n100\r\n10\r\n-20\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n30\r\n40\r\n";
  const LogoSettings read_logo = ReadLogoSettings(logo);
  EXPECT_EQ(read_logo.LogoOffsetX[0], 10);
  EXPECT_EQ(read_logo.LogoOffsetY[4], 40);
  EXPECT_EQ(WriteLogoSettings(read_logo), logo);
  std::string custom;
  for (int i = 0; i < 32; ++i) custom += (i % 2 ? "value " : "LABEL ") + std::to_string(i) + "\r\n";
  EXPECT_EQ(WriteCustomHeaders(ReadCustomHeaders(custom)), custom);
  const std::string tem = "3\r\nTip Resistance (tsf)\r\nSleeve Friction (tsf)\r\nPore Pressure (psi)\r\n";
  EXPECT_EQ(WriteSoundingTemplate(ReadSoundingTemplate(tem)), tem);
  // Plain decimals only, the shortest that read back to the same float.
  EXPECT_EQ(NumberLine(0.00001f), "0.00001\r\n");
  EXPECT_EQ(NumberLine(3e9f), "3000000000\r\n");
}

TEST(SettingsFiles, MissingShortAndJunkFilesStartOnTheirDefaults) {
  test::TempDirectory data;
  data.Write("GENERAL SETTINGS.txt", "Coastline\r\nDelta\r\n2\r\n0\r\n");
  data.Write("CUSTOM HEADERS.txt", std::string("\x01\xff\x7fjunk\x00\x02 no line end", 20));
  data.Write("Logo Settings.txt", "");
  data.Write("FIELDBOX SOUNDING HEADERS.txt", "junk\r\nmore junk\r\n");
  data.Write("SBT brightness factor.txt", "lots of light\r\n");
  Session session({data.Path(), test::DefaultsDirectory()});
  ScriptedPrompts prompts;
  RunStartup(session, prompts);
  const std::string past_end = "! Marlview has encountered an error: Error #62: 'Input past end of file' from '";
  const std::vector<std::string> expected = {past_end + "ReadGeneralSettings'", past_end + "ReadCustomHeaders'",
                                             past_end + "ReadFieldBoxSoundingHeaders'",
                                             past_end + "ReadLogoSettings'"};
  EXPECT_EQ(prompts.Log(), expected);
  EXPECT_EQ(session.general.CompanyGraphTitle, "");
  EXPECT_EQ(session.general.DefaultSystem, 3);
  EXPECT_FLOAT_EQ(session.general.DuplicateDepthTolerance, 0.005f);
  EXPECT_EQ(session.custom_headers.label[0][0], "");
  EXPECT_EQ(session.Report(ReportFamily::kQrdFieldbox, ReportKind::kSounding).Plot.HeaderSource[0][0], 2);
  EXPECT_EQ(session.SbtBrightnessFactor, 0) << "junk on a line reads as 0";
  // Only the rod break and logo scale files are written back; the bad files stay as they were.
  EXPECT_EQ(ReadWholeFile(data.File("Rod Break Threshold.txt")), "10\r\n1\r\n");
  EXPECT_EQ(ReadWholeFile(data.File("Logo Settings.txt")), "");
  EXPECT_FALSE(FileExists(data.File("LAST PRINT SETTINGS.txt")));
}

TEST(GeneralSettings, DuplicateDepthToleranceIsCappedAtOneCentimetre) {
  test::TestSession t;
  GeneralSettingsForm form = LoadGeneralSettingsForm(*t.session);
  form.general.DuplicateDepthTolerance = 0.0101f;
  form.general.Customer = "Delta Bridge";
  EXPECT_FALSE(ApplyGeneralSettings(*t.session, t.prompts, form));
  EXPECT_EQ(t.prompts.Texts(), std::vector<std::string>{"! DUPLICATE DEPTH THRESHOLD CANNOT EXCEED .01 METERS"});
  EXPECT_FALSE(FileExists(t.data.File("GENERAL SETTINGS.txt")));
  EXPECT_EQ(t.session->general.Customer, "");

  form.general.DuplicateDepthTolerance = 0.01f;
  form.rod_break = {15, 0};
  form.sbt_brightness = 40;
  EXPECT_TRUE(ApplyGeneralSettings(*t.session, t.prompts, form));
  EXPECT_EQ(t.session->DuplicateDepthThreshold, 0.01f);
  EXPECT_EQ(ReadWholeFile(t.data.File("Rod Break Threshold.txt")), "15\r\n0\r\n");
  EXPECT_EQ(ReadWholeFile(t.data.File("SBT brightness factor.txt")), "40\r\n");
  EXPECT_EQ(ReadWholeFile(t.data.File("Ball Tip Area Calculation.txt")), "0\r\n");
  EXPECT_EQ(ReadGeneralSettings(ReadWholeFile(t.data.File("GENERAL SETTINGS.txt"))).Customer, "Delta Bridge");
  // The brightness lifts each zone colour and stops at 255.
  EXPECT_EQ(SbtZoneColors(9, 40)[0], (ZoneRgb{255, 77, 107}));
  EXPECT_EQ(SbtZoneColors(12, 40).size(), 12u);
}

TEST(Templates, SaveSelectApplyAndADefaultWhoseFileIsGone) {
  test::TempDirectory data;
  ScriptedPrompts prompts({"No", "Yes"});
  EXPECT_FALSE(SaveSoundingTemplate(data.Path(), "", {"Tip"}, false, prompts));
  EXPECT_TRUE(SaveSoundingTemplate(data.Path(), "Bridge.tem", {"Pore Pressure (psi)", "Tip (tsf)"}, true, prompts));
  EXPECT_TRUE(FileExists(data.File("Bridge.tem"))) << "a name with .tem is not doubled";
  EXPECT_FALSE(SaveSoundingTemplate(data.Path(), "Bridge", {"Tip (tsf)"}, false, prompts));
  EXPECT_TRUE(SaveSoundingTemplate(data.Path(), "Bridge", {"Pore Pressure (psi)", "Missing", "Tip (tsf)"}, false,
                                   prompts));
  EXPECT_EQ(prompts.Texts(), (std::vector<std::string>{"! Please enter a template name to save",
                                                       "? Template Bridge.tem already exists. Overwrite? -> No",
                                                       "? Template Bridge.tem already exists. Overwrite? -> Yes"}));
  EXPECT_EQ(ReadDefaultTemplateName(data.Path()), "Bridge.tem");
  const auto stored = ReadDefaultTemplateSelection(data.Path());
  // An absent channel is skipped and the order of the template kept.
  EXPECT_EQ(UseSoundingTemplate({"Tip (tsf)", "Sleeve (tsf)", "Pore Pressure (psi)"}, stored),
            (std::vector<int>{2, 0}));

  EXPECT_EQ(SelectSoundingTemplate(data.Path(), "Bridge.tem", false).size(), 3u);
  EXPECT_FALSE(FileExists(data.File("Default Template.txt"))) << "unticked on the default removes it";
  SelectSoundingTemplate(data.Path(), "Bridge.tem", true);
  DeleteSoundingTemplate(data.Path(), "Bridge.tem");
  EXPECT_EQ(ReadDefaultTemplateName(data.Path()), "Bridge.tem");
  EXPECT_TRUE(ReadDefaultTemplateSelection(data.Path()).empty());
  EXPECT_FAILURE(SelectSoundingTemplate(data.Path(), "Bridge.tem", true), kErrFileNotFound, "ReadSoundingTemplate");
  EXPECT_FAILURE(ReadSoundingTemplate("3\r\nTip\r\n"), kErrPastEndOfFile, "ReadSoundingTemplate");
}

}  // namespace
}  // namespace marlview
