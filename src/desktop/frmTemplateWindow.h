// The window of frmTemplate, the wizard's first screen: what to do in this
// pass (translate a file, edit the stand list files, or both), the files and
// the template, top to bottom in the order of work, and the buttons that go
// on. Every control draws its controller's control and sends the person's
// action to its event.
#pragma once

#include "desktop/ScreenWindow.h"
#include "screens/Controls.h"

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace corvalin {

class frmTemplate;

class frmTemplateWindow : public ScreenWindow {
  Q_OBJECT

 public:
  explicit frmTemplateWindow(frmTemplate& screen);

  QPushButton* QuitButton() const { return cmdQuit_; }

 protected:
  void Redraw(const ScreenChanges& changes) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  frmTemplate& Setup() const;
  QPushButton* NewButton(const char* name, void (frmTemplate::*event)());
  QCheckBox* NewCheck(const char* name, CheckBox frmTemplate::*box, void (frmTemplate::*event)());

  QCheckBox* chkTranslateFile_;
  QGroupBox* fraTranslateFile_;
  QLabel* lblInputFile1_;
  QLineEdit* lblInputFile_;
  QPushButton* cmdChangeInput_;
  QCheckBox* chkNoInput_;
  QLabel* lblOutputFile1_;
  QLineEdit* lblOutputFile_;
  QPushButton* cmdChangeOutput_;
  QLabel* lblTemplateFile1_;
  QComboBox* cmbTemplate_;
  QPushButton* cmdDeleteTemplate_;
  QLabel* Label2_;
  QPushButton* cmdFinish_;
  QPushButton* cmdNextTrans_;

  QCheckBox* chkEditStandListFile_;
  QGroupBox* fraEditStandListFile_;
  QLabel* Label1_;
  QLineEdit* lblWorkingDirectory_;
  QLabel* lblStandListFile1_;
  QLineEdit* lblSlfFile_;
  QPushButton* cmdSelectSlf_;
  QLabel* lblLocationFile1_;
  QLineEdit* lblLocationsFile_;
  QPushButton* cmdSelectLocations_;
  QLabel* Label3_;
  QPushButton* cmdNext_;

  QPushButton* cmdConfigure_;
  QPushButton* cmdHelp_;
  QPushButton* cmdQuit_;
};

}  // namespace corvalin
