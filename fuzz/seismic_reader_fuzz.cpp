// Fuzz target of the seismic readers: any bytes either read, are refused, or end in the run-time
// failure; nothing else may happen. SEISMIC_FAMILY picks the reader at build time.
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/common/runtime_failure.h"
#include "core/common/user_prompts.h"
#include "core/seismic/seismic_readers.h"
#include "core/session/seismic_store.h"

#include "fuzz_support.h"

namespace {

marlview::SeismicStore& Store() {
  static auto* store = new marlview::SeismicStore();
  return *store;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  // A copy of exactly the input's length, so a read past its end is caught.
  const std::string copy(reinterpret_cast<const char*>(data), size);
  [[maybe_unused]] const std::string_view bytes(copy);
  marlview::SeismicStore& store = Store();
  try {
#if SEISMIC_FAMILY == 0
    marlview::ReadSmcFile(bytes, "FUZZ.SMC", "FUZZ.SMC", store);
#elif SEISMIC_FAMILY == 1
    marlview::ReadSeiFile(bytes, "FUZZ.SEI", "FUZZ.SEI", store);
#elif SEISMIC_FAMILY == 4
    marlview::ReadSlgFile(bytes, "FUZZ.SLG", "FUZZ.SLG", store);
#else
    // A series: the input holds its files one after another, parted by NUL bytes.
    std::vector<marlview::FldacqFile> files;
    size_t begin = 0;
    while (begin <= copy.size() && files.size() < 200) {
      const size_t end = copy.find('\0', begin);
      const size_t stop = end == std::string::npos ? copy.size() : end;
      files.push_back({"FUZZ" + std::to_string(files.size()), copy.substr(begin, stop - begin)});
      if (end == std::string::npos) break;
      begin = end + 1;
    }
    marlview::fuzz::FuzzPrompts prompts;
    marlview::ReadFldacqFiles(files, "FUZZ000", 3.28084f, store, prompts);
#endif
  } catch (const marlview::RuntimeFailure&) {
  }
  return 0;
}
