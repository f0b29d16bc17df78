// What the operating system hands the process: its raw command line, the
// folder it was started from, and the folder of its program file.
#pragma once

#include <string>

namespace corvalin {

// The raw command line: the program's arguments joined by single blanks, as
// one text. No arguments, or one empty argument, give the empty text.
std::string JoinArguments(int argc, const char* const* argv);
const std::string& CommandLine();
void SetCommandLine(const std::string& commandLine);

// The current folder when the process started, with a trailing separator.
// The start sequence changes the current folder; relative paths given on the
// command line still mean what the caller meant.
const std::string& StartFolder();
void SetStartFolder(const std::string& folder);
// An empty or absolute path unchanged; a relative one put under StartFolder.
std::string FromStartFolder(const std::string& path);

// The folder of the program file, with a trailing separator: the folder of
// /proc/self/exe unless set otherwise (tests set a folder of their own).
const std::string& ProgramFileFolder();
void SetProgramFileFolder(const std::string& folder);

// The machine's name, fit to stand in a file name: "/" and "-" become "_",
// and a machine without a name is "host". Files that several machines may
// share a folder for carry it, with the process id, in their names.
std::string HostName();

}  // namespace corvalin
