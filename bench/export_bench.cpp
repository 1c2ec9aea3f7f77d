// How long the sounding exports take on a 10000-reading sounding: text, csv and cor with their
// header blocks, ECP and gIN, each rendered to the bytes the file receives.
#include <benchmark/benchmark.h>

#include <cmath>

#include "core/io/dat_reader.h"
#include "core/presentation/ecp_list.h"
#include "core/presentation/sounding_exports.h"
#include "support/test_support.h"

namespace marlview {
namespace {

// A 100 m sounding of 10000 readings, listed with the six most exported channels.
struct ExportFixture {
  ExportFixture() {
    test::DatFile file = test::SimpleDat(0);
    for (int r = 1; r <= kMaxReadings; ++r) {
      const double depth = 0.01 * r;
      file.rows.push_back({depth, 500 + 400 * std::sin(depth * 3), 4 + 2 * std::cos(depth * 7),
                           10 + 5 * std::sin(depth * 11)});
    }
    t.session->RemoveSpikesAnswer = 0;
    test::OpenSounding(t, file);
    const SoundingStore& s = t.session->Sounding();
    options.channels = {s.TipChannel,           s.SleeveChannel,  s.PorePressureChannel,
                        s.FrictionRatioQtChannel, s.Sbt90QtChannel, s.SptChannel};
    ChooseEcpColumns(*t.session, ecp);
  }
  test::TestSession t;
  ExportOptions options;
  EcpView ecp;
};

void BM_AllFiveExportForms(benchmark::State& state) {
  ExportFixture f;
  size_t bytes = 0;
  for (auto _ : state) {
    bytes = TxtExport(*f.t.session, f.options).size() + CsvExport(*f.t.session, f.options, "csv").size() +
            CsvExport(*f.t.session, f.options, "cor").size() + EcpExport(*f.t.session, f.ecp).size() +
            GinExport(*f.t.session, GinUnit::kKpa).size();
    benchmark::DoNotOptimize(bytes);
  }
  state.counters["bytes"] = static_cast<double>(bytes);
}
BENCHMARK(BM_AllFiveExportForms)->Unit(benchmark::kMillisecond);

void BM_TextExportOnly(benchmark::State& state) {
  ExportFixture f;
  for (auto _ : state) benchmark::DoNotOptimize(TxtExport(*f.t.session, f.options));
}
BENCHMARK(BM_TextExportOnly)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace marlview

BENCHMARK_MAIN();
