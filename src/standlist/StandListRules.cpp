#include "standlist/StandListRules.h"

#include "shell/Failure.h"
#include "standlist/StandLevelFile.h"

namespace corvalin {

namespace {

// Where the walk stands: before the first A, behind an A (a B must come),
// behind a B or C, behind a D.
enum class Expect { FirstA, B, AfterBOrC, AfterD };

char RecordType(const std::string& line) { return line.empty() ? '\0' : line.front(); }

}  // namespace

bool CheckStandListSequence(const std::vector<std::string>& lines, int& selection, const std::function<void()>& moved) {
  bool result = true;
  std::string code;
  Expect state = Expect::FirstA;
  // A fault of code carries on to the next line; a fault of order stops.
  const auto codeFault = [&](int index, const char* message) {
    selection = index;
    if (moved) moved();
    ShowMessage(message);
    result = false;
  };
  const auto orderFault = [&](int index, const char* message) {
    selection = index;
    if (moved) moved();
    ShowMessage(message);
    return false;
  };
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const std::string& line = lines[i];
    const int index = static_cast<int>(i);
    // Only the first character counts, compared exactly: a record that
    // begins with a lower-case letter is of no known type.
    const char type = RecordType(line);
    switch (state) {
      case Expect::FirstA:
        if (type != 'A') return orderFault(0, FirstRecordMustBeA);
        code = GetRecordToken(line, 2);
        state = Expect::B;
        break;
      case Expect::B:
        if (type != 'B') return orderFault(index, RecordAMustBeFollowedByB);
        if (GetRecordToken(line, 2) != code) codeFault(index, RecordBSameStandId);
        state = Expect::AfterBOrC;
        break;
      case Expect::AfterBOrC:
        if (type == 'C') {
          if (GetRecordToken(line, 2) != code) codeFault(index, RecordCSameStandId);
        } else if (type == 'D') {
          if (GetRecordToken(line, 2) != code) codeFault(index, RecordDSameStandId);
          state = Expect::AfterD;
        } else if (type == 'A') {
          code = GetRecordToken(line, 2);
          state = Expect::B;
        } else {
          // The message blames record B for whatever stands out of order here.
          return orderFault(index, RecordBMustFollowA);
        }
        break;
      case Expect::AfterD:
        if (type == 'D') {
          if (GetRecordToken(line, 2) != code) codeFault(index, RecordDSameStandId);
        } else if (type == 'A') {
          code = GetRecordToken(line, 2);
          state = Expect::B;
        } else {
          // Behind a D the selection stays where it was.
          ShowMessage(type == 'B' ? RecordBMustFollowA : RecordCMustFollowBOrC);
          return false;
        }
        break;
    }
  }
  if (state == Expect::B) {
    // The list ends behind an A.
    return orderFault(static_cast<int>(lines.size()) - 1, RecordBMustFollowA);
  }
  return result;
}

}  // namespace corvalin
