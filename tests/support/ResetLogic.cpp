// A fresh process for the tests of the logic: no screens exist there.
#include "TestSupport.h"
#include "worktable/WorkState.h"

namespace corvalin::testing {

void ResetForTest() { ResetWorkState(); }

}  // namespace corvalin::testing
