// The logic of the settings dialogs: general settings, custom headers, the logo and the print
// settings windows. Each takes the values its window shows and, on OK or its save menu, moves them
// into the session and writes its files.
#pragma once

#include <string>

#include "core/common/user_prompts.h"
#include "core/session/session.h"

namespace marlview {

inline constexpr const char* kDuplicateDepthLimitMessage = "DUPLICATE DEPTH THRESHOLD CANNOT EXCEED .01 METERS";
inline constexpr float kDuplicateDepthLimit_m = 0.01f;
// Pounds per cubic foot to kilograms per cubic metre.
inline constexpr double kPcfToKgPerM3 = 16.0184634;

// What frmGeneralSettings edits, the soil density in pounds per cubic foot.
struct GeneralSettingsForm {
  GeneralSettings general;
  RodBreakSettings rod_break;
  float sbt_brightness = 0;
  float logo_scale_factor = 100;
  int16_t ball_tip_area_calculation = 0;
};
GeneralSettingsForm LoadGeneralSettingsForm(const Session& session);
// txtSoilDensity in the unit cmbSoilDensityUnits shows (0 pcf, 1 kg/m3), and back.
double ShownSoilDensity(float density_pcf, int16_t units);
float StoredSoilDensity(double shown, int16_t units);
// cmdOK: refuses a tolerance above 0.01 m (false, nothing written); else the session takes the
// values and "GENERAL SETTINGS.txt", "Ball Tip Area Calculation.txt", "SBT brightness factor.txt",
// "Rod Break Threshold.txt" and "Logo Scale Factor.txt" are written.
bool ApplyGeneralSettings(Session& session, UserPrompts& prompts, const GeneralSettingsForm& form);

// The number patterns frmDisplayUnits offers for each output of a channel.
inline constexpr const char* kDisplayFormatPatterns[] = {"######0.000000", "######0.00000", "######0.0000",
                                                         "######0.000",    "######0.00",    "######0.0",
                                                         "######0.",       "######0",       "0.0000E+00!"};
// frmDisplayUnits OK: the session takes the label, unit and format choices and "Display Units.txt"
// is written. A sounding opened from then on takes them; the open one keeps what it was read with.
void ApplyDisplayUnits(Session& session, const ChannelChoices& choices);

// frmSetSoundingCustomHeaders OK: the table is kept and "CUSTOM HEADERS.txt" written.
void ApplyCustomHeaders(Session& session, const CustomHeaders& headers);

// "logo.jpg" of the data directory.
std::string LogoPath(const Session& session);
// cmdSelectLogo after the picture loaded: copied into the data directory.
void StoreLogo(Session& session, const std::string& picture_path);
// cmdRemoveLogo: nothing to do without a logo.
void RemoveLogo(Session& session);

// The five report kinds of the logo, in the order of "Logo Settings.txt".
enum class LogoReport { kSoundingPlot = 0, kSoundingList, kDissipationPlot, kDissipationList, kSeismicGraph };
// "Adjust Logo (PX Sounding Plot)", "Adjust Logo (QRD Seismic Graph)" and so on.
std::string AdjustLogoCaption(ReportFamily family, LogoReport report);
// cmdUp, cmdDown, cmdLeft, cmdRight: 10 units on each ticked kind.
inline constexpr int kLogoStep = 10;
void MoveLogo(LogoSettings& logo, const std::array<bool, kLogoReportKinds>& ticked, int dx, int dy);
void ScaleLogo(LogoSettings& logo, const std::array<bool, kLogoReportKinds>& ticked, float percent);
// cmdResetToDefault: scale 100, offsets 0 for the ticked kinds.
void ResetLogo(LogoSettings& logo, const std::array<bool, kLogoReportKinds>& ticked);
// cmdSaveSettings: "Logo Settings.txt".
void SaveLogoSettings(Session& session);

// The print settings window's caption: "PX DAS SOUNDING PLOT SETTINGS", "QRD FIELDBOX SEISMIC
// COVERSHEET SETTINGS"...; list_pages for the list tab.
std::string PrintSettingsCaption(ReportFamily family, ReportKind kind, bool list_pages);
// The save menu: "Save PX DAS Settings" or "Save QRD FieldBox Settings".
std::string SaveSettingsMenuText(ReportFamily family);
inline constexpr const char* kSettingsChangedQuestion = "SETTINGS CHANGED. SAVE NEW SETTINGS?";
inline constexpr const char* kListReloadMessage = "List data must be reloaded for this change to take effect";
// mnuSaveSettings: writes the family's file of the kind from the session.
void SavePrintSettings(const Session& session, ReportFamily family, ReportKind kind);
// "LAST PRINT SETTINGS.txt".
void SaveLastPrintSettings(const Session& session);

// The family whose print settings a report of the open file takes.
ReportFamily SoundingReportFamily(const Session& session);
ReportFamily DissipationReportFamily(const Session& session);
ReportFamily SeismicReportFamily(Session& session);

// A settings file of the data directory replaced atomically.
void WriteSettingsFile(const Session& session, const std::string& name, const std::string& bytes);

}  // namespace marlview
