// The window of frmLocationRecord: one location's name and its stand list
// file, on the one tab of its record type, with OK, Cancel and Help.
#pragma once

#include "desktop/ScreenWindow.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QTabWidget;

namespace corvalin {

class frmLocationRecord;

class frmLocationRecordWindow : public ScreenWindow {
  Q_OBJECT

 public:
  explicit frmLocationRecordWindow(frmLocationRecord& screen);

 protected:
  void Redraw(const ScreenChanges& changes) override;

 private:
  frmLocationRecord& Dialog() const;

  QTabWidget* tabLocationRecords_;
  QLabel* lblLocationName1_;
  QLineEdit* txtLocationName_;
  QLabel* lblSlf1_;
  QLineEdit* lblSlf_;
  QPushButton* cmdSelectSlf_;
  QPushButton* ok_;
  QPushButton* cancel_;
  QPushButton* help_;
};

}  // namespace corvalin
