#include "screens/frmSlfRecord.h"

namespace corvalin {

void frmSlfRecord::Form_Load() { }
void frmSlfRecord::cmdOk_Click() { }
void frmSlfRecord::cmdCancel_Click() { }
void frmSlfRecord::cmdSelect_Click() { }
void frmSlfRecord::cmdBareGround_Click() { }
void frmSlfRecord::cmdAdd_Click() { }
void frmSlfRecord::cmdDelete_Click() { }
void frmSlfRecord::cmdSelectDataSetFile_Click() { }
void frmSlfRecord::lstDataSetNames_DblClick() { }
void frmSlfRecord::tabSlfRecords_Click() { }
void frmSlfRecord::Combo_GotFocus(ListControl& combo) { }
void frmSlfRecord::Combo_LostFocus(ListControl& combo) { }
bool frmSlfRecord::ValidateRecordFields() { return false; }
void frmSlfRecord::SetActiveRecordTab(int tab) { }
void frmSlfRecord::SetUnitLabels() { }
void FillVariantLists() {}
void EditStandRecord(const std::string&) {}

}  // namespace corvalin
