// frmSlf, the stand list editor: its load (variant, file, current stand),
// the list buttons, the record dialog opened for new and existing lines,
// validation, saving, and the ways on and back.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "StandFilesFixture.h"
#include "TestSupport.h"
#include "screens/Application.h"
#include "screens/frmHeaders.h"
#include "screens/frmLocation.h"
#include "screens/frmSlf.h"
#include "screens/frmSlfRecord.h"
#include "screens/frmTemplate.h"
#include "shell/Error.h"
#include "shell/RunState.h"

namespace corvalin {
namespace {

namespace fs = std::filesystem;
using testing::ButtonStates;
using testing::CrLfLines;
using testing::ErrorNumberRaisedBy;
using testing::ExitStatusOf;
using testing::ReadFile;
using testing::StandFiles;
using testing::StandFilesWithTable;
using testing::StatesOf;
using testing::WriteFile;

using testing::kAllOff;
using testing::kFirstOfMore;
using testing::kLast;
using testing::kMiddle;
using testing::kOnlyLine;

const std::vector<std::string> kOneStand = {
    "A st1 trees\\st1.tre WithPointData bc @",
    "B st1 1995 50.5 119.5 106  @ 1950 180 20 45 @ 10 @ 5 0 1 100 0 10 0 10 10 @ @ fd 22",
    "C st1 thin1 thin2 @",
    "D st1 keys\\thin.key @",
};

class SlfScreen : public StandFiles {
 protected:
  // A stand list file of these lines, the first screen set to edit it, and
  // the editor loaded.
  frmSlf& LoadWith(const std::vector<std::string>& lines) {
    WriteFile(slfPath, CrLfLines(lines));
    EditOnly();
    return App().Slf();
  }
  static ButtonStates Buttons(frmSlf& slf) { return StatesOf(slf.LineButtons()); }
  // A person's click on a line.
  static void ClickLine(frmSlf& slf, int index) {
    slf.lstSlf.Select(index);
    slf.lstSlf_Click();
  }
};

// ---------------------------------------------------------------- load

TEST_F(SlfScreen, LoadSetsTheCaptionTheSavedFlagAndTheFifteenVariantRows) {
  frmSlf& slf = LoadWith(kOneStand);
  EXPECT_EQ(slf.Caption, "Corvalin - Edit Stand List File");
  EXPECT_TRUE(Run().StandListSaved);
  EXPECT_EQ(slf.cmbVariant.Items, (std::vector<std::string>{"AK", "BC", "BH", "BM", "CI", "EC", "EM", "NC", "NI",
                                                            "SO", "SW", "TT", "UT", "WS", "KT"}));
  EXPECT_FALSE(slf.cmdHelp.Visible);
  EXPECT_FALSE(slf.cmdHelp.Enabled);
  EXPECT_EQ(slf.cmbNext.Caption, "Next >>");
  EXPECT_EQ(slf.cmdBack.Caption, "<< Back");
}

TEST_F(SlfScreen, DefaultVariantSettingSelectsBcAndLoadsTheRecordDialogHiddenWithItsLocationRows) {
  frmSlf& slf = LoadWith(kOneStand);
  EXPECT_EQ(slf.cmbVariant.ListIndex, 1);
  EXPECT_EQ(slf.cmbVariant.Text, "BC");
  EXPECT_EQ(Run().OrvanVariant, "BC");
  EXPECT_TRUE(ui.Texts().empty());
  // The variant's click filled the dialog's lists, which loaded it before
  // any line of the file was read: its code combos are empty, and its own
  // load and the click each added the variant's location rows.
  ASSERT_TRUE(App().SlfRecordLoaded());
  EXPECT_FALSE(App().SlfRecord().Visible());
  EXPECT_EQ(App().SlfRecord().cmbLocation.Items,
            (std::vector<std::string>{"106 : Southern Interior", "106 : Southern Interior"}));
  EXPECT_TRUE(App().SlfRecord().cmbStandIdentificationCode1.Items.empty());
  // The dialog's load was the last to name the current screen.
  EXPECT_EQ(Run().CurrentScreen, "SlfRecord");
}

TEST_F(SlfScreen, VariantSettingIsMatchedFromTheSecondRowOn) {
  SetVariantSetting("KT");
  frmSlf& slf = LoadWith(kOneStand);
  EXPECT_EQ(slf.cmbVariant.ListIndex, 14);
  EXPECT_EQ(slf.cmbVariant.Text, "KT");
  EXPECT_TRUE(ui.Texts().empty());
}

TEST_F(SlfScreen, AkSettingIsNeverFoundSoTheVariantStaysBlankAndTheLabelsImperial) {
  SetVariantSetting("AK");
  frmSlf& slf = LoadWith(kOneStand);
  EXPECT_EQ(ui.Texts(), (std::vector<std::string>{"Unknown Orvan Variant specified: AK"}));
  EXPECT_EQ(slf.cmbVariant.ListIndex, -1);
  EXPECT_EQ(slf.cmbVariant.Text, "");
  EXPECT_EQ(Run().OrvanVariant, "AK");
  // No variant was set, so nothing loaded the dialog.
  EXPECT_FALSE(App().SlfRecordLoaded());
  EXPECT_EQ(Run().CurrentScreen, "Slf");

  std::string elevation, siteIndex;
  OnStandRecordDialog([&](frmSlfRecord& d) {
    elevation = d.lblElevation.Caption;
    siteIndex = d.lblSiteIndex.Caption;
  });
  slf.cmdInsertA_Click();
  EXPECT_EQ(elevation, "Elevation (ft x 100):");
  EXPECT_EQ(siteIndex, "Site index (ft):");
}

TEST_F(SlfScreen, UnknownVariantSettingIsNamedInTheMessage) {
  SetVariantSetting("bc");
  frmSlf& slf = LoadWith(kOneStand);
  EXPECT_EQ(ui.Texts(), (std::vector<std::string>{"Unknown Orvan Variant specified: bc"}));
  EXPECT_EQ(slf.cmbVariant.ListIndex, -1);
}

TEST_F(SlfScreen, EmptyVariantSettingMeetsTheRowPastTheLastAndFailsTheLoad) {
  SetVariantSetting("");
  WriteFile(slfPath, CrLfLines(kOneStand));
  EditOnly();
  EXPECT_EQ(ErrorNumberRaisedBy([] { App().Slf(); }), 380);
}

TEST_F(SlfScreen, MissingFileGivesAnEmptyListWithoutMessageAndOnlyTheInsertButtonsOn) {
  EditOnly();
  frmSlf& slf = App().Slf();
  EXPECT_TRUE(slf.lstSlf.Items.empty());
  EXPECT_EQ(slf.lstSlf.ListIndex, -1);
  EXPECT_TRUE(ui.Texts().empty());
  EXPECT_EQ(Buttons(slf), kAllOff);
  EXPECT_TRUE(slf.cmdInsertA.Enabled);
  EXPECT_TRUE(slf.cmdInsertB.Enabled);
  EXPECT_TRUE(slf.cmdInsertC.Enabled);
  EXPECT_TRUE(slf.cmdInsertD.Enabled);
  EXPECT_FALSE(fs::exists(slfPath));
}

TEST_F(SlfScreen, EmptyFileGivesAnEmptyListAndInsertAAddsAtTheEnd) {
  frmSlf& slf = LoadWith({});
  EXPECT_TRUE(slf.lstSlf.Items.empty());
  EXPECT_EQ(Buttons(slf), kAllOff);
  std::vector<std::string> whileOpen;
  int selectedWhileOpen = -2;
  OnStandRecordDialog([&](frmSlfRecord&) {
    whileOpen = slf.lstSlf.Items;
    selectedWhileOpen = slf.lstSlf.ListIndex;
  });
  slf.cmdInsertA_Click();
  EXPECT_EQ(whileOpen, (std::vector<std::string>{" *** new record A *** "}));
  EXPECT_EQ(selectedWhileOpen, 0);
}

TEST_F(SlfScreen, WithNoStandOfTheOutputFileTheFirstLineIsSelected) {
  frmSlf& slf = LoadWith(kOneStand);
  EXPECT_EQ(slf.lstSlf.Items, kOneStand);
  EXPECT_EQ(slf.lstSlf.ListIndex, 0);
  EXPECT_EQ(Buttons(slf), kFirstOfMore);
}

TEST_F(SlfScreen, RecordAOfTheTranslationsOutputFileIsSelectedRegardlessOfCase) {
  WriteFile(slfPath, CrLfLines({"A st1 /data/one.tre WithPointData @", "B st1 @", "a st2 /data/two.tre NoPointData @",
                                "A st2 /data/two.tre NoPointData @", "B st2 @", "A st3 /data/two.tre NoPointData @"}));
  frmTemplate& setup = EditOnly();
  setup.lblOutputFile.SetCaption("/DATA/Two.TRE");
  frmSlf& slf = App().Slf();
  // The line that begins with a lower-case a is passed over; of the two
  // others the first is taken.
  EXPECT_EQ(slf.lstSlf.ListIndex, 3);
  EXPECT_EQ(Buttons(slf), kMiddle);
}

TEST_F(SlfScreen, OutputFileInsideTheWorkingDirectoryIsMatchedByItsShortPath) {
  WriteFile(slfPath, CrLfLines({"A st1 /data/one.tre WithPointData @", "B st1 @", "A st2 trees/two.tre NoPointData @",
                                "B st2 @"}));
  frmTemplate& setup = EditOnly();
  setup.lblWorkingDirectory.SetCaption("/data/");
  setup.lblOutputFile.SetCaption("/data/Trees/Two.tre");
  EXPECT_EQ(App().Slf().lstSlf.ListIndex, 2);
}

TEST_F(SlfScreen, LastLineSelectedOnLoadEnablesUpOnly) {
  WriteFile(slfPath, CrLfLines({"A st1 one.tre WithPointData @", "B st1 @", "A st2 two.tre NoPointData @"}));
  EditOnly().lblOutputFile.SetCaption("two.tre");
  frmSlf& slf = App().Slf();
  EXPECT_EQ(slf.lstSlf.ListIndex, 2);
  EXPECT_EQ(Buttons(slf), kLast);
}

TEST_F(SlfScreen, ASingleLineEnablesEditAndDeleteOnly) {
  frmSlf& slf = LoadWith({"A st1 one.tre WithPointData @"});
  EXPECT_EQ(slf.lstSlf.ListIndex, 0);
  EXPECT_EQ(Buttons(slf), kOnlyLine);
}

// A file of every kind of line the rules refuse, with mixed line ends, is
// shown as it stands and goes back to the file line for line with CR LF.
const std::string kLongLine = "C st5 " + std::string(40000, 'x') + " @";
const std::string kBinaryLine = std::string("D st5 \x00\xff.key @", 14);
const std::vector<std::string> kEveryWrongKind = {
    "B st0 first @",
    "A st1 trees\\st1.tre WithPointData bc @",
    "B st2 1995 @",
    "C st3 g1 @",
    "D st4 k.key @",
    "C st1 late @",
    "A st5 x.tre NoPointData @",
    "",
    "B st5 2000 @",
    kLongLine,
    kBinaryLine,
    "E st5 unknown @",
    "A st9 z.tre NoPointData @",
    "B st9 1 @",
    "a st10 lower.tre NoPointData @",
    "A st11 last.tre NoPointData @",
};

std::string EveryWrongKindFileBytes() {
  // CR LF, CR alone and LF alone, and no line end behind the last line.
  const char* ends[] = {"\r\n", "\r", "\n"};
  std::string bytes;
  for (std::size_t i = 0; i < kEveryWrongKind.size(); ++i) {
    bytes += kEveryWrongKind[i];
    if (i + 1 < kEveryWrongKind.size()) bytes += ends[i % 3];
  }
  return bytes;
}

TEST_F(SlfScreen, FileOfEveryWrongKindIsShownAsItStandsAndWrittenBackWithCrLf) {
  WriteFile(slfPath, EveryWrongKindFileBytes());
  EditOnly();
  frmSlf& slf = App().Slf();
  ASSERT_EQ(slf.lstSlf.Items, kEveryWrongKind);
  EXPECT_EQ(slf.lstSlf.Items[9].size(), 40008u);
  EXPECT_EQ(slf.lstSlf.Items[10].size(), 14u);
  WriteStandListFile();
  EXPECT_EQ(ReadFile(slfPath), CrLfLines(kEveryWrongKind));
  EXPECT_TRUE(Run().StandListSaved);
  EXPECT_TRUE(ui.Texts().empty());
}

TEST_F(SlfScreen, EachValidationOfAFileOfEveryWrongKindReportsUpToItsFirstFaultOfOrder) {
  WriteFile(slfPath, EveryWrongKindFileBytes());
  EditOnly();
  frmSlf& slf = App().Slf();
  const std::vector<std::string> codeFaults = {"Record B should have same Stand Id as record A above.",
                                               "Record C should have same Stand Id as record A above.",
                                               "Record D should have same Stand Id as record A above."};
  const auto validateAndExpect = [&](const std::string& last, int selection, ButtonStates buttons,
                                     bool withCodeFaults = true) {
    ui.boxes.clear();
    slf.cmdValidate_Click();
    std::vector<std::string> expected = withCodeFaults ? codeFaults : std::vector<std::string>{};
    expected.push_back(last);
    EXPECT_EQ(ui.Texts(), expected) << last;
    EXPECT_EQ(slf.lstSlf.ListIndex, selection) << last;
    EXPECT_EQ(Buttons(slf), buttons) << last;
  };

  // A B first.
  validateAndExpect("First record must be of type A.", 0, kFirstOfMore, false);
  slf.cmdDelete_Click();
  // Three wrong codes carry on; a C behind a D stops, and the selection stays
  // on the last wrong code.
  ClickLine(slf, 6);
  validateAndExpect("Record of type C must follow a record of type B or C.", 3, kMiddle);
  ClickLine(slf, 4);
  slf.cmdDelete_Click();
  // A blank line where a B should be.
  validateAndExpect("Record of type A must be followed by record of type B.", 5, kMiddle);
  slf.cmdDelete_Click();
  // The line of 40,000 characters and the line with bytes 0 and 255 are a
  // good C and a good D; an unknown letter behind a D stops without moving
  // the selection.
  ClickLine(slf, 0);
  validateAndExpect("Record of type C must follow a record of type B or C.", 3, kMiddle);
  ClickLine(slf, 8);
  slf.cmdDelete_Click();
  // A record A in lower case is of no known type.
  validateAndExpect("Record of type B must follow a record of type A.", 10, kMiddle);
  slf.cmdDelete_Click();
  // The list ends behind an A.
  validateAndExpect("Record of type B must follow a record of type A.", 10, kLast);
  EXPECT_EQ(slf.lstSlf.Items[10], "A st11 last.tre NoPointData @");
  EXPECT_FALSE(Run().StandListSaved);
  // Nothing of it was written.
  EXPECT_EQ(ReadFile(slfPath), EveryWrongKindFileBytes());
}

TEST_F(SlfScreen, ValidListSaysValidatedAndKeepsTheSelection) {
  frmSlf& slf = LoadWith(kOneStand);
  ClickLine(slf, 2);
  slf.cmdValidate_Click();
  EXPECT_EQ(ui.Texts(), (std::vector<std::string>{"Stand List File data validated."}));
  EXPECT_EQ(slf.lstSlf.ListIndex, 2);
}

TEST_F(SlfScreen, EmptyListValidatesAndSavesAnEmptyFile) {
  frmSlf& slf = LoadWith({});
  slf.cmdValidate_Click();
  slf.cmdSave_Click();
  EXPECT_EQ(ui.Texts(), (std::vector<std::string>{"Stand List File data validated.", "Stand List File saved."}));
  EXPECT_EQ(ReadFile(slfPath), "");
}

// ---------------------------------------------------------------- records

TEST_F(SlfScreen, InsertAOpensTheDialogOnTabAWithTheOutputFileAndOkPutsTheLineInPlaceOfThePlaceholder) {
  WriteFile(slfPath, CrLfLines(kOneStand));
  EditOnly().lblOutputFile.SetCaption("/Stands/Trees.TRE");
  frmSlf& slf = App().Slf();
  ClickLine(slf, 3);
  std::vector<bool> tabs;
  int activeTab = -1;
  std::string treeDataSet;
  std::string placeholder;
  bool busyWhileOpen = true;
  OnStandRecordDialog([&](frmSlfRecord& d) {
    tabs = d.tabSlfRecords.TabEnabled;
    activeTab = d.tabSlfRecords.Tab;
    treeDataSet = d.lblTreeDataSet.Caption;
    placeholder = slf.lstSlf.Items[4];
    busyWhileOpen = ui.busyPointer;
    d.cmbStandIdentificationCode1.Text = "St2";
    d.cmdOk_Click();
  });
  slf.cmdInsertA_Click();
  EXPECT_EQ(tabs, (std::vector<bool>{true, false, false, false}));
  EXPECT_EQ(activeTab, 0);
  EXPECT_EQ(treeDataSet, "/Stands/Trees.TRE");
  EXPECT_EQ(placeholder, " *** new record A *** ");
  EXPECT_FALSE(busyWhileOpen);
  ASSERT_EQ(slf.lstSlf.ListCount(), 5);
  EXPECT_EQ(slf.lstSlf.Items[4], "A st2 /stands/trees.tre WithPointData @");
  EXPECT_EQ(slf.lstSlf.ListIndex, 4);
  EXPECT_EQ(Buttons(slf), kLast);
  EXPECT_FALSE(Run().StandListSaved);
  EXPECT_FALSE(App().SlfRecordLoaded());
}

TEST_F(SlfScreen, InsertBCAndDOfferTheCodeOfTheLineAboveOnTheirOwnTab) {
  frmSlf& slf = LoadWith({"A st7 one.tre WithPointData @", "B st7 @"});
  struct Seen {
    std::vector<bool> tabs;
    int tab;
    std::string code;
  };
  std::vector<Seen> seen;
  OnStandRecordDialog([&](frmSlfRecord& d) {
    seen.push_back({d.tabSlfRecords.TabEnabled, d.tabSlfRecords.Tab,
                    d.tabSlfRecords.Tab == 1   ? d.cmbStandIdentificationCode2.Text
                    : d.tabSlfRecords.Tab == 2 ? d.cmbStandIdentificationCode3.Text
                                               : d.cmbStandIdentificationCode4.Text});
    d.cmdOk_Click();
  });
  ClickLine(slf, 1);
  slf.cmdInsertC_Click();
  slf.cmdInsertD_Click();
  slf.cmdInsertB_Click();
  ASSERT_EQ(seen.size(), 3u);
  EXPECT_EQ(seen[0].tabs, (std::vector<bool>{false, false, true, false}));
  EXPECT_EQ(seen[0].tab, 2);
  EXPECT_EQ(seen[0].code, "st7");
  EXPECT_EQ(seen[1].tabs, (std::vector<bool>{false, false, false, true}));
  EXPECT_EQ(seen[1].tab, 3);
  EXPECT_EQ(seen[1].code, "st7");
  EXPECT_EQ(seen[2].tabs, (std::vector<bool>{false, true, false, false}));
  EXPECT_EQ(seen[2].tab, 1);
  EXPECT_EQ(seen[2].code, "st7");
  // Each new record went in behind the one before; where a B lands is for
  // the validation to judge.
  const std::string blankB = "B st7" + [] {
    std::string marks;
    for (int token = 3; token <= 27; ++token) marks += " @";
    return marks;
  }();
  EXPECT_EQ(slf.lstSlf.Items, (std::vector<std::string>{"A st7 one.tre WithPointData @", "B st7 @", "C st7  @",
                                                         "D st7 @", blankB}));
}

TEST_F(SlfScreen, NewRecordAsTheFirstLineGetsNoCodeOffered) {
  frmSlf& slf = LoadWith({});
  std::string code = "unset";
  OnStandRecordDialog([&](frmSlfRecord& d) { code = d.cmbStandIdentificationCode2.Text; });
  slf.cmdInsertB_Click();
  EXPECT_EQ(code, "");
}

TEST_F(SlfScreen, InsertingBehindTheLastLineAndCancellingSelectsThatLineAgain) {
  frmSlf& slf = LoadWith(kOneStand);
  ClickLine(slf, 3);
  OnStandRecordDialog([](frmSlfRecord& d) { d.cmdCancel_Click(); });
  slf.cmdInsertA_Click();
  EXPECT_EQ(slf.lstSlf.Items, kOneStand);
  EXPECT_EQ(slf.lstSlf.ListIndex, 3);
  EXPECT_EQ(Buttons(slf), kLast);
  EXPECT_TRUE(Run().StandListSaved);
  EXPECT_FALSE(App().SlfRecordLoaded());
}

TEST_F(SlfScreen, DialogLeftOpenEndsAsCancelledAndThePlaceholderGoes) {
  frmSlf& slf = LoadWith(kOneStand);
  ClickLine(slf, 1);
  slf.cmdInsertC_Click();
  EXPECT_EQ(slf.lstSlf.Items, kOneStand);
  EXPECT_EQ(slf.lstSlf.ListIndex, 1);
  EXPECT_EQ(Buttons(slf), kMiddle);
}

TEST_F(SlfScreen, CancellingTheFirstAndOnlyNewRecordLeavesAnEmptyListWithNothingSelected) {
  frmSlf& slf = LoadWith({});
  ButtonStates whileOpen = kAllOff;
  OnStandRecordDialog([&](frmSlfRecord& d) {
    whileOpen = Buttons(slf);
    d.cmdCancel_Click();
  });
  slf.cmdInsertD_Click();
  EXPECT_TRUE(slf.lstSlf.Items.empty());
  EXPECT_EQ(slf.lstSlf.ListIndex, -1);
  // Selecting the new row set the buttons for one line; removing it selects
  // nothing, so no click sets them again.
  EXPECT_EQ(whileOpen, kOnlyLine);
  EXPECT_EQ(Buttons(slf), kOnlyLine);
}

TEST_F(SlfScreen, NewRowWithNothingSelectedGoesToTheEndAndCancellingSelectsTheLineBeforeIt) {
  frmSlf& slf = LoadWith(kOneStand);
  slf.lstSlf.Select(-1);
  slf.lstSlf_Click();
  int placedAt = -1;
  OnStandRecordDialog([&](frmSlfRecord&) { placedAt = slf.lstSlf.ListIndex; });
  slf.cmdInsertA_Click();
  EXPECT_EQ(placedAt, 4);
  EXPECT_EQ(slf.lstSlf.ListIndex, 3);
  EXPECT_EQ(slf.lstSlf.Items, kOneStand);
}

TEST_F(SlfScreen, EditingALineAndCancellingLeavesItAsItWas) {
  frmSlf& slf = LoadWith(kOneStand);
  ClickLine(slf, 2);
  std::string groupCodes;
  std::vector<bool> tabs;
  OnStandRecordDialog([&](frmSlfRecord& d) {
    groupCodes = d.txtGroupCodes.Text;
    tabs = d.tabSlfRecords.TabEnabled;
    d.cmdCancel_Click();
  });
  slf.cmdEdit_Click();
  EXPECT_EQ(groupCodes, "thin1 thin2 ");
  EXPECT_EQ(tabs, (std::vector<bool>{false, false, true, false}));
  EXPECT_EQ(slf.lstSlf.Items, kOneStand);
  EXPECT_TRUE(Run().StandListSaved);
}

TEST_F(SlfScreen, DoubleClickOpensTheSelectedLineAndOkRebuildsIt) {
  frmSlf& slf = LoadWith(kOneStand);
  ClickLine(slf, 2);
  OnStandRecordDialog([](frmSlfRecord& d) { d.cmdOk_Click(); });
  slf.lstSlf_DblClick();
  // The group codes read back end in a blank, so the end mark gets two.
  EXPECT_EQ(slf.lstSlf.Items[2], "C st1 thin1 thin2  @");
  EXPECT_EQ(slf.lstSlf.ListIndex, 2);
  EXPECT_FALSE(Run().StandListSaved);
}

TEST_F(SlfScreen, DoubleClickWithNothingSelectedPassesAnEmptyLine) {
  frmSlf& slf = LoadWith({});
  slf.lstSlf_DblClick();
  EXPECT_EQ(ui.Texts(), (std::vector<std::string>{"Invalid SLF record - should start with 'A', 'B', 'C', or 'D'."}));
  EXPECT_FALSE(App().SlfRecordLoaded() && App().SlfRecord().Visible());
}

TEST_F(SlfScreen, DeleteSelectsTheLineThatTookItsPlaceWithoutAskingAndClearsTheSavedFlag) {
  frmSlf& slf = LoadWith(kOneStand);
  ClickLine(slf, 1);
  slf.cmdDelete_Click();
  EXPECT_EQ(slf.lstSlf.Items, (std::vector<std::string>{kOneStand[0], kOneStand[2], kOneStand[3]}));
  EXPECT_EQ(slf.lstSlf.ListIndex, 1);
  EXPECT_EQ(Buttons(slf), kMiddle);
  EXPECT_FALSE(Run().StandListSaved);
  EXPECT_TRUE(ui.Texts().empty());
}

TEST_F(SlfScreen, DeletingTheLastLineSelectsTheNewLastAndDeletingAllTurnsTheButtonsOff) {
  frmSlf& slf = LoadWith({kOneStand[0], kOneStand[1]});
  ClickLine(slf, 1);
  slf.cmdDelete_Click();
  EXPECT_EQ(slf.lstSlf.ListIndex, 0);
  EXPECT_EQ(Buttons(slf), kOnlyLine);
  slf.cmdDelete_Click();
  EXPECT_TRUE(slf.lstSlf.Items.empty());
  EXPECT_EQ(slf.lstSlf.ListIndex, -1);
  EXPECT_EQ(Buttons(slf), kAllOff);
}

TEST_F(SlfScreen, DeleteWithNothingSelectedIsAnErrorThatNoHandlerCatches) {
  frmSlf& slf = LoadWith({});
  EXPECT_EQ(ErrorNumberRaisedBy([&] { slf.cmdDelete_Click(); }), 5);
  EXPECT_TRUE(ui.Texts().empty());
}

TEST_F(SlfScreen, UpAndDownMoveTheLineAndItsSelectionWithoutCountingAsAChange) {
  frmSlf& slf = LoadWith(kOneStand);
  ClickLine(slf, 1);
  slf.cmdUp_Click();
  EXPECT_EQ(slf.lstSlf.Items[0], kOneStand[1]);
  EXPECT_EQ(slf.lstSlf.Items[1], kOneStand[0]);
  EXPECT_EQ(slf.lstSlf.ListIndex, 0);
  EXPECT_EQ(Buttons(slf), kFirstOfMore);
  ClickLine(slf, 2);
  slf.cmdDown_Click();
  EXPECT_EQ(slf.lstSlf.Items[3], kOneStand[2]);
  EXPECT_EQ(slf.lstSlf.ListIndex, 3);
  EXPECT_EQ(Buttons(slf), kLast);
  EXPECT_TRUE(Run().StandListSaved);
}

// ---------------------------------------------------------------- the file

// One stand with two records C, which may stand in either order.
const std::vector<std::string> kTwoRecordsC = {kOneStand[0], kOneStand[1], kOneStand[2], "C st1 late @", kOneStand[3]};

TEST_F(SlfScreen, NextAfterOnlyMovingALineLeavesTheFileAsItWas) {
  frmSlf& slf = LoadWith(kTwoRecordsC);
  const std::string before = ReadFile(slfPath);
  ClickLine(slf, 2);
  slf.cmdDown_Click();
  slf.cmbNext_Click();
  EXPECT_EQ(ReadFile(slfPath), before);
  EXPECT_TRUE(ui.Texts().empty());
  ASSERT_TRUE(App().LocationLoaded());
  EXPECT_TRUE(App().Location().Visible());
  EXPECT_FALSE(slf.Visible());
}

TEST_F(SlfScreen, SaveWritesTheNewOrderOfMovedLines) {
  frmSlf& slf = LoadWith(kTwoRecordsC);
  ClickLine(slf, 2);
  slf.cmdDown_Click();
  slf.cmdSave_Click();
  EXPECT_EQ(ui.Texts(), (std::vector<std::string>{"Stand List File saved."}));
  EXPECT_EQ(ReadFile(slfPath), CrLfLines({kOneStand[0], kOneStand[1], "C st1 late @", kOneStand[2], kOneStand[3]}));
  EXPECT_FALSE(ui.busyPointer);
}

TEST_F(SlfScreen, NextRightAfterLoadPassesAnInvalidFileUnremarked) {
  WriteFile(slfPath, EveryWrongKindFileBytes());
  EditOnly();
  frmSlf& slf = App().Slf();
  slf.Left = 120;
  slf.Top = 340;
  slf.Show();
  slf.cmbNext_Click();
  EXPECT_TRUE(ui.Texts().empty());
  EXPECT_EQ(ReadFile(slfPath), EveryWrongKindFileBytes());
  frmLocation& location = App().Location();
  testing::ExpectHandedOver(slf, location, 120, 340, ui.busyPointer);
}

TEST_F(SlfScreen, NextWithChangesValidatesWritesAndGoesOn) {
  frmSlf& slf = LoadWith(kOneStand);
  slf.Show();
  ClickLine(slf, 3);
  slf.cmdDelete_Click();
  slf.cmbNext_Click();
  EXPECT_EQ(ui.Texts(), (std::vector<std::string>{"Stand List File saved."}));
  EXPECT_EQ(ReadFile(slfPath), CrLfLines({kOneStand[0], kOneStand[1], kOneStand[2]}));
  EXPECT_TRUE(Run().StandListSaved);
  EXPECT_TRUE(App().Location().Visible());
  EXPECT_FALSE(slf.Visible());
}

TEST_F(SlfScreen, InvalidFileCanBeEditedAndLeftByBackButNotSavedOrPassedByNext) {
  WriteFile(slfPath, EveryWrongKindFileBytes());
  frmTemplate& setup = EditOnly();
  frmSlf& slf = App().Slf();
  slf.Show();
  ClickLine(slf, 15);
  slf.cmdDelete_Click();

  slf.cmdSave_Click();
  EXPECT_EQ(ui.Texts(), (std::vector<std::string>{"First record must be of type A."}));
  EXPECT_FALSE(ui.busyPointer);
  ui.boxes.clear();
  slf.cmbNext_Click();
  EXPECT_EQ(ui.Texts(), (std::vector<std::string>{"First record must be of type A."}));
  EXPECT_FALSE(App().LocationLoaded());
  EXPECT_TRUE(slf.Visible());
  EXPECT_FALSE(ui.busyPointer);

  ui.boxes.clear();
  slf.cmdBack_Click();
  EXPECT_TRUE(ui.Texts().empty());
  EXPECT_TRUE(setup.Visible());
  EXPECT_FALSE(slf.Visible());
  EXPECT_EQ(ReadFile(slfPath), EveryWrongKindFileBytes());
  // The edits stay for the next showing.
  EXPECT_EQ(App().Slf().lstSlf.ListCount(), 15);
  EXPECT_FALSE(Run().StandListSaved);
}

TEST_F(SlfScreen, SavingIntoAMissingFolderReportsPathNotFoundAndStillSaysSaved) {
  SetVariantSetting("AK");
  slfPath = (home / "missing" / "stands.slf").string();
  EditOnly();
  frmSlf& slf = App().Slf();
  ui.boxes.clear();
  slf.cmdSave_Click();
  EXPECT_EQ(ui.Texts(), (std::vector<std::string>{"Error writing .SLF file.Module = Slf\r\n76: Path not found",
                                                  "Stand List File saved."}));
  EXPECT_FALSE(fs::exists(slfPath));
  EXPECT_FALSE(ui.busyPointer);
}

TEST_F(SlfScreen, FailedWritingLeavesTheSavedFlagAsItWas) {
  slfPath = (home / "missing" / "stands.slf").string();
  EditOnly();
  frmSlf& slf = App().Slf();
  Run().StandListSaved = false;
  WriteStandListFile();
  EXPECT_FALSE(Run().StandListSaved);
  EXPECT_EQ(slf.lstSlf.ListCount(), 0);
}

TEST_F(SlfScreen, WritingFailureNamesTheLastLoadedScreenWhichIsTheRecordDialogAfterAVariantWasSet) {
  slfPath = (home / "missing" / "stands.slf").string();
  EditOnly();
  App().Slf();
  WriteStandListFile();
  EXPECT_EQ(ui.Texts(), (std::vector<std::string>{"Error writing .SLF file.Module = SlfRecord\r\n76: Path not found"}));
}

TEST_F(SlfScreen, AFullDiskFailsTheFirstWritingAndLeavesTheFileOpenForTheSecond) {
  SetVariantSetting("AK");
  const fs::path full = home / "full.slf";
  frmTemplate& setup = EditOnly();
  setup.lblSlfFile.SetCaption(full.string());
  setup.lblOutputFile.SetCaption("/stands/trees.tre");
  frmSlf& slf = App().Slf();
  // The file is only now made a way to the full device, so the load found
  // no file to read.
  fs::create_symlink("/dev/full", full);
  OnStandRecordDialog([](frmSlfRecord& d) {
    if (d.tabSlfRecords.Tab == 0) d.cmbStandIdentificationCode1.Text = "st1";
    d.cmdOk_Click();
  });
  slf.cmdInsertA_Click();
  slf.cmdInsertB_Click();
  ASSERT_EQ(slf.lstSlf.ListCount(), 2);
  ui.boxes.clear();
  slf.cmdSave_Click();
  slf.cmdSave_Click();
  EXPECT_EQ(ui.Texts(), (std::vector<std::string>{"Error writing .SLF file.Module = SlfRecord\r\n61: Disk full",
                                                  "Stand List File saved.",
                                                  "Error writing .SLF file.Module = SlfRecord\r\n55: File already open",
                                                  "Stand List File saved."}));
  EXPECT_FALSE(Run().StandListSaved);
}

// ---------------------------------------------------------------- ways on and back

TEST_F(SlfScreen, BackWithoutTranslationGoesToTheFirstScreenInPlace) {
  frmSlf& slf = LoadWith(kOneStand);
  slf.Left = 50;
  slf.Top = 60;
  slf.Show();
  slf.cmdBack_Click();
  EXPECT_TRUE(App().Template().Visible());
  EXPECT_EQ(App().Template().Left, 50);
  EXPECT_EQ(App().Template().Top, 60);
  EXPECT_FALSE(slf.Visible());
  EXPECT_FALSE(ui.busyPointer);
}

TEST_F(SlfScreen, ChangingTheStandListFileUnloadsTheEditorAndTheNextShowingReadsTheNewFile) {
  frmSlf& slf = LoadWith(kOneStand);
  ClickLine(slf, 0);
  slf.cmdDelete_Click();
  const std::string other = (home / "other.slf").string();
  WriteFile(other, CrLfLines({"A zz9 z.tre NoPointData @"}));
  App().Template().lblSlfFile.SetCaption(other);
  EXPECT_FALSE(App().SlfLoaded());
  EXPECT_EQ(App().Slf().lstSlf.Items, (std::vector<std::string>{"A zz9 z.tre NoPointData @"}));
  EXPECT_TRUE(Run().StandListSaved);
}

TEST_F(SlfScreen, StandListFileNamedLikeTheLocationFileKeepsTheEditorLoaded) {
  LoadWith(kOneStand);
  App().Template().lblSlfFile.SetCaption(locPath);
  EXPECT_EQ(ui.Texts(), (std::vector<std::string>{"Stand List File and Location File cannot be the same.",
                                                  "Can't open Stand List File."}));
  EXPECT_TRUE(App().SlfLoaded());
}

TEST_F(SlfScreen, ChangingTheVariantAddsItsLocationRowsToTheLoadedDialog) {
  frmSlf& slf = LoadWith(kOneStand);
  slf.SelectVariant(3);
  EXPECT_EQ(App().SlfRecord().cmbLocation.Items,
            (std::vector<std::string>{"106 : Southern Interior", "106 : Southern Interior", "604 : Malheur NF",
                                      "607 : Ochoco NF",
                                      "614 : Umatilla NF", "616 : Wallowa Whitman NF"}));
  EXPECT_EQ(Run().OrvanVariant, "BC");
}

TEST_F(SlfScreen, QuitAsksAndEndsOnYes) {
  frmSlf& slf = LoadWith(kOneStand);
  ui.answers.push_back(Answer::No);
  slf.cmdQuit_Click();
  EXPECT_EQ(ui.Texts(), (std::vector<std::string>{"Do you really want to quit?"}));
  ui.answers.push_back(Answer::Yes);
  EXPECT_TRUE(ExitStatusOf([&] { slf.cmdQuit_Click(); }).has_value());
}

TEST_F(SlfScreen, CloseBoxAsksAndKeepsTheWindowTheProgramsUnloadPassesAndAnyOtherCloseEnds) {
  frmSlf& slf = LoadWith(kOneStand);
  ui.answers.push_back(Answer::No);
  EXPECT_TRUE(slf.Form_QueryUnload(CloseReason::ControlMenu));
  EXPECT_EQ(ui.Texts(), (std::vector<std::string>{"Do you really want to quit?"}));
  EXPECT_FALSE(slf.Form_QueryUnload(CloseReason::ProgramUnload));
  EXPECT_EQ(ui.boxes.size(), 1u);
  EXPECT_TRUE(ExitStatusOf([&] { slf.Form_QueryUnload(CloseReason::Other); }).has_value());
}

TEST_F(SlfScreen, HelpShowsTheContentsOfTheProgramsHelp) {
  const std::string help = PlaceHelpFile();
  LoadWith(kOneStand).cmdHelp_Click();
  ASSERT_EQ(ui.helpOpened.size(), 1u);
  EXPECT_EQ(ui.helpOpened[0].first, help);
  EXPECT_EQ(ui.helpOpened[0].second, "contents");
}

class SlfAfterTranslation : public StandFilesWithTable {};

TEST_F(SlfAfterTranslation, TheGridsVariantIsTakenOverAndTheSettingNotRead) {
  SetVariantSetting("AK");
  WriteFile(slfPath, CrLfLines(kOneStand));
  frmTemplate& setup = EditOnly();
  setup.chkTranslateFile.Value = 1;
  setup.chkTranslateFile_Click();
  App().Headers().cmbVariant.Select(5);
  frmSlf& slf = App().Slf();
  EXPECT_EQ(slf.cmbVariant.ListIndex, 5);
  EXPECT_EQ(slf.cmbVariant.Text, "EC");
  EXPECT_TRUE(ui.Texts().empty());
  EXPECT_EQ(App().SlfRecord().cmbLocation.Items.front(), "603 : Gifford Pinchot NF");
}

TEST_F(SlfAfterTranslation, BackGoesToTheGridWhenTranslateIsTicked) {
  frmTemplate& setup = EditOnly();
  setup.chkTranslateFile.Value = 1;
  setup.chkTranslateFile_Click();
  frmHeaders& headers = App().Headers();
  frmSlf& slf = App().Slf();
  slf.Show();
  slf.cmdBack_Click();
  EXPECT_TRUE(headers.Visible());
  EXPECT_FALSE(slf.Visible());
  EXPECT_FALSE(setup.Visible());
}

TEST_F(SlfAfterTranslation, TheScreenAfterATranslationIsTheStandListEditorWhenStandFilesAreEdited) {
  frmTemplate& setup = EditOnly();
  frmHeaders& headers = App().Headers();
  EXPECT_EQ(&headers.ScreenAfterTranslation(), &App().Slf());
  setup.chkEditStandListFile.Value = 0;
  setup.chkEditStandListFile_Click();
  EXPECT_EQ(&headers.ScreenAfterTranslation(), &App().Template());
}

}  // namespace
}  // namespace corvalin

namespace corvalin {
namespace {

class EditorsBeforeTheFirstScreen : public testing::FreshProcess {};

TEST_F(EditorsBeforeTheFirstScreen, OpeningAnEditorFirstLoadsTheFirstScreenBeforeItAndKeepsTheEditor) {
  ASSERT_FALSE(App().TemplateLoaded());
  frmSlf& slf = App().Slf();
  EXPECT_TRUE(App().TemplateLoaded());
  EXPECT_TRUE(App().SlfLoaded());
  EXPECT_EQ(&App().Slf(), &slf);
  frmLocation& location = App().Location();
  EXPECT_TRUE(App().LocationLoaded());
  EXPECT_EQ(&App().Location(), &location);
}

}  // namespace
}  // namespace corvalin
