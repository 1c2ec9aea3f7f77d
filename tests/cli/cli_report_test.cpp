// marlview-cli report and chart: the PDF of the report's pages and the chart's points.
#include <cmath>
#include <nlohmann/json.hpp>

#include "cli/cli_fixture.h"
#include "core/common/file_access.h"

namespace marlview::test {
namespace {

using CliReportTest = CliFixture;

TEST_F(CliReportTest, ReportPrintsThePagesAsked) {
  const std::string file = Write("SMALL.DAT", SimpleDat(120).Bytes());
  const std::string pdf = files_.File("report.pdf");
  const CliRun both = Run({"report", file, "-o", pdf});
  EXPECT_EQ(both.status, 0) << both.err;
  EXPECT_EQ(both.err, "");
  EXPECT_EQ(ReadWholeFile(pdf).substr(0, 4), "%PDF");
  EXPECT_EQ(ReadWholeFile(pdf).find("/Subtype /Image"), std::string::npos) << "no logo file";

  const CliRun time = Run({"report", file, "-o", pdf, "--pages", "plot", "--channel", "Time"});
  EXPECT_EQ(time.status, 1);
  EXPECT_EQ(time.err, "! CANNOT PLOT TIME DATA\n");
  EXPECT_EQ(Run({"report", file, "-o", pdf, "--pages", "list", "--channel", "Time"}).status, 0)
      << "the list shows time";
  EXPECT_EQ(Run({"report", file, "-o", pdf, "--channel", "Cone Bearing"}).status, 2);
  EXPECT_EQ(Run({"report", file, "-o", pdf, "--pages", "cover"}).status, 2);
  EXPECT_EQ(Run({"report", file, "-o", files_.File("report.png")}).status, 2);
  EXPECT_EQ(Run({"report", files_.File("MISSING.DAT"), "-o", pdf}).status, 1);
}

TEST_F(CliReportTest, ChartGivesEachReadingItsPlace) {
  const std::string file = Write("SMALL.DAT", SimpleDat(30).Bytes());
  const CliRun points = Run({"chart", file, "--points"});
  ASSERT_EQ(points.status, 0) << points.err;
  const auto json = nlohmann::json::parse(points.out);
  EXPECT_EQ(json["reference"], "Robertson and Campanella (1983)");
  EXPECT_EQ(json["columnLimit"], 60);
  EXPECT_EQ(json["depthUnit"], "m");
  ASSERT_EQ(json["zones"].size(), 7u);
  ASSERT_EQ(json["points"].size(), 30u);
  for (const auto& point : json["points"]) {
    if (point["x"].is_null()) continue;
    const double ratio = point["frictionRatio"], tip = point["tip"];
    EXPECT_NEAR(point["x"].get<double>(), ratio * 10 / 60, 1e-6);
    EXPECT_NEAR(point["y"].get<double>(), 1 - std::log10(tip) / 3, 1e-6);
  }
  EXPECT_EQ(nlohmann::json::parse(Run({"--feet", "chart", file, "--points"}).out)["depthUnit"], "ft");

  const std::string png = files_.File("chart.png");
  const CliRun picture = Run({"chart", file, "-o", png, "--width", "500", "--height", "400"});
  EXPECT_EQ(picture.status, 0) << picture.err;
  EXPECT_EQ(ReadWholeFile(png).substr(1, 3), "PNG");
  EXPECT_EQ(Run({"chart", file}).status, 2);
  EXPECT_EQ(Run({"chart", file, "-o", png, "--points"}).status, 2);
  EXPECT_EQ(Run({"chart", file, "--points", "--width", "500"}).status, 2);
}

}  // namespace
}  // namespace marlview::test
