// What a screen reader says of a window's controls: every field is named by
// the label beside it (which also gives the field its access key), every
// button, box and option by its caption, and the few controls with neither
// by a name of their own.
#pragma once

class QWidget;

namespace corvalin {

// Ties each label of the window that ends in ":" to the field on its right,
// on its row, and names the field after it. A field named already keeps its
// name.
void NameFieldsByTheirLabels(QWidget* window);

}  // namespace corvalin
