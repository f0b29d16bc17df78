// The window of frmHeaders, the grid screen: the working table in a table
// view over GridModel (32,767 rows by 30 columns read in place), the assign
// lists, the options, the buttons, the pick lists that open beside a cell,
// and the two context menus. It answers the screen's questions about the
// grid on screen (GridGeometry) in pixels; the strip of row selectors is the
// table's vertical header.
#pragma once

#include <array>
#include <optional>

#include "desktop/ScreenWindow.h"
#include "screens/GridGeometry.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QListWidget;
class QMenu;
class QPushButton;
class QRadioButton;
class QTableView;

namespace corvalin {

class RetiredEditors;

class frmHeaders;
class GridModel;
struct ListControl;

class frmHeadersWindow : public ScreenWindow, public GridGeometry {
  Q_OBJECT

 public:
  explicit frmHeadersWindow(frmHeaders& screen);
  ~frmHeadersWindow() override;

  QTableView* Table() const { return table_; }
  GridModel* Model() const { return model_; }
  QListWidget* PickListWidget(int list) const { return pickLists_[static_cast<std::size_t>(list)]; }
  // The context menu open at the moment, for the tests; null when none.
  QMenu* OpenMenu() const { return openMenu_; }

  // GridGeometry, in pixels of the table and the window.
  int RowContaining(int y) const override;
  Recordset::Bookmark RowBookmark(int row) const override;
  int VisibleRows() const override;
  int RowTop(int row) const override;
  int RowHeight() const override;
  int ColumnLeft(int column) const override;
  int ColumnWidth(int column) const override;
  int GridLeft() const override;
  int GridTop() const override;
  int FormWidth() const override;
  int FormHeight() const override;
  int ListWidth() const override;
  int ListHeight(int entries) const override;
  int RowSelectorWidth() const override;
  int LeftColumn() const override;
  int VisibleColumns() const override;

  void Unloaded() override;
  // The grid opens large: the table is what the person came for.
  QSize sizeHint() const override;

 protected:
  void Redraw(const ScreenChanges& changes) override;
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  frmHeaders& Headers() const;
  void BuildControls();
  void Connect();
  void DrawControls();
  void DrawHeadings();
  void DrawSelection();
  void DrawCurrent();
  // The cell editor went: a current cell the screen moved meanwhile is drawn.
  void EditorClosed();
  void DrawPickList(int list);
  int FirstRowOnView() const;
  // Right button released: the screen chooses the menu, the window shows it.
  // The right button's release at x, y of the grid: the menu opens at the
  // pointer, or at menuAt (the current cell, from the keyboard).
  void MouseUp(int x, int y, std::optional<QPoint> menuAt = std::nullopt);
  void ShowPopupMenu(const QPoint& at);
  // A cell's drop-down button pressed on this row and column.
  void PressCellButton(int row, int column);

  frmHeaders* headers_;
  GridModel* model_ = nullptr;
  QTableView* table_ = nullptr;
  QLabel* inputFile_ = nullptr;
  QCheckBox* showExcluded_ = nullptr;
  QCheckBox* showAll_ = nullptr;
  QCheckBox* autoValidate_ = nullptr;
  QLabel* nameLabel_ = nullptr;
  QComboBox* headerChoices_ = nullptr;
  QLabel* unitsLabel_ = nullptr;
  QComboBox* unitChoices_ = nullptr;
  QComboBox* variant_ = nullptr;
  QRadioButton* metric_ = nullptr;
  QRadioButton* imperial_ = nullptr;
  QPushButton* save_ = nullptr;
  QPushButton* edit_ = nullptr;
  QPushButton* validate_ = nullptr;
  QPushButton* finish_ = nullptr;
  QPushButton* next_ = nullptr;
  QPushButton* back_ = nullptr;
  QPushButton* help_ = nullptr;
  QPushButton* quit_ = nullptr;
  std::array<QListWidget*, 8> pickLists_{};
  QMenu* openMenu_ = nullptr;
  RetiredEditors* retiredEditors_ = nullptr;
  // While the window draws, the signals its own drawing raises are no
  // person's doing.
  bool drawing_ = false;
  // A cell editor is open, and the current cell waits for it to close.
  bool editorOpen_ = false;
  bool currentPending_ = false;
  int drawnLeftCol_ = -1;
  int drawnRow_ = -1;
  friend class GridButtonDelegate;
};

}  // namespace corvalin
