// How long the seismic work on a full set takes: 180 tests of three strikes of 30000 samples,
// filtered (15 smoothing rounds per strike) against plain passes over the same samples, read from
// a .SEI file of that size and saved to one.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <random>
#include <string>

#include "core/common/file_access.h"
#include "core/seismic/conditioning.h"
#include "core/seismic/seismic_readers.h"
#include "core/seismic/seismic_writers.h"
#include "core/session/seismic_store.h"

namespace marlview {
namespace {

SeismicStore& FullStore() {
  static SeismicStore* store = [] {
    auto* s = new SeismicStore();
    s->AcquisitionFamily = kSeiFamily;
    s->TestCount = kMaxSeismicTests;
    std::mt19937 random(7);
    std::uniform_real_distribution<float> noise(-0.5f, 0.5f);
    for (int i = 1; i <= kMaxSeismicTests; ++i) {
      s->SampleInterval[i] = 0.05f;
      for (int16_t kind : kStrikeKinds) {
        s->SetHasStrike(kind, i, true);
        const int slot = StrikeSlot(kind, i);
        s->SampleCount[slot] = kMaxStrikeSamples;
        for (int k = 1; k <= kMaxStrikeSamples; ++k) {
          s->StrikeTime(slot, k) = 0.05f * static_cast<float>(k);
          s->StrikeAmplitude(slot, k) = noise(random);
        }
      }
    }
    return s;
  }();
  return *store;
}

constexpr int64_t kSamples = int64_t{kMaxSeismicTests} * 3 * kMaxStrikeSamples;

void BM_FilterAllGraphs(benchmark::State& state) {
  SeismicStore& s = FullStore();
  for (auto _ : state) FilterAllGraphs(s);
  state.SetItemsProcessed(state.iterations() * kSamples);
}
BENCHMARK(BM_FilterAllGraphs)->Unit(benchmark::kMillisecond);

// A plain read-and-write pass over every sample of the set, the floor of any pass over it.
void PlainPasses(benchmark::State& state, int passes) {
  SeismicStore& s = FullStore();
  for (auto _ : state) {
    for (int i = 1; i <= s.TestCount; ++i) {
      for (int16_t kind : kStrikeKinds) {
        float* a = s.AmplitudeRow(StrikeSlot(kind, i));
        for (int p = 0; p < passes; ++p) {
          for (int k = 1; k <= kMaxStrikeSamples; ++k) a[k] = a[k] * 0.999f;
        }
        benchmark::ClobberMemory();
      }
    }
  }
  state.SetItemsProcessed(state.iterations() * kSamples);
}
void BM_PlainPass(benchmark::State& state) { PlainPasses(state, 1); }
BENCHMARK(BM_PlainPass)->Unit(benchmark::kMillisecond);
// Fifteen plain passes per strike while it is at hand: the same sample touches as the filter.
void BM_PlainPassFifteenTimes(benchmark::State& state) { PlainPasses(state, kFilterRounds); }
BENCHMARK(BM_PlainPassFifteenTimes)->Unit(benchmark::kMillisecond);

// The set as a .SEI file: the header and 180 records of A, B and P strikes.
std::string FullSeiFile() {
  std::string bytes = "KORVAN FILE VER: SEI.08.11.2015\r\n";
  for (int n = 2; n <= 55; ++n) bytes += " \r\n";
  bytes += "\r\n";
  std::mt19937 random(11);
  std::uniform_int_distribution<int> raw(20000, 45000);
  char field[32];
  for (int i = 1; i <= kMaxSeismicTests; ++i) {
    std::snprintf(field, sizeof field, "%06.2f", 0.5 * i);
    bytes += std::string(field) + " m\r\n.00005000\r\n    0\r\n30000\r\n    0N\r\nA(SGEO1)B(SGEO2)Z(PGEO)\r\n";
    for (const char* letter : {"A", "B", "Z"}) {
      bytes += letter;
      for (int k = 0; k < kMaxStrikeSamples; ++k) {
        std::snprintf(field, sizeof field, "%05d", raw(random));
        bytes += field;
      }
    }
    if (i < kMaxSeismicTests) bytes += "\r\n";
  }
  return bytes;
}

void BM_ReadFullSeiFile(benchmark::State& state) {
  static const std::string bytes = FullSeiFile();
  static SeismicStore store;
  for (auto _ : state) ReadSeiFile(bytes, "/bench/FULL.SEI", "FULL.SEI", store);
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(bytes.size()));
}
BENCHMARK(BM_ReadFullSeiFile)->Unit(benchmark::kMillisecond);

// Saving the full set as a .SEI file: the rendering of 180 records of three 30000-sample strikes
// alone, and with the atomic replacement of the file on disk.
SeismicStore& FullSeiStore() {
  static SeismicStore* store = [] {
    auto* s = new SeismicStore();
    ReadSeiFile(FullSeiFile(), "/bench/FULL.SEI", "FULL.SEI", *s);
    return s;
  }();
  return *store;
}

void BM_RenderFullSeiFile(benchmark::State& state) {
  const SeismicStore& s = FullSeiStore();
  size_t size = 0;
  for (auto _ : state) {
    const std::string bytes = RenderSeiFile(s);
    size = bytes.size();
    benchmark::DoNotOptimize(bytes.data());
  }
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(size));
}
BENCHMARK(BM_RenderFullSeiFile)->Unit(benchmark::kMillisecond);

void BM_SaveFullSeiFile(benchmark::State& state) {
  const SeismicStore& s = FullSeiStore();
  const std::string path = (std::filesystem::temp_directory_path() / "marlview_bench_full.sei").string();
  size_t size = 0;
  for (auto _ : state) {
    const std::string bytes = RenderSeiFile(s);
    WriteFileAtomically(path, bytes);
    size = bytes.size();
  }
  std::filesystem::remove(path);
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(size));
}
BENCHMARK(BM_SaveFullSeiFile)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace marlview

BENCHMARK_MAIN();
