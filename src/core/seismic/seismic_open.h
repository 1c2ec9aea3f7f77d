// Opening a seismic sounding: the open dialog, the family by the file's extension, the FLDACQ
// series, and the reader whose result enters the session only when it succeeds.
#pragma once

#include <string>

#include "core/common/user_prompts.h"
#include "core/session/session.h"

namespace marlview {

enum class SeismicOpenOutcome { kCancelled, kLoaded, kRefused };

inline constexpr const char* kSeismicOpenFilter =
    "PX DAS-FLDREC (*.SMC)|*.SMC|QRD FieldBox-FLDREC (*.SEI;*.SLG)|*.SEI;*.SLG|QRD Fieldbox-FLDACQ (*.*)|*.*|"
    "ALL SYSTEMS (*.SMC;*.*)|*.SMC;*.*";

// The family by the last four characters of the name: .smc 0, .sei 1, .slg 4, anything else 2.
int16_t SeismicFamilyOfPath(const std::string& path);

// The names of an FLDACQ series: the chosen name with its last three characters replaced by
// 000..999, those that exist. More than 180 is "Subscript out of range".
std::vector<std::string> FldacqSeries(const std::string& path);

// Shows the open dialog and opens the chosen file.
SeismicOpenOutcome OpenSeismicFile(Session& session, UserPrompts& prompts);
// Opens path as the dialog would have returned it. A refusal or a reader's run-time failure is
// told through prompts and leaves the current seismic store as it was.
SeismicOpenOutcome OpenSeismicPath(Session& session, UserPrompts& prompts, const std::string& path);

}  // namespace marlview
