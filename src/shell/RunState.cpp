#include "shell/RunState.h"

namespace corvalin {

namespace {
RunState gRunState;
}

RunState& Run() { return gRunState; }

void ResetRunState() { gRunState = RunState{}; }

}  // namespace corvalin
