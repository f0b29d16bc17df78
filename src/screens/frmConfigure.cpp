#include "screens/frmConfigure.h"

#include "columns/Vocabulary.h"
#include "screens/Application.h"
#include "screens/StateDigest.h"
#include "screens/StoredVariant.h"
#include "screens/frmMain.h"
#include "screens/frmTemplate.h"
#include "shell/AppUtil.h"
#include "shell/Error.h"
#include "shell/Failure.h"
#include "shell/Help.h"
#include "shell/RunState.h"
#include "shell/Settings.h"
#include "shell/ShellPath.h"
#include "shell/Text.h"
#include "shell/Toolkit.h"

namespace corvalin {

namespace {

constexpr const char* kSection = "Corvalin";

std::string Title(const char* what) { return std::string(ApplicationTitle) + " - " + what; }

void Save(const char* key, const std::string& value) { SaveSetting(SettingsApplication, kSection, key, value); }

// A folder setting, or the Work folder when it names no existing folder.
std::string FolderSetting(const char* key, const std::string& fallback) {
  const std::string folder = GetSetting(SettingsApplication, kSection, key, fallback);
  return IsDirectory(folder) ? folder : Run().WorkFolder;
}

}  // namespace

bool FileDialogFilterValid(const std::string& filter) {
  if (filter.empty()) return true;
  std::size_t parts = 1;
  std::size_t start = 0;
  for (std::size_t at = filter.find('|'); at != std::string::npos; at = filter.find('|', start)) {
    if (parts % 2 == 1 && TrimBlanks(filter.substr(start, at - start)).empty()) return false;
    ++parts;
    start = at + 1;
  }
  return parts % 2 == 0;
}

frmConfigure::frmConfigure() {
  chkTranslateFile.Caption = "Translate File";
  Label2.Caption = "Input Directory:";
  Label3.Caption = "Output Directory:";
  Label11.Caption = "Extra file dialog entries (description|patterns|):";
  Label4.Caption = "Input Files:";
  Label7.Caption = "Output Files:";
  Label8.Caption = "Template:";
  Label9.Caption = "Variant:";
  Label10.Caption = "Input Units:";
  Label12.Caption = "Variant and unit defaults are over-ridden by templates.";
  optMetric.Caption = "Metric";
  optImperial.Caption = "Imperial";
  cmdSelectInputFile.Caption = "Browse";
  cmdSelectOutputFile.Caption = "Browse";
  chkEditStandListFile.Caption = "Edit Marlowyn Files";
  Label1.Caption = "Marlowyn Working Directory:";
  Label5.Caption = "Stand List Directory:";
  Label6.Caption = "Location Directory:";
  cmdSelectWorkingDir.Caption = "Browse";
  cmdSelectStandListFile.Caption = "Browse";
  cmdSelectLocationFile.Caption = "Browse";
  cmdClearStandListFile.Caption = "Clear";
  cmdClearLocationFile.Caption = "Clear";
  cmdOk.Caption = "Set Defaults";
  cmdCancel.Caption = "Cancel";
  cmdHelp.Caption = "Help";
}

void frmConfigure::Form_Load() {
  RunEvent([this] {
    RunState& run = Run();
    run.CurrentScreen = "Configure";
    Caption = Title("Set Defaults");
    HelpContextID = kHelpContext;
    const frmTemplate& setup = App().Template();
    PlaceLike(setup);

    cmbVariant.Clear();
    for (const std::string& variant : VariantNames()) cmbVariant.AddItem(variant);

    lblInputFile.SetCaption(FolderSetting("DefaultInputFileDirectory", run.DefaultInputFileDirectory));
    // A doubled separator in the output folder is made single; only this
    // folder was ever stored with one.
    std::string output = FolderSetting("DefaultOutputFileDirectory", run.DefaultOutputFileDirectory);
    const std::string doubled = std::string(PathSeparatorText) + PathSeparatorText;
    for (std::size_t at = output.find(doubled); at != std::string::npos; at = output.find(doubled, at))
      output.erase(at, 1);
    lblOutputFile.SetCaption(output);

    cmbTemplate.Clear();
    for (const std::string& item : setup.cmbTemplate.Items) cmbTemplate.AddItem(item);
    const std::string defaultTemplate = GetSetting(SettingsApplication, kSection, "DefaultTemplateFile", "");
    cmbTemplate.Select(0);
    if (!defaultTemplate.empty()) {
      for (int i = 0; i < cmbTemplate.ListCount(); ++i)
        if (cmbTemplate.Items[static_cast<std::size_t>(i)] == defaultTemplate) {
          cmbTemplate.Select(i);
          break;
        }
    }

    lblStandListFile.SetCaption(GetSetting(SettingsApplication, kSection, "DefaultStandListFile", ""));
    lblLocationFile.SetCaption(GetSetting(SettingsApplication, kSection, "DefaultLocationFile", ""));
    txtInputFileExtensions.Text =
        GetSetting(SettingsApplication, kSection, "DefaultInputFileExtension", run.DefaultInputFileExtension);
    txtOutputFileExtensions.Text =
        GetSetting(SettingsApplication, kSection, "DefaultOutputFileExtension", run.DefaultOutputFileExtension);

    // The box starts checked whatever was stored for it.
    chkTranslateFile.Value = 1;
    chkEditStandListFile.Value = IsYesValue(GetSetting(SettingsApplication, kSection, "EditStandListFile", ""));

    SelectDefaultVariant();
    const bool imperial = GetSetting(SettingsApplication, kSection, "MeasurementSystem", "METRIC") == "IMPERIAL";
    optMetric.Value = !imperial;
    optImperial.Value = imperial;

    UpdateConfigureEnabling();
    if (!fraEditMarlowyn.Enabled) lblWorkingDirectory.SetCaption("");
  });
}

// The search starts at entry 1 and runs one past the last entry, whose text
// is empty: a stored "AK" is never found.
void frmConfigure::SelectDefaultVariant() {
  const std::string variant = GetSetting(SettingsApplication, kSection, "OrvanVariant", "BC");
  cmbVariant.Select(FindStoredVariant(cmbVariant, variant));
}

void frmConfigure::UpdateConfigureEnabling() {
  const bool translate = chkTranslateFile.Checked();
  for (Control* control : std::initializer_list<Control*>{
           &fraTranslate, &cmdSelectInputFile, &cmdSelectOutputFile, &lblInputFile, &lblOutputFile, &optMetric,
           &optImperial, &cmbTemplate, &cmbVariant, &txtInputFileExtensions, &txtOutputFileExtensions, &Label2,
           &Label3, &Label4, &Label7, &Label8, &Label9, &Label10, &Label11, &Label12})
    control->Enabled = translate;
  const bool edit = chkEditStandListFile.Checked();
  for (Control* control : std::initializer_list<Control*>{
           &fraEditMarlowyn, &cmdSelectStandListFile, &cmdSelectLocationFile, &cmdClearStandListFile,
           &cmdClearLocationFile, &lblWorkingDirectory, &lblStandListFile, &lblLocationFile, &Label1, &Label5,
           &Label6})
    control->Enabled = edit;
}

void frmConfigure::chkTranslateFile_Click() {
  RunEvent([this] { UpdateConfigureEnabling(); });
}

void frmConfigure::chkEditStandListFile_Click() {
  RunEvent([this] { UpdateConfigureEnabling(); });
}

void frmConfigure::PickFolder(Label& label, const std::string& title, const std::string& startFolder) {
  const std::string chosen = UI().BrowseForFolder(title, startFolder);
  if (!chosen.empty()) label.SetCaption(AddBackslash(chosen));
}

void frmConfigure::PickDefaultFileFolder(Label& label, const std::string& title) {
  const std::string start = label.Caption.empty() ? TrimFolderEnd(lblWorkingDirectory.Caption)
                                                  : TrimFolderEnd(FileFolderOf(label.Caption));
  PickFolder(label, title, start);
}

void frmConfigure::cmdSelectInputFile_Click() {
  RunEvent([this] {
    PickFolder(lblInputFile, Title("Select Default Input Directory"), TrimFolderEnd(lblInputFile.Caption));
  });
}

void frmConfigure::cmdSelectOutputFile_Click() {
  RunEvent([this] {
    PickFolder(lblOutputFile, Title("Select Default Output Directory"), TrimFolderEnd(lblOutputFile.Caption));
  });
}

void frmConfigure::cmdSelectWorkingDir_Click() {
  RunEvent([this] {
    PickFolder(lblWorkingDirectory, Title("Select the Working Directory"), TrimFolderEnd(lblWorkingDirectory.Caption));
  });
}

void frmConfigure::cmdSelectStandListFile_Click() {
  RunEvent([this] { PickDefaultFileFolder(lblStandListFile, Title("Select Default Stand List Directory")); });
}

void frmConfigure::cmdSelectLocationFile_Click() {
  RunEvent([this] { PickDefaultFileFolder(lblLocationFile, Title("Select Default Location Directory")); });
}

void frmConfigure::cmdClearStandListFile_Click() {
  RunEvent([this] { lblStandListFile.SetCaption(""); });
}

void frmConfigure::cmdClearLocationFile_Click() {
  RunEvent([this] { lblLocationFile.SetCaption(""); });
}

bool frmConfigure::TryFilter(const std::string& typed, const std::string& standard, std::string& filter) const {
  const std::string entry = !typed.empty() && typed.back() != '|' ? typed + "|" : "";
  filter = entry + standard;
  return FileDialogFilterValid(filter);
}

void frmConfigure::cmdOk_Click() {
  RunEvent([this] {
    RunState& run = Run();
    frmMain& main = MainForm();
    const std::string restoredInput = run.DefaultInputFileExtension + run.InputFileFilter;
    const std::string restoredOutput = run.DefaultOutputFileExtension + run.OutputFileFilter;
    // 1.-2. The typed entries must make usable dialog filters; a bad one puts
    // the filters in force back, and nothing is saved.
    std::string filter;
    if (!TryFilter(txtInputFileExtensions.Text, run.InputFileFilter, filter)) {
      main.cmnInputFileDialog.filter = restoredInput;
      main.cmnOutputFileDialog.filter = restoredOutput;
      ShowMessage("Bad syntax for input file extension.");
      return;
    }
    main.cmnInputFileDialog.filter = filter;
    if (!TryFilter(txtOutputFileExtensions.Text, run.OutputFileFilter, filter)) {
      main.cmnOutputFileDialog.filter = restoredOutput;
      ShowMessage("Bad syntax for output file extension.");
      return;
    }
    main.cmnOutputFileDialog.filter = filter;

    Save("Configured", "YES");
    Save("DefaultInputFileDirectory", lblInputFile.Caption);
    Save("DefaultOutputFileDirectory", lblOutputFile.Caption);
    run.DefaultInputFileDirectory = lblInputFile.Caption;
    run.DefaultOutputFileDirectory = lblOutputFile.Caption;
    main.cmnInputFileDialog.initialFolder = run.DefaultInputFileDirectory;
    main.cmnOutputFileDialog.initialFolder = run.DefaultOutputFileDirectory;
    Save("DefaultTemplateFile", cmbTemplate.ListIndex >= 1 ? cmbTemplate.Text : "");
    Save("DefaultLocationFile", lblLocationFile.Caption);
    Save("DefaultStandListFile", lblStandListFile.Caption);
    run.DefaultLocationFile = lblLocationFile.Caption;
    run.DefaultStandListFile = lblStandListFile.Caption;
    Save("DefaultInputFileExtension", txtInputFileExtensions.Text);
    Save("DefaultOutputFileExtension", txtOutputFileExtensions.Text);
    Save("TranslateFile", YesNoText(chkTranslateFile.Value));
    Save("EditStandListFile", YesNoText(chkEditStandListFile.Value));
    Save("OrvanVariant", cmbVariant.Text);
    Save("MeasurementSystem", optMetric.Value ? "METRIC" : "IMPERIAL");
    SaveSetting(SettingsApplication, "Brenwick", "HelpDir", run.HelpFile);
    run.DefaultInputFileExtension = txtInputFileExtensions.Text;
    run.DefaultOutputFileExtension = txtOutputFileExtensions.Text;
    App().UnloadConfigure();
  });
}

void frmConfigure::cmdCancel_Click() {
  RunEvent([] { App().UnloadConfigure(); });
}

void frmConfigure::DismissAsCancelled() { cmdCancel_Click(); }

void frmConfigure::cmdHelp_Click() {
  RunEvent([this] { ShowHelp(HelpContext, Run().HelpFile, HelpContextID); });
}

bool frmConfigure::Form_QueryUnload(CloseReason reason) {
  bool cancelled = reason == CloseReason::ControlMenu;
  RunEvent([&] { cancelled = CloseAsQuit(reason); });
  return cancelled;
}

void frmConfigure::DescribeControls(StateDigest& digest) const {
  Screen::DescribeControls(digest);
  digest << chkTranslateFile << fraTranslate << Label2 << lblInputFile << cmdSelectInputFile << Label3 << lblOutputFile
         << cmdSelectOutputFile << Label11 << Label4 << txtInputFileExtensions << Label7 << txtOutputFileExtensions
         << Label8 << cmbTemplate << Label9 << cmbVariant << Label10 << optMetric << optImperial << Label12
         << chkEditStandListFile << fraEditMarlowyn << Label1 << lblWorkingDirectory << cmdSelectWorkingDir << Label5
         << lblStandListFile << cmdSelectStandListFile << cmdClearStandListFile << Label6 << lblLocationFile
         << cmdSelectLocationFile << cmdClearLocationFile << cmdOk << cmdCancel << cmdHelp;
}

}  // namespace corvalin
