#include "desktop/QtToolkit.h"

#include <QApplication>
#include <QCloseEvent>
#include <QCursor>
#include <QDir>
#include <QStyle>
#include <QDesktopServices>
#include <QDialog>
#include <QElapsedTimer>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLayout>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QStringList>
#include <QUrl>
#include <QVBoxLayout>
#include <cstdio>
#include <cstdlib>

#include "desktop/FileDialogs.h"
#include "desktop/Keyboard.h"
#include "desktop/ScreenWindow.h"
#include "screens/Screen.h"
#include "shell/RunState.h"
#include "shell/ScratchFiles.h"

namespace corvalin {

QString ToQt(const std::string& text) {
  QString out = QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
  out.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  return out;
}

QString PathToQt(const std::string& path) { return QFile::decodeName(QByteArray::fromStdString(path)); }

std::string PathFromQt(const QString& path) { return QFile::encodeName(path).toStdString(); }

QString QtFilterOf(const std::string& filter) {
  const QStringList parts = ToQt(filter).split(QLatin1Char('|'));
  QStringList entries;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    QString patterns = parts[i + 1].trimmed();
    patterns.replace(QLatin1Char(';'), QLatin1Char(' '));
    patterns.replace(QStringLiteral("*.*"), QStringLiteral("*"));
    // Qt reads the patterns from the parentheses at the end of an entry, so
    // a description that already shows them in its own words gives way.
    QString description = parts[i].trimmed();
    const qsizetype open = description.lastIndexOf(QLatin1Char('('));
    if (open > 0 && description.endsWith(QLatin1Char(')'))) description = description.left(open).trimmed();
    entries << description + QStringLiteral(" (") + patterns.simplified() + QLatin1Char(')');
  }
  return entries.join(QStringLiteral(";;"));
}

namespace {

// Lays the small window out, gives its buttons their access keys and Tab
// its reading order, and centres it over the window in front (over the
// screen when there is none).
void CentreOnScreen(QWidget* window) {
  window->adjustSize();
  if (window->layout() != nullptr) window->layout()->activate();
  OrderTabsByReading(window);
  GiveAccessKeys(window);
  PlaceOnScreen(window);
}

// frmBusyMessage: Cancel (and Escape) sets BusyCancelled and the window
// stays as it is; a close that the program did not ask for (its close box)
// sets BusyCancelled and the window goes. A loop that ignores the flag (the
// translation) brings it back at its next line.
class BusyMessageWindow : public QDialog {
 public:
  bool unloading = false;

 protected:
  void closeEvent(QCloseEvent* event) override {
    if (!unloading) Run().BusyCancelled = true;
    event->accept();
    hide();
  }
  void reject() override {
    if (!unloading) Run().BusyCancelled = true;
  }
};

// frmAppendOverwriteCancel. It keeps the caption it was designed with.
class AppendWindow : public QDialog {
 public:
  AppendChoice choice = AppendChoice::Closed;
};

// The window in front, over which boxes and file dialogs open. A window that
// is hidden is none: the window manager may still name as active a window
// that was just hidden, and one whose screen was unloaded is deleted once
// Qt's loop runs again, which may be the loop of the box, taking the box
// with it.
QWidget* FrontWindow() {
  QWidget* front = QApplication::activeWindow();
  return front != nullptr && front->isVisible() ? front : nullptr;
}

}  // namespace

QtToolkit::QtToolkit() = default;

QtToolkit::~QtToolkit() {
  delete busyWindow_.data();
  delete banner_.data();
}

