// The sounding subcommands of marlview-cli.
#include "app/cli_commands.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <optional>

#include "app/cli_ags.h"
#include "app/cli_dissipation.h"
#include "app/cli_edit.h"
#include "app/cli_globals.h"
#include "app/cli_json.h"
#include "app/cli_prompts.h"
#include "app/cli_report.h"
#include "app/cli_seismic.h"
#include "app/cli_set.h"
#include "app/cli_settings.h"
#include "app/cli_verification.h"
#include "app/cli_video.h"
#include "core/common/file_access.h"
#include "core/common/number_read.h"
#include "core/common/runtime_failure.h"
#include "core/common/text_rules.h"
#include "core/derivation/derived_channels.h"
#include "core/presentation/ecp_list.h"
#include "core/presentation/sounding_exports.h"
#include "core/presentation/sounding_plot.h"
#include "core/session/session.h"
#include "core/shell/shell_controller.h"
#include "render/image_surface.h"
#include "render/pdf_print_job.h"

namespace marlview {
namespace {



constexpr const char* kUsage =
    "usage: marlview-cli [--data-dir DIR] [--feet] [--water-table D] [--start-depth-unit m|ft]\n"
    "                    [--spikes remove|keep] [--munsell import|skip] [--tip-area MM2] [--yes] [--sbtn]\n"
    "                    [--gef-depth length|corrected]\n"
    "                    info FILE\n"
    "                    channels FILE [--kind K | --mirror M | --unaligned | --raw]\n"
    "                    export FILE --format txt|csv|cor|ecp|gin -o OUT [--channel NAME]... [--no-header]\n"
    "                           [--unit psi|tsf|kpa|mpa] [--elevation] [--unadjusted]\n"
    "                    export FILE --format ags -o OUT [--ags-version V] [--with-dissipation DFILE[:TEST]]...\n"
    "                           [--with-seismic SFILE] [--ir IR] [--cone-area CM2]\n"
    "                    plot FILE -o OUT.png|OUT.pdf [--channel NAME]... [--width W --height H] [--grid]\n"
    "                         [--elevation]\n"
    "                    dissipation FILE [--test N --t50 --u0 U0 --u100 U100]\n"
    "                    dissipation FILE --test N --ch [--u0 U0 --u100 U100] [--ir IR] [--cone-area CM2]\n"
    "                                [--filter u1|u2] [--root-time]\n"
    "                    dissipation FILE --plot -o OUT.png|OUT.pdf [--test N]... [--mode pressure|percent-max|\n"
    "                                percent-head] [--time linear|log|sqrt]\n"
    "                    dissipation FILE --test N --csv|--txt -o OUT [--percent-max] [--percent-head]\n"
    "                    dissipation FILE --export txt|csv|txt-each|csv-each -o OUT\n"
    "                    dissipation FILE.DIS [--set TEST:ROW:COLUMN:VALUE] [--pressure-unit NAME]\n"
    "                      [--depth TEST:DEPTH] [--adjust-depths TOTAL:OBSERVED] [--delete-test TEST]\n"
    "                      [--append FILE2:OFFSET] [--header NAME=VALUE]... [-o OUT | any output above]\n"
    "                    edit FILE [OPERATION]... (-o OUT [--dat-compatible] | --channels [--kind K])\n"
    "                    seismic FILE [OPERATION]... [--waves | --velocities | --xcorr [--xcorr-kind A|B|P]\n"
    "                            [--xcorr-skip MS]]\n"
    "                    verification FILE [--table | --chart [-o OUT.png] | --report -o OUT.pdf]\n"
    "                                 [--channel C | --all]\n"
    "                    settings show | settings set KEY=VALUE...\n"
    "                    template save|select|delete NAME ... | template apply FILE [NAME]\n"
    "                    report FILE -o OUT.pdf [--pages plot|list|both] [--channel NAME]...\n"
    "                    chart FILE (-o OUT.png|OUT.pdf [--width W --height H] | --points)\n"
    "                    video VIDEO TIMEFILE [SETTING]... [POSITION] [ACTION]\n"
    "                    set FILE... (--list MODE ... | --plot MODE ... | --batch -o DIR ...)\n";

struct Options : GlobalOptions {
  std::vector<std::string> positional;
  std::optional<int> kind;
  std::optional<int> mirror;
  bool unaligned = false;
  bool raw = false;
  std::string out;
  std::vector<std::string> channel_names;
  std::optional<int> width, height;
  bool grid = false;
  bool elevation = false;
  std::string format;
  bool no_header = false;
  std::string unit;
  bool unadjusted = false;
  DissipationOptions dissipation;
  AgsCliOptions ags;
};


int ToInt(const std::string& text, int low, int high, const std::string& option) {
  int value = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  if (result.ec != std::errc() || result.ptr != text.data() + text.size() || value < low || value > high) {
    throw UsageError(option + " takes a whole number from " + std::to_string(low) + " to " + std::to_string(high));
  }
  return value;
}

Options Parse(const std::vector<std::string>& args) {
  Options o;
  for (size_t i = 0; i < args.size(); ++i) {
    const std::string& a = args[i];
    auto value = [&]() -> const std::string& { return OptionValue(args, i); };
    if (ParseGlobalOption(a, value, o)) continue;
    if (a == "--kind") o.kind = ToInt(value(), 0, kOutputKinds - 1, a);
    else if (a == "--mirror") o.mirror = ToInt(value(), 0, kFixedPressureTables - 1, a);
    else if (a == "--unaligned") o.unaligned = true;
    else if (a == "--raw") o.raw = true;
    else if (a == "-o") o.out = value();
    else if (a == "--channel") o.channel_names.push_back(value());
    else if (a == "--width") o.width = ToInt(value(), 16, 20000, a);
    else if (a == "--height") o.height = ToInt(value(), 16, 20000, a);
    else if (a == "--grid") o.grid = true;
    else if (a == "--format") o.format = value();
    else if (a == "--no-header") o.no_header = true;
    else if (a == "--unit") o.unit = value();
    else if (a == "--unadjusted") o.unadjusted = true;
    else if (a == "--elevation") o.elevation = true;
    // The dissipation subcommand has options of the same names for its own ch.
    else if ((o.positional.empty() || o.positional[0] != "dissipation") && ParseAgsOption(a, value, o.ags)) continue;
    else if (ParseDissipationOption(a, value, o.dissipation)) continue;
    else if (a.starts_with("--")) throw UsageError("unknown option " + a);
    else o.positional.push_back(a);
  }
  return o;
}


Json OptionalJson(const std::optional<double>& value) { return value ? Json(*value) : Json(nullptr); }

// What the GEF file declares besides the channels: its depth column, the cone's ratio, the
// dissipations taken in the push, how each column was read, and every header key.
Json GefJson(const SoundingStore& s) {
  Json gef;
  gef["depthColumn"] = s.GefDepthColumn;
  gef["depthQuantity"] = s.GefDepthQuantity;
  gef["netAreaRatio"] = OptionalJson(s.GefNetAreaRatio);
  gef["preDrilledDepth"] = OptionalJson(s.GefPreDrilledDepth);
  Json children = Json::array();
  for (const GefChild& child : s.GefChildren) {
    children.push_back({{"file", ToUtf8(child.file)}, {"depth", OptionalJson(child.depth)}});
  }
  gef["children"] = children;
  Json columns = Json::array();
  for (const GefColumnRecord& column : s.GefColumns) {
    columns.push_back({{"column", column.column},
                       {"quantity", column.quantity},
                       {"unit", ToUtf8(column.unit)},
                       {"name", ToUtf8(column.name)},
                       {"void", OptionalJson(column.void_value)},
                       {"channel", column.channel},
                       {"missingCount", column.missing_count}});
  }
  gef["columns"] = columns;
  // A key given on several lines (#COMMENT, #MEASUREMENTTEXT) keeps each value, one a line.
  Json keys = Json::object();
  for (const auto& [key, value] : s.GefHeader) {
    const std::string text = ToUtf8(value);
    if (keys.contains(key)) {
      keys[key] = keys[key].get<std::string>() + "\n" + text;
    } else {
      keys[key] = text;
    }
  }
  gef["keys"] = keys;
  return gef;
}

Json InfoJson(const SoundingStore& s) {
  Json info;
  info["file"] = ToUtf8(s.SoundingFileName);
  info["family"] = s.AcquisitionFamily;
  info["readingCount"] = s.ReadingCount;
  info["channelCount"] = s.ChannelCount;
  info["totalChannels"] = s.TotalChannels;
  info["startDepth"] = FloatJson(s.StartDepth);
  info["waterTableDepth"] = FloatJson(s.WaterTableDepth);
  info["maxDepth"] = FloatJson(s.MaxDepth);
  info["depthInterval"] = FloatJson(s.DepthInterval);
  info["ballTip"] = s.BallTip;
  info["ballDiameter"] = FloatJson(s.BallDiameter);
  info["drilloutDepth"] = s.DrilloutFlag == 1 ? FloatJson(s.DrilloutDepth) : Json(nullptr);
  info["endBaselinePresent"] = s.EndBaselinePresent;
  Json header = Json::object();
  for (const HeaderField& field : HeaderFields(s, s, s.AcquisitionFamily)) header[field.name] = ToUtf8(*field.value);
  info["header"] = header;
  Json channels = Json::array();
  for (int c = 1; c <= s.TotalChannels; ++c) {
    Json units = Json::array();
    for (int k = 0; k < kOutputKinds; ++k) units.push_back(ToUtf8(s.ChannelUnitLabel[c][k]));
    channels.push_back({{"number", c},
                        {"name", ToUtf8(s.ChannelName[c])},
                        {"shortName", ToUtf8(s.ChannelShortName[c])},
                        {"catalogueId", s.ChannelCatalogueId[c]},
                        {"group", s.ChannelUnitGroup[c]},
                        {"units", units},
                        {"offset", FloatJson(s.ChannelOffset[c])},
                        {"curveStyle", s.ChannelCurveStyle[c]}});
  }
  info["channels"] = channels;
  Json roles = Json::object();
  for (const RoleField& role : RoleFields()) {
    const int16_t channel = s.*(role.member);
    if (channel != 0) roles[role.name] = channel;
  }
  info["roles"] = roles;
  if (s.AcquisitionFamily == kGefFamily) info["gef"] = GefJson(s);
  return info;
}


// Writes the list's export files for the chosen channels.
int RunExport(Session& session, ShellController& controller, CliPrompts& prompts, const Options& options,
              std::ostream& err) {
  if (options.format == "ags") return RunAgsExport(session, prompts, options.ags, options.out, err, kUsage);
  if (!ChooseChannels(controller, options.channel_names, 30, err, kUsage)) return 2;
  // As the list's save: an existing file is kept unless the question is answered Yes (--yes).
  if (FileExists(options.out) && prompts.Ask("File exists. Overwrite?", Buttons::kYesNo) != Answer::kYes) return 0;
  ExportOptions exported;
  exported.channels = controller.SelectedChannels();
  exported.include_header = !options.no_header;
  exported.raw = options.unadjusted;
  exported.elevation = options.elevation;
  exported.depth_unit = options.feet ? 2 : 1;
  try {
    std::string bytes;
    if (options.format == "txt") {
      bytes = TxtExport(session, exported);
    } else if (options.format == "gin") {
      const GinUnit unit = options.unit == "tsf" ? GinUnit::kTsf : options.unit == "kpa" ? GinUnit::kKpa
                           : options.unit == "mpa" ? GinUnit::kMpa : GinUnit::kPsi;
      bytes = GinExport(session, unit);
    } else if (options.format == "ecp") {
      // The ECP window's columns: the selection in its own order.
      EcpView view;
      view.unit = options.unit == "tsf" ? kEcpTsf : options.unit == "kpa" ? kEcpKpa
                  : options.unit == "mpa" ? kEcpMpa : kEcpPsi;
      view.selection = exported.channels;
      ChooseEcpColumns(session, view);
      bytes = EcpExport(session, view);
    } else {
      bytes = CsvExport(session, exported, options.format);
    }
    InProcedure("ExportFile", [&] { WriteFileAtomically(options.out, bytes); });
  } catch (const RuntimeFailure& failure) {
    prompts.Tell(GeneralErrorText(failure));
    return 1;
  }
  return prompts.ErrorShown() ? 1 : 0;
}

// Chooses the channels as the main window's lists do, with the plot button's checks, and draws
// the plot window's picture into a PNG or its printed page into a PDF.
int RunPlot(Session& session, ShellController& controller, CliPrompts& prompts, const Options& options,
            std::ostream& err) {
  if (!ChooseChannels(controller, options.channel_names, kMaxPlotColumns, err, kUsage)) return 2;
  // A refused selection has been told; nothing is drawn.
  if (!controller.PlotSounding()) return 1;
  EnsureGuiApplication();
  PlotState plot;
  SetupPlot(plot, session, controller.SelectedChannels(), controller.SbtChartChoice());
  plot.GridOn = options.grid;
  plot.ElevationMode = options.elevation;
  try {
    if (EndsWithNoCase(options.out, ".png")) {
      const int width = options.width.value_or(1600), height = options.height.value_or(1200);
      ImageSurface image(width, height);
      GraphData(image, width, height, plot, session);
      if (!image.Save(options.out)) Fail(kErrPathAccess, "mnuSavePicture");
    } else {
      PdfPrintJob job(options.out, PaperSize::kLetter);
      DrawingSurface& page = job.NewPage();
      GraphData(page, job.PageWidthPoints(), job.PageHeightPoints(), plot, session);
      if (!job.EndDoc()) Fail(kErrPathAccess, "mnuPrint");
    }
  } catch (const RuntimeFailure& failure) {
    prompts.Tell(GeneralErrorText(failure));
    return 1;
  }
  return prompts.ErrorShown() ? 1 : 0;
}

}  // namespace

bool ChooseChannels(ShellController& controller, const std::vector<std::string>& names, size_t limit,
                    std::ostream& err, std::string_view usage) {
  const auto& rows = controller.View().available_rows;
  if (names.empty()) {
    for (size_t row = 0; row < rows.size() && row < limit; ++row) controller.ClickAvailableChannel(static_cast<int>(row));
    return true;
  }
  for (const std::string& name : names) {
    const auto found = std::find(rows.begin(), rows.end(), name);
    if (found == rows.end()) {
      err << "marlview-cli: no channel named '" << name << "'\n" << usage;
      return false;
    }
    controller.ClickAvailableChannel(static_cast<int>(found - rows.begin()));
  }
  return true;
}

// The table is built in one text, a number at a time, and written at once.
void WriteChannelsCsv(const SoundingStore& s, const ChannelTableView& o, std::ostream& out) {
  std::string table = o.feet ? "Depth (ft)" : "Depth (m)";
  for (int c = 1; c <= s.TotalChannels; ++c) table += ',' + CsvField(ToUtf8(s.ChannelName[c]));
  table += '\n';
  const int kind = o.kind.value_or(kGraphOutput);
  const bool px_das = s.AcquisitionFamily == kPxDasFamily;
  for (int r = 1; r <= s.ReadingCount; ++r) {
    AppendShortestText(table, s.DepthTable(r, o.feet ? 2 : 1));
    for (int c = 1; c <= s.TotalChannels; ++c) {
      float value;
      if (o.raw) {
        value = px_das ? (c <= kMaxCptRawChannels ? s.CptRawReadings(r, c) : 0.0f)
                       : s.RawReadings(r, c);
      } else if (o.mirror) {
        value = s.AlignedFixedPressure[*o.mirror](r, c);
      } else if (o.unaligned) {
        value = s.ChannelReadings(r, KindColumn(c, kind));
      } else {
        value = s.AlignedReadings(r, KindColumn(c, kind));
      }
      table += ',';
      // A reading the file did not give is an empty cell; the raw view gives the void as written.
      if (!o.raw && c <= s.ChannelCount && s.IsMissing(r, c)) continue;
      AppendShortestText(table, value);
    }
    table += '\n';
  }
  out.write(table.data(), static_cast<std::streamsize>(table.size()));
}

int RunCli(const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
           const std::string& program_directory) {
  if (IsSubcommand(args, "seismic")) return RunSeismic(args, out, err, program_directory);
  if (IsSubcommand(args, "edit")) return RunEdit(args, out, err, program_directory);
  if (IsSubcommand(args, "verification")) return RunVerification(args, out, err, program_directory);
  if (IsSubcommand(args, "settings")) return RunSettings(args, out, err, program_directory);
  if (IsSubcommand(args, "template")) return RunTemplate(args, out, err, program_directory);
  if (IsSubcommand(args, "report")) return RunReport(args, out, err, program_directory);
  if (IsSubcommand(args, "chart")) return RunChart(args, out, err, program_directory);
  if (IsSubcommand(args, "video")) return RunVideo(args, out, err, program_directory);
  if (IsSubcommand(args, "set")) return RunSet(args, out, err, program_directory);
  Options options;
  try {
    options = Parse(args);
    if (options.positional.empty()) throw UsageError("a subcommand is needed");
    const std::string& command = options.positional[0];
    if (command != "info" && command != "channels" && command != "plot" && command != "export" &&
        command != "dissipation") {
      throw UsageError("unknown subcommand '" + command + "'");
    }
    if (options.positional.size() != 2) throw UsageError(command + " takes one FILE");
    if (command != "dissipation" && AnyDissipationOption(options.dissipation)) {
      throw UsageError(command + " takes no dissipation options");
    }
    if (command == "dissipation") {
      const bool sounding_options = options.kind || options.mirror || options.unaligned || options.raw ||
                                    !options.channel_names.empty() || options.width || options.height ||
                                    options.grid || options.elevation || !options.format.empty() ||
                                    options.no_header || !options.unit.empty() || options.unadjusted;
      if (sounding_options) throw UsageError("dissipation takes none of the sounding options");
      if (const std::string error = DissipationUsageError(options.dissipation, options.out, options.positional[1]); !error.empty()) {
        throw UsageError(error);
      }
    }
    const int modes = (options.kind ? 1 : 0) + (options.mirror ? 1 : 0) + (options.unaligned ? 1 : 0) + (options.raw ? 1 : 0);
    if (command != "channels" && modes > 0) throw UsageError(command + " takes no table options");
    const bool plot_options = options.width || options.height || options.grid;
    if (command != "plot" && plot_options) throw UsageError(command + " takes no plot options");
    const bool export_options = !options.format.empty() || options.no_header || !options.unit.empty() ||
                                options.unadjusted || options.ags.Any();
    if (command != "export" && export_options) throw UsageError(command + " takes no export options");
    if ((command == "info" || command == "channels") &&
        (!options.out.empty() || !options.channel_names.empty() || options.elevation)) {
      throw UsageError(command + " takes no -o, --channel or --elevation");
    }
    if (command == "export") {
      if (options.format != "txt" && options.format != "csv" && options.format != "cor" && options.format != "gin" &&
          options.format != "ecp" && options.format != "ags") {
        throw UsageError("export takes --format txt, csv, cor, ecp, gin or ags");
      }
      if (options.format == "ags") {
        if (!options.channel_names.empty() || !options.unit.empty() || options.no_header) {
          throw UsageError("--channel, --unit and --no-header do not apply to --format ags");
        }
        if (const std::string error = AgsUsageError(options.ags); !error.empty()) throw UsageError(error);
      } else if (options.ags.Any()) {
        throw UsageError("--ags-version, --with-dissipation, --with-seismic, --ir and --cone-area are for --format ags");
      }
      if (options.out.empty()) throw UsageError("export writes -o OUT");
      if (!options.unit.empty() && options.unit != "psi" && options.unit != "tsf" && options.unit != "kpa" &&
          options.unit != "mpa") {
        throw UsageError("--unit is psi, tsf, kpa or mpa");
      }
    }
    if (command == "plot" && !EndsWithNoCase(options.out, ".png") && !EndsWithNoCase(options.out, ".pdf")) {
      throw UsageError("plot writes -o OUT.png or OUT.pdf");
    }
    if (modes > 1 && !(options.unaligned && options.kind && modes == 2)) {
      throw UsageError("choose one of --kind, --mirror, --unaligned, --raw");
    }
  } catch (const UsageError& error) {
    return TellUsage(err, error, kUsage);
  }

  options.answers.file = options.positional[1];
  CliPrompts prompts(options.answers, err);
  const std::unique_ptr<Session> started = StartCliSession(options, program_directory, prompts);
  Session& session = *started;
  if (options.feet) session.DepthUnitIsMetric = 0;
  ShellController controller(session, prompts);
  if (options.positional[0] == "dissipation") {
    if (options.dissipation.plot) EnsureGuiApplication();
    try {
      return RunDissipation(session, controller, prompts, options.dissipation, options.water_table, options.out,
                            out);
    } catch (const UsageError& error) {
      // An editor operation that does not fit the file: nothing has been written.
      return TellUsage(err, error, kUsage);
    }
  }
  controller.ChooseMode(ProcessingMode::kSounding);
  if (!session.SoundingOpen) return 1;
  SoundingStore& s = session.Sounding();
  if (options.water_table) {
    s.WaterTableDepth = static_cast<float>(*options.water_table);
    try {
      ComputeDerivedChannels(session, s.ChannelCount);
    } catch (const RuntimeFailure& failure) {
      prompts.Tell(GeneralErrorText(failure));
      return 1;
    }
  }
  if (options.positional[0] == "plot") return RunPlot(session, controller, prompts, options, err);
  if (options.positional[0] == "export") return RunExport(session, controller, prompts, options, err);
  if (options.positional[0] == "info") {
    out << InfoJson(s).dump(2) << '\n';
  } else {
    WriteChannelsCsv(s, {options.feet, options.kind, options.mirror, options.unaligned, options.raw}, out);
  }
  return prompts.ErrorShown() ? 1 : 0;
}

}  // namespace marlview
