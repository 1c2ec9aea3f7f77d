// marlview-cli edit run in process: operations in command-line order, refusals that go on, bad
// usage that saves nothing, saving in the family's own layout or the DAT compatible one.
#include <gtest/gtest.h>

#include <sstream>

#include "cli/cli_fixture.h"
#include "core/common/file_access.h"
#include "support/test_support.h"

namespace marlview {
namespace {

using test::CliRun;

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

// The first field after the depth of a channels line: the tip.
std::string Tip(const std::string& line) {
  const size_t first = line.find(',');
  return line.substr(first + 1, line.find(',', first + 1) - first - 1);
}

class CliEditTest : public test::CliFixture {
 protected:
  std::string Sounding() { return Write("CPT-E01.DAT", test::SimpleDat(10).Bytes()); }
};

TEST_F(CliEditTest, OperationsRunInOrderAndTheTableFollows) {
  const std::string file = Sounding();
  const CliRun run = Run({"edit", file, "--shift-channel", "Tip Resistance (Qc)=1", "--set",
                          "2:Tip Resistance (Qc):5", "--delete-row", "1", "--start-depth", "1", "--channels"});
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.err, "");
  const auto lines = Lines(run.out);
  ASSERT_EQ(lines.size(), 10u) << "a heading and nine readings";
  // Row 2 was set to 5 before row 1 went; the start depth of 1 m moves every depth.
  EXPECT_EQ(lines[1].substr(0, lines[1].find(',')), "1.04");
  EXPECT_EQ(Tip(lines[1]), "5");
  EXPECT_EQ(Tip(lines[2]), "1.103");
}

TEST_F(CliEditTest, ARefusalIsToldAndTheRunGoesOn) {
  const CliRun run = Run({"edit", Sounding(), "--start-depth", "deep", "--tip", "ball:0",
                          "--normalize-interval", "", "--set", "3:Tip Resistance (Qc):x", "--channels"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err,
            "! Please enter a valid depth\n! BALL TIP DIAMETER cannot be less than or equal to 0\n"
            "! Please enter a valid interval\n! Please enter a valid number\n");
  EXPECT_EQ(Lines(run.out).size(), 11u);
}

TEST_F(CliEditTest, BadUsageSavesNothing) {
  const std::string file = Sounding();
  const std::string out = files_.File("OUT.DAT");
  for (const std::vector<std::string>& args : std::vector<std::vector<std::string>>{
           {"edit", file, "--remove-negatives", "No Such Channel", "-o", out},
           {"edit", file, "--set", "11:Tip Resistance (Qc):1", "-o", out},
           {"edit", file, "--delete-row", "0", "-o", out},
           {"edit", file, "--start-depth", "1"},
           {"edit", file, "-o", out, "--channels"},
           {"edit", file, "--shift-channel", "Tip Resistance (Qc)", "-o", out},
       }) {
    const CliRun run = Run(args);
    EXPECT_EQ(run.status, 2) << args[2];
    EXPECT_TRUE(run.err.starts_with("marlview-cli: ")) << run.err;
    EXPECT_FALSE(TryReadWholeFile(out).has_value()) << args[2];
  }
}

TEST_F(CliEditTest, SavesInTheOwnLayoutOrTheDatCompatibleOne) {
  const std::string file = Sounding();
  const std::string out = files_.File("SAVED.DAT");
  ASSERT_EQ(Run({"edit", file, "--set-raw", "4:Tip Resistance (Qc):2.5", "-o", out}).status, 0);
  const auto saved = TryReadWholeFile(out);
  ASSERT_TRUE(saved.has_value());
  EXPECT_TRUE(saved->starts_with("KORVAN FILE VER: 08.05.2015\r\n"));
  const CliRun reopened = Run({"channels", out, "--raw"});
  ASSERT_EQ(reopened.status, 0) << reopened.err;
  EXPECT_EQ(Tip(Lines(reopened.out).at(4)), "2.5");

  // An existing file is replaced only when the question is answered Yes.
  const CliRun refused = Run({"edit", file, "-o", out});
  EXPECT_EQ(refused.err, "? " + out + " already exists. Overwrite? -> No\n");
  EXPECT_EQ(*TryReadWholeFile(out), *saved);

  const std::string compatible = files_.File("PLAIN.DAT");
  ASSERT_EQ(Run({"edit", file, "-o", compatible, "--dat-compatible"}).status, 0);
  const auto plain = TryReadWholeFile(compatible);
  ASSERT_TRUE(plain.has_value());
  EXPECT_FALSE(plain->starts_with("KORVAN")) << "the layout without the version line";
}

TEST_F(CliEditTest, APxDasSoundingTakesTheDepthOperationsAndNotTheGrid) {
  const std::string file = test::SamplesDirectory() + "/PXC-E05.CPT";
  const CliRun moved = Run({"edit", file, "--start-depth", "2", "--channels"});
  ASSERT_EQ(moved.status, 0) << moved.err;
  const CliRun plain = Run({"channels", file});
  const std::string first = Lines(plain.out).at(1);
  EXPECT_NEAR(std::stod(Lines(moved.out).at(1)), std::stod(first) + 2, 1e-5);
  const CliRun grid = Run({"edit", file, "--set", "1:Tip Resistance (Qc):1", "--channels"});
  EXPECT_EQ(grid.status, 2);
  EXPECT_NE(grid.err.find("is for .DAT soundings only"), std::string::npos) << grid.err;
}

}  // namespace
}  // namespace marlview
