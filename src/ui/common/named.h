// Controls carry their given names as object names, so tests and scripts find them by name.
#pragma once

#include <QAction>
#include <QBoxLayout>
#include <QDialog>
#include <QMenu>
#include <QPushButton>
#include <QString>

namespace marlview {

template <typename Widget>
Widget* Named(Widget* widget, const char* name) {
  widget->setObjectName(name);
  return widget;
}

// A menu entry named as its control.
inline QAction* NamedAction(QMenu* menu, const char* name, const QString& caption) {
  return Named(menu->addAction(caption), name);
}

// A button of a row of buttons, named as its control.
inline QPushButton* NamedButton(QBoxLayout* row, QWidget* parent, const char* name, const QString& caption) {
  auto* button = Named(new QPushButton(caption, parent), name);
  row->addWidget(button);
  return button;
}

// The row of OK and CANCEL that ends a dialog: OK is the default button, CANCEL rejects the dialog.
inline QHBoxLayout* OkCancelRow(QDialog* dialog, QPushButton*& ok, QPushButton*& cancel) {
  auto* row = new QHBoxLayout;
  ok = NamedButton(row, dialog, "cmdOK", "OK");
  cancel = NamedButton(row, dialog, "cmdCancel", "CANCEL");
  ok->setDefault(true);
  QObject::connect(cancel, &QPushButton::clicked, dialog, &QDialog::reject);
  return row;
}

}  // namespace marlview
