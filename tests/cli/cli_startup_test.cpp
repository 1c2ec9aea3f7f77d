// What marlview-cli starts: the subcommands that print or write text run without any GUI
// application (no font database, no platform plugin); a picture starts one on demand. A program
// of its own, so that no other test has started one before.
#include <gtest/gtest.h>

#include <QGuiApplication>

#include "cli/cli_fixture.h"
#include "core/common/file_access.h"
#include "support/test_support.h"

namespace marlview {
namespace {

using CliStartupTest = test::CliFixture;

TEST_F(CliStartupTest, OnlyAPictureStartsTheGuiApplication) {
  const std::string sounding = Write("CPT-T01.DAT", test::SimpleDat(40).Bytes());
  const std::string samples = test::SamplesDirectory() + "/";
  const std::vector<std::vector<std::string>> text_runs = {
      {"info", sounding},
      {"channels", sounding, "--kind", "3"},
      {"export", sounding, "--format", "txt", "-o", files_.File("out.txt")},
      {"export", sounding, "--format", "gin", "--unit", "kpa", "-o", files_.File("out.gIN")},
      {"dissipation", samples + "DIS-A01.DIS"},
      {"dissipation", samples + "DIS-A01.DIS", "--test", "2", "--t50", "--u0", "640", "--u100", "92"},
      {"seismic", samples + "SCPT-A01.SEI", "--hammer-distance", "0.6", "--velocities"},
      {"info", files_.File("NO-SUCH-FILE.DAT")},
  };
  for (const auto& args : text_runs) {
    const test::CliRun run = Run(args);
    EXPECT_EQ(run.status, args.back() == files_.File("NO-SUCH-FILE.DAT") ? 1 : 0) << args[0] << ": " << run.err;
    EXPECT_EQ(QCoreApplication::instance(), nullptr) << args[0] << " started a GUI application";
  }
  const test::CliRun plot = Run({"plot", sounding, "-o", files_.File("plot.png")});
  EXPECT_EQ(plot.status, 0) << plot.err;
  EXPECT_NE(qobject_cast<QGuiApplication*>(QCoreApplication::instance()), nullptr);
  EXPECT_TRUE(TryReadWholeFile(files_.File("plot.png")).has_value());
}

}  // namespace
}  // namespace marlview
