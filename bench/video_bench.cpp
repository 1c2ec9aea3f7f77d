// How long extracting the picture of every row of a 1000-row time file takes on the demo video,
// each frame a start of the real ffmpeg, against one read of the time file and the crop of a frame.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>

#include "core/common/file_access.h"
#include "core/common/number_format.h"
#include "core/common/user_prompts.h"
#include "core/video/process_runner.h"
#include "core/video/time_file.h"
#include "core/video/video_frames.h"
#include "core/video/video_session.h"
#include "support/test_support.h"

namespace marlview {
namespace {

// 1000 rows 1 mm apart, two hundredths of a clock second apart: all within the demo's 20 seconds.
std::string LongTimeFile() {
  std::string bytes = "Optic Cone Time File.  Column 1 = depth (m), Column 2 = system time\r\n";
  for (int n = 0; n < 1000; ++n) bytes += FormatNumber(2 + 0.001 * n, "000.000") + " " + FormatNumber(n * 0.02, "0.00") + "\r\n";
  return bytes;
}

void BM_ReadTimeFile(benchmark::State& state) {
  const std::string bytes = LongTimeFile();
  for (auto _ : state) benchmark::DoNotOptimize(ReadTimeFile(bytes));
}
BENCHMARK(BM_ReadTimeFile);

void BM_CopyImage(benchmark::State& state) {
  RgbImage frame{kFrameWidth, kFrameHeight, std::vector<uint8_t>(3 * kFrameWidth * kFrameHeight, 100)};
  const CropRectangle crop = SetOutputImageSize(10);
  for (auto _ : state) benchmark::DoNotOptimize(CopyImage(frame, crop, 10));
}
BENCHMARK(BM_CopyImage);

void BM_ExtractEveryRow(benchmark::State& state) {
  if (FindProgramOnPath("ffmpeg").empty() || FindProgramOnPath("ffprobe").empty()) {
    state.SkipWithError("ffmpeg is not installed");
    return;
  }
  test::TempDirectory data, files;
  data.Write("ffmpeg location.txt", FindProgramOnPath("ffmpeg") + "\r\n" + FindProgramOnPath("ffprobe") + "\r\n");
  files.Write("LONG.tim", LongTimeFile());
  Session session({data.Path(), test::DefaultsDirectory()});
  ScriptedPrompts prompts({test::SamplesDirectory() + "/OCPT-A01.mp4", files.File("LONG.tim")});
  PosixProcessRunner runner;
  VideoSession video(session, prompts, runner);
  if (!video.OpenVideoSession()) {
    state.SkipWithError("the session did not open");
    return;
  }
  video.Load();
  int pictures = 0;
  for (auto _ : state) {
    video.ExtractImagesAs(files.File("LONG"), [&](int, const std::string&) {
      ++pictures;
      return true;
    });
  }
  state.counters["pictures"] = pictures;
  state.counters["seconds_per_picture"] =
      benchmark::Counter(static_cast<double>(pictures), benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK(BM_ExtractEveryRow)->Iterations(1)->UseRealTime()->Unit(benchmark::kSecond);

}  // namespace
}  // namespace marlview

BENCHMARK_MAIN();
