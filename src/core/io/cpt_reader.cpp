// The PX DAS sounding reader: twelve lines of free text and the water table, a channel table of
// 20-character cells behind a 13-character prefix, a heading, then one data line a reading: depth,
// push speed and the field computer's number for each channel.
#include "core/io/cpt_reader.h"

#include <algorithm>
#include <array>
#include <vector>

#include "core/common/file_access.h"
#include "core/common/line_cursor.h"
#include "core/common/number_read.h"
#include "core/common/runtime_failure.h"
#include "core/common/text_rules.h"
#include "core/derivation/derived_channels.h"
#include "core/io/qrd_header.h"
#include "core/model/catalogue.h"
#include "core/model/conversion.h"

namespace marlview {
namespace {

// Depth and speed take the first 13 characters of every table row and data line.
constexpr size_t kPrefixWidth = 13;
constexpr size_t kCellWidth = 20;
// 0-based start of the first cell: the data lines are read one character further on than the table.
constexpr size_t kTableCellStart = 13;
constexpr size_t kDataCellStart = 14;
// The field computer's mark of a reading it did not get.
constexpr float kMissingNumber = -32768;
// The pi of the field systems' ball area, deliberately short so areas match their reports.
constexpr double kBallPi = 3.14159;
// The ball's name is cut to this many characters, as the field computers keep it.
constexpr size_t kBallNameWidth = 6;
// The standard cone's area stands in the 20 characters from position 26 of the heading, or from 27
// where the heading's label reaches position 26.
constexpr size_t kTipAreaStart = 25;
constexpr size_t kTipAreaWidth = 20;
constexpr double kStandardTipAreaMm2 = 1000;
constexpr const char* kTipAreaTitle = "ENTER STANDARD CONICAL TIP AREA";
constexpr const char* kTipAreaPrompt =
    "File indicates a ball tip was used, but the file does not contain the standard conical tip area which "
    "is needed to calculate tip pressure. Please enter the standard tip area in mm^2 (e.g. 1000)";

// One row of the sensor identification table; names are tested in table order, first match wins.
struct CptSensorRule {
  std::string_view word;
  const char* name;
  const char* short_name;
  const char* legend;
  int id;
  int group;
  int16_t ChannelRoles::*role;
  // A pore pressure filter other than u2: "U1" or "U3", which its labels name instead of "U2".
  const char* filter;
};

// The tests are by contains, so "TEMP" catches "UC TEMP" and "TIP" catches "CEMENTED TIP" before
// their own rows: those rows are never reached, and the order is the field systems' own.
constexpr CptSensorRule kCptSensorRules[] = {
    {"TIP", "Tip Resistance (Qc)", "Tip (Qc)", "Qc", 1, kPressureGroup, &ChannelRoles::TipChannel, nullptr},
    {"FRICTION", "Sleeve Friction", "Sleeve (Fs)", "Fs", 3, kPressureGroup, &ChannelRoles::SleeveChannel, nullptr},
    {"U2", "Pore Pressure U2", "Pressure (U2)", "U2", 4, kPressureGroup, &ChannelRoles::PorePressureChannel, nullptr},
    {"U1", "Pore Pressure U1", "Pressure (U1)", "U1", 4, kPressureGroup, nullptr, "U1"},
    {"U3", "Pore Pressure U3", "Pressure (U3)", "U3", 4, kPressureGroup, nullptr, "U3"},
    {"X Incl", "Inclination X", "Inclination X", "Incl.X", 7, kInclinationGroup, &ChannelRoles::InclXChannel, nullptr},
    {"Y Incl", "Inclination Y", "Inclination Y", "Incl.Y", 8, kInclinationGroup, &ChannelRoles::InclYChannel, nullptr},
    {"Pos Seis", "Seismic S1", "Seismic S1", "Seis. S1", 60, kVoltageGroup, nullptr, nullptr},
    {"Neg Seis", "Seismic S2", "Seismic S2", "Seis. S2", 61, kVoltageGroup, nullptr, nullptr},
    {"TEMP", "Temperature", "Temperature", "TMP", 6, kTemperatureGroup, &ChannelRoles::TemperatureChannel, nullptr},
    {"UC TEMP", "Temperature", "uC Temp", "TMP", 6, kTemperatureGroup, &ChannelRoles::TemperatureChannel, nullptr},
    {"CEMENTED TIP", "Cemented Tip", "Cemented Tip", "Cem. Tip", 33, kResistivityGroup, nullptr, nullptr},
    {"Resistivity", "Resistivity", "Resistivity", "Resist.", 33, kResistivityGroup, &ChannelRoles::ResistivityChannel,
     nullptr},
};

const CptSensorRule* IdentifyCptSensor(std::string_view name) {
  for (const CptSensorRule& rule : kCptSensorRules) {
    if (ContainsNoCase(name, rule.word)) return &rule;
  }
  return nullptr;
}

// The spellings of a u2 label that a u1 or u3 channel renames.
constexpr std::array<std::string_view, 4> kU2Labels = {"Pore pressure(U2)", "PP (U2)", "Pressure (U2)", "U2"};

// How a data line lays out its depth and speed, told by where the first blank from position 7 is.
enum class LineShape { kTwoDecimals, kThreeDecimals, kOther };

LineShape ShapeOf(std::string_view line) {
  const size_t blank = line.find(' ', 6);
  if (blank == 6) return LineShape::kTwoDecimals;
  if (blank == 7) return LineShape::kThreeDecimals;
  return LineShape::kOther;
}

// A line of numbers holds no letter, so the case-blind search runs only where a "D" stands.
bool MarksDrillout(std::string_view line) {
  if (line.find("*******") != std::string_view::npos) return true;
  if (line.find('D') == std::string_view::npos && line.find('d') == std::string_view::npos) return false;
  return ContainsNoCase(line, "DRILLOUT");
}

class CptReader {
 public:
  CptReader(std::string_view bytes, const std::string& path, Session& session, SoundingStore& store,
            UserPrompts& prompts)
      : lines_(bytes), path_(path), session_(session), s_(store), prompts_(prompts) {}

