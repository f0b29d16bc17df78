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
#include "screens/WindowPlace.h"
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

namespace {

// The frame the window manager draws around a window: the same for every
// window of the program, known once one of them has been framed, and
// none without a window manager.
QMargins& KnownFrame() {
  static QMargins frame;
  return frame;
}

WindowRect RectOf(const QRect& r) { return {r.x(), r.y(), r.width(), r.height()}; }

}  // namespace

void PlaceOnScreen(QWidget* window, std::optional<QPoint> frameAt) {
  const QMargins frame = KnownFrame();
  if (!window->testAttribute(Qt::WA_Resized)) window->adjustSize();
  QScreen* display = frameAt ? QGuiApplication::screenAt(*frameAt) : nullptr;
  if (display == nullptr && window->parentWidget() != nullptr) display = window->parentWidget()->screen();
  if (display == nullptr) display = QGuiApplication::primaryScreen();
  if (display == nullptr) {
    if (frameAt) window->move(*frameAt);
    return;
  }
  const WindowRect area = RectOf(display->availableGeometry());
  const QSize outer = window->size().grownBy(frame);
  WindowRect wanted{0, 0, outer.width(), outer.height()};
  if (frameAt) {
    wanted.left = frameAt->x();
    wanted.top = frameAt->y();
  } else if (QWidget* owner = window->parentWidget(); owner != nullptr && owner->isVisible()) {
    wanted = CentredIn(outer.width(), outer.height(), RectOf(owner->window()->frameGeometry()));
  } else {
    wanted = CentredIn(outer.width(), outer.height(), area);
  }
  const WindowRect fit = FitInside(wanted, area);
  const QSize inner = QSize(fit.width, fit.height).shrunkBy(frame);
  if (inner != window->size()) window->resize(inner);
  // A window's position is that of its frame.
  window->move(fit.left, fit.top);
}

void ScreenWindow::Place() {
  if (screen_ == nullptr) return;
  centred_ = !screen_->Placed;
  PlaceOnScreen(this, centred_ ? std::nullopt : std::optional<QPoint>(QPoint(screen_->Left, screen_->Top)));
}

void ScreenWindow::RememberPlace() {
  if (screen_ == nullptr || !isVisible()) return;
  const QRect outer = frameGeometry();
  const QRect inner = geometry();
  const QMargins frame(inner.left() - outer.left(), inner.top() - outer.top(), outer.right() - inner.right(),
                       outer.bottom() - inner.bottom());
  if (frame != QMargins() && frame != KnownFrame()) {
    // The first frame the window manager draws: a window placed before it
    // was known may now reach past the screen's edge, or stand off centre.
    KnownFrame() = frame;
    PlaceOnScreen(this, centred_ ? std::nullopt : std::optional<QPoint>(outer.topLeft()));
  }
  screen_->Left = frameGeometry().x();
  screen_->Top = frameGeometry().y();
  screen_->Placed = true;
}

void ScreenWindow::moveEvent(QMoveEvent* event) {
  QWidget::moveEvent(event);
  RememberPlace();
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
  RememberPlace();
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
