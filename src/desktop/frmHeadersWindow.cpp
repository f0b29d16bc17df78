#include "desktop/frmHeadersWindow.h"

#include <QApplication>
#include <QCheckBox>
#include <QCursor>
#include <QStyleOption>
#include <algorithm>
#include <initializer_list>
#include <QCloseEvent>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QVBoxLayout>

#include "columns/Vocabulary.h"
#include "desktop/DrawControls.h"
#include "desktop/GridModel.h"
#include "desktop/QtToolkit.h"
#include "desktop/RetiredEditors.h"
#include "screens/frmHeaders.h"

namespace corvalin {

namespace {

constexpr int kButtonWidth = 16;
constexpr int kListWidth = 240;
// A longer list scrolls: the species of a variant run to a hundred.
constexpr int kListRowsShown = 12;

QString DrawnText(const std::string& text) { return ToQt(text); }

}  // namespace

// Paints a cell's drop-down button on the current row and presses it; asks
// the screen before a cell is edited.
class GridButtonDelegate : public QStyledItemDelegate {
 public:
  explicit GridButtonDelegate(frmHeadersWindow& window) : QStyledItemDelegate(&window), window_(window) {}

  static QRect ButtonRect(const QRect& cell) {
    return QRect(cell.right() - kButtonWidth + 1, cell.top(), kButtonWidth, cell.height());
  }
  bool HasButton(const QModelIndex& index) const {
    // The insert row has no cell to pick a value for.
    const frmHeaders* screen = window_.headers_;
    return screen != nullptr && index.column() >= 1 && index.column() <= kHeadingColumns &&
           index.row() < window_.model_->RecordRows() &&
           screen->ColumnButton[static_cast<std::size_t>(index.column())] &&
           window_.table_->currentIndex().row() == index.row();
  }

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    QStyledItemDelegate::paint(painter, option, index);
    if (!HasButton(index)) return;
    QStyleOptionButton button;
    button.rect = ButtonRect(option.rect);
    button.state = QStyle::State_Enabled | QStyle::State_Raised;
    QApplication::style()->drawControl(QStyle::CE_PushButtonBevel, &button, painter);
    QStyleOption arrow;
    arrow.rect = button.rect.adjusted(3, 3, -3, -3);
    arrow.state = QStyle::State_Enabled;
    arrow.palette = option.palette;
    QApplication::style()->drawPrimitive(QStyle::PE_IndicatorArrowDown, &arrow, painter);
  }

  bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override {
    if (event->type() == QEvent::MouseButtonRelease && HasButton(index)) {
      auto* mouse = static_cast<QMouseEvent*>(event);
      if (mouse->button() == Qt::LeftButton && ButtonRect(option.rect).contains(mouse->position().toPoint())) {
        window_.PressCellButton(index.row(), index.column());
        return true;
      }
    }
    return QStyledItemDelegate::editorEvent(event, model, option, index);
  }

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const override {
    frmHeaders* screen = window_.headers_;
    if (screen == nullptr) return nullptr;
    bool cancel = true;
    const int column = index.column();
    ScreenWindow::Fire([&] { cancel = screen->TDBGrid1_BeforeColEdit(column); });
    if (cancel) return nullptr;
    QWidget* editor = QStyledItemDelegate::createEditor(parent, option, index);
    window_.editorOpen_ = editor != nullptr;
    return editor;
  }

  void destroyEditor(QWidget* editor, const QModelIndex&) const override {
    window_.retiredEditors_->Retire(editor);
    window_.EditorClosed();
  }

 private:
  frmHeadersWindow& window_;
};

frmHeadersWindow::frmHeadersWindow(frmHeaders& screen) : ScreenWindow(screen), headers_(&screen) {
  setObjectName(QStringLiteral("frmHeaders"));
  BuildControls();
  Connect();
  screen.SetGridGeometry(this);
  resize(sizeHint());
}

QSize frmHeadersWindow::sizeHint() const { return {1180, 760}; }

frmHeadersWindow::~frmHeadersWindow() {
  if (headers_ != nullptr) headers_->SetGridGeometry(nullptr);
}

