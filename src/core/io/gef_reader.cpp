// The GEF sounding reader: a CPT report's columns become channels by their quantity number,
// pressures in kPa, a void reading kept as missing rather than guessed.
#include "core/io/gef_reader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "core/common/file_access.h"
#include "core/common/number_read.h"
#include "core/common/runtime_failure.h"
#include "core/common/text_rules.h"
#include "core/derivation/derived_channels.h"
#include "core/io/gef_grammar.h"
#include "core/model/catalogue.h"

namespace marlview {
namespace {

constexpr int kPenetrationLength = 1;
constexpr int kConeResistance = 2;
constexpr int kCorrectedDepth = 11;
constexpr int kElapsedTime = 12;
// MEASUREMENTVAR numbers.
constexpr int kTipAreaVar = 1;
constexpr int kNetAreaRatioVar = 3;
constexpr int kPreDrilledVar = 13;
constexpr int kGroundwaterVar = 14;
constexpr size_t kShortNameWidth = 14;

// What a quantity number becomes; the first column of each quantity takes it.
struct GefQuantityRule {
  int quantity;
  const char* name;
  const char* short_name;
  int id;
  int group;
  int16_t ChannelRoles::*role;
};

constexpr GefQuantityRule kQuantityRules[] = {
    {1, "Penetration Length", "Pen. Length", kOtherSensorId, kLengthGroup, nullptr},
    {2, "Tip Resistance (Qc)", "Tip (Qc)", 1, kPressureGroup, &ChannelRoles::TipChannel},
    {3, "Sleeve Friction", "Sleeve (Fs)", 3, kPressureGroup, &ChannelRoles::SleeveChannel},
    {4, "Rf (File)", "Rf (File)", 36, kPercentageGroup, nullptr},
    {5, "Pore Pressure U1", "Pressure (U1)", 4, kPressureGroup, nullptr},
    {6, "Pore Pressure U2", "Pressure (U2)", 4, kPressureGroup, &ChannelRoles::PorePressureChannel},
    {7, "Pore Pressure U3", "Pressure (U3)", 4, kPressureGroup, nullptr},
    {8, "Inclination Resultant", "Incl. Res.", 9, kInclinationGroup, nullptr},
    {9, "Inclination NS", "Incl. NS", 7, kInclinationGroup, nullptr},
    {10, "Inclination EW", "Incl. EW", 8, kInclinationGroup, nullptr},
    {11, "Corrected Depth", "Corr. Depth", kOtherSensorId, kLengthGroup, nullptr},
    {12, "Elapsed Time", "Time", kOtherSensorId, kNoUnitsGroup, nullptr},
    {13, "Qt (File)", "Qt (File)", 2, kPressureGroup, nullptr},
    {21, "Inclination X", "Inclination X", 7, kInclinationGroup, &ChannelRoles::InclXChannel},
    {22, "Inclination Y", "Inclination Y", 8, kInclinationGroup, &ChannelRoles::InclYChannel},
};

const GefQuantityRule* RuleOf(int quantity) {
  for (const GefQuantityRule& rule : kQuantityRules) {
    if (rule.quantity == quantity) return &rule;
  }
  return nullptr;
}

// One channel of the file: which column feeds it and how its number becomes the value.
struct PlannedChannel {
  int column = 0;
  const GefQuantityRule* rule = nullptr;
  // Times the file's number gives kPa, for a pressure; 1 otherwise.
  double to_kpa = 1;
};

// "2019, 02, 13" as "2019-02-13"; a part that is not a whole number stays as written.
std::string JoinedParts(const GefDocument& doc, std::string_view key, std::array<int, 3> widths, char joint) {
  const GefHeaderLine* line = doc.First(key);
  if (line == nullptr) return {};
  std::string joined;
  for (size_t i = 0; i < widths.size(); ++i) {
    if (i > 0) joined += joint;
    const std::string_view part =
        i < line->fields.size() ? std::string_view(line->fields[i]) : std::string_view();
    const std::optional<double> number = StrictNumberOrNone(part);
    if (number && *number >= 0 && std::floor(*number) == *number && *number < 1e6) {
      std::string digits = std::to_string(static_cast<int>(*number));
      if (digits.size() < static_cast<size_t>(widths[i]))
        digits.insert(0, static_cast<size_t>(widths[i]) - digits.size(), '0');
      joined += digits;
    } else {
      joined += part;
    }
  }
  return joined;
}

class GefSoundingReader {
 public:
  GefSoundingReader(const GefDocument& doc, const std::string& path, Session& session, SoundingStore& store)
      : doc_(doc), path_(path), session_(session), s_(store) {}

