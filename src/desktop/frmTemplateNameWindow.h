// The window of frmTemplateName: the name a template is saved under, typed
// or picked from the templates there are.
#pragma once

#include "desktop/ScreenWindow.h"

class QComboBox;
class QLabel;
class QPushButton;

namespace corvalin {

class frmTemplateName;

class frmTemplateNameWindow : public ScreenWindow {
  Q_OBJECT

 public:
  explicit frmTemplateNameWindow(frmTemplateName& screen);

  QComboBox* Name() const { return name_; }
  QPushButton* Ok() const { return ok_; }
  QPushButton* Cancel() const { return cancel_; }

 protected:
  void Redraw(const ScreenChanges& changes) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  frmTemplateName& Dialog() const;

  QLabel* label_;
  QComboBox* name_;
  QPushButton* ok_;
  QPushButton* cancel_;
  QPushButton* help_;
  bool drawing_ = false;
};

}  // namespace corvalin
