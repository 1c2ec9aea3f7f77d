// A table of declared bounds held column by column: a channel's readings lie together, in depth
// order, and a column takes memory only for the rows written to it. A sounding of 500 readings
// and 6 channels so costs what it holds, not what the bounds allow; every index is still checked
// against the bounds, and one past a bound is "Subscript out of range".
#pragma once

#include <algorithm>
#include <vector>

#include "core/common/runtime_failure.h"

namespace marlview {

template <typename T>
class ColumnTable {
 public:
  // Rows 0..max_row and columns 0..max_column, as the bounds are declared.
  ColumnTable(int max_row, int max_column) : rows_(max_row + 1), columns_(static_cast<size_t>(max_column) + 1) {}

  // A cell to write; its column grows to the row, the rows between reading 0.
  T& operator()(int row, int column) {
    Check(row, column);
    std::vector<T>& cells = columns_[static_cast<size_t>(column)];
    if (static_cast<size_t>(row) >= cells.size()) [[unlikely]] Grow(cells, row);
    return cells[static_cast<size_t>(row)];
  }
  // A cell never written reads as 0.
  T operator()(int row, int column) const {
    Check(row, column);
    const std::vector<T>& cells = columns_[static_cast<size_t>(column)];
    return static_cast<size_t>(row) < cells.size() ? cells[static_cast<size_t>(row)] : T{};
  }

  // Rows 0..last_row of a column, grown to last_row, for walking a channel in depth order.
  T* Column(int column, int last_row) {
    Check(last_row, column);
    std::vector<T>& cells = columns_[static_cast<size_t>(column)];
    if (static_cast<size_t>(last_row) >= cells.size()) Grow(cells, last_row);
    return cells.data();
  }
  // How many rows of a column hold memory; the rows past it read as 0.
  int RowsHeld(int column) const {
    Check(0, column);
    return static_cast<int>(columns_[static_cast<size_t>(column)].size());
  }

  int MaxRow() const { return rows_ - 1; }
  int MaxColumn() const { return static_cast<int>(columns_.size()) - 1; }

  // Zeroes the rows first..last of one column, as far as it holds them.
  void ClearColumnRows(int column, int first, int last) {
    Check(0, column);
    std::vector<T>& cells = columns_[static_cast<size_t>(column)];
    const int end = std::min(last + 1, static_cast<int>(cells.size()));
    if (first < end) std::fill(cells.begin() + first, cells.begin() + end, T{});
  }
  // Empties every column and gives its memory back; untouched columns cost nothing here.
  void Clear() {
    for (std::vector<T>& cells : columns_) {
      if (cells.capacity() != 0) std::vector<T>().swap(cells);
    }
  }
  // Makes columns first..last a copy of other's, row for row; the other columns stay as they are.
  void CopyColumnsFrom(const ColumnTable& other, int first_column, int last_column) {
    if (other.rows_ != rows_ || other.columns_.size() != columns_.size()) Fail(kErrSubscript);
    Check(0, first_column);
    Check(0, last_column);
    for (int c = first_column; c <= last_column; ++c) columns_[static_cast<size_t>(c)] = other.columns_[static_cast<size_t>(c)];
  }
  // The memory the table holds, in cells.
  size_t CellsHeld() const {
    size_t cells = 0;
    for (const std::vector<T>& column : columns_) cells += column.capacity();
    return cells;
  }

 private:
  void Check(int row, int column) const {
    if (row < 0 || row >= rows_ || column < 0 || static_cast<size_t>(column) >= columns_.size()) Fail(kErrSubscript);
  }
  // Out of the way of the reads and writes within a column, which are by far the most.
  [[gnu::noinline]] static void Grow(std::vector<T>& cells, int row) { cells.resize(static_cast<size_t>(row) + 1); }

  int rows_;
  std::vector<std::vector<T>> columns_;
};

}  // namespace marlview

namespace marlview {

// One value per reading, rows 0..max_row, holding memory only up to the last row written; a row
// never written reads as an empty value.
template <typename T>
class ReadingList {
 public:
  explicit ReadingList(int max_row) : rows_(max_row + 1) {}

  T& operator[](int row) {
    Check(row);
    if (static_cast<size_t>(row) >= cells_.size()) cells_.resize(static_cast<size_t>(row) + 1);
    return cells_[static_cast<size_t>(row)];
  }
  const T& operator[](int row) const {
    Check(row);
    static const T kEmpty{};
    return static_cast<size_t>(row) < cells_.size() ? cells_[static_cast<size_t>(row)] : kEmpty;
  }

  // Empties the list and gives its memory back.
  void Clear() { std::vector<T>().swap(cells_); }
  size_t CellsHeld() const { return cells_.capacity(); }

 private:
  void Check(int row) const {
    if (row < 0 || row >= rows_) Fail(kErrSubscript);
  }

  int rows_;
  std::vector<T> cells_;
};

}  // namespace marlview
