// marlview-cli's report and chart subcommands: the printed sounding report as a PDF, and the 1983
// classification chart as a picture, a printed page or its points.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace marlview {

// Each opens the sounding FILE of the command line as the main window does. The exit status of
// marlview-cli.
int RunReport(const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
              const std::string& program_directory);
int RunChart(const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
             const std::string& program_directory);

}  // namespace marlview
