// Fuzz target of the settings files read at start: each reader takes the same bytes.
#include <cstdint>
#include <string_view>

#include "core/common/runtime_failure.h"
#include "core/model/catalogue.h"
#include "core/model/unit_tables.h"
#include "core/session/session.h"
#include "core/settings/report_settings.h"
#include "core/settings/settings_files.h"
#include "core/settings/templates.h"

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
  Try([&] { marlview::ReadSoundingTemplate(bytes); });
  for (int kind = 0; kind < marlview::kReportKinds; ++kind) {
    Try([&] {
      const auto k = static_cast<marlview::ReportKind>(kind);
      // Whatever a file holds, what is read writes back and reads again the same.
      const auto settings = marlview::ReadReportSettings(bytes, marlview::ReportFamily::kPxDas, k);
      const std::string written = marlview::WriteReportSettings(settings, k);
      if (marlview::WriteReportSettings(marlview::ReadReportSettings(written, marlview::ReportFamily::kPxDas, k), k) !=
          written) {
        __builtin_trap();
      }
    });
  }
  return 0;
}
