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

namespace {

// Answers every question the way a hurried user would, and shows nothing.
class AnsweringPrompts : public marlview::UserPrompts {
 public:
  void Tell(std::string_view) override {}
  marlview::Answer Ask(std::string_view text, marlview::Buttons) override {
    return text.find("MUNSELL") != std::string_view::npos ? marlview::Answer::kNo : marlview::Answer::kYes;
  }
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
