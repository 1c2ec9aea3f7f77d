// How long the largest saves take: a .SEI file of 180 tests (three strikes of 30000 samples)
// saved and then exported to one DPlot graph file per test, and a dissipation file of 100 tests of
// 10000 rows saved by the QRD FIELDBOX and the PX DAS writers, each rendered and written atomically.
#include <benchmark/benchmark.h>

#include <cmath>
#include <filesystem>
#include <random>
#include <string>

#include "dissipation/dissipation_files.h"
#include "seismic/seismic_files.h"
#include "core/common/file_access.h"
#include "core/common/user_prompts.h"
#include "core/dissipation/dissipation_readers.h"
#include "core/dissipation/dissipation_writers.h"
#include "core/seismic/seismic_exports.h"
#include "core/seismic/seismic_readers.h"
#include "core/seismic/seismic_writers.h"
#include "core/session/dissipation_set.h"
#include "core/session/seismic_store.h"
#include "core/session/session.h"
#include "support/test_support.h"

namespace marlview {
namespace {

namespace fs = std::filesystem;

// A folder of its own for the files a benchmark writes, removed at the end.
struct BenchFolder {
  BenchFolder() : path(fs::temp_directory_path() / ("marlview_bench_" + std::to_string(std::random_device{}()))) {
    fs::create_directories(path);
  }
  ~BenchFolder() { fs::remove_all(path); }
  std::string File(const std::string& name) const { return (path / name).string(); }
  fs::path path;
};

SeismicStore& FullSeiStore() {
  static SeismicStore* store = [] {
    std::vector<test::SeiRecord> records;
    std::mt19937 random(11);
    std::uniform_int_distribution<int> raw(20000, 45000);
    for (int i = 1; i <= kMaxSeismicTests; ++i) {
      char depth[16];
      std::snprintf(depth, sizeof depth, "%06.2f m", 0.5 * i);
      test::SeiRecord record = test::SeiTest(depth, "A(SGEO1)B(SGEO2)Z(PGEO)", kMaxStrikeSamples);
      record.interval = ".00005000";
      for (auto& raws : record.raws) {
        for (int& value : raws) value = raw(random);
      }
      records.push_back(std::move(record));
    }
    auto* s = new SeismicStore();
    ReadSeiFile(test::SeiFile(records), "/bench/FULL.SEI", "FULL.SEI", *s);
    return s;
  }();
  return *store;
}

void SaveSei(const SeismicStore& s, const std::string& path, size_t& size) {
  const std::string bytes = RenderSeiFile(s);
  WriteFileAtomically(path, bytes);
  size = bytes.size();
}

GrfExportOutcome ExportGrf(const SeismicStore& s, const BenchFolder& folder) {
  ScriptedPrompts prompts;
  GrfOptions options;
  options.strikes = GrfStrikes::kAB;
  return ExportSeismicGrf(s, {"SITE", "SITE", folder.path.string()}, options, prompts);
}

void BM_SaveFullSeiFile(benchmark::State& state) {
  const SeismicStore& s = FullSeiStore();
  BenchFolder folder;
  size_t size = 0;
  for (auto _ : state) SaveSei(s, folder.File("FULL.SEI"), size);
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(size));
}
BENCHMARK(BM_SaveFullSeiFile)->Unit(benchmark::kMillisecond);

// One graph file of A and B strikes per test: 180 files.
void BM_ExportFullSetToGrf(benchmark::State& state) {
  const SeismicStore& s = FullSeiStore();
  BenchFolder folder;
  for (auto _ : state) {
    if (ExportGrf(s, folder) != GrfExportOutcome::kCompleted) state.SkipWithError("export not completed");
  }
  state.SetItemsProcessed(state.iterations() * kMaxSeismicTests);
}
BENCHMARK(BM_ExportFullSetToGrf)->Unit(benchmark::kMillisecond);

void BM_SaveFullSeiFileThenExportToGrf(benchmark::State& state) {
  const SeismicStore& s = FullSeiStore();
  BenchFolder folder;
  size_t size = 0;
  for (auto _ : state) {
    SaveSei(s, folder.File("FULL.SEI"), size);
    if (ExportGrf(s, folder) != GrfExportOutcome::kCompleted) state.SkipWithError("export not completed");
  }
}
BENCHMARK(BM_SaveFullSeiFileThenExportToGrf)->Unit(benchmark::kMillisecond);

// A full dissipation file of either family, read once into a store as the editor would hold it.
DissipationSet& FullDissipation(bool px, const UnitTables& units) {
  static DissipationSet* stores[2] = {nullptr, nullptr};
  DissipationSet*& store = stores[px ? 1 : 0];
  if (store == nullptr) {
    std::vector<test::DissipationTest> tests;
    for (int i = 0; i < kMaxDissipations; ++i) {
      test::DissipationTest t{5.0 + 0.25 * i, {}};
      for (int k = 1; k <= kMaxDissipationRows; ++k) {
        const double kpa = 90 + 600 * std::exp(-k / 300.0);
        t.rows.push_back({k, kpa / 1000, kpa / 6.894757, px ? kpa * 4 + 1000 : kpa});
      }
      tests.push_back(std::move(t));
    }
    store = new DissipationSet();
    store->FileKind = px ? kPxDasDissipation : kFieldboxDissipation;
    ReadDissipation(test::Join(px ? test::PxLines(tests) : test::FieldboxLines(tests)), units, *store);
  }
  return *store;
}

void SaveDissipation(benchmark::State& state, bool px) {
  test::TestSession t;
  const DissipationSet& set = FullDissipation(px, t.session->units);
  BenchFolder folder;
  const std::string path = folder.File("FULL.DIS");
  size_t size = 0;
  for (auto _ : state) {
    const std::string bytes =
        px ? PxDissipationBytes(set, "BH-07") : FieldboxDissipationBytes(set, t.session->units, "FULL.DIS");
    WriteFileAtomically(path, bytes);
    size = bytes.size();
  }
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(size));
  state.SetItemsProcessed(state.iterations() * int64_t{kMaxDissipations} * kMaxDissipationRows);
}
void BM_SaveFullFieldboxDissipation(benchmark::State& state) { SaveDissipation(state, false); }
BENCHMARK(BM_SaveFullFieldboxDissipation)->Unit(benchmark::kMillisecond);
void BM_SaveFullPxDissipation(benchmark::State& state) { SaveDissipation(state, true); }
BENCHMARK(BM_SaveFullPxDissipation)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace marlview

BENCHMARK_MAIN();
