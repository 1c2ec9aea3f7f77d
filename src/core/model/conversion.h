// Raw readings to engineering values for each output, and the alignment of each sensor to the
// depth of the tip.
#pragma once

#include "core/common/number_read.h"
#include "core/model/sounding_store.h"
#include "core/model/unit_tables.h"

namespace marlview {

// Converts raw channel c of reading r into its five outputs, the four fixed pressure tables and,
// unaligned, the aligned table.
void ConvertReading(SoundingStore& store, const UnitTables& units, int channel, int row);
// ConvertReading for every reading of channel c.
void ConvertChannel(SoundingStore& store, const UnitTables& units, int channel);
// Brings an edited engineering value (graph output) back to the raw reading it came from.
void InvertReading(SoundingStore& store, int channel, int row);
// Moves channel c to the depth of each reading by its offset behind the tip.
void AlignChannel(SoundingStore& store, int channel);
// The closing baseline in engineering units for each output.
void ComputeEndBaselines(SoundingStore& store, const UnitTables& units);

// The offset of the sleeve behind the tip, in metres: half the sum of the tip's and the sleeve's
// distance rows, plus the filter when a piezo filter sits between them, in inches.
float SleeveOffsetMetres(const SoundingStore& store, bool piezo_filter_present, float feet_per_metre);



}  // namespace marlview
