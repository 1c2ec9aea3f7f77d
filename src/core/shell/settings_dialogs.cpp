// The settings dialogs' OK and save handlers.
#include "core/shell/settings_dialogs.h"

#include <algorithm>
#include <filesystem>

#include "core/common/file_access.h"
#include "core/common/runtime_failure.h"

namespace marlview {

void WriteSettingsFile(const Session& session, const std::string& name, const std::string& bytes) {
  WriteFileAtomically(session.SettingsPath(name), bytes);
}

ReportFamily SoundingReportFamily(const Session& session) {
  // With nothing open the dialogs start on the QRD FIELDBOX set.
  if (!session.SoundingOpen) return ReportFamily::kQrdFieldbox;
  return ReportFamilyOf(session.Sounding().AcquisitionFamily);
}

ReportFamily DissipationReportFamily(const Session& session) {
  return session.Dissipation().FileKind == kPxDasDissipation ? ReportFamily::kPxDas : ReportFamily::kQrdFieldbox;
}

ReportFamily SeismicReportFamily(Session& session) {
  return session.Seismic().AcquisitionFamily == kSmcFamily ? ReportFamily::kPxDas : ReportFamily::kQrdFieldbox;
}

GeneralSettingsForm LoadGeneralSettingsForm(const Session& session) {
  GeneralSettingsForm form;
  form.general = session.general;
  form.rod_break = session.rod_break;
  form.sbt_brightness = session.SbtBrightnessFactor;
  form.logo_scale_factor = session.LogoScaleFactor;
  form.ball_tip_area_calculation = session.BallAreaDoubled;
  return form;
}

double ShownSoilDensity(float density_pcf, int16_t units) {
  return units == 1 ? density_pcf * kPcfToKgPerM3 : density_pcf;
}

float StoredSoilDensity(double shown, int16_t units) {
  return static_cast<float>(units == 1 ? shown / kPcfToKgPerM3 : shown);
}

bool ApplyGeneralSettings(Session& session, UserPrompts& prompts, const GeneralSettingsForm& form) {
  if (form.general.DuplicateDepthTolerance > kDuplicateDepthLimit_m) {
    prompts.Tell(kDuplicateDepthLimitMessage);
    return false;
  }
  session.general = form.general;
  session.DepthUnitsFlag = form.general.DefaultDepthUnits;
  session.DepthUnitIsMetric = form.general.DefaultDepthUnits;
  session.DuplicateDepthCheck = form.general.SuppressDuplicateDepths;
  session.DuplicateDepthThreshold = form.general.DuplicateDepthTolerance;
  session.rod_break = form.rod_break;
  session.SbtBrightnessFactor = form.sbt_brightness;
  session.LogoScaleFactor = form.logo_scale_factor;
  session.BallAreaDoubled = form.ball_tip_area_calculation;
  WriteSettingsFile(session, "GENERAL SETTINGS.txt", WriteGeneralSettings(session.general));
  WriteSettingsFile(session, "Ball Tip Area Calculation.txt", NumberLine(int{session.BallAreaDoubled}));
  WriteSettingsFile(session, "SBT brightness factor.txt", NumberLine(session.SbtBrightnessFactor));
  WriteSettingsFile(session, "Rod Break Threshold.txt", WriteRodBreakSettings(session.rod_break));
  WriteSettingsFile(session, "Logo Scale Factor.txt", NumberLine(session.LogoScaleFactor));
  return true;
}

void ApplyCustomHeaders(Session& session, const CustomHeaders& headers) {
  session.custom_headers = headers;
  WriteSettingsFile(session, "CUSTOM HEADERS.txt", WriteCustomHeaders(headers));
}

void ApplyDisplayUnits(Session& session, const ChannelChoices& choices) {
  session.choices = choices;
  WriteSettingsFile(session, "Display Units.txt", WriteDisplayUnits(choices));
}

std::string LogoPath(const Session& session) { return session.SettingsPath("logo.jpg"); }

void StoreLogo(Session& session, const std::string& picture_path) {
  WriteFileAtomically(LogoPath(session), ReadWholeFile(picture_path));
}

void RemoveLogo(Session& session) {
  std::error_code error;
  std::filesystem::remove(LogoPath(session), error);
}

std::string AdjustLogoCaption(ReportFamily family, LogoReport report) {
  static constexpr const char* kReports[] = {"Sounding Plot", "Sounding List", "Dissipation Plot", "Dissipation List",
                                             "Seismic Graph"};
  return std::string("Adjust Logo (") + (family == ReportFamily::kPxDas ? "PX " : "QRD ") +
         kReports[static_cast<int>(report)] + ")";
}

void MoveLogo(LogoSettings& logo, const std::array<bool, kLogoReportKinds>& ticked, int dx, int dy) {
  for (size_t k = 0; k < kLogoReportKinds; ++k) {
    if (!ticked[k]) continue;
    logo.LogoOffsetX[k] = static_cast<int16_t>(std::clamp(logo.LogoOffsetX[k] + dx, -32768, 32767));
    logo.LogoOffsetY[k] = static_cast<int16_t>(std::clamp(logo.LogoOffsetY[k] + dy, -32768, 32767));
  }
}

void ScaleLogo(LogoSettings& logo, const std::array<bool, kLogoReportKinds>& ticked, float percent) {
  for (size_t k = 0; k < kLogoReportKinds; ++k) {
    if (ticked[k]) logo.LogoScale[k] = percent;
  }
}

void ResetLogo(LogoSettings& logo, const std::array<bool, kLogoReportKinds>& ticked) {
  for (size_t k = 0; k < kLogoReportKinds; ++k) {
    if (!ticked[k]) continue;
    logo.LogoScale[k] = 100;
    logo.LogoOffsetX[k] = 0;
    logo.LogoOffsetY[k] = 0;
  }
}

void SaveLogoSettings(Session& session) {
  WriteSettingsFile(session, "Logo Settings.txt", WriteLogoSettings(session.logo));
}

std::string PrintSettingsCaption(ReportFamily family, ReportKind kind, bool list_pages) {
  std::string caption(ReportFamilyName(family));
  switch (kind) {
    case ReportKind::kSounding: caption += list_pages ? " SOUNDING LIST" : " SOUNDING PLOT"; break;
    case ReportKind::kDissipation: caption += list_pages ? " DISSIPATION LIST" : " DISSIPATION PLOT"; break;
    case ReportKind::kSeismic: caption += " SEISMIC COVERSHEET"; break;
    case ReportKind::kVideo: caption += " OCPT COVERSHEET"; break;
  }
  return caption + " SETTINGS";
}

std::string SaveSettingsMenuText(ReportFamily family) {
  return family == ReportFamily::kPxDas ? "Save PX DAS Settings" : "Save QRD FieldBox Settings";
}

void SavePrintSettings(const Session& session, ReportFamily family, ReportKind kind) {
  WriteSettingsFile(session, ReportSettingsFileName(family, kind),
                    WriteReportSettings(session.Report(family, kind), kind));
}

void SaveLastPrintSettings(const Session& session) {
  std::string bytes;
  for (int16_t word : session.LastPrintSettings) bytes += NumberLine(int{word});
  WriteSettingsFile(session, "LAST PRINT SETTINGS.txt", bytes);
}

}  // namespace marlview
