#include "screens/frmSlf.h"

namespace corvalin {

void frmSlf::Form_Load() { }
void frmSlf::lstSlf_Click() { }
void frmSlf::lstSlf_DblClick() { }
void frmSlf::cmbVariant_Click() { }
void frmSlf::SelectVariant(int index) { }
void frmSlf::cmdInsertA_Click() { }
void frmSlf::cmdInsertB_Click() { }
void frmSlf::cmdInsertC_Click() { }
void frmSlf::cmdInsertD_Click() { }
void frmSlf::cmdUp_Click() { }
void frmSlf::cmdDown_Click() { }
void frmSlf::cmdEdit_Click() { }
void frmSlf::cmdDelete_Click() { }
void frmSlf::cmdValidate_Click() { }
void frmSlf::cmdSave_Click() { }
void frmSlf::cmbNext_Click() { }
void frmSlf::cmdBack_Click() { }
void frmSlf::cmdQuit_Click() { }
void frmSlf::cmdHelp_Click() { }
bool frmSlf::Form_QueryUnload(CloseReason reason) { return false; }
bool ValidateStandList() { return false; }
void WriteStandListFile() {}

}  // namespace corvalin
