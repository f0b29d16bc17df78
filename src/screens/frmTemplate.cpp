#include "screens/frmTemplate.h"

#include <algorithm>
#include <filesystem>
#include <vector>

#include "screens/Application.h"
#include "screens/RunFiles.h"
#include "screens/StateDigest.h"
#include "screens/frmColumns.h"
#include "screens/frmConfigure.h"
#include "screens/frmHeaders.h"
#include "screens/frmMain.h"
#include "screens/frmSlf.h"
#include "screens/PrepareDatabase.h"
#include "screens/TranslateAtOnce.h"
#include "shell/AppUtil.h"
#include "shell/Error.h"
#include "shell/Failure.h"
#include "shell/Help.h"
#include "shell/Process.h"
#include "shell/RunState.h"
#include "shell/Settings.h"
#include "shell/ShellPath.h"
#include "shell/Text.h"
#include "worktable/RunInput.h"

namespace corvalin {

namespace {

constexpr const char* kSection = "Corvalin";
constexpr const char* kTemplateExtension = ".cnv";

// Opening a file for input: the test of a path. Fails with the run-time
// error of the reason. A pipe or a FIFO is left open for the preview and the
// load: opened a second time, it would have lost what its writer put in for
// this open.
void TestOpenForInput(const std::string& path) {
  if (IsDirectory(path)) Raise(err::PathFileAccess, "frmTemplate");
  KeepRunInput(path, OpenRunInputAtStart(path));
}

// The template files of the Work folder, in a stable order: by name without
// regard to case, as a file list shows them.
std::vector<std::string> TemplateFileNames(const std::string& folder) {
  std::vector<std::string> names;
  std::error_code ec;
  for (const auto& entry : std::filesystem::directory_iterator(folder, ec)) {
    if (!entry.is_regular_file(ec)) continue;
    const std::string name = entry.path().filename().string();
    if (name.size() > 4 && name.compare(name.size() - 4, 4, kTemplateExtension) == 0) names.push_back(name);
  }
  std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
    const std::string la = ToLower(a);
    const std::string lb = ToLower(b);
    return la != lb ? la < lb : a < b;
  });
  return names;
}

// The 1-based position of the first blank at or after start (1-based), 0 when none.
std::size_t InStrBlank(const std::string& text, std::size_t start) {
  const auto at = text.find(' ', start - 1);
  return at == std::string::npos ? 0 : at + 1;
}

// Only the input is opened to check it; the other files are taken by name
// (the output may not exist yet).
enum class FileCheck { OpenForInput, NameOnly };

// The screens that hold what they read through a file: a change of the file
// unloads them, so that their next load reads it anew. The column and grid
// screens hang on the input and output files, the editors on their own file.
using UnloadReaders = void (*)();
void UnloadGridScreens() {
  App().UnloadColumns();
  App().UnloadHeaders();
}
void UnloadStandListEditor() { App().UnloadSlf(); }
void UnloadLocationEditor() { App().UnloadLocation(); }

// One of the screen's file labels and its partner, the file it may not be.
struct FileLabel {
  Label& label;
  const Label& partner;
  bool& valid;
  const char* sameAsPartner;
  const char* cannotOpen;
  FileCheck check;
  UnloadReaders unloadReaders;
  // The reason a file the run itself uses is refused here, or none.
  std::string (*refusal)(const std::string&) = nullptr;
};

