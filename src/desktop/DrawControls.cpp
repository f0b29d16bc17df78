#include "desktop/DrawControls.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QFontDatabase>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <algorithm>

#include "desktop/QtToolkit.h"

namespace corvalin {

void DrawState(QWidget* widget, const Control& control) {
  widget->setEnabled(control.Enabled);
  widget->setVisible(control.Visible);
}

void DrawTabStop(QWidget* widget, const Control& control) {
  const Qt::FocusPolicy policy = control.TabStop ? Qt::StrongFocus : Qt::ClickFocus;
  widget->setFocusPolicy(policy);
  // A list's own text field goes with it.
  if (auto* list = qobject_cast<QComboBox*>(widget); list != nullptr && list->lineEdit() != nullptr)
    list->lineEdit()->setFocusPolicy(policy);
}

void DrawCaption(QLabel* widget, const Label& label) {
  widget->setText(ToQt(label.Caption));
  widget->setStyleSheet(label.Red ? QStringLiteral("color: rgb(255, 0, 0)") : QString());
  DrawState(widget, label);
}

void DrawPath(QLineEdit* widget, const Label& label) {
  const QString text = PathToQt(label.Caption);
  if (widget->text() != text) {
    widget->setText(text);
    widget->setCursorPosition(0);
  }
  widget->setToolTip(text);
  widget->setStyleSheet(label.Red ? QStringLiteral("color: rgb(255, 0, 0)") : QString());
  DrawState(widget, label);
}

void DrawButton(QAbstractButton* widget, const Button& button) {
  widget->setText(ToQt(button.Caption));
  DrawState(widget, button);
}

void DrawCheck(QCheckBox* widget, const CheckBox& box) {
  const QSignalBlocker block(widget);
  widget->setText(ToQt(box.Caption));
  widget->setChecked(box.Checked());
  DrawState(widget, box);
}

void DrawOption(QRadioButton* widget, const OptionButton& option) {
  const QSignalBlocker block(widget);
  widget->setText(ToQt(option.Caption));
  widget->setChecked(option.Value);
  DrawState(widget, option);
}

void DrawText(QLineEdit* widget, const TextBox& box) {
  const QSignalBlocker block(widget);
  const QString text = ToQt(box.Text);
  if (widget->text() != text) widget->setText(text);
  DrawState(widget, box);
}

namespace {

// The list's items, put in again only when they changed: a list that is
// rebuilt loses the person's place in it.
void DrawItems(QComboBox* widget, const ListControl& list) {
  QStringList items;
  for (const std::string& item : list.Items) items << ToQt(item);
  QStringList shown;
  for (int i = 0; i < widget->count(); ++i) shown << widget->itemText(i);
  if (shown != items) {
    widget->clear();
    widget->addItems(items);
  }
}

}  // namespace

void DrawList(QComboBox* widget, const ListControl& list) {
  const QSignalBlocker block(widget);
  DrawItems(widget, list);
  widget->setCurrentIndex(list.ListIndex);
  DrawState(widget, list);
}

void DrawEditableList(QComboBox* widget, const ListControl& list) {
  const QSignalBlocker block(widget);
  DrawItems(widget, list);
  if (widget->lineEdit()->text() != ToQt(list.Text)) widget->setEditText(ToQt(list.Text));
}

void DrawListBox(QListWidget* widget, const ListControl& list) {
  const QSignalBlocker block(widget);
  QStringList rows;
  for (const std::string& item : list.Items) rows << ToQt(item);
  QStringList shown;
  for (int i = 0; i < widget->count(); ++i) shown << widget->item(i)->text();
  if (shown != rows) {
    widget->clear();
    widget->addItems(rows);
  }
  if (list.ListIndex >= 0 && list.ListIndex < widget->count()) {
    widget->setCurrentRow(list.ListIndex);
    widget->scrollToItem(widget->item(list.ListIndex));
  } else {
    widget->setCurrentRow(-1);
    widget->clearSelection();
  }
  DrawState(widget, list);
}

QLabel* NewLabel(QWidget* parent, const char* name) {
  auto* label = new QLabel(parent);
  label->setObjectName(QString::fromLatin1(name));
  return label;
}

QLineEdit* NewPathField(QWidget* parent, const char* name) {
  auto* field = new QLineEdit(parent);
  field->setObjectName(QString::fromLatin1(name));
  field->setReadOnly(true);
  field->setMinimumWidth(360);
  return field;
}

QComboBox* NewEditableList(QWidget* parent, const char* name, int characters) {
  auto* list = new QComboBox(parent);
  list->setObjectName(QString::fromLatin1(name));
  list->setEditable(true);
  list->setInsertPolicy(QComboBox::NoInsert);
  list->setMinimumContentsLength(characters);
  return list;
}

namespace {

// Every line of a file's list is one row of the fixed font: one row's size
// serves them all, its width that of the longest line. Measured line by line
// (the style lays out each line's text), a file of some thousand lines held
// the window for seconds each time the list was filled or brought into view.
class LineListDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    QSize size = QStyledItemDelegate::sizeHint(option, index);
    const QAbstractItemModel* model = index.model();
    if (model == nullptr) return size;
    qsizetype longest = 0;
    for (int row = 0; row < model->rowCount(index.parent()); ++row)
      longest = std::max(longest, model->index(row, 0, index.parent()).data().toString().size());
    const int advance = option.fontMetrics.horizontalAdvance(QLatin1Char('0'));
    const int text = advance * static_cast<int>(longest);
    const int own = advance * static_cast<int>(index.data().toString().size());
    size.setWidth(std::max(size.width(), size.width() - own + text));
    return size;
  }
};

}  // namespace

QListWidget* NewLineList(QWidget* parent, const char* name, const QString& accessibleName, int characters) {
  auto* list = new QListWidget(parent);
  list->setUniformItemSizes(true);
  list->setItemDelegate(new LineListDelegate(list));
  list->setObjectName(QString::fromLatin1(name));
  list->setAccessibleName(accessibleName);
  list->setSelectionMode(QAbstractItemView::SingleSelection);
  list->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  list->setMinimumWidth(list->fontMetrics().horizontalAdvance(QLatin1Char('0')) * characters + 24);
  return list;
}

DialogButtons NewDialogButtons(QWidget* parent) {
  const auto button = [parent](const char* name) {
    auto* created = new QPushButton(parent);
    created->setObjectName(QString::fromLatin1(name));
    return created;
  };
  DialogButtons buttons{button("cmdOk"), button("cmdCancel"), button("cmdHelp"), new QHBoxLayout};
  buttons.ok->setDefault(true);
  buttons.row->addStretch(1);
  buttons.row->addWidget(buttons.ok);
  buttons.row->addWidget(buttons.cancel);
  buttons.row->addWidget(buttons.help);
  return buttons;
}

}  // namespace corvalin
