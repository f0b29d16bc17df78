// The first two screens of the wizard and the small windows around them, as
// a person sees them: the first start, the first screen empty and ready, the
// defaults, the column format delimited and with markers placed by the
// mouse, the busy window of the load, the append question and the end of a
// translation.
#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPushButton>
#include <QPointer>
#include <QRadioButton>
#include <QTimer>
#include <QWidget>
#include <deque>
#include <fstream>
#include <optional>

#include "Tour.h"
#include "desktop/ColumnPreview.h"
#include "desktop/QtToolkit.h"
#include "screens/frmMain.h"
#include "shell/Toolkit.h"

namespace corvalin::tour {
namespace {

QString Survey() { return QDir::cleanPath(Tour::SharedData() + QStringLiteral("/lolo-2022/tree.csv")); }

void ChooseTemplate(QWidget* setup, const QString& name) {
  auto* templates = Child<QComboBox>(setup, "cmbTemplate");
  const int index = templates->findText(name);
  templates->setCurrentIndex(index);
  emit templates->activated(index);
}

// The first screen with the survey, an output file and the template lolo.
QWidget* ReadySetup(Tour& tour, const QString& home, const QString& input) {
  MainForm().Form_Load();
  QWidget* setup = tour.Window(QStringLiteral("frmTemplate"));
  ChooseTemplate(setup, QStringLiteral("lolo"));
  AnswerFiles({input, home + QStringLiteral("/Documents/Orvanta/lolo.tre")});
  Child<QPushButton>(setup, "cmdChangeInput")->click();
  Child<QPushButton>(setup, "cmdChangeOutput")->click();
  Kit().AnswerFileDialog = nullptr;
  return setup;
}

void Mouse(QWidget* widget, QEvent::Type type, int x, int y) {
  QMouseEvent event(type, QPointF(x, y), widget->mapToGlobal(QPointF(x, y)), Qt::LeftButton,
                    type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(widget, &event);
}

const Registration firstStart{"11-first-start", [](Tour& tour) {
                                PrepareEmptyHome();
                                Tour::WhenModal([&tour](QWidget* box) {
                                  tour.Save(box, QStringLiteral("first-start-folder-question"));
                                  Tour::WhenModal([&tour](QWidget* work) {
                                    Tour::WhenModal([&tour](QWidget* defaults) {
                                      tour.Save(defaults, QStringLiteral("first-start-defaults"));
                                      Child<QPushButton>(defaults, "cmdOk")->click();
                                    });
                                    static_cast<QMessageBox*>(work)->button(QMessageBox::Yes)->click();
                                  });
                                  static_cast<QMessageBox*>(box)->button(QMessageBox::Yes)->click();
                                });
                                MainForm().Form_Load();
                                tour.Save(tour.Window(QStringLiteral("frmTemplate")),
                                          QStringLiteral("first-start-setup"));
                              }};

const Registration setup{"12-setup", [](Tour& tour) {
                           PrepareConfiguredHome();
                           MainForm().Form_Load();
                           tour.Save(tour.Window(QStringLiteral("frmTemplate")), QStringLiteral("setup"));
                         }};

const Registration ready{"13-setup-ready", [](Tour& tour) {
                           const QString home = PrepareConfiguredHome();
                           tour.Save(ReadySetup(tour, home, Survey()), QStringLiteral("setup-ready"));
                         }};

const Registration defaults{"14-defaults", [](Tour& tour) {
                              PrepareConfiguredHome();
                              MainForm().Form_Load();
                              QWidget* setup = tour.Window(QStringLiteral("frmTemplate"));
                              Tour::WhenModal([&tour](QWidget* window) {
                                tour.Save(window, QStringLiteral("defaults"));
                                Child<QPushButton>(window, "cmdCancel")->click();
                              });
                              Child<QPushButton>(setup, "cmdConfigure")->click();
                            }};

const Registration delimited{"20-columns-delimited", [](Tour& tour) {
                               const QString home = PrepareConfiguredHome();
                               Child<QPushButton>(ReadySetup(tour, home, Survey()), "cmdNextTrans")->click();
                               tour.Save(tour.Window(QStringLiteral("frmColumns")), QStringLiteral("columns-delimited"));
                             }};

const Registration fixed{"21-columns-fixed", [](Tour& tour) {
                           const QString home = PrepareConfiguredHome();
                           QWidget* setup = ReadySetup(tour, home, Survey());
                           ChooseTemplate(setup, QStringLiteral("None"));
                           Child<QPushButton>(setup, "cmdNextTrans")->click();
                           QWidget* columns = tour.Window(QStringLiteral("frmColumns"));
                           Child<QRadioButton>(columns, "optFixedWidth")->click();
                           auto* preview = Child<ColumnPreview>(columns, "lblFileView");
                           for (int position : {17, 19, 24, 26, 31, 35, 39, 45, 49, 53}) {
                             Mouse(preview, QEvent::MouseButtonPress, preview->XOfPosition(position), preview->LineY(3));
                             Mouse(preview, QEvent::MouseButtonRelease, preview->XOfPosition(position), preview->LineY(3));
                           }
                           tour.Save(columns, QStringLiteral("columns-fixed-markers"));
                         }};

const Registration busy{"22-busy", [](Tour& tour) {
                          const QString home = PrepareConfiguredHome();
                          // A long file, so that the load lasts long enough to be seen.
                          const QString big = home + QStringLiteral("/Documents/Orvanta/big.csv");
                          {
                            QFile in(Survey());
                            in.open(QIODevice::ReadOnly);
                            const QByteArray lines = in.readAll();
                            QFile out(big);
                            out.open(QIODevice::WriteOnly);
                            for (int i = 0; i < 45; ++i) out.write(i == 0 ? lines : lines.mid(lines.indexOf('\n') + 1));
                          }
                          QWidget* setup = ReadySetup(tour, home, big);
                          ChooseTemplate(setup, QStringLiteral("None"));
                          Child<QPushButton>(setup, "cmdNextTrans")->click();
                          QWidget* columns = tour.Window(QStringLiteral("frmColumns"));
                          auto* grab = new QTimer;
                          QObject::connect(grab, &QTimer::timeout, [&tour, grab] {
                            QPointer<QWidget> busyWindow;
                            for (QWidget* widget : QApplication::topLevelWidgets())
                              if (widget->objectName() == QStringLiteral("frmBusyMessage") && widget->isVisible())
                                busyWindow = widget;
                            if (busyWindow == nullptr) return;
                            grab->stop();
                            grab->deleteLater();
                            tour.Save(busyWindow, QStringLiteral("busy-window"));
                            if (busyWindow != nullptr) Child<QPushButton>(busyWindow, "cmdCancel")->click();
                          });
                          grab->start(30);
                          Child<QPushButton>(columns, "cmdNext")->click();
                        }};

const Registration translate{"23-translate", [](Tour& tour) {
                               const QString home = PrepareConfiguredHome();
                               QFile old(home + QStringLiteral("/Documents/Orvanta/lolo.tre"));
                               old.open(QIODevice::WriteOnly);
                               old.write("an older list\r\n");
                               old.close();
                               Child<QPushButton>(ReadySetup(tour, home, Survey()), "cmdNextTrans")->click();
                               QWidget* columns = tour.Window(QStringLiteral("frmColumns"));
                               Tour::WhenModal([&tour](QWidget* question) {
                                 tour.Save(question, QStringLiteral("append-question"));
                                 Tour::WhenModal([&tour](QWidget* done) {
                                   tour.Save(done, QStringLiteral("translation-completed"));
                                   static_cast<QMessageBox*>(done)->button(QMessageBox::Ok)->click();
                                 });
                                 Child<QPushButton>(question, "cmdOverwrite")->click();
                               });
                               Child<QPushButton>(columns, "cmdFinish")->click();
                             }};

}  // namespace
}  // namespace corvalin::tour