// What a file label does with its new caption. An empty caption leaves the
// file unset; the partner's file, under any name, is refused with a message
// and then refuseSame, and so is a file the run itself uses; the "no input
// file" marker is no file and changes nothing. Any failure leaves the file
// unset and the label red, with cannotOpen shown.
template <typename RefuseSame>
void TakeFileLabel(frmTemplate& screen, const FileLabel& file, RefuseSame refuseSame) {
  try {
    const std::string& caption = file.label.Caption;
    if (caption.empty()) {
      file.valid = false;
    } else if (SameFile(caption, file.partner.Caption)) {
      ShowMessage(file.sameAsPartner);
      refuseSame();
    } else if (const std::string reason = file.refusal ? file.refusal(caption) : ""; !reason.empty()) {
      ShowMessage(reason);
      refuseSame();
    } else if (file.check == FileCheck::NameOnly || caption != NoInputFileMarker) {
      if (file.check == FileCheck::OpenForInput) TestOpenForInput(caption);
      file.valid = true;
      file.label.Red = false;
    }
    file.unloadReaders();
    screen.UpdateNextButtons();
  } catch (const std::exception&) {
    file.valid = false;
    file.label.Red = true;
    ShowMessage(file.cannotOpen);
    screen.UpdateNextButtons();
  }
}

}  // namespace

frmTemplate::frmTemplate() {
  chkTranslateFile.Caption = "Translate File";
  fraTranslateFile.Enabled = true;
  chkNoInput.Caption = "No Input File";
  cmdChangeInput.Caption = "Browse";
  cmdChangeOutput.Caption = "Browse";
  lblInputFile1.Caption = "Input File:";
  lblOutputFile1.Caption = "Output File:";
  lblTemplateFile1.Caption = "Use Template:";
  cmdDeleteTemplate.Caption = "Delete";
  cmdNextTrans.Caption = "Next >>";
  cmdFinish.Caption = "Translate";
  Label2.Caption = "Click Next to continue or specify template to translate";
  chkEditStandListFile.Caption = "Edit Marlowyn Files";
  cmdSelectSlf.Caption = "Browse";
  cmdSelectLocations.Caption = "Browse";
  lblStandListFile1.Caption = "Stand List File:";
  lblLocationFile1.Caption = "Locations File:";
  Label1.Caption = "Marlowyn Working Directory:";
  cmdNext.Caption = "Next >>";
  Label3.Caption = "Click Next to continue";
  cmdConfigure.Caption = "Change Defaults";
  cmdHelp.Caption = "Help";
  cmdQuit.Caption = "Quit";

  lblInputFile.Change = [this] { lblInputFile_Change(); };
  lblOutputFile.Change = [this] { lblOutputFile_Change(); };
  lblSlfFile.Change = [this] { lblSlfFile_Change(); };
  lblLocationsFile.Change = [this] { lblLocationsFile_Change(); };
  // The path routines read this caption; it stays empty, as nothing sets it.
  lblWorkingDirectory.Change = [this] { SetWorkingDirectoryCaption(lblWorkingDirectory.Caption); };
  SetWorkingDirectoryCaption(lblWorkingDirectory.Caption);
}

void frmTemplate::Form_Load() {
  RunEvent([this] {
    Run().CurrentScreen = "Template";
    Caption = std::string(ApplicationTitle) + " - Specify File Names and Template";
    HelpContextID = kHelpContext;
    if (Run().CommandLineMode) {
      ReadCommandLine();
    } else {
      LoadDefaultsFromSettings();
    }
    UpdateGroupEnabling();
    UpdateNextButtons();
    if (!fraEditStandListFile.Enabled) lblSlfFile.SetCaption("");
    SetUpFileDialogs();
  });
}

void frmTemplate::ReadCommandLine() {
  const std::string& command = CommandLine();
  // The first two blanks split the line; there is no quoting. A line without
  // a blank, or with only one, fails where its field would be cut out.
  const std::size_t p1 = InStrBlank(command, 1);
  if (p1 == 0) Raise(err::InvalidProcedureCall, "frmTemplate");
  lblInputFile.SetCaption(FromStartFolder(command.substr(0, p1 - 1)));
  const std::size_t p2 = InStrBlank(command, p1 + 1);
  if (p2 == 0) Raise(err::InvalidProcedureCall, "frmTemplate");
  lblOutputFile.SetCaption(FromStartFolder(command.substr(p1, p2 - p1 - 1)));
  Run().TemplateFilePath = command.substr(p2);

  if (lblInputFile.Caption.empty()) WriteResult("Invalid input file path\\name: ");
  if (lblOutputFile.Caption.empty()) WriteResult("Invalid output file path\\name: ");
  if (Run().TemplateFilePath.empty()) WriteResult("Invalid template file path\\name: ");

  chkTranslateFile.Value = 1;
  chkEditStandListFile.Value = 0;
  RefreshTemplateList(Run().TemplateFilePath);
}

