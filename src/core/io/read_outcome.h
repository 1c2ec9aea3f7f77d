// What a sounding reader made of a file, and the open of a file through a reader: read into the
// session's spare store, which becomes the current sounding only when the read succeeds.
#pragma once

#include <string>
#include <string_view>

#include "core/common/user_prompts.h"
#include "core/session/session.h"

namespace marlview {

// Read and ready, or refused with the reader's own message.
enum class ReadOutcome { kLoaded, kRefused };

// A reader of one sounding layout: the file's bytes into store.
using SoundingReader = ReadOutcome (*)(std::string_view bytes, const std::string& path, Session& session,
                                       SoundingStore& store, UserPrompts& prompts);

// Reads the file at path with read into the spare store and commits it when the read succeeds; a
// failure, as the procedure named, leaves the current sounding as it was.
ReadOutcome OpenSoundingWith(SoundingReader read, std::string_view procedure, Session& session, UserPrompts& prompts,
                             const std::string& path);

}  // namespace marlview
