#include "desktop/ScreenWindow.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QGuiApplication>
#include <QMoveEvent>
#include <QPushButton>
#include <QScreen>

#include "screens/Screen.h"
#include "shell/EventScope.h"

namespace corvalin {

ScreenChanges AllChanged() {
  ScreenChanges all;
  all.controls = true;
  all.rowsReset = true;
  all.selection = true;
  all.current = true;
  all.headings = true;
  return all;
}

ScreenWindow::ScreenWindow(Screen& screen, QWidget* parent) : QWidget(parent, Qt::Window), screen_(&screen) {
  screen.Attach(this);
}

ScreenWindow::~ScreenWindow() {
  if (modalLoop_) modalLoop_->quit();
  if (screen_ != nullptr) screen_->Attach(nullptr);
}

void ScreenWindow::Fire(const std::function<void()>& event) {
  EventScope scope;
  event();
}

void ScreenWindow::ClickFires(QAbstractButton* button, std::function<void()> event) {
  connect(button, &QAbstractButton::clicked, this, [this, event = std::move(event)] {
    if (DrawnScreen() != nullptr) Fire(event);
  });
}

QPushButton* ScreenWindow::NewButton(const char* name, std::function<void()> event) {
  auto* button = new QPushButton(this);
  button->setObjectName(QString::fromLatin1(name));
  ClickFires(button, std::move(event));
  return button;
}

void ScreenWindow::Place() {
  if (screen_ == nullptr) return;
  if (screen_->Left == 0 && screen_->Top == 0) {
    adjustSize();
    if (QScreen* display = QGuiApplication::primaryScreen()) {
      const QRect area = display->availableGeometry();
      move(area.center() - rect().center());
    }
    return;
  }
  move(screen_->Left, screen_->Top);
}

void ScreenWindow::moveEvent(QMoveEvent* event) {
  QWidget::moveEvent(event);
  if (screen_ != nullptr && isVisible()) {
    screen_->Left = pos().x();
    screen_->Top = pos().y();
  }
}

void ScreenWindow::closeEvent(QCloseEvent* event) {
  // The screen decides whether its window goes: the window follows its
  // Hidden or Unloaded.
  event->ignore();
  if (screen_ != nullptr) Fire([this] { screen_->DismissAsCancelled(); });
}

void ScreenWindow::Shown() {
  Redraw(AllChanged());
  emit Redrawn();
  Place();
  show();
  raise();
  activateWindow();
}

void ScreenWindow::Hidden() {
  hide();
  if (modalLoop_) modalLoop_->quit();
}

void ScreenWindow::Changed(const ScreenChanges& changes) {
  Redraw(changes);
  emit Redrawn();
}

void ScreenWindow::Unloaded() {
  if (screen_ != nullptr && screen_->View() == this) screen_->Attach(nullptr);
  screen_ = nullptr;
  hide();
  if (modalLoop_) modalLoop_->quit();
  // The window may be inside one of its own slots: it goes when Qt's loop
  // has it back.
  deleteLater();
}

void ScreenWindow::RunModal() {
  if (screen_ == nullptr || !screen_->Visible()) return;
  // Qt takes a change of modality only from a hidden window: the screen's
  // Show has put it up already.
  if (isVisible()) hide();
  setWindowModality(Qt::ApplicationModal);
  // Shown before the loop: a modal window must be up when the loop starts.
  show();
  QEventLoop loop;
  modalLoop_ = &loop;
  loop.exec(QEventLoop::DialogExec);
  modalLoop_ = nullptr;
  setWindowModality(Qt::NonModal);
}

}  // namespace corvalin
