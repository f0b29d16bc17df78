// Drawing a controller's plain controls on their Qt widgets: text, enabled
// and visible state, values and lists. Signals are blocked while a widget is
// set, so that drawing never reads as an action of the person.
#pragma once

#include "screens/Controls.h"

class QAbstractButton;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QRadioButton;
class QWidget;

namespace corvalin {

void DrawState(QWidget* widget, const Control& control);
void DrawCaption(QLabel* widget, const Label& label);
// A path label: the path in a read-only line, red when its file failed.
void DrawPath(QLineEdit* widget, const Label& label);
void DrawButton(QAbstractButton* widget, const Button& button);
void DrawCheck(QCheckBox* widget, const CheckBox& box);
void DrawOption(QRadioButton* widget, const OptionButton& option);
void DrawText(QLineEdit* widget, const TextBox& box);
void DrawList(QComboBox* widget, const ListControl& list);

// A read-only line for a path held in a label.
QLineEdit* NewPathField(QWidget* parent, const char* name);

}  // namespace corvalin
