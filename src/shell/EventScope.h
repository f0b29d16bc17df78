// When the views catch up. Every event routine, whether a view or the program
// runs it, runs inside an EventScope. The screens' views are told what changed
// when the event that the person caused has ended (not at the end of each
// routine it calls in turn, so a view never draws a half-done state), and
// before the program waits on the person: a box, a dialog, pending events.
// Screens unloaded during an event are destroyed once the outermost event has
// ended, since the routines still on the stack may belong to them.
#pragma once

#include <functional>

namespace corvalin {

class EventScope {
 public:
  EventScope();
  ~EventScope();
  EventScope(const EventScope&) = delete;
  EventScope& operator=(const EventScope&) = delete;
};

// While the program waits on the person (a modal box or dialog, pending events
// run), the events the person causes end at this depth, so each of them
// brings the views up to date when it ends. Catches the views up first.
class WaitOnPerson {
 public:
  WaitOnPerson();
  ~WaitOnPerson();
  WaitOnPerson(const WaitOnPerson&) = delete;
  WaitOnPerson& operator=(const WaitOnPerson&) = delete;

 private:
  int outerBase_;
};

// How many event routines are running, one inside the other.
int EventDepth();
// An event routine is running, or a routine waits on the person: something of
// the program is on the stack, and the screens it uses must stay.
bool ProgramBusy();

// The screens layer says what catching up means (tell each view what changed)
// and what follows the outermost event (destroy unloaded screens). Either may
// be empty: logic alone has no views.
struct EventHooks {
  std::function<void()> catchUp;
  std::function<void()> afterOutermostEvent;
};
void SetEventHooks(EventHooks hooks);

// Brings the views up to date now.
void ViewsCatchUp();

}  // namespace corvalin
