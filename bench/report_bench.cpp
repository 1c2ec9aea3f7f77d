// How long the whole printed report of a 10000-reading sounding takes: the plot page of six
// columns and the list pages of every reading, into one PDF.
#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <cmath>
#include <filesystem>

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
    test::DatFile file = test::SimpleDat(0);
    for (int r = 1; r <= kMaxReadings; ++r) {
      const double depth = 0.01 * r;
      file.rows.push_back({depth, 0.5 + 0.4 * std::sin(depth * 3), 0.004 + 0.002 * std::cos(depth * 7),
                           0.1 + 0.05 * std::sin(depth * 11)});
    }
    test::OpenSounding(t, file);
    const SoundingStore& s = t.session->Sounding();
    const std::vector<int> channels = {s.TipChannel,           s.SleeveChannel,  s.PorePressureChannel,
                                       s.FrictionRatioQtChannel, s.Sbt90QtChannel, s.SptChannel};
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
