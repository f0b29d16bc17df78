// Each life of the wizard acts as a person with a file dialog, and the file
// dialogs reach the whole file system: a person may choose "/" as the Work
// folder or save a tree list anywhere. A life may therefore write, make and
// remove files only beneath the folders given (the run's scratch folder);
// everything else it may still read. The kernel's Landlock keeps it there.
#pragma once

#include <string>
#include <vector>

namespace corvalin::exerciser {

// Confines this process and its children for good; true when the kernel
// holds it to the folders, else false with the reason in `why`. Files under
// /dev (the null device, a full device) may still be written, not made.
bool ConfineWrites(const std::vector<std::string>& writableFolders, std::string& why);

}  // namespace corvalin::exerciser