void frmHeadersWindow::Unloaded() {
  if (headers_ != nullptr) headers_->SetGridGeometry(nullptr);
  headers_ = nullptr;
  model_->Detach();
  ScreenWindow::Unloaded();
}

frmHeaders& frmHeadersWindow::Headers() const { return *headers_; }

void frmHeadersWindow::BuildControls() {
  frmHeaders& screen = Headers();
  inputFile_ = new QLabel(this);
  inputFile_->setObjectName(QStringLiteral("lblInputFile"));

  model_ = new GridModel(screen, this);
  table_ = new QTableView(this);
  table_->setObjectName(QStringLiteral("TDBGrid1"));
  table_->setAccessibleName(QStringLiteral("Rows of the input file"));
  table_->setModel(model_);
  retiredEditors_ = new RetiredEditors(this);
  table_->setItemDelegate(new GridButtonDelegate(*this));
  table_->setSelectionMode(QAbstractItemView::NoSelection);
  table_->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  table_->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
  table_->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                          QAbstractItemView::AnyKeyPressed);
  table_->setWordWrap(false);
  table_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  table_->verticalHeader()->setDefaultSectionSize(table_->fontMetrics().height() + 6);
  table_->verticalHeader()->setFixedWidth(18);
  table_->horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
  table_->horizontalHeader()->setDefaultSectionSize(92);
  table_->horizontalHeader()->setHighlightSections(true);
  table_->setColumnWidth(0, 60);
  table_->setColumnHidden(frmHeaders::kExcludedColumn, true);
  table_->installEventFilter(this);
  table_->verticalHeader()->viewport()->installEventFilter(this);
  table_->viewport()->installEventFilter(this);

  auto group = [this](const std::string& title) {
    auto* box = new QGroupBox(ToQt(title), this);
    return box;
  };
  showExcluded_ = new QCheckBox(this);
  showExcluded_->setObjectName(QStringLiteral("chkShowExcludedRows"));
  showAll_ = new QCheckBox(this);
  showAll_->setObjectName(QStringLiteral("chkShowAllColumns"));
  autoValidate_ = new QCheckBox(this);
  autoValidate_->setObjectName(QStringLiteral("chkAutoValidate"));
  QGroupBox* options = group("Grid Edit Options:");
  auto* optionsLayout = new QVBoxLayout(options);
  optionsLayout->addWidget(showExcluded_);
  optionsLayout->addWidget(showAll_);
  optionsLayout->addWidget(autoValidate_);

  headerChoices_ = new QComboBox(this);
  headerChoices_->setObjectName(QStringLiteral("cmbHeaderChoices"));
  headerChoices_->setMinimumContentsLength(22);
  headerChoices_->setMaxVisibleItems(24);
  unitChoices_ = new QComboBox(this);
  unitChoices_->setObjectName(QStringLiteral("cmbUnitChoices"));
  unitChoices_->setMinimumContentsLength(22);
  nameLabel_ = NewLabel(this, "Label1");
  nameLabel_->setText(tr("Name:"));
  unitsLabel_ = NewLabel(this, "Label2");
  unitsLabel_->setText(tr("Units:"));
  // With no column selected the lists and their labels are hidden; the
  // group keeps its size, so the grid above it does not move.
  for (QWidget* widget : std::initializer_list<QWidget*>{nameLabel_, headerChoices_, unitsLabel_, unitChoices_}) {
    QSizePolicy policy = widget->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget->setSizePolicy(policy);
  }
  QGroupBox* assign = group("Assign Columns:");
  auto* assignLayout = new QFormLayout(assign);
  assignLayout->setRowWrapPolicy(QFormLayout::DontWrapRows);
  assignLayout->addRow(nameLabel_, headerChoices_);
  assignLayout->addRow(unitsLabel_, unitChoices_);
  assign->setMinimumWidth(300);

  save_ = new QPushButton(this);
  save_->setObjectName(QStringLiteral("cmdSaveTemplate"));
  edit_ = new QPushButton(this);
  edit_->setObjectName(QStringLiteral("cmdEditTemplateCommands"));
  QGroupBox* templ = group("Template:");
  auto* templLayout = new QVBoxLayout(templ);
  templLayout->addWidget(save_);
  templLayout->addWidget(edit_);

  variant_ = new QComboBox(this);
  variant_->setObjectName(QStringLiteral("cmbVariant"));
  variant_->setMaxVisibleItems(24);
  metric_ = new QRadioButton(this);
  metric_->setObjectName(QStringLiteral("optMetric"));
  imperial_ = new QRadioButton(this);
  imperial_->setObjectName(QStringLiteral("optImperial"));
  QGroupBox* defaults = group("Over-ride Defaults:");
  auto* defaultsLayout = new QFormLayout(defaults);
  auto* system = new QHBoxLayout;
  system->addWidget(metric_);
  system->addWidget(imperial_);
  defaultsLayout->addRow(tr("Variant:"), variant_);
  defaultsLayout->addRow(tr("Units:"), system);

  validate_ = new QPushButton(this);
  validate_->setObjectName(QStringLiteral("cmdValidate"));
  finish_ = new QPushButton(this);
  finish_->setObjectName(QStringLiteral("cmdFinish"));
  back_ = new QPushButton(this);
  back_->setObjectName(QStringLiteral("cmdBack"));
  next_ = new QPushButton(this);
  next_->setObjectName(QStringLiteral("cmdNext"));
  help_ = new QPushButton(this);
  help_->setObjectName(QStringLiteral("cmdHelp"));
  quit_ = new QPushButton(this);
  quit_->setObjectName(QStringLiteral("cmdQuit"));

  auto* groups = new QHBoxLayout;
  groups->addWidget(options);
  groups->addWidget(assign, 1);
  groups->addWidget(templ);
  groups->addWidget(defaults);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(validate_);
  buttons->addWidget(finish_);
  buttons->addStretch(1);
  buttons->addWidget(help_);
  buttons->addWidget(quit_);
  buttons->addSpacing(16);
  buttons->addWidget(back_);
  buttons->addWidget(next_);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(inputFile_);
  layout->addWidget(table_, 1);
  layout->addLayout(groups);
  layout->addLayout(buttons);

  // Each list is read out by the type of the column it serves.
  static const std::array<const char*, 8> kTypes = {"Species", "Tree History", "Crown Ratio", "Tree Value Class",
                                                   "Cut/Leave Prescription", "Plot US Habitat Type",
                                                   "Plot Topographic Position", "Plot Site Preparation"};
  static const std::array<const char*, 8> kNames = {
      "lstSpecies",         "lstTreeHistory", "lstCrownRatio", "lstTreeValueClass", "lstCutLeavePrescription",
      "lstPlotHabitat", "lstPlotTopographicalPosition", "lstPlotSitePreparation"};
  for (int i = 0; i < frmHeaders::kPickLists; ++i) {
    auto* list = new QListWidget(this);
    list->setObjectName(QString::fromLatin1(kNames[static_cast<std::size_t>(i)]));
    list->setAccessibleName(QString::fromLatin1(kTypes[static_cast<std::size_t>(i)]) + QStringLiteral(" codes"));
    list->setFixedWidth(kListWidth);
    list->hide();
    list->installEventFilter(this);
    pickLists_[static_cast<std::size_t>(i)] = list;
  }
}

