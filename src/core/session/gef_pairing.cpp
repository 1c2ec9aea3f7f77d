// The pairing of a GEF dissipation with the sounding it was taken in.
#include "core/session/gef_pairing.h"

#include <algorithm>

#include "core/common/text_rules.h"

namespace marlview {

std::optional<float> PairedDissipationDepth(const SoundingStore& sounding,
                                            const DissipationSet& dissipation) {
  if (sounding.AcquisitionFamily == kNoSounding || dissipation.FileKind != kGefDissipation ||
      dissipation.DissipationCount < 1) {
    return std::nullopt;
  }
  const bool parent =
      !dissipation.ParentFile.empty() && EqualsNoCase(dissipation.ParentFile, sounding.SoundingFileName);
  const bool child =
      std::any_of(sounding.GefChildren.begin(), sounding.GefChildren.end(), [&](const GefChild& c) {
        return !c.file.empty() && EqualsNoCase(c.file, dissipation.DissipationFileName);
      });
  if (!parent && !child) return std::nullopt;
  return dissipation.TestDepth[1];
}

}  // namespace marlview
