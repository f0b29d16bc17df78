// The translation's kernels: one field, one record, and the whole writer over
// a working table of 32,767 rows with ten assigned columns.
#include <benchmark/benchmark.h>

#include <array>
#include <filesystem>
#include <string>
#include <unistd.h>

#include "shell/RunState.h"
#include "shell/Toolkit.h"
#include "shell/UnattendedToolkit.h"
#include "translation/RunTranslation.h"
#include "translation/TreeRecord.h"
#include "worktable/clsDBEngine.h"

namespace {

using namespace corvalin;

void NumberFieldWholeNumber(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(NumberField("12.3", 4, 0, 10));
}
BENCHMARK(NumberFieldWholeNumber);

void NumberFieldThreeDecimals(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(NumberField("25.5", 8, 3, 1));
}
BENCHMARK(NumberFieldThreeDecimals);

RunState TenColumns() {
  RunState run;
  for (int16_t* column : {&run.ColPlotId, &run.ColTreeId, &run.ColTreeCount, &run.ColTreeHistory, &run.ColSpecies,
                          &run.ColDbh, &run.ColDbhInc, &run.ColTotalHeight, &run.ColTopkillHeight,
                          &run.ColHeightInc, &run.ColCrownRatio, &run.ColDamage1, &run.ColDamage2,
                          &run.ColDamage3, &run.ColTreeValue, &run.ColPrescription, &run.ColPlotSlope,
                          &run.ColPlotAspect, &run.ColHabitatType, &run.ColTopoPosition, &run.ColSitePreparation})
    *column = -1;
  run.ColPlotId = 1;
  run.ColTreeId = 2;
  run.ColTreeCount = 3;
  run.ColTreeHistory = 4;
  run.ColSpecies = 5;
  run.ColDbh = 6;
  run.ColDbhInc = 7;
  run.ColTotalHeight = 8;
  run.ColCrownRatio = 9;
  run.ColPlotSlope = 10;
  run.ColumnCount = 10;
  run.UnitsDbh = "inches";
  run.UnitsDbhInc = "inches";
  run.UnitsTotalHeight = "feet";
  run.UnitsCrownRatio = "%";
  run.UnitsPlotSlope = "%";
  return run;
}

const char* kRow[] = {"12", "7", "6.018046", "1", "df", "12.3", "0.8", "80", "45", "35"};

void ImperialRecordOfTenColumns(benchmark::State& state) {
  const RecordSetup setup = UsRecordSetup(TenColumns());
  RowCells cells{};
  for (int i = 0; i < 10; ++i) cells[static_cast<std::size_t>(i + 1)] = kRow[i];
  for (auto _ : state) benchmark::DoNotOptimize(UsRecord(setup, cells));
}
BENCHMARK(ImperialRecordOfTenColumns);

void MetricRecordOfTenColumns(benchmark::State& state) {
  RunState run = TenColumns();
  run.UnitsDbh = run.UnitsDbhInc = "cm";
  run.UnitsTotalHeight = "m";
  const RecordSetup setup = BcRecordSetup(run);
  RowCells cells{};
  for (int i = 0; i < 10; ++i) cells[static_cast<std::size_t>(i + 1)] = kRow[i];
  for (auto _ : state) benchmark::DoNotOptimize(BcRecord(setup, cells));
}
BENCHMARK(MetricRecordOfTenColumns);

// The build tree puts the benchmarks in bench/ beside share/corvalin/.
std::filesystem::path EmptyDatabase() {
  return std::filesystem::read_symlink("/proc/self/exe").parent_path().parent_path() / "share/corvalin/EmptyTFT.mdb";
}

// The whole imperial writer, unattended, over a table of state.range(0) rows:
// opening the table, reading every row, formatting and writing the file.
void ImperialTranslationOfTable(benchmark::State& state) {
  static UnattendedToolkit toolkit;
  SetToolkit(&toolkit);
  const std::filesystem::path folder =
      std::filesystem::temp_directory_path() / ("corvalin-bench-" + std::to_string(::getpid()));
  std::filesystem::create_directories(folder);
  ResetRunState();
  Run() = TenColumns();
  Run().DataFolder = folder.string() + "/";
  Run().WorkFolder = folder.string() + "/";
  Run().CommandLineMode = false;
  std::filesystem::copy_file(EmptyDatabase(), folder / "TFT.mdb",
                             std::filesystem::copy_options::overwrite_existing);
  clsDBEngine& engine = DatabaseEngine();
  engine.PathToDB(Run().DataFolder + "TFT.mdb");
  engine.OpenDB();
  auto insert = engine.Prepare(
      "INSERT INTO tft (LineNum,c1,c2,c3,c4,c5,c6,c7,c8,c9,c10,Excluded) VALUES (?,?,?,?,?,?,?,?,?,?,?,'N')");
  engine.StartTrans();
  for (long line = 1; line <= state.range(0); ++line) {
    insert->BindInt(1, line);
    for (int c = 0; c < 10; ++c) insert->BindText(c + 2, kRow[c]);
    insert->Run();
  }
  engine.CommtTrans();
  insert.reset();
  engine.CloseDB();
  std::array<std::string, 32> headings{};
  const char* assigned[] = {"Plot ID\r\n", "Tree ID\r\n", "Tree Count\r\n", "Tree History\r\n", "Species\r\n",
                            "DBH\r\ninches", "Periodic DBH Inc.\r\ninches", "Total Height\r\nfeet",
                            "Crown Ratio\r\n%", "Plot Slope\r\n%"};
  for (int i = 1; i <= 10; ++i) headings[static_cast<std::size_t>(i)] = assigned[i - 1];
  const TranslationRequest request{(folder / "out.tre").string(), "NI", IdentifiedColumns(headings, 10)};
  Run().CommandLineMode = true;  // no question about the file of the last round
  if (state.range(1) == 0) {
    for (auto _ : state) TranslateUs(request);
  } else {
    // Only the opening of the table: the row set read into memory.
    for (auto _ : state) {
      OpenDatabase();
      CloseDatabase();
    }
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
  CloseDatabase();
  std::filesystem::remove_all(folder);
}
// Second argument 0: the whole writer; 1: only the opening of the table.
BENCHMARK(ImperialTranslationOfTable)
    ->Args({1000, 0})
    ->Args({10000, 0})
    ->Args({32767, 0})
    ->Args({32767, 1})
    ->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
