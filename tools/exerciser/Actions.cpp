#include "Actions.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPointer>
#include <QRadioButton>
#include <QTabBar>
#include <QTextEdit>
#include <QtTest/QtTest>
#include <algorithm>
#include <map>
#include <utility>

namespace corvalin::exerciser {

namespace {

std::string runFolder;

std::string Std(const QString& text) { return text.toStdString(); }

int Roll(std::mt19937_64& random, int n) { return n <= 0 ? 0 : static_cast<int>(random() % static_cast<unsigned>(n)); }

bool IsControl(QWidget* widget) {
  return qobject_cast<QAbstractButton*>(widget) || qobject_cast<QComboBox*>(widget) ||
         qobject_cast<QLineEdit*>(widget) || qobject_cast<QAbstractSpinBox*>(widget) ||
         qobject_cast<QTextEdit*>(widget) || qobject_cast<QPlainTextEdit*>(widget) ||
         qobject_cast<QAbstractItemView*>(widget) || qobject_cast<QTabBar*>(widget) ||
         widget->inherits("corvalin::ColumnPreview");
}

struct Control {
  QWidget* widget;
  std::string key;
};

// The enabled, visible controls of the window (not of windows it owns), each
// with its key: the object name, or the class and its place among the
// controls of that class.
std::vector<Control> Controls(QWidget* window) {
  std::vector<Control> controls;
  std::map<std::string, int> seen;
  for (QWidget* widget : window->findChildren<QWidget*>()) {
    if (widget->window() != window || !widget->isVisible() || !widget->isEnabled() || !IsControl(widget)) continue;
    if (qobject_cast<QFileDialog*>(window) && widget->objectName() == QLatin1String("newFolderButton")) continue;
    // A combo box's own line edit is the combo box's.
    if (qobject_cast<QLineEdit*>(widget) && qobject_cast<QComboBox*>(widget->parentWidget())) continue;
    std::string base = Std(widget->objectName());
    if (base.empty() || base.rfind("qt_", 0) == 0) base = widget->metaObject()->className();
    const int n = seen[base]++;
    controls.push_back({widget, n == 0 ? base : base + "#" + std::to_string(n)});
  }
  return controls;
}

QWidget* FindControl(QWidget* window, const std::string& key) {
  for (const Control& control : Controls(window))
    if (control.key == key) return control.widget;
  return nullptr;
}

// Mouse events go to the widget under the pointer: a scroll area's viewport.
QWidget* MouseTarget(QWidget* control) {
  if (auto* area = qobject_cast<QAbstractScrollArea*>(control)) return area->viewport();
  return control;
}

QPoint PointAt(QWidget* widget, int xPerMille, int yPerMille) {
  return {std::clamp(widget->width() * xPerMille / 1000, 0, std::max(0, widget->width() - 1)),
          std::clamp(widget->height() * yPerMille / 1000, 0, std::max(0, widget->height() - 1))};
}

std::vector<int> Numbers(const std::string& text) {
  std::vector<int> numbers;
  std::string part;
  for (const char c : text + ",") {
    if (c == ',') {
      numbers.push_back(part.empty() ? 0 : std::atoi(part.c_str()));
      part.clear();
    } else {
      part += c;
    }
  }
  return numbers;
}

std::string Join(std::initializer_list<int> numbers) {
  std::string text;
  for (const int n : numbers) text += (text.empty() ? "" : ",") + std::to_string(n);
  return text;
}

void Click(QWidget* widget, QPoint at, Qt::MouseButton button = Qt::LeftButton) {
  QPointer<QWidget> alive(widget);
  QTest::mousePress(widget, button, {}, at);
  if (alive) QTest::mouseRelease(widget, button, {}, at);
}

void DoubleClick(QWidget* widget, QPoint at) {
  QPointer<QWidget> alive(widget);
  Click(widget, at);
  if (alive) QTest::mouseDClick(widget, Qt::LeftButton, {}, at);
  if (alive) QTest::mouseRelease(widget, Qt::LeftButton, {}, at);
}

void Drag(QWidget* widget, QPoint from, QPoint to) {
  QPointer<QWidget> alive(widget);
  QTest::mousePress(widget, Qt::LeftButton, {}, from);
  for (int step = 1; step <= 4 && alive; ++step) QTest::mouseMove(widget, from + (to - from) * step / 4);
  if (alive) QTest::mouseRelease(widget, Qt::LeftButton, {}, to);
}

// A right click: the press, then the context menu event the window system
// sends for it.
void RightClick(QWidget* widget, QPoint at) {
  QPointer<QWidget> alive(widget);
  Click(widget, at, Qt::RightButton);
  if (!alive) return;
  QContextMenuEvent event(QContextMenuEvent::Mouse, at, widget->mapToGlobal(at));
  QApplication::sendEvent(widget, &event);
}

const std::vector<std::pair<std::string, Qt::Key>>& Keys() {
  static const std::vector<std::pair<std::string, Qt::Key>> keys{{"Tab", Qt::Key_Tab},
                                                                 {"Backtab", Qt::Key_Backtab},
                                                                 {"Return", Qt::Key_Return},
                                                                 {"Escape", Qt::Key_Escape},
                                                                 {"Left", Qt::Key_Left},
                                                                 {"Right", Qt::Key_Right},
                                                                 {"Up", Qt::Key_Up},
                                                                 {"Down", Qt::Key_Down},
                                                                 {"Space", Qt::Key_Space},
                                                                 {"Delete", Qt::Key_Delete},
                                                                 {"Home", Qt::Key_Home},
                                                                 {"End", Qt::Key_End},
                                                                 {"PageDown", Qt::Key_PageDown},
                                                                 {"F4", Qt::Key_F4}};
  return keys;
}

// The widget the keyboard types into in that window.
QWidget* KeyTarget(QWidget* window) {
  QWidget* focus = window->focusWidget();
  return focus != nullptr && focus->isVisible() ? focus : window;
}

void Key(QWidget* window, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
  QPointer<QWidget> target(KeyTarget(window));
  QTest::keyPress(target.data(), key, modifiers);
  if (target) QTest::keyRelease(target.data(), key, modifiers);
}

std::function<void()> paceHook;

void Pace() {
  if (paceHook) paceHook();
}

// Types the Latin-1 bytes one key at a time into whatever has the keyboard.
void Type(QWidget* window, const std::string& bytes) {
  QPointer<QWidget> owner(window);
  for (const char byte : bytes) {
    if (!owner) return;
    const QChar c(static_cast<uchar>(byte));
    Qt::Key key = Qt::Key_unknown;
    if (c.isDigit())
      key = static_cast<Qt::Key>(Qt::Key_0 + c.digitValue());
    else if (c.toLatin1() >= 'a' && c.toLatin1() <= 'z')
      key = static_cast<Qt::Key>(Qt::Key_A + (c.toLatin1() - 'a'));
    else if (c.toLatin1() >= 'A' && c.toLatin1() <= 'Z')
      key = static_cast<Qt::Key>(Qt::Key_A + (c.toLatin1() - 'A'));
    else if (c == QLatin1Char(' '))
      key = Qt::Key_Space;
    QPointer<QWidget> target(KeyTarget(owner));
    QTest::sendKeyEvent(QTest::Press, target.data(), key, QString(c), Qt::NoModifier);
    if (target) QTest::sendKeyEvent(QTest::Release, target.data(), key, QString(c), Qt::NoModifier);
    Pace();
  }
}

std::string RandomText(std::mt19937_64& random) {
  static const std::string letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
  std::string text;
  switch (Roll(random, 8)) {
    case 0:
      for (int i = 1 + Roll(random, 8); i > 0; --i) text += static_cast<char>('0' + Roll(random, 10));
      break;
    case 1:
      for (int i = 1 + Roll(random, 12); i > 0; --i) text += letters[Roll(random, 52)];
      break;
    case 2:
      text = std::string(1 + Roll(random, 4), ' ');
      break;
    case 3:
      for (int i = 0; i < 300; ++i) text += static_cast<char>(i % 11 == 10 ? ' ' : letters[Roll(random, 52)]);
      break;
    case 4:
      text = "\xe9";
      break;
    case 5:
      text = "\xff";
      break;
    case 6:
      text = std::to_string(Roll(random, 200) - 50) + "." + std::to_string(Roll(random, 100));
      break;
    default:
      text = std::string(1, "-,.;:/\\@&\"'*?"[Roll(random, 13)]) + letters[Roll(random, 52)];
  }
  return text;
}

// A cell of the view in sight, as "row,column": under a random point of its
// viewport, or, where that point has no cell (a few rows in a tall view), a
// random cell among those in sight.
std::string RandomCell(QAbstractItemView* view, std::mt19937_64& random) {
  QWidget* port = view->viewport();
  QModelIndex index = view->indexAt(QPoint(Roll(random, port->width()), Roll(random, port->height())));
  QAbstractItemModel* model = view->model();
  for (int attempt = 0; !index.isValid() && model != nullptr && attempt < 8; ++attempt) {
    const int rows = model->rowCount(view->rootIndex());
    const int columns = model->columnCount(view->rootIndex());
    if (rows <= 0 || columns <= 0) break;
    const QModelIndex top = view->indexAt(QPoint(0, 0));
    const int first = top.isValid() ? top.row() : 0;
    const QModelIndex candidate =
        model->index(first + Roll(random, std::min(rows - first, 40)), Roll(random, columns), view->rootIndex());
    if (view->visualRect(candidate).intersects(port->rect())) index = candidate;
  }
  if (!index.isValid()) return {};
  return Join({index.row(), index.column()});
}

QRect CellRect(QAbstractItemView* view, const std::string& cell) {
  const std::vector<int> rc = Numbers(cell);
  if (rc.size() < 2 || view->model() == nullptr) return {};
  const QModelIndex index = view->model()->index(rc[0], rc[1], view->rootIndex());
  if (!index.isValid()) return {};
  return view->visualRect(index).intersected(view->viewport()->rect());
}

int RandomSection(QHeaderView* header, std::mt19937_64& random) {
  const int length =
      header->orientation() == Qt::Horizontal ? header->viewport()->width() : header->viewport()->height();
  return header->logicalIndexAt(Roll(random, std::max(1, length)));
}

QPoint SectionPoint(QHeaderView* header, int section) {
  if (section < 0 || section >= header->count() || header->isSectionHidden(section)) return {-1, -1};
  const int middle = header->sectionViewportPosition(section) + header->sectionSize(section) / 2;
  const QPoint at = header->orientation() == Qt::Horizontal ? QPoint(middle, header->viewport()->height() / 2)
                                                            : QPoint(header->viewport()->width() / 2, middle);
  return header->viewport()->rect().contains(at) ? at : QPoint(-1, -1);
}

// The person leaves the file dialogs' own file keeping alone: their Delete,
// Rename and New Folder act on whatever folder the dialog shows, outside the
// program, and could reach any file of the machine.
bool InFileDialog(QWidget* widget) { return widget != nullptr && qobject_cast<QFileDialog*>(widget->window()); }

bool KeepsFiles(const QString& entry) {
  QString text = entry;
  text.remove(QLatin1Char('&'));
  text = text.section(QLatin1Char('\t'), 0, 0);
  return text == QLatin1String("Delete") || text == QLatin1String("Rename") || text == QLatin1String("New Folder");
}

std::vector<QAction*> MenuEntries(QMenu* menu) {
  const bool fileDialog = InFileDialog(menu->parentWidget());
  std::vector<QAction*> entries;
  for (QAction* action : menu->actions())
    if (action->isVisible() && !action->isSeparator() && !(fileDialog && KeepsFiles(action->text())))
      entries.push_back(action);
  return entries;
}

Action ChooseOnControl(QWidget* window, const Control& control, std::mt19937_64& random) {
  Action action{WindowKey(window), Std(window->windowTitle()), control.key, "click", "500,500"};
  QWidget* widget = control.widget;
  const int roll = Roll(random, 100);
  const auto point = [&] { return Join({Roll(random, 1000), Roll(random, 1000)}); };
  if (auto* header = qobject_cast<QHeaderView*>(widget)) {
    const int from = RandomSection(header, random);
    const int to = RandomSection(header, random);
    action.kind = roll < 40 ? "section" : roll < 70 ? "section-menu" : "section-drag";
    action.data = action.kind == "section-drag" ? Join({from, to}) : std::to_string(from);
  } else if (auto* view = qobject_cast<QAbstractItemView*>(widget)) {
    action.kind = roll < 20   ? "cell"
                  : roll < 35 ? "cell-button"
                  : roll < 45 ? "cell-double"
                  : roll < 65 ? "cell-type"
                  : roll < 80 ? "cell-menu"
                              : "cell-drag";
    action.data = RandomCell(view, random);
    if (action.kind == "cell-drag") action.data += "|" + RandomCell(view, random);
    if (action.kind == "cell-type") action.data += "|" + ToHex(RandomText(random));
  } else if (auto* tabs = qobject_cast<QTabBar*>(widget)) {
    action.kind = "tab";
    action.data = std::to_string(Roll(random, tabs->count()));
  } else if (qobject_cast<QLineEdit*>(widget) || qobject_cast<QAbstractSpinBox*>(widget) ||
             qobject_cast<QTextEdit*>(widget) || qobject_cast<QPlainTextEdit*>(widget) ||
             (qobject_cast<QComboBox*>(widget) && static_cast<QComboBox*>(widget)->isEditable() && roll < 50)) {
    if (roll < 75) {
      action.kind = "type";
      action.data = std::string(Roll(random, 3) == 0 ? "A|" : "-|") + ToHex(RandomText(random));
    } else {
      action.data = point();
    }
  } else if (widget->inherits("corvalin::ColumnPreview")) {
    action.kind = roll < 40 ? "click" : roll < 90 ? "drag" : "right-click";
    action.data = action.kind == "drag" ? point() + "," + point() : point();
  } else if (roll >= 93) {
    action.kind = "right-click";
  } else if (qobject_cast<QCheckBox*>(widget) || qobject_cast<QRadioButton*>(widget)) {
    // A box stretched across its window takes a click only on its mark and
    // its text: a person aims there.
    const int reach = std::clamp(widget->sizeHint().width(), 1, std::max(1, widget->width()));
    action.data = Join({Roll(random, reach) * 1000 / std::max(1, widget->width()), 500});
  }
  return action;
}

}  // namespace

void SetRunFolder(const std::string& folder) { runFolder = folder; }

void SetPaceHook(std::function<void()> hook) { paceHook = std::move(hook); }

std::string WindowKey(QWidget* window) {
  const std::string name = Std(window->objectName());
  return name.empty() || name.rfind("qt_", 0) == 0 ? window->metaObject()->className() : name;
}

namespace {

std::vector<QWidget*> OpenWindows() {
  std::vector<QWidget*> windows;
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    if (!widget->isVisible() || widget->windowType() == Qt::ToolTip || widget->windowType() == Qt::Popup) continue;
    if (widget->windowType() == Qt::Desktop || widget->width() <= 0) continue;
    windows.push_back(widget);
  }
  return windows;
}

}  // namespace

