// exerciser: a hurried or curious person at the wizard's real windows.
//   exerciser --input <name|all> --seed <n> [--actions <k>] [--seconds <s>]
//             [--survey <file>] [--stall-ms <ms>] [--shrink-seconds <s>]
//             [--log <prefix>]   (every action to <prefix>-<input>.actions)
//   exerciser --replay <file> [--input <name>]
// Each input runs the wizard offscreen in a fresh HOME, one life after
// another in child processes, until the actions or seconds are spent. A
// finding (a crash, a sanitizer report, an unhandled failure, a stall, a
// saved file that is not whole) is shrunk to the shortest action list that
// still brings it, written under exercise-findings/, and the status is 1.
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <vector>

#include "Inputs.h"
#include "Life.h"
#include "Replay.h"
#include "Supervisor.h"

using namespace corvalin::exerciser;

namespace {

std::map<std::string, std::string> Arguments(int argc, char** argv) {
  std::map<std::string, std::string> args;
  for (int i = 1; i < argc; ++i) {
    const std::string name = argv[i];
    if (name.rfind("--", 0) != 0) continue;
    if (name == "--life")
      args[name] = "1";
    else if (i + 1 < argc)
      args[name] = argv[++i];
  }
  return args;
}

std::string Get(const std::map<std::string, std::string>& args, const std::string& name, const std::string& fallback) {
  const auto it = args.find(name);
  return it == args.end() ? fallback : it->second;
}

template <class Set>
void PrintSet(const char* what, const Set& items) {
  std::printf("  %s (%zu):", what, items.size());
  for (const std::string& item : items) std::printf(" %s;", item.c_str());
  std::printf("\n");
}

// Writes the finding's action list and prints it; returns its path.
std::string Record(const RunOptions& options, const std::string& finding, const std::vector<Action>& actions,
                   const std::string& suffix) {
  std::filesystem::create_directories("exercise-findings");
  const std::string path =
      "exercise-findings/" + options.input + "-seed" + std::to_string(options.seed) + suffix + ".actions";
  WriteActions(
      path, actions,
      "# input " + options.input + "\n# seed " + std::to_string(options.seed) + "\n# finding " + finding + "\n");
  std::printf("  finding: %s\n  seed %llu, input %s, %zu actions to reproduce (%s):\n", finding.c_str(), options.seed,
              options.input.c_str(), actions.size(), path.c_str());
  for (const Action& action : actions) std::printf("    %s\n", Serialize(action).c_str());
  return path;
}

bool RunInput(RunOptions options, double shrinkSeconds, const std::vector<Action>* replay, const std::string& logFile) {
  const RunResult result = Supervise(options, replay);
  std::printf("input %s: %ld actions in %.1f s (%.1f actions/s), %d lives, %ld skipped\n", options.input.c_str(),
              result.actions, result.seconds, result.seconds > 0 ? result.actions / result.seconds : 0.0, result.lives,
              result.skipped);
  if (!logFile.empty())
    WriteActions(logFile + "-" + options.input + ".actions", result.log,
                 "# input " + options.input + "\n# seed " + std::to_string(options.seed) + "\n");
  if (result.confined == "yes")
    std::printf("  file system: the lives could write only in %s\n", result.folder.c_str());
  else
    std::printf(
        "  file system: NOT confined to the run's folder (%s); the file dialogs' own Delete, Rename and "
        "New Folder were left alone\n",
        result.confined.empty() ? "no life said" : result.confined.c_str());
  PrintSet("windows reached", result.windows);
  PrintSet("controls touched", result.controls);
  for (const auto& [text, lives] : result.runtimeEnds)
    std::printf("  lives ended by the run-time's box where the program means to: %d (%s)\n", lives, text.c_str());
  if (result.finding.empty()) {
    std::printf("  findings: none\n");
    std::error_code ec;
    std::filesystem::remove_all(result.folder, ec);
    std::fflush(stdout);
    return true;
  }
  std::vector<Action> actions = result.log;
  Record(options, result.finding, actions, "");
  if (shrinkSeconds > 0 && replay == nullptr) {
    const std::string kind = FindingKind(result.finding);
    if (Reproduces(options, actions, kind)) {
      actions = Shrink(options, actions, kind, shrinkSeconds);
      std::printf("  shrunk:\n");
      Record(options, result.finding, actions, "-shrunk");
    } else {
      std::printf("  the replay of the whole list did not bring the finding again\n");
    }
  }
  std::fflush(stdout);
  return false;
}

}  // namespace

int main(int argc, char** argv) {
  const auto args = Arguments(argc, argv);
  if (args.count("--life")) {
    LifeOptions life;
    life.pipeFd = std::atoi(Get(args, "--pipe-fd", "-1").c_str());
    life.input = Get(args, "--input", "survey");
    life.inputPath = Get(args, "--input-path", "");
    life.runFolder = Get(args, "--run-folder", "");
    life.workFolder = Get(args, "--work", "");
    life.seed = std::strtoull(Get(args, "--seed", "1").c_str(), nullptr, 10);
    life.life = std::atoi(Get(args, "--life-number", "1").c_str());
    life.budget = std::atol(Get(args, "--actions", "0").c_str());
    life.replayFile = Get(args, "--replay", "");
    life.replayStart = std::atol(Get(args, "--replay-start", "0").c_str());
    int qtArgc = 1;
    return RunLife(qtArgc, argv, life);
  }
  RunOptions options;
  options.self = std::filesystem::read_symlink("/proc/self/exe").string();
  options.survey = Get(args, "--survey", "../shared/data/lolo-2022/tree.csv");
  options.seed = std::strtoull(Get(args, "--seed", "1").c_str(), nullptr, 10);
  options.actions = std::atol(Get(args, "--actions", args.count("--seconds") ? "100000000" : "1000").c_str());
  options.seconds = std::atof(Get(args, "--seconds", "0").c_str());
  options.stallMs = std::atoi(Get(args, "--stall-ms", "2000").c_str());
  const double shrinkSeconds = std::atof(Get(args, "--shrink-seconds", "300").c_str());

  std::vector<Action> replay;
  std::string input = Get(args, "--input", "");
  if (args.count("--replay")) {
    const std::string file = Get(args, "--replay", "");
    replay = ReadActions(file);
    std::ifstream in(file);
    std::string line;
    while (std::getline(in, line))
      if (line.rfind("# input ", 0) == 0 && input.empty())
        input = line.substr(8);
      else if (line.rfind("# seed ", 0) == 0)
        options.seed = std::strtoull(line.substr(7).c_str(), nullptr, 10);
    if (input.empty()) input = "survey";
  }
  if (input.empty()) input = "survey";
  std::vector<std::string> inputs = input == "all" ? InputNames() : std::vector<std::string>{input};
  for (const std::string& name : inputs)
    if (!IsInputName(name)) {
      std::fprintf(stderr, "exerciser: no input named %s\n", name.c_str());
      return 2;
    }
  if (!std::filesystem::exists(options.survey)) {
    std::fprintf(stderr, "exerciser: no survey file %s\n", options.survey.c_str());
    return 2;
  }
  bool clean = true;
  for (const std::string& name : inputs) {
    options.input = name;
    clean =
        RunInput(options, shrinkSeconds, args.count("--replay") ? &replay : nullptr, Get(args, "--log", "")) && clean;
  }
  std::printf("%s\n", clean ? "exerciser: no findings" : "exerciser: FINDINGS");
  return clean ? 0 : 1;
}
