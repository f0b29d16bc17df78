// frmSlfRecord: the modal dialog in which one record of a stand list is typed
// or changed, one tab per record type (0 to 3 for A to D). Only the tab of the
// record at hand is enabled; cmdOk checks that tab's fields, builds its line
// and puts it in the selected line of lstSlf on frmSlf. The caller sets the
// tabs, the active tab and any prefilled field, and calls SetActiveRecordTab,
// before it opens the dialog through App().ShowModal.
#pragma once

#include <array>
#include <string>

#include "screens/Controls.h"
#include "screens/Screen.h"
#include "standlist/VariantTables.h"

namespace corvalin {

class StateDigest;

inline constexpr const char* SlfRecordCaptionSuffix = " - Edit Stand List File Record";
inline constexpr const char* TreeDataSetDialogTitle = " - Select Tree Data Set";
inline constexpr const char* TreeDataSetDialogFilter = "Tree List (*.tre) | *.tre |All Files (*.*) | *.*";
inline constexpr const char* AddFileDialogTitle = " - Select Add File";
inline constexpr const char* AddFileDialogFilter = "Keyword files (*.key) | *.key |All Files (*.*) | *.*";
// The four widening combos take their place from these, in twips.
inline constexpr int kLocationWidening = 1500;
inline constexpr int kHabitatTypeWidening = 1650;
inline constexpr int kGrowthTranslationWidening = 1500;

class frmSlfRecord : public Screen {
 public:
  const char* Name() const override { return "frmSlfRecord"; }
  void Form_Load() override;
  void DismissAsCancelled() override { cmdCancel_Click(); }

  TabStrip tabSlfRecords;
  Button cmdOk;
  Button cmdCancel;
  Button cmdHelp;

  // Tab 0, record A.
  Label lblStandIdentificationCode1;
  ListControl cmbStandIdentificationCode1;
  Label lblTreeDataSet1;  // the heading of lblTreeDataSet
  Label lblTreeDataSet;
  Button cmdSelect;
  Button cmdBareGround;
  CheckBox chkAk, chkBc, chkBh, chkBm, chkCi, chkEc, chkEm, chkNc, chkNi, chkSo, chkSw, chkTt, chkUt, chkWs, chkKt;
  OptionButton optPlotBasedSiteDataYes;
  OptionButton optNo;
  // The frames' captions.
  Label fraApplicableVariants;
  Label fraPlotBasedSiteData;

  // Tab 1, record B, in token order.
  ListControl cmbStandIdentificationCode2;
  TextBox txtInventoryYear;
  TextBox txtLatitude;
  TextBox txtLongitude;
  ListControl cmbLocation;
  ListControl cmbHabitatType;
  TextBox txtStandOrigin;
  TextBox txtAspect;
  TextBox txtSlope;
  TextBox txtElevation;
  TextBox txtBasalAreaFactor;
  TextBox txtInverseOfFixedPlotSize;
  TextBox txtBreakpointDbh;
  TextBox txtNumberOfPlots;
  TextBox txtNumberOfStockablePlots;
  TextBox txtStandSamplingWeight;
  TextBox txtStockablePercent;
  ListControl cmbDiameterGrowthTranslationCode;
  TextBox txtDiameterGrowthMeasurePeriod;
  ListControl cmbHeightGrowthTranslationCode;
  TextBox txtHeightGrowthMeasurementPeriod;
  TextBox txtMortalityMeasurementPeriod;
  TextBox txtMaximumBasalArea;
  TextBox txtMaximumStandDensityIndex;
  ListControl cmbSiteSpecies;
  TextBox txtSiteIndex;
  // The headings of the fields of tab 1, each named after its field.
  Label lblStandIdentificationCode2;
  Label lblInventoryYear;
  Label lblLatitude;
  Label lblLongitude;
  Label lblLocation;
  Label lblHabitatType;
  Label lblStandOrigin;
  Label lblAspect;
  Label lblSlope;
  Label lblInverseOfFixedPlotSize;
  Label lblNumberOfPlots;
  Label lblNumberOfStockablePlots;
  Label lblStandSamplingWeight;
  Label lblStockablePercent;
  Label lblDiameterGrowthTranslationCode;
  Label lblDiameterGrowthMeasurePeriod;
  Label lblHeightGrowthTranslationCode;
  Label lblHeightGrowthMeasurementPeriod;
  Label lblMortalityMeasurementPeriod;
  Label lblSiteSpecies;
  // The six labels whose units follow the variant on frmSlf.
  Label lblElevation;
  Label lblBasalAreaFactor;
  Label lblBreakpointDbh;
  Label lblMaximumBasalArea;
  Label lblMaximumStandDensityIndex;
  Label lblSiteIndex;

  // Tab 2, record C.
  Label lblStandIdentificationCode3;
  ListControl cmbStandIdentificationCode3;
  Label lblGroupCodes;
  TextBox txtGroupCodes;

  // Tab 3, record D.
  Label lblStandIdentificationCode4;
  ListControl cmbStandIdentificationCode4;
  Label lblDataSetNames;
  ListControl lstDataSetNames;
  Button cmdAdd;
  Button cmdSelectDataSetFile;
  Button cmdDelete;

  // Events.
  void cmdOk_Click();
  void cmdCancel_Click();
  void cmdSelect_Click();
  void cmdBareGround_Click();
  void cmdAdd_Click();
  void cmdDelete_Click();
  void cmdSelectDataSetFile_Click();
  void lstDataSetNames_DblClick();
  void tabSlfRecords_Click();
  // Focus on one of the four widening combos: it widens to read its rows,
  // and narrows again when the focus leaves.
  void Combo_GotFocus(ListControl& combo);
  void Combo_LostFocus(ListControl& combo);

  // Whether the active tab's fields pass; the first fault is shown.
  bool ValidateRecordFields();
  // Puts the given tab's controls, and only those, in the keyboard order.
  void SetActiveRecordTab(int tab);
  // Sets the unit labels by the variant on frmSlf.
  void SetUnitLabels();

  // The code combo of a tab (0 to 3), or null for any other tab.
  ListControl* CodeCombo(int tab);
  // The variant boxes in the order of the variants (and of the tags).
  std::array<CheckBox*, kVariantCount> VariantBoxes();

 protected:
  void DescribeControls(StateDigest& digest) const override;
};

// Fills cmbSiteSpecies by the variant on frmHeaders (cleared first) and adds
// the location rows of the variant on frmSlf behind those already in
// cmbLocation (not cleared). Loads frmSlfRecord when it is not loaded.
void FillVariantLists();

// Fills frmSlfRecord from a stand list line and opens it modally, on the tab
// of the line's record type; a line of no known type gives the message
// "Invalid SLF record - should start with 'A', 'B', 'C', or 'D'.".
void EditStandRecord(const std::string& line);

}  // namespace corvalin
