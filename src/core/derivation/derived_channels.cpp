// The pipeline in its binding order: later channels read the earlier ones.
#include "core/derivation/derived_channels.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <vector>

#include "core/derivation/channel_values.h"
#include "core/derivation/correlations.h"
#include "core/derivation/normalised_sbt.h"
#include "core/derivation/push_speed.h"
#include "core/derivation/sbt1983.h"
#include "core/derivation/sbt1986.h"
#include "core/derivation/sbt1990.h"
#include "core/model/catalogue.h"
#include "core/session/session.h"

namespace marlview {
namespace {

// Water: kPa per metre of head, and psi per metre.
constexpr double kKpaPerMetreOfWater = 9.804;
constexpr double kPsiPerMetreOfWater = 1.4218;
constexpr double kPsiToKpa = 6.89476;
constexpr float kShearStrengthBase = 6894.7568359375f;
constexpr float kWetDensityBase = 16.01849937438965f;

using Role = int16_t ChannelRoles::*;

// The roles this pipeline gives; each is cleared before a run so that a rerun starts afresh.
constexpr Role kDerivedRoles[] = {
    &ChannelRoles::InclTotalChannel,      &ChannelRoles::ConductivityChannel,
    &ChannelRoles::FrictionRatioQcChannel, &ChannelRoles::TipQtChannel,
    &ChannelRoles::FrictionRatioQtChannel, &ChannelRoles::HeadPressureChannel,
    &ChannelRoles::OverburdenChannel,     &ChannelRoles::EffOverburdenChannel,
    &ChannelRoles::Sbt83Channel,          &ChannelRoles::SptChannel,
    &ChannelRoles::Sbt86FrChannel,        &ChannelRoles::Sbt86PpChannel,
    &ChannelRoles::Sbt90QtChannel,        &ChannelRoles::FrictionAngleChannel,
    &ChannelRoles::ShearStrengthChannel,  &ChannelRoles::OcrChannel,
    &ChannelRoles::Sbt90BqChannel,        &ChannelRoles::WetDensityChannel,
    &ChannelRoles::TimeChannel,
};

struct Step {
  const char* name;
  const char* short_name;
  const char* list_label;
  int catalogue_id;
  int group;
  int16_t curve_style;
  Role role;
};

class Pipeline {
 public:
  Pipeline(Session& session, SoundingStore& store, int channel_count)
      : session_(session), s_(store), v_(s_, session.units), measured_(channel_count) {}

  void Run();

 private:
  int Add(const Step& step);
  void ClearDerivedChannels();
  void SetFactors(int c, int default_unit, int group);
  // The factor of each output is the unit factor of the display unit in group; for the groups
  // whose values are computed in a base unit.
  void SetFactorsFromGroup(int c, int group);

  void InclinationTotal(int c);
  void Conductivity(int c);
  void FrictionRatio(int c, int tip, bool tip_in_default_unit_gate);
  void CorrectedTip(int c);
  void HeadPressure(int c);
  void Overburden(int c);
  void EffectiveOverburden(int c);
  void Classify1983(int c);
  void Classify1986Friction(int c);
  void Classify1986PorePressure(int c);
  void Classify1990Qt(int c);
  void Classify1990Bq(int c);
  void WetDensity(int c);
  void NormalisedClassification();
  // Stresses and tips for the 1986 pore pressure and 1990 charts: in the file's units, except
  // that the kPa family's values are brought to psi where the chart asks for it.
  double InPsi(double value) const { return v_.PsiFamily() ? value : value / kPsiToKpa; }

  // Whether row r of channel c has no value: a missing reading, or a derived value that read one.
  bool Unusable(int r, int c) const;
  // A derived channel reads whole rows only: where any of inputs lacks a value, c is 0 in every
  // output and mirror (a zone: unclassified) and lacks a value itself for the channels after it.
  void ZeroWhereMissing(int c, std::initializer_list<int> inputs, bool zone = false);