Answer QtToolkit::Message(const MessageRequest& request) {
  // Over the window in front, centred on it.
  QMessageBox box(FrontWindow());
  box.setWindowTitle(ToQt(request.title.empty() ? std::string(ApplicationTitle) : request.title));
  box.setText(ToQt(request.text));
  switch (request.icon) {
    case Icon::None: box.setIcon(QMessageBox::NoIcon); break;
    case Icon::Critical: box.setIcon(QMessageBox::Critical); break;
    case Icon::Question: box.setIcon(QMessageBox::Question); break;
    case Icon::Exclamation: box.setIcon(QMessageBox::Warning); break;
    case Icon::Information: box.setIcon(QMessageBox::Information); break;
  }
  std::vector<std::pair<QMessageBox::StandardButton, Answer>> buttons;
  switch (request.buttons) {
    case Buttons::OK: buttons = {{QMessageBox::Ok, Answer::OK}}; break;
    case Buttons::OKCancel: buttons = {{QMessageBox::Ok, Answer::OK}, {QMessageBox::Cancel, Answer::Cancel}}; break;
    case Buttons::YesNo: buttons = {{QMessageBox::Yes, Answer::Yes}, {QMessageBox::No, Answer::No}}; break;
    case Buttons::YesNoCancel:
      buttons = {{QMessageBox::Yes, Answer::Yes}, {QMessageBox::No, Answer::No}, {QMessageBox::Cancel, Answer::Cancel}};
      break;
    case Buttons::RetryCancel:
      buttons = {{QMessageBox::Retry, Answer::Retry}, {QMessageBox::Cancel, Answer::Cancel}};
      break;
  }
  QMessageBox::StandardButtons all;
  for (const auto& b : buttons) all |= b.first;
  box.setStandardButtons(all);
  const std::size_t defaultIndex = static_cast<std::size_t>(request.defaultButton) - 1;
  if (defaultIndex < buttons.size()) box.setDefaultButton(buttons[defaultIndex].first);
  // Closing the box by its window control gives the answer of Escape; a box
  // without a Cancel or No button gives its one button.
  box.setEscapeButton(buttons.back().first);
  const int pressed = box.exec();
  for (const auto& b : buttons)
    if (pressed == b.first) return b.second;
  return DefaultAnswer(request);
}

std::string QtToolkit::BrowseForFolder(const std::string& title, const std::string& initialFolder) {
  if (AnswerFolderDialog) return AnswerFolderDialog(title, initialFolder).value_or("");
  return PathFromQt(ChooseFolder(FrontWindow(), ToQt(title), PathToQt(initialFolder)));
}

std::string QtToolkit::ShowFileDialog(const FileDialogRequest& request) {
  if (AnswerFileDialog) return AnswerFileDialog(request).value_or(request.fileName);
  const QString chosen = ChooseFile(FrontWindow(), request);
  if (chosen.isEmpty()) return request.fileName;
  return PathFromQt(chosen);
}

void QtToolkit::SetBusyPointer(bool busy) {
  if (busy == busyPointer_) return;
  busyPointer_ = busy;
  if (busy) QApplication::setOverrideCursor(QCursor(Qt::WaitCursor));
  else QApplication::restoreOverrideCursor();
}

qint64 QtToolkit::Now() const {
  if (Clock) return Clock();
  static QElapsedTimer steady;
  if (!steady.isValid()) steady.start();
  return steady.elapsed();
}

bool QtToolkit::EventsDueNow() { return !eventsRanAt_ || Now() - *eventsRanAt_ >= eventIntervalMs_; }

void QtToolkit::DoEvents() {
  if (busyTextPending_ && busyLabel_ != nullptr) busyLabel_->setText(ToQt(pendingBusyText_));
  busyTextPending_ = false;
  QCoreApplication::processEvents();
  eventsRanAt_ = Now();
}

void QtToolkit::ShowBusyWindow(const std::string& title, const std::string& text) {
  if (busyWindow_ == nullptr) {
    auto* window = new BusyMessageWindow;
    window->setObjectName(QStringLiteral("frmBusyMessage"));
    Run().CurrentScreen = "BusyMessage";
    auto* label = new QLabel(window);
    label->setObjectName(QStringLiteral("lblBusyMessage"));
    label->setMinimumWidth(320);
    label->setWordWrap(true);
    auto* cancel = new QPushButton(QStringLiteral("Cancel"), window);
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    QObject::connect(cancel, &QPushButton::clicked, [] { Run().BusyCancelled = true; });
    auto* layout = new QVBoxLayout(window);
    layout->addWidget(label);
    layout->addWidget(cancel, 0, Qt::AlignHCenter);
    busyWindow_ = window;
    busyLabel_ = label;
    busyCancel_ = cancel;
    CentreOnScreen(window);
  }
  if (busyWindow_->windowTitle() != ToQt(title)) busyWindow_->setWindowTitle(ToQt(title));
  // Between two runs of pending events only the last text could be seen:
  // it is kept, and set when they run next.
  if (busyWindow_->isVisible() && !EventsDueNow()) {
    pendingBusyText_ = text;
    busyTextPending_ = true;
    return;
  }
  busyTextPending_ = false;
  busyLabel_->setText(ToQt(text));
  if (!busyWindow_->isVisible()) busyWindow_->show();
}

