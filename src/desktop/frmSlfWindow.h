// The window of frmSlf, the stand list editor: the file's lines as they stand
// in it, the variant that chooses the record dialog's lists, the buttons that
// add a record of each type behind the selection and those that act on the
// selected line, and the ways on and back.
#pragma once

#include "desktop/ScreenWindow.h"

class QComboBox;
class QGroupBox;
class QLabel;
class QListWidget;
class QPushButton;

namespace corvalin {

class frmSlf;

class frmSlfWindow : public ScreenWindow {
  Q_OBJECT

 public:
  explicit frmSlfWindow(frmSlf& screen);

 protected:
  void Redraw(const ScreenChanges& changes) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  frmSlf& Slf() const;
  QPushButton* NewButton(const char* name, void (frmSlf::*event)());

  QLabel* lblVariant_;
  QComboBox* cmbVariant_;
  QListWidget* lstSlf_;
  QGroupBox* fraAddRecord_;
  QPushButton* cmdInsertA_;
  QPushButton* cmdInsertB_;
  QPushButton* cmdInsertC_;
  QPushButton* cmdInsertD_;
  QGroupBox* fraEditRecord_;
  QPushButton* cmdUp_;
  QPushButton* cmdDown_;
  QPushButton* cmdEdit_;
  QPushButton* cmdDelete_;
  QPushButton* cmdValidate_;
  QPushButton* cmdSave_;
  QPushButton* cmdHelp_;
  QPushButton* cmdQuit_;
  QPushButton* cmdBack_;
  QPushButton* cmbNext_;
};

}  // namespace corvalin
