// What the tests of the grid's command dialogs do as a person: choose a
// column by its heading, choose an entry of the grid's right-button menu,
// act on a dialog once it is up, answer a message box.
#pragma once

#include <QApplication>
#include <QHeaderView>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>
#include <QTimer>
#include <QtTest/QtTest>
#include <functional>
#include <memory>

#include "DesktopHome.h"
#include "desktop/GridModel.h"
#include "desktop/frmHeadersWindow.h"

namespace corvalin::desktoptest {

// Runs act on the window of this name once it is up and no box is over it,
// from inside its loop.
inline void WhenWindowUp(const QString& name, std::function<void(QWidget*)> act) {
  auto* timer = new QTimer;
  timer->setInterval(0);
  QObject::connect(timer, &QTimer::timeout, [timer, name, act] {
    QWidget* window = Window(name);
    if (window == nullptr || qobject_cast<QMessageBox*>(QApplication::activeModalWidget()) != nullptr) return;
    timer->stop();
    timer->deleteLater();
    act(window);
  });
  timer->start();
}

// Answers the next message box with a button, keeping its text.
inline void WhenBox(QMessageBox::StandardButton button, QString* text) {
  auto* timer = new QTimer;
  timer->setInterval(0);
  QObject::connect(timer, &QTimer::timeout, [timer, button, text] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr || !box->isVisible()) return;
    timer->stop();
    timer->deleteLater();
    if (text != nullptr) *text = box->text();
    box->button(button)->click();
  });
  timer->start();
}

// A click on a column's heading chooses the column.
inline void ChooseColumn(frmHeadersWindow* window, int column) {
  QTableView* table = window->Table();
  table->scrollTo(window->Model()->index(0, column));
  QHeaderView* heading = table->horizontalHeader();
  QTest::mouseClick(heading->viewport(), Qt::LeftButton, Qt::NoModifier,
                    QPoint(heading->sectionViewportPosition(column) + 10, heading->height() / 2));
}

// The entry of the grid's right-button menu, opened over a cell or over the
// strip of row selectors; the test fails when the entry cannot be chosen.
inline void ChooseFromMenu(QWidget* where, QPoint at, const QString& entry) {
  auto* timer = new QTimer;
  timer->setInterval(0);
  auto chosen = std::make_shared<bool>(false);
  QObject::connect(timer, &QTimer::timeout, [timer, entry, chosen] {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (menu == nullptr || !menu->isVisible()) return;
    timer->stop();
    timer->deleteLater();
    for (QAction* action : menu->actions())
      if (action->text() == entry && action->isEnabled()) {
        *chosen = true;
        menu->close();
        action->trigger();
        return;
      }
    menu->close();
  });
  timer->start();
  QTest::mouseClick(where, Qt::RightButton, Qt::NoModifier, at);
  Settle();
  QVERIFY2(*chosen, qPrintable(entry));
}

// The column chosen, then an entry of the menu over one of its cells.
inline void ColumnMenu(frmHeadersWindow* window, int column, const QString& entry) {
  ChooseColumn(window, column);
  QTableView* table = window->Table();
  ChooseFromMenu(table->viewport(), table->visualRect(window->Model()->index(1, column)).center(), entry);
}

}  // namespace corvalin::desktoptest
