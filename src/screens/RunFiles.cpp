#include "screens/RunFiles.h"

#include <filesystem>

#include "shell/Failure.h"
#include "shell/RunState.h"
#include "shell/Settings.h"
#include "shell/ShellPath.h"
#include "shell/Text.h"
#include "worktable/clsDBEngine.h"

namespace corvalin {

namespace {

// A file of a folder of the run; nothing while the folder is not known.
std::string InFolder(const std::string& folder, const std::string& name) {
  return folder.empty() ? std::string() : folder + name;
}

// The wizard's working table answers to its name in any case (see
// ResolveFileNameCase), so any spelling of it in the Data folder is it, as
// is a link to it.
bool IsWorkingTable(const std::string& output) {
  const std::filesystem::path path(output);
  if (EqualsNoCase(path.filename().string(), WorkingDatabaseName) &&
      SameFile(path.parent_path().string(), Run().DataFolder))
    return true;
  return SameFile(output, ResolveFileNameCase(InFolder(Run().DataFolder, WorkingDatabaseName)));
}

}  // namespace

std::string OutputTemplateRefusal(const std::string& output) {
  const RunState& run = Run();
  if (run.UseTemplate && SameFile(output, run.TemplateFilePath)) return OutputIsTemplateText;
  return "";
}

std::string OutputRefusal(const std::string& output) {
  const RunState& run = Run();
  if (SameFile(output, InFolder(run.WorkFolder, ResultFileName))) return OutputIsResultFileText;
  // The wizard's working table, and the empty one every working table is
  // copied from.
  if (IsWorkingTable(output) || SameFile(output, InFolder(run.InstallFolder, EmptyDatabaseName)))
    return OutputIsWorkingTableText;
  if (SameFile(output, SettingsFilePath(SettingsApplication))) return OutputIsSettingsFileText;
  return OutputTemplateRefusal(output);
}

}  // namespace corvalin
