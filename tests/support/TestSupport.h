// Shared test scaffolding: a fresh process state in a temporary HOME with the
// scripted Toolkit, and small file helpers.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <optional>
#include <memory>
#include <string>

#include "ScriptedToolkit.h"
#include "shell/RunState.h"
#include "worktable/clsDBEngine.h"

namespace corvalin::testing {

// Every test that touches run state, settings, folders or screens derives
// from this: HOME and XDG_CONFIG_HOME point into a new temporary folder, the
// run state is fresh, all screens are unloaded, and the scripted Toolkit is in
// use. WorkFolder and DataFolder are made and set (with trailing "/").
class FreshProcess : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  // The run state, by the name the program uses (the test framework has a
  // Run of its own, which this hides inside fixtures).
  static RunState& Run() { return ::corvalin::Run(); }

  // Puts a help page under HOME and makes it the program's help file, so
  // that Help has a file to open; gives its path.
  std::string PlaceHelpFile();

  std::filesystem::path home;  // the temporary HOME
  ScriptedToolkit ui;
};

// Back to the state of a fresh process: what exists in the program under test
// (the logic alone, or the screens over it).
void ResetForTest();

// A fresh process whose Data folder holds a new copy of the installed empty
// working table as TFT.mdb (not yet opened); the database is closed and the
// table's row set dropped after each test.
class WorkingTable : public FreshProcess {
 protected:
  void SetUp() override;
  void TearDown() override;

  // Runs a statement on the working table.
  static void Exec(const std::string& statement);
  // A new row set of the working table's rows that have this line number.
  static std::shared_ptr<Recordset> RowOfLine(int line);
};

// Puts a new copy of the installed empty working table in the Data folder as
// TFT.mdb, replacing the one there, and gives its path.
std::filesystem::path PutEmptyWorkingTable();

// The number of the run-time error the action raises, or 0 when it raises
// none.
int ErrorNumberRaisedBy(const std::function<void()>& action);

// The exit status the action ends the process with; none when the process
// goes on.
std::optional<int> ExitStatusOf(const std::function<void()>& action);

std::string ReadFile(const std::filesystem::path& path);
void WriteFile(const std::filesystem::path& path, const std::string& bytes);
// The source tree, the build tree, and ../shared/data.
std::filesystem::path SourceDir();
std::filesystem::path BinaryDir();
std::filesystem::path SharedDataDir();

}  // namespace corvalin::testing