QWidget* TopWindow(std::mt19937_64& random) {
  if (QWidget* popup = QApplication::activePopupWidget()) return popup;
  if (QWidget* modal = QApplication::activeModalWidget(); modal != nullptr && modal->isVisible()) return modal;
  const std::vector<QWidget*> windows = OpenWindows();
  if (windows.empty()) return nullptr;
  QWidget* front = QApplication::activeWindow();
  if (front == nullptr || !front->isVisible() || std::find(windows.begin(), windows.end(), front) == windows.end())
    front = windows.back();
  // Mostly the frontmost window; now and then another one, as while a load
  // lets pending events run under its busy window.
  return Roll(random, 5) == 0 ? windows[Roll(random, static_cast<int>(windows.size()))] : front;
}

QWidget* FindWindow(const std::string& key) {
  if (QWidget* popup = QApplication::activePopupWidget()) return WindowKey(popup) == key ? popup : nullptr;
  if (QWidget* modal = QApplication::activeModalWidget(); modal != nullptr && modal->isVisible())
    return WindowKey(modal) == key ? modal : nullptr;
  const std::vector<QWidget*> windows = OpenWindows();
  for (auto it = windows.rbegin(); it != windows.rend(); ++it)
    if (WindowKey(*it) == key) return *it;
  return nullptr;
}

