#include "shell/Toolkit.h"

#include <cstdlib>

#include "shell/UnattendedToolkit.h"

namespace corvalin {

namespace {
Toolkit* gToolkit = nullptr;
}

Answer DefaultAnswer(const MessageRequest& request) {
  const int n = request.defaultButton;
  switch (request.buttons) {
    case Buttons::OK: return Answer::OK;
    case Buttons::OKCancel: return n == 2 ? Answer::Cancel : Answer::OK;
    case Buttons::YesNo: return n == 2 ? Answer::No : Answer::Yes;
    case Buttons::YesNoCancel: return n == 2 ? Answer::No : (n == 3 ? Answer::Cancel : Answer::Yes);
    case Buttons::RetryCancel: return n == 2 ? Answer::Cancel : Answer::Retry;
  }
  return Answer::OK;
}

const char* AnswerName(Answer answer) {
  switch (answer) {
    case Answer::OK: return "OK";
    case Answer::Cancel: return "Cancel";
    case Answer::Yes: return "Yes";
    case Answer::No: return "No";
    case Answer::Retry: return "Retry";
  }
  return "?";
}

Toolkit& UI() {
  if (gToolkit == nullptr) {
    // Nobody chose one: behave as a run without a display would.
    static UnattendedToolkit fallback;
    gToolkit = &fallback;
  }
  return *gToolkit;
}

void SetToolkit(Toolkit* toolkit) { gToolkit = toolkit; }

}  // namespace corvalin
