#include "shell/Error.h"

#include <limits>

namespace corvalin {

std::string StandardDescription(int number) {
  switch (number) {
    case err::InvalidProcedureCall: return "Invalid procedure call or argument";
    case err::Overflow: return "Overflow";
    case err::SubscriptOutOfRange: return "Subscript out of range";
    case err::TypeMismatch: return "Type mismatch";
    case err::BadFileName: return "Bad file name or number";
    case err::FileNotFound: return "File not found";
    case err::FileAlreadyOpen: return "File already open";
    case err::DiskFull: return "Disk full";
    case err::PermissionDenied: return "Permission denied";
    case err::PathFileAccess: return "Path/File access error";
    case err::PathNotFound: return "Path not found";
    case err::ObjectNotSet: return "Object variable or With block variable not set";
    case err::InvalidUseOfNull: return "Invalid use of Null";
    case err::ObjectClosed: return "Operation is not allowed when the object is closed.";
    case err::ObjectOpen: return "Operation is not allowed when the object is open.";
    case err::DatabaseError: return "Database error";
    default: return "Application-defined or object-defined error";
  }
}

RuntimeError::RuntimeError(int number, std::string source, std::string description)
    : number_(number), source_(std::move(source)), description_(std::move(description)) {}

RuntimeError::RuntimeError(int number, std::string source)
    : RuntimeError(number, std::move(source), StandardDescription(number)) {}

std::string RuntimeError::ReportText() const {
  return "[" + std::to_string(number_) + "] " + description_;
}

void Raise(int number, const std::string& source) { throw RuntimeError(number, source); }

void Raise(int number, const std::string& source, const std::string& description) {
  throw RuntimeError(number, source, description);
}

int16_t ToInt16(long long value) {
  if (value > std::numeric_limits<int16_t>::max() || value < std::numeric_limits<int16_t>::min())
    Raise(err::Overflow);
  return static_cast<int16_t>(value);
}

}  // namespace corvalin
