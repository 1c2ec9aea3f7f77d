// Fuzz target of the settings files read at start: each reader takes the same bytes.
#include <cstdint>
#include <string_view>

#include "core/common/runtime_failure.h"
#include "core/model/catalogue.h"
#include "core/model/unit_tables.h"
#include "core/session/session.h"
#include "core/settings/settings_files.h"

namespace {

template <typename Read>
void Try(Read read) {
  try {
    read();
  } catch (const marlview::RuntimeFailure&) {
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  static marlview::ChannelChoices choices;
  static marlview::UnitTables units;
  Try([&] { marlview::ReadGeneralSettings(bytes); });
  Try([&] { marlview::ReadRodBreakSettings(bytes); });
  Try([&] { marlview::ReadProbeDimensions(bytes, marlview::kFeetPerMetre); });
  Try([&] { marlview::ReadDisplayUnits(choices, bytes); });
  Try([&] { marlview::ReadExportLabels(choices, 3, bytes); });
  Try([&] { marlview::ReadUnitFile(units, marlview::kPressureGroup, bytes); });
  Try([&] { marlview::ReadCustomHeaders(bytes); });
  Try([&] { marlview::ReadLogoSettings(bytes); });
  Try([&] { marlview::ReadTextLines(bytes, 49); });
  return 0;
}
