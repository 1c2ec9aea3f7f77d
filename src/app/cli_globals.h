// What every marlview-cli subcommand shares: the bad-usage error and the global options.
#pragma once

#include <functional>
#include <memory>
#include <ostream>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "app/cli_prompts.h"

namespace marlview {

class Session;
class UserPrompts;

// Bad usage: the program ends with status 2 and the usage text.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The options that stand before any subcommand's own: where the settings are, the depth unit, the
// water table, and the answers to the questions opening a file may ask.
struct GlobalOptions {
  std::string data_dir;
  bool feet = false;
  std::optional<double> water_table;
  // --sbtn: the normalised classification is on for this run, whatever its settings file says.
  bool sbtn = false;
  // A GEF sounding's depth is its corrected depth column rather than its penetration length.
  bool gef_corrected_depth = false;
  CliAnswers answers;
};
// The settings a global option overrides for the run, once start-up has read the files.
void ApplyGlobalSettings(Session& session, const GlobalOptions& options);

// The word after the option args[i], i moved onto it; bad usage when the option ends the line.
const std::string& OptionValue(const std::vector<std::string>& args, size_t& i);

// Takes a global option, reading its value through value; false when a is none of them.
bool ParseGlobalOption(const std::string& a, const std::function<const std::string&()>& value,
                       GlobalOptions& options);
// Whether a is a global option followed by a value, so a scan for the subcommand steps over both.
bool GlobalOptionTakesValue(const std::string& a);
// Whether the command line's subcommand, its first word that is no option, is name.
bool IsSubcommand(const std::vector<std::string>& args, std::string_view name);
// Starts the offscreen GUI application that drawing text and pictures needs, once; only the
// subcommands that draw start it.
void EnsureGuiApplication();
// A field of a CSV line, quoted as RFC 4180 asks when it holds a comma, a quote or a line end.
std::string CsvField(const std::string& text);

// Bad usage as every subcommand tells it: the reason, then its usage text. Gives the exit status 2.
int TellUsage(std::ostream& err, const UsageError& error, std::string_view usage);

// A subcommand's session on the data directory of the global options and the installed defaults,
// started as the program starts.
std::unique_ptr<Session> StartCliSession(const GlobalOptions& options, const std::string& program_directory,
                                         UserPrompts& prompts);

}  // namespace marlview
