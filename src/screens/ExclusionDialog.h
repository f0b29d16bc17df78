// What the three exclusion dialogs of the grid share. Opened from the grid's
// menu, OK adds a command to the template's list and runs it on the working
// table at once, then says how many rows it excluded. Opened from the command
// editor for a command already in the list, OK changes that command in the
// editor's copy and runs nothing yet.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "screens/Controls.h"
#include "screens/Screen.h"

namespace corvalin {

class StateDigest;
struct TemplateCommand;

class ExclusionDialog : public Screen {
 public:
  void DismissAsCancelled() override { cmdCancel_Click(); }

  // The column the dialog acts on: "N  (header)".
  Label lblColumn;
  Label lblText;
  Button cmdOk;
  Button cmdCancel;
  Button cmdHelp;

  void cmdOk_Click();
  void cmdCancel_Click();
  void cmdHelp_Click();

  // The dialog's text fields in the order they stand, each with its label
  // and its name.
  struct Field {
    const char* name;
    const Label* label;
    TextBox* text;
  };
  virtual std::vector<Field> Fields() = 0;

 protected:
  // The load steps they share: the word of the screen for error texts, the
  // title, the help context, the buttons and, where the dialog shows one, the
  // column caption.
  void LoadDialog(const char* screenWord, const char* titleEnding, int helpContext, bool showsColumn);
  // The kind of command that OK records.
  virtual const char* RecordedKind() const = 0;
  // Puts what the fields say into a command; a field that cannot be read
  // fails here, leaving the command as far as it got.
  virtual void FillCommand(TemplateCommand& command) const = 0;
  // Runs the dialog's own routine on command k of the list in force.
  virtual void Apply(int16_t& k) const = 0;
  // Takes the dialog out of the program.
  virtual void Unload() = 0;
  void DescribeControls(StateDigest& digest) const override;
};

// The column caption of a command dialog: the number, two blanks and the
// column's type in brackets.
std::string CommandColumnCaption(int16_t column);

// How many rows or cells the last command changed, in words: the count, the
// noun with "s" unless it is exactly one, and the rest.
std::string HitCountText(const char* noun, const char* rest);

}  // namespace corvalin
