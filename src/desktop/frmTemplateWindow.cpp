#include "desktop/frmTemplateWindow.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/DrawControls.h"
#include "desktop/QtToolkit.h"
#include "screens/frmTemplate.h"

namespace corvalin {

frmTemplateWindow::frmTemplateWindow(frmTemplate& screen) : ScreenWindow(screen) {
  setObjectName(QStringLiteral("frmTemplate"));

  chkTranslateFile_ = NewCheck("chkTranslateFile", &frmTemplate::chkTranslateFile, &frmTemplate::chkTranslateFile_Click);
  fraTranslateFile_ = new QGroupBox(this);
  fraTranslateFile_->setObjectName(QStringLiteral("fraTranslateFile"));
  lblInputFile1_ = NewLabel(this, "lblInputFile1");
  lblInputFile_ = NewPathField(this, "lblInputFile");
  cmdChangeInput_ = NewButton("cmdChangeInput", &frmTemplate::cmdChangeInput_Click);
  chkNoInput_ = NewCheck("chkNoInput", &frmTemplate::chkNoInput, &frmTemplate::chkNoInput_Click);
  lblOutputFile1_ = NewLabel(this, "lblOutputFile1");
  lblOutputFile_ = NewPathField(this, "lblOutputFile");
  cmdChangeOutput_ = NewButton("cmdChangeOutput", &frmTemplate::cmdChangeOutput_Click);
  lblTemplateFile1_ = NewLabel(this, "lblTemplateFile1");
  cmbTemplate_ = new QComboBox(this);
  cmbTemplate_->setObjectName(QStringLiteral("cmbTemplate"));
  cmbTemplate_->setMinimumWidth(180);
  cmdDeleteTemplate_ = NewButton("cmdDeleteTemplate", &frmTemplate::cmdDeleteTemplate_Click);
  Label2_ = NewLabel(this, "Label2");
  cmdFinish_ = NewButton("cmdFinish", &frmTemplate::cmdFinish_Click);
  cmdNextTrans_ = NewButton("cmdNextTrans", &frmTemplate::cmdNextTrans_Click);

  chkEditStandListFile_ =
      NewCheck("chkEditStandListFile", &frmTemplate::chkEditStandListFile, &frmTemplate::chkEditStandListFile_Click);
  fraEditStandListFile_ = new QGroupBox(this);
  fraEditStandListFile_->setObjectName(QStringLiteral("fraEditStandListFile"));
  Label1_ = NewLabel(this, "Label1");
  lblWorkingDirectory_ = NewPathField(this, "lblWorkingDirectory");
  lblStandListFile1_ = NewLabel(this, "lblStandListFile1");
  lblSlfFile_ = NewPathField(this, "lblSlfFile");
  cmdSelectSlf_ = NewButton("cmdSelectSlf", &frmTemplate::cmdSelectSlf_Click);
  lblLocationFile1_ = NewLabel(this, "lblLocationFile1");
  lblLocationsFile_ = NewPathField(this, "lblLocationsFile");
  cmdSelectLocations_ = NewButton("cmdSelectLocations", &frmTemplate::cmdSelectLocations_Click);
  Label3_ = NewLabel(this, "Label3");
  cmdNext_ = NewButton("cmdNext", &frmTemplate::cmdNext_Click);

  cmdConfigure_ = NewButton("cmdConfigure", &frmTemplate::cmdConfigure_Click);
  cmdHelp_ = NewButton("cmdHelp", &frmTemplate::cmdHelp_Click);
  cmdQuit_ = NewButton("cmdQuit", &frmTemplate::cmdQuit_Click);

  // The translate group: the input, the output, the template, then on.
  auto* translate = new QGridLayout(fraTranslateFile_);
  translate->addWidget(lblInputFile1_, 0, 0);
  translate->addWidget(lblInputFile_, 0, 1);
  translate->addWidget(cmdChangeInput_, 0, 2);
  translate->addWidget(chkNoInput_, 1, 1);
  translate->addWidget(lblOutputFile1_, 2, 0);
  translate->addWidget(lblOutputFile_, 2, 1);
  translate->addWidget(cmdChangeOutput_, 2, 2);
  auto* templateRow = new QHBoxLayout;
  templateRow->addWidget(cmbTemplate_);
  templateRow->addWidget(cmdDeleteTemplate_);
  templateRow->addStretch(1);
  translate->addWidget(lblTemplateFile1_, 3, 0);
  translate->addLayout(templateRow, 3, 1, 1, 2);
  auto* translateOn = new QHBoxLayout;
  translateOn->addWidget(Label2_, 1);
  translateOn->addWidget(cmdFinish_);
  translateOn->addWidget(cmdNextTrans_);
  translate->addLayout(translateOn, 4, 0, 1, 3);
  translate->setColumnStretch(1, 1);

  // The edit group: the folder, the stand list and the location files.
  auto* edit = new QGridLayout(fraEditStandListFile_);
  edit->addWidget(Label1_, 0, 0);
  edit->addWidget(lblWorkingDirectory_, 0, 1);
  edit->addWidget(lblStandListFile1_, 1, 0);
  edit->addWidget(lblSlfFile_, 1, 1);
  edit->addWidget(cmdSelectSlf_, 1, 2);
  edit->addWidget(lblLocationFile1_, 2, 0);
  edit->addWidget(lblLocationsFile_, 2, 1);
  edit->addWidget(cmdSelectLocations_, 2, 2);
  auto* editOn = new QHBoxLayout;
  editOn->addWidget(Label3_, 1);
  editOn->addWidget(cmdNext_);
  edit->addLayout(editOn, 3, 0, 1, 3);
  edit->setColumnStretch(1, 1);

  auto* buttons = new QHBoxLayout;
  buttons->addWidget(cmdConfigure_);
  buttons->addStretch(1);
  buttons->addWidget(cmdHelp_);
  buttons->addWidget(cmdQuit_);

  // Each group's check box, right above it, is its heading.
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(chkTranslateFile_);
  layout->addWidget(fraTranslateFile_);
  layout->addSpacing(6);
  layout->addWidget(chkEditStandListFile_);
  layout->addWidget(fraEditStandListFile_);
  layout->addSpacing(6);
  layout->addLayout(buttons);

  connect(cmbTemplate_, &QComboBox::activated, this, [this](int index) {
    Fire([this, index] {
      Setup().cmbTemplate.Select(index);
      Setup().cmbTemplate_Click();
    });
  });
}

frmTemplate& frmTemplateWindow::Setup() const { return static_cast<frmTemplate&>(*DrawnScreen()); }

QPushButton* frmTemplateWindow::NewButton(const char* name, void (frmTemplate::*event)()) {
  return ScreenWindow::NewButton(name, [this, event] { (Setup().*event)(); });
}

QCheckBox* frmTemplateWindow::NewCheck(const char* name, CheckBox frmTemplate::*box, void (frmTemplate::*event)()) {
  auto* check = new QCheckBox(this);
  check->setObjectName(QString::fromLatin1(name));
  OnPersonChange(check, this, [this, box, event](bool checked) {
    Fire([this, box, event, checked] {
      (Setup().*box).Value = checked ? 1 : 0;
      (Setup().*event)();
    });
  });
  return check;
}

void frmTemplateWindow::Redraw(const ScreenChanges& changes) {
  if (!changes.controls) return;
  const frmTemplate& s = Setup();
  setWindowTitle(ToQt(s.Caption));
  DrawCheck(chkTranslateFile_, s.chkTranslateFile);
  DrawState(fraTranslateFile_, s.fraTranslateFile);
  DrawCaption(lblInputFile1_, s.lblInputFile1);
  DrawPath(lblInputFile_, s.lblInputFile);
  DrawButton(cmdChangeInput_, s.cmdChangeInput);
  DrawCheck(chkNoInput_, s.chkNoInput);
  DrawCaption(lblOutputFile1_, s.lblOutputFile1);
  DrawPath(lblOutputFile_, s.lblOutputFile);
  DrawButton(cmdChangeOutput_, s.cmdChangeOutput);
  DrawCaption(lblTemplateFile1_, s.lblTemplateFile1);
  DrawList(cmbTemplate_, s.cmbTemplate);
  DrawButton(cmdDeleteTemplate_, s.cmdDeleteTemplate);
  DrawCaption(Label2_, s.Label2);
  DrawButton(cmdFinish_, s.cmdFinish);
  DrawButton(cmdNextTrans_, s.cmdNextTrans);

  DrawCheck(chkEditStandListFile_, s.chkEditStandListFile);
  DrawState(fraEditStandListFile_, s.fraEditStandListFile);
  DrawCaption(Label1_, s.Label1);
  DrawPath(lblWorkingDirectory_, s.lblWorkingDirectory);
  DrawCaption(lblStandListFile1_, s.lblStandListFile1);
  DrawPath(lblSlfFile_, s.lblSlfFile);
  DrawButton(cmdSelectSlf_, s.cmdSelectSlf);
  DrawCaption(lblLocationFile1_, s.lblLocationFile1);
  DrawPath(lblLocationsFile_, s.lblLocationsFile);
  DrawButton(cmdSelectLocations_, s.cmdSelectLocations);
  DrawCaption(Label3_, s.Label3);
  DrawButton(cmdNext_, s.cmdNext);

  DrawButton(cmdConfigure_, s.cmdConfigure);
  DrawButton(cmdHelp_, s.cmdHelp);
  DrawButton(cmdQuit_, s.cmdQuit);
}

void frmTemplateWindow::closeEvent(QCloseEvent* event) {
  // Closing the first screen is a wish to quit: the question is asked, and
  // the window stays; the process ends only through the answer Yes.
  event->ignore();
  if (DrawnScreen() != nullptr) Fire([this] { Setup().CloseRequested(); });
}

}  // namespace corvalin
