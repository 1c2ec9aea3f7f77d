// Reads a text file's bytes line by line; reading past the last line is a run-time failure.
#pragma once

#include <string_view>
#include <vector>

namespace marlview {

class LineCursor {
 public:
  explicit LineCursor(std::string_view bytes);

  bool AtEnd() const { return next_ >= lines_.size(); }
  // True when the lines left, if any, hold nothing but blanks.
  bool OnlyBlankLinesLeft() const;
  // The next line without its end; fails with "Input past end of file" after the last line.
  std::string_view Next();
  void Skip(int count);
  // 1-based number of the line Next() returned last.
  size_t LineNumber() const { return next_; }

 private:
  std::vector<std::string_view> lines_;
  size_t next_ = 0;
};

}  // namespace marlview
