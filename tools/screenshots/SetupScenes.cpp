// The first screen as a person with a configured installation sees it.
#include <QWidget>

#include "Tour.h"
#include "screens/frmMain.h"

namespace corvalin::tour {
namespace {

const Registration setup{"10-setup", [](Tour& tour) {
                           PrepareConfiguredHome();
                           MainForm().Form_Load();
                           tour.Save(tour.Window(QStringLiteral("frmTemplate")), QStringLiteral("setup"));
                         }};

}  // namespace
}  // namespace corvalin::tour
