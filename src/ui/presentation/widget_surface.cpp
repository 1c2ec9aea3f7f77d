// The widget surface.
#include "ui/presentation/widget_surface.h"

#include <QWidget>

namespace marlview {

internal::WidgetPainter::WidgetPainter(QWidget* widget) : painter(widget) {}

WidgetSurface::WidgetSurface(QWidget* widget)
    : internal::WidgetPainter(widget), QtPainterSurface(painter, widget->size(), false) {}

}  // namespace marlview
