// The QRD FIELDBOX sounding reader: a header of "value => label" lines, a channel table of
// 16-character cells, then data lines of 18-character fields.
#include "core/io/dat_reader.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "core/common/file_access.h"
#include "core/common/line_cursor.h"
#include "core/common/number_read.h"
#include "core/common/runtime_failure.h"
#include "core/common/text_rules.h"
#include "core/derivation/artefacts.h"
#include "core/derivation/derived_channels.h"
#include "core/io/qrd_header.h"
#include "core/model/catalogue.h"
#include "core/model/conversion.h"

namespace marlview {
namespace {

constexpr size_t kCaptionWidth = 14;
constexpr size_t kCellWidth = 16;
constexpr size_t kDepthWidth = 9;
constexpr size_t kFieldWidth = 18;
constexpr size_t kFieldStride = 19;
constexpr size_t kMunsellChipWidth = 15;
constexpr size_t kMunsellNumberWidth = 9;
constexpr size_t kBaselineCaptionWidth = 10;
constexpr int kMunsellCompanionHeaderLines = 54;
constexpr size_t kMunsellCompanionShortLine = 27;
constexpr size_t kMunsellCompanionChipColumn = 14;
// Pounds per square inch in pascals.
constexpr float kPsiPascals = 6894.7568f;
constexpr double kSquareInchesToSquareMetres = 0.00064516;
// The pi of the field systems' ball area, deliberately short so areas match their reports.
constexpr double kBallPi = 3.14159;
constexpr std::string_view kWaterTableVersion = "08.05.2015";

// One row of the sensor identification table; cells are tested in table order, first match wins.
struct SensorRule {
  std::vector<std::string_view> words;
  // nullptr: the name as the file spells it.
  const char* name;
  // nullptr: the same as the name.
  const char* short_name;
  // nullptr: the first four characters of the name.
  const char* legend;
  int id;
  int group;
  int16_t ChannelRoles::*role;
  int default_unit;
  // nullptr: the unit the user chose for the catalogue id.
  const char* unit_label;
  bool colour_probe;
};

const std::vector<SensorRule>& SensorRules() {
  using R = ChannelRoles;
  static const std::vector<SensorRule> rules = {
      {{"Tip"}, "Tip Resistance (Qc)", "Tip (Qc)", "Qc", 1, kPressureGroup, &R::TipChannel, kPsiUnit, nullptr, false},
      {{"Sleeve"}, "Sleeve Friction", "Sleeve (Fs)", "Fs", 3, kPressureGroup, &R::SleeveChannel, kPsiUnit, nullptr, false},
      {{"Pore Press", "Pore Pressure"}, "Pore Pressure U2", "Pressure (U2)", "U2", 4, kPressureGroup, &R::PorePressureChannel, kPsiUnit, nullptr, false},
      {{"Excitation Sense", "Exc Sense", "Excit Sense"}, nullptr, "Exc Sense", "EXC", 5, kVoltageGroup, &R::ExcitationChannel, 1, nullptr, false},
      {{"Temperature"}, "Temperature", "Temperature", "TMP", 6, kTemperatureGroup, &R::TemperatureChannel, 1, nullptr, false},
      {{"Incl X", "Inclination X"}, "Inclination X", "Inclination X", "INCX", 7, kInclinationGroup, &R::InclXChannel, 1, nullptr, false},
      {{"Incl Y", "Inclination Y"}, "Inclination Y", "Inclination Y", "INCY", 8, kInclinationGroup, &R::InclYChannel, 1, nullptr, false},
      {{"HFFD"}, nullptr, "HFFD", "HFFD", 10, kFfdGroup, &R::HffdChannel, 1, nullptr, false},
      {{"LFFD"}, nullptr, "LFFD", "LFFD", 11, kFfdGroup, &R::LffdChannel, 1, nullptr, false},
      {{"Rod Depth"}, nullptr, "Rod Depth", "ROD", 12, kLengthGroup, &R::RodDepthChannel, 4, nullptr, false},
      {{"Aux1"}, nullptr, "Aux1", "AUX1", 13, kVoltageGroup, nullptr, 1, nullptr, false},
      {{"Aux2"}, nullptr, "Aux2", "AUX2", 14, kVoltageGroup, nullptr, 1, nullptr, false},
      {{"Ref"}, nullptr, "Ref", "REF", 15, kVoltageGroup, nullptr, 1, nullptr, false},
      {{"MFFD"}, nullptr, "MFFD", "MFFD", 16, kVoltageGroup, nullptr, 1, nullptr, false},
      {{"VREF RATIO"}, nullptr, "VREF RATIO", "VREF", 17, kVoltageGroup, nullptr, 1, nullptr, false},
      {{"Feed Force C"}, nullptr, "Feed Force C", "FFC", 18, kNoUnitsGroup, nullptr, 1, nullptr, false},
      {{"Feed Force F"}, nullptr, "Feed Force F", "FFF", 19, kNoUnitsGroup, nullptr, 1, nullptr, false},
      {{"Blows C"}, nullptr, "Blows C", "BLWC", 20, kNoUnitsGroup, nullptr, 1, nullptr, false},
      {{"Blows F"}, nullptr, "Blows F", "BLWF", 21, kNoUnitsGroup, nullptr, 1, nullptr, false},
      {{"RPM C"}, nullptr, "RPM C", "RPMC", 22, kNoUnitsGroup, nullptr, 1, nullptr, false},
      {{"RPM F"}, nullptr, "RPM F", "RPMF", 23, kNoUnitsGroup, nullptr, 1, nullptr, false},
      {{"Multi-SL1"}, nullptr, nullptr, "MSLV1", 24, kPressureGroup, nullptr, kPsiUnit, nullptr, false},
      {{"Multi-SL2"}, nullptr, nullptr, "MSLV2", 25, kPressureGroup, nullptr, kPsiUnit, nullptr, false},
      {{"Multi-SL3"}, nullptr, nullptr, "MSLV3", 26, kPressureGroup, nullptr, kPsiUnit, nullptr, false},
      {{"Multi-SL4"}, nullptr, nullptr, "MSLV4", 27, kPressureGroup, nullptr, kPsiUnit, nullptr, false},
      {{"Multi-PP1"}, nullptr, nullptr, "MPP1", 28, kPressureGroup, nullptr, kPsiUnit, nullptr, false},
      {{"Multi-PP2"}, nullptr, nullptr, "MPP2", 29, kPressureGroup, nullptr, kPsiUnit, nullptr, false},
      {{"Multi-PP3"}, nullptr, nullptr, "MPP3", 30, kPressureGroup, nullptr, kPsiUnit, nullptr, false},
      {{"Multi-PP4"}, nullptr, nullptr, "MPP4", 31, kPressureGroup, nullptr, kPsiUnit, nullptr, false},
      {{"Multi-PP5"}, nullptr, nullptr, "MPP5", 32, kPressureGroup, nullptr, kPsiUnit, nullptr, false},
      {{"Resistivity"}, "Resistivity", "Resistivity", "RES", 33, kResistivityGroup, &R::ResistivityChannel, 1, nullptr, false},
      {{"Soil Moist"}, nullptr, "Soil Moist", "SLM", 35, kSoilMoistureGroup, nullptr, 1, nullptr, false},
      {{"RED"}, nullptr, "RED", "RED", 54, kNoUnitsGroup, &R::RedChannel, 1, "(cnts)", true},
      {{"GREEN"}, nullptr, "GREEN", "GRN", 55, kNoUnitsGroup, &R::GreenChannel, 1, "(cnts)", false},
      {{"BLUE"}, nullptr, "BLUE", "BLU", 56, kNoUnitsGroup, &R::BlueChannel, 1, "(cnts)", false},
      {{"CLEAR"}, nullptr, "CLEAR", "CLR", 57, kNoUnitsGroup, &R::ClearChannel, 1, "(cnts)", false},
      {{"Not Connected"}, nullptr, "Not Connected", "NC", 99, kVoltageGroup, nullptr, 1, "(V)", false},
      {{"P Wave"}, "Seismic P", "Seismic P", "PWV", 59, kVoltageGroup, nullptr, 1, "(V)", false},
      {{"S Wave 1"}, "Seismic S1", "Seismic S1", "SWV1", 60, kVoltageGroup, nullptr, 1, "(V)", false},
      {{"S Wave 2"}, "Seismic S2", "Seismic S2", "SWV2", 61, kVoltageGroup, nullptr, 1, "(V)", false},
  };
  return rules;
}

// Any sensor the table does not know.
const SensorRule kOtherSensor = {{}, nullptr, nullptr, nullptr, kOtherSensorId, kVoltageGroup,
                                 nullptr, 1, "(V)", false};

const SensorRule& IdentifySensor(std::string_view cell) {
  for (const SensorRule& rule : SensorRules()) {
    for (std::string_view word : rule.words) {
      if (ContainsNoCase(cell, word)) return rule;
    }
  }
  return kOtherSensor;
}

}  // namespace

namespace {

class DatReader {
 public:
  DatReader(std::string_view bytes, const std::string& path, Session& session, SoundingStore& store,
            UserPrompts& prompts)
      : lines_(bytes), path_(path), session_(session), s_(store), prompts_(prompts) {}

