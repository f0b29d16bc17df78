#include "screens/TranslateAtOnce.h"

#include "screens/Application.h"
#include "screens/PrepareDatabase.h"
#include "screens/frmHeaders.h"
#include "shell/RunState.h"
#include "translation/RunTranslation.h"

namespace corvalin {

bool TranslateAtOnce(Screen& from) {
  const bool gridWasLoaded = App().HeadersLoaded();
  PrepareDatabase();
  // The grid is named anew at each step, as a form is: each step lets
  // pending events run, and a person's click among them may unload the grid
  // (a new output file does); named again, it is loaded again, and the grid
  // validated, translated or shown is always a loaded one.
  App().Headers().PlaceLike(from);
  if (!Run().BusyCancelled) {
    if (!gridWasLoaded && Run().UseTemplate) App().Headers().Form_Activate();
    if (App().Headers().Validate()) {
      RunTranslation(App().Headers().TranslationOf());
      return true;
    }
  }
  App().Headers().Show();
  from.Hide();
  return false;
}

}  // namespace corvalin
