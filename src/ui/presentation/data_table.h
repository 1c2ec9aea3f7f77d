// The header block and the table that the sounding's list windows share.
#pragma once

#include <QTableView>
#include <functional>
#include <string>
#include <vector>

class QPlainTextEdit;
class QWidget;

namespace marlview {

class ReadingsModel;

// The read-only header block, lblHeader.
QPlainTextEdit* NewHeaderBox(QWidget* parent);
void ShowHeaderBlock(QPlainTextEdit* box, const std::vector<std::string>& lines);

// The table of readings, grdData, read only and without row numbers. A cell is formatted from the
// store only when the view shows it, so a list of 10000 readings opens as fast as one of ten.
class DataGrid : public QTableView {
 public:
  explicit DataGrid(QWidget* parent);

  // The headings, then per reading its depth and each column's cell, right aligned.
  void Fill(const std::vector<std::string>& heading, const std::vector<int>& rows,
            std::function<std::string(int row)> depth, std::function<std::string(int row, int column)> cell,
            int column_pixels);

  int RowCount() const;
  int ColumnCount() const;
  QString CellText(int row, int column) const;
  QString HeadingText(int column) const;

 private:
  ReadingsModel* model_;
};

}  // namespace marlview
