// marlview-cli video run in process on the demo video and time file, with stand-ins for ffmpeg and
// ffprobe: the JSON view, the programs searched for, the settings, the log, a saved frame,
// refusals and bad usage.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <nlohmann/json.hpp>

#include "cli/cli_fixture.h"
#include "core/common/file_access.h"
#include "core/video/bmp_file.h"
#include "core/video/video_session.h"
#include "support/test_support.h"

namespace marlview {
namespace {

using test::CliRun;

class CliVideoTest : public test::CliFixture {
 protected:
  void SetUp() override {
    video_ = test::SamplesDirectory() + "/OCPT-A01.mp4";
    time_ = test::SamplesDirectory() + "/OCPT-A01.tim";
    RgbImage frame{720, 480, std::vector<uint8_t>(720 * 480 * 3, 90)};
    Write("frame.bmp", WriteBmp24(frame));
    // ffprobe answers a duration of 10.4 s; ffmpeg copies the frame to the last argument and ends
    // with the error Debian's gives once its first frame is written.
    ffprobe_ = Program("ffprobe", "#!/bin/sh\necho 'format.duration=\"10.400000\"'\n");
    ffmpeg_ = Program("ffmpeg", "#!/bin/sh\nfor a; do last=$a; done\ncp '" + files_.File("frame.bmp") +
                                    "' \"$last\"\nexit 1\n");
  }
  std::string Program(const std::string& name, const std::string& script) {
    const std::string path = Write(name, script);
    chmod(path.c_str(), 0755);
    return path;
  }
  void Locate() { settings_.Write("ffmpeg location.txt", ffmpeg_ + "\r\n" + ffprobe_ + "\r\n"); }
  CliRun Video(std::vector<std::string> args) {
    args.insert(args.begin(), {"video", video_, time_});
    return Run(args);
  }
  std::string video_, time_, ffmpeg_, ffprobe_;
};

TEST_F(CliVideoTest, JsonViewKeepsTheRowsWithinTheVideo) {
  Locate();
  const CliRun run = Video({"--crop", "10", "--columns", "2"});
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.err, "! " + std::string(kConfigurationMissingText) + "\n");
  const auto j = nlohmann::json::parse(run.out);
  EXPECT_EQ(j["duration"], 10);
  EXPECT_EQ(j["fileRows"], 24);
  EXPECT_EQ(j["rowCount"], 11);
  EXPECT_EQ(j["startDepth"], 2.0);
  EXPECT_EQ(j["configuration"]["present"], false);
  EXPECT_EQ(j["columns"], 2);
  EXPECT_EQ(j["crop"]["left"], 36);
  EXPECT_EQ(j["crop"]["width"], 648);
  EXPECT_EQ(j["sounding"], nullptr);
  EXPECT_EQ(j["rows"][7]["seek"], "3.5");
  EXPECT_EQ(j["rows"][10]["kept"], true);
  EXPECT_EQ(j["rows"][11]["kept"], false);
}

TEST_F(CliVideoTest, MissingProgramsAreTakenFromTheOptionsAndKept) {
  const CliRun run = Video({"--ffmpeg", ffmpeg_, "--ffprobe", ffprobe_, "--save-config", "--feet"});
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.err,
            "? FFMPEG directory has not been specified. If FFMPEG has been previously installed, press OK to search "
            "for FFMPEG -> OK\n"
            "! FFMPEG directory has been set\n"
            "! " + std::string(kConfigurationMissingText) + "\n");
  // ffprobe stands beside ffmpeg, so it is found without a question.
  EXPECT_EQ(ReadWholeFile(settings_.File("ffmpeg location.txt")), ffmpeg_ + "\r\n" + ffprobe_ + "\r\n");
  EXPECT_EQ(ReadWholeFile(settings_.File("OCPT Configuration.txt")), ".000\r\n2\r\n3\r\n0\r\n0\r\n");
}

TEST_F(CliVideoTest, AProgramNowhereToBeFoundEndsTheSession) {
  const std::string missing = files_.File("nowhere/ffmpeg");
  const CliRun run = Video({"--ffmpeg", missing, "--data-dir", settings_.Path()});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err.find("has been set"), std::string::npos);
  EXPECT_NE(run.err.find("! FFMPEG directory has not been set.  Cannot continue"), std::string::npos);
}

