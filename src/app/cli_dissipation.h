// marlview-cli's dissipation subcommand: the file's information, T50 for a given U0 and U100, the
// plot as a picture or a printed page, the list's exports of one test and the whole-file exports.
#pragma once

#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace marlview {

class CliPrompts;
class Session;
class ShellController;

// An editor operation of the command line, applied in the order given: the option and its value.
struct DissipationOperation {
  std::string option;
  std::string value;
};

struct DissipationOptions {
  std::vector<int> tests;
  bool csv = false, txt = false;
  bool percent_max = false, percent_head = false;
  bool t50 = false;
  std::optional<double> u0, u100;
  // ch of one test: the rigidity index, cone area (cm2), filter u1 or u2 and the root-time start.
  bool ch = false;
  std::optional<double> rigidity_index, cone_area;
  std::string filter;
  bool root_time = false;
  bool plot = false;
  std::string mode;
  std::string time;
  // The editors' whole-file exports: txt, csv, txt-each or csv-each.
  std::string export_form;
  std::vector<DissipationOperation> operations;
};

// Takes option a (and its value) when it is one of the subcommand's; false otherwise.
bool ParseDissipationOption(const std::string& a, const std::function<const std::string&()>& value,
                            DissipationOptions& options);
// Whether any of the subcommand's options was given.
bool AnyDissipationOption(const DissipationOptions& options);
// The usage error of a command line for the subcommand on file, empty when it is good.
std::string DissipationUsageError(const DissipationOptions& options, const std::string& out,
                                  const std::string& file);

// Opens the file as the dissipation option does, applies the water table of the command line and
// the editor's operations, and runs the subcommand. The exit status of marlview-cli; an operation
// that does not fit the open file (a test, row, column, unit or header name it lacks) throws
// UsageError before anything is written.
int RunDissipation(Session& session, ShellController& shell, CliPrompts& prompts,
                   const DissipationOptions& options, std::optional<double> water_table,
                   const std::string& out_path, std::ostream& out);

}  // namespace marlview
