#include "desktop/ScreenWindow.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QMoveEvent>
#include <QPushButton>
#include <QScreen>
#include <memory>

#include "desktop/Accessibility.h"
#include "desktop/Keyboard.h"
#include "desktop/Latin1Text.h"
#include "desktop/QtToolkit.h"
#include "screens/Controls.h"
#include "screens/Screen.h"
#include "screens/WindowPlace.h"
#include "shell/EventScope.h"
#include "shell/Failure.h"

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

ScreenWindow::ScreenWindow(Screen& screen, QWidget* parent, Qt::WindowFlags flags)
    : QWidget(parent, flags), screen_(&screen) {
  screen.Attach(this);
}

ScreenWindow::~ScreenWindow() {
  if (modalLoop_) modalLoop_->quit();
  if (screen_ != nullptr) screen_->Attach(nullptr);
}

void OnPersonChange(QAbstractButton* button, QObject* context, std::function<void(bool checked)> act) {
  // A click turns the button first and says "clicked" after: the turn is
  // acted on, and the click that follows it is not acted on again.
  auto turned = std::make_shared<bool>(false);
  QObject::connect(button, &QAbstractButton::toggled, context, [button, act, turned](bool checked) {
    // An option that another one's choice turned off is no change of the
    // person's.
    if (!checked && button->autoExclusive()) return;
    *turned = true;
    act(checked);
  });
  QObject::connect(button, &QAbstractButton::clicked, context, [button, act, turned] {
    if (*turned) {
      *turned = false;
      return;
    }
    act(button->isChecked());
  });
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

QLineEdit* ScreenWindow::NewTextField(const char* name, std::function<TextBox&()> box) {
  auto* field = new QLineEdit(this);
  field->setObjectName(QString::fromLatin1(name));
  connect(field, &QLineEdit::textEdited, this, [this, field, box = std::move(box)](const QString& text) {
    if (DrawnScreen() == nullptr) return;
    TextBox& target = box();
    const auto bytes = Latin1FromQt(text);
    if (!bytes) {
      const QSignalBlocker block(field);
      const int at = field->cursorPosition();
      field->setText(ToQt(target.Text));
      field->setCursorPosition(std::max(0, at - 1));
      return;
    }
    Fire([&] { target.Text = *bytes; });
  });
  return field;
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

void ScreenWindow::ConnectRecordList(QListWidget* list, std::function<void(int row)> choose,
                                     std::function<void()> open) {
  connect(list, &QListWidget::currentRowChanged, this, [this, choose = std::move(choose)](int row) {
    if (DrawnScreen() == nullptr || row < 0) return;
    Fire([&] { RunUnhandledEvent([&] { choose(row); }); });
  });
  connect(list, &QListWidget::itemDoubleClicked, this, [this, open = std::move(open)] {
    if (DrawnScreen() == nullptr) return;
    Fire([&] { RunUnhandledEvent(open); });
  });
}

namespace {

// The window of the program last in front: a box that has just gone may
// leave no window active for a moment.
QPointer<QWidget>& LastInFront() {
  static QPointer<QWidget> window;
  return window;
}

// The window a new one opens over: its parent, else the window in front
// (the one whose button or menu opened it); none when none is shown.
QWidget* OwnerOf(QWidget* window) {
  QWidget* owner = window->parentWidget() != nullptr ? window->parentWidget()->window() : QApplication::activeWindow();
  if (owner == nullptr || owner == window || !owner->isVisible()) owner = LastInFront();
  return owner != nullptr && owner != window && owner->isVisible() ? owner : nullptr;
}

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
  } else if (QWidget* owner = OwnerOf(window); owner != nullptr) {
    wanted = CentredIn(outer.width(), outer.height(), RectOf(owner->frameGeometry()));
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

void ScreenWindow::keyPressEvent(QKeyEvent* event) {
  // Enter is the default button's, Escape the Cancel button's, where the
  // window has them and they can be pressed; a control that takes the key
  // itself (a list that is open, a cell being edited) has it first.
  QPushButton* button = nullptr;
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (enter && event->modifiers() == Qt::NoModifier) {
    for (QPushButton* candidate : findChildren<QPushButton*>())
      if (candidate->isDefault() && candidate->window() == this) button = candidate;
  } else if (event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier) {
    button = findChild<QPushButton*>(QStringLiteral("cmdCancel"));
  }
  if (button != nullptr && button->isVisible() && button->isEnabled()) {
    button->click();
    return;
  }
  QWidget::keyPressEvent(event);
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
  // Shown, every block of the window is laid out: the reading order and
  // the fields beside their labels are where the person sees them.
  OrderTabsByReading(this);
  NameFieldsByTheirLabels(this);
  GiveAccessKeys(this);
  RememberPlace();
  raise();
  activateWindow();
  LastInFront() = this;
}

void ScreenWindow::changeEvent(QEvent* event) {
  if (event->type() == QEvent::ActivationChange && isActiveWindow()) LastInFront() = this;
  QWidget::changeEvent(event);
}

void ScreenWindow::Hidden() {
  hide();
  if (modalLoop_) modalLoop_->quit();
}

void ScreenWindow::Changed(const ScreenChanges& changes) {
  Redraw(changes);
  if (changes.controls) GiveAccessKeys(this);
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
