#include "screens/RecordLines.h"

#include <string_view>

#include "screens/Application.h"
#include "screens/Screen.h"
#include "shell/AppUtil.h"
#include "shell/Error.h"
#include "shell/Failure.h"
#include "shell/Text.h"
#include "shell/Toolkit.h"
#include "standlist/StandLevelFile.h"
#include "worktable/InputLines.h"

namespace corvalin {

namespace {

std::size_t At(int index) { return static_cast<std::size_t>(index); }

void SwapLines(ListControl& list, int a, int b) { std::swap(list.Items[At(a)], list.Items[At(b)]); }

}  // namespace

void EnableRecordLineButtons(const ListControl& list, RecordLineButtons buttons) {
  const int index = list.ListIndex;
  const bool selected = index >= 0;
  buttons.edit.Enabled = selected;
  buttons.del.Enabled = selected;
  buttons.up.Enabled = selected && index > 0;
  buttons.down.Enabled = selected && index < list.ListCount() - 1;
}

void SelectRecordLine(ListControl& list, int index, RecordLineButtons buttons) {
  list.Select(index);
  EnableRecordLineButtons(list, buttons);
}

void InsertPlaceholder(ListControl& list, const std::string& placeholder, RecordLineButtons buttons) {
  int at = list.ListCount();
  if (list.ListIndex >= 0) at = list.ListIndex + 1;
  list.Items.insert(list.Items.begin() + at, placeholder);
  SelectRecordLine(list, at, buttons);
}

void RemovePlaceholderIfCancelled(ListControl& list, const std::string& placeholder, RecordLineButtons buttons) {
  const int at = list.ListIndex;
  if (at < 0 || at >= list.ListCount() || list.Items[At(at)] != placeholder) return;
  list.Items.erase(list.Items.begin() + at);
  list.Select(-1);
  if (at >= 1) {
    SelectRecordLine(list, at - 1, buttons);
  } else if (list.ListCount() > 0) {
    SelectRecordLine(list, 0, buttons);
  }
}

void RunNewRecordDialog(ListControl& list, const std::string& placeholder, RecordLineButtons buttons,
                        Screen& dialog, const std::function<void()>& prepare) {
  InsertPlaceholder(list, placeholder, buttons);
  prepare();
  App().ShowModal(dialog);
  RemovePlaceholderIfCancelled(list, placeholder, buttons);
}

void DeleteSelectedLine(ListControl& list, RecordLineButtons buttons) {
  const int at = list.ListIndex;
  if (at < 0 || at >= list.ListCount()) Raise(err::InvalidProcedureCall);
  list.Items.erase(list.Items.begin() + at);
  list.Select(-1);
  if (at < list.ListCount()) {
    SelectRecordLine(list, at, buttons);
  } else if (list.ListCount() > 0) {
    SelectRecordLine(list, list.ListCount() - 1, buttons);
  } else {
    buttons.up.Enabled = false;
    buttons.down.Enabled = false;
    buttons.edit.Enabled = false;
    buttons.del.Enabled = false;
  }
}

void MoveSelectedLineUp(ListControl& list, RecordLineButtons buttons) {
  const int at = list.ListIndex;
  if (at < 1 || at >= list.ListCount()) return;
  SwapLines(list, at, at - 1);
  list.Select(at - 1);
  buttons.down.Enabled = true;
  if (list.ListIndex == 0) buttons.up.Enabled = false;
}

void MoveSelectedLineDown(ListControl& list, RecordLineButtons buttons) {
  const int at = list.ListIndex;
  if (at < 0 || at >= list.ListCount() - 1) return;
  SwapLines(list, at, at + 1);
  list.Select(at + 1);
  buttons.up.Enabled = true;
  if (list.ListIndex == list.ListCount() - 1) buttons.down.Enabled = false;
}

void AddFileLines(ListControl& list, const std::string& path) {
  InputLines lines(path);
  std::string_view line;
  while (!lines.AtEnd()) {
    lines.Next(line);
    list.AddItem(std::string(line));
  }
}

int FirstRecordOfFile(const ListControl& list, int16_t pathToken, const std::string& currentFile) {
  const std::string wanted = ToLower(ShortenWorkPath(currentFile));
  for (int i = 0; i < list.ListCount(); ++i) {
    const std::string& line = list.Items[At(i)];
    if (StartsWith(line, "A") && ToLower(GetRecordToken(line, pathToken)) == wanted) return i;
  }
  return -1;
}

void LoadRecordLines(ListControl& list, const std::string& path, int16_t pathToken, const std::string& currentFile,
                     RecordLineButtons buttons) {
  try {
    AddFileLines(list, path);
    const int current = FirstRecordOfFile(list, pathToken, currentFile);
    if (current >= 0) SelectRecordLine(list, current, buttons);
  } catch (const std::exception&) {
  }
  if (list.ListCount() == 0) {
    EnableRecordLineButtons(list, buttons);
  } else if (list.ListIndex < 0) {
    SelectRecordLine(list, 0, buttons);
  }
}

namespace {

bool Passes(const std::function<bool()>& validate) { return !validate || validate(); }

}  // namespace

void SaveRecordFile(const RecordFileFlow& flow) {
  UI().SetBusyPointer(true);
  if (Passes(flow.validateOnSave)) {
    flow.write();
    ShowMessage(flow.savedMessage);
  }
  UI().SetBusyPointer(false);
}

void SaveIfChangedAndHandOver(const RecordFileFlow& flow, Screen& from, const std::function<Screen&()>& next) {
  UI().SetBusyPointer(true);
  if (!flow.unchanged()) {
    if (!Passes(flow.validateOnLeaving)) {
      UI().SetBusyPointer(false);
      return;
    }
    flow.write();
    ShowMessage(flow.savedMessage);
  }
  from.HandOverTo(next());
  UI().SetBusyPointer(false);
}

void GoBack(Screen& from, const std::function<Screen&()>& previous) {
  UI().SetBusyPointer(true);
  from.HandOverTo(previous());
  UI().SetBusyPointer(false);
}

}  // namespace corvalin
