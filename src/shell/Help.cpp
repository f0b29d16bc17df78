#include "shell/Help.h"

#include "shell/RunState.h"
#include "shell/Toolkit.h"

namespace corvalin {

std::string HelpTopicOfContext(int context) { return "context-" + std::to_string(context); }

bool ShowHelp(int command, const std::string& helpFile, int context) {
  switch (command) {
    case HelpDisplayTopic: return UI().OpenHelp(helpFile, "");
    case HelpDisplayContents: return UI().OpenHelp(helpFile, "contents");
    case HelpDisplayIndex: return UI().OpenHelp(helpFile, "index");
    case HelpDisplaySearch: return UI().OpenHelp(helpFile, "search");
    case HelpContext:
      // The page carries its contents at the top of every view, so the topic
      // alone shows both; a second browser tab for the contents would only
      // be in the way.
      if (context != 0) return UI().OpenHelp(helpFile, HelpTopicOfContext(context));
      return UI().OpenHelp(helpFile, "contents");
    default: return false;
  }
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
