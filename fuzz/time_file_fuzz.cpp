// Fuzz target of the optic cone's time file reader.
#include <cstdint>
#include <string_view>

#include "core/common/runtime_failure.h"
#include "core/video/time_file.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  try {
    const marlview::TimeFileRows rows = marlview::ReadTimeFile(std::string_view(reinterpret_cast<const char*>(data), size));
    if (rows.Count() > marlview::kMaxVideoRows) __builtin_trap();
  } catch (const marlview::RuntimeFailure&) {
  }
  return 0;
}
