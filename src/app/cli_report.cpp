// marlview-cli report and chart: the sounding opened as the main window opens it, then printed or
// charted as its windows do.
#include "app/cli_report.h"

#include <charconv>
#include <optional>

#include "app/cli_commands.h"
#include "app/cli_globals.h"
#include "app/cli_json.h"
#include "app/cli_prompts.h"
#include "core/common/number_read.h"
#include "core/common/runtime_failure.h"
#include "core/common/text_rules.h"
#include "core/derivation/derived_channels.h"
#include "core/presentation/classification_chart.h"
#include "core/presentation/sounding_list.h"
#include "core/presentation/sounding_plot.h"
#include "core/presentation/sounding_report.h"
#include "core/session/session.h"
#include "core/shell/shell_controller.h"
#include "core/shell/startup.h"
#include "render/image_surface.h"
#include "render/pdf_print_job.h"

namespace marlview {
namespace {

constexpr const char* kReportUsage =
    "usage: marlview-cli [global options] report FILE -o OUT.pdf [--pages plot|list|both] [--channel NAME]...\n";
constexpr const char* kChartUsage =
    "usage: marlview-cli [global options] chart FILE (-o OUT.png|OUT.pdf [--width W --height H] | --points)\n";
constexpr int kChartPictureSize = 1200;

struct ReportOptions : GlobalOptions {
  std::string file;
  std::string out;
  std::string pages = "both";
  std::vector<std::string> channel_names;
};

ReportOptions ParseReport(const std::vector<std::string>& args) {
  ReportOptions o;
  bool command_seen = false;
  for (size_t i = 0; i < args.size(); ++i) {
    const std::string& a = args[i];
    auto value = [&]() -> const std::string& { return OptionValue(args, i); };
    if (ParseGlobalOption(a, value, o)) continue;
    if (a == "-o") o.out = value();
    else if (a == "--pages") o.pages = value();
    else if (a == "--channel") o.channel_names.push_back(value());
    else if (a.starts_with("-")) throw UsageError("unknown option " + a);
    else if (!command_seen) command_seen = true;
    else if (o.file.empty()) o.file = a;
    else throw UsageError("report takes one FILE");
  }
  if (o.file.empty()) throw UsageError("report takes one FILE");
  if (!EndsWithNoCase(o.out, ".pdf")) throw UsageError("report writes -o OUT.pdf");
  if (o.pages != "plot" && o.pages != "list" && o.pages != "both") throw UsageError("--pages is plot, list or both");
  return o;
}

struct ChartOptions : GlobalOptions {
  std::string file;
  std::string out;
  std::optional<int> width, height;
  bool points = false;
};

int PictureSide(const std::string& text, const std::string& option) {
  int value = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  if (result.ec != std::errc() || result.ptr != text.data() + text.size() || value < 16 || value > 20000) {
    throw UsageError(option + " takes a whole number from 16 to 20000");
  }
  return value;
}

ChartOptions ParseChart(const std::vector<std::string>& args) {
  ChartOptions o;
  bool command_seen = false;
  for (size_t i = 0; i < args.size(); ++i) {
    const std::string& a = args[i];
    auto value = [&]() -> const std::string& { return OptionValue(args, i); };
    if (ParseGlobalOption(a, value, o)) continue;
    if (a == "-o") o.out = value();
    else if (a == "--width") o.width = PictureSide(value(), a);
    else if (a == "--height") o.height = PictureSide(value(), a);
    else if (a == "--points") o.points = true;
    else if (a.starts_with("-")) throw UsageError("unknown option " + a);
    else if (!command_seen) command_seen = true;
    else if (o.file.empty()) o.file = a;
    else throw UsageError("chart takes one FILE");
  }
  if (o.file.empty()) throw UsageError("chart takes one FILE");
  if (o.points == !o.out.empty()) throw UsageError("chart writes -o OUT or prints --points");
  if (o.points && (o.width || o.height)) throw UsageError("--points takes no --width or --height");
  if (!o.out.empty() && !EndsWithNoCase(o.out, ".png") && !EndsWithNoCase(o.out, ".pdf")) {
    throw UsageError("chart writes -o OUT.png or OUT.pdf");
  }
  return o;
}

// Null for a place the chart does not draw.
Json PlaceJson(const std::optional<ChartPlace>& place, double ChartPlace::*member) {
  return place ? Json(place.value().*member) : Json(nullptr);
}

Json ChartPointsJson(const Session& session, int depth_unit) {
  const ChartData& chart = session.chart;
  Json zones = Json::array();
  for (const ChartZoneLabel& label : ZoneLabelPlaces(chart)) {
    zones.push_back({{"zone", label.zone}, {"x", PlaceJson(label.place, &ChartPlace::x)},
                     {"y", PlaceJson(label.place, &ChartPlace::y)}});
  }
  Json points = Json::array();
  for (int r = 1; r <= session.Sounding().ReadingCount; ++r) {
    const ChartPoint point = ChartPointOf(session, r, depth_unit);
    // The depth and the friction ratio are the stored single-precision numbers.
    points.push_back({{"row", r},
                      {"depth", std::stod(ShortestText(static_cast<float>(point.depth)))},
                      {"frictionRatio", std::stod(ShortestText(static_cast<float>(point.friction_ratio)))},
                      {"tip", point.tip_bar},
                      {"x", PlaceJson(point.place, &ChartPlace::x)},
                      {"y", PlaceJson(point.place, &ChartPlace::y)},
                      {"zone", point.zone}});
  }
  Json result;
  result["reference"] = ToUtf8(chart.Reference);
  result["columnLimit"] = chart.ColumnLimit();
  result["depthUnit"] = depth_unit == 1 ? "m" : "ft";
  result["zones"] = zones;
  result["points"] = points;
  return result;
}

// The session of a subcommand: started as the main window starts, with the sounding of the
// command line opened as its open button does. Nothing when the file could not be opened.
struct OpenedSounding {
  OpenedSounding(const GlobalOptions& options, const std::string& file, std::ostream& err,
                 const std::string& program_directory)
      : prompts(WithFile(options.answers, file), err),
        session({ResolveDataDirectory(options.data_dir), ResolveDefaultsDirectory(program_directory)}) {
    RunStartup(session, prompts);
    ApplyGlobalSettings(session, options);
    if (options.feet) session.DepthUnitIsMetric = 0;
    controller.emplace(session, prompts);
    controller->ChooseMode(ProcessingMode::kSounding);
    if (session.SoundingOpen && options.water_table) {
      session.Sounding().WaterTableDepth = static_cast<float>(*options.water_table);
      ComputeDerivedChannels(session, session.Sounding().ChannelCount);
    }
  }
  static CliAnswers WithFile(CliAnswers answers, const std::string& file) {
    answers.file = file;
    return answers;
  }

