// The frame of a depth: ffmpeg's and ffprobe's command lines, the seek position of a row, the
// crop rectangle and the output picture made from a frame.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/presentation/rgb_image.h"

namespace marlview {

inline constexpr int kFrameWidth = 720;
inline constexpr int kFrameHeight = 480;

// The rectangle of the output picture within a frame, in pixels.
struct CropRectangle {
  int CropLeft = 0;
  int CropWidthRest = kFrameWidth - 1;
  int CropTop = 0;
  int CropHeightRest = kFrameHeight;
  int width = kFrameWidth;
  int height = kFrameHeight;
};

// cropping percent of the frame cut in all, half on each side.
CropRectangle SetOutputImageSize(int cropping);

// The output picture of a frame: every second line taken twice (one field of the interlaced frame,
// stretched back to full height), then the crop rectangle when cropping is on. Pixels the frame
// does not have are black.
RgbImage CopyImage(const RgbImage& frame, const CropRectangle& crop, int cropping);

// Seconds into the video for a row's clock time: the field system's clock runs at twice the
// video's seconds. "####0.0".
std::string SeekText(float row_time);

// ffprobe's flat answer, format.duration="12.600000", as whole seconds rounded half away from zero;
// 0 when there is no number.
int DurationFromProbe(std::string_view answer);

std::vector<std::string> DurationArguments(const std::string& video_path);
// One second of frames from the seek position, scaled to 720 x 480, into one bitmap file; ffmpeg
// keeps the first frame in it.
std::vector<std::string> FrameArguments(const std::string& seek, const std::string& video_path,
                                        const std::string& frame_path);

}  // namespace marlview
