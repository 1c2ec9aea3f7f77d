// A drawing surface on a window's widget, for use inside its paintEvent.
#pragma once

#include <QPainter>

#include "render/qt_surface.h"

class QWidget;

namespace marlview {

namespace internal {
// Holds the painter so that it is active before the surface that draws through it.
struct WidgetPainter {
  explicit WidgetPainter(QWidget* widget);
  QPainter painter;
};
}  // namespace internal

// Lives for one paintEvent: WidgetSurface surface(this); DrawSomething(surface);
class WidgetSurface : private internal::WidgetPainter, public QtPainterSurface {
 public:
  explicit WidgetSurface(QWidget* widget);
};

}  // namespace marlview
