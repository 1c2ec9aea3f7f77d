// Line-by-line reading of a file held in memory.
#include "core/common/line_cursor.h"

#include "core/common/runtime_failure.h"
#include "core/common/text_rules.h"

namespace marlview {

LineCursor::LineCursor(std::string_view bytes) : lines_(SplitLines(bytes)) {}

std::string_view LineCursor::Next() {
  if (AtEnd()) Fail(kErrPastEndOfFile);
  return lines_[next_++];
}

bool LineCursor::OnlyBlankLinesLeft() const {
  for (size_t i = next_; i < lines_.size(); ++i) {
    if (!TrimBlanks(lines_[i]).empty()) return false;
  }
  return true;
}

void LineCursor::Skip(int count) {
  for (int i = 0; i < count; ++i) Next();
}

}  // namespace marlview
