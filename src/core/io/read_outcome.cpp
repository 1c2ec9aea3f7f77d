// Opening a sounding file through its reader.
#include "core/io/read_outcome.h"

#include "core/common/file_access.h"
#include "core/common/runtime_failure.h"

namespace marlview {

ReadOutcome OpenSoundingWith(SoundingReader read, std::string_view procedure, Session& session, UserPrompts& prompts,
                             const std::string& path) {
  return InProcedure(procedure, [&] {
    const std::string bytes = ReadWholeFile(path);
    const ReadOutcome outcome = read(bytes, path, session, session.SpareStore(), prompts);
    if (outcome == ReadOutcome::kLoaded) session.CommitSounding();
    return outcome;
  });
}

}  // namespace marlview