void frmHeadersWindow::Connect() {
  auto fire = [this](void (frmHeaders::*event)()) {
    return [this, event] {
      if (headers_ == nullptr || drawing_) return;
      frmHeaders& screen = Headers();
      Fire([&] { (screen.*event)(); });
    };
  };
  connect(validate_, &QPushButton::clicked, this, fire(&frmHeaders::cmdValidate_Click));
  connect(finish_, &QPushButton::clicked, this, fire(&frmHeaders::cmdFinish_Click));
  connect(next_, &QPushButton::clicked, this, fire(&frmHeaders::cmdNext_Click));
  connect(back_, &QPushButton::clicked, this, fire(&frmHeaders::cmdBack_Click));
  connect(save_, &QPushButton::clicked, this, fire(&frmHeaders::cmdSaveTemplate_Click));
  connect(edit_, &QPushButton::clicked, this, fire(&frmHeaders::cmdEditTemplateCommands_Click));
  // Back from the editor the person goes on in the grid.
  connect(edit_, &QPushButton::clicked, table_, [this] {
    activateWindow();
    table_->setFocus();
  });
  connect(help_, &QPushButton::clicked, this, fire(&frmHeaders::cmdHelp_Click));
  connect(quit_, &QPushButton::clicked, this, fire(&frmHeaders::cmdQuit_Click));
  OnPersonChange(metric_, this, [act = fire(&frmHeaders::optMetric_Click)](bool) { act(); });
  OnPersonChange(imperial_, this, [act = fire(&frmHeaders::optImperial_Click)](bool) { act(); });

  auto check = [this](QCheckBox* box, CheckBox frmHeaders::*control, void (frmHeaders::*event)()) {
    OnPersonChange(box, this, [this, control, event](bool checked) {
      if (headers_ == nullptr || drawing_) return;
      frmHeaders& screen = Headers();
      Fire([&] {
        (screen.*control).Value = checked ? 1 : 0;
        (screen.*event)();
      });
    });
  };
  check(showExcluded_, &frmHeaders::chkShowExcludedRows, &frmHeaders::chkShowExcludedRows_Click);
  check(showAll_, &frmHeaders::chkShowAllColumns, &frmHeaders::chkShowAllColumns_Click);
  check(autoValidate_, &frmHeaders::chkAutoValidate, &frmHeaders::chkAutoValidate_Click);

  auto choose = [this](QComboBox* box, void (frmHeaders::*select)(int)) {
    connect(box, &QComboBox::activated, this, [this, select](int index) {
      if (headers_ == nullptr || drawing_) return;
      frmHeaders& screen = Headers();
      Fire([&] { (screen.*select)(index); });
    });
  };
  choose(headerChoices_, &frmHeaders::SelectHeaderChoice);
  choose(unitChoices_, &frmHeaders::SelectUnitChoice);
  choose(variant_, &frmHeaders::SelectVariant);

  connect(table_->horizontalHeader(), &QHeaderView::sectionClicked, this, [this](int column) {
    if (headers_ == nullptr || drawing_) return;
    frmHeaders& screen = Headers();
    Fire([&] { screen.TDBGrid1_HeadClick(column); });
  });
  connect(table_->selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this](const QModelIndex& current, const QModelIndex& previous) {
            if (headers_ == nullptr || drawing_ || !current.isValid()) return;
            frmHeaders& screen = Headers();
            Fire([&] { screen.TDBGrid1_RowColChange(current.row(), current.column()); });
            // The button moves with the current row.
            table_->viewport()->update();
            (void)previous;
          });
  auto scrolled = [this] {
    if (headers_ == nullptr || drawing_) return;
    frmHeaders& screen = Headers();
    // The person put this column at the left: nothing to bring back.
    drawnLeftCol_ = LeftColumn();
    Fire([&] { screen.TDBGrid1_Scroll(); });
  };
  connect(table_->verticalScrollBar(), &QScrollBar::valueChanged, this, scrolled);
  connect(table_->horizontalScrollBar(), &QScrollBar::valueChanged, this, scrolled);

  for (int i = 0; i < frmHeaders::kPickLists; ++i) {
    QListWidget* list = pickLists_[static_cast<std::size_t>(i)];
    connect(list, &QListWidget::itemClicked, this, [this, list, i](QListWidgetItem* item) {
      if (headers_ == nullptr || drawing_) return;
      frmHeaders& screen = Headers();
      const auto which = static_cast<frmHeaders::PickList>(i);
      const int row = list->row(item);
      Fire([&] {
        screen.PickListControl(which).Select(row);
        screen.PickList_Click(which);
      });
    });
  }
}

