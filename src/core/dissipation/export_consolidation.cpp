// T50 and ch for an export, from the test's own largest and hydrostatic pressures.
#include "core/dissipation/export_consolidation.h"

#include "core/common/text_rules.h"
#include "core/dissipation/dissipation_writers.h"
#include "core/dissipation/t50_utility.h"
#include "core/model/unit_tables.h"

namespace marlview {

void ConsolidateForExport(DissipationSet& set, int test, const ChInputs& inputs) {
  if (test < 1 || test > set.DissipationCount || test > kMaxDissipations) return;
  const auto at = static_cast<size_t>(test);
  ConsolidationResult result;
  result.U0 = set.MaxPressure[at];
  result.U100 = set.WaterTableDepth == kUndefinedWaterTable ? 0.0f : set.HydrostaticPressure[at];
  const float u50 = result.U0 + (result.U100 - result.U0) * 0.5f;
  if (const std::optional<float> t50 = FindT50(set, test, u50)) {
    result.HasT50 = true;
    result.T50 = *t50;
    if (*t50 > 0) {
      result.HasCh = true;
      result.Ch = ChFromT50(*t50, inputs);
      result.RigidityIndex = static_cast<float>(inputs.RigidityIndex);
    }
  }
  set.LastConsolidation[at] = result;
}

double DissipationKilopascalsPerUnit(const DissipationSet& set, const UnitTables& units) {
  switch (set.FileKind) {
    case kPxDasDissipation:
      for (const PxPressureUnit& unit : kPxPressureUnits) {
        if (EqualsNoCase(unit.name, TrimBlanks(set.PressureUnitName))) return 1 / unit.per_kilopascal;
      }
      return 1;
    case kFieldboxDissipation: {
      const double kpa = units.ConversionFactor(kKpaUnit, kPressureGroup);
      return kpa == 0 ? 1 : units.ConversionFactor(set.PressureUnitIndex, kPressureGroup) / kpa;
    }
    case kFldacqDissipation: {
      const double kpa = units.ConversionFactor(kKpaUnit, kPressureGroup);
      return kpa == 0 ? 1 : units.ConversionFactor(kPsiUnit, kPressureGroup) / kpa;
    }
    default:
      return 1;
  }
}

}  // namespace marlview
