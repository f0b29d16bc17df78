// The whole unattended run, in this process, on a fuzzed input file with one
// fixed template, fuzz/templates/unattended.cnv: the installed "lolo" one
// with its exclusions and species codes but one plot number of 22, and an
// exclusion of comment lines, so that a run reads a short template. The run
// goes through the start sequence, the column format, the load and the
// template's commands, the grid, validation and the translation. Any
// input ends the run with "TRANSLATION SUCCESSFUL" and status 0 and a tree
// list of whole 59-character records; or with status 1 and either
// "FAILED: Invalid format." and no output file, or "Untrapped error.", the
// batch run's word for a fault validation reports. Nothing else comes out of
// it, and no box.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>

#include "FuzzSupport.h"
#include "screens/BatchRun.h"
#include "screens/ProcessState.h"
#include "screens/frmMain.h"
#include "shell/Error.h"
#include "shell/Failure.h"
#include "shell/Process.h"
#include "shell/RunState.h"
#include "translation/TreeRecord.h"

using namespace corvalin;
using fuzz::Require;

namespace {

fuzz::QuietToolkit& RunToolkit() {
  static fuzz::QuietToolkit toolkit;
  return toolkit;
}

// The exit status of one run, or -1 when it came back without ending. The
// start sequence moves to the program's folder; the fuzzer's own folder is
// given back, so that its findings land where it was started.
int RunUnattended(const std::string& commandLine) {
  static const std::filesystem::path fuzzerFolder = std::filesystem::current_path();
  struct BackToFuzzerFolder {
    ~BackToFuzzerFolder() { std::filesystem::current_path(fuzzerFolder); }
  } back;
  ResetProcessState();
  RunToolkit().boxes.clear();
  SetToolkit(&RunToolkit());
  SetStartFolder(fuzz::ScratchHome());
  SetCommandLine(commandLine);
  MainForm().ContinueBatchRun = ContinueBatchRun;
  try {
    MainForm().Form_Load();
  } catch (const ProcessEnded& ended) {
    return ended.exitCode;
  }
  return -1;
}

void ReportBoxes() {
  for (const std::string& text : RunToolkit().boxes) std::fprintf(stderr, "box: %s\n", text.c_str());
}

// Whole records of the imperial form, each ended by CR LF.
bool WholeRecords(const std::string& list, std::size_t lines) {
  const std::size_t record = static_cast<std::size_t>(kUsRecordLength) + 2;
  if (list.size() % record != 0 || list.size() / record > lines) return false;
  for (std::size_t at = 0; at < list.size(); at += record) {
    const std::string_view line = std::string_view(list).substr(at, record);
    if (line.substr(kUsRecordLength) != "\r\n") return false;
    if (line.substr(0, kUsRecordLength).find_first_of("\r\n") != std::string_view::npos) return false;
  }
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  const std::string home = fuzz::ScratchHome();
  // The first start in a new HOME asks for the Data and Work folders (and
  // puts the installed templates in Work); every later start asks nothing.
  static const int firstStart = RunUnattended(home + "none.csv " + home + "none.tre lolo");
  static const bool templatePut = std::filesystem::copy_file(
      CORVALIN_FUZZ_SOURCE_DIR "/templates/unattended.cnv", Run().WorkFolder + "unattended.cnv",
      std::filesystem::copy_options::overwrite_existing);
  (void)firstStart;
  (void)templatePut;
  const std::string input = home + "trees.csv";
  const std::string output = home + "trees.tre";
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  fuzz::WriteBytes(input, bytes);
  std::remove(output.c_str());

  const int status = RunUnattended(input + " " + output + " unattended");
  if (status == -1) ReportBoxes();
  Require(status == 0 || status == 1, "the run came back without ending, or ended with another status");
  const std::string result = fuzz::ReadBytes(Run().WorkFolder + ResultFileName);
  const bool invalidFormat = result == "FAILED: Invalid format.\r\n";
  if (result != std::string(ResultSuccess) + "\r\n" && !invalidFormat && result != "Untrapped error.\r\n") {
    std::fprintf(stderr, "result.txt: %s\n", result.c_str());
    ReportBoxes();
    Require(false, "the run ended with a result other than success, an invalid format or a fault");
  }
  Require((status == 0) == (result == std::string(ResultSuccess) + "\r\n"), "the status does not match the result");
  if (!RunToolkit().boxes.empty()) ReportBoxes();
  Require(RunToolkit().boxes.empty(), "the run showed a box");

  std::size_t lines = 1;
  for (char ch : bytes) lines += (ch == '\n' || ch == '\r') ? 1 : 0;
  if (status == 0) {
    Require(WholeRecords(fuzz::ReadBytes(output), lines), "the tree list is not whole imperial records");
  } else if (invalidFormat) {
    Require(!std::filesystem::exists(output), "a run that found an invalid format left its output file");
  }
  return 0;
}
