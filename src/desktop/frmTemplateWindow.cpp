#include "desktop/frmTemplateWindow.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/QtToolkit.h"
#include "screens/Application.h"
#include "screens/frmTemplate.h"

namespace corvalin {

frmTemplateWindow::frmTemplateWindow(frmTemplate& screen, QWidget* parent) : QWidget(parent), screen_(screen) {
  setObjectName(QStringLiteral("frmTemplate"));
  inputFile_ = new QLabel(this);
  inputFile_->setObjectName(QStringLiteral("lblInputFile"));
  outputFile_ = new QLabel(this);
  outputFile_->setObjectName(QStringLiteral("lblOutputFile"));
  templates_ = new QComboBox(this);
  templates_->setObjectName(QStringLiteral("cmbTemplate"));
  templates_->setEnabled(false);
  help_ = new QPushButton(this);
  help_->setObjectName(QStringLiteral("cmdHelp"));
  quit_ = new QPushButton(this);
  quit_->setObjectName(QStringLiteral("cmdQuit"));

  auto* form = new QFormLayout;
  form->addRow(ToQt(screen_.lblInputFile1.Caption), inputFile_);
  form->addRow(ToQt(screen_.lblOutputFile1.Caption), outputFile_);
  form->addRow(ToQt(screen_.lblTemplateFile1.Caption), templates_);
  auto* note = new QLabel(
      tr("This version opens the setup screen only: choosing the files and the template, and the column, "
         "grid and stand list screens that follow, come with the next versions. An unattended run works "
         "from the command line: corvalin input output template."),
      this);
  note->setWordWrap(true);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(help_);
  buttons->addWidget(quit_);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(form);
  layout->addWidget(note);
  layout->addLayout(buttons);

  connect(help_, &QPushButton::clicked, this, [this] { screen_.cmdHelp_Click(); });
  connect(quit_, &QPushButton::clicked, this, [this] { screen_.cmdQuit_Click(); });
  resize(560, 240);
  Redraw();
}

void frmTemplateWindow::Redraw() {
  setWindowTitle(ToQt(screen_.Caption));
  inputFile_->setText(PathToQt(screen_.lblInputFile.Caption));
  inputFile_->setStyleSheet(screen_.lblInputFile.Red ? QStringLiteral("color: rgb(255, 0, 0)") : QString());
  outputFile_->setText(PathToQt(screen_.lblOutputFile.Caption));
  outputFile_->setStyleSheet(screen_.lblOutputFile.Red ? QStringLiteral("color: rgb(255, 0, 0)") : QString());
  templates_->clear();
  for (const auto& item : screen_.cmbTemplate.Items) templates_->addItem(ToQt(item));
  templates_->setCurrentIndex(screen_.cmbTemplate.ListIndex);
  help_->setText(ToQt(screen_.cmdHelp.Caption));
  quit_->setText(ToQt(screen_.cmdQuit.Caption));
}

void frmTemplateWindow::closeEvent(QCloseEvent* event) {
  // Closing the first screen is a wish to quit: the question is asked, and
  // the window stays; the process ends only through the answer Yes.
  event->ignore();
  screen_.CloseRequested();
}

void AttachDesktopViews() {
  App().ScreenCreated = [](Screen& screen) {
    auto* setup = dynamic_cast<frmTemplate*>(&screen);
    if (setup == nullptr) return;
    auto* window = new frmTemplateWindow(*setup);
    window->setAttribute(Qt::WA_DeleteOnClose, false);
    setup->ViewShown = [window](Screen&) {
      window->Redraw();
      window->show();
      window->raise();
    };
    setup->ViewHidden = [window](Screen&) { window->hide(); };
  };
}

}  // namespace corvalin