// ---------------------------------------------------------------- drawing

void frmHeadersWindow::Redraw(const ScreenChanges& changes) {
  if (headers_ == nullptr) return;
  drawing_ = true;
  if (changes.rowsReset) drawnRow_ = -1;
  model_->Apply(changes);
  if (changes.controls) DrawControls();
  if (changes.headings || changes.rowsReset) DrawHeadings();
  if (changes.selection || changes.rowsReset) DrawSelection();
  if (changes.current || changes.rowsReset) DrawCurrent();
  drawing_ = false;
}

void frmHeadersWindow::DrawControls() {
  const frmHeaders& screen = Headers();
  setWindowTitle(ToQt(screen.Caption));
  inputFile_->setText(PathToQt(screen.lblInputFile.Caption));
  auto drawCheck = [](QCheckBox* box, const CheckBox& control) {
    box->setText(ToQt(control.Caption));
    box->setChecked(control.Checked());
    box->setEnabled(control.Enabled);
  };
  drawCheck(showExcluded_, screen.chkShowExcludedRows);
  drawCheck(showAll_, screen.chkShowAllColumns);
  drawCheck(autoValidate_, screen.chkAutoValidate);
  // Each assign list takes its label with it when it hides.
  DrawList(headerChoices_, screen.cmbHeaderChoices);
  DrawList(unitChoices_, screen.cmbUnitChoices);
  nameLabel_->setVisible(screen.cmbHeaderChoices.Visible);
  unitsLabel_->setVisible(screen.cmbUnitChoices.Visible);
  DrawList(variant_, screen.cmbVariant);
  metric_->setText(ToQt(screen.optMetric.Caption));
  metric_->setChecked(screen.optMetric.Value);
  imperial_->setText(ToQt(screen.optImperial.Caption));
  imperial_->setChecked(screen.optImperial.Value);
  auto drawButton = [](QPushButton* button, const Button& control) {
    button->setText(DrawnText(control.Caption));
    button->setEnabled(control.Enabled);
    button->setVisible(control.Visible);
  };
  drawButton(save_, screen.cmdSaveTemplate);
  drawButton(edit_, screen.cmdEditTemplateCommands);
  drawButton(validate_, screen.cmdValidate);
  drawButton(finish_, screen.cmdFinish);
  drawButton(next_, screen.cmdNext);
  drawButton(back_, screen.cmdBack);
  drawButton(help_, screen.cmdHelp);
  drawButton(quit_, screen.cmdQuit);
  for (int i = 0; i < frmHeaders::kPickLists; ++i) DrawPickList(i);
}

