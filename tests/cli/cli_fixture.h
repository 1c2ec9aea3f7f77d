// marlview-cli run in process on a fresh data directory, with a folder for the files it reads and
// writes.
#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "app/cli_commands.h"
#include "support/test_support.h"

namespace marlview::test {

struct CliRun {
  int status;
  std::string out;
  std::string err;
};

class CliFixture : public ::testing::Test {
 protected:
  CliRun Run(std::vector<std::string> args) {
    args.insert(args.begin(), {"--data-dir", settings_.Path()});
    std::ostringstream out, err;
    const int status = RunCli(args, out, err);
    return {status, out.str(), err.str()};
  }
  // Writes bytes as name in the files folder and gives its path.
  std::string Write(const std::string& name, const std::string& bytes) {
    files_.Write(name, bytes);
    return files_.File(name);
  }

  TempDirectory settings_;
  TempDirectory files_;
};

}  // namespace marlview::test
