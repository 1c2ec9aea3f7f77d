// The headless program.
#include <filesystem>
#include <iostream>

#include "app/cli_commands.h"

int main(int argc, char** argv) {
  std::vector<std::string> args(argv + 1, argv + argc);
  std::error_code error;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
  return marlview::RunCli(args, std::cout, std::cerr, error ? std::string() : program.parent_path().string());
}
