// The stand record dialog as a controller: its load, the field checks at Ok,
// the keyboard order of the tabs and the widening combos.
#include "StandRecordFixture.h"
#include "shell/RunState.h"

namespace corvalin {
namespace {

using Texts = std::vector<std::string>;

class frmSlfRecordTest : public testing::StandRecordFixture {};

TEST_F(frmSlfRecordTest, LoadTitlesTheDialogAndPlacesItWhereTheStandListStands) {
  frmSlf& slf = StandList("BC", {});
  slf.Left = 1200;
  slf.Top = 900;
  frmSlfRecord& dialog = App().SlfRecord();
  EXPECT_EQ(Run().CurrentScreen, "SlfRecord");
  EXPECT_EQ(dialog.Caption, "Corvalin - Edit Stand List File Record");
  EXPECT_EQ(dialog.Left, 1200);
  EXPECT_EQ(dialog.Top, 900);
  EXPECT_EQ(dialog.tabSlfRecords.TabCaption,
            (Texts{"Record Type A", "Record Type B", "Record Type C", "Record Type D"}));
  EXPECT_EQ(dialog.cmdOk.Caption, "Ok");
  EXPECT_EQ(dialog.cmdCancel.Caption, "Cancel");
  EXPECT_EQ(dialog.cmdHelp.Caption, "Help");
  EXPECT_FALSE(dialog.cmdHelp.Visible);
  EXPECT_FALSE(dialog.cmdHelp.Enabled);
}

TEST_F(frmSlfRecordTest, LoadCaptionsTheControlsOfEveryTab) {
  StandList("NI", {});
  frmSlfRecord& d = App().SlfRecord();
  EXPECT_EQ(d.lblStandIdentificationCode1.Caption, "Stand identification code:");
  EXPECT_EQ(d.lblTreeDataSet1.Caption, "Tree Data Set:");
  EXPECT_EQ(d.cmdSelect.Caption, "Select");
  EXPECT_EQ(d.cmdBareGround.Caption, "Bare-ground");
  EXPECT_EQ(d.fraApplicableVariants.Caption, "Applicable Variants:");
  EXPECT_EQ(d.chkAk.Caption, "AK");
  EXPECT_EQ(d.chkWs.Caption, "WS");
  EXPECT_EQ(d.chkKt.Caption, "KT");
  EXPECT_EQ(d.fraPlotBasedSiteData.Caption, "Plot based site data?");
  EXPECT_EQ(d.optPlotBasedSiteDataYes.Caption, "Yes");
  EXPECT_EQ(d.optNo.Caption, "No");
  EXPECT_EQ(d.lblStandIdentificationCode2.Caption, "Stand identification code:");
  EXPECT_EQ(d.lblInventoryYear.Caption, "Inventory year:");
  EXPECT_EQ(d.lblLatitude.Caption, "Latitude (degrees):");
  EXPECT_EQ(d.lblLongitude.Caption, "Longitude (degrees):");
  EXPECT_EQ(d.lblLocation.Caption, "Location code:");
  EXPECT_EQ(d.lblHabitatType.Caption, "Habitat type:");
  EXPECT_EQ(d.lblStandOrigin.Caption, "Stand origin year:");
  EXPECT_EQ(d.lblAspect.Caption, "Aspect (degrees):");
  EXPECT_EQ(d.lblSlope.Caption, "Slope (percent):");
  EXPECT_EQ(d.lblInverseOfFixedPlotSize.Caption, "Inverse of plot size:");
  EXPECT_EQ(d.lblNumberOfPlots.Caption, "Number of plots:");
  EXPECT_EQ(d.lblNumberOfStockablePlots.Caption, "Number of non-stockable plots:");
  EXPECT_EQ(d.lblStandSamplingWeight.Caption, "Stand sampling weight:");
  EXPECT_EQ(d.lblStockablePercent.Caption, "Stockable percent:");
  EXPECT_EQ(d.lblDiameterGrowthTranslationCode.Caption, "Diameter growth translation code:");
  EXPECT_EQ(d.lblDiameterGrowthMeasurePeriod.Caption, "Diameter growth measurement period:");
  EXPECT_EQ(d.lblHeightGrowthTranslationCode.Caption, "Height growth translation code:");
  EXPECT_EQ(d.lblHeightGrowthMeasurementPeriod.Caption, "Height growth measurement period:");
  EXPECT_EQ(d.lblMortalityMeasurementPeriod.Caption, "Mortality measurement period:");
  EXPECT_EQ(d.lblSiteSpecies.Caption, "Site species:");
  EXPECT_EQ(d.lblStandIdentificationCode3.Caption, "Stand identification code:");
  EXPECT_EQ(d.lblGroupCodes.Caption, "Group codes:");
  EXPECT_EQ(d.lblStandIdentificationCode4.Caption, "Stand identification code:");
  EXPECT_EQ(d.lblDataSetNames.Caption, "Add files:");
  EXPECT_EQ(d.cmdAdd.Caption, "Add");
  EXPECT_EQ(d.cmdSelectDataSetFile.Caption, "Change");
  EXPECT_EQ(d.cmdDelete.Caption, "Delete");
}

TEST_F(frmSlfRecordTest, TheBcVariantGivesMetricUnitLabels) {
  StandList("BC", {});
  frmSlfRecord& d = App().SlfRecord();
  EXPECT_EQ(d.lblElevation.Caption, "Elevation (m):");
  EXPECT_EQ(d.lblBasalAreaFactor.Caption, "Basal area factor (sq.m/ha):");
  EXPECT_EQ(d.lblBreakpointDbh.Caption, "Breakpoint DBH (cm):");
  EXPECT_EQ(d.lblMaximumBasalArea.Caption, "Maximum basal area (sq.m/ha):");
  EXPECT_EQ(d.lblMaximumStandDensityIndex.Caption, "Maximum stand density index (sph):");
  EXPECT_EQ(d.lblSiteIndex.Caption, "Site index (m):");
}

TEST_F(frmSlfRecordTest, EveryOtherVariantGivesImperialUnitLabels) {
  StandList("bc", {});
  frmSlfRecord& d = App().SlfRecord();
  EXPECT_EQ(d.lblElevation.Caption, "Elevation (ft x 100):");
  EXPECT_EQ(d.lblBasalAreaFactor.Caption, "Basal area factor (sq.ft/ha):");
  EXPECT_EQ(d.lblBreakpointDbh.Caption, "Breakpoint DBH (in):");
  EXPECT_EQ(d.lblMaximumBasalArea.Caption, "Maximum basal area (sq.ft/ha):");
  EXPECT_EQ(d.lblMaximumStandDensityIndex.Caption, "Maximum stand density index (tpa):");
  EXPECT_EQ(d.lblSiteIndex.Caption, "Site index (ft):");
}

TEST_F(frmSlfRecordTest, LoadStartsEmptyWithPlotDataYesAndNoVariantTicked) {
  StandList("BC", {});
  frmSlfRecord& d = App().SlfRecord();
  EXPECT_EQ(d.lblTreeDataSet.Caption, "");
  EXPECT_TRUE(d.optPlotBasedSiteDataYes.Value);
  EXPECT_FALSE(d.optNo.Value);
  for (CheckBox* box : d.VariantBoxes()) EXPECT_EQ(box->Value, 0);
  EXPECT_EQ(d.txtInventoryYear.Text, "");
  EXPECT_EQ(d.cmbLocation.Text, "");
  EXPECT_EQ(d.txtGroupCodes.Text, "");
  EXPECT_TRUE(d.lstDataSetNames.Items.empty());
}

TEST_F(frmSlfRecordTest, LoadFillsTheHabitatAndGrowthTranslationRows) {
  StandList("BC", {});
  frmSlfRecord& d = App().SlfRecord();
  ASSERT_EQ(d.cmbHabitatType.ListCount(), 30);
  EXPECT_EQ(d.cmbHabitatType.Items.front(), "130 : Yellow Pine/Bluebunch Wheatgrass");
  EXPECT_EQ(d.cmbHabitatType.Items.back(), "999 : Other");
  const Texts growth{"0 : Measured directly/end of period", "1 : By subtraction/end of period",
                     "2 : Measured directly/start of period", "3 : By subtraction/start of period"};
  EXPECT_EQ(d.cmbDiameterGrowthTranslationCode.Items, growth);
  EXPECT_EQ(d.cmbHeightGrowthTranslationCode.Items, growth);
}

TEST_F(frmSlfRecordTest, TheCodeCombosHoldTheFileCodesInOrderOfFirstAppearance) {
  StandList("BC", {"A st2 &  NoPointData @", "B st1", "C st2 x @", "A ST1 & WithPointData @", "D st1 @"});
  frmSlfRecord& d = App().SlfRecord();
  const Texts codes{"st2", "st1", "ST1"};
  EXPECT_EQ(d.cmbStandIdentificationCode1.Items, codes);
  EXPECT_EQ(d.cmbStandIdentificationCode2.Items, codes);
  EXPECT_EQ(d.cmbStandIdentificationCode3.Items, codes);
  EXPECT_EQ(d.cmbStandIdentificationCode4.Items, codes);
  EXPECT_EQ(d.cmbStandIdentificationCode1.Text, "");
}

// --- The code test, on every tab.

TEST_F(frmSlfRecordTest, ACodeOfEightCharactersPassesAndOneOfNineFails) {
  frmSlfRecord& d = NewRecord(2);
  d.cmbStandIdentificationCode3.Text = "abcdefghi";
  d.cmdOk_Click();
  EXPECT_EQ(ui.Texts(), Texts{"Stand Identification Code must be 8 characters or less."});
  EXPECT_EQ(SelectedLine(), " *** new record *** ");
  d.cmbStandIdentificationCode3.Text = "ABCDEFGH";
  d.cmdOk_Click();
  EXPECT_EQ(SelectedLine(), "C abcdefgh  @");
  EXPECT_EQ(ui.Texts().size(), 1u);
}

TEST_F(frmSlfRecordTest, AnEmptyOrBlankCodeIsRefusedOnEveryTab) {
  for (int tab = 0; tab < 4; ++tab) {
    frmSlfRecord& d = NewRecord(tab);
    d.CodeCombo(tab)->Text = "   ";
    d.cmdOk_Click();
    EXPECT_EQ(ui.Texts(), Texts{"Must enter a Stand Identification Code (no spaces)."}) << "tab " << tab;
    EXPECT_TRUE(App().SlfRecordLoaded());
  }
}

TEST_F(frmSlfRecordTest, ACodeWithAnInnerBlankIsRefused) {
  frmSlfRecord& d = NewRecord(3);
  d.cmbStandIdentificationCode4.Text = "st 1";
  d.cmdOk_Click();
  EXPECT_EQ(ui.Texts(), Texts{"Must enter a Stand Identification Code (no spaces)."});
}

TEST_F(frmSlfRecordTest, ACodeWithALeadingBlankPassesCountsTheBlankAndIsStoredWithIt) {
  frmSlfRecord& d = NewRecord(2);
  d.cmbStandIdentificationCode3.Text = " abcdefgh";
  d.cmdOk_Click();
  EXPECT_EQ(ui.Texts(), Texts{"Stand Identification Code must be 8 characters or less."});
  d.cmbStandIdentificationCode3.Text = " abcdefg";
  d.cmdOk_Click();
  EXPECT_EQ(SelectedLine(), "C  abcdefg  @");
}

// --- Tab 0.

TEST_F(frmSlfRecordTest, ARecordAWithoutTreeDataSetIsRefused) {
  frmSlfRecord& d = NewRecord(0);
  d.cmbStandIdentificationCode1.Text = "st1";
  d.cmdOk_Click();
  EXPECT_EQ(ui.Texts(), Texts{"Must select a Tree Data Set file."});
  EXPECT_TRUE(App().SlfRecordLoaded());
}

TEST_F(frmSlfRecordTest, ABareGroundRecordPassesTheTreeDataSetTest) {
  frmSlfRecord& d = NewRecord(0);
  d.cmbStandIdentificationCode1.Text = "st2";
  d.cmdBareGround_Click();
  EXPECT_EQ(d.lblTreeDataSet.Caption, "*** Bare ground ***");
  d.chkBc.Value = 1;
  d.optNo.Value = true;
  d.optPlotBasedSiteDataYes.Value = false;
  d.cmdOk_Click();
  EXPECT_TRUE(ui.boxes.empty());
  EXPECT_EQ(SelectedLine(), "A st2 &  NoPointData bc @");
  EXPECT_FALSE(App().SlfRecordLoaded());
  EXPECT_FALSE(Run().StandListSaved);
}

TEST_F(frmSlfRecordTest, BcTogetherWithKtIsRefused) {
  frmSlfRecord& d = NewRecord(0);
  d.cmbStandIdentificationCode1.Text = "st1";
  d.cmdBareGround_Click();
  d.chkBc.Value = 1;
  d.chkKt.Value = 1;
  d.cmdOk_Click();
  EXPECT_EQ(ui.Texts(), Texts{"Can't select BC together with any U.S. variant."});
  EXPECT_TRUE(App().SlfRecordLoaded());
}

TEST_F(frmSlfRecordTest, AnyNumberOfUsVariantsWithoutBcPassesInTheWritersOrder) {
  frmSlfRecord& d = NewRecord(0);
  d.cmbStandIdentificationCode1.Text = "st1";
  d.cmdBareGround_Click();
  d.chkKt.Value = 1;
  d.chkNi.Value = 1;
  d.chkAk.Value = 1;
  d.cmdOk_Click();
  EXPECT_TRUE(ui.boxes.empty());
  EXPECT_EQ(SelectedLine(), "A st1 &  WithPointData ak ni kt @");
}

TEST_F(frmSlfRecordTest, NoVariantTickedPassesAndWritesTheEndMarkAsTokenFive) {
  frmSlfRecord& d = NewRecord(0);
  d.cmbStandIdentificationCode1.Text = "St1";
  d.lblTreeDataSet.SetCaption("/Data/Trees/St1.TRE");
  d.cmdOk_Click();
  EXPECT_EQ(SelectedLine(), "A st1 /data/trees/st1.tre WithPointData @");
}

// --- Tab 1.

// The text boxes of tab 1 in the order in which their tests run, with the
// message each one gives.
struct FieldCase {
  TextBox frmSlfRecord::*field;
  const char* message;
};
const std::vector<FieldCase>& RecordBFieldCases() {
  static const std::vector<FieldCase> cases{
      {&frmSlfRecord::txtInventoryYear, "Invalid Inventory Year."},
      {&frmSlfRecord::txtLatitude, "Invalid Latitude value."},
      {&frmSlfRecord::txtLongitude, "Invalid Longitude value."},
      {&frmSlfRecord::txtStandOrigin, "Invalid Stand Origin year."},
      {&frmSlfRecord::txtAspect, "Invalid Aspect value."},
      {&frmSlfRecord::txtSlope, "Invalid Slope value."},
      {&frmSlfRecord::txtElevation, "Invalid Elevation value."},
      {&frmSlfRecord::txtBasalAreaFactor, "Invalid Basal Area Factor value."},
      {&frmSlfRecord::txtInverseOfFixedPlotSize, "Invalid Inverse of Plot Size value."},
      {&frmSlfRecord::txtBreakpointDbh, "Invalid Breakpoint DBH value."},
      {&frmSlfRecord::txtNumberOfPlots, "Invalid Number of Plots."},
      {&frmSlfRecord::txtNumberOfStockablePlots, "Invalid Number of Stockable Plots."},
      {&frmSlfRecord::txtStandSamplingWeight, "Invalid Stand Sampling Weight."},
      {&frmSlfRecord::txtStockablePercent, "Invalid Stockable Percent value."},
      {&frmSlfRecord::txtDiameterGrowthMeasurePeriod, "Invalid Diameter Growth Measuremnt Period."},
      {&frmSlfRecord::txtHeightGrowthMeasurementPeriod, "Invalid Height Growth Measurement Period."},
      {&frmSlfRecord::txtMortalityMeasurementPeriod, "Invalid Mortality Measurement Period."},
      {&frmSlfRecord::txtMaximumBasalArea, "Invalid Maximum Basal Area value."},
      {&frmSlfRecord::txtMaximumStandDensityIndex, "Invalid Maximum Stand Density Index."},
      {&frmSlfRecord::txtSiteIndex, "Invalid Site Index."},
  };
  return cases;
}

TEST_F(frmSlfRecordTest, TheFieldsOfRecordBAreTestedInTheirOrderEachWithItsOwnMessage) {
  frmSlfRecord& d = NewRecord(1);
  d.cmbStandIdentificationCode2.Text = "st1";
  for (const FieldCase& c : RecordBFieldCases()) (d.*c.field).Text = "1 2";
  Texts expected;
  for (const FieldCase& c : RecordBFieldCases()) {
    d.cmdOk_Click();
    expected.push_back(c.message);
    EXPECT_EQ(ui.Texts(), expected);
    (d.*c.field).Text = "7";
  }
  d.cmdOk_Click();
  EXPECT_EQ(ui.Texts().size(), 20u);
  EXPECT_EQ(SelectedLine(), "B st1 7 7 7 @ @ 7 7 7 7 7 7 7 7 7 7 7 @ 7 @ 7 7 7 7 @ 7");
}

TEST_F(frmSlfRecordTest, NumericFieldsRefuseALetterWhileSingleWordFieldsTakeIt) {
  frmSlfRecord& d = NewRecord(1);
  d.cmbStandIdentificationCode2.Text = "st1";
  d.txtDiameterGrowthMeasurePeriod.Text = "ten";
  d.txtHeightGrowthMeasurementPeriod.Text = "ten";
  d.txtMortalityMeasurementPeriod.Text = "TEN";
  d.txtMaximumStandDensityIndex.Text = "many";
  d.txtSiteIndex.Text = "high";
  d.txtMaximumBasalArea.Text = "x";
  d.cmdOk_Click();
  EXPECT_EQ(ui.Texts(), Texts{"Invalid Maximum Basal Area value."});
  d.txtMaximumBasalArea.Text = "40";
  d.cmdOk_Click();
  EXPECT_EQ(ui.Texts().size(), 1u);
  EXPECT_EQ(SelectedLine(), "B st1 @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ ten @ ten ten 40 many @ high");
}

TEST_F(frmSlfRecordTest, ANumberWithTwoPointsFails) {
  frmSlfRecord& d = NewRecord(1);
  d.cmbStandIdentificationCode2.Text = "st1";
  d.txtLatitude.Text = "50.5.1";
  d.cmdOk_Click();
  EXPECT_EQ(ui.Texts(), Texts{"Invalid Latitude value."});
}

TEST_F(frmSlfRecordTest, ALonePointPassesAndIsStoredAsTyped) {
  frmSlfRecord& d = NewRecord(1);
  d.cmbStandIdentificationCode2.Text = "st1";
  d.txtSlope.Text = ".";
  d.txtAspect.Text = "180.0";
  d.cmdOk_Click();
  EXPECT_TRUE(ui.boxes.empty());
  EXPECT_EQ(SelectedLine(), "B st1 @ @ @ @ @ @ 180.0 . @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @");
}

TEST_F(frmSlfRecordTest, ALeadingMinusFailsSoLongitudesAreEnteredUnsigned) {
  frmSlfRecord& d = NewRecord(1);
  d.cmbStandIdentificationCode2.Text = "st1";
  d.txtLongitude.Text = "-120";
  d.cmdOk_Click();
  EXPECT_EQ(ui.Texts(), Texts{"Invalid Longitude value."});
}

TEST_F(frmSlfRecordTest, ABlankNumericFieldPassesAndIsStoredAsTheBlankMark) {
  frmSlfRecord& d = NewRecord(1);
  d.cmbStandIdentificationCode2.Text = "st1";
  d.txtInventoryYear.Text = "1995";
  d.cmdOk_Click();
  EXPECT_TRUE(ui.boxes.empty());
  EXPECT_EQ(SelectedLine(), "B st1 1995 @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @");
}

TEST_F(frmSlfRecordTest, ASiteIndexWithAnInnerBlankFails) {
  frmSlfRecord& d = NewRecord(1);
  d.cmbStandIdentificationCode2.Text = "st1";
  d.txtSiteIndex.Text = "22 m";
  d.cmdOk_Click();
  EXPECT_EQ(ui.Texts(), Texts{"Invalid Site Index."});
}

TEST_F(frmSlfRecordTest, GroupCodesWithInnerBlanksAreSeveralCodesKeptAsTyped) {
  frmSlfRecord& d = NewRecord(2);
  d.cmbStandIdentificationCode3.Text = "ST1";
  d.txtGroupCodes.Text = "Thin1 THIN2";
  d.cmdOk_Click();
  EXPECT_TRUE(ui.boxes.empty());
  EXPECT_EQ(SelectedLine(), "C st1 Thin1 THIN2 @");
}

TEST_F(frmSlfRecordTest, RecordsCAndDPassWithNothingButTheCode) {
  frmSlfRecord& c = NewRecord(2);
  c.cmbStandIdentificationCode3.Text = "st1";
  c.cmdOk_Click();
  EXPECT_EQ(SelectedLine(), "C st1  @");
  frmSlfRecord& d = NewRecord(3);
  d.cmbStandIdentificationCode4.Text = "st1";
  d.cmdOk_Click();
  EXPECT_EQ(SelectedLine(), "D st1 @");
  EXPECT_TRUE(ui.boxes.empty());
}

TEST_F(frmSlfRecordTest, TypingSixLettersInTheLocationStoresTheFirstFour) {
  frmSlfRecord& d = NewRecord(1);
  d.cmbStandIdentificationCode2.Text = "st1";
  d.cmbLocation.Text = "abcdef";
  d.cmdOk_Click();
  EXPECT_EQ(SelectedLine(), "B st1 @ @ @ abcd @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @");
}

TEST_F(frmSlfRecordTest, AChosenGrowthTranslationRowStoresItsFirstCharacterOnly) {
  frmSlfRecord& d = NewRecord(1);
  d.cmbStandIdentificationCode2.Text = "st1";
  d.cmbDiameterGrowthTranslationCode.Select(2);
  d.cmbHeightGrowthTranslationCode.Select(3);
  d.cmbHabitatType.Select(4);
  d.cmbLocation.Select(0);
  d.cmdOk_Click();
  EXPECT_EQ(SelectedLine(), "B st1 @ @ @ 106  280 @ @ @ @ @ @ @ @ @ @ @ 2 @ 3 @ @ @ @ @ @");
}

TEST_F(frmSlfRecordTest, CancelLeavesTheLineAsItWasAndUnloadsTheDialog) {
  frmSlfRecord& d = NewRecord(2);
  Run().StandListSaved = true;
  d.cmbStandIdentificationCode3.Text = "st1";
  d.cmdCancel_Click();
  EXPECT_EQ(SelectedLine(), " *** new record *** ");
  EXPECT_FALSE(App().SlfRecordLoaded());
  EXPECT_TRUE(Run().StandListSaved);
}

TEST_F(frmSlfRecordTest, OkWithNoLineSelectedReportsTheFailureAndTheDialogStaysOpen) {
  frmSlfRecord& d = NewRecord(2);
  App().Slf().lstSlf.Select(-1);
  d.cmbStandIdentificationCode3.Text = "st1";
  d.cmdOk_Click();
  ASSERT_EQ(ui.boxes.size(), 1u);
  EXPECT_EQ(ui.boxes[0].text, "[9] Subscript out of range");
  EXPECT_EQ(ui.boxes[0].icon, Icon::Exclamation);
  EXPECT_TRUE(App().SlfRecordLoaded());
}

// --- Keyboard order and the widening combos.

TEST_F(frmSlfRecordTest, OnlyTheActiveTabsControlsAreInTheKeyboardOrder) {
  frmSlfRecord& d = NewRecord(2);
  d.SetActiveRecordTab(2);
  EXPECT_TRUE(d.cmbStandIdentificationCode3.TabStop);
  EXPECT_TRUE(d.txtGroupCodes.TabStop);
  EXPECT_FALSE(d.cmbStandIdentificationCode1.TabStop);
  EXPECT_FALSE(d.chkKt.TabStop);
  EXPECT_FALSE(d.optNo.TabStop);
  EXPECT_FALSE(d.txtSiteIndex.TabStop);
  EXPECT_FALSE(d.cmbLocation.TabStop);
  EXPECT_FALSE(d.cmdDelete.TabStop);
  d.tabSlfRecords.Tab = 1;
  d.tabSlfRecords_Click();
  EXPECT_TRUE(d.cmbStandIdentificationCode2.TabStop);
  EXPECT_TRUE(d.txtInventoryYear.TabStop);
  EXPECT_TRUE(d.cmbSiteSpecies.TabStop);
  EXPECT_TRUE(d.txtSiteIndex.TabStop);
  EXPECT_FALSE(d.txtGroupCodes.TabStop);
  EXPECT_FALSE(d.lstDataSetNames.TabStop);
  EXPECT_TRUE(ui.boxes.empty());
}

TEST_F(frmSlfRecordTest, AnInvalidTabIndexIsToldAndTakesEveryGroupOutOfTheKeyboardOrder) {
  frmSlfRecord& d = NewRecord(0);
  d.SetActiveRecordTab(0);
  EXPECT_TRUE(d.cmdBareGround.TabStop);
  d.SetActiveRecordTab(4);
  EXPECT_EQ(ui.Texts(), Texts{"Invalid tab index."});
  for (Control* control : std::initializer_list<Control*>{&d.cmbStandIdentificationCode1, &d.cmdBareGround, &d.cmdSelect,
                                                          &d.chkAk, &d.cmbStandIdentificationCode2, &d.txtSiteIndex,
                                                          &d.txtGroupCodes, &d.cmdAdd, &d.cmdSelectDataSetFile})
    EXPECT_FALSE(control->TabStop);
}

TEST_F(frmSlfRecordTest, TheLongCombosWidenWhileTheyHaveTheFocus) {
  frmSlfRecord& d = NewRecord(1);
  const int longitudeLeft = d.txtLongitude.Left;
  const int longitudeWidth = d.txtLongitude.Width;
  ASSERT_GT(longitudeLeft, 1650);
  ASSERT_GT(longitudeWidth, 0);
  EXPECT_EQ(d.cmbLocation.Left, longitudeLeft);
  EXPECT_EQ(d.cmbLocation.Width, longitudeWidth);
  d.Combo_GotFocus(d.cmbLocation);
  EXPECT_EQ(d.cmbLocation.Left, longitudeLeft - 1500);
  EXPECT_EQ(d.cmbLocation.Width, longitudeWidth + 1500);
  d.Combo_LostFocus(d.cmbLocation);
  EXPECT_EQ(d.cmbLocation.Left, longitudeLeft);
  EXPECT_EQ(d.cmbLocation.Width, longitudeWidth);
  d.Combo_GotFocus(d.cmbHabitatType);
  EXPECT_EQ(d.cmbHabitatType.Left, longitudeLeft - 1650);
  EXPECT_EQ(d.cmbHabitatType.Width, longitudeWidth + 1650);
  const int percentLeft = d.txtStockablePercent.Left;
  const int percentWidth = d.txtStockablePercent.Width;
  d.Combo_GotFocus(d.cmbHeightGrowthTranslationCode);
  EXPECT_EQ(d.cmbHeightGrowthTranslationCode.Left, percentLeft - 1500);
  EXPECT_EQ(d.cmbHeightGrowthTranslationCode.Width, percentWidth + 1500);
  d.Combo_GotFocus(d.cmbDiameterGrowthTranslationCode);
  d.Combo_LostFocus(d.cmbDiameterGrowthTranslationCode);
  EXPECT_EQ(d.cmbDiameterGrowthTranslationCode.Left, percentLeft);
  EXPECT_EQ(d.cmbDiameterGrowthTranslationCode.Width, percentWidth);
}

}  // namespace
}  // namespace corvalin
