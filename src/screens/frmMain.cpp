#include "screens/frmMain.h"

#include <unistd.h>

#include <cstdio>
#include <filesystem>

#include "screens/Application.h"
#include "screens/frmConfigure.h"
#include "screens/frmTemplate.h"
#include "shell/Error.h"
#include "shell/EventScope.h"
#include "shell/Failure.h"
#include "shell/Folders.h"
#include "shell/Help.h"
#include "shell/Process.h"
#include "shell/RunState.h"
#include "shell/Settings.h"
#include "shell/ShellPath.h"
#include "shell/Text.h"
#include "templates/TemplateCommands.h"
#include "worktable/RunInput.h"
#include "worktable/clsDBEngine.h"

namespace corvalin {

std::string CannotLocateFilesText() {
  return std::string("Cannot locate all the required files necessary to successfully run ") + ProductTitle +
         ".  Exiting the program.";
}

frmMain::frmMain() { Caption = "Main Form - not visible"; }

void frmMain::Form_Load() {
  // The start sequence is the program's first event: the screens it shows
  // are drawn, and those it unloads go, when it ends.
  EventScope scope;
  try {
    StartSequence();
  } catch (const std::exception& error) {
    // Shown in both run modes, and no result file comes of it.
    ReportFormError("frmMain", AsRuntimeError(error));
  }
}

void frmMain::StartSequence() {
  RunState& run = Run();

  // 1. Work from the program's folder.
  const std::string programFolder = ProgramFileFolder();
  if (::chdir(programFolder.c_str()) != 0) Raise(err::PathNotFound, "frmMain");

  // 3. The program folder, and the installation files beside it: the
  // share/corvalin folder plays the part of the program folder's parent.
  run.ProgramFolder = AddBackslash(programFolder);
  run.InstallFolder =
      AddBackslash(std::filesystem::path(run.ProgramFolder + "../share/corvalin").lexically_normal().string());

  // 2. The Convert folder, kept for the sibling programs; nothing here uses
  // it. An installation the user cannot write to goes without it.
  const std::string convert = run.InstallFolder + "Convert";
  if (!IsDirectory(convert) && ::access(run.InstallFolder.c_str(), W_OK) == 0) {
    std::error_code ec;
    std::filesystem::create_directory(convert, ec);
    if (ec) Raise(err::PathFileAccess, "frmMain");
  }

  // 4.-6. The help file: the HelpDir setting when it names an existing path.
  const std::string defaultHelp = run.InstallFolder + "Help" + PathSeparatorText + HelpFileName;
  std::string help = GetSetting(SettingsApplication, "Brenwick", "HelpDir", defaultHelp);
  if (!PathExists(help)) help = defaultHelp;
  run.HelpFile = help;

  // 7.
  InitRunDefaults();

  // 8. The same in both modes: an unattended run with unset folders asks too.
  if (!Locate_Directories()) {
    UI().Message({CannotLocateFilesText(), Buttons::OK, Icon::Critical, ProductTitle, 1});
    UI().EndProcess(1);
  }

  // 9.
  DatabaseEngine();

  // 10.
  if (CommandLine().empty()) {
    InteractivePath();
  } else {
    BatchPath();
  }
}

bool frmMain::Locate_Directories() {
  try {
    RunState& run = Run();
    bool ok = true;
    if (run.DataFolder.empty() || !IsDirectory(run.DataFolder)) ok = LocateDataFolder(run.DataFolder);
    // The Work question comes even when the Data one has failed.
    if (run.WorkFolder.empty() || !IsDirectory(run.WorkFolder)) ok = LocateWorkFolder(run.WorkFolder) && ok;
    return ok;
  } catch (const std::exception& error) {
    throw WithSourceInFront(error, "frmMain.Locate_Directories(), ");
  }
}

void frmMain::InteractivePath() {
  Run().CommandLineMode = false;
  FirstUseConfigurationDue = !IsYes(GetSetting(SettingsApplication, "Corvalin", "Configured", "NO"));
  // The first-use configuration: its Cancel leaves the setting as it was, so
  // the defaults screen comes back at the next start, and the wizard goes on.
  if (FirstUseConfigurationDue) App().ShowModal(App().Configure());
  App().Template().Show();
}

void frmMain::BatchPath() {
  Run().CommandLineMode = true;
  // frmAutoMsg, shown for the whole run.
  Run().CurrentScreen = "autoMessage";
  UI().ShowBanner(ApplicationTitle, "Translating file ...");
  UI().DoEvents();
  UI().SetBusyPointer(true);
  // Its load reads the command line and selects the template.
  App().Template();
  if (ContinueBatchRun) ContinueBatchRun();
}

frmMain& MainForm() {
  static frmMain form;
  return form;
}

void InitRunDefaults() {
  RunState& run = Run();
  run.InputFileFilter = StandardInputFileFilter;
  run.OutputFileFilter = StandardOutputFileFilter;
  run.InputPreviewLoaded = false;
  run.ReloadNeeded = true;
  run.UseTemplate = false;
  run.RefreshingTemplateList = false;
  Commands().CommandCount = 0;
  run.TranslationDone = false;
  run.StandListSaved = false;
  run.LocationFileSaved = false;
  run.DataFolder = FolderOfSetting(GetSetting(SettingsApplication, "Common", "DataDir", ""));
  run.WorkFolder = FolderOfSetting(GetSetting(SettingsApplication, "Common", "WorkDir", ""));
}

namespace {

// The input for the preview, from its first line. A failed open reads as a
// file not found, whatever the reason.
RunInput OpenPreviewInput(const std::string& path) {
  try {
    return OpenRunInputAtStart(path);
  } catch (const RuntimeError&) {
    Raise(err::FileNotFound, "ReadInputPreview");
  }
}

}  // namespace

void ReadInputPreview() {
  RunState& run = Run();
  try {
    const std::string path = App().Template().lblInputFile.Caption;
    run.InputPreview.clear();
    run.InputPreviewCount = 0;
    if (path != NoInputFileMarker) {
      if (IsDirectory(path)) Raise(err::PathFileAccess, "ReadInputPreview");
      RunInput input = OpenPreviewInput(path);
      input.lines.SkipByteOrderMark();
      std::string_view line;
      // The rest of a longer file matters only to the load of the working
      // table, which takes a pipe's further lines from where this stops.
      while (run.InputPreviewCount < kMaxPreviewLines && !input.lines.AtEnd()) {
        input.lines.Next(line);
        run.InputPreview.emplace_back(line);
        run.InputPreviewCount = Inc16(run.InputPreviewCount);
      }
      input.linesTaken = run.InputPreviewCount;
      KeepRunInput(path, std::move(input));
    }
    run.InputPreviewLoaded = true;
  } catch (const std::exception& error) {
    ReportNamedFailure(ReadingInputFileFailed, AsRuntimeError(error));
  }
}

const std::string& GetPreviewLine(int16_t index) {
  const RunState& run = Run();
  Assert(index >= 1 && index <= run.InputPreviewCount);
  return run.InputPreview.at(static_cast<std::size_t>(index - 1));
}

int16_t PreviewScrollMaximum(int16_t count) { return count >= 5 ? static_cast<int16_t>(count - 3) : int16_t{1}; }

}  // namespace corvalin
