// How the calculators read and write a channel's values: five outputs and four fixed-unit mirrors
// per reading, and the value in the channel's own unit.
#pragma once

#include "core/model/conversion.h"
#include "core/model/sounding_store.h"
#include "core/model/unit_tables.h"

namespace marlview {

class ChannelValues {
 public:
  ChannelValues(SoundingStore& store, const UnitTables& unit_tables) : s(store), units(unit_tables) {}

  double Factor(int c, int k) const { return s.ChannelUnitFactor[c][k]; }
  // Channel 0 stands for an absent channel and reads as 0.
  double Kind(int r, int c, int k) const { return c == 0 ? 0 : s.AlignedReadings(r, KindColumn(c, k)); }
  // The value in the channel's own unit: the graph output over its unit factor.
  double InDefaultUnit(int r, int c) const { return InDefaultUnit(r, c, kGraphOutput); }
  double InDefaultUnit(int r, int c, int k) const {
    if (c == 0) return 0;
    const double factor = Factor(c, k);
    if (factor == 0) Fail(kErrDivisionByZero);
    return Kind(r, c, k) / factor;
  }
  double Mirror(int r, int c, int m) const { return s.AlignedFixedPressure[m](r, c); }

  void SetKind(int r, int c, int k, double value) { s.AlignedReadings(r, KindColumn(c, k)) = ToSingle(value); }
  void SetKinds(int r, int c, double value) {
    for (int k = 0; k < kOutputKinds; ++k) SetKind(r, c, k, value);
  }
  void SetMirror(int r, int c, int m, double value) { s.AlignedFixedPressure[m](r, c) = ToSingle(value); }
  void SetMirrors(int r, int c, double value) {
    for (int m = 0; m < kFixedPressureTables; ++m) SetMirror(r, c, m, value);
  }
  // A classification's zone in every output; an unclassified reading is -99 in the fixed-unit copies.
  void SetZone(int r, int c, double zone) {
    SetKinds(r, c, zone);
    SetMirrors(r, c, zone == 0 ? -99 : zone);
  }

  // From a pressure unit to the unit of fixed table m.
  double ToMirrorUnit(int unit, int m) const {
    const double to = units.ConversionFactor(kFixedPressureUnits[m], kPressureGroup);
    if (to == 0) Fail(kErrDivisionByZero);
    return units.ConversionFactor(unit, kPressureGroup) / to;
  }
  // Pressures of the PX DAS and GEF families are kPa, of the QRD families psi.
  bool PsiFamily() const { return !IsKpaFamily(s.AcquisitionFamily); }
  int PressureUnit() const { return PsiFamily() ? kPsiUnit : kKpaUnit; }
  // The corrected tip where there is one, else the measured tip.
  int TipSource() const { return s.TipQtChannel != 0 ? s.TipQtChannel : s.TipChannel; }
  // The friction ratio that goes with the tip source.
  int FrictionSource() const { return s.TipQtChannel != 0 ? s.FrictionRatioQtChannel : s.FrictionRatioQcChannel; }

  SoundingStore& s;
  const UnitTables& units;
};

}  // namespace marlview
