// The files a run reads or writes besides its input and its output: the
// template, the result file, the working table and the settings file. A
// tree list written over one of them would destroy it, so the output may
// name none of them, under any name.
#pragma once

#include <string>

namespace corvalin {

inline constexpr const char* OutputIsTemplateText = "Output cannot be the template file.";
inline constexpr const char* OutputIsResultFileText = "Output cannot be the result file.";
inline constexpr const char* OutputIsWorkingTableText = "Output cannot be the working table.";
inline constexpr const char* OutputIsSettingsFileText = "Output cannot be the settings file.";

// The reason the output may not be the file it names, or the empty text
// when it is none of the run's own files.
std::string OutputRefusal(const std::string& output);
// The same for the template in force alone: a template chosen after the
// output is checked against it then.
std::string OutputTemplateRefusal(const std::string& output);

}  // namespace corvalin
