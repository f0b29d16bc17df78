// The window of frmDamageSeverity: the damage and severity codes of one
// pair cell, each an editable list; the severity list is built for the
// damage family when the focus enters it.
#pragma once

#include "desktop/ScreenWindow.h"

class QComboBox;
class QLabel;
class QPushButton;

namespace corvalin {

class frmDamageSeverity;

class frmDamageSeverityWindow : public ScreenWindow {
  Q_OBJECT

 public:
  explicit frmDamageSeverityWindow(frmDamageSeverity& screen);

  QComboBox* Damage() const { return damage_; }
  QComboBox* Severity() const { return severity_; }
  QPushButton* Ok() const { return ok_; }

 protected:
  void Redraw(const ScreenChanges& changes) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  frmDamageSeverity& Dialog() const;

  QLabel* damageLabel_;
  QLabel* severityLabel_;
  QComboBox* damage_;
  QComboBox* severity_;
  QPushButton* ok_;
  QPushButton* cancel_;
  QPushButton* help_;
  bool drawing_ = false;
};

}  // namespace corvalin
