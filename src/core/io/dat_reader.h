// The reader of QRD FIELDBOX sounding files (.DAT), with and without the KORVAN version line.
#pragma once

#include <string>
#include <string_view>

#include "core/common/user_prompts.h"
#include "core/io/read_outcome.h"
#include "core/session/session.h"

namespace marlview {

// Reads a DAT sounding's bytes into store, which it resets first. path names the file for the
// messages, for the "MUNSELL" test and for the colour probe's companion file. Questions go through
// prompts. A file without the "Cone Penetrometer Test" line is refused with a message; a field that
// is not a number, a reading past the bound or a file that ends inside its header throws
// RuntimeFailure. The session lends its settings and keeps the answers given for a run of opens.
ReadOutcome ReadDatSounding(std::string_view bytes, const std::string& path, Session& session,
                            SoundingStore& store, UserPrompts& prompts);

// Reads the data lines of a second file of the same sounding behind the store's readings: every
// line after the first `skip`, each depth field moved down by depth_base (metres), with the
// duplicate depth test of an open. The store's header, channel table and baselines stay. The
// engineering values, alignment and derivation are the caller's to run afterwards.
void ReadAppendedDatReadings(std::string_view bytes, int skip, float depth_base, Session& session, SoundingStore& store,
                             UserPrompts& prompts);

// Reads the file at path into the session's spare store and makes it the current sounding when
// the read succeeds; a failed read leaves the current sounding as it was.
ReadOutcome OpenDatSounding(Session& session, UserPrompts& prompts, const std::string& path);

}  // namespace marlview
