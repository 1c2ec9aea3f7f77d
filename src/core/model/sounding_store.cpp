// The current sounding's tables and its reset.
#include "core/model/sounding_store.h"

#include <algorithm>

namespace marlview {
namespace {

FixedTable<float> ReadingsByChannel() { return FixedTable<float>(kMaxReadings, kMaxChannels); }

}  // namespace

const std::vector<RoleField>& RoleFields() {
  using R = ChannelRoles;
  static const std::vector<RoleField> fields = {
      {"TipChannel", &R::TipChannel},
      {"TipQtChannel", &R::TipQtChannel},
      {"SleeveChannel", &R::SleeveChannel},
      {"PorePressureChannel", &R::PorePressureChannel},
      {"ExcitationChannel", &R::ExcitationChannel},
      {"TemperatureChannel", &R::TemperatureChannel},
      {"InclXChannel", &R::InclXChannel},
      {"InclYChannel", &R::InclYChannel},
      {"InclTotalChannel", &R::InclTotalChannel},
      {"HffdChannel", &R::HffdChannel},
      {"LffdChannel", &R::LffdChannel},
      {"RodDepthChannel", &R::RodDepthChannel},
      {"ResistivityChannel", &R::ResistivityChannel},
      {"ConductivityChannel", &R::ConductivityChannel},
      {"FrictionRatioQcChannel", &R::FrictionRatioQcChannel},
      {"FrictionRatioQtChannel", &R::FrictionRatioQtChannel},
      {"OverburdenChannel", &R::OverburdenChannel},
      {"EffOverburdenChannel", &R::EffOverburdenChannel},
      {"FrictionAngleChannel", &R::FrictionAngleChannel},
      {"ShearStrengthChannel", &R::ShearStrengthChannel},
      {"OcrChannel", &R::OcrChannel},
      {"Sbt83Channel", &R::Sbt83Channel},
      {"Sbt86FrChannel", &R::Sbt86FrChannel},
      {"Sbt86PpChannel", &R::Sbt86PpChannel},
      {"Sbt90QtChannel", &R::Sbt90QtChannel},
      {"Sbt90BqChannel", &R::Sbt90BqChannel},
      {"SptChannel", &R::SptChannel},
      {"HeadPressureChannel", &R::HeadPressureChannel},
      {"WetDensityChannel", &R::WetDensityChannel},
      {"TimeChannel", &R::TimeChannel},
      {"RedChannel", &R::RedChannel},
      {"GreenChannel", &R::GreenChannel},
      {"BlueChannel", &R::BlueChannel},
      {"ClearChannel", &R::ClearChannel},
      {"MunsellChannel", &R::MunsellChannel},
  };
  return fields;
}

std::vector<HeaderField> HeaderFields(const KorvanHeader& k, const CptHeader& c, int family) {
  if (family == kPxDasFamily) {
    return {{"CptTitle", &c.CptTitle},         {"Customer", &c.Customer},
            {"OperatorName", &c.OperatorName}, {"ConeId", &c.ConeId},
            {"LocationName", &c.LocationName}, {"JobNumber", &c.JobNumber},
            {"HoleNumber", &c.HoleNumber},     {"TestDateText", &c.TestDateText},
            {"CommentLine1", &c.CommentLine1}, {"CommentLine2", &c.CommentLine2},
            {"CommentLine3", &c.CommentLine3}, {"GpsText", &c.GpsText},
            {"GpsLat", &k.GpsLat},             {"GpsLon", &k.GpsLon},
            {"GpsElev", &k.GpsElev}};
  }
  return {{"FileVersionLine", &k.FileVersionLine},
          {"FileProductLine", &k.FileProductLine},
          {"TestId", &k.TestId},
          {"Operator", &k.Operator},
          {"Crew", &k.Crew},
          {"Project", &k.Project},
          {"Site", &k.Site},
          {"Location", &k.Location},
          {"Comments", &k.Comments},
          {"TestDate", &k.TestDate},
          {"StartTime", &k.StartTime},
          {"GpsLine", &k.GpsLine},
          {"GpsLat", &k.GpsLat},
          {"GpsLon", &k.GpsLon},
          {"GpsElev", &k.GpsElev},
          {"GpsNSat", &k.GpsNSat},
          {"GpsQual", &k.GpsQual},
          {"Client", &k.Client},
          {"ClientRepresentative", &k.ClientRepresentative},
          {"Weather", &k.Weather},
          {"DasVersion", &k.DasVersion},
          {"DasSystem", &k.DasSystem},
          {"ProbeSerial", &k.ProbeSerial},
          {"ExtraHeaderLine1", &k.ExtraHeaderLine1},
          {"ExtraHeaderLine2", &k.ExtraHeaderLine2}};
}

SoundingStore::SoundingStore()
    : DepthTable(kDeclaredTableRows, kWideTableColumns),
      RawReadings(ReadingsByChannel()),
      ChannelReadings(kMaxReadings, kChannelReadingColumns),
      AlignedReadings(kDeclaredTableRows, kWideTableColumns),
      RawAlignedReadings(ReadingsByChannel()),
      FixedPressureReadings{ReadingsByChannel(), ReadingsByChannel(), ReadingsByChannel(),
                            ReadingsByChannel()},
      AlignedFixedPressure{ReadingsByChannel(), ReadingsByChannel(), ReadingsByChannel(),
                           ReadingsByChannel()},
      CptRawReadings(kMaxReadings, kMaxCptRawChannels),
      PushSpeed(kMaxReadings + 1),
      MunsellChips(kMaxReadings + 1),
      RowTail(kMaxReadings + 1),
      HydrostaticPressure(kMaxReadings, kOutputKinds - 1),
      LastSbt83Zone(kMaxReadings + 1) {}

void SoundingStore::ClearReadingTables() {
  const int last = std::min(std::max(rows_used_, static_cast<int>(ReadingCount)), kMaxReadings);
  DepthTable.ClearRows(0, last);
  RawReadings.ClearRows(0, last);
  ChannelReadings.ClearRows(0, last);
  AlignedReadings.ClearRows(0, last);
  RawAlignedReadings.ClearRows(0, last);
  for (auto& table : FixedPressureReadings) table.ClearRows(0, last);
  for (auto& table : AlignedFixedPressure) table.ClearRows(0, last);
  CptRawReadings.ClearRows(0, last);
  std::fill(PushSpeed.begin(), PushSpeed.begin() + last + 1, 0.0f);
  std::fill(MunsellChips.begin(), MunsellChips.begin() + last + 1, std::string());
  std::fill(RowTail.begin(), RowTail.begin() + last + 1, std::string());
  HydrostaticPressure.ClearRows(0, last);
  std::fill(LastSbt83Zone.begin(), LastSbt83Zone.begin() + last + 1, 0.0f);
  rows_used_ = 0;
}

void SoundingStore::ResetSounding() {
  ClearReadingTables();
  static_cast<SoundingScalars&>(*this) = SoundingScalars{};
  // Every scalar is 0 after a reset, the water table included, and no family is loaded.
  WaterTableDepth = 0;
  static_cast<ChannelTables&>(*this) = ChannelTables{};
  for (int c = 1; c <= kMaxChannels; ++c) {
    ChannelEnabled[c] = true;
    ChannelCurveStyle[c] = -1;
  }
  static_cast<ChannelRoles&>(*this) = ChannelRoles{};
  static_cast<KorvanHeader&>(*this) = KorvanHeader{};
  static_cast<CptHeader&>(*this) = CptHeader{};
}

}  // namespace marlview
