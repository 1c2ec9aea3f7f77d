// Whole-file reads, atomic replacement of files the program writes, and the case-blind lookup of
// companion files that field systems name in capitals or not.
#pragma once

#include <cstdio>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace marlview {

// The file's bytes; fails with "File not found" when it is missing and "Path/File access error"
// when it cannot be read.
std::string ReadWholeFile(const std::string& path);
// The file's bytes, or nothing when it is missing or unreadable.
std::optional<std::string> TryReadWholeFile(const std::string& path);

// Puts bytes into an open file and gives how many went in; fewer than asked is a failed write, with
// errno saying why. The program writes with fwrite; a test stands in for a disk that fills up or a
// stick pulled out part way through a save.
using FileWriteFunction = std::function<size_t(std::FILE* file, std::string_view bytes)>;

// Writes to a temporary file in the same folder, flushes it and renames it over path, so a failed
// or interrupted save never destroys the file that was there; the temporary file is removed. Fails
// with "Path not found" when the folder is missing, "Disk full" when the disk fills up, "Device I/O
// error" when a write fails otherwise, and "Path/File access error" when the folder or the file
// cannot be written.
void WriteFileAtomically(const std::string& path, std::string_view bytes, const FileWriteFunction& write = {});

bool FileExists(const std::string& path);
bool DirectoryExists(const std::string& path);

// path itself when it exists, else a file of the same folder whose name equals it ignoring case.
std::optional<std::string> FindIgnoringCase(const std::string& path);

}  // namespace marlview
