// The video session's core: the time file, the frame of a depth, the start depth, saved pictures
// and the log, with ffmpeg and ffprobe answered by a stand-in.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <deque>

#include "core/common/file_access.h"
#include "core/common/number_format.h"
#include "core/presentation/recording_surface.h"
#include "core/video/bmp_file.h"
#include "core/video/time_file.h"
#include "core/video/video_frames.h"
#include "core/video/video_report.h"
#include "core/video/video_session.h"
#include "support/test_support.h"

namespace marlview::test {
namespace {

// A frame whose pixels tell where they are: red the line, green the column, blue the column / 256.
RgbImage PositionFrame(int width = kFrameWidth, int height = kFrameHeight) {
  RgbImage frame{width, height, std::vector<uint8_t>(static_cast<size_t>(3 * width * height))};
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      uint8_t* p = frame.Pixel(x, y);
      p[0] = static_cast<uint8_t>(y % 256), p[1] = static_cast<uint8_t>(x % 256), p[2] = static_cast<uint8_t>(x / 256);
    }
  }
  return frame;
}

// ffprobe answers with the duration; ffmpeg writes a frame and ends with an error, as Debian's does.
struct FakeRunner : ProcessRunner {
  std::string duration = "20.000000";
  bool starts = true;
  std::vector<std::vector<std::string>> calls;
  ProcessResult Run(const std::string& program, const std::vector<std::string>& arguments, bool, bool) override {
    calls.push_back(arguments);
    if (!starts) return {};
    if (program.ends_with("ffprobe")) return {true, 0, "format.duration=\"" + duration + "\"\n"};
    WriteFileAtomically(arguments.back(), WriteBmp24(PositionFrame()));
    return {true, 1, {}};
  }
};

// Pages that keep every call, letter-sized.
struct RecordingJob : PrintJob {
  std::deque<RecordingSurface> pages;
  DrawingSurface& NewPage() override { return pages.emplace_back(612, 792, true); }
  bool EndDoc() override { return true; }
  double PageWidthPoints() const override { return 612; }
  double PageHeightPoints() const override { return 792; }
};

std::string TimeFile(const std::vector<std::pair<std::string, std::string>>& rows) {
  std::string bytes = "Optic Cone Time File.  Column 1 = depth (m), Column 2 = system time\r\n";
  for (const auto& [depth, time] : rows) bytes += depth + " " + time + "\r\n";
  return bytes;
}

TEST(TimeFile, TimesAreRelativeToTheFirstRowAndAWrappedClockRunsOn) {
  const TimeFileRows wrapped = ReadTimeFile(TimeFile({{"1.0", "1000"}, {"1.1", "1001"}, {"1.2", "3"}, {"1.3", "4"}}));
  EXPECT_EQ(wrapped.VideoRowTime, (std::vector<float>{0, 0, 1, 4, 8}));
  // A clock of 1190686996 s is finer than a 32-bit float holds: neighbouring seconds stay apart.
  const TimeFileRows large = ReadTimeFile(TimeFile({{"0.005", "1190686996"}, {"0.010", "1190686997"}, {"0.015", "1190686998"}}));
  EXPECT_EQ(large.VideoRowTime, (std::vector<float>{0, 0, 1, 2}));
  EXPECT_EQ(large.VideoRowDepth[3], 0.015f);
}

TEST(TimeFile, MalformedLinesAndTooManyRowsFail) {
  EXPECT_FAILURE(ReadTimeFile(TimeFile({{"1.0", "10"}, {"abc", "11"}})), kErrTypeMismatch, "");
  EXPECT_FAILURE(ReadTimeFile(TimeFile({{"1.0\t10", ""}})), kErrTypeMismatch, "");
  EXPECT_FAILURE(ReadTimeFile(TimeFile({{"", "1.0 10"}})), kErrTypeMismatch, "");
  std::vector<std::pair<std::string, std::string>> rows;
  for (int n = 0; n < kMaxVideoRows; ++n) rows.emplace_back(FormatNumber(n * 0.005, "000.000"), std::to_string(n));
  EXPECT_EQ(ReadTimeFile(TimeFile(rows)).Count(), kMaxVideoRows);
  rows.emplace_back("100.000", "20000");
  EXPECT_FAILURE(ReadTimeFile(TimeFile(rows)), kErrSubscript, "");
}

