// The grid screen as a forester sees it: the lolo survey with its sample
// template, an unknown species typed in red, the excluded rows in yellow, an
// open pick list, the damage dialog and the save-template dialog.
#include <QApplication>
#include <QDir>
#include <QHeaderView>
#include <QPushButton>
#include <QtTest/QtTest>
#include <QTableView>
#include <algorithm>

#include "GridTour.h"
#include "Tour.h"
#include "desktop/frmHeadersWindow.h"
#include "screens/Application.h"
#include "screens/frmColumns.h"
#include "screens/frmHeaders.h"
#include "screens/frmMain.h"
#include "screens/frmTemplate.h"
#include "shell/EventScope.h"
#include "shell/Failure.h"

namespace corvalin::tour {

// The lolo survey loaded with the lolo template, and the grid shown.
frmHeadersWindow* GridOfLolo(Tour& tour) {
  PrepareConfiguredHome();
  MainForm().Form_Load();
  frmTemplate& setup = App().Template();
  RunEvent([&] {
    const auto at = std::find(setup.cmbTemplate.Items.begin(), setup.cmbTemplate.Items.end(), "lolo");
    if (at != setup.cmbTemplate.Items.end()) {
      setup.cmbTemplate.Select(static_cast<int>(at - setup.cmbTemplate.Items.begin()));
      setup.cmbTemplate_Click();
    }
    setup.lblInputFile.SetCaption(
        QDir::cleanPath(Tour::SharedData() + QStringLiteral("/lolo-2022/tree.csv")).toStdString());
    setup.lblOutputFile.SetCaption((QDir::homePath() + QStringLiteral("/lolo.tre")).toStdString());
    frmColumns& format = App().Columns();
    format.Show();
    setup.Hide();
    format.cmdNext_Click();
  });
  auto* window = qobject_cast<frmHeadersWindow*>(tour.Window(QStringLiteral("frmHeaders")));
  window->resize(1180, 760);
  frmHeaders& headers = App().Headers();
  // A species nobody knows, typed on line 3, a row the template keeps: red.
  ScreenWindow::Fire([&] { headers.SetCellText(2, 5, "XX"); });
  return window;
}

namespace {

// Presses the button of a cell as a person does.
void PressButton(frmHeadersWindow* window, int row, int column) {
  QTableView* table = window->Table();
  table->setCurrentIndex(table->model()->index(row, column));
  Tour::Settle(50);
  const QRect cell = table->visualRect(table->model()->index(row, column));
  QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(cell.right() - 4, cell.center().y()));
}

const Registration grid{"30-grid", [](Tour& tour) {
                          frmHeadersWindow* window = GridOfLolo(tour);
                          QHeaderView* heading = window->Table()->horizontalHeader();
                          QTest::mouseClick(heading->viewport(), Qt::LeftButton, Qt::NoModifier,
                                            QPoint(heading->sectionViewportPosition(6) + 10, heading->height() / 2));
                          tour.Save(window, QStringLiteral("grid"));
                        }};

const Registration pickList{"31-grid-pick-list", [](Tour& tour) {
                              frmHeadersWindow* window = GridOfLolo(tour);
                              PressButton(window, 2, 5);
                              tour.Save(window, QStringLiteral("grid-pick-list"));
                            }};

const Registration damage{"32-damage-dialog", [](Tour& tour) {
                            frmHeadersWindow* window = GridOfLolo(tour);
                            frmHeaders& headers = App().Headers();
                            // Column 8 becomes a damage column.
                            ScreenWindow::Fire([&] {
                              headers.SelectGridColumn(8);
                              const auto& items = headers.cmbHeaderChoices.Items;
                              const auto at = std::find(items.begin(), items.end(), "Damage/Severity - 1");
                              headers.SelectHeaderChoice(static_cast<int>(at - items.begin()));
                              headers.SetCellText(2, 8, "12 3");
                            });
                            Tour::WhenModal([&tour](QWidget* dialog) {
                              tour.Save(dialog, QStringLiteral("damage-dialog"));
                              dialog->close();
                            });
                            PressButton(window, 2, 8);
                          }};

const Registration saveTemplate{"33-save-template", [](Tour& tour) {
                                  frmHeadersWindow* window = GridOfLolo(tour);
                                  Tour::WhenModal([&tour](QWidget* dialog) {
                                    tour.Save(dialog, QStringLiteral("save-template"));
                                    dialog->close();
                                  });
                                  QTest::mouseClick(window->findChild<QPushButton*>(QStringLiteral("cmdSaveTemplate")),
                                                    Qt::LeftButton);
                                }};

}  // namespace
}  // namespace corvalin::tour
