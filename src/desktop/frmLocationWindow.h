// The window of frmLocation, the location file editor and the last step of
// the editing flow: the file's lines as they stand in it, the button that
// adds a location behind the selection, those that act on the selected line,
// and the ways back and to the first screen.
#pragma once

#include "desktop/ScreenWindow.h"

class QGroupBox;
class QListWidget;
class QPushButton;

namespace corvalin {

class frmLocation;

class frmLocationWindow : public ScreenWindow {
  Q_OBJECT

 public:
  explicit frmLocationWindow(frmLocation& screen);

 protected:
  void Redraw(const ScreenChanges& changes) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  frmLocation& Location() const;
  QPushButton* NewButton(const char* name, void (frmLocation::*event)());

  QListWidget* lstLocation_;
  QGroupBox* fraAddRecord_;
  QPushButton* cmdInsertA_;
  QGroupBox* fraEditRecord_;
  QPushButton* cmdUp_;
  QPushButton* cmdDown_;
  QPushButton* cmdEdit_;
  QPushButton* cmdDelete_;
  QPushButton* cmdSave_;
  QPushButton* cmdHelp_;
  QPushButton* cmdQuit_;
  QPushButton* cmdBack_;
  QPushButton* cmdDone_;
};

}  // namespace corvalin
