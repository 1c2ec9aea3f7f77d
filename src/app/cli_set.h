// marlview-cli set: a set of soundings loaded as the several-soundings window loads it, listed,
// plotted or exported in one batch.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace marlview {

int RunSet(const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
           const std::string& program_directory);

}  // namespace marlview
