// How long the whole printed report of a 10000-reading sounding takes: the plot page of six
// columns and the list pages of every reading, into one PDF.
#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <filesystem>

#include "bench_soundings.h"
#include "core/io/dat_reader.h"
#include "core/presentation/sounding_list.h"
#include "core/presentation/sounding_plot.h"
#include "core/presentation/sounding_report.h"
#include "render/pdf_print_job.h"
#include "support/test_support.h"

namespace marlview {
namespace {

// A 100 m sounding of 10000 readings, plotted and listed on the six most printed channels.
struct ReportFixture {
  ReportFixture() {
    test::OpenSounding(t, bench::LongSounding());
    const std::vector<int> channels = bench::SixChannels(t.session->Sounding());
    SetupPlot(plot, *t.session, channels, 3);
    view.channels = channels;
  }
  test::TestSession t;
  PlotState plot;
  ListView view;
};

void BM_WholeReportToPdf(benchmark::State& state) {
  ReportFixture f;
  const std::string path = (std::filesystem::temp_directory_path() / "marlview-bench-report.pdf").string();
  for (auto _ : state) {
    PdfPrintJob job(path, PaperSize::kLetter);
    PrintSounding(job, f.plot, *f.t.session);
    PrintList(job, *f.t.session, f.view);
    job.EndDoc();
  }
  std::filesystem::remove(path);
}
BENCHMARK(BM_WholeReportToPdf)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace marlview

// Text needs a GUI application, run offscreen.
int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