  CliPrompts prompts;
  Session session;
  std::optional<ShellController> controller;
};

}  // namespace

int RunReport(const std::vector<std::string>& args, std::ostream&, std::ostream& err,
              const std::string& program_directory) {
  ReportOptions options;
  try {
    options = ParseReport(args);
  } catch (const UsageError& error) {
    return TellUsage(err, error, kReportUsage);
  }
  try {
    OpenedSounding opened(options, options.file, err, program_directory);
    Session& session = opened.session;
    ShellController& controller = *opened.controller;
    if (!session.SoundingOpen) return 1;
    const bool plot_page = options.pages != "list", list_pages = options.pages != "plot";
    // Each page kind takes the selection as its window would, and refuses it with its message.
    PlotState plot;
    if (plot_page) {
      if (!ChooseChannels(controller, options.channel_names, kMaxPlotColumns, err, kReportUsage)) return 2;
      if (!controller.PlotSounding()) return 1;
      SetupPlot(plot, session, controller.SelectedChannels(), controller.SbtChartChoice());
    }
    ListView view;
    if (list_pages) {
      controller.ClearSelection();
      if (!ChooseChannels(controller, options.channel_names, kMaxListColumns, err, kReportUsage)) return 2;
      if (!controller.ListSounding()) return 1;
      view.channels = controller.SelectedChannels();
      view.depth_unit = session.DepthUnitIsMetric == 1 ? 1 : 2;
    }
    EnsureGuiApplication();
    PdfPrintJob job(options.out, PaperSize::kLetter);
    if (plot_page) PrintSounding(job, plot, session);
    if (list_pages) PrintList(job, session, view);
    if (!job.EndDoc()) Fail(kErrPathAccess, "PrintSounding");
    return opened.prompts.ErrorShown() ? 1 : 0;
  } catch (const RuntimeFailure& failure) {
    CliPrompts(CliAnswers{}, err).Tell(GeneralErrorText(failure));
    return 1;
  }
}

int RunChart(const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
             const std::string& program_directory) {
  ChartOptions options;
  try {
    options = ParseChart(args);
  } catch (const UsageError& error) {
    return TellUsage(err, error, kChartUsage);
  }
  try {
    OpenedSounding opened(options, options.file, err, program_directory);
    Session& session = opened.session;
    if (!session.SoundingOpen) return 1;
    ChartView view;
    view.depth_unit = session.DepthUnitIsMetric == 1 ? 1 : 2;
    if (options.points) {
      out << ChartPointsJson(session, view.depth_unit).dump(2) << '\n';
      return opened.prompts.ErrorShown() ? 1 : 0;
    }
    EnsureGuiApplication();
    if (EndsWithNoCase(options.out, ".png")) {
      const int width = options.width.value_or(kChartPictureSize), height = options.height.value_or(kChartPictureSize);
      ImageSurface image(width, height);
      DrawClassificationChart(image, width, height, session, view);
      if (!image.Save(options.out)) Fail(kErrPathAccess, "Form_Paint");
    } else {
      PdfPrintJob job(options.out, PaperSize::kLetter);
      PrintChart(job, session, view);
      if (!job.EndDoc()) Fail(kErrPathAccess, "PrintChart");
    }
    return opened.prompts.ErrorShown() ? 1 : 0;
  } catch (const RuntimeFailure& failure) {
    CliPrompts(CliAnswers{}, err).Tell(GeneralErrorText(failure));
    return 1;
  }
}

}  // namespace marlview
