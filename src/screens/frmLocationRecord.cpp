#include "screens/frmLocationRecord.h"

namespace corvalin {

void frmLocationRecord::Form_Load() { }
void frmLocationRecord::cmdSelectSlf_Click() { }
void frmLocationRecord::cmdOk_Click() { }
void frmLocationRecord::cmdCancel_Click() { }
void EditLocationRecord(const std::string&) {}

}  // namespace corvalin
