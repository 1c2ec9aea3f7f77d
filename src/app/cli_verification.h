// marlview-cli verification: a verification file's view, table, graph or printed pages.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace marlview {

// Exit status: 0 done, 1 the file could not be read or written, 2 bad usage.
int RunVerification(const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
                    const std::string& program_directory);

}  // namespace marlview
