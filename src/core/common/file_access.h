// Whole-file reads, atomic replacement of files the program writes, and the case-blind lookup of
// companion files that field systems name in capitals or not.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace marlview {

// The file's bytes; fails with "File not found" when it is missing and "Path/File access error"
// when it cannot be read.
std::string ReadWholeFile(const std::string& path);
// The file's bytes, or nothing when it is missing or unreadable.
std::optional<std::string> TryReadWholeFile(const std::string& path);

// Writes to a temporary file in the same folder, flushes it and renames it over path, so an
// interrupted save never destroys the file that was there. Fails with "Path/File access error".
void WriteFileAtomically(const std::string& path, std::string_view bytes);

bool FileExists(const std::string& path);
bool DirectoryExists(const std::string& path);

// path itself when it exists, else a file of the same folder whose name equals it ignoring case.
std::optional<std::string> FindIgnoringCase(const std::string& path);

}  // namespace marlview
