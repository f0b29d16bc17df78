#include "desktop/frmReplaceAllWindow.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/DrawControls.h"
#include "desktop/QtToolkit.h"
#include "screens/frmReplaceAll.h"

namespace corvalin {

frmReplaceAllWindow::frmReplaceAllWindow(frmReplaceAll& screen) : ScreenWindow(screen, nullptr, Qt::Dialog) {
  setObjectName(QStringLiteral("frmReplaceAll"));
  column_ = NewLabel(this, "lblColumn");
  findLabel_ = new QLabel(this);
  replacementLabel_ = new QLabel(this);
  find_ = NewTextField("txtFind", [this]() -> TextBox& { return Dialog().txtFind; });
  replacement_ = NewTextField("txtReplacement", [this]() -> TextBox& { return Dialog().txtReplacement; });
  findLabel_->setBuddy(find_);
  replacementLabel_->setBuddy(replacement_);
  findNext_ = NewButton("cmdFindNext", [this] { Dialog().cmdFindNext_Click(); });
  findNext_->setDefault(true);
  replace_ = NewButton("cmdReplace", [this] { Dialog().cmdReplace_Click(); });
  replaceAll_ = NewButton("cmdReplaceAll", [this] { Dialog().cmdReplaceAll_Click(); });
  cancel_ = NewButton("cmdCancel", [this] { Dialog().cmdCancel_Click(); });
  help_ = NewButton("cmdHelp", [this] { Dialog().cmdHelp_Click(); });

  auto* form = new QFormLayout;
  form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  form->addRow(new QLabel(QStringLiteral("Column:"), this), column_);
  form->addRow(findLabel_, find_);
  form->addRow(replacementLabel_, replacement_);
  auto* buttons = new QVBoxLayout;
  for (QPushButton* button : {findNext_, replace_, replaceAll_, cancel_, help_}) buttons->addWidget(button);
  buttons->addStretch(1);
  auto* layout = new QHBoxLayout(this);
  auto* fields = new QVBoxLayout;
  fields->addLayout(form);
  fields->addStretch(1);
  layout->addLayout(fields, 1);
  layout->addLayout(buttons);
  setMinimumWidth(480);
}

frmReplaceAll& frmReplaceAllWindow::Dialog() const { return static_cast<frmReplaceAll&>(*DrawnScreen()); }

void frmReplaceAllWindow::Redraw(const ScreenChanges& changes) {
  if (!changes.controls || DrawnScreen() == nullptr) return;
  const frmReplaceAll& dialog = Dialog();
  setWindowTitle(ToQt(dialog.Caption));
  DrawCaption(column_, dialog.lblColumn);
  DrawCaption(findLabel_, dialog.lblFind);
  DrawCaption(replacementLabel_, dialog.lblReplacement);
  DrawText(find_, dialog.txtFind);
  DrawText(replacement_, dialog.txtReplacement);
  DrawButton(findNext_, dialog.cmdFindNext);
  DrawButton(replace_, dialog.cmdReplace);
  DrawButton(replaceAll_, dialog.cmdReplaceAll);
  DrawButton(cancel_, dialog.cmdCancel);
  DrawButton(help_, dialog.cmdHelp);
}

}  // namespace corvalin