void QtToolkit::HideBusyWindow() {
  busyTextPending_ = false;
  if (busyWindow_ == nullptr) return;
  static_cast<BusyMessageWindow*>(busyWindow_.data())->unloading = true;
  busyWindow_->hide();
  delete busyWindow_.data();
}

void QtToolkit::ShowBanner(const std::string& title, const std::string& text) {
  if (banner_ == nullptr) {
    auto* window = new QWidget(nullptr, Qt::Window | Qt::WindowTitleHint | Qt::CustomizeWindowHint);
    window->setObjectName(QStringLiteral("frmAutoMsg"));
    auto* label = new QLabel(ToQt(text), window);
    label->setObjectName(QStringLiteral("Label1"));
    auto* layout = new QVBoxLayout(window);
    layout->addWidget(label);
    window->setWindowTitle(ToQt(title));
    banner_ = window;
    CentreOnScreen(window);
  }
  banner_->show();
}

void QtToolkit::HideBanner() { delete banner_.data(); }

AppendChoice QtToolkit::AskAppendOverwriteCancel(const std::string& text) {
  AppendWindow window;
  window.setObjectName(QStringLiteral("frmAppendOverwriteCancel"));
  window.setWindowTitle(QStringLiteral("App.Title"));
  auto* label = new QLabel(ToQt(text), &window);
  label->setObjectName(QStringLiteral("Label1"));
  auto* icon = new QLabel(&window);
  icon->setObjectName(QStringLiteral("Image1"));
  icon->setPixmap(window.style()->standardPixmap(QStyle::SP_MessageBoxQuestion));
  auto* append = new QPushButton(QStringLiteral("Append"), &window);
  append->setObjectName(QStringLiteral("cmdAppend"));
  auto* overwrite = new QPushButton(QStringLiteral("Overwrite"), &window);
  overwrite->setObjectName(QStringLiteral("cmdOverwrite"));
  auto* cancel = new QPushButton(QStringLiteral("Cancel"), &window);
  cancel->setObjectName(QStringLiteral("cmdCancel"));
  const auto choose = [&window](AppendChoice choice) {
    window.choice = choice;
    window.accept();
  };
  QObject::connect(append, &QPushButton::clicked, [&] { choose(AppendChoice::Append); });
  QObject::connect(overwrite, &QPushButton::clicked, [&] { choose(AppendChoice::Overwrite); });
  QObject::connect(cancel, &QPushButton::clicked, [&] { choose(AppendChoice::Cancel); });
  auto* top = new QHBoxLayout;
  top->addWidget(icon);
  top->addWidget(label, 1);
  auto* row = new QHBoxLayout;
  row->addWidget(append);
  row->addWidget(overwrite);
  row->addWidget(cancel);
  auto* layout = new QVBoxLayout(&window);
  layout->addLayout(top);
  layout->addLayout(row);
  CentreOnScreen(&window);
  window.exec();
  return window.choice;
}

void QtToolkit::RunModal(ModalWindow& window) {
  auto* screen = dynamic_cast<Screen*>(&window);
  if (screen == nullptr || screen->View() == nullptr) return;
  screen->View()->RunModal();
}

// Whether the file is there is the shell's to say; here only whether a
// browser could be started for it (without xdg-open or a browser of the
// desktop's, Qt finds none and says so).
bool QtToolkit::OpenHelp(const std::string& helpFile, const std::string& topic) {
  const QString path = PathToQt(helpFile);
  QUrl url = QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath());
  if (!topic.empty()) url.setFragment(QString::fromStdString(topic));
  return QDesktopServices::openUrl(url);
}

void QtToolkit::Beep() { QApplication::beep(); }

void QtToolkit::EndProcess(int exitCode) {
  RemoveScratchFiles();
  std::fflush(nullptr);
  std::_Exit(exitCode);
}

}  // namespace corvalin
