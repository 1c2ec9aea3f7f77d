// The in-memory image surface.
#include "render/image_surface.h"

#include "core/common/text_rules.h"

namespace marlview {

internal::ImageCanvas::ImageCanvas(int width, int height) : image(width, height, QImage::Format_RGB32) {
  image.fill(Qt::white);
  painter.begin(&image);
}

ImageSurface::ImageSurface(int width, int height)
    : internal::ImageCanvas(width, height), QtPainterSurface(painter, image.size(), false) {}

bool ImageSurface::Save(const std::string& path) const {
  return image.save(QString::fromStdString(ToUtf8(path)), "PNG");
}

}  // namespace marlview