void frmHeadersWindow::DrawPickList(int index) {
  frmHeaders& screen = Headers();
  const ListControl& control = screen.PickListControl(static_cast<frmHeaders::PickList>(index));
  QListWidget* list = pickLists_[static_cast<std::size_t>(index)];
  const QSignalBlocker block(list);
  bool same = list->count() == control.ListCount();
  for (int i = 0; same && i < list->count(); ++i)
    same = list->item(i)->text() == ToQt(control.Items[static_cast<std::size_t>(i)]);
  if (!same) {
    list->clear();
    for (const std::string& item : control.Items) list->addItem(ToQt(item));
  }
  if (!control.Visible) {
    list->hide();
    return;
  }
  list->setCurrentRow(control.ListIndex);
  list->setFixedHeight(ListHeight(list->count()));
  list->move(screen.PickListLeft, screen.PickListTop);
  if (!list->isVisible()) {
    list->show();
    list->raise();
    list->setFocus();
  }
  if (control.ListIndex >= 0) list->scrollToItem(list->item(control.ListIndex));
}

void frmHeadersWindow::DrawHeadings() {
  const frmHeaders& screen = Headers();
  for (int c = 0; c < GridModel::kColumns; ++c)
    table_->setColumnHidden(c, !screen.ColumnVisible[static_cast<std::size_t>(c)] || c == frmHeaders::kExcludedColumn);
  table_->horizontalHeader()->updateGeometry();
  table_->viewport()->update();
}

