// Free-format field input.
#include "core/common/input_fields.h"

#include <algorithm>

#include "core/common/number_read.h"
#include "core/common/runtime_failure.h"
#include "core/common/text_rules.h"

namespace marlview {
namespace {

bool IsLineEnd(char c) { return c == '\r' || c == '\n'; }
bool IsBlank(char c) { return c == ' ' || c == '\t'; }

}  // namespace

void InputFields::SkipBlanks() {
  while (at_ < bytes_.size() && IsBlank(bytes_[at_])) ++at_;
}

void InputFields::SkipBlanksAndLineEnds() {
  while (at_ < bytes_.size() && (IsBlank(bytes_[at_]) || IsLineEnd(bytes_[at_]))) ++at_;
}

void InputFields::ConsumeLineEnd() {
  if (at_ < bytes_.size() && bytes_[at_] == '\r') ++at_;
  if (at_ < bytes_.size() && bytes_[at_] == '\n') ++at_;
}

void InputFields::EndField() {
  SkipBlanks();
  if (at_ >= bytes_.size()) return;
  if (bytes_[at_] == ',') {
    ++at_;
  } else if (IsLineEnd(bytes_[at_])) {
    ConsumeLineEnd();
  }
}

bool InputFields::AtEnd() {
  SkipBlanksAndLineEnds();
  return at_ >= bytes_.size();
}

std::string InputFields::Text() {
  SkipBlanks();
  if (at_ >= bytes_.size()) Fail(kErrPastEndOfFile);
  std::string field;
  if (bytes_[at_] == '"') {
    const size_t close = bytes_.find('"', at_ + 1);
    const size_t end = close == std::string_view::npos ? bytes_.size() : close;
    field = std::string(bytes_.substr(at_ + 1, end - at_ - 1));
    at_ = std::min(bytes_.size(), end + 1);
  } else {
    const size_t start = at_;
    while (at_ < bytes_.size() && bytes_[at_] != ',' && !IsLineEnd(bytes_[at_])) ++at_;
    field = std::string(TrimRightBlanks(bytes_.substr(start, at_ - start)));
  }
  EndField();
  return field;
}

double InputFields::Number() {
  SkipBlanksAndLineEnds();
  if (at_ >= bytes_.size()) Fail(kErrPastEndOfFile);
  const size_t start = at_;
  while (at_ < bytes_.size() && bytes_[at_] != ',' && !IsBlank(bytes_[at_]) && !IsLineEnd(bytes_[at_])) ++at_;
  const std::string_view token = bytes_.substr(start, at_ - start);
  EndField();
  return token.empty() ? 0 : StrictNumber(token);
}

void InputFields::SkipLine() {
  if (at_ >= bytes_.size()) Fail(kErrPastEndOfFile);
  while (at_ < bytes_.size() && !IsLineEnd(bytes_[at_])) ++at_;
  ConsumeLineEnd();
}

}  // namespace marlview
