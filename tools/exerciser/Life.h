// One life of the wizard in a child process: the real start sequence on the
// HOME the parent prepared, then the person's actions until the budget is
// spent or the program ends. It tells the parent on a pipe what it does:
//   C 1 | C 0 <why> whether the life may write only in the run's folder
//   H <0|1>        heartbeat from the event loop; 1 while the busy window is up
//   A <action>     an action about to be carried out
//   S              that action was skipped: its window or control was not
//                  there (in a replay) or it could not be carried out
//   F <text>       a finding: the child ends at once after it
//   P <text>       the run-time's box where the program is meant to end
//                  through it (the stand list editor's Delete with no line
//                  selected); the program ends after it
//   E <status>     the program ends in order with that status
//   D              the action budget is spent
#pragma once

#include <string>

namespace corvalin::exerciser {

struct LifeOptions {
  int pipeFd = -1;
  std::string input;      // the input's name
  std::string inputPath;  // the file the file dialogs offer
  std::string runFolder;  // the scratch folder of the run
  std::string workFolder;
  unsigned long long seed = 0;
  int life = 0;
  long budget = 0;         // actions in this life
  std::string replayFile;  // replays these actions instead of choosing
  long replayStart = 0;    // from this one
};

int RunLife(int argc, char** argv, const LifeOptions& options);

}  // namespace corvalin::exerciser
