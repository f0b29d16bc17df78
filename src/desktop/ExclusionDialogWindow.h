// The window of the three exclusion dialogs: the column acted on, the text
// fields of the dialog, each after its label, and OK, Cancel and Help.
#pragma once

#include <vector>

#include "desktop/ScreenWindow.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace corvalin {

class ExclusionDialog;

class ExclusionDialogWindow : public ScreenWindow {
  Q_OBJECT

 public:
  explicit ExclusionDialogWindow(ExclusionDialog& screen);

 protected:
  void Redraw(const ScreenChanges& changes) override;

 private:
  ExclusionDialog& Dialog() const;

  QLabel* columnLabel_;
  QLabel* column_;
  std::vector<QLabel*> labels_;
  std::vector<QLineEdit*> fields_;
  QPushButton* ok_;
  QPushButton* cancel_;
  QPushButton* help_;
};

}  // namespace corvalin
