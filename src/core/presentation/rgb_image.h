// A picture held in memory as 8-bit red, green and blue samples, row by row from the top.
#pragma once

#include <cstdint>
#include <vector>

namespace marlview {

struct RgbImage {
  int width = 0;
  int height = 0;
  // 3 * width * height bytes: r, g, b of each pixel, rows from the top.
  std::vector<uint8_t> rgb;

  bool Empty() const { return width <= 0 || height <= 0; }
  const uint8_t* Pixel(int x, int y) const { return rgb.data() + 3 * (static_cast<size_t>(y) * width + x); }
  uint8_t* Pixel(int x, int y) { return rgb.data() + 3 * (static_cast<size_t>(y) * width + x); }
};

}  // namespace marlview
