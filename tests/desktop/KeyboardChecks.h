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

// The access keys of the window, by the control or label that carries each.
inline QMap<QString, QChar> AccessKeys(QWidget* window) {
  QMap<QString, QChar> keys;
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
  for (QAbstractButton* button : window->findChildren<QAbstractButton*>())
    if (button->window() == window && (button->focusPolicy() & Qt::TabFocus))
      keys.insert(button->objectName(), keyOf(button->text()));
  for (QLabel* label : window->findChildren<QLabel*>())
    if (label->window() == window && label->buddy() != nullptr)
      keys.insert(QStringLiteral("label of ") + label->buddy()->objectName(), keyOf(label->text()));
  return keys;
}

// Every caption of the window has a key, and no two share one.
inline void ExpectAccessKeysWithoutClashes(QWidget* window) {
  const QMap<QString, QChar> keys = AccessKeys(window);
  QVERIFY(!keys.isEmpty());
  QMap<QChar, QString> owners;
  for (auto it = keys.begin(); it != keys.end(); ++it) {
    // A control the person cannot use now (the other half of a screen,
    // disabled) may go without; every other has its key.
    QWidget* control = window->findChild<QWidget*>(QString(it.key()).remove(QStringLiteral("label of ")));
    const bool usable = control != nullptr && control->isEnabled() && control->isVisible();
    if (it.value().isNull() && !usable) continue;
    QVERIFY2(!it.value().isNull(), qPrintable(window->objectName() + QStringLiteral(": no key for ") + it.key()));
    QVERIFY2(!owners.contains(it.value()),
             qPrintable(window->objectName() + QStringLiteral(": ") + it.key() + QStringLiteral(" and ") +
                        owners.value(it.value()) + QStringLiteral(" share ") + it.value()));
    owners.insert(it.value(), it.key());
  }
}

// Every control Tab reaches has a name a screen reader can say.
inline void ExpectNamedControls(QWidget* window) {
  for (QWidget* control : ReadingOrder(window)) {
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(control);
    QVERIFY2(accessible != nullptr, qPrintable(control->objectName()));
    QVERIFY2(!accessible->text(QAccessible::Name).trimmed().isEmpty(),
             qPrintable(window->objectName() + QStringLiteral(": no name for ") + control->objectName()));
  }
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