void frmHeadersWindow::DrawSelection() {
  const frmHeaders& screen = Headers();
  QItemSelection selection;
  const int lastColumn = GridModel::kColumns - 1;
  // A selected column runs down to the last record, not into the insert row.
  const int records = model_->RecordRows();
  for (const Recordset::Bookmark bookmark : screen.SelBookmarks) {
    if (bookmark < 0 || bookmark >= records) continue;
    selection.select(model_->index(static_cast<int>(bookmark), 0), model_->index(static_cast<int>(bookmark), lastColumn));
  }
  if (screen.SelStartCol >= 0 && screen.SelEndCol >= screen.SelStartCol && records > 0) {
    selection.select(model_->index(0, screen.SelStartCol), model_->index(records - 1, screen.SelEndCol));
  }
  table_->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

void frmHeadersWindow::DrawCurrent() {
  // Moving the current cell would commit the open editor a second time, in
  // the middle of its own commit: a row typed into the insert row waits
  // until its editor has closed.
  if (editorOpen_) {
    currentPending_ = true;
    return;
  }
  const frmHeaders& screen = Headers();
  const Recordset* rows = screen.Adodc1.Recordset.get();
  if (rows == nullptr || rows->RecordCount() == 0 || rows->IsEOF() || rows->IsBOF()) return;
  const int row = static_cast<int>(rows->GetBookmark());
  const int column = std::clamp(screen.Col, 0, GridModel::kColumns - 1);
  const QModelIndex current = model_->index(row, column);
  if (table_->currentIndex() != current) table_->selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
  // A new current row not on view comes to the top; a person's scrolling
  // away from the same row is left alone.
  if (row != drawnRow_) {
    drawnRow_ = row;
    const int first = FirstRowOnView();
    if (row < first || row >= first + VisibleRows()) table_->scrollTo(current, QAbstractItemView::PositionAtTop);
  }
  if (screen.LeftCol != drawnLeftCol_) {
    drawnLeftCol_ = screen.LeftCol;
    table_->horizontalScrollBar()->setValue(table_->horizontalHeader()->sectionPosition(screen.LeftCol));
  }
  table_->viewport()->update();
}

void frmHeadersWindow::EditorClosed() {
  editorOpen_ = false;
  if (!currentPending_ || headers_ == nullptr) return;
  currentPending_ = false;
  const bool drawing = drawing_;
  drawing_ = true;
  DrawCurrent();
  drawing_ = drawing;
}

// ---------------------------------------------------------------- person

void frmHeadersWindow::PressCellButton(int row, int column) {
  if (headers_ == nullptr) return;
  frmHeaders& screen = Headers();
  Fire([&] {
    const Recordset* rows = screen.Adodc1.Recordset.get();
    if (rows != nullptr && (rows->IsEOF() || rows->IsBOF() || rows->GetBookmark() != row))
      screen.TDBGrid1_RowColChange(row, column);
    screen.TDBGrid1_ButtonClick(column);
  });
}

void frmHeadersWindow::MouseUp(int x, int y, std::optional<QPoint> menuAt) {
  if (headers_ == nullptr) return;
  frmHeaders& screen = Headers();
  activateWindow();
  Fire([&] { screen.TDBGrid1_MouseUp(2, 0, x, y); });
  ShowPopupMenu(menuAt.value_or(QCursor::pos()));
}

void frmHeadersWindow::ShowPopupMenu(const QPoint& at) {
  if (headers_ == nullptr || Headers().PopupMenu == frmHeaders::GridMenu::None) return;
  frmHeaders& screen = Headers();
  QMenu menu(this);
  menu.setObjectName(screen.PopupMenu == frmHeaders::GridMenu::Column ? QStringLiteral("mnuColumn")
                                                                      : QStringLiteral("mnuRow"));
  auto entry = [&](const Button& control, void (frmHeaders::*event)()) {
    QAction* action = menu.addAction(ToQt(control.Caption));
    action->setEnabled(control.Enabled);
    connect(action, &QAction::triggered, this, [this, event] {
      if (headers_ == nullptr) return;
      frmHeaders& target = Headers();
      Fire([&] { (target.*event)(); });
    });
  };
  if (screen.PopupMenu == frmHeaders::GridMenu::Column) {
    entry(screen.mnuReplaceAll, &frmHeaders::mnuReplaceAll_Click);
    entry(screen.mnuExcludeContaining, &frmHeaders::mnuExcludeContaining_Click);
    entry(screen.mnuExcludeStartingWith, &frmHeaders::mnuExcludeStartingWith_Click);
    entry(screen.mnuAddColumn, &frmHeaders::mnuAddColumn_Click);
  } else {
    entry(screen.mnuExcludeRows, &frmHeaders::mnuExcludeRows_Click);
    entry(screen.mnuIncludeRows, &frmHeaders::mnuIncludeRows_Click);
  }
  openMenu_ = &menu;
  menu.exec(at);
  openMenu_ = nullptr;
  // Back from an entry's dialog the person goes on in the grid.
  activateWindow();
  table_->setFocus();
  if (headers_ != nullptr) {
    frmHeaders& after = Headers();
    Fire([&] { after.PopupMenu_Closed(); });
  }
}

bool frmHeadersWindow::eventFilter(QObject* watched, QEvent* event) {
  if (headers_ == nullptr) return ScreenWindow::eventFilter(watched, event);
  frmHeaders& screen = Headers();
  const bool strip = watched == table_->verticalHeader()->viewport();
  const bool cells = watched == table_->viewport();
  if (strip || cells) {
    if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseMove ||
        event->type() == QEvent::MouseButtonRelease) {
      auto* mouse = static_cast<QMouseEvent*>(event);
      const QPoint at = mouse->position().toPoint();
      // The grid's x runs from the left of the strip.
      const int x = strip ? at.x() : at.x() + RowSelectorWidth();
      const int shift = (mouse->modifiers() & Qt::ShiftModifier) ? 1 : 0;
      // The right button leaves the current cell where it is.
      if (mouse->button() == Qt::RightButton && event->type() == QEvent::MouseButtonPress) return true;
      if (event->type() == QEvent::MouseButtonRelease && mouse->button() == Qt::RightButton) {
        MouseUp(x, at.y());
        return true;
      }
      if (strip && event->type() == QEvent::MouseButtonPress && mouse->button() == Qt::LeftButton) {
        Fire([&] { screen.TDBGrid1_MouseDown(1, shift, x, at.y()); });
        return true;
      }
      if (strip && event->type() == QEvent::MouseMove && (mouse->buttons() & Qt::LeftButton)) {
        Fire([&] { screen.TDBGrid1_MouseMove(1, shift, x, at.y()); });
        return true;
      }
      if (strip) return true;
    }
    return ScreenWindow::eventFilter(watched, event);
  }
  if (watched == table_ && event->type() == QEvent::KeyPress) {
    auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() == Qt::Key_Insert) {
      Fire([&] { screen.AddGridRow(); });
      return true;
    }
    const QModelIndex current = table_->currentIndex();
    // The menu key, or Shift+F10, opens the grid's menu as the right button
    // does, over the current cell.
    if (key->key() == Qt::Key_Menu || (key->key() == Qt::Key_F10 && key->modifiers() == Qt::ShiftModifier)) {
      const QRect cell = current.isValid() ? table_->visualRect(current) : QRect();
      const QPoint inViewport = cell.isValid() ? cell.center() : QPoint(table_->viewport()->width() / 2, 4);
      MouseUp(inViewport.x() + RowSelectorWidth(), inViewport.y(), table_->viewport()->mapToGlobal(inViewport));
      return true;
    }
    const bool open = key->key() == Qt::Key_F4 ||
                      (key->key() == Qt::Key_Down && (key->modifiers() & Qt::AltModifier) != 0);
    if (open && current.isValid() && current.row() < model_->RecordRows() && current.column() >= 1 &&
        current.column() <= kHeadingColumns && screen.ColumnButton[static_cast<std::size_t>(current.column())]) {
      PressCellButton(current.row(), current.column());
      return true;
    }
  }
  for (int i = 0; i < frmHeaders::kPickLists; ++i) {
    QListWidget* list = pickLists_[static_cast<std::size_t>(i)];
    if (watched == list && event->type() == QEvent::KeyPress) {
      auto* key = static_cast<QKeyEvent*>(event);
      // Escape leaves the cell as it is: the list goes as it does when it
      // loses the focus. Enter picks the entry chosen, as a click does.
      if (key->key() == Qt::Key_Escape) {
        table_->setFocus();
        return true;
      }
      if ((key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) && list->currentItem() != nullptr) {
        emit list->itemClicked(list->currentItem());
        return true;
      }
    }
    if (watched != list || event->type() != QEvent::FocusOut) continue;
    const auto which = static_cast<frmHeaders::PickList>(i);
    if (!drawing_ && screen.PickListControl(which).Visible) Fire([&] { screen.PickList_LostFocus(which); });
  }
  return ScreenWindow::eventFilter(watched, event);
}

