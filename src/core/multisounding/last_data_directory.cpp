// The folder a set was last loaded from.
#include "core/multisounding/last_data_directory.h"

#include <filesystem>

#include "core/common/file_access.h"
#include "core/common/line_cursor.h"
#include "core/session/session.h"

namespace marlview {
namespace {

constexpr const char* kFileName = "Last Data Directory.txt";

}  // namespace

DataDirectory ReadLastDataDirectory(const Session& session, UserPrompts& prompts, const std::string& first_drive) {
  const DataDirectory fallback{first_drive, first_drive};
  const auto bytes = TryReadWholeFile(session.SettingsPath(kFileName));
  if (!bytes) return fallback;
  LineCursor lines(*bytes);
  DataDirectory last;
  if (!lines.AtEnd()) last.folder = std::string(lines.Next());
  if (!lines.AtEnd()) last.drive = std::string(lines.Next());
  if (last.folder.empty() || last.drive.empty()) {
    prompts.Tell("An unkown error has occurred. Default drive and path values have been loaded.");
    return fallback;
  }
  if (!DirectoryExists(last.drive)) {
    prompts.Tell("Last drive used is missing. Switching to the root drive.");
    return fallback;
  }
  if (!DirectoryExists(last.folder)) {
    prompts.Tell("Last directory used is missing. Switching to the root directory of the last drive used.");
    return {last.drive, last.drive};
  }
  return last;
}

void WriteLastDataDirectory(const Session& session, const std::string& folder) {
  const std::string drive = std::filesystem::path(folder).root_path().string();
  WriteFileAtomically(session.SettingsPath(kFileName), folder + "\r\n" + drive + "\r\n");
}

}  // namespace marlview
