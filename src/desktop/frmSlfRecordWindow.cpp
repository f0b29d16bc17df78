#include "desktop/frmSlfRecordWindow.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <functional>
#include <iterator>

#include "desktop/DrawControls.h"
#include "desktop/Keyboard.h"
#include "desktop/Latin1Text.h"
#include "desktop/QtToolkit.h"
#include "screens/frmSlfRecord.h"
#include "shell/Failure.h"

namespace corvalin {

namespace {

using R = frmSlfRecord;

// A field of record B: its heading and its control, a text box or a list.
struct RecordBRow {
  const char* labelName;
  Label R::*label;
  const char* fieldName;
  TextBox R::*box;
  ListControl R::*combo;
};

// The fields of record B in token order, from the code to the site index:
// the first half down the left column, the second down the right one.
const RecordBRow kRecordB[] = {
    {"lblStandIdentificationCode2", &R::lblStandIdentificationCode2, "cmbStandIdentificationCode2", nullptr,
     &R::cmbStandIdentificationCode2},
    {"lblInventoryYear", &R::lblInventoryYear, "txtInventoryYear", &R::txtInventoryYear, nullptr},
    {"lblLatitude", &R::lblLatitude, "txtLatitude", &R::txtLatitude, nullptr},
    {"lblLongitude", &R::lblLongitude, "txtLongitude", &R::txtLongitude, nullptr},
    {"lblLocation", &R::lblLocation, "cmbLocation", nullptr, &R::cmbLocation},
    {"lblHabitatType", &R::lblHabitatType, "cmbHabitatType", nullptr, &R::cmbHabitatType},
    {"lblStandOrigin", &R::lblStandOrigin, "txtStandOrigin", &R::txtStandOrigin, nullptr},
    {"lblAspect", &R::lblAspect, "txtAspect", &R::txtAspect, nullptr},
    {"lblSlope", &R::lblSlope, "txtSlope", &R::txtSlope, nullptr},
    {"lblElevation", &R::lblElevation, "txtElevation", &R::txtElevation, nullptr},
    {"lblBasalAreaFactor", &R::lblBasalAreaFactor, "txtBasalAreaFactor", &R::txtBasalAreaFactor, nullptr},
    {"lblInverseOfFixedPlotSize", &R::lblInverseOfFixedPlotSize, "txtInverseOfFixedPlotSize",
     &R::txtInverseOfFixedPlotSize, nullptr},
    {"lblBreakpointDbh", &R::lblBreakpointDbh, "txtBreakpointDbh", &R::txtBreakpointDbh, nullptr},
    {"lblNumberOfPlots", &R::lblNumberOfPlots, "txtNumberOfPlots", &R::txtNumberOfPlots, nullptr},
    {"lblNumberOfStockablePlots", &R::lblNumberOfStockablePlots, "txtNumberOfStockablePlots",
     &R::txtNumberOfStockablePlots, nullptr},
    {"lblStandSamplingWeight", &R::lblStandSamplingWeight, "txtStandSamplingWeight", &R::txtStandSamplingWeight,
     nullptr},
    {"lblStockablePercent", &R::lblStockablePercent, "txtStockablePercent", &R::txtStockablePercent, nullptr},
    {"lblDiameterGrowthTranslationCode", &R::lblDiameterGrowthTranslationCode, "cmbDiameterGrowthTranslationCode",
     nullptr, &R::cmbDiameterGrowthTranslationCode},
    {"lblDiameterGrowthMeasurePeriod", &R::lblDiameterGrowthMeasurePeriod, "txtDiameterGrowthMeasurePeriod",
     &R::txtDiameterGrowthMeasurePeriod, nullptr},
    {"lblHeightGrowthTranslationCode", &R::lblHeightGrowthTranslationCode, "cmbHeightGrowthTranslationCode", nullptr,
     &R::cmbHeightGrowthTranslationCode},
    {"lblHeightGrowthMeasurementPeriod", &R::lblHeightGrowthMeasurementPeriod, "txtHeightGrowthMeasurementPeriod",
     &R::txtHeightGrowthMeasurementPeriod, nullptr},
    {"lblMortalityMeasurementPeriod", &R::lblMortalityMeasurementPeriod, "txtMortalityMeasurementPeriod",
     &R::txtMortalityMeasurementPeriod, nullptr},
    {"lblMaximumBasalArea", &R::lblMaximumBasalArea, "txtMaximumBasalArea", &R::txtMaximumBasalArea, nullptr},
    {"lblMaximumStandDensityIndex", &R::lblMaximumStandDensityIndex, "txtMaximumStandDensityIndex",
     &R::txtMaximumStandDensityIndex, nullptr},
    {"lblSiteSpecies", &R::lblSiteSpecies, "cmbSiteSpecies", nullptr, &R::cmbSiteSpecies},
    {"lblSiteIndex", &R::lblSiteIndex, "txtSiteIndex", &R::txtSiteIndex, nullptr},
};
constexpr int kRecordBRows = static_cast<int>(std::size(kRecordB));

// The variant boxes, named as their controls, in the order of the variants.
struct VariantBox {
  const char* name;
  CheckBox R::*box;
};
constexpr VariantBox kVariantBoxes[] = {
    {"chkAk", &R::chkAk}, {"chkBc", &R::chkBc}, {"chkBh", &R::chkBh}, {"chkBm", &R::chkBm}, {"chkCi", &R::chkCi},
    {"chkEc", &R::chkEc}, {"chkEm", &R::chkEm}, {"chkNc", &R::chkNc}, {"chkNi", &R::chkNi}, {"chkSo", &R::chkSo},
    {"chkSw", &R::chkSw}, {"chkTt", &R::chkTt}, {"chkUt", &R::chkUt}, {"chkWs", &R::chkWs}, {"chkKt", &R::chkKt},
};
constexpr int kVariantColumns = 5;

// Characters a list of record B shows while it stands narrow.
constexpr int kNarrowList = 10;

}  // namespace

frmSlfRecordWindow::frmSlfRecordWindow(frmSlfRecord& screen) : ScreenWindow(screen, nullptr, Qt::Dialog) {
  setObjectName(QStringLiteral("frmSlfRecord"));
  tabSlfRecords_ = new QTabWidget(this);
  tabSlfRecords_->setObjectName(QStringLiteral("tabSlfRecords"));
  // Tab reaches the strip of tabs and the controls of the tab shown, not the
  // frame around them.
  tabSlfRecords_->setFocusPolicy(Qt::NoFocus);
  tabSlfRecords_->tabBar()->setAccessibleName(QStringLiteral("Record Type"));
  QWidget* pages[4];
  for (int tab = 0; tab < 4; ++tab) {
    pages[tab] = new QWidget;
    pages[tab]->setObjectName(QStringLiteral("pageRecord%1").arg(QLatin1Char(static_cast<char>('A' + tab))));
    tabSlfRecords_->addTab(pages[tab], QString());
  }

  // Tab 0, record A: the code, the tree data set, then the two frames in the
  // order of the keyboard.
  {
    QWidget* page = pages[0];
    auto* grid = new QGridLayout;
    grid->addWidget(NewHeading(page, "lblStandIdentificationCode1", &R::lblStandIdentificationCode1,
                               NewCombo(page, "cmbStandIdentificationCode1", &R::cmbStandIdentificationCode1, 12)),
                    0, 0);
    grid->addWidget(findChild<QComboBox*>(QStringLiteral("cmbStandIdentificationCode1")), 0, 1, 1, 3, Qt::AlignLeft);
    lblTreeDataSet_ = NewPathField(page, "lblTreeDataSet");
    grid->addWidget(NewHeading(page, "lblTreeDataSet1", &R::lblTreeDataSet1, lblTreeDataSet_), 1, 0);
    // The path is read, not typed: Tab goes from the code to the buttons.
    lblTreeDataSet_->setFocusPolicy(Qt::ClickFocus);
    grid->addWidget(lblTreeDataSet_, 1, 1);
    cmdBareGround_ = NewButton(page, "cmdBareGround", &R::cmdBareGround_Click);
    cmdSelect_ = NewButton(page, "cmdSelect", &R::cmdSelect_Click);
    grid->addWidget(cmdBareGround_, 1, 2);
    grid->addWidget(cmdSelect_, 1, 3);
    grid->setColumnStretch(1, 1);

    fraPlotBasedSiteData_ = new QGroupBox(page);
    fraPlotBasedSiteData_->setObjectName(QStringLiteral("fraPlotBasedSiteData"));
    optPlotBasedSiteDataYes_ = new QRadioButton(fraPlotBasedSiteData_);
    optPlotBasedSiteDataYes_->setObjectName(QStringLiteral("optPlotBasedSiteDataYes"));
    optNo_ = new QRadioButton(fraPlotBasedSiteData_);
    optNo_->setObjectName(QStringLiteral("optNo"));
    auto* plot = new QHBoxLayout(fraPlotBasedSiteData_);
    plot->addWidget(optPlotBasedSiteDataYes_);
    plot->addWidget(optNo_);
    plot->addStretch(1);
    OnPersonChange(optPlotBasedSiteDataYes_, this, [this](bool checked) {
      if (!checked) return;
      FireEvent([](R& d) {
        d.optPlotBasedSiteDataYes.Value = true;
        d.optNo.Value = false;
      });
    });
    OnPersonChange(optNo_, this, [this](bool checked) {
      if (!checked) return;
      FireEvent([](R& d) {
        d.optNo.Value = true;
        d.optPlotBasedSiteDataYes.Value = false;
      });
    });

    fraApplicableVariants_ = new QGroupBox(page);
    fraApplicableVariants_->setObjectName(QStringLiteral("fraApplicableVariants"));
    auto* variants = new QGridLayout(fraApplicableVariants_);
    int at = 0;
    for (const VariantBox& variant : kVariantBoxes) {
      auto* check = new QCheckBox(fraApplicableVariants_);
      check->setObjectName(QString::fromLatin1(variant.name));
      // Fifteen two-letter captions share fourteen letters: the buttons and
      // fields of the tab have their keys first, the boxes take the rest.
      check->setProperty(kAccessKeyServedLast, true);
      CheckBox R::*box = variant.box;
      OnPersonChange(check, this, [this, box](bool checked) { FireEvent([&](R& d) { (d.*box).Value = checked; }); });
      checks_.push_back({check, box});
      variants->addWidget(check, at / kVariantColumns, at % kVariantColumns);
      ++at;
    }

    auto* layout = new QVBoxLayout(page);
    layout->addLayout(grid);
    layout->addWidget(fraPlotBasedSiteData_);
    layout->addWidget(fraApplicableVariants_);
    layout->addStretch(1);
  }

  // Tab 1, record B: two columns of fields, each a block of its own, so that
  // Tab goes down the left one and then down the right one, in token order.
  {
    QWidget* page = pages[1];
    auto* layout = new QHBoxLayout(page);
    const int half = (kRecordBRows + 1) / 2;
    for (int column = 0; column < 2; ++column) {
      auto* block = new QWidget(page);
      block->setObjectName(column == 0 ? QStringLiteral("blockRecordBLeft") : QStringLiteral("blockRecordBRight"));
      auto* grid = new QGridLayout(block);
      grid->setContentsMargins(0, 0, 0, 0);
      for (int i = column * half; i < std::min(kRecordBRows, (column + 1) * half); ++i) {
        const RecordBRow& row = kRecordB[i];
        const int line = i - column * half;
        QWidget* field = nullptr;
        if (row.box != nullptr) {
          QLineEdit* text = NewText(block, row.fieldName, row.box);
          if (row.box == &R::txtLongitude) txtLongitude_ = text;
          if (row.box == &R::txtStockablePercent) txtStockablePercent_ = text;
          field = text;
        } else {
          field = NewCombo(block, row.fieldName, row.combo, kNarrowList);
        }
        grid->addWidget(NewHeading(block, row.labelName, row.label, field), line, 0);
        grid->addWidget(field, line, 1);
      }
      grid->setRowStretch(half, 1);
      layout->addWidget(block, 1);
    }
  }

  // Tab 2, record C.
  {
    QWidget* page = pages[2];
    auto* grid = new QGridLayout(page);
    QComboBox* code = NewCombo(page, "cmbStandIdentificationCode3", &R::cmbStandIdentificationCode3, 12);
    grid->addWidget(NewHeading(page, "lblStandIdentificationCode3", &R::lblStandIdentificationCode3, code), 0, 0);
    grid->addWidget(code, 0, 1, Qt::AlignLeft);
    QLineEdit* groupCodes = NewText(page, "txtGroupCodes", &R::txtGroupCodes);
    grid->addWidget(NewHeading(page, "lblGroupCodes", &R::lblGroupCodes, groupCodes), 1, 0);
    grid->addWidget(groupCodes, 1, 1);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(2, 1);
  }

  // Tab 3, record D: the add files, with their buttons beside them.
  {
    QWidget* page = pages[3];
    auto* grid = new QGridLayout(page);
    QComboBox* code = NewCombo(page, "cmbStandIdentificationCode4", &R::cmbStandIdentificationCode4, 12);
    grid->addWidget(NewHeading(page, "lblStandIdentificationCode4", &R::lblStandIdentificationCode4, code), 0, 0);
    grid->addWidget(code, 0, 1, Qt::AlignLeft);
    lstDataSetNames_ = NewLineList(page, "lstDataSetNames", QStringLiteral("Add files"), 48);
    grid->addWidget(NewHeading(page, "lblDataSetNames", &R::lblDataSetNames, lstDataSetNames_), 1, 0, Qt::AlignTop);
    grid->addWidget(lstDataSetNames_, 1, 1);
    cmdAdd_ = NewButton(page, "cmdAdd", &R::cmdAdd_Click);
    cmdSelectDataSetFile_ = NewButton(page, "cmdSelectDataSetFile", &R::cmdSelectDataSetFile_Click);
    cmdDelete_ = NewButton(page, "cmdDelete", &R::cmdDelete_Click);
    auto* buttons = new QVBoxLayout;
    buttons->addWidget(cmdAdd_);
    buttons->addWidget(cmdSelectDataSetFile_);
    buttons->addWidget(cmdDelete_);
    buttons->addStretch(1);
    grid->addLayout(buttons, 1, 2);
    grid->setColumnStretch(1, 1);
    connect(lstDataSetNames_, &QListWidget::currentRowChanged, this, [this](int row) {
      if (row >= 0) FireEvent([row](R& d) { d.lstDataSetNames.Select(row); });
    });
    connect(lstDataSetNames_, &QListWidget::itemDoubleClicked, this,
            [this] { FireEvent([](R& d) { d.lstDataSetNames_DblClick(); }); });
  }

  const DialogButtons buttons = NewDialogButtons(this);
  ok_ = buttons.ok;
  cancel_ = buttons.cancel;
  help_ = buttons.help;
  ClickFires(ok_, [this] { RunUnhandledEvent([this] { Dialog().cmdOk_Click(); }); });
  ClickFires(cancel_, [this] { RunUnhandledEvent([this] { Dialog().cmdCancel_Click(); }); });

  auto* layout = new QVBoxLayout(this);
  layout->addWidget(tabSlfRecords_, 1);
  layout->addLayout(buttons.row);

  connect(tabSlfRecords_, &QTabWidget::currentChanged, this, [this](int tab) {
    FireEvent([tab](R& d) {
      d.tabSlfRecords.Tab = tab;
      d.tabSlfRecords_Click();
    });
  });
}

frmSlfRecord& frmSlfRecordWindow::Dialog() const { return static_cast<frmSlfRecord&>(*DrawnScreen()); }

void frmSlfRecordWindow::FireEvent(const std::function<void(frmSlfRecord&)>& event) {
  if (DrawnScreen() == nullptr) return;
  frmSlfRecord& dialog = Dialog();
  Fire([&] { RunUnhandledEvent([&] { event(dialog); }); });
}

QPushButton* frmSlfRecordWindow::NewButton(QWidget* page, const char* name, void (frmSlfRecord::*event)()) {
  auto* button = new QPushButton(page);
  button->setObjectName(QString::fromLatin1(name));
  ClickFires(button, [this, event] { RunUnhandledEvent([this, event] { (Dialog().*event)(); }); });
  return button;
}

QComboBox* frmSlfRecordWindow::NewCombo(QWidget* page, const char* name, ListControl frmSlfRecord::*combo,
                                        int characters) {
  QComboBox* widget = NewEditableList(page, name, characters);
  widget->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  combos_.push_back({widget, combo});
  connect(widget, &QComboBox::activated, this,
          [this, combo](int index) { FireEvent([&](R& d) { (d.*combo).Select(index); }); });
  connect(widget->lineEdit(), &QLineEdit::textEdited, this, [this, combo](const QString& text) {
    const auto bytes = Latin1FromQt(text);
    if (bytes) FireEvent([&](R& d) { (d.*combo).Text = *bytes; });
  });
  widget->installEventFilter(this);
  widget->lineEdit()->installEventFilter(this);
  return widget;
}

QLineEdit* frmSlfRecordWindow::NewText(QWidget* page, const char* name, TextBox frmSlfRecord::*box) {
  auto* widget = new QLineEdit(page);
  widget->setObjectName(QString::fromLatin1(name));
  texts_.push_back({widget, box});
  connect(widget, &QLineEdit::textEdited, this, [this, box](const QString& text) {
    const auto bytes = Latin1FromQt(text);
    if (bytes) FireEvent([&](R& d) { (d.*box).Text = *bytes; });
  });
  return widget;
}

QLabel* frmSlfRecordWindow::NewHeading(QWidget* page, const char* name, Label frmSlfRecord::*label, QWidget* field) {
  QLabel* widget = NewLabel(page, name);
  // The four tabs lie one over the other: a heading is tied to its field
  // here, not by where it stands.
  widget->setBuddy(field);
  labels_.push_back({widget, label});
  return widget;
}

bool frmSlfRecordWindow::eventFilter(QObject* watched, QEvent* event) {
  const bool in = event->type() == QEvent::FocusIn;
  const bool out = event->type() == QEvent::FocusOut;
  if ((in || out) && DrawnScreen() != nullptr) {
    for (const DrawnCombo& drawn : combos_) {
      if (watched != drawn.widget && watched != drawn.widget->lineEdit()) continue;
      // The list's own text field passes the focus on to it and back: only
      // a focus that comes from, or goes to, another control counts.
      const QWidget* other = QApplication::focusWidget();
      if (out && (other == drawn.widget || other == drawn.widget->lineEdit())) break;
      ListControl frmSlfRecord::*combo = drawn.combo;
      FireEvent([&](R& d) {
        if (in)
          d.Combo_GotFocus(d.*combo);
        else
          d.Combo_LostFocus(d.*combo);
      });
      break;
    }
  }
  return ScreenWindow::eventFilter(watched, event);
}

void frmSlfRecordWindow::Redraw(const ScreenChanges& changes) {
  if (!changes.controls || DrawnScreen() == nullptr) return;
  const frmSlfRecord& d = Dialog();
  setWindowTitle(ToQt(d.Caption));
  {
    const QSignalBlocker block(tabSlfRecords_);
    const TabStrip& tabs = d.tabSlfRecords;
    for (int tab = 0; tab < tabSlfRecords_->count(); ++tab) {
      const auto at = static_cast<std::size_t>(tab);
      if (at < tabs.TabCaption.size()) tabSlfRecords_->setTabText(tab, ToQt(tabs.TabCaption[at]));
      tabSlfRecords_->setTabEnabled(tab, at < tabs.TabEnabled.size() && tabs.TabEnabled[at]);
    }
    if (tabs.Tab >= 0 && tabs.Tab < tabSlfRecords_->count()) tabSlfRecords_->setCurrentIndex(tabs.Tab);
  }
  for (const DrawnLabel& drawn : labels_) DrawCaption(drawn.widget, d.*drawn.label);
  for (const DrawnText& drawn : texts_) DrawText(drawn.widget, d.*drawn.box);
  for (const DrawnCombo& drawn : combos_) {
    const ListControl& combo = d.*drawn.combo;
    const QString shown = drawn.widget->lineEdit()->text();
    DrawEditableList(drawn.widget, combo);
    DrawState(drawn.widget, combo);
    // A row the program puts in, longer than its field, shows from its
    // start, its code; what the person types stays where it is typed.
    if (drawn.widget->lineEdit()->text() != shown) drawn.widget->lineEdit()->setCursorPosition(0);
  }
  for (const DrawnCheck& drawn : checks_) DrawCheck(drawn.widget, d.*drawn.box);
  // A widened list opens as wide as the screen made it: its width in twips
  // against that of its reference box, whose pixels the layout decides.
  const auto widen = [](QComboBox* widget, const ListControl& combo, const QLineEdit* reference, const TextBox& box) {
    if (reference == nullptr || box.Width <= 0) return;
    const int pixels = static_cast<int>(std::lround(double(combo.Width) * reference->width() / box.Width));
    widget->view()->setMinimumWidth(std::max(widget->width(), pixels));
  };
  for (const DrawnCombo& drawn : combos_) {
    const ListControl& combo = d.*drawn.combo;
    if (drawn.combo == &R::cmbLocation || drawn.combo == &R::cmbHabitatType)
      widen(drawn.widget, combo, txtLongitude_, d.txtLongitude);
    if (drawn.combo == &R::cmbDiameterGrowthTranslationCode || drawn.combo == &R::cmbHeightGrowthTranslationCode)
      widen(drawn.widget, combo, txtStockablePercent_, d.txtStockablePercent);
  }
  // Only the controls of the record's own tab take part in the keyboard
  // order (and so in the access keys and the names read out).
  for (const DrawnText& drawn : texts_) DrawTabStop(drawn.widget, d.*drawn.box);
  for (const DrawnCombo& drawn : combos_) DrawTabStop(drawn.widget, d.*drawn.combo);
  for (const DrawnCheck& drawn : checks_) DrawTabStop(drawn.widget, d.*drawn.box);
  DrawTabStop(cmdSelect_, d.cmdSelect);
  DrawTabStop(cmdBareGround_, d.cmdBareGround);
  DrawTabStop(optPlotBasedSiteDataYes_, d.optPlotBasedSiteDataYes);
  DrawTabStop(optNo_, d.optNo);
  DrawTabStop(lstDataSetNames_, d.lstDataSetNames);
  DrawTabStop(cmdAdd_, d.cmdAdd);
  DrawTabStop(cmdSelectDataSetFile_, d.cmdSelectDataSetFile);
  DrawTabStop(cmdDelete_, d.cmdDelete);
  DrawPath(lblTreeDataSet_, d.lblTreeDataSet);
  DrawButton(cmdSelect_, d.cmdSelect);
  DrawButton(cmdBareGround_, d.cmdBareGround);
  fraPlotBasedSiteData_->setTitle(ToQt(d.fraPlotBasedSiteData.Caption));
  DrawOption(optPlotBasedSiteDataYes_, d.optPlotBasedSiteDataYes);
  DrawOption(optNo_, d.optNo);
  fraApplicableVariants_->setTitle(ToQt(d.fraApplicableVariants.Caption));
  DrawListBox(lstDataSetNames_, d.lstDataSetNames);
  DrawButton(cmdAdd_, d.cmdAdd);
  DrawButton(cmdSelectDataSetFile_, d.cmdSelectDataSetFile);
  DrawButton(cmdDelete_, d.cmdDelete);
  DrawButton(ok_, d.cmdOk);
  DrawButton(cancel_, d.cmdCancel);
  // Record B's twenty-six headings need every letter there is; Enter and
  // Escape press OK and Cancel there.
  for (QPushButton* button : {ok_, cancel_}) button->setProperty(kAccessKeyServedLast, d.tabSlfRecords.Tab == 1);
  DrawButton(help_, d.cmdHelp);
}

}  // namespace corvalin
