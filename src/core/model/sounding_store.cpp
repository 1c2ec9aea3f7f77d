// The current sounding's tables and its reset.
#include "core/model/sounding_store.h"

namespace marlview {
namespace {

ColumnTable<float> ReadingsByChannel() { return ColumnTable<float>(kMaxReadings, kMaxChannels); }

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
  if (family == kGefFamily) {
    return {{"TestId", &k.TestId},     {"Crew", &k.Crew},         {"Project", &k.Project},
            {"Site", &k.Site},         {"Location", &k.Location}, {"Comments", &k.Comments},
            {"TestDate", &k.TestDate}, {"StartTime", &k.StartTime}, {"GpsLat", &k.GpsLat},
            {"GpsLon", &k.GpsLon},     {"GpsElev", &k.GpsElev}};
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
      PushSpeed(kMaxReadings),
      MunsellChips(kMaxReadings),
      RowTail(kMaxReadings),
      HydrostaticPressure(kMaxReadings, kOutputKinds - 1),
      LastSbt83Zone(kMaxReadings),
      MissingReading(kMaxReadings, kMaxChannels) {}

void SoundingStore::ClearReadingTables() {
  DepthTable.Clear();
  RawReadings.Clear();
  ChannelReadings.Clear();
  AlignedReadings.Clear();
  RawAlignedReadings.Clear();
  for (auto& table : FixedPressureReadings) table.Clear();
  for (auto& table : AlignedFixedPressure) table.Clear();
  CptRawReadings.Clear();
  PushSpeed.Clear();
  MunsellChips.Clear();
  RowTail.Clear();
  HydrostaticPressure.Clear();
  LastSbt83Zone.Clear();
  MissingReading.Clear();
}

size_t SoundingStore::ReadingBytesHeld() const {
  size_t floats = DepthTable.CellsHeld() + RawReadings.CellsHeld() + ChannelReadings.CellsHeld() +
                  AlignedReadings.CellsHeld() + RawAlignedReadings.CellsHeld() + CptRawReadings.CellsHeld() +
                  HydrostaticPressure.CellsHeld() + PushSpeed.CellsHeld() + LastSbt83Zone.CellsHeld();
  for (const auto& table : FixedPressureReadings) floats += table.CellsHeld();
  for (const auto& table : AlignedFixedPressure) floats += table.CellsHeld();
  return floats * sizeof(float) + MissingReading.CellsHeld() + (MunsellChips.CellsHeld() + RowTail.CellsHeld()) * sizeof(std::string);
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
  static_cast<GefRecord&>(*this) = GefRecord{};
}

}  // namespace marlview
