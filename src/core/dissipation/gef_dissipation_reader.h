// The reader of GEF dissipation files (.GEF, DISS reports): one test, pressures in kPa.
#pragma once

#include <string>
#include <string_view>

#include "core/common/user_prompts.h"
#include "core/session/dissipation_set.h"

namespace marlview {

// Reads a DISS report's bytes into set, reset by the caller, as its one test. name is the file's
// name for the messages. Returns the refusal text ("NAME is a sounding file" for a CPT report), or
// "" when read; what was left out or assumed is told through prompts.
std::string ReadGefDissipation(std::string_view bytes, std::string_view name, DissipationSet& set,
                               UserPrompts& prompts);

}  // namespace marlview
