#include "desktop/RetiredEditors.h"

#include <algorithm>

#include "shell/EventScope.h"

namespace corvalin {

namespace {
// How often a kept editor looks whether the program has become idle: a
// modal dialog over the grid may keep it waiting for minutes.
constexpr int kSweepMs = 100;
}  // namespace

RetiredEditors::RetiredEditors(QObject* parent) : QObject(parent) {
  sweep_.setInterval(kSweepMs);
  connect(&sweep_, &QTimer::timeout, this, [this] { Sweep(); });
}

void RetiredEditors::Retire(QWidget* editor) {
  if (editor == nullptr) return;
  if (!ProgramBusy()) {
    editor->deleteLater();
    return;
  }
  editor->hide();
  editors_.emplace_back(editor);
  if (!sweep_.isActive()) sweep_.start();
}

int RetiredEditors::Waiting() const {
  return static_cast<int>(std::count_if(editors_.begin(), editors_.end(), [](const auto& e) { return !e.isNull(); }));
}

void RetiredEditors::Sweep() {
  if (ProgramBusy()) return;
  sweep_.stop();
  for (const QPointer<QWidget>& editor : editors_)
    if (editor) editor->deleteLater();
  editors_.clear();
}

}  // namespace corvalin