  // The refusal text, or "" when the sounding is read.
  std::string Read();

 private:
  std::string PlanChannels();
  void ReadHeader();
  void SetUpChannel(int c, const PlannedChannel& plan, const GefColumnInfo& info);
  std::string ReadRecords();
  void StoreReadings();
  void PushSpeedFromTime();
  void RecordColumns();

  const GefDocument& doc_;
  const std::string& path_;
  Session& session_;
  SoundingStore& s_;

  int depth_column_ = 0;
  int depth_quantity_ = kPenetrationLength;
  std::vector<PlannedChannel> plan_;
  // By row from 1 (row 0 stays empty); values and the file's numbers by channel, then row.
  std::vector<double> depth_{0};
  std::vector<std::vector<double>> values_;
  std::vector<std::vector<float>> numbers_;
  std::vector<std::vector<uint8_t>> missing_;
  int dropped_ = 0;
};

std::string GefSoundingReader::Read() {
  depth_quantity_ = session_.GefCorrectedDepth ? kCorrectedDepth : kPenetrationLength;
  if (std::string refusal = PlanChannels(); !refusal.empty()) return refusal;
  const float water_table = session_.Sounding().WaterTableDepth;
  s_.ResetSounding();
  s_.WaterTableDepth = water_table;
  s_.AcquisitionFamily = kGefFamily;
  s_.SoundingPath = path_;
  s_.SoundingFileName = std::string(FileNamePart(path_));
  s_.SoundingFolder = std::string(FolderPart(path_));
  ReadHeader();
  s_.ChannelCount = static_cast<int16_t>(plan_.size());
  for (int c = 1; c <= s_.ChannelCount; ++c) {
    const PlannedChannel& plan = plan_[static_cast<size_t>(c - 1)];
    SetUpChannel(c, plan, *doc_.Column(plan.column));
  }
  if (std::string refusal = ReadRecords(); !refusal.empty()) return refusal;
  if (s_.ReadingCount == 0) return doc_.name + ": no data lines after #EOH";
  StoreReadings();
  PushSpeedFromTime();
  const int n = s_.ReadingCount;
  s_.StartDepth = s_.DepthTable(1, 1);
  if (n >= 2) s_.DepthInterval = s_.DepthTable(2, 1) - s_.DepthTable(1, 1);
  s_.MaxDepth = s_.DepthTable(n, 1);
  try {
    ComputeDerivedChannels(session_, s_, s_.ChannelCount);
  } catch (RuntimeFailure& failure) {
    // Too many channels with the derived ones is the bound of this file, not of the pipeline.
    if (failure.number == kErrSubscript) failure.source = "ReadGefSounding";
    throw;
  }
  RecordColumns();
  return {};
}

// Channels in the order of the file's columns, the depth column left out; a column without
// #COLUMNINFO is no channel.
std::string GefSoundingReader::PlanChannels() {
  for (int column = 1; column <= doc_.column_count && depth_column_ == 0; ++column) {
    const GefColumnInfo* info = doc_.Column(column);
    if (info != nullptr && info->quantity == depth_quantity_) depth_column_ = column;
  }
  if (depth_column_ == 0) {
    return doc_.name + (depth_quantity_ == kCorrectedDepth ? ": no corrected depth column (quantity 11)"
                                                           : ": no penetration length column (quantity 1)");
  }
  std::vector<int> seen;
  for (int column = 1; column <= doc_.column_count; ++column) {
    const GefColumnInfo* info = doc_.Column(column);
    if (info == nullptr || column == depth_column_) continue;
    if (plan_.size() == static_cast<size_t>(kMaxChannels)) Fail(kErrSubscript);
    PlannedChannel plan;
    plan.column = column;
    const bool again = std::find(seen.begin(), seen.end(), info->quantity) != seen.end();
    seen.push_back(info->quantity);
    plan.rule = again ? nullptr : RuleOf(info->quantity);
    if (plan.rule != nullptr && plan.rule->group == kPressureGroup) {
      const std::optional<double> factor = GefKpaFactor(info->unit);
      if (!factor) return GefUnitRefusal(doc_, *info);
      plan.to_kpa = *factor;
    }
    plan_.push_back(plan);
  }
  const bool tip = std::any_of(plan_.begin(), plan_.end(), [](const PlannedChannel& p) {
    return p.rule != nullptr && p.rule->quantity == kConeResistance;
  });
  if (!tip) return doc_.name + ": no cone resistance column (quantity 2)";
  return {};
}

//   #TESTID= CPTU17.8          #XYID= 31000, 79578.38, 424838.97
//   #MEASUREMENTVAR= 3, 0.80, -, netto oppervlakte coefficient van de conuspunt
void GefSoundingReader::ReadHeader() {
  for (const GefHeaderLine& line : doc_.header) {
    s_.GefHeader.emplace_back(line.key, line.value);
    if (line.key == "CHILD") {
      const std::string_view file =
          line.fields.size() > 1 ? std::string_view(line.fields[1]) : std::string_view();
      const std::string_view depth =
          line.fields.size() > 2 ? std::string_view(line.fields[2]) : std::string_view();
      s_.GefChildren.push_back({std::string(file), StrictNumberOrNone(depth)});
    }
  }
  s_.TestId = doc_.Field("TESTID", 0);
  s_.Crew = doc_.Field("COMPANYID", 0);
  if (const GefHeaderLine* project = doc_.First("PROJECTID")) {
    for (size_t i = 0; i < project->fields.size(); ++i)
      s_.Project += (i > 0 ? ", " : "") + project->fields[i];
  }
  s_.TestDate =
      JoinedParts(doc_, doc_.First("STARTDATE") != nullptr ? "STARTDATE" : "FILEDATE", {4, 2, 2}, '-');
  s_.StartTime = JoinedParts(doc_, "STARTTIME", {2, 2, 2}, ':');
  s_.GpsLon = doc_.Field("XYID", 1);
  s_.GpsLat = doc_.Field("XYID", 2);
  s_.GpsElev = doc_.Field("ZID", 1);
  std::array<bool, 3> texts_taken{};
  for (const GefHeaderLine& line : doc_.header) {
    if (line.key != "MEASUREMENTTEXT" || line.fields.size() < 2) continue;
    const std::optional<double> number = StrictNumberOrNone(line.fields[0]);
    std::string* const targets[] = {&s_.Location, &s_.Comments, &s_.Site};
    const int which = !number ? -1 : *number == 4 ? 0 : *number == 6 ? 1 : *number == 9 ? 2 : -1;
    if (which < 0 || texts_taken[static_cast<size_t>(which)]) continue;
    texts_taken[static_cast<size_t>(which)] = true;
    *targets[which] = line.fields[1];
  }
  if (const std::optional<double> area = doc_.MeasurementVar(kTipAreaVar))
    s_.ConicalTipArea = ToSingle(*area);
  const std::optional<double> ratio = doc_.MeasurementVar(kNetAreaRatioVar);
  if (ratio && *ratio >= 0 && *ratio <= 1) s_.GefNetAreaRatio = ratio;
  s_.GefPreDrilledDepth = doc_.MeasurementVar(kPreDrilledVar);
  // As the other readers: only a depth below the surface replaces the water table shown.
  const std::optional<double> groundwater = doc_.MeasurementVar(kGroundwaterVar);
  if (groundwater && *groundwater > 0) s_.WaterTableDepth = ToSingle(*groundwater);
  s_.GefDepthColumn = depth_column_;
  s_.GefDepthQuantity = depth_quantity_;
}

void GefSoundingReader::SetUpChannel(int c, const PlannedChannel& plan, const GefColumnInfo& info) {
  const GefQuantityRule* rule = plan.rule;
  const std::string unit(GefUnitWord(info.unit));
  s_.ChannelEnabled[c] = true;
  s_.ChannelCurveStyle[c] = 0;
  s_.ChannelSensor[c] = info.name;
  if (rule == nullptr) {
    const std::string name = info.name.empty() ? "Column " + std::to_string(info.column) : info.name;
    s_.ChannelName[c] = name;
    s_.ChannelShortName[c] = name.substr(0, std::min(name.size(), kShortNameWidth));
  } else {
    s_.ChannelName[c] = rule->name;
    s_.ChannelShortName[c] = rule->short_name;
    if (rule->role != nullptr) s_.*(rule->role) = static_cast<int16_t>(c);
  }
  s_.ChannelShortLegend[c] = s_.ChannelShortName[c];
  const int group = rule == nullptr ? kPrivateUnitGroup : rule->group;
  const int id = rule == nullptr ? kOtherSensorId : rule->id;
  const UnitTables& units = session_.units;
  RegisterChannel(s_, units, session_.choices, c, group, id);
  s_.ChannelDefaultUnit[c] = static_cast<int16_t>(group == kPressureGroup ? kKpaUnit : 1);
  s_.ChannelUnitFactor[c].fill(1);
  if (id == kOtherSensorId) {
    // No catalogue entry: the file's unit and name are the channel's for every output.
    s_.ChannelUnitLabel[c].fill("(" + unit + ")");
    s_.ChannelLabel[c].fill(s_.ChannelName[c]);
    s_.ChannelDisplayUnit[c].fill(1);
  }
  if (group == kPressureGroup) {
    // A kPa family, as PX DAS: each output's factor goes from kPa to the unit the user chose.
    const double kpa = units.ConversionFactor(kKpaUnit, kPressureGroup);
    for (int k = 0; k < kOutputKinds; ++k) {
      const double display = units.ConversionFactor(s_.ChannelDisplayUnit[c][k], kPressureGroup);
      if (display == 0) Fail(kErrDivisionByZero);
      s_.ChannelUnitFactor[c][k] = ToSingle(kpa / display);
    }
    s_.ChannelPascalFactor[c] = 1000;
  }
  s_.ChannelLegend[c] = s_.ChannelShortLegend[c] + s_.ChannelUnitLabel[c][0] + ":";
}

std::string GefSoundingReader::ReadRecords() {
  const size_t channels = plan_.size();
  values_.assign(channels, std::vector<double>{0});
  numbers_.assign(channels, std::vector<float>{0});
  missing_.assign(channels, std::vector<uint8_t>{0});
  return ReadGefRecords(doc_, [this, channels](const GefRecordView& record) {
    const double depth = record.values[static_cast<size_t>(depth_column_)];
    // A reading needs a depth: a void depth drops the record.
    if (doc_.IsVoid(depth_column_, depth)) {
      ++dropped_;
      return;
    }
    if (s_.ReadingCount == kMaxReadings) Fail(kErrSubscript);
    ++s_.ReadingCount;
    depth_.push_back(depth);
    for (size_t i = 0; i < channels; ++i) {
      const PlannedChannel& plan = plan_[i];
      const double number = record.values[static_cast<size_t>(plan.column)];
      const bool missing = doc_.IsVoid(plan.column, number);
      numbers_[i].push_back(ToSingle(number));
      missing_[i].push_back(missing ? 1 : 0);
      values_[i].push_back(missing ? 0.0 : number * plan.to_kpa);
    }
  });
}

// Each channel's column is written down in depth order: the file's numbers as read (voids as
// written), each output, and the fixed-unit copies; a missing reading is 0 in all of them.
void GefSoundingReader::StoreReadings() {
  const int n = s_.ReadingCount;
  // Old files count the length negative downwards: the second depth tells.
  if (n >= 2 && depth_[2] < depth_[1]) {
    s_.DepthReversed = true;
    for (double& depth : depth_) depth = -depth;
  }
  float* metres = s_.DepthTable.Column(1, n);
  float* feet = s_.DepthTable.Column(2, n);
  for (int r = 1; r <= n; ++r) {
    metres[r] = ToSingle(depth_[static_cast<size_t>(r)]);
    feet[r] = ToSingle(static_cast<double>(session_.FeetPerMetre) * metres[r]);
  }
  const UnitTables& units = session_.units;
  for (int c = 1; c <= s_.ChannelCount; ++c) {
    const size_t i = static_cast<size_t>(c - 1);
    const bool pressure = s_.ChannelUnitGroup[c] == kPressureGroup;
    std::array<double, kFixedPressureTables> to_fixed;
    to_fixed.fill(1);
    if (pressure) {
      const double kpa = units.ConversionFactor(kKpaUnit, kPressureGroup);
      for (int m = 0; m < kFixedPressureTables; ++m) {
        const double unit =
            units.ConversionFactor(kFixedPressureUnits[static_cast<size_t>(m)], kPressureGroup);
        if (unit == 0) Fail(kErrDivisionByZero);
        to_fixed[static_cast<size_t>(m)] = kpa / unit;
      }
    }
    std::copy(numbers_[i].begin(), numbers_[i].end(), s_.RawReadings.Column(c, n));
    std::array<float*, kOutputKinds> aligned, engineering;
    for (int k = 0; k < kOutputKinds; ++k) {
      aligned[k] = s_.AlignedReadings.Column(KindColumn(c, k), n);
      engineering[k] = s_.ChannelReadings.Column(KindColumn(c, k), n);
    }
    std::array<float*, kFixedPressureTables> fixed, fixed_aligned;
    for (int m = 0; m < kFixedPressureTables; ++m) {
      fixed[m] = s_.FixedPressureReadings[m].Column(c, n);
      fixed_aligned[m] = s_.AlignedFixedPressure[m].Column(c, n);
    }
    const std::vector<uint8_t>& missing = missing_[i];
    const bool any_missing = std::find(missing.begin(), missing.end(), 1) != missing.end();
    uint8_t* mask = any_missing ? s_.MissingReading.Column(c, n) : nullptr;
    for (int r = 1; r <= n; ++r) {
      if (missing[static_cast<size_t>(r)] != 0) {
        mask[r] = 1;
        continue;
      }
      const double value = values_[i][static_cast<size_t>(r)];
      for (int k = 0; k < kOutputKinds; ++k) {
        aligned[k][r] = engineering[k][r] = ToSingle(value * s_.ChannelUnitFactor[c][k]);
      }
      for (int m = 0; m < kFixedPressureTables; ++m) {
        fixed[m][r] = fixed_aligned[m][r] = ToSingle(value * to_fixed[static_cast<size_t>(m)]);
      }
    }
  }
}

// The record of each column for the info view, with its count of void readings.
void GefSoundingReader::RecordColumns() {
  const GefDocument& doc = doc_;
  SoundingStore& s = s_;
  std::vector<int> channel_of(static_cast<size_t>(doc.column_count) + 1, 0);
  for (int c = 1; c <= s.ChannelCount; ++c)
    channel_of[static_cast<size_t>(plan_[static_cast<size_t>(c - 1)].column)] = c;
  for (int column = 1; column <= doc.column_count; ++column) {
    GefColumnRecord record;
    record.column = column;
    if (const GefColumnInfo* info = doc.Column(column)) {
      record.quantity = info->quantity;
      record.unit = info->unit;
      record.name = info->name;
    }
    record.void_value = doc.Void(column);
    record.channel = channel_of[static_cast<size_t>(column)];
    if (column == s.GefDepthColumn) {
      record.missing_count = dropped_;
    } else if (record.channel != 0) {
      for (int r = 1; r <= s.ReadingCount; ++r)
        record.missing_count += s.IsMissing(r, record.channel) ? 1 : 0;
    }
    s.GefColumns.push_back(std::move(record));
  }
}

// The file's push speed (cm/s) from its elapsed time column: the depth gained over the time taken
// since the reading before, where both times are there and the clock moved on.
void GefSoundingReader::PushSpeedFromTime() {
  const int n = s_.ReadingCount;
  int time = 0;
  for (int c = 1; c <= s_.ChannelCount && time == 0; ++c) {
    const PlannedChannel& plan = plan_[static_cast<size_t>(c - 1)];
    if (plan.rule != nullptr && plan.rule->quantity == kElapsedTime) time = c;
  }
  for (int r = n; r >= 1; --r) s_.PushSpeed[r] = 0;
  if (time == 0) return;
  const std::vector<double>& t = values_[static_cast<size_t>(time - 1)];
  const std::vector<uint8_t>& missing = missing_[static_cast<size_t>(time - 1)];
  for (int r = 2; r <= n; ++r) {
    const auto here = static_cast<size_t>(r), before = here - 1;
    if (missing[here] != 0 || missing[before] != 0 || !(t[here] > t[before])) continue;
    const double gained = static_cast<double>(s_.DepthTable(r, 1)) - s_.DepthTable(r - 1, 1);
    s_.PushSpeed[r] = ToSingle(gained / (t[here] - t[before]) * 100);
  }
  if (n >= 2) s_.PushSpeed[1] = s_.PushSpeed[2];
}

}  // namespace

ReadOutcome ReadGefSounding(std::string_view bytes, const std::string& path, Session& session,
                            SoundingStore& store, UserPrompts& prompts) {
  return InProcedure("ReadGefSounding", [&] {
    const GefParse parse = ParseGefHeader(bytes, FileNamePart(path));
    std::string refusal = parse.refusal;
    if (refusal.empty() && parse.doc.report == GefReport::kDissipation)
      refusal = parse.doc.name + " is a dissipation file";
    if (refusal.empty()) refusal = GefSoundingReader(parse.doc, path, session, store).Read();
    if (refusal.empty()) return ReadOutcome::kLoaded;
    prompts.Tell(refusal);
    return ReadOutcome::kRefused;
  });
}

ReadOutcome OpenGefSounding(Session& session, UserPrompts& prompts, const std::string& path) {
  return OpenSoundingWith(ReadGefSounding, "ReadGefSounding", session, prompts, path);
}

}  // namespace marlview
