// The reader of GEF sounding files (.GEF, CPT reports).
#pragma once

#include <string>
#include <string_view>

#include "core/common/user_prompts.h"
#include "core/io/read_outcome.h"
#include "core/session/session.h"

namespace marlview {

// Reads a GEF CPT report's bytes into store, which it resets first. path names the file. A file
// that is not a GEF sounding is refused with one message through prompts (a DISS report as "NAME
// is a dissipation file"); more than 10000 records or 100 channels with the derived ones throws
// RuntimeFailure. The session lends its settings, its choice of depth column and the water table
// shown until the file gives one.
ReadOutcome ReadGefSounding(std::string_view bytes, const std::string& path, Session& session,
                            SoundingStore& store, UserPrompts& prompts);

// Reads the file at path into the session's spare store and makes it the current sounding when
// the read succeeds; a failed read leaves the current sounding as it was.
ReadOutcome OpenGefSounding(Session& session, UserPrompts& prompts, const std::string& path);

}  // namespace marlview
