// Fuzz target of the GEF readers: any bytes are read as a sounding or a dissipation report, or
// refused with a message, or end in the run-time failure; nothing else may happen.
#include <cstdint>
#include <string>
#include <string_view>

#include "core/common/runtime_failure.h"
#include "core/common/user_prompts.h"
#include "core/dissipation/gef_dissipation_reader.h"
#include "core/io/gef_reader.h"
#include "core/session/session.h"
#include "fuzz_support.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  marlview::Session& session = marlview::fuzz::FuzzSession();
  marlview::fuzz::FuzzPrompts prompts;
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  // The first byte also picks the reader and the depth column.
  const bool dissipation = size > 0 && (data[0] & 1) != 0;
  session.GefCorrectedDepth = size > 0 && (data[0] & 2) != 0;
  try {
    if (dissipation) {
      marlview::DissipationSet& set = session.SpareDissipation();
      set.Reset();
      marlview::ReadGefDissipation(bytes, "FUZZ.GEF", set, prompts);
      set.Reset();
    } else {
      marlview::ReadGefSounding(bytes, "FUZZ.GEF", session, session.SpareStore(), prompts);
    }
  } catch (const marlview::RuntimeFailure&) {
  }
  // The store gives its readings' memory back, so the leak check scans nothing of this input.
  session.SpareStore().ResetSounding();
  session.SpareDissipation().Reset();
  return 0;
}
