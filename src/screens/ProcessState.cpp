#include "screens/ProcessState.h"

#include "screens/Application.h"
#include "worktable/WorkState.h"

namespace corvalin {

void ResetProcessState() {
  App().UnloadAll();
  App().ViewFactory = nullptr;
  ResetWorkState();
}

}  // namespace corvalin
