// A finding's action list made as short as it goes: delta debugging over
// replays, each in a fresh HOME.
#pragma once

#include <string>
#include <vector>

#include "Action.h"
#include "Supervisor.h"

namespace corvalin::exerciser {

// Whether replaying the actions brings a finding of that kind.
bool Reproduces(const RunOptions& options, const std::vector<Action>& actions, const std::string& kind);

// Drops halves, then smaller chunks, then single actions, keeping each
// shorter list that still reproduces; stops after `seconds`.
std::vector<Action> Shrink(const RunOptions& options, std::vector<Action> actions, const std::string& kind,
                           double seconds);

}  // namespace corvalin::exerciser
