// The normalised soil behaviour type: the stress exponent n found by iteration, Qtn, the
// normalised friction ratio, the index Ic, the SBTn zone and Bq, all dimensionless.
#pragma once

#include <cstdint>

#include "core/derivation/channel_values.h"

namespace marlview {

// Catalogue ids of the six channels, in the order the pipeline adds them.
inline constexpr int kStressExponentId = 62;
inline constexpr int kQtnId = 63;
inline constexpr int kFrNormalisedId = 64;
inline constexpr int kIcId = 65;
inline constexpr int kSbtnId = 66;
inline constexpr int kBqId = 67;

// Atmospheric pressure, the reference stress of the normalisation, in kPa.
inline constexpr double kAtmosphericKpa = 100;

// One reading's stresses in kPa. u0 is 0 above the water table or without a head pressure.
struct NormalisedInput {
  double qt = 0;
  double fs = 0;
  double sigma_v0 = 0;
  double sigma_eff = 0;
  double u2 = 0;
  double u0 = 0;
};

// What the six channels hold for one reading; all 0 for a reading that cannot be normalised.
struct NormalisedSbt {
  double n = 0;
  double qtn = 0;
  double fr = 0;
  double ic = 0;
  int16_t zone = 0;
  double bq = 0;
};

// The soil behaviour type index of a point of the Qtn-Fr chart; both values above 0.
double SbtIndex(double qtn, double fr);
// The SBTn zone: the 1990 chart's zone 1, 8 or 9 where (Qtn, Fr) falls in one, else the Ic band.
int16_t SbtnZone(double qtn, double fr, double ic);
// Iterates n from 1 until it settles (or 100 passes) and works Qtn and Ic with the n it ends on.
// A reading with qt at or below the overburden, no sleeve friction or no effective stress gives 0.
NormalisedSbt ClassifyNormalised(const NormalisedInput& in);

// Where the pipeline put the six channels; bq is 0 without a pore pressure channel.
struct NormalisedChannels {
  int n = 0, qtn = 0, fr = 0, ic = 0, sbtn = 0, bq = 0;
};
// Whether channel c is the SBTn zone: the plots, lists and reports show it as a 1990 zone.
inline bool IsSbtnChannel(const SoundingStore& s, int c) {
  return c > 0 && c <= kMaxChannels && s.ChannelCatalogueId[c] == kSbtnId;
}
// The six channels of a sounding derived with the setting on, by catalogue id; 0 where absent.
NormalisedChannels FindNormalisedChannels(const SoundingStore& store);
// Fills the channels for every reading of the sounding, the same value in every output and mirror.
// A reading where any input channel is missing gets 0 throughout.
void CalculateNormalisedSbt(ChannelValues& v, const NormalisedChannels& channels);

}  // namespace marlview
