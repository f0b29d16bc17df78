// The load of the working table: cutting lines (PullColumns) and filling tft
// (CreateColumnsTable) for survey-like files of 30 columns.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "input/ColumnFormat.h"
#include "input/PullColumns.h"
#include "screens/Application.h"
#include "screens/frmColumns.h"
#include "screens/frmTemplate.h"
#include "shell/RunState.h"
#include "shell/UnattendedToolkit.h"
#include "tree_file.h"
#include "worktable/InputLines.h"
#include "screens/PrepareDatabase.h"
#include "worktable/clsDBEngine.h"

namespace fs = std::filesystem;
using namespace corvalin;

namespace {

constexpr int kColumns = 30;

std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  InputLines input = InputLines::FromText(text);
  std::string_view line;
  while (!input.AtEnd()) {
    input.Next(line);
    lines.emplace_back(line);
  }
  return lines;
}

void CutLines(benchmark::State& state, const std::string& qualifier) {
  const auto lines = LinesOf(bench::TreeFile(static_cast<int>(state.range(0)), kColumns));
  ColumnFormat format;
  format.ColumnDelimiters = ",";
  format.TextQualifier = qualifier;
  const LineSplitter splitter(format);
  ParsedLine parsed;
  for (auto _ : state) {
    for (const auto& line : lines) {
      splitter.Split(line, parsed);
      benchmark::DoNotOptimize(parsed.Count);
    }
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void BM_PullColumns(benchmark::State& state) { CutLines(state, QualifierNone); }
void BM_PullColumnsQualified(benchmark::State& state) { CutLines(state, QualifierDoubleQuote); }

// A private home with Data/ and the pristine empty database beside the
// program, as an installation has them; interactive mode, so the busy
// window's text is built for every line.
struct Installation {
  fs::path home;
  UnattendedToolkit toolkit;

  Installation() {
    home = fs::temp_directory_path() / ("corvalin-bench-" + std::to_string(::getpid()));
    fs::create_directories(home / "Data");
    fs::create_directories(home / "Work");
    ::setenv("HOME", home.c_str(), 1);
    ::setenv("XDG_CONFIG_HOME", (home / ".config").c_str(), 1);
    SetToolkit(&toolkit);
    Run().DataFolder = (home / "Data").string() + "/";
    Run().WorkFolder = (home / "Work").string() + "/";
    const fs::path program = fs::read_symlink("/proc/self/exe").parent_path();
    Run().InstallFolder = (program.parent_path() / "share" / "corvalin").string() + "/";
    if (!fs::exists(Run().InstallFolder + EmptyDatabaseName)) {
      std::fprintf(stderr, "bench_load: %s%s is missing; build the corvalin_share target first\n",
                   Run().InstallFolder.c_str(), EmptyDatabaseName);
      std::exit(1);
    }
  }
  ~Installation() {
    CloseDatabase();
    TftRecords().reset();
    App().UnloadAll();
    std::error_code ec;
    fs::remove_all(home, ec);
  }

  // The input file of lines lines, named on frmTemplate, frmColumns loaded.
  void UseInput(int lines) {
    const fs::path path = home / ("trees-" + std::to_string(lines) + ".csv");
    if (!fs::exists(path)) {
      std::ofstream(path, std::ios::binary) << bench::TreeFile(lines, kColumns);
    }
    App().Template().lblInputFile.SetCaption(path.string());
    App().Columns();
  }

  void FreshDatabase() {
    fs::copy_file(Run().InstallFolder + EmptyDatabaseName, Run().DataFolder + WorkingDatabaseName,
                  fs::copy_options::overwrite_existing);
  }
};

Installation& Install() {
  // The program's own singletons first, so that they outlive the installation.
  App();
  DatabaseEngine();
  TftRecords();
  static Installation installation;
  return installation;
}

// CreateColumnsTable alone: the database copied and opened outside the timing.
void BM_CreateColumnsTable(benchmark::State& state) {
  Installation& install = Install();
  install.UseInput(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    state.PauseTiming();
    install.FreshDatabase();
    OpenDatabase();
    state.ResumeTiming();
    CreateColumnsTable();
    state.PauseTiming();
    CloseDatabase();
    state.ResumeTiming();
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

// The reload steps of PrepareDatabase around it: copy, open, load, close.
void BM_ReloadWorkingTable(benchmark::State& state) {
  Installation& install = Install();
  install.UseInput(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    install.FreshDatabase();
    OpenDatabase();
    CreateColumnsTable();
    CloseDatabase();
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

}  // namespace

BENCHMARK(BM_PullColumns)->Arg(1000)->Arg(10000)->Arg(32767)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PullColumnsQualified)->Arg(1000)->Arg(10000)->Arg(32767)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CreateColumnsTable)->Arg(1000)->Arg(10000)->Arg(32767)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ReloadWorkingTable)->Arg(1000)->Arg(10000)->Arg(32767)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
