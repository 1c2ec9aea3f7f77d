// How long the sounding plot takes: six columns of a 10000-reading sounding into a 1600 x 1200
// picture, and the plot printed as one PDF page.
#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <cstdlib>
#include <filesystem>

#include "bench_soundings.h"
#include "core/io/dat_reader.h"
#include "core/presentation/sounding_plot.h"
#include "render/image_surface.h"
#include "render/pdf_print_job.h"
#include "support/test_support.h"

namespace marlview {
namespace {

// A 100 m sounding of 10000 readings with the six most plotted channels.
struct PlotFixture {
  PlotFixture() {
    test::OpenSounding(t, bench::LongSounding());
    SetupPlot(plot, *t.session, bench::SixChannels(t.session->Sounding()), 3);
  }
  test::TestSession t;
  PlotState plot;
};

void BM_PlotSixColumnsToImage(benchmark::State& state) {
  PlotFixture f;
  ImageSurface image(1600, 1200);
  for (auto _ : state) GraphData(image, 1600, 1200, f.plot, *f.t.session);
}
BENCHMARK(BM_PlotSixColumnsToImage)->Unit(benchmark::kMillisecond);

void BM_PrintPlotPageToPdf(benchmark::State& state) {
  PlotFixture f;
  const std::string path = (std::filesystem::temp_directory_path() / "marlview-bench-plot.pdf").string();
  for (auto _ : state) {
    PdfPrintJob job(path, PaperSize::kLetter);
    DrawingSurface& page = job.NewPage();
    GraphData(page, job.PageWidthPoints(), job.PageHeightPoints(), f.plot, *f.t.session);
    job.EndDoc();
  }
  std::filesystem::remove(path);
}
BENCHMARK(BM_PrintPlotPageToPdf)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace marlview

int main(int argc, char** argv) {
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  QGuiApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
