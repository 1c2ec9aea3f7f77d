// The sounding writer: raw numbers and the file's own header back in the layout the field system
// wrote, so a save and reopen recomputes every engineering value and derived channel.
#include "core/io/sounding_writer.h"

#include <array>
#include <string_view>

#include "core/common/number_format.h"
#include "core/common/number_read.h"
#include "core/common/runtime_failure.h"
#include "core/common/text_rules.h"
#include "core/io/qrd_header.h"

namespace marlview {
namespace {

constexpr std::string_view kLineEnd = "\r\n";
// A channel table cell of a DAT file, a raw reading and the depth in front of it.
constexpr std::string_view kCellMask = "@@@@@@@@@@@@@@@@";
constexpr std::string_view kFieldMask = "@@@@@@@@@@@@@@@@@@";
constexpr std::string_view kDepthMask = "@@@@@@@@@";
constexpr std::string_view kTableNumber = "0.000000E+000";
constexpr std::string_view kRawNumber = "0.0000000000E+000";
constexpr std::string_view kDepthNumber = "###0.0000";
constexpr std::string_view kWaterTableVersion = "08.05.2015";
// The PX DAS channel table and data lines: 13 characters for depth and speed, then 20 a channel.
constexpr std::string_view kCptPrefix = "             ";
constexpr std::string_view kCptCellMask = "@@@@@@@@@@@@@@@@@@@@";
constexpr std::string_view kCptZeroNumber = "####0.00000";
constexpr std::string_view kCptMissingValue = "-32768";
constexpr float kUndefinedWaterTable = -99;

// The fewest digits the formatter gives that read back to the same 32-bit float, for the numbers a
// layout leaves free: a header's start depth and water table, and the PX DAS sensitivities, ranges
// and counts. A crew types "2.5" or "0.0125" as a sensitivity and wants to see it back, and a
// count of -32768 stays "-32768". Scientific when the plain form would not fit a PX DAS cell.
void AppendExactNumber(std::string& out, float value) {
  static constexpr std::array<std::string_view, 10> kPlain = {
      "0", "0.0", "0.00", "0.000", "0.0000", "0.00000", "0.000000", "0.0000000", "0.00000000", "0.000000000"};
  static constexpr std::array<std::string_view, 9> kScientific = {
      "0E+00", "0.0E+00", "0.00E+00", "0.000E+00", "0.0000E+00", "0.00000E+00", "0.000000E+00", "0.0000000E+00",
      "0.00000000E+00"};
  constexpr size_t kLongestPlain = 19;
  const size_t start = out.size();
  auto reads_back = [&] {
    const std::string_view text(out.data() + start, out.size() - start);
    return text.size() <= kLongestPlain && static_cast<float>(LenientNumber(text)) == value;
  };
  for (std::string_view pattern : kPlain) {
    AppendNumber(out, value, pattern);
    if (reads_back()) return;
    out.resize(start);
  }
  for (std::string_view pattern : kScientific) {
    AppendNumber(out, value, pattern);
    if (reads_back()) return;
    out.resize(start);
  }
  // Nine significant digits always read back to the same float.
  AppendNumber(out, value, kScientific.back());
}

// The raw channels the file holds. The colour probe's Munsell chips come from their companion file
// and are not a channel of the sounding, though the open counts them as one.
int ChannelsOfTheFile(const SoundingStore& s) {
  const int count = s.ChannelCount;
  return s.MunsellChannel != 0 && s.MunsellChannel == count ? count - 1 : count;
}

// The two DAT layouts: the KORVAN layout with its version line (family 1) and the older layout
// without it (family 2), which has no depth column, water table, tip or unit rows.
class DatWriter {
 public:
  DatWriter(const SoundingStore& store, const UnitTables* units, bool korvan)
      : s_(store), units_(units), korvan_(korvan), channels_(ChannelsOfTheFile(store)) {}

