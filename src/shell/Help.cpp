#include "shell/Help.h"

#include "shell/RunState.h"
#include "shell/ShellPath.h"
#include "shell/Toolkit.h"

namespace corvalin {

namespace {

// The anchor of the help page that a command shows; false for a command
// there is none for.
bool TopicOfCommand(int command, int context, std::string& topic) {
  switch (command) {
    case HelpDisplayTopic: topic = ""; return true;
    case HelpDisplayContents: topic = "contents"; return true;
    case HelpDisplayIndex: topic = "index"; return true;
    case HelpDisplaySearch: topic = "search"; return true;
    case HelpContext:
      // The page carries its contents at the top of every view, so the topic
      // alone shows both; a second browser tab for the contents would only
      // be in the way.
      topic = context != 0 ? HelpTopicOfContext(context) : "contents";
      return true;
    default: return false;
  }
}

// A person who pressed Help and saw nothing would not know why, nor where
// the help lies: the message names the file.
void SayHelpCannotBeShown(const char* why, const std::string& helpFile) {
  UI().Message({std::string(why) + "\r\n\r\n" + helpFile, Buttons::OK, Icon::Exclamation, HelpMessageTitle(), 1});
}

}  // namespace

std::string HelpTopicOfContext(int context) { return "context-" + std::to_string(context); }

std::string HelpMessageTitle() { return std::string(ProductTitle) + " - Help"; }

bool ShowHelp(int command, const std::string& helpFile, int context) {
  std::string topic;
  if (!TopicOfCommand(command, context, topic)) return false;
  if (!PathExists(helpFile) || IsDirectory(helpFile)) {
    SayHelpCannotBeShown(HelpFileMissingText, helpFile);
    return false;
  }
  if (!UI().OpenHelp(helpFile, topic)) {
    SayHelpCannotBeShown(HelpBrowserMissingText, helpFile);
    return false;
  }
  return true;
}

void AskAppendOverwriteCancel() {
  RunState& run = Run();
  run.CurrentScreen = "AppendOverwrite";
  UI().Beep();
  switch (UI().AskAppendOverwriteCancel(AppendQuestionText)) {
    case AppendChoice::Append:
      run.AppendCancelled = false;
      run.AppendToOutput = true;
      break;
    case AppendChoice::Overwrite:
      run.AppendCancelled = false;
      run.AppendToOutput = false;
      break;
    case AppendChoice::Cancel:
    case AppendChoice::Closed:
      run.AppendCancelled = true;
      break;
  }
}

}  // namespace corvalin
