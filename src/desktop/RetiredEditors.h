// Cell editors the grid has let go of while an event of the program was
// running. The table lets an editor go when its rows are read again, and a
// person's click can read them again from inside the editor's own commit
// (the commit's event lets pending events run): the table goes back to the
// editor once the commit returns. Such an editor is hidden and kept until no
// event of the program is running, then deleted.
#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <vector>

namespace corvalin {

class RetiredEditors : public QObject {
 public:
  explicit RetiredEditors(QObject* parent);

  // The editor goes now if the program is idle, else once it is.
  void Retire(QWidget* editor);
  // Editors kept hidden, waiting for the program to be idle.
  int Waiting() const;

 private:
  void Sweep();

  std::vector<QPointer<QWidget>> editors_;
  QTimer sweep_;
};

}  // namespace corvalin
