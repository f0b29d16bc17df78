#include "shell/Failure.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <iostream>
#include <new>
#include <stdexcept>

#include "shell/EventScope.h"
#include "shell/RunState.h"
#include "shell/ScratchFiles.h"
#include "shell/Settings.h"
#include "shell/Toolkit.h"

namespace corvalin {

void ShowMessage(const std::string& text) {
  if (Run().CommandLineMode) {
    // A calling program's log says why the run failed; result.txt says only
    // "Untrapped error.".
    std::cerr << text << "\n";
    std::cerr.flush();
    WriteResult("Untrapped error.");
    return;
  }
  UI().Message({text, Buttons::OK, Icon::None, "", 1});
}

namespace {

// Puts the line in the result file whole. It is written to a file of this
// run's own beside it, which then takes the result file's name: a calling
// program never reads a half-written line, and of runs ending at the same
// moment one whole line is left, never a mix. A result file that the run
// may not write keeps its line, as a file written in place would.
bool ReplaceResultFile(const std::string& path, const std::string& line) {
  if (::access(path.c_str(), F_OK) == 0 && ::access(path.c_str(), W_OK) != 0) return false;
  std::string scratch = path + ".XXXXXX";
  const int fd = ::mkstemp(scratch.data());
  if (fd < 0) return false;
  RemoveWhenProcessEnds(scratch);
  // Readable as a file the run had created itself.
  const mode_t mask = ::umask(0);
  ::umask(mask);
  bool ok = ::fchmod(fd, 0666 & ~mask) == 0;
  ok = ok && ::write(fd, line.data(), line.size()) == static_cast<ssize_t>(line.size());
  ok = (::close(fd) == 0) && ok;
  ok = ok && std::rename(scratch.c_str(), path.c_str()) == 0;
  if (!ok) ::unlink(scratch.c_str());
  KeepWhenProcessEnds(scratch);
  return ok;
}

}  // namespace

void WriteResult(const std::string& text) {
  const std::string path = Run().WorkFolder + ResultFileName;
  const bool ok = ReplaceResultFile(path, text + "\r\n");
  if (!ok) {
    UI().Message({"COMMAND LINE MODE FAILURE - CAN'T WRITE TO RESULT FILE.", Buttons::OK, Icon::None, "", 1});
    return;
  }
  // A box on the way (a template command that could not be read, say) may
  // have cost the tree list some of its work: the status says so, while the
  // line says what became of the translation.
  UI().EndProcess(text == ResultSuccess && !Run().EventFailureReported ? 0 : 1);
}

void Assert(bool condition) {
  if (condition) return;
  if (Run().CommandLineMode) {
    WriteResult("Assertion failure.");
    return;
  }
  ShowMessage("Assertion failure!");
  EndProgram();
}

void EndProgram() {
  if (Run().CommandLineMode) {
    WriteResult("EndProgram()");
    return;
  }
  UI().EndProcess(0);
}

void ConfirmQuit() {
  const Answer answer = UI().Message({"Do you really want to quit?", Buttons::YesNo, Icon::Question, "", 1});
  if (answer != Answer::Yes) return;
  ClearSavedColumnHeaders();
  EndProgram();
}

void ClearSavedColumnHeaders() {
  for (int n = 1; n <= 30; ++n) {
    const std::string header = "ColumnHeader" + std::to_string(n);
    if (GetSetting(SettingsApplication, "Corvalin", header, "? column") != "? column") {
      SaveSetting(SettingsApplication, "Corvalin", header, "? column");
      SaveSetting(SettingsApplication, "Corvalin", "ColumnUnits" + std::to_string(n), "? units");
    }
  }
}

void ReportEventError(const RuntimeError& error) {
  Run().EventFailureReported = true;
  UI().Message({error.ReportText(), Buttons::OK, Icon::Exclamation, "", 1});
}

RuntimeError AsRuntimeError(const std::exception& error) {
  if (const auto* runtime = dynamic_cast<const RuntimeError*>(&error)) return *runtime;
  if (dynamic_cast<const std::out_of_range*>(&error) != nullptr) return RuntimeError(err::SubscriptOutOfRange);
  if (dynamic_cast<const std::invalid_argument*>(&error) != nullptr) return RuntimeError(err::TypeMismatch);
  if (dynamic_cast<const std::bad_alloc*>(&error) != nullptr) return RuntimeError(7, "Corvalin", "Out of memory");
  return RuntimeError(err::InvalidProcedureCall, "Corvalin", error.what());
}

void RunEvent(const std::function<void()>& routine) {
  EventScope scope;
  try {
    routine();
  } catch (const std::exception& error) {
    ReportEventError(AsRuntimeError(error));
  }
}

void RunUnhandledEvent(const std::function<void()>& routine) {
  EventScope scope;
  try {
    routine();
  } catch (const std::exception& error) {
    Run().EventFailureReported = true;
    UI().Message({AsRuntimeError(error).ReportText(), Buttons::OK, Icon::Critical, "", 1});
    EndProgram();
  }
}

std::string ReporterText(const std::string& heading, const RuntimeError& error) {
  return heading + "Module = " + Run().CurrentScreen + "\r\n" + std::to_string(error.number()) + ": " +
         error.description();
}

void ReportNamedFailure(const std::string& heading, const RuntimeError& error) {
  ShowMessage(ReporterText(heading, error));
}

std::string PrepareDatabaseReportText(const RuntimeError& error) {
  return "Error preparing database\r\n" + std::to_string(error.number()) + " - '" + error.description() +
         "'\r\nLine: " + Run().TraceStep;
}

std::string FormErrorText(const std::string& formName, const RuntimeError& error) {
  return "Error in form: " + formName + "\r\n" + std::to_string(error.number()) + ": " + error.description();
}

void ReportFormError(const std::string& formName, const RuntimeError& error) {
  UI().Message({FormErrorText(formName, error), Buttons::OK, Icon::None, "", 1});
}

RuntimeError WithSourceInFront(const std::exception& error, const std::string& trail) {
  RuntimeError e = AsRuntimeError(error);
  e.set_source(trail + e.source());
  return e;
}

RuntimeError WithSourceBehind(const std::exception& error, const std::string& trail) {
  RuntimeError e = AsRuntimeError(error);
  e.set_source(e.source() + trail);
  return e;
}

}  // namespace corvalin