TEST(VideoFrames, SeekTextDurationAndCrop) {
  EXPECT_EQ(SeekText(0), "0.0");
  EXPECT_EQ(SeekText(7), "3.5");
  EXPECT_EQ(SeekText(0.3f), "0.2");
  EXPECT_EQ(SeekText(0.25f), "0.1");
  EXPECT_EQ(DurationFromProbe("format.duration=\"12.600000\"\n"), 13);
  EXPECT_EQ(DurationFromProbe("format.duration=\"12.500000\"\n"), 13);
  EXPECT_EQ(DurationFromProbe("format.duration=\"N/A\"\n"), 0);
  EXPECT_EQ(DurationFromProbe(""), 0);

  const CropRectangle none = SetOutputImageSize(0);
  EXPECT_EQ(none.CropLeft, 0);
  EXPECT_EQ(none.CropTop, 0);
  EXPECT_EQ(none.width, 720);
  const CropRectangle ten = SetOutputImageSize(10);
  EXPECT_EQ(ten.CropLeft, 36);
  EXPECT_EQ(ten.CropWidthRest, 683);
  EXPECT_EQ(ten.CropTop, 24);
  EXPECT_EQ(ten.CropHeightRest, 456);
  EXPECT_EQ(ten.width, 648);
  EXPECT_EQ(ten.height, 432);
  const CropRectangle all = SetOutputImageSize(100);
  EXPECT_EQ(all.width, 0);
  EXPECT_EQ(all.height, 0);
}

TEST(VideoFrames, OutputPictureKeepsOneFieldAndCuts) {
  const RgbImage out = CopyImage(PositionFrame(), SetOutputImageSize(10), 10);
  ASSERT_EQ(out.width, 648);
  ASSERT_EQ(out.height, 432);
  // Line 0 of the picture is line 24 of the frame, line 1 the same line again, line 3 line 26.
  EXPECT_EQ(out.Pixel(0, 0)[0], 24);
  EXPECT_EQ(out.Pixel(0, 1)[0], 24);
  EXPECT_EQ(out.Pixel(0, 3)[0], 26);
  EXPECT_EQ(out.Pixel(5, 0)[1], 41);
  const RgbImage whole = CopyImage(PositionFrame(), SetOutputImageSize(0), 0);
  EXPECT_EQ(whole.width, 720);
  EXPECT_EQ(whole.Pixel(719, 479)[0], 478 % 256);
}

TEST(BmpFile, WrittenPictureReadsBackAndBrokenFilesAreRefused) {
  const RgbImage frame = PositionFrame(37, 5);
  const std::string bytes = WriteBmp24(frame);
  EXPECT_EQ(bytes.size(), 54u + 112u * 5);
  const auto back = ReadBmp(bytes);
  ASSERT_TRUE(back.has_value());
  EXPECT_EQ(back->rgb, frame.rgb);
  EXPECT_FALSE(ReadBmp(bytes.substr(0, bytes.size() - 1)).has_value());
  EXPECT_FALSE(ReadBmp("BM").has_value());
}

class VideoSessionTest : public ::testing::Test {
 protected:
  void SetUp() override {
    t.data.Write("ffmpeg", "");
    t.data.Write("ffprobe", "");
  }
  // Opens the session on a time file of rows 2.00 m down, 2 cm and one clock second apart.
  void Open(int rows = 24, std::string duration = "20.000000") {
    std::vector<std::pair<std::string, std::string>> lines;
    for (int n = 0; n < rows; ++n) lines.emplace_back(FormatNumber(2 + 0.02 * n, "000.000"), std::to_string(1190686996 + n));
    files.Write("CONE-A.mp4", "");
    files.Write("CONE-A.tim", TimeFile(lines));
    runner.duration = std::move(duration);
    t.prompts.Script({files.File("CONE-A.mp4"), files.File("CONE-A.tim")});
    ASSERT_TRUE(video.OpenVideoSession());
    video.Load();
  }
  TestSession t;
  TempDirectory files;
  FakeRunner runner;
  VideoSession video{*t.session, t.prompts, runner};
};

