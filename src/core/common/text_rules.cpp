// Text rules of the field files.
#include "core/common/text_rules.h"

#include <algorithm>

namespace marlview {
namespace {

char Lower(char c) { return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c; }
char Upper(char c) { return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 'a' + 'A') : c; }
bool IsBlank(char c) { return c == ' ' || c == '\t'; }

}  // namespace

size_t FindNoCase(std::string_view hay, std::string_view needle, size_t from) {
  if (needle.empty()) return from <= hay.size() ? from : std::string_view::npos;
  if (needle.size() > hay.size()) return std::string_view::npos;
  // Most places fail on the first character; it is tested in both cases before anything else.
  const char first_lower = Lower(needle[0]), first_upper = Upper(needle[0]);
  for (size_t i = from; i + needle.size() <= hay.size(); ++i) {
    if (hay[i] != first_lower && hay[i] != first_upper) continue;
    size_t j = 1;
    while (j < needle.size() && Lower(hay[i + j]) == Lower(needle[j])) ++j;
    if (j == needle.size()) return i;
  }
  return std::string_view::npos;
}

bool ContainsNoCase(std::string_view hay, std::string_view needle) {
  return FindNoCase(hay, needle) != std::string_view::npos;
}

bool EqualsNoCase(std::string_view a, std::string_view b) {
  return a.size() == b.size() && FindNoCase(a, b) == 0;
}

bool EndsWithNoCase(std::string_view text, std::string_view tail) {
  return text.size() >= tail.size() && EqualsNoCase(text.substr(text.size() - tail.size()), tail);
}

std::string_view TrimLeftBlanks(std::string_view text) {
  size_t i = 0;
  while (i < text.size() && IsBlank(text[i])) ++i;
  return text.substr(i);
}

std::string_view TrimRightBlanks(std::string_view text) {
  size_t n = text.size();
  while (n > 0 && IsBlank(text[n - 1])) --n;
  return text.substr(0, n);
}

std::string_view TrimBlanks(std::string_view text) { return TrimRightBlanks(TrimLeftBlanks(text)); }

std::string_view Columns(std::string_view text, size_t start, size_t count) {
  if (start >= text.size()) return {};
  return text.substr(start, count);
}

std::string_view ColumnsFrom(std::string_view text, size_t start) {
  if (start >= text.size()) return {};
  return text.substr(start);
}

std::vector<std::string_view> SplitLines(std::string_view bytes) {
  std::vector<std::string_view> lines;
  size_t begin = 0;
  for (size_t i = 0; i < bytes.size(); ++i) {
    if (bytes[i] != '\r' && bytes[i] != '\n') continue;
    lines.push_back(bytes.substr(begin, i - begin));
    if (bytes[i] == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n') ++i;
    begin = i + 1;
  }
  if (begin < bytes.size()) lines.push_back(bytes.substr(begin));
  return lines;
}

bool IsValidUtf8(std::string_view text) {
  size_t i = 0;
  while (i < text.size()) {
    const auto c = static_cast<unsigned char>(text[i]);
    size_t extra = 0;
    if (c < 0x80) extra = 0;
    else if ((c & 0xE0) == 0xC0 && c >= 0xC2) extra = 1;
    else if ((c & 0xF0) == 0xE0) extra = 2;
    else if ((c & 0xF8) == 0xF0 && c <= 0xF4) extra = 3;
    else return false;
    if (i + extra >= text.size() && extra > 0) return false;
    for (size_t k = 1; k <= extra; ++k) {
      if ((static_cast<unsigned char>(text[i + k]) & 0xC0) != 0x80) return false;
    }
    i += extra + 1;
  }
  return true;
}

std::string ToUtf8(std::string_view text) {
  if (IsValidUtf8(text)) return std::string(text);
  std::string out;
  out.reserve(text.size() + text.size() / 4);
  for (char ch : text) {
    const auto c = static_cast<unsigned char>(ch);
    if (c < 0x80) {
      out.push_back(ch);
    } else {
      out.push_back(static_cast<char>(0xC0 | (c >> 6)));
      out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
    }
  }
  return out;
}

std::string_view FileNamePart(std::string_view path) {
  const size_t slash = path.find_last_of("/\\");
  return slash == std::string_view::npos ? path : path.substr(slash + 1);
}

std::string_view FolderPart(std::string_view path) {
  const size_t slash = path.find_last_of("/\\");
  return slash == std::string_view::npos ? std::string_view{} : path.substr(0, slash + 1);
}

}  // namespace marlview
