// The one failure type of the program. It carries what a run-time error
// carries: a number, a source and a description. Library code throws it;
// the event handlers of the screens catch it at their outer edge and report
// "[" + number + "] " + description.
#pragma once

#include <cstdint>
#include <exception>
#include <string>

namespace corvalin {

// The error numbers the program raises and reports.
namespace err {
constexpr int InvalidProcedureCall = 5;
constexpr int Overflow = 6;
constexpr int SubscriptOutOfRange = 9;
constexpr int TypeMismatch = 13;
constexpr int BadFileName = 52;
constexpr int FileNotFound = 53;
constexpr int FileAlreadyOpen = 55;
constexpr int DiskFull = 61;
constexpr int PermissionDenied = 70;
constexpr int PathFileAccess = 75;
constexpr int PathNotFound = 76;
constexpr int ObjectNotSet = 91;  // the grid has no rows bound to it yet
constexpr int InvalidUseOfNull = 94;
constexpr int ObjectClosed = 3704;   // the database connection is closed
constexpr int ObjectOpen = 3705;     // the database connection is already open
constexpr int DatabaseError = 3709;  // any other failure of the store
}  // namespace err

// The standard description of an error number ("Overflow", "Type mismatch").
std::string StandardDescription(int number);

class RuntimeError : public std::exception {
 public:
  RuntimeError(int number, std::string source, std::string description);
  // An error with the standard description of its number.
  explicit RuntimeError(int number, std::string source = "Corvalin");

  int number() const { return number_; }
  const std::string& source() const { return source_; }
  const std::string& description() const { return description_; }
  void set_source(std::string source) { source_ = std::move(source); }

  // "[" + number + "] " + description: the text of an event handler's box.
  std::string ReportText() const;
  const char* what() const noexcept override { return description_.c_str(); }

 private:
  int number_;
  std::string source_;
  std::string description_;
};

[[noreturn]] void Raise(int number, const std::string& source = "Corvalin");
[[noreturn]] void Raise(int number, const std::string& source, const std::string& description);

// Counts, positions and line numbers are signed 16-bit; going past 32,767
// (or below -32,768) is the overflow error, number 6.
int16_t ToInt16(long long value);
inline int16_t Inc16(int16_t value) { return ToInt16(static_cast<long long>(value) + 1); }

// Thrown to end the process (WriteResult, EndProgram) when the Toolkit in use
// does not end it for real, as in tests. Deliberately not an std::exception:
// no event handler may catch it.
struct ProcessEnded {
  int exitCode;
};

}  // namespace corvalin