TEST_F(VideoSessionTest, RowsPastTheVideosEndAreDroppedAndTheFirstFrameIsFetched) {
  Open(24, "9.6");
  EXPECT_EQ(video.VideoDuration, 10);
  // The row at exactly ten seconds stays.
  EXPECT_EQ(video.VideoRowCount, 11);
  EXPECT_EQ(video.rows.Count(), 24);
  EXPECT_EQ(t.prompts.Texts(), (std::vector<std::string>{"! " + std::string(kConfigurationMissingText)}));
  ASSERT_EQ(runner.calls.size(), 2u);
  EXPECT_EQ(runner.calls[1], FrameArguments("0.0", files.File("CONE-A.mp4"), t.data.File("temp.bmp")));
  ASSERT_NE(video.OutputPicture(), nullptr);
  EXPECT_EQ(video.OutputPicture()->width, 720);
  video.SetPosition(8);
  EXPECT_EQ(runner.calls.back()[1], "3.5");
  EXPECT_EQ(video.DepthLabel(8), "2.140 m");
}

TEST_F(VideoSessionTest, MissingProgramsAreSearchedForAndAProgramThatWillNotStartIsTold) {
  std::remove(t.data.File("ffprobe").c_str());
  files.Write("ffprobe", "");
  t.prompts.Script({"OK", files.File("ffprobe"), "", ""});
  EXPECT_FALSE(video.OpenVideoSession());
  EXPECT_EQ(t.prompts.Texts(),
            (std::vector<std::string>{"? FFPROBE directory has not been specified. If FFPROBE has been previously "
                                      "installed, press OK to search for FFPROBE -> OK",
                                      "! FFPROBE directory has been set"}));
  EXPECT_EQ(ReadWholeFile(t.data.File("ffmpeg location.txt")),
            t.data.File("ffmpeg") + "\r\n" + files.File("ffprobe") + "\r\n");

  runner.starts = false;
  t.prompts.ClearLog();
  Open();
  EXPECT_EQ(video.VideoDuration, 0);
  EXPECT_EQ(video.VideoRowCount, 1);
  EXPECT_EQ(video.OutputPicture(), nullptr);
  EXPECT_EQ(t.prompts.Texts()[0], "! " + std::string(kFailedToCreateProcessText));
}

TEST_F(VideoSessionTest, StartDepthRefusalsNameMetresInEitherUnit) {
  Open(24, "10");
  video.SetFeet(true);
  t.prompts.ClearLog();
  EXPECT_FALSE(video.ChangeStartDepth("6.5"));
  EXPECT_FALSE(video.ChangeStartDepth("7.3"));
  EXPECT_EQ(t.prompts.Texts(), (std::vector<std::string>{"! START DEPTH MUST BE GREATER THAN 6.562 METERS",
                                                         "! START DEPTH MUST BE LESS THAN 7.218 METERS"}));
  video.SetFeet(false);
  // At the last kept row's depth: accepted.
  EXPECT_TRUE(video.ChangeStartDepth("2.2"));
  EXPECT_EQ(video.ScrollMin, 11);
  EXPECT_TRUE(video.ChangeStartDepth("2.05"));
  EXPECT_EQ(video.ScrollMin, 4);
  EXPECT_EQ(video.Position, 4);
  EXPECT_EQ(video.StartDepthLabel(), "2.05");
}

TEST_F(VideoSessionTest, SavedPicturesAreNamedByDepthAndAnEmptyPictureIsRefused) {
  Open();
  video.SetPosition(3);
  EXPECT_EQ(video.CurrentImageName(), files.File("CONE-A(002.040m).bmp"));
  video.SetFeet(true);
  EXPECT_EQ(video.CurrentImageName(), files.File("CONE-A(006.693ft).bmp"));

  video.SetCropping(10);
  video.ChangeStartDepth("7.742");
  ASSERT_EQ(video.ScrollMin, 19);
  std::vector<std::string> names;
  video.ExtractImagesAs(files.File("OUT.BMP"), [&](int, const std::string& name) {
    names.push_back(name);
    return true;
  });
  // Rows 20 and 21 after the start: 2.38 m and 2.40 m, named with 3.2808 feet to the metre.
  EXPECT_EQ(names, (std::vector<std::string>{files.File("OUT(007.808ft).bmp"), files.File("OUT(007.874ft).bmp")}));
  const auto saved = ReadBmp(ReadWholeFile(names[1]));
  ASSERT_TRUE(saved.has_value());
  EXPECT_EQ(saved->width, 648);
  EXPECT_EQ(saved->height, 432);

  video.SetCropping(100);
  t.prompts.ClearLog();
  EXPECT_FALSE(video.SavePicture(files.File("EMPTY.bmp")));
  RecordingJob job;
  EXPECT_FALSE(PrintCurrentImage(job, video));
  EXPECT_EQ(t.prompts.Texts(), (std::vector<std::string>(2, "! " + std::string(kEmptyPictureText))));
  EXPECT_FALSE(FileExists(files.File("EMPTY.bmp")));
}

