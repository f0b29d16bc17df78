#include "desktop/frmConfigureWindow.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "desktop/DrawControls.h"
#include "desktop/QtToolkit.h"
#include "screens/frmConfigure.h"

namespace corvalin {

frmConfigureWindow::frmConfigureWindow(frmConfigure& screen) : ScreenWindow(screen) {
  setObjectName(QStringLiteral("frmConfigure"));

  chkTranslateFile_ = new QCheckBox(this);
  chkTranslateFile_->setObjectName(QStringLiteral("chkTranslateFile"));
  fraTranslate_ = new QGroupBox(this);
  fraTranslate_->setObjectName(QStringLiteral("fraTranslate"));
  Label2_ = NewLabel(this, "Label2");
  lblInputFile_ = NewPathField(this, "lblInputFile");
  cmdSelectInputFile_ = NewButton("cmdSelectInputFile", &frmConfigure::cmdSelectInputFile_Click);
  Label3_ = NewLabel(this, "Label3");
  lblOutputFile_ = NewPathField(this, "lblOutputFile");
  cmdSelectOutputFile_ = NewButton("cmdSelectOutputFile", &frmConfigure::cmdSelectOutputFile_Click);
  Label11_ = NewLabel(this, "Label11");
  Label4_ = NewLabel(this, "Label4");
  txtInputFileExtensions_ = new QLineEdit(this);
  txtInputFileExtensions_->setObjectName(QStringLiteral("txtInputFileExtensions"));
  Label7_ = NewLabel(this, "Label7");
  txtOutputFileExtensions_ = new QLineEdit(this);
  txtOutputFileExtensions_->setObjectName(QStringLiteral("txtOutputFileExtensions"));
  Label8_ = NewLabel(this, "Label8");
  cmbTemplate_ = new QComboBox(this);
  cmbTemplate_->setObjectName(QStringLiteral("cmbTemplate"));
  Label9_ = NewLabel(this, "Label9");
  cmbVariant_ = new QComboBox(this);
  cmbVariant_->setObjectName(QStringLiteral("cmbVariant"));
  Label10_ = NewLabel(this, "Label10");
  optMetric_ = new QRadioButton(this);
  optMetric_->setObjectName(QStringLiteral("optMetric"));
  optImperial_ = new QRadioButton(this);
  optImperial_->setObjectName(QStringLiteral("optImperial"));
  auto* units = new QButtonGroup(this);
  units->addButton(optMetric_);
  units->addButton(optImperial_);
  Label12_ = NewLabel(this, "Label12");

  chkEditStandListFile_ = new QCheckBox(this);
  chkEditStandListFile_->setObjectName(QStringLiteral("chkEditStandListFile"));
  fraEditMarlowyn_ = new QGroupBox(this);
  fraEditMarlowyn_->setObjectName(QStringLiteral("fraEditMarlowyn"));
  Label1_ = NewLabel(this, "Label1");
  lblWorkingDirectory_ = NewPathField(this, "lblWorkingDirectory");
  cmdSelectWorkingDir_ = NewButton("cmdSelectWorkingDir", &frmConfigure::cmdSelectWorkingDir_Click);
  Label5_ = NewLabel(this, "Label5");
  lblStandListFile_ = NewPathField(this, "lblStandListFile");
  cmdSelectStandListFile_ = NewButton("cmdSelectStandListFile", &frmConfigure::cmdSelectStandListFile_Click);
  cmdClearStandListFile_ = NewButton("cmdClearStandListFile", &frmConfigure::cmdClearStandListFile_Click);
  Label6_ = NewLabel(this, "Label6");
  lblLocationFile_ = NewPathField(this, "lblLocationFile");
  cmdSelectLocationFile_ = NewButton("cmdSelectLocationFile", &frmConfigure::cmdSelectLocationFile_Click);
  cmdClearLocationFile_ = NewButton("cmdClearLocationFile", &frmConfigure::cmdClearLocationFile_Click);

  cmdOk_ = NewButton("cmdOk", &frmConfigure::cmdOk_Click);
  cmdOk_->setDefault(true);
  cmdCancel_ = NewButton("cmdCancel", &frmConfigure::cmdCancel_Click);
  cmdHelp_ = NewButton("cmdHelp", &frmConfigure::cmdHelp_Click);

  auto* translate = new QGridLayout(fraTranslate_);
  translate->addWidget(Label2_, 0, 0);
  translate->addWidget(lblInputFile_, 0, 1, 1, 2);
  translate->addWidget(cmdSelectInputFile_, 0, 3);
  translate->addWidget(Label3_, 1, 0);
  translate->addWidget(lblOutputFile_, 1, 1, 1, 2);
  translate->addWidget(cmdSelectOutputFile_, 1, 3);
  translate->addWidget(Label11_, 2, 0, 1, 4);
  translate->addWidget(Label4_, 3, 0);
  translate->addWidget(txtInputFileExtensions_, 3, 1, 1, 3);
  translate->addWidget(Label7_, 4, 0);
  translate->addWidget(txtOutputFileExtensions_, 4, 1, 1, 3);
  translate->addWidget(Label8_, 5, 0);
  translate->addWidget(cmbTemplate_, 5, 1);
  translate->addWidget(Label9_, 6, 0);
  translate->addWidget(cmbVariant_, 6, 1);
  translate->addWidget(Label10_, 7, 0);
  auto* unitRow = new QHBoxLayout;
  unitRow->addWidget(optMetric_);
  unitRow->addWidget(optImperial_);
  unitRow->addStretch(1);
  translate->addLayout(unitRow, 7, 1, 1, 3);
  translate->addWidget(Label12_, 8, 0, 1, 4);
  translate->setColumnStretch(2, 1);

  auto* edit = new QGridLayout(fraEditMarlowyn_);
  edit->addWidget(Label1_, 0, 0);
  edit->addWidget(lblWorkingDirectory_, 0, 1);
  edit->addWidget(cmdSelectWorkingDir_, 0, 2);
  edit->addWidget(Label5_, 1, 0);
  edit->addWidget(lblStandListFile_, 1, 1);
  edit->addWidget(cmdSelectStandListFile_, 1, 2);
  edit->addWidget(cmdClearStandListFile_, 1, 3);
  edit->addWidget(Label6_, 2, 0);
  edit->addWidget(lblLocationFile_, 2, 1);
  edit->addWidget(cmdSelectLocationFile_, 2, 2);
  edit->addWidget(cmdClearLocationFile_, 2, 3);
  edit->setColumnStretch(1, 1);

  auto* buttons = new QHBoxLayout;
  buttons->addWidget(cmdHelp_);
  buttons->addStretch(1);
  buttons->addWidget(cmdOk_);
  buttons->addWidget(cmdCancel_);

  // Each group's check box, right above it, is its heading.
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(chkTranslateFile_);
  layout->addWidget(fraTranslate_);
  layout->addSpacing(6);
  layout->addWidget(chkEditStandListFile_);
  layout->addWidget(fraEditMarlowyn_);
  layout->addSpacing(6);
  layout->addLayout(buttons);

  OnPersonChange(chkTranslateFile_, this, [this](bool on) {
    Fire([this, on] {
      Defaults().chkTranslateFile.Value = on ? 1 : 0;
      Defaults().chkTranslateFile_Click();
    });
  });
  OnPersonChange(chkEditStandListFile_, this, [this](bool on) {
    Fire([this, on] {
      Defaults().chkEditStandListFile.Value = on ? 1 : 0;
      Defaults().chkEditStandListFile_Click();
    });
  });
  // Typing, choosing and the options only change the controls: what they
  // hold is saved by "Set Defaults".
  connect(txtInputFileExtensions_, &QLineEdit::textEdited, this, [this](const QString& text) {
    Fire([this, text] { Defaults().txtInputFileExtensions.Text = text.toLatin1().toStdString(); });
  });
  connect(txtOutputFileExtensions_, &QLineEdit::textEdited, this, [this](const QString& text) {
    Fire([this, text] { Defaults().txtOutputFileExtensions.Text = text.toLatin1().toStdString(); });
  });
  connect(cmbTemplate_, &QComboBox::activated, this,
          [this](int index) { Fire([this, index] { Defaults().cmbTemplate.Select(index); }); });
  connect(cmbVariant_, &QComboBox::activated, this,
          [this](int index) { Fire([this, index] { Defaults().cmbVariant.Select(index); }); });
  OnPersonChange(optMetric_, this, [this](bool) {
    Fire([this] {
      Defaults().optMetric.Value = true;
      Defaults().optImperial.Value = false;
    });
  });
  OnPersonChange(optImperial_, this, [this](bool) {
    Fire([this] {
      Defaults().optMetric.Value = false;
      Defaults().optImperial.Value = true;
    });
  });
}

frmConfigure& frmConfigureWindow::Defaults() const { return static_cast<frmConfigure&>(*DrawnScreen()); }

QPushButton* frmConfigureWindow::NewButton(const char* name, void (frmConfigure::*event)()) {
  return ScreenWindow::NewButton(name, [this, event] { (Defaults().*event)(); });
}

void frmConfigureWindow::Redraw(const ScreenChanges& changes) {
  if (!changes.controls) return;
  const frmConfigure& s = Defaults();
  setWindowTitle(ToQt(s.Caption));
  DrawCheck(chkTranslateFile_, s.chkTranslateFile);
  DrawState(fraTranslate_, s.fraTranslate);
  DrawCaption(Label2_, s.Label2);
  DrawPath(lblInputFile_, s.lblInputFile);
  DrawButton(cmdSelectInputFile_, s.cmdSelectInputFile);
  DrawCaption(Label3_, s.Label3);
  DrawPath(lblOutputFile_, s.lblOutputFile);
  DrawButton(cmdSelectOutputFile_, s.cmdSelectOutputFile);
  DrawCaption(Label11_, s.Label11);
  DrawCaption(Label4_, s.Label4);
  DrawText(txtInputFileExtensions_, s.txtInputFileExtensions);
  DrawCaption(Label7_, s.Label7);
  DrawText(txtOutputFileExtensions_, s.txtOutputFileExtensions);
  DrawCaption(Label8_, s.Label8);
  DrawList(cmbTemplate_, s.cmbTemplate);
  DrawCaption(Label9_, s.Label9);
  DrawList(cmbVariant_, s.cmbVariant);
  DrawCaption(Label10_, s.Label10);
  DrawOption(optMetric_, s.optMetric);
  DrawOption(optImperial_, s.optImperial);
  DrawCaption(Label12_, s.Label12);

  DrawCheck(chkEditStandListFile_, s.chkEditStandListFile);
  DrawState(fraEditMarlowyn_, s.fraEditMarlowyn);
  DrawCaption(Label1_, s.Label1);
  DrawPath(lblWorkingDirectory_, s.lblWorkingDirectory);
  DrawButton(cmdSelectWorkingDir_, s.cmdSelectWorkingDir);
  DrawCaption(Label5_, s.Label5);
  DrawPath(lblStandListFile_, s.lblStandListFile);
  DrawButton(cmdSelectStandListFile_, s.cmdSelectStandListFile);
  DrawButton(cmdClearStandListFile_, s.cmdClearStandListFile);
  DrawCaption(Label6_, s.Label6);
  DrawPath(lblLocationFile_, s.lblLocationFile);
  DrawButton(cmdSelectLocationFile_, s.cmdSelectLocationFile);
  DrawButton(cmdClearLocationFile_, s.cmdClearLocationFile);

  DrawButton(cmdOk_, s.cmdOk);
  DrawButton(cmdCancel_, s.cmdCancel);
  DrawButton(cmdHelp_, s.cmdHelp);
}

void frmConfigureWindow::closeEvent(QCloseEvent* event) {
  // The close box is a wish to quit the program: the question, and the
  // window stays.
  event->ignore();
  if (DrawnScreen() != nullptr) Fire([this] { Defaults().Form_QueryUnload(CloseReason::ControlMenu); });
}

}  // namespace corvalin
