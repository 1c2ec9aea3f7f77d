// The video subcommand of marlview-cli.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace marlview {

// Exit status: 0 done, 1 the program reported an error, 2 bad usage.
int RunVideo(const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
             const std::string& program_directory);

}  // namespace marlview
