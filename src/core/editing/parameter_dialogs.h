// The water table and wet density dialogs: each checks its entry, sets the value and derives the
// sounding again.
#pragma once

#include <string>
#include <string_view>

#include "core/common/user_prompts.h"

namespace marlview {

class Session;

// The water table the dialog changes: the sounding's, or the dissipation file's, whose head
// percentages are then derived again.
enum class WaterTableOf { kSounding, kDissipation };

// What the water table dialog shows: the depth in the user's unit, or "UNDEFINED".
std::string WaterTableDialogText(const Session& session, WaterTableOf of = WaterTableOf::kSounding);
// frmChangeWaterTableDepth's OK: the entry must be a number, in the user's depth unit.
bool ChangeWaterTableDepth(Session& session, std::string_view entry, UserPrompts& prompts,
                           WaterTableOf of = WaterTableOf::kSounding);
// The dialog's undefined button.
void SetWaterTableUndefined(Session& session, WaterTableOf of = WaterTableOf::kSounding);

// Wet density is kept in pounds per cubic foot and entered in kg/m^3 when the settings say so.
bool DensityUnitIsMetric(const Session& session);
std::string WetDensityDialogText(const Session& session);
std::string WetDensityUnitText(const Session& session);
// frmWetDensity's OK: a number above 0; then "SAVE WET DENSITY AS DEFAULT?" writes the settings.
bool ChangeWetDensity(Session& session, std::string_view entry, UserPrompts& prompts);

}  // namespace marlview
