// "Last Data Directory.txt": the folder the load dialog of a set opens in, kept between runs.
#pragma once

#include <string>

#include "core/common/user_prompts.h"

namespace marlview {

class Session;

struct DataDirectory {
  std::string folder;
  std::string drive;
};

// Where the load dialog opens: the folder of the file (line 1) on its drive (line 2). A drive that
// is gone falls back on first_drive, a folder that is gone on its drive's root, each told; a file
// that cannot be used says so and gives first_drive. A missing file gives first_drive silently, as
// on a machine that never loaded a set.
DataDirectory ReadLastDataDirectory(const Session& session, UserPrompts& prompts, const std::string& first_drive);
// Keeps the folder a set was loaded from, with the drive it lies on.
void WriteLastDataDirectory(const Session& session, const std::string& folder);

}  // namespace marlview
