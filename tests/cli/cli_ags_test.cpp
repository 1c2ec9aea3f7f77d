// export --format ags in process: the added dissipation tests with ch for the command line's Ir and
// cone area, the overwrite question, and the options that do not fit the format.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "cli/cli_fixture.h"
#include "core/common/file_access.h"
#include "support/test_support.h"

namespace marlview {
namespace {

using CliAgsTest = test::CliFixture;

// The fields of the DATA lines of group in an AGS file.
std::vector<std::vector<std::string>> DataOf(const std::string& ags, const std::string& group) {
  std::vector<std::vector<std::string>> rows;
  size_t at = ags.find("\"GROUP\",\"" + group + "\"\r\n");
  if (at == std::string::npos) return rows;
  for (size_t line = ags.find("\"DATA\",", at); line != std::string::npos && line < ags.find("\r\n\r\n", at);
       line = ags.find("\"DATA\",", line + 1)) {
    std::vector<std::string> fields;
    const std::string text = ags.substr(line, ags.find("\r\n", line) - line);
    for (size_t q = 0; q < text.size();) {
      const size_t end = text.find('"', q + 1);
      fields.push_back(text.substr(q + 1, end - q - 1));
      q = end + 2;
    }
    rows.push_back(fields);
  }
  return rows;
}

TEST_F(CliAgsTest, AddedTestsCarryTheirT50AndChForTheGivenConeAndRigidity) {
  const std::string samples = test::SamplesDirectory();
  const std::string out = files_.File("A01.ags");
  const test::CliRun run = Run({"export", samples + "/CPT-A01.DAT", "--format", "ags", "-o", out, "--with-dissipation",
                                samples + "/DIS-A01.DIS:2", "--ir", "50", "--cone-area", "15"});
  ASSERT_EQ(run.status, 0) << run.err;
  const auto scdg = DataOf(ReadWholeFile(out), "SCDG");
  ASSERT_EQ(scdg.size(), 1u);
  // DATA, LOCA_ID, SCPG_TESN, SCDG_DPTH, SCDG_PWPE, SCDG_DDIS, SCDG_T, SCDG_CH, SCDG_CHMT
  const double t50 = std::stod(scdg[0][6]);
  const double radius = std::sqrt(15 / std::numbers::pi) / 100;
  const double ch_per_year = 0.245 * radius * radius * std::sqrt(50.0) / t50 * 31557600;
  EXPECT_NEAR(std::stod(scdg[0][7]), ch_per_year, ch_per_year * 0.01);

  const test::CliRun kept = Run({"export", samples + "/CPT-A01.DAT", "--format", "ags", "-o", out});
  EXPECT_EQ(kept.status, 0);
  EXPECT_NE(kept.err.find("? File exists. Overwrite? -> No"), std::string::npos);
  EXPECT_EQ(DataOf(ReadWholeFile(out), "SCDG").size(), 1u) << "the file was kept";

  const test::CliRun past_end = Run({"export", samples + "/CPT-A01.DAT", "--format", "ags", "-o", out, "--yes",
                                   "--with-dissipation", samples + "/DIS-A01.DIS:99"});
  EXPECT_EQ(past_end.status, 1);
  EXPECT_NE(past_end.err.find("Subscript out of range"), std::string::npos) << past_end.err;
}

TEST_F(CliAgsTest, OptionsThatDoNotFitTheFormatAreBadUsage) {
  const std::string file = test::SamplesDirectory() + "/CPT-A01.DAT";
  const std::string out = files_.File("x.ags");
  for (const std::vector<std::string>& extra : std::vector<std::vector<std::string>>{
           {"--no-header"}, {"--unit", "kpa"}, {"--channel", "Sleeve Friction"}, {"--ags-version", "4.3"},
           {"--ir", "0"}, {"--cone-area", "ten"}}) {
    std::vector<std::string> args{"export", file, "--format", "ags", "-o", out};
    args.insert(args.end(), extra.begin(), extra.end());
    EXPECT_EQ(Run(args).status, 2) << extra.front();
  }
  EXPECT_EQ(Run({"export", file, "--format", "csv", "-o", out, "--ags-version", "4.2"}).status, 2);
  EXPECT_FALSE(FileExists(out));
}

}  // namespace
}  // namespace marlview
