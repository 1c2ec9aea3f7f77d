// A drawing target with its own logical coordinates: the window's picture, a printed page, an
// image or a PDF page. Every plot and report draws through it, once, for all of them.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "core/presentation/rgb_image.h"

namespace marlview {

struct Colour {
  uint8_t r = 0, g = 0, b = 0;
  friend bool operator==(const Colour&, const Colour&) = default;
};

inline constexpr Colour kBlack{0, 0, 0};
inline constexpr Colour kWhite{255, 255, 255};
inline constexpr Colour kRed{255, 0, 0};
inline constexpr Colour kBlue{0, 0, 255};

// A picture drawn on a surface: a file such as the company logo, read by the surface, or an image
// already in memory, such as a video frame.
struct Picture {
  std::string path;
  std::shared_ptr<const RgbImage> image = nullptr;
};

struct PictureSize {
  int width = 0;
  int height = 0;
};

class DrawingSurface {
 public:
  virtual ~DrawingSurface() = default;

  // The logical coordinates of the target's left, top, right and bottom edges.
  virtual void SetScale(double left, double top, double right, double bottom) = 0;
  virtual void Cls() = 0;
  virtual void Line(double x1, double y1, double x2, double y2, Colour colour) = 0;
  virtual void Box(double x1, double y1, double x2, double y2, Colour colour, bool filled) = 0;
  // Text at the current position, its top left corner there; the position then moves to the
  // start of the next line.
  virtual void Print(std::string_view text) = 0;
  virtual void SetCurrentXY(double x, double y) = 0;
  virtual double CurrentX() const = 0;
  virtual double CurrentY() const = 0;
  virtual double TextWidth(std::string_view text) = 0;
  virtual double TextHeight(std::string_view text) = 0;
  // "Arial", "courier new" and "MS Sans Serif" are the names the program uses.
  virtual void SetFont(std::string_view name, double size_points, bool bold, bool italic) = 0;
  virtual void SetDrawWidth(int pixels) = 0;
  virtual void PaintPicture(const Picture& picture, double x, double y, double width, double height) = 0;
  // The picture's own size in pixels, so it can be scaled keeping its proportions; 0 x 0 when it
  // cannot be read.
  virtual PictureSize SizeOfPicture(const Picture&) { return {}; }

  // Logical units a device pixel covers across; long series are drawn at this resolution on screen.
  virtual double PixelWidth() const = 0;
  virtual double PixelHeight() const = 0;
  // A printed page draws every point.
  virtual bool IsPrinter() const = 0;
};

}  // namespace marlview
