// Raw readings to engineering values for each output, and the alignment of each sensor to the
// depth of the tip.
#pragma once

#include <array>

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
// The closing baseline in engineering units for each output: of the DAT baseline row by the
// sensor's conversion, or of a PX DAS file's baseline line by the range conversion below.
void ComputeEndBaselines(SoundingStore& store, const UnitTables& units);

// What converting one channel of a PX DAS file needs, worked out once for all its readings. The
// file's number n stands for (n - zero) / sensitivity * range in the unit written after the range.
struct CptConversion {
  double zero = 0, sensitivity = 0, range = 0;
  // The standard cone's area over the ball's for the tip of a ball cone, 1 otherwise.
  double ball = 1;
  // To each output's unit; a temperature takes none and is shown in degrees F where so chosen.
  std::array<double, kOutputKinds> factor{};
  std::array<bool, kOutputKinds> fahrenheit{};
  // From the file's unit to the unit of each fixed pressure table; 1 for a channel that is no pressure.
  std::array<double, kFixedPressureTables> to_fixed{};
};
CptConversion PrepareCptConversion(const SoundingStore& store, const UnitTables& units, int channel);
// The file's number in the file's unit, with the ball's ratio; a zero sensitivity is "Division by zero".
double CptFileValue(const CptConversion& conversion, double n);
// The file's number in output k.
double CptOutputValue(const CptConversion& conversion, double n, int kind);

// The offset of the sleeve behind the tip, in metres: half the sum of the tip's and the sleeve's
// distance rows, plus the filter when a piezo filter sits between them, in inches.
float SleeveOffsetMetres(const SoundingStore& store, bool piezo_filter_present, float feet_per_metre);
}  // namespace marlview
