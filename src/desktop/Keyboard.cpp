#include "desktop/Keyboard.h"

#include <QAbstractButton>
#include <QLabel>
#include <QWidget>
#include <algorithm>
#include <string>
#include <vector>

#include "screens/Mnemonics.h"

namespace corvalin {

namespace {

// A control Tab may reach, of this window and not of a window within it.
bool TakesTab(QWidget* widget, QWidget* window) {
  return widget != window && widget->window() == window && (widget->focusPolicy() & Qt::TabFocus) != 0;
}

// Whether the widget is, or holds, a control of the window.
bool HoldsControls(QWidget* widget, QWidget* window) {
  if (TakesTab(widget, window)) return true;
  const auto children = widget->findChildren<QWidget*>();
  return std::any_of(children.begin(), children.end(), [window](QWidget* child) { return TakesTab(child, window); });
}

// The children of a block that hold controls, in reading order: rows from
// the top (a child whose top is above the bottom of the row so far joins
// it), each row from the left.
QList<QWidget*> ChildrenInReadingOrder(QWidget* block, QWidget* window) {
  std::vector<QWidget*> children;
  for (QObject* object : block->children()) {
    auto* child = qobject_cast<QWidget*>(object);
    if (child != nullptr && !child->isWindow() && HoldsControls(child, window)) children.push_back(child);
  }
  std::stable_sort(children.begin(), children.end(),
                   [](QWidget* a, QWidget* b) { return a->geometry().top() < b->geometry().top(); });
  QList<QWidget*> ordered;
  std::size_t rowStart = 0;
  while (rowStart < children.size()) {
    int rowBottom = children[rowStart]->geometry().bottom();
    std::size_t rowEnd = rowStart + 1;
    while (rowEnd < children.size() && children[rowEnd]->geometry().top() < rowBottom) {
      rowBottom = std::max(rowBottom, children[rowEnd]->geometry().bottom());
      ++rowEnd;
    }
    std::stable_sort(children.begin() + static_cast<std::ptrdiff_t>(rowStart),
                     children.begin() + static_cast<std::ptrdiff_t>(rowEnd),
                     [](QWidget* a, QWidget* b) { return a->geometry().left() < b->geometry().left(); });
    for (std::size_t i = rowStart; i < rowEnd; ++i) ordered << children[i];
    rowStart = rowEnd;
  }
  return ordered;
}

void Collect(QWidget* block, QWidget* window, QList<QWidget*>& controls) {
  for (QWidget* child : ChildrenInReadingOrder(block, window)) {
    // A control's own parts (a list's text field, a table's viewport) go
    // with it.
    if (TakesTab(child, window)) {
      controls << child;
    } else {
      Collect(child, window, controls);
    }
  }
}

QString WithAccessKey(const QString& caption, int at) {
  QString text;
  for (int i = 0; i < caption.size(); ++i) {
    if (i == at) text += QLatin1Char('&');
    text += caption[i];
    if (caption[i] == QLatin1Char('&')) text += QLatin1Char('&');
  }
  return text;
}

}  // namespace

QString PlainCaption(const QString& text) {
  QString plain;
  for (int i = 0; i < text.size(); ++i) {
    if (text[i] == QLatin1Char('&')) {
      if (i + 1 < text.size() && text[i + 1] == QLatin1Char('&')) plain += QLatin1Char('&');
      ++i;
      if (i < text.size() && text[i] != QLatin1Char('&')) plain += text[i];
      continue;
    }
    plain += text[i];
  }
  return plain;
}

QList<QWidget*> ReadingOrder(QWidget* window) {
  QList<QWidget*> controls;
  Collect(window, window, controls);
  return controls;
}

void OrderTabsByReading(QWidget* window) {
  const QList<QWidget*> controls = ReadingOrder(window);
  for (int i = 1; i < controls.size(); ++i) QWidget::setTabOrder(controls[i - 1], controls[i]);
}

void GiveAccessKeys(QWidget* window) {
  // The captions that carry keys, in reading order: the controls, and the
  // labels that name a field.
  std::vector<QWidget*> owners;
  for (QWidget* control : ReadingOrder(window)) {
    for (QLabel* label : window->findChildren<QLabel*>())
      if (label->buddy() == control && label->window() == window) owners.push_back(label);
    if (qobject_cast<QAbstractButton*>(control) != nullptr) owners.push_back(control);
  }
  // The controls a person can use now are served first; a disabled one
  // (the other half of the first screen) takes what is left.
  auto usable = [](QWidget* owner) {
    auto* label = qobject_cast<QLabel*>(owner);
    QWidget* control = label != nullptr ? label->buddy() : owner;
    return control->isEnabled() && !control->isHidden();
  };
  std::stable_partition(owners.begin(), owners.end(), usable);
  // Of those, a control marked to be served last (one of a block of many
  // short captions that cannot all have a letter of their own) takes what
  // the others leave.
  auto servedFirst = [&usable](QWidget* owner) {
    auto* label = qobject_cast<QLabel*>(owner);
    QWidget* control = label != nullptr ? label->buddy() : owner;
    return usable(owner) && !control->property(kAccessKeyServedLast).toBool();
  };
  const auto lastBatch = std::stable_partition(owners.begin(), owners.end(), servedFirst);
  std::vector<std::string> captions;
  std::vector<QString> plain;
  for (QWidget* owner : owners) {
    const QString text = PlainCaption(qobject_cast<QLabel*>(owner) != nullptr ? qobject_cast<QLabel*>(owner)->text()
                                                                             : qobject_cast<QAbstractButton*>(owner)->text());
    plain.push_back(text);
    // Captions are single-byte text: one character, one position.
    captions.push_back(text.toLatin1().toStdString());
  }
  // Those served last choose among the letters the others left, and never
  // move one of the others to another letter.
  const auto firstCount = lastBatch - owners.begin();
  std::vector<int> keys = ChooseMnemonics({captions.begin(), captions.begin() + firstCount});
  std::string taken;
  for (std::size_t i = 0; i < keys.size(); ++i)
    if (keys[i] >= 0) taken += captions[i][static_cast<std::size_t>(keys[i])];
  const std::vector<int> lastKeys = ChooseMnemonics({captions.begin() + firstCount, captions.end()}, taken);
  keys.insert(keys.end(), lastKeys.begin(), lastKeys.end());
  for (std::size_t i = 0; i < owners.size(); ++i) {
    const QString text = WithAccessKey(plain[i], keys[i]);
    if (auto* label = qobject_cast<QLabel*>(owners[i])) {
      if (label->text() != text) label->setText(text);
    } else if (auto* button = qobject_cast<QAbstractButton*>(owners[i]); button->text() != text) {
      button->setText(text);
    }
  }
}

}  // namespace corvalin