void frmHeadersWindow::closeEvent(QCloseEvent* event) {
  // The close box asks the quit question; only its Yes ends things.
  event->ignore();
  if (headers_ == nullptr) return;
  frmHeaders& screen = Headers();
  Fire([&] { screen.Form_QueryUnload(CloseReason::ControlMenu); });
}

// ---------------------------------------------------------------- geometry

int frmHeadersWindow::FirstRowOnView() const { return std::max(0, table_->rowAt(0)); }

// The screen's rows on view are records: the insert row is none of them.
int frmHeadersWindow::RowContaining(int y) const {
  const int row = table_->rowAt(y);
  return row < 0 || row >= model_->RecordRows() ? -1 : row - FirstRowOnView();
}

Recordset::Bookmark frmHeadersWindow::RowBookmark(int row) const {
  const int at = FirstRowOnView() + row;
  return row >= 0 && at < model_->RecordRows() ? at : -1;
}

int frmHeadersWindow::VisibleRows() const {
  const int records = model_->RecordRows();
  const int first = FirstRowOnView();
  if (first >= records) return 0;
  int last = table_->rowAt(table_->viewport()->height() - 1);
  if (last < 0 || last >= records) last = records - 1;
  return last - first + 1;
}

int frmHeadersWindow::RowTop(int row) const {
  return table_->frameWidth() + table_->horizontalHeader()->height() +
         table_->rowViewportPosition(FirstRowOnView() + row);
}

