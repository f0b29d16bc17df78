// Where the working table lives. The wizard works on TFT.mdb in the Data
// folder, which a later session finds again. An unattended run works on a
// database of its own in the Data folder, made when the run first needs it
// and removed when the process ends: runs started at the same time (a
// calling program translating several files at once) and a wizard open
// beside them never share a working table.
#pragma once

#include <string>

namespace corvalin {

// The working database's path: the run's own once one was made, else the
// Data folder and the name given ("TFT.mdb" where the file is made,
// "tft.mdb" where it is opened).
std::string WorkingDatabasePath(const std::string& name);
// Makes the run's own database, an empty file, unless it was made already.
// Raises the run-time error of a Data folder that cannot take it.
void MakePrivateWorkingDatabase();
// True once the run's own database was made: it is nobody else's, so there
// is no old one to delete before it is written over.
bool WorkingDatabaseIsPrivate();
// Removes the run's own database, if one was made (a new start of the
// process state, for tests).
void ForgetPrivateWorkingDatabase();

}  // namespace corvalin
