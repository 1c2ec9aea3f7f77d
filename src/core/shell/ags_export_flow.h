// The AGS4 export of the current sounding from the list window and the command line: the
// dissipation and seismic files the user adds, the save, and the messages on the way.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/common/user_prompts.h"
#include "core/dissipation/consolidation.h"
#include "core/presentation/ags_export.h"

namespace marlview {

class Session;
class SeismicDialogs;

struct AgsDissipationChoice {
  std::string path;
  // 0: every test of the file.
  int test = 0;
};

// What the AGS4 dialog or the command line chose.
struct AgsExportChoice {
  AgsVersion version = kDefaultAgsVersion;
  std::vector<AgsDissipationChoice> dissipations;
  // Empty: no seismic tests.
  std::string seismic_path;
  // Rigidity index and cone area for ch; the filter is the shoulder's.
  ChInputs ch;
};

// The AGS4 dialog's boxes as a choice: the rigidity index and the cone area must be numbers above
// 0 ("Please enter a valid rigidity index", "Please enter a valid cone area"). Nothing when refused.
std::optional<AgsExportChoice> AgsChoiceFromBoxes(const std::string& version, const std::vector<std::string>& dissipations,
                                                  const std::string& seismic, const std::string& rigidity_index,
                                                  const std::string& cone_area, UserPrompts& prompts);

// The inputs of the file. The session's current dissipation file keeps the T50 and ch last worked
// out for its tests; any other file is opened as the dissipation mode opens it and each test gets
// T50 for U0 = its largest pressure and U100 = its hydrostatic pressure, and ch for choice.ch.
// The seismic file is opened and loaded as the seismic mode does (4.2 only). Nothing when a file
// was refused or failed to read (told through prompts).
std::optional<AgsInputs> GatherAgsInputs(Session& session, UserPrompts& prompts, SeismicDialogs& dialogs,
                                         const AgsExportChoice& choice);

// Renders the file, tells its messages and writes it atomically to path.
void WriteAgsFile(const Session& session, UserPrompts& prompts, const AgsInputs& inputs, const std::string& path);

// "AGS4 File...": the save dialog, "File exists. Overwrite?", then the file. False when cancelled.
bool SaveAgsFile(Session& session, UserPrompts& prompts, SeismicDialogs& dialogs, const AgsExportChoice& choice);

}  // namespace marlview
