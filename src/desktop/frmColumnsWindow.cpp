#include "desktop/frmColumnsWindow.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "desktop/ColumnPreview.h"
#include "desktop/DrawControls.h"
#include "desktop/QtToolkit.h"
#include "screens/frmColumns.h"

namespace corvalin {

frmColumnsWindow::frmColumnsWindow(frmColumns& screen) : ScreenWindow(screen) {
  setObjectName(QStringLiteral("frmColumns"));

  lblInputFile_ = NewPathField(this, "lblInputFile");
  optCharacterDelimited_ = new QRadioButton(this);
  optCharacterDelimited_->setObjectName(QStringLiteral("optCharacterDelimited"));
  optFixedWidth_ = new QRadioButton(this);
  optFixedWidth_->setObjectName(QStringLiteral("optFixedWidth"));
  auto* mode = new QButtonGroup(this);
  mode->addButton(optCharacterDelimited_);
  mode->addButton(optFixedWidth_);
  fraCharacterDelimiters_ = new QGroupBox(QStringLiteral("Delimiters"), this);
  fraCharacterDelimiters_->setObjectName(QStringLiteral("fraCharacterDelimiters"));
  chkTab_ = NewCheck("chkTab", &frmColumns::chkTab, &frmColumns::chkTab_Click);
  chkComma_ = NewCheck("chkComma", &frmColumns::chkComma, &frmColumns::chkComma_Click);
  chkSemicolon_ = NewCheck("chkSemicolon", &frmColumns::chkSemicolon, &frmColumns::chkSemicolon_Click);
  chkSpace_ = NewCheck("chkSpace", &frmColumns::chkSpace, &frmColumns::chkSpace_Click);
  chkOther_ = NewCheck("chkOther", &frmColumns::chkOther, &frmColumns::chkOther_Click);
  txtOtherCharacter_ = new QLineEdit(this);
  txtOtherCharacter_->setObjectName(QStringLiteral("txtOtherCharacter"));
  txtOtherCharacter_->setMaximumWidth(60);
  chkConsecutiveAsOne_ =
      NewCheck("chkConsecutiveAsOne", &frmColumns::chkConsecutiveAsOne, &frmColumns::chkConsecutiveAsOne_Click);
  lblTextQualifiers_ = new QLabel(this);
  lblTextQualifiers_->setObjectName(QStringLiteral("lblTextQualifiers"));
  cmbTextQualifiers_ = new QComboBox(this);
  cmbTextQualifiers_->setObjectName(QStringLiteral("cmbTextQualifiers"));
  lblTextQualifiers_->setBuddy(cmbTextQualifiers_);

  // The width of a preview character is measured before the screen loads:
  // the load places the markers with it.
  preview_ = new ColumnPreview(screen, this);
  preview_->setAccessibleName(QStringLiteral("File preview"));
  screen.CharacterWidth = preview_->CharacterWidth();
  VScroll1_ = new QScrollBar(Qt::Vertical, this);
  VScroll1_->setObjectName(QStringLiteral("VScroll1"));
  scrFileViewHorizontal_ = new QScrollBar(Qt::Horizontal, this);
  scrFileViewHorizontal_->setObjectName(QStringLiteral("scrFileViewHorizontal"));

  cmdHelp_ = NewButton("cmdHelp", &frmColumns::cmdHelp_Click);
  cmdQuit_ = NewButton("cmdQuit", &frmColumns::cmdQuit_Click);
  cmdBack_ = NewButton("cmdBack", &frmColumns::cmdBack_Click);
  cmdNext_ = NewButton("cmdNext", &frmColumns::cmdNext_Click);
  cmdFinish_ = NewButton("cmdFinish", &frmColumns::cmdFinish_Click);

  auto* inputRow = new QHBoxLayout;
  auto* inputCaption = new QLabel(QStringLiteral("Input File:"), this);
  inputRow->addWidget(inputCaption);
  inputRow->addWidget(lblInputFile_, 1);

  auto* modeRow = new QHBoxLayout;
  modeRow->addWidget(optCharacterDelimited_);
  modeRow->addWidget(optFixedWidth_);
  modeRow->addStretch(1);

  auto* delimiters = new QGridLayout(fraCharacterDelimiters_);
  delimiters->addWidget(chkTab_, 0, 0);
  delimiters->addWidget(chkComma_, 0, 1);
  delimiters->addWidget(chkSemicolon_, 0, 2);
  delimiters->addWidget(chkSpace_, 0, 3);
  auto* other = new QHBoxLayout;
  other->addWidget(chkOther_);
  other->addWidget(txtOtherCharacter_);
  other->addStretch(1);
  delimiters->addLayout(other, 0, 4);
  delimiters->addWidget(chkConsecutiveAsOne_, 1, 0, 1, 3);
  auto* qualifier = new QHBoxLayout;
  qualifier->addWidget(lblTextQualifiers_);
  qualifier->addWidget(cmbTextQualifiers_);
  qualifier->addStretch(1);
  delimiters->addLayout(qualifier, 1, 3, 1, 2);

  // How to set the markers, read left to right before the preview.
  auto* how = new QHBoxLayout;
  for (const char* text : {"To edit column markers in the preview area:", "Click to place column markers",
                           "Click and drag to move", "Double click to delete"}) {
    auto* label = new QLabel(QString::fromLatin1(text), this);
    if (how->count() == 0) label->setStyleSheet(QStringLiteral("font-weight: bold"));
    how->addWidget(label);
    how->addSpacing(12);
  }
  how->addStretch(1);

  auto* previewGrid = new QGridLayout;
  previewGrid->setSpacing(0);
  previewGrid->addWidget(preview_, 0, 0);
  previewGrid->addWidget(VScroll1_, 0, 1);
  previewGrid->addWidget(scrFileViewHorizontal_, 1, 0);

  auto* buttons = new QHBoxLayout;
  buttons->addWidget(cmdHelp_);
  buttons->addWidget(cmdQuit_);
  buttons->addStretch(1);
  buttons->addWidget(cmdBack_);
  buttons->addWidget(cmdNext_);
  buttons->addWidget(cmdFinish_);

  auto* layout = new QVBoxLayout(this);
  layout->addLayout(inputRow);
  layout->addLayout(modeRow);
  layout->addWidget(fraCharacterDelimiters_);
  layout->addLayout(how);
  layout->addLayout(previewGrid);
  layout->addLayout(buttons);

  OnPersonChange(optCharacterDelimited_, this, [this](bool) { Fire([this] { Columns().optCharacterDelimited_Click(); }); });
  OnPersonChange(optFixedWidth_, this, [this](bool) { Fire([this] { Columns().optFixedWidth_Click(); }); });
  connect(txtOtherCharacter_, &QLineEdit::textEdited, this, [this](const QString& text) {
    Fire([this, text] {
      Columns().txtOtherCharacter.Text = text.toLatin1().toStdString();
      Columns().txtOtherCharacter_Change();
    });
  });
  connect(cmbTextQualifiers_, &QComboBox::activated, this, [this](int index) {
    Fire([this, index] {
      Columns().cmbTextQualifiers.Select(index);
      Columns().cmbTextQualifiers_Click();
    });
  });
  connect(VScroll1_, &QScrollBar::valueChanged, this, [this](int value) {
    Fire([this, value] {
      Columns().VScroll1.Value = value;
      Columns().VScroll1_Change();
    });
  });
  connect(preview_, &ColumnPreview::WheelLines, this,
          [this](int lines) { VScroll1_->setValue(VScroll1_->value() + lines); });
  connect(scrFileViewHorizontal_, &QScrollBar::valueChanged, this, [this](int value) {
    Fire([this, value] {
      Columns().scrFileViewHorizontal.Value = value;
      Columns().scrFileViewHorizontal_Change();
    });
  });
  resize(860, sizeHint().height());
}

frmColumnsWindow::~frmColumnsWindow() { preview_->Detach(); }

frmColumns& frmColumnsWindow::Columns() const { return static_cast<frmColumns&>(*DrawnScreen()); }

QPushButton* frmColumnsWindow::NewButton(const char* name, void (frmColumns::*event)()) {
  return ScreenWindow::NewButton(name, [this, event] { (Columns().*event)(); });
}

QCheckBox* frmColumnsWindow::NewCheck(const char* name, CheckBox frmColumns::*box, void (frmColumns::*event)()) {
  auto* check = new QCheckBox(this);
  check->setObjectName(QString::fromLatin1(name));
  OnPersonChange(check, this, [this, box, event](bool checked) {
    Fire([this, box, event, checked] {
      (Columns().*box).Value = checked ? 1 : 0;
      (Columns().*event)();
    });
  });
  return check;
}

void frmColumnsWindow::UpdateHorizontalRange() {
  const QSignalBlocker block(scrFileViewHorizontal_);
  scrFileViewHorizontal_->setRange(0, std::max(0, preview_->ContentWidth() - preview_->TextAreaWidth()));
  scrFileViewHorizontal_->setPageStep(std::max(1, preview_->TextAreaWidth()));
  scrFileViewHorizontal_->setSingleStep(preview_->CharacterWidth());
}

void frmColumnsWindow::resizeEvent(QResizeEvent* event) {
  ScreenWindow::resizeEvent(event);
  if (DrawnScreen() != nullptr) UpdateHorizontalRange();
}

void frmColumnsWindow::Redraw(const ScreenChanges& changes) {
  if (!changes.controls) return;
  const frmColumns& s = Columns();
  setWindowTitle(ToQt(s.Caption));
  DrawPath(lblInputFile_, s.lblInputFile);
  DrawOption(optCharacterDelimited_, s.optCharacterDelimited);
  DrawOption(optFixedWidth_, s.optFixedWidth);
  DrawState(fraCharacterDelimiters_, s.fraCharacterDelimiters);
  DrawCheck(chkTab_, s.chkTab);
  DrawCheck(chkComma_, s.chkComma);
  DrawCheck(chkSemicolon_, s.chkSemicolon);
  DrawCheck(chkSpace_, s.chkSpace);
  DrawCheck(chkOther_, s.chkOther);
  DrawText(txtOtherCharacter_, s.txtOtherCharacter);
  DrawCheck(chkConsecutiveAsOne_, s.chkConsecutiveAsOne);
  DrawCaption(lblTextQualifiers_, s.lblTextQualifiers);
  DrawList(cmbTextQualifiers_, s.cmbTextQualifiers);
  {
    const QSignalBlocker block(VScroll1_);
    VScroll1_->setRange(s.VScroll1.Min, s.VScroll1.Max);
    VScroll1_->setValue(s.VScroll1.Value);
    VScroll1_->setPageStep(1);
  }
  UpdateHorizontalRange();
  {
    const QSignalBlocker block(scrFileViewHorizontal_);
    scrFileViewHorizontal_->setValue(-s.fraScrollerLeft);
  }
  preview_->SetShift(-s.fraScrollerLeft);
  DrawButton(cmdHelp_, s.cmdHelp);
  DrawButton(cmdQuit_, s.cmdQuit);
  DrawButton(cmdBack_, s.cmdBack);
  DrawButton(cmdNext_, s.cmdNext);
  DrawButton(cmdFinish_, s.cmdFinish);
  preview_->update();
  preview_->DescribeForReaders();
  // Before it is shown the window takes the height of its controls as now
  // drawn: the preview shows its ten lines, and a taller window would only
  // leave empty bands between the blocks.
  if (!isVisible()) {
    layout()->activate();
    resize(width(), sizeHint().height());
  }
}

void frmColumnsWindow::closeEvent(QCloseEvent* event) {
  // The close box asks the quit question; the window itself stays.
  event->ignore();
  if (DrawnScreen() != nullptr) Fire([this] { Columns().Form_QueryUnload(CloseReason::ControlMenu); });
}

}  // namespace corvalin