int frmHeadersWindow::RowHeight() const { return table_->verticalHeader()->defaultSectionSize(); }

int frmHeadersWindow::ColumnLeft(int column) const {
  return table_->frameWidth() + RowSelectorWidth() + table_->columnViewportPosition(column);
}

int frmHeadersWindow::ColumnWidth(int column) const { return table_->columnWidth(column); }
int frmHeadersWindow::GridLeft() const { return table_->mapTo(this, QPoint(0, 0)).x(); }
int frmHeadersWindow::GridTop() const { return table_->mapTo(this, QPoint(0, 0)).y(); }
int frmHeadersWindow::FormWidth() const { return width(); }
int frmHeadersWindow::FormHeight() const { return height(); }
int frmHeadersWindow::ListWidth() const { return kListWidth; }
int frmHeadersWindow::ListHeight(int entries) const {
  int row = 0;
  for (const QListWidget* list : pickLists_)
    if (list->count() > 0) row = std::max(row, list->sizeHintForRow(0));
  if (row <= 0) row = fontMetrics().height() + 4;
  const int frame = 2 * pickLists_[0]->frameWidth();
  return frame + row * std::clamp(entries, 1, kListRowsShown);
}
int frmHeadersWindow::RowSelectorWidth() const { return table_->verticalHeader()->width(); }

int frmHeadersWindow::LeftColumn() const { return std::max(0, table_->columnAt(0)); }

int frmHeadersWindow::VisibleColumns() const {
  const int first = LeftColumn();
  int last = table_->columnAt(table_->viewport()->width() - 1);
  if (last < 0) last = GridModel::kColumns - 1;
  int count = 0;
  for (int c = first; c <= last; ++c)
    if (!table_->isColumnHidden(c)) ++count;
  return count;
}

}  // namespace corvalin
