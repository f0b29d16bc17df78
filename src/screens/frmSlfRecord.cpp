#include "screens/frmSlfRecord.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <vector>

#include "columns/CellRules.h"
#include "columns/Vocabulary.h"
#include "screens/Application.h"
#include "screens/FileDialogChoice.h"
#include "screens/StateDigest.h"
#include "screens/frmHeaders.h"
#include "screens/frmMain.h"
#include "screens/frmSlf.h"
#include "shell/AppUtil.h"
#include "shell/Failure.h"
#include "shell/RunState.h"
#include "shell/Text.h"
#include "shell/Toolkit.h"
#include "standlist/StandLevelFile.h"
#include "standlist/VariantTables.h"

namespace corvalin {

namespace {

constexpr std::size_t kMaxCodeLength = 8;

// Where the reference boxes of the widening combos stand, in twips. The
// combos sit on them while they do not have the focus.
constexpr int kLongitudeLeft = 2400;
constexpr int kLongitudeWidth = 1000;
constexpr int kStockablePercentLeft = 7680;
constexpr int kStockablePercentWidth = 1000;

// A unit label: its caption for the metric variant and for all others.
struct UnitLabel {
  Label frmSlfRecord::*label;
  const char* metric;
  const char* imperial;
};
constexpr std::array<UnitLabel, 6> kUnitLabels{{
    {&frmSlfRecord::lblElevation, "Elevation (m):", "Elevation (ft x 100):"},
    {&frmSlfRecord::lblBasalAreaFactor, "Basal area factor (sq.m/ha):", "Basal area factor (sq.ft/ha):"},
    {&frmSlfRecord::lblBreakpointDbh, "Breakpoint DBH (cm):", "Breakpoint DBH (in):"},
    {&frmSlfRecord::lblMaximumBasalArea, "Maximum basal area (sq.m/ha):", "Maximum basal area (sq.ft/ha):"},
    {&frmSlfRecord::lblMaximumStandDensityIndex, "Maximum stand density index (sph):",
     "Maximum stand density index (tpa):"},
    {&frmSlfRecord::lblSiteIndex, "Site index (m):", "Site index (ft):"},
}};

// The fixed headings of tab 1 (the unit labels are set apart).
struct Heading {
  Label frmSlfRecord::*label;
  const char* caption;
};
constexpr std::array<Heading, 20> kRecordBHeadings{{
    {&frmSlfRecord::lblStandIdentificationCode2, "Stand identification code:"},
    {&frmSlfRecord::lblInventoryYear, "Inventory year:"},
    {&frmSlfRecord::lblLatitude, "Latitude (degrees):"},
    {&frmSlfRecord::lblLongitude, "Longitude (degrees):"},
    {&frmSlfRecord::lblLocation, "Location code:"},
    {&frmSlfRecord::lblHabitatType, "Habitat type:"},
    {&frmSlfRecord::lblStandOrigin, "Stand origin year:"},
    {&frmSlfRecord::lblAspect, "Aspect (degrees):"},
    {&frmSlfRecord::lblSlope, "Slope (percent):"},
    {&frmSlfRecord::lblInverseOfFixedPlotSize, "Inverse of plot size:"},
    {&frmSlfRecord::lblNumberOfPlots, "Number of plots:"},
    // The field holds the non-stockable plots, as its heading says; its
    // control and its message speak of stockable ones.
    {&frmSlfRecord::lblNumberOfStockablePlots, "Number of non-stockable plots:"},
    {&frmSlfRecord::lblStandSamplingWeight, "Stand sampling weight:"},
    {&frmSlfRecord::lblStockablePercent, "Stockable percent:"},
    {&frmSlfRecord::lblDiameterGrowthTranslationCode, "Diameter growth translation code:"},
    {&frmSlfRecord::lblDiameterGrowthMeasurePeriod, "Diameter growth measurement period:"},
    {&frmSlfRecord::lblHeightGrowthTranslationCode, "Height growth translation code:"},
    {&frmSlfRecord::lblHeightGrowthMeasurementPeriod, "Height growth measurement period:"},
    {&frmSlfRecord::lblMortalityMeasurementPeriod, "Mortality measurement period:"},
    {&frmSlfRecord::lblSiteSpecies, "Site species:"},
}};

// The field tests of tab 1, in the order they run. Some fields take only a
// number; the periods, the maximum stand density index and the site index
// take any single word.
enum class FieldRule { Numeric, SingleWord };
struct FieldTest {
  TextBox frmSlfRecord::*field;
  FieldRule rule;
  const char* message;
};
constexpr std::array<FieldTest, 20> kRecordBTests{{
    {&frmSlfRecord::txtInventoryYear, FieldRule::Numeric, "Invalid Inventory Year."},
    {&frmSlfRecord::txtLatitude, FieldRule::Numeric, "Invalid Latitude value."},
    {&frmSlfRecord::txtLongitude, FieldRule::Numeric, "Invalid Longitude value."},
    {&frmSlfRecord::txtStandOrigin, FieldRule::Numeric, "Invalid Stand Origin year."},
    {&frmSlfRecord::txtAspect, FieldRule::Numeric, "Invalid Aspect value."},
    {&frmSlfRecord::txtSlope, FieldRule::Numeric, "Invalid Slope value."},
    {&frmSlfRecord::txtElevation, FieldRule::Numeric, "Invalid Elevation value."},
    {&frmSlfRecord::txtBasalAreaFactor, FieldRule::Numeric, "Invalid Basal Area Factor value."},
    {&frmSlfRecord::txtInverseOfFixedPlotSize, FieldRule::Numeric, "Invalid Inverse of Plot Size value."},
    {&frmSlfRecord::txtBreakpointDbh, FieldRule::Numeric, "Invalid Breakpoint DBH value."},
    {&frmSlfRecord::txtNumberOfPlots, FieldRule::Numeric, "Invalid Number of Plots."},
    {&frmSlfRecord::txtNumberOfStockablePlots, FieldRule::Numeric, "Invalid Number of Stockable Plots."},
    {&frmSlfRecord::txtStandSamplingWeight, FieldRule::Numeric, "Invalid Stand Sampling Weight."},
    {&frmSlfRecord::txtStockablePercent, FieldRule::Numeric, "Invalid Stockable Percent value."},
    {&frmSlfRecord::txtDiameterGrowthMeasurePeriod, FieldRule::SingleWord,
     "Invalid Diameter Growth Measuremnt Period."},
    {&frmSlfRecord::txtHeightGrowthMeasurementPeriod, FieldRule::SingleWord,
     "Invalid Height Growth Measurement Period."},
    {&frmSlfRecord::txtMortalityMeasurementPeriod, FieldRule::SingleWord, "Invalid Mortality Measurement Period."},
    {&frmSlfRecord::txtMaximumBasalArea, FieldRule::Numeric, "Invalid Maximum Basal Area value."},
    {&frmSlfRecord::txtMaximumStandDensityIndex, FieldRule::SingleWord, "Invalid Maximum Stand Density Index."},
    {&frmSlfRecord::txtSiteIndex, FieldRule::SingleWord, "Invalid Site Index."},
}};

bool IsNumericField(const TextBox& field) { return IsDecimalText(field.Text); }

bool Passes(const TextBox& field, FieldRule rule) {
  return rule == FieldRule::Numeric ? IsNumericField(field) : IsSingleWord(field.Text);
}

// A control of tab 1: the control, its text, and the combo when it is one.
struct RecordBField {
  Control* control;
  std::string* text;
  ListControl* combo;
};
RecordBField Field(TextBox& box) { return {&box, &box.Text, nullptr}; }
RecordBField Field(ListControl& combo) { return {&combo, &combo.Text, &combo}; }

// The controls of tab 1 from token 3 to token 27, in token order.
std::array<RecordBField, kRecordBValues> RecordBFields(frmSlfRecord& d) {
  return {Field(d.txtInventoryYear),
          Field(d.txtLatitude),
          Field(d.txtLongitude),
          Field(d.cmbLocation),
          Field(d.cmbHabitatType),
          Field(d.txtStandOrigin),
          Field(d.txtAspect),
          Field(d.txtSlope),
          Field(d.txtElevation),
          Field(d.txtBasalAreaFactor),
          Field(d.txtInverseOfFixedPlotSize),
          Field(d.txtBreakpointDbh),
          Field(d.txtNumberOfPlots),
          Field(d.txtNumberOfStockablePlots),
          Field(d.txtStandSamplingWeight),
          Field(d.txtStockablePercent),
          Field(d.cmbDiameterGrowthTranslationCode),
          Field(d.txtDiameterGrowthMeasurePeriod),
          Field(d.cmbHeightGrowthTranslationCode),
          Field(d.txtHeightGrowthMeasurementPeriod),
          Field(d.txtMortalityMeasurementPeriod),
          Field(d.txtMaximumBasalArea),
          Field(d.txtMaximumStandDensityIndex),
          Field(d.cmbSiteSpecies),
          Field(d.txtSiteIndex)};
}

// The controls of each tab that take part in the keyboard order while their
// tab is the active one.
std::vector<Control*> TabGroup(frmSlfRecord& d, int tab) {
  std::vector<Control*> group;
  switch (tab) {
    case 0:
      group = {&d.cmbStandIdentificationCode1, &d.cmdBareGround, &d.cmdSelect, &d.optPlotBasedSiteDataYes, &d.optNo};
      for (CheckBox* box : d.VariantBoxes()) group.push_back(box);
      break;
    case 1:
      group = {&d.cmbStandIdentificationCode2};
      for (const RecordBField& field : RecordBFields(d)) group.push_back(field.control);
      break;
    case 2:
      group = {&d.cmbStandIdentificationCode3, &d.txtGroupCodes};
      break;
    case 3:
      group = {&d.cmbStandIdentificationCode4, &d.lstDataSetNames, &d.cmdAdd, &d.cmdSelectDataSetFile, &d.cmdDelete};
      break;
    default:
      break;
  }
  return group;
}

// The reference box and the constant of a widening combo; null for others.
struct Widening {
  const TextBox* reference = nullptr;
  int constant = 0;
};
Widening WideningOf(frmSlfRecord& d, const ListControl& combo) {
  if (&combo == &d.cmbLocation) return {&d.txtLongitude, kLocationWidening};
  if (&combo == &d.cmbHabitatType) return {&d.txtLongitude, kHabitatTypeWidening};
  if (&combo == &d.cmbDiameterGrowthTranslationCode) return {&d.txtStockablePercent, kGrowthTranslationWidening};
  if (&combo == &d.cmbHeightGrowthTranslationCode) return {&d.txtStockablePercent, kGrowthTranslationWidening};
  return {};
}

void SetCaptions(frmSlfRecord& d) {
  d.tabSlfRecords.TabCaption = {"Record Type A", "Record Type B", "Record Type C", "Record Type D"};
  d.tabSlfRecords.TabEnabled = {true, true, true, true};
  d.cmdOk.Caption = "Ok";
  d.cmdCancel.Caption = "Cancel";
  d.cmdHelp.Caption = "Help";
  d.cmdHelp.Visible = false;
  d.cmdHelp.Enabled = false;

  d.lblStandIdentificationCode1.Caption = "Stand identification code:";
  d.lblTreeDataSet1.Caption = "Tree Data Set:";
  d.cmdSelect.Caption = "Select";
  d.cmdBareGround.Caption = "Bare-ground";
  d.fraApplicableVariants.Caption = "Applicable Variants:";
  const auto boxes = d.VariantBoxes();
  for (std::size_t i = 0; i < boxes.size(); ++i) boxes[i]->Caption = VariantNames()[i];
  d.fraPlotBasedSiteData.Caption = "Plot based site data?";
  d.optPlotBasedSiteDataYes.Caption = "Yes";
  d.optNo.Caption = "No";

  for (const Heading& heading : kRecordBHeadings) (d.*heading.label).Caption = heading.caption;

  d.lblStandIdentificationCode3.Caption = "Stand identification code:";
  d.lblGroupCodes.Caption = "Group codes:";
  d.lblStandIdentificationCode4.Caption = "Stand identification code:";
  d.lblDataSetNames.Caption = "Add files:";
  d.cmdAdd.Caption = "Add";
  d.cmdSelectDataSetFile.Caption = "Change";
  d.cmdDelete.Caption = "Delete";
}

void PlaceWideningCombos(frmSlfRecord& d) {
  d.txtLongitude.Left = kLongitudeLeft;
  d.txtLongitude.Width = kLongitudeWidth;
  d.txtStockablePercent.Left = kStockablePercentLeft;
  d.txtStockablePercent.Width = kStockablePercentWidth;
  for (ListControl* combo : {&d.cmbLocation, &d.cmbHabitatType, &d.cmbDiameterGrowthTranslationCode,
                             &d.cmbHeightGrowthTranslationCode})
    d.Combo_LostFocus(*combo);
}

// The line of the active tab's record.
std::string BuildRecordLine(frmSlfRecord& d) {
  switch (d.tabSlfRecords.Tab) {
    case 0: {
      StandRecordA record;
      record.code = d.cmbStandIdentificationCode1.Text;
      record.treeDataSet = d.lblTreeDataSet.Caption;
      record.withPointData = d.optPlotBasedSiteDataYes.Value;
      const auto boxes = d.VariantBoxes();
      for (std::size_t i = 0; i < boxes.size(); ++i) record.variants[i] = boxes[i]->Checked();
      return BuildRecordA(record);
    }
    case 1: {
      StandRecordB record;
      record.code = d.cmbStandIdentificationCode2.Text;
      const auto fields = RecordBFields(d);
      // The whole texts: the builder keeps only the code at the front of a
      // list field's row.
      for (std::size_t i = 0; i < fields.size(); ++i) record.values[i] = *fields[i].text;
      return BuildRecordB(record);
    }
    case 2:
      return BuildRecordC({d.cmbStandIdentificationCode3.Text, d.txtGroupCodes.Text});
    default:
      return BuildRecordD({d.cmbStandIdentificationCode4.Text, d.lstDataSetNames.Items});
  }
}

// --- the file choices of records A and D

FileDialogRequest TreeDataSetDialog() {
  FileDialogRequest dialog;
  dialog.title = std::string(ApplicationTitle) + TreeDataSetDialogTitle;
  dialog.filter = Run().DefaultOutputFileExtension + TreeDataSetDialogFilter;
  dialog.filterIndex = 1;
  dialog.flags = kOutputDialogFlags;
  dialog.save = true;
  return dialog;
}

FileDialogRequest AddFileDialog() {
  FileDialogRequest dialog;
  dialog.title = std::string(ApplicationTitle) + AddFileDialogTitle;
  dialog.filter = AddFileDialogFilter;
  dialog.filterIndex = 1;
  dialog.flags = kInputDialogFlags;
  return dialog;
}

// Replaces the selected add file by the one chosen in the dialog. The button
// trims the start folder for the dialog and compares the choice with the old
// file name; the double click does neither and compares with the last name
// of the shared data set dialog, so any choice replaces the entry.
enum class ChangeWay { Button, DoubleClick };
void ChangeAddFile(frmSlfRecord& d, ChangeWay way) {
  ListControl& list = d.lstDataSetNames;
  std::string& entry = list.Items.at(static_cast<std::size_t>(list.ListIndex));
  const std::string path = ExpandWorkPath(entry);
  const std::string oldName = FileNameOf(path);
  FileDialogRequest dialog = AddFileDialog();
  dialog.fileName = oldName;
  dialog.initialFolder = way == ChangeWay::Button ? TrimFolderEnd(FileFolderOf(path)) : FileFolderOf(path);
  const std::string chosen = ChooseFile(dialog);
  const std::string& compared = way == ChangeWay::Button ? oldName : MainForm().cmnDataSetFileDialog.fileName;
  if (chosen.empty() || chosen == compared) return;
  entry = ShortenWorkPath(chosen);
}

// --- opening a stand list line

// Shows the row a look-up found, or, when none matched, keeps the token in
// the combo's edit box so that a code outside the list survives the next
// writing.
void ShowListField(ListControl& combo, int row, const std::string& token) {
  if (row >= 0) {
    combo.Select(row);
  } else {
    combo.ListIndex = -1;
    combo.Text = token;
  }
}

void FillRecordA(frmSlfRecord& d, const std::string& line) {
  const StandRecordA record = ReadRecordA(line);
  d.cmbStandIdentificationCode1.Text = record.code;
  d.lblTreeDataSet.SetCaption(record.treeDataSet);
  d.optPlotBasedSiteDataYes.Value = record.withPointData;
  d.optNo.Value = !record.withPointData;
  const auto boxes = d.VariantBoxes();
  // A tag ticks its box; a box is never cleared by reading.
  for (int i = 0; i < kVariantCount; ++i)
    if (record.variants[static_cast<std::size_t>(i)]) boxes[static_cast<std::size_t>(i)]->Value = 1;
}

void FillRecordB(frmSlfRecord& d, const std::string& line) {
  const StandRecordB record = ReadRecordB(line);
  const auto token = [&](int number) -> const std::string& {
    return record.values[static_cast<std::size_t>(number - kRecordBFirstValueToken)];
  };
  d.cmbStandIdentificationCode2.Text = record.code;
  d.txtInventoryYear.Text = token(3);
  d.txtLatitude.Text = token(4);
  d.txtLongitude.Text = token(5);
  ShowListField(d.cmbLocation, LastRowWithNumber(d.cmbLocation.Items, token(6), RecordBStoredWidth(6)), token(6));
  ShowListField(d.cmbHabitatType, LastRowWithNumber(d.cmbHabitatType.Items, token(7), RecordBStoredWidth(7)),
                token(7));
  d.txtStandOrigin.Text = token(8);
  d.txtAspect.Text = token(9);
  d.txtSlope.Text = token(10);
  d.txtElevation.Text = token(11);
  d.txtBasalAreaFactor.Text = token(12);
  d.txtInverseOfFixedPlotSize.Text = token(13);
  d.txtBreakpointDbh.Text = token(14);
  d.txtNumberOfPlots.Text = token(15);
  d.txtNumberOfStockablePlots.Text = token(16);
  d.txtStandSamplingWeight.Text = token(17);
  d.txtStockablePercent.Text = token(18);
  ShowListField(d.cmbDiameterGrowthTranslationCode,
                LastRowWithFirstCharacter(d.cmbDiameterGrowthTranslationCode.Items, token(19)), token(19));
  d.txtDiameterGrowthMeasurePeriod.Text = token(20);
  ShowListField(d.cmbHeightGrowthTranslationCode,
                LastRowWithFirstCharacter(d.cmbHeightGrowthTranslationCode.Items, token(21)), token(21));
  d.txtHeightGrowthMeasurementPeriod.Text = token(22);
  d.txtMortalityMeasurementPeriod.Text = token(23);
  d.txtMaximumBasalArea.Text = token(24);
  d.txtMaximumStandDensityIndex.Text = token(25);
  ShowListField(d.cmbSiteSpecies, LastRowWithSpeciesCode(d.cmbSiteSpecies.Items, token(26)), token(26));
  d.txtSiteIndex.Text = token(27);
}

void FillRecordC(frmSlfRecord& d, const std::string& line) {
  const StandRecordC record = ReadRecordC(line);
  d.cmbStandIdentificationCode3.Text = record.code;
  d.txtGroupCodes.Text += record.groupCodes;
}

void FillRecordD(frmSlfRecord& d, const std::string& line) {
  const StandRecordD record = ReadRecordD(line);
  d.cmbStandIdentificationCode4.Text = record.code;
  for (const std::string& file : record.addFiles) d.lstDataSetNames.AddItem(file);
}

}  // namespace

void frmSlfRecord::Form_Load() {
  RunEvent([&] {
    Run().CurrentScreen = "SlfRecord";
    Caption = std::string(ApplicationTitle) + SlfRecordCaptionSuffix;
    frmSlf& slf = App().Slf();
    PlaceLike(slf);
    SetCaptions(*this);
    PlaceWideningCombos(*this);

    for (int tab = 0; tab < 4; ++tab) CodeCombo(tab)->Clear();
    for (const RecordBField& field : RecordBFields(*this)) {
      if (field.combo)
        field.combo->Clear();
      else
        field.text->clear();
    }
    txtGroupCodes.Text.clear();
    lblTreeDataSet.SetCaption("");
    optPlotBasedSiteDataYes.Value = true;
    optNo.Value = false;

    SetUnitLabels();

    for (const std::string& row : PlotHabitatItems()) cmbHabitatType.AddItem(row);
    for (const char* row : GrowthTranslationRows) {
      cmbDiameterGrowthTranslationCode.AddItem(row);
      cmbHeightGrowthTranslationCode.AddItem(row);
    }
    FillVariantLists();

    // The file's codes, in order of first appearance.
    for (const std::string& line : slf.lstSlf.Items) {
      const std::string code = GetRecordToken(line, 2);
      const auto& known = cmbStandIdentificationCode1.Items;
      if (std::find(known.begin(), known.end(), code) != known.end()) continue;
      for (int tab = 0; tab < 4; ++tab) CodeCombo(tab)->AddItem(code);
    }
  });
}

std::array<CheckBox*, kVariantCount> frmSlfRecord::VariantBoxes() {
  return {&chkAk, &chkBc, &chkBh, &chkBm, &chkCi, &chkEc, &chkEm, &chkNc,
          &chkNi, &chkSo, &chkSw, &chkTt, &chkUt, &chkWs, &chkKt};
}

ListControl* frmSlfRecord::CodeCombo(int tab) {
  switch (tab) {
    case 0: return &cmbStandIdentificationCode1;
    case 1: return &cmbStandIdentificationCode2;
    case 2: return &cmbStandIdentificationCode3;
    case 3: return &cmbStandIdentificationCode4;
    default: return nullptr;
  }
}

void frmSlfRecord::SetUnitLabels() {
  const bool metric = App().Slf().cmbVariant.Text == MetricVariant;
  for (const UnitLabel& unit : kUnitLabels) (this->*unit.label).Caption = metric ? unit.metric : unit.imperial;
}

bool frmSlfRecord::ValidateRecordFields() {
  const int tab = tabSlfRecords.Tab;
  if (const ListControl* combo = CodeCombo(tab)) {
    const std::string& code = combo->Text;
    if (TrimBlanks(code).empty() || !IsSingleWord(code)) {
      ShowMessage("Must enter a Stand Identification Code (no spaces).");
      return false;
    }
    if (code.size() > kMaxCodeLength) {
      ShowMessage("Stand Identification Code must be 8 characters or less.");
      return false;
    }
  }
  if (tab == 0) {
    if (lblTreeDataSet.Caption.empty()) {
      ShowMessage("Must select a Tree Data Set file.");
      return false;
    }
    int others = 0;
    for (CheckBox* box : VariantBoxes())
      if (box != &chkBc && box->Checked()) ++others;
    if (chkBc.Checked() && others > 0) {
      ShowMessage("Can't select BC together with any U.S. variant.");
      return false;
    }
  } else if (tab == 1) {
    for (const FieldTest& test : kRecordBTests) {
      if (!Passes(this->*test.field, test.rule)) {
        ShowMessage(test.message);
        return false;
      }
    }
  }
  return true;
}

void frmSlfRecord::cmdOk_Click() {
  RunEvent([&] {
    if (!ValidateRecordFields()) return;
    const std::string line = BuildRecordLine(*this);
    ListControl& lstSlf = App().Slf().lstSlf;
    lstSlf.Items.at(static_cast<std::size_t>(lstSlf.ListIndex)) = line;
    App().UnloadSlfRecord();
    Run().StandListSaved = false;
  });
}

void frmSlfRecord::cmdCancel_Click() {
  RunEvent([&] { App().UnloadSlfRecord(); });
}

void frmSlfRecord::SetActiveRecordTab(int tab) {
  for (int group = 0; group < 4; ++group)
    for (Control* control : TabGroup(*this, group)) control->TabStop = group == tab;
  if (tab < 0 || tab > 3) ShowMessage("Invalid tab index.");
}

void frmSlfRecord::tabSlfRecords_Click() {
  RunEvent([&] { SetActiveRecordTab(tabSlfRecords.Tab); });
}

void frmSlfRecord::Combo_GotFocus(ListControl& combo) {
  RunEvent([&] {
    const Widening widening = WideningOf(*this, combo);
    if (!widening.reference) return;
    combo.Left = widening.reference->Left - widening.constant;
    combo.Width = widening.reference->Width + widening.constant;
  });
}

void frmSlfRecord::Combo_LostFocus(ListControl& combo) {
  RunEvent([&] {
    const Widening widening = WideningOf(*this, combo);
    if (!widening.reference) return;
    combo.Left = widening.reference->Left;
    combo.Width = widening.reference->Width;
  });
}

void frmSlfRecord::DescribeControls(StateDigest& digest) const {
  Screen::DescribeControls(digest);
  digest << tabSlfRecords << cmdOk << cmdCancel << cmdHelp;
  // Tab 0, record A.
  digest << lblStandIdentificationCode1 << cmbStandIdentificationCode1 << lblTreeDataSet1 << lblTreeDataSet
         << cmdSelect << cmdBareGround << chkAk << chkBc << chkBh << chkBm << chkCi << chkEc << chkEm << chkNc << chkNi
         << chkSo << chkSw << chkTt << chkUt << chkWs << chkKt << optPlotBasedSiteDataYes << optNo
         << fraApplicableVariants << fraPlotBasedSiteData;
  // Tab 1, record B.
  digest << cmbStandIdentificationCode2 << txtInventoryYear << txtLatitude << txtLongitude << cmbLocation
         << cmbHabitatType << txtStandOrigin << txtAspect << txtSlope << txtElevation << txtBasalAreaFactor
         << txtInverseOfFixedPlotSize << txtBreakpointDbh << txtNumberOfPlots << txtNumberOfStockablePlots
         << txtStandSamplingWeight << txtStockablePercent << cmbDiameterGrowthTranslationCode
         << txtDiameterGrowthMeasurePeriod << cmbHeightGrowthTranslationCode << txtHeightGrowthMeasurementPeriod
         << txtMortalityMeasurementPeriod << txtMaximumBasalArea << txtMaximumStandDensityIndex << cmbSiteSpecies
         << txtSiteIndex;
  digest << lblStandIdentificationCode2 << lblInventoryYear << lblLatitude << lblLongitude << lblLocation
         << lblHabitatType << lblStandOrigin << lblAspect << lblSlope << lblInverseOfFixedPlotSize << lblNumberOfPlots
         << lblNumberOfStockablePlots << lblStandSamplingWeight << lblStockablePercent
         << lblDiameterGrowthTranslationCode << lblDiameterGrowthMeasurePeriod << lblHeightGrowthTranslationCode
         << lblHeightGrowthMeasurementPeriod << lblMortalityMeasurementPeriod << lblSiteSpecies << lblElevation
         << lblBasalAreaFactor << lblBreakpointDbh << lblMaximumBasalArea << lblMaximumStandDensityIndex
         << lblSiteIndex;
  // Tabs 2 and 3, records C and D.
  digest << lblStandIdentificationCode3 << cmbStandIdentificationCode3 << lblGroupCodes << txtGroupCodes
         << lblStandIdentificationCode4 << cmbStandIdentificationCode4 << lblDataSetNames << lstDataSetNames << cmdAdd
         << cmdSelectDataSetFile << cmdDelete;
}

// ---------------------------------------------------------------- file choices

void frmSlfRecord::cmdSelect_Click() {
  RunEvent([&] {
    const std::string old = lblTreeDataSet.Caption;
    FileDialogRequest dialog = TreeDataSetDialog();
    if (old.empty() || old == BareGroundCaption) {
      dialog.initialFolder = TrimFolderEnd(WorkingDirectoryCaption());
    } else {
      dialog.initialFolder = TrimFolderEnd(FileFolderOf(old));
      dialog.fileName = FileNameOf(old);
    }
    const std::string chosen = ChooseFile(dialog);
    if (chosen.empty() || chosen == FileNameOf(old)) return;
    lblTreeDataSet.SetCaption(chosen);
  });
}

void frmSlfRecord::cmdBareGround_Click() {
  RunEvent([&] { lblTreeDataSet.SetCaption(BareGroundCaption); });
}

void frmSlfRecord::cmdAdd_Click() {
  RunEvent([&] {
    FileDialogRequest dialog = AddFileDialog();
    // The working directory caption is that of lblWorkingDirectory on
    // frmTemplate.
    dialog.initialFolder = WorkingDirectoryCaption();
    const std::string chosen = ChooseFile(dialog);
    if (!chosen.empty()) lstDataSetNames.AddItem(ShortenWorkPath(chosen));
  });
}

void frmSlfRecord::cmdDelete_Click() {
  RunEvent([&] {
    ListControl& list = lstDataSetNames;
    if (list.ListIndex < 0) {
      ShowMessage("No Add File selected.");
      return;
    }
    const int removed = list.ListIndex;
    list.Items.erase(list.Items.begin() + removed);
    if (list.ListCount() == 0)
      list.Select(-1);
    else
      list.Select(removed > 0 ? removed - 1 : 0);
  });
}

void frmSlfRecord::cmdSelectDataSetFile_Click() {
  RunEvent([&] {
    if (lstDataSetNames.ListIndex < 0) {
      ShowMessage("No Add file selected.");
      return;
    }
    ChangeAddFile(*this, ChangeWay::Button);
  });
}

void frmSlfRecord::lstDataSetNames_DblClick() {
  RunEvent([&] { ChangeAddFile(*this, ChangeWay::DoubleClick); });
}

// ---------------------------------------------------------------- opening a line

void FillVariantLists() {
  // The species rows follow the variant of the grid screen. A run that only
  // edits files never loads that screen, and loading it here would open the
  // working table, so its variant then reads as empty, as it would on a
  // screen that was never activated.
  const std::string headersVariant = App().HeadersLoaded() ? App().Headers().cmbVariant.Text : std::string();
  frmSlfRecord& dialog = App().SlfRecord();
  dialog.cmbSiteSpecies.Clear();
  for (const std::string& row : SiteSpeciesRows(headersVariant)) dialog.cmbSiteSpecies.AddItem(row);
  // The location rows follow the variant of the stand list screen and are
  // added behind those already there.
  for (const std::string& row : LocationRows(App().Slf().cmbVariant.Text)) dialog.cmbLocation.AddItem(row);
}

void EditStandRecord(const std::string& line) {
  const char type = line.empty() ? '\0' : static_cast<char>(std::toupper(static_cast<unsigned char>(line[0])));
  if (type < 'A' || type > 'D') {
    ShowMessage(InvalidSlfRecordMessage);
    return;
  }
  UI().SetBusyPointer(true);
  frmSlfRecord& dialog = App().SlfRecord();
  UI().SetBusyPointer(false);
  switch (type) {
    case 'A': FillRecordA(dialog, line); break;
    case 'B': FillRecordB(dialog, line); break;
    case 'C': FillRecordC(dialog, line); break;
    default: FillRecordD(dialog, line); break;
  }
  const int tab = type - 'A';
  dialog.tabSlfRecords.TabEnabled = {tab == 0, tab == 1, tab == 2, tab == 3};
  dialog.tabSlfRecords.Tab = tab;
  dialog.SetActiveRecordTab(tab);
  App().ShowModal(dialog);
}

}  // namespace corvalin
