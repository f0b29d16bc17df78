#include "Replay.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>

namespace corvalin::exerciser {

bool Reproduces(const RunOptions& options, const std::vector<Action>& actions, const std::string& kind) {
  RunOptions replay = options;
  replay.seconds = 0;
  replay.quiet = true;
  const RunResult result = Supervise(replay, &actions);
  std::error_code ec;
  std::filesystem::remove_all(result.folder, ec);
  return !result.finding.empty() && FindingKind(result.finding) == kind;
}

std::vector<Action> Shrink(const RunOptions& options, std::vector<Action> actions, const std::string& kind,
                           double seconds) {
  const auto start = std::chrono::steady_clock::now();
  const auto timeLeft = [&] {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count() < seconds;
  };
  std::size_t chunks = 2;
  while (actions.size() >= 2 && timeLeft()) {
    const std::size_t size = (actions.size() + chunks - 1) / chunks;
    bool shorter = false;
    for (std::size_t from = 0; from < actions.size() && timeLeft(); from += size) {
      std::vector<Action> candidate(actions.begin(), actions.begin() + static_cast<long>(from));
      candidate.insert(candidate.end(), actions.begin() + static_cast<long>(std::min(from + size, actions.size())),
                       actions.end());
      if (Reproduces(options, candidate, kind)) {
        std::fprintf(stderr, "exerciser: shrunk to %zu actions\n", candidate.size());
        actions = std::move(candidate);
        chunks = std::max<std::size_t>(chunks - 1, 2);
        shorter = true;
        break;
      }
    }
    if (shorter) continue;
    if (chunks >= actions.size()) break;
    chunks = std::min(chunks * 2, actions.size());
  }
  return actions;
}

}  // namespace corvalin::exerciser
