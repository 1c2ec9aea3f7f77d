// File access shared by every reader and writer.
#include "core/common/file_access.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <unistd.h>

#include "core/common/runtime_failure.h"
#include "core/common/text_rules.h"

namespace marlview {
namespace fs = std::filesystem;

std::optional<std::string> TryReadWholeFile(const std::string& path) {
  std::error_code error;
  if (!fs::is_regular_file(path, error)) return std::nullopt;
  std::ifstream in(path, std::ios::binary);
  if (!in) return std::nullopt;
  std::ostringstream bytes;
  bytes << in.rdbuf();
  if (in.bad()) return std::nullopt;
  return std::move(bytes).str();
}

std::string ReadWholeFile(const std::string& path) {
  std::error_code error;
  if (!fs::exists(path, error)) Fail(kErrFileNotFound);
  auto bytes = TryReadWholeFile(path);
  if (!bytes) Fail(kErrPathAccess);
  return std::move(*bytes);
}

namespace {

// The run-time failure that tells the user why a file could not be written.
int WriteFailureNumber(int error, bool opening) {
  if (error == ENOSPC || error == EDQUOT) return kErrDiskFull;
  if (opening) return error == ENOENT || error == ENOTDIR ? kErrPathNotFound : kErrPathAccess;
  return error == EIO ? kErrDeviceIo : kErrPathAccess;
}

}  // namespace

void WriteFileAtomically(const std::string& path, std::string_view bytes, const FileWriteFunction& write) {
  const std::string temporary = path + ".marlview-tmp";
  std::FILE* file = std::fopen(temporary.c_str(), "wb");
  if (file == nullptr) Fail(WriteFailureNumber(errno, true));
  errno = 0;
  const size_t put = write ? write(file, bytes) : std::fwrite(bytes.data(), 1, bytes.size(), file);
  const bool written = put == bytes.size() && std::fflush(file) == 0 && ::fsync(fileno(file)) == 0;
  // The first failure says why; closing after it may fail again for the same reason.
  int error = written ? 0 : errno;
  const bool closed = std::fclose(file) == 0;
  if (written && !closed) error = errno;
  const bool renamed = written && closed && std::rename(temporary.c_str(), path.c_str()) == 0;
  if (written && closed && !renamed) error = errno;
  if (!renamed) {
    std::remove(temporary.c_str());
    Fail(WriteFailureNumber(error, false));
  }
}

bool FileExists(const std::string& path) {
  std::error_code error;
  return fs::is_regular_file(path, error);
}

bool DirectoryExists(const std::string& path) {
  std::error_code error;
  return !path.empty() && fs::is_directory(path, error);
}

std::optional<std::string> FindIgnoringCase(const std::string& path) {
  if (FileExists(path)) return path;
  const std::string folder(FolderPart(path));
  const std::string_view name = FileNamePart(path);
  std::error_code error;
  fs::directory_iterator it(folder.empty() ? std::string(".") : folder, error);
  if (error) return std::nullopt;
  for (const auto& entry : it) {
    const std::string candidate = entry.path().filename().string();
    if (EqualsNoCase(candidate, name) && entry.is_regular_file(error)) return folder + candidate;
  }
  return std::nullopt;
}

}  // namespace marlview
