// marlview-cli set: loads the FILEs into the set's slots, ticks tests and channels, and writes the
// combined list, draws the combined or side-by-side plot, or runs the batch export.
#include "app/cli_set.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "app/cli_globals.h"
#include "app/cli_json.h"
#include "app/cli_prompts.h"
#include "core/common/file_access.h"
#include "core/common/number_read.h"
#include "core/common/runtime_failure.h"
#include "core/common/text_rules.h"
#include "core/multisounding/batch_export.h"
#include "core/multisounding/combined_list.h"
#include "core/multisounding/last_data_directory.h"
#include "core/multisounding/set_model.h"
#include "core/multisounding/set_plot.h"
#include "core/presentation/sounding_exports.h"
#include "core/presentation/sounding_list.h"
#include "core/presentation/sounding_plot.h"
#include "core/session/session.h"
#include "render/image_surface.h"
#include "render/pdf_print_job.h"

namespace marlview {
namespace {

constexpr const char* kSetUsage =
    "usage: marlview-cli [global options] set FILE... [--test N]... [--channel NAME]... [--interval D]\n"
    "                    [--scaling common|individual]\n"
    "                    (--list combined|side-by-side --format txt|csv|cor -o OUT [--no-header]\n"
    "                    | --plot combined|side-by-side (-o OUT.png|OUT.pdf | --layout) [--width W --height H]\n"
    "                      [--cover-sheet]\n"
    "                    | --batch -o DIR [--print-plots] [--print-lists] [--txt header|no-header]\n"
    "                      [--csv header|no-header] [--cor header|no-header] [--ecp psi|tsf|mpa|kpa]\n"
    "                      [--gin psi|tsf|mpa|kpa])\n";

enum class Use { kNone, kList, kPlot, kBatch };

struct SetOptions : GlobalOptions {
  std::vector<std::string> files;
  std::vector<int> tests;
  std::vector<std::string> channels;
  std::string interval;
  std::string scaling;
  Use use = Use::kNone;
  int uses = 0;
  SetView view = SetView::kCombined;
  std::string format;
  std::string out;
  bool no_header = false;
  bool layout = false;
  std::optional<int> width, height;
  bool cover_sheet = false;
  // The batch's steps, each set only when named.
  bool print_plots = false, print_lists = false;
  std::optional<bool> txt, csv, cor;
  std::optional<int> ecp, gin;
};

int WholeNumber(const std::string& text, int low, int high, const std::string& option) {
  int value = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  if (result.ec != std::errc() || result.ptr != text.data() + text.size() || value < low || value > high) {
    throw UsageError(option + " takes a whole number from " + std::to_string(low) + " to " + std::to_string(high));
  }
  return value;
}

SetView ViewOf(const std::string& text, const std::string& option) {
  if (text == "combined") return SetView::kCombined;
  if (text == "side-by-side") return SetView::kSideBySide;
  throw UsageError(option + " is combined or side-by-side");
}

bool HeaderWord(const std::string& text, const std::string& option) {
  if (text == "header") return true;
  if (text == "no-header") return false;
  throw UsageError(option + " is header or no-header");
}

// 1..4 in the batch window's order: PSI, TSF, MPA, KPA.
int PressureWord(const std::string& text, const std::string& option) {
  if (text == "psi") return 1;
  if (text == "tsf") return 2;
  if (text == "mpa") return 3;
  if (text == "kpa") return 4;
  throw UsageError(option + " is psi, tsf, mpa or kpa");
}

SetOptions Parse(const std::vector<std::string>& args) {
  SetOptions o;
  bool command_seen = false;
  for (size_t i = 0; i < args.size(); ++i) {
    const std::string& a = args[i];
    auto value = [&]() -> const std::string& { return OptionValue(args, i); };
    if (ParseGlobalOption(a, value, o)) continue;
    if (a == "--test") o.tests.push_back(WholeNumber(value(), 1, 1000, a));
    else if (a == "--channel") o.channels.push_back(value());
    else if (a == "--interval") o.interval = value();
    else if (a == "--scaling") {
      o.scaling = value();
      if (o.scaling != "common" && o.scaling != "individual") throw UsageError("--scaling is common or individual");
    } else if (a == "--list" || a == "--plot") {
      o.use = a == "--list" ? Use::kList : Use::kPlot;
      ++o.uses;
      o.view = ViewOf(value(), a);
    } else if (a == "--batch") {
      o.use = Use::kBatch;
      ++o.uses;
    } else if (a == "--format") o.format = value();
    else if (a == "-o") o.out = value();
    else if (a == "--no-header") o.no_header = true;
    else if (a == "--layout") o.layout = true;
    else if (a == "--width") o.width = WholeNumber(value(), 16, 20000, a);
    else if (a == "--height") o.height = WholeNumber(value(), 16, 20000, a);
    else if (a == "--cover-sheet") o.cover_sheet = true;
    else if (a == "--print-plots") o.print_plots = true;
    else if (a == "--print-lists") o.print_lists = true;
    else if (a == "--txt") o.txt = HeaderWord(value(), a);
    else if (a == "--csv") o.csv = HeaderWord(value(), a);
    else if (a == "--cor") o.cor = HeaderWord(value(), a);
    else if (a == "--ecp") o.ecp = PressureWord(value(), a);
    else if (a == "--gin") o.gin = PressureWord(value(), a);
    else if (a.starts_with("--")) throw UsageError("unknown option " + a);
    else if (!command_seen) command_seen = true;
    else o.files.push_back(a);
  }
  if (o.files.empty()) throw UsageError("set takes one FILE or more");
  if (o.uses != 1) throw UsageError("choose one of --list, --plot, --batch");
  for (int n : o.tests) {
    if (n > static_cast<int>(o.files.size())) throw UsageError("--test takes a number from 1 to the number of FILEs");
  }
  const bool list_only = !o.format.empty() || o.no_header;
  const bool plot_only = o.layout || o.width || o.height || o.cover_sheet;
  const bool batch_only = o.print_plots || o.print_lists || o.txt || o.csv || o.cor || o.ecp || o.gin;
  if ((list_only && o.use != Use::kList) || (plot_only && o.use != Use::kPlot) || (batch_only && o.use != Use::kBatch)) {
    throw UsageError("an option that goes with another use");
  }
  if (o.use == Use::kList) {
    if (o.format != "txt" && o.format != "csv" && o.format != "cor") throw UsageError("--list takes --format txt, csv or cor");
    if (o.out.empty()) throw UsageError("--list writes -o OUT");
  }
  if (o.use == Use::kPlot) {
    const bool image = EndsWithNoCase(o.out, ".png") || EndsWithNoCase(o.out, ".pdf");
    if (o.layout == !o.out.empty() || (!o.layout && !image)) throw UsageError("--plot writes -o OUT.png or OUT.pdf, or --layout");
  }
  if (o.use == Use::kBatch && o.out.empty()) throw UsageError("--batch writes -o DIR");
  return o;
}

// The text box's reading: blank or anything but a number is 0.
float IntervalEntry(const std::string& text) {
  return static_cast<float>(LenientNumber(text));
}

Json LayoutJson(const SetPlotLayout& layout) {
  Json legend = Json::array();
  for (const SetLegendEntry& e : layout.legend) {
    legend.push_back({{"number", e.number},
                      {"name", ToUtf8(e.name)},
                      {"maxDepth", FloatJson(static_cast<float>(e.max_depth))},
                      {"colour", {e.colour.r, e.colour.g, e.colour.b}}});
  }
  Json panels = Json::array();
  for (const SetPlotPanel& panel : layout.panels) {
    Json tests = Json::array();
    for (const SetPlotAxis& a : panel.tests) {
      Json test = {{"number", a.number}};
      test["min"] = a.present ? FloatJson(static_cast<float>(a.min)) : Json(nullptr);
      test["max"] = a.present ? FloatJson(static_cast<float>(a.max)) : Json(nullptr);
      if (layout.view == SetView::kSideBySide) test["caption"] = ToUtf8(a.caption);
      tests.push_back(test);
    }
    panels.push_back({{"channel", ToUtf8(panel.channel)}, {"unit", ToUtf8(panel.unit)}, {"tests", tests}});
  }
  Json j;
  j["mode"] = layout.view == SetView::kCombined ? "combined" : "side-by-side";
  j["title"] = layout.title;
  j["scaling"] = layout.common_scaling ? "common" : "individual";
  j["depthAxis"] = {{"label", layout.depth_label},
                    {"min", FloatJson(static_cast<float>(layout.depth_min))},
                    {"max", FloatJson(static_cast<float>(layout.depth_max))}};
  j["legend"] = legend;
  j["panels"] = panels;
  j["footnote"] = layout.footnote ? Json(ToUtf8(*layout.footnote)) : Json(nullptr);
  return j;
}

BatchSettings BatchFromOptions(const Session& session, const SetOptions& o) {
  BatchSettings b = ReadBatchSettings(session);
  const bool named = o.print_plots || o.print_lists || o.txt || o.csv || o.cor || o.ecp || o.gin;
  if (named) {
    b.PrintDepthPlots = o.print_plots;
    b.PrintList = o.print_lists;
    b.ListTxt = o.txt.has_value();
    if (o.txt) b.IncludeHeaderTxt = *o.txt;
    b.ListCsv = o.csv.has_value();
    if (o.csv) b.IncludeHeaderCsv = *o.csv;
    b.ListCor = o.cor.has_value();
    if (o.cor) b.IncludeHeaderCor = *o.cor;
    b.ListEcp = o.ecp.has_value();
    if (o.ecp) b.EcpUnit = *o.ecp;
    b.ListGin = o.gin.has_value();
    if (o.gin) b.GinUnit = *o.gin;
  }
  b.AutoFilenaming = true;
  return b;
}

// The batch's prints of the current sounding, as the plot and list windows print them.
bool PrintCurrent(Session& session, BatchPrint what, const std::vector<int>& channels, const std::string& path) {
  PdfPrintJob job(path, PaperSize::kLetter);
  PrintBatchPages(job, session, what, channels);
  return job.EndDoc();
}

int Run(Session& session, CliPrompts& prompts, const SetOptions& o, std::ostream& out, std::ostream& err) {
  // The load dialog opens in the folder of the last load and tells what of it is gone; the FILEs
  // name their own folders, and the file is left as it was.
  ReadLastDataDirectory(session, prompts, "/");
  if (LoadSetFiles(session, prompts, o.files, {o.water_table}) != SetLoadOutcome::kLoaded) return 1;
  if (!o.tests.empty()) {
    for (SetTest& test : session.set.tests) test.selected = false;
    for (int n : o.tests) session.set.tests[static_cast<size_t>(n - 1)].selected = true;
  }
  const std::vector<std::string> names = SetChannelNames(session);
  std::vector<std::string> channels;
  for (const std::string& name : o.channels) {
    if (std::find(names.begin(), names.end(), name) == names.end()) {
      err << "marlview-cli: no channel named '" << name << "'\n" << kSetUsage;
      return 2;
    }
    if (std::find(channels.begin(), channels.end(), name) != channels.end()) continue;
    if (!ToggleSetChannel(channels, name, prompts)) return 1;
  }
  session.set.CommonDepthInterval = IntervalEntry(o.interval);
  const bool preferences = FileExists(session.SettingsPath("Multiple Sounding Preferences.txt"));
  session.set.ScalingMode = o.scaling.empty() ? (preferences ? session.MultipleSoundingScaling : 1)
                                              : (o.scaling == "common" ? 1 : 0);
  try {
    if (o.use == Use::kList) {
      if (!CheckSetList(session, o.view, channels, prompts)) return 1;
      const CombinedForm form = o.format == "txt" ? CombinedForm::kTxt : o.format == "csv" ? CombinedForm::kCsv
                                                                                            : CombinedForm::kCor;
      const std::string path = WithExtension(o.out, CombinedExtension(form));
      if (FileExists(path) && prompts.Ask("File exists. Overwrite?", Buttons::kYesNo) != Answer::kYes) return 0;
      const std::string bytes = CombinedListExport(session, {channels, form, !o.no_header});
      InProcedure("ExportFile", [&] { WriteFileAtomically(path, bytes); });
      return 0;
    }
    if (o.use == Use::kPlot) {
      if (!CheckSetPlot(session, o.view, channels, prompts)) return 1;
      const SetPlotLayout layout = LayoutSetPlot(session, o.view, channels);
      if (o.layout) {
        out << LayoutJson(layout).dump() << '\n';
        return 0;
      }
      EnsureGuiApplication();
      if (EndsWithNoCase(o.out, ".png")) {
        const int width = o.width.value_or(1600), height = o.height.value_or(1200);
        ImageSurface image(width, height);
        DrawSetPlot(image, width, height, layout, session);
        if (!image.Save(o.out)) Fail(kErrPathAccess, "mnuSavePicture");
      } else {
        PdfPrintJob job(o.out, PaperSize::kLetter);
        PrintSetPlot(job, layout, session, o.cover_sheet);
        if (!job.EndDoc()) Fail(kErrPathAccess, "mnuPrint");
      }
      return 0;
    }
    const BatchSettings settings = BatchFromOptions(session, o);
    if (settings.PrintDepthPlots || settings.PrintList) EnsureGuiApplication();
    BatchRun run;
    run.directory = o.out;
    run.channels = channels;
    run.print = [&session](BatchPrint what, const std::vector<int>& chosen, const std::string& path) {
      return PrintCurrent(session, what, chosen, path);
    };
    RunBatchExport(session, prompts, settings, run);
    return 0;
  } catch (const RuntimeFailure& failure) {
    prompts.Tell(GeneralErrorText(failure));
    return 1;
  }
}

}  // namespace

int RunSet(const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
           const std::string& program_directory) {
  SetOptions options;
  try {
    options = Parse(args);
  } catch (const UsageError& error) {
    return TellUsage(err, error, kSetUsage);
  }
  CliPrompts prompts(options.answers, err);
  const std::unique_ptr<Session> started = StartCliSession(options, program_directory, prompts);
  Session& session = *started;
  if (options.feet) session.DepthUnitIsMetric = 0;
  return Run(session, prompts, options, out, err);
}

}  // namespace marlview
