// The location record dialog as a controller: its load, the stand list file
// dialog, the name checks at OK, and the lines it reads and writes.
#include "TestSupport.h"
#include "location/LocationFile.h"
#include "screens/Application.h"
#include "screens/frmLocation.h"
#include "screens/frmLocationRecord.h"
#include "screens/frmTemplate.h"
#include "shell/RunState.h"

namespace corvalin {
namespace {

using Texts = std::vector<std::string>;

class frmLocationRecordTest : public testing::FreshProcess {
 protected:
  // frmLocation showing these lines with one selected; the record dialog is
  // not loaded.
  frmLocation& LocationList(const Texts& lines, int selected = 0) {
    App().Template();
    frmLocation& location = App().Location();
    location.lstLocation.Items = lines;
    location.lstLocation.Select(selected);
    App().UnloadLocationRecord();
    ui.boxes.clear();
    return location;
  }
  static void WorkingDirectory(const std::string& folder) {
    App().Template().lblWorkingDirectory.SetCaption(folder);
  }
  static std::string SelectedLine() {
    const ListControl& list = App().Location().lstLocation;
    return list.Items.at(static_cast<std::size_t>(list.ListIndex));
  }
  // Opens the line through EditLocationRecord, lets `act` look at and change
  // the open dialog, presses OK when asked, and gives the selected line.
  std::string Edit(const std::string& line, const std::function<void(frmLocationRecord&)>& act = {},
                   bool pressOk = true) {
    ui.AnswerDialog<frmLocationRecord>([&](frmLocationRecord& dialog) {
      if (act) act(dialog);
      if (pressOk) dialog.cmdOk_Click();
    });
    EditLocationRecord(line);
    ui.dialogs.clear();
    return SelectedLine();
  }
  std::string RoundTrip(const std::string& line) {
    LocationList({line});
    return Edit(line);
  }
};

TEST_F(frmLocationRecordTest, LoadTitlesEmptiesAndPlacesTheDialogWhereTheLocationListStands) {
  frmLocation& location = LocationList({});
  location.Left = 640;
  location.Top = 480;
  frmLocationRecord& d = App().LocationRecord();
  EXPECT_EQ(Run().CurrentScreen, "LocationRecord");
  EXPECT_EQ(d.Caption, "Corvalin - Edit Location Record");
  EXPECT_EQ(d.Left, 640);
  EXPECT_EQ(d.Top, 480);
  EXPECT_EQ(d.tabLocationRecords.TabCaption, Texts{"Record Type A"});
  EXPECT_EQ(d.lblLocationName1.Caption, "Location Name:");
  EXPECT_EQ(d.lblSlf1.Caption, "Stand List File:");
  EXPECT_EQ(d.cmdSelectSlf.Caption, "Select");
  EXPECT_EQ(d.cmdOk.Caption, "OK");
  EXPECT_EQ(d.cmdCancel.Caption, "Cancel");
  EXPECT_FALSE(d.cmdHelp.Visible);
  EXPECT_FALSE(d.cmdHelp.Enabled);
  EXPECT_EQ(d.txtLocationName.Text, "");
  EXPECT_EQ(d.lblSlf.Caption, "");
}

TEST_F(frmLocationRecordTest, TheExampleLineComesBackAsItWas) {
  const std::string line = "A \"North Block\" @ stands\\north.slf @ @";
  LocationList({line});
  const std::string written = Edit(line, [&](frmLocationRecord& d) {
    EXPECT_TRUE(d.Visible());
    EXPECT_EQ(d.txtLocationName.Text, "North Block");
    EXPECT_EQ(d.lblSlf.Caption, "STANDS\\NORTH.SLF");
    EXPECT_FALSE(ui.busyPointer);
  });
  EXPECT_EQ(written, line);
  EXPECT_FALSE(App().LocationRecordLoaded());
  EXPECT_FALSE(Run().LocationFileSaved);
}

TEST_F(frmLocationRecordTest, TheNameKeepsItsCaseTheBlanksAroundItAndThePathComesBackUpperAndIsWrittenLower) {
  const std::string line = "A \" Upper Creek \" @ /Data/Stands/Creek.SLF x y";
  LocationList({line});
  const std::string written = Edit(line, [](frmLocationRecord& d) {
    EXPECT_EQ(d.txtLocationName.Text, " Upper Creek ");
    EXPECT_EQ(d.lblSlf.Caption, "/DATA/STANDS/CREEK.SLF");
  });
  EXPECT_EQ(written, "A \" Upper Creek \" @ /data/stands/creek.slf @ @");
}

TEST_F(frmLocationRecordTest, ARecordWithoutStandListHasTwoBlanksBeforeTheLastMarks) {
  LocationList({" *** new record A *** "});
  frmLocationRecord& d = App().LocationRecord();
  d.txtLocationName.Text = "Flat";
  d.cmdOk_Click();
  EXPECT_EQ(SelectedLine(), "A \"Flat\" @  @ @");
  EXPECT_TRUE(ui.boxes.empty());
}

TEST_F(frmLocationRecordTest, ARecordWithoutStandListReadsBackTheWorkingDirectoryInUpperCase) {
  WorkingDirectory("/home/ann/work/");
  const std::string line = "A \"Flat\" @  @ @";
  LocationList({line});
  const std::string written =
      Edit(line, [](frmLocationRecord& d) { EXPECT_EQ(d.lblSlf.Caption, "/HOME/ANN/WORK/"); });
  EXPECT_EQ(written, "A \"Flat\" @ /home/ann/work/ @ @");
}

TEST_F(frmLocationRecordTest, APathWithABlankIsWrittenUnquotedAndReadsOnlyItsFirstPart) {
  LocationList({" *** new record A *** "});
  frmLocationRecord& d = App().LocationRecord();
  d.txtLocationName.Text = "Ridge";
  d.lblSlf.SetCaption("/data/my stands.slf");
  d.cmdOk_Click();
  const std::string line = SelectedLine();
  EXPECT_EQ(line, "A \"Ridge\" @ /data/my stands.slf @ @");
  Edit(line, [](frmLocationRecord& r) { EXPECT_EQ(r.lblSlf.Caption, "/DATA/MY"); }, false);
}

TEST_F(frmLocationRecordTest, AStoredPathBeginningWithAPointReadsBackEmpty) {
  WorkingDirectory("/w/");
  const std::string line = "A \"Point\" @ ./stands.slf @ @";
  LocationList({line});
  EXPECT_EQ(Edit(line, [](frmLocationRecord& d) { EXPECT_EQ(d.lblSlf.Caption, ""); }), "A \"Point\" @  @ @");
}

TEST_F(frmLocationRecordTest, AnAbsolutePathStaysAbsoluteAndARelativeOneIsTakenInTheWorkingDirectory) {
  WorkingDirectory("/w/");
  LocationList({"A \"Abs\" @ /data/a.slf @ @"});
  Edit("A \"Abs\" @ /data/a.slf @ @", [](frmLocationRecord& d) { EXPECT_EQ(d.lblSlf.Caption, "/DATA/A.SLF"); },
       false);
  LocationList({"A \"Rel\" @ b.slf @ @"});
  EXPECT_EQ(Edit("A \"Rel\" @ b.slf @ @", [](frmLocationRecord& d) { EXPECT_EQ(d.lblSlf.Caption, "/W/B.SLF"); }),
            "A \"Rel\" @ /w/b.slf @ @");
}

TEST_F(frmLocationRecordTest, ARelativePathStaysRelativeUnderAnUpperCaseWorkingDirectory) {
  WorkingDirectory("/W/");
  EXPECT_EQ(RoundTrip("A \"Rel\" @ b.slf @ @"), "A \"Rel\" @ b.slf @ @");
}

TEST_F(frmLocationRecordTest, ALineThatBeginsWithALowerCaseAOpens) {
  EXPECT_EQ(RoundTrip("a \"Low\" @ x.slf @ @"), "A \"Low\" @ x.slf @ @");
}

TEST_F(frmLocationRecordTest, ALineWithoutQuotesGivesItsSecondWordAsTheName) {
  EXPECT_EQ(RoundTrip("A North @ n.slf"), "A \"North\" @ n.slf @ @");
}

TEST_F(frmLocationRecordTest, ALineOfAnotherTypeIsRefusedAndNothingOpens) {
  LocationList({"B \"x\" @ y @ @"});
  bool opened = false;
  ui.everyDialog = [&](ModalWindow&) { opened = true; };
  EditLocationRecord("B \"x\" @ y @ @");
  EditLocationRecord("");
  EXPECT_EQ(ui.Texts(), Texts(2, "Invalid Location record - should start with 'A'."));
  EXPECT_FALSE(opened);
  EXPECT_EQ(SelectedLine(), "B \"x\" @ y @ @");
}

TEST_F(frmLocationRecordTest, AnEmptyNameIsRefusedAndTheDialogStaysOpen) {
  const std::string line = "A \"Old\" @ o.slf @ @";
  LocationList({line});
  Run().LocationFileSaved = true;
  const std::string written = Edit(line, [&](frmLocationRecord& d) {
    d.txtLocationName.Text = "";
    d.cmdOk_Click();
    EXPECT_EQ(ui.Texts(), Texts{"Must specify location name."});
    EXPECT_TRUE(d.Visible());
    d.cmdCancel_Click();
  }, false);
  EXPECT_EQ(written, line);
  EXPECT_TRUE(Run().LocationFileSaved);
}

TEST_F(frmLocationRecordTest, ANameWithADoubleQuoteIsRefused) {
  LocationList({" *** new record A *** "});
  frmLocationRecord& d = App().LocationRecord();
  d.txtLocationName.Text = "The \"Flat\"";
  d.cmdOk_Click();
  EXPECT_EQ(ui.Texts(), Texts{"Can't use double quotes in location name."});
  EXPECT_EQ(SelectedLine(), " *** new record A *** ");
  EXPECT_TRUE(App().LocationRecordLoaded());
}

TEST_F(frmLocationRecordTest, EditingAndCancellingLeavesTheLineUnchanged) {
  const std::string line = "A \"Old\"  @ o.slf @ @";
  LocationList({line});
  Run().LocationFileSaved = true;
  const std::string written = Edit(line, [](frmLocationRecord& d) { d.txtLocationName.Text = "New"; }, false);
  EXPECT_EQ(written, line);
  EXPECT_FALSE(App().LocationRecordLoaded());
  EXPECT_TRUE(Run().LocationFileSaved);
}

TEST_F(frmLocationRecordTest, SelectOnAnEmptyCaptionStartsInTheWorkingDirectoryWithNoName) {
  WorkingDirectory("/home/ann/work/");
  LocationList({" *** new record A *** "});
  frmLocationRecord& d = App().LocationRecord();
  ui.files.push_back("/home/ann/work/Stands/North.slf");
  d.cmdSelectSlf_Click();
  ASSERT_EQ(ui.fileDialogs.size(), 1u);
  const FileDialogRequest& dialog = ui.fileDialogs[0];
  EXPECT_EQ(dialog.title, "Corvalin - Select Stand List File");
  EXPECT_EQ(dialog.filter, "Stand Level Files (*.slf) | *.slf |All Files (*.*) | *.*");
  EXPECT_EQ(dialog.filterIndex, 1);
  EXPECT_EQ(dialog.initialFolder, "/home/ann/work");
  EXPECT_EQ(dialog.fileName, "");
  // Shown as the dialog returned it until the record is reopened.
  EXPECT_EQ(d.lblSlf.Caption, "/home/ann/work/Stands/North.slf");
  d.txtLocationName.Text = "North";
  d.cmdOk_Click();
  EXPECT_EQ(SelectedLine(), "A \"North\" @ stands/north.slf @ @");
}

TEST_F(frmLocationRecordTest, SelectOnAPathStartsInItsFolderWithItsNameAndCancelKeepsIt) {
  const std::string line = "A \"N\" @ /data/stands/n.slf @ @";
  LocationList({line});
  const std::string written = Edit(line, [](frmLocationRecord& d) { d.cmdSelectSlf_Click(); });
  ASSERT_EQ(ui.fileDialogs.size(), 1u);
  EXPECT_EQ(ui.fileDialogs[0].initialFolder, "/DATA/STANDS");
  EXPECT_EQ(ui.fileDialogs[0].fileName, "N.SLF");
  EXPECT_EQ(written, line);
}

TEST_F(frmLocationRecordTest, TheChosenStandListShowsInUpperCaseWhenTheRecordIsReopened) {
  LocationList({" *** new record A *** "});
  frmLocationRecord& d = App().LocationRecord();
  d.txtLocationName.Text = "East";
  ui.files.push_back("/data/East.slf");
  d.cmdSelectSlf_Click();
  EXPECT_EQ(d.lblSlf.Caption, "/data/East.slf");
  d.cmdOk_Click();
  const std::string line = SelectedLine();
  EXPECT_EQ(line, "A \"East\" @ /data/east.slf @ @");
  Edit(line, [](frmLocationRecord& r) { EXPECT_EQ(r.lblSlf.Caption, "/DATA/EAST.SLF"); }, false);
}

}  // namespace
}  // namespace corvalin
