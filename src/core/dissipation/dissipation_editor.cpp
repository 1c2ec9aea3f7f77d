// The dissipation editors' operations on the store.
#include "core/dissipation/dissipation_editor.h"

#include <cmath>
#include <limits>

#include "core/common/file_access.h"
#include "core/common/line_cursor.h"
#include "core/common/number_format.h"
#include "core/common/number_read.h"
#include "core/common/runtime_failure.h"
#include "core/common/text_rules.h"
#include "core/dissipation/dissipation_list.h"
#include "core/dissipation/dissipation_writers.h"
#include "core/model/unit_tables.h"
#include "core/session/session.h"

namespace marlview {
namespace {

// A metre of water in pascals; the pressure unit table gives pascals per unit.
constexpr double kPascalsPerMetreHead = 9806.0;
// PX DAS conversion factors are given per 0.102 m of water (one kilopascal of head).
constexpr double kPxHeadFactor = 0.102;
// A QRD FIELDBOX file of the version the combine knows: its header and channel block fill the 53
// lines after the version line, the sensor row the 31st of them.
constexpr const char* kCombinableVersion = "10.12.2012";
constexpr int kCombinableHeaderLines = 53;
constexpr int kSensorRowOfHeader = 31;
// The PX DAS header lines that hold the pressure field's unit and conversion factor.
constexpr int kPxUnitLine = 6;
constexpr int kPxFactorLine = 7;

size_t At(int index) { return static_cast<size_t>(index); }

// RemoveSpaces and CheckForValidEntry: digits, signs and points only, and at least one of them.
bool ValidEntry(std::string& text) {
  std::erase(text, ' ');
  if (text.empty()) return false;
  for (char c : text) {
    if (!((c >= '0' && c <= '9') || c == '+' || c == '-' || c == '.')) return false;
  }
  return true;
}

// A number typed into a dialog's box, or nothing when the box holds anything else.
std::optional<double> TypedNumber(std::string_view text) {
  const std::string_view trimmed = TrimBlanks(text);
  if (trimmed.empty()) return std::nullopt;
  try {
    return ParseNumber(trimmed);
  } catch (const RuntimeFailure&) {
    return std::nullopt;
  }
}

int32_t WholeSeconds(double seconds) {
  const double rounded = std::nearbyint(seconds);
  if (!(std::fabs(rounded) <= std::numeric_limits<int32_t>::max())) Fail(kErrOverflow);
  return static_cast<int32_t>(rounded);
}

// The PX DAS reader's rule and its inverse, from the file's kept calibration lines.
struct PxCalibration {
  double divisor, offset, scale, factor;
};
PxCalibration PxCalibrationOf(const DissipationSet& set) {
  return {PxField(set, 3), PxField(set, 4), PxField(set, 5, 15), PxField(set, kPxFactorLine)};
}

struct HeaderBox {
  const char* name;
  std::string DissipationSet::*field;
};
constexpr HeaderBox kFieldboxHeader[] = {
    {"TestId", &DissipationSet::TestId},
    {"Operator", &DissipationSet::Operator},
    {"Crew", &DissipationSet::Crew},
    {"Project", &DissipationSet::Project},
    {"Site", &DissipationSet::Site},
    {"Location", &DissipationSet::Location},
    {"Comments", &DissipationSet::Comments},
    {"TestDate", &DissipationSet::TestDate},
    {"StartTime", &DissipationSet::StartTime},
    {"Client", &DissipationSet::Client},
    {"ClientRepresentative", &DissipationSet::ClientRepresentative},
    {"Weather", &DissipationSet::Weather},
    {"DasVersion", &DissipationSet::DasVersion},
    {"DasSystem", &DissipationSet::DasSystem},
    {"ProbeSerialNumber", &DissipationSet::ProbeSerialNumber},
};
constexpr HeaderBox kPxHeader[] = {
    {"Customer", &DissipationSet::Customer},       {"OperatorName", &DissipationSet::OperatorName},
    {"ConeId", &DissipationSet::ConeId},           {"Location", &DissipationSet::PxLocation},
    {"JobNumber", &DissipationSet::JobNumber},     {"HoleNumber", &DissipationSet::HoleNumber},
    {"TestDateText", &DissipationSet::TestDateText}, {"Comment1", &DissipationSet::Comment1},
    {"Comment2", &DissipationSet::Comment2},       {"Comment3", &DissipationSet::Comment3},
};

template <typename Visit>
void ForEachHeaderBox(const DissipationSet& set, Visit visit) {
  if (set.FileKind == kPxDasDissipation) {
    for (const HeaderBox& box : kPxHeader) visit(box);
  } else {
    for (const HeaderBox& box : kFieldboxHeader) visit(box);
  }
}

}  // namespace

bool HasDissipationEditor(const DissipationSet& set) {
  return set.FileKind == kPxDasDissipation || set.FileKind == kFieldboxDissipation;
}

std::vector<std::string> DissipationHeaderNames(const DissipationSet& set) {
  std::vector<std::string> names;
  ForEachHeaderBox(set, [&](const HeaderBox& box) { names.emplace_back(box.name); });
  return names;
}

std::string* DissipationHeaderField(DissipationSet& set, std::string_view name) {
  std::string* found = nullptr;
  ForEachHeaderBox(set, [&](const HeaderBox& box) {
    if (name == box.name) found = &(set.*box.field);
  });
  return found;
}

DissipationEditor::DissipationEditor(Session& session, UserPrompts& prompts) : session_(session), prompts_(prompts) {}

const DissipationSet& DissipationEditor::Set() const { return session_.Dissipation(); }

void DissipationEditor::SelectTest(int test) {
  if (test >= 1 && test <= Set().DissipationCount) selected_ = test;
}

std::string DissipationEditor::Caption() const { return "EDIT DISSIPATION FILE: " + Set().DissipationFileName; }

std::vector<std::string> DissipationEditor::DepthEntries() const {
  std::vector<std::string> entries;
  const bool metric = session_.DepthUnitIsMetric == 1;
  for (int i = 1; i <= Set().DissipationCount; ++i) {
    const double depth = Set().TestDepth[At(i)];
    entries.push_back(FormatNumber(metric ? depth : depth * session_.FeetPerMetre, "###0.000"));
  }
  return entries;
}

std::string DissipationEditor::DepthUnitCaption() const { return session_.DepthUnitIsMetric == 1 ? "(m)" : "(ft)"; }

std::vector<DissipationPressureUnit> DissipationEditor::PressureUnits() const {
  std::vector<DissipationPressureUnit> units;
  if (Set().FileKind == kPxDasDissipation) {
    for (const PxPressureUnit& unit : kPxPressureUnits) units.push_back({unit.name, unit.per_kilopascal});
  } else {
    for (int u = 1; u <= session_.units.UnitCount[kPressureGroup]; ++u) {
      units.push_back({session_.units.Name(u, kPressureGroup), session_.units.Factor(u, kPressureGroup)});
    }
  }
  return units;
}

int DissipationEditor::PressureUnitChoice() const {
  if (Set().FileKind != kPxDasDissipation) return Set().PressureUnitIndex - 1;
  const auto units = PressureUnits();
  for (size_t u = 0; u < units.size(); ++u) {
    if (EqualsNoCase(units[u].name, Set().PressureUnitName)) return static_cast<int>(u);
  }
  return -1;
}

std::string DissipationEditor::PressureHeading() const {
  const DissipationSet& set = Set();
  const std::string unit = set.FileKind == kPxDasDissipation ? set.PressureUnitName
                                                             : session_.units.Name(set.PressureUnitIndex, kPressureGroup);
  return "PRESS (" + unit + ")";
}

std::string DissipationEditor::CellText(int test, int row, DissipationCell cell, bool restored) const {
  const DissipationSet& set = Set();
  if (restored && set.FileKind == kPxDasDissipation) {
    const double value = cell == DissipationCell::kTime       ? static_cast<double>(set.RowTime(test, row))
                         : cell == DissipationCell::kPressure ? static_cast<double>(set.RowPressure(test, row))
                                                              : static_cast<double>(set.RowChannelA(test, row));
    return FormatNumber(value, "######0.0000");
  }
  switch (cell) {
    case DissipationCell::kTime:
      return FormatNumber(set.RowTime(test, row), "####0.00");
    case DissipationCell::kVolts:
      return FormatNumber(set.RowChannelA(test, row), "##0.0000");
    case DissipationCell::kRaw:
      return FormatNumber(set.RowChannelA(test, row), "######0.0000");
    case DissipationCell::kPsi:
      return FormatNumber(set.RowChannelB(test, row), "####0.0000");
    case DissipationCell::kPressure:
      return FormatNumber(set.RowPressure(test, row), "####0.0000");
  }
  return {};
}

bool DissipationEditor::EditCell(int test, int row, DissipationCell cell, std::string_view text) {
  DissipationSet& set = session_.Dissipation();
  if (test < 1 || test > set.DissipationCount || row < 1 || row > set.RowCount[At(test)]) Fail(kErrSubscript);
  const bool px = set.FileKind == kPxDasDissipation;
  std::string entry(text);
  if (!ValidEntry(entry)) {
    if (px) prompts_.Tell("Please enter a valid number");
    return false;
  }
  const double value = LenientNumber(entry);
  switch (cell) {
    case DissipationCell::kTime: {
      const int32_t seconds = WholeSeconds(value);
      set.RowTime(test, row) = seconds;
      if (px) {
        // The writer takes the time from the row's own text, right-aligned in its first six places.
        std::vector<std::string>& texts = set.RowText[At(test)];
        if (texts.size() <= At(row)) texts.resize(At(row) + 1);
        std::string& line = texts[At(row)];
        if (line.size() < 6) line.resize(6, ' ');
        line.replace(0, 6, FormatText(std::to_string(seconds), "@@@@@@"));
      }
      break;
    }
    case DissipationCell::kVolts:
      set.RowChannelA(test, row) = ToSingle(value);
      break;
    case DissipationCell::kPsi:
      set.RowChannelB(test, row) = ToSingle(value);
      break;
    case DissipationCell::kRaw: {
      const PxCalibration cal = PxCalibrationOf(set);
      if (cal.divisor == 0) Fail(kErrDivisionByZero);
      set.RowChannelA(test, row) = ToSingle(value);
      set.RowPressure(test, row) = ToSingle((value - cal.offset) / cal.divisor * cal.scale * cal.factor);
      break;
    }
    case DissipationCell::kPressure:
      set.RowPressure(test, row) = ToSingle(value);
      if (px) {
        const PxCalibration cal = PxCalibrationOf(set);
        if (cal.factor == 0 || cal.scale == 0) Fail(kErrDivisionByZero);
        set.RowChannelA(test, row) = ToSingle(value / cal.factor / cal.scale * cal.divisor + cal.offset);
      }
      break;
  }
  // A T50 or ch worked out from the old readings no longer describes the test.
  set.LastConsolidation[At(test)] = ConsolidationResult{};
  Recompute(test);
  changed_ = true;
  return true;
}

void DissipationEditor::ChangePressureUnit(int choice) {
  DissipationSet& set = session_.Dissipation();
  const auto units = PressureUnits();
  if (choice < 0 || At(choice) >= units.size()) Fail(kErrSubscript);
  const DissipationPressureUnit& to = units[At(choice)];
  double ratio = 0;
  if (set.FileKind == kPxDasDissipation) {
    // The conversion line holds units per kilopascal.
    const double from = PxField(set, kPxFactorLine);
    if (from == 0) Fail(kErrDivisionByZero);
    ratio = to.factor / from;
    set.PressurePerMetreHead = static_cast<float>(to.factor / kPxHeadFactor);
    set.PressureUnitName = to.name;
    const int column = set.PressureColumn;
    set.PXHeaderLine[kPxUnitLine] = WithPxField(set.PXHeaderLine[kPxUnitLine], column, to.name);
    set.PXHeaderLine[kPxFactorLine] =
        WithPxField(set.PXHeaderLine[kPxFactorLine], column, FormatNumber(to.factor, "0.000####"));
  } else {
    // The unit table holds pascals per unit.
    if (set.PressureUnitIndex < 1) Fail(kErrSubscript);
    const double from = session_.units.Factor(set.PressureUnitIndex, kPressureGroup);
    if (to.factor == 0) Fail(kErrDivisionByZero);
    ratio = from / to.factor;
    set.PressurePerMetreHead = static_cast<float>(kPascalsPerMetreHead / to.factor);
    set.PressureUnitIndex = static_cast<int16_t>(choice + 1);
  }
  for (int i = 1; i <= set.DissipationCount; ++i) {
    for (int k = 1; k <= set.RowCount[At(i)]; ++k) {
      set.RowPressure(i, k) = ToSingle(set.RowPressure(i, k) * ratio);
    }
  }
  // The pressures kept with each T50 were in the old unit.
  set.LastConsolidation.fill(ConsolidationResult{});
  RecomputeAll();
  changed_ = true;
}

bool DissipationEditor::ChangeDepth(int test, std::string_view text) {
  DissipationSet& set = session_.Dissipation();
  if (test < 1 || test > set.DissipationCount) Fail(kErrSubscript);
  const std::optional<double> depth = TypedNumber(text);
  if (!depth || *depth < 0) {
    prompts_.Tell("Please enter a valid depth");
    return false;
  }
  const double metres = session_.DepthUnitIsMetric == 1 ? *depth : *depth / session_.FeetPerMetre;
  set.TestDepth[At(test)] = ToSingle(metres);
  Recompute(test);
  changed_ = true;
  return true;
}

bool DissipationEditor::AdjustDepths(std::string_view measured, std::string_view observed) {
  const double total = LenientNumber(measured);
  if (total <= 0) {
    prompts_.Tell("Invalid measured depth. Value must be greater than 0");
    return false;
  }
  const double seen = LenientNumber(observed);
  if (seen <= 0) {
    prompts_.Tell("Invalid observed depth. Value must be greater than 0");
    return false;
  }
  DissipationSet& set = session_.Dissipation();
  const double ratio = total / seen;
  for (int i = 1; i <= set.DissipationCount; ++i) set.TestDepth[At(i)] = ToSingle(set.TestDepth[At(i)] * ratio);
  RecomputeAll();
  changed_ = true;
  return true;
}

bool DissipationEditor::DeleteTest(int test) {
  DissipationSet& set = session_.Dissipation();
  if (test < 1 || test > set.DissipationCount) Fail(kErrSubscript);
  if (prompts_.Ask("Are you sure you want to delete the currently selected test", Buttons::kYesNo) != Answer::kYes) {
    return false;
  }
  if (set.DissipationCount == 1) {
    prompts_.Tell("File contains only 1 dissipation. Cannot delete single dissipation");
    return false;
  }
  DissipationRows::RemoveTest(set, test);
  selected_ = set.DissipationCount == 1 ? 1 : std::min<int>(selected_, set.DissipationCount);
  changed_ = true;
  return true;
}

bool DissipationEditor::AppendWithOffset(const std::string& path, std::string_view offset_text) {
  const double offset = LenientNumber(offset_text);
  if (offset < 0) {
    prompts_.Tell("OFFSET CANNOT BE NEGATIVE");
    return false;
  }
  const double metres = session_.DepthUnitIsMetric == 1 ? offset : offset / session_.FeetPerMetre;
  const std::string bytes = InProcedure("AppendDissipationFile", [&] { return ReadWholeFile(path); });
  if (!AppendDissipationFile(session_, prompts_, bytes, static_cast<float>(metres))) return false;
  changed_ = true;
  return true;
}

void DissipationEditor::SetHeader(std::string_view name, std::string value) {
  std::string* field = DissipationHeaderField(session_.Dissipation(), name);
  if (field == nullptr || *field == value) return;
  *field = std::move(value);
  changed_ = true;
}

bool DissipationEditor::Save(const FileWriteFunction& write) {
  const bool saved = TellFailures(prompts_, "mnuSave_Click",
                                  [&] { WriteDissipationFile(session_, Set().DissipationPath, write); });
  if (saved) changed_ = false;
  return saved;
}

bool DissipationEditor::SaveAs(const std::string& path, const FileWriteFunction& write) {
  if (FileExists(path)) {
    prompts_.Tell(std::string(FileNamePart(path)) + " already exists. Cannot overwrite.");
    return false;
  }
  const bool saved = TellFailures(prompts_, "mnuSaveAs_Click", [&] { WriteDissipationFile(session_, path, write); });
  if (!saved) return false;
  DissipationSet& set = session_.Dissipation();
  set.DissipationPath = path;
  set.DissipationFileName = std::string(FileNamePart(path));
  changed_ = false;
  return true;
}

bool DissipationEditor::SaveAsAsking() {
  FileDialogRequest request;
  request.title = "Save Dissipation File As";
  request.filter = "All Files (*.*)|*.*|DIS Files (*.dis)|*.dis";
  request.filter_index = 2;
  request.start_directory = session_.DissipationDirectory;
  // An existing name is refused afterwards, never replaced.
  request.asks_overwrite = true;
  const std::string path = prompts_.SaveFile(request);
  return !path.empty() && SaveAs(path);
}

bool DissipationEditor::ExportAsking(bool csv, bool each) {
  FileDialogRequest request;
  request.title = csv ? "Export CSV File" : "Export Text File";
  request.filter = csv ? "CSV Files (*.csv)|*.csv" : "TXT Files (*.txt)|*.txt";
  request.start_directory = session_.DissipationDirectory;
  request.asks_overwrite = true;
  const std::string path = prompts_.SaveFile(request);
  if (path.empty()) return false;
  ExportWholeDissipationFile(session_, prompts_, path, csv, each);
  return true;
}

void DissipationEditor::SetDepthInFeet(bool feet) {
  session_.DepthUnitIsMetric = feet ? 0 : 1;
  session_.DepthUnitsFlag = feet ? 0 : 1;
}

bool DissipationEditor::DepthInFeet() const { return session_.DepthUnitIsMetric != 1; }

bool DissipationEditor::MayLeave() {
  return !changed_ ||
         prompts_.Ask("Changes have been made. Are you sure you want to exit?", Buttons::kYesNo) == Answer::kYes;
}

void DissipationEditor::Recompute(int test) {
  ComputeMaxPercent(session_.Dissipation(), test);
  ComputeHeadPercent(session_.Dissipation(), test);
}

void DissipationEditor::RecomputeAll() {
  for (int i = 1; i <= Set().DissipationCount; ++i) Recompute(i);
}

// The second file is read whole before anything is added, so a failure part way leaves the
// loaded file as it was.
bool AppendDissipationFile(Session& session, UserPrompts& prompts, std::string_view bytes, float offset_m) {
  DissipationSet& set = session.Dissipation();
  struct Row {
    int32_t time;
    float a, b, pressure;
  };
  struct Test {
    float depth;
    std::vector<Row> rows;
  };
  std::vector<Test> tests;
  std::vector<Row> leading;
  bool same_sensors = false;
  InProcedure("AppendDissipationFile", [&] {
    LineCursor lines(bytes);
    const std::string_view version = lines.Next();
    std::string_view sensor_row;
    if (version.find(kCombinableVersion) != std::string_view::npos) {
      for (int n = 1; n <= kCombinableHeaderLines; ++n) {
        const std::string_view line = lines.Next();
        if (n == kSensorRowOfHeader) sensor_row = line;
      }
    }
    // The sensor rows are compared as the channel block lays them out, label and blanks aside.
    std::vector<std::string> sensors;
    for (std::string_view rest = ColumnsFrom(sensor_row, 14); !rest.empty();
         rest = rest.size() > 16 ? rest.substr(16) : std::string_view()) {
      const std::string_view field = TrimBlanks(rest.substr(0, std::min<size_t>(16, rest.size())));
      if (!field.empty()) sensors.emplace_back(field);
    }
    same_sensors = !sensors.empty() && static_cast<int>(sensors.size()) == set.ChannelCount;
    for (int c = 1; same_sensors && c <= set.ChannelCount; ++c) {
      same_sensors = sensors[At(c - 1)] == set.ChannelSensor[At(c)];
    }
    if (!same_sensors) return;
    while (!lines.AtEnd()) {
      const std::string_view line = lines.Next();
      if (line.find("Test Depth") != std::string_view::npos) {
        const size_t arrow = line.find(" =>");
        const double depth = LenientNumber(arrow == std::string_view::npos ? line : line.substr(0, arrow));
        tests.push_back({ToSingle(depth + offset_m), {}});
        continue;
      }
      if (line.find("pressure") != std::string_view::npos || line.size() < 55) continue;
      // Rows before the first depth go to the last test of the loaded file, as a read would put them.
      (tests.empty() ? leading : tests.back().rows).push_back({WholeSeconds(LenientNumber(Columns(line, 0, 10))),
                                   static_cast<float>(LenientNumber(Columns(line, 11, 14))),
                                   static_cast<float>(LenientNumber(Columns(line, 26, 14))),
                                   static_cast<float>(LenientNumber(Columns(line, 41, 14)))});
    }
    // The tables hold 100 tests of 10000 rows: a test or row past them fails before any is added.
    if (set.DissipationCount + static_cast<int>(tests.size()) > kMaxDissipations) Fail(kErrSubscript);
    if (!leading.empty() && (set.DissipationCount < 1 ||
                             set.RowCount[At(set.DissipationCount)] + leading.size() > kMaxDissipationRows)) {
      Fail(kErrSubscript);
    }
    for (const Test& test : tests) {
      if (test.rows.size() > kMaxDissipationRows) Fail(kErrSubscript);
    }
  });
  if (!same_sensors) {
    prompts.Tell("The number of channels in the two files do not match. The two files cannot be combined");
    return false;
  }
  auto add_rows = [&](int test, const std::vector<Row>& rows) {
    for (const Row& row : rows) {
      const int k = DissipationRows::Append(set, test);
      set.RowTime(test, k) = row.time;
      set.RowChannelA(test, k) = row.a;
      set.RowChannelB(test, k) = row.b;
      set.RowPressure(test, k) = row.pressure;
    }
    ComputeMaxPercent(set, test);
    ComputeHeadPercent(set, test);
  };
  if (!leading.empty()) add_rows(set.DissipationCount, leading);
  for (const Test& added : tests) {
    const int test = set.DissipationCount + 1;
    set.DissipationCount = static_cast<int16_t>(test);
    set.TestDepth[At(test)] = added.depth;
    add_rows(test, added.rows);
  }
  return true;
}

}  // namespace marlview
