// The header block and the table that the sounding's list windows share.
#pragma once

#include <functional>
#include <string>
#include <vector>

class QPlainTextEdit;
class QTableWidget;
class QWidget;

namespace marlview {

// The read-only header block, lblHeader.
QPlainTextEdit* NewHeaderBox(QWidget* parent);
// The table of readings, grdData, read only and without row numbers.
QTableWidget* NewDataGrid(QWidget* parent);
void ShowHeaderBlock(QPlainTextEdit* box, const std::vector<std::string>& lines);

// Fills the grid: the headings, then per reading its depth and each column's cell, right aligned.
void FillDataGrid(QTableWidget* grid, const std::vector<std::string>& heading, const std::vector<int>& rows,
                  const std::function<std::string(int row)>& depth,
                  const std::function<std::string(int row, int column)>& cell, int column_pixels);

}  // namespace marlview
