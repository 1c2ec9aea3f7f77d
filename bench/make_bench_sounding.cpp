// Writes a QRD FIELDBOX sounding of a given size for the whole-program benchmark:
//   make_bench_sounding OUT.DAT READINGS CHANNELS
// Tip, sleeve and pore pressure first, then inclinations, temperature and further pore pressure
// sensors, each behind the tip so that every one is aligned; a reading every 2 cm.
#include <charconv>
#include <cstdio>
#include <string>

#include "core/common/file_access.h"
#include "support/test_support.h"

namespace {

int Whole(const char* text) {
  int value = 0;
  const std::string s = text;
  const auto result = std::from_chars(s.data(), s.data() + s.size(), value);
  return result.ec == std::errc() && result.ptr == s.data() + s.size() ? value : -1;
}

}  // namespace

int main(int argc, char** argv) {
  const int readings = argc == 4 ? Whole(argv[2]) : -1;
  const int channels = argc == 4 ? Whole(argv[3]) : -1;
  if (readings < 1 || readings > marlview::kMaxReadings || channels < 3 || channels > 99) {
    std::fputs("usage: make_bench_sounding OUT.DAT READINGS(1..10000) CHANNELS(3..99)\n", stderr);
    return 2;
  }
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
  try {
    marlview::WriteFileAtomically(argv[1], file.Bytes());
  } catch (const marlview::RuntimeFailure& failure) {
    std::fprintf(stderr, "%s\n", marlview::GeneralErrorText(failure).c_str());
    return 1;
  }
  return 0;
}
