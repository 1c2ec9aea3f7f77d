// How long a DAT sounding takes to read: the demo sounding, and a full store of 10000 readings.
#include <benchmark/benchmark.h>

#include "core/derivation/derived_channels.h"
#include "core/io/dat_reader.h"
#include "support/test_support.h"

namespace marlview {
namespace {

void ReadBytes(benchmark::State& state, const std::string& bytes) {
  test::TestSession t;
  t.session->DuplicateDepthCheck = 0;
  for (auto _ : state) {
    const ReadOutcome outcome =
        ReadDatSounding(bytes, "/bench/CPT-BENCH.DAT", *t.session, t.session->SpareStore(), t.prompts);
    benchmark::DoNotOptimize(outcome);
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(bytes.size()));
  // What the sounding's readings hold in memory, beside the file's own size.
  state.counters["store_MB"] = static_cast<double>(t.session->SpareStore().ReadingBytesHeld()) / 1e6;
  state.counters["file_MB"] = static_cast<double>(bytes.size()) / 1e6;
}

void BM_ReadDemoSounding(benchmark::State& state) { ReadBytes(state, test::ReadSample("CPT-A01.DAT")); }
BENCHMARK(BM_ReadDemoSounding)->Unit(benchmark::kMillisecond);

// 10000 readings of 20 channels, each channel offset behind the tip so that every one is aligned.
test::DatFile FullSounding() {
  test::DatFile file = test::SimpleDat(0);
  for (int c = 4; c <= 20; ++c) {
    file.channels.push_back({.sensor = "Pore Pressure " + std::to_string(c), .offset = 0.01f * static_cast<float>(c)});
  }
  file.channels[0].sensor = "Tip";
  for (int r = 1; r <= kMaxReadings; ++r) {
    std::vector<double> row{0.01 * r};
    for (int c = 1; c <= 20; ++c) row.push_back(0.001 * ((r * c) % 997));
    file.rows.push_back(std::move(row));
  }
  return file;
}

// Open and derivation together, as the main window opens a sounding.
void BM_ReadFullSounding(benchmark::State& state) { ReadBytes(state, FullSounding().Bytes()); }
BENCHMARK(BM_ReadFullSounding)->Unit(benchmark::kMillisecond);

// The derivation alone, as it reruns after every edit.
void BM_DeriveFullSounding(benchmark::State& state) {
  test::TestSession t;
  t.session->Sounding().WaterTableDepth = 2;
  const std::string bytes = FullSounding().Bytes();
  const std::string path = "/bench/CPT-BENCH.DAT";
  ReadDatSounding(bytes, path, *t.session, t.session->SpareStore(), t.prompts);
  t.session->CommitSounding();
  const int measured = t.session->Sounding().ChannelCount;
  for (auto _ : state) ComputeDerivedChannels(*t.session, measured);
  state.counters["readings"] = t.session->Sounding().ReadingCount;
}
BENCHMARK(BM_DeriveFullSounding)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace marlview

BENCHMARK_MAIN();
