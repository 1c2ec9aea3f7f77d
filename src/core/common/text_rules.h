// Text rules of the field files: case-insensitive searches, blanks, fixed columns, line splitting.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace marlview {

// Whether hay contains needle, ignoring ASCII case; an empty needle is always found.
bool ContainsNoCase(std::string_view hay, std::string_view needle);
// Position of needle in hay ignoring case, or npos.
size_t FindNoCase(std::string_view hay, std::string_view needle, size_t from = 0);
bool EqualsNoCase(std::string_view a, std::string_view b);
bool EndsWithNoCase(std::string_view text, std::string_view tail);

std::string_view TrimLeftBlanks(std::string_view text);
std::string_view TrimRightBlanks(std::string_view text);
std::string_view TrimBlanks(std::string_view text);

// The count characters from the 0-based position start, cut short at the end of text (never past it).
std::string_view Columns(std::string_view text, size_t start, size_t count);
// Everything from the 0-based position start, empty when start is past the end.
std::string_view ColumnsFrom(std::string_view text, size_t start);

// Splits bytes into lines ending in CR LF, LF or CR; a last line without an end is kept.
std::vector<std::string_view> SplitLines(std::string_view bytes);

// Field files are Latin-1; screens and JSON want UTF-8. Valid UTF-8 is passed through unchanged.
std::string ToUtf8(std::string_view text);
bool IsValidUtf8(std::string_view text);

// The name part of a path (after the last '/' or '\'), and the folder part with its separator.
std::string_view FileNamePart(std::string_view path);
std::string_view FolderPart(std::string_view path);

}  // namespace marlview
