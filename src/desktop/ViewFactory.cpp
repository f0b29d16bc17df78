#include "desktop/ViewFactory.h"

#include "desktop/frmColumnsWindow.h"
#include "desktop/frmConfigureWindow.h"
#include "desktop/frmTemplateWindow.h"
#include "screens/Application.h"
#include "screens/frmColumns.h"
#include "screens/frmConfigure.h"
#include "screens/frmTemplate.h"

namespace corvalin {

void AttachDesktopViews() {
  App().ViewFactory = [](Screen& screen) {
    // The window attaches itself to its screen, and deletes itself when the
    // screen is unloaded.
    if (auto* setup = dynamic_cast<frmTemplate*>(&screen)) new frmTemplateWindow(*setup);
    if (auto* defaults = dynamic_cast<frmConfigure*>(&screen)) new frmConfigureWindow(*defaults);
    if (auto* columns = dynamic_cast<frmColumns*>(&screen)) new frmColumnsWindow(*columns);
  };
}

}  // namespace corvalin
