// marlview-cli verification: opens the file as the verification window does and prints what the
// window shows, draws its graph or prints its pages.
#include "app/cli_verification.h"

#include <optional>

#include "app/cli_globals.h"
#include "app/cli_json.h"
#include "app/cli_prompts.h"
#include "core/common/file_access.h"
#include "core/common/runtime_failure.h"
#include "core/common/text_rules.h"
#include "core/session/session.h"
#include "core/verification/verification.h"
#include "render/image_surface.h"
#include "render/pdf_print_job.h"

namespace marlview {
namespace {

constexpr const char* kVerificationUsage =
    "usage: marlview-cli [global options] verification FILE [--table | --chart [-o OUT.png] | --report -o OUT.pdf]\n"
    "                    [--channel C | --all]\n";
constexpr int kChartWidth = 800, kChartHeight = 600;

enum class Output { kView, kTable, kChart, kReport };

struct VerificationOptions : GlobalOptions {
  std::string file;
  Output output = Output::kView;
  std::optional<int> channel;
  bool all = false;
  std::string out;
};

VerificationOptions Parse(const std::vector<std::string>& args) {
  VerificationOptions o;
  bool command_seen = false;
  int outputs = 0;
  for (size_t i = 0; i < args.size(); ++i) {
    const std::string& a = args[i];
    auto value = [&]() -> const std::string& { return OptionValue(args, i); };
    if (ParseGlobalOption(a, value, o)) continue;
    if (a == "--table" || a == "--chart" || a == "--report") {
      o.output = a == "--table" ? Output::kTable : a == "--chart" ? Output::kChart : Output::kReport;
      ++outputs;
    } else if (a == "--channel") {
      const std::string& text = value();
      if (text != "1" && text != "2" && text != "3") throw UsageError("--channel is 1, 2 or 3");
      o.channel = text[0] - '0';
    } else if (a == "--all") {
      o.all = true;
    } else if (a == "-o") {
      o.out = value();
    } else if (a.starts_with("--")) {
      throw UsageError("unknown option " + a);
    } else if (!command_seen) {
      command_seen = true;
    } else if (o.file.empty()) {
      o.file = a;
    } else {
      throw UsageError("verification takes one FILE");
    }
  }
  if (o.file.empty()) throw UsageError("verification takes one FILE");
  if (!FileExists(o.file)) throw UsageError("no file '" + o.file + "'");
  if (outputs > 1) throw UsageError("choose one of --table, --chart, --report");
  if (o.channel && o.all) throw UsageError("choose --channel C or --all");
  if (o.all && o.output != Output::kReport && o.output != Output::kTable) {
    throw UsageError("--all goes with --report or --table");
  }
  if (o.output == Output::kReport && !EndsWithNoCase(o.out, ".pdf")) throw UsageError("--report writes -o OUT.pdf");
  if (o.output == Output::kChart && !o.out.empty() && !EndsWithNoCase(o.out, ".png")) {
    throw UsageError("--chart writes -o OUT.png");
  }
  if (!o.out.empty() && o.output != Output::kReport && o.output != Output::kChart) {
    throw UsageError("-o goes with --chart or --report");
  }
  return o;
}

Json ViewJson(const VerificationRecord& r) {
  Json view;
  view["file"] = ToUtf8(r.FileName);
  view["family"] = r.Family;
  const std::pair<const char*, const std::string*> texts[] = {
      {"ConeId", &r.ConeId},
      {"TestDate", &r.TestDate},
      {"OperatorName", &r.OperatorName},
      {"CellManufacturer", &r.CellManufacturer},
      {"CellSerialNumber", &r.CellSerialNumber},
      {"CellCapacity", &r.CellCapacity},
      {"CellSensitivity", &r.CellSensitivity},
      {"TransducerManufacturer", &r.TransducerManufacturer},
      {"TransducerSerialNumber", &r.TransducerSerialNumber},
      {"TransducerCapacity", &r.TransducerCapacity},
      {"TransducerSensitivity", &r.TransducerSensitivity}};
  for (const auto& [name, text] : texts) view[name] = ToUtf8(*text);
  Json channels = Json::array();
  for (int c = 1; c <= kVerificationChannels; ++c) {
    const VerificationChannel& ch = r.Channel[static_cast<size_t>(c)];
    Json a = Json::array(), b = Json::array(), rows = Json::array();
    for (float v : ch.ChannelCoefficientsA) a.push_back(FloatJson(v));
    for (float v : ch.ChannelCoefficientsB) b.push_back(FloatJson(v));
    for (int n = 1; n <= ch.RowCount; ++n) {
      const auto i = static_cast<size_t>(n);
      rows.push_back({{"appliedLoad", FloatJson(ch.RowAppliedLoad[i])},
                      {"applied", FloatJson(ch.RowApplied[i])},
                      {"measuredLoad", FloatJson(ch.RowMeasuredLoad[i])},
                      {"measured", FloatJson(ch.RowMeasured[i])},
                      {"deviation", FloatJson(ch.RowDeviation[i])}});
    }
    channels.push_back({{"channel", c},
                        {"title", ToUtf8(ch.ChannelTitle)},
                        {"units", ToUtf8(ch.ChannelUnits)},
                        {"coefficientsA", a},
                        {"coefficientsB", b},
                        {"range", FloatJson(ch.ChannelRange)},
                        {"offset", FloatJson(ch.ChannelOffset)},
                        {"scale", FloatJson(ch.ChannelScale)},
                        {"rowCount", ch.RowCount},
                        {"rows", rows}});
  }
  view["channels"] = channels;
  return view;
}

Json AxisJson(const VerificationAxis& axis) {
  return {{"min", FloatJson(axis.min)},
          {"max", FloatJson(axis.max)},
          {"step", FloatJson(axis.step)},
          {"major", axis.major},
          {"minor", axis.minor}};
}

Json ChartJson(const VerificationChannel& ch, int channel) {
  const VerificationAxes axes = VerificationChartAxes(ch);
  Json points = Json::array();
  for (int n = 1; n <= ch.RowCount; ++n) {
    const auto i = static_cast<size_t>(n);
    points.push_back(Json::array({FloatJson(ch.RowApplied[i]), FloatJson(ch.RowMeasured[i])}));
  }
  return {{"channel", channel}, {"x", AxisJson(axes.x)}, {"y", AxisJson(axes.y)}, {"points", points}};
}

void WriteTable(const VerificationRecord& r, std::optional<int> channel, std::ostream& out) {
  out << "channel,row,applied,measured,deviation\n";
  for (int c = channel.value_or(1); c <= channel.value_or(kVerificationChannels); ++c) {
    const auto rows = VerificationTable(r.Channel[static_cast<size_t>(c)]);
    for (size_t n = 0; n < rows.size(); ++n) {
      out << c << ',' << n + 1 << ',' << rows[n].applied << ',' << rows[n].measured << ',' << rows[n].deviation << '\n';
    }
  }
}

}  // namespace

int RunVerification(const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
                    const std::string& program_directory) {
  VerificationOptions options;
  try {
    options = Parse(args);
  } catch (const UsageError& error) {
    return TellUsage(err, error, kVerificationUsage);
  }
  CliPrompts prompts(options.answers, err);
  const std::unique_ptr<Session> started = StartCliSession(options, program_directory, prompts);
  Session& session = *started;
  if (!OpenVerificationPath(session, prompts, options.file)) return 1;
  const VerificationRecord& r = session.Verification;
  const int channel = options.channel.value_or(1);
  switch (options.output) {
    case Output::kView:
      out << ViewJson(r).dump(2) << '\n';
      return 0;
    case Output::kTable:
      WriteTable(r, options.channel, out);
      return 0;
    case Output::kChart:
      if (options.out.empty()) {
        out << ChartJson(r.Channel[static_cast<size_t>(channel)], channel).dump(2) << '\n';
        return 0;
      }
      break;
    case Output::kReport:
      break;
  }
  EnsureGuiApplication();
  const bool written = TellFailures(prompts, "OpenVerificationFile", [&] {
    if (options.output == Output::kChart) {
      ImageSurface image(kChartWidth, kChartHeight);
      image.SetScale(0, 0, kChartWidth, kChartHeight);
      image.SetFont("Arial", 10, false, false);
      const double line = image.TextHeight("0");
      DrawVerificationChart(image, line, line * 1.5, kChartWidth - 2 * line, kChartHeight - line * 2,
                            r.Channel[static_cast<size_t>(channel)]);
      if (!image.Save(options.out)) Fail(kErrPathAccess, "ShowVerificationChart");
    } else {
      PdfPrintJob job(options.out, PaperSize::kLetter);
      PrintVerification(job, r, options.all ? 1 : channel, options.all ? kVerificationChannels : channel);
      if (!job.EndDoc()) Fail(kErrPathAccess, options.all ? "mnuPrintAll_Click" : "mnuPrintCurrent_Click");
    }
  });
  return written ? 0 : 1;
}

}  // namespace marlview
