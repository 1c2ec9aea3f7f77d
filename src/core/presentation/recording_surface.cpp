// The recording surface.
#include "core/presentation/recording_surface.h"

namespace marlview {

void RecordingSurface::SetScale(double left, double top, double right, double bottom) {
  left_ = left, top_ = top, right_ = right, bottom_ = bottom;
  x_ = left, y_ = top;
}

void RecordingSurface::Cls() {
  calls_.clear();
  calls_.push_back({RecordedCall::kCls, 0, 0, 0, 0, kBlack, false, {}});
  x_ = left_, y_ = top_;
}

void RecordingSurface::Line(double x1, double y1, double x2, double y2, Colour colour) {
  calls_.push_back({RecordedCall::kLine, x1, y1, x2, y2, colour, false, {}});
}

void RecordingSurface::Box(double x1, double y1, double x2, double y2, Colour colour, bool filled) {
  calls_.push_back({RecordedCall::kBox, x1, y1, x2, y2, colour, filled, {}});
}

void RecordingSurface::Print(std::string_view text) {
  calls_.push_back({RecordedCall::kText, x_, y_, x_ + TextWidth(text), y_ + TextHeight(text), kBlack, false,
                    std::string(text)});
  x_ = left_;
  y_ += TextHeight(text);
}

double RecordingSurface::TextWidth(std::string_view text) {
  return static_cast<double>(text.size()) * (right_ - left_) / 100;
}

double RecordingSurface::TextHeight(std::string_view) { return (bottom_ - top_) / 50; }

void RecordingSurface::PaintPicture(const Picture& picture, double x, double y, double width, double height) {
  calls_.push_back({RecordedCall::kPicture, x, y, x + width, y + height, kBlack, false, picture.path});
}

bool RecordingSurface::HasText(std::string_view part) const {
  for (const auto& call : calls_) {
    if (call.kind == RecordedCall::kText && call.text.find(part) != std::string::npos) return true;
  }
  return false;
}

std::vector<RecordedCall> RecordingSurface::Of(RecordedCall::Kind kind) const {
  std::vector<RecordedCall> of;
  for (const auto& call : calls_) {
    if (call.kind == kind) of.push_back(call);
  }
  return of;
}

}  // namespace marlview
