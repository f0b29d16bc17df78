#include "TestSupport.h"

#include <cstdlib>
#include <fstream>
#include <random>
#include <unistd.h>
#include <sstream>

#include "shell/Error.h"
#include "shell/RunState.h"
#include "worktable/clsDBEngine.h"

namespace corvalin::testing {

std::vector<std::string> ScriptedToolkit::Texts() const {
  std::vector<std::string> texts;
  for (const auto& box : boxes) texts.push_back(box.text);
  return texts;
}

Answer ScriptedToolkit::Message(const MessageRequest& request) {
  Answer answer = DefaultAnswer(request);
  if (!answers.empty()) {
    answer = answers.front();
    answers.pop_front();
  }
  boxes.push_back({request.text, request.buttons, request.icon, request.title, request.defaultButton, answer});
  return answer;
}

std::string ScriptedToolkit::BrowseForFolder(const std::string& title, const std::string& initialFolder) {
  folderTitles.push_back(title);
  folderStarts.push_back(initialFolder);
  if (folders.empty()) return "";
  std::string folder = folders.front();
  folders.pop_front();
  return folder;
}

std::string ScriptedToolkit::ShowFileDialog(const FileDialogRequest& request) {
  fileDialogs.push_back(request);
  if (files.empty()) return request.fileName;
  std::string file = files.front();
  files.pop_front();
  return file;
}

void ScriptedToolkit::DoEvents() {
  ++doEvents;
  if (onDoEvents) onDoEvents();
}

void ScriptedToolkit::ShowBusyWindow(const std::string& title, const std::string& text) {
  busyWindow.emplace_back(title, text);
}

void ScriptedToolkit::ShowBanner(const std::string&, const std::string& text) {
  bannerShown = true;
  bannerText = text;
}

AppendChoice ScriptedToolkit::AskAppendOverwriteCancel(const std::string& text) {
  appendQuestions.push_back(text);
  if (appendChoices.empty()) return AppendChoice::Overwrite;
  AppendChoice choice = appendChoices.front();
  appendChoices.pop_front();
  return choice;
}

void ScriptedToolkit::RunModal(ModalWindow& window) {
  modalDialogs.emplace_back(window.Name());
  if (dialogs.empty()) {
    if (everyDialog) everyDialog(window);
    return;
  }
  const auto script = std::move(dialogs.front());
  dialogs.pop_front();
  script(window);
}

bool ScriptedToolkit::OpenHelp(const std::string& helpFile, const std::string& topic) {
  helpOpened.emplace_back(helpFile, topic);
  return browserStarts;
}

void ScriptedToolkit::EndProcess(int exitCode) { throw ProcessEnded{exitCode}; }

std::string FreshProcess::PlaceHelpFile() {
  const std::filesystem::path help = home / "Help" / "Orvanta.html";
  std::filesystem::create_directories(help.parent_path());
  WriteFile(help, "<!DOCTYPE html>\n<title>Help</title>\n");
  Run().HelpFile = help.string();
  return Run().HelpFile;
}

void FreshProcess::SetUp() {
  static std::mt19937_64 rng{std::random_device{}()};
  home = std::filesystem::temp_directory_path() /
         ("corvalin-test-" + std::to_string(::getpid()) + "-" + std::to_string(rng()));
  std::filesystem::create_directories(home);
  ::setenv("HOME", home.c_str(), 1);
  ::setenv("XDG_CONFIG_HOME", (home / ".config").c_str(), 1);
  ::unsetenv("XDG_DOCUMENTS_DIR");
  ResetForTest();
  SetToolkit(&ui);
  std::filesystem::create_directories(home / "Work");
  std::filesystem::create_directories(home / "Data");
  Run().WorkFolder = (home / "Work").string() + "/";
  Run().DataFolder = (home / "Data").string() + "/";
}

void FreshProcess::TearDown() {
  ResetForTest();
  SetToolkit(nullptr);
  std::error_code ec;
  std::filesystem::permissions(home, std::filesystem::perms::owner_all, ec);
  std::filesystem::remove_all(home, ec);
}

void WorkingTable::SetUp() {
  FreshProcess::SetUp();
  PutEmptyWorkingTable();
}

void WorkingTable::TearDown() {
  CloseDatabase();
  TftRecords().reset();
  FreshProcess::TearDown();
}

void WorkingTable::Exec(const std::string& statement) {
  int32_t affected = -1;
  DatabaseEngine().SQLString(statement);
  DatabaseEngine().Execute(affected);
}

std::shared_ptr<Recordset> WorkingTable::RowOfLine(int line) {
  DatabaseEngine().SQLString("Select * from tft where LineNum = " + std::to_string(line));
  return DatabaseEngine().RetreiveRecords();
}

std::filesystem::path PutEmptyWorkingTable() {
  const std::filesystem::path target = std::filesystem::path(::corvalin::Run().DataFolder) / "TFT.mdb";
  std::filesystem::remove(target);
  std::filesystem::copy_file(BinaryDir() / "share/corvalin/EmptyTFT.mdb", target);
  return target;
}

int ErrorNumberRaisedBy(const std::function<void()>& action) {
  try {
    action();
  } catch (const RuntimeError& error) {
    return error.number();
  }
  return 0;
}

std::optional<int> ExitStatusOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const ProcessEnded& ended) {
    return ended.exitCode;
  }
  return std::nullopt;
}

std::string ReadFile(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream out;
  out << in.rdbuf();
  return out.str();
}

void WriteFile(const std::filesystem::path& path, const std::string& bytes) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out << bytes;
}

std::filesystem::path SourceDir() { return CORVALIN_SOURCE_DIR; }
std::filesystem::path BinaryDir() { return CORVALIN_BINARY_DIR; }
std::filesystem::path SharedDataDir() { return CORVALIN_SHARED_DATA_DIR; }

}  // namespace corvalin::testing
