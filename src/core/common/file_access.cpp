// File access shared by every reader and writer.
#include "core/common/file_access.h"

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

void WriteFileAtomically(const std::string& path, std::string_view bytes) {
  const std::string temporary = path + ".marlview-tmp";
  std::FILE* file = std::fopen(temporary.c_str(), "wb");
  if (file == nullptr) Fail(kErrPathAccess);
  const bool written = std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size() &&
                       std::fflush(file) == 0 && ::fsync(fileno(file)) == 0;
  const bool closed = std::fclose(file) == 0;
  if (!written || !closed || std::rename(temporary.c_str(), path.c_str()) != 0) {
    std::remove(temporary.c_str());
    Fail(kErrPathAccess);
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
