// Replays saved fuzz inputs through a fuzz target in an ordinary build, so an input that once
// failed is run again by every test run.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

namespace {

int Replay(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  const std::vector<char> bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  // A copy of exactly the input's size, so a read past its end is caught by the sanitizers.
  std::vector<uint8_t> copy(bytes.begin(), bytes.end());
  LLVMFuzzerTestOneInput(copy.data(), copy.size());
  return 1;
}

}  // namespace

int main(int argc, char** argv) {
  int count = 0;
  for (int i = 1; i < argc; ++i) {
    const std::filesystem::path path(argv[i]);
    if (std::filesystem::is_directory(path)) {
      for (const auto& entry : std::filesystem::directory_iterator(path)) {
        if (entry.is_regular_file() && entry.path().filename() != ".keep") count += Replay(entry.path());
      }
    } else if (std::filesystem::is_regular_file(path)) {
      count += Replay(path);
    }
  }
  std::printf("replayed %d inputs\n", count);
  return 0;
}
