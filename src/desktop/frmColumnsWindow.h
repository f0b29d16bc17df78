// The window of frmColumns, the column format: the input file, the choice
// between delimited and fixed width columns with the delimiters, then the
// preview with its ruler, line numbers, column lines and scroll bars, then
// the buttons that go back, on, or straight to the translation.
#pragma once

#include "desktop/ScreenWindow.h"
#include "screens/Controls.h"

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QScrollBar;

namespace corvalin {

class frmColumns;
class ColumnPreview;

class frmColumnsWindow : public ScreenWindow {
  Q_OBJECT

 public:
  explicit frmColumnsWindow(frmColumns& screen);
  ~frmColumnsWindow() override;

  ColumnPreview* Preview() const { return preview_; }

 protected:
  void Redraw(const ScreenChanges& changes) override;
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  frmColumns& Columns() const;
  QPushButton* NewButton(const char* name, void (frmColumns::*event)());
  QCheckBox* NewCheck(const char* name, CheckBox frmColumns::*box, void (frmColumns::*event)());
  void UpdateHorizontalRange();

  QLineEdit* lblInputFile_;
  QRadioButton* optCharacterDelimited_;
  QRadioButton* optFixedWidth_;
  QGroupBox* fraCharacterDelimiters_;
  QCheckBox* chkTab_;
  QCheckBox* chkComma_;
  QCheckBox* chkSemicolon_;
  QCheckBox* chkSpace_;
  QCheckBox* chkOther_;
  QLineEdit* txtOtherCharacter_;
  QCheckBox* chkConsecutiveAsOne_;
  QLabel* lblTextQualifiers_;
  QComboBox* cmbTextQualifiers_;
  ColumnPreview* preview_;
  QScrollBar* VScroll1_;
  QScrollBar* scrFileViewHorizontal_;
  QPushButton* cmdHelp_;
  QPushButton* cmdQuit_;
  QPushButton* cmdBack_;
  QPushButton* cmdNext_;
  QPushButton* cmdFinish_;
};

}  // namespace corvalin
