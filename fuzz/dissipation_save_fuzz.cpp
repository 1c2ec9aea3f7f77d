// Fuzz target of the dissipation writers and the combine: whatever the QRD FIELDBOX or PX DAS
// reader takes is saved by its writer and read again, and a QRD FIELDBOX file is appended to
// itself; each either goes through or ends in the run-time failure.
#include <cstdint>
#include <string>
#include <string_view>

#include "core/common/runtime_failure.h"
#include "core/dissipation/dissipation_editor.h"
#include "core/dissipation/dissipation_readers.h"
#include "core/dissipation/dissipation_writers.h"
#include "core/session/session.h"
#include "fuzz_support.h"

namespace {

using namespace marlview;

void SaveAndReadAgain(int16_t kind, std::string_view bytes) {
  Session& session = fuzz::FuzzSession();
  DissipationSet& set = session.SpareDissipation();
  set.Reset();
  set.FileKind = kind;
  try {
    ReadDissipation(bytes, session.units, set);
    session.CommitDissipation();
  } catch (const RuntimeFailure&) {
    set.Reset();
    return;
  }
  DissipationSet& current = session.Dissipation();
  try {
    const std::string saved = kind == kPxDasDissipation ? PxDissipationBytes(current, "BH-07")
                                                        : FieldboxDissipationBytes(current, session.units, "F.DIS");
    DissipationSet& again = session.SpareDissipation();
    again.Reset();
    again.FileKind = kind;
    ReadDissipation(saved, session.units, again);
    again.Reset();
  } catch (const RuntimeFailure&) {
    session.SpareDissipation().Reset();
  }
  if (kind == kFieldboxDissipation) {
    fuzz::FuzzPrompts prompts;
    try {
      AppendDissipationFile(session, prompts, bytes, 1.5f);
    } catch (const RuntimeFailure&) {
    }
  }
  current.Reset();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  SaveAndReadAgain(kFieldboxDissipation, bytes);
  SaveAndReadAgain(kPxDasDissipation, bytes);
  return 0;
}
