#include <gtest/gtest.h>

#include <filesystem>

#include "cli_fixture.h"
#include "core/common/file_access.h"
#include "nlohmann/json.hpp"

namespace marlview::test {
namespace {

class CliSetTest : public CliFixture {
 protected:
  std::string Dat(const std::string& name, int readings, double step = 0.02) {
    DatFile file = SimpleDat(readings);
    for (int r = 0; r < readings; ++r) file.rows[static_cast<size_t>(r)][0] = step * (r + 1);
    return Write(name, file.Bytes());
  }
  // The name of a measured channel (1-based) as the channels table heads it.
  std::string ChannelName(const std::string& file, int channel) {
    std::string heading = Run({"channels", file}).out;
    heading = heading.substr(0, heading.find('\n'));
    size_t start = 0;
    for (int i = 0; i < channel; ++i) start = heading.find(',', start) + 1;
    return heading.substr(start, heading.find(',', start) - start);
  }
};

TEST_F(CliSetTest, BatchFilesAreByteForByteTheSingleExports) {
  const std::string a = Dat("HOLE-A.DAT", 40);
  const std::string p = Write("HOLE-P.CPT", SimpleCpt(25).Bytes());
  const std::string dir = files_.File("out");
  const CliRun run = Run({"set", a, p, "--batch", "-o", dir, "--txt", "header", "--csv", "no-header", "--cor", "header",
                          "--ecp", "kpa", "--gin", "mpa"});
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_NE(run.err.find("! EXPORT/PRINT COMPLETE"), std::string::npos);
  struct Form {
    const char* ending;
    std::vector<std::string> options;
  };
  const std::vector<Form> forms{{".txt", {"--format", "txt"}},
                                {".csv", {"--format", "csv", "--no-header"}},
                                {".cor", {"--format", "cor"}},
                                {".ecp", {"--format", "ecp", "--unit", "kpa"}},
                                {".gIN", {"--format", "gin", "--unit", "mpa"}}};
  for (const std::string& stem : {std::string("HOLE-A"), std::string("HOLE-P")}) {
    const std::string source = stem == "HOLE-A" ? a : p;
    for (const Form& form : forms) {
      const std::string single = files_.File(stem + "-single" + form.ending);
      std::vector<std::string> args{"export", source, "-o", single};
      args.insert(args.end(), form.options.begin(), form.options.end());
      ASSERT_EQ(Run(args).status, 0);
      EXPECT_EQ(ReadWholeFile(dir + "/" + stem + form.ending), ReadWholeFile(single)) << stem << form.ending;
    }
  }
  EXPECT_EQ(ReadWholeFile(settings_.File("batch export settings.txt")), "0\r\n0\r\n1\r\n1\r\n1\r\n0\r\n1\r\n1\r\n1\r\n4\r\n1\r\n3\r\n1\r\n");
  // Run again: each existing file is kept, the question told and answered No.
  const CliRun again = Run({"set", a, "--batch", "-o", dir, "--txt", "no-header"});
  EXPECT_NE(again.err.find("? File exists. Overwrite? -> No"), std::string::npos);
  EXPECT_EQ(again.status, 0);
}

TEST_F(CliSetTest, LoadingRefusesThirtyOneFilesAndStopsAtAFailingOne) {
  const std::string a = Dat("A.DAT", 5);
  std::vector<std::string> args{"set"};
  for (int i = 0; i < 31; ++i) args.push_back(a);
  args.insert(args.end(), {"--batch", "-o", files_.File("out")});
  CliRun run = Run(args);
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "! MORE THAN 30 TESTS HAVE BEEN LOADED AND SELECTED\n");
  const std::string bad = Write("BAD.DAT", "nothing here\r\n");
  run = Run({"set", a, bad, a, "--list", "combined", "--format", "csv", "-o", files_.File("L.csv"), "--interval", "0.1"});
  EXPECT_EQ(run.status, 1);
  EXPECT_FALSE(FileExists(files_.File("L.csv")));
  EXPECT_FALSE(std::filesystem::exists(files_.File("out")));
}

TEST_F(CliSetTest, ListWritesTheTickedTestsOnTheCommonGrid) {
  const std::string a = Dat("A.DAT", 50);          // to 1.00 m
  const std::string b = Dat("B.DAT", 10, 0.05);    // to 0.50 m
  const std::string pore = ChannelName(a, 3);
  const std::string out = files_.File("L");
  CliRun run = Run({"set", a, b, "--channel", pore, "--list", "combined", "--format", "csv", "-o", out,
                    "--no-header", "--interval", "0.25"});
  ASSERT_EQ(run.status, 0) << run.err;
  const std::string text = ReadWholeFile(out + ".csv");
  EXPECT_EQ(text.substr(0, text.find("\r\n")).find("Depth,"), 0u);
  EXPECT_NE(text.find("\r\n0.250,"), std::string::npos);
  EXPECT_NE(text.find("\r\n0.750,"), std::string::npos);
  // B ends at 0.50: its cells are empty on the rows after.
  const size_t last = text.find("\r\n1.000,");
  ASSERT_NE(last, std::string::npos);
  EXPECT_EQ(text.substr(text.size() - 3), ",\r\n");
  // The checks, in their order.
  run = Run({"set", a, "--list", "combined", "--format", "csv", "-o", out});
  EXPECT_EQ(run.err, "! Please select at least one channel to plot\n");
  run = Run({"set", a, "--channel", pore, "--list", "side-by-side", "--format", "txt", "-o", out});
  EXPECT_EQ(run.err, "! DEPTH INTERVAL MUST BE GREATER THAN 0\n");
  EXPECT_EQ(Run({"set", a, "--channel", "Nothing", "--list", "combined", "--format", "txt", "-o", out}).status, 2);
  EXPECT_EQ(Run({"set", a, "--test", "2", "--batch", "-o", out}).status, 2);
  EXPECT_EQ(Run({"set", a, "--list", "combined", "--plot", "combined", "-o", out}).status, 2);
}

TEST_F(CliSetTest, PlotLayoutShowsCommonAndIndividualScales) {
  DatFile strong = SimpleDat(20);
  for (auto& row : strong.rows) row[3] *= 4;
  const std::string a = Dat("A.DAT", 20);
  const std::string b = Write("B.DAT", strong.Bytes());
  const std::string pore = ChannelName(a, 3);
  auto layout = [&](const std::string& scaling) {
    const CliRun run = Run({"set", a, b, "--channel", pore, "--interval", "0.1", "--scaling", scaling,
                            "--plot", "combined", "--layout"});
    EXPECT_EQ(run.status, 0) << run.err;
    return nlohmann::json::parse(run.out);
  };
  const auto common = layout("common");
  EXPECT_EQ(common["title"], "COMBINED SOUNDING PLOT");
  EXPECT_EQ(common["legend"].size(), 2u);
  EXPECT_NE(common["legend"][0]["colour"], common["legend"][1]["colour"]);
  const auto& tests = common["panels"][0]["tests"];
  EXPECT_EQ(tests[0]["max"], tests[1]["max"]);
  const auto individual = layout("individual");
  const auto& own = individual["panels"][0]["tests"];
  EXPECT_LT(own[0]["max"].get<double>(), own[1]["max"].get<double>());
  EXPECT_EQ(own[1]["max"], tests[1]["max"]);
  EXPECT_DOUBLE_EQ(individual["depthAxis"]["max"].get<double>(), 0.4);

  const std::string png = files_.File("side.png");
  const CliRun side = Run({"set", a, b, "--channel", pore, "--interval", "0.1", "--plot", "side-by-side",
                           "-o", png, "--width", "400", "--height", "300"});
  ASSERT_EQ(side.status, 0) << side.err;
  EXPECT_EQ(ReadWholeFile(png).substr(1, 3), "PNG");
}

TEST_F(CliSetTest, ClassificationChannelsGoSideBySideOnlyWithTheirChartsFootnote) {
  const std::string a = Dat("A.DAT", 20);
  const std::string tip = ChannelName(a, 1);
  CliRun run = Run({"set", a, "--channel", tip, "--channel", "SBT(QT)(1990)*", "--interval", "0.1", "--plot", "combined",
                    "--layout"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "! CANNOT PLOT SBT(90) ON COMBINED PLOT\n");
  run = Run({"set", a, "--channel", "SBT(QT)(1990)*", "--interval", "0.1", "--plot", "side-by-side", "--layout"});
  ASSERT_EQ(run.status, 0) << run.err;
  const auto layout = nlohmann::json::parse(run.out);
  EXPECT_TRUE(layout["footnote"].get<std::string>().starts_with("*SBT/SPT CORRELATION: "));
  EXPECT_TRUE(layout["footnote"].get<std::string>().ends_with("; **Overconsolidated or Cemented"));
  EXPECT_EQ(layout["panels"][0]["tests"][0]["max"], 9.0);
  EXPECT_EQ(layout["panels"][0]["tests"][0]["caption"], "TEST A.DAT");
}

TEST_F(CliSetTest, TheTextListPadsEachColumnToTheColumnWidthInFeet) {
  const std::string a = Dat("A.DAT", 50);
  const std::string b = Dat("B.DAT", 10);
  const std::string out = files_.File("L.txt");
  const CliRun run = Run({"--feet", "set", a, b, "--channel", ChannelName(a, 1), "--list", "combined", "--format", "txt",
                          "-o", out, "--no-header", "--interval", "0.5"});
  ASSERT_EQ(run.status, 0) << run.err;
  const std::string text = ReadWholeFile(out);
  std::vector<std::string> lines;
  for (size_t start = 0; start < text.size();) {
    const size_t end = text.find("\r\n", start);
    lines.push_back(text.substr(start, end - start));
    start = end + 2;
  }
  // 50 readings of 2 cm reach 3.28 ft: seven rows of half a foot.
  ASSERT_EQ(lines.size(), 9u);
  EXPECT_EQ(lines[1].substr(0, 8), "    (ft)");
  EXPECT_EQ(lines[2].substr(0, 8), "   0.500");
  for (const std::string& line : lines) EXPECT_EQ(line.size(), 8u + 2 * 21) << line;
  // B ends at 0.66 ft: blanks in its column from 1.00 ft on.
  EXPECT_EQ(lines[4].substr(29), std::string(21, ' '));
}

}  // namespace
}  // namespace marlview::test