Goal GoalOfLife(int life) { return static_cast<Goal>(life % 3); }

namespace {

// How likely the person is to take the control, against 4 for most. A
// hurried person presses on: Next and OK come up more often than the rest,
// Quit less, so that the lives reach the later screens. A life with a goal
// goes for the controls that lead there and stays.
int Weight(const std::string& window, QWidget* widget, Goal goal) {
  const QString name = widget->objectName();
  const auto is = [&](std::initializer_list<const char*> names) {
    for (const char* n : names)
      if (name == QLatin1String(n)) return true;
    return false;
  };
  const auto* box = qobject_cast<QAbstractButton*>(widget);
  const bool checked = box != nullptr && box->isCheckable() && box->isChecked();
  if (goal == Goal::Grid && window == "frmTemplate") {
    // A file to translate, no files to edit, and on to the grid.
    if (is({"chkTranslateFile"})) return checked ? 1 : 24;
    if (is({"chkEditStandListFile"})) return checked ? 24 : 0;
    if (is({"cmdNextTrans"})) return 24;
    if (is({"cmbTemplate", "cmdChangeInput"})) return 8;
    if (is({"cmdConfigure", "cmdDeleteTemplate", "cmdFinish"})) return 1;
  }
  if (goal == Goal::Grid && window == "frmColumns") {
    if (is({"cmdNext"})) return 24;
    if (is({"cmdBack", "cmdFinish"})) return 1;
  }
  if (goal == Goal::Grid && window == "frmHeaders") {
    if (is({"TDBGrid1"})) return 40;
    if (is({"cmbHeaderChoices", "cmbUnitChoices", "cmdEditTemplateCommands"}) ||
        qobject_cast<QHeaderView*>(widget) != nullptr)
      return 16;
    if (is({"cmdNext", "cmdFinish", "cmdBack", "cmdQuit"})) return 1;
  }
  if (goal == Goal::Grid && window == "frmEditTemplateCommands") {
    // A command chosen and opened, rather than OK at once.
    if (is({"lstTemplateCommands", "cmdEdit"})) return 12;
    if (is({"cmdOk"})) return 2;
  }
  if (goal == Goal::Editors && window == "frmTemplate") {
    // Files to edit, nothing to translate.
    if (is({"chkTranslateFile"})) return checked ? 24 : 0;
    if (is({"chkEditStandListFile"})) return checked ? 1 : 24;
    if (is({"cmdSelectSlf", "cmdSelectLocations"})) return 12;
  }
  if (goal == Goal::Editors && (window == "frmSlf" || window == "frmLocation")) {
    if (is({"cmdInsertA", "cmdInsertB", "cmdInsertC", "cmdInsertD", "cmdEdit"})) return 8;
    if (is({"cmdBack", "cmdQuit"})) return 1;
  }
  if (is({"cmdNext", "cmbNext", "cmdOk", "cmdOK"})) return 16;
  if (is({"cmdQuit", "cmdExit"})) return 1;
  return 4;
}

}  // namespace

