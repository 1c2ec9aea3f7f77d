// The dissipation subcommand of marlview-cli.
#include "app/cli_dissipation.h"

#include <algorithm>
#include <charconv>

#include "app/cli_globals.h"
#include "app/cli_json.h"
#include "app/cli_prompts.h"
#include "core/common/number_read.h"
#include "core/common/runtime_failure.h"
#include "core/common/text_rules.h"
#include "core/dissipation/consolidation.h"
#include "core/dissipation/dissipation_editor.h"
#include "core/dissipation/dissipation_list.h"
#include "core/dissipation/dissipation_plot.h"
#include "core/dissipation/t50_utility.h"
#include "core/session/session.h"
#include "core/shell/shell_controller.h"
#include "render/image_surface.h"
#include "render/pdf_print_job.h"

namespace marlview {
namespace {

constexpr int kImageWidth = 1600, kImageHeight = 1200;

// A number of the command line, or nothing when it is not one.
std::optional<double> Number(const std::string& text) {
  try {
    return ParseNumber(text);
  } catch (const RuntimeFailure&) {
    return std::nullopt;
  }
}

Json InfoJson(const Session& session) {
  const DissipationSet& s = session.Dissipation();
  Json info;
  info["file"] = ToUtf8(s.DissipationFileName);
  info["fileKind"] = s.FileKind;
  info["waterTableDepth"] = FloatJson(s.WaterTableDepth);
  // A GEF report's pressures are always kPa, named without brackets.
  info["pressureUnit"] = s.FileKind == kGefDissipation ? ToUtf8(s.PressureUnitName)
                                                       : ToUtf8(DissipationUnitText(s, session.units));
  info["pressurePerMetreHead"] = FloatJson(s.PressurePerMetreHead);
  Json header = Json::object();
  auto put = [&](const char* name, const std::string& value) { header[name] = ToUtf8(value); };
  if (s.FileKind == kPxDasDissipation) {
    put("Customer", s.Customer), put("OperatorName", s.OperatorName), put("ConeId", s.ConeId);
    put("Location", s.PxLocation), put("JobNumber", s.JobNumber), put("HoleNumber", s.HoleNumber);
    put("TestDateText", s.TestDateText), put("Comment1", s.Comment1), put("Comment2", s.Comment2);
    put("Comment3", s.Comment3);
  } else {
    put("SectionMarker", s.SectionMarker), put("TestId", s.TestId), put("Operator", s.Operator);
    put("Crew", s.Crew), put("Project", s.Project), put("Site", s.Site), put("Location", s.Location);
    put("Comments", s.Comments), put("TestDate", s.TestDate), put("StartTime", s.StartTime);
    put("Client", s.Client), put("ClientRepresentative", s.ClientRepresentative), put("Weather", s.Weather);
    put("DasVersion", s.DasVersion), put("DasSystem", s.DasSystem),
        put("ProbeSerialNumber", s.ProbeSerialNumber);
  }
  put("GpsLatitude", s.GpsLatitude), put("GpsLongitude", s.GpsLongitude), put("GpsElevation", s.GpsElevation);
  put("GpsSatellites", s.GpsSatellites), put("GpsQuality", s.GpsQuality);
  info["header"] = header;
  Json tests = Json::array();
  for (int i = 1; i <= std::min<int>(s.DissipationCount, kMaxDissipations); ++i) {
    const auto at = static_cast<size_t>(i);
    tests.push_back({{"depth", FloatJson(s.TestDepth[at])},
                     {"rowCount", s.RowCount[at]},
                     {"maxPressure", FloatJson(s.MaxPressure[at])},
                     {"hydrostaticPressure", FloatJson(s.HydrostaticPressure[at])}});
  }
  info["tests"] = tests;
  if (s.FileKind == kGefDissipation) info["parentFile"] = ToUtf8(s.ParentFile);
  return info;
}

int RunT50(Session& session, const DissipationOptions& options, std::ostream& out) {
  const float u0 = static_cast<float>(*options.u0), u100 = static_cast<float>(*options.u100);
  const float u50 = u0 + (u100 - u0) * 0.5f;
  const std::optional<float> t50 = FindT50(session.Dissipation(), options.tests.front(), u50);
  if (t50) RecordT50(session.Dissipation(), options.tests.front(), u0, u100, *t50);
  out << "U50: " << ShortestText(u50) << '\n';
  out << "T50: " << (t50 ? ShortestText(*t50) : std::string("none")) << '\n';
  return 0;
}

// The ch lines: a value the computation could not reach is "none".
int RunCh(Session& session, CliPrompts& prompts, const DissipationOptions& options, std::ostream& out) {
  ChRequest request;
  request.Test = options.tests.front();
  request.U0 = static_cast<float>(options.u0.value_or(0));
  request.U100 = static_cast<float>(*options.u100);
  request.RootTime = options.root_time;
  request.Inputs.RigidityIndex = options.rigidity_index.value_or(request.Inputs.RigidityIndex);
  request.Inputs.ConeAreaCm2 = options.cone_area.value_or(request.Inputs.ConeAreaCm2);
  request.Inputs.Filter = options.filter == "u1" ? kFilterU1 : kFilterU2;
  // The frame's own checks, so the command line refuses what the window refuses.
  if (!CheckChInputs(request.Inputs, prompts)) return 1;
  const ChResult r = ComputeCh(session.Dissipation(), request, prompts);
  auto text = [](const std::optional<float>& value) { return value ? ShortestText(*value) : std::string("none"); };
  auto wide = [](const std::optional<double>& value) { return value ? ShortestText(*value) : std::string("none"); };
  out << "U0: " << ShortestText(r.U0) << '\n';
  out << "U100: " << ShortestText(r.U100) << '\n';
  out << "U50: " << text(r.U50) << '\n';
  out << "T50: " << text(r.T50) << '\n';
  out << "Ui: " << text(r.Ui) << '\n';
  out << "ch: " << wide(r.Ch) << '\n';
  out << "chPerYear: " << wide(r.Ch ? std::optional<double>(*r.Ch * kSecondsPerYear) : std::nullopt) << '\n';
  return 0;
}

int RunPlot(Session& session, ShellController& shell, CliPrompts& prompts, const DissipationOptions& options,
            const std::string& out_path) {
  DissipationController& controller = shell.Dissipations();
  std::vector<int> rows;
  for (int test : options.tests) rows.push_back(test - 1);
  if (rows.empty()) {
    for (int row = 0; row < static_cast<int>(controller.View().depth_rows.size()); ++row) rows.push_back(row);
  }
  controller.SetSelection(rows);
  std::optional<DissipationPlotState> plot;
  try {
    plot = controller.PlotDissipation();
    if (!plot) return 1;
    if (options.time == "log")
      SetTimeFormat(*plot, kLogTime);
    else if (options.time == "sqrt")
      SetTimeFormat(*plot, kSquareRootTime);
    else if (options.time == "linear")
      SetTimeFormat(*plot, kLinearTime);
    const int16_t mode = options.mode == "percent-max"    ? kPercentOfMax
                         : options.mode == "percent-head" ? kPercentOverHead
                                                          : kPressureValues;
    // A refused mode has been told; nothing is drawn.
    if (!SetPressureDisplayMode(*plot, session.Dissipation(), mode, prompts)) return 1;
    if (EndsWithNoCase(out_path, ".png")) {
      ImageSurface image(kImageWidth, kImageHeight);
      GraphDissipation(image, kImageWidth * kPlotUnitsPerPixel, kImageHeight * kPlotUnitsPerPixel, *plot,
                       session);
      if (!image.Save(out_path)) Fail(kErrPathAccess, "mnuSavePicture");
    } else {
      PdfPrintJob job(out_path, PaperSize::kLetter);
      GraphDissipation(job.NewPage(), job.PageWidthPoints() * kPlotUnitsPerPoint,
                       job.PageHeightPoints() * kPlotUnitsPerPoint, *plot, session);
      if (!job.EndDoc()) Fail(kErrPathAccess, "PrintPlot_Click");
    }
  } catch (const RuntimeFailure& failure) {
    prompts.Tell(GeneralErrorText(failure));
    return 1;
  }
  return prompts.ErrorShown() ? 1 : 0;
}

// The list window's export of one test, with the percentage columns of its two menus.
int RunListExport(Session& session, CliPrompts& prompts, const DissipationOptions& options,
                  const std::string& out_path) {
  DissipationListView view;
  view.test = options.tests.front();
  view.show_percent_max = options.percent_max;
  // The head menu is disabled without a head; the column stays away as in the window.
  view.show_percent_head = options.percent_head && PercentHeadAvailable(session.Dissipation(), view.test);
  const char* source = options.csv ? "mnuExportcsvFile_Click" : "mnuSaveFile_Click";
  const bool written = TellFailures(prompts, source, [&] {
    const std::string bytes =
        options.csv ? DissipationCsvExport(session, view) : DissipationTxtExport(session, view);
    WriteExportAsking(prompts, out_path, bytes);
  });
  return written ? 0 : 1;
}

int RunWholeFileExport(Session& session, CliPrompts& prompts, const DissipationOptions& options,
                       const std::string& out_path) {
  const bool csv = options.export_form.starts_with("csv");
  const bool each = options.export_form.ends_with("-each");
  try {
    ExportWholeDissipationFile(session, prompts, out_path, csv, each);
  } catch (const RuntimeFailure& failure) {
    prompts.Tell(GeneralErrorText(failure));
    return 1;
  }
  return 0;
}

constexpr const char* kOperations[] = {"--set",    "--pressure-unit", "--depth", "--adjust-depths",
                                       "--delete-test", "--append",   "--header"};

// A whole number, or nothing.
std::optional<int> WholeNumber(std::string_view text) {
  int value = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  if (result.ec != std::errc() || result.ptr != text.data() + text.size()) return std::nullopt;
  return value;
}

// The parts of an operation's value split at its first count colons; the last part keeps the rest.
std::vector<std::string> SplitAtColons(const std::string& value, size_t count) {
  std::vector<std::string> parts;
  size_t start = 0;
  while (parts.size() < count) {
    const size_t colon = value.find(':', start);
    if (colon == std::string::npos) break;
    parts.push_back(value.substr(start, colon - start));
    start = colon + 1;
  }
  parts.push_back(value.substr(start));
  return parts;
}

std::optional<DissipationCell> CellOf(const std::string& column, bool px) {
  if (column == "time") return DissipationCell::kTime;
  if (column == "pressure") return DissipationCell::kPressure;
  if (!px && column == "volts") return DissipationCell::kVolts;
  if (!px && column == "psi") return DissipationCell::kPsi;
  if (px && column == "raw") return DissipationCell::kRaw;
  return std::nullopt;
}

// The syntax of an operation's value, before any file is open.
std::string OperationSyntaxError(const DissipationOperation& op) {
  const std::string& v = op.value;
  if (op.option == "--set") {
    const auto parts = SplitAtColons(v, 3);
    if (parts.size() != 4 || !WholeNumber(parts[0]) || !WholeNumber(parts[1]) ||
        (!CellOf(parts[2], false) && !CellOf(parts[2], true))) {
      return "--set takes TEST:ROW:COLUMN:VALUE, COLUMN time, volts, psi, raw or pressure";
    }
  } else if (op.option == "--depth") {
    const auto parts = SplitAtColons(v, 1);
    if (parts.size() != 2 || !WholeNumber(parts[0])) return "--depth takes TEST:DEPTH";
  } else if (op.option == "--adjust-depths") {
    if (SplitAtColons(v, 1).size() != 2) return "--adjust-depths takes TOTAL:OBSERVED";
  } else if (op.option == "--delete-test") {
    if (!WholeNumber(v)) return "--delete-test takes a test number";
  } else if (op.option == "--append") {
    const size_t colon = v.rfind(':');
    if (colon == std::string::npos || colon == 0) return "--append takes FILE2:OFFSET";
  } else if (op.option == "--header") {
    if (v.find('=') == std::string::npos) return "--header takes NAME=VALUE";
  }
  return {};
}

// The entry of cmbPressureUnits of a unit name, else bad usage.
int UnitChoice(const DissipationEditor& editor, const std::string& name) {
  const auto units = editor.PressureUnits();
  for (size_t u = 0; u < units.size(); ++u) {
    if (units[u].name == name) return static_cast<int>(u);
  }
  for (size_t u = 0; u < units.size(); ++u) {
    if (EqualsNoCase(units[u].name, name)) return static_cast<int>(u);
  }
  throw UsageError("--pressure-unit: " + name + " is no pressure unit of this file's editor");
}

// The test, row, column and names of an operation checked against a file of the editor's family
// whose tests hold rows[0], rows[1], ... rows; a misfit is bad usage.
void CheckOperation(const DissipationEditor& editor, const std::vector<int>& rows, const DissipationOperation& op) {
  const bool px = editor.Set().FileKind == kPxDasDissipation;
  auto test_of = [&](const std::string& text) {
    const std::optional<int> test = WholeNumber(text);
    if (!test || *test < 1 || *test > static_cast<int>(rows.size())) {
      throw UsageError(op.option + ": test " + text + " is not one of the file's " + std::to_string(rows.size()));
    }
    return *test;
  };
  if (op.option == "--set") {
    const auto parts = SplitAtColons(op.value, 3);
    const int test = test_of(parts[0]);
    const std::optional<int> row = WholeNumber(parts[1]);
    if (!row || *row < 1 || *row > rows[static_cast<size_t>(test - 1)]) {
      throw UsageError("--set: row " + parts[1] + " is not one of test " + parts[0] + "'s");
    }
    if (!CellOf(parts[2], px)) throw UsageError("--set: " + parts[2] + " is no column of this file's editor");
  } else if (op.option == "--pressure-unit") {
    UnitChoice(editor, op.value);
  } else if (op.option == "--depth") {
    test_of(SplitAtColons(op.value, 1)[0]);
  } else if (op.option == "--delete-test") {
    test_of(op.value);
  } else if (op.option == "--append") {
    if (px) throw UsageError("--append combines QRD FIELDBOX files only");
  } else if (op.option == "--header") {
    const std::string name = op.value.substr(0, op.value.find('='));
    bool known = false;
    for (const std::string& header : DissipationHeaderNames(editor.Set())) known = known || header == name;
    if (!known) throw UsageError("--header: " + name + " is no header box of this file's editor");
  }
}

std::vector<int> RowCounts(const DissipationSet& set) {
  std::vector<int> rows;
  for (int i = 1; i <= std::min<int>(set.DissipationCount, kMaxDissipations); ++i) {
    rows.push_back(set.RowCount[static_cast<size_t>(i)]);
  }
  return rows;
}

// The operations checked before any runs, following the renumbering of each deletion that will go
// through; the tests an append brings are known only once it has run, so from there on each
// operation is checked as it comes.
void CheckOperations(const DissipationEditor& editor, bool yes, const std::vector<DissipationOperation>& operations) {
  std::vector<int> rows = RowCounts(editor.Set());
  for (const DissipationOperation& op : operations) {
    CheckOperation(editor, rows, op);
    if (op.option == "--append") break;
    if (op.option == "--delete-test" && yes && rows.size() > 1) {
      rows.erase(rows.begin() + (*WholeNumber(op.value) - 1));
    }
  }
}

// Runs one operation as the editor's control does. Its refusals are told and change nothing.
void ApplyOperation(DissipationEditor& editor, CliPrompts& prompts, const DissipationOperation& op) {
  CheckOperation(editor, RowCounts(editor.Set()), op);
  const bool px = editor.Set().FileKind == kPxDasDissipation;
  if (op.option == "--set") {
    const auto parts = SplitAtColons(op.value, 3);
    const int test = *WholeNumber(parts[0]);
    editor.SelectTest(test);
    editor.EditCell(test, *WholeNumber(parts[1]), *CellOf(parts[2], px), parts[3]);
  } else if (op.option == "--pressure-unit") {
    editor.ChangePressureUnit(UnitChoice(editor, op.value));
  } else if (op.option == "--depth") {
    const auto parts = SplitAtColons(op.value, 1);
    editor.ChangeDepth(*WholeNumber(parts[0]), parts[1]);
  } else if (op.option == "--adjust-depths") {
    const auto parts = SplitAtColons(op.value, 1);
    editor.AdjustDepths(parts[0], parts[1]);
  } else if (op.option == "--delete-test") {
    const int test = *WholeNumber(op.value);
    editor.SelectTest(test);
    editor.DeleteTest(test);
  } else if (op.option == "--append") {
    const size_t colon = op.value.rfind(':');
    // The caution is answered OK: the command line asked for the combine.
    prompts.Echo(std::string("? ") + kCombineCaution + " -> OK");
    editor.AppendWithOffset(op.value.substr(0, colon), op.value.substr(colon + 1));
  } else if (op.option == "--header") {
    const size_t equals = op.value.find('=');
    editor.SetHeader(op.value.substr(0, equals), op.value.substr(equals + 1));
  }
}

}  // namespace

bool ParseDissipationOption(const std::string& a, const std::function<const std::string&()>& value,
                            DissipationOptions& options) {
  if (a == "--test") {
    const std::string& text = value();
    int test = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), test);
    // Outside 1..100 is caught with the file's own count once it is open.
    options.tests.push_back(result.ec == std::errc() && result.ptr == text.data() + text.size() ? test : 0);
  } else if (a == "--csv")
    options.csv = true;
  else if (a == "--txt")
    options.txt = true;
  else if (a == "--percent-max")
    options.percent_max = true;
  else if (a == "--percent-head")
    options.percent_head = true;
  else if (a == "--t50")
    options.t50 = true;
  else if (a == "--u0")
    options.u0 = Number(value()).value_or(std::nan(""));
  else if (a == "--u100")
    options.u100 = Number(value()).value_or(std::nan(""));
  else if (a == "--plot")
    options.plot = true;
  else if (a == "--ch")
    options.ch = true;
  else if (a == "--ir")
    options.rigidity_index = Number(value()).value_or(std::nan(""));
  else if (a == "--cone-area")
    options.cone_area = Number(value()).value_or(std::nan(""));
  else if (a == "--filter")
    options.filter = value();
  else if (a == "--root-time")
    options.root_time = true;
  else if (a == "--mode")
    options.mode = value();
  else if (a == "--time")
    options.time = value();
  else if (a == "--export")
    options.export_form = value();
  else if (std::find(std::begin(kOperations), std::end(kOperations), a) != std::end(kOperations))
    options.operations.push_back({a, value()});
  else
    return false;
  return true;
}

