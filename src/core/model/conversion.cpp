// Conversion of raw readings by sensor kind, and depth alignment.
#include "core/model/conversion.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
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

// What converting one channel needs besides its raw values, worked out once for all its readings.
struct ChannelConversion {
  SensorKind kind = SensorKind::kOther;
  double ball = 1;
  std::array<double, kOutputKinds> factor{};
  std::array<bool, kOutputKinds> fahrenheit{};
  std::array<double, kFixedPressureTables> to_fixed{};
};

ChannelConversion PrepareConversion(const SoundingStore& s, const UnitTables& units, int c) {
  if (c < 1 || c > kMaxChannels) Fail(kErrSubscript);
  ChannelConversion p;
  p.kind = SensorKindOf(s.ChannelName[c]);
  p.ball = BallTipFactor(s, c);
  for (int k = 0; k < kOutputKinds; ++k) {
    p.factor[k] = s.ChannelUnitFactor[c][k];
    p.fahrenheit[k] = s.TemperatureInFahrenheit[k];
  }
  const double default_factor = units.ConversionFactor(s.ChannelDefaultUnit[c], kPressureGroup);
  for (int i = 0; i < kFixedPressureTables; ++i) {
    p.to_fixed[i] = Divide(default_factor, units.ConversionFactor(kFixedPressureUnits[i], kPressureGroup));
  }
  return p;
}

// The five outputs, then the four fixed pressure tables, of raw value v.
using ConvertedValues = std::array<float, kOutputKinds + kFixedPressureTables>;

ConvertedValues ConvertValue(const SoundingStore& s, int c, const ChannelConversion& p, double v) {
  ConvertedValues out;
  for (int k = 0; k < kOutputKinds; ++k) {
    out[k] = ToSingle(EngineeringValue(s, c, p.kind, v, p.factor[k], p.fahrenheit[k]) * p.ball);
  }
  const double in_file_unit = EngineeringValue(s, c, p.kind, v, 1, false);
  for (int i = 0; i < kFixedPressureTables; ++i) out[kOutputKinds + i] = ToSingle(in_file_unit * p.to_fixed[i] * p.ball);
  return out;
}

}  // namespace

void ConvertReading(SoundingStore& s, const UnitTables& units, int c, int r) {
  const ChannelConversion p = PrepareConversion(s, units, c);
  const ConvertedValues values = ConvertValue(s, c, p, s.RawReadings(r, c));
  for (int k = 0; k < kOutputKinds; ++k) {
    s.ChannelReadings(r, KindColumn(c, k)) = values[k];
    s.AlignedReadings(r, KindColumn(c, k)) = values[k];
  }
  for (int i = 0; i < kFixedPressureTables; ++i) s.FixedPressureReadings[i](r, c) = values[kOutputKinds + i];
}

