// Drawing a controller's plain controls on their Qt widgets: text, enabled
// and visible state, values and lists. Signals are blocked while a widget is
// set, so that drawing never reads as an action of the person.
#pragma once

#include <QString>

#include "screens/Controls.h"

class QAbstractButton;
class QCheckBox;
class QComboBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;
class QWidget;

namespace corvalin {

void DrawState(QWidget* widget, const Control& control);
void DrawCaption(QLabel* widget, const Label& label);
// Whether Tab reaches the control: a control out of the keyboard order is
// still reached by a click.
void DrawTabStop(QWidget* widget, const Control& control);
// A path label: the path in a read-only line, red when its file failed.
void DrawPath(QLineEdit* widget, const Label& label);
void DrawButton(QAbstractButton* widget, const Button& button);
void DrawCheck(QCheckBox* widget, const CheckBox& box);
void DrawOption(QRadioButton* widget, const OptionButton& option);
void DrawText(QLineEdit* widget, const TextBox& box);
void DrawList(QComboBox* widget, const ListControl& list);
// A list the person may also type into: its items and its text.
void DrawEditableList(QComboBox* widget, const ListControl& list);
// A list box: its rows and the selected one (none for -1).
void DrawListBox(QListWidget* widget, const ListControl& list);

// A label of the window, named as its control.
QLabel* NewLabel(QWidget* parent, const char* name);
// A read-only line for a path held in a label.
QLineEdit* NewPathField(QWidget* parent, const char* name);
// A list the person may type into without adding to its items, wide enough
// for `characters` characters.
QComboBox* NewEditableList(QWidget* parent, const char* name, int characters);
// A list box of a file's lines, shown as they stand in the file: a
// fixed-pitch font, so that the tokens of one record type line up, at least
// `characters` characters wide, named for screen readers.
QListWidget* NewLineList(QWidget* parent, const char* name, const QString& accessibleName, int characters);
// A dialog's OK (its default), Cancel and Help buttons, "cmdOk", "cmdCancel"
// and "cmdHelp", set to the right of their row.
struct DialogButtons {
  QPushButton* ok;
  QPushButton* cancel;
  QPushButton* help;
  QHBoxLayout* row;
};
DialogButtons NewDialogButtons(QWidget* parent);

}  // namespace corvalin
