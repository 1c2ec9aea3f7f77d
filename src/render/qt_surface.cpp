// Drawing, text and pictures through a QPainter in the surface's logical coordinates.
#include "render/qt_surface.h"

#include <QFontMetricsF>
#include <QImage>
#include <QImageReader>
#include <QPaintDevice>
#include <QPainter>
#include <QPen>
#include <QRectF>
#include <algorithm>
#include <cmath>

#include "core/common/text_rules.h"

namespace marlview {
namespace {

QString ToQString(std::string_view text) { return QString::fromStdString(ToUtf8(text)); }

QColor ToQColor(Colour colour) { return QColor(colour.r, colour.g, colour.b); }

}  // namespace

QString LinuxFontFamily(std::string_view name) {
  const QString family = ToQString(name).trimmed();
  const QString lower = family.toLower();
  if (lower == "arial" || lower == "ms sans serif") return "Liberation Sans";
  if (lower == "courier new") return "Liberation Mono";
  return family;
}

QtPainterSurface::QtPainterSurface(QPainter& painter, QSize device_size, bool printer)
    : painter_(painter), size_(std::max(device_size.width(), 1), std::max(device_size.height(), 1)),
      printer_(printer) {
  if (painter_.isActive()) painter_.setRenderHints(QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
  SetFont("MS Sans Serif", 8, false, false);
}

QPointF QtPainterSurface::ToDevice(double x, double y) const {
  return {(x - left_) / (right_ - left_) * size_.width(), (y - top_) / (bottom_ - top_) * size_.height()};
}

void QtPainterSurface::SetScale(double left, double top, double right, double bottom) {
  left_ = left, top_ = top, right_ = right, bottom_ = bottom;
  Home();
}

void QtPainterSurface::Cls() {
  painter_.fillRect(QRect(QPoint(0, 0), size_), Qt::white);
  Home();
}

void QtPainterSurface::Line(double x1, double y1, double x2, double y2, Colour colour) {
  painter_.setPen(QPen(ToQColor(colour), draw_width_, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter_.drawLine(ToDevice(x1, y1), ToDevice(x2, y2));
}

void QtPainterSurface::Box(double x1, double y1, double x2, double y2, Colour colour, bool filled) {
  const QRectF rect = QRectF(ToDevice(x1, y1), ToDevice(x2, y2)).normalized();
  if (filled) {
    painter_.fillRect(rect, ToQColor(colour));
    return;
  }
  painter_.setPen(QPen(ToQColor(colour), draw_width_, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
  painter_.setBrush(Qt::NoBrush);
  painter_.drawRect(rect);
}

void QtPainterSurface::Print(std::string_view text) {
  // QPainter places text on its baseline; the surface's position is the text's top.
  const QPointF top_left = ToDevice(x_, y_);
  painter_.setFont(font_);
  painter_.setPen(Qt::black);
  painter_.drawText(QPointF(top_left.x(), top_left.y() + QFontMetricsF(font_, painter_.device()).ascent()),
                    ToQString(text));
  x_ = left_;
  y_ += TextHeight(text);
}

double QtPainterSurface::TextWidth(std::string_view text) {
  const double pixels = QFontMetricsF(font_, painter_.device()).horizontalAdvance(ToQString(text));
  return pixels * (right_ - left_) / size_.width();
}

double QtPainterSurface::TextHeight(std::string_view) {
  return QFontMetricsF(font_, painter_.device()).height() * (bottom_ - top_) / size_.height();
}

void QtPainterSurface::SetFont(std::string_view name, double size_points, bool bold, bool italic) {
  // Points through the device's own resolution, so a label is as tall on paper as on screen.
  const QPaintDevice* device = painter_.device();
  const int dpi = device != nullptr ? device->logicalDpiY() : 96;
  font_ = QFont(LinuxFontFamily(name));
  font_.setPixelSize(std::max(1, static_cast<int>(std::lround(size_points * dpi / 72))));
  font_.setBold(bold);
  font_.setItalic(italic);
}

void QtPainterSurface::PaintPicture(const Picture& picture, double x, double y, double width, double height) {
  QImage image;
  if (picture.image != nullptr && !picture.image->Empty()) {
    const RgbImage& pixels = *picture.image;
    image = QImage(pixels.rgb.data(), pixels.width, pixels.height, 3 * pixels.width, QImage::Format_RGB888);
  } else {
    image = QImage(ToQString(picture.path));
  }
  if (image.isNull()) return;
  painter_.drawImage(QRectF(ToDevice(x, y), ToDevice(x + width, y + height)).normalized(), image);
}

PictureSize QtPainterSurface::SizeOfPicture(const Picture& picture) {
  const QSize size = QImageReader(ToQString(picture.path)).size();
  if (!size.isValid()) return {};
  return {size.width(), size.height()};
}

}  // namespace marlview
