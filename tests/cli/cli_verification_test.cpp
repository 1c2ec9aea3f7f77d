// marlview-cli verification: the view, the table, the graph and the pages, and what is refused.
#include <nlohmann/json.hpp>

#include <algorithm>

#include "cli/cli_fixture.h"
#include "core/common/file_access.h"

namespace marlview {
namespace {

using test::CliRun;

class CliVerificationTest : public test::CliFixture {
 protected:
  std::string Sample() { return test::SamplesDirectory() + "/CONE-DSC1042.vrf"; }
};

TEST_F(CliVerificationTest, ViewTableChartAndPages) {
  const CliRun view = Run({"verification", Sample()});
  ASSERT_EQ(view.status, 0) << view.err;
  const auto json = nlohmann::json::parse(view.out);
  EXPECT_EQ(json["family"], "FIELDBOX");
  EXPECT_EQ(json["channels"][0]["rowCount"], 10);
  EXPECT_EQ(json["channels"][0]["rows"][0]["deviation"], 1000) << "the marker of a row with nothing applied";

  const CliRun table = Run({"verification", Sample(), "--table", "--channel", "2"});
  ASSERT_EQ(table.status, 0) << table.err;
  // 250 lb on 23.25 in2 is 10.753 psi as the file holds it; measured 10.791 psi is
  // (10.791 - 10.753) / 10.753 = 0.35 % high.
  EXPECT_NE(table.out.find("\n2,2,10.753,10.791,0.35\n"), std::string::npos) << table.out;
  EXPECT_NE(table.out.find("\n2,10,NOT MEASURED,NOT MEASURED,NOT MEASURED\n"), std::string::npos);
  EXPECT_EQ(std::count(table.out.begin(), table.out.end(), '\n'), 11);

  const CliRun chart = Run({"verification", Sample(), "--chart"});
  ASSERT_EQ(chart.status, 0) << chart.err;
  EXPECT_EQ(nlohmann::json::parse(chart.out)["points"].size(), 10u);

  const std::string pdf = files_.File("all.pdf");
  ASSERT_EQ(Run({"verification", Sample(), "--report", "-o", pdf, "--all"}).status, 0);
  EXPECT_NE(ReadWholeFile(pdf).find("/Count 3"), std::string::npos);
}

TEST_F(CliVerificationTest, BadUsageAndBadFiles) {
  for (const std::vector<std::string>& args :
       {std::vector<std::string>{"verification", Sample(), "--channel", "4"},
        {"verification", Sample(), "--report"},
        {"verification", Sample(), "--chart", "-o", "out.pdf"},
        {"verification", Sample(), "--table", "--chart"},
        {"verification", files_.File("missing.vrf")}}) {
    const CliRun run = Run(args);
    EXPECT_EQ(run.status, 2) << args[2];
    EXPECT_EQ(run.out, "");
  }
  const std::string bad = Write("BAD.vrf", "DSC1042\r\n2026-10-14\r\n");
  const CliRun run = Run({"verification", bad});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err,
            "! Marlview has encountered an error: Error #62: 'Input past end of file' from 'OpenVerificationFile'\n");
}

}  // namespace
}  // namespace marlview
