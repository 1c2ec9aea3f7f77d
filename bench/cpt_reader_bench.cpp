// How long a PX DAS sounding takes to read: the demo piezocone, and a full store of 10000 readings
// of 20 channels.
#include <benchmark/benchmark.h>

#include "core/io/cpt_reader.h"
#include "support/test_support.h"

namespace marlview {
namespace {

void ReadBytes(benchmark::State& state, const std::string& bytes) {
  test::TestSession t;
  for (auto _ : state) {
    const ReadOutcome outcome =
        ReadCptSounding(bytes, "/bench/CPT-BENCH.CPT", *t.session, t.session->SpareStore(), t.prompts);
    benchmark::DoNotOptimize(outcome);
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(bytes.size()));
  // What the sounding's readings hold in memory, beside the file's own size.
  state.counters["store_MB"] = static_cast<double>(t.session->SpareStore().ReadingBytesHeld()) / 1e6;
  state.counters["file_MB"] = static_cast<double>(bytes.size()) / 1e6;
}

void BM_ReadDemoSounding(benchmark::State& state) { ReadBytes(state, test::ReadSample("PXC-E05.CPT")); }
BENCHMARK(BM_ReadDemoSounding)->Unit(benchmark::kMillisecond);

// Tip, sleeve, u2, inclinations, temperature, resistivity, seismic and spare channels: the twenty
// a PX DAS file can hold, a reading every 2 cm to 200 m.
test::CptFile FullSounding() {
  test::CptFile file = test::SimpleCpt(0);
  const char* names[] = {"X Incl", "Y Incl", "TEMP", "Resistivity", "U1", "U3", "Pos Seis", "Neg Seis"};
  for (const char* name : names) file.channels.push_back({.name = name, .sensitivity = 20000, .range = "20 deg"});
  while (file.channels.size() < static_cast<size_t>(kMaxCptRawChannels)) {
    file.channels.push_back({.name = "SPARE " + std::to_string(file.channels.size() + 1), .range = "10 V"});
  }
  for (int r = 1; r <= kMaxReadings; ++r) {
    std::vector<double> row{0.02 * r, 1.5 + 0.01 * (r % 50)};
    for (int c = 1; c <= kMaxCptRawChannels; ++c) row.push_back((r * c) % 997 == 0 ? -32768 : (r * c) % 29989);
    file.rows.push_back(std::move(row));
  }
  return file;
}

// Open and derivation together, as the main window opens a sounding.
void BM_ReadFullSounding(benchmark::State& state) { ReadBytes(state, FullSounding().Bytes()); }
BENCHMARK(BM_ReadFullSounding)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace marlview

BENCHMARK_MAIN();
