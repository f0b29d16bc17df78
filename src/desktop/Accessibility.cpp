#include "desktop/Accessibility.h"

#include <QAbstractButton>
#include <QLabel>
#include <QWidget>
#include <limits>

#include "desktop/Keyboard.h"

namespace corvalin {

void NameFieldsByTheirLabels(QWidget* window) {
  const QList<QWidget*> controls = ReadingOrder(window);
  for (QLabel* label : window->findChildren<QLabel*>()) {
    if (label->window() != window) continue;
    const QString caption = PlainCaption(label->text()).trimmed();
    QWidget* field = label->buddy();
    if (field == nullptr && !caption.endsWith(QLatin1Char(':'))) continue;
    if (field == nullptr) {
      const QRect labelRect(label->mapTo(window, QPoint(0, 0)), label->size());
      int nearest = std::numeric_limits<int>::max();
      for (QWidget* control : controls) {
        if (qobject_cast<QAbstractButton*>(control) != nullptr) continue;
        const QRect rect(control->mapTo(window, QPoint(0, 0)), control->size());
        const int middle = rect.center().y();
        if (middle < labelRect.top() || middle > labelRect.bottom() || rect.left() < labelRect.right()) continue;
        if (rect.left() - labelRect.right() < nearest) {
          nearest = rect.left() - labelRect.right();
          field = control;
        }
      }
      if (field == nullptr) continue;
      label->setBuddy(field);
    }
    if (field->accessibleName().isEmpty())
      field->setAccessibleName(caption.endsWith(QLatin1Char(':')) ? caption.chopped(1).trimmed() : caption);
  }
}

}  // namespace corvalin
