// marlview-cli edit: opens a sounding, applies the editor's operations in command-line order and
// saves the sounding or prints its table.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace marlview {

// Exit status: 0 done, 1 the program reported an error, 2 bad usage (nothing saved).
int RunEdit(const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
            const std::string& program_directory);

}  // namespace marlview
