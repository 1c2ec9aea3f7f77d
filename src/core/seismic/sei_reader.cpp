// The QRD FIELDBOX .SEI reader.
#include <algorithm>
#include <cmath>

#include "core/common/number_read.h"
#include "core/common/runtime_failure.h"
#include "core/common/text_rules.h"
#include "core/seismic/seismic_readers.h"
#include "core/seismic/seismic_text.h"

namespace marlview {
namespace {

constexpr int kSeiHeaderLines = 56;
constexpr const char* kSeiVersion2015 = "08.11.2015";

//   KORVAN FILE VER: SEI.08.11.2015
//   ACME GEOTECHNICAL LTD.
//   ...
//   J. Ferreira | D. Okafor => Operator / Crew
//   ...
void ReadHeader(ItemReader& lines, SeismicStore& s) {
  SeismicHeader& h = s.header;
  for (int n = 1; n <= kSeiHeaderLines; ++n) {
    const std::string_view line = lines.Line();
    s.HeaderLine(1, n - 1) = std::string(line);
    if (ReadQrdIdentityLine(n - 5, line, h, false)) continue;
    switch (n) {
      case 1: h.FileVersionLine = std::string(line); break;
      case 2: h.FileSecondLine = std::string(line); break;
      case 18: {
        const size_t arrow = line.find("=>");
        h.Version = arrow == std::string_view::npos || arrow == 0 ? std::string(line) : QrdValue(line);
        break;
      }
      case 20: h.DasSystem = QrdValue(line); break;
      case 22: h.ProbeSerial = QrdValue(line); break;
      case 33: h.ChannelCountLine = std::string(line); break;
      default: break;
    }
  }
}

int16_t KindOfLetter(char letter) {
  switch (letter) {
    case 'A': return kStrikeA;
    case 'B': return kStrikeB;
    case 'Z': return kStrikeP;
    default: return kNoStrike;
  }
}

// "  812B": the pick's sample, then the strike it was made on.
void ReadArrival(std::string_view line, int i, SeismicStore& s) {
  line = TrimRightBlanks(line);
  if (line.empty()) {
    s.ArrivalFromFile[i] = 0;
    s.ArrivalKind[i] = kNoStrike;
    return;
  }
  s.ArrivalFromFile[i] = ToInteger32(LenientNumber(line.substr(0, line.size() - 1)));
  s.ArrivalKind[i] = KindOfLetter(line.back());
}

// "A(SGEO1)B(SGEO2)Z(PGEO)" in the version of 08.11.2015, plain letters in older files.
void ReadStrikeList(std::string_view line, int i, SeismicStore& s) {
  for (auto& row : s.GeophoneOf) row[i] = kGeophoneUnknown;
  const bool versioned = line.find("GEO") != std::string_view::npos ||
                         s.header.FileVersionLine.find(kSeiVersion2015) != std::string::npos;
  if (versioned) {
    s.header.FileVersionLine = "KORVAN FILE VER: SEI.08.11.2015";
    const bool a = line.find('A') != std::string_view::npos;
    const bool b = line.find('B') != std::string_view::npos;
    const bool p = line.find('Z') != std::string_view::npos;
    s.SetHasStrike(kStrikeA, i, a);
    s.SetHasStrike(kStrikeB, i, b);
    s.SetHasStrike(kStrikeP, i, p);
    if (a) {
      if (line.find("A(SGEO1)") != std::string_view::npos) s.GeophoneOf[kStrikeA][i] = kGeophoneSgeo1;
      if (line.find("A(SGEO2)") != std::string_view::npos) s.GeophoneOf[kStrikeA][i] = kGeophoneSgeo2;
    }
    if (b) {
      if (line.find("B(SGEO1)") != std::string_view::npos) s.GeophoneOf[kStrikeB][i] = kGeophoneSgeo1;
      if (line.find("B(SGEO2)") != std::string_view::npos) s.GeophoneOf[kStrikeB][i] = kGeophoneSgeo2;
    }
    if (p) s.GeophoneOf[kStrikeP][i] = kGeophonePgeo;
  } else {
    s.SetHasStrike(kStrikeA, i, ContainsNoCase(line, "A"));
    s.SetHasStrike(kStrikeB, i, ContainsNoCase(line, "B"));
    s.SetHasStrike(kStrikeP, i, ContainsNoCase(line, "Z"));
  }
}

// "A0012300456...B...Z...": after the deletion of "-", sample k of the line (counted over all its
// strikes) stands at 5k + 2, + 3 or + 4 by the letters in front of it.
void ReadSamples(std::string_view text, int i, SeismicStore& s) {
  const std::string clean = CleanSampleText(text, false);
  const double bias = s.AmplitudeBias, scale = s.AmplitudeScale;
  int taken = 0;
  int letters = 0;
  for (int16_t kind : kStrikeKinds) {
    if (!s.HasStrike(kind, i)) continue;
    ++letters;
    const int slot = StrikeSlot(kind, i);
    const int32_t n = s.SampleCount[slot];
    for (int sample = 1; sample <= n; ++sample) {
      const size_t position = 5 * static_cast<size_t>(taken) + 1 + static_cast<size_t>(letters);
      double raw = FieldValue(clean, position - 1, 5);
      // The trigger can leave a first B or P sample at or below the zero line; it is taken as zero.
      if (sample == 1 && kind != kStrikeA && raw - bias <= 0) raw = bias;
      s.StrikeTime(slot, sample) = static_cast<float>(s.SampleInterval[i] * (static_cast<double>(s.StartIndex[i]) + sample));
      s.StrikeAmplitude(slot, sample) = static_cast<float>((raw - bias) / scale);
      ++taken;
    }
  }
}

// The records after the header, each test after the store's last one, its depth moved down by
// depth_offset_m.
void ReadSeiRecords(ItemReader& lines, const std::string& path, const std::string& title, float depth_offset_m,
                    SeismicStore& s) {
  while (!lines.AtEnd()) {
    const int i = ++s.TestCount;
    s.TestDepth[i] = ToSingle(LenientNumber(lines.Line())) + depth_offset_m;
    s.SampleInterval[i] = ToSingle(LenientNumber(lines.Line()) * 1000);
    s.TestFile[i] = path;
    s.TestTitle[i] = title;
    s.StartIndex[i] = ToInteger32(LenientNumber(lines.Line()));
    s.EndIndex[i] = ToInteger32(LenientNumber(lines.Line()));
    ReadArrival(lines.Line(), i, s);
    ReadStrikeList(lines.Line(), i, s);
    const int32_t count = static_cast<int32_t>(std::clamp<int64_t>(int64_t{s.EndIndex[i]} - s.StartIndex[i], -1, kMaxStrikeSamples + 1));
    for (int16_t kind : kStrikeKinds) s.SampleCount[StrikeSlot(kind, i)] = count;
    ReadSamples(lines.Item(), i, s);
  }
}

}  // namespace

void ReadSeiFile(std::string_view bytes, const std::string& path, const std::string& title, SeismicStore& s) {
  InProcedure("ReadSeiFile", [&] {
    s.Reset();
    s.AcquisitionFamily = kSeiFamily;
    s.AmplitudeBias = 32768;
    s.AmplitudeScale = 65536;
    ItemReader lines(bytes);
    ReadHeader(lines, s);
    ReadSeiRecords(lines, path, title, 0.0f, s);
    s.RemoveStrikeMeans();
  });
}

bool AppendSeiFile(std::string_view bytes, const std::string& path, const std::string& title, float depth_offset_m,
                   SeismicStore& s, UserPrompts& prompts) {
  return InProcedure("AppendSeiFile", [&] {
    ItemReader lines(bytes);
    std::string channel_line;
    for (int n = 1; n <= kSeiHeaderLines; ++n) {
      const std::string_view line = lines.Line();
      if (n == 33) channel_line = std::string(line);
    }
    if (channel_line != s.header.ChannelCountLine) {
      prompts.Tell("The number of channels in the two files do not match. The two files cannot be combined");
      return false;
    }
    // A failure part way leaves the store with the tests it had.
    const int16_t count = s.TestCount;
    const std::string version = s.header.FileVersionLine;
    try {
      ReadSeiRecords(lines, path, title, depth_offset_m, s);
    } catch (const RuntimeFailure&) {
      s.TestCount = count;
      s.header.FileVersionLine = version;
      throw;
    }
    s.RemoveStrikeMeans();
    return true;
  });
}

}  // namespace marlview
