// A table of fixed bounds, allocated once at full size with zeroed memory that costs nothing until
// touched; every index is checked, and an index past a bound is "Subscript out of range".
#pragma once

#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>

#include "core/common/runtime_failure.h"

namespace marlview {

template <typename T>
class FixedTable {
 public:
  // Rows 0..max_row and columns 0..max_column, as the bounds are declared.
  FixedTable(int max_row, int max_column)
      : rows_(max_row + 1),
        columns_(max_column + 1),
        cells_(static_cast<T*>(std::calloc(static_cast<size_t>(rows_) * columns_, sizeof(T)))) {
    if (!cells_) throw std::bad_alloc();
  }

  T& operator()(int row, int column) {
    Check(row, column);
    return cells_.get()[static_cast<size_t>(row) * columns_ + column];
  }
  T operator()(int row, int column) const {
    Check(row, column);
    return cells_.get()[static_cast<size_t>(row) * columns_ + column];
  }

  // The cells of one row, for work along a row; columns 0..MaxColumn().
  T* Row(int row) {
    Check(row, 0);
    return cells_.get() + static_cast<size_t>(row) * columns_;
  }

  int MaxRow() const { return rows_ - 1; }
  int MaxColumn() const { return columns_ - 1; }

  // Zeroes whole rows first..last; callers pass only rows that were in use.
  void ClearRows(int first, int last) {
    if (last < first) return;
    Check(first, 0);
    Check(last, 0);
    std::memset(cells_.get() + static_cast<size_t>(first) * columns_, 0,
                static_cast<size_t>(last - first + 1) * columns_ * sizeof(T));
  }

  void CopyRowsFrom(const FixedTable& other, int first, int last) {
    if (last < first) return;
    Check(first, 0);
    Check(last, 0);
    other.Check(last, columns_ - 1);
    std::memcpy(cells_.get() + static_cast<size_t>(first) * columns_,
                other.cells_.get() + static_cast<size_t>(first) * columns_,
                static_cast<size_t>(last - first + 1) * columns_ * sizeof(T));
  }

 private:
  struct Free {
    void operator()(T* cells) const { std::free(cells); }
  };

  void Check(int row, int column) const {
    if (row < 0 || row >= rows_ || column < 0 || column >= columns_) Fail(kErrSubscript);
  }

  int rows_;
  int columns_;
  std::unique_ptr<T, Free> cells_;
};

}  // namespace marlview