  std::string Render() {
    // About 19 characters a reading and channel, plus the header and the channel table.
    out_.reserve(4096 + static_cast<size_t>(s_.ReadingCount + 1) * (16 + 19 * static_cast<size_t>(channels_ + 1)));
    Header();
    ChannelTable();
    LeadInToData();
    DataLines();
    return std::move(out_);
  }

 private:
  void Line(std::string_view text) {
    out_ += text;
    out_ += kLineEnd;
  }
  void Labelled(std::string_view value, std::string_view label) {
    out_ += value;
    Line(label);
  }
  void Header();
  void GpsLine();
  void ChannelTable();
  template <typename CellText>
  void TextRow(std::string_view caption, CellText cell_text);
  template <typename CellValue>
  void NumberRow(std::string_view caption, CellValue cell_value);
  void LeadInToData();
  void DataLines();
  void AppendRawField(float value);

  const SoundingStore& s_;
  const UnitTables* units_;
  bool korvan_;
  int channels_;
  std::string out_;
  // One cell's digits before they are aligned into the file's text.
  std::string cell_;
};

//   KORVAN FILE VER: 08.05.2015
//   QRD FIELDBOX CPT Acquisition
//   Cone Penetrometer Test
//   CPT-A01.DAT => Filename
//   ...
//   Conventional => Tip Configuration          (KORVAN only)
//   20(mm) => Depth Increment
//   0 => Test Depth (m)
void DatWriter::Header() {
  if (korvan_) Line(s_.FileVersionLine);
  Line(s_.FileProductLine);
  Line("Cone Penetrometer Test");
  Labelled(s_.SoundingFileName, " => Filename");
  Labelled(s_.TestId, " => Test Id");
  out_ += s_.Operator;
  out_ += " | ";
  Labelled(s_.Crew, " => Operator / Crew");
  Labelled(s_.Project, " => Project");
  Labelled(s_.Site, " => Site");
  Labelled(s_.Location, " => Location");
  Labelled(s_.Comments, " => Comments");
  Labelled(s_.TestDate, " => Date");
  Labelled(s_.StartTime, " => Start Time");
  GpsLine();
  Labelled(s_.Client, " => Client");
  Labelled(s_.ClientRepresentative, " => Client Representative");
  Labelled(s_.Weather, " => Weather");
  if (korvan_ && s_.FileVersionLine.find(kWaterTableVersion) != std::string::npos) {
    AppendExactNumber(out_, s_.WaterTableDepth);
    Line(" => Water Table Depth (m)");
  }
  Line(" ");
  // The version line is read whole, word "Version" and all, and the word is written again in
  // front of it: a file saved twice says "Version Version".
  out_ += "Version ";
  Line(s_.DasVersion);
  Line(" ");
  Labelled(s_.DasSystem, " => DAS System");
  Line("Enabled => Digital Cone");
  Labelled(s_.ProbeSerial, " => Probe Serial Number");
  if (korvan_) {
    if (s_.BallTip) {
      out_ += "Ball Dia mm";
      cell_.clear();
      AppendNumber(cell_, s_.BallDiameter, "##0");
      AppendText(out_, cell_, "@@@");
      Line(" => Tip Configuration");
    } else {
      Line("Conventional => Tip Configuration");
    }
  }
  for (int i = 0; i < 5; ++i) Line(" => ");
  if (s_.DepthIncrementMode) {
    Labelled(s_.DepthIncrement, "(mm) => Depth Increment");
  } else {
    Labelled(s_.SampleRate, " => Sample Rate");
  }
  AppendExactNumber(out_, s_.StartDepth);
  // The older layout states no unit, so its reader asks whether a start depth is in metres.
  Line(korvan_ ? " => Test Depth (m)" : " => Test Depth");
  Line("");
}

// Every piece is written, an empty one as "0", so a line kept without a hemisphere letter goes out
// as "0,0,0,0,0".
void DatWriter::GpsLine() { Line(QrdGpsLine(s_.GpsLat, s_.GpsLon, s_.GpsElev, s_.GpsNSat, s_.GpsQual)); }

//   Channel                      1               2               3
//   Sensor                     Tip          Sleeve   Pore Pressure
//   Excitation    4.0             4.0             4.0
//   Baseline        -1.234000E-002   8.421000E-003  -2.056000E-002
void DatWriter::ChannelTable() {
  out_ += "Channel       ";
  for (int c = 1; c <= channels_; ++c) {
    cell_.clear();
    AppendNumber(cell_, c, "0");
    AppendText(out_, cell_, kCellMask);
  }
  out_ += kLineEnd;
  TextRow("Sensor        ", [this](int c) -> std::string_view { return s_.ChannelSensor[c]; });
  TextRow("Range         ", [](int) { return std::string_view("1.000000"); });
  TextRow("Gain          ", [](int) { return std::string_view("1"); });
  TextRow("Filter        ", [](int) { return std::string_view("1"); });
  // The field systems write the first excitation cell without its padding; the reader skips the row.
  out_ += "Excitation    ";
  for (int c = 1; c <= channels_; ++c) out_ += c == 1 ? "4.0" : "             4.0";
  out_ += kLineEnd;
  NumberRow("Baseline      ", [this](int c) { return s_.ChannelBaseline[c]; });
  for (size_t row = 0; row < kCalRows; ++row) {
    NumberRow("Cal Factor    ", [this, row](int c) { return s_.ChannelCalRows[c][row]; });
  }
  for (size_t row = 0; row < kCalRows; ++row) {
    NumberRow("Unit Factors  ", [this, row](int c) { return s_.ChannelUnitFactorRows[c][row]; });
  }
  if (!korvan_) return;
  NumberRow("Chan Offset   ", [this](int c) { return s_.ChannelOffset[c]; });
  TextRow("Default Units ", [this](int c) -> std::string_view {
    return units_->Name(s_.ChannelDefaultUnit[c], s_.ChannelUnitGroup[c]);
  });
  TextRow("Display Units ", [this](int c) -> std::string_view {
    return units_->Name(s_.ChannelDisplayUnit[c][kGraphOutput], s_.ChannelUnitGroup[c]);
  });
  // From the file's unit to the unit shown; a temperature converts by its own rule, not a factor.
  NumberRow("Conv Factor   ", [this](int c) {
    if (ContainsNoCase(s_.ChannelName[c], "temperature")) return 1.0f;
    const int group = s_.ChannelUnitGroup[c];
    const float display = units_->ConversionFactor(s_.ChannelDisplayUnit[c][kGraphOutput], group);
    if (display == 0) Fail(kErrDivisionByZero);
    return units_->ConversionFactor(s_.ChannelDefaultUnit[c], group) / display;
  });
}

template <typename CellText>
void DatWriter::TextRow(std::string_view caption, CellText cell_text) {
  out_ += caption;
  for (int c = 1; c <= channels_; ++c) AppendText(out_, cell_text(c), kCellMask);
  out_ += kLineEnd;
}

template <typename CellValue>
void DatWriter::NumberRow(std::string_view caption, CellValue cell_value) {
  out_ += caption;
  for (int c = 1; c <= channels_; ++c) {
    cell_.clear();
    AppendNumber(cell_, cell_value(c), kTableNumber);
    AppendText(out_, cell_, kCellMask);
  }
  out_ += kLineEnd;
}

// The KORVAN layout keeps an acquisition extra of two lines, or two blanks in its place, before
// two blanks, "Dig. Sensor         Digital NC", a blank and "DEPTH (m)".
//
// The older layout has no unit rows, extra or depth heading, yet its files still hold two blank
// lines between the unit factors and "Dig. Sensor", and the reader steps over all three. Writing the
// sensor line alone would make the reader take the first reading for the sensor line and lose it,
// so the writer keeps the field systems' three lines.
void DatWriter::LeadInToData() {
  if (!korvan_) {
    Line("");
    Line("");
    Line("Dig. Sensor         Digital NC");
    return;
  }
  if (s_.ExtraHeaderPresent) {
    Line(s_.ExtraHeaderLine1);
    Line(s_.ExtraHeaderLine2);
  } else {
    Line("");
    Line("");
  }
  Line("");
  Line("");
  Line("Dig. Sensor         Digital NC");
  Line("");
  Line("DEPTH (m)");
}

//      0.0200 +4.2742712607E-001 -3.4770969936E-002  35000 09:42:52
//   BASELINE  +2.6610000000E-003 -4.8100000000E-003
// The depth is the file's own, less the start depth that the reader adds; what stood behind the
// last channel goes back after it.
void DatWriter::DataLines() {
  for (int r = 1; r <= s_.ReadingCount; ++r) {
    if (korvan_) {
      cell_.clear();
      AppendNumber(cell_, static_cast<double>(s_.DepthTable(r, 1)) - s_.StartDepth, kDepthNumber);
      AppendText(out_, cell_, kDepthMask);
      out_ += ' ';
    }
    for (int c = 1; c <= channels_; ++c) AppendRawField(s_.RawReadings(r, c));
    Line(s_.RowTail[r]);
  }
  if (!s_.EndBaselinePresent) return;
  out_ += "BASELINE  ";
  for (int c = 1; c <= channels_; ++c) AppendRawField(s_.ChannelEndBaseline[c]);
  out_ += kLineEnd;
}

// "+1.2345678901E+000 ": a sign always, eleven digits, a three-digit exponent, then the separator.
void DatWriter::AppendRawField(float value) {
  cell_.clear();
  if (!(value < 0)) cell_ += '+';
  AppendNumber(cell_, value, kRawNumber);
  AppendText(out_, cell_, kFieldMask);
  out_ += ' ';
}

// The PX DAS layout: twelve header lines, the water table, the channel table of 20-character cells
// behind 13 blanks, the column heading, then depth, speed and the file's numbers.
class CptWriter {
 public:
  explicit CptWriter(const SoundingStore& store) : s_(store), channels_(store.ChannelCount) {}

