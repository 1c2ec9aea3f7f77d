// The shared header block and table of the list windows.
#include "ui/presentation/data_table.h"

#include <QHeaderView>
#include <QPlainTextEdit>
#include <QStringList>
#include <QTableWidget>

#include "ui/common/named.h"
#include "ui/common/qt_prompts.h"

namespace marlview {

QPlainTextEdit* NewHeaderBox(QWidget* parent) {
  auto* box = Named(new QPlainTextEdit(parent), "lblHeader");
  box->setReadOnly(true);
  box->setLineWrapMode(QPlainTextEdit::NoWrap);
  box->setMaximumHeight(180);
  return box;
}

QTableWidget* NewDataGrid(QWidget* parent) {
  auto* grid = Named(new QTableWidget(parent), "grdData");
  grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
  grid->verticalHeader()->hide();
  return grid;
}

void ShowHeaderBlock(QPlainTextEdit* box, const std::vector<std::string>& lines) {
  QStringList text;
  for (const std::string& line : lines) text << ToQString(line);
  box->setPlainText(text.join('\n'));
}

void FillDataGrid(QTableWidget* grid, const std::vector<std::string>& heading, const std::vector<int>& rows,
                  const std::function<std::string(int row)>& depth,
                  const std::function<std::string(int row, int column)>& cell, int column_pixels) {
  grid->setUpdatesEnabled(false);
  grid->clear();
  grid->setColumnCount(static_cast<int>(heading.size()));
  grid->setRowCount(static_cast<int>(rows.size()));
  QStringList labels;
  for (const std::string& text : heading) labels << ToQString(text);
  grid->setHorizontalHeaderLabels(labels);
  for (int i = 0; i < static_cast<int>(rows.size()); ++i) {
    const int r = rows[static_cast<size_t>(i)];
    grid->setItem(i, 0, new QTableWidgetItem(ToQString(depth(r))));
    for (int column = 1; column < grid->columnCount(); ++column) {
      auto* item = new QTableWidgetItem(ToQString(cell(r, column - 1)));
      item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
      grid->setItem(i, column, item);
    }
  }
  for (int column = 0; column < grid->columnCount(); ++column) grid->setColumnWidth(column, column_pixels);
  grid->setUpdatesEnabled(true);
}

}  // namespace marlview