void frmTemplate::LoadDefaultsFromSettings() {
  RunState& run = Run();
  lblInputFile.SetCaption("");
  lblOutputFile.SetCaption("");
  // TranslateFile is stored by the defaults screen but the box always starts checked.
  chkTranslateFile.Value = 1;
  chkEditStandListFile.Value = IsYesValue(GetSetting(SettingsApplication, kSection, "EditStandListFile", "NO"));

  run.DefaultInputFileDirectory =
      GetSetting(SettingsApplication, kSection, "DefaultInputFileDirectory", run.WorkFolder);
  if (!IsDirectory(run.DefaultInputFileDirectory)) run.DefaultInputFileDirectory = run.WorkFolder;
  run.DefaultOutputFileDirectory =
      GetSetting(SettingsApplication, kSection, "DefaultOutputFileDirectory", run.WorkFolder);
  if (!IsDirectory(run.DefaultOutputFileDirectory)) run.DefaultOutputFileDirectory = run.WorkFolder;

  const std::string templateName = GetSetting(SettingsApplication, kSection, "DefaultTemplateFile", "");
  run.RefreshingTemplateList = true;
  RefreshTemplateList(templateName);
  run.RefreshingTemplateList = false;

  // A filter entry of its own goes in front of the standard ones.
  for (auto [key, target] : {std::pair{"DefaultInputFileExtension", &run.DefaultInputFileExtension},
                             std::pair{"DefaultOutputFileExtension", &run.DefaultOutputFileExtension}}) {
    std::string extension = GetSetting(SettingsApplication, kSection, key, "");
    if (!extension.empty() && extension.back() != '|') extension += '|';
    *target = extension;
  }

  run.DefaultStandListFile = ToUpper(GetSetting(SettingsApplication, kSection, "DefaultStandListFile", ""));
  run.DefaultLocationFile = ToUpper(GetSetting(SettingsApplication, kSection, "DefaultLocationFile", ""));
  lblSlfFile.SetCaption("");
  lblLocationsFile.SetCaption("");
}

void frmTemplate::SetUpFileDialogs() {
  const RunState& run = Run();
  frmMain& main = MainForm();
  const auto setUp = [](FileDialogRequest& dialog, const std::string& folder, int flags, int context,
                            const std::string& filter, const std::string& title) {
    dialog.initialFolder = folder;
    dialog.flags |= flags;
    dialog.helpContext = context;
    dialog.filter = filter;
    dialog.filterIndex = 1;
    dialog.fileName.clear();
    dialog.title = std::string(ApplicationTitle) + " - " + title;
    dialog.save = (flags & kCreatePrompt) != 0;
  };
  setUp(main.cmnInputFileDialog, run.DefaultInputFileDirectory, kInputDialogFlags, 10,
        run.DefaultInputFileExtension + run.InputFileFilter, "Select Input File");
  setUp(main.cmnOutputFileDialog, run.DefaultOutputFileDirectory, kOutputDialogFlags, 20,
        run.DefaultOutputFileExtension + run.OutputFileFilter, "Select Output File");
  setUp(main.cmnSlfFileDialog, lblWorkingDirectory.Caption, kOutputDialogFlags, 140,
        "Stand Level Files (*.slf)|*.slf |All Files (*.*)|*.*", "Select Stand List File");
  setUp(main.cmnLocationFileDialog, lblWorkingDirectory.Caption, kOutputDialogFlags, 180,
        "Location (*.loc) | *.loc |All Files (*.*) | *.*", "Select Location File");
}

