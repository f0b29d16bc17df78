// Help: the HTML help file, opened in the user's browser at the topic of a
// help context, and the append question of an existing output file.
#pragma once

#include <string>

namespace corvalin {

// The help file's name, under the installation's Help folder.
inline constexpr const char* HelpFileName = "Orvanta.html";

// The help commands of ShowHelp.
inline constexpr int HelpDisplayTopic = 0;
inline constexpr int HelpDisplayContents = 1;
inline constexpr int HelpDisplayIndex = 2;
inline constexpr int HelpDisplaySearch = 3;
inline constexpr int HelpContext = 4;

// The topic (anchor) of the help page for a context number: "context-7".
std::string HelpTopicOfContext(int context);

// What the person is told when the help cannot be shown: the file is not
// there, or no browser could be started for it. Each is followed by two line
// breaks and the help file's path, so that it can be opened by hand.
inline constexpr const char* HelpFileMissingText = "The help file could not be found:";
inline constexpr const char* HelpBrowserMissingText =
    "No web browser could be started to show the help. Open this file in your browser:";
// The title of those messages: ProductTitle + " - Help".
std::string HelpMessageTitle();

// Opens the help file: 0 its first topic, 1 its contents, 2 its index, 3 its
// search topic, 4 the topic of the context (its contents when the context is
// 0). Any other command does nothing and gives false. True when the help
// could be shown; when it could not (no such file, no browser), a message
// says so and gives the file's path.
bool ShowHelp(int command, const std::string& helpFile, int context);

// frmAppendOverwriteCancel: asks what to do with an existing output file and
// sets AppendCancelled and AppendToOutput by the answer. Closing the window
// counts as Cancel; Cancel leaves AppendToOutput as it was.
inline constexpr const char* AppendQuestionText = "File already exists.  Append to file, overwrite, or cancel?";
void AskAppendOverwriteCancel();

}  // namespace corvalin
