// The dissipation store, its percentage series and the main window's information lines.
#include "core/session/dissipation_set.h"

#include <algorithm>
#include <cstring>

#include "core/common/number_format.h"
#include "core/common/runtime_failure.h"
#include "core/model/unit_tables.h"

namespace marlview {
namespace {

// Gives back a text's memory, so a store holds only what its current file needs.
void Release(std::string& text) { std::string().swap(text); }

}  // namespace

DissipationSet::DissipationSet()
    : RowTime(kMaxDissipations, kMaxDissipationRows),
      RowChannelA(kMaxDissipations, kMaxDissipationRows),
      RowChannelB(kMaxDissipations, kMaxDissipationRows),
      RowPressure(kMaxDissipations, kMaxDissipationRows),
      PercentMax(kMaxDissipations, kMaxDissipationRows),
      PercentHead(kMaxDissipations, kMaxDissipationRows),
      RowText(kMaxDissipations + 1) {}

void DissipationSet::Reset() {
  const int16_t kind = FileKind;
  const float water_table = WaterTableDepth;
  // Only the rows in use are cleared: a test's table is 40 kB, and most of it is never touched.
  for (int i = 0; i <= high_test_; ++i) {
    const size_t used = static_cast<size_t>(RowCount[static_cast<size_t>(i)]) + 1;
    std::memset(RowTime.Row(i), 0, used * sizeof(int32_t));
    for (FixedTable<float>* table : {&RowChannelA, &RowChannelB, &RowPressure, &PercentMax, &PercentHead}) {
      std::memset(table->Row(i), 0, used * sizeof(float));
    }
    std::vector<std::string>().swap(RowText[static_cast<size_t>(i)]);
  }
  TestDepth.fill(0);
  RowCount.fill(0);
  LastConsolidation.fill(ConsolidationResult{});
  Release(ParentFile);
  MaxPressure.fill(0);
  HydrostaticPressure.fill(0);
  DissipationCount = 0;
  PressurePerMetreHead = 0;
  PressureUnitIndex = 0;
  Release(PressureUnitName);
  Release(SectionMarker);
  ChannelCount = 0;
  for (auto& name : ChannelName) Release(name);
  for (auto& sensor : ChannelSensor) Release(sensor);
  for (auto& unit : ChannelUnit) Release(unit);
  ChannelKind.fill(0);
  ChannelBaseline.fill(0);
  ChannelCal.fill({});
  PorePressureChannel = 0;
  for (auto& line : PXHeaderLine) Release(line);
  PressureColumn = 0;
  Release(PressureChannelName);
  Release(PxGpsSentence);
  Release(SampleRateLine);
  std::vector<std::string>().swap(ChannelBlockTail);
  for (std::string* text : {&TestId,
                            &Operator,
                            &Crew,
                            &Project,
                            &Site,
                            &Location,
                            &Comments,
                            &TestDate,
                            &StartTime,
                            &GpsLatitude,
                            &GpsLongitude,
                            &GpsElevation,
                            &GpsSatellites,
                            &GpsQuality,
                            &Client,
                            &ClientRepresentative,
                            &Weather,
                            &DasVersion,
                            &DasSystem,
                            &ProbeSerialNumber,
                            &Customer,
                            &OperatorName,
                            &ConeId,
                            &PxLocation,
                            &JobNumber,
                            &HoleNumber,
                            &TestDateText,
                            &Comment1,
                            &Comment2,
                            &Comment3,
                            &DissipationPath,
                            &DissipationFileName}) {
    Release(*text);
  }
  high_test_ = 0;
  FileKind = kind;
  WaterTableDepth = water_table;
}

int DissipationRows::Append(DissipationSet& set, int test) {
  if (test < 0 || test > kMaxDissipations) Fail(kErrSubscript);
  const int row = set.RowCount[static_cast<size_t>(test)] + 1;
  if (row > kMaxDissipationRows) Fail(kErrSubscript);
  set.RowCount[static_cast<size_t>(test)] = static_cast<int16_t>(row);
  set.high_test_ = std::max(set.high_test_, test);
  return row;
}

void DissipationRows::RemoveTest(DissipationSet& set, int test) {
  const int count = set.DissipationCount;
  if (test < 1 || test > count || count > kMaxDissipations) Fail(kErrSubscript);
  auto clear_rows = [&](int t, int from, int to) {
    for (int k = from; k <= to; ++k) {
      set.RowTime(t, k) = 0;
      for (FixedTable<float>* table :
           {&set.RowChannelA, &set.RowChannelB, &set.RowPressure, &set.PercentMax, &set.PercentHead}) {
        (*table)(t, k) = 0;
      }
    }
  };
  for (int t = test; t < count; ++t) {
    const auto at = static_cast<size_t>(t), next = at + 1;
    const int rows = set.RowCount[next];
    const size_t used = static_cast<size_t>(rows) + 1;
    std::memcpy(set.RowTime.Row(t), set.RowTime.Row(t + 1), used * sizeof(int32_t));
    for (FixedTable<float>* table :
         {&set.RowChannelA, &set.RowChannelB, &set.RowPressure, &set.PercentMax, &set.PercentHead}) {
      std::memcpy(table->Row(t), table->Row(t + 1), used * sizeof(float));
    }
    // Rows the shorter test no longer uses are emptied, so the store stays clean past each count.
    clear_rows(t, rows + 1, set.RowCount[at]);
    set.RowCount[at] = static_cast<int16_t>(rows);
    set.TestDepth[at] = set.TestDepth[next];
    set.MaxPressure[at] = set.MaxPressure[next];
    set.HydrostaticPressure[at] = set.HydrostaticPressure[next];
    // The last ch stays with its test under the test's new number.
    set.LastConsolidation[at] = set.LastConsolidation[next];
    set.RowText[at].swap(set.RowText[next]);
  }
  const auto last = static_cast<size_t>(count);
  clear_rows(count, 1, set.RowCount[last]);
  set.RowCount[last] = 0;
  set.TestDepth[last] = 0;
  set.MaxPressure[last] = 0;
  set.HydrostaticPressure[last] = 0;
  set.LastConsolidation[last] = ConsolidationResult{};
  std::vector<std::string>().swap(set.RowText[last]);
  set.DissipationCount = static_cast<int16_t>(count - 1);
}

void ComputeMaxPercent(DissipationSet& set, int test) {
  if (test < 0 || test > kMaxDissipations) Fail(kErrSubscript);
  const int rows = set.RowCount[static_cast<size_t>(test)];
  float max = -1e30f;
  for (int k = 1; k <= rows; ++k) max = std::max(max, set.RowPressure(test, k));
  set.MaxPressure[static_cast<size_t>(test)] = max;
  for (int k = 1; k <= rows; ++k) {
    set.PercentMax(test, k) = max == 0 ? 0.0f : set.RowPressure(test, k) / max * 100.0f;
  }
}

void ComputeHeadPercent(DissipationSet& set, int test) {
  if (test < 0 || test > kMaxDissipations) Fail(kErrSubscript);
  const int rows = set.RowCount[static_cast<size_t>(test)];
  const float depth = set.TestDepth[static_cast<size_t>(test)];
  const float water_table = set.WaterTableDepth;
  float& head = set.HydrostaticPressure[static_cast<size_t>(test)];
  head = 0;
  if (water_table != kUndefinedWaterTable && water_table < depth) {
    head = (depth - water_table) * set.PressurePerMetreHead;
  }
  for (int k = 1; k <= rows; ++k) {
    // A file whose pressure unit was not found has no head to compare with.
    set.PercentHead(test, k) = head == 0 ? 0.0f : (set.RowPressure(test, k) - head) / head * 100.0f;
  }
}

std::string DissipationUnitText(const DissipationSet& set, const UnitTables& units) {
  switch (set.FileKind) {
    case kPxDasDissipation:
    case kGefDissipation:
      return "(" + set.PressureUnitName + ")";
    case kFieldboxDissipation:
      return "(" + units.Name(set.PressureUnitIndex, kPressureGroup) + ")";
    default:
      return "(PSI)";
  }
}

std::string SetDissipationInfo(const DissipationSet& set, bool metric, float feet_per_metre) {
  std::string info = "FILENAME: " + set.DissipationFileName + "\n";
  info += "LOCATION: " + (set.FileKind == kPxDasDissipation ? set.PxLocation : set.Location) + "\n";
  if (set.WaterTableDepth == kUndefinedWaterTable) {
    info += "WATER TABLE DEPTH: UNDEFINED";
  } else {
    const double depth = metric ? set.WaterTableDepth : set.WaterTableDepth * feet_per_metre;
    info += "WATER TABLE DEPTH: " + FormatNumber(depth, "###0.00") + (metric ? " (m)" : " (ft)");
  }
  return info;
}

}  // namespace marlview
