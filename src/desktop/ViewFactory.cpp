#include "desktop/ViewFactory.h"

#include "desktop/ExclusionDialogWindow.h"
#include "desktop/frmColumnsWindow.h"
#include "desktop/frmConfigureWindow.h"
#include "desktop/frmDamageSeverityWindow.h"
#include "desktop/frmEditTemplateCommandsWindow.h"
#include "desktop/frmHeadersWindow.h"
#include "desktop/frmLocationRecordWindow.h"
#include "desktop/frmLocationWindow.h"
#include "desktop/frmReplaceAllWindow.h"
#include "desktop/frmSlfRecordWindow.h"
#include "desktop/frmSlfWindow.h"
#include "desktop/frmTemplateNameWindow.h"
#include "desktop/frmTemplateWindow.h"
#include "screens/Application.h"
#include "screens/ExclusionDialog.h"
#include "screens/frmColumns.h"
#include "screens/frmConfigure.h"
#include "screens/frmDamageSeverity.h"
#include "screens/frmEditTemplateCommands.h"
#include "screens/frmHeaders.h"
#include "screens/frmLocation.h"
#include "screens/frmLocationRecord.h"
#include "screens/frmReplaceAll.h"
#include "screens/frmSlf.h"
#include "screens/frmSlfRecord.h"
#include "screens/frmTemplate.h"
#include "screens/frmTemplateName.h"

namespace corvalin {

void AttachDesktopViews() {
  App().ViewFactory = [](Screen& screen) {
    // The window attaches itself to its screen, and deletes itself when the
    // screen is unloaded.
    if (auto* setup = dynamic_cast<frmTemplate*>(&screen)) new frmTemplateWindow(*setup);
    if (auto* defaults = dynamic_cast<frmConfigure*>(&screen)) new frmConfigureWindow(*defaults);
    if (auto* columns = dynamic_cast<frmColumns*>(&screen)) new frmColumnsWindow(*columns);
    if (auto* grid = dynamic_cast<frmHeaders*>(&screen)) new frmHeadersWindow(*grid);
    if (auto* damage = dynamic_cast<frmDamageSeverity*>(&screen)) new frmDamageSeverityWindow(*damage);
    if (auto* name = dynamic_cast<frmTemplateName*>(&screen)) new frmTemplateNameWindow(*name);
    if (auto* exclusion = dynamic_cast<ExclusionDialog*>(&screen)) new ExclusionDialogWindow(*exclusion);
    if (auto* replace = dynamic_cast<frmReplaceAll*>(&screen)) new frmReplaceAllWindow(*replace);
    if (auto* editor = dynamic_cast<frmEditTemplateCommands*>(&screen)) new frmEditTemplateCommandsWindow(*editor);
    if (auto* standList = dynamic_cast<frmSlf*>(&screen)) new frmSlfWindow(*standList);
    if (auto* standRecord = dynamic_cast<frmSlfRecord*>(&screen)) new frmSlfRecordWindow(*standRecord);
    if (auto* locations = dynamic_cast<frmLocation*>(&screen)) new frmLocationWindow(*locations);
    if (auto* location = dynamic_cast<frmLocationRecord*>(&screen)) new frmLocationRecordWindow(*location);
  };
}

}  // namespace corvalin
