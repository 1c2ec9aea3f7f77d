// marlview-cli's AGS4 export: export FILE --format ags with its own options.
#pragma once

#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace marlview {

class CliPrompts;
class Session;

struct AgsCliOptions {
  std::string version;
  // DFILE or DFILE:TEST, in command-line order.
  std::vector<std::string> dissipations;
  std::string seismic;
  std::optional<double> rigidity_index, cone_area;

  bool Any() const {
    return !version.empty() || !dissipations.empty() || !seismic.empty() || rigidity_index || cone_area;
  }
};

// Takes option a (and its value) when it is one of the format's; false otherwise.
bool ParseAgsOption(const std::string& a, const std::function<const std::string&()>& value, AgsCliOptions& options);
// The bad usage of the format's options, empty when they are good.
std::string AgsUsageError(const AgsCliOptions& options);

// Writes the AGS4 file of the open sounding to out as the list window's "AGS4 File..." does. The
// exit status of marlview-cli.
int RunAgsExport(Session& session, CliPrompts& prompts, const AgsCliOptions& options, const std::string& out,
                 std::ostream& err, std::string_view usage);

}  // namespace marlview
