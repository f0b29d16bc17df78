// What a hurried or curious person does to the window on top: the actions the
// exerciser chooses, and how each is carried out on the real widgets with
// the events a person's mouse and keyboard send. Targets are found again by
// their keys, so a logged action replays on a new run.
#pragma once

#include <QString>
#include <QWidget>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "Action.h"

namespace corvalin::exerciser {

// Where the file dialogs may be pointed: an existing file, a missing path,
// one that cannot be written, a folder. The first three are the input, the
// stand list and the location file.
// Paths under the run's scratch folder are logged as "$RUN/...", so that a
// replay in a new folder points at the same files.
struct FileChoices {
  std::vector<std::string> paths;
};
void SetRunFolder(const std::string& folder);

// Called after each key of a typed text or a walk through a list: one
// action sends them all at once, but a person types one key at a time, and
// the program is to answer each key, not the whole text, within the stall
// limit.
void SetPaceHook(std::function<void()> hook);

// The window a person's next action goes to: the open popup or menu, the
// modal window, or else a visible top-level window (mostly the frontmost).
QWidget* TopWindow(std::mt19937_64& random);
// The key of a window, and the window of a key (null when none is up).
std::string WindowKey(QWidget* window);
QWidget* FindWindow(const std::string& key);

// What a life's person is after, beyond pressing on: a wander through the
// screens, a stay in the grid (its cells, headings, menus and the dialogs
// they open), or the stand list and location editors.
enum class Goal { Wander, Grid, Editors };
Goal GoalOfLife(int life);

// Chooses an action on the window; its kind is empty when the window offers
// nothing to do.
Action ChooseAction(QWidget* window, std::mt19937_64& random, const FileChoices& files, Goal goal);
// Carries the action out; false when its window or control is not there.
bool Perform(const Action& action);

// Whether the action may write a file a person saves: it presses or may
// press a save (Save Template, the editors' Save, Done, Next, Back, Quit), or
// closes or types keys into an editor that asks to save.
bool MaySave(const Action& action);
// Which files the action may remove: Delete on the first screen, by click or
// by a key on its focused button, removes the template.
Removal MayRemove(const Action& action);

}  // namespace corvalin::exerciser
