// Start-up of a session: data directory, unit tables and the settings files, in their fixed order.
#pragma once

#include "core/common/user_prompts.h"
#include "core/session/session.h"

namespace marlview {

// Copies each installed default that the data directory lacks, builds the unit tables and reads
// every start-up settings file, each with its default when missing. A settings file that cannot be
// read is reported with the general error text and keeps its default; start-up goes on.
void RunStartup(Session& session, UserPrompts& prompts);

// Copies the installed defaults missing from the data directory, creating the directory.
void InstallMissingDefaults(const SessionPaths& paths);

}  // namespace marlview
