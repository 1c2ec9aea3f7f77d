// The one session: every process-wide store and setting of a run of the program.
#pragma once

#include <array>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "core/model/catalogue.h"
#include "core/model/sounding_slots.h"
#include "core/model/sounding_store.h"
#include "core/model/unit_tables.h"
#include "core/session/chart_data.h"
#include "core/session/dissipation_set.h"
#include "core/session/seismic_store.h"
#include "core/session/sounding_set.h"
#include "core/session/verification_record.h"
#include "core/settings/report_settings.h"
#include "core/settings/settings_files.h"

namespace marlview {

inline constexpr const char* kProgramTitle = "Marlview Version 3.1.6";
inline constexpr float kFeetPerMetre = (100 / 2.54f) / 12;

struct SessionPaths {
  // Where the settings files live.
  std::string data_directory;
  // The installed defaults copied into the data directory when missing.
  std::string defaults_directory;
};

// The data directory: the override when given, else $MARLVIEW_DATA_DIR, else
// $XDG_DATA_HOME/Marlview, else ~/.local/share/Marlview.
std::string ResolveDataDirectory(const std::string& override_directory = {});
// The installed defaults: $MARLVIEW_DEFAULTS_DIR, else share/marlview/defaults beside the program's
// folder, else the source tree's data/defaults.
std::string ResolveDefaultsDirectory(const std::string& program_directory = {});

// Windows that hold a view of the current sounding; a new file may be read only when all are closed.
struct WindowFlags {
  bool PlotWindowOpen = false;
  bool ListWindowOpen = false;
  bool EcpWindowOpen = false;
  bool EditWindowOpen = false;
  // The rod break tool, over whichever of them opened it.
  bool TipGraphWindowOpen = false;
};

class Session {
 public:
  explicit Session(SessionPaths paths);
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  const SessionPaths& Paths() const { return paths_; }
  // The settings file of a name such as "GENERAL SETTINGS.txt", in the data directory.
  std::string SettingsPath(const std::string& name) const;

  SoundingStore& Sounding() { return *sounding_; }
  const SoundingStore& Sounding() const { return *sounding_; }
  // A store to read a new file into; it becomes the current sounding only by CommitSounding, so a
  // read that fails leaves the current sounding as it was.
  SoundingStore& SpareStore() { return *spare_; }
  void CommitSounding();

  SoundingSlots& Slots() { return *slots_; }
  // Puts store in the current sounding's place and gives back the one that was there: a test of
  // the set is made current, and put back, without copying its readings.
  std::unique_ptr<SoundingStore> ExchangeSounding(std::unique_ptr<SoundingStore> store);
  // The several-soundings mode's set.
  SoundingSet set;

  DissipationSet& Dissipation() { return *dissipation_; }
  const DissipationSet& Dissipation() const { return *dissipation_; }
  // A store to read a new dissipation file into; CommitDissipation makes it the current file.
  DissipationSet& SpareDissipation() { return *spare_dissipation_; }
  void CommitDissipation();
  // The seismic test set, allocated at its first use; a new file is read into the spare store and
  // becomes current only by CommitSeismic.
  SeismicStore& Seismic();
  SeismicStore& SpareSeismic();
  void CommitSeismic();

  UnitTables units;
  ChannelChoices choices;
  GeneralSettings general;
  RodBreakSettings rod_break;
  std::vector<ProbeDimensions> probe_dimensions;
  CustomHeaders custom_headers;
  // The 1983 chart's table and the zone labels of every chart.
  ChartData chart;
  // A combined or side-by-side view of several soundings is open: push speed is not derived.
  bool CombinedModeActive = false;
  LogoSettings logo;
  // The furniture of every report, by family and report kind.
  PrintSettings print_settings;
  ReportSettings& Report(ReportFamily family, ReportKind kind) { return print_settings.Of(family, kind); }
  const ReportSettings& Report(ReportFamily family, ReportKind kind) const { return print_settings.Of(family, kind); }

  float FeetPerMetre = kFeetPerMetre;
  bool DecimalComma = false;
  // A GEF sounding's depth is its corrected depth column (quantity 11), not its penetration length.
  bool GefCorrectedDepth = false;
  // 1: depths shown in metres; any other value: feet.
  int16_t DepthUnitIsMetric = 1;
  int16_t DepthUnitsFlag = 1;
  bool PiezoFilterPresent = false;
  int16_t DuplicateDepthCheck = 0;
  float DuplicateDepthThreshold = 0;
  int16_t BallAreaDoubled = 0;
  int16_t SoundingSelectionMode = 1;
  int32_t ColumnWidth = 21;
  float SbtBrightnessFactor = 0;
  float LogoScaleFactor = 100;
  std::array<int16_t, 12> LastPrintSettings{};
  int16_t DefaultPPFormat = 0;
  int16_t DefaultEcpUnits = 0;
  int16_t PrintSeismicTxtHeader = 0;
  // "Normalised Classification.txt": 1 adds the normalised soil behaviour type channels behind
  // Push Speed.
  int16_t NormalisedClassification = 0;
  // "Multiple Sounding Preferences.txt": 0 batch; the scaling word.
  int16_t MultipleSoundingMode = 0;
  int16_t MultipleSoundingScaling = 0;
  // The default template's file name ("Bridge.tem"), empty for none.
  std::string DefaultTemplate;
  // The stored selection UseSoundingTemplate applies: channel names in order.
  std::vector<std::string> TemplateSelection;
  std::vector<int16_t> OrderedEcpChannels;
  std::vector<std::string> OrderedEcpNames;

  // -1: ask; otherwise the answer given once for a run of opens.
  int16_t StartDepthAnswer = -1;
  int16_t RemoveSpikesAnswer = -1;

  WindowFlags flags;
  bool SoundingOpen = false;
  std::string SoundingDirectory;
  int CurrentSlot = 0;
  std::string DissipationDirectory;
  // The verification file on show.
  VerificationRecord Verification;

 private:
  SessionPaths paths_;
  std::unique_ptr<SoundingStore> sounding_;
  std::unique_ptr<SoundingStore> spare_;
  std::unique_ptr<SoundingSlots> slots_;
  std::unique_ptr<DissipationSet> dissipation_;
  std::unique_ptr<DissipationSet> spare_dissipation_;
  std::unique_ptr<SeismicStore> seismic_;
  std::unique_ptr<SeismicStore> spare_seismic_;
};

}  // namespace marlview
