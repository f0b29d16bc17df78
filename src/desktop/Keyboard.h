// The keyboard in a window: Tab goes through its controls in the order the
// window reads, top to bottom and left to right, a block (a group of
// controls) at a time; every button, check box, option and labelled field
// has an access key of its own (Alt and the underlined letter).
#pragma once

#include <QList>

class QWidget;

namespace corvalin {

// The controls of the window that Tab reaches, in reading order: rows of
// blocks from the top, each row from the left, each block's own controls in
// the same order within it. Hidden controls are counted where they stand.
QList<QWidget*> ReadingOrder(QWidget* window);
// Sets the Tab order of the window's controls to their reading order.
void OrderTabsByReading(QWidget* window);
// The property that marks a control to be served last when access keys are
// given: the controls a person can use now without it come first.
inline constexpr const char* kAccessKeyServedLast = "accessKeyServedLast";
// Gives the window's buttons, check boxes, options and the labels of its
// fields access keys that no two of them share, chosen in reading order
// from their captions as they stand now. Called again after the captions
// change.
void GiveAccessKeys(QWidget* window);
// A caption as shown, without its access key's marker.
QString PlainCaption(const QString& text);

}  // namespace corvalin
