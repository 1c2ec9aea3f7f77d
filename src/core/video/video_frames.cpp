// The frame of a depth.
#include "core/video/video_frames.h"

#include <algorithm>
#include <cmath>

#include "core/common/number_format.h"
#include "core/common/number_read.h"

namespace marlview {

CropRectangle SetOutputImageSize(int cropping) {
  CropRectangle r;
  r.CropLeft = static_cast<int>(std::round(cropping * kFrameWidth / 200.0));
  r.CropWidthRest = kFrameWidth - 1 - r.CropLeft;
  r.width = std::max(0, kFrameWidth - 2 * r.CropLeft);
  r.CropTop = static_cast<int>(std::round(cropping * kFrameHeight / 200.0));
  r.CropHeightRest = kFrameHeight - r.CropTop;
  r.height = std::max(0, kFrameHeight - 2 * r.CropTop);
  return r;
}

RgbImage CopyImage(const RgbImage& frame, const CropRectangle& crop, int cropping) {
  const int left = cropping > 0 ? crop.CropLeft : 0;
  const int top = cropping > 0 ? crop.CropTop : 0;
  RgbImage out;
  out.width = cropping > 0 ? crop.width : kFrameWidth;
  out.height = cropping > 0 ? crop.height : kFrameHeight;
  out.rgb.assign(static_cast<size_t>(3) * out.width * out.height, 0);
  for (int y = 0; y < out.height; ++y) {
    // Line y of the stretched field is line 2 * (y / 2) of the frame.
    const int source_y = (top + y) / 2 * 2;
    if (source_y >= frame.height) continue;
    for (int x = 0; x < out.width; ++x) {
      const int source_x = left + x;
      if (source_x >= frame.width) break;
      const uint8_t* in = frame.Pixel(source_x, source_y);
      std::copy(in, in + 3, out.Pixel(x, y));
    }
  }
  return out;
}

std::string SeekText(float row_time) { return FormatNumber(row_time / 2, "####0.0"); }

int DurationFromProbe(std::string_view answer) {
  const size_t equals = answer.find('=');
  if (equals == std::string_view::npos || equals + 2 > answer.size()) return 0;
  const std::string_view value = answer.substr(equals + 2);
  const double seconds = LenientNumber(value.substr(0, value.find('"')));
  if (!(std::fabs(seconds) < 2e9)) return 0;
  return static_cast<int>(std::round(seconds));
}

std::vector<std::string> DurationArguments(const std::string& video_path) {
  return {"-v", "quiet", "-print_format", "flat", "-show_entries", "format=duration", "-i", video_path};
}

std::vector<std::string> FrameArguments(const std::string& seek, const std::string& video_path,
                                        const std::string& frame_path) {
  return {"-ss", seek, "-i", video_path, "-y", "-t", "1", "-s", "720x480", "-f", "image2", frame_path};
}

}  // namespace marlview
