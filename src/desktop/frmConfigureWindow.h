// The window of frmConfigure, the defaults: the translate defaults (folders,
// dialog entries, template, variant, units), then the stand list defaults,
// then "Set Defaults", Cancel and Help. It runs modally.
#pragma once

#include "desktop/ScreenWindow.h"

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace corvalin {

class frmConfigure;

class frmConfigureWindow : public ScreenWindow {
  Q_OBJECT

 public:
  explicit frmConfigureWindow(frmConfigure& screen);

 protected:
  void Redraw(const ScreenChanges& changes) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  frmConfigure& Defaults() const;
  QPushButton* NewButton(const char* name, void (frmConfigure::*event)());

  QCheckBox* chkTranslateFile_;
  QGroupBox* fraTranslate_;
  QLabel* Label2_;
  QLineEdit* lblInputFile_;
  QPushButton* cmdSelectInputFile_;
  QLabel* Label3_;
  QLineEdit* lblOutputFile_;
  QPushButton* cmdSelectOutputFile_;
  QLabel* Label11_;
  QLabel* Label4_;
  QLineEdit* txtInputFileExtensions_;
  QLabel* Label7_;
  QLineEdit* txtOutputFileExtensions_;
  QLabel* Label8_;
  QComboBox* cmbTemplate_;
  QLabel* Label9_;
  QComboBox* cmbVariant_;
  QLabel* Label10_;
  QRadioButton* optMetric_;
  QRadioButton* optImperial_;
  QLabel* Label12_;

  QCheckBox* chkEditStandListFile_;
  QGroupBox* fraEditMarlowyn_;
  QLabel* Label1_;
  QLineEdit* lblWorkingDirectory_;
  QPushButton* cmdSelectWorkingDir_;
  QLabel* Label5_;
  QLineEdit* lblStandListFile_;
  QPushButton* cmdSelectStandListFile_;
  QPushButton* cmdClearStandListFile_;
  QLabel* Label6_;
  QLineEdit* lblLocationFile_;
  QPushButton* cmdSelectLocationFile_;
  QPushButton* cmdClearLocationFile_;

  QPushButton* cmdOk_;
  QPushButton* cmdCancel_;
  QPushButton* cmdHelp_;
};

}  // namespace corvalin
