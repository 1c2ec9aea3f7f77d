// Fuzz target of the channel files added to a sounding ("str" and "step" files).
#include <cstdint>
#include <string>
#include <string_view>

#include "core/common/runtime_failure.h"
#include "core/common/user_prompts.h"
#include "core/session/session.h"
#include "core/shell/add_data.h"

#include "fuzz_support.h"

namespace {

// A sounding of 200 readings, 2 cm apart, with three measured channels.
marlview::Session& FuzzSession() {
  static marlview::Session* session = [] {
    auto* s = new marlview::Session({"/nonexistent", MARLVIEW_DEFAULTS});
    marlview::SoundingStore& store = s->Sounding();
    store.ReadingCount = 200;
    store.DepthInterval = 0.02f;
    for (int r = 1; r <= 200; ++r) store.DepthTable(r, 1) = 0.02f * static_cast<float>(r);
    return s;
  }();
  return *session;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  marlview::Session& session = FuzzSession();
  session.Sounding().ChannelCount = session.Sounding().TotalChannels = 3;
  session.DepthUnitIsMetric = size > 0 && (data[0] & 1) ? 0 : 1;
  marlview::fuzz::FuzzPrompts prompts(marlview::Answer::kNo);
  try {
    marlview::AddChannelFromText(session, std::string_view(reinterpret_cast<const char*>(data), size),
                                 "FUZZ.vss", prompts);
  } catch (const marlview::RuntimeFailure&) {
  }
  return 0;
}
