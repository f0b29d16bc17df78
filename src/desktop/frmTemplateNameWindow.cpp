#include "desktop/frmTemplateNameWindow.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/DrawControls.h"
#include "desktop/Latin1Text.h"
#include "desktop/QtToolkit.h"
#include "screens/frmTemplateName.h"

namespace corvalin {

frmTemplateNameWindow::frmTemplateNameWindow(frmTemplateName& screen) : ScreenWindow(screen, nullptr, Qt::Dialog) {
  setObjectName(QStringLiteral("frmTemplateName"));
  label_ = new QLabel(this);
  name_ = NewEditableList(this, "cmbTemplateName", 20);
  const DialogButtons buttons = NewDialogButtons(this);
  ok_ = buttons.ok;
  cancel_ = buttons.cancel;
  help_ = buttons.help;

  auto* field = new QHBoxLayout;
  field->addWidget(label_);
  field->addWidget(name_, 1);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(field);
  layout->addLayout(buttons.row);
  setMinimumWidth(380);

  connect(name_, &QComboBox::currentTextChanged, this, [this](const QString& text) {
    if (drawing_ || DrawnScreen() == nullptr) return;
    // A character that no template file name can hold is refused as typed.
    const auto bytes = Latin1FromQt(text);
    if (!bytes) return;
    frmTemplateName& dialog = Dialog();
    Fire([&] { dialog.SetText(*bytes); });
  });
  ClickFires(ok_, [this] { Dialog().cmdOk_Click(); });
  ClickFires(cancel_, [this] { Dialog().cmdCancel_Click(); });
  ClickFires(help_, [this] { Dialog().cmdHelp_Click(); });
}

frmTemplateName& frmTemplateNameWindow::Dialog() const { return static_cast<frmTemplateName&>(*DrawnScreen()); }

void frmTemplateNameWindow::closeEvent(QCloseEvent* event) {
  // The close box is the person's unload: the dialog says no save.
  event->ignore();
  if (DrawnScreen() == nullptr) return;
  frmTemplateName& dialog = Dialog();
  Fire([&] { dialog.Form_QueryUnload(0); });
}

void frmTemplateNameWindow::Redraw(const ScreenChanges& changes) {
  if (!changes.controls || DrawnScreen() == nullptr) return;
  drawing_ = true;
  const frmTemplateName& dialog = Dialog();
  setWindowTitle(ToQt(dialog.Caption));
  label_->setText(ToQt(dialog.Label1.Caption));
  {
    const QSignalBlocker block(name_);
    if (name_->count() != dialog.cmbTemplateName.ListCount()) {
      name_->clear();
      for (const std::string& item : dialog.cmbTemplateName.Items) name_->addItem(ToQt(item));
    }
    if (name_->currentText() != ToQt(dialog.cmbTemplateName.Text)) name_->setEditText(ToQt(dialog.cmbTemplateName.Text));
  }
  ok_->setText(ToQt(dialog.cmdOk.Caption));
  cancel_->setText(ToQt(dialog.cmdCancel.Caption));
  help_->setText(ToQt(dialog.cmdHelp.Caption));
  drawing_ = false;
}

}  // namespace corvalin
