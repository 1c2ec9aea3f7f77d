// Start-up: settings files in the order the main window reads them.
#include "core/shell/startup.h"

#include <filesystem>
#include <functional>

#include "core/common/file_access.h"
#include "core/common/number_read.h"
#include "core/common/runtime_failure.h"
#include "core/derivation/sbt1983.h"
#include "core/settings/templates.h"

namespace marlview {
namespace fs = std::filesystem;
namespace {

constexpr int kOrderedEcpChannelLines = 52;
constexpr int kLastPrintSettingsWords = 12;

// Reads one settings file through reader when it exists; a failure is reported and the default kept.
void ReadSetting(Session& session, UserPrompts& prompts, const std::string& name, const char* source,
                 const std::function<void(std::string_view)>& reader) {
  const auto bytes = TryReadWholeFile(session.SettingsPath(name));
  if (!bytes) return;
  TellFailures(prompts, source, [&] { reader(*bytes); });
}

// A file of one 16-bit word.
void ReadOneWord(Session& session, UserPrompts& prompts, const std::string& name, int16_t& word) {
  ReadSetting(session, prompts, name, "Form_Load",
              [&](std::string_view b) { word = ToSetting16(ReadNumberLines(b, 1)[0]); });
}

// Writes a default back at once, so the next run and the settings dialogs find the file.
void WriteBackWhenMissing(Session& session, UserPrompts& prompts, const std::string& name,
                          const std::string& bytes) {
  const std::string path = session.SettingsPath(name);
  if (FileExists(path)) return;
  TellFailures(prompts, "Form_Load", [&] { WriteFileAtomically(path, bytes); });
}

// The two families' print settings of one report kind; a file that fails keeps all its defaults.
void ReadReportHeaders(Session& session, UserPrompts& prompts, ReportKind kind) {
  for (ReportFamily family : {ReportFamily::kQrdFieldbox, ReportFamily::kPxDas}) {
    ReadSetting(session, prompts, ReportSettingsFileName(family, kind), ReportSettingsReader(family, kind).c_str(),
                [&](std::string_view b) { session.Report(family, kind) = ReadReportSettings(b, family, kind); });
  }
}

}  // namespace

void InstallMissingDefaults(const SessionPaths& paths) {
  std::error_code error;
  fs::create_directories(paths.data_directory, error);
  if (!DirectoryExists(paths.defaults_directory)) return;
  for (const auto& entry : fs::directory_iterator(paths.defaults_directory, error)) {
    if (!entry.is_regular_file(error)) continue;
    const std::string target = paths.data_directory + "/" + entry.path().filename().string();
    if (FileExists(target)) continue;
    if (auto bytes = TryReadWholeFile(entry.path().string())) WriteFileAtomically(target, *bytes);
  }
}

void RunStartup(Session& session, UserPrompts& prompts) {
  session.flags = WindowFlags{};
  session.Sounding().AcquisitionFamily = kNoSounding;
  session.FeetPerMetre = kFeetPerMetre;
  // Numbers are read and written with "." whatever the desktop's locale says.
  session.DecimalComma = false;
  TellFailures(prompts, "Form_Load", [&] { InstallMissingDefaults(session.Paths()); });
  SetupTYRChannels(session.units, session.Paths().data_directory, session.FeetPerMetre);

  ReadSetting(session, prompts, "Sounding Selection Settings", "Form_Load", [&](std::string_view b) {
    session.SoundingSelectionMode = ToSetting16(ReadNumberLines(b, 1)[0]);
  });
  ReadSetting(session, prompts, "Column Widths", "Form_Load", [&](std::string_view b) {
    session.ColumnWidth = ToInteger16(ReadNumberLines(b, 1)[0]);
  });
  ReadSetting(session, prompts, "SBT brightness factor.txt", "Form_Load", [&](std::string_view b) {
    session.SbtBrightnessFactor = ToSingle(ReadNumberLines(b, 1)[0]);
  });
  session.rod_break = RodBreakSettings{};
  session.general = GeneralSettings{};
  session.custom_headers = CustomHeaders{};
  session.logo = LogoSettings{};
  session.print_settings = PrintSettings{};
  session.DefaultPPFormat = 0;
  session.DefaultEcpUnits = 0;
  session.PrintSeismicTxtHeader = 0;
  session.NormalisedClassification = 0;
  session.MultipleSoundingMode = 0;
  session.MultipleSoundingScaling = 0;
  session.TemplateSelection.clear();
  ReadSetting(session, prompts, "Rod Break Threshold.txt", "Form_Load",
              [&](std::string_view b) { session.rod_break = ReadRodBreakSettings(b); });
  WriteBackWhenMissing(session, prompts, "Rod Break Threshold.txt",
                       WriteRodBreakSettings(session.rod_break));
  ReadSetting(session, prompts, "Logo Scale Factor.txt", "Form_Load", [&](std::string_view b) {
    session.LogoScaleFactor = ToSingle(ReadNumberLines(b, 1)[0]);
  });
  WriteBackWhenMissing(session, prompts, "Logo Scale Factor.txt", NumberLine(session.LogoScaleFactor));
  ReadSetting(session, prompts, "Dimensio.csv", "Form_Load", [&](std::string_view b) {
    session.probe_dimensions = ReadProbeDimensions(b, session.FeetPerMetre);
  });
  for (int id = 1; id <= kLastSettingsId; ++id) {
    if (!HasChannelSettings(id)) continue;
    ReadSetting(session, prompts, "Export Labels Channel " + std::to_string(id) + ".txt",
                "ReadExportLabels",
                [&](std::string_view b) { ReadExportLabels(session.choices, id, b); });
  }
  // The record shows its defaults in the dialog; the depth unit and the duplicate depth check of
  // the readers follow it once a file says so.
  session.DepthUnitsFlag = 1;
  session.DepthUnitIsMetric = 1;
  session.DuplicateDepthCheck = 0;
  session.DuplicateDepthThreshold = 0;
  ReadSetting(session, prompts, "GENERAL SETTINGS.txt", "ReadGeneralSettings", [&](std::string_view b) {
    session.general = ReadGeneralSettings(b);
    session.DepthUnitsFlag = session.general.DefaultDepthUnits;
    session.DepthUnitIsMetric = session.general.DefaultDepthUnits;
    session.DuplicateDepthCheck = session.general.SuppressDuplicateDepths;
    session.DuplicateDepthThreshold = session.general.DuplicateDepthTolerance;
  });
  ReadSetting(session, prompts, "LAST PRINT SETTINGS.txt", "ReadLastPrintSettings",
              [&](std::string_view b) {
                const auto words = ReadNumberLines(b, kLastPrintSettingsWords);
                for (int i = 0; i < kLastPrintSettingsWords; ++i) {
                  session.LastPrintSettings[i] = ToSetting16(words[i]);
                }
              });
  ReadSetting(session, prompts, "CUSTOM HEADERS.txt", "ReadCustomHeaders",
              [&](std::string_view b) { session.custom_headers = ReadCustomHeaders(b); });
  ReadReportHeaders(session, prompts, ReportKind::kSounding);
  ReadReportHeaders(session, prompts, ReportKind::kDissipation);
  ReadReportHeaders(session, prompts, ReportKind::kSeismic);
  ReadSetting(session, prompts, "Ordered ECP Channels.txt", "ReadOrderedEcpChannels",
              [&](std::string_view b) {
                std::vector<int16_t> order;
                for (double n : ReadNumberLines(b, kOrderedEcpChannelLines)) order.push_back(ToSetting16(n));
                session.OrderedEcpChannels = std::move(order);
              });
  ReadSetting(session, prompts, "Display Units.txt", "ReadDisplayUnits", [&](std::string_view b) {
    // A file that ends early keeps every choice as it was, not half of them.
    ChannelChoices choices = session.choices;
    ReadDisplayUnits(choices, b);
    session.choices = std::move(choices);
  });
  ReadReportHeaders(session, prompts, ReportKind::kVideo);
  ReadSetting(session, prompts, "Ball Tip Area Calculation.txt", "Form_Load", [&](std::string_view b) {
    session.BallAreaDoubled = ToSetting16(ReadNumberLines(b, 1)[0]);
  });
  ReadSetting(session, prompts, "Logo Settings.txt", "ReadLogoSettings",
              [&](std::string_view b) { session.logo = ReadLogoSettings(b); });
  ReadOneWord(session, prompts, "DefaultPPFormat.txt", session.DefaultPPFormat);
  ReadOneWord(session, prompts, "Default ECP Units.txt", session.DefaultEcpUnits);
  ReadOneWord(session, prompts, "Print Seismic TXT Export Header.txt", session.PrintSeismicTxtHeader);
  ReadOneWord(session, prompts, kNormalisedClassificationFile, session.NormalisedClassification);
  ReadSetting(session, prompts, "Multiple Sounding Preferences.txt", "Form_Load", [&](std::string_view b) {
    const auto words = ReadNumberLines(b, 2);
    const int16_t mode = ToSetting16(words[0]);
    session.MultipleSoundingScaling = ToSetting16(words[1]);
    session.MultipleSoundingMode = mode;
  });
  session.DefaultTemplate = ReadDefaultTemplateName(session.Paths().data_directory);
  // The soil behaviour charts: without the 1983 table every reading is unclassified on it.
  const bool read = TellFailures(prompts, "SetChartData", [&] {
    SetChartData(session.chart, ReadWholeFile(session.SettingsPath("intubc.asc")));
  });
  if (!read) SetChartData(session.chart, "0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, \"\"");
}

}  // namespace marlview
