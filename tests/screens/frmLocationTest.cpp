// frmLocation, the location editor: its load (file, current stand list), the
// list buttons, the record dialog for new and existing lines, saving, and
// Done, which checks the stand list before it closes the editing flow.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "StandFilesFixture.h"
#include "TestSupport.h"
#include "screens/Application.h"
#include "screens/frmLocation.h"
#include "screens/frmLocationRecord.h"
#include "screens/frmSlf.h"
#include "screens/frmTemplate.h"
#include "shell/RunState.h"

namespace corvalin {
namespace {

namespace fs = std::filesystem;
using testing::ButtonStates;
using testing::CrLfLines;
using testing::ExitStatusOf;
using testing::ReadFile;
using testing::StandFiles;
using testing::StatesOf;
using testing::WriteFile;

using testing::kAllOff;
using testing::kFirstOfMore;
using testing::kLast;
using testing::kMiddle;

const std::vector<std::string> kValidStandList = {"A st1 one.tre WithPointData @", "B st1 @"};
const std::vector<std::string> kInvalidStandList = {"A st1 one.tre WithPointData @", "C st1 @"};

class LocationScreen : public StandFiles {
 protected:
  // Stand list and location files of these lines, the first screen set to
  // edit them, and the location editor loaded.
  frmLocation& LoadWith(const std::vector<std::string>& locations,
                        const std::vector<std::string>& standList = kValidStandList) {
    WriteFile(slfPath, CrLfLines(standList));
    WriteFile(locPath, CrLfLines(locations));
    EditOnly();
    return App().Location();
  }
  // The locations of the usual files: the second and the fourth point to the
  // stand list being edited.
  std::vector<std::string> FourLocations() const {
    return {"A \"North Block\" @ /elsewhere/north.slf @ @", "A \"South\" @ " + slfPath + " @ @",
            "A \"East\" @ /elsewhere/east.slf @ @", "A \"West\" @ " + slfPath + " @ @"};
  }
  static ButtonStates Buttons(frmLocation& location) { return StatesOf(location.LineButtons()); }
  static void ClickLine(frmLocation& location, int index) {
    location.lstLocation.Select(index);
    location.lstLocation_Click();
  }
};

// ---------------------------------------------------------------- load

TEST_F(LocationScreen, LoadSetsTheCaptionTheScreenWordAndTheSavedFlag) {
  frmLocation& location = LoadWith(FourLocations());
  EXPECT_EQ(location.Caption, "Corvalin - Edit Location File");
  EXPECT_EQ(Run().CurrentScreen, "Location");
  EXPECT_TRUE(Run().LocationFileSaved);
  EXPECT_FALSE(location.cmdHelp.Visible);
  EXPECT_FALSE(location.cmdHelp.Enabled);
  EXPECT_EQ(location.cmdDone.Caption, "Done");
}

TEST_F(LocationScreen, OfTwoLocationsOfTheSameStandListTheFirstIsSelected) {
  frmLocation& location = LoadWith(FourLocations());
  EXPECT_EQ(location.lstLocation.Items, FourLocations());
  EXPECT_EQ(location.lstLocation.ListIndex, 1);
  EXPECT_EQ(Buttons(location), kMiddle);
  EXPECT_TRUE(ui.Texts().empty());
}

TEST_F(LocationScreen, StandListIsMatchedWithoutRegardToCaseAndOnlyInLinesBeginningWithA) {
  WriteFile(locPath, CrLfLines({"A \"One\" @ /x/one.slf @ @", "a \"Two\" @ /data/stands.slf @ @",
                                "A \"Three\" @ /DATA/Stands.SLF @ @"}));
  frmTemplate& setup = EditOnly();
  setup.lblLocationsFile.SetCaption(locPath);
  setup.lblSlfFile.SetCaption("/Data/STANDS.slf");
  EXPECT_EQ(App().Location().lstLocation.ListIndex, 2);
}

TEST_F(LocationScreen, WithNoLocationOfTheStandListTheFirstLineIsSelected) {
  frmLocation& location = LoadWith({"A \"One\" @ /x/one.slf @ @", "A \"Two\" @ /x/two.slf @ @"});
  EXPECT_EQ(location.lstLocation.ListIndex, 0);
  EXPECT_EQ(Buttons(location), kFirstOfMore);
}

TEST_F(LocationScreen, NoLocationFileYetGivesAnEmptyListAndTheFirstSaveCreatesTheFile) {
  WriteFile(slfPath, CrLfLines(kValidStandList));
  EditOnly();
  frmLocation& location = App().Location();
  EXPECT_TRUE(location.lstLocation.Items.empty());
  EXPECT_EQ(Buttons(location), kAllOff);
  EXPECT_TRUE(ui.Texts().empty());
  ASSERT_FALSE(fs::exists(locPath));
  location.cmdSave_Click();
  EXPECT_EQ(ui.Texts(), (std::vector<std::string>{"Location file saved."}));
  ASSERT_TRUE(fs::exists(locPath));
  EXPECT_EQ(ReadFile(locPath), "");
  EXPECT_FALSE(ui.busyPointer);
}

TEST_F(LocationScreen, NewLocationOffersTheStandListBeingEditedAndSavingWritesIt) {
  WriteFile(slfPath, CrLfLines(kValidStandList));
  frmTemplate& setup = EditOnly();
  frmLocation& location = App().Location();
  std::string offered;
  std::string placeholder;
  OnLocationRecordDialog([&](frmLocationRecord& d) {
    offered = d.lblSlf.Caption;
    placeholder = location.lstLocation.Items.at(0);
    d.txtLocationName.Text = " North Block ";
    d.cmdOk_Click();
  });
  location.cmdInsertA_Click();
  EXPECT_EQ(offered, setup.lblSlfFile.Caption);
  EXPECT_EQ(placeholder, " *** new record A *** ");
  const std::string line = "A \" North Block \" @ " + slfPath + " @ @";
  EXPECT_EQ(location.lstLocation.Items, (std::vector<std::string>{line}));
  EXPECT_FALSE(Run().LocationFileSaved);
  location.cmdSave_Click();
  EXPECT_EQ(ReadFile(locPath), line + "\r\n");
  EXPECT_TRUE(Run().LocationFileSaved);
}

TEST_F(LocationScreen, ChosenStandListShowsAsTheDialogGaveItUntilTheRecordIsOpenedAgain) {
  frmLocation& location = LoadWith({});
  ui.files.push_back("/Data/Other Stands.slf");
  std::string chosen;
  OnLocationRecordDialog([&](frmLocationRecord& d) {
    d.cmdSelectSlf_Click();
    chosen = d.lblSlf.Caption;
    d.txtLocationName.Text = "Ridge";
    d.cmdOk_Click();
  });
  location.cmdInsertA_Click();
  EXPECT_EQ(chosen, "/Data/Other Stands.slf");
  // Written lower-cased and unquoted, so the blank cuts the path's token.
  EXPECT_EQ(location.lstLocation.Items, (std::vector<std::string>{"A \"Ridge\" @ /data/other stands.slf @ @"}));
  std::string reopened;
  OnLocationRecordDialog([&](frmLocationRecord& d) { reopened = d.lblSlf.Caption; });
  location.cmdEdit_Click();
  EXPECT_EQ(reopened, "/DATA/OTHER");
}

TEST_F(LocationScreen, CancellingTheDialogOfANewRecordRemovesThePlaceholder) {
  frmLocation& location = LoadWith(FourLocations());
  ClickLine(location, 2);
  std::vector<std::string> whileOpen;
  OnLocationRecordDialog([&](frmLocationRecord& d) {
    whileOpen = location.lstLocation.Items;
    d.cmdCancel_Click();
  });
  location.cmdInsertA_Click();
  ASSERT_EQ(whileOpen.size(), 5u);
  EXPECT_EQ(whileOpen[3], " *** new record A *** ");
  EXPECT_EQ(location.lstLocation.Items, FourLocations());
  EXPECT_EQ(location.lstLocation.ListIndex, 2);
  EXPECT_EQ(Buttons(location), kMiddle);
  EXPECT_TRUE(Run().LocationFileSaved);
}

TEST_F(LocationScreen, EditingALineAndCancellingLeavesItUnchanged) {
  frmLocation& location = LoadWith(FourLocations());
  std::string name, standList;
  OnLocationRecordDialog([&](frmLocationRecord& d) {
    name = d.txtLocationName.Text;
    standList = d.lblSlf.Caption;
    d.cmdCancel_Click();
  });
  ClickLine(location, 0);
  location.cmdEdit_Click();
  EXPECT_EQ(name, "North Block");
  EXPECT_EQ(standList, "/ELSEWHERE/NORTH.SLF");
  EXPECT_EQ(location.lstLocation.Items, FourLocations());
  EXPECT_TRUE(Run().LocationFileSaved);
}

TEST_F(LocationScreen, DoubleClickOpensTheLineAndOkRewritesItsPathInLowerCase) {
  frmLocation& location = LoadWith(FourLocations());
  OnLocationRecordDialog([](frmLocationRecord& d) {
    d.txtLocationName.Text = "North Block 2";
    d.cmdOk_Click();
  });
  ClickLine(location, 0);
  location.lstLocation_DblClick();
  EXPECT_EQ(location.lstLocation.Items[0], "A \"North Block 2\" @ /elsewhere/north.slf @ @");
  EXPECT_FALSE(Run().LocationFileSaved);
}

TEST_F(LocationScreen, EditingALineThatIsNoRecordShowsTheMessage) {
  frmLocation& location = LoadWith({"B \"Odd\" @ x.slf @ @"});
  location.cmdEdit_Click();
  EXPECT_EQ(ui.Texts(), (std::vector<std::string>{"Invalid Location record - should start with 'A'."}));
}

TEST_F(LocationScreen, DeleteClearsTheSavedFlagAndMovingLeavesIt) {
  frmLocation& location = LoadWith(FourLocations());
  ClickLine(location, 3);
  location.cmdUp_Click();
  EXPECT_EQ(location.lstLocation.ListIndex, 2);
  EXPECT_EQ(location.lstLocation.Items[2], FourLocations()[3]);
  EXPECT_EQ(Buttons(location), kMiddle);
  location.cmdDown_Click();
  EXPECT_EQ(location.lstLocation.Items, FourLocations());
  EXPECT_EQ(Buttons(location), kLast);
  EXPECT_TRUE(Run().LocationFileSaved);
  location.cmdDelete_Click();
  EXPECT_EQ(location.lstLocation.ListIndex, 2);
  EXPECT_EQ(Buttons(location), kLast);
  EXPECT_FALSE(Run().LocationFileSaved);
  EXPECT_TRUE(ui.Texts().empty());
}

TEST_F(LocationScreen, DeleteWithNothingSelectedIsReportedByTheEventsHandler) {
  frmLocation& location = LoadWith({});
  location.cmdDelete_Click();
  ASSERT_EQ(ui.boxes.size(), 1u);
  EXPECT_EQ(ui.boxes[0].text, "[5] Invalid procedure call or argument");
  EXPECT_EQ(ui.boxes[0].icon, Icon::Exclamation);
}

// ---------------------------------------------------------------- save and done

TEST_F(LocationScreen, SaveWritesEvenWhenTheStandListIsInvalidButDoneRefuses) {
  frmLocation& location = LoadWith(FourLocations(), kInvalidStandList);
  location.Show();
  ClickLine(location, 0);
  location.cmdDelete_Click();
  location.cmdSave_Click();
  const std::vector<std::string> threeLeft = {FourLocations()[1], FourLocations()[2], FourLocations()[3]};
  EXPECT_EQ(ui.Texts(), (std::vector<std::string>{"Location file saved."}));
  EXPECT_EQ(ReadFile(locPath), CrLfLines(threeLeft));

  location.cmdDelete_Click();
  ui.boxes.clear();
  location.cmdDone_Click();
  EXPECT_EQ(ui.Texts(), (std::vector<std::string>{"Record of type A must be followed by record of type B."}));
  EXPECT_EQ(ReadFile(locPath), CrLfLines(threeLeft));
  EXPECT_TRUE(location.Visible());
  EXPECT_FALSE(App().Template().Visible());
  EXPECT_FALSE(Run().LocationFileSaved);
  EXPECT_FALSE(ui.busyPointer);
  // The stand list's selection went to the offending line, though its
  // screen is hidden.
  EXPECT_EQ(App().Slf().lstSlf.ListIndex, 1);
  EXPECT_FALSE(App().Slf().Visible());
}

TEST_F(LocationScreen, DoneWithNoPendingChangesRunsNoValidationAndGoesToTheFirstScreenInPlace) {
  frmLocation& location = LoadWith(FourLocations(), kInvalidStandList);
  location.Left = 77;
  location.Top = 88;
  location.Show();
  ClickLine(location, 1);
  location.cmdDown_Click();
  const std::string before = ReadFile(locPath);
  location.cmdDone_Click();
  EXPECT_TRUE(ui.Texts().empty());
  EXPECT_EQ(ReadFile(locPath), before);
  frmTemplate& setup = App().Template();
  testing::ExpectHandedOver(location, setup, 77, 88, ui.busyPointer);
}

TEST_F(LocationScreen, DoneWithPendingChangesAndAValidStandListSavesAndGoesToTheFirstScreen) {
  frmLocation& location = LoadWith(FourLocations());
  location.Show();
  ClickLine(location, 3);
  location.cmdDelete_Click();
  location.cmdDone_Click();
  EXPECT_EQ(ui.Texts(), (std::vector<std::string>{"Location file saved."}));
  EXPECT_EQ(ReadFile(locPath), CrLfLines({FourLocations()[0], FourLocations()[1], FourLocations()[2]}));
  EXPECT_TRUE(Run().LocationFileSaved);
  EXPECT_TRUE(App().Template().Visible());
  EXPECT_FALSE(location.Visible());
}

TEST_F(LocationScreen, SavingIntoAMissingFolderReportsPathNotFoundAndStillSaysSaved) {
  locPath = (home / "missing" / "places.loc").string();
  WriteFile(slfPath, CrLfLines(kValidStandList));
  EditOnly();
  frmLocation& location = App().Location();
  location.cmdSave_Click();
  EXPECT_EQ(ui.Texts(), (std::vector<std::string>{"Error writing Location file.Module = Location\r\n76: Path not found",
                                                  "Location file saved."}));
  EXPECT_FALSE(fs::exists(locPath));
}

TEST_F(LocationScreen, FailedWritingLeavesTheSavedFlagAsItWas) {
  locPath = (home / "missing" / "places.loc").string();
  EditOnly();
  App().Location();
  Run().LocationFileSaved = false;
  WriteLocationFile();
  EXPECT_FALSE(Run().LocationFileSaved);
}

TEST_F(LocationScreen, BackShowsTheStandListEditorInPlaceWithoutSaving) {
  frmLocation& location = LoadWith(FourLocations());
  location.Left = 5;
  location.Top = 6;
  location.Show();
  ClickLine(location, 0);
  location.cmdDelete_Click();
  location.cmdBack_Click();
  frmSlf& slf = App().Slf();
  EXPECT_TRUE(slf.Visible());
  EXPECT_EQ(slf.Left, 5);
  EXPECT_EQ(slf.Top, 6);
  EXPECT_FALSE(location.Visible());
  EXPECT_EQ(ReadFile(locPath), CrLfLines(FourLocations()));
  EXPECT_TRUE(ui.Texts().empty());
  // The edit stays for the next showing.
  EXPECT_EQ(App().Location().lstLocation.ListCount(), 3);
}

TEST_F(LocationScreen, ChangingTheLocationFileUnloadsTheEditor) {
  LoadWith(FourLocations());
  App().Template().lblLocationsFile.SetCaption((home / "other.loc").string());
  EXPECT_FALSE(App().LocationLoaded());
  EXPECT_TRUE(App().Location().lstLocation.Items.empty());
}

TEST_F(LocationScreen, QuitAndTheCloseBoxAskAndAnyOtherCloseEnds) {
  frmLocation& location = LoadWith(FourLocations());
  ui.answers.push_back(Answer::No);
  location.cmdQuit_Click();
  ui.answers.push_back(Answer::No);
  EXPECT_TRUE(location.Form_QueryUnload(CloseReason::ControlMenu));
  EXPECT_FALSE(location.Form_QueryUnload(CloseReason::ProgramUnload));
  EXPECT_EQ(ui.Texts(), (std::vector<std::string>{"Do you really want to quit?", "Do you really want to quit?"}));
  EXPECT_TRUE(ExitStatusOf([&] { location.Form_QueryUnload(CloseReason::Other); }).has_value());
  ui.answers.push_back(Answer::Yes);
  EXPECT_TRUE(ExitStatusOf([&] { location.cmdQuit_Click(); }).has_value());
}

TEST_F(LocationScreen, HelpShowsTheContentsOfTheProgramsHelp) {
  PlaceHelpFile();
  LoadWith({}).cmdHelp_Click();
  ASSERT_EQ(ui.helpOpened.size(), 1u);
  EXPECT_EQ(ui.helpOpened[0].second, "contents");
}

}  // namespace
}  // namespace corvalin
