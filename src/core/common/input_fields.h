// Fields of a free-format text file, read as the field systems' "Input #" reads them: a text
// field ends at a comma or the line end and may be quoted; a number also ends at a blank.
#pragma once

#include <string>
#include <string_view>

namespace marlview {

class InputFields {
 public:
  explicit InputFields(std::string_view bytes) : bytes_(bytes) {}

  // True when only blanks and line ends are left.
  bool AtEnd();
  // Fails with "Input past end of file" after the last field.
  std::string Text();
  // An empty field reads as 0; anything but a number fails with "Type mismatch".
  double Number();
  // The rest of the current line, as a "Line Input" takes it.
  void SkipLine();

 private:
  void SkipBlanks();
  void SkipBlanksAndLineEnds();
  void ConsumeLineEnd();
  // After a field: blanks, then one comma or one line end.
  void EndField();

  std::string_view bytes_;
  size_t at_ = 0;
};

}  // namespace marlview
