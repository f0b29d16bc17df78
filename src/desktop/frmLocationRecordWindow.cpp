#include "desktop/frmLocationRecordWindow.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

#include "desktop/DrawControls.h"
#include "desktop/Latin1Text.h"
#include "desktop/QtToolkit.h"
#include "screens/frmLocationRecord.h"
#include "shell/Failure.h"

namespace corvalin {

frmLocationRecordWindow::frmLocationRecordWindow(frmLocationRecord& screen)
    : ScreenWindow(screen, nullptr, Qt::Dialog) {
  setObjectName(QStringLiteral("frmLocationRecord"));
  tabLocationRecords_ = new QTabWidget(this);
  tabLocationRecords_->setObjectName(QStringLiteral("tabLocationRecords"));
  // Tab reaches the strip of tabs and the controls of the tab shown, not the
  // frame around them.
  tabLocationRecords_->setFocusPolicy(Qt::NoFocus);
  tabLocationRecords_->tabBar()->setAccessibleName(QStringLiteral("Record Type"));
  auto* page = new QWidget;
  page->setObjectName(QStringLiteral("pageRecordA"));
  tabLocationRecords_->addTab(page, QString());
  lblLocationName1_ = NewLabel(page, "lblLocationName1");
  txtLocationName_ = new QLineEdit(page);
  txtLocationName_->setObjectName(QStringLiteral("txtLocationName"));
  lblSlf1_ = NewLabel(page, "lblSlf1");
  lblSlf_ = NewPathField(page, "lblSlf");
  cmdSelectSlf_ = new QPushButton(page);
  cmdSelectSlf_->setObjectName(QStringLiteral("cmdSelectSlf"));
  ClickFires(cmdSelectSlf_, [this] { RunUnhandledEvent([this] { Dialog().cmdSelectSlf_Click(); }); });
  const DialogButtons buttons = NewDialogButtons(this);
  ok_ = buttons.ok;
  cancel_ = buttons.cancel;
  help_ = buttons.help;
  ClickFires(ok_, [this] { RunUnhandledEvent([this] { Dialog().cmdOk_Click(); }); });
  ClickFires(cancel_, [this] { RunUnhandledEvent([this] { Dialog().cmdCancel_Click(); }); });

  auto* fields = new QGridLayout(page);
  fields->addWidget(lblLocationName1_, 0, 0);
  fields->addWidget(txtLocationName_, 0, 1, 1, 2);
  fields->addWidget(lblSlf1_, 1, 0);
  fields->addWidget(lblSlf_, 1, 1);
  fields->addWidget(cmdSelectSlf_, 1, 2);
  fields->setColumnStretch(1, 1);
  fields->setRowStretch(2, 1);

  auto* layout = new QVBoxLayout(this);
  layout->addWidget(tabLocationRecords_);
  layout->addLayout(buttons.row);
  setMinimumWidth(560);

  connect(txtLocationName_, &QLineEdit::textEdited, this, [this](const QString& text) {
    if (DrawnScreen() == nullptr) return;
    const auto bytes = Latin1FromQt(text);
    if (!bytes) return;
    frmLocationRecord& dialog = Dialog();
    Fire([&] { dialog.txtLocationName.Text = *bytes; });
  });
}

frmLocationRecord& frmLocationRecordWindow::Dialog() const { return static_cast<frmLocationRecord&>(*DrawnScreen()); }

void frmLocationRecordWindow::Redraw(const ScreenChanges& changes) {
  if (!changes.controls || DrawnScreen() == nullptr) return;
  const frmLocationRecord& d = Dialog();
  setWindowTitle(ToQt(d.Caption));
  const auto& tabs = d.tabLocationRecords;
  if (!tabs.TabCaption.empty()) tabLocationRecords_->setTabText(0, ToQt(tabs.TabCaption[0]));
  if (!tabs.TabEnabled.empty()) tabLocationRecords_->setTabEnabled(0, tabs.TabEnabled[0]);
  DrawCaption(lblLocationName1_, d.lblLocationName1);
  DrawText(txtLocationName_, d.txtLocationName);
  DrawCaption(lblSlf1_, d.lblSlf1);
  DrawPath(lblSlf_, d.lblSlf);
  DrawButton(cmdSelectSlf_, d.cmdSelectSlf);
  DrawButton(ok_, d.cmdOk);
  DrawButton(cancel_, d.cmdCancel);
  DrawButton(help_, d.cmdHelp);
}

}  // namespace corvalin
