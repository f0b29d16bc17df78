// The entry the program calls when it loads the windows (shell/DesktopModule).
#include <QApplication>

#include "desktop/QtToolkit.h"
#include "desktop/ViewFactory.h"
#include "shell/DesktopModule.h"
#include "shell/Toolkit.h"

extern "C" __attribute__((visibility("default"))) int corvalin_desktop_run(int* argc, char** argv, bool interactive,
                                                                          int (*startSequence)(bool, int (*)())) {
  using namespace corvalin;
  QApplication application(*argc, argv);
  QApplication::setApplicationName(QStringLiteral("Corvalin"));
  QtToolkit toolkit;
  SetToolkit(&toolkit);
  AttachDesktopViews();
  const int status = startSequence(interactive, [] { return QApplication::exec(); });
  // The toolkit goes with this frame; nothing may reach it afterwards.
  SetToolkit(nullptr);
  return status;
}

// The entry's type is the one the program expects.
static_assert(std::is_same_v<decltype(&corvalin_desktop_run), corvalin::DesktopEntry>);
