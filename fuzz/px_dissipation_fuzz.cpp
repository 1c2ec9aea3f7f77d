// Fuzz target of the PX DAS .DIS dissipation reader, with the plot of whatever it reads.
#include "dissipation_fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  marlview::fuzz::ReadAndPlot(marlview::kPxDasDissipation, data, size);
  return 0;
}
