// marlview-cli settings and template: what start-up read, the dialogs' OK, and channel templates.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "cli/cli_fixture.h"
#include "core/common/file_access.h"

namespace marlview {
namespace {

using Json = nlohmann::json;
using CliSettingsTest = test::CliFixture;

TEST_F(CliSettingsTest, ShowGivesTheDefaultsOfAFreshDirectoryAndSetWritesWhatEachDialogWrites) {
  test::CliRun show = Run({"settings", "show"});
  ASSERT_EQ(show.status, 0) << show.err;
  Json j = Json::parse(show.out);
  EXPECT_EQ(j["general"]["defaultSystem"], 3);
  EXPECT_EQ(j["general"]["soilDensity"].dump(), "120");
  EXPECT_EQ(j["general"]["duplicateDepthTolerance"].dump(), "0.005");
  EXPECT_EQ(j["printSettings"]["PX DAS"]["sounding"]["Plot1Header16"], 17);
  EXPECT_EQ(j["printSettings"]["QRD FIELDBOX"]["video"].size(), 67u);
  EXPECT_EQ(j["sbtColors"]["twelve"][3], Json::parse("[93, 96, 225]"));
  EXPECT_TRUE(j["defaultTemplate"].is_null());
  EXPECT_FALSE(j["logo"]["present"]);
  EXPECT_EQ(j["normalisedClassification"], 0);
  EXPECT_EQ(Json::parse(Run({"--sbtn", "settings", "show"}).out)["normalisedClassification"], 1);
  EXPECT_EQ(Run({"settings", "set", "normalisedClassification=1"}).status, 0);
  EXPECT_EQ(ReadWholeFile(settings_.File("Normalised Classification.txt")), "1\r\n");

  // Bad usage anywhere writes nothing.
  EXPECT_EQ(Run({"settings", "set", "general.customer=Delta", "general.defaultSystem=40000"}).status, 2);
  EXPECT_EQ(Run({"settings", "set", "general.customer=Delta", "printSettings.PX DAS.sounding.NoSuchLine=1"}).status, 2);
  EXPECT_EQ(Run({"settings", "set", "logo.scale.6=50"}).status, 2);
  EXPECT_FALSE(FileExists(settings_.File("GENERAL SETTINGS.txt")));

  // A tolerance above a centimetre stops the general settings only.
  test::CliRun set = Run({"settings", "set", "general.customer=Delta Bridge", "general.duplicateDepthTolerance=0.02",
                          "customHeaders.2.video.value=Truck 4", "printSettings.PX DAS.sounding.PlotLeftMargin=0.75",
                          "logo.offsetY.5=-20", "lastPrint.12=3"});
  EXPECT_EQ(set.status, 0);
  EXPECT_EQ(set.err, "! DUPLICATE DEPTH THRESHOLD CANNOT EXCEED .01 METERS\n");
  EXPECT_TRUE(set.out.empty());
  EXPECT_FALSE(FileExists(settings_.File("GENERAL SETTINGS.txt")));
  EXPECT_FALSE(FileExists(settings_.File("FIELDBOX SOUNDING HEADERS.txt")));
  EXPECT_TRUE(ReadWholeFile(settings_.File("LAST PRINT SETTINGS.txt")).ends_with("0\r\n3\r\n"));
  EXPECT_EQ(Run({"settings", "set", "general.duplicateDepthTolerance=0.01", "sbtBrightness=50"}).status, 0);

  j = Json::parse(Run({"settings", "show"}).out);
  EXPECT_EQ(j["general"]["customer"], "");
  EXPECT_EQ(j["general"]["duplicateDepthTolerance"].dump(), "0.01");
  EXPECT_EQ(j["customHeaders"][1][3]["value"], "Truck 4");
  EXPECT_EQ(j["printSettings"]["PX DAS"]["sounding"]["PlotLeftMargin"].dump(), "0.75");
  EXPECT_EQ(j["logo"]["offsetY"][4], -20);
  EXPECT_EQ(j["sbtColors"]["nine"][0], Json::parse("[255, 87, 117]"));
}

TEST_F(CliSettingsTest, TemplatesAreSavedSelectedAppliedAndDeleted) {
  const std::string sounding = test::SamplesDirectory() + "/CPT-A01.DAT";
  test::CliRun none = Run({"template", "apply", sounding});
  ASSERT_EQ(none.status, 0) << none.err;
  EXPECT_TRUE(none.out.empty()) << "no default, no selection";

  EXPECT_EQ(Run({"template", "save", ""}).err, "! Please enter a template name to save\n");
  const test::CliRun save = Run({"template", "save", "Bridge", "--channel", "No Such Channel", "--default"});
  EXPECT_EQ(save.status, 0) << save.err;
  EXPECT_EQ(ReadWholeFile(settings_.File("Bridge.tem")), "1\r\nNo Such Channel\r\n");
  EXPECT_EQ(ReadWholeFile(settings_.File("Default Template.txt")), "Bridge.tem\r\n");
  const test::CliRun again = Run({"template", "save", "Bridge.tem"});
  EXPECT_EQ(again.err, "? Template Bridge.tem already exists. Overwrite? -> No\n");
  EXPECT_EQ(ReadWholeFile(settings_.File("Bridge.tem")), "1\r\nNo Such Channel\r\n");

  settings_.Write("Order.tem", "3\r\nPore Pressure U2\r\nnothing\r\nTip Resistance (Qc)\r\n");
  test::CliRun order = Run({"template", "apply", sounding, "Order"});
  EXPECT_EQ(order.status, 0) << order.err;
  // Each name found is selected in the template's order; one the sounding lacks is skipped.
  EXPECT_EQ(order.out, "Pore Pressure U2\nTip Resistance (Qc)\n");

  EXPECT_EQ(Run({"template", "select", "Order", "--default"}).status, 0);
  EXPECT_EQ(Run({"template", "apply", sounding}).out, order.out) << "the default fills the selection";
  EXPECT_EQ(Run({"template", "delete", "Order"}).status, 0);
  EXPECT_EQ(ReadWholeFile(settings_.File("Default Template.txt")), "Order.tem\r\n");
  const test::CliRun gone = Run({"template", "apply", sounding});
  EXPECT_EQ(gone.status, 0);
  EXPECT_TRUE(gone.out.empty() && gone.err.empty()) << "a default whose file is gone selects nothing, silently";

  const test::CliRun missing = Run({"template", "select", "Order", "--no-default"});
  EXPECT_EQ(missing.status, 1);
  EXPECT_EQ(missing.err, "! Marlview has encountered an error: Error #53: 'File not found' from 'ReadSoundingTemplate'\n");
  settings_.Write("Short.tem", "4\r\nTip Resistance (Qc)\r\n");
  const test::CliRun short_file = Run({"template", "apply", sounding, "Short"});
  EXPECT_EQ(short_file.status, 1);
  EXPECT_TRUE(short_file.out.empty());
  EXPECT_EQ(short_file.err,
            "! Marlview has encountered an error: Error #62: 'Input past end of file' from 'ReadSoundingTemplate'\n");
}

}  // namespace
}  // namespace marlview