  ReadOutcome Read();
  // The data lines of a second file of the same sounding, behind the store's readings.
  void ReadAppended(int skip, float depth_base);

 private:
  bool ReadFamilyLines();
  void ReadHeader();
  void ReadOperatorAndCrew(std::string_view line);
  void ReadGps(std::string_view line);
  void ReadTipLine(std::string_view line);
  void ReadSampleLine(std::string_view line);
  void ReadTestDepth(std::string_view line);
  void ReadChannelTable();
  void CountChannels(std::string_view line);
  void ReadSensorRow(std::string_view line);
  void IdentifyChannel(int c);
  template <typename Store>
  void ReadNumberRow(Store store_cell);
  void ReadDefaultUnits(std::string_view line);
  void ReadDisplayUnits(std::string_view line);
  void ReadConvFactors(std::string_view line);
  void SetTipAndSleeveOffsets();
  void SkipToData();
  void ReadDataLines();
  void ReadEndBaseline(std::string_view line);
  void ReadReading(std::string_view line);
  void ImportMunsellChips();
  void DepthsFromRodChannel(float start, int first_row = 1);
  void ConvertAndAlign();

  std::string_view Cell(std::string_view line, int c) const {
    return Columns(line, kCaptionWidth + kCellWidth * static_cast<size_t>(c - 1), kCellWidth);
  }
  bool Family1() const { return s_.AcquisitionFamily == kKorvanDatFamily; }
  void ExtendLegend(int c, std::string_view unit_label) {
    s_.ChannelLegend[c] = s_.ChannelShortLegend[c] + std::string(unit_label) + ":";
  }

