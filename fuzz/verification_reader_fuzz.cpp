// Fuzz target of the verification file reader, and of the table and graph scales of what it reads.
#include <cstdint>
#include <string_view>

#include "core/common/runtime_failure.h"
#include "core/verification/verification.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  try {
    const marlview::VerificationRecord record =
        marlview::ReadVerificationFile(std::string_view(reinterpret_cast<const char*>(data), size), "FUZZ.vrf");
    for (const marlview::VerificationChannel& channel : record.Channel) {
      marlview::VerificationTable(channel);
      marlview::VerificationChartAxes(channel);
    }
  } catch (const marlview::RuntimeFailure&) {
  }
  return 0;
}
