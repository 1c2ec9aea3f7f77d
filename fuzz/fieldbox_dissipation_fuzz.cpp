// Fuzz target of the QRD FIELDBOX .DIS dissipation reader, with the plot of whatever it reads.
#include "dissipation_fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  marlview::fuzz::ReadAndPlot(marlview::kFieldboxDissipation, data, size);
  return 0;
}
