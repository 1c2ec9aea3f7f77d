// The drawing surface over a QPainter: the one implementation behind the window, image, PDF and printer.
#pragma once

#include <QFont>
#include <QPointF>
#include <QSize>
#include <QString>

#include "core/presentation/drawing_surface.h"

class QPainter;

namespace marlview {

// The family installed on Linux for a font name the program asks for ("Arial", "courier new", ...).
QString LinuxFontFamily(std::string_view name);

class QtPainterSurface : public DrawingSurface {
 public:
  // painter draws on a device of device_size pixels; it must outlive the surface, and be active
  // whenever the surface draws or measures.
  QtPainterSurface(QPainter& painter, QSize device_size, bool printer);

  void SetScale(double left, double top, double right, double bottom) override;
  void Cls() override;
  void Line(double x1, double y1, double x2, double y2, Colour colour) override;
  void Box(double x1, double y1, double x2, double y2, Colour colour, bool filled) override;
  void Print(std::string_view text) override;
  void SetCurrentXY(double x, double y) override { x_ = x, y_ = y; }
  double CurrentX() const override { return x_; }
  double CurrentY() const override { return y_; }
  double TextWidth(std::string_view text) override;
  double TextHeight(std::string_view text) override;
  void SetFont(std::string_view name, double size_points, bool bold, bool italic) override;
  void SetDrawWidth(int pixels) override { draw_width_ = pixels < 1 ? 1 : pixels; }
  void PaintPicture(const Picture& picture, double x, double y, double width, double height) override;
  PictureSize SizeOfPicture(const Picture& picture) override;
  double PixelWidth() const override { return (right_ - left_) / size_.width(); }
  double PixelHeight() const override { return (bottom_ - top_) / size_.height(); }
  bool IsPrinter() const override { return printer_; }

  // Back to the top left corner, as on a fresh page; the scale and font stay.
  void Home() { x_ = left_, y_ = top_; }

 private:
  QPointF ToDevice(double x, double y) const;

  QPainter& painter_;
  QSize size_;
  bool printer_;
  double left_ = 0, top_ = 0, right_ = 1, bottom_ = 1;
  double x_ = 0, y_ = 0;
  int draw_width_ = 1;
  QFont font_;
};

}  // namespace marlview