void frmTemplate::UpdateGroupEnabling() {
  const bool translate = chkTranslateFile.Checked();
  for (Control* control : std::initializer_list<Control*>{
           &fraTranslateFile, &chkNoInput, &cmdChangeInput, &cmdChangeOutput, &cmdDeleteTemplate, &cmbTemplate,
           &Label2, &lblInputFile1, &lblOutputFile1, &lblTemplateFile1, &lblInputFile, &lblOutputFile})
    control->Enabled = translate;
  const bool edit = chkEditStandListFile.Checked();
  for (Control* control : std::initializer_list<Control*>{
           &fraEditStandListFile, &cmdSelectSlf, &cmdSelectLocations, &Label1, &Label3, &lblWorkingDirectory,
           &lblStandListFile1, &lblLocationFile1, &lblSlfFile, &lblLocationsFile})
    control->Enabled = edit;
}

void frmTemplate::UpdateNextButtons() {
  const RunState& run = Run();
  const bool translate = chkTranslateFile.Checked();
  const bool edit = chkEditStandListFile.Checked();
  const bool marker = lblInputFile.Caption == NoInputFileMarker;
  const bool noFinish = marker || cmbTemplate.ListIndex == 0;
  const bool filesReady = (marker || run.InputFileValid) && run.OutputFileValid;
  const bool standFilesReady = run.StandListFileValid && run.LocationFileValid;
  bool next = false;
  bool nextTrans = false;
  bool finish = false;
  if (translate && edit) {
    if (filesReady && standFilesReady) {
      next = nextTrans = true;
      finish = !noFinish;
    }
  } else if (translate) {
    if (filesReady) {
      nextTrans = true;
      finish = !noFinish;
    }
  } else if (edit) {
    next = standFilesReady;
  }
  cmdNext.Enabled = next;
  cmdNextTrans.Enabled = nextTrans;
  cmdFinish.Enabled = finish;
}

void frmTemplate::lblInputFile_Change() {
  Run().InputPreviewLoaded = false;
  TakeFileLabel(*this,
                {lblInputFile, lblOutputFile, Run().InputFileValid, "Input and output cannot be the same file.",
                 "Can't open input file.", FileCheck::OpenForInput, UnloadGridScreens},
                [this] { lblInputFile.SetCaption(""); });
}

void frmTemplate::lblOutputFile_Change() {
  TakeFileLabel(*this,
                {lblOutputFile, lblInputFile, Run().OutputFileValid, "Input and output cannot be the same file.",
                 "Can't open output file.", FileCheck::NameOnly, UnloadGridScreens, OutputRefusal},
                [this] { lblOutputFile.SetCaption(""); });
}

void frmTemplate::lblSlfFile_Change() {
  TakeFileLabel(*this,
                {lblSlfFile, lblLocationsFile, Run().StandListFileValid,
                 "Stand List File and Location File cannot be the same.", "Can't open Stand List File.",
                 FileCheck::NameOnly, UnloadStandListEditor},
                [] {
                  // The caption is emptied through the screen's controls by the name
                  // "lblStandListFile", which is not a control of this screen: the
                  // lookup fails, and the caption keeps its text and turns red.
                  Raise(730, "frmTemplate", "Control 'lblStandListFile' not found");
                });
}

void frmTemplate::lblLocationsFile_Change() {
  TakeFileLabel(*this,
                {lblLocationsFile, lblSlfFile, Run().LocationFileValid,
                 "Stand List File and Location File cannot be the same.", "Can't open location file.",
                 FileCheck::NameOnly, UnloadLocationEditor},
                [this] { lblLocationsFile.SetCaption(""); });
}

void frmTemplate::cmbTemplate_Click() {
  RunEvent([this] {
    RunState& run = Run();
    if (cmbTemplate.ListIndex >= 1) {
      cmdDeleteTemplate.Enabled = true;
      run.UseTemplate = true;
      run.TemplateFilePath = run.WorkFolder + cmbTemplate.Text + kTemplateExtension;
    } else {
      cmdDeleteTemplate.Enabled = false;
      run.UseTemplate = false;
      run.TemplateFilePath.clear();
    }
    if (!run.RefreshingTemplateList) {
      App().UnloadColumns();
      App().UnloadHeaders();
    }
    // The output was checked before this template was chosen.
    if (run.OutputFileValid) {
      if (const std::string reason = OutputTemplateRefusal(lblOutputFile.Caption); !reason.empty()) {
        ShowMessage(reason);
        lblOutputFile.SetCaption("");
      }
    }
    UpdateNextButtons();
  });
}

