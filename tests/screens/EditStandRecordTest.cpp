// Opening a stand list line in the record dialog and confirming it: what each
// record type shows, what it gives back, and the variant lists behind the
// look-ups.
#include "StandRecordFixture.h"
#include "screens/frmHeaders.h"
#include "shell/RunState.h"

namespace corvalin {
namespace {

using Texts = std::vector<std::string>;

class EditStandRecordTest : public testing::StandRecordFixture {};

// The example stand of the BC variant and its bare ground neighbour.
const Texts& ExampleStand() {
  static const Texts lines{
      "A st001 trees\\st001.tre WithPointData bc @",
      "B st001 1995 50.5 119.5 106  @ 1950 180 20 45 @ 10 @ 5 0 1 100 0 10 0 10 10 @ @ fd 22",
      "C st001 thin1 thin2 @",
      "D st001 keys\\thin.key @",
  };
  return lines;
}

TEST_F(EditStandRecordTest, ALineOfNoKnownTypeIsRefusedAndNothingOpens) {
  StandList("BC", {"E st1 @"});
  bool opened = false;
  ui.everyDialog = [&](ModalWindow&) { opened = true; };
  EditStandRecord("E st1 @");
  EditStandRecord("");
  EditStandRecord(" A st1 & WithPointData @");
  EXPECT_EQ(ui.Texts(), Texts(3, "Invalid SLF record - should start with 'A', 'B', 'C', or 'D'."));
  EXPECT_FALSE(opened);
  EXPECT_FALSE(App().SlfRecordLoaded());
}

TEST_F(EditStandRecordTest, OpeningEnablesOnlyTheRecordsTabAndMakesItActive) {
  StandList("BC", {"C st1 x @"});
  Edit("C st1 x @", [&](frmSlfRecord& d) {
    EXPECT_TRUE(d.Visible());
    EXPECT_EQ(d.tabSlfRecords.Tab, 2);
    EXPECT_EQ(d.tabSlfRecords.TabEnabled, (std::vector<bool>{false, false, true, false}));
    EXPECT_TRUE(d.txtGroupCodes.TabStop);
    EXPECT_FALSE(d.cmbStandIdentificationCode1.TabStop);
    EXPECT_FALSE(ui.busyPointer);
  }, false);
  EXPECT_FALSE(App().SlfRecordLoaded());
  EXPECT_EQ(SelectedLine(), "C st1 x @");
}

TEST_F(EditStandRecordTest, ALowerCaseLetterOpensTheRecordOfItsType) {
  StandList("BC", {"a st1 &  NoPointData @"});
  EXPECT_EQ(Edit("a st1 &  NoPointData @", [](frmSlfRecord& d) { EXPECT_EQ(d.tabSlfRecords.Tab, 0); }),
            "A st1 &  NoPointData @");
}

// --- The example stand, read through the dialog and written back.

TEST_F(EditStandRecordTest, TheExampleRecordAIsShownAndWrittenBackUnchanged) {
  StandList("BC", ExampleStand(), 0);
  const std::string line = Edit(ExampleStand()[0], [](frmSlfRecord& d) {
    EXPECT_EQ(d.cmbStandIdentificationCode1.Text, "st001");
    EXPECT_EQ(d.lblTreeDataSet.Caption, "TREES\\ST001.TRE");
    EXPECT_TRUE(d.optPlotBasedSiteDataYes.Value);
    EXPECT_FALSE(d.optNo.Value);
    EXPECT_EQ(d.chkBc.Value, 1);
    EXPECT_EQ(d.chkAk.Value, 0);
    EXPECT_EQ(d.cmbStandIdentificationCode1.Items, Texts{"st001"});
  });
  EXPECT_EQ(line, "A st001 trees\\st001.tre WithPointData bc @");
  EXPECT_FALSE(Run().StandListSaved);
}

TEST_F(EditStandRecordTest, TheExampleRecordBIsShownWithItsListRowsAndWrittenBackUnchanged) {
  StandList("BC", ExampleStand(), 1);
  const std::string line = Edit(ExampleStand()[1], [](frmSlfRecord& d) {
    EXPECT_EQ(d.cmbStandIdentificationCode2.Text, "st001");
    EXPECT_EQ(d.txtInventoryYear.Text, "1995");
    EXPECT_EQ(d.txtLatitude.Text, "50.5");
    EXPECT_EQ(d.txtLongitude.Text, "119.5");
    EXPECT_EQ(d.cmbLocation.ListIndex, 0);
    EXPECT_EQ(d.cmbLocation.Text, "106 : Southern Interior");
    EXPECT_EQ(d.cmbHabitatType.ListIndex, -1);
    EXPECT_EQ(d.cmbHabitatType.Text, "");
    EXPECT_EQ(d.txtStandOrigin.Text, "1950");
    EXPECT_EQ(d.txtBasalAreaFactor.Text, "");
    EXPECT_EQ(d.txtInverseOfFixedPlotSize.Text, "10");
    EXPECT_EQ(d.txtNumberOfStockablePlots.Text, "0");
    EXPECT_EQ(d.cmbDiameterGrowthTranslationCode.Text, "0 : Measured directly/end of period");
    EXPECT_EQ(d.txtDiameterGrowthMeasurePeriod.Text, "10");
    EXPECT_EQ(d.cmbHeightGrowthTranslationCode.ListIndex, 0);
    EXPECT_EQ(d.txtMortalityMeasurementPeriod.Text, "10");
    EXPECT_EQ(d.txtMaximumStandDensityIndex.Text, "");
    // A run that only edits files has no variant on the grid screen, so the
    // species rows are empty and the code stays in the edit box.
    EXPECT_EQ(d.cmbSiteSpecies.Items, Texts(15, ""));
    EXPECT_EQ(d.cmbSiteSpecies.ListIndex, -1);
    EXPECT_EQ(d.cmbSiteSpecies.Text, "fd");
    EXPECT_EQ(d.txtSiteIndex.Text, "22");
  });
  EXPECT_EQ(line, ExampleStand()[1]);
}

TEST_F(EditStandRecordTest, TheExampleRecordCGainsASecondBlankBeforeTheEndMark) {
  StandList("BC", ExampleStand(), 2);
  const std::string line = Edit(ExampleStand()[2], [](frmSlfRecord& d) {
    EXPECT_EQ(d.cmbStandIdentificationCode3.Text, "st001");
    EXPECT_EQ(d.txtGroupCodes.Text, "thin1 thin2 ");
  });
  EXPECT_EQ(line, "C st001 thin1 thin2  @");
}

TEST_F(EditStandRecordTest, TheExampleRecordDShowsItsAddFileUpperCasedAndWritesItLowerCased) {
  StandList("BC", ExampleStand(), 3);
  const std::string line = Edit(ExampleStand()[3], [](frmSlfRecord& d) {
    EXPECT_EQ(d.cmbStandIdentificationCode4.Text, "st001");
    EXPECT_EQ(d.lstDataSetNames.Items, Texts{"KEYS\\THIN.KEY"});
  });
  EXPECT_EQ(line, "D st001 keys\\thin.key @");
}

TEST_F(EditStandRecordTest, TheBareGroundExampleIsShownAsBareGroundAndWrittenBackUnchanged) {
  StandList("BC", {"A st002 &  NoPointData bc @"});
  const std::string line = Edit("A st002 &  NoPointData bc @", [](frmSlfRecord& d) {
    EXPECT_EQ(d.lblTreeDataSet.Caption, "*** Bare ground ***");
    EXPECT_TRUE(d.optNo.Value);
    EXPECT_FALSE(d.optPlotBasedSiteDataYes.Value);
  });
  EXPECT_EQ(line, "A st002 &  NoPointData bc @");
}

// --- Round trips of every record type.

TEST_F(EditStandRecordTest, AFullRecordBComesBackAsItWasButForTheBlankBehindAThreeDigitLocation) {
  const std::string line = "B s9 2001 46.8 114.0 116 260 1920 90 35 52 20 300 5.0 12 1 2.5 92 1 5 3 5 10 250 420 @ 70";
  StandList("NI", {line});
  const std::string written = Edit(line, [](frmSlfRecord& d) {
    EXPECT_EQ(d.cmbLocation.Text, "116 : Lolo NF");
    EXPECT_EQ(d.cmbHabitatType.Text, "260 : Douglas Fir/Ninebark");
    EXPECT_EQ(d.cmbDiameterGrowthTranslationCode.Text, "1 : By subtraction/end of period");
    EXPECT_EQ(d.cmbHeightGrowthTranslationCode.Text, "3 : By subtraction/start of period");
    EXPECT_EQ(d.txtBreakpointDbh.Text, "5.0");
    EXPECT_EQ(d.txtMaximumStandDensityIndex.Text, "420");
  });
  EXPECT_EQ(written,
            "B s9 2001 46.8 114.0 116  260 1920 90 35 52 20 300 5.0 12 1 2.5 92 1 5 3 5 10 250 420 @ 70");
}

TEST_F(EditStandRecordTest, AnUpperCaseValueOfRecordBIsWrittenBackLowerCased) {
  const std::string line = "B S9 1995 @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ FD @";
  EXPECT_EQ(RoundTrip("BC", line), "B s9 1995 @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ fd @");
}

TEST_F(EditStandRecordTest, ABlankMarkFollowedByLettersReadsAsEmptyAndIsWrittenAsTheBlankMark) {
  const std::string line = "B s1 @abc 50 @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @";
  StandList("BC", {line});
  EXPECT_EQ(Edit(line, [](frmSlfRecord& d) { EXPECT_EQ(d.txtInventoryYear.Text, ""); }),
            "B s1 @ 50 @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @");
}

TEST_F(EditStandRecordTest, AShortRecordBFillsTheMissingFieldsWithBlankMarks) {
  EXPECT_EQ(RoundTrip("BC", "B s1 1995"), "B s1 1995 @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @");
}

TEST_F(EditStandRecordTest, ARecordDWithSeveralAddFilesKeepsTheirOrder) {
  EXPECT_EQ(RoundTrip("BC", "D s1 a.key b/C.KEY c.key @"), "D s1 a.key b/c.key c.key @");
}

TEST_F(EditStandRecordTest, AnUpperCaseTagIsNotRecognisedAndIsDroppedAtTheNextWriting) {
  EXPECT_EQ(RoundTrip("BC", "A s1 & WithPointData BC ni @"), "A s1 &  WithPointData ni @");
}

TEST_F(EditStandRecordTest, TagsBehindABlankMarkAreIgnored) {
  EXPECT_EQ(RoundTrip("BC", "A s1 & WithPointData @ bc @"), "A s1 &  WithPointData @");
}

TEST_F(EditStandRecordTest, AnyPointDataWordButTheExactOneReadsAsNo) {
  EXPECT_EQ(RoundTrip("BC", "A s1 & withpointdata @"), "A s1 &  NoPointData @");
}

TEST_F(EditStandRecordTest, APathWithABlankShiftsTheTokensButItsTagsStillTickTheirBoxes) {
  const std::string line = "A s1 /data/my trees.tre WithPointData ni em @";
  StandList("BC", {line});
  const std::string written = Edit(line, [](frmSlfRecord& d) {
    EXPECT_EQ(d.lblTreeDataSet.Caption, "/DATA/MY");
    EXPECT_TRUE(d.optNo.Value);
    EXPECT_EQ(d.chkNi.Value, 1);
    EXPECT_EQ(d.chkEm.Value, 1);
  });
  EXPECT_EQ(written, "A s1 /data/my NoPointData em ni @");
}

TEST_F(EditStandRecordTest, AQuotedPathReadsCorrectlyUntilTheRecordIsNextSaved) {
  const std::string line = "A s1 \"/data/my trees.tre\" WithPointData ni @";
  StandList("BC", {line});
  const std::string written = Edit(line, [](frmSlfRecord& d) {
    EXPECT_EQ(d.lblTreeDataSet.Caption, "/DATA/MY TREES.TRE");
    EXPECT_TRUE(d.optPlotBasedSiteDataYes.Value);
  });
  EXPECT_EQ(written, "A s1 /data/my trees.tre WithPointData ni @");
}

TEST_F(EditStandRecordTest, ATreeDataTokenBeginningWithAPointIsRefusedUntilAFileIsChosen) {
  const std::string line = "A s1 ./trees.tre WithPointData @";
  StandList("BC", {line});
  const std::string written = Edit(line, [&](frmSlfRecord& d) {
    EXPECT_EQ(d.lblTreeDataSet.Caption, "");
    d.cmdOk_Click();
    EXPECT_EQ(ui.Texts(), Texts{"Must select a Tree Data Set file."});
    EXPECT_TRUE(d.Visible());
    ui.files.push_back("/data/plots.tre");
    d.cmdSelect_Click();
  });
  EXPECT_EQ(written, "A s1 /data/plots.tre WithPointData @");
}

TEST_F(EditStandRecordTest, ABlankMarkAsTreeDataSetShowsTheWorkingDirectoryInUpperCase) {
  WorkingDirectory("/home/ann/work/");
  StandList("BC", {"A s1 @ WithPointData @"});
  Edit("A s1 @ WithPointData @",
       [](frmSlfRecord& d) { EXPECT_EQ(d.lblTreeDataSet.Caption, "/HOME/ANN/WORK/"); }, false);
}

TEST_F(EditStandRecordTest, ARelativePathIsRewrittenAsAFullLowerCasePathUnderALowerCaseWorkingDirectory) {
  WorkingDirectory("/home/ann/work/");
  const std::string line = "A s1 trees/a.tre WithPointData @";
  StandList("BC", {line});
  const std::string written =
      Edit(line, [](frmSlfRecord& d) { EXPECT_EQ(d.lblTreeDataSet.Caption, "/HOME/ANN/WORK/TREES/A.TRE"); });
  EXPECT_EQ(written, "A s1 /home/ann/work/trees/a.tre WithPointData @");
}

TEST_F(EditStandRecordTest, ARelativePathStaysRelativeUnderAnUpperCaseWorkingDirectory) {
  WorkingDirectory("/WORK/");
  EXPECT_EQ(RoundTrip("BC", "A s1 trees/a.tre WithPointData @"), "A s1 trees/a.tre WithPointData @");
}

TEST_F(EditStandRecordTest, GroupCodesEndAtABlankMarkAndWhatFollowsIsLost) {
  const std::string line = "C s1 \"a b\" x@y @skip more @";
  StandList("BC", {line});
  const std::string written =
      Edit(line, [](frmSlfRecord& d) { EXPECT_EQ(d.txtGroupCodes.Text, "a b x@y "); });
  EXPECT_EQ(written, "C s1 a b x@y  @");
}

// --- The look-ups of record B and the variant lists behind them.

TEST_F(EditStandRecordTest, ASixLetterLocationIsStoredAsFourAndShownAgainInTheEditBox) {
  frmSlfRecord& d = NewRecord(1);
  d.cmbStandIdentificationCode2.Text = "st1";
  d.cmbLocation.Text = "Tongas";
  d.cmdOk_Click();
  const std::string line = SelectedLine();
  EXPECT_EQ(line, "B st1 @ @ @ tong @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @");
  App().Slf().cmbVariant.Text = "AK";
  Edit(line, [](frmSlfRecord& r) {
    EXPECT_EQ(r.cmbLocation.ListIndex, -1);
    EXPECT_EQ(r.cmbLocation.Text, "tong");
  }, false);
}

TEST_F(EditStandRecordTest, UnderWsTheLocationListIsEmptyAndATypedCodeComesBackAsTyped) {
  const std::string line = "B s1 @ @ @ 503 @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @";
  StandList("WS", {line});
  const std::string written = Edit(line, [](frmSlfRecord& d) {
    EXPECT_TRUE(d.cmbLocation.Items.empty());
    EXPECT_EQ(d.cmbLocation.Text, "503");
  });
  EXPECT_EQ(written, line);
}

TEST_F(EditStandRecordTest, TheSameCodeShowsTheNameOfTheListInForce) {
  const std::string line = "B s1 @ @ @ 106 @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @";
  StandList("NI", {line});
  const std::string written = Edit(line, [](frmSlfRecord& d) {
    EXPECT_EQ(d.cmbLocation.Text, "106 : Coeur d'Alene NF");
    EXPECT_EQ(d.cmbLocation.ListIndex, 3);
  });
  EXPECT_EQ(written, "B s1 @ @ @ 106  @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @");
  StandList("BC", {line});
  Edit(line, [](frmSlfRecord& d) { EXPECT_EQ(d.cmbLocation.Text, "106 : Southern Interior"); }, false);
}

TEST_F(EditStandRecordTest, UnderSoTheLookUpWorksByCodeWithinTheCurrentListOnly) {
  const std::string line = "B s1 @ @ @ 701 @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @";
  StandList("SO", {line});
  Edit(line, [](frmSlfRecord& d) {
    EXPECT_EQ(d.cmbLocation.ListIndex, 6);
    EXPECT_EQ(d.cmbLocation.Text, "701 : Non Forest Service");
  }, false);
  StandList("AK", {line});
  Edit(line, [](frmSlfRecord& d) {
    EXPECT_EQ(d.cmbLocation.ListIndex, 3);
    EXPECT_EQ(d.cmbLocation.Text, "701  : Non Forest Service");
  }, false);
}

TEST_F(EditStandRecordTest, AnEmptyLocationTokenSelectsNoRowWhenNoCodeReadsAsZero) {
  const std::string line = "B s1 @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @";
  StandList("SO", {line});
  Edit(line, [](frmSlfRecord& d) {
    EXPECT_EQ(d.cmbLocation.ListIndex, -1);
    EXPECT_EQ(d.cmbHabitatType.ListIndex, -1);
    EXPECT_EQ(d.cmbDiameterGrowthTranslationCode.ListIndex, -1);
  }, false);
}

TEST_F(EditStandRecordTest, ChangingTheVariantTwiceBeforeOpeningKeepsTheRowsOfBothAndTheLaterRowWins) {
  const std::string line = "B s1 @ @ @ 505 @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @";
  frmSlf& slf = StandList("NC", {line});
  FillVariantLists();
  slf.cmbVariant.Text = "SO";
  FillVariantLists();
  const frmSlfRecord& loaded = App().SlfRecord();
  // The first change loaded the dialog, whose load added the NC rows once
  // more; the code combos never saw the file's lines being read.
  ASSERT_EQ(loaded.cmbLocation.ListCount(), 6 + 6 + 7);
  EXPECT_EQ(loaded.cmbLocation.Items[6], "505 : Klamath NF");
  EXPECT_EQ(loaded.cmbLocation.Items[15], "505 : Klamath NF");
  Edit(line, [](frmSlfRecord& d) {
    EXPECT_EQ(d.cmbLocation.ListIndex, 15);
    EXPECT_EQ(d.cmbLocation.Text, "505 : Klamath NF");
  }, false);
  // From the first unloading on, every opening starts clean.
  Edit(line, [](frmSlfRecord& d) {
    EXPECT_EQ(d.cmbLocation.ListCount(), 7);
    EXPECT_EQ(d.cmbLocation.ListIndex, 3);
    EXPECT_EQ(d.cmbStandIdentificationCode2.Items, Texts{"s1"});
  }, false);
}

TEST_F(EditStandRecordTest, AHabitatTypeIsFoundByTheNumberOfItsThreeDigitCode) {
  const std::string line = "B s1 @ @ @ @ 0530 @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @";
  StandList("BC", {line});
  const std::string written = Edit(line, [](frmSlfRecord& d) {
    EXPECT_EQ(d.cmbHabitatType.ListIndex, 13);
    EXPECT_EQ(d.cmbHabitatType.Text, "530 : Red Cedar/Queencup Beadlily");
  });
  EXPECT_EQ(written, "B s1 @ @ @ @ 530 @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @");
}

TEST_F(EditStandRecordTest, AGrowthCodeOutsideTheListIsKeptInTheEditBox) {
  const std::string line = "B s1 @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ 7 @ 2 @ @ @ @ @ @";
  StandList("BC", {line});
  const std::string written = Edit(line, [](frmSlfRecord& d) {
    EXPECT_EQ(d.cmbDiameterGrowthTranslationCode.ListIndex, -1);
    EXPECT_EQ(d.cmbDiameterGrowthTranslationCode.Text, "7");
    EXPECT_EQ(d.cmbHeightGrowthTranslationCode.ListIndex, 2);
  });
  EXPECT_EQ(written, line);
}

TEST_F(EditStandRecordTest, FillVariantListsLeavesTheSpeciesRowsEmptyWithoutTheGridScreen) {
  StandList("KT", {});
  App().UnloadHeaders();
  FillVariantLists();
  EXPECT_FALSE(App().HeadersLoaded());
  EXPECT_EQ(App().SlfRecord().cmbSiteSpecies.Items, Texts(15, ""));
  EXPECT_TRUE(App().SlfRecord().cmbLocation.Items.empty());
}

TEST_F(EditStandRecordTest, TheSpeciesRowsFollowTheGridScreensVariantAndTheLocationRowsTheStandLists) {
  StandList("SO", {});
  App().Headers().cmbVariant.Text = "KT";
  ui.boxes.clear();
  const std::string line = "B s1 @ @ @ 505 @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ ot @";
  StandList("SO", {line});
  const std::string written = Edit(line, [](frmSlfRecord& d) {
    ASSERT_EQ(d.cmbSiteSpecies.ListCount(), 15);
    EXPECT_EQ(d.cmbSiteSpecies.Items[10], "OTH");
    EXPECT_EQ(d.cmbSiteSpecies.Items[11], "--");
    EXPECT_EQ(d.cmbSiteSpecies.ListIndex, 10);
    EXPECT_EQ(d.cmbLocation.ListIndex, 3);
    EXPECT_EQ(d.cmbLocation.Text, "505 : Klamath NF");
  });
  EXPECT_EQ(written, "B s1 @ @ @ 505  @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ ot @");
}

TEST_F(EditStandRecordTest, AStoredSpeciesCodeOutsideTheListStaysInTheEditBoxInLowerCase) {
  StandList("BC", {});
  App().Headers().cmbVariant.Text = "BC";
  ui.boxes.clear();
  const std::string line = "B s1 @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ @ wp 20";
  StandList("BC", {line});
  const std::string written = Edit(line, [](frmSlfRecord& d) {
    EXPECT_EQ(d.cmbSiteSpecies.Items[0], "PW");
    EXPECT_EQ(d.cmbSiteSpecies.ListIndex, -1);
    EXPECT_EQ(d.cmbSiteSpecies.Text, "wp");
  });
  EXPECT_EQ(written, line);
}

// --- The tree data set and add file dialogs.

TEST_F(EditStandRecordTest, SelectOnAnEmptyCaptionStartsInTheWorkingDirectoryWithNoName) {
  WorkingDirectory("/home/ann/work/");
  Run().DefaultOutputFileExtension = "Plots (*.plt)|";
  frmSlfRecord& d = NewRecord(0);
  ui.files.push_back("/home/ann/Trees/P1.tre");
  d.cmdSelect_Click();
  ASSERT_EQ(ui.fileDialogs.size(), 1u);
  const FileDialogRequest& dialog = ui.fileDialogs[0];
  EXPECT_EQ(dialog.title, "Corvalin - Select Tree Data Set");
  EXPECT_EQ(dialog.filter, "Plots (*.plt)|Tree List (*.tre) | *.tre |All Files (*.*) | *.*");
  EXPECT_EQ(dialog.filterIndex, 1);
  EXPECT_EQ(dialog.initialFolder, "/home/ann/work");
  EXPECT_EQ(dialog.fileName, "");
  EXPECT_EQ(d.lblTreeDataSet.Caption, "/home/ann/Trees/P1.tre");
}

TEST_F(EditStandRecordTest, SelectOnBareGroundStartsInTheWorkingDirectoryWithNoName) {
  WorkingDirectory("/w/");
  frmSlfRecord& d = NewRecord(0);
  d.cmdBareGround_Click();
  d.cmdSelect_Click();
  ASSERT_EQ(ui.fileDialogs.size(), 1u);
  EXPECT_EQ(ui.fileDialogs[0].initialFolder, "/w");
  EXPECT_EQ(ui.fileDialogs[0].fileName, "");
  EXPECT_EQ(d.lblTreeDataSet.Caption, "*** Bare ground ***");
}

TEST_F(EditStandRecordTest, SelectOnAPathStartsInItsFolderWithItsName) {
  frmSlfRecord& d = NewRecord(0);
  d.lblTreeDataSet.SetCaption("/DATA/TREES/A.TRE");
  ui.files.push_back("/data/trees/b.tre");
  d.cmdSelect_Click();
  ASSERT_EQ(ui.fileDialogs.size(), 1u);
  EXPECT_EQ(ui.fileDialogs[0].initialFolder, "/DATA/TREES");
  EXPECT_EQ(ui.fileDialogs[0].fileName, "A.TRE");
  EXPECT_EQ(d.lblTreeDataSet.Caption, "/data/trees/b.tre");
}

TEST_F(EditStandRecordTest, CancellingTheTreeDataSetDialogKeepsThePreviousPath) {
  frmSlfRecord& d = NewRecord(0);
  d.lblTreeDataSet.SetCaption("/DATA/TREES/A.TRE");
  d.cmdSelect_Click();
  EXPECT_EQ(d.lblTreeDataSet.Caption, "/DATA/TREES/A.TRE");
  d.lblTreeDataSet.SetCaption("");
  d.cmdSelect_Click();
  EXPECT_EQ(d.lblTreeDataSet.Caption, "");
}

TEST_F(EditStandRecordTest, AddStartsInTheWorkingDirectoryAndAddsTheShortenedName) {
  WorkingDirectory("/home/ann/work/");
  frmSlfRecord& d = NewRecord(3);
  ui.files.push_back("/home/ann/work/keys/Thin.key");
  ui.files.push_back("/other/Burn.key");
  d.cmdAdd_Click();
  d.cmdAdd_Click();
  d.cmdAdd_Click();  // cancelled
  ASSERT_EQ(ui.fileDialogs.size(), 3u);
  const FileDialogRequest& dialog = ui.fileDialogs[0];
  EXPECT_EQ(dialog.title, "Corvalin - Select Add File");
  EXPECT_EQ(dialog.filter, "Keyword files (*.key) | *.key |All Files (*.*) | *.*");
  EXPECT_EQ(dialog.initialFolder, "/home/ann/work/");
  EXPECT_EQ(dialog.fileName, "");
  EXPECT_EQ(d.lstDataSetNames.Items, (Texts{"keys/Thin.key", "/other/Burn.key"}));
  d.cmbStandIdentificationCode4.Text = "s1";
  d.cmdOk_Click();
  EXPECT_EQ(SelectedLine(), "D s1 keys/thin.key /other/burn.key @");
}

TEST_F(EditStandRecordTest, DeleteWithNothingSelectedSaysSo) {
  frmSlfRecord& d = NewRecord(3);
  d.lstDataSetNames.Items = {"a.key"};
  d.cmdDelete_Click();
  EXPECT_EQ(ui.Texts(), Texts{"No Add File selected."});
  EXPECT_EQ(d.lstDataSetNames.ListCount(), 1);
}

TEST_F(EditStandRecordTest, DeletingMovesTheSelectionToTheEntryBefore) {
  frmSlfRecord& d = NewRecord(3);
  d.lstDataSetNames.Items = {"a.key", "b.key", "c.key"};
  d.lstDataSetNames.Select(2);
  d.cmdDelete_Click();
  EXPECT_EQ(d.lstDataSetNames.Items, (Texts{"a.key", "b.key"}));
  EXPECT_EQ(d.lstDataSetNames.ListIndex, 1);
  d.lstDataSetNames.Select(0);
  d.cmdDelete_Click();
  EXPECT_EQ(d.lstDataSetNames.Items, Texts{"b.key"});
  EXPECT_EQ(d.lstDataSetNames.ListIndex, 0);
}

TEST_F(EditStandRecordTest, DeletingTheOnlyAddFileLeavesTheListEmptyWithNothingSelected) {
  frmSlfRecord& d = NewRecord(3);
  d.lstDataSetNames.Items = {"a.key"};
  d.lstDataSetNames.Select(0);
  d.cmdDelete_Click();
  EXPECT_TRUE(d.lstDataSetNames.Items.empty());
  EXPECT_EQ(d.lstDataSetNames.ListIndex, -1);
  EXPECT_TRUE(ui.boxes.empty());
}

TEST_F(EditStandRecordTest, ChangeWithNothingSelectedSaysSoWithALowerCaseF) {
  frmSlfRecord& d = NewRecord(3);
  d.lstDataSetNames.Items = {"a.key"};
  d.cmdSelectDataSetFile_Click();
  EXPECT_EQ(ui.Texts(), Texts{"No Add file selected."});
  EXPECT_TRUE(ui.fileDialogs.empty());
}

TEST_F(EditStandRecordTest, ChangeStartsInTheEntrysFolderAndReplacesItWithTheShortenedChoice) {
  WorkingDirectory("/work/");
  frmSlfRecord& d = NewRecord(3);
  d.lstDataSetNames.Items = {"keys/THIN.KEY", "b.key"};
  d.lstDataSetNames.Select(0);
  ui.files.push_back("/work/keys/burn.key");
  d.cmdSelectDataSetFile_Click();
  ASSERT_EQ(ui.fileDialogs.size(), 1u);
  EXPECT_EQ(ui.fileDialogs[0].initialFolder, "/work/keys");
  EXPECT_EQ(ui.fileDialogs[0].fileName, "THIN.KEY");
  EXPECT_EQ(d.lstDataSetNames.Items, (Texts{"keys/burn.key", "b.key"}));
  d.cmdSelectDataSetFile_Click();  // cancelled
  EXPECT_EQ(d.lstDataSetNames.Items, (Texts{"keys/burn.key", "b.key"}));
}

TEST_F(EditStandRecordTest, DoubleClickKeepsTheFolderEndAndReplacesTheEntryWithAnyChoice) {
  WorkingDirectory("/work/");
  frmSlfRecord& d = NewRecord(3);
  d.lstDataSetNames.Items = {"keys/thin.key"};
  d.lstDataSetNames.Select(0);
  ui.files.push_back("/elsewhere/thin.key");
  d.lstDataSetNames_DblClick();
  ASSERT_EQ(ui.fileDialogs.size(), 1u);
  EXPECT_EQ(ui.fileDialogs[0].initialFolder, "/work/keys/");
  EXPECT_EQ(ui.fileDialogs[0].fileName, "thin.key");
  EXPECT_EQ(d.lstDataSetNames.Items, Texts{"/elsewhere/thin.key"});
  d.lstDataSetNames_DblClick();  // cancelled
  EXPECT_EQ(d.lstDataSetNames.Items, Texts{"/elsewhere/thin.key"});
}

TEST_F(EditStandRecordTest, DoubleClickWithNothingSelectedReportsTheMissingEntry) {
  frmSlfRecord& d = NewRecord(3);
  d.lstDataSetNames.Items = {"a.key"};
  d.lstDataSetNames_DblClick();
  ASSERT_EQ(ui.boxes.size(), 1u);
  EXPECT_EQ(ui.boxes[0].text, "[9] Subscript out of range");
  EXPECT_EQ(ui.boxes[0].icon, Icon::Exclamation);
  EXPECT_TRUE(ui.fileDialogs.empty());
  EXPECT_EQ(d.lstDataSetNames.Items, Texts{"a.key"});
}

}  // namespace
}  // namespace corvalin
