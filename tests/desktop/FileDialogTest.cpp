// The file and folder dialogs list any folder without reading a file: on
// /proc, whose files may never answer a read, and on a folder with a fifo,
// they show every entry by name and kind and close when the person cancels.
// A dialog that read a file there would not come back, and the test with it.
#include <sys/stat.h>

#include <QAbstractFileIconProvider>
#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest/QtTest>
#include <functional>

#include "DesktopHome.h"
#include "desktop/QtToolkit.h"

using namespace corvalin;
using namespace corvalin::desktoptest;

namespace {

// What the dialog showed of its folder: each entry's name and type.
struct Listing {
  QStringList names;
  QStringList types;
};

// Once the dialog is up, waits until its folder is listed with every entry's
// type (the listing runs on a thread of its own), keeps what it shows, and
// cancels it.
void ListThenCancel(const QString& folder, Listing& seen) {
  WhenModal([folder, &seen](QWidget* modal) {
    auto* dialog = qobject_cast<QFileDialog*>(modal);
    QVERIFY(dialog != nullptr);
    auto* model = dialog->findChild<QFileSystemModel*>();
    QVERIFY(model != nullptr);
    const QModelIndex root = model->index(folder);
    for (;;) {
      QCoreApplication::processEvents(QEventLoop::AllEvents);
      if (model->canFetchMore(root)) model->fetchMore(root);
      const int rows = model->rowCount(root);
      bool typed = rows > 0;
      for (int row = 0; row < rows && typed; ++row) typed = !model->type(model->index(row, 0, root)).isEmpty();
      if (typed) break;
      QThread::yieldCurrentThread();
    }
    for (int row = 0; row < model->rowCount(root); ++row) {
      const QModelIndex entry = model->index(row, 0, root);
      seen.names << model->fileName(entry);
      seen.types << model->type(entry);
      (void)model->data(entry, Qt::DecorationRole);
    }
    dialog->reject();
  });
}

}  // namespace

class FileDialogTest : public QObject {
  Q_OBJECT

 private slots:
  void theOpenDialogListsProcAndCloses() {
    QtToolkit toolkit;
    Listing seen;
    ListThenCancel(QStringLiteral("/proc"), seen);
    FileDialogRequest request;
    request.title = "Select Input File";
    request.initialFolder = "/proc/";
    request.fileName = "trees.csv";
    request.filter = "All Files (*.*)|*.*";
    QCOMPARE(toolkit.ShowFileDialog(request), std::string("trees.csv"));
    QVERIFY(seen.names.contains(QStringLiteral("self")));
    QVERIFY(seen.names.contains(QStringLiteral("cpuinfo")));
    // Named by its kind and name only.
    QCOMPARE(seen.types[seen.names.indexOf(QStringLiteral("cpuinfo"))], QStringLiteral("File"));
  }

  void theSaveDialogListsAFolderWithAFifoAndCloses() {
    QTemporaryDir folder;
    QVERIFY(folder.isValid());
    QVERIFY(::mkfifo(QFile::encodeName(folder.filePath(QStringLiteral("trees.csv"))).constData(), 0600) == 0);
    QFile plain(folder.filePath(QStringLiteral("plots")));
    QVERIFY(plain.open(QIODevice::WriteOnly));
    plain.write("a plain file whose name tells nothing\n");
    plain.close();
    QtToolkit toolkit;
    Listing seen;
    ListThenCancel(folder.path(), seen);
    FileDialogRequest request;
    request.title = "Select Output File";
    request.initialFolder = folder.path().toStdString() + "/";
    request.filter = "Text (*.csv)|*.csv|All Files (*.*)|*.*";
    request.filterIndex = 2;
    request.save = true;
    QCOMPARE(toolkit.ShowFileDialog(request), std::string());
    // A fifo is no file to choose, and is not listed.
    QCOMPARE(seen.names, QStringList{QStringLiteral("plots")});
    QCOMPARE(seen.types, QStringList{QStringLiteral("File")});
  }

  // A folder of thousands of entries (a shared /tmp) is listed on the
  // window's thread: each kind of entry has one icon, made once, not one
  // made again for each entry.
  void theListingSharesOneIconForEachKindOfEntry() {
    QTemporaryDir folder;
    QVERIFY(folder.isValid());
    for (const char* name : {"plots", "stands"}) QVERIFY(QDir(folder.path()).mkdir(QString::fromLatin1(name)));
    for (const char* name : {"trees.csv", "notes"}) {
      QFile file(folder.filePath(QString::fromLatin1(name)));
      QVERIFY(file.open(QIODevice::WriteOnly));
    }
    qint64 plots = 0, stands = 0, trees = 0, notes = 0;
    WhenModal([&](QWidget* modal) {
      auto* dialog = qobject_cast<QFileDialog*>(modal);
      QVERIFY(dialog != nullptr);
      QAbstractFileIconProvider* icons = dialog->iconProvider();
      QVERIFY(icons != nullptr);
      plots = icons->icon(QFileInfo(folder.filePath(QStringLiteral("plots")))).cacheKey();
      stands = icons->icon(QFileInfo(folder.filePath(QStringLiteral("stands")))).cacheKey();
      trees = icons->icon(QFileInfo(folder.filePath(QStringLiteral("trees.csv")))).cacheKey();
      notes = icons->icon(QFileInfo(folder.filePath(QStringLiteral("notes")))).cacheKey();
      dialog->reject();
    });
    QtToolkit toolkit;
    FileDialogRequest request;
    request.title = "Select Input File";
    request.initialFolder = folder.path().toStdString() + "/";
    request.filter = "All Files (*.*)|*.*";
    QCOMPARE(toolkit.ShowFileDialog(request), std::string());
    QCOMPARE(plots, stands);
    QCOMPARE(trees, notes);
    QVERIFY(plots != trees);
  }

  // The folders the person browses through are read when opened, not
  // watched: taking the watches down one by one held the window for seconds
  // when the dialog closed after a long browse.
  void theDialogsWatchNoFolder() {
    bool watching = true;
    WhenModal([&](QWidget* modal) {
      auto* model = modal->findChild<QFileSystemModel*>();
      QVERIFY(model != nullptr);
      watching = !model->testOption(QFileSystemModel::DontWatchForChanges);
      qobject_cast<QFileDialog*>(modal)->reject();
    });
    QtToolkit toolkit;
    QCOMPARE(toolkit.BrowseForFolder("Select the Data folder", "/tmp/"), std::string());
    QVERIFY(!watching);
    watching = true;
    WhenModal([&](QWidget* modal) {
      watching = !modal->findChild<QFileSystemModel*>()->testOption(QFileSystemModel::DontWatchForChanges);
      qobject_cast<QFileDialog*>(modal)->reject();
    });
    FileDialogRequest request;
    request.title = "Select Input File";
    request.initialFolder = "/tmp/";
    request.filter = "All Files (*.*)|*.*";
    QCOMPARE(toolkit.ShowFileDialog(request), std::string());
    QVERIFY(!watching);
  }

  void theFolderDialogListsProcAndCloses() {
    QtToolkit toolkit;
    Listing seen;
    ListThenCancel(QStringLiteral("/proc"), seen);
    QCOMPARE(toolkit.BrowseForFolder("Select the Data folder", "/proc/"), std::string());
    QVERIFY(seen.names.contains(QStringLiteral("self")));
  }
};

QTEST_MAIN(FileDialogTest)
#include "FileDialogTest.moc"
