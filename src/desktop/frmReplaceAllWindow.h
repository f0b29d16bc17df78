// The window of Find/Replace: the column searched, the text to find and its
// replacement, and the buttons down the right, Find Next the default.
#pragma once

#include "desktop/ScreenWindow.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace corvalin {

class frmReplaceAll;

class frmReplaceAllWindow : public ScreenWindow {
  Q_OBJECT

 public:
  explicit frmReplaceAllWindow(frmReplaceAll& screen);

 protected:
  void Redraw(const ScreenChanges& changes) override;

 private:
  frmReplaceAll& Dialog() const;

  QLabel* column_;
  QLabel* findLabel_;
  QLabel* replacementLabel_;
  QLineEdit* find_;
  QLineEdit* replacement_;
  QPushButton* findNext_;
  QPushButton* replace_;
  QPushButton* replaceAll_;
  QPushButton* cancel_;
  QPushButton* help_;
};

}  // namespace corvalin
