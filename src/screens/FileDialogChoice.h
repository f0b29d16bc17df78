// The file dialogs of the record dialogs treat a cancelled dialog as an empty
// file name. The toolkit's dialog gives back its preset name on Cancel, so a
// result equal to the preset means that nothing was chosen.
#pragma once

#include <string>

#include "shell/Toolkit.h"

namespace corvalin {

// Shows the dialog; the chosen full path, or the empty text when the dialog
// was cancelled.
std::string ChooseFile(const FileDialogRequest& dialog);

}  // namespace corvalin