TEST_F(CliVideoTest, StartDepthRefusalGoesOnAndTheLogTakesChannelsAtEachDepth) {
  Locate();
  const std::string sounding = test::SamplesDirectory() + "/CPT-A01.DAT";
  const CliRun refused = Video({"--start-depth", "1.5", "--row", "3"});
  ASSERT_EQ(refused.status, 0);
  EXPECT_NE(refused.err.find("! START DEPTH MUST BE GREATER THAN 2.000 METERS\n"), std::string::npos);

  const CliRun run = Video({"--sounding", sounding, "--channel", "Tip Resistance (Qc)", "--interval", "10",
                            "--start-depth", "2.05", "--log", "--to", "2.2"});
  ASSERT_EQ(run.status, 0) << run.err;
  const std::vector<std::string> lines = [&] {
    std::vector<std::string> out;
    for (size_t b = 0, e; (e = run.out.find('\n', b)) != std::string::npos; b = e + 1) out.push_back(run.out.substr(b, e - b));
    return out;
  }();
  ASSERT_EQ(lines.size(), 3u) << run.out;
  EXPECT_EQ(lines[0], "row,depth,seek,Tip Resistance (Qc)");
  // From the start depth's row 4 (2.06 m) at 2.06 and 2.16 m.
  EXPECT_TRUE(lines[1].starts_with("4,2.06,1.5,")) << lines[1];
  EXPECT_TRUE(lines[2].starts_with("9,2.16,4.0,")) << lines[2];
  EXPECT_EQ(lines[1].find("N/A"), std::string::npos);

  EXPECT_EQ(Video({"--channel", "Tip Resistance (Qc)"}).status, 2);
  EXPECT_EQ(Video({"--sounding", sounding, "--channel", "No Such Channel"}).status, 2);
}

TEST_F(CliVideoTest, SavedFrameIsTheCroppedPictureAndAnEmptyOneIsBadUsage) {
  Locate();
  const std::string out = files_.File("frame out.bmp");
  const CliRun run = Video({"--crop", "10", "--row", "8", "--save-frame", "-o", out});
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, "{\"row\": 8, \"depth\": 2.14, \"seek\": \"3.5\", \"file\": \"" + out +
                         "\", \"width\": 648, \"height\": 432}\n");
  const auto saved = ReadBmp(ReadWholeFile(out));
  ASSERT_TRUE(saved.has_value());
  EXPECT_EQ(saved->width, 648);
  EXPECT_EQ(saved->Pixel(0, 0)[0], 90);

  const CliRun empty = Video({"--crop", "100", "--save-frame", "-o", files_.File("empty.bmp")});
  EXPECT_EQ(empty.status, 2);
  EXPECT_FALSE(FileExists(files_.File("empty.bmp")));
  EXPECT_EQ(Video({"--row", "12"}).status, 2);
}

TEST_F(CliVideoTest, ExtractionNamesPicturesInFeetAndTheLogPrintsToPdf) {
  Locate();
  // 7.1 ft starts at row 10 (2.18 m); the extraction saves the rows after it up to the last kept.
  const CliRun run = Video({"--feet", "--start-depth", "7.1", "--extract", "-o", files_.File("OUT.bmp")});
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, "row,depth,seek,file\n11,2.2,5.0," + files_.File("OUT(007.218ft).bmp") + "\n");
  EXPECT_TRUE(FileExists(files_.File("OUT(007.218ft).bmp")));

  const std::string pdf = files_.File("log.pdf");
  const CliRun report = Video({"--cover-sheet", "yes", "--columns", "1", "--report", "-o", pdf, "--to", "2.1"});
  ASSERT_EQ(report.status, 0) << report.err;
  EXPECT_EQ(report.out, "");
  EXPECT_TRUE(ReadWholeFile(pdf).starts_with("%PDF"));
}

TEST_F(CliVideoTest, ABrokenTimeFileIsAnErrorWithNothingWritten) {
  Locate();
  time_ = Write("BROKEN.tim", "Optic Cone Time File.\r\n2.000 1190686996\r\n2.020\t1190686997\r\n");
  const CliRun run = Video({"--log"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err, "! Marlview has encountered an error: Error #13: 'Type mismatch' from 'OpenVideoSession'\n");
}

}  // namespace
}  // namespace marlview
