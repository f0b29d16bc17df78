// The grid's command dialogs over the lolo survey: Find/Replace with its
// texts typed, the grid after a Replace All, the three exclusion dialogs,
// and the command editor holding the sample template's commands.
#include <QHeaderView>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>
#include <QtTest/QtTest>

#include "GridTour.h"
#include "Tour.h"
#include "desktop/frmHeadersWindow.h"
#include "screens/Application.h"
#include "screens/frmExcludeRange.h"
#include "screens/frmHeaders.h"

namespace corvalin::tour {
namespace {

void ChooseColumn(frmHeadersWindow* window, int column) {
  QHeaderView* heading = window->Table()->horizontalHeader();
  QTest::mouseClick(heading->viewport(), Qt::LeftButton, Qt::NoModifier,
                    QPoint(heading->sectionViewportPosition(column) + 10, heading->height() / 2));
}

// Types into a field of a dialog as a person does.
void Type(QWidget* dialog, const char* field, const QString& text) {
  if (auto* line = Child<QLineEdit>(dialog, field)) QTest::keyClicks(line, text);
}

// Opens a dialog of the grid, saves its picture with the texts typed, and
// closes it.
void SaveDialog(Tour& tour, const QString& name, std::function<void(QWidget*)> fill, std::function<void()> open) {
  Tour::WhenModal([&tour, name, fill](QWidget* dialog) {
    fill(dialog);
    Tour::Settle();
    tour.Save(dialog, name);
    dialog->close();
  });
  open();
}

const Registration findReplace{"34-find-replace", [](Tour& tour) {
                                 frmHeadersWindow* window = GridOfLolo(tour);
                                 ChooseColumn(window, 5);
                                 frmHeaders& headers = App().Headers();
                                 SaveDialog(
                                     tour, QStringLiteral("find-replace"),
                                     [](QWidget* dialog) {
                                       Type(dialog, "txtFind", QStringLiteral("PP"));
                                       Type(dialog, "txtReplacement", QStringLiteral("LP"));
                                     },
                                     [&] { ScreenWindow::Fire([&] { headers.mnuReplaceAll_Click(); }); });
                               }};

const Registration afterReplaceAll{"35-grid-after-replace-all", [](Tour& tour) {
                                     frmHeadersWindow* window = GridOfLolo(tour);
                                     ChooseColumn(window, 5);
                                     frmHeaders& headers = App().Headers();
                                     Tour::WhenModal([](QWidget* dialog) {
                                       Type(dialog, "txtFind", QStringLiteral("PP"));
                                       Type(dialog, "txtReplacement", QStringLiteral("LP"));
                                       // The count's box is answered, then the dialog closed.
                                       Tour::WhenModal([dialog](QWidget* box) {
                                         if (auto* message = qobject_cast<QMessageBox*>(box))
                                           message->defaultButton()->click();
                                         dialog->close();
                                       });
                                       Child<QPushButton>(dialog, "cmdReplaceAll")->click();
                                     });
                                     ScreenWindow::Fire([&] { headers.mnuReplaceAll_Click(); });
                                     Tour::Settle();
                                     tour.Save(window, QStringLiteral("grid-after-replace-all"));
                                   }};

const Registration excludeContaining{
    "36-exclude-containing", [](Tour& tour) {
      frmHeadersWindow* window = GridOfLolo(tour);
      ChooseColumn(window, 5);
      frmHeaders& headers = App().Headers();
      SaveDialog(
          tour, QStringLiteral("exclude-containing"),
          [](QWidget* dialog) { Type(dialog, "txtExcludeText", QStringLiteral("WP")); },
          [&] { ScreenWindow::Fire([&] { headers.mnuExcludeContaining_Click(); }); });
    }};

const Registration excludeStartingWith{
    "37-exclude-starting-with", [](Tour& tour) {
      frmHeadersWindow* window = GridOfLolo(tour);
      ChooseColumn(window, 1);
      frmHeaders& headers = App().Headers();
      SaveDialog(
          tour, QStringLiteral("exclude-starting-with"),
          [](QWidget* dialog) { Type(dialog, "txtStartText", QStringLiteral("6709")); },
          [&] { ScreenWindow::Fire([&] { headers.mnuExcludeStartingWith_Click(); }); });
    }};

const Registration excludeRange{"38-exclude-range", [](Tour& tour) {
                                  GridOfLolo(tour);
                                  SaveDialog(
                                      tour, QStringLiteral("exclude-range"),
                                      [](QWidget* dialog) {
                                        Type(dialog, "txtStartLine", QStringLiteral("100"));
                                        Type(dialog, "txtEndLine", QStringLiteral("150"));
                                      },
                                      [] { ScreenWindow::Fire([] { App().ShowModal(App().ExcludeRange()); }); });
                                }};

const Registration editor{"39-command-editor", [](Tour& tour) {
                            frmHeadersWindow* window = GridOfLolo(tour);
                            // "Would you like to save the current view?": No.
                            Tour::WhenModal([&tour](QWidget* box) {
                              Tour::WhenModal([&tour](QWidget* dialog) {
                                tour.Save(dialog, QStringLiteral("command-editor"));
                                dialog->close();
                              });
                              if (auto* message = qobject_cast<QMessageBox*>(box))
                                message->button(QMessageBox::No)->click();
                            });
                            Child<QPushButton>(window, "cmdEditTemplateCommands")->click();
                          }};

// On a laptop's screen under a window manager: the dialog opens over the
// grid, title bar and all.
const Registration onScreen{"40-z-find-replace-on-screen", [](Tour& tour) {
                              frmHeadersWindow* window = GridOfLolo(tour);
                              window->resize(1000, 600);
                              window->move(120, 40);
                              Tour::Settle(300);
                              ChooseColumn(window, 5);
                              frmHeaders& headers = App().Headers();
                              Tour::WhenModal([&tour](QWidget* dialog) {
                                Type(dialog, "txtFind", QStringLiteral("PP"));
                                tour.SaveScreen(QStringLiteral("desktop-find-replace"));
                                dialog->close();
                              });
                              ScreenWindow::Fire([&] { headers.mnuReplaceAll_Click(); });
                            }};

}  // namespace
}  // namespace corvalin::tour
