// T50 and ch of the tests of a dissipation file worked out without the T50 window, for the
// exports that add dissipation tests to a sounding, and the file's pressure unit in kPa.
#pragma once

#include "core/dissipation/consolidation.h"
#include "core/session/dissipation_set.h"

namespace marlview {

struct UnitTables;

// For test i: U0 its largest pressure, U100 its hydrostatic pressure (0 when the water table is
// undefined), T50 as the T50 window finds it for them and ch for the inputs. Kept in
// LastConsolidation[i]; a test whose curve never crosses U50 keeps neither T50 nor ch.
void ConsolidateForExport(DissipationSet& set, int test, const ChInputs& inputs);

// Kilopascals in one unit of the file's pressures: the PX DAS conversion line's unit, the QRD
// FIELDBOX unit table's row, psi for FLDACQ and kPa for GEF.
double DissipationKilopascalsPerUnit(const DissipationSet& set, const UnitTables& units);

}  // namespace marlview
