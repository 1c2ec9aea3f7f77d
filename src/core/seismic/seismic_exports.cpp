// The seismic exports: strike text and CSV files and DPlot graph files.
#include "core/seismic/seismic_exports.h"

#include <algorithm>
#include <cctype>
#include <filesystem>

#include "core/common/file_access.h"
#include "core/common/number_format.h"
#include "core/common/number_read.h"

namespace marlview {
namespace {

constexpr std::string_view kCrLf = "\r\n";

void Line(std::string& out, std::string_view text) {
  out += text;
  out += kCrLf;
}

std::string InDirectory(const std::string& directory, const std::string& name) {
  return (std::filesystem::path(directory) / name).string();
}

// "!@@@...": the sounding name left-aligned and cut to its width.
std::string SoundingMask(int width) { return "!" + std::string(static_cast<size_t>(width), '@'); }

// "   4.5": the depth as it stands, right-aligned in six columns.
std::string DepthField(float depth_m) { return FormatText(ShortestText(depth_m), "@@@@@@"); }

//   "   1.000    -0.2500": time in ms in 8 columns, amplitude in 11.
void AppendSample(std::string& out, const SeismicStore& s, int slot, int k, std::string_view separator) {
  AppendText(out, FormatNumber(s.StrikeTime(slot, k), "###0.000"), "@@@@@@@@");
  out += separator;
  AppendText(out, FormatNumber(s.StrikeAmplitude(slot, k), "######0.0000"), "@@@@@@@@@@@");
  out += kCrLf;
}

std::string_view StrikeTag(int kind) { return kind == kStrikeA ? "_L" : kind == kStrikeB ? "_R" : "_P"; }

using Renderer = std::string (*)(const SeismicStore&, int, int, const std::string&, bool, int);

std::string TextRenderer(const SeismicStore& s, int test, int kind, const std::string& sounding, bool header,
                         int width) {
  return RenderStrikeText(s, test, kind, sounding, header, width);
}
std::string CsvRenderer(const SeismicStore& s, int test, int kind, const std::string& sounding, bool,
                        int width) {
  return RenderStrikeCsv(s, test, kind, sounding, width);
}

// Writes every strike of tests first..last; the ending (".txt", ".csv") is cut from the file name
// box first, since it is added to every name.
bool ExportStrikes(const SeismicStore& s, int first, int last, const SeismicExportBoxes& boxes, bool header,
                   int width, std::string_view ending, Renderer render, UserPrompts& prompts) {
  if (!CheckExportBoxes(boxes, prompts)) return false;
  const std::string stem = CutEnding(boxes.file_name, ending);
  for (int i = first; i <= last; ++i) {
    for (int16_t kind : kStrikeKinds) {
      if (!s.HasStrike(kind, i)) continue;
      WriteFileAtomically(InDirectory(boxes.directory, StrikeFileName(stem, s.TestDepth[i], kind, i, ending)),
                          render(s, i, kind, boxes.sounding, header, width));
    }
  }
  return true;
}

// Value s of a record, or 0 past the end of the table, where the last data line of a graph file
// reaches up to four samples beyond the count.
float StrikeValue(const SeismicStore& s, int slot, int k) {
  return k <= kMaxStrikeSamples ? s.StrikeAmplitude(slot, k) : 0.0f;
}
float LogValue(const SeismicStore& s, int column, int k) {
  return k <= kMaxLogSamples ? s.LogAmplitude(k, column) : 0.0f;
}

// One curve: its count, the amplitudes five to a line, the x range and the curve's closing lines.
template <typename Value>
void AppendCurve(std::string& out, int count, double last_time_ms, bool alternating, Value value) {
  const int step = alternating ? 2 : 1;
  AppendNumber(out, alternating ? (count + 1) / 2 : count, "######");
  out += kCrLf;
  for (int s = 1; s <= count; s += 5 * step) {
    for (int k = 0; k < 5; ++k) {
      if (k > 0) out += ',';
      AppendNumber(out, value(s + k * step), "#######0.000000");
    }
    out += kCrLf;
  }
  out += "0,";
  AppendNumber(out, last_time_ms / 1000, "0.0000");
  out += kCrLf;
  Line(out, " 1    0");
  Line(out, "");
  Line(out, "");
}

// The date and start time under the depth note: QRD files keep them apart; a PX date carries its
// time behind the day, month and year.
std::string DateNote(const SeismicStore& s) {
  const std::string& date = s.header.TestDate;
  if (s.AcquisitionFamily != kSmcFamily) return date + "\\n" + s.header.StartTime;
  const size_t first = date.find('/');
  const size_t second = first == std::string::npos ? first : date.find('/', first + 1);
  if (second == std::string::npos) return date + "\\n";
  const size_t blank = date.find(' ', second);
  if (blank == std::string::npos) return date + "\\n";
  size_t rest = blank;
  while (rest < date.size() && date[rest] == ' ') ++rest;
  return date.substr(0, blank) + "\\n" + date.substr(rest);
}

bool HasWanted(const SeismicStore& s, int test, GrfStrikes strikes) {
  switch (strikes) {
    case GrfStrikes::kA:
      return s.HasStrike(kStrikeA, test);
    case GrfStrikes::kB:
      return s.HasStrike(kStrikeB, test);
    case GrfStrikes::kP:
      return s.HasStrike(kStrikeP, test);
    case GrfStrikes::kAB:
      return s.HasStrike(kStrikeA, test) && s.HasStrike(kStrikeB, test);
  }
  return false;
}

}  // namespace

bool CheckExportBoxes(const SeismicExportBoxes& boxes, UserPrompts& prompts) {
  if (boxes.sounding.empty() && boxes.file_name.empty()) {
    prompts.Tell(kEnterSoundingAndFilename);
  } else if (boxes.sounding.empty()) {
    prompts.Tell(kEnterSoundingName);
  } else if (boxes.file_name.empty()) {
    prompts.Tell(kEnterFilename);
  } else {
    return true;
  }
  return false;
}

std::string CutEnding(const std::string& name, std::string_view lower_ending) {
  if (name.size() < lower_ending.size()) return name;
  const std::string tail = name.substr(name.size() - lower_ending.size());
  std::string upper(lower_ending);
  for (char& c : upper) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  if (tail == lower_ending || tail == upper) return name.substr(0, name.size() - lower_ending.size());
  return name;
}

std::string StrikeFileName(const std::string& stem, float depth_m, int kind, int test,
                           std::string_view ending) {
  std::string name = stem + "_";
  AppendNumber(name, depth_m, "000.00");
  name += "m";
  name += StrikeTag(kind);
  name += "_strike(";
  AppendNumber(name, test, "000");
  name += ")";
  name += ending;
  return name;
}

std::string RenderStrikeText(const SeismicStore& s, int test, int kind, const std::string& sounding,
                             bool include_header, int sounding_width) {
  const int slot = StrikeSlot(kind, test);
  const int count = s.SampleCount[slot];
  std::string out;
  out.reserve(static_cast<size_t>(std::max(count, 0)) * 21 + 256);
  const std::string depth_line = "   Depth: " + DepthField(s.TestDepth[test]) + " meter(s)";
  if (include_header) {
    Line(out, "Sounding: " + FormatText(sounding, SoundingMask(sounding_width)));
    Line(out, depth_line);
    Line(out, "");
    Line(out, "");
    Line(out, "    TIME    AMPLITUDE  ");
    Line(out, "    (ms)");
    Line(out, "");
  } else {
    Line(out, depth_line);
  }
  for (int k = 1; k <= count; ++k) AppendSample(out, s, slot, k, "");
  return out;
}

std::string RenderStrikeCsv(const SeismicStore& s, int test, int kind, const std::string& sounding,
                            int sounding_width) {
  const int slot = StrikeSlot(kind, test);
  const int count = s.SampleCount[slot];
  std::string out;
  out.reserve(static_cast<size_t>(std::max(count, 0)) * 22 + 256);
  Line(out, "Sounding," + FormatText(sounding, SoundingMask(sounding_width)));
  Line(out, "Depth (m)," + DepthField(s.TestDepth[test]));
  Line(out, "TIME (ms),AMPLITUDE");
  for (int k = 1; k <= count; ++k) AppendSample(out, s, slot, k, ",");
  return out;
}

bool ExportSeismicText(const SeismicStore& s, const SeismicExportBoxes& boxes, bool include_header,
                       UserPrompts& prompts) {
  return ExportStrikes(s, 1, s.TestCount, boxes, include_header, kSoundingWidthAll, ".txt", TextRenderer,
                       prompts);
}

bool ExportSeismicCsv(const SeismicStore& s, const SeismicExportBoxes& boxes, UserPrompts& prompts) {
  return ExportStrikes(s, 1, s.TestCount, boxes, true, kSoundingWidthAll, ".csv", CsvRenderer, prompts);
}

bool ExportSingleSeismicText(const SeismicStore& s, int test, const SeismicExportBoxes& boxes,
                             UserPrompts& prompts) {
  return ExportStrikes(s, test, test, boxes, true, kSoundingWidthSingle, ".txt", TextRenderer, prompts);
}

bool ExportSingleSeismicCsv(const SeismicStore& s, int test, const SeismicExportBoxes& boxes,
                            UserPrompts& prompts) {
  return ExportStrikes(s, test, test, boxes, true, kSoundingWidthSingle, ".csv", CsvRenderer, prompts);
}

bool ReadTxtHeaderSetting(const std::string& data_directory) {
  const auto bytes = TryReadWholeFile(InDirectory(data_directory, kTxtHeaderSettingFile));
  if (!bytes) return true;
  return LenientNumber(*bytes) != 0;
}

void WriteTxtHeaderSetting(const std::string& data_directory, bool include_header) {
  WriteFileAtomically(InDirectory(data_directory, kTxtHeaderSettingFile), include_header ? "1\r\n" : "0\r\n");
}

std::string GrfFileName(const std::string& stem, const GrfOptions& options, float depth_m) {
  static constexpr std::string_view kTags[] = {"(A)", "(B)", "(P)", "(A+B)"};
  std::string name = stem;
  name += kTags[static_cast<int>(options.strikes)];
  AppendNumber(name, options.feet ? depth_m * options.feet_per_metre : depth_m, "000.00");
  name += options.feet ? "ft.grf" : "m.grf";
  return name;
}

std::string GrfMissingStrikeQuestion(int test, float depth_m, const GrfOptions& options) {
  static constexpr std::string_view kMissing[] = {
      "DOES NOT HAVE (A) STRIKE. CANNOT CONVERT", "DOES NOT HAVE (B) STRIKE. CANNOT CONVERT",
      "DOES NOT HAVE (P) STRIKE. CANNOT CONVERT", "DOES NOT HAVE (A + B) STRIKES. CANNOT CONVERT"};
  std::string text = "TEST #: " + std::to_string(test) + " at ";
  AppendNumber(text, options.feet ? depth_m * options.feet_per_metre : depth_m, "##0.00");
  text += options.feet ? " (ft) " : " (m) ";
  text += kMissing[static_cast<int>(options.strikes)];
  // The metric question of the pair says what OK and Cancel do; the one in feet never did.
  if (options.strikes == GrfStrikes::kAB && !options.feet)
    text += ". PRESS OK TO CONTINUE TO NEXT TEST OR CANCEL TO STOP CONVERSION";
  return text;
}

std::string RenderGrfFile(const SeismicStore& s, int test, const GrfOptions& options) {
  std::string out;
  Line(out, "DPLOT/W v1.2");
  Line(out, "dx");
  Line(out, options.strikes == GrfStrikes::kAB ? "2" : "1");
  int kinds[2] = {kStrikeA, kStrikeB};
  int curves = 2;
  if (options.strikes != GrfStrikes::kAB) {
    kinds[0] = options.strikes == GrfStrikes::kA   ? kStrikeA
               : options.strikes == GrfStrikes::kB ? kStrikeB
                                                   : kStrikeP;
    curves = 1;
  }
  const bool log = s.AcquisitionFamily == kSlgFamily;
  for (int c = 0; c < curves; ++c) {
    if (log) {
      const int count = s.SampleCount[1];
      const int column = LogColumn(kinds[c]);
      AppendCurve(out, count, count > 0 ? s.LogTime(std::min(count, kMaxLogSamples)) : 0.0,
                  options.alternating, [&](int k) { return LogValue(s, column, k); });
    } else {
      const int slot = StrikeSlot(kinds[c], test);
      const int count = s.SampleCount[slot];
      AppendCurve(out, count, count > 0 ? s.StrikeTime(slot, std::min(count, kMaxStrikeSamples)) : 0.0, false,
                  [&](int k) { return StrikeValue(s, slot, k); });
    }
  }
  Line(out, s.TestTitle[1]);
  Line(out, "");
  Line(out, "Time (Sec)");
  Line(out, "Signal (psuedo-VDC)");
  Line(out, "     1");
  Line(out, "0.770833,0.059896");
  Line(out, "Date");
  Line(out, "           1");
  Line(out, "Grid Type");
  Line(out, "00");
  Line(out, "LineWidths");
  Line(out, "20 20");
  Line(out, "NoteV2");
  Line(out, " 0.8000     0.0000E+00     5     8");
  std::string depth = "Depth: ";
  const float depth_m = s.TestDepth[test];
  AppendNumber(depth, options.feet ? depth_m * options.feet_per_metre : depth_m, "##0.00");
  depth += options.feet ? "ft\\n" : "m\\n";
  Line(out, depth);
  Line(out, DateNote(s));
  Line(out, "PointSizes");
  Line(out, " 7");
  Line(out, "  8 12 14 10 10  8 10");
  Line(out, "SymbolSizes");
  Line(out, " 40 40");
  Line(out, "Stop");
  return out;
}

GrfExportOutcome ExportSeismicGrf(const SeismicStore& s, const SeismicExportBoxes& boxes,
                                  const GrfOptions& options, UserPrompts& prompts) {
  if (!CheckExportBoxes(boxes, prompts)) return GrfExportOutcome::kEmptyBox;
  // A log is one record: one round, whatever its count of seconds.
  const int last = s.AcquisitionFamily == kSlgFamily ? 1 : s.TestCount;
  GrfOptions grf = options;
  if (s.AcquisitionFamily != kSlgFamily) grf.alternating = false;
  for (int i = 1; i <= last; ++i) {
    if (!HasWanted(s, i, grf.strikes)) {
      if (prompts.Ask(GrfMissingStrikeQuestion(i, s.TestDepth[i], grf), Buttons::kOkCancel) ==
          Answer::kCancel) {
        prompts.Tell(kConversionCanceled);
        return GrfExportOutcome::kCanceled;
      }
      continue;
    }
    WriteFileAtomically(InDirectory(boxes.directory, GrfFileName(boxes.file_name, grf, s.TestDepth[i])),
                        RenderGrfFile(s, i, grf));
  }
  prompts.Tell(kConversionCompleted);
  return GrfExportOutcome::kCompleted;
}

}  // namespace marlview
