// Controls carry their given names as object names, so tests and scripts find them by name.
#pragma once

namespace marlview {

template <typename Widget>
Widget* Named(Widget* widget, const char* name) {
  widget->setObjectName(name);
  return widget;
}

}  // namespace marlview
