// frmMain: the start-up window, never shown (its caption is "Main Form - not
// visible"). Its load is the start sequence: the program's folder, the help
// file, the Data and Work folders, the database engine, then the wizard or
// the unattended run by the command line. It carries the common file dialogs
// that all screens share.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "screens/Screen.h"
#include "shell/Toolkit.h"

namespace corvalin {

// File dialog flags, as the platform's file dialog knows them.
inline constexpr int kPathMustExist = 0x800;
inline constexpr int kFileMustExist = 0x1000;
inline constexpr int kCreatePrompt = 0x2000;
inline constexpr int kShowHelp = 0x10;
inline constexpr int kHideReadOnly = 0x4;
inline constexpr int kInputDialogFlags = kFileMustExist | kPathMustExist | kShowHelp | kHideReadOnly;  // 0x1814
inline constexpr int kOutputDialogFlags = kCreatePrompt | kShowHelp | kHideReadOnly;                   // 0x2014

// The standard dialog filters.
inline constexpr const char* StandardInputFileFilter =
    "Data (*.dat)|*.dat|Comma Separated Values (*.csv)|*.csv|Text (*.txt; *.out; *.prn)|*.txt;*.out;*.prn|All "
    "Files (*.*)|*.*";
inline constexpr const char* StandardOutputFileFilter = "Tree List (*.tre)|*.tre|All Files (*.*)|*.*";

// The fatal start message.
std::string CannotLocateFilesText();

class frmMain : public Screen {
 public:
  frmMain();
  const char* Name() const override { return "frmMain"; }

  // The start sequence. Returns when the first screen is up, or after a
  // failure reported in its own box; an unattended run normally ends the
  // process inside it.
  void Form_Load() override;
  // Both folders are usable, asking for each one that is not.
  bool Locate_Directories();

  // Whether the first-use configuration is still to be done (the setting
  // Configured is not yes): the defaults screen then opens modally before
  // the first screen.
  bool FirstUseConfigurationDue = false;

  // The common dialogs of all screens.
  FileDialogRequest cmnDataSetFileDialog;
  FileDialogRequest cmnLocationFileDialog;
  FileDialogRequest cmnSlfFileDialog;
  FileDialogRequest cmnHelp;
  FileDialogRequest cmnTemplateFileDialog;
  FileDialogRequest cmnOutputFileDialog;
  FileDialogRequest cmnInputFileDialog;

  // Steps 4 to 9 of the unattended run, after frmTemplate is loaded: the
  // column format, the load of the working table, validation, translation
  // and the result. Set by the program before the start sequence.
  std::function<void()> ContinueBatchRun;

 private:
  void StartSequence();
  void InteractivePath();
  void BatchPath();
};

// The one frmMain of the process.
frmMain& MainForm();

// The run defaults of a fresh start: filters, flags, and the Data and Work
// folders from the settings.
void InitRunDefaults();

// Reads up to 999 lines of the input file into InputPreview (nothing for the
// "no input file" marker). A failure is reported as "Error reading input
// file." and the routine ends normally.
void ReadInputPreview();
// Line index (1..InputPreviewCount) of the preview; asserts the range.
const std::string& GetPreviewLine(int16_t index);
// The maximum of frmColumns' vertical scroll bar for a preview of count
// lines: count - 3 from 5 lines on, else 1.
int16_t PreviewScrollMaximum(int16_t count);

}  // namespace corvalin
