// marlview-cli settings and template: the settings directory as start-up reads it, the settings
// dialogs' OK without their windows, and the channel templates.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace marlview {

// Exit status: 0 done, 1 the program reported an error, 2 bad usage (nothing written).
int RunSettings(const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
                const std::string& program_directory);
int RunTemplate(const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
                const std::string& program_directory);

}  // namespace marlview
