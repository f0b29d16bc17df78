// What the keyboard and screen reader tests ask of every window: the chain
// Tab goes through, the access keys of its captions without clashes, a name
// for every control, and ways to act on a modal window or a popup menu once
// it is up.
#pragma once

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QMap>
#include <QMenu>
#include <QTimer>
#include <QtTest/QtTest>
#include <functional>

#include "desktop/Keyboard.h"

namespace corvalin::desktoptest {

// The names of the controls Tab reaches from the first, in turn, as far as
// it comes back to the first: visible and enabled ones only.
inline QStringList TabChain(QWidget* window) {
  QStringList names;
  const QList<QWidget*> order = ReadingOrder(window);
  QWidget* first = nullptr;
  for (QWidget* control : order)
    if (control->isVisible() && control->isEnabled()) {
      first = control;
      break;
    }
  if (first == nullptr) return names;
  QWidget* at = first;
  do {
    if (at->window() == window && at->isVisible() && at->isEnabled() && (at->focusPolicy() & Qt::TabFocus) &&
        at->focusProxy() == nullptr)
      names << at->objectName();
    at = at->nextInFocusChain();
  } while (at != first && names.size() < 200);
  return names;
}

// What is wrong with the access keys of the window: a usable button, box,
// option or labelled field without one (unless `without` names it: it may
// go without),
// or two that share one; empty when nothing is. Returned rather than
// checked, so that a script at a modal window runs on to its end.
inline QString AccessKeyFaults(QWidget* window, const QStringList& without = {}) {
  auto keyOf = [](const QString& text) -> QChar {
    for (int i = 0; i + 1 < text.size(); ++i) {
      if (text[i] != QLatin1Char('&')) continue;
      if (text[i + 1] == QLatin1Char('&')) {
        ++i;
        continue;
      }
      return text[i + 1].toLower();
    }
    return {};
  };
  QMap<QString, QPair<QWidget*, QChar>> keys;
  for (QAbstractButton* button : window->findChildren<QAbstractButton*>())
    if (button->window() == window && (button->focusPolicy() & Qt::TabFocus))
      keys.insert(button->objectName(), {button, keyOf(button->text())});
  for (QLabel* label : window->findChildren<QLabel*>())
    if (label->window() == window && label->buddy() != nullptr && (label->buddy()->focusPolicy() & Qt::TabFocus))
      keys.insert(QStringLiteral("label of ") + label->buddy()->objectName(), {label->buddy(), keyOf(label->text())});
  if (keys.isEmpty()) return QStringLiteral("no keys at all");
  QStringList faults;
  QMap<QChar, QString> owners;
  for (auto it = keys.begin(); it != keys.end(); ++it) {
    QWidget* control = it.value().first;
    const QChar key = it.value().second;
    const bool usable = control->isEnabled() && control->isVisible();
    if (key.isNull()) {
      if (usable && !without.contains(it.key())) faults << QStringLiteral("no key for ") + it.key();
      continue;
    }
    if (owners.contains(key))
      faults << it.key() + QStringLiteral(" and ") + owners.value(key) + QStringLiteral(" share ") + key;
    owners.insert(key, it.key());
  }
  return faults.join(QStringLiteral("; "));
}

// The controls Tab reaches that have no name a screen reader can say.
inline QString UnnamedControls(QWidget* window) {
  QStringList unnamed;
  for (QWidget* control : ReadingOrder(window)) {
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(control);
    if (accessible == nullptr || accessible->text(QAccessible::Name).trimmed().isEmpty())
      unnamed << control->objectName();
  }
  return unnamed.join(QStringLiteral(" "));
}

// Every caption of the window has a key, and no two share one.
inline void ExpectAccessKeysWithoutClashes(QWidget* window) {
  const QString faults = AccessKeyFaults(window);
  QVERIFY2(faults.isEmpty(), qPrintable(window->objectName() + QStringLiteral(": ") + faults));
}

// Every control Tab reaches has a name a screen reader can say.
inline void ExpectNamedControls(QWidget* window) {
  const QString unnamed = UnnamedControls(window);
  QVERIFY2(unnamed.isEmpty(), qPrintable(window->objectName() + QStringLiteral(": no name for ") + unnamed));
}

// Runs act on the next modal window once it is up and has the keyboard.
inline void WhenActiveModal(std::function<void(QWidget*)> act) {
  auto* timer = new QTimer;
  timer->setInterval(0);
  QObject::connect(timer, &QTimer::timeout, [timer, act] {
    QWidget* modal = QApplication::activeModalWidget();
    if (modal == nullptr || !modal->isVisible() || QApplication::activeWindow() != modal) return;
    timer->stop();
    timer->deleteLater();
    act(modal);
  });
  timer->start();
}

// Runs act on the next popup menu once it is up.
inline void WhenModalPopup(std::function<void(QMenu*)> act) {
  auto* timer = new QTimer;
  timer->setInterval(0);
  QObject::connect(timer, &QTimer::timeout, [timer, act] {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (menu == nullptr || !menu->isVisible()) return;
    timer->stop();
    timer->deleteLater();
    act(menu);
  });
  timer->start();
}

}  // namespace corvalin::desktoptest
