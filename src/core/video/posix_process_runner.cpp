// Child processes on a POSIX system.
#include <fcntl.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

#include "core/video/process_runner.h"

extern char** environ;

namespace marlview {

ProcessResult PosixProcessRunner::Run(const std::string& program, const std::vector<std::string>& arguments,
                                      bool capture_stdout, bool capture_stderr) {
  ProcessResult result;
  int pipe_ends[2] = {-1, -1};
  const bool capture = capture_stdout || capture_stderr;
  if (capture && pipe2(pipe_ends, O_CLOEXEC) != 0) return result;

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  if (capture_stdout) {
    posix_spawn_file_actions_adddup2(&actions, pipe_ends[1], STDOUT_FILENO);
  } else {
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  }
  if (capture_stderr) {
    posix_spawn_file_actions_adddup2(&actions, pipe_ends[1], STDERR_FILENO);
  } else {
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  }

  std::vector<std::string> words;
  words.reserve(arguments.size() + 1);
  words.push_back(program);
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<char*> argv;
  for (std::string& word : words) argv.push_back(word.data());
  argv.push_back(nullptr);

  pid_t child = 0;
  const int spawned = posix_spawn(&child, program.c_str(), &actions, nullptr, argv.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (capture) close(pipe_ends[1]);
  if (spawned != 0) {
    if (capture) close(pipe_ends[0]);
    return result;
  }
  if (capture) {
    char buffer[4096];
    for (;;) {
      const ssize_t got = read(pipe_ends[0], buffer, sizeof buffer);
      if (got > 0) {
        result.output.append(buffer, static_cast<size_t>(got));
      } else if (got < 0 && errno == EINTR) {
        continue;
      } else {
        break;
      }
    }
    close(pipe_ends[0]);
  }
  int status = 0;
  while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  // A program that exec could not start ends at once with 127.
  result.started = !(WIFEXITED(status) && WEXITSTATUS(status) == 127);
  result.exit_status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return result;
}

}  // namespace marlview

namespace marlview {

std::string FindProgramOnPath(const std::string& name) {
  const char* path = std::getenv("PATH");
  if (path == nullptr) return {};
  const std::string folders(path);
  size_t begin = 0;
  while (begin <= folders.size()) {
    size_t end = folders.find(':', begin);
    if (end == std::string::npos) end = folders.size();
    const std::string folder = end > begin ? folders.substr(begin, end - begin) : std::string(".");
    const std::string candidate = folder + "/" + name;
    struct stat info {};
    if (stat(candidate.c_str(), &info) == 0 && S_ISREG(info.st_mode) && access(candidate.c_str(), X_OK) == 0) {
      return candidate;
    }
    begin = end + 1;
  }
  return {};
}

}  // namespace marlview
