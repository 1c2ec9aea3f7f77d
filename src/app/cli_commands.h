// marlview-cli: parses the command line and runs a subcommand on the core, headless.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace marlview {

// Exit status: 0 done, 1 the program reported an error, 2 bad usage.
int RunCli(const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
           const std::string& program_directory = {});

}  // namespace marlview
