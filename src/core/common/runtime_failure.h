// The one run-time failure of the program: a numbered error that a guarded event handler reports.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace marlview {

// The classic run-time error numbers; the general error text shows them to the user.
enum FailureNumber : int {
  kErrInvalidCall = 5,
  kErrOverflow = 6,
  kErrSubscript = 9,
  kErrDivisionByZero = 11,
  kErrTypeMismatch = 13,
  kErrFileNotFound = 53,
  kErrDeviceIo = 57,
  kErrDiskFull = 61,
  kErrPastEndOfFile = 62,
  kErrPathAccess = 75,
  kErrPathNotFound = 76,
};

class RuntimeFailure : public std::runtime_error {
 public:
  RuntimeFailure(int number, std::string source = {});

  int number;
  std::string description;
  // The procedure that was running; filled by the outermost named procedure when a helper threw.
  std::string source;
};

// "Type mismatch" for 13 and so on; an unknown number gives "Application-defined or object-defined error".
std::string_view FailureDescription(int number);

// "Marlview has encountered an error: Error #13: 'Type mismatch' from 'OpenDatSounding'"
std::string GeneralErrorText(const RuntimeFailure& failure);

[[noreturn]] void Fail(int number, std::string source = {});

// Runs body; a failure thrown without a source is stamped with this procedure's name.
template <typename Body>
decltype(auto) InProcedure(std::string_view source, Body&& body) {
  try {
    return body();
  } catch (RuntimeFailure& failure) {
    if (failure.source.empty()) failure.source = std::string(source);
    throw;
  }
}

}  // namespace marlview
