// The window of frmSlfRecord: one record of a stand list on the tab of its
// type (A to D), the only tab the person can use. Its long lists of record B
// widen while they have the focus, so that their rows can be read; its file
// choices open the file dialogs of the tree data set and of the add files.
#pragma once

#include <functional>
#include <vector>

#include "desktop/ScreenWindow.h"
#include "screens/Controls.h"

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;
class QTabWidget;

namespace corvalin {

class frmSlfRecord;

class frmSlfRecordWindow : public ScreenWindow {
  Q_OBJECT

 public:
  explicit frmSlfRecordWindow(frmSlfRecord& screen);

 protected:
  void Redraw(const ScreenChanges& changes) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  frmSlfRecord& Dialog() const;
  // Runs an event of the dialog on the person's action; an error no handler
  // takes ends the program after its box.
  void FireEvent(const std::function<void(frmSlfRecord&)>& event);
  QPushButton* NewButton(QWidget* page, const char* name, void (frmSlfRecord::*event)());
  QComboBox* NewCombo(QWidget* page, const char* name, ListControl frmSlfRecord::*combo, int characters);
  QLineEdit* NewText(QWidget* page, const char* name, TextBox frmSlfRecord::*box);
  QLabel* NewHeading(QWidget* page, const char* name, Label frmSlfRecord::*label, QWidget* field);

  struct DrawnLabel {
    QLabel* widget;
    Label frmSlfRecord::*label;
  };
  struct DrawnCombo {
    QComboBox* widget;
    ListControl frmSlfRecord::*combo;
  };
  struct DrawnText {
    QLineEdit* widget;
    TextBox frmSlfRecord::*box;
  };
  struct DrawnCheck {
    QCheckBox* widget;
    CheckBox frmSlfRecord::*box;
  };
  std::vector<DrawnLabel> labels_;
  std::vector<DrawnCombo> combos_;
  std::vector<DrawnText> texts_;
  std::vector<DrawnCheck> checks_;

  QTabWidget* tabSlfRecords_;
  // Tab 0.
  QLineEdit* lblTreeDataSet_;
  QPushButton* cmdSelect_;
  QPushButton* cmdBareGround_;
  QGroupBox* fraPlotBasedSiteData_;
  QRadioButton* optPlotBasedSiteDataYes_;
  QRadioButton* optNo_;
  QGroupBox* fraApplicableVariants_;
  // Tab 1: the references of the widening lists.
  QLineEdit* txtLongitude_;
  QLineEdit* txtStockablePercent_;
  // Tab 3.
  QListWidget* lstDataSetNames_;
  QPushButton* cmdAdd_;
  QPushButton* cmdSelectDataSetFile_;
  QPushButton* cmdDelete_;
  QPushButton* ok_;
  QPushButton* cancel_;
  QPushButton* help_;
};

}  // namespace corvalin
