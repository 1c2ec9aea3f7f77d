// The PX DAS .SMC reader: legacy files with the interval in the header and fields of 4 digits, the
// middle version of 8-9-2011 with end values in columns, and current files laid out like .SEI.
#include <algorithm>
#include <cmath>

#include "core/common/number_read.h"
#include "core/common/runtime_failure.h"
#include "core/common/text_rules.h"
#include "core/seismic/seismic_readers.h"
#include "core/seismic/seismic_text.h"

namespace marlview {
namespace {

enum class SmcVersion { kLegacy, kMiddle, kCurrent };

SmcVersion VersionOf(std::string_view first_line) {
  for (const char* current : {"11-20-2011", "8-22-2011", "2015.08.07.1"}) {
    if (first_line.find(current) != std::string_view::npos) return SmcVersion::kCurrent;
  }
  return first_line.find("8-9-2011") != std::string_view::npos ? SmcVersion::kMiddle : SmcVersion::kLegacy;
}

int32_t Whole(double value) { return ToInteger32(value); }
int32_t Whole(std::string_view text) { return Whole(LenientNumber(text)); }

// The samples between two indices of a record; a span past any strike's bound reads as that bound
// plus one, which the first sample past 30000 then refuses.
int32_t Span(int64_t end, int64_t start) { return static_cast<int32_t>(std::clamp<int64_t>(end - start, -1, kMaxStrikeSamples + 1)); }

class SmcReader {
 public:
  SmcReader(std::string_view bytes, const std::string& path, const std::string& title, SeismicStore& store)
      : lines_(bytes), path_(path), title_(title), s_(store) {}

  void Read();
  void Append(float depth_offset_m);

 private:
  // Reads the header into target; only the loaded file's header goes into the store.
  void ReadHeader(SeismicHeader& target, bool into_store);
  void ReadRecords();
  int StartRecord();
  void ReadLegacyRecord();
  void ReadMiddleRecord();
  void ReadCurrentRecord();
  void Store(int kind, int i, int sample, double raw) {
    const int slot = StrikeSlot(kind, i);
    s_.StrikeTime(slot, sample) = static_cast<float>(s_.SampleInterval[i] * (static_cast<double>(s_.StartIndex[i]) + sample));
    s_.StrikeAmplitude(slot, sample) = static_cast<float>((raw - bias_) / scale_);
  }
  // Reads count 4-character fields from field first on into the strike.
  void ReadFields(const std::string& text, int kind, int i, int first, int count) {
    for (int sample = 1; sample <= count; ++sample) {
      Store(kind, i, sample, FieldValue(text, 4 * static_cast<size_t>(first + sample - 1), 4));
    }
  }

