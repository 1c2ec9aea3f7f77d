// Water table and wet density: the two parameters of the derivation a user changes from a plot.
#include "core/editing/parameter_dialogs.h"

#include <algorithm>

#include "core/common/file_access.h"
#include "core/common/number_format.h"
#include "core/common/number_read.h"
#include "core/common/runtime_failure.h"
#include "core/derivation/derived_channels.h"
#include "core/session/session.h"
#include "core/settings/settings_files.h"

namespace marlview {
namespace {

constexpr double kKgPerCubicMetreInPcf = 16.0184634;

float& WaterTable(Session& session, WaterTableOf of) {
  return of == WaterTableOf::kDissipation ? session.Dissipation().WaterTableDepth : session.Sounding().WaterTableDepth;
}

void Rederive(Session& session, WaterTableOf of = WaterTableOf::kSounding) {
  if (of == WaterTableOf::kDissipation) {
    DissipationSet& set = session.Dissipation();
    for (int i = 1; i <= std::min<int>(set.DissipationCount, kMaxDissipations); ++i) ComputeHeadPercent(set, i);
    return;
  }
  if (session.SoundingOpen) ComputeDerivedChannels(session, session.Sounding().ChannelCount);
}

bool ReadEntry(std::string_view entry, double& value) {
  try {
    value = StrictNumber(entry);
    return true;
  } catch (const RuntimeFailure&) {
    return false;
  }
}

}  // namespace

std::string WaterTableDialogText(const Session& session, WaterTableOf of) {
  const float depth = of == WaterTableOf::kDissipation ? session.Dissipation().WaterTableDepth
                                                       : session.Sounding().WaterTableDepth;
  if (depth == -99) return "UNDEFINED";
  return FormatNumber(session.DepthUnitIsMetric == 1 ? depth : depth * session.FeetPerMetre, "##0.00");
}

bool ChangeWaterTableDepth(Session& session, std::string_view entry, UserPrompts& prompts, WaterTableOf of) {
  double depth = 0;
  if (!ReadEntry(entry, depth)) {
    prompts.Tell("Please enter a valid depth");
    return false;
  }
  if (session.DepthUnitIsMetric != 1) depth /= session.FeetPerMetre;
  WaterTable(session, of) = ToSingle(depth);
  Rederive(session, of);
  return true;
}

void SetWaterTableUndefined(Session& session, WaterTableOf of) {
  WaterTable(session, of) = -99;
  Rederive(session, of);
}

bool DensityUnitIsMetric(const Session& session) { return session.general.SoilDensityUnits == 1; }

std::string WetDensityDialogText(const Session& session) {
  const double pcf = session.general.SoilDensity;
  return DensityUnitIsMetric(session) ? FormatNumber(pcf * kKgPerCubicMetreInPcf, "####0.0")
                                      : FormatNumber(pcf, "####0");
}

std::string WetDensityUnitText(const Session& session) {
  return DensityUnitIsMetric(session) ? "(kg/m^3)" : "(lb/ft^3)";
}

bool ChangeWetDensity(Session& session, std::string_view entry, UserPrompts& prompts) {
  double density = 0;
  if (!ReadEntry(entry, density) || density <= 0) {
    prompts.Tell("Invalid soil density entry. Soil density must be a number greater than 0");
    return false;
  }
  if (DensityUnitIsMetric(session)) density /= kKgPerCubicMetreInPcf;
  session.general.SoilDensity = ToSingle(density);
  Rederive(session);
  if (prompts.Ask("SAVE WET DENSITY AS DEFAULT?", Buttons::kYesNo) == Answer::kYes) {
    WriteFileAtomically(session.SettingsPath("GENERAL SETTINGS.txt"), WriteGeneralSettings(session.general));
  }
  return true;
}

}  // namespace marlview
