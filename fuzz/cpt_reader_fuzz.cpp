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

namespace {

// Takes the offered standard cone area, and shows nothing.
class AnsweringPrompts : public marlview::UserPrompts {
 public:
  void Tell(std::string_view) override {}
  marlview::Answer Ask(std::string_view, marlview::Buttons) override { return marlview::Answer::kYes; }
  std::string Input(std::string_view, std::string_view, std::string_view d) override { return std::string(d); }
  std::string OpenFile(const marlview::FileDialogRequest&) override { return {}; }
  std::string SaveFile(const marlview::FileDialogRequest&) override { return {}; }
};

marlview::Session& FuzzSession() {
  static marlview::Session* session = [] {
    auto* s = new marlview::Session({"/nonexistent", MARLVIEW_DEFAULTS});
    marlview::SetupTYRChannels(s->units, MARLVIEW_DEFAULTS, s->FeetPerMetre);
    return s;
  }();
  return *session;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  marlview::Session& session = FuzzSession();
  AnsweringPrompts prompts;
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
