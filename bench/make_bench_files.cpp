// Writes field files of a given size for the whole-program benchmark (bench/process_bench.py):
//   make_bench_files sounding OUT.DAT READINGS CHANNELS
//   make_bench_files dissipation OUT.DIS TESTS ROWS
//   make_bench_files seismic OUT.SEI TESTS SAMPLES
// The sounding has tip, sleeve and pore pressure first, then inclinations, temperature and further
// pore pressure sensors, each behind the tip so that every one is aligned, a reading every 2 cm.
// The dissipation file is QRD FIELDBOX in kPa, a row a second; the seismic file is a .SEI log of
// two strikes a depth, a metre apart.
#include <charconv>
#include <cmath>
#include <cstdio>
#include <string>

#include "core/common/file_access.h"
#include "dissipation/dissipation_files.h"
#include "seismic/seismic_files.h"
#include "support/test_support.h"

namespace {

int Whole(const char* text) {
  int value = 0;
  const std::string s = text;
  const auto result = std::from_chars(s.data(), s.data() + s.size(), value);
  return result.ec == std::errc() && result.ptr == s.data() + s.size() ? value : -1;
}

std::string Sounding(int readings, int channels) {
  using marlview::test::DatChannel;
  marlview::test::DatFile file = marlview::test::SimpleDat(0);
  const char* extra[] = {"Incl X", "Incl Y", "Temperature"};
  for (int c = 4; c <= channels; ++c) {
    const std::string sensor = c <= 6 ? extra[c - 4] : "Pore Pressure " + std::to_string(c);
    file.channels.push_back(DatChannel{.sensor = sensor, .offset = 0.01f * static_cast<float>(c)});
  }
  for (int r = 1; r <= readings; ++r) {
    std::vector<double> row{0.02 * r};
    row.push_back(0.5 + 0.0004 * r + 0.05 * ((r * 7) % 13));
    row.push_back(0.004 + 0.0001 * ((r * 5) % 17));
    row.push_back(0.001 * r * 0.5 + 0.02 * ((r * 3) % 11));
    for (int c = 4; c <= channels; ++c) row.push_back(0.001 * ((r * c) % 997));
    file.rows.push_back(std::move(row));
  }
  return file.Bytes();
}

std::string Dissipation(int tests, int rows) {
  std::vector<marlview::test::DissipationTest> all;
  for (int i = 0; i < tests; ++i) {
    marlview::test::DissipationTest test{5.0 + 2.5 * i, {}};
    for (int k = 0; k < rows; ++k) {
      const double kpa = 90 + 600 * std::exp(-k / 300.0);
      test.rows.push_back({k, kpa / 1000, kpa / 6.894757, kpa});
    }
    all.push_back(std::move(test));
  }
  return marlview::test::Join(marlview::test::FieldboxLines(all));
}

std::string Seismic(int tests, int samples) {
  std::vector<marlview::test::SeiRecord> records;
  for (int i = 0; i < tests; ++i) {
    char depth[16];
    std::snprintf(depth, sizeof depth, "%06.2f m", 1.0 + i);
    marlview::test::SeiRecord record = marlview::test::SeiTest(depth, "A(SGEO1)B(SGEO2)", samples);
    for (auto& raws : record.raws) {
      for (int k = 0; k < samples; ++k) {
        const double t = k - 200.0 - 8.0 * i;
        raws[static_cast<size_t>(k)] = 32768 + static_cast<int>(t > 0 ? 9000 * std::exp(-t / 150) * std::sin(t / 9) : 0);
      }
    }
    records.push_back(std::move(record));
  }
  return marlview::test::SeiFile(records);
}

}  // namespace

int main(int argc, char** argv) {
  const std::string kind = argc == 5 ? argv[1] : "";
  const int first = argc == 5 ? Whole(argv[3]) : -1;
  const int second = argc == 5 ? Whole(argv[4]) : -1;
  std::string bytes;
  if (kind == "sounding" && first >= 1 && first <= marlview::kMaxReadings && second >= 3 && second <= 99) {
    bytes = Sounding(first, second);
  } else if (kind == "dissipation" && first >= 1 && first <= 100 && second >= 1 && second <= 10000) {
    bytes = Dissipation(first, second);
  } else if (kind == "seismic" && first >= 1 && first <= 180 && second >= 1 && second <= 30000) {
    bytes = Seismic(first, second);
  } else {
    std::fputs("usage: make_bench_files sounding OUT.DAT READINGS(1..10000) CHANNELS(3..99)\n"
               "       make_bench_files dissipation OUT.DIS TESTS(1..100) ROWS(1..10000)\n"
               "       make_bench_files seismic OUT.SEI TESTS(1..180) SAMPLES(1..30000)\n",
               stderr);
    return 2;
  }
  try {
    marlview::WriteFileAtomically(argv[2], bytes);
  } catch (const marlview::RuntimeFailure& failure) {
    std::fprintf(stderr, "%s\n", marlview::GeneralErrorText(failure).c_str());
    return 1;
  }
  return 0;
}
