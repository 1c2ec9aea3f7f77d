// The port through which the video session runs ffmpeg and ffprobe: a program and its arguments,
// no shell between, and the program's output when asked for.
#pragma once

#include <string>
#include <vector>

namespace marlview {

struct ProcessResult {
  // False when the program could not be started at all.
  bool started = false;
  int exit_status = 0;
  // What the program wrote on the streams asked for, in the order it came.
  std::string output;
};

class ProcessRunner {
 public:
  virtual ~ProcessRunner() = default;
  // Runs program with arguments and waits for it to end; the streams not captured are discarded.
  virtual ProcessResult Run(const std::string& program, const std::vector<std::string>& arguments,
                            bool capture_stdout, bool capture_stderr) = 0;
};

// Runs programs as child processes of this one (fork and exec through posix_spawn), reading their
// output through a pipe until they close it.
class PosixProcessRunner : public ProcessRunner {
 public:
  ProcessResult Run(const std::string& program, const std::vector<std::string>& arguments, bool capture_stdout,
                    bool capture_stderr) override;
};

}  // namespace marlview

namespace marlview {

// The first executable file called name in the folders of $PATH, or an empty text.
std::string FindProgramOnPath(const std::string& name);

}  // namespace marlview
