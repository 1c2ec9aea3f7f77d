// What the normalised soil behaviour type adds to a derivation: its six channels over 10000
// readings, against the rest of the derivation of the same sounding.
#include <benchmark/benchmark.h>

#include "bench_soundings.h"
#include "core/derivation/derived_channels.h"
#include "core/derivation/normalised_sbt.h"
#include "core/session/session.h"

namespace marlview {
namespace {

struct NormalisedFixture {
  NormalisedFixture() {
    t.session->RemoveSpikesAnswer = 0;
    test::OpenSounding(t, bench::LongSoilSounding());
    SoundingStore& s = t.session->Sounding();
    s.WaterTableDepth = 2;
    t.session->NormalisedClassification = 1;
    ComputeDerivedChannels(*t.session, s.ChannelCount);
    channels = FindNormalisedChannels(s);
  }
  test::TestSession t;
  NormalisedChannels channels;
};

// Every channel of the classic derivation, the normalised classification left out.
void BM_DerivationWithoutNormalised(benchmark::State& state) {
  NormalisedFixture f;
  f.t.session->NormalisedClassification = 0;
  for (auto _ : state) ComputeDerivedChannels(*f.t.session, f.t.session->Sounding().ChannelCount);
}
BENCHMARK(BM_DerivationWithoutNormalised)->Unit(benchmark::kMillisecond);

// The n iteration, Qtn, Fr, Ic, SBTn and Bq of every reading, into five outputs and four mirrors.
void BM_NormalisedClassification(benchmark::State& state) {
  NormalisedFixture f;
  ChannelValues v(f.t.session->Sounding(), f.t.session->units);
  for (auto _ : state) CalculateNormalisedSbt(v, f.channels);
  state.counters["readings"] = f.t.session->Sounding().ReadingCount;
}
BENCHMARK(BM_NormalisedClassification)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace marlview

BENCHMARK_MAIN();
