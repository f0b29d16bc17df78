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
  frmHeaders& headers = App().Headers();
  headers.PlaceLike(from);
  if (!Run().BusyCancelled) {
    if (!gridWasLoaded && Run().UseTemplate) headers.Form_Activate();
    if (headers.Validate()) {
      RunTranslation(headers.TranslationOf());
      return true;
    }
  }
  headers.Show();
  from.Hide();
  return false;
}

}  // namespace corvalin
