// The windows live in a module of their own, loaded only when a person is to
// see them: an unattended run without a display starts without loading the
// window system's libraries, which would cost it more than its whole load.
#pragma once
#include <string>

namespace corvalin {

// Runs the start sequence with the windows: startSequence(interactive,
// eventLoop) is the program's own, eventLoop the module's.
using DesktopEntry = int (*)(int* argc, char** argv, bool interactive, int (*startSequence)(bool, int (*)()));

// The desktop module installed with the program (lib/corvalin beside its
// bin folder); nullptr when it cannot be loaded, with the reason in why.
DesktopEntry LoadDesktopModule(std::string& why);

}  // namespace corvalin
