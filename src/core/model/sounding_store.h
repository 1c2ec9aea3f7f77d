// The current sounding: fixed tables of readings and channels that every reader fills and every
// plot, list, export and editor reads. Rows and channels are 1-based; row 0 and channel 0 stay empty.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/model/column_table.h"
#include "core/model/gef_record.h"

namespace marlview {

inline constexpr int kMaxReadings = 10000;
inline constexpr int kMaxChannels = 100;
inline constexpr int kMaxCptRawChannels = 20;
inline constexpr int kDeclaredTableRows = 30000;
inline constexpr int kWideTableColumns = 540;
inline constexpr int kChannelReadingColumns = 500;
inline constexpr int kOutputKinds = 5;
inline constexpr int kFixedPressureTables = 4;
inline constexpr int kCalRows = 5;

// Every channel is held once per output, each in the unit the user chose for that output.
enum OutputKind : int { kGraphOutput = 0, kTxtOutput = 1, kEcpOutput = 2, kCsvOutput = 3, kCorOutput = 4 };

// Column of channel c in kind k of ChannelReadings and AlignedReadings.
constexpr int KindColumn(int channel, int kind) { return channel + 100 * kind; }

// Acquisition families of a sounding.
enum AcquisitionFamilyCode : int16_t {
  kNoSounding = -1,
  kPxDasFamily = 0,
  kKorvanDatFamily = 1,
  kPlainDatFamily = 2,
  // A GEF exchange file: read only, pressures in kPa, and a reading may be missing.
  kGefFamily = 3,
};

// The families whose pressures are kPa; every other family records psi.
constexpr bool IsKpaFamily(int family) { return family == kPxDasFamily || family == kGefFamily; }

using PerKind = std::array<std::string, kOutputKinds>;
template <typename T>
using PerChannel = std::array<T, kMaxChannels + 1>;

// Per-channel tables, indexed 1..100.
struct ChannelTables {
  PerChannel<std::string> ChannelName;
  PerChannel<std::string> ChannelSensor;
  PerChannel<std::string> ChannelShortName;
  PerChannel<std::string> ChannelLegend;
  // The short legend alone ("Qc"); ChannelLegend adds the unit text and a colon to it.
  PerChannel<std::string> ChannelShortLegend;
  PerChannel<PerKind> ChannelLabel;
  PerChannel<PerKind> ChannelUnitLabel;
  PerChannel<PerKind> ChannelFormat;
  PerChannel<std::array<int16_t, kOutputKinds>> ChannelDisplayUnit{};
  PerChannel<std::array<float, kOutputKinds>> ChannelUnitFactor{};
  PerChannel<int16_t> ChannelCatalogueId{};
  PerChannel<int16_t> ChannelUnitGroup{};
  PerChannel<int16_t> ChannelDefaultUnit{};
  PerChannel<bool> ChannelEnabled{};
  PerChannel<int16_t> ChannelCurveStyle{};
  PerChannel<float> ChannelPascalFactor{};
  PerChannel<float> ChannelBaseline{};
  PerChannel<std::array<float, kCalRows>> ChannelCalRows{};
  PerChannel<std::array<float, kCalRows>> ChannelUnitFactorRows{};
  PerChannel<float> ChannelOffset{};
  PerChannel<float> ChannelEndBaseline{};
  PerChannel<std::array<float, kOutputKinds>> EndBaselineValues{};
  PerChannel<float> ChannelZero{};
  PerChannel<float> ChannelSensitivity{};
  PerChannel<float> ChannelRange{};
  // Units of a derived channel's value before its unit factor: pascals per unit for shear strength,
  // kg/m3 per pound per cubic foot for wet density, 1 for push speed.
  PerChannel<float> ChannelBaseFactor{};
  // The unit's name without brackets, per output.
  PerChannel<PerKind> ChannelUnitName;
  // The closing baseline of the tip as corrected tip, per output, kept at the corrected tip's channel.
  PerChannel<std::array<float, kOutputKinds>> FinalBaselineValue{};
  // First and last depth of a channel added from a text file.
  PerChannel<float> ChannelDataStart{};
  PerChannel<float> ChannelDataEnd{};
  // PX DAS channel table, kept as the file gave it so that a save writes it back: the channel
  // number and name cells (trimmed), the unit after the range, the text row and the number row.
  PerChannel<std::string> CptChannelNumber;
  PerChannel<std::string> CptChannelName;
  PerChannel<std::string> CptUnitText;
  PerChannel<std::string> CptRowTextA;
  PerChannel<float> CptRowNumberB{};
  // The closing baseline line of a PX DAS file, as read.
  PerChannel<float> CptEndBaseline{};
};

// Which channel plays each role; 0 when the sounding has none.
struct ChannelRoles {
  int16_t TipChannel = 0, TipQtChannel = 0, SleeveChannel = 0, PorePressureChannel = 0;
  int16_t ExcitationChannel = 0, TemperatureChannel = 0, InclXChannel = 0, InclYChannel = 0;
  int16_t InclTotalChannel = 0, HffdChannel = 0, LffdChannel = 0, RodDepthChannel = 0;
  int16_t ResistivityChannel = 0, ConductivityChannel = 0, FrictionRatioQcChannel = 0;
  int16_t FrictionRatioQtChannel = 0, OverburdenChannel = 0, EffOverburdenChannel = 0;
  int16_t FrictionAngleChannel = 0, ShearStrengthChannel = 0, OcrChannel = 0, Sbt83Channel = 0;
  int16_t Sbt86FrChannel = 0, Sbt86PpChannel = 0, Sbt90QtChannel = 0, Sbt90BqChannel = 0;
  int16_t SptChannel = 0, HeadPressureChannel = 0, WetDensityChannel = 0, TimeChannel = 0;
  int16_t RedChannel = 0, GreenChannel = 0, BlueChannel = 0, ClearChannel = 0, MunsellChannel = 0;
};

struct RoleField {
  const char* name;
  int16_t ChannelRoles::*member;
};
// Every role with its name, in the order of the data model.
const std::vector<RoleField>& RoleFields();

// Header text of a QRD FIELDBOX (KORVAN) file.
struct KorvanHeader {
  std::string FileVersionLine, FileProductLine, TestId, Operator, Crew, Project, Site, Location;
  std::string Comments, TestDate, StartTime, GpsLine, GpsLat, GpsLon, GpsElev, GpsNSat, GpsQual;
  std::string Client, ClientRepresentative, Weather, DasVersion, DasSystem, ProbeSerial;
  std::string ExtraHeaderLine1, ExtraHeaderLine2;
  bool ExtraHeaderPresent = false;
};

// Header text of a PX DAS file.
struct CptHeader {
  std::string CptTitle, Customer, OperatorName, ConeId, LocationName, JobNumber, HoleNumber;
  std::string TestDateText, CommentLine1, CommentLine2, CommentLine3, GpsText;
  int16_t CptDepthDecimals = 0;
};

struct HeaderField {
  const char* name;
  const std::string* value;
};
// The header text fields of the sounding's family under their data-model names.
std::vector<HeaderField> HeaderFields(const KorvanHeader& korvan, const CptHeader& cpt, int family);

struct SoundingScalars {
  int32_t ReadingCount = 0;
  int16_t ChannelCount = 0;
  int16_t TotalChannels = 0;
  int16_t AcquisitionFamily = kNoSounding;
  std::string SoundingPath, SoundingFileName, SoundingFolder;
  float StartDepth = 0, DepthInterval = 0, MaxDepth = 0;
  // Metres; -99 means undefined.
  float WaterTableDepth = -99;
  // False when the last derivation ran in a combined or side-by-side view of a set and left the
  // push speed rows empty; the set derives them again before the sounding is used alone.
  bool PushSpeedDerived = true;
  bool BallTip = false;
  float BallDiameter = 0, BallArea = 0, ConicalTipArea = 0;
  bool DepthIncrementMode = false;
  std::string SampleRate, DepthIncrement;
  bool EndBaselinePresent = false;
  int16_t DrilloutFlag = 0;
  float DrilloutDepth = 0;
  std::array<bool, kOutputKinds> TemperatureInFahrenheit{};
  bool DepthReversed = false, ColourProbePresent = false, IsMunsellFile = false;
  // The Rod Depth channel's file units, "m", "ft" or empty.
  std::string RodDefaultUnit, RodDisplayUnit;
  // The whole Sensor row of the channel table, kept to check that appended data matches.
  std::string SensorRowText;
};

class SoundingStore : public SoundingScalars,
                      public ChannelTables,
                      public ChannelRoles,
                      public KorvanHeader,
                      public CptHeader,
                      public GefRecord {
 public:
  SoundingStore();
  SoundingStore(SoundingStore&&) noexcept = default;
  SoundingStore& operator=(SoundingStore&&) noexcept = default;

  // Depth in metres [r][1] and in feet [r][2].
  ColumnTable<float> DepthTable;
  ColumnTable<float> RawReadings;
  // [r][channel + 100 * kind]
  ColumnTable<float> ChannelReadings;
  ColumnTable<float> AlignedReadings;
  ColumnTable<float> RawAlignedReadings;
  // Pressures in units 14, 11, 2 and 15 of the pressure group, whatever the user's units.
  std::array<ColumnTable<float>, kFixedPressureTables> FixedPressureReadings;
  std::array<ColumnTable<float>, kFixedPressureTables> AlignedFixedPressure;
  ColumnTable<float> CptRawReadings;
  ReadingList<float> PushSpeed;
  ReadingList<std::string> MunsellChips;
  ReadingList<std::string> RowTail;
  // The hydrostatic pressure of each reading in the pore pressure channel's unit of each output.
  ColumnTable<float> HydrostaticPressure;
  // The 1983 zone of each reading, for the classification chart.
  ReadingList<float> LastSbt83Zone;
  // [r][c], 1 where channel c has no reading at row r (a GEF void). Such a cell holds 0 in every
  // kind and mirror, and every view shows it empty. The classic families never set it, so for
  // them the table holds no memory and reads 0 throughout.
  ColumnTable<uint8_t> MissingReading;
  bool IsMissing(int row, int channel) const { return MissingReading(row, channel) != 0; }

  // Empties the sounding: family -1, no header text, zero counts and scalars, every channel enabled
  // with curve style -1, no roles, and the reading tables emptied.
  void ResetSounding();
  // Empties the engineering, aligned, raw and depth tables, giving their memory back; only the
  // columns the last sounding wrote are touched.
  void ClearReadingTables();
  // The memory the reading tables hold, in bytes.
  size_t ReadingBytesHeld() const;
};

}  // namespace marlview
