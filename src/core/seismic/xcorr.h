// True-interval velocities by cross-correlating each test's wave with the wave of the test above
// it: the lag of the best match is the travel time between the two depths, without picks.
#pragma once

#include <cstdint>

#include "core/common/user_prompts.h"
#include "core/session/seismic_store.h"

namespace marlview {

// The trigger transient at the start of a record correlates with itself at every depth.
inline constexpr double kDefaultXcorrSkipMs = 5;
// No interval between two test depths takes the shear wave this long.
inline constexpr double kMaxXcorrLagMs = 100;

struct XcorrOptions {
  // kNoStrike: the first of A, B that both tests of a pair have.
  int16_t kind = kNoStrike;
  double skip_ms = kDefaultXcorrSkipMs;
};

// The strike a pair of tests is correlated on, kNoStrike when they do not both have it.
int16_t XcorrKindOf(const SeismicStore& store, int reference, int test, int16_t chosen);

// Every test from the second on against the test before it, on the amplitudes as conditioned:
// fills XcorrVelocity, XcorrLagSamples and XcorrCoefficient (0 where a pair gives none) and tells
// each pair that cannot be compared.
void CrossCorrelateTests(SeismicStore& store, UserPrompts& prompts, const XcorrOptions& options);
// Empties the tables when the waves, depths or hammer distance they came from have changed.
void ForgetXcorr(SeismicStore& store);

}  // namespace marlview
