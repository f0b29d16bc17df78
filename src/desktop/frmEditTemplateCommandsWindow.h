// The window of the command editor: the commands one a line, the buttons
// that move, edit and delete the one chosen beside them, OK, Cancel and Help
// below.
#pragma once

#include "desktop/ScreenWindow.h"

class QListWidget;
class QPushButton;

namespace corvalin {

class frmEditTemplateCommands;

class frmEditTemplateCommandsWindow : public ScreenWindow {
  Q_OBJECT

 public:
  explicit frmEditTemplateCommandsWindow(frmEditTemplateCommands& screen);

  QListWidget* List() const { return list_; }

 protected:
  void Redraw(const ScreenChanges& changes) override;

 private:
  frmEditTemplateCommands& Editor() const;

  QListWidget* list_;
  QPushButton* up_;
  QPushButton* down_;
  QPushButton* edit_;
  QPushButton* delete_;
  QPushButton* ok_;
  QPushButton* cancel_;
  QPushButton* help_;
  bool drawing_ = false;
};

}  // namespace corvalin
