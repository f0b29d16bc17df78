#include "desktop/frmLocationWindow.h"

#include <QCloseEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/DrawControls.h"
#include "desktop/QtToolkit.h"
#include "screens/frmLocation.h"
#include "shell/Failure.h"

namespace corvalin {

namespace {

// A location's name and a stand list's path with room to spare.
constexpr int kLineCharacters = 80;

}  // namespace

frmLocationWindow::frmLocationWindow(frmLocation& screen) : ScreenWindow(screen) {
  setObjectName(QStringLiteral("frmLocation"));
  lstLocation_ = NewLineList(this, "lstLocation", QStringLiteral("Location File"), kLineCharacters);
  fraAddRecord_ = new QGroupBox(this);
  fraAddRecord_->setObjectName(QStringLiteral("fraAddRecord"));
  cmdInsertA_ = NewButton("cmdInsertA", &frmLocation::cmdInsertA_Click);
  fraEditRecord_ = new QGroupBox(this);
  fraEditRecord_->setObjectName(QStringLiteral("fraEditRecord"));
  cmdUp_ = NewButton("cmdUp", &frmLocation::cmdUp_Click);
  cmdDown_ = NewButton("cmdDown", &frmLocation::cmdDown_Click);
  cmdEdit_ = NewButton("cmdEdit", &frmLocation::cmdEdit_Click);
  cmdDelete_ = NewButton("cmdDelete", &frmLocation::cmdDelete_Click);
  cmdSave_ = NewButton("cmdSave", &frmLocation::cmdSave_Click);
  cmdHelp_ = NewButton("cmdHelp", &frmLocation::cmdHelp_Click);
  cmdQuit_ = NewButton("cmdQuit", &frmLocation::cmdQuit_Click);
  cmdBack_ = NewButton("cmdBack", &frmLocation::cmdBack_Click);
  cmdDone_ = NewButton("cmdDone", &frmLocation::cmdDone_Click);

  auto* add = new QVBoxLayout(fraAddRecord_);
  add->addWidget(cmdInsertA_);
  auto* edit = new QVBoxLayout(fraEditRecord_);
  for (QPushButton* button : {cmdUp_, cmdDown_, cmdEdit_, cmdDelete_}) edit->addWidget(button);
  auto* side = new QVBoxLayout;
  side->addWidget(fraAddRecord_);
  side->addWidget(fraEditRecord_);
  side->addStretch(1);
  side->addWidget(cmdSave_);

  auto* middle = new QHBoxLayout;
  middle->addWidget(lstLocation_, 1);
  middle->addLayout(side);

  auto* buttons = new QHBoxLayout;
  buttons->addWidget(cmdHelp_);
  buttons->addWidget(cmdQuit_);
  buttons->addStretch(1);
  buttons->addWidget(cmdBack_);
  buttons->addWidget(cmdDone_);

  auto* layout = new QVBoxLayout(this);
  layout->addLayout(middle, 1);
  layout->addLayout(buttons);
  resize(sizeHint().width(), 420);

  ConnectRecordList(
      lstLocation_,
      [this](int row) {
        Location().lstLocation.Select(row);
        Location().lstLocation_Click();
      },
      [this] { Location().lstLocation_DblClick(); });
}

frmLocation& frmLocationWindow::Location() const { return static_cast<frmLocation&>(*DrawnScreen()); }

QPushButton* frmLocationWindow::NewButton(const char* name, void (frmLocation::*event)()) {
  return ScreenWindow::NewButton(name, [this, event] { RunUnhandledEvent([this, event] { (Location().*event)(); }); });
}

void frmLocationWindow::Redraw(const ScreenChanges& changes) {
  if (!changes.controls || DrawnScreen() == nullptr) return;
  const frmLocation& s = Location();
  setWindowTitle(ToQt(s.Caption));
  DrawListBox(lstLocation_, s.lstLocation);
  fraAddRecord_->setTitle(ToQt(s.fraAddRecord.Caption));
  fraEditRecord_->setTitle(ToQt(s.fraEditRecord.Caption));
  DrawButton(cmdInsertA_, s.cmdInsertA);
  DrawButton(cmdUp_, s.cmdUp);
  DrawButton(cmdDown_, s.cmdDown);
  DrawButton(cmdEdit_, s.cmdEdit);
  DrawButton(cmdDelete_, s.cmdDelete);
  DrawButton(cmdSave_, s.cmdSave);
  DrawButton(cmdHelp_, s.cmdHelp);
  DrawButton(cmdQuit_, s.cmdQuit);
  DrawButton(cmdBack_, s.cmdBack);
  DrawButton(cmdDone_, s.cmdDone);
}

void frmLocationWindow::closeEvent(QCloseEvent* event) {
  // The close box asks the quit question; the window itself stays.
  event->ignore();
  if (DrawnScreen() == nullptr) return;
  frmLocation& location = Location();
  Fire([&] { RunUnhandledEvent([&] { location.Form_QueryUnload(CloseReason::ControlMenu); }); });
}

}  // namespace corvalin