void frmTemplate::RefreshTemplateList(const std::string& name) {
  fileList.Path = Run().WorkFolder;
  fileList.Items = TemplateFileNames(fileList.Path);
  cmbTemplate.Clear();
  cmbTemplate.AddItem("None");
  for (const std::string& entry : TemplateNames()) cmbTemplate.AddItem(entry);
  if (name.empty()) {
    cmbTemplate.Select(0);
    cmbTemplate_Click();
    Run().UseTemplate = false;
    return;
  }
  for (int i = 1; i < cmbTemplate.ListCount(); ++i) {
    if (cmbTemplate.Items[static_cast<std::size_t>(i)] == name) {
      cmbTemplate.Select(i);
      cmbTemplate_Click();
      return;
    }
  }
  ShowMessage("Invalid Template Name specified: " + name);
  cmbTemplate.Select(0);
  cmbTemplate_Click();
}

std::vector<std::string> frmTemplate::TemplateNames() const {
  std::vector<std::string> names;
  names.reserve(fileList.Items.size());
  for (const std::string& file : fileList.Items) names.push_back(file.substr(0, file.find('.')));
  return names;
}

void frmTemplate::chkTranslateFile_Click() {
  RunEvent([this] {
    UpdateGroupEnabling();
    UpdateNextButtons();
  });
}

void frmTemplate::chkEditStandListFile_Click() {
  RunEvent([this] {
    UpdateGroupEnabling();
    UpdateNextButtons();
  });
}

void frmTemplate::chkNoInput_Click() {
  RunEvent([this] { lblInputFile.SetCaption(chkNoInput.Checked() ? NoInputFileMarker : ""); });
}

void frmTemplate::ChooseFileFor(Label& label, FileDialogRequest& dialog, const std::string& startFolder,
                                const std::string& fileName) {
  dialog.initialFolder = startFolder;
  dialog.fileName = fileName;
  const std::string chosen = UI().ShowFileDialog(dialog);
  // Cancel gives back the preset name; a chosen file comes as a full path.
  if (chosen.empty() || chosen == fileName) return;
  label.SetCaption(chosen);
  if (&label == &lblInputFile) Run().InputPreviewLoaded = false;
}

void frmTemplate::cmdChangeInput_Click() {
  RunEvent([this] {
    const std::string& caption = lblInputFile.Caption;
    if (caption.empty() || caption == NoInputFileMarker) {
      ChooseFileFor(lblInputFile, MainForm().cmnInputFileDialog, Run().DefaultInputFileDirectory, "");
    } else {
      ChooseFileFor(lblInputFile, MainForm().cmnInputFileDialog, FileFolderOf(caption), FileNameOf(caption));
    }
  });
}

void frmTemplate::cmdChangeOutput_Click() {
  RunEvent([this] {
    const std::string& caption = lblOutputFile.Caption;
    if (caption.empty()) {
      ChooseFileFor(lblOutputFile, MainForm().cmnOutputFileDialog, Run().DefaultOutputFileDirectory, "");
    } else {
      ChooseFileFor(lblOutputFile, MainForm().cmnOutputFileDialog, FileFolderOf(caption), FileNameOf(caption));
    }
  });
}

// The stand list and location dialogs start at the whole caption, or at the
// working directory when there is none.
void frmTemplate::cmdSelectSlf_Click() {
  RunEvent([this] {
    const std::string& caption = lblSlfFile.Caption;
    ChooseFileFor(lblSlfFile, MainForm().cmnSlfFileDialog, caption.empty() ? lblWorkingDirectory.Caption : caption,
                  caption.empty() ? "" : FileNameOf(caption));
  });
}

