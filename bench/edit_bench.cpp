// How long an edit takes on a full sounding: a value typed into the grid, and the channels shifted,
// each with the alignment and derivation that follow it, as the editor repaints after every edit.
#include <benchmark/benchmark.h>

#include "core/editing/edit_operations.h"
#include "support/test_support.h"

namespace marlview {
namespace {

// 10000 readings of tip, sleeve and pore pressure and three sensors behind them.
struct EditFixture {
  EditFixture() {
    test::DatFile file = test::SimpleDat(0);
    for (const char* sensor : {"Incl X", "Incl Y", "Temperature"}) file.channels.push_back({.sensor = sensor, .offset = 0.05f});
    for (int r = 1; r <= kMaxReadings; ++r) {
      file.rows.push_back({0.01 * r, 0.5 + 0.0004 * r, 0.004, 0.001 * r, 0.01, 0.02, 0.5});
    }
    t.session->RemoveSpikesAnswer = 0;
    test::OpenSounding(t, file);
  }
  test::TestSession t;
};

void BM_SetReadingWithRecompute(benchmark::State& state) {
  EditFixture f;
  const int tip = f.t.session->Sounding().TipChannel;
  int row = 1;
  for (auto _ : state) {
    SetReading(*f.t.session, row, tip, "1.25", false, f.t.prompts);
    row = row % kMaxReadings + 1;
  }
}
BENCHMARK(BM_SetReadingWithRecompute)->Unit(benchmark::kMillisecond);

void BM_ShiftChannelWithRecompute(benchmark::State& state) {
  EditFixture f;
  const int u2 = f.t.session->Sounding().PorePressureChannel;
  for (auto _ : state) ShiftChannels(*f.t.session, {{u2, 0.001}});
}
BENCHMARK(BM_ShiftChannelWithRecompute)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace marlview

BENCHMARK_MAIN();