bool AnyDissipationOption(const DissipationOptions& o) {
  return !o.tests.empty() || o.csv || o.txt || o.percent_max || o.percent_head || o.t50 || o.u0 || o.u100 ||
         o.ch || o.rigidity_index || o.cone_area || !o.filter.empty() || o.root_time ||
         o.plot || !o.mode.empty() || !o.time.empty() || !o.export_form.empty() || !o.operations.empty();
}

std::string DissipationUsageError(const DissipationOptions& o, const std::string& out,
                                  const std::string& file) {
  for (const DissipationOperation& op : o.operations) {
    if (std::string error = OperationSyntaxError(op); !error.empty()) return error;
  }
  // A file without the .DIS extension is an FLDACQ file, which has no editor.
  const bool saves = !out.empty() && !o.csv && !o.txt && !o.plot && !o.t50 && !o.ch && o.export_form.empty();
  if ((!o.operations.empty() || saves) && !ContainsNoCase(file, ".dis")) {
    return "an FLDACQ file has no editor: no operation and no -o without --csv or --txt";
  }
  for (int test : o.tests) {
    if (test < 1 || test > kMaxDissipations) return "--test takes a whole number from 1 to 100";
  }
  if (!o.export_form.empty()) {
    if (o.export_form != "txt" && o.export_form != "csv" && o.export_form != "txt-each" &&
        o.export_form != "csv-each") {
      return "--export is txt, csv, txt-each or csv-each";
    }
    if (o.csv || o.txt || o.t50 || o.ch || o.plot) {
      return "--export goes with none of --csv, --txt, --t50, --ch or --plot";
    }
    if (out.empty()) return "--export writes -o OUT";
    if (!o.tests.empty() || o.percent_max || o.percent_head || !o.mode.empty() || !o.time.empty()) {
      return "--export writes every test and takes no --test, --percent-max, --percent-head, --mode or "
             "--time";
    }
    // A file without the .DIS extension is an FLDACQ file, which has no editor to export from.
    if (!ContainsNoCase(file, ".dis")) return "--export is for .DIS files; an FLDACQ file has no editor";
    return {};
  }
  const int actions = (o.csv || o.txt ? 1 : 0) + (o.t50 ? 1 : 0) + (o.ch ? 1 : 0) + (o.plot ? 1 : 0);
  if (actions > 1 || (o.csv && o.txt)) return "dissipation takes one of --csv, --txt, --t50, --ch or --plot";
  if (!o.ch && (o.rigidity_index || o.cone_area || !o.filter.empty() || o.root_time)) {
    return "--ir, --cone-area, --filter and --root-time go with --ch";
  }
  if (o.ch) {
    if (o.tests.size() != 1) return "--ch takes one --test N";
    if (!o.u100 || std::isnan(*o.u100)) return "--ch takes --u100 U100";
    if (!o.root_time && (!o.u0 || std::isnan(*o.u0))) return "--ch takes --u0 U0 without --root-time";
    if (o.u0 && std::isnan(*o.u0)) return "--u0 takes a number";
    if (!o.filter.empty() && o.filter != "u1" && o.filter != "u2") return "--filter is u1 or u2";
    if (!o.mode.empty() || !o.time.empty() || !out.empty()) return "--ch takes no -o, --mode or --time";
    return {};
  }
  if (o.csv || o.txt) {
    if (o.tests.size() != 1) return "--csv and --txt take one --test N";
    if (out.empty()) return "--csv and --txt write -o OUT";
    if (!o.mode.empty() || !o.time.empty()) return "--csv and --txt take no --mode or --time";
    return {};
  }
  if (o.percent_max || o.percent_head) return "--percent-max and --percent-head go with --csv or --txt";
  if (o.t50) {
    if (o.tests.size() != 1) return "--t50 takes one --test N";
    if (!o.u0 || !o.u100 || std::isnan(*o.u0) || std::isnan(*o.u100))
      return "--t50 takes --u0 U0 and --u100 U100";
    if (!o.mode.empty() || !o.time.empty() || !out.empty()) return "--t50 takes no -o, --mode or --time";
    return {};
  }
  if (o.u0 || o.u100) return "--u0 and --u100 go with --t50 or --ch";
  if (o.plot) {
    if (!EndsWithNoCase(out, ".png") && !EndsWithNoCase(out, ".pdf"))
      return "--plot writes -o OUT.png or OUT.pdf";
    if (!o.mode.empty() && o.mode != "pressure" && o.mode != "percent-max" && o.mode != "percent-head") {
      return "--mode is pressure, percent-max or percent-head";
    }
    if (!o.time.empty() && o.time != "linear" && o.time != "log" && o.time != "sqrt") {
      return "--time is linear, log or sqrt";
    }
    return {};
  }
  if (!o.tests.empty() || !o.mode.empty() || !o.time.empty()) {
    return "dissipation FILE takes --test, --mode and --time only with --t50, --plot, --csv or --txt";
  }
  return {};
}

