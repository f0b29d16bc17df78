#include "screens/FileDialogChoice.h"

namespace corvalin {

std::string ChooseFile(const FileDialogRequest& dialog) {
  std::string name = UI().ShowFileDialog(dialog);
  if (name == dialog.fileName) name.clear();
  return name;
}

}  // namespace corvalin
