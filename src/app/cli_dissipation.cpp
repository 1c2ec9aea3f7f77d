// The dissipation subcommand of marlview-cli.
#include "app/cli_dissipation.h"

#include <charconv>
#include <nlohmann/json.hpp>

#include "app/cli_prompts.h"
#include "core/common/number_read.h"
#include "core/common/runtime_failure.h"
#include "core/common/text_rules.h"
#include "core/dissipation/dissipation_list.h"
#include "core/dissipation/dissipation_plot.h"
#include "core/dissipation/t50_utility.h"
#include "core/session/session.h"
#include "core/shell/shell_controller.h"
#include "render/image_surface.h"
#include "render/pdf_print_job.h"

namespace marlview {
namespace {

using Json = nlohmann::ordered_json;

constexpr int kImageWidth = 1600, kImageHeight = 1200;

Json FloatJson(float value) { return Json(std::stod(ShortestText(value))); }

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
  info["pressureUnit"] = ToUtf8(DissipationUnitText(s, session.units));
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
  return info;
}

int RunT50(const Session& session, const DissipationOptions& options, std::ostream& out) {
  const float u0 = static_cast<float>(*options.u0), u100 = static_cast<float>(*options.u100);
  const float u50 = u0 + (u100 - u0) * 0.5f;
  const std::optional<float> t50 = FindT50(session.Dissipation(), options.tests.front(), u50);
  out << "U50: " << ShortestText(u50) << '\n';
  out << "T50: " << (t50 ? ShortestText(*t50) : std::string("none")) << '\n';
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
  else if (a == "--mode")
    options.mode = value();
  else if (a == "--time")
    options.time = value();
  else if (a == "--export")
    options.export_form = value();
  else
    return false;
  return true;
}

bool AnyDissipationOption(const DissipationOptions& o) {
  return !o.tests.empty() || o.csv || o.txt || o.percent_max || o.percent_head || o.t50 || o.u0 || o.u100 ||
         o.plot || !o.mode.empty() || !o.time.empty() || !o.export_form.empty();
}

std::string DissipationUsageError(const DissipationOptions& o, const std::string& out,
                                  const std::string& file) {
  for (int test : o.tests) {
    if (test < 1 || test > kMaxDissipations) return "--test takes a whole number from 1 to 100";
  }
  if (!o.export_form.empty()) {
    if (o.export_form != "txt" && o.export_form != "csv" && o.export_form != "txt-each" &&
        o.export_form != "csv-each") {
      return "--export is txt, csv, txt-each or csv-each";
    }
    if (o.csv || o.txt || o.t50 || o.plot) return "--export goes with none of --csv, --txt, --t50 or --plot";
    if (out.empty()) return "--export writes -o OUT";
    if (!o.tests.empty() || o.percent_max || o.percent_head || !o.mode.empty() || !o.time.empty()) {
      return "--export writes every test and takes no --test, --percent-max, --percent-head, --mode or "
             "--time";
    }
    // A file without the .DIS extension is an FLDACQ file, which has no editor to export from.
    if (!ContainsNoCase(file, ".dis")) return "--export is for .DIS files; an FLDACQ file has no editor";
    return {};
  }
  const int actions = (o.csv || o.txt ? 1 : 0) + (o.t50 ? 1 : 0) + (o.plot ? 1 : 0);
  if (actions > 1 || (o.csv && o.txt)) return "dissipation takes one of --csv, --txt, --t50 or --plot";
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
  if (o.u0 || o.u100) return "--u0 and --u100 go with --t50";
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
  if (!o.tests.empty() || !o.mode.empty() || !o.time.empty() || !out.empty()) {
    return "dissipation FILE takes --test, -o, --mode and --time only with --t50, --plot, --csv or --txt";
  }
  return {};
}

int RunDissipation(Session& session, ShellController& shell, CliPrompts& prompts,
                   const DissipationOptions& options, std::optional<double> water_table,
                   const std::string& out_path, std::ostream& out) {
  shell.ChooseMode(ProcessingMode::kDissipations);
  if (!shell.Dissipations().View().frame_visible) return 1;
  DissipationSet& set = session.Dissipation();
  for (int test : options.tests) {
    if (test > set.DissipationCount) {
      prompts.Tell(GeneralErrorText(RuntimeFailure(kErrSubscript, "cmdPlotDissipation_Click")));
      return 1;
    }
  }
  if (water_table) {
    set.WaterTableDepth = static_cast<float>(*water_table);
    shell.Dissipations().WaterTableChanged();
  }
  if (options.t50) return RunT50(session, options, out);
  if (options.csv || options.txt) return RunListExport(session, prompts, options, out_path);
  if (!options.export_form.empty()) return RunWholeFileExport(session, prompts, options, out_path);
  if (options.plot) return RunPlot(session, shell, prompts, options, out_path);
  out << InfoJson(session).dump(2) << '\n';
  return prompts.ErrorShown() ? 1 : 0;
}

}  // namespace marlview
