// Fuzz target of the 1983 chart file reader and of lookups on whatever table it accepts.
#include <cstdint>
#include <string_view>

#include "core/common/runtime_failure.h"
#include "core/derivation/sbt1983.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  marlview::ChartData chart;
  try {
    marlview::SetChartData(chart, std::string_view(reinterpret_cast<const char*>(data), size));
    for (double r : {0.05, 0.1, 1.55, 3.0, 5.99, 9.0}) {
      for (double tip : {0.5, 12.0, 150.0, 2000.0}) marlview::LookupZone1983(chart, tip, r);
    }
  } catch (const marlview::RuntimeFailure&) {
  }
  return 0;
}
