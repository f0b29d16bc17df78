#include "desktop/frmDamageSeverityWindow.h"

#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/Latin1Text.h"
#include "desktop/QtToolkit.h"
#include "screens/frmDamageSeverity.h"

namespace corvalin {

namespace {

// Draws a list's items and text without raising the person's signals.
void DrawEditableList(QComboBox* box, const ListControl& list) {
  const QSignalBlocker block(box);
  QStringList items;
  for (const std::string& item : list.Items) items << ToQt(item);
  bool same = box->count() == items.size();
  for (int i = 0; same && i < items.size(); ++i) same = box->itemText(i) == items[i];
  if (!same) {
    box->clear();
    box->addItems(items);
  }
  if (box->lineEdit()->text() != ToQt(list.Text)) box->setEditText(ToQt(list.Text));
}

}  // namespace

frmDamageSeverityWindow::frmDamageSeverityWindow(frmDamageSeverity& screen) : ScreenWindow(screen) {
  setObjectName(QStringLiteral("frmDamageSeverity"));
  damageLabel_ = new QLabel(this);
  severityLabel_ = new QLabel(this);
  damage_ = new QComboBox(this);
  damage_->setObjectName(QStringLiteral("cmbDamage"));
  damage_->setEditable(true);
  damage_->setInsertPolicy(QComboBox::NoInsert);
  damage_->setMinimumContentsLength(34);
  damage_->setMaxVisibleItems(18);
  severity_ = new QComboBox(this);
  severity_->setObjectName(QStringLiteral("cmbSeverity"));
  severity_->setEditable(true);
  severity_->setInsertPolicy(QComboBox::NoInsert);
  severity_->setMinimumContentsLength(34);
  ok_ = new QPushButton(this);
  ok_->setObjectName(QStringLiteral("cmdOk"));
  ok_->setDefault(true);
  cancel_ = new QPushButton(this);
  cancel_->setObjectName(QStringLiteral("cmdCancel"));
  help_ = new QPushButton(this);
  help_->setObjectName(QStringLiteral("cmdHelp"));

  auto* fields = new QGridLayout;
  fields->addWidget(damageLabel_, 0, 0);
  fields->addWidget(damage_, 0, 1);
  fields->addWidget(severityLabel_, 1, 0);
  fields->addWidget(severity_, 1, 1);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(ok_);
  buttons->addWidget(cancel_);
  buttons->addWidget(help_);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(fields);
  layout->addLayout(buttons);
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
  connect(ok_, &QPushButton::clicked, this, [this] {
    if (DrawnScreen() == nullptr) return;
    frmDamageSeverity& dialog = Dialog();
    Fire([&] { dialog.cmdOk_Click(); });
  });
  connect(cancel_, &QPushButton::clicked, this, [this] {
    if (DrawnScreen() == nullptr) return;
    frmDamageSeverity& dialog = Dialog();
    Fire([&] { dialog.cmdCancel_Click(); });
  });
  connect(help_, &QPushButton::clicked, this, [this] {
    if (DrawnScreen() == nullptr) return;
    frmDamageSeverity& dialog = Dialog();
    Fire([&] { dialog.cmdHelp_Click(); });
  });
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