Action ChooseAction(QWidget* window, std::mt19937_64& random, const FileChoices& files, Goal goal) {
  Action action{WindowKey(window), Std(window->windowTitle()), "-", "", ""};
  if (auto* menu = qobject_cast<QMenu*>(window)) {
    const std::vector<QAction*> entries = MenuEntries(menu);
    // A person mostly takes an entry that is not greyed out.
    std::vector<int> enabled;
    for (std::size_t i = 0; i < entries.size(); ++i)
      if (entries[i]->isEnabled()) enabled.push_back(static_cast<int>(i));
    if (entries.empty() || Roll(random, 8) == 0) {
      action.kind = "key";
      action.data = "Escape";
    } else {
      const int n = !enabled.empty() && Roll(random, 8) != 0 ? enabled[Roll(random, static_cast<int>(enabled.size()))]
                                                             : Roll(random, static_cast<int>(entries.size()));
      action.kind = "menu";
      action.data = std::to_string(n) + "|" + Std(entries[n]->text());
    }
    return action;
  }
  if (window->windowType() == Qt::Popup) {
    auto* view = window->findChild<QAbstractItemView*>();
    if (view == nullptr || Roll(random, 6) == 0) {
      action.kind = "key";
      action.data = "Escape";
    } else {
      action.kind = "item";
      const int rows = view->model()->rowCount(view->rootIndex());
      int row = Roll(random, std::max(1, rows));
      // A life bound for the grid mostly takes the template made for the
      // exerciser, whose damage column and commands open the rarer dialogs.
      if (goal == Goal::Grid && Roll(random, 2) == 0)
        for (int r = 0; r < rows; ++r)
          if (view->model()->index(r, 0, view->rootIndex()).data().toString() == QLatin1String("mixed")) row = r;
      action.data = std::to_string(row);
    }
    return action;
  }
  const int roll = Roll(random, 100);
  if (qobject_cast<QFileDialog*>(window) && roll < 70 && !files.paths.empty()) {
    action.kind = "file";
    // Half the time the file the dialog asks for (its title says which: the
    // stand list, the location file, else the input), so that the lives
    // reach the screens past it; else any of them. A life with a goal
    // mostly takes the file that leads there.
    const std::string title = Std(window->windowTitle());
    const int fitting = title.find("Stand List") != std::string::npos ? 1
                        : title.find("Location") != std::string::npos ? 2
                                                                      : 0;
    const bool fits = goal == Goal::Wander ? Roll(random, 2) == 0 : Roll(random, 8) != 0;
    const int pick = fits ? fitting : Roll(random, static_cast<int>(files.paths.size()));
    action.data = ToHex(files.paths[pick]);
    return action;
  }
  // A life with a goal seldom closes the window it works in.
  if (roll < (goal == Goal::Wander ? 4 : 1)) {
    action.kind = "close";
    return action;
  }
  if (roll < 16) {
    action.kind = "key";
    action.data = Keys()[Roll(random, static_cast<int>(Keys().size()))].first;
    return action;
  }
  const std::vector<Control> controls = Controls(window);
  if (controls.empty()) {
    action.kind = "key";
    action.data = Keys()[Roll(random, static_cast<int>(Keys().size()))].first;
    return action;
  }
  std::vector<int> weights;
  int total = 0;
  for (const Control& control : controls) {
    weights.push_back(Weight(action.window, control.widget, goal));
    total += weights.back();
  }
  if (total == 0) {
    action.kind = "key";
    action.data = Keys()[Roll(random, static_cast<int>(Keys().size()))].first;
    return action;
  }
  int pick = Roll(random, total);
  std::size_t chosen = 0;
  while (pick >= weights[chosen]) pick -= weights[chosen++];
  return ChooseOnControl(window, controls[chosen], random);
}

