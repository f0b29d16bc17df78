// What the stand list and location editors share: a list of raw record lines
// with four buttons that act on the selected line (Up, Down, Edit, Delete),
// the insertion of a placeholder row behind the selection while a new
// record's dialog is open, and the reading of the file into the list.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "screens/Controls.h"

namespace corvalin {

class Screen;

struct RecordLineButtons {
  Button& up;
  Button& down;
  Button& edit;
  Button& del;
};

// The click on the list: enables the buttons by where the selection stands
// (none: all off; first of one: Edit and Delete; first of more: and Down;
// last: and Up; any other: all on).
void EnableRecordLineButtons(const ListControl& list, RecordLineButtons buttons);
// The program's selection of a line: as with a list box, setting the
// selection runs the list's click.
void SelectRecordLine(ListControl& list, int index, RecordLineButtons buttons);

// Inserts the placeholder behind the selected line (at the end when nothing
// is selected) and selects it.
void InsertPlaceholder(ListControl& list, const std::string& placeholder, RecordLineButtons buttons);
// After the new record's dialog closed: when the selected row is still the
// placeholder (the dialog was cancelled), removes it and selects the row
// before it, or the new first row when it stood first. With no row left
// nothing is selected and the buttons stay as they are.
void RemovePlaceholderIfCancelled(ListControl& list, const std::string& placeholder, RecordLineButtons buttons);

// A new record's dialog, already loaded: the placeholder goes behind the
// selection, prepare sets the dialog up, the dialog runs modally, and the
// placeholder goes again when the dialog was cancelled.
void RunNewRecordDialog(ListControl& list, const std::string& placeholder, RecordLineButtons buttons,
                        Screen& dialog, const std::function<void()>& prepare);

// Removes the selected line and selects the line now at its index, else the
// last line; with no line left, the four buttons are disabled. With nothing
// selected it is the error "Invalid procedure call or argument", as removing
// the row at -1 from a list box is.
void DeleteSelectedLine(ListControl& list, RecordLineButtons buttons);
// Swap the selected line with its neighbour; the selection follows, and the
// buttons change as the editors' Up and Down say. A line that has no
// neighbour on that side (the buttons are off then) stays where it is.
void MoveSelectedLineUp(ListControl& list, RecordLineButtons buttons);
void MoveSelectedLineDown(ListControl& list, RecordLineButtons buttons);

// Adds every line of the file to the list as it stands (lines end at CR, CR
// LF or LF). Raises the run-time error of a file that cannot be read.
void AddFileLines(ListControl& list, const std::string& path);

// The index of the first line that begins with "A" and whose token pathToken
// is currentFile, shortened against the working directory, both compared
// lower-cased; -1 when there is none.
int FirstRecordOfFile(const ListControl& list, int16_t pathToken, const std::string& currentFile);

// The load of an editor's list: the file's lines; the first record of the
// current file selected, else the first line; with no line at all the
// list's click runs. A file that cannot be read, or does not exist yet,
// gives an empty list without a word.
void LoadRecordLines(ListControl& list, const std::string& path, int16_t pathToken, const std::string& currentFile,
                     RecordLineButtons buttons);

// How an editor's file is saved and left: the same steps for the stand list
// and the location file, which differ only in these.
struct RecordFileFlow {
  // Whether the lines may be written; the stand list's sequence rules, which
  // are also what the location editor's Done asks for. Empty: always.
  std::function<bool()> validateOnSave;
  std::function<bool()> validateOnLeaving;
  // Writes every line; reports its own failure and returns.
  std::function<void()> write;
  // The message that follows a writing.
  const char* savedMessage;
  // Nothing changed since the load or the last saving.
  std::function<bool()> unchanged;
};

// Save: under the busy pointer, the lines validated as the editor asks,
// written, and the message. A refusal resets the busy pointer; a failure
// leaves it busy for whoever handles it.
void SaveRecordFile(const RecordFileFlow& flow);
// Next or Done: with nothing changed the next screen takes this one's place
// at once, however the file stands on disk; otherwise the lines are
// validated, written and said to be saved first, and a refusal stays. The
// next screen is asked for (and so loaded) only when it is gone to.
void SaveIfChangedAndHandOver(const RecordFileFlow& flow, Screen& from, const std::function<Screen&()>& next);
// Back: under the busy pointer, the screen before takes this one's place,
// nothing saved or asked; the lines stay for the next showing.
void GoBack(Screen& from, const std::function<Screen&()>& previous);

}  // namespace corvalin
