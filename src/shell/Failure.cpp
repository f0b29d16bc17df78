#include "shell/Failure.h"

#include <cstdio>
#include <iostream>
#include <new>
#include <stdexcept>

#include "shell/RunState.h"
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

void WriteResult(const std::string& text) {
  const std::string path = Run().WorkFolder + ResultFileName;
  std::FILE* file = std::fopen(path.c_str(), "wb");
  bool ok = file != nullptr;
  if (ok) {
    const std::string line = text + "\r\n";
    ok = std::fwrite(line.data(), 1, line.size(), file) == line.size();
    ok = (std::fclose(file) == 0) && ok;
  }
  if (!ok) {
    UI().Message({"COMMAND LINE MODE FAILURE - CAN'T WRITE TO RESULT FILE.", Buttons::OK, Icon::None, "", 1});
    return;
  }
  UI().EndProcess(text == ResultSuccess ? 0 : 1);
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
  try {
    routine();
  } catch (const std::exception& error) {
    ReportEventError(AsRuntimeError(error));
  }
}

}  // namespace corvalin
