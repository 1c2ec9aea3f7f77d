// The sounding writer: the current sounding back to the two DAT layouts and the PX DAS layout.
#pragma once

#include <string>

#include "core/common/file_access.h"
#include "core/common/user_prompts.h"
#include "core/model/sounding_store.h"
#include "core/model/unit_tables.h"
#include "core/session/session.h"

namespace marlview {

// The bytes of a KORVAN DAT file (with its version line) holding the sounding's raw channels, CR LF
// line ends. units names the file and display units of the channel table.
std::string SaveDatFamily1(const SoundingStore& store, const UnitTables& units);

// The bytes of a DAT file without a version line; the "DAT compatible" export of any family.
std::string SaveDatFamily2(const SoundingStore& store);

// The bytes of a PX DAS .CPT file, from the file's own channel table and numbers.
std::string SaveCpt(const SoundingStore& store);

// Saves the current sounding to path in the layout of its family, or in the DAT layout without a
// version line when dat_compatible, replacing the file atomically. Raw numbers only: a reopen
// recomputes every engineering value and derived channel. A failure is told in the general error
// text and the file that was there is left as it was. On success the sounding's path and name are
// path's, unless it was the DAT compatible export. write stands in for the disk in tests.
bool SaveSounding(Session& session, UserPrompts& prompts, const std::string& path, bool dat_compatible,
                  const FileWriteFunction& write = {});

}  // namespace marlview
