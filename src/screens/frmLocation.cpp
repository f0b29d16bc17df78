#include "screens/frmLocation.h"

namespace corvalin {

void frmLocation::Form_Load() { }
void frmLocation::lstLocation_Click() { }
void frmLocation::lstLocation_DblClick() { }
void frmLocation::cmdInsertA_Click() { }
void frmLocation::cmdUp_Click() { }
void frmLocation::cmdDown_Click() { }
void frmLocation::cmdEdit_Click() { }
void frmLocation::cmdDelete_Click() { }
void frmLocation::cmdSave_Click() { }
void frmLocation::cmdDone_Click() { }
void frmLocation::cmdBack_Click() { }
void frmLocation::cmdQuit_Click() { }
void frmLocation::cmdHelp_Click() { }
bool frmLocation::Form_QueryUnload(CloseReason reason) { return false; }
void WriteLocationFile() {}

}  // namespace corvalin
