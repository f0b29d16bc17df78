// Opening a stand list line in the record dialog, and the dialog's lists that
// follow the variants.
#include <cctype>

#include "screens/Application.h"
#include "screens/frmHeaders.h"
#include "screens/frmSlf.h"
#include "screens/frmSlfRecord.h"
#include "shell/Failure.h"
#include "shell/Toolkit.h"
#include "standlist/StandLevelFile.h"
#include "standlist/VariantTables.h"

namespace corvalin {

namespace {

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
