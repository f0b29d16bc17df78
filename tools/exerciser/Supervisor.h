// The parent's side: a run of the exerciser on one input, as one wizard life
// after another in child processes, each watched for its end and its
// heartbeat.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "Action.h"

namespace corvalin::exerciser {

struct RunOptions {
  std::string self;  // this program, to start the lives
  std::string input;
  std::string survey;  // the survey file for the "survey" input
  unsigned long long seed = 1;
  long actions = 1000;
  double seconds = 0;  // 0: no time limit
  int stallMs = 2000;
  int busyStallMs = 60000;
  bool quiet = false;
};

struct RunResult {
  long actions = 0;
  long skipped = 0;  // actions whose window or control was not there
  int lives = 0;
  double seconds = 0;
  std::vector<Action> log;
  std::set<std::string> windows;   // "key (caption)"
  std::set<std::string> controls;  // "window/control"
  // Lives the program ended through the run-time's box where it is meant to.
  std::map<std::string, int> runtimeEnds;
  std::string finding;  // empty: none
  // Whether the lives could write only in the run's folder: "yes", or why not.
  std::string confined;
  std::string folder;  // the run's scratch folder
};

// A run choosing actions at random, or (replay non-null) replaying those.
RunResult Supervise(const RunOptions& options, const std::vector<Action>* replay);

// What kind of finding the text tells ("crash", "stall", ...).
std::string FindingKind(const std::string& finding);

}  // namespace corvalin::exerciser
