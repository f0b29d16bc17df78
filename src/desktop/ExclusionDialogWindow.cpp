#include "desktop/ExclusionDialogWindow.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/DrawControls.h"
#include "desktop/QtToolkit.h"
#include "screens/ExclusionDialog.h"

namespace corvalin {

ExclusionDialogWindow::ExclusionDialogWindow(ExclusionDialog& screen) : ScreenWindow(screen, nullptr, Qt::Dialog) {
  setObjectName(QString::fromLatin1(screen.Name()));
  auto* form = new QFormLayout;
  form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  columnLabel_ = new QLabel(QStringLiteral("Column:"), this);
  column_ = NewLabel(this, "lblColumn");
  form->addRow(columnLabel_, column_);
  const std::vector<ExclusionDialog::Field> fields = screen.Fields();
  for (std::size_t i = 0; i < fields.size(); ++i) {
    QLabel* label = new QLabel(this);
    QLineEdit* field = NewTextField(fields[i].name, [this, i]() -> TextBox& { return *Dialog().Fields()[i].text; });
    label->setBuddy(field);
    form->addRow(label, field);
    labels_.push_back(label);
    fields_.push_back(field);
  }
  const DialogButtons buttons = NewDialogButtons(this);
  ok_ = buttons.ok;
  cancel_ = buttons.cancel;
  help_ = buttons.help;
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(form);
  layout->addStretch(1);
  layout->addLayout(buttons.row);
  setMinimumWidth(420);

  ClickFires(ok_, [this] { Dialog().cmdOk_Click(); });
  ClickFires(cancel_, [this] { Dialog().cmdCancel_Click(); });
  ClickFires(help_, [this] { Dialog().cmdHelp_Click(); });
}

ExclusionDialog& ExclusionDialogWindow::Dialog() const { return static_cast<ExclusionDialog&>(*DrawnScreen()); }

void ExclusionDialogWindow::Redraw(const ScreenChanges& changes) {
  if (!changes.controls || DrawnScreen() == nullptr) return;
  ExclusionDialog& dialog = Dialog();
  setWindowTitle(ToQt(dialog.Caption));
  columnLabel_->setVisible(dialog.lblColumn.Visible);
  DrawCaption(column_, dialog.lblColumn);
  const std::vector<ExclusionDialog::Field> fields = dialog.Fields();
  for (std::size_t i = 0; i < fields.size() && i < fields_.size(); ++i) {
    DrawCaption(labels_[i], *fields[i].label);
    DrawText(fields_[i], *fields[i].text);
  }
  DrawButton(ok_, dialog.cmdOk);
  DrawButton(cancel_, dialog.cmdCancel);
  DrawButton(help_, dialog.cmdHelp);
}

}  // namespace corvalin
