// Windows bitmap files: the frames ffmpeg writes for a depth and the pictures saved from them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/presentation/rgb_image.h"

namespace marlview {

// The picture of an uncompressed 24- or 32-bit bitmap, stored bottom-up or top-down; nothing for
// any other layout or for bytes that end before the picture does.
std::optional<RgbImage> ReadBmp(std::string_view bytes);

// A 24-bit bottom-up bitmap of image, rows padded to four bytes.
std::string WriteBmp24(const RgbImage& image);

}  // namespace marlview
