// The correlations of friction angle, undrained shear strength and over consolidation ratio.
#pragma once

#include "core/derivation/channel_values.h"

namespace marlview {

inline constexpr double kShearFactorNk = 15.0;

void CalculateFrictionAngle(ChannelValues& v, int channel);
void CalculateShearStrength(ChannelValues& v, int channel, double shear_factor_nk);
void CalculateOverConsolidation(ChannelValues& v, int channel);

}  // namespace marlview
