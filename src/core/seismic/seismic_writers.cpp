// The seismic writers and the combine commands.
#include "core/seismic/seismic_writers.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <system_error>

#include "core/common/file_access.h"
#include "core/common/number_format.h"
#include "core/common/number_read.h"
#include "core/common/runtime_failure.h"
#include "core/common/text_rules.h"
#include "core/seismic/seismic_readers.h"

namespace marlview {
namespace {

constexpr std::string_view kCrLf = "\r\n";

void Line(std::string& out, std::string_view text) {
  out += text;
  out += kCrLf;
}

//   012.50 m
void AppendDepth(std::string& out, float depth_m) {
  AppendNumber(out, depth_m, "000.00");
  out += " m";
}

// The interval is kept in milliseconds; the files hold seconds, ".00010000".
void AppendInterval(std::string& out, float interval_ms) {
  AppendNumber(out, static_cast<double>(interval_ms) / 1000, ".00000000");
}

void AppendCount(std::string& out, double value) { AppendText(out, FormatNumber(value, ""), "@@@@@"); }

// "  812B": the working pick and the strike it stands on; the current .SMC names a P pick "P".
void AppendArrival(std::string& out, const SeismicStore& s, int i, char p_letter) {
  AppendCount(out, s.ArrivalSample[i]);
  switch (s.ArrivalKind[i]) {
    case kStrikeA:
      out += 'A';
      break;
    case kStrikeB:
      out += 'B';
      break;
    case kStrikeP:
      out += p_letter;
      break;
    default:
      out += 'N';
      break;
  }
}

// "A(SGEO1)B(SGEO2)Z(PGEO)" for the files that name their geophones, "ABZ" for the older ones. A
// strike whose geophone the file did not tell stands on its usual one: A on SGEO1, B on SGEO2.
void AppendStrikeList(std::string& out, const SeismicStore& s, int i) {
  const std::string& first = s.header.FileVersionLine;
  const bool named =
      first.find("8.11.2015") != std::string::npos || first.find("2015.08.07.1") != std::string::npos;
  if (s.HasStrike(kStrikeA, i))
    out += !named ? "A" : s.GeophoneOf[kStrikeA][i] == kGeophoneSgeo2 ? "A(SGEO2)" : "A(SGEO1)";
  if (s.HasStrike(kStrikeB, i))
    out += !named ? "B" : s.GeophoneOf[kStrikeB][i] == kGeophoneSgeo1 ? "B(SGEO1)" : "B(SGEO2)";
  if (s.HasStrike(kStrikeP, i)) out += !named ? "Z" : "Z(PGEO)";
}

// A raw sample: a whole number held within its field, "00000" or "0000".
void AppendRaw(std::string& out, double raw, int width) { AppendNumber(out, raw, width == 5 ? "00000" : "0000"); }

// Room for the whole file at once: each sample takes width characters.
void Reserve(std::string& out, const SeismicStore& s, int width) {
  size_t samples = 0;
  for (int i = 1; i <= s.TestCount; ++i) {
    for (int16_t kind : kStrikeKinds) {
      if (s.HasStrike(kind, i))
        samples += static_cast<size_t>(std::max(s.SampleCount[StrikeSlot(kind, i)], 0));
    }
  }
  out.reserve(samples * static_cast<size_t>(width) + 200 * static_cast<size_t>(s.TestCount) + 4096);
}

char LetterOf(int kind) { return kind == kStrikeA ? 'A' : kind == kStrikeB ? 'B' : 'Z'; }

// .SEI raw values: a wave enhanced past full scale is scaled down as a whole so that its peak just
// fits, rather than clipped; the result is held in 1..65536.
void AppendSeiSamples(std::string& out, const SeismicStore& s, int i) {
  const double scale = s.AmplitudeScale, bias = s.AmplitudeBias;
  for (int16_t kind : kStrikeKinds) {
    if (!s.HasStrike(kind, i)) continue;
    const int slot = StrikeSlot(kind, i);
    const int32_t n = s.SampleCount[slot];
    const float* amplitude = s.AmplitudeRow(slot);
    int64_t peak = 0;
    for (int k = 1; k <= n; ++k)
      peak = std::max(peak, static_cast<int64_t>(std::trunc(std::fabs(amplitude[k] * scale))));
    const double factor = peak > 32768 ? 32768.0 / static_cast<double>(peak) : 1.0;
    out += LetterOf(kind);
    for (int k = 1; k <= n; ++k) {
      const double raw = std::clamp(std::trunc(amplitude[k] * scale * factor + bias), 1.0, 65536.0);
      AppendRaw(out, raw, 5);
    }
  }
}

// .SMC raw values of 4 digits, held in 1..4096; the current layout puts each strike's letter in
// front of its run, the legacy one runs the strikes together.
void AppendSmcSamples(std::string& out, const SeismicStore& s, int i, bool letters) {
  const double scale = s.AmplitudeScale, bias = s.AmplitudeBias;
  for (int16_t kind : kStrikeKinds) {
    if (!s.HasStrike(kind, i)) continue;
    const int slot = StrikeSlot(kind, i);
    const float* amplitude = s.AmplitudeRow(slot);
    if (letters) out += LetterOf(kind);
    for (int k = 1; k <= s.SampleCount[slot]; ++k) {
      AppendRaw(out, std::clamp(std::trunc(amplitude[k] * scale + bias), 1.0, 4096.0), 4);
    }
  }
}

// The channel table of a PX DAS file: constants, whatever bias and scale the file was read with.
void AppendSmcTable(std::string& out) {
  for (const char* value : {"2", "POS SEISMIC", "2048", "1 g", "g", "1", "2048"}) {
    out += "            ";
    AppendText(out, value, "@@@@@@@@@@@@@@@@@@@@");
    out += kCrLf;
  }
}

// A middle-version file has no layout of its own on saving: it goes out as a plain legacy file,
// so on reopening a three-strike record reads its B strike at half rate again.
void AppendLegacySmcRecord(std::string& out, const SeismicStore& s, int i) {
  AppendDepth(out, s.TestDepth[i]);
  out += kCrLf;
  AppendCount(out, s.StartIndex[i]);
  out += kCrLf;
  AppendCount(out, s.SampleCount[StrikeSlot(kStrikeA, i)]);
  const bool b = s.HasStrike(kStrikeB, i), p = s.HasStrike(kStrikeP, i);
  if (s.LegacyHalfRateB) {
    // The half-rate record states each strike's own end on the line of A's.
    if (b) AppendCount(out, s.SampleCount[StrikeSlot(kStrikeB, i)]);
    if (p) AppendCount(out, s.SampleCount[StrikeSlot(kStrikeP, i)]);
  }
  out += kCrLf;
  AppendCount(out, s.ArrivalSample[i]);
  out += kCrLf;
  out += b && p ? "3" : b ? "1" : p ? "2" : "0";
  out += kCrLf;
  AppendSmcSamples(out, s, i, false);
}

void AppendCurrentRecord(std::string& out, const SeismicStore& s, int i, bool sei) {
  AppendDepth(out, s.TestDepth[i]);
  out += kCrLf;
  AppendInterval(out, s.SampleInterval[i]);
  out += kCrLf;
  AppendCount(out, s.StartIndex[i]);
  out += kCrLf;
  // The end line holds the count, so a test whose start is not 0 reads back shorter.
  AppendCount(out, s.SampleCount[StrikeSlot(kStrikeA, i)]);
  out += kCrLf;
  AppendArrival(out, s, i, sei ? 'Z' : 'P');
  out += kCrLf;
  AppendStrikeList(out, s, i);
  out += kCrLf;
  if (sei)
    AppendSeiSamples(out, s, i);
  else
    AppendSmcSamples(out, s, i, true);
}

// "-2.345678E-003" or "+0.000000E+000", behind the blank that parts the columns.
void AppendFldacqColumn(std::string& out, double value) {
  out += value >= 0 ? " +" : " ";
  AppendNumber(out, value, "0.000000E+000");
}

std::string RenderFldacqFile(const SeismicStore& s, int i) {
  std::string out;
  for (int n = 1; n <= 52; ++n) Line(out, s.HeaderLine(i, n));
  out += kCrLf;
  int32_t count = 0;
  int time_slot = StrikeSlot(kStrikeA, i);
  for (int16_t kind : kStrikeKinds) {
    const int slot = StrikeSlot(kind, i);
    if (s.SampleCount[slot] > count) count = s.SampleCount[slot], time_slot = slot;
  }
  for (int k = 1; k <= count; ++k) {
    out += "    ";
    AppendNumber(out, static_cast<double>(s.StrikeTime(time_slot, k)) / 1000, "0.000000");
    for (int16_t kind : {kStrikeP, kStrikeA, kStrikeB}) {
      if (!s.HasStrike(kind, i)) {
        out += " +0.000000E+000";
        continue;
      }
      const float mean = s.StrikeMeanRemoved[static_cast<size_t>(kind)][i];
      AppendFldacqColumn(out, s.StrikeAmplitude(StrikeSlot(kind, i), k) + mean);
    }
    out += kCrLf;
  }
  return out;
}

std::string WithExtension(const std::string& path, std::string_view extension) {
  return EndsWithNoCase(path, extension) ? path : path + std::string(extension);
}

// The save dialog, again after a No to the overwrite question; empty when cancelled.
std::string AskTarget(const SeismicStore& s, const std::string& loaded_name, UserPrompts& prompts) {
  const bool sei = s.AcquisitionFamily == kSeiFamily;
  FileDialogRequest request;
  request.title = "Save As";
  request.filter = sei ? "*.sei|*.sei" : "*.smc";
  request.default_name = loaded_name;
  for (;;) {
    const std::string chosen = prompts.SaveFile(request);
    if (chosen.empty()) return {};
    const std::string path = WithExtension(chosen, sei ? ".sei" : ".smc");
    if (!FileExists(path) || prompts.Ask(kFileExistsQuestion, Buttons::kYesNo) == Answer::kYes) return path;
  }
}

}  // namespace

bool IsCurrentSmcForWriting(std::string_view first_line) {
  for (const char* current : {"11-20-2011", "8-22-2011", "8-22-11", "11-20-11", "2015.08.07.1"}) {
    if (first_line.find(current) != std::string_view::npos) return true;
  }
  return false;
}

std::string RenderSeiFile(const SeismicStore& s) {
  std::string out;
  Reserve(out, s, 5);
  for (int k = 0; k <= 54; ++k) Line(out, s.HeaderLine(1, k));
  for (int i = 1; i <= s.TestCount; ++i) {
    out += kCrLf;
    AppendCurrentRecord(out, s, i, true);
  }
  return out;
}

std::string RenderSmcFile(const SeismicStore& s) {
  const SeismicHeader& h = s.header;
  const bool current = IsCurrentSmcForWriting(h.FileVersionLine);
  std::string out;
  Reserve(out, s, 4);
  if (current) {
    Line(out, h.FileVersionLine);
    Line(out, h.PXTitle);
  } else {
    Line(out, s.LegacyHalfRateB ? "Kestrelmoor Seismic File ver. 8-9-2011" : "Kestrelmoor Seismic File");
    Line(out, h.Customer);
  }
  for (const std::string* field : {&h.Operator, &h.ConeId, &h.Location, &h.JobNumber, &h.HoleNumber,
                                   &h.TestDate, &h.Comment1, &h.Comment2, &h.Comment3, &h.GpsLine}) {
    Line(out, *field);
  }
  if (!current) {
    AppendInterval(out, s.SampleInterval[1]);
    out += kCrLf;
  }
  out += kCrLf;
  AppendSmcTable(out);
  for (int i = 1; i <= s.TestCount; ++i) {
    out += kCrLf;
    if (current)
      AppendCurrentRecord(out, s, i, false);
    else
      AppendLegacySmcRecord(out, s, i);
  }
  return out;
}

std::string FldacqSavedName(const std::string& test_file) {
  const size_t cut = test_file.size() >= 4 ? test_file.size() - 4 : 0;
  return test_file.substr(0, cut) + "(a)" + test_file.substr(cut);
}

std::vector<RenderedFile> RenderFldacqFiles(const SeismicStore& s) {
  std::vector<RenderedFile> files;
  for (int i = 1; i <= s.TestCount; ++i)
    files.push_back({FldacqSavedName(s.TestFile[i]), RenderFldacqFile(s, i)});
  return files;
}

SeismicSaveOutcome SaveSeismicData(const SeismicStore& s, const std::string& loaded_name,
                                   UserPrompts& prompts) {
  return SaveSeismicData(s, loaded_name, prompts, {});
}

SeismicSaveOutcome SaveSeismicData(const SeismicStore& s, const std::string& loaded_name,
                                   UserPrompts& prompts, const std::string& fldacq_folder) {
  SeismicSaveOutcome outcome = SeismicSaveOutcome::kNothingToSave;
  const bool written = TellFailures(prompts, "SaveSeismicData", [&] {
    switch (s.AcquisitionFamily) {
      case kSmcFamily:
      case kSeiFamily: {
        const std::string path = AskTarget(s, loaded_name, prompts);
        if (path.empty()) {
          outcome = SeismicSaveOutcome::kCancelled;
          return;
        }
        WriteFileAtomically(path, s.AcquisitionFamily == kSeiFamily ? RenderSeiFile(s) : RenderSmcFile(s));
        outcome = SeismicSaveOutcome::kSaved;
        return;
      }
      case kFldacqFamily: {
        prompts.Tell(kFldacqSaveNotice);
        // A folder that cannot be made shows up as the first write's "Path not found".
        std::error_code ignored;
        if (!fldacq_folder.empty()) std::filesystem::create_directories(fldacq_folder, ignored);
        for (RenderedFile& file : RenderFldacqFiles(s)) {
          const std::string path =
              fldacq_folder.empty()
                  ? file.name
                  : (std::filesystem::path(fldacq_folder) / std::string(FileNamePart(file.name))).string();
          WriteFileAtomically(path, file.bytes);
        }
        outcome = SeismicSaveOutcome::kSaved;
        return;
      }
      default:
        return;
    }
  });
  return written ? outcome : SeismicSaveOutcome::kFailed;
}

std::string CombineCaution(bool sei) {
  return std::string("CAUTION: ") + (sei ? "SEI" : "SMC") +
         " files should be combined ONLY if they comprise portions of the same sounding and are saved in the "
         "same "
         "format. The headers of the currently loaded file will be used for the combined file. Combining "
         "files from "
         "seismic tests from different tests will result in incorrect data. Press OK to combine files or "
         "CANCEL to "
         "return to the seismic screen";
}

bool CombineSeismicFile(Session& session, UserPrompts& prompts, bool sei, const std::string& path,
                        const std::string& offset_text) {
  double offset = LenientNumber(offset_text);
  if (offset < 0) {
    prompts.Tell(kOffsetNegative);
    return false;
  }
  if (session.DepthUnitIsMetric != 1) offset /= session.FeetPerMetre;
  const float offset_m = ToSingle(offset);
  return InProcedure(sei ? "AppendSeiFile" : "AppendSmcFile", [&] {
    const std::string bytes = ReadWholeFile(path);
    const std::string title(FileNamePart(path));
    if (sei) return AppendSeiFile(bytes, path, title, offset_m, session.Seismic(), prompts);
    AppendSmcFile(bytes, path, title, offset_m, session.Seismic());
    return true;
  });
}

namespace {

bool Combine(Session& session, UserPrompts& prompts, AppendOffsetDialog& dialog, bool sei) {
  const std::string kind = sei ? "SEI" : "SMC";
  if (prompts.Ask(CombineCaution(sei), Buttons::kOkCancel) != Answer::kOk) return false;
  FileDialogRequest request;
  request.title = "Select " + kind + " to add";
  request.filter = sei ? "SEI Files (*.sei)|*.sei" : "SMC Files (*.smc)|*.smc";
  const std::string path = prompts.OpenFile(request);
  if (path.empty()) return false;
  const std::string offset = dialog.AskOffset(sei, session.DepthUnitIsMetric != 1);
  if (offset.empty()) return false;
  bool added = false;
  TellFailures(prompts, sei ? "AppendSeiFile" : "AppendSmcFile",
               [&] { added = CombineSeismicFile(session, prompts, sei, path, offset); });
  return added;
}

}  // namespace

bool CombineSeiFile(Session& session, UserPrompts& prompts, AppendOffsetDialog& offset) {
  return Combine(session, prompts, offset, true);
}

bool CombineSmcFile(Session& session, UserPrompts& prompts, AppendOffsetDialog& offset) {
  return Combine(session, prompts, offset, false);
}

}  // namespace marlview