  Session& session_;
  SoundingStore& s_;
  ChannelValues v_;
  int measured_;
  // Only a file with missing readings pays for the row checks; the others' values stay untouched.
  bool any_missing_ = false;
  std::array<std::vector<uint8_t>, kMaxChannels + 1> derived_missing_;
};

bool Pipeline::Unusable(int r, int c) const {
  if (c <= 0 || c > kMaxChannels) return false;
  if (c <= measured_) return s_.IsMissing(r, c);
  const std::vector<uint8_t>& rows = derived_missing_[static_cast<size_t>(c)];
  return static_cast<size_t>(r) < rows.size() && rows[static_cast<size_t>(r)] != 0;
}

void Pipeline::ZeroWhereMissing(int c, std::initializer_list<int> inputs, bool zone) {
  if (!any_missing_) return;
  std::vector<uint8_t>& rows = derived_missing_[static_cast<size_t>(c)];
  rows.assign(static_cast<size_t>(s_.ReadingCount) + 1, 0);
  for (int r = 1; r <= s_.ReadingCount; ++r) {
    if (std::none_of(inputs.begin(), inputs.end(), [this, r](int input) { return Unusable(r, input); })) continue;
    rows[static_cast<size_t>(r)] = 1;
    if (zone) {
      v_.SetZone(r, c, 0);
    } else {
      v_.SetKinds(r, c, 0);
      v_.SetMirrors(r, c, 0);
    }
  }
}

void Pipeline::ClearDerivedChannels() {
  const int first = measured_ + 1;
  const int last = std::min<int>(std::max<int>(s_.TotalChannels, measured_), kMaxChannels);
  if (first < 1 || measured_ > kMaxChannels) Fail(kErrSubscript);
  // Column by column, each walked once in the order it lies in memory.
  for (int c = first; c <= last; ++c) {
    for (int k = 0; k < kOutputKinds; ++k) s_.AlignedReadings.ClearColumnRows(KindColumn(c, k), 1, s_.ReadingCount);
    for (auto& mirror : s_.AlignedFixedPressure) mirror.ClearColumnRows(c, 1, s_.ReadingCount);
  }
  for (Role role : kDerivedRoles) s_.*role = 0;
  s_.TotalChannels = static_cast<int16_t>(measured_);
}

int Pipeline::Add(const Step& step) {
  if (s_.TotalChannels >= kMaxChannels) Fail(kErrSubscript);
  const int c = ++s_.TotalChannels;
  s_.ChannelName[c] = step.name;
  s_.ChannelSensor[c].clear();
  s_.ChannelShortName[c] = step.short_name;
  s_.ChannelLegend[c] = step.list_label;
  s_.ChannelShortLegend[c] = step.list_label;
  s_.ChannelEnabled[c] = true;
  s_.ChannelCurveStyle[c] = step.curve_style;
  s_.ChannelOffset[c] = 0;
  s_.ChannelBaseFactor[c] = 0;
  s_.ChannelDefaultUnit[c] = 1;
  s_.ChannelUnitFactor[c].fill(1);
  if (step.catalogue_id != 0) {
    RegisterChannel(s_, session_.units, session_.choices, c, step.group, step.catalogue_id);
    for (int k = 0; k < kOutputKinds; ++k) {
      s_.ChannelUnitName[c][k] = session_.units.Name(s_.ChannelDisplayUnit[c][k], step.group);
    }
  }
  if (step.role != nullptr) s_.*(step.role) = static_cast<int16_t>(c);
  return c;
}

void Pipeline::SetFactors(int c, int default_unit, int group) {
  s_.ChannelDefaultUnit[c] = static_cast<int16_t>(default_unit);
  for (int k = 0; k < kOutputKinds; ++k) {
    const double display = session_.units.ConversionFactor(s_.ChannelDisplayUnit[c][k], group);
    if (display == 0) Fail(kErrDivisionByZero);
    s_.ChannelUnitFactor[c][k] = ToSingle(session_.units.ConversionFactor(default_unit, group) / display);
  }
}

void Pipeline::SetFactorsFromGroup(int c, int group) {
  for (int k = 0; k < kOutputKinds; ++k) {
    s_.ChannelUnitFactor[c][k] = session_.units.Factor(s_.ChannelDisplayUnit[c][k], group);
  }
}

void Pipeline::Run() {
  ClearDerivedChannels();
  for (int c = 1; c <= measured_ && !any_missing_; ++c) any_missing_ = s_.MissingReading.RowsHeld(c) > 0;
  for (auto& rows : derived_missing_) rows.clear();
  if (s_.InclXChannel != 0 && s_.InclYChannel != 0) {
    const int total = Add({"Inclination Total", "Inclination", "", 9, kInclinationGroup, 0, &ChannelRoles::InclTotalChannel});
    InclinationTotal(total);
    ZeroWhereMissing(total, {s_.InclXChannel, s_.InclYChannel});
  }
  if (s_.ResistivityChannel != 0) {
    Conductivity(Add({"Conductivity", "Conductivity", "COND(mS/m):", 34, kConductivityGroup, 0,
                      &ChannelRoles::ConductivityChannel}));
  }
  const bool friction = s_.TipChannel != 0 && s_.SleeveChannel != 0;
  const bool pore = s_.PorePressureChannel != 0;
  if (friction) {
    const int ratio = Add({"Friction Ratio (Fs/Qc)", "Fr (Fs/Qc)", "Fs/QC(%):", 36, kPercentageGroup, 0,
                           &ChannelRoles::FrictionRatioQcChannel});
    FrictionRatio(ratio, s_.TipChannel, false);
    ZeroWhereMissing(ratio, {s_.SleeveChannel, s_.TipChannel});
  }
  if (friction && pore) {
    const int qt = Add({"Tip Resistance (Qt)", "Tip (Qt)", "Qt:", 2, kPressureGroup, 0, &ChannelRoles::TipQtChannel});
    CorrectedTip(qt);
    ZeroWhereMissing(qt, {s_.TipChannel, s_.PorePressureChannel});
    const int ratio = Add({"Friction Ratio (Fs/Qt)", "Fr (Fs/Qt)", "FS/Qt(%):", 37, kPercentageGroup, 0,
                           &ChannelRoles::FrictionRatioQtChannel});
    FrictionRatio(ratio, s_.TipQtChannel, true);
    ZeroWhereMissing(ratio, {s_.SleeveChannel, qt});
    HeadPressure(Add({"Head Pressure", "Press H", "Press H:", 47, kPressureGroup, 0, &ChannelRoles::HeadPressureChannel}));
  }
  Overburden(Add({"Overburden", "Overburden", "Overburden:", 38, kPressureGroup, 0, &ChannelRoles::OverburdenChannel}));
  if (pore) {
    EffectiveOverburden(Add({"Eff. Overburden", "Eff. Overbrdn", "Eff. Overburden:", 39, kPressureGroup, 0,
                             &ChannelRoles::EffOverburdenChannel}));
  }
  const int sbt83 = Add({"SBT(1983)*", "SBT(1983)*", "SBT(83):", 43, kSbt83Group, 2, &ChannelRoles::Sbt83Channel});
  const int spt = Add({"SPT N*", "SPT N*", "SPT(N):", 46, kSptGroup, 1, &ChannelRoles::SptChannel});
  Classify1983(sbt83);
  const int tip = v_.TipSource(), ratio = v_.FrictionSource(), u2 = s_.PorePressureChannel;
  ZeroWhereMissing(sbt83, {tip, ratio}, true);
  ZeroWhereMissing(spt, {tip, ratio}, true);
  if (any_missing_) {
    for (int r = 1; r <= s_.ReadingCount; ++r) {
      if (Unusable(r, sbt83)) s_.LastSbt83Zone[r] = 0;
    }
  }
  const int sbt86 = Add({"SBT FR(1986)*", "SBT FR(1986)*", "SBT FR(86):", 51, kSbt86Group, 2,
                         &ChannelRoles::Sbt86FrChannel});
  Classify1986Friction(sbt86);
  ZeroWhereMissing(sbt86, {tip, ratio}, true);
  if (pore) {
    const int sbt86_pp = Add({"SBT PP(1986)*", "SBT PP(1986)*", "SBT PP(86):", 52, kSbt86Group, 2,
                              &ChannelRoles::Sbt86PpChannel});
    Classify1986PorePressure(sbt86_pp);
    ZeroWhereMissing(sbt86_pp, {tip, u2}, true);
  }
  const int sbt90 = Add({"SBT(QT)(1990)*", "SBT(QT)(1990)", "SBT(QT90):", 44, kSbt90Group, 2, &ChannelRoles::Sbt90QtChannel});
  Classify1990Qt(sbt90);
  ZeroWhereMissing(sbt90, {tip, s_.SleeveChannel}, true);
  const int angle = Add({"Friction Angle", "Friction Angle", "Fs Angle", 40, kInclinationGroup, 0,
                         &ChannelRoles::FrictionAngleChannel});
  CalculateFrictionAngle(v_, angle);
  ZeroWhereMissing(angle, {sbt90, s_.TipChannel});
  const int shear = Add({"Shear Strength", "Shear Strength", "Shear Strength", 41, kPressureGroup, 0,
                         &ChannelRoles::ShearStrengthChannel});
  s_.ChannelBaseFactor[shear] = kShearStrengthBase;
  SetFactors(shear, v_.PressureUnit(), kPressureGroup);
  CalculateShearStrength(v_, shear, kShearFactorNk);
  ZeroWhereMissing(shear, {sbt90, s_.TipChannel});
  if (pore) {
    const int ocr = Add({"Over Consolidation Ratio", "OCR", "Over Consolidation Ratio", 42, kPercentageGroup, 0,
                         &ChannelRoles::OcrChannel});
    CalculateOverConsolidation(v_, ocr);
    ZeroWhereMissing(ocr, {s_.TipQtChannel});
    const int sbt90_bq = Add({"SBT(Bq)(1990)*", "SBT(Bq)(1990)*", "SBT(Bq90):", 45, kSbt90Group, 2,
                              &ChannelRoles::Sbt90BqChannel});
    Classify1990Bq(sbt90_bq);
    ZeroWhereMissing(sbt90_bq, {tip, u2}, true);
  }
  WetDensity(Add({"Wet Density", "Wet Dens", "Wet D:", 48, kDensityGroup, 0, &ChannelRoles::WetDensityChannel}));
  if (!IsKpaFamily(s_.AcquisitionFamily)) {
    // The time of each reading is shown from its data line; the channel carries only its name. A
    // GEF file's time is a column of its own.
    const int time = Add({"Time", "Time", "", 0, 0, 0, &ChannelRoles::TimeChannel});
    s_.ChannelUnitLabel[time].fill("");
    s_.ChannelUnitName[time].fill("Time");
  }
  const int speed = Add({"Push Speed", "Speed", "Speed:", 49, kSpeedGroup, 0, nullptr});
  s_.ChannelBaseFactor[speed] = 1;
  SetFactorsFromGroup(speed, kSpeedGroup);
  s_.PushSpeedDerived = !session_.CombinedModeActive;
  if (s_.PushSpeedDerived) {
    CalculatePushSpeed(v_, speed, {session_.rod_break.RemoveOnOpen == 1, session_.rod_break.Threshold});
  }
  if (session_.NormalisedClassification == 1) NormalisedClassification();
}

// The six channels carry no role: they are found by their catalogue ids.
void Pipeline::NormalisedClassification() {
  NormalisedChannels ch;
  ch.n = Add({"Stress Exponent n", "n", "n:", kStressExponentId, kNoUnitsGroup, 0, nullptr});
  ch.qtn = Add({"Qtn", "Qtn", "Qtn:", kQtnId, kNoUnitsGroup, 0, nullptr});
  ch.fr = Add({"Fr (Normalised)", "Fr (Norm.)", "Fr (Norm.)(%):", kFrNormalisedId, kPercentageGroup, 0, nullptr});
  ch.ic = Add({"Ic", "Ic", "Ic:", kIcId, kNoUnitsGroup, 0, nullptr});
  ch.sbtn = Add({"SBTn(2009)*", "SBTn", "SBTn:", kSbtnId, kSbt90Group, 2, nullptr});
  if (s_.PorePressureChannel != 0) ch.bq = Add({"Bq", "Bq", "Bq:", kBqId, kNoUnitsGroup, 0, nullptr});
  CalculateNormalisedSbt(v_, ch);
}

void Pipeline::InclinationTotal(int c) {
  for (int r = 1; r <= s_.ReadingCount; ++r) {
    for (int k = 0; k < kOutputKinds; ++k) {
      const double x = v_.Kind(r, s_.InclXChannel, k), y = v_.Kind(r, s_.InclYChannel, k);
      v_.SetKind(r, c, k, std::pow(x * x + y * y, 0.5));
    }
    v_.SetMirrors(r, c, v_.Kind(r, c, 0));
  }
}

void Pipeline::Conductivity(int c) {
  for (int r = 1; r <= s_.ReadingCount; ++r) {
    const double resistivity = v_.Kind(r, s_.ResistivityChannel, 0);
    // A resistivity of zero or less reads as the ceiling of the scale, not as a fault.
    const double conductivity = resistivity <= 0 ? 1 / 1e-8 : 1 / resistivity;
    v_.SetKinds(r, c, conductivity);
    v_.SetMirrors(r, c, conductivity);
  }
}

// Fs over the tip in percent. Over the measured tip a tip of exactly 0 gives 0; over the corrected
// tip any tip at or below 0 in its own unit does. Either way the fixed copies are left as they were.
void Pipeline::FrictionRatio(int c, int tip, bool corrected) {
  const int sleeve = s_.SleeveChannel;
  for (int r = 1; r <= s_.ReadingCount; ++r) {
    const bool no_ratio = corrected ? v_.InDefaultUnit(r, tip) <= 0 : v_.Kind(r, tip, 0) == 0;
    if (no_ratio) {
      v_.SetKinds(r, c, 0);
      continue;
    }
    for (int k = 0; k < kOutputKinds; ++k) {
      v_.SetKind(r, c, k, 100 * v_.InDefaultUnit(r, sleeve, k) / v_.InDefaultUnit(r, tip, k));
    }
    v_.SetMirrors(r, c, v_.Kind(r, c, 0));
  }
}

// qt = qc + (1 - a) u, with a the cone's net area ratio.
void Pipeline::CorrectedTip(int c) {
  const int tip = s_.TipChannel, u2 = s_.PorePressureChannel;
  const double a = NetAreaRatioUsed(session_, s_);
  SetFactors(c, s_.ChannelDefaultUnit[tip], kPressureGroup);
  for (int r = 1; r <= s_.ReadingCount; ++r) {
    for (int k = 0; k < kOutputKinds; ++k) {
      const double qt = (1 - a) * v_.InDefaultUnit(r, u2, k) + v_.InDefaultUnit(r, tip, k);
      v_.SetKind(r, c, k, qt * v_.Factor(c, k));
    }
    const double qt = (1 - a) * v_.InDefaultUnit(r, u2) + v_.InDefaultUnit(r, tip);
    for (int m = 0; m < kFixedPressureTables; ++m) {
      v_.SetMirror(r, c, m, qt * v_.ToMirrorUnit(s_.ChannelDefaultUnit[tip], m));
    }
  }
  if (!s_.EndBaselinePresent) return;
  const auto& cal = s_.ChannelCalRows[tip];
  const double area = s_.ChannelUnitFactorRows[tip][2];
  for (int k = 0; k < kOutputKinds; ++k) {
    double value = 0;
    if (cal[0] != 0 && cal[1] != 0 && cal[2] != 0 && area != 0) {
      value = (static_cast<double>(s_.ChannelEndBaseline[tip]) - s_.ChannelBaseline[tip]) /
              (cal[0] / 1000.0 * cal[1] * cal[2]) / area * v_.Factor(c, k);
    }
    s_.FinalBaselineValue[c][k] = ToSingle(value);
  }
}

void Pipeline::HeadPressure(int c) {
  const int u2 = s_.PorePressureChannel;
  const double w = s_.WaterTableDepth;
  SetFactors(c, kKpaUnit, kPressureGroup);
  for (int r = 1; r <= s_.ReadingCount; ++r) {
    const double d = s_.DepthTable(r, 1);
    if (d <= w || s_.WaterTableDepth == -99) {
      v_.SetKinds(r, c, 0);
      for (int k = 0; k < kOutputKinds; ++k) s_.HydrostaticPressure(r, k) = 0;
      continue;
    }
    const double head = (d - w) * kKpaPerMetreOfWater;
    for (int k = 0; k < kOutputKinds; ++k) v_.SetKind(r, c, k, head * v_.Factor(c, k));
    // The first two fixed copies hold the head per foot of depth: kept as the reports expect it.
    v_.SetMirror(r, c, 0, head * session_.FeetPerMetre);
    v_.SetMirror(r, c, 1, head * session_.FeetPerMetre);
    v_.SetMirror(r, c, 2, head);
    v_.SetMirror(r, c, 3, head);
    const double per_metre = v_.PsiFamily() ? kPsiPerMetreOfWater : kKpaPerMetreOfWater;
    for (int k = 0; k < kOutputKinds; ++k) {
      s_.HydrostaticPressure(r, k) = ToSingle((d - w) * per_metre * v_.Factor(u2, k));
    }
  }
}

// One wet density for the whole column: the weight of soil above each reading.
void Pipeline::Overburden(int c) {
  const double density_pcf = session_.general.SoilDensity;
  SetFactors(c, v_.PressureUnit(), kPressureGroup);
  for (int r = 1; r <= s_.ReadingCount; ++r) {
    double stress = density_pcf / 1728 * s_.DepthTable(r, 2) * 12;
    if (!v_.PsiFamily()) stress *= kPsiToKpa;
    for (int k = 0; k < kOutputKinds; ++k) v_.SetKind(r, c, k, stress * v_.Factor(c, k));
    for (int m = 0; m < kFixedPressureTables; ++m) v_.SetMirror(r, c, m, stress * v_.ToMirrorUnit(v_.PressureUnit(), m));
  }
}

void Pipeline::EffectiveOverburden(int c) {
  const int u2 = s_.PorePressureChannel, total = s_.OverburdenChannel;
  SetFactors(c, v_.PressureUnit(), kPressureGroup);
  for (int r = 1; r <= s_.ReadingCount; ++r) {
    for (int k = 0; k < kOutputKinds; ++k) {
      const double hydrostatic = s_.HydrostaticPressure(r, k) / v_.Factor(u2, k);
      const float effective = ToSingle(v_.InDefaultUnit(r, total, k) - hydrostatic);
      v_.SetKind(r, c, k, effective * v_.Factor(c, k));
    }
    const double effective = v_.InDefaultUnit(r, total) - s_.HydrostaticPressure(r, 0) / v_.Factor(u2, 0);
    for (int m = 0; m < kFixedPressureTables; ++m) {
      v_.SetMirror(r, c, m, effective * v_.ToMirrorUnit(v_.PressureUnit(), m));
    }
  }
}

// The zone goes to the SBT channel c and the SPT N equivalent to the channel after it.
void Pipeline::Classify1983(int c) {
  const int spt = c + 1;
  SetFactorsFromGroup(spt, kSptGroup);
  const ChartData& chart = session_.chart;
  for (int r = 1; r <= s_.ReadingCount; ++r) {
    const Sbt1983Input in = ReadSbt1983Input(s_, r);
    const Zone1983 z = LookupZone1983(chart, in.tip_bar, in.friction_ratio);
    s_.LastSbt83Zone[r] = z.zone;
    if (!z.classified) {
      v_.SetZone(r, c, 0);
      v_.SetZone(r, spt, 0);
      continue;
    }
    v_.SetZone(r, c, z.zone);
    for (int k = 0; k < kOutputKinds; ++k) v_.SetKind(r, spt, k, z.curve_applied ? z.spt * v_.Factor(spt, k) : z.spt);
    // The metre-based copies of the SPT hold blows per metre for blows per foot, as the chart's
    // own reports did.
    v_.SetMirror(r, spt, 0, z.spt);
    v_.SetMirror(r, spt, 1, z.spt);
    v_.SetMirror(r, spt, 2, z.spt * session_.FeetPerMetre);
    v_.SetMirror(r, spt, 3, z.spt * session_.FeetPerMetre);
  }
}

void Pipeline::Classify1986Friction(int c) {
  const int tip = v_.TipSource(), ratio = v_.FrictionSource();
  for (int r = 1; r <= s_.ReadingCount; ++r) {
    const double tip_unit = v_.InDefaultUnit(r, tip);
    const double q = v_.PsiFamily() ? tip_unit / 145.033 : tip_unit * 0.001;
    v_.SetZone(r, c, ClassifySoil1986Friction(q, v_.Kind(r, ratio, 0)));
  }
}

// In the kPa family only the tip is brought to psi; the pressures stay in kPa, as the chart was
// always fed.
void Pipeline::Classify1986PorePressure(int c) {
  const int tip = v_.TipSource(), u2 = s_.PorePressureChannel;
  for (int r = 1; r <= s_.ReadingCount; ++r) {
    const double qt = InPsi(v_.InDefaultUnit(r, tip));
    const double u0 = s_.HydrostaticPressure(r, 0) / v_.Factor(u2, 0);
    v_.SetZone(r, c, ClassifySoil1986PorePressure(qt, v_.InDefaultUnit(r, u2), u0,
                                                  v_.InDefaultUnit(r, s_.OverburdenChannel),
                                                  v_.InDefaultUnit(r, s_.EffOverburdenChannel)));
  }
}

void Pipeline::Classify1990Qt(int c) {
  const int tip = v_.TipSource();
  for (int r = 1; r <= s_.ReadingCount; ++r) {
    v_.SetZone(r, c, ClassifySoil1990Qt(InPsi(v_.InDefaultUnit(r, tip)), InPsi(v_.InDefaultUnit(r, s_.SleeveChannel)),
                                        InPsi(v_.InDefaultUnit(r, s_.OverburdenChannel)),
                                        InPsi(v_.InDefaultUnit(r, s_.EffOverburdenChannel))));
  }
}

void Pipeline::Classify1990Bq(int c) {
  const int tip = v_.TipSource(), u2 = s_.PorePressureChannel;
  for (int r = 1; r <= s_.ReadingCount; ++r) {
    const double u0 = s_.HydrostaticPressure(r, 0) / v_.Factor(u2, 0);
    v_.SetZone(r, c, ClassifySoil1990Bq(InPsi(v_.InDefaultUnit(r, tip)), InPsi(v_.InDefaultUnit(r, u2)), InPsi(u0),
                                        InPsi(v_.InDefaultUnit(r, s_.OverburdenChannel)),
                                        InPsi(v_.InDefaultUnit(r, s_.EffOverburdenChannel))));
  }
}

void Pipeline::WetDensity(int c) {
  s_.ChannelBaseFactor[c] = kWetDensityBase;
  SetFactorsFromGroup(c, kDensityGroup);
  const double density_pcf = session_.general.SoilDensity;
  for (int r = 1; r <= s_.ReadingCount; ++r) {
    for (int k = 0; k < kOutputKinds; ++k) {
      const double factor = v_.Factor(c, k);
      if (factor == 0) Fail(kErrDivisionByZero);
      v_.SetKind(r, c, k, density_pcf * kWetDensityBase / factor);
    }
    v_.SetMirror(r, c, 0, density_pcf);
    v_.SetMirror(r, c, 1, density_pcf);
    v_.SetMirror(r, c, 2, density_pcf * kWetDensityBase);
    v_.SetMirror(r, c, 3, density_pcf * kWetDensityBase);
  }
}

}  // namespace

// A GEF file that states its cone's ratio is corrected with it; the setting stays as it is.
double NetAreaRatioUsed(const Session& session, const SoundingStore& store) {
  return store.GefNetAreaRatio.value_or(session.general.NetAreaRatio);
}

Sbt1983Input ReadSbt1983Input(const SoundingStore& s, int r) {
  const bool psi_family = !IsKpaFamily(s.AcquisitionFamily);
  const int tip = s.TipQtChannel != 0 ? s.TipQtChannel : s.TipChannel;
  const int ratio = s.TipQtChannel != 0 ? s.FrictionRatioQtChannel : s.FrictionRatioQcChannel;
  Sbt1983Input in;
  if (tip != 0) {
    const double factor = s.ChannelUnitFactor[tip][kGraphOutput];
    if (factor == 0) Fail(kErrDivisionByZero);
    in.tip_bar = s.AlignedReadings(r, KindColumn(tip, kGraphOutput)) / factor * (psi_family ? 0.0689476 : 0.01);
  }
  if (ratio != 0) in.friction_ratio = s.AlignedReadings(r, KindColumn(ratio, kGraphOutput));
  return in;
}

void ComputeDerivedChannels(Session& session, SoundingStore& store, int channel_count) {
  InProcedure("ComputeDerivedChannels", [&] { Pipeline(session, store, channel_count).Run(); });
}

void ComputeDerivedChannels(Session& session, int channel_count) {
  ComputeDerivedChannels(session, session.Sounding(), channel_count);
}

}  // namespace marlview
