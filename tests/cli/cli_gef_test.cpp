// marlview-cli on GEF files: the gef object of info, empty cells for missing readings, the choice
// of depth column, and dissipation reports in the sounding and dissipation subcommands.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "cli/cli_fixture.h"
#include "core/common/file_access.h"
#include "core/common/text_rules.h"
#include "support/test_support.h"

namespace marlview {
namespace {

using test::CliRun;

constexpr const char* kSounding =
    "#GEFID= 1, 1, 0\r\n#REPORTCODE= GEF-CPT-Report, 1, 1, 2\r\n#COLUMN= 3\r\n"
    "#COLUMNINFO= 1, m, penetration length, 1\r\n#COLUMNINFO= 2, MPa, qc, 2\r\n#COLUMNINFO= 3, m, depth, "
    "11\r\n"
    "#COLUMNVOID= 2, -999999\r\n#COLUMNVOID= 3, -999999\r\n#CHILD= 1, D01.gef, 0.04\r\n"
    "#COMMENT= first\r\n#COMMENT= second\r\n#EOH=\r\n"
    "0.02 1.5 0.02\r\n0.04 -999999 -999999\r\n0.06 2.5 0.059\r\n";

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  for (std::string_view line : SplitLines(text)) lines.emplace_back(line);
  return lines;
}

class CliGefTest : public test::CliFixture {};

TEST_F(CliGefTest, InfoGivesTheFilesColumnsAndKeys) {
  const CliRun run = Run({"info", Write("S01.gef", kSounding)});
  ASSERT_EQ(run.status, 0) << run.err;
  const auto info = nlohmann::json::parse(run.out);
  EXPECT_EQ(info["family"], 3);
  const auto& gef = info["gef"];
  EXPECT_EQ(gef["depthColumn"], 1);
  EXPECT_TRUE(gef["netAreaRatio"].is_null());
  EXPECT_EQ(gef["children"][0]["file"], "D01.gef");
  EXPECT_EQ(gef["columns"][1]["void"].get<double>(), -999999.0);
  EXPECT_EQ(gef["columns"][1]["missingCount"], 1);
  EXPECT_EQ(gef["columns"][0]["channel"], 0);
  EXPECT_TRUE(gef["columns"][0]["void"].is_null());
  EXPECT_EQ(gef["keys"]["GEFID"], "1, 1, 0");
  EXPECT_EQ(gef["keys"]["COMMENT"], "first\nsecond");
}

TEST_F(CliGefTest, ChannelsLeaveAMissingReadingEmptyExceptRaw) {
  const std::string path = Write("S01.gef", kSounding);
  const CliRun kpa = Run({"channels", path, "--mirror", "2"});
  ASSERT_EQ(kpa.status, 0) << kpa.err;
  // Row 2 lacks its tip and corrected depth; the derived channels after them are numbers.
  const std::vector<std::string> lines = Lines(kpa.out);
  ASSERT_GE(lines.size(), 4u);
  EXPECT_TRUE(lines[1].starts_with("0.02,1500,0.02,")) << lines[1];
  EXPECT_TRUE(lines[2].starts_with("0.04,,,")) << lines[2];
  const CliRun raw = Run({"channels", path, "--raw"});
  EXPECT_TRUE(Lines(raw.out)[2].starts_with("0.04,-999999,-999999,")) << raw.out;

  const CliRun corrected = Run({"--gef-depth", "corrected", "channels", path});
  ASSERT_EQ(corrected.status, 0) << corrected.err;
  // The void corrected depth drops its record; the penetration length, column 1, is channel 1.
  EXPECT_EQ(Lines(corrected.out).size(), 3u);
  EXPECT_TRUE(corrected.out.starts_with("Depth (m),Penetration Length,Tip Resistance (Qc),"))
      << corrected.out;
}

TEST_F(CliGefTest, DissipationReportsOpenOnlyAsDissipations) {
  const std::string path = Write("D01.gef", ReadWholeFile(test::TestDataPath("gef/test-artf52193dis.gef")));
  const CliRun refused = Run({"channels", path});
  EXPECT_EQ(refused.status, 1);
  EXPECT_EQ(refused.err, "! D01.gef is a dissipation file\n");
  const CliRun run = Run({"dissipation", path});
  ASSERT_EQ(run.status, 0) << run.err;
  const auto info = nlohmann::json::parse(run.out);
  EXPECT_EQ(info["fileKind"], 3);
  EXPECT_EQ(info["pressureUnit"], "kPa");
  EXPECT_EQ(info["parentFile"], "test-artf52193cpt.gef");
  EXPECT_EQ(info["tests"][0]["rowCount"], 96);
}

}  // namespace
}  // namespace marlview
