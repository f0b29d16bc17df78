// The controls of a screen as plain state. A controller holds its screen's
// controls in these; a view draws them and forwards the person's actions to
// the controller's events. Setting a caption or text that has a change
// routine runs that routine, as the screens do.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace corvalin {

struct Control {
  bool Enabled = true;
  bool Visible = true;
  // Whether the control takes part in the keyboard order.
  bool TabStop = true;
  // Place and width in twips, for the few controls whose geometry the
  // program itself changes.
  int Left = 0;
  int Width = 0;
};

struct Label : Control {
  std::string Caption;
  std::function<void()> Change;   // runs on every set, also by the program
  bool Red = false;               // text colour red instead of the normal one
  void SetCaption(const std::string& caption) {
    Caption = caption;
    if (Change) Change();
  }
};

struct Button : Control {
  std::string Caption;
};

struct CheckBox : Control {
  std::string Caption;
  int Value = 0;  // 0 unchecked, 1 checked
  bool Checked() const { return Value == 1; }
};

struct OptionButton : Control {
  std::string Caption;
  bool Value = false;
};

struct TextBox : Control {
  std::string Text;
};

// A list box or combo box: items, the selected index (-1: none) and, for a
// combo, its text.
struct ListControl : Control {
  std::vector<std::string> Items;
  int ListIndex = -1;
  std::string Text;
  int ListCount() const { return static_cast<int>(Items.size()); }
  void Clear() {
    Items.clear();
    ListIndex = -1;
    Text.clear();
  }
  void AddItem(const std::string& item) { Items.push_back(item); }
  // Selecting an entry shows its text; -1 clears the selection.
  void Select(int index) {
    ListIndex = index;
    Text = (index >= 0 && index < ListCount()) ? Items[static_cast<std::size_t>(index)] : std::string();
  }
};

// An invisible list of the files of a folder: the folder and the names of
// its files that the owning screen keeps, in the order they are listed.
struct FileListBox : Control {
  std::string Path;
  std::vector<std::string> Items;
  FileListBox() { Visible = false; }
};

// A tab strip: one caption and one enabled state per tab, and the active tab.
struct TabStrip : Control {
  std::vector<std::string> TabCaption;
  std::vector<bool> TabEnabled;
  int Tab = 0;
};

}  // namespace corvalin
