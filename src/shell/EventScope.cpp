#include "shell/EventScope.h"

#include <cstdio>
#include <exception>

namespace corvalin {

namespace {

int gDepth = 0;
// The depth at which the events of the current wait on the person end.
int gWaitBase = 0;
// How many waits on the person are open, one inside the other.
int gWaits = 0;
EventHooks gHooks;

// A view that fails while it draws must not take the event's own outcome, or
// an unwinding, with it: the failure is said on standard error and the
// program goes on.
void RunHook(const std::function<void()>& hook) {
  if (!hook) return;
  try {
    hook();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "corvalin: a view failed to draw: %s\n", error.what());
  } catch (...) {
    std::fprintf(stderr, "corvalin: a view failed to draw\n");
  }
}

}  // namespace

EventScope::EventScope() { ++gDepth; }

EventScope::~EventScope() {
  --gDepth;
  if (gDepth != gWaitBase) return;
  RunHook(gHooks.catchUp);
  if (!ProgramBusy()) RunHook(gHooks.afterOutermostEvent);
}

WaitOnPerson::WaitOnPerson() : outerBase_(gWaitBase) {
  RunHook(gHooks.catchUp);
  gWaitBase = gDepth;
  ++gWaits;
}

WaitOnPerson::~WaitOnPerson() {
  --gWaits;
  gWaitBase = outerBase_;
}

int EventDepth() { return gDepth; }

bool ProgramBusy() { return gDepth > 0 || gWaits > 0; }

void SetEventHooks(EventHooks hooks) { gHooks = std::move(hooks); }

void ViewsCatchUp() { RunHook(gHooks.catchUp); }

}  // namespace corvalin
