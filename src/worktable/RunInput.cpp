#include "worktable/RunInput.h"

#include <memory>
#include <utility>

namespace corvalin {

namespace {

struct KeptInput {
  std::string path;
  std::unique_ptr<RunInput> input;
};

KeptInput& Kept() {
  static KeptInput kept;
  return kept;
}

}  // namespace

RunInput OpenRunInput(const std::string& path) {
  KeptInput& kept = Kept();
  if (kept.input && kept.path == path) {
    RunInput input = std::move(*kept.input);
    kept.input.reset();
    return input;
  }
  ForgetRunInput();
  return RunInput{InputLines(path, kLongestInputLine), 0};
}

RunInput OpenRunInputAtStart(const std::string& path) {
  KeptInput& kept = Kept();
  if (kept.input && kept.input->linesTaken > 0) ForgetRunInput();
  return OpenRunInput(path);
}

void KeepRunInput(const std::string& path, RunInput input) {
  if (input.lines.FromRegularFile()) return;
  Kept().path = path;
  Kept().input = std::make_unique<RunInput>(std::move(input));
}

void ForgetRunInput() {
  Kept().input.reset();
  Kept().path.clear();
}

}  // namespace corvalin
