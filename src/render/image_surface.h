// A drawing surface on an image in memory, saved as PNG; plots exported as pictures draw here.
#pragma once

#include <QImage>
#include <QPainter>
#include <string>

#include "render/qt_surface.h"

namespace marlview {

namespace internal {
// Holds the image and its painter so that they exist before the surface that draws through them.
struct ImageCanvas {
  ImageCanvas(int width, int height);
  QImage image;
  QPainter painter;
};
}  // namespace internal

class ImageSurface : private internal::ImageCanvas, public QtPainterSurface {
 public:
  // A white image of width x height pixels.
  ImageSurface(int width, int height);

  const QImage& Image() const { return image; }
  // False when the file could not be written.
  bool Save(const std::string& path) const;
};

}  // namespace marlview
