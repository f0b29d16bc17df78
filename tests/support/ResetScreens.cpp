// A fresh process for the tests of the screens and the whole program: every
// screen unloaded and destroyed, then the state below them.
#include "TestSupport.h"
#include "screens/ProcessState.h"

namespace corvalin::testing {

void ResetForTest() { ResetProcessState(); }

}  // namespace corvalin::testing
