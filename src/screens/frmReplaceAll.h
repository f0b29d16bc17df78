// frmReplaceAll: Find/Replace in the column chosen on the grid, whole cells
// only. Find Next and Replace work on the grid as it stands and record
// nothing; Replace All adds a command to the template's list, runs it at
// once and leaves the dialog open for the next one.
#pragma once

#include <cstdint>
#include <string>

#include "screens/Controls.h"
#include "screens/Screen.h"
#include "worktable/Recordset.h"

namespace corvalin {

class StateDigest;

class frmReplaceAll : public Screen {
 public:
  const char* Name() const override { return "frmReplaceAll"; }

  // The screen's help context: its section of the help.
  static constexpr int kHelpContext = 90;
  void Form_Load() override;
  void DismissAsCancelled() override { cmdCancel_Click(); }

  Label lblColumn;
  Label lblFind;
  Label lblReplacement;
  TextBox txtFind;
  TextBox txtReplacement;
  Button cmdFindNext;
  Button cmdReplace;
  Button cmdReplaceAll;
  Button cmdCancel;
  Button cmdHelp;

  // Guards against a second press of Find Next or Replace while one runs.
  bool FindActive = false;
  bool ReplaceActive = false;

  void cmdFindNext_Click();
  void cmdReplace_Click();
  void cmdReplaceAll_Click();
  void cmdCancel_Click();
  void cmdHelp_Click();

 protected:
  void DescribeControls(StateDigest& digest) const override;

 private:
  // The first row, in table order, whose LineNum is above the grid's Row
  // (when afterRow) and whose cell of the column is the text to find; -1
  // when there is none.
  Recordset::Bookmark FindMatch(bool afterRow) const;
  // Selects a row found, as Find Next does.
  void SelectFound(Recordset::Bookmark found) const;
  // What every button puts back at its end: the column, the assign lists.
  void EndOfSearch(int16_t column) const;
};

}  // namespace corvalin
