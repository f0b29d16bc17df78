// The run state: the variables that live for the whole process and through
// which the screens talk to each other. Every variable carries the name the
// rest of the program knows it by. Owned by no object; written by whichever
// screen's turn it is.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace corvalin {

// The application's short and long titles.
inline constexpr const char* ApplicationTitle = "Corvalin";
inline constexpr const char* ProductTitle = "Orvanta - Corvalin";

// The input caption that means "there is no data file".
inline constexpr const char* NoInputFileMarker = "*** No input file ***";

// At most this many input lines are kept for the preview of the column format.
inline constexpr int16_t kMaxPreviewLines = 999;

struct RunState {
  // Run control
  bool CommandLineMode = false;
  std::string CurrentScreen;
  std::string TraceStep;
  bool BusyCancelled = false;
  bool AppendCancelled = false;
  bool AppendToOutput = false;
  // frmBusyMessage is loaded (made by the first ShowBusy, unmade by HideBusy).
  bool BusyWindowLoaded = false;
  // An event routine's handler reported a failure. Its box does not stop an
  // unattended run, which goes on with what was done by then; the run then
  // never ends with status 0, even when its translation ran.
  bool EventFailureReported = false;

  // Folders and files
  std::string ProgramFolder;
  std::string WorkFolder;
  std::string DataFolder;
  std::string TemplateFilePath;
  std::string DefaultInputFileDirectory;
  std::string DefaultOutputFileDirectory;
  std::string DefaultStandListFile;
  std::string DefaultLocationFile;
  std::string InputFileFilter;
  std::string OutputFileFilter;
  std::string DefaultInputFileExtension;
  std::string DefaultOutputFileExtension;
  // The application's help file (and that of cmnHelp).
  std::string HelpFile;
  // The folder of the installation files (Data/, Work/, Help/, EmptyTFT.mdb).
  std::string InstallFolder;

  // Work in progress
  int16_t ColumnCount = 0;
  std::string ColumnDelimiters;
  bool ReloadNeeded = false;
  bool UseTemplate = false;
  bool RefreshingTemplateList = false;
  bool TemplateSaved = false;
  bool InputPreviewLoaded = false;
  std::vector<std::string> InputPreview;  // entry 0 is line 1
  int16_t InputPreviewCount = 0;
  bool TranslationDone = false;
  bool StandListSaved = false;
  bool LocationFileSaved = false;
  bool InputFileValid = false;
  bool OutputFileValid = false;
  bool StandListFileValid = false;
  bool LocationFileValid = false;
  bool ResumeGridAfterDialog = false;
  // An exclusion dialog opened from the command editor changes the chosen
  // command there instead of adding one.
  bool EditingCommand = false;
  std::string OrvanVariant;

  // Translation setup, filled by ValidateTable: the column of each type
  // (-1: no such column) and the units of the measured columns.
  int16_t ColPlotId = 0;
  int16_t ColTreeId = 0;
  int16_t ColTreeCount = 0;
  int16_t ColTreeHistory = 0;
  int16_t ColSpecies = 0;
  int16_t ColDbh = 0;
  int16_t ColDbhInc = 0;
  int16_t ColTotalHeight = 0;
  int16_t ColTopkillHeight = 0;
  int16_t ColHeightInc = 0;
  int16_t ColCrownRatio = 0;
  int16_t ColDamage1 = 0;
  int16_t ColDamage2 = 0;
  int16_t ColDamage3 = 0;
  int16_t ColTreeValue = 0;
  int16_t ColPrescription = 0;
  int16_t ColPlotSlope = 0;
  int16_t ColPlotAspect = 0;
  int16_t ColHabitatType = 0;
  int16_t ColTopoPosition = 0;
  int16_t ColSitePreparation = 0;
  std::string UnitsDbh;
  std::string UnitsDbhInc;
  std::string UnitsTotalHeight;
  std::string UnitsTopkillHeight;
  std::string UnitsHeightInc;
  std::string UnitsPlotSlope;
  std::string UnitsCrownRatio;
};

// The one run state of the process.
RunState& Run();
// Back to the state of a fresh process (for tests and a new start).
void ResetRunState();

}  // namespace corvalin
