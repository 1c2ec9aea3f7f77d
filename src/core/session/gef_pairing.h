// Whether the open dissipation was taken in the open sounding, as their GEF files name each other.
#pragma once

#include <optional>

#include "core/model/sounding_store.h"
#include "core/session/dissipation_set.h"

namespace marlview {

// The depth (m) of the dissipation test when the dissipation's #PARENT names the sounding's file or
// the sounding's #CHILD lines name the dissipation's, without regard to case; nothing otherwise.
std::optional<float> PairedDissipationDepth(const SoundingStore& sounding, const DissipationSet& dissipation);

}  // namespace marlview
