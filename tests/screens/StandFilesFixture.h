// The setup of the stand list and location editor tests: a first screen that
// edits files only (or translates too), with its stand list and location
// file labels set, and scripts for the record dialogs that the editors open
// modally.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "TestSupport.h"
#include "screens/Application.h"
#include "screens/frmLocation.h"
#include "screens/frmLocationRecord.h"
#include "screens/frmSlf.h"
#include "screens/frmSlfRecord.h"
#include "screens/frmTemplate.h"
#include "shell/Settings.h"

namespace corvalin::testing {

// The lines joined as the editors write them: each followed by CR LF.
inline std::string CrLfLines(const std::vector<std::string>& lines) {
  std::string bytes;
  for (const std::string& line : lines) bytes += line + "\r\n";
  return bytes;
}

struct ButtonStates {
  bool up, down, edit, del;
  bool operator==(const ButtonStates&) const = default;
};

inline void PrintTo(const ButtonStates& s, std::ostream* os) {
  *os << "{up " << s.up << ", down " << s.down << ", edit " << s.edit << ", delete " << s.del << "}";
}

// The button states the list's click gives, by where the selection stands.
constexpr ButtonStates kAllOff{false, false, false, false};
constexpr ButtonStates kOnlyLine{false, false, true, true};
constexpr ButtonStates kFirstOfMore{false, true, true, true};
constexpr ButtonStates kLast{true, false, true, true};
constexpr ButtonStates kMiddle{true, true, true, true};

inline ButtonStates StatesOf(const RecordLineButtons& buttons) {
  return {buttons.up.Enabled, buttons.down.Enabled, buttons.edit.Enabled, buttons.del.Enabled};
}

// The wizard stepped from one screen to the next: the next is shown where the
// first stood, the first is hidden, and the busy pointer is back to normal.
inline void ExpectHandedOver(const Screen& from, const Screen& to, int left, int top, bool busyPointer) {
  EXPECT_TRUE(to.Visible());
  EXPECT_EQ(to.Left, left);
  EXPECT_EQ(to.Top, top);
  EXPECT_FALSE(from.Visible());
  EXPECT_FALSE(busyPointer);
}

template <class Fixture>
class StandFilesBase : public Fixture {
 protected:
  void SetUp() override {
    Fixture::SetUp();
    slfPath = (this->home / "stands.slf").string();
    locPath = (this->home / "places.loc").string();
  }

  // The first screen with only "Edit Marlowyn Files" ticked and the two
  // file labels set.
  frmTemplate& EditOnly() {
    frmTemplate& setup = App().Template();
    setup.chkTranslateFile.Value = 0;
    setup.chkTranslateFile_Click();
    setup.chkEditStandListFile.Value = 1;
    setup.chkEditStandListFile_Click();
    setup.lblSlfFile.SetCaption(slfPath);
    setup.lblLocationsFile.SetCaption(locPath);
    return setup;
  }

  static void SetVariantSetting(const std::string& variant) {
    SaveSetting(SettingsApplication, "Corvalin", "OrvanVariant", variant);
  }

  // Each dialog the editors open runs this script.
  void OnStandRecordDialog(std::function<void(frmSlfRecord&)> script) {
    this->ui.template AnswerEveryDialog<frmSlfRecord>(std::move(script));
  }
  void OnLocationRecordDialog(std::function<void(frmLocationRecord&)> script) {
    this->ui.template AnswerEveryDialog<frmLocationRecord>(std::move(script));
  }

  std::string slfPath;
  std::string locPath;
};

using StandFiles = StandFilesBase<FreshProcess>;
// With a working table in the Data folder, for the paths through the grid
// screen.
using StandFilesWithTable = StandFilesBase<WorkingTable>;

}  // namespace corvalin::testing