// Down each column in turn: the channel's raw values are read once and each output is written in
// depth order.
void ConvertChannel(SoundingStore& s, const UnitTables& units, int c) {
  if (c < 1 || c > kMaxChannels) Fail(kErrSubscript);
  const int n = s.ReadingCount;
  if (n < 1) return;
  const ChannelConversion p = PrepareConversion(s, units, c);
  const float* raw = s.RawReadings.Column(c, n);
  std::array<float*, kOutputKinds> engineering, aligned;
  std::array<float*, kFixedPressureTables> fixed;
  for (int k = 0; k < kOutputKinds; ++k) {
    engineering[k] = s.ChannelReadings.Column(KindColumn(c, k), n);
    aligned[k] = s.AlignedReadings.Column(KindColumn(c, k), n);
  }
  for (int i = 0; i < kFixedPressureTables; ++i) fixed[i] = s.FixedPressureReadings[i].Column(c, n);
  for (int r = 1; r <= n; ++r) {
    const ConvertedValues values = ConvertValue(s, c, p, raw[r]);
    for (int k = 0; k < kOutputKinds; ++k) engineering[k][r] = aligned[k][r] = values[k];
    for (int i = 0; i < kFixedPressureTables; ++i) fixed[i][r] = values[kOutputKinds + i];
  }
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

// Each of the channel's nine columns (five outputs, four fixed pressure tables) is walked down in
// depth order; where the sensor sits behind the tip, the rows to interpolate between are found
// once for all nine.
void AlignChannel(SoundingStore& s, int c) {
  if (c < 1 || c > kMaxChannels) Fail(kErrSubscript);
  const int n = s.ReadingCount;
  if (n < 1) return;
  constexpr int kColumns = kOutputKinds + kFixedPressureTables;
  std::array<const float*, kColumns> from;
  std::array<float*, kColumns> to;
  for (int k = 0; k < kOutputKinds; ++k) {
    from[k] = s.ChannelReadings.Column(KindColumn(c, k), n);
    to[k] = s.AlignedReadings.Column(KindColumn(c, k), n);
  }
  for (int i = 0; i < kFixedPressureTables; ++i) {
    from[kOutputKinds + i] = s.FixedPressureReadings[i].Column(c, n);
    to[kOutputKinds + i] = s.AlignedFixedPressure[i].Column(c, n);
  }
  const size_t bytes = static_cast<size_t>(n) * sizeof(float);
  const float offset = s.ChannelOffset[c];
  if (offset <= 0) {
    for (int m = 0; m < kColumns; ++m) std::memcpy(to[m] + 1, from[m] + 1, bytes);
    std::memcpy(s.RawAlignedReadings.Column(c, n) + 1, s.RawReadings.Column(c, n) + 1, bytes);
    return;
  }
  const float* depth = s.DepthTable.Column(1, n);
  // The first row at or below a depth, found on the running deepest depth so that a sounding whose
  // depth goes back now and then is searched in order as well; 0 where the depth is past the last.
  std::vector<float> deepest(static_cast<size_t>(n) + 1);
  for (int r = 1; r <= n; ++r) deepest[r] = r == 1 ? depth[1] : std::max(deepest[r - 1], depth[r]);
  const double last_depth = depth[n];
  // The search starts from the row found for the reading before, as depths mostly go down.
  std::vector<int> below(static_cast<size_t>(n) + 1);
  int j = 1;
  for (int r = 1; r <= n; ++r) {
    const double target = static_cast<double>(depth[r]) + offset;
    if (target > last_depth) continue;
    while (j > 1 && deepest[j - 1] >= target) --j;
    while (j < n && deepest[j] < target) ++j;
    below[r] = j;
  }
  for (int m = 0; m < kColumns; ++m) {
    // The last fixed table takes its shallower value from the table before it: a long-standing
    // slip that existing reports depend on.
    const float* shallower = m == kColumns - 1 ? from[m - 1] : from[m];
    for (int r = 1; r <= n; ++r) {
      const int row = below[r];
      if (row == 0) {
        to[m][r] = 0;
        continue;
      }
      const double target = static_cast<double>(depth[r]) + offset;
      to[m][r] = ToSingle(Interpolate(target, depth[row - 1], shallower[row - 1], depth[row], from[m][row]));
    }
  }
}

void ComputeEndBaselines(SoundingStore& s, const UnitTables& units) {
  if (s.AcquisitionFamily == kPxDasFamily) {
    for (int c = 1; c <= s.ChannelCount; ++c) {
      const CptConversion p = PrepareCptConversion(s, units, c);
      for (int k = 0; k < kOutputKinds; ++k) s.EndBaselineValues[c][k] = ToSingle(CptOutputValue(p, s.CptEndBaseline[c], k));
    }
    return;
  }
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

CptConversion PrepareCptConversion(const SoundingStore& s, const UnitTables& units, int c) {
  if (c < 1 || c > kMaxChannels) Fail(kErrSubscript);
  CptConversion p;
  p.zero = s.ChannelZero[c];
  p.sensitivity = s.ChannelSensitivity[c];
  p.range = s.ChannelRange[c];
  p.ball = BallTipFactor(s, c);
  const bool temperature = ContainsNoCase(s.ChannelName[c], "Temperature");
  for (int k = 0; k < kOutputKinds; ++k) {
    p.factor[k] = temperature ? 1 : s.ChannelUnitFactor[c][k];
    p.fahrenheit[k] = temperature && s.TemperatureInFahrenheit[k];
  }
  p.to_fixed.fill(1);
  if (s.ChannelUnitGroup[c] == kPressureGroup) {
    const double file_unit = units.ConversionFactor(s.ChannelDefaultUnit[c], kPressureGroup);
    for (int i = 0; i < kFixedPressureTables; ++i) {
      p.to_fixed[i] = Divide(file_unit, units.ConversionFactor(kFixedPressureUnits[i], kPressureGroup));
    }
  }
  return p;
}

double CptFileValue(const CptConversion& p, double n) {
  return Divide(n - p.zero, p.sensitivity) * p.range * p.ball;
}

double CptOutputValue(const CptConversion& p, double n, int k) {
  const double value = Divide(n - p.zero, p.sensitivity) * p.range * p.factor[k] * p.ball;
  return p.fahrenheit[k] ? value * 9 / 5 + 32 : value;
}

float SleeveOffsetMetres(const SoundingStore& s, bool piezo_filter_present, float feet_per_metre) {
  double inches = (static_cast<double>(s.ChannelUnitFactorRows[s.TipChannel][0]) +
                   s.ChannelUnitFactorRows[s.SleeveChannel][0]) / 2;
  if (s.PorePressureChannel != 0 && piezo_filter_present) inches += kPiezoFilterInches;
  return ToSingle(inches / 12 / feet_per_metre);
}

}  // namespace marlview