  LineCursor lines_;
  // Added to each depth field: the start depth, or for an appended file the depth the first
  // file ends at plus the offset between the two.
  float depth_base_ = 0;
  bool appending_ = false;
  const std::string& path_;
  Session& session_;
  SoundingStore& s_;
  UserPrompts& prompts_;
};

ReadOutcome DatReader::Read() {
  const float water_table = session_.Sounding().WaterTableDepth;
  s_.ResetSounding();
  s_.WaterTableDepth = water_table;
  s_.SoundingPath = path_;
  s_.SoundingFileName = std::string(FileNamePart(path_));
  s_.SoundingFolder = std::string(FolderPart(path_));
  s_.IsMunsellFile = ContainsNoCase(path_, "MUNSELL");

  if (!ReadFamilyLines()) {
    s_.AcquisitionFamily = kNoSounding;
    prompts_.Tell(s_.SoundingFileName + " is not a valid DAT file");
    return ReadOutcome::kRefused;
  }
  ReadHeader();
  depth_base_ = s_.StartDepth;
  ReadChannelTable();
  SkipToData();
  ReadDataLines();
  if (s_.ColourProbePresent && !s_.IsMunsellFile &&
      prompts_.Ask("COLOR PROBE DATA PRESENT. IMPORT MUNSELL COLOR PROBE DATA?", Buttons::kYesNo) ==
          Answer::kYes) {
    ImportMunsellChips();
  }
  if (!Family1()) DepthsFromRodChannel(s_.StartDepth);
  ConvertAndAlign();
  ComputeDerivedChannels(session_, s_, s_.ChannelCount);
  if (s_.EndBaselinePresent) ComputeEndBaselines(s_, session_.units);
  s_.MaxDepth = s_.DepthTable(s_.ReadingCount, 1);
  if (s_.ReadingCount >= 2) s_.DepthInterval = s_.DepthTable(2, 1) - s_.DepthTable(1, 1);
  return ReadOutcome::kLoaded;
}

// KORVAN files open with their version line; older files go straight to the product line.
bool DatReader::ReadFamilyLines() {
  const std::string_view first = lines_.Next();
  if (ContainsNoCase(first, "KORVAN FILE VER:")) {
    s_.AcquisitionFamily = kKorvanDatFamily;
    s_.FileVersionLine = std::string(first);
    s_.FileProductLine = std::string(lines_.Next());
  } else {
    s_.AcquisitionFamily = kPlainDatFamily;
    s_.FileVersionLine = std::string(first);
    s_.FileProductLine = std::string(first);
  }
  return ContainsNoCase(lines_.Next(), "Cone Penetrometer Test");
}

//   SCPT-A01.DAT => Filename
//   A01 => Test Id
//   J. Ferreira | D. Okafor => Operator / Crew
//   ...
//   49.2031N,122.9157W,4.2,9,2  => GPS Data (Lat, Lon, Elev, NSat, Qual)
//   2.40 => Water Table Depth (m)          (only in files of version 08.05.2015)
void DatReader::ReadHeader() {
  auto value = [this] { return std::string(HeaderValue(lines_.Next())); };
  lines_.Next();  // the file name as the field system saved it
  s_.TestId = value();
  ReadOperatorAndCrew(lines_.Next());
  s_.Project = value();
  s_.Site = value();
  s_.Location = value();
  s_.Comments = value();
  s_.TestDate = value();
  s_.StartTime = value();
  ReadGps(lines_.Next());
  s_.Client = value();
  s_.ClientRepresentative = value();
  s_.Weather = value();
  if (Family1() && s_.FileVersionLine.find(kWaterTableVersion) != std::string::npos) {
    const double water_table = LenientNumber(lines_.Next());
    if (water_table > 0) s_.WaterTableDepth = ToSingle(water_table);
  }
  lines_.Next();
  s_.DasVersion = std::string(lines_.Next());
  lines_.Next();
  s_.DasSystem = value();
  lines_.Next();  // "Enabled => Digital Cone"
  s_.ProbeSerial = value();
  if (Family1()) ReadTipLine(lines_.Next());
  lines_.Skip(5);
  ReadSampleLine(lines_.Next());
  ReadTestDepth(lines_.Next());
  lines_.Next();
}

void DatReader::ReadOperatorAndCrew(std::string_view line) {
  const size_t bar = line.find(" | ");
  if (bar == std::string_view::npos) {
    s_.Operator = std::string(HeaderValue(line));
    s_.Crew.clear();
    return;
  }
  s_.Operator = std::string(line.substr(0, bar));
  const std::string_view rest = line.substr(bar + 3);
  // A crew left empty is written "|  =>": the arrow then opens the rest.
  s_.Crew = rest.starts_with(" =>") || rest.starts_with("=>") ? std::string() : std::string(HeaderValue(rest));
}

// The pieces are split only when the line carries a hemisphere letter; others keep zeros.
void DatReader::ReadGps(std::string_view line) {
  s_.GpsLine = std::string(SplitQrdGps(line, {&s_.GpsLat, &s_.GpsLon, &s_.GpsElev, &s_.GpsNSat, &s_.GpsQual}));
}

//   Ball Dia mm 44 => Tip Configuration
void DatReader::ReadTipLine(std::string_view line) {
  const size_t ball = FindNoCase(line, "Ball Dia mm");
  if (ball == std::string_view::npos) {
    s_.BallTip = false;
    return;
  }
  s_.BallTip = true;
  const size_t mm = FindNoCase(line, "mm");
  s_.BallDiameter = ToSingle(LenientNumber(Columns(line, mm + 2, 3)));
  const double radius_m = s_.BallDiameter / 2.0 / 1000;
  const double area = kBallPi * radius_m * radius_m;
  s_.BallArea = ToSingle(session_.BallAreaDoubled == 1 ? 2 * area : area);
}

//   1 Hz => Sample Rate        or        20(mm) => Depth Increment
void DatReader::ReadSampleLine(std::string_view line) {
  if (ContainsNoCase(line, " Sample Rate")) {
    s_.DepthIncrementMode = false;
    s_.SampleRate = std::string(HeaderValue(line));
    s_.DepthIncrement = "N/A";
  } else if (ContainsNoCase(line, " Depth Increment")) {
    s_.DepthIncrementMode = true;
    s_.SampleRate = "N/A";
    s_.DepthIncrement = std::string(line.substr(0, std::min(line.find('('), line.size())));
  }
}

//   1.50 => Test Depth (m)
void DatReader::ReadTestDepth(std::string_view line) {
  s_.StartDepth = ToSingle(LenientNumber(HeaderValue(line)));
  if (s_.StartDepth == 0 || ContainsNoCase(line, "(m)") || ContainsNoCase(line, "(ft)")) return;
  // A depth without its unit: asked once for a whole run of opens.
  if (session_.StartDepthAnswer == -1) {
    const Answer answer = prompts_.Ask(
        "Start Depth of " + ShortestText(s_.StartDepth) + " is detected. Is this value in meters?",
        Buttons::kYesNo);
    session_.StartDepthAnswer = answer == Answer::kNo ? 0 : 1;
  }
  if (session_.StartDepthAnswer == 0) s_.StartDepth = ToSingle(s_.StartDepth / session_.FeetPerMetre);
}

//   Channel                      1               2               3
//   Sensor                     Tip          Sleeve   Pore Pressure
//   Baseline        1.234000E-002  ...
void DatReader::ReadChannelTable() {
  CountChannels(lines_.Next());
  ReadSensorRow(lines_.Next());
  lines_.Skip(4);  // Range, Gain, Filter, Excitation
  ReadNumberRow([this](int c, float v) { s_.ChannelBaseline[c] = v; });
  for (int row = 0; row < kCalRows; ++row) {
    ReadNumberRow([this, row](int c, float v) { s_.ChannelCalRows[c][row] = v; });
  }
  for (int row = 0; row < kCalRows; ++row) {
    ReadNumberRow([this, row](int c, float v) { s_.ChannelUnitFactorRows[c][row] = v; });
  }
  s_.ConicalTipArea = ToSingle(s_.ChannelUnitFactorRows[s_.TipChannel][2] * kSquareInchesToSquareMetres);
  // The colour probe's own file stops after the unit factors.
  if (Family1() && !s_.IsMunsellFile) {
    ReadNumberRow([this](int c, float v) { s_.ChannelOffset[c] = v; });
    ReadDefaultUnits(lines_.Next());
    ReadDisplayUnits(lines_.Next());
    ReadConvFactors(lines_.Next());
  }
  SetTipAndSleeveOffsets();
}

void DatReader::CountChannels(std::string_view line) {
  std::string_view rest = ColumnsFrom(line, kCaptionWidth);
  while (rest.size() >= 3) {
    if (s_.ChannelCount == kMaxChannels) Fail(kErrSubscript);
    ++s_.ChannelCount;
    s_.ChannelEnabled[s_.ChannelCount] = true;
    rest = ColumnsFrom(rest, kCellWidth);
  }
}

void DatReader::ReadSensorRow(std::string_view line) {
  s_.SensorRowText = std::string(line);
  for (int c = 1; c <= s_.ChannelCount; ++c) {
    const std::string_view cell = Cell(line, c);
    s_.ChannelSensor[c] = std::string(cell);
    s_.ChannelName[c] = std::string(TrimLeftBlanks(cell));
    IdentifyChannel(c);
  }
}

void DatReader::IdentifyChannel(int c) {
  const SensorRule& rule = IdentifySensor(s_.ChannelName[c]);
  if (rule.name != nullptr) s_.ChannelName[c] = rule.name;
  const std::string& name = s_.ChannelName[c];
  s_.ChannelShortName[c] = rule.short_name != nullptr ? std::string(rule.short_name) : name;
  s_.ChannelShortLegend[c] = rule.legend != nullptr ? std::string(rule.legend) : name.substr(0, 4);
  if (rule.role != nullptr) s_.*(rule.role) = static_cast<int16_t>(c);
  if (rule.colour_probe) s_.ColourProbePresent = true;
  s_.ChannelDefaultUnit[c] = static_cast<int16_t>(rule.default_unit);
  RegisterChannel(s_, session_.units, session_.choices, c, rule.group, rule.id);
  if (rule.unit_label != nullptr) s_.ChannelUnitLabel[c].fill(rule.unit_label);
  if (rule.role == &ChannelRoles::TemperatureChannel) {
    for (int k = 0; k < kOutputKinds; ++k) {
      const int unit = s_.ChannelDisplayUnit[c][k];
      s_.TemperatureInFahrenheit[k] = !(unit == 1 || unit == 3);
    }
  }
  s_.ChannelEnabled[c] = true;
  s_.ChannelCurveStyle[c] = 0;
  ExtendLegend(c, s_.ChannelUnitLabel[c][0]);
  const bool converted = rule.group == kPressureGroup || rule.group == kLengthGroup;
  for (int k = 0; k < kOutputKinds; ++k) {
    if (!converted) {
      s_.ChannelUnitFactor[c][k] = 1;
      continue;
    }
    const double to_display = session_.units.ConversionFactor(s_.ChannelDefaultUnit[c], rule.group);
    const double display = session_.units.ConversionFactor(s_.ChannelDisplayUnit[c][k], rule.group);
    if (display == 0) Fail(kErrDivisionByZero);
    s_.ChannelUnitFactor[c][k] = ToSingle(to_display / display);
  }
  if (rule.group == kPressureGroup && rule.default_unit == kPsiUnit) s_.ChannelPascalFactor[c] = kPsiPascals;
}

template <typename Store>
void DatReader::ReadNumberRow(Store store_cell) {
  const std::string_view line = lines_.Next();
  for (int c = 1; c <= s_.ChannelCount; ++c) store_cell(c, ToSingle(StrictNumber(Cell(line, c))));
}

// The last unit of the channel's group whose name the cell contains becomes its file unit.
void DatReader::ReadDefaultUnits(std::string_view line) {
  const UnitTables& units = session_.units;
  for (int c = 1; c <= s_.ChannelCount; ++c) {
    const std::string_view cell = Cell(line, c);
    const int group = s_.ChannelUnitGroup[c];
    for (int u = 1; u <= units.UnitCount[group]; ++u) {
      if (ContainsNoCase(cell, units.Name(u, group)) && session_.choices.UseUnitsFromFile == 1) {
        s_.ChannelDefaultUnit[c] = static_cast<int16_t>(u);
      }
    }
    if (ContainsNoCase(s_.ChannelName[c], "Rod Depth")) s_.RodDefaultUnit = ContainsNoCase(cell, "m") ? "m" : "";
  }
}

void DatReader::ReadDisplayUnits(std::string_view line) {
  const bool from_file = session_.choices.UseUnitsFromFile == 1;
  UnitTables& units = session_.units;
  for (int c = 1; c <= s_.ChannelCount; ++c) {
    const std::string_view cell = Cell(line, c);
    if (c == s_.TemperatureChannel && from_file) {
      s_.TemperatureInFahrenheit.fill(ContainsNoCase(cell, "F"));
    }
    if (ContainsNoCase(s_.ChannelName[c], "Aux1") || ContainsNoCase(s_.ChannelName[c], "Aux 1")) {
      const std::string_view own = TrimLeftBlanks(cell);
      if (own != "V" && own != "v") {
        // A unit of the sensor's own, kept as the only unit of the private group.
        units.UnitNames[1][kPrivateUnitGroup] = std::string(own);
        units.UnitFactors[1][kPrivateUnitGroup] = 1;
        units.UnitCount[kPrivateUnitGroup] = 1;
        s_.ChannelUnitGroup[c] = kPrivateUnitGroup;
        s_.ChannelDisplayUnit[c].fill(1);
        s_.ChannelUnitFactor[c].fill(1);
        s_.ChannelUnitLabel[c].fill("(" + std::string(own) + ")");
        ExtendLegend(c, s_.ChannelUnitLabel[c][0]);
      }
    }
    const int group = s_.ChannelUnitGroup[c];
    for (int u = 1; u <= units.UnitCount[group]; ++u) {
      if (!ContainsNoCase(cell, units.Name(u, group))) continue;
      if (from_file) {
        s_.ChannelDisplayUnit[c].fill(static_cast<int16_t>(u));
        s_.ChannelUnitLabel[c].fill("(" + units.Name(u, group) + ")");
        ExtendLegend(c, s_.ChannelUnitLabel[c][0]);
      }
      if (ContainsNoCase(s_.ChannelName[c], "Rod Depth") && s_.RodDefaultUnit == "m") {
        for (int f = 1; f <= units.UnitCount[group]; ++f) {
          if (units.Name(f, group).find("ft") != std::string::npos) {
            s_.ChannelDefaultUnit[c] = static_cast<int16_t>(f);
          }
        }
        s_.RodDisplayUnit = ContainsNoCase(cell, "m") ? "m" : "ft";
      }
    }
  }
}

void DatReader::ReadConvFactors(std::string_view line) {
  if (session_.choices.UseUnitsFromFile != 1) return;
  for (int c = 1; c <= s_.ChannelCount; ++c) {
    const std::string_view cell = Cell(line, c);
    float factor;
    if (ContainsNoCase(cell, "IND")) {
      factor = 1;
    } else if (ContainsNoCase(s_.ChannelName[c], "Rod Depth")) {
      factor = s_.RodDefaultUnit == "m" && s_.RodDisplayUnit == "m" ? 1 : 1 / session_.FeetPerMetre;
    } else {
      factor = ToSingle(StrictNumber(cell));
    }
    s_.ChannelUnitFactor[c].fill(factor);
  }
}

void DatReader::SetTipAndSleeveOffsets() {
  if (s_.TipChannel != 0) s_.ChannelOffset[s_.TipChannel] = 0;
  if (s_.SleeveChannel != 0) {
    s_.ChannelOffset[s_.SleeveChannel] =
        SleeveOffsetMetres(s_, session_.PiezoFilterPresent, session_.FeetPerMetre);
  }
}

// Family 1 keeps an acquisition extra of two lines when its first line has an "R"; then come two
// blanks, "Dig. Sensor         Digital NC", a blank and "DEPTH (m)".
void DatReader::SkipToData() {
  if (s_.IsMunsellFile) {
    lines_.Skip(5);
    return;
  }
  if (!Family1()) {
    lines_.Skip(3);
    return;
  }
  const std::string_view first = lines_.Next();
  const std::string_view second = lines_.Next();
  s_.ExtraHeaderPresent = ContainsNoCase(first, "R");
  if (s_.ExtraHeaderPresent) {
    s_.ExtraHeaderLine1 = std::string(first);
    s_.ExtraHeaderLine2 = std::string(second);
  }
  lines_.Skip(5);
}

void DatReader::ReadDataLines() {
  while (!lines_.AtEnd()) {
    std::string line(lines_.Next());
    // The colour probe's file spreads each reading over two lines.
    if (s_.IsMunsellFile) line += lines_.Next();
    if (TrimBlanks(line).empty()) continue;
    if (ContainsNoCase(line, "BASELINE")) {
      // A combined sounding keeps the baselines of its first file.
      if (!appending_) ReadEndBaseline(line);
      continue;
    }
    ReadReading(line);
  }
}

//   BASELINE  +1.2340000000E-002 +4.5600000000E-003 ...
void DatReader::ReadEndBaseline(std::string_view line) {
  const std::string_view fields = ColumnsFrom(line, kBaselineCaptionWidth);
  for (int c = 1; c <= s_.ChannelCount; ++c) {
    s_.ChannelEndBaseline[c] =
        ToSingle(StrictNumber(Columns(fields, kFieldStride * static_cast<size_t>(c - 1), kFieldWidth)));
  }
  s_.EndBaselinePresent = true;
}

//      1.2200 +1.2345678901E+000 -4.5000000000E-003 ...
void DatReader::ReadReading(std::string_view line) {
  if (s_.ReadingCount == kMaxReadings) Fail(kErrSubscript);
  const int r = ++s_.ReadingCount;
  std::string_view rest = line;
  auto take_back = [&] {
    s_.DepthTable(r, 1) = 0;
    s_.DepthTable(r, 2) = 0;
    --s_.ReadingCount;
  };
  if (Family1()) {
    const double depth = StrictNumber(Columns(line, 0, kDepthWidth)) + depth_base_;
    s_.DepthTable(r, 1) = ToSingle(depth);
    s_.DepthTable(r, 2) = ToSingle(session_.FeetPerMetre * s_.DepthTable(r, 1));
    rest = ColumnsFrom(line, kDepthWidth + 1);
    if (r >= 2 && session_.DuplicateDepthCheck == 1 &&
        s_.DepthTable(r - 1, 1) + session_.DuplicateDepthThreshold > s_.DepthTable(r, 1)) {
      take_back();
      return;
    }
  }
  const size_t channels = static_cast<size_t>(s_.ChannelCount);
  if (rest.size() < kFieldWidth * channels && !s_.IsMunsellFile) {
    take_back();
    prompts_.Tell("An invalid dataline has been detected. This line will be discarded.");
    return;
  }
  if (s_.IsMunsellFile) {
    // The chip first, then the colour counts, written in millionths.
    size_t at = 0;
    if (s_.ChannelCount >= 1) {
      s_.MunsellChips[r] = std::string(TrimLeftBlanks(Columns(rest, 0, kMunsellChipWidth)));
      at = kMunsellChipWidth;
    }
    for (int c = 2; c <= s_.ChannelCount; ++c, at += kMunsellNumberWidth) {
      s_.RawReadings(r, c) = ToSingle(StrictNumber(Columns(rest, at, kMunsellNumberWidth)) / 1000000);
    }
    s_.RowTail[r] = std::string(ColumnsFrom(rest, at));
    return;
  }
  for (int c = 1; c <= s_.ChannelCount; ++c) {
    s_.RawReadings(r, c) =
        ToSingle(StrictNumber(Columns(rest, kFieldStride * static_cast<size_t>(c - 1), kFieldWidth)));
  }
  s_.RowTail[r] = std::string(ColumnsFrom(rest, kFieldStride * channels));
}

// The colour probe writes its Munsell chips to a companion file, "<name>(MUNSELL).DAT".
void DatReader::ImportMunsellChips() {
  const std::string companion = path_.substr(0, path_.size() >= 4 ? path_.size() - 4 : 0) + "(MUNSELL).DAT";
  const auto found = FindIgnoringCase(companion);
  if (!found) Fail(kErrFileNotFound);
  const std::string bytes = ReadWholeFile(*found);
  if (s_.ChannelCount == kMaxChannels) Fail(kErrSubscript);
  const int c = ++s_.ChannelCount;
  s_.MunsellChannel = static_cast<int16_t>(c);
  s_.ChannelName[c] = "MUNSELL Color";
  s_.ChannelShortName[c] = "MUNSELL Color";
  s_.ChannelOffset[c] = s_.ChannelOffset[s_.RedChannel];
  s_.ChannelUnitLabel[c].fill("chip");
  s_.ChannelCurveStyle[c] = 0;
  s_.ChannelEnabled[c] = true;
  s_.ChannelUnitGroup[c] = kNoUnitsGroup;
  s_.ChannelUnitFactor[c].fill(1);
  LineCursor companion_lines(bytes);
  companion_lines.Skip(kMunsellCompanionHeaderLines);
  for (int r = 1; r <= s_.ReadingCount; ++r) {
    std::string line(companion_lines.Next());
    if (line.size() < kMunsellCompanionShortLine) line += companion_lines.Next();
    s_.MunsellChips[r] =
        std::string(TrimLeftBlanks(Columns(line, kMunsellCompanionChipColumn, kMunsellChipWidth)));
  }
}

// Files without a depth column take their depths from the rod depth sensor, in feet. The start
// depth is added to the feet and again to the metres, as the field systems' own reports do.
void DatReader::DepthsFromRodChannel(float start, int first_row) {
  const int n = s_.ReadingCount;
  for (int c = 1; c <= s_.ChannelCount; ++c) {
    if (!ContainsNoCase(s_.ChannelName[c], "Rod Depth")) continue;
    const auto& cal = s_.ChannelCalRows[c];
    for (int r = first_row; r <= n; ++r) {
      double value = 0;
      if (cal[0] != 0 && cal[1] != 0 && cal[2] != 0) {
        value = (static_cast<double>(s_.RawReadings(r, c)) - s_.ChannelBaseline[c]) /
                (cal[0] / 1000.0 * cal[1] / 2) / (static_cast<double>(cal[2]) + cal[2]);
      }
      s_.ChannelReadings(r, c) = ToSingle(value);
      s_.DepthTable(r, 2) = ToSingle(value + start);
      s_.DepthTable(r, 1) = ToSingle(s_.DepthTable(r, 2) / session_.FeetPerMetre + start);
    }
  }
  if (session_.DuplicateDepthCheck != 1 || n < 2) return;
  // A reading too close to the one before it, or above the deepest so far, is dropped and the
  // readings below it move up.
  int kept = 1;
  float deepest = s_.DepthTable(1, 1);
  for (int r = 2; r <= n; ++r) {
    const float depth = s_.DepthTable(r, 1);
    if (depth - s_.DepthTable(kept, 1) < session_.DuplicateDepthThreshold || depth < deepest) continue;
    ++kept;
    deepest = std::max(deepest, depth);
    if (kept == r) continue;
    for (int c = 1; c <= s_.ChannelCount; ++c) s_.RawReadings(kept, c) = s_.RawReadings(r, c);
    s_.RowTail[kept] = s_.RowTail[r];
    s_.MunsellChips[kept] = s_.MunsellChips[r];
    s_.DepthTable(kept, 1) = s_.DepthTable(r, 1);
    s_.DepthTable(kept, 2) = s_.DepthTable(r, 2);
  }
  for (int r = kept + 1; r <= n; ++r) {
    for (int c = 1; c <= s_.ChannelCount; ++c) s_.RawReadings(r, c) = 0;
    s_.RowTail[r].clear();
    s_.MunsellChips[r].clear();
    s_.DepthTable(r, 1) = 0;
    s_.DepthTable(r, 2) = 0;
  }
  s_.ReadingCount = kept;
}

void DatReader::ReadAppended(int skip, float depth_base) {
  appending_ = true;
  depth_base_ = depth_base;
  const int first = s_.ReadingCount + 1;
  lines_.Skip(skip);
  ReadDataLines();
  if (!Family1()) DepthsFromRodChannel(depth_base, first);
}

// Engineering values, then spikes (asked about once for a run of opens), then the values again and
// the alignment to the tip.
void DatReader::ConvertAndAlign() {
  auto convert = [this] {
    for (int c = 1; c <= s_.ChannelCount; ++c) ConvertChannel(s_, session_.units, c);
  };
  convert();
  if (CountSpikes(s_) > 0 && session_.RemoveSpikesAnswer == -1) {
    const Answer answer = prompts_.Ask(
        "ONE OR MORE SPIKES HAVE BEEN DETECTED IN " + s_.SoundingFileName + ". REMOVE?", Buttons::kYesNo);
    session_.RemoveSpikesAnswer = answer == Answer::kYes ? 1 : 0;
  }
  if (session_.RemoveSpikesAnswer == 1) {
    RemoveSpikes(s_);
    convert();
  }
  for (int c = 1; c <= s_.ChannelCount; ++c) AlignChannel(s_, c);
}

}  // namespace

ReadOutcome ReadDatSounding(std::string_view bytes, const std::string& path, Session& session,
                            SoundingStore& store, UserPrompts& prompts) {
  return InProcedure("OpenDatSounding", [&] { return DatReader(bytes, path, session, store, prompts).Read(); });
}

void ReadAppendedDatReadings(std::string_view bytes, int skip, float depth_base, Session& session, SoundingStore& store,
                             UserPrompts& prompts) {
  InProcedure("AppendDatFile", [&] {
    const std::string path = store.SoundingPath;
    DatReader(bytes, path, session, store, prompts).ReadAppended(skip, depth_base);
  });
}

ReadOutcome OpenDatSounding(Session& session, UserPrompts& prompts, const std::string& path) {
  return OpenSoundingWith(ReadDatSounding, "OpenDatSounding", session, prompts, path);
}

}  // namespace marlview
