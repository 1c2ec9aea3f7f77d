// Fuzz target of the PX DAS sounding reader: any bytes either read or end in the run-time failure;
// nothing else may happen.
#include <cstdint>
#include <string>
#include <string_view>

#include "core/common/runtime_failure.h"
#include "core/common/user_prompts.h"
#include "core/io/cpt_reader.h"
#include "core/model/unit_tables.h"
#include "core/session/session.h"
#include "fuzz_support.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  marlview::Session& session = marlview::fuzz::FuzzSession();
  marlview::fuzz::FuzzPrompts prompts;
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  // The first byte also picks the decimal comma and the doubled ball area.
  session.DecimalComma = size > 0 && (data[0] & 1) != 0;
  session.BallAreaDoubled = size > 0 && (data[0] & 2) != 0 ? 1 : 0;
  try {
    marlview::ReadCptSounding(bytes, "FUZZ.CPT", session, session.SpareStore(), prompts);
  } catch (const marlview::RuntimeFailure&) {
  }
  // The store gives its readings' memory back, so the leak check scans nothing of this input.
  session.SpareStore().ResetSounding();
  return 0;
}
