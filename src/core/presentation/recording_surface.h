// A drawing surface that keeps every call, so tests assert lines, boxes and texts in logical
// coordinates, and a measure of text that needs no fonts.
#pragma once

#include <string>
#include <vector>

#include "core/presentation/drawing_surface.h"

namespace marlview {

struct RecordedCall {
  enum Kind { kLine, kBox, kText, kPicture, kCls };
  Kind kind;
  double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
  Colour colour;
  bool filled = false;
  std::string text;
};

class RecordingSurface : public DrawingSurface {
 public:
  // A target of width x height device pixels.
  RecordingSurface(int width_pixels = 1600, int height_pixels = 1200, bool printer = false)
      : width_(width_pixels), height_(height_pixels), printer_(printer) {}

  void SetScale(double left, double top, double right, double bottom) override;
  void Cls() override;
  void Line(double x1, double y1, double x2, double y2, Colour colour) override;
  void Box(double x1, double y1, double x2, double y2, Colour colour, bool filled) override;
  void Print(std::string_view text) override;
  void SetCurrentXY(double x, double y) override { x_ = x, y_ = y; }
  double CurrentX() const override { return x_; }
  double CurrentY() const override { return y_; }
  // Each character is 1 % of the target's width and a line 2 % of its height, whatever the font.
  double TextWidth(std::string_view text) override;
  double TextHeight(std::string_view text) override;
  void SetFont(std::string_view, double, bool, bool) override {}
  void SetDrawWidth(int) override {}
  void PaintPicture(const Picture& picture, double x, double y, double width, double height) override;
  // Every picture has the size given, whatever its file holds.
  PictureSize SizeOfPicture(const Picture&) override { return picture_size_; }
  void SetPictureSize(PictureSize size) { picture_size_ = size; }
  double PixelWidth() const override { return (right_ - left_) / width_; }
  double PixelHeight() const override { return (bottom_ - top_) / height_; }
  bool IsPrinter() const override { return printer_; }

  const std::vector<RecordedCall>& Calls() const { return calls_; }
  std::vector<RecordedCall> Lines() const { return Of(RecordedCall::kLine); }
  std::vector<RecordedCall> Texts() const { return Of(RecordedCall::kText); }
  std::vector<RecordedCall> Pictures() const { return Of(RecordedCall::kPicture); }
  // Whether a text containing part was printed.
  bool HasText(std::string_view part) const;

 private:
  std::vector<RecordedCall> Of(RecordedCall::Kind kind) const;

  int width_, height_;
  bool printer_;
  double left_ = 0, top_ = 0, right_ = 1, bottom_ = 1;
  double x_ = 0, y_ = 0;
  std::vector<RecordedCall> calls_;
  PictureSize picture_size_{400, 200};
};

}  // namespace marlview