  ItemReader lines_;
  const std::string& path_;
  const std::string& title_;
  SeismicStore& s_;
  SmcVersion version_ = SmcVersion::kLegacy;
  std::string version_line_;
  // The file's own conversion and, in the older versions, its one interval for all tests.
  double bias_ = 0, scale_ = 1;
  float interval_ms_ = 0;
  float depth_offset_m_ = 0;
};

//   Kestrelmoor Seismic File ver. 8-9-2011
//   ACME GEOTECHNICAL            (customer, or the title of a current file)
//   ... ten lines of operator, cone, location, job, hole, date, three comments, GPS
//   .0001                        (legacy: the interval in seconds; current: blank)
//               1
//                        POS SEISMIC
//                               2048   (bias)  ...  2048 (scale)
void SmcReader::ReadHeader(SeismicHeader& h, bool into_store) {
  h.FileVersionLine = std::string(lines_.Line());
  if (into_store) s_.HeaderLine(1, 0) = h.FileVersionLine;
  version_line_ = h.FileVersionLine;
  version_ = VersionOf(h.FileVersionLine);
  std::string* fields[] = {version_ == SmcVersion::kCurrent ? &h.PXTitle : &h.Customer,
                           &h.Operator, &h.ConeId, &h.Location, &h.JobNumber, &h.HoleNumber,
                           &h.TestDate, &h.Comment1, &h.Comment2, &h.Comment3, &h.GpsLine};
  int k = 1;
  for (std::string* field : fields) {
    *field = std::string(lines_.Line());
    if (into_store) s_.HeaderLine(1, k) = *field;
    ++k;
  }
  SplitPxGps(h.GpsLine, h);
  const std::string_view interval = lines_.Line();
  if (version_ != SmcVersion::kCurrent) {
    interval_ms_ = ToSingle(LenientNumber(interval) * 1000);
    if (into_store) s_.SampleInterval[0] = interval_ms_;
    lines_.Line();
  }
  int32_t bias = 0, scale = 0;
  for (int row = 1; row <= 7; ++row) {
    const std::string_view line = lines_.Line();
    if (row == 3) bias = Whole(line);
    if (row == 7) scale = Whole(line);
  }
  lines_.Line();
  if (into_store) {
    s_.AmplitudeBias = bias;
    s_.AmplitudeScale = scale;
  }
  if (scale == 0) Fail(kErrDivisionByZero);
  bias_ = bias;
  scale_ = scale;
}

int SmcReader::StartRecord() {
  const int i = ++s_.TestCount;
  s_.TestDepth[i] = ToSingle(LenientNumber(lines_.Line())) + depth_offset_m_;
  s_.TestFile[i] = path_;
  s_.TestTitle[i] = title_;
  for (auto& row : s_.GeophoneOf) row[i] = kGeophoneUnknown;
  return i;
}

// depth, start, end, arrival, strike code ("1" A B, "2" A P, "3" A B P), then 4-digit fields.
void SmcReader::ReadLegacyRecord() {
  const int i = StartRecord();
  s_.SampleInterval[i] = interval_ms_;
  s_.StartIndex[i] = Whole(lines_.Line());
  s_.EndIndex[i] = Whole(lines_.Line());
  s_.ArrivalFromFile[i] = Whole(lines_.Line());
  s_.ArrivalKind[i] = kStrikeA;
  const std::string_view code = TrimBlanks(lines_.Line());
  const bool b = code == "1" || code == "3";
  const bool p = code == "2" || code == "3";
  s_.SetHasStrike(kStrikeA, i, true);
  s_.SetHasStrike(kStrikeB, i, b);
  s_.SetHasStrike(kStrikeP, i, p);
  const std::string text = CleanSampleText(lines_.Item(), false);
  const int32_t count = Span(s_.EndIndex[i], s_.StartIndex[i]);
  const double length = static_cast<double>(text.size());
  s_.SampleCount[StrikeSlot(kStrikeA, i)] = count;
  if (!b && !p) {
    ReadFields(text, kStrikeA, i, 0, count);
  } else if (!(b && p)) {
    const int n = Whole(length / 8);
    const int second = b ? kStrikeB : kStrikeP;
    s_.SampleCount[StrikeSlot(second, i)] = count;
    ReadFields(text, kStrikeA, i, 0, count);
    ReadFields(text, second, i, n, count);
  } else {
    // B was recorded at half the rate: every second field of its run, the last one once more.
    const int n = Whole(length / 12);
    const int32_t half = Whole(count / 2.0);
    s_.SampleCount[StrikeSlot(kStrikeB, i)] = half;
    s_.SampleCount[StrikeSlot(kStrikeP, i)] = count;
    s_.LegacyHalfRateB = true;
    ReadFields(text, kStrikeA, i, 0, count);
    const int slot_b = StrikeSlot(kStrikeB, i);
    for (int sample = 1; sample <= half; ++sample) {
      if (sample == half && sample > 1) {
        Store(kStrikeB, i, sample, 0);
        s_.StrikeAmplitude(slot_b, sample) = s_.StrikeAmplitude(slot_b, sample - 1);
      } else {
        Store(kStrikeB, i, sample, FieldValue(text, 4 * static_cast<size_t>(n + 2 * (sample - 1)), 4));
      }
    }
    ReadFields(text, kStrikeP, i, 2 * n, count);
  }
}

// As the legacy record, but the third line holds the end values of the strikes in columns
// 1-5, 6-10 and 12-16.
void SmcReader::ReadMiddleRecord() {
  const int i = StartRecord();
  s_.SampleInterval[i] = interval_ms_;
  s_.StartIndex[i] = Whole(lines_.Line());
  const std::string ends(lines_.Line());
  s_.ArrivalFromFile[i] = Whole(lines_.Line());
  s_.ArrivalKind[i] = kStrikeA;
  const std::string_view code = TrimBlanks(lines_.Line());
  const auto count_at = [&](size_t position) {
    return Span(Whole(FieldValue(ends, position, 5)), s_.StartIndex[i]);
  };
  s_.EndIndex[i] = Whole(FieldValue(ends, 0, 5));
  const int32_t count_a = Span(s_.EndIndex[i], s_.StartIndex[i]);
  int32_t count_b = 0, count_p = 0;
  const bool b = code == "1" || code == "3";
  const bool p = code == "2" || code == "3";
  if (code == "1") count_b = count_at(5);
  if (code == "2") count_p = count_at(5);
  if (code == "3") count_b = count_at(5), count_p = count_at(11);
  s_.SetHasStrike(kStrikeA, i, true);
  s_.SetHasStrike(kStrikeB, i, b);
  s_.SetHasStrike(kStrikeP, i, p);
  s_.SampleCount[StrikeSlot(kStrikeA, i)] = count_a;
  if (b) s_.SampleCount[StrikeSlot(kStrikeB, i)] = count_b;
  if (p) s_.SampleCount[StrikeSlot(kStrikeP, i)] = count_p;
  const std::string text = CleanSampleText(lines_.Item(), false);
  int first = 0;
  ReadFields(text, kStrikeA, i, first, count_a);
  first += std::max(count_a, 0);
  if (b) {
    ReadFields(text, kStrikeB, i, first, count_b);
    first += std::max(count_b, 0);
  }
  if (p) ReadFields(text, kStrikeP, i, first, count_p);
}

// depth, interval, start, end, "  812A" pick, strike list, "A....B....Z...." samples.
void SmcReader::ReadCurrentRecord() {
  const int i = StartRecord();
  s_.SampleInterval[i] = ToSingle(LenientNumber(lines_.Line()) * 1000);
  s_.StartIndex[i] = Whole(lines_.Line());
  s_.EndIndex[i] = Whole(lines_.Line());
  std::string_view arrival = TrimRightBlanks(lines_.Line());
  s_.ArrivalKind[i] = kNoStrike;
  if (!arrival.empty()) {
    const char letter = arrival.back();
    s_.ArrivalFromFile[i] = Whole(arrival.substr(0, arrival.size() - 1));
    s_.ArrivalKind[i] = letter == 'A' ? kStrikeA : letter == 'B' ? kStrikeB : letter == 'Z' ? kStrikeP : kNoStrike;
  }
  const std::string_view list = lines_.Line();
  const bool a = list.find('A') != std::string_view::npos || list.find('a') != std::string_view::npos;
  const bool b = list.find('B') != std::string_view::npos || list.find('b') != std::string_view::npos;
  const bool p = list.find('Z') != std::string_view::npos || list.find('z') != std::string_view::npos;
  s_.SetHasStrike(kStrikeA, i, a);
  s_.SetHasStrike(kStrikeB, i, b);
  s_.SetHasStrike(kStrikeP, i, p);
  if (version_line_.find("2015.08.07.1") != std::string::npos) {
    if (list.find("A(SGEO1)") != std::string_view::npos) s_.GeophoneOf[kStrikeA][i] = kGeophoneSgeo1;
    if (list.find("A(SGEO2)") != std::string_view::npos) s_.GeophoneOf[kStrikeA][i] = kGeophoneSgeo2;
    if (list.find("B(SGEO1)") != std::string_view::npos) s_.GeophoneOf[kStrikeB][i] = kGeophoneSgeo1;
    if (list.find("B(SGEO2)") != std::string_view::npos) s_.GeophoneOf[kStrikeB][i] = kGeophoneSgeo2;
    if (p) s_.GeophoneOf[kStrikeP][i] = kGeophonePgeo;
  }
  const int32_t provisional = Span(s_.EndIndex[i], int64_t{s_.StartIndex[i]} + 1);
  for (int16_t kind : kStrikeKinds) {
    if (s_.HasStrike(kind, i)) s_.SampleCount[StrikeSlot(kind, i)] = provisional;
  }
  const std::string text = CleanSampleText(lines_.Item(), true);
  const int strikes = s_.StrikeCountOf(i);
  if (strikes == 0) Fail(kErrDivisionByZero);
  const int n = Whole(static_cast<double>(text.size()) / strikes / 4);
  for (int16_t kind : kStrikeKinds) s_.SampleCount[StrikeSlot(kind, i)] = n;
  int first = 0;
  for (int16_t kind : kStrikeKinds) {
    if (!s_.HasStrike(kind, i)) continue;
    ReadFields(text, kind, i, first, n);
    first += n;
  }
}

void SmcReader::Read() {
  s_.Reset();
  s_.AcquisitionFamily = kSmcFamily;
  ReadHeader(s_.header, true);
  ReadRecords();
  s_.RemoveStrikeMeans();
}

void SmcReader::Append(float depth_offset_m) {
  SeismicHeader dropped;
  ReadHeader(dropped, false);
  depth_offset_m_ = depth_offset_m;
  // A failure part way leaves the store with the tests it had.
  const int16_t count = s_.TestCount;
  const bool half_rate = s_.LegacyHalfRateB;
  try {
    ReadRecords();
  } catch (const RuntimeFailure&) {
    s_.TestCount = count;
    s_.LegacyHalfRateB = half_rate;
    throw;
  }
  s_.RemoveStrikeMeans();
}

void SmcReader::ReadRecords() {
  while (!lines_.AtEnd()) {
    switch (version_) {
      case SmcVersion::kLegacy: ReadLegacyRecord(); break;
      case SmcVersion::kMiddle: ReadMiddleRecord(); break;
      case SmcVersion::kCurrent: ReadCurrentRecord(); break;
    }
  }
}

}  // namespace

void ReadSmcFile(std::string_view bytes, const std::string& path, const std::string& title, SeismicStore& store) {
  InProcedure("ReadSmcFile", [&] { SmcReader(bytes, path, title, store).Read(); });
}

void AppendSmcFile(std::string_view bytes, const std::string& path, const std::string& title, float depth_offset_m,
                   SeismicStore& store) {
  InProcedure("AppendSmcFile", [&] { SmcReader(bytes, path, title, store).Append(depth_offset_m); });
}

}  // namespace marlview
