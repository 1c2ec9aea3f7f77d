// How long a save of a 10000-reading sounding takes in each layout: the bytes rendered from the
// store, then written to a temporary file, flushed to the disk and renamed over the target.
#include <benchmark/benchmark.h>

#include "core/io/dat_reader.h"
#include "core/io/sounding_writer.h"
#include "support/test_support.h"

namespace marlview {
namespace {

constexpr int kChannels = 20;

// 10000 readings of 20 channels with a clock behind each, in the KORVAN layout or the older one.
test::DatFile FullDat(int family) {
  test::DatFile file = test::SimpleDat(0);
  file.family = family;
  for (int c = 4; c <= kChannels; ++c) {
    file.channels.push_back({.sensor = c == kChannels ? "Rod Depth" : "Pore Pressure " + std::to_string(c)});
  }
  for (int r = 1; r <= kMaxReadings; ++r) {
    std::vector<double> row;
    if (family == 1) row.push_back(0.01 * r);
    for (int c = 1; c <= kChannels; ++c) row.push_back(0.001 * ((r * c) % 997) - 0.3);
    file.rows.push_back(std::move(row));
  }
  return file;
}

// A PX DAS sounding of 10000 readings of 20 channels, as its reader leaves the store.
void FillPxDas(SoundingStore& s) {
  s.ResetSounding();
  s.AcquisitionFamily = kPxDasFamily;
  s.CptTitle = "PX DAS CPT";
  s.CptDepthDecimals = 2;
  s.ChannelCount = kChannels;
  for (int c = 1; c <= kChannels; ++c) {
    s.CptChannelNumber[c] = std::to_string(c);
    s.CptChannelName[c] = "CHANNEL " + std::to_string(c);
    s.ChannelSensitivity[c] = 2.534f;
    s.ChannelRange[c] = 50;
    s.CptUnitText[c] = "MPa";
  }
  for (int r = 1; r <= kMaxReadings; ++r) {
    s.DepthTable(r, 1) = 0.01f * static_cast<float>(r);
    s.PushSpeed[r] = 2;
    for (int c = 1; c <= kChannels; ++c) s.CptRawReadings(r, c) = static_cast<float>((r * c) % 40000 - 8000);
  }
  s.ReadingCount = kMaxReadings;
}

struct SaveFixture {
  explicit SaveFixture(int family) {
    t.session->RemoveSpikesAnswer = 0;
    if (family == 0) {
      FillPxDas(t.session->Sounding());
    } else {
      test::OpenSounding(t, FullDat(family));
    }
  }
  test::TestSession t;
  test::TempDirectory folder;
};

void SaveFamily(benchmark::State& state, int family, const char* name) {
  SaveFixture f(family);
  const std::string path = f.folder.File(name);
  for (auto _ : state) {
    if (!SaveSounding(*f.t.session, f.t.prompts, path, false)) state.SkipWithError("the save failed");
  }
  const std::string bytes = ReadWholeFile(path);
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(bytes.size()));
  state.counters["file_MB"] = static_cast<double>(bytes.size()) / 1e6;
}

void BM_SaveKorvanDat(benchmark::State& state) { SaveFamily(state, 1, "CPT-BENCH.DAT"); }
BENCHMARK(BM_SaveKorvanDat)->Unit(benchmark::kMillisecond);

void BM_SavePlainDat(benchmark::State& state) { SaveFamily(state, 2, "CPT-BENCH.DAT"); }
BENCHMARK(BM_SavePlainDat)->Unit(benchmark::kMillisecond);

void BM_SavePxDas(benchmark::State& state) { SaveFamily(state, 0, "CPT-BENCH.CPT"); }
BENCHMARK(BM_SavePxDas)->Unit(benchmark::kMillisecond);

// The rendering alone, without the disk.
void BM_RenderKorvanDat(benchmark::State& state) {
  SaveFixture f(1);
  for (auto _ : state) benchmark::DoNotOptimize(SaveDatFamily1(f.t.session->Sounding(), f.t.session->units));
}
BENCHMARK(BM_RenderKorvanDat)->Unit(benchmark::kMillisecond);

void BM_RenderPxDas(benchmark::State& state) {
  SaveFixture f(0);
  for (auto _ : state) benchmark::DoNotOptimize(SaveCpt(f.t.session->Sounding()));
}
BENCHMARK(BM_RenderPxDas)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace marlview

BENCHMARK_MAIN();
