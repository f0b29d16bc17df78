#include "desktop/frmSlfWindow.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/DrawControls.h"
#include "desktop/QtToolkit.h"
#include "screens/frmSlf.h"
#include "shell/Failure.h"

namespace corvalin {

namespace {

// Wide enough for a whole record B, the longest of the four.
constexpr int kLineCharacters = 96;

}  // namespace

frmSlfWindow::frmSlfWindow(frmSlf& screen) : ScreenWindow(screen) {
  setObjectName(QStringLiteral("frmSlf"));
  lblVariant_ = NewLabel(this, "lblVariant");
  cmbVariant_ = new QComboBox(this);
  cmbVariant_->setObjectName(QStringLiteral("cmbVariant"));
  lstSlf_ = NewLineList(this, "lstSlf", QStringLiteral("Stand List File"), kLineCharacters);
  fraAddRecord_ = new QGroupBox(this);
  fraAddRecord_->setObjectName(QStringLiteral("fraAddRecord"));
  cmdInsertA_ = NewButton("cmdInsertA", &frmSlf::cmdInsertA_Click);
  cmdInsertB_ = NewButton("cmdInsertB", &frmSlf::cmdInsertB_Click);
  cmdInsertC_ = NewButton("cmdInsertC", &frmSlf::cmdInsertC_Click);
  cmdInsertD_ = NewButton("cmdInsertD", &frmSlf::cmdInsertD_Click);
  fraEditRecord_ = new QGroupBox(this);
  fraEditRecord_->setObjectName(QStringLiteral("fraEditRecord"));
  cmdUp_ = NewButton("cmdUp", &frmSlf::cmdUp_Click);
  cmdDown_ = NewButton("cmdDown", &frmSlf::cmdDown_Click);
  cmdEdit_ = NewButton("cmdEdit", &frmSlf::cmdEdit_Click);
  cmdDelete_ = NewButton("cmdDelete", &frmSlf::cmdDelete_Click);
  cmdValidate_ = NewButton("cmdValidate", &frmSlf::cmdValidate_Click);
  cmdSave_ = NewButton("cmdSave", &frmSlf::cmdSave_Click);
  cmdHelp_ = NewButton("cmdHelp", &frmSlf::cmdHelp_Click);
  cmdQuit_ = NewButton("cmdQuit", &frmSlf::cmdQuit_Click);
  cmdBack_ = NewButton("cmdBack", &frmSlf::cmdBack_Click);
  cmbNext_ = NewButton("cmbNext", &frmSlf::cmbNext_Click);

  auto* variantRow = new QHBoxLayout;
  variantRow->addWidget(lblVariant_);
  variantRow->addWidget(cmbVariant_);
  variantRow->addStretch(1);

  auto* add = new QVBoxLayout(fraAddRecord_);
  for (QPushButton* button : {cmdInsertA_, cmdInsertB_, cmdInsertC_, cmdInsertD_}) add->addWidget(button);
  auto* edit = new QVBoxLayout(fraEditRecord_);
  for (QPushButton* button : {cmdUp_, cmdDown_, cmdEdit_, cmdDelete_}) edit->addWidget(button);
  auto* side = new QVBoxLayout;
  side->addWidget(fraAddRecord_);
  side->addWidget(fraEditRecord_);
  side->addStretch(1);
  side->addWidget(cmdValidate_);
  side->addWidget(cmdSave_);

  auto* middle = new QHBoxLayout;
  middle->addWidget(lstSlf_, 1);
  middle->addLayout(side);

  auto* buttons = new QHBoxLayout;
  buttons->addWidget(cmdHelp_);
  buttons->addWidget(cmdQuit_);
  buttons->addStretch(1);
  buttons->addWidget(cmdBack_);
  buttons->addWidget(cmbNext_);

  auto* layout = new QVBoxLayout(this);
  layout->addLayout(variantRow);
  layout->addLayout(middle, 1);
  layout->addLayout(buttons);
  resize(sizeHint().width(), 520);

  connect(cmbVariant_, &QComboBox::activated, this, [this](int index) {
    if (DrawnScreen() == nullptr) return;
    frmSlf& slf = Slf();
    Fire([&] { RunUnhandledEvent([&] { slf.SelectVariant(index); }); });
  });
  ConnectRecordList(
      lstSlf_,
      [this](int row) {
        Slf().lstSlf.Select(row);
        Slf().lstSlf_Click();
      },
      [this] { Slf().lstSlf_DblClick(); });
}

frmSlf& frmSlfWindow::Slf() const { return static_cast<frmSlf&>(*DrawnScreen()); }

QPushButton* frmSlfWindow::NewButton(const char* name, void (frmSlf::*event)()) {
  // An error that no handler of the screen takes ends the program after its
  // box, never in the middle of Qt's loop.
  return ScreenWindow::NewButton(name, [this, event] { RunUnhandledEvent([this, event] { (Slf().*event)(); }); });
}

void frmSlfWindow::Redraw(const ScreenChanges& changes) {
  if (!changes.controls || DrawnScreen() == nullptr) return;
  const frmSlf& s = Slf();
  setWindowTitle(ToQt(s.Caption));
  DrawCaption(lblVariant_, s.lblVariant);
  DrawList(cmbVariant_, s.cmbVariant);
  DrawListBox(lstSlf_, s.lstSlf);
  fraAddRecord_->setTitle(ToQt(s.fraAddRecord.Caption));
  fraEditRecord_->setTitle(ToQt(s.fraEditRecord.Caption));
  DrawButton(cmdInsertA_, s.cmdInsertA);
  DrawButton(cmdInsertB_, s.cmdInsertB);
  DrawButton(cmdInsertC_, s.cmdInsertC);
  DrawButton(cmdInsertD_, s.cmdInsertD);
  DrawButton(cmdUp_, s.cmdUp);
  DrawButton(cmdDown_, s.cmdDown);
  DrawButton(cmdEdit_, s.cmdEdit);
  DrawButton(cmdDelete_, s.cmdDelete);
  DrawButton(cmdValidate_, s.cmdValidate);
  DrawButton(cmdSave_, s.cmdSave);
  DrawButton(cmdHelp_, s.cmdHelp);
  DrawButton(cmdQuit_, s.cmdQuit);
  DrawButton(cmdBack_, s.cmdBack);
  DrawButton(cmbNext_, s.cmbNext);
}

void frmSlfWindow::closeEvent(QCloseEvent* event) {
  // The close box asks the quit question; the window itself stays.
  event->ignore();
  if (DrawnScreen() == nullptr) return;
  frmSlf& slf = Slf();
  Fire([&] { RunUnhandledEvent([&] { slf.Form_QueryUnload(CloseReason::ControlMenu); }); });
}

}  // namespace corvalin
