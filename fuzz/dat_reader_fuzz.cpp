// Fuzz target of the DAT sounding reader: any bytes either read, are refused, or end in the
// run-time failure; nothing else may happen.
#include <cstdint>
#include <string>
#include <string_view>

#include "core/common/runtime_failure.h"
#include "core/common/user_prompts.h"
#include "core/io/dat_reader.h"
#include "core/model/unit_tables.h"
#include "core/session/session.h"
#include "fuzz_support.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  marlview::Session& session = marlview::fuzz::FuzzSession();
  marlview::fuzz::FuzzPrompts prompts(marlview::Answer::kYes, "MUNSELL");
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  // The first byte also picks the colour probe's own layout and the duplicate depth setting.
  const bool munsell = size > 0 && (data[0] & 1) != 0;
  session.DuplicateDepthCheck = size > 0 && (data[0] & 2) != 0 ? 1 : 0;
  session.DuplicateDepthThreshold = 0.005f;
  session.StartDepthAnswer = -1;
  try {
    marlview::ReadDatSounding(bytes, munsell ? "FUZZ(MUNSELL).DAT" : "FUZZ.DAT", session,
                              session.SpareStore(), prompts);
  } catch (const marlview::RuntimeFailure&) {
  }
  // The store gives its readings' memory back, so the leak check scans nothing of this input.
  session.SpareStore().ResetSounding();
  return 0;
}
