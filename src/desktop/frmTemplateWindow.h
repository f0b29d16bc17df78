// The window of frmTemplate: a view of its controller. This version shows
// the paths and the template of the run and lets the user quit; choosing the
// files, the template and the next steps of the wizard come with the screens
// that follow it.
#pragma once

#include <QWidget>

class QComboBox;
class QLabel;
class QPushButton;

namespace corvalin {

class frmTemplate;

class frmTemplateWindow : public QWidget {
  Q_OBJECT

 public:
  explicit frmTemplateWindow(frmTemplate& screen, QWidget* parent = nullptr);

  // Draws the controller's state.
  void Redraw();

  QPushButton* QuitButton() const { return quit_; }

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  frmTemplate& screen_;
  QLabel* inputFile_;
  QLabel* outputFile_;
  QComboBox* templates_;
  QPushButton* help_;
  QPushButton* quit_;
};

// Makes the windows of the screens as the Application object loads them.
void AttachDesktopViews();

}  // namespace corvalin
