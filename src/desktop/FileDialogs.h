// The file and folder dialogs. They list a folder by its entries' names and
// kinds only: nothing reads a file's contents to show it (the system's way
// of naming a file's type and icon reads the start of a file whose name says
// nothing, and a file of /proc, or a fifo, may never answer), so a dialog
// opened on any folder answers at once.
#pragma once

#include <QString>

class QWidget;

namespace corvalin {

struct FileDialogRequest;

// The chosen file's path, or an empty string on Cancel. The dialog opens
// centred over owner (over the screen when null).
QString ChooseFile(QWidget* owner, const FileDialogRequest& request);
// The chosen folder, or an empty string on Cancel.
QString ChooseFolder(QWidget* owner, const QString& title, const QString& initialFolder);

}  // namespace corvalin
