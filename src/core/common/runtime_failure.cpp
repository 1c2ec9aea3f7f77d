// Run-time failures and the general error text.
#include "core/common/runtime_failure.h"

namespace marlview {

std::string_view FailureDescription(int number) {
  switch (number) {
    case kErrInvalidCall: return "Invalid procedure call or argument";
    case kErrOverflow: return "Overflow";
    case 7: return "Out of memory";
    case kErrSubscript: return "Subscript out of range";
    case kErrDivisionByZero: return "Division by zero";
    case kErrTypeMismatch: return "Type mismatch";
    case 52: return "Bad file name or number";
    case kErrFileNotFound: return "File not found";
    case 57: return "Device I/O error";
    case 61: return "Disk full";
    case kErrPastEndOfFile: return "Input past end of file";
    case 70: return "Permission denied";
    case kErrPathAccess: return "Path/File access error";
    case 76: return "Path not found";
    default: return "Application-defined or object-defined error";
  }
}

RuntimeFailure::RuntimeFailure(int number_in, std::string source_in)
    : std::runtime_error(std::string(FailureDescription(number_in))),
      number(number_in),
      description(FailureDescription(number_in)),
      source(std::move(source_in)) {}

std::string GeneralErrorText(const RuntimeFailure& failure) {
  return "Marlview has encountered an error: Error #" + std::to_string(failure.number) + ": '" +
         failure.description + "' from '" + failure.source + "'";
}

void Fail(int number, std::string source) { throw RuntimeFailure(number, std::move(source)); }

}  // namespace marlview
