#include "desktop/frmTemplateWindow.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/QtToolkit.h"
#include "screens/frmTemplate.h"

namespace corvalin {

frmTemplateWindow::frmTemplateWindow(frmTemplate& screen) : ScreenWindow(screen) {
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
  form->addRow(ToQt(screen.lblInputFile1.Caption), inputFile_);
  form->addRow(ToQt(screen.lblOutputFile1.Caption), outputFile_);
  form->addRow(ToQt(screen.lblTemplateFile1.Caption), templates_);
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

  connect(help_, &QPushButton::clicked, this, [this] { Fire([this] { Setup().cmdHelp_Click(); }); });
  connect(quit_, &QPushButton::clicked, this, [this] { Fire([this] { Setup().cmdQuit_Click(); }); });
  resize(560, 240);
}

frmTemplate& frmTemplateWindow::Setup() const { return static_cast<frmTemplate&>(*DrawnScreen()); }

void frmTemplateWindow::Redraw(const ScreenChanges& changes) {
  if (!changes.controls) return;
  const frmTemplate& screen_ = Setup();
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
  if (DrawnScreen() != nullptr) Fire([this] { Setup().CloseRequested(); });
}

}  // namespace corvalin
