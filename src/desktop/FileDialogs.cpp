#include "desktop/FileDialogs.h"

#include <QAbstractFileIconProvider>
#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QStyle>
#include <map>

#include "desktop/QtToolkit.h"
#include "shell/Toolkit.h"

namespace corvalin {

namespace {

// Icons and type names by the kind of entry and its name's extension. Each
// icon is made once and shared by every entry of its kind: a folder of
// thousands of files is listed on the window's own thread, and making the
// icon again for each entry held the window for seconds.
class NameOnlyIcons : public QAbstractFileIconProvider {
 public:
  QIcon icon(IconType type) const override {
    switch (type) {
      case Folder: return Standard(QStyle::SP_DirIcon);
      case Drive: return Standard(QStyle::SP_DriveHDIcon);
      case Computer: return Standard(QStyle::SP_ComputerIcon);
      case Network: return Standard(QStyle::SP_DriveNetIcon);
      case Trashcan: return Standard(QStyle::SP_TrashIcon);
      case Desktop: return Standard(QStyle::SP_DesktopIcon);
      case File: return Standard(QStyle::SP_FileIcon);
    }
    return Standard(QStyle::SP_FileIcon);
  }
  QIcon icon(const QFileInfo& info) const override {
    if (info.isSymLink()) return Standard(info.isDir() ? QStyle::SP_DirLinkIcon : QStyle::SP_FileLinkIcon);
    return icon(info.isDir() ? Folder : File);
  }
  QString type(const QFileInfo& info) const override {
    if (info.isDir()) return QStringLiteral("Folder");
    if (!info.isFile()) return QStringLiteral("Special file");
    const QString extension = info.suffix();
    if (extension.isEmpty()) return QStringLiteral("File");
    return extension.toUpper() + QStringLiteral(" File");
  }

 private:
  // The style's icon, made at the first asking.
  QIcon Standard(QStyle::StandardPixmap pixmap) const {
    auto made = made_.find(pixmap);
    if (made == made_.end()) made = made_.emplace(pixmap, QApplication::style()->standardIcon(pixmap)).first;
    return made->second;
  }
  mutable std::map<QStyle::StandardPixmap, QIcon> made_;
};

NameOnlyIcons& Icons() {
  static NameOnlyIcons icons;
  return icons;
}

void Prepare(QFileDialog& dialog) {
  // Qt's own dialog, whose listing this program controls.
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setOption(QFileDialog::DontUseCustomDirectoryIcons);
  dialog.setIconProvider(&Icons());
  // The listing is read when a folder is opened, not watched for changes:
  // the watch of every folder the person passed through is taken down when
  // the dialog closes, one at a time, and after a browse through many
  // folders that held the window for seconds.
  if (auto* model = dialog.findChild<QFileSystemModel*>()) model->setOption(QFileSystemModel::DontWatchForChanges);
}

// Runs the dialog; the window that opened it has the keyboard again after
// it, so that the person's next key (an access key, Tab) reaches it.
bool Run(QFileDialog& dialog, QWidget* owner) {
  const bool accepted = dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty();
  if (owner != nullptr && owner->isVisible()) owner->window()->activateWindow();
  return accepted;
}

}  // namespace

QString ChooseFile(QWidget* owner, const FileDialogRequest& request) {
  QFileDialog dialog(owner, ToQt(request.title), PathToQt(request.initialFolder), QtFilterOf(request.filter));
  dialog.setObjectName(QStringLiteral("CommonDialog1"));
  Prepare(dialog);
  dialog.setAcceptMode(request.save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(request.save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  const QStringList filters = dialog.nameFilters();
  if (request.filterIndex >= 1 && request.filterIndex <= filters.size())
    dialog.selectNameFilter(filters[request.filterIndex - 1]);
  if (!request.fileName.empty())
    dialog.selectFile(QDir(PathToQt(request.initialFolder)).filePath(PathToQt(request.fileName)));
  if (!Run(dialog, owner)) return {};
  return dialog.selectedFiles().constFirst();
}

QString ChooseFolder(QWidget* owner, const QString& title, const QString& initialFolder) {
  QFileDialog dialog(owner, title, initialFolder);
  dialog.setObjectName(QStringLiteral("BrowseForFolder"));
  Prepare(dialog);
  dialog.setFileMode(QFileDialog::Directory);
  dialog.setOption(QFileDialog::ShowDirsOnly);
  if (!Run(dialog, owner)) return {};
  return dialog.selectedFiles().constFirst();
}

}  // namespace corvalin