  ReadOutcome Read();

 private:
  void ReadHeaderText();
  void ReadChannelTable();
  void CountChannels(std::string_view line);
  void ReadNames(std::string_view line);
  void ReadRanges(std::string_view line);
  void IdentifyChannel(int c);
  void ReadTipArea(std::string_view heading);
  void ReadDataLines();
  void ReadEndBaseline(std::string_view line);
  void ReadReading(std::string_view line, LineShape shape);
  void StoreReadings();

  double Number(std::string_view text) const { return ParseNumber(text, session_.DecimalComma); }
  float SingleNumber(std::string_view text) const { return ToSingle(Number(text)); }
  static std::string_view TableCell(std::string_view line, int c) {
    return Columns(line, kTableCellStart + kCellWidth * static_cast<size_t>(c - 1), kCellWidth);
  }
  static std::string_view DataCell(std::string_view line, int c) {
    return Columns(line, kDataCellStart + kCellWidth * static_cast<size_t>(c - 1), kCellWidth);
  }

  LineCursor lines_;
  const std::string& path_;
  Session& session_;
  SoundingStore& s_;
  UserPrompts& prompts_;

  // The readings as the data lines give them, by row from 1 (row 0 stays empty), then by channel;
  // they go to the store's columns once the whole file is read.
  std::vector<float> depth_{0};
  std::vector<float> speed_{0};
  std::vector<std::vector<float>> numbers_;
  // A line of neither depth layout is a reading of zeros: nothing of it is converted.
  std::vector<bool> parsed_{false};
  bool depth_negated_ = false;
};

ReadOutcome CptReader::Read() {
  const float water_table = session_.Sounding().WaterTableDepth;
  s_.ResetSounding();
  s_.WaterTableDepth = water_table;
  s_.AcquisitionFamily = kPxDasFamily;
  s_.SoundingPath = path_;
  s_.SoundingFileName = std::string(FileNamePart(path_));
  s_.SoundingFolder = std::string(FolderPart(path_));

  ReadHeaderText();
  ReadChannelTable();
  ReadTipArea(lines_.Next());
  ReadDataLines();
  StoreReadings();
  const int n = s_.ReadingCount;
  if (n >= 2) s_.DepthInterval = s_.DepthTable(2, 1) - s_.DepthTable(1, 1);
  s_.MaxDepth = s_.DepthTable(n, 1);
  if (s_.EndBaselinePresent) ComputeEndBaselines(s_, session_.units);
  ComputeDerivedChannels(session_, s_, s_.ChannelCount);
  return ReadOutcome::kLoaded;
}

//   DOWNTOWN INTERCHANGE - PIEZOCONE SOUNDING      title, customer, operator, cone, location, job,
//   ...                                            hole, date, three comments and the GPS text
//   2.35                                           water table depth, m
void CptReader::ReadHeaderText() {
  std::string* const texts[] = {&s_.CptTitle,     &s_.Customer,     &s_.OperatorName, &s_.ConeId,
                                &s_.LocationName, &s_.JobNumber,    &s_.HoleNumber,   &s_.TestDateText,
                                &s_.CommentLine1, &s_.CommentLine2, &s_.CommentLine3, &s_.GpsText};
  for (std::string* text : texts) *text = std::string(lines_.Next());
  std::string* const gps[] = {&s_.GpsLat, &s_.GpsLon, &s_.GpsElev};
  SplitGpsText(s_.GpsText, gps);
  // This family never gives the satellites or the fix quality.
  s_.GpsNSat = "0";
  s_.GpsQual = "0";
  const double water_table = Number(lines_.Next());
  if (water_table > 0) s_.WaterTableDepth = ToSingle(water_table);
  lines_.Skip(2);
}

//                                  1                   2                   3
//                        TIP BALL mm113            FRICTION                  U2
//                               30000               30000               30000     sensitivities
//                               120.5                 -85                 310     zeroes
//                           50000 kPa             500 kPa            2000 kPa     range and unit
//                                  A1                  A2                  A3     text row
//                                   0                   0                   0     number row
void CptReader::ReadChannelTable() {
  CountChannels(lines_.Next());
  ReadNames(lines_.Next());
  const std::string_view sensitivities = lines_.Next();
  const std::string_view zeroes = lines_.Next();
  for (int c = 1; c <= s_.ChannelCount; ++c) {
    s_.ChannelSensitivity[c] = SingleNumber(TableCell(sensitivities, c));
    s_.ChannelZero[c] = SingleNumber(TableCell(zeroes, c));
  }
  ReadRanges(lines_.Next());
  const std::string_view text_row = lines_.Next();
  const std::string_view number_row = lines_.Next();
  for (int c = 1; c <= s_.ChannelCount; ++c) {
    s_.CptRowTextA[c] = std::string(TrimBlanks(TableCell(text_row, c)));
    s_.CptRowNumberB[c] = SingleNumber(TableCell(number_row, c));
  }
  for (int c = 1; c <= s_.ChannelCount; ++c) IdentifyChannel(c);
}

// The row of channel numbers counts the channels: one for each whole 20 characters of the line.
void CptReader::CountChannels(std::string_view line) {
  const size_t count = line.size() / kCellWidth;
  if (count > static_cast<size_t>(kMaxCptRawChannels)) Fail(kErrSubscript);
  s_.ChannelCount = static_cast<int16_t>(count);
  for (int c = 1; c <= s_.ChannelCount; ++c) s_.CptChannelNumber[c] = std::string(TrimBlanks(TableCell(line, c)));
}

// A ball cone names itself "TIP BALL" with the ball's diameter in the three characters after "mm".
void CptReader::ReadNames(std::string_view line) {
  for (int c = 1; c <= s_.ChannelCount; ++c) {
    std::string_view name = TrimBlanks(TableCell(line, c));
    if (ContainsNoCase(name, "TIP BALL")) {
      s_.BallTip = true;
      const size_t mm = FindNoCase(name, "mm");
      s_.BallDiameter = SingleNumber(mm == std::string_view::npos ? std::string_view() : Columns(name, mm + 2, 3));
      const double radius_mm = s_.BallDiameter / 2.0;
      const double area = kBallPi * radius_mm * radius_mm;
      s_.BallArea = ToSingle(session_.BallAreaDoubled == 1 ? 2 * area : area);
      name = name.substr(0, std::min(name.size(), kBallNameWidth));
    }
    s_.CptChannelName[c] = std::string(name);
    s_.ChannelSensor[c] = s_.CptChannelName[c];
  }
}

// "     50000 kPa": the unit is what follows the cell's last blank, the range what stands before it.
void CptReader::ReadRanges(std::string_view line) {
  for (int c = 1; c <= s_.ChannelCount; ++c) {
    const std::string_view cell = TableCell(line, c);
    const size_t blank = cell.rfind(' ');
    const bool split = blank != std::string_view::npos;
    s_.CptUnitText[c] = std::string(split ? cell.substr(blank + 1) : cell);
    s_.ChannelRange[c] = SingleNumber(split ? cell.substr(0, blank) : std::string_view());
  }
}

void CptReader::IdentifyChannel(int c) {
  s_.ChannelEnabled[c] = true;
  s_.ChannelCurveStyle[c] = 0;
  const CptSensorRule* rule = IdentifyCptSensor(s_.CptChannelName[c]);
  if (rule == nullptr) {
    // A sensor the table does not know keeps its number as the file scales it, in the file's unit.
    s_.ChannelName[c] = "UNDEFINED";
    s_.ChannelUnitLabel[c].fill("(" + s_.CptUnitText[c] + ")");
    s_.ChannelUnitFactor[c].fill(1);
    s_.ChannelLegend[c] = s_.ChannelUnitLabel[c][0] + ":";
    return;
  }
  s_.ChannelName[c] = rule->name;
  s_.ChannelShortName[c] = rule->short_name;
  s_.ChannelShortLegend[c] = rule->legend;
  if (rule->role != nullptr) s_.*(rule->role) = static_cast<int16_t>(c);
  const UnitTables& units = session_.units;
  // The range is written in the unit that follows it, so that unit is the channel's own whatever the
  // user's choice of units from the file: the last unit of the group whose name it holds. A pressure
  // that names none is kPa, as the family's pressures are.
  int default_unit = rule->group == kPressureGroup ? kKpaUnit : 1;
  for (int u = 1; u <= units.UnitCount[rule->group]; ++u) {
    const std::string& unit_name = units.Name(u, rule->group);
    if (!unit_name.empty() && ContainsNoCase(s_.CptUnitText[c], unit_name)) default_unit = u;
  }
  s_.ChannelDefaultUnit[c] = static_cast<int16_t>(default_unit);
  RegisterChannel(s_, units, session_.choices, c, rule->group, rule->id);
  if (rule->filter != nullptr) {
    for (std::string& label : s_.ChannelLabel[c]) {
      if (std::find(kU2Labels.begin(), kU2Labels.end(), label) == kU2Labels.end()) continue;
      label.replace(label.find("U2"), 2, rule->filter);
    }
  }
  if (rule->role == &ChannelRoles::TemperatureChannel) {
    for (int k = 0; k < kOutputKinds; ++k) {
      const int unit = s_.ChannelDisplayUnit[c][k];
      s_.TemperatureInFahrenheit[k] = !(unit == 1 || unit == 3);
    }
  }
  s_.ChannelLegend[c] = s_.ChannelShortLegend[c] + s_.ChannelUnitLabel[c][0] + ":";
  const bool converted = rule->group == kPressureGroup || rule->group == kLengthGroup;
  for (int k = 0; k < kOutputKinds; ++k) {
    if (!converted) {
      s_.ChannelUnitFactor[c][k] = 1;
      continue;
    }
    const double display = units.ConversionFactor(s_.ChannelDisplayUnit[c][k], rule->group);
    if (display == 0) Fail(kErrDivisionByZero);
    s_.ChannelUnitFactor[c][k] = ToSingle(units.ConversionFactor(default_unit, rule->group) / display);
  }
  if (rule->group == kPressureGroup) {
    const double kpa = units.ConversionFactor(kKpaUnit, kPressureGroup);
    if (kpa == 0) Fail(kErrDivisionByZero);
    s_.ChannelPascalFactor[c] = ToSingle(units.ConversionFactor(default_unit, kPressureGroup) / kpa * 1000);
  }
}

//      (m) (cm/s)     AREA (mm^2)              1000
// A ball's resistance is the cone's load over the ball's area: the cone's own area is needed too.
void CptReader::ReadTipArea(std::string_view heading) {
  if (ContainsNoCase(heading, "AREA")) {
    // Where position 26 is free or a digit, the 21 characters from it hold the number either way.
    const char first = kTipAreaStart < heading.size() ? heading[kTipAreaStart] : ' ';
    const bool from_26 = first == ' ' || (first >= '0' && first <= '9') || first == '-' || first == '+' ||
                         first == '.' || first == ',';
    s_.ConicalTipArea = SingleNumber(from_26 ? Columns(heading, kTipAreaStart, kTipAreaWidth + 1)
                                             : Columns(heading, kTipAreaStart + 1, kTipAreaWidth));
    return;
  }
  if (!s_.BallTip) return;
  const std::string answer = prompts_.Input(kTipAreaTitle, kTipAreaPrompt, "1000");
  s_.ConicalTipArea = answer.empty() ? static_cast<float>(kStandardTipAreaMm2) : SingleNumber(answer);
}

//   0.02   1.85               1620.5                 245                 322
//  0.020  1.85                1620.5                 245                 322
// Blank lines after the last reading are no readings.
void CptReader::ReadDataLines() {
  std::vector<std::string_view> lines;
  while (!lines_.AtEnd()) lines.push_back(lines_.Next());
  while (!lines.empty() && TrimBlanks(lines.back()).empty()) lines.pop_back();
  numbers_.assign(static_cast<size_t>(s_.ChannelCount), std::vector<float>{0});
  for (std::string_view line : lines) {
    if (line.size() >= kPrefixWidth && TrimBlanks(line.substr(0, kPrefixWidth)).empty()) {
      ReadEndBaseline(line);
      continue;
    }
    // The rods were drilled out here; the readings below still count.
    if (MarksDrillout(line)) {
      s_.DrilloutFlag = 1;
      s_.DrilloutDepth = depth_.back();
      continue;
    }
    ReadReading(line, ShapeOf(line));
  }
}

void CptReader::ReadEndBaseline(std::string_view line) {
  for (int c = 1; c <= s_.ChannelCount; ++c) s_.CptEndBaseline[c] = SingleNumber(DataCell(line, c));
  s_.EndBaselinePresent = true;
}

void CptReader::ReadReading(std::string_view line, LineShape shape) {
  if (s_.ReadingCount == kMaxReadings) Fail(kErrSubscript);
  const int r = ++s_.ReadingCount;
  if (shape == LineShape::kOther) {
    depth_.push_back(0);
    speed_.push_back(0);
    for (auto& channel : numbers_) channel.push_back(0);
    parsed_.push_back(false);
    return;
  }
  const bool two = shape == LineShape::kTwoDecimals;
  s_.CptDepthDecimals = static_cast<int16_t>(two ? 2 : 3);
  const size_t depth_width = two ? 6 : 7;
  float depth = SingleNumber(Columns(line, 0, depth_width));
  speed_.push_back(SingleNumber(Columns(line, depth_width, 7)));
  // Some field computers count depth downward from zero: the second reading tells.
  if (r == 2 && depth < depth_[1]) {
    depth_negated_ = true;
    s_.DepthReversed = true;
    depth_[1] = -depth_[1];
  }
  if (depth_negated_) depth = -depth;
  depth_.push_back(depth);
  for (int c = 1; c <= s_.ChannelCount; ++c) numbers_[static_cast<size_t>(c - 1)].push_back(SingleNumber(DataCell(line, c)));
  parsed_.push_back(true);
}

// Each channel's column is written down in depth order: the file's numbers, then each output,
// the engineering values as aligned as they are (a PX DAS sensor has no offset to align by), and
// the fixed-unit copies the ECP list reads.
void CptReader::StoreReadings() {
  const int n = s_.ReadingCount;
  if (n < 1) return;
  const float feet_per_metre = session_.FeetPerMetre;
  float* metres = s_.DepthTable.Column(1, n);
  float* feet = s_.DepthTable.Column(2, n);
  for (int r = 1; r <= n; ++r) {
    metres[r] = depth_[static_cast<size_t>(r)];
    feet[r] = ToSingle(static_cast<double>(feet_per_metre) * metres[r]);
  }
  // The last row first, so the list grows once.
  for (int r = n; r >= 1; --r) s_.PushSpeed[r] = speed_[static_cast<size_t>(r)];
  for (int c = 1; c <= s_.ChannelCount; ++c) {
    const std::vector<float>& numbers = numbers_[static_cast<size_t>(c - 1)];
    std::copy(numbers.begin(), numbers.end(), s_.CptRawReadings.Column(c, n));
    const CptConversion p = PrepareCptConversion(s_, session_.units, c);
    std::array<float*, kOutputKinds> aligned, engineering;
    std::array<float*, kFixedPressureTables> fixed;
    for (int k = 0; k < kOutputKinds; ++k) {
      aligned[k] = s_.AlignedReadings.Column(KindColumn(c, k), n);
      engineering[k] = s_.ChannelReadings.Column(KindColumn(c, k), n);
    }
    for (int i = 0; i < kFixedPressureTables; ++i) fixed[i] = s_.AlignedFixedPressure[i].Column(c, n);
    for (int r = 1; r <= n; ++r) {
      const float number = numbers[static_cast<size_t>(r)];
      if (!parsed_[static_cast<size_t>(r)] || number == kMissingNumber) continue;
      for (int k = 0; k < kOutputKinds; ++k) aligned[k][r] = engineering[k][r] = ToSingle(CptOutputValue(p, number, k));
      const double in_file_unit = CptFileValue(p, number);
      for (int i = 0; i < kFixedPressureTables; ++i) fixed[i][r] = ToSingle(in_file_unit * p.to_fixed[i]);
    }
  }
}

}  // namespace

ReadOutcome ReadCptSounding(std::string_view bytes, const std::string& path, Session& session,
                            SoundingStore& store, UserPrompts& prompts) {
  return InProcedure("OpenCptSounding", [&] { return CptReader(bytes, path, session, store, prompts).Read(); });
}

ReadOutcome OpenCptSounding(Session& session, UserPrompts& prompts, const std::string& path) {
  return OpenSoundingWith(ReadCptSounding, "OpenCptSounding", session, prompts, path);
}

}  // namespace marlview
