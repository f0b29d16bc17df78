// The window of frmTemplate: a view of its controller. This version shows
// the paths and the template of the run and lets the user quit; choosing the
// files, the template and the next steps of the wizard come with the screens
// that follow it.
#pragma once

#include "desktop/ScreenWindow.h"

class QComboBox;
class QLabel;
class QPushButton;

namespace corvalin {

class frmTemplate;

class frmTemplateWindow : public ScreenWindow {
  Q_OBJECT

 public:
  explicit frmTemplateWindow(frmTemplate& screen);

  QPushButton* QuitButton() const { return quit_; }

 protected:
  void Redraw(const ScreenChanges& changes) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  frmTemplate& Setup() const;

  QLabel* inputFile_;
  QLabel* outputFile_;
  QComboBox* templates_;
  QPushButton* help_;
  QPushButton* quit_;
};

}  // namespace corvalin
