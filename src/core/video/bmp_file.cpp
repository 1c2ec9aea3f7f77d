// Windows bitmap files: reading the frames ffmpeg writes, writing the pictures the user saves.
#include "core/video/bmp_file.h"

#include <cstdint>
#include <cstdlib>

namespace marlview {
namespace {

// A frame larger than this is no cone camera's; it is refused before any memory is taken.
constexpr int64_t kMaxSide = 16384;

uint32_t Le32(std::string_view b, size_t at) {
  return static_cast<uint32_t>(static_cast<uint8_t>(b[at])) | static_cast<uint32_t>(static_cast<uint8_t>(b[at + 1])) << 8 |
         static_cast<uint32_t>(static_cast<uint8_t>(b[at + 2])) << 16 |
         static_cast<uint32_t>(static_cast<uint8_t>(b[at + 3])) << 24;
}

uint16_t Le16(std::string_view b, size_t at) {
  return static_cast<uint16_t>(static_cast<uint8_t>(b[at]) | static_cast<uint8_t>(b[at + 1]) << 8);
}

void PutLe32(std::string& out, uint32_t v) {
  for (int k = 0; k < 4; ++k) out.push_back(static_cast<char>((v >> (8 * k)) & 0xff));
}

void PutLe16(std::string& out, uint16_t v) {
  out.push_back(static_cast<char>(v & 0xff));
  out.push_back(static_cast<char>(v >> 8));
}

}  // namespace

// "BM", file size, two reserved words, the offset of the pixels; then a header of 40 bytes or
// more: its size, width, height (negative for top-down rows), planes, bits per pixel, compression.
std::optional<RgbImage> ReadBmp(std::string_view bytes) {
  if (bytes.size() < 54 || bytes[0] != 'B' || bytes[1] != 'M') return std::nullopt;
  const uint32_t offset = Le32(bytes, 10);
  const uint32_t header_size = Le32(bytes, 14);
  if (header_size < 40) return std::nullopt;
  const int64_t width = static_cast<int32_t>(Le32(bytes, 18));
  const int64_t raw_height = static_cast<int32_t>(Le32(bytes, 22));
  const uint16_t bits = Le16(bytes, 28);
  const uint32_t compression = Le32(bytes, 30);
  // 0 plain rows; 3 bit fields, which ffmpeg uses for 32-bit rows in the usual blue-green-red order.
  if ((bits != 24 && bits != 32) || !(compression == 0 || (compression == 3 && bits == 32))) return std::nullopt;
  const int64_t height = std::llabs(raw_height);
  if (width <= 0 || height <= 0 || width > kMaxSide || height > kMaxSide) return std::nullopt;
  const int64_t stride = (width * bits + 31) / 32 * 4;
  if (offset > bytes.size() || static_cast<int64_t>(bytes.size() - offset) < stride * height) return std::nullopt;

  RgbImage image;
  image.width = static_cast<int>(width);
  image.height = static_cast<int>(height);
  image.rgb.resize(static_cast<size_t>(3 * width * height));
  const size_t step = bits / 8;
  for (int64_t y = 0; y < height; ++y) {
    const int64_t source_row = raw_height > 0 ? height - 1 - y : y;
    const char* row = bytes.data() + offset + source_row * stride;
    uint8_t* out = image.Pixel(0, static_cast<int>(y));
    for (int64_t x = 0; x < width; ++x, row += step, out += 3) {
      out[0] = static_cast<uint8_t>(row[2]);
      out[1] = static_cast<uint8_t>(row[1]);
      out[2] = static_cast<uint8_t>(row[0]);
    }
  }
  return image;
}

std::string WriteBmp24(const RgbImage& image) {
  const uint32_t width = static_cast<uint32_t>(image.width > 0 ? image.width : 0);
  const uint32_t height = static_cast<uint32_t>(image.height > 0 ? image.height : 0);
  const uint32_t stride = (width * 24 + 31) / 32 * 4;
  const uint32_t pixels = stride * height;
  std::string out;
  out.reserve(54 + pixels);
  out += "BM";
  PutLe32(out, 54 + pixels);
  PutLe32(out, 0);
  PutLe32(out, 54);
  PutLe32(out, 40);
  PutLe32(out, width);
  PutLe32(out, height);
  PutLe16(out, 1);
  PutLe16(out, 24);
  PutLe32(out, 0);
  PutLe32(out, pixels);
  // 96 dots per inch, as pictures saved on the field laptops carry.
  PutLe32(out, 3780);
  PutLe32(out, 3780);
  PutLe32(out, 0);
  PutLe32(out, 0);
  for (uint32_t y = height; y-- > 0;) {
    const uint8_t* in = image.Pixel(0, static_cast<int>(y));
    for (uint32_t x = 0; x < width; ++x, in += 3) {
      out.push_back(static_cast<char>(in[2]));
      out.push_back(static_cast<char>(in[1]));
      out.push_back(static_cast<char>(in[0]));
    }
    out.append(stride - 3 * width, '\0');
  }
  return out;
}

}  // namespace marlview
