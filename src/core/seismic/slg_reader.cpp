// The QRD FIELDBOX .SLG reader: a seismic log, one continuous record of up to three columns.
#include <algorithm>
#include <cmath>

#include "core/common/number_read.h"
#include "core/common/runtime_failure.h"
#include "core/common/text_rules.h"
#include "core/seismic/seismic_readers.h"
#include "core/seismic/seismic_text.h"

namespace marlview {
namespace {

int32_t Whole(double value) { return ToInteger32(value); }

//   KORVAN FILE VER: SLG.01.01.2015
//   ... 22 further lines as in .SEI, the last of them "Gain: 10" in files with a gain line
void ReadHeader(ItemReader& lines, SeismicStore& s) {
  SeismicHeader& h = s.header;
  const std::string_view first = lines.Line();
  h.FileVersionLine = std::string(first);
  s.HeaderLine(1, 0) = h.FileVersionLine;
  s.LogHasGainLine = first.find("SLG.01.01.2015") != std::string_view::npos ? kTrue16 : 0;
  const int last = s.LogHasGainLine ? 24 : 23;
  for (int n = 2; n <= last; ++n) {
    const std::string_view line = lines.Line();
    s.HeaderLine(1, n - 1) = std::string(line);
    if (ReadQrdIdentityLine(n - 5, line, h, true)) continue;
    switch (n) {
      case 2: h.FileSecondLine = std::string(line); break;
      case 17: h.Version = std::string(line); break;
      case 18: h.DasSystem = QrdValue(line); break;
      case 20: h.ProbeSerial = QrdValue(line); break;
      case 24: {
        const size_t colon = line.find(':');
        s.LogGain = ToSingle(colon == std::string_view::npos ? 0.0 : LenientNumber(line.substr(colon + 1)));
        break;
      }
      default: break;
    }
  }
}

}  // namespace

void ReadSlgFile(std::string_view bytes, const std::string& path, const std::string& title, SeismicStore& s) {
  InProcedure("ReadSlgFile", [&] {
    s.Reset();
    s.AcquisitionFamily = kSlgFamily;
    s.AmplitudeBias = 32768;
    s.AmplitudeScale = 65536;
    ItemReader lines(bytes);
    ReadHeader(lines, s);
    s.TestCount = 1;
    s.TestFile[1] = path;
    s.TestTitle[1] = title;
    s.TestDepth[1] = ToSingle(LenientNumber(lines.Line()));
    s.SampleInterval[1] = ToSingle(LenientNumber(lines.Line()) * 1000);
    s.StartIndex[1] = Whole(LenientNumber(lines.Line()));
    s.EndIndex[1] = Whole(LenientNumber(lines.Line()));
    const std::string_view list = lines.Line();
    s.SetHasStrike(kStrikeA, 1, ContainsNoCase(list, "A"));
    s.SetHasStrike(kStrikeB, 1, ContainsNoCase(list, "B"));
    s.SetHasStrike(kStrikeP, 1, ContainsNoCase(list, "Z"));
    const int32_t count = s.EndIndex[1];
    s.SampleCount[1] = count;
    const double span_ms = std::trunc(static_cast<double>(s.SampleInterval[1]) * count);
    s.LogSeconds = ToInteger16(span_ms / 1000);
    for (int n = 1; n <= s.LogSeconds; ++n) {
      s.LogSecondStart[n] = Whole(static_cast<double>(n - 1) * count / s.LogSeconds);
      s.LogSecondEnd[n] = Whole(static_cast<double>(n) * count / s.LogSeconds);
    }
    for (int16_t kind : kStrikeKinds) {
      if (!s.HasStrike(kind, 1)) continue;
      lines.Item();
      const std::string text = CleanSampleText(lines.Item(), false);
      const int column = LogColumn(kind);
      for (int k = 0; k < count; ++k) {
        const double raw = FieldValue(text, 5 * static_cast<size_t>(k), 5);
        s.LogTime(k + 1) = static_cast<float>(s.SampleInterval[1] * (static_cast<double>(s.StartIndex[1]) + k + 1));
        s.LogAmplitude(k + 1, column) = static_cast<float>((raw - 32768) / 65536);
      }
    }
  });
}

}  // namespace marlview
