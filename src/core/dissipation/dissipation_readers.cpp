// The dissipation readers: QRD FIELDBOX and PX DAS .DIS files and FLDACQ files without extension.
#include "core/dissipation/dissipation_readers.h"

#include <cmath>
#include <limits>

#include "core/common/file_access.h"
#include "core/common/line_cursor.h"
#include "core/common/number_read.h"
#include "core/common/runtime_failure.h"
#include "core/common/text_rules.h"
#include "core/dissipation/gef_dissipation_reader.h"
#include "core/model/unit_tables.h"
#include "core/session/session.h"

namespace marlview {
namespace {

// A metre of water in pascals; the pressure unit table gives pascals per unit.
constexpr double kPascalsPerMetreHead = 9806.0;
constexpr double kFeetPerMetreInFiles = 3.281;
// PX DAS conversion factors are given per 0.102 m of water (one kilopascal of head).
constexpr double kPxHeadFactor = 0.102;
// Block rows: a 14-character label, then 16 characters per channel.
constexpr size_t kBlockLabelWidth = 14;
constexpr size_t kBlockFieldWidth = 16;

// Elapsed time, rounded to whole seconds as the tables keep it.
int32_t WholeSeconds(double seconds) {
  const double rounded = std::nearbyint(seconds);
  if (!(std::fabs(rounded) <= std::numeric_limits<int32_t>::max())) Fail(kErrOverflow);
  return static_cast<int32_t>(rounded);
}

float Lenient(std::string_view field) { return static_cast<float>(LenientNumber(field)); }

// "-1.#IND" and any field holding "IND" stand for a channel with an undefined factor.
float BlockNumber(std::string_view field) {
  if (field.find("IND") != std::string_view::npos) return 1.0f;
  return Lenient(field);
}

void AddTest(DissipationSet& set, float depth_m) {
  const int test = set.DissipationCount + 1;
  if (test > kDissipationDepthSlots) Fail(kErrSubscript);
  set.DissipationCount = static_cast<int16_t>(test);
  set.TestDepth[static_cast<size_t>(test)] = depth_m;
}

// "<value> => <tag>": the text left of " =>" when it stands at the second character or later,
// else the text left of "=>". A line without the arrow has no value to cut (the classic Left with
// a negative length).
std::string FieldboxValue(std::string_view line) {
  const size_t spaced = line.find(" =>");
  if (spaced != std::string_view::npos && spaced >= 1) return std::string(line.substr(0, spaced));
  const size_t arrow = line.find("=>");
  if (arrow == std::string_view::npos) Fail(kErrInvalidCall);
  return std::string(line.substr(0, arrow));
}

// FLDACQ: the text before "=>", empty when there is none.
std::string FldacqValue(std::string_view line) {
  const size_t arrow = line.find("=>");
  if (arrow == std::string_view::npos) return {};
  return std::string(TrimRightBlanks(line.substr(0, arrow)));
}

// "J. Ferreira | D. Okafor => Operator / Crew": the operator left of " | ", the crew up to " =>".
void SplitOperatorCrew(std::string_view line, std::string_view value, DissipationSet& set) {
  const size_t bar = value.find(" | ");
  set.Operator = std::string(bar == std::string_view::npos ? value : value.substr(0, bar));
  set.Crew.clear();
  if (line.find("|  =>") != std::string_view::npos) return;
  const size_t crew_bar = line.find(" |");
  const size_t arrow = line.find(" =>");
  if (crew_bar == std::string_view::npos || arrow == std::string_view::npos || arrow < crew_bar + 3) return;
  set.Crew = std::string(line.substr(crew_bar + 3, arrow - (crew_bar + 3)));
}

// "49.2031N,122.9157W,4.2,9,2": five fields only when the value has a hemisphere and a comma.
void SplitGps(std::string_view value, DissipationSet& set) {
  std::string* fields[] = {&set.GpsLatitude, &set.GpsLongitude, &set.GpsElevation, &set.GpsSatellites,
                           &set.GpsQuality};
  for (std::string* field : fields) *field = "0";
  const bool hemisphere =
      value.find('S') != std::string_view::npos || value.find('N') != std::string_view::npos;
  if (!hemisphere || value.find(',') == std::string_view::npos) return;
  size_t start = 0;
  for (std::string* field : fields) {
    if (start > value.size()) break;
    const size_t comma = value.find(',', start);
    const std::string_view piece =
        value.substr(start, comma == std::string_view::npos ? std::string_view::npos : comma - start);
    if (!piece.empty()) *field = std::string(piece);
    if (comma == std::string_view::npos) break;
    start = comma + 1;
  }
}

// The 16-character fields of a block row after its label.
std::vector<std::string_view> BlockFields(std::string_view line) {
  std::vector<std::string_view> fields;
  std::string_view rest = ColumnsFrom(line, kBlockLabelWidth);
  while (!rest.empty()) {
    fields.push_back(rest.substr(0, std::min(kBlockFieldWidth, rest.size())));
    rest = rest.size() > kBlockFieldWidth ? rest.substr(kBlockFieldWidth) : std::string_view();
  }
  return fields;
}

struct ChannelRule {
  const char* name_part;
  const char* unit;
  int16_t kind;
};
// Later rows win: "VREF RATIO" holds "Ref" and is a ratio in percent.
constexpr ChannelRule kChannelRules[] = {
    {"Tip", "(psi)", 1},
    {"Sleeve", "(psi)", 1},
    {"Pore Press", "(psi)", 1},
    {"Pore Pressure", "(psi)", 1},
    {"Multi-SL1", "(psi)", 1},
    {"Multi-SL2", "(psi)", 1},
    {"Multi-SL3", "(psi)", 1},
    {"Multi-SL4", "(psi)", 1},
    {"Multi-PP1", "(psi)", 1},
    {"Multi-PP2", "(psi)", 1},
    {"Multi-PP3", "(psi)", 1},
    {"Multi-PP4", "(psi)", 1},
    {"Multi-PP5", "(psi)", 1},
    {"Excitation Sense", "(V)", 6},
    {"Exc Sense", "(V)", 6},
    {"Aux1", "(V)", 6},
    {"Aux2", "(V)", 6},
    {"Ref", "(V)", 6},
    {"MFFD", "(V)", 6},
    {"VREF RATIO", "(%)", 6},
    {"Temperature", "(deg)", 5},
    {"Incl X", "(deg)", 7},
    {"Inclination X", "(deg)", 7},
    {"Incl Y", "(deg)", 7},
    {"Inclination Y", "(deg)", 7},
    {"HFFD", "(V)", 8},
    {"LFFD", "(V)", 8},
    {"Rod Depth", "(ft)", 2},
    {"Feed Force C", "(cnts)", 12},
    {"Blows C", "(cnts)", 12},
    {"RPM C", "(cnts)", 12},
    {"RED", "(cnts)", 12},
    {"GREEN", "(cnts)", 12},
    {"BLUE", "(cnts)", 12},
    {"CLEAR", "(cnts)", 12},
    {"Feed Force F", "(Hz)", 12},
    {"Blows F", "(Hz)", 12},
    {"RPM F", "(Hz)", 12},
    {"Resistivity", "(Ohm-m)", 9},
    {"Soil Moist", "%", 10},
};

// The "Channel" row: names 16 characters apart; a remainder shorter than 3 characters ends it.
void ReadChannelNames(std::string_view line, DissipationSet& set) {
  std::string_view rest = ColumnsFrom(line, kBlockLabelWidth);
  int count = 0;
  while (rest.size() >= 3) {
    if (count == kMaxDissipationChannels) Fail(kErrSubscript);
    ++count;
    const std::string name(TrimBlanks(rest.substr(0, std::min(kBlockFieldWidth, rest.size()))));
    set.ChannelName[static_cast<size_t>(count)] = name;
    for (const ChannelRule& rule : kChannelRules) {
      if (ContainsNoCase(name, rule.name_part)) {
        set.ChannelUnit[static_cast<size_t>(count)] = rule.unit;
        set.ChannelKind[static_cast<size_t>(count)] = rule.kind;
      }
    }
    if (set.PorePressureChannel == 0 && ContainsNoCase(name, "Pore Press")) {
      set.PorePressureChannel = static_cast<int16_t>(count);
    }
    rest = rest.size() > kBlockFieldWidth ? rest.substr(kBlockFieldWidth) : std::string_view();
  }
  set.ChannelCount = static_cast<int16_t>(count);
}

void ReadSensorRow(std::string_view line, DissipationSet& set) {
  const auto fields = BlockFields(line);
  for (int c = 1; c <= set.ChannelCount && c <= static_cast<int>(fields.size()); ++c) {
    set.ChannelSensor[static_cast<size_t>(c)] = std::string(TrimBlanks(fields[static_cast<size_t>(c - 1)]));
  }
}

void ReadBaselineRow(std::string_view line, DissipationSet& set) {
  const auto fields = BlockFields(line);
  for (int c = 1; c <= set.ChannelCount && c <= static_cast<int>(fields.size()); ++c) {
    set.ChannelBaseline[static_cast<size_t>(c)] = BlockNumber(fields[static_cast<size_t>(c - 1)]);
  }
}

void ReadCalRow(std::string_view line, int coefficient, DissipationSet& set) {
  const auto fields = BlockFields(line);
  for (int c = 1; c <= set.ChannelCount && c <= static_cast<int>(fields.size()); ++c) {
    set.ChannelCal[static_cast<size_t>(c)][static_cast<size_t>(coefficient)] =
        BlockNumber(fields[static_cast<size_t>(c - 1)]);
  }
}

// "   time(s)    pressure(V)  pressure(PSI)  pressure(kPa)": the last 15 characters name the unit
// the pressure column is in; its row of the pressure unit table gives the head per metre.
void ReadPressureUnit(std::string_view line, const UnitTables& units, DissipationSet& set) {
  const std::string_view tail = line.size() > 15 ? line.substr(line.size() - 15) : line;
  const size_t open = tail.rfind('(');
  const size_t close = tail.rfind(')');
  std::string_view unit = tail;
  if (open != std::string_view::npos && close != std::string_view::npos && close > open) {
    unit = tail.substr(open + 1, close - open - 1);
  }
  unit = TrimBlanks(unit);
  int found = 0;
  for (int u = 1; u <= units.UnitCount[kPressureGroup] && found == 0; ++u) {
    if (units.Name(u, kPressureGroup) == unit) found = u;
  }
  for (int u = 1; u <= units.UnitCount[kPressureGroup] && found == 0; ++u) {
    if (EqualsNoCase(units.Name(u, kPressureGroup), unit)) found = u;
  }
  if (found == 0) return;
  set.PressureUnitIndex = static_cast<int16_t>(found);
  const double factor = units.Factor(found, kPressureGroup);
  if (factor == 0) Fail(kErrDivisionByZero);
  set.PressurePerMetreHead = static_cast<float>(kPascalsPerMetreHead / factor);
}

}  // namespace

// KORVAN FILE VER: DIS.10.12.2012
// QRD FIELDBOX DISSIPATION ACQUISITION
// Dissipation Test
// DIS-A01.DIS => Filename
// ...the header of the sounding files, the channel block, then per test:
//    4.5000000000000 => Test Depth (m)
//    time(s)    pressure(V)  pressure(PSI)  pressure(kPa)
//          1       2.461310      92.305130     636.42700
void ReadFieldboxDissipation(std::string_view bytes, const UnitTables& units, DissipationSet& set) {
  InProcedure("ReadFieldboxDissipation", [&] {
    LineCursor lines(bytes);
    lines.Next();
    set.SectionMarker = std::string(lines.Next());
    lines.Skip(2);
    set.TestId = FieldboxValue(lines.Next());
    {
      const std::string_view line = lines.Next();
      SplitOperatorCrew(line, FieldboxValue(line), set);
    }
    for (std::string* field :
         {&set.Project, &set.Site, &set.Location, &set.Comments, &set.TestDate, &set.StartTime}) {
      *field = FieldboxValue(lines.Next());
    }
    SplitGps(FieldboxValue(lines.Next()), set);
    for (std::string* field : {&set.Client, &set.ClientRepresentative, &set.Weather}) {
      *field = FieldboxValue(lines.Next());
    }
    lines.Skip(1);
    {
      const std::string_view version = lines.Next();
      set.DasVersion = std::string(version.starts_with("Version ") ? version.substr(8) : version);
    }
    lines.Skip(1);
    set.DasSystem = FieldboxValue(lines.Next());
    lines.Skip(1);
    set.ProbeSerialNumber = FieldboxValue(lines.Next());
    // Tip configuration and five spare lines, then the sample rate and an empty line.
    lines.Skip(6);
    set.SampleRateLine = std::string(lines.Next());
    lines.Skip(1);
    ReadChannelNames(lines.Next(), set);
    ReadSensorRow(lines.Next(), set);
    lines.Skip(4);
    ReadBaselineRow(lines.Next(), set);
    for (int coefficient = 0; coefficient < 5; ++coefficient) ReadCalRow(lines.Next(), coefficient, set);
    // Unit factors, offset, default and display units and conversion factor, kept for a save; then
    // the digital sensor.
    for (int row = 0; row < 9; ++row) set.ChannelBlockTail.emplace_back(lines.Next());
    lines.Skip(4);

    bool unit_read = false;
    while (!lines.AtEnd()) {
      const std::string_view line = lines.Next();
      if (line.find("Test Depth") != std::string_view::npos) {
        const size_t arrow = line.find(" =>");
        AddTest(set, Lenient(arrow == std::string_view::npos ? line : line.substr(0, arrow)));
        continue;
      }
      const bool heading = line.find("pressure") != std::string_view::npos;
      if (heading) {
        if (!unit_read && set.DissipationCount > 0) {
          ReadPressureUnit(line, units, set);
          unit_read = true;
        }
        continue;
      }
      if (line.size() < 55) continue;
      const int test = set.DissipationCount;
      const int k = DissipationRows::Append(set, test);
      set.RowTime(test, k) = WholeSeconds(LenientNumber(Columns(line, 0, 10)));
      set.RowChannelA(test, k) = Lenient(Columns(line, 11, 14));
      set.RowChannelB(test, k) = Lenient(Columns(line, 26, 14));
      set.RowPressure(test, k) = Lenient(Columns(line, 41, 14));
    }
  });
}

// PX Dissipation File
// <customer> ... <comment 3>                      lines 2 to 11
// $GPGGA,153012.00,4912.186,N,12254.942,W,1,09,0.9,4.2,M,,,,   line 12
// 2.40                                            water table (m)
// ...the kept header lines 16 to 22, then per test a depth line and its rows:
//   4.50 m
//      1      ...  2461.3   ...
void ReadPXDissipation(std::string_view bytes, DissipationSet& set) {
  InProcedure("ReadPXDissipation", [&] {
    LineCursor lines(bytes);
    lines.Next();
    for (std::string* field :
         {&set.Customer, &set.OperatorName, &set.ConeId, &set.PxLocation, &set.JobNumber, &set.HoleNumber,
          &set.TestDateText, &set.Comment1, &set.Comment2, &set.Comment3}) {
      *field = std::string(lines.Next());
    }
    {
      // The GGA sentence: latitude and hemisphere, longitude and hemisphere, and the altitude.
      const std::string_view sentence = lines.Next();
      set.PxGpsSentence = std::string(sentence);
      std::vector<std::string_view> fields;
      size_t start = 0;
      while (true) {
        const size_t comma = sentence.find(',', start);
        fields.push_back(
            sentence.substr(start, comma == std::string_view::npos ? std::string_view::npos : comma - start));
        if (comma == std::string_view::npos) break;
        start = comma + 1;
      }
      auto field = [&](size_t i) { return i < fields.size() ? std::string(fields[i]) : std::string(); };
      auto or_zero = [](std::string text) { return text.empty() ? std::string("0") : text; };
      set.GpsLatitude = or_zero(field(2) + field(3));
      set.GpsLongitude = or_zero(field(4) + field(5));
      set.GpsElevation = or_zero(field(9));
      set.GpsSatellites = "0";
      set.GpsQuality = "0";
    }
    set.WaterTableDepth = static_cast<float>(ParseLocalNumber(lines.Next()));
    lines.Skip(2);
    for (int j = 1; j <= 7; ++j) set.PXHeaderLine[static_cast<size_t>(j)] = std::string(lines.Next());
    const std::string& titles = set.PXHeaderLine[2];
    const size_t marker = titles.find("PRESSURE U");
    set.PressureColumn =
        static_cast<int16_t>(marker == std::string::npos ? -8 : static_cast<int>(marker) + 1 - 8);
    if (marker != std::string::npos) set.PressureChannelName = std::string(Columns(titles, marker, 11));
    // A 1-based column; a file without the pressure title has none, and its cut is an invalid argument.
    auto field_at = [&](std::string_view line, size_t width) {
      if (set.PressureColumn < 1) Fail(kErrInvalidCall);
      return Columns(line, static_cast<size_t>(set.PressureColumn - 1), width);
    };
    const double divisor = ParseLocalNumber(field_at(set.PXHeaderLine[3], 20));
    const double offset = ParseLocalNumber(field_at(set.PXHeaderLine[4], 20));
    const double scale = ParseLocalNumber(field_at(set.PXHeaderLine[5], 15));
    std::string unit;
    for (char c : field_at(set.PXHeaderLine[6], 20)) {
      if (c != ' ') unit.push_back(c);
    }
    set.PressureUnitName = unit;
    const double factor = ParseLocalNumber(field_at(set.PXHeaderLine[7], 20));
    set.PressurePerMetreHead = static_cast<float>(factor / kPxHeadFactor);

    while (!lines.AtEnd()) {
      const std::string_view line = lines.Next();
      if (line.empty()) continue;
      if (line.size() >= 2 && line.size() <= 19) {
        AddTest(set, static_cast<float>(ParseLocalNumber(line.substr(0, line.size() - 1))));
        continue;
      }
      const int test = set.DissipationCount;
      const int k = DissipationRows::Append(set, test);
      const double raw = ParseLocalNumber(field_at(line, 20));
      set.RowChannelA(test, k) = static_cast<float>(raw);
      set.RowTime(test, k) = WholeSeconds(ParseLocalNumber(Columns(line, 0, 6)));
      if (divisor == 0) Fail(kErrDivisionByZero);
      set.RowPressure(test, k) = ToSingle((raw - offset) / divisor * scale * factor);
      set.RowText[static_cast<size_t>(test)].resize(static_cast<size_t>(k) + 1);
      set.RowText[static_cast<size_t>(test)][static_cast<size_t>(k)] = std::string(line);
    }
  });
}

// QRD FIELDBOX CPT ACQUISITION          the section marker, which opens every test again
// ...the header values before "=>", the first depth in feet, the channel block, then rows:
//          1      92.305130
void ReadFldacqDissipation(std::string_view bytes, DissipationSet& set) {
  InProcedure("ReadFldacqDissipation", [&] {
    LineCursor lines(bytes);
    set.SectionMarker = std::string(lines.Next());
    lines.Skip(2);
    set.TestId = FldacqValue(lines.Next());
    {
      const std::string_view line = lines.Next();
      SplitOperatorCrew(line, FldacqValue(line), set);
    }
    for (std::string* field :
         {&set.Project, &set.Site, &set.Location, &set.Comments, &set.TestDate, &set.StartTime}) {
      *field = FldacqValue(lines.Next());
    }
    SplitGps(FldacqValue(lines.Next()), set);
    for (std::string* field : {&set.Client, &set.ClientRepresentative, &set.Weather}) {
      *field = FldacqValue(lines.Next());
    }
    lines.Skip(1);
    {
      const std::string_view version = lines.Next();
      set.DasVersion = std::string(version.starts_with("Version ") ? version.substr(8) : version);
    }
    lines.Skip(1);
    set.DasSystem = FldacqValue(lines.Next());
    lines.Skip(1);
    set.ProbeSerialNumber = FldacqValue(lines.Next());
    lines.Skip(7);
    AddTest(set, static_cast<float>(LenientNumber(FldacqValue(lines.Next())) / kFeetPerMetreInFiles));
    lines.Skip(1);
    ReadChannelNames(lines.Next(), set);
    ReadSensorRow(lines.Next(), set);
    lines.Skip(5);
    ReadBaselineRow(lines.Next(), set);
    for (int coefficient = 0; coefficient < 5; ++coefficient) ReadCalRow(lines.Next(), coefficient, set);
    // Unit factors, offsets and units: three rows of five, then three spare lines.
    lines.Skip(15);
    lines.Skip(3);
    set.PressurePerMetreHead = kFldacqPressurePerMetreHead;
    set.PressureUnitName = "PSI";

    while (!lines.AtEnd()) {
      const std::string_view line = lines.Next();
      if (line == set.SectionMarker) {
        lines.Skip(26);
        const float depth =
            static_cast<float>(LenientNumber(FldacqValue(lines.Next())) / kFeetPerMetreInFiles);
        AddTest(set, depth);
        lines.Skip(21);
        continue;
      }
      // A blank line at the end of a file holds no reading.
      if (TrimBlanks(line).empty()) continue;
      const int test = set.DissipationCount;
      const int k = DissipationRows::Append(set, test);
      set.RowTime(test, k) = WholeSeconds(LenientNumber(Columns(line, 0, 10)));
      set.RowChannelB(test, k) = Lenient(Columns(line, 11, 14));
      set.RowPressure(test, k) = set.RowChannelB(test, k);
    }
  });
}

DissipationChoice ChooseDissipationKind(std::string_view path, std::string_view first_line, int16_t& kind) {
  const std::string_view name = FileNamePart(path);
  if (ContainsNoCase(name, ".dis")) {
    if (first_line.find("KORVAN FILE VER: DIS") != std::string_view::npos) {
      kind = kFieldboxDissipation;
    } else if (first_line.find("PX Dissipation File") != std::string_view::npos ||
               first_line.find("Kestrelmoor Dissipation File") != std::string_view::npos) {
      kind = kPxDasDissipation;
    }
    return DissipationChoice::kRead;
  }
  if (ContainsNoCase(name, ".dat") || ContainsNoCase(name, ".cpt")) return DissipationChoice::kSoundingFile;
  if (ContainsNoCase(name, ".sei") || ContainsNoCase(name, ".smc")) return DissipationChoice::kSeismicFile;
  kind = kFldacqDissipation;
  return DissipationChoice::kRead;
}

void ReadDissipation(std::string_view bytes, const UnitTables& units, DissipationSet& set) {
  switch (set.FileKind) {
    case kPxDasDissipation:
      ReadPXDissipation(bytes, set);
      break;
    case kFieldboxDissipation:
      ReadFieldboxDissipation(bytes, units, set);
      break;
    default:
      ReadFldacqDissipation(bytes, set);
      break;
  }
  InProcedure("OpenDissipationFile", [&] {
    for (int i = 1; i <= set.DissipationCount; ++i) {
      ComputeMaxPercent(set, i);
      ComputeHeadPercent(set, i);
    }
  });
}

// A GEF file is told apart by its report code, not its name; a CPT report is refused here.
bool OpenGefDissipation(Session& session, UserPrompts& prompts, const std::string& path) {
  const std::string name(FileNamePart(path));
  const std::string bytes = InProcedure("OpenDissipationFile", [&] { return ReadWholeFile(path); });
  DissipationSet& spare = session.SpareDissipation();
  spare.Reset();
  spare.WaterTableDepth = session.Dissipation().WaterTableDepth;
  const std::string refusal = ReadGefDissipation(bytes, name, spare, prompts);
  if (!refusal.empty()) {
    prompts.Tell(refusal);
    return false;
  }
  InProcedure("OpenDissipationFile", [&] {
    ComputeMaxPercent(spare, 1);
    ComputeHeadPercent(spare, 1);
  });
  spare.DissipationPath = path;
  spare.DissipationFileName = name;
  session.CommitDissipation();
  session.DissipationDirectory = std::string(FolderPart(path));
  return true;
}

bool OpenDissipationPath(Session& session, UserPrompts& prompts, const std::string& path) {
  const std::string name(FileNamePart(path));
  if (EndsWithNoCase(name, ".gef")) return OpenGefDissipation(session, prompts, path);
  int16_t kind = session.Dissipation().FileKind;
  std::string bytes;
  std::string_view first_line;
  if (ContainsNoCase(name, ".dis")) {
    bytes = InProcedure("OpenDissipationFile", [&] { return ReadWholeFile(path); });
    const auto lines = SplitLines(bytes);
    if (!lines.empty()) first_line = lines.front();
  }
  const DissipationChoice choice = ChooseDissipationKind(path, first_line, kind);
  if (choice == DissipationChoice::kSoundingFile) {
    prompts.Tell(name + " is a sounding file");
    return false;
  }
  if (choice == DissipationChoice::kSeismicFile) {
    prompts.Tell(name + " is a seismic file");
    return false;
  }
  if (bytes.empty()) bytes = InProcedure("OpenDissipationFile", [&] { return ReadWholeFile(path); });
  DissipationSet& spare = session.SpareDissipation();
  spare.Reset();
  spare.FileKind = kind;
  spare.WaterTableDepth = session.Dissipation().WaterTableDepth;
  ReadDissipation(bytes, session.units, spare);
  spare.DissipationPath = path;
  spare.DissipationFileName = name;
  session.CommitDissipation();
  session.DissipationDirectory = std::string(FolderPart(path));
  return true;
}

}  // namespace marlview