void frmTemplate::cmdSelectLocations_Click() {
  RunEvent([this] {
    const std::string& caption = lblLocationsFile.Caption;
    ChooseFileFor(lblLocationsFile, MainForm().cmnLocationFileDialog,
                  caption.empty() ? lblWorkingDirectory.Caption : caption, caption.empty() ? "" : FileNameOf(caption));
  });
}

void frmTemplate::cmdDeleteTemplate_Click() {
  RunEvent([this] {
    if (cmbTemplate.ListIndex <= 0) return;
    const std::string name = cmbTemplate.Text;
    const Answer answer = UI().Message(
        {"Do you really want to delete: " + name + "?", Buttons::YesNo, Icon::Question, "Delete Template", 1});
    if (answer == Answer::Yes) {
      std::error_code ec;
      if (!std::filesystem::remove(Run().WorkFolder + name + kTemplateExtension, ec) || ec) {
        ShowMessage("Error occurred with file deletion.");
        return;
      }
    }
    // The same place in the list again, or the entry before it when the
    // last one went.
    const int index = cmbTemplate.ListIndex;
    const int count = cmbTemplate.ListCount();
    RefreshTemplateList("");
    cmbTemplate.Select(index == count - 1 && answer == Answer::Yes ? count - 2 : index);
    cmbTemplate_Click();
  });
}

void frmTemplate::cmdNext_Click() {
  RunEvent([this] {
    UI().SetBusyPointer(true);
    if (chkTranslateFile.Checked()) {
      if (!Run().InputPreviewLoaded) ReadInputPreview();
      if (lblInputFile.Caption != NoInputFileMarker) {
        frmColumns& columns = App().Columns();
        columns.RefreshColumnPreview();
        HandOverTo(columns);
      } else {
        frmColumns& columns = App().Columns();
        columns.PlaceLike(*this);
        PrepareDatabase();
        frmHeaders& headers = App().Headers();
        headers.cmdNext.Caption = chkEditStandListFile.Checked() ? "Next >>" : "Done";
        HandOverTo(headers);
      }
    } else if (chkEditStandListFile.Checked()) {
      HandOverTo(App().Slf());
    }
    Hide();
    UI().SetBusyPointer(false);
  });
}

void frmTemplate::cmdNextTrans_Click() { cmdNext_Click(); }

void frmTemplate::cmdFinish_Click() {
  RunEvent([this] {
    UI().SetBusyPointer(true);
    if (!Run().InputPreviewLoaded) ReadInputPreview();
    App().Columns();
    if (TranslateAtOnce(*this) && chkEditStandListFile.Checked()) HandOverTo(App().Slf());
    UI().SetBusyPointer(false);
  });
}

void frmTemplate::cmdConfigure_Click() {
  RunEvent([] { App().ShowModal(App().Configure()); });
}

void frmTemplate::cmdHelp_Click() {
  RunEvent([this] { ShowHelp(HelpContext, Run().HelpFile, HelpContextID); });
}

void frmTemplate::cmdQuit_Click() {
  RunEvent([] { ConfirmQuit(); });
}

void frmTemplate::CloseRequested() {
  RunEvent([] { ConfirmQuit(); });
}

void frmTemplate::DescribeControls(StateDigest& digest) const {
  Screen::DescribeControls(digest);
  digest << chkTranslateFile << fraTranslateFile << chkNoInput << cmdChangeInput << cmdChangeOutput << lblInputFile1
         << lblOutputFile1 << lblInputFile << lblOutputFile << lblTemplateFile1 << cmbTemplate << cmdDeleteTemplate
         << cmdNextTrans << cmdFinish << Label2 << chkEditStandListFile << fraEditStandListFile << cmdSelectSlf
         << cmdSelectLocations << lblStandListFile1 << lblLocationFile1 << lblSlfFile << lblLocationsFile << Label1
         << lblWorkingDirectory << cmdNext << Label3 << cmdConfigure << cmdHelp << cmdQuit;
}

}  // namespace corvalin
