#include "desktop/frmEditTemplateCommandsWindow.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/DrawControls.h"
#include "desktop/QtToolkit.h"
#include "screens/frmEditTemplateCommands.h"

namespace corvalin {

frmEditTemplateCommandsWindow::frmEditTemplateCommandsWindow(frmEditTemplateCommands& screen) : ScreenWindow(screen, nullptr, Qt::Dialog) {
  setObjectName(QStringLiteral("frmEditTemplateCommands"));
  auto* caption = new QLabel(QStringLiteral("Template commands, run in this order:"), this);
  list_ = new QListWidget(this);
  list_->setObjectName(QStringLiteral("lstTemplateCommands"));
  list_->setSelectionMode(QAbstractItemView::SingleSelection);
  caption->setBuddy(list_);
  up_ = NewButton("cmdUp", [this] { Editor().cmdUp_Click(); });
  down_ = NewButton("cmdDown", [this] { Editor().cmdDown_Click(); });
  edit_ = NewButton("cmdEdit", [this] { Editor().cmdEdit_Click(); });
  delete_ = NewButton("cmdDelete", [this] { Editor().cmdDelete_Click(); });
  const DialogButtons buttons = NewDialogButtons(this);
  ok_ = buttons.ok;
  cancel_ = buttons.cancel;
  help_ = buttons.help;

  auto* side = new QVBoxLayout;
  for (QPushButton* button : {up_, down_, edit_, delete_}) side->addWidget(button);
  side->addStretch(1);
  auto* listColumn = new QVBoxLayout;
  listColumn->addWidget(caption);
  listColumn->addWidget(list_, 1);
  auto* body = new QHBoxLayout;
  body->addLayout(listColumn, 1);
  body->addLayout(side);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(body, 1);
  layout->addLayout(buttons.row);
  resize(720, 360);

  connect(list_, &QListWidget::currentRowChanged, this, [this](int row) {
    if (drawing_ || DrawnScreen() == nullptr || row < 0) return;
    frmEditTemplateCommands& editor = Editor();
    Fire([&] {
      editor.lstTemplateCommands.Select(row);
      editor.lstTemplateCommands_Click();
    });
  });
  connect(list_, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* item) {
    if (drawing_ || DrawnScreen() == nullptr || item == nullptr) return;
    frmEditTemplateCommands& editor = Editor();
    const int row = list_->row(item);
    Fire([&] {
      if (editor.lstTemplateCommands.ListIndex != row) {
        editor.lstTemplateCommands.Select(row);
        editor.lstTemplateCommands_Click();
      }
      editor.lstTemplateCommands_DblClick();
    });
  });
  ClickFires(ok_, [this] { Editor().cmdOk_Click(); });
  ClickFires(cancel_, [this] { Editor().cmdCancel_Click(); });
  ClickFires(help_, [this] { Editor().cmdHelp_Click(); });
}

frmEditTemplateCommands& frmEditTemplateCommandsWindow::Editor() const {
  return static_cast<frmEditTemplateCommands&>(*DrawnScreen());
}

void frmEditTemplateCommandsWindow::Redraw(const ScreenChanges& changes) {
  if (!changes.controls || DrawnScreen() == nullptr) return;
  drawing_ = true;
  const frmEditTemplateCommands& editor = Editor();
  setWindowTitle(ToQt(editor.Caption));
  const ListControl& commands = editor.lstTemplateCommands;
  {
    const QSignalBlocker block(list_);
    bool same = list_->count() == commands.ListCount();
    for (int i = 0; same && i < list_->count(); ++i)
      same = list_->item(i)->text() == ToQt(commands.Items[static_cast<std::size_t>(i)]);
    if (!same) {
      list_->clear();
      for (const std::string& line : commands.Items) list_->addItem(ToQt(line));
    }
    if (commands.ListIndex >= 0 && commands.ListIndex < list_->count()) {
      list_->setCurrentRow(commands.ListIndex);
      list_->scrollToItem(list_->currentItem());
    } else {
      list_->setCurrentRow(-1);
      list_->clearSelection();
    }
  }
  DrawButton(up_, editor.cmdUp);
  DrawButton(down_, editor.cmdDown);
  DrawButton(edit_, editor.cmdEdit);
  DrawButton(delete_, editor.cmdDelete);
  DrawButton(ok_, editor.cmdOk);
  DrawButton(cancel_, editor.cmdCancel);
  DrawButton(help_, editor.cmdHelp);
  drawing_ = false;
}

}  // namespace corvalin
