// How long a GEF sounding takes to read: a full store of 10000 records of a modern piezocone
// report, ten columns with a void now and then.
#include <benchmark/benchmark.h>

#include <cstdio>

#include "core/io/gef_reader.h"
#include "support/test_support.h"

namespace marlview {
namespace {

// Length, qc, qt, fs, Rf, u2, three inclinations and the elapsed time, as the Dutch field systems
// write them; every 97th tip and 89th pore pressure reading is void.
std::string FullGefSounding() {
  std::string bytes =
      "#GEFID= 1, 1, 0\r\n#REPORTCODE= GEF-CPT-Report, 1, 1, 2\r\n#COLUMN= 10\r\n#COLUMNSEPARATOR= ;\r\n"
      "#RECORDSEPARATOR= !\r\n#COLUMNINFO= 1, m, sondeerlengte, 1\r\n"
      "#COLUMNINFO= 2, MPa, conusweerstand, 2\r\n#COLUMNINFO= 3, MPa, gecorrigeerde conusweerstand, 13\r\n"
      "#COLUMNINFO= 4, MPa, plaatselijke wrijving, 3\r\n#COLUMNINFO= 5, %, wrijvingsgetal, 4\r\n"
      "#COLUMNINFO= 6, MPa, waterspanning u2, 6\r\n#COLUMNINFO= 7, graden, helling, 8\r\n"
      "#COLUMNINFO= 8, graden, helling x, 21\r\n#COLUMNINFO= 9, graden, helling y, 22\r\n"
      "#COLUMNINFO= 10, s, verlopen tijd, 12\r\n";
  for (int c = 2; c <= 10; ++c) bytes += "#COLUMNVOID= " + std::to_string(c) + ", -999999\r\n";
  bytes += "#MEASUREMENTVAR= 3, 0.80, -, netto oppervlaktequotient\r\n#EOH=\r\n";
  char line[200];
  for (int r = 1; r <= kMaxReadings; ++r) {
    const double qc = 1 + (r % 300) * 0.05, fs = 0.01 + (r % 70) * 0.001, u2 = 0.05 + (r % 40) * 0.01;
    std::snprintf(line, sizeof line, "%.2f;%.3f;%.3f;%.4f;%.2f;%.3f;%.2f;%.2f;%.2f;%.1f;!\r\n", 0.02 * r,
                  r % 97 == 0 ? -999999.0 : qc, qc + 0.2 * u2, fs, fs / qc * 100,
                  r % 89 == 0 ? -999999.0 : u2, 0.3 + (r % 7) * 0.1, 0.2, -0.1, r * 1.02);
    bytes += line;
  }
  return bytes;
}

// Open and derivation together, as the main window opens a sounding.
void BM_ReadFullGefSounding(benchmark::State& state) {
  const std::string bytes = FullGefSounding();
  test::TestSession t;
  for (auto _ : state) {
    const ReadOutcome outcome =
        ReadGefSounding(bytes, "/bench/CPT-BENCH.GEF", *t.session, t.session->SpareStore(), t.prompts);
    benchmark::DoNotOptimize(outcome);
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(bytes.size()));
  state.counters["store_MB"] = static_cast<double>(t.session->SpareStore().ReadingBytesHeld()) / 1e6;
  state.counters["file_MB"] = static_cast<double>(bytes.size()) / 1e6;
}
BENCHMARK(BM_ReadFullGefSounding)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace marlview

BENCHMARK_MAIN();
