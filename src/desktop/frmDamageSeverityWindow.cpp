#include "desktop/frmDamageSeverityWindow.h"

#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/DrawControls.h"
#include "desktop/Latin1Text.h"
#include "desktop/QtToolkit.h"
#include "screens/frmDamageSeverity.h"

namespace corvalin {

frmDamageSeverityWindow::frmDamageSeverityWindow(frmDamageSeverity& screen) : ScreenWindow(screen, nullptr, Qt::Dialog) {
  setObjectName(QStringLiteral("frmDamageSeverity"));
  damageLabel_ = new QLabel(this);
  severityLabel_ = new QLabel(this);
  damage_ = NewEditableList(this, "cmbDamage", 34);
  damage_->setMaxVisibleItems(18);
  severity_ = NewEditableList(this, "cmbSeverity", 34);
  const DialogButtons buttons = NewDialogButtons(this);
  ok_ = buttons.ok;
  cancel_ = buttons.cancel;
  help_ = buttons.help;

  auto* fields = new QGridLayout;
  fields->addWidget(damageLabel_, 0, 0);
  fields->addWidget(damage_, 0, 1);
  fields->addWidget(severityLabel_, 1, 0);
  fields->addWidget(severity_, 1, 1);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(fields);
  layout->addLayout(buttons.row);
  setMinimumWidth(460);

  severity_->installEventFilter(this);
  severity_->lineEdit()->installEventFilter(this);

  connect(damage_, &QComboBox::activated, this, [this](int index) {
    if (drawing_ || DrawnScreen() == nullptr) return;
    frmDamageSeverity& dialog = Dialog();
    Fire([&] {
      dialog.cmbDamage.Select(index);
      dialog.cmbDamage_Click();
    });
  });
  connect(damage_->lineEdit(), &QLineEdit::textEdited, this, [this](const QString& text) {
    if (drawing_ || DrawnScreen() == nullptr) return;
    const auto bytes = Latin1FromQt(text);
    if (!bytes) return;
    frmDamageSeverity& dialog = Dialog();
    Fire([&] { dialog.cmbDamage.Text = *bytes; });
  });
  connect(severity_, &QComboBox::activated, this, [this](int index) {
    if (drawing_ || DrawnScreen() == nullptr) return;
    frmDamageSeverity& dialog = Dialog();
    Fire([&] {
      dialog.cmbSeverity.Select(index);
      dialog.cmbSeverity_Click();
    });
  });
  connect(severity_->lineEdit(), &QLineEdit::textEdited, this, [this](const QString& text) {
    if (drawing_ || DrawnScreen() == nullptr) return;
    const auto bytes = Latin1FromQt(text);
    if (!bytes) return;
    frmDamageSeverity& dialog = Dialog();
    Fire([&] { dialog.SetSeverityText(*bytes); });
  });
  ClickFires(ok_, [this] { Dialog().cmdOk_Click(); });
  ClickFires(cancel_, [this] { Dialog().cmdCancel_Click(); });
  ClickFires(help_, [this] { Dialog().cmdHelp_Click(); });
}

frmDamageSeverity& frmDamageSeverityWindow::Dialog() const { return static_cast<frmDamageSeverity&>(*DrawnScreen()); }

bool frmDamageSeverityWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn && !drawing_ && DrawnScreen() != nullptr &&
      (watched == severity_ || watched == severity_->lineEdit())) {
    frmDamageSeverity& dialog = Dialog();
    Fire([&] { dialog.cmbSeverity_GotFocus(); });
  }
  return ScreenWindow::eventFilter(watched, event);
}

void frmDamageSeverityWindow::Redraw(const ScreenChanges& changes) {
  if (!changes.controls || DrawnScreen() == nullptr) return;
  drawing_ = true;
  const frmDamageSeverity& dialog = Dialog();
  setWindowTitle(ToQt(dialog.Caption));
  damageLabel_->setText(ToQt(dialog.lblDamage.Caption));
  severityLabel_->setText(ToQt(dialog.lblSeverity.Caption));
  DrawEditableList(damage_, dialog.cmbDamage);
  DrawEditableList(severity_, dialog.cmbSeverity);
  ok_->setText(ToQt(dialog.cmdOk.Caption));
  cancel_->setText(ToQt(dialog.cmdCancel.Caption));
  help_->setText(ToQt(dialog.cmdHelp.Caption));
  drawing_ = false;
}

}  // namespace corvalin
