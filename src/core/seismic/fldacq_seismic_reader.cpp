// The QRD FIELDBOX FLDACQ seismic reader: a series of files without extension, one depth each,
// gathered in depth order.
#include <algorithm>
#include <cmath>

#include "core/common/number_read.h"
#include "core/common/runtime_failure.h"
#include "core/common/text_rules.h"
#include "core/seismic/seismic_readers.h"
#include "core/seismic/seismic_text.h"

namespace marlview {
namespace {

constexpr int kDepthLine = 52;

// Header fields of the first test; later tests keep their lines verbatim.
void ReadFirstHeader(int n, std::string_view line, SeismicHeader& h) {
  if (ReadQrdIdentityLine(n - 4, line, h, false)) return;
  switch (n) {
    case 1: h.FileSecondLine = std::string(line); break;
    case 17: h.Version = std::string(line); break;
    case 19: h.DasSystem = QrdValue(line); break;
    case 21: h.ProbeSerial = QrdValue(line); break;
    default: break;
  }
}

//   0.000100    0.000123456    0.000234567   -0.000112233
// time (s) in columns 1-12, then P, A and B in 15 columns each; the file's last line never counts.
void ReadDataLines(ItemReader& lines, int i, SeismicStore& s) {
  std::string_view line;
  bool have = false;
  int32_t count = 0;
  double last_time_ms = 0;
  std::array<double, 4> sums{};
  const int slot_a = StrikeSlot(kStrikeA, i), slot_b = StrikeSlot(kStrikeB, i), slot_p = StrikeSlot(kStrikeP, i);
  while (!lines.AtEnd()) {
    const std::string_view next = lines.Line();
    if (have) {
      ++count;
      const float time = ToSingle(LenientNumber(Columns(line, 0, 12)) * 1000);
      const float p = ToSingle(LenientNumber(Columns(line, 12, 15)));
      const float a = ToSingle(LenientNumber(Columns(line, 27, 15)));
      const float b = ToSingle(LenientNumber(Columns(line, 42, 15)));
      for (int slot : {slot_a, slot_b, slot_p}) s.StrikeTime(slot, count) = time;
      s.StrikeAmplitude(slot_p, count) = p;
      s.StrikeAmplitude(slot_a, count) = a;
      s.StrikeAmplitude(slot_b, count) = b;
      sums[kStrikeA] += a;
      sums[kStrikeB] += b;
      sums[kStrikeP] += p;
      last_time_ms = time;
    }
    line = next;
    have = true;
  }
  for (int slot : {slot_a, slot_b, slot_p}) s.SampleCount[slot] = count;
  s.SampleInterval[i] = count > 0 ? static_cast<float>(last_time_ms / count) : 0.0f;
  for (int16_t kind : kStrikeKinds) {
    s.GeophoneOf[static_cast<size_t>(kind)][i] = kGeophoneUnknown;
    const bool present = sums[static_cast<size_t>(kind)] != 0;
    s.SetHasStrike(kind, i, present);
    if (present) s.StrikeMeanRemoved[static_cast<size_t>(kind)][i] = static_cast<float>(sums[static_cast<size_t>(kind)] / count);
  }
  s.ArrivalKind[i] = kNoStrike;
  // All three columns lose their mean only when the A strike is there.
  if (s.HasStrikeA[i]) {
    for (int16_t kind : kStrikeKinds) {
      const float mean = s.StrikeMeanRemoved[static_cast<size_t>(kind)][i];
      float* amplitude = s.AmplitudeRow(StrikeSlot(kind, i));
      for (int k = 1; k <= count; ++k) amplitude[k] -= mean;
    }
  }
}

struct Found {
  const FldacqFile* file;
  float depth;
};

}  // namespace

float FldacqDepth(std::string_view line, float feet_per_metre) {
  const size_t arrow = line.find("=>");
  const size_t position = arrow == std::string_view::npos ? 0 : arrow + 1;
  const size_t keep = line.size() >= position + 1 ? line.size() - position - 1 : 0;
  return ToSingle(LenientNumber(line.substr(0, keep)) / feet_per_metre);
}

bool ReadFldacqFiles(const std::vector<FldacqFile>& files, const std::string& title, float feet_per_metre,
                     SeismicStore& s, UserPrompts& prompts) {
  return InProcedure("ReadFldacqFiles", [&] {
    s.Reset();
    s.AcquisitionFamily = kFldacqFamily;
    if (files.size() > static_cast<size_t>(kMaxSeismicTests)) Fail(kErrSubscript);
    // The depth of each file decides its place: a new depth goes in front of the first greater one.
    std::vector<Found> order;
    for (const FldacqFile& file : files) {
      ItemReader lines(file.bytes);
      lines.Line();
      if (!ContainsNoCase(lines.Line(), "Cone")) {
        prompts.Tell(file.path + " is not a valid seismic file");
        return false;
      }
      lines.SkipLines(kDepthLine - 3);
      const float depth = FldacqDepth(lines.Line(), feet_per_metre);
      auto at = std::find_if(order.begin(), order.end(), [&](const Found& f) { return f.depth > depth; });
      order.insert(at, Found{&file, depth});
    }
    s.TestCount = static_cast<int16_t>(order.size());
    s.TestTitle[1] = title;
    for (int i = 1; i <= s.TestCount; ++i) {
      const FldacqFile& file = *order[static_cast<size_t>(i - 1)].file;
      ItemReader lines(file.bytes);
      s.TestFile[i] = file.path;
      for (int n = 1; n <= kDepthLine - 1; ++n) {
        const std::string_view line = lines.Line();
        s.HeaderLine(i, n) = std::string(line);
        if (i == 1) ReadFirstHeader(n, line, s.header);
        if (i > 1 && n == 3) s.TestTitle[i] = std::string(line.substr(0, std::min(line.find("=>"), line.size())));
      }
      const std::string_view depth_line = lines.Line();
      s.HeaderLine(i, kDepthLine) = std::string(depth_line);
      s.TestDepth[i] = FldacqDepth(depth_line, feet_per_metre);
      lines.Line();
      ReadDataLines(lines, i, s);
    }
    s.RemoveStrikeMeans();
    return true;
  });
}

}  // namespace marlview
