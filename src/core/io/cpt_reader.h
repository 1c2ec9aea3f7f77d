// The reader of PX DAS sounding files (.CPT).
#pragma once

#include <string>
#include <string_view>

#include "core/common/user_prompts.h"
#include "core/io/read_outcome.h"
#include "core/session/session.h"

namespace marlview {

// Reads a PX DAS sounding's bytes into store, which it resets first, converting each number to its
// engineering value for every output. path names the file. The standard cone's area, when a ball
// tip's file does not give it, is asked for through prompts. A field that is not a number, a
// reading or channel past the bounds or a file that ends inside its header throws RuntimeFailure.
// The session lends its settings and the water table shown until the file gives one.
ReadOutcome ReadCptSounding(std::string_view bytes, const std::string& path, Session& session,
                            SoundingStore& store, UserPrompts& prompts);

// Reads the file at path into the session's spare store and makes it the current sounding when
// the read succeeds; a failed read leaves the current sounding as it was.
ReadOutcome OpenCptSounding(Session& session, UserPrompts& prompts, const std::string& path);

}  // namespace marlview
