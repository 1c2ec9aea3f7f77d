// The dissipation store: one dissipation file of up to 100 tests, each at its own depth, with the
// two percentage series derived on load.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/model/fixed_table.h"

namespace marlview {

struct UnitTables;

inline constexpr int kMaxDissipations = 100;
inline constexpr int kMaxDissipationRows = 10000;
// The depth table is declared wider than the row tables, so a file of more than 100 tests fails
// only at the first row of test 101.
inline constexpr int kDissipationDepthSlots = 540;
inline constexpr int kMaxDissipationChannels = 100;
inline constexpr int kPxHeaderLines = 20;
inline constexpr float kUndefinedWaterTable = -99.0f;
// FLDACQ files record psi; their pressure unit is always shown so.
inline constexpr float kFldacqPressurePerMetreHead = 1.4238850f;

enum DissipationFileKind : int16_t {
  kPxDasDissipation = 0,
  kFieldboxDissipation = 1,
  kFldacqDissipation = 2,
  // A GEF DISS report: one test, pressures in kPa, read only.
  kGefDissipation = 3,
};

// The last T50 and ch worked out for a test, kept for the AGS export; Has* false until one is.
struct ConsolidationResult {
  bool HasT50 = false;
  bool HasCh = false;
  float U0 = 0, U100 = 0, T50 = 0;
  // m2/s, with the rigidity index it was worked out for.
  double Ch = 0;
  float RigidityIndex = 0;
};

struct DissipationSet {
  DissipationSet();

  // Empties the tests in use and the header, keeping what a new file does not always set: the
  // kind (a .DIS file of unknown first line is read as the kind before it) and the water table.
  void Reset();

  int16_t FileKind = kFieldboxDissipation;
  int16_t DissipationCount = 0;
  std::array<float, kDissipationDepthSlots + 1> TestDepth{};
  std::array<int16_t, kMaxDissipationRows + 1> RowCount{};
  // [test][row]: the row index is the second subscript, as the tables are declared.
  FixedTable<int32_t> RowTime;
  FixedTable<float> RowChannelA;
  FixedTable<float> RowChannelB;
  FixedTable<float> RowPressure;
  FixedTable<float> PercentMax;
  FixedTable<float> PercentHead;
  // PX DAS only: each row as read, kept so a writer can give back its other columns; [test][row].
  std::vector<std::vector<std::string>> RowText;
  std::array<float, kMaxDissipations + 1> MaxPressure{};
  std::array<float, kMaxDissipations + 1> HydrostaticPressure{};
  // Metres; -99 is undefined.
  float WaterTableDepth = kUndefinedWaterTable;
  float PressurePerMetreHead = 0;
  int16_t PressureUnitIndex = 0;
  std::string PressureUnitName;
  std::string SectionMarker;

  int16_t ChannelCount = 0;
  std::array<std::string, kMaxDissipationChannels + 1> ChannelName;
  std::array<std::string, kMaxDissipationChannels + 1> ChannelSensor;
  std::array<int16_t, kMaxDissipationChannels + 1> ChannelKind{};
  std::array<std::string, kMaxDissipationChannels + 1> ChannelUnit;
  std::array<float, kMaxDissipationChannels + 1> ChannelBaseline{};
  std::array<std::array<float, 5>, kMaxDissipationChannels + 1> ChannelCal{};
  // The first session pore pressure channel of the channel block, 0 when none.
  int16_t PorePressureChannel = 0;
  std::array<std::string, kPxHeaderLines + 1> PXHeaderLine;
  int16_t PressureColumn = 0;
  // PX DAS: the pressure column's title, eleven characters from "PRESSURE U".
  std::string PressureChannelName;
  // PX DAS: the GPS sentence of line 12 as read, given back whole when the file is saved.
  std::string PxGpsSentence;
  // QRD FIELDBOX lines nothing here interprets, kept whole so a save gives them back: the sample
  // rate line and the channel block's unit factor, offset, unit and conversion rows.
  std::string SampleRateLine;
  std::vector<std::string> ChannelBlockTail;

  // QRD FIELDBOX and FLDACQ header.
  std::string TestId, Operator, Crew, Project, Site, Location, Comments, TestDate, StartTime;
  std::string GpsLatitude, GpsLongitude, GpsElevation, GpsSatellites, GpsQuality;
  std::string Client, ClientRepresentative, Weather, DasVersion, DasSystem, ProbeSerialNumber;
  // PX DAS header.
  std::string Customer, OperatorName, ConeId, PxLocation, JobNumber, HoleNumber, TestDateText;
  std::string Comment1, Comment2, Comment3;

  // GEF: field 1 of #PARENT, the sounding the test was made in; empty for the other kinds.
  std::string ParentFile;
  std::array<ConsolidationResult, kMaxDissipations + 1> LastConsolidation{};

  // The file, as the open dialog gave it.
  std::string DissipationPath;
  std::string DissipationFileName;

 private:
  // Tests 0..high_test_ hold rows; only they are cleared or copied.
  int high_test_ = 0;
  friend class DissipationRows;
};

// Access to a test's rows that keeps the high-water mark the store clears by.
class DissipationRows {
 public:
  // Adds a row to test i and returns its index; row 10001 or test 101 is "Subscript out of range".
  static int Append(DissipationSet& set, int test);
  // Removes test i: the later tests move down one place and the count falls by one.
  static void RemoveTest(DissipationSet& set, int test);
};

// Pressure as a percentage of the test's largest pressure; 0 throughout when that is exactly 0.
void ComputeMaxPercent(DissipationSet& set, int test);
// Excess pressure as a percentage of the hydrostatic pressure at the test's depth; 0 throughout
// when the water table is undefined or not above the test.
void ComputeHeadPercent(DissipationSet& set, int test);

// The pressure unit in brackets: the file's own for PX DAS, the unit table's for QRD FIELDBOX,
// "(PSI)" for FLDACQ.
std::string DissipationUnitText(const DissipationSet& set, const UnitTables& units);

// The three lines of lblDissipationInfo: file, location and water table in the depth unit.
std::string SetDissipationInfo(const DissipationSet& set, bool metric, float feet_per_metre);

}  // namespace marlview