bool Perform(const Action& action) {
  QPointer<QWidget> window = FindWindow(action.window);
  if (window == nullptr) return false;
  if (window->windowType() != Qt::Popup && window != QApplication::activeWindow()) window->activateWindow();
  if (action.kind == "close") {
    window->close();
    return true;
  }
  if (action.kind == "key") {
    // Delete in a file dialog deletes the entry in view.
    if (action.data == "Delete" && InFileDialog(KeyTarget(window))) return false;
    for (const auto& [name, key] : Keys())
      if (name == action.data) {
        Key(window, key);
        return true;
      }
    return false;
  }
  if (action.kind == "menu") {
    auto* menu = qobject_cast<QMenu*>(window.data());
    if (menu == nullptr) return false;
    const std::size_t bar = action.data.find('|');
    const std::vector<QAction*> entries = MenuEntries(menu);
    const int n = std::atoi(action.data.substr(0, bar).c_str());
    if (n >= static_cast<int>(entries.size()) || Std(entries[n]->text()) != action.data.substr(bar + 1)) return false;
    Click(menu, menu->actionGeometry(entries[n]).center());
    return true;
  }
  if (action.kind == "item") {
    auto* view = window->findChild<QAbstractItemView*>();
    if (view == nullptr || view->model() == nullptr) return false;
    const QModelIndex index = view->model()->index(std::atoi(action.data.c_str()), 0, view->rootIndex());
    if (!index.isValid()) return false;
    if (window->inherits("QComboBoxPrivateContainer")) {
      // A drop-down list takes no click in its first moments (the release of
      // the click that opened it must not choose): the person goes by keys,
      // up to the top, down to the entry, and Enter.
      QPointer<QAbstractItemView> alive(view);
      const int rows = view->model()->rowCount(view->rootIndex());
      for (int i = 0; i < rows && alive; ++i) {
        QTest::keyClick(view, Qt::Key_Up);
        Pace();
      }
      for (int i = 0; i < index.row() && alive; ++i) {
        QTest::keyClick(view, Qt::Key_Down);
        Pace();
      }
      if (alive) QTest::keyClick(view, Qt::Key_Return);
      return true;
    }
    view->scrollTo(index);
    const QRect rect = view->visualRect(index);
    if (rect.isEmpty()) return false;
    Click(view->viewport(), rect.center());
    return true;
  }
  if (action.kind == "file") {
    auto* name = window->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    if (name == nullptr || !name->isVisible()) return false;
    name->setFocus(Qt::OtherFocusReason);
    std::string path = FromHex(action.data);
    if (path.rfind("$RUN", 0) == 0) path = runFolder + path.substr(4);
    name->setText(QString::fromLocal8Bit(path));
    QPointer<QLineEdit> alive(name);
    QTest::keyPress(name, Qt::Key_Return);
    if (alive) QTest::keyRelease(name, Qt::Key_Return);
    return true;
  }
  QWidget* control = FindControl(window, action.control);
  if (control == nullptr) return false;
  QWidget* target = MouseTarget(control);
  const std::vector<int> numbers = Numbers(action.data.substr(0, action.data.find('|')));
  const auto at = [&](std::size_t first) {
    return numbers.size() >= first + 2 ? PointAt(target, numbers[first], numbers[first + 1]) : target->rect().center();
  };
  if (action.kind == "click") {
    Click(target, at(0));
  } else if (action.kind == "right-click") {
    RightClick(target, at(0));
  } else if (action.kind == "drag") {
    Drag(target, at(0), at(2));
  } else if (action.kind == "type") {
    Click(target, target->rect().center());
    if (!window) return true;
    if (action.data.rfind("A|", 0) == 0) Key(window, Qt::Key_A, Qt::ControlModifier);
    if (window) Type(window, FromHex(action.data.substr(2)));
  } else if (action.kind == "tab") {
    auto* tabs = qobject_cast<QTabBar*>(control);
    const int index = std::atoi(action.data.c_str());
    if (tabs == nullptr || index >= tabs->count()) return false;
    Click(tabs, tabs->tabRect(index).center());
  } else if (action.kind.rfind("section", 0) == 0) {
    auto* header = qobject_cast<QHeaderView*>(control);
    if (header == nullptr || numbers.empty()) return false;
    const QPoint from = SectionPoint(header, numbers[0]);
    if (from.x() < 0) return false;
    if (action.kind == "section")
      Click(target, from);
    else if (action.kind == "section-menu")
      RightClick(target, from);
    else {
      const QPoint to = numbers.size() > 1 ? SectionPoint(header, numbers[1]) : from;
      Drag(target, from, to.x() < 0 ? from : to);
    }
  } else if (action.kind.rfind("cell", 0) == 0) {
    auto* view = qobject_cast<QAbstractItemView*>(control);
    if (view == nullptr) return false;
    // A drag in a file dialog's list would move files.
    if (action.kind == "cell-drag" && InFileDialog(view)) return false;
    const std::size_t bar = action.data.find('|');
    const QRect rect = CellRect(view, action.data.substr(0, bar));
    if (rect.isEmpty()) return false;
    if (action.kind == "cell")
      Click(target, rect.center());
    else if (action.kind == "cell-button")
      // The drop-down button that a column with a code list or the damage
      // dialog draws at the right of its cells.
      Click(target, QPoint(std::max(rect.left(), rect.right() - 5), rect.center().y()));
    else if (action.kind == "cell-double")
      DoubleClick(target, rect.center());
    else if (action.kind == "cell-menu")
      RightClick(target, rect.center());
    else if (action.kind == "cell-drag") {
      const QRect to = CellRect(view, bar == std::string::npos ? std::string() : action.data.substr(bar + 1));
      Drag(target, rect.center(), to.isEmpty() ? rect.center() : to.center());
    } else if (action.kind == "cell-type") {
      Click(target, rect.center());
      if (window) Type(window, FromHex(bar == std::string::npos ? std::string() : action.data.substr(bar + 1)));
      if (window) Key(window, Qt::Key_Return);
    }
  } else {
    return false;
  }
  return true;
}

bool MaySave(const Action& action) {
  static const std::vector<std::string> editors{"frmSlf",          "frmLocation",  "frmHeaders",
                                                "frmTemplateName", "frmSlfRecord", "frmLocationRecord"};
  static const std::vector<std::string> saves{"cmdSave", "cmdDone", "cmbNext", "cmdBack", "cmdQuit", "cmdSaveTemplate"};
  const bool editor = std::find(editors.begin(), editors.end(), action.window) != editors.end();
  if (!editor) return false;
  if (action.window == "frmTemplateName") return action.control == "cmdOk" || action.kind != "click";
  if (action.kind == "close" || action.kind == "key" || action.kind == "type") return true;
  return std::find(saves.begin(), saves.end(), action.control) != saves.end();
}

Removal MayRemove(const Action& action) {
  if (action.window != "frmTemplate") return Removal::None;
  return action.control == "cmdDeleteTemplate" || action.kind == "key" ? Removal::Template : Removal::None;
}

}  // namespace corvalin::exerciser
