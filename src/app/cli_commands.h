// marlview-cli: parses the command line and runs a subcommand on the core, headless.
#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace marlview {

class ShellController;
class SoundingStore;

// Selects the channels named on the command line in the main window's lists, or the first limit
// of its available list; false (and the usage) for a name the sounding does not have.
bool ChooseChannels(ShellController& controller, const std::vector<std::string>& names, size_t limit,
                    std::ostream& err, std::string_view usage);

// Which values the channels table shows: aligned readings of a kind, a fixed pressure mirror, the
// unaligned readings of a kind, or the raw readings.
struct ChannelTableView {
  bool feet = false;
  std::optional<int> kind;
  std::optional<int> mirror;
  bool unaligned = false;
  bool raw = false;
};
// The sounding's table as CSV: the depth, then every channel, one line a reading.
void WriteChannelsCsv(const SoundingStore& store, const ChannelTableView& view, std::ostream& out);

// Exit status: 0 done, 1 the program reported an error, 2 bad usage.
int RunCli(const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
           const std::string& program_directory = {});

}  // namespace marlview
