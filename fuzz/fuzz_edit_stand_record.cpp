// EditStandRecord on any stand list line, under any variant: a line of no
// known record type is refused with its message and opens nothing; any other
// line opens the dialog on its record's tab, and Ok either writes a line of
// that record type into the selected line of the list, or shows the first
// fault and leaves the list as it was. A line the dialog wrote from a line
// without quotes, opened and confirmed again, is written back unchanged (a
// quoted token may hold blanks, and a code with a blank in front is stored
// with it, so a quoted line may change once more).
#include <fuzzer/FuzzedDataProvider.h>

#include <cctype>
#include <cstddef>
#include <cstdint>
#include <string>

#include "FuzzSupport.h"
#include "columns/Vocabulary.h"
#include "screens/Application.h"
#include "screens/ProcessState.h"
#include "screens/frmSlf.h"
#include "screens/frmSlfRecord.h"
#include "screens/frmTemplate.h"
#include "shell/RunState.h"
#include "standlist/StandLevelFile.h"
#include "standlist/VariantTables.h"

using namespace corvalin;
using fuzz::Require;

namespace {

fuzz::QuietToolkit& DialogToolkit() {
  static fuzz::QuietToolkit toolkit;
  return toolkit;
}

struct Outcome {
  bool opened = false;
  std::string line;  // the selected line of the list afterwards
};

// A fresh process with the stand list screen showing this one line under
// the variant; the line is opened and Ok pressed.
Outcome OpenAndConfirm(const std::string& variant, const std::string& line) {
  ResetProcessState();
  DialogToolkit().boxes.clear();
  SetToolkit(&DialogToolkit());
  Run().WorkFolder = fuzz::ScratchHome() + "Work/";
  Run().DataFolder = fuzz::ScratchHome() + "Data/";
  App().Template();
  frmSlf& slf = App().Slf();
  slf.cmbVariant.Text = variant;
  slf.lstSlf.Items = {line};
  slf.lstSlf.Select(0);
  App().UnloadSlfRecord();
  DialogToolkit().boxes.clear();

  Outcome outcome;
  DialogToolkit().answerModal = [&](ModalWindow& window) {
    outcome.opened = true;
    dynamic_cast<frmSlfRecord&>(window).cmdOk_Click();
  };
  EditStandRecord(line);
  DialogToolkit().answerModal = nullptr;
  const ListControl& list = App().Slf().lstSlf;
  Require(list.Items.size() == 1 && list.ListIndex == 0, "the list lost its line or its selection");
  outcome.line = list.Items[0];
  return outcome;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  FuzzedDataProvider in(data, size);
  const std::string variant = VariantNames()[in.ConsumeIntegralInRange<std::size_t>(0, kVariantCount - 1)];
  const std::string line = in.ConsumeRemainingBytesAsString();
  const char type = line.empty() ? '\0' : static_cast<char>(std::toupper(static_cast<unsigned char>(line[0])));

  const Outcome first = OpenAndConfirm(variant, line);
  if (type < 'A' || type > 'D') {
    Require(!first.opened && first.line == line, "a line of no known type opened the dialog or changed");
    Require(DialogToolkit().boxes.size() == 1 && DialogToolkit().boxes[0] == InvalidSlfRecordMessage,
            "a line of no known type was not refused with its message");
    return 0;
  }
  Require(first.opened, "a record line did not open the dialog");
  const bool refused = !DialogToolkit().boxes.empty();
  if (refused) {
    Require(first.line == line, "a refused record changed the list");
    return 0;
  }
  Require(!first.line.empty() && first.line[0] == type, "Ok wrote a line of another record type");

  if (line.find('"') != std::string::npos) return 0;
  const Outcome again = OpenAndConfirm(variant, first.line);
  Require(DialogToolkit().boxes.empty(), "a line the dialog wrote was refused when confirmed again");
  Require(again.line == first.line, "a line the dialog wrote changed when confirmed again");
  return 0;
}
