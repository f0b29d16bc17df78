#include "desktop/ViewFactory.h"

#include "desktop/frmTemplateWindow.h"
#include "screens/Application.h"
#include "screens/frmTemplate.h"

namespace corvalin {

void AttachDesktopViews() {
  App().ViewFactory = [](Screen& screen) {
    // The window attaches itself to its screen, and deletes itself when the
    // screen is unloaded.
    if (auto* setup = dynamic_cast<frmTemplate*>(&screen)) new frmTemplateWindow(*setup);
  };
}

}  // namespace corvalin
