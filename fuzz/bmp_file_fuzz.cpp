// Fuzz target of the bitmap reader that takes back ffmpeg's frames; a picture it reads writes and
// reads back the same.
#include <cstdint>
#include <string_view>

#include "core/video/bmp_file.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const auto image = marlview::ReadBmp(std::string_view(reinterpret_cast<const char*>(data), size));
  if (!image) return 0;
  if (image->rgb.size() != static_cast<size_t>(3) * image->width * image->height) __builtin_trap();
  const auto back = marlview::ReadBmp(marlview::WriteBmp24(*image));
  if (!back || back->rgb != image->rgb) __builtin_trap();
  return 0;
}