TEST_F(VideoSessionTest, LogRowsByFileAndBySteps) {
  Open(24, "40");
  // 2.00 m to 2.46 m, 24 rows.
  video.SetDepthInterval(kIntervalFromFile);
  EXPECT_EQ(video.LogRows("2.03", "2.1"), (std::vector<int>{3, 4, 5, 6}));
  video.SetDepthInterval(kInterval10);
  // The steps are reckoned in 64 bits against depths kept in 32: 2.1 is a hair deeper than row 6's
  // 2.1, and 2.0 + 3 x 0.1 a hair past the end.
  EXPECT_EQ(video.LogRows("2.0", "2.3"), (std::vector<int>{1, 7, 11}));
  video.SetDepthInterval(kInterval5);
  // Steps past the deepest row end the log.
  EXPECT_EQ(video.LogRows("2.4", "9"), (std::vector<int>{21, 24}));
  video.SetFeet(true);
  EXPECT_EQ(video.LogIntervalTexts(), (std::pair<std::string, std::string>{"6.562", "8.071"}));
}

TEST_F(VideoSessionTest, ChannelsAtEachRowsDepthWithNothingAboveTheFirstReading) {
  std::vector<std::pair<std::string, std::string>> lines{{"0.010", "1"}, {"0.030", "2"}, {"0.060", "3"}, {"0", "4"}};
  files.Write("V.mp4", "");
  files.Write("V.tim", TimeFile(lines));
  t.prompts.Script({files.File("V.mp4"), files.File("V.tim")});
  ASSERT_TRUE(video.OpenVideoSession());
  video.Load();
  files.Write("CPT-T01.DAT", SimpleDat(200).Bytes());
  ASSERT_TRUE(video.LoadSounding(files.File("CPT-T01.DAT")));
  const SoundingStore& s = t.session->Sounding();
  const int c = s.PorePressureChannel;
  ASSERT_GT(c, 0);
  EXPECT_EQ(video.ChannelCellText(1, c), "N/A ");
  EXPECT_EQ(video.ChannelCellText(4, c), "N/A ");
  EXPECT_FLOAT_EQ(*video.ChannelValue(2, c), (s.AlignedReadings(1, c) + s.AlignedReadings(2, c)) / 2);
  EXPECT_FLOAT_EQ(*video.ChannelValue(3, c), s.AlignedReadings(3, c));

  // The printed cells: the depth in its unit, then the channel's value or N/A.
  video.ClickAvailableChannel(c - 1);
  RecordingJob job;
  ASSERT_TRUE(PrintVideoLog(job, video, video.LogRows("0.01", "0.06")));
  ASSERT_EQ(job.pages.size(), 1u);
  const RecordingSurface& page = job.pages[0];
  EXPECT_TRUE(page.HasText("TEST #: V"));
  EXPECT_TRUE(page.HasText("  0.010 m "));
  EXPECT_TRUE(page.HasText("N/A " + s.ChannelName[static_cast<size_t>(c)]));
  EXPECT_TRUE(page.HasText(FormatNumber(s.AlignedReadings(3, c), "########0.000") + " "));
  EXPECT_TRUE(page.HasText("Page 1 of 1"));
  EXPECT_EQ(std::count_if(page.Calls().begin(), page.Calls().end(),
                          [](const RecordedCall& call) { return call.kind == RecordedCall::kPicture; }),
            4);
}

}  // namespace
}  // namespace marlview::test
