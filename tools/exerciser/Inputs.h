// The inputs the exerciser opens in the wizard, chosen by name, and the Work
// folder it starts from.
#pragma once

#include <string>
#include <vector>

namespace corvalin::exerciser {

// survey, empty, binary, longline, wide, growing.
const std::vector<std::string>& InputNames();
bool IsInputName(const std::string& name);

// Makes the input file of that name in the folder and returns its path; the
// survey is a copy of the file given. "growing" starts empty: GrowWhileRunning appends
// to it.
std::string MakeInput(const std::string& name, const std::string& folder, const std::string& survey);

// Appends survey-like lines to the file from a thread of its own until the
// process ends or the file holds about limitBytes.
void GrowWhileRunning(const std::string& path, long limitBytes);

// The Work folder as the first start finds it: the installed sample template
// (lolo.cnv), the sample with a damage column and a range and a starting-with
// command first (mixed.cnv), a stand list (stands.slf) and a location file
// (places.loc).
void SeedWorkFolder(const std::string& workFolder, const std::string& installedWork);

// The files of the Work folder the saved-file check watches.
std::vector<std::string> WatchedFiles(const std::string& workFolder);

}  // namespace corvalin::exerciser