  std::string Render() {
    out_.reserve(2048 + static_cast<size_t>(s_.ReadingCount + 1) * (15 + 20 * static_cast<size_t>(channels_)));
    Header();
    ChannelTable();
    DataLines();
    return std::move(out_);
  }

 private:
  void Line(std::string_view text) {
    out_ += text;
    out_ += kLineEnd;
  }
  void Header();
  void ChannelTable();
  template <typename CellText>
  void Row(CellText cell_text);
  void DataLines();
  void AppendCell(std::string_view text) { AppendText(out_, text, kCptCellMask); }

  const SoundingStore& s_;
  int channels_;
  std::string out_;
  std::string cell_;
};

void CptWriter::Header() {
  for (const std::string* line : {&s_.CptTitle, &s_.Customer, &s_.OperatorName, &s_.ConeId, &s_.LocationName,
                                   &s_.JobNumber, &s_.HoleNumber, &s_.TestDateText, &s_.CommentLine1,
                                   &s_.CommentLine2, &s_.CommentLine3, &s_.GpsText}) {
    Line(*line);
  }
  // An undefined water table goes out as a zero, which the reader leaves undefined.
  if (s_.WaterTableDepth == kUndefinedWaterTable) {
    out_ += " 0";
  } else {
    AppendExactNumber(out_, s_.WaterTableDepth);
  }
  out_ += kLineEnd;
  Line("");
  Line("");
}

//                             1                   2
//                           TIP            FRICTION
//                         2.534               1.062
//                       0.01250           -0.00400
//                        50 MPa               1 MPa
void CptWriter::ChannelTable() {
  Row([this](int c) { cell_ = s_.CptChannelNumber[c]; });
  Row([this](int c) { cell_ = s_.CptChannelName[c]; });
  Row([this](int c) { AppendExactNumber(cell_, s_.ChannelSensitivity[c]); });
  Row([this](int c) { AppendNumber(cell_, s_.ChannelZero[c], kCptZeroNumber); });
  // Range and unit share a cell; the reader splits them at the last blank.
  Row([this](int c) {
    AppendExactNumber(cell_, s_.ChannelRange[c]);
    cell_ += ' ';
    cell_ += s_.CptUnitText[c];
  });
  Row([this](int c) { cell_ = s_.CptRowTextA[c]; });
  Row([this](int c) { AppendExactNumber(cell_, s_.CptRowNumberB[c]); });
  Line(s_.CptDepthDecimals < 3 ? "   (m) (cm/s)" : "    (m)(cm/s)");
}

template <typename CellText>
void CptWriter::Row(CellText cell_text) {
  out_ += kCptPrefix;
  for (int c = 1; c <= channels_; ++c) {
    cell_.clear();
    cell_text(c);
    AppendCell(cell_);
  }
  out_ += kLineEnd;
}

//     1.02   2.00               12345              -32768
// Depth and speed share the 13 characters in front of the channels: 6 and 7 for depths in
// centimetres, 7 and 6 for depths in millimetres.
void CptWriter::DataLines() {
  const bool centimetres = s_.CptDepthDecimals < 3;
  const std::string_view depth_pattern = centimetres ? "##0.00" : "##0.000";
  const std::string_view depth_mask = centimetres ? "@@@@@@" : "@@@@@@@";
  const std::string_view speed_mask = centimetres ? "@@@@@@@" : "@@@@@@";
  for (int r = 1; r <= s_.ReadingCount; ++r) {
    cell_.clear();
    AppendNumber(cell_, s_.DepthTable(r, 1), depth_pattern);
    AppendText(out_, cell_, depth_mask);
    cell_.clear();
    AppendNumber(cell_, s_.PushSpeed[r], "##0.00");
    AppendText(out_, cell_, speed_mask);
    for (int c = 1; c <= channels_; ++c) {
      const float value = s_.CptRawReadings(r, c);
      if (value == -32768) {
        AppendCell(kCptMissingValue);
        continue;
      }
      cell_.clear();
      AppendExactNumber(cell_, value);
      AppendCell(cell_);
    }
    out_ += kLineEnd;
  }
}

std::string RenderSounding(const Session& session, const SoundingStore& s, bool dat_compatible) {
  if (dat_compatible) return SaveDatFamily2(s);
  switch (s.AcquisitionFamily) {
    case kKorvanDatFamily: return SaveDatFamily1(s, session.units);
    case kPlainDatFamily: return SaveDatFamily2(s);
    case kPxDasFamily: return SaveCpt(s);
    default: Fail(kErrInvalidCall);
  }
}

}  // namespace

std::string SaveDatFamily1(const SoundingStore& store, const UnitTables& units) {
  return DatWriter(store, &units, true).Render();
}

std::string SaveDatFamily2(const SoundingStore& store) { return DatWriter(store, nullptr, false).Render(); }

std::string SaveCpt(const SoundingStore& store) { return CptWriter(store).Render(); }

bool SaveSounding(Session& session, UserPrompts& prompts, const std::string& path, bool dat_compatible,
                  const FileWriteFunction& write) {
  SoundingStore& s = session.Sounding();
  // The file names itself on its "Filename" line, so the sounding takes the new name before it is
  // rendered; a failed save or an export gives the old name back.
  std::string previous_path = s.SoundingPath;
  std::string previous_name = s.SoundingFileName;
  std::string previous_folder = s.SoundingFolder;
  s.SoundingPath = path;
  s.SoundingFileName = std::string(FileNamePart(path));
  s.SoundingFolder = std::string(FolderPart(path));
  const bool saved = TellFailures(prompts, "SaveSounding", [&] {
    WriteFileAtomically(path, RenderSounding(session, s, dat_compatible), write);
  });
  if (!saved || dat_compatible) {
    s.SoundingPath = std::move(previous_path);
    s.SoundingFileName = std::move(previous_name);
    s.SoundingFolder = std::move(previous_folder);
  }
  return saved;
}

}  // namespace marlview
