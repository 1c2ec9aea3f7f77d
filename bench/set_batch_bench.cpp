// A batch export of a full set, 30 soundings of 10000 readings in all five forms, against the same
// files written by 30 single exports of each form, each opening its sounding as the export does.
#include <benchmark/benchmark.h>

#include <cmath>

#include "core/common/file_access.h"
#include "core/io/dat_reader.h"
#include "core/multisounding/batch_export.h"
#include "core/multisounding/set_model.h"
#include "core/presentation/ecp_list.h"
#include "core/presentation/sounding_exports.h"
#include "core/presentation/sounding_list.h"
#include "support/test_support.h"

namespace marlview {
namespace {

constexpr int kSoundings = 30;

struct SetFixture {
  SetFixture() {
    for (int i = 0; i < kSoundings; ++i) {
      test::DatFile file = test::SimpleDat(0);
      for (int r = 1; r <= kMaxReadings; ++r) {
        const double depth = 0.01 * r;
        file.rows.push_back({depth, 500 + 400 * std::sin(depth * 3 + i), 4 + 2 * std::cos(depth * 7),
                             10 + 5 * std::sin(depth * 11)});
      }
      const std::string name = "CPT-" + std::to_string(100 + i) + ".DAT";
      files.Write(name, file.Bytes());
      paths.push_back(files.File(name));
    }
  }
  test::TempDirectory files;
  std::vector<std::string> paths;
};

SetFixture& Files() {
  static SetFixture fixture;
  return fixture;
}

void BM_BatchExportOfThirty(benchmark::State& state) {
  SetFixture& f = Files();
  for (auto _ : state) {
    test::TestSession t;
    t.session->RemoveSpikesAnswer = 0;
    test::TempDirectory out;
    LoadSetFiles(*t.session, t.prompts, f.paths);
    BatchSettings b;
    b.ListTxt = b.ListCsv = b.ListCor = b.ListEcp = b.ListGin = true;
    const BatchReport report = RunBatchExport(*t.session, t.prompts, b, {out.Path(), {}, {}, {}});
    benchmark::DoNotOptimize(report.written);
  }
}
BENCHMARK(BM_BatchExportOfThirty)->Unit(benchmark::kMillisecond)->Iterations(3);

// Each form of each sounding as its own export: the file read, its channels derived, the file written.
void BM_ThirtySingleExportsOfEachForm(benchmark::State& state) {
  SetFixture& f = Files();
  for (auto _ : state) {
    test::TempDirectory out;
    for (const std::string& path : f.paths) {
      for (int form = 0; form < 5; ++form) {
        test::TestSession t;
        t.session->RemoveSpikesAnswer = 0;
        OpenDatSounding(*t.session, t.prompts, path);
        ExportOptions o;
        o.channels = DefaultListSelection(t.session->Sounding());
        std::string bytes;
        if (form == 0) bytes = TxtExport(*t.session, o);
        if (form == 1) bytes = CsvExport(*t.session, o, "csv");
        if (form == 2) bytes = CsvExport(*t.session, o, "cor");
        if (form == 3) {
          EcpView view;
          view.selection = o.channels;
          ChooseEcpColumns(*t.session, view);
          bytes = EcpExport(*t.session, view);
        }
        if (form == 4) bytes = GinExport(*t.session, GinUnit::kPsi);
        WriteFileAtomically(out.File(std::to_string(form) + ".out"), bytes);
      }
    }
  }
}
BENCHMARK(BM_ThirtySingleExportsOfEachForm)->Unit(benchmark::kMillisecond)->Iterations(1);

}  // namespace
}  // namespace marlview

BENCHMARK_MAIN();
