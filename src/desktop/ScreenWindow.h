// The Qt side of the view contract: a top-level window that draws one screen
// controller. It is told when its screen is shown, hidden, changed and
// unloaded (screens/ScreenView.h), redraws from the controller's state only
// then, and sends the person's actions to the controller's events through
// Fire, so that each of them ends by bringing every view up to date. When its
// screen is unloaded it deletes itself once control is back in Qt's loop.
#pragma once

#include <QPoint>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <optional>

#include "screens/ScreenView.h"

class QAbstractButton;
class QEventLoop;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace corvalin {

class Screen;
struct TextBox;

class ScreenWindow : public QWidget, public ScreenView {
  Q_OBJECT

 public:
  // A dialog (flags Qt::Dialog) gets a dialog's frame from the window
  // manager: no buttons to make it small or large.
  explicit ScreenWindow(Screen& screen, QWidget* parent = nullptr, Qt::WindowFlags flags = Qt::Window);
  ~ScreenWindow() override;

  // The contract.
  void Shown() override;
  void Hidden() override;
  void Changed(const ScreenChanges& changes) override;
  void Unloaded() override;
  void RunModal() override;

  // Runs an event of the controller as one event of the person.
  static void Fire(const std::function<void()>& event);
  // A click of the button fires the event while the window draws a screen.
  void ClickFires(QAbstractButton* button, std::function<void()> event);
  // A push button of the window, named as its control, whose click fires the
  // event.
  QPushButton* NewButton(const char* name, std::function<void()> event);
  // A one-line text field, named as its control, whose typing goes into
  // the text box that box() gives while the window draws a screen. A
  // character that no cell can hold is refused as it is typed.
  QLineEdit* NewTextField(const char* name, std::function<TextBox&()> box);
  // The person choosing a line of a list of records, and a double click on
  // one, fire the screen's events (choose gets the line's index). An error
  // that no handler of the screen takes ends the program after its box.
  void ConnectRecordList(QListWidget* list, std::function<void(int row)> choose, std::function<void()> open);

  // The screen drawn, or null once it is unloaded.
  Screen* DrawnScreen() const { return screen_; }

 signals:
  // For tests: the window drew its screen's state again.
  void Redrawn();

 protected:
  // Draws what the changes name; Shown draws everything.
  virtual void Redraw(const ScreenChanges& changes) = 0;
  // The window is placed where its screen says (Left and Top, in pixels),
  // or centred on the screen when the screen has no place yet; a move by the
  // person is kept in the screen.
  void moveEvent(QMoveEvent* event) override;
  // Enter presses the default button, Escape the Cancel button.
  void keyPressEvent(QKeyEvent* event) override;
  // The close box of a dialog is its Cancel; a wizard screen asks the quit
  // question instead (its window says so).
  void closeEvent(QCloseEvent* event) override;
  // The window in front is the one the next dialog opens over.
  void changeEvent(QEvent* event) override;

 private:
  void Place();
  // Keeps where the window's frame stands in its screen, for the screen
  // after it.
  void RememberPlace();

  Screen* screen_;
  // Placed at the centre of the screen, rather than where a screen stood.
  bool centred_ = false;
  QPointer<QEventLoop> modalLoop_;
};

// Everything changed: what Shown draws.
ScreenChanges AllChanged();

// Runs act, with the new state, whenever the person changes a check box or
// chooses an option: by a click, by a key, or through a screen reader, whose
// action turns the box without a click. A click on the option already chosen
// runs it too, as such a click does. The program's own drawing blocks the
// button's signals and runs nothing.
void OnPersonChange(QAbstractButton* button, QObject* context, std::function<void(bool checked)> act);

// Places a top-level window wholly inside the working area of its screen:
// its frame at frameAt where it is given, else centred over its owner
// window, or on the screen when it has none; moved, and made smaller when
// larger than the area, just enough for the whole of it to show.
void PlaceOnScreen(QWidget* window, std::optional<QPoint> frameAt = std::nullopt);

}  // namespace corvalin
