// Conversion of raw readings by sensor kind, and depth alignment.
#include "core/model/conversion.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "core/common/runtime_failure.h"
#include "core/common/text_rules.h"

namespace marlview {
namespace {

// The distance between the tip and the filter of a u2 piezocone, in inches.
constexpr double kPiezoFilterInches = 0.245;

double Divide(double numerator, double denominator) {
  if (denominator == 0) Fail(kErrDivisionByZero);
  return numerator / denominator;
}

bool NameHasAny(std::string_view name, std::initializer_list<std::string_view> words) {
  for (auto word : words) {
    if (ContainsNoCase(name, word)) return true;
  }
  return false;
}

// The kinds of sensor that convert differently, recognised by the channel's name.
enum class SensorKind {
  kTipOrSleeve, kPorePressure, kExcitation, kTemperature, kInclination, kFfd, kVrefRatio,
  kRodDepth, kAux, kResistivity, kSoilMoisture, kColour, kOther
};

// First match wins, in this order.
SensorKind SensorKindOf(std::string_view name) {
  if (NameHasAny(name, {"Tip", "Sleeve"})) return SensorKind::kTipOrSleeve;
  if (NameHasAny(name, {"Pore Press", "Pore Pressure"})) return SensorKind::kPorePressure;
  if (NameHasAny(name, {"Excitation Sense", "Exc Sense"})) return SensorKind::kExcitation;
  if (ContainsNoCase(name, "Temperature")) return SensorKind::kTemperature;
  if (NameHasAny(name, {"Incl X", "Inclination X", "Incl Y", "Inclination Y"})) {
    return SensorKind::kInclination;
  }
  if (NameHasAny(name, {"HFFD", "LFFD"})) return SensorKind::kFfd;
  if (ContainsNoCase(name, "VREF RATIO")) return SensorKind::kVrefRatio;
  if (ContainsNoCase(name, "Rod Depth")) return SensorKind::kRodDepth;
  // Tested with the blank, as the field systems spell it: a sensor named "Aux1" is not converted.
  if (NameHasAny(name, {"AUX 1", "AUX 2"})) return SensorKind::kAux;
  if (ContainsNoCase(name, "Resistivity")) return SensorKind::kResistivity;
  if (ContainsNoCase(name, "Soil Moist")) return SensorKind::kSoilMoisture;
  if (NameHasAny(name, {"RED", "GREEN", "BLUE", "CLEAR"})) return SensorKind::kColour;
  return SensorKind::kOther;
}

// The engineering value of raw value v of channel c for an output whose unit factor is k.
double EngineeringValue(const SoundingStore& s, int c, SensorKind kind, double v, double k,
                        bool fahrenheit) {
  const double baseline = s.ChannelBaseline[c];
  const auto& cal = s.ChannelCalRows[c];
  const auto& uf = s.ChannelUnitFactorRows[c];
  const double e = cal[0], g = cal[1], cc = cal[2], r3 = cal[3];
  const double d = v - baseline;
  switch (kind) {
    case SensorKind::kTipOrSleeve:
      if (e == 0 || g == 0 || cc == 0 || uf[2] == 0) return 0;
      return d / (e / 1000 * g * cc) / uf[2] * k;
    case SensorKind::kPorePressure:
      if (e == 0 || g == 0 || cc == 0) return 0;
      return d / (e / 1000 * g * cc) * k;
    case SensorKind::kExcitation:
      return v * e * k;
    case SensorKind::kTemperature: {
      if (e == 0) return 0;
      const double celsius = (v / (e / 1000) - g) * k;
      return fahrenheit ? celsius * 9 / 5 + 32 : celsius;
    }
    case SensorKind::kInclination:
      if (e == 0 || g == 0) return 0;
      return d / (e / 1000 * g) * k;
    case SensorKind::kFfd:
      return d * k;
    case SensorKind::kVrefRatio:
      return e == 0 ? 0 : v / e * 100;
    case SensorKind::kRodDepth:
      if (e == 0 || g == 0 || cc == 0) return 0;
      return (d / ((e / 1000 * g) / 2) * k) / (cc + cc);
    case SensorKind::kAux:
      return v * k;
    case SensorKind::kResistivity: {
      const double y = (Divide(5000, cc * v - r3) - 2000) * e;
      return y <= 0 ? k * 1e-8 : std::pow(y, g) * k;
    }
    case SensorKind::kSoilMoisture: {
      const double t = Divide(v - g, cc - g);
      // The factor stands where the constant term of the calibration polynomial would.
      if (uf[2] <= 0.5 && uf[3] <= 0.5) return k * uf[1] + t * uf[0];
      return t * t * t * uf[3] + t * t * uf[2] + t * uf[1] + k * uf[0];
    }
    case SensorKind::kColour:
      // Colour counts are stored in millionths.
      return v * 1000000;
    case SensorKind::kOther:
      break;
  }
  return v;
}

double BallTipFactor(const SoundingStore& s, int c) {
  if (!s.BallTip || c != s.TipChannel) return 1;
  return Divide(s.ConicalTipArea, s.BallArea);
}

double Interpolate(double depth, double d0, double v0, double d1, double v1) {
  if (d1 == d0) return v1;
  return v0 + (v1 - v0) * (depth - d0) / (d1 - d0);
}

}  // namespace

static void ConvertRow(SoundingStore& s, const UnitTables& units, int c, int r, SensorKind kind) {
  const double v = s.RawReadings(r, c);
  const double ball = BallTipFactor(s, c);
  for (int k = 0; k < kOutputKinds; ++k) {
    const double value =
        EngineeringValue(s, c, kind, v, s.ChannelUnitFactor[c][k], s.TemperatureInFahrenheit[k]);
    const float single = ToSingle(value * ball);
    s.ChannelReadings(r, KindColumn(c, k)) = single;
    s.AlignedReadings(r, KindColumn(c, k)) = single;
  }
  const double in_file_unit = EngineeringValue(s, c, kind, v, 1, false);
  const double default_factor = units.Factor(s.ChannelDefaultUnit[c], kPressureGroup);
  for (int i = 0; i < kFixedPressureTables; ++i) {
    const double to_fixed = Divide(default_factor, units.Factor(kFixedPressureUnits[i], kPressureGroup));
    s.FixedPressureReadings[i](r, c) = ToSingle(in_file_unit * to_fixed * ball);
  }
}

void ConvertReading(SoundingStore& s, const UnitTables& units, int c, int r) {
  if (c < 1 || c > kMaxChannels) Fail(kErrSubscript);
  ConvertRow(s, units, c, r, SensorKindOf(s.ChannelName[c]));
}

void ConvertChannel(SoundingStore& s, const UnitTables& units, int c) {
  if (c < 1 || c > kMaxChannels) Fail(kErrSubscript);
  const SensorKind kind = SensorKindOf(s.ChannelName[c]);
  for (int r = 1; r <= s.ReadingCount; ++r) ConvertRow(s, units, c, r, kind);
}

void InvertReading(SoundingStore& s, int c, int r) {
  const auto& cal = s.ChannelCalRows[c];
  const double e = cal[0], g = cal[1], cc = cal[2];
  const double k = s.ChannelUnitFactor[c][0];
  const double baseline = s.ChannelBaseline[c];
  double value = s.ChannelReadings(r, KindColumn(c, kGraphOutput));
  double raw;
  switch (SensorKindOf(s.ChannelName[c])) {
    case SensorKind::kTipOrSleeve:
      raw = Divide(value * (e / 1000 * g * cc) * s.ChannelUnitFactorRows[c][2], k) + baseline;
      break;
    case SensorKind::kPorePressure:
      raw = Divide(value * (e / 1000 * g * cc), k) + baseline;
      break;
    case SensorKind::kTemperature:
      if (s.TemperatureInFahrenheit[kGraphOutput]) value = (value - 32) * 5 / 9;
      raw = (Divide(value, k) + g) * (e / 1000);
      break;
    case SensorKind::kInclination:
      raw = Divide(value, k) * (e / 1000 * g) + baseline;
      break;
    case SensorKind::kFfd:
      raw = Divide(value, k) + baseline;
      break;
    default:
      // The other sensors are not edited in engineering units; their raw reading stays.
      return;
  }
  s.RawReadings(r, c) = ToSingle(raw);
}

void AlignChannel(SoundingStore& s, int c) {
  if (c < 1 || c > kMaxChannels) Fail(kErrSubscript);
  const int n = s.ReadingCount;
  const float offset = s.ChannelOffset[c];
  auto copy_row = [&](int to, int from) {
    for (int k = 0; k < kOutputKinds; ++k) {
      s.AlignedReadings(to, KindColumn(c, k)) = s.ChannelReadings(from, KindColumn(c, k));
    }
    for (int i = 0; i < kFixedPressureTables; ++i) {
      s.AlignedFixedPressure[i](to, c) = s.FixedPressureReadings[i](from, c);
    }
  };
  if (offset <= 0) {
    for (int r = 1; r <= n; ++r) {
      copy_row(r, r);
      s.RawAlignedReadings(r, c) = s.RawReadings(r, c);
    }
    return;
  }
  // The first row at or below a depth, found on the running deepest depth so that a sounding whose
  // depth goes back now and then is searched in order as well.
  std::vector<float> deepest(static_cast<size_t>(n) + 1);
  for (int r = 1; r <= n; ++r) {
    deepest[r] = r == 1 ? s.DepthTable(1, 1) : std::max(deepest[r - 1], s.DepthTable(r, 1));
  }
  const double last_depth = s.DepthTable(n, 1);
  for (int r = 1; r <= n; ++r) {
    const double target = static_cast<double>(s.DepthTable(r, 1)) + offset;
    if (target > last_depth) {
      for (int k = 0; k < kOutputKinds; ++k) s.AlignedReadings(r, KindColumn(c, k)) = 0;
      for (int i = 0; i < kFixedPressureTables; ++i) s.AlignedFixedPressure[i](r, c) = 0;
      continue;
    }
    const auto found = std::lower_bound(deepest.begin() + 1, deepest.end(), target,
                                        [](float depth, double t) { return depth < t; });
    const int j = static_cast<int>(found - deepest.begin());
    const double d0 = s.DepthTable(j - 1, 1);
    const double d1 = s.DepthTable(j, 1);
    for (int k = 0; k < kOutputKinds; ++k) {
      const int col = KindColumn(c, k);
      s.AlignedReadings(r, col) = ToSingle(
          Interpolate(target, d0, s.ChannelReadings(j - 1, col), d1, s.ChannelReadings(j, col)));
    }
    for (int i = 0; i < kFixedPressureTables; ++i) {
      // The last fixed table takes its shallower value from the table before it: a long-standing
      // slip that existing reports depend on.
      const int base_table = i == 3 ? 2 : i;
      s.AlignedFixedPressure[i](r, c) =
          ToSingle(Interpolate(target, d0, s.FixedPressureReadings[base_table](j - 1, c), d1,
                               s.FixedPressureReadings[i](j, c)));
    }
  }
}

void ComputeEndBaselines(SoundingStore& s, const UnitTables&) {
  for (int c = 1; c <= s.ChannelCount; ++c) {
    const double ball = BallTipFactor(s, c);
    const SensorKind kind = SensorKindOf(s.ChannelName[c]);
    for (int k = 0; k < kOutputKinds; ++k) {
      s.EndBaselineValues[c][k] = ToSingle(
          EngineeringValue(s, c, kind, s.ChannelEndBaseline[c], s.ChannelUnitFactor[c][k],
                           s.TemperatureInFahrenheit[k]) * ball);
    }
  }
}

float SleeveOffsetMetres(const SoundingStore& s, bool piezo_filter_present, float feet_per_metre) {
  double inches = (static_cast<double>(s.ChannelUnitFactorRows[s.TipChannel][0]) +
                   s.ChannelUnitFactorRows[s.SleeveChannel][0]) / 2;
  if (s.PorePressureChannel != 0 && piezo_filter_present) inches += kPiezoFilterInches;
  return ToSingle(inches / 12 / feet_per_metre);
}

}  // namespace marlview
