// The global options of marlview-cli.
#include "app/cli_globals.h"

#include <QGuiApplication>
#include <algorithm>
#include <cstdio>
#include <iterator>

#include "core/common/number_read.h"
#include "core/common/runtime_failure.h"
#include "core/session/session.h"
#include "core/shell/startup.h"

namespace marlview {
namespace {

const char* const kValueOptions[] = {"--data-dir", "--water-table", "--start-depth-unit",
                                     "--spikes",   "--munsell",     "--tip-area", "--gef-depth"};

}  // namespace

const std::string& OptionValue(const std::vector<std::string>& args, size_t& i) {
  if (i + 1 >= args.size()) throw UsageError(args[i] + " needs a value");
  return args[++i];
}

bool ParseGlobalOption(const std::string& a, const std::function<const std::string&()>& value,
                       GlobalOptions& o) {
  if (a == "--data-dir") {
    o.data_dir = value();
  } else if (a == "--feet") {
    o.feet = true;
  } else if (a == "--water-table") {
    try {
      o.water_table = ParseNumber(value());
    } catch (const RuntimeFailure&) {
      throw UsageError("--water-table takes a depth in metres");
    }
  } else if (a == "--start-depth-unit") {
    const std::string& unit = value();
    if (unit != "m" && unit != "ft") throw UsageError("--start-depth-unit is m or ft");
    o.answers.start_depth_in_metres = unit == "m";
  } else if (a == "--spikes") {
    const std::string& answer = value();
    if (answer != "remove" && answer != "keep") throw UsageError("--spikes is remove or keep");
    o.answers.remove_spikes = answer == "remove";
  } else if (a == "--munsell") {
    const std::string& answer = value();
    if (answer != "import" && answer != "skip") throw UsageError("--munsell is import or skip");
    o.answers.import_munsell = answer == "import";
  } else if (a == "--tip-area") {
    o.answers.tip_area = value();
  } else if (a == "--sbtn") {
    o.sbtn = true;
  } else if (a == "--gef-depth") {
    const std::string& column = value();
    if (column != "length" && column != "corrected") throw UsageError("--gef-depth is length or corrected");
    o.gef_corrected_depth = column == "corrected";
  } else if (a == "--yes") {
    o.answers.yes = true;
  } else {
    return false;
  }
  return true;
}

bool GlobalOptionTakesValue(const std::string& a) {
  return std::find(std::begin(kValueOptions), std::end(kValueOptions), a) != std::end(kValueOptions);
}

bool IsSubcommand(const std::vector<std::string>& args, std::string_view name) {
  for (size_t i = 0; i < args.size(); ++i) {
    if (GlobalOptionTakesValue(args[i])) {
      ++i;
      continue;
    }
    if (args[i].starts_with("--")) continue;
    return args[i] == name;
  }
  return false;
}

// Text and pictures need a GUI application even without a window; the CLI runs it offscreen.
void EnsureGuiApplication() {
  if (QGuiApplication::instance() != nullptr) return;
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  // Standard error carries the program's own messages only.
  qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type == QtFatalMsg) std::fputs(qPrintable(message + "\n"), stderr);
  });
  static int argc = 1;
  static char name[] = "marlview-cli";
  static char* argv[] = {name, nullptr};
  static QGuiApplication application(argc, argv);
}

std::string CsvField(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
  std::string quoted = "\"";
  for (char c : text) {
    if (c == '"') quoted += '"';
    quoted += c;
  }
  return quoted + "\"";
}

int TellUsage(std::ostream& err, const UsageError& error, std::string_view usage) {
  err << "marlview-cli: " << error.what() << '\n' << usage;
  return 2;
}

void ApplyGlobalSettings(Session& session, const GlobalOptions& options) {
  if (options.sbtn) session.NormalisedClassification = 1;
  session.GefCorrectedDepth = options.gef_corrected_depth;
}

std::unique_ptr<Session> StartCliSession(const GlobalOptions& options, const std::string& program_directory,
                                         UserPrompts& prompts) {
  auto session = std::make_unique<Session>(
      SessionPaths{ResolveDataDirectory(options.data_dir), ResolveDefaultsDirectory(program_directory)});
  RunStartup(*session, prompts);
  ApplyGlobalSettings(*session, options);
  return session;
}

}  // namespace marlview