int RunDissipation(Session& session, ShellController& shell, CliPrompts& prompts,
                   const DissipationOptions& options, std::optional<double> water_table,
                   const std::string& out_path, std::ostream& out) {
  shell.ChooseMode(ProcessingMode::kDissipations);
  if (!shell.Dissipations().View().frame_visible) return 1;
  DissipationSet& set = session.Dissipation();
  if (water_table) {
    set.WaterTableDepth = static_cast<float>(*water_table);
    shell.Dissipations().WaterTableChanged();
  }
  DissipationEditor editor(session, prompts);
  CheckOperations(editor, prompts.AnswersYes(), options.operations);
  try {
    for (const DissipationOperation& op : options.operations) ApplyOperation(editor, prompts, op);
  } catch (const RuntimeFailure& failure) {
    prompts.Tell(GeneralErrorText(failure));
    return 1;
  }
  if (!options.operations.empty()) shell.Dissipations().Refill();
  for (int test : options.tests) {
    if (test > set.DissipationCount) {
      prompts.Tell(GeneralErrorText(RuntimeFailure(kErrSubscript, "cmdPlotDissipation_Click")));
      return 1;
    }
  }
  if (options.t50) return RunT50(session, options, out);
  if (options.ch) return RunCh(session, prompts, options, out);
  if (options.csv || options.txt) return RunListExport(session, prompts, options, out_path);
  if (!options.export_form.empty()) return RunWholeFileExport(session, prompts, options, out_path);
  if (options.plot) return RunPlot(session, shell, prompts, options, out_path);
  if (!out_path.empty()) return editor.SaveAs(out_path) ? 0 : 1;
  out << InfoJson(session).dump(2) << '\n';
  return prompts.ErrorShown() ? 1 : 0;
}

}  // namespace marlview
