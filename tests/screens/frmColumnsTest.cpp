// The column format screen as a controller: its load, the format controls,
// the preview as data and the fixed width markers.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "TestSupport.h"
#include "input/ColumnFormat.h"
#include "screens/Application.h"
#include "screens/frmColumns.h"
#include "screens/frmTemplate.h"
#include "shell/Error.h"
#include "shell/ProfileFile.h"
#include "shell/RunState.h"
#include "shell/Settings.h"

namespace corvalin {
namespace {

class ColumnsScreen : public testing::FreshProcess {
 protected:
  void SetUp() override {
    FreshProcess::SetUp();
    ResetMarkers();
  }
  void TearDown() override {
    ResetMarkers();
    FreshProcess::TearDown();
  }

  // The input file named on frmTemplate, then frmColumns loaded over it.
  frmColumns& LoadWith(const std::string& text) {
    const auto path = home / "trees.csv";
    testing::WriteFile(path, text);
    App().Template().lblInputFile.SetCaption(path.string());
    return App().Columns();
  }

  static void Setting(const std::string& key, const std::string& value) {
    SaveSetting(SettingsApplication, "Corvalin", key, value);
  }

  // A template file in the Work folder, put in force on frmTemplate.
  void UseTemplateWith(const std::vector<std::pair<std::string, std::string>>& keys) {
    const std::string path = Run().WorkFolder + "plots.cnv";
    for (const auto& [key, value] : keys) WriteProfileString(path, "COLUMN_DELIMITERS", key, value);
    frmTemplate& screen = App().Template();
    screen.RefreshTemplateList("plots");
    ASSERT_TRUE(Run().UseTemplate);
    ASSERT_EQ(Run().TemplateFilePath, path);
  }

  static std::vector<int16_t> MarkerPositions() {
    std::vector<int16_t> positions;
    for (int k = 1; k <= Markers().NumMarkers; ++k) positions.push_back(Markers().ColumnMarkers(k));
    return positions;
  }

  static std::vector<int> VisibleLines(const frmColumns& screen) {
    std::vector<int> visible;
    for (int k = 1; k <= kMaxMarkers; ++k)
      if (screen.lneColumnMarker[static_cast<std::size_t>(k)].Visible) visible.push_back(k);
    return visible;
  }

  // Presses and releases the mouse at each character position in turn: on
  // the ruler, a click where no marker stands makes one.
  static void ClickAt(frmColumns& screen, std::initializer_list<int> positions) {
    for (int position : positions) {
      screen.MouseDownAt(position);
      screen.MouseUpAt(position);
    }
  }

  // Fixed width mode through the settings store, with no marker yet.
  frmColumns& LoadFixed(const std::string& text) {
    Setting("FixedWidth", "YES");
    return LoadWith(text);
  }
};

using Positions = std::vector<int16_t>;

// --- load ---

TEST_F(ColumnsScreen, HelpOpensTheColumnFormatSection) {
  const std::string help = PlaceHelpFile();
  LoadWith("a,b\r\n").cmdHelp_Click();
  ASSERT_EQ(ui.helpOpened.size(), 1u);
  EXPECT_EQ(ui.helpOpened[0], std::make_pair(help, std::string("context-30")));
  EXPECT_TRUE(ui.boxes.empty());
}

TEST_F(ColumnsScreen, LoadSetsTitleScreenWordAndInputPath) {
  frmColumns& screen = LoadWith("a,b\r\n");
  EXPECT_EQ(screen.Caption, "Corvalin - Specify Column Format");
  EXPECT_EQ(Run().CurrentScreen, "Columns");
  EXPECT_EQ(screen.lblInputFile.Caption, (home / "trees.csv").string());
  EXPECT_EQ(screen.cmbTextQualifiers.Items, (std::vector<std::string>{"\"", "'", "None"}));
  EXPECT_EQ(screen.PreviewFirstLine, 1);
}

TEST_F(ColumnsScreen, LoadWithoutStoredFormatGivesCommaAndNoQualifier) {
  frmColumns& screen = LoadWith("a,b\r\n");
  EXPECT_TRUE(screen.optCharacterDelimited.Value);
  EXPECT_FALSE(screen.optFixedWidth.Value);
  EXPECT_EQ(screen.chkComma.Value, 1);
  EXPECT_EQ(screen.chkTab.Value, 0);
  EXPECT_EQ(screen.chkConsecutiveAsOne.Value, 0);
  EXPECT_EQ(screen.cmbTextQualifiers.ListIndex, 2);
  EXPECT_EQ(screen.cmbTextQualifiers.Text, "None");
  EXPECT_EQ(Run().ColumnDelimiters, ",");
}

TEST_F(ColumnsScreen, EveryLoadSetsReloadNeeded) {
  Run().ReloadNeeded = false;
  LoadWith("a\r\n");
  EXPECT_TRUE(Run().ReloadNeeded);
}

TEST_F(ColumnsScreen, LoadReadsTheFormatFromTheSettingsStore) {
  Setting("Comma", "NO");
  Setting("Tab", "yes");
  Setting("Semicolon", "Y");
  Setting("Other", "YES");
  Setting("OtherChars", "|#");
  Setting("TreatConsecutiveAsOne", "YES");
  Setting("TextQualifier", "'");
  frmColumns& screen = LoadWith("a\r\n");
  EXPECT_EQ(screen.chkComma.Value, 0);
  EXPECT_EQ(screen.chkTab.Value, 1);
  EXPECT_EQ(screen.chkSemicolon.Value, 1);
  EXPECT_EQ(screen.chkOther.Value, 1);
  EXPECT_EQ(screen.txtOtherCharacter.Text, "|#");
  EXPECT_EQ(screen.chkConsecutiveAsOne.Value, 1);
  EXPECT_EQ(screen.cmbTextQualifiers.Text, "'");
  EXPECT_EQ(Run().ColumnDelimiters, "\t;|#");
}

TEST_F(ColumnsScreen, FixedWidthFromTheSettingsStoreBringsItsMarkers) {
  Setting("FixedWidth", "YES");
  Setting("NumMarkers", "3");
  Setting("FixedMarker1", "15");
  Setting("FixedMarker2", "4");
  Setting("FixedMarker3", "20");
  frmColumns& screen = LoadWith("abc\r\n");
  EXPECT_TRUE(screen.optFixedWidth.Value);
  EXPECT_FALSE(screen.optCharacterDelimited.Value);
  EXPECT_FALSE(screen.chkComma.Enabled);
  EXPECT_FALSE(screen.cmbTextQualifiers.Enabled);
  EXPECT_EQ(MarkerPositions(), (Positions{15, 4, 20}));
  EXPECT_EQ(VisibleLines(screen), (std::vector<int>{1, 2, 3}));
  EXPECT_DOUBLE_EQ(screen.lneColumnMarker[2].X, 4 * 90.0);
  EXPECT_FALSE(screen.lneColumnMarker[2].Grey);
}

TEST_F(ColumnsScreen, DelimitedModeAtLoadDropsTheMarkers) {
  Markers().NumMarkers = 2;
  Markers().ColumnMarkers(1) = 5;
  LoadWith("abc\r\n");
  EXPECT_EQ(Markers().NumMarkers, 0);
}

TEST_F(ColumnsScreen, MarkerCountAboveTheLimitInTheSettingsStoreIsASubscriptError) {
  Setting("FixedWidth", "YES");
  Setting("NumMarkers", "30");
  LoadWith("abc\r\n");
  ASSERT_FALSE(ui.boxes.empty());
  EXPECT_EQ(ui.boxes.back().text, "[9] Subscript out of range");
}

TEST_F(ColumnsScreen, TemplateFormatWinsOverTheSettingsStore) {
  Setting("Comma", "YES");
  UseTemplateWith({{"Comma", "NO"}, {"Semicolon", "YES"}, {"TextQualifier", "\""}, {"TreatConsecutiveAsOne", "YES"}});
  frmColumns& screen = LoadWith("a;b\r\n");
  EXPECT_EQ(screen.chkComma.Value, 0);
  EXPECT_EQ(screen.chkSemicolon.Value, 1);
  EXPECT_EQ(screen.chkConsecutiveAsOne.Value, 1);
  EXPECT_EQ(screen.cmbTextQualifiers.ListIndex, 0);
  EXPECT_EQ(Run().ColumnDelimiters, ";");
  EXPECT_TRUE(screen.cmdFinish.Enabled);
}

TEST_F(ColumnsScreen, TemplateQualifierOfAnyOtherTextSelectsNone) {
  UseTemplateWith({{"TextQualifier", "`"}});
  frmColumns& screen = LoadWith("a\r\n");
  EXPECT_EQ(screen.cmbTextQualifiers.ListIndex, 2);
}

TEST_F(ColumnsScreen, FixedWidthTemplateDrawsNoMarkerAtTheFirstLoad) {
  Setting("NumMarkers", "2");
  Setting("FixedMarker1", "3");
  UseTemplateWith({{"FixedWidth", "YES"}, {"NumMarkers", "2"}, {"FixedMarker1", "3"}, {"FixedMarker2", "6"}});
  frmColumns& screen = LoadWith("abcdefgh\r\n");
  EXPECT_TRUE(screen.optFixedWidth.Value);
  EXPECT_EQ(Markers().NumMarkers, 0);
  EXPECT_TRUE(VisibleLines(screen).empty());
}

TEST_F(ColumnsScreen, FixedWidthTemplateKeepsTheMarkersSetEarlierInTheRun) {
  UseTemplateWith({{"FixedWidth", "YES"}});
  frmColumns& first = LoadWith("abcdefgh\r\n");
  ClickAt(first, {3, 6});
  App().UnloadColumns();
  frmColumns& again = App().Columns();
  EXPECT_EQ(MarkerPositions(), (Positions{3, 6}));
  EXPECT_EQ(VisibleLines(again), (std::vector<int>{1, 2}));
  EXPECT_DOUBLE_EQ(again.lneColumnMarker[2].X, 6 * 90.0);
}

TEST_F(ColumnsScreen, NoTemplateChosenDisablesTranslate) {
  frmColumns& screen = LoadWith("a\r\n");
  EXPECT_EQ(App().Template().cmbTemplate.ListIndex, 0);
  EXPECT_FALSE(screen.cmdFinish.Enabled);
}

// --- preview ---

TEST_F(ColumnsScreen, DelimitedPreviewPadsEachColumnToItsWidestCell) {
  frmColumns& screen = LoadWith("a,bb,c\r\nddd,e\r\n");
  EXPECT_EQ(screen.lblFileView.Caption, "a   bb c \r\n ddd e  ");
  EXPECT_EQ(VisibleLines(screen), (std::vector<int>{1, 2}));
  EXPECT_DOUBLE_EQ(screen.lneColumnMarker[1].X, 4 * 90.0);
  EXPECT_DOUBLE_EQ(screen.lneColumnMarker[2].X, 7 * 90.0);
}

TEST_F(ColumnsScreen, PreviewOfFewerThanTenLinesEndsTheNumbersWithEnd) {
  frmColumns& screen = LoadWith("a\r\nb\r\nc\r\n");
  EXPECT_EQ(screen.lblLineNumbers.Caption, "1\r\n2\r\n3\r\n- end -");
}

TEST_F(ColumnsScreen, PreviewShowsTenLinesFromTheFirstLineShown) {
  std::string text;
  for (int n = 1; n <= 14; ++n) text += "line" + std::to_string(n) + "\r\n";
  Setting("FixedWidth", "YES");
  frmColumns& screen = LoadWith(text);
  EXPECT_EQ(screen.lblLineNumbers.Caption, "1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8\r\n9\r\n10\r\n");
  EXPECT_EQ(screen.VScroll1.Max, 11);
  screen.VScroll1.Value = 8;
  screen.VScroll1_Change();
  EXPECT_EQ(screen.PreviewFirstLine, 8);
  EXPECT_EQ(screen.lblLineNumbers.Caption, "8\r\n9\r\n10\r\n11\r\n12\r\n13\r\n14\r\n- end -");
  EXPECT_EQ(screen.lblFileView.Caption,
            "line8\r\n line9\r\n line10\r\n line11\r\n line12\r\n line13\r\n line14");
}

TEST_F(ColumnsScreen, FixedWidthPreviewShowsTheLinesAsTheyAreWithTabsMarked) {
  frmColumns& screen = LoadFixed("a\tb,c\r\n d\r\n");
  EXPECT_EQ(screen.lblFileView.Caption, "a\xA6" "b,c\r\n  d");
}

TEST_F(ColumnsScreen, DelimitedPreviewMarksTabsToo) {
  frmColumns& screen = LoadWith("a\tb,c\r\n");
  EXPECT_EQ(screen.lblFileView.Caption, "a\xA6" "b c ");
}

TEST_F(ColumnsScreen, ChangingADelimiterRecutsThePreviewAndNeedsAReload) {
  frmColumns& screen = LoadWith("a;b,c\r\n");
  Run().ReloadNeeded = false;
  screen.chkSemicolon.Value = 1;
  screen.chkSemicolon_Click();
  EXPECT_EQ(Run().ColumnDelimiters, ";,");
  EXPECT_EQ(screen.lblFileView.Caption, "a b c ");
  EXPECT_TRUE(Run().ReloadNeeded);
}

TEST_F(ColumnsScreen, EveryFormatControlSetsReloadNeeded) {
  frmColumns& screen = LoadWith("a,b\r\n");
  const std::vector<std::pair<const char*, void (frmColumns::*)()>> events = {
      {"chkTab", &frmColumns::chkTab_Click},
      {"chkComma", &frmColumns::chkComma_Click},
      {"chkSemicolon", &frmColumns::chkSemicolon_Click},
      {"chkSpace", &frmColumns::chkSpace_Click},
      {"chkOther", &frmColumns::chkOther_Click},
      {"txtOtherCharacter", &frmColumns::txtOtherCharacter_Change},
      {"chkConsecutiveAsOne", &frmColumns::chkConsecutiveAsOne_Click},
      {"cmbTextQualifiers", &frmColumns::cmbTextQualifiers_Click},
      {"optFixedWidth", &frmColumns::optFixedWidth_Click},
      {"optCharacterDelimited", &frmColumns::optCharacterDelimited_Click},
      {"DoubleClick", &frmColumns::DoubleClick},
  };
  for (const auto& [name, event] : events) {
    Run().ReloadNeeded = false;
    (screen.*event)();
    EXPECT_TRUE(Run().ReloadNeeded) << name;
  }
  EXPECT_TRUE(ui.boxes.empty());
}

TEST_F(ColumnsScreen, UnchangedDelimiterStillNeedsAReload) {
  frmColumns& screen = LoadWith("a,b\r\n");
  Run().ReloadNeeded = false;
  screen.chkComma_Click();
  EXPECT_EQ(Run().ColumnDelimiters, ",");
  EXPECT_TRUE(Run().ReloadNeeded);
}

TEST_F(ColumnsScreen, QualifierChoiceChangesThePreview) {
  frmColumns& screen = LoadWith("\"a,b\",c\r\n");
  EXPECT_EQ(screen.lblFileView.Caption, "\"a b\" c ");
  screen.cmbTextQualifiers.Select(0);
  screen.cmbTextQualifiers_Click();
  EXPECT_EQ(screen.lblFileView.Caption, "a,b c ");
}

TEST_F(ColumnsScreen, ModeChangeKeepsTheMarkersHiddenWhileDelimited) {
  frmColumns& screen = LoadFixed("abcdefgh\r\n");
  ClickAt(screen, {3});
  screen.optCharacterDelimited_Click();
  EXPECT_TRUE(screen.chkComma.Enabled);
  EXPECT_EQ(MarkerPositions(), (Positions{3}));
  EXPECT_TRUE(VisibleLines(screen).empty());  // one cell: no column line
  screen.optFixedWidth_Click();
  EXPECT_FALSE(screen.chkComma.Enabled);
  EXPECT_EQ(VisibleLines(screen), (std::vector<int>{1}));
  EXPECT_EQ(screen.SelectedMarker, -1);
}

TEST_F(ColumnsScreen, HorizontalScrollShiftsThePreview) {
  frmColumns& screen = LoadWith("a\r\n");
  screen.scrFileViewHorizontal.Value = 120;
  screen.scrFileViewHorizontal_Change();
  EXPECT_EQ(screen.fraScrollerLeft, -120);
}

// --- markers ---

TEST_F(ColumnsScreen, ClickPlacesAMarkerAndReleaseKeepsIt) {
  frmColumns& screen = LoadFixed("abcdefgh\r\n");
  Run().ReloadNeeded = false;
  screen.MouseDownAt(5);
  EXPECT_EQ(MarkerPositions(), (Positions{5}));
  EXPECT_EQ(screen.SelectedMarker, 1);
  EXPECT_TRUE(screen.lneColumnMarker[1].Grey);
  EXPECT_TRUE(screen.lneColumnMarker[1].Visible);
  EXPECT_DOUBLE_EQ(screen.lneColumnMarker[1].X, 450.0);
  EXPECT_TRUE(Run().ReloadNeeded);
  screen.MouseUpAt(5);
  EXPECT_FALSE(screen.lneColumnMarker[1].Grey);
  EXPECT_EQ(screen.SelectedMarker, -1);
  EXPECT_EQ(screen.LastMarker, 1);
}

TEST_F(ColumnsScreen, MarkersKeepTheOrderOfTheirMaking) {
  frmColumns& screen = LoadFixed("abcdefgh\r\n");
  ClickAt(screen, {7, 2, 5});
  EXPECT_EQ(MarkerPositions(), (Positions{7, 2, 5}));
}

TEST_F(ColumnsScreen, DraggingMovesTheMarker) {
  frmColumns& screen = LoadFixed("abcdefgh\r\n");
  ClickAt(screen, {3});
  Run().ReloadNeeded = false;
  screen.MouseDownAt(3);
  screen.MouseMoveAt(4);
  screen.MouseMoveAt(300);  // beyond the last position: the line stays
  screen.MouseMoveAt(6);
  screen.MouseUpAt(6);
  EXPECT_EQ(MarkerPositions(), (Positions{6}));
  EXPECT_DOUBLE_EQ(screen.lneColumnMarker[1].X, 540.0);
  EXPECT_TRUE(Run().ReloadNeeded);
}

TEST_F(ColumnsScreen, DraggingAMarkerOntoAnotherLeavesOne) {
  frmColumns& screen = LoadFixed("abcdefgh\r\n");
  ClickAt(screen, {2, 5, 7});
  screen.MouseDownAt(2);
  screen.MouseMoveAt(5);
  screen.MouseUpAt(5);
  EXPECT_EQ(MarkerPositions(), (Positions{5, 7}));
  EXPECT_EQ(VisibleLines(screen), (std::vector<int>{1, 2}));
  EXPECT_DOUBLE_EQ(screen.lneColumnMarker[1].X, 450.0);
  EXPECT_DOUBLE_EQ(screen.lneColumnMarker[2].X, 630.0);
  EXPECT_EQ(screen.LastMarker, -1);
}

TEST_F(ColumnsScreen, DoubleClickDeletesTheMarkerLastReleased) {
  frmColumns& screen = LoadFixed("abcdefgh\r\n");
  ClickAt(screen, {2, 5, 7});
  ClickAt(screen, {5});  // the marker at 5 is the last released
  Run().ReloadNeeded = false;
  screen.DoubleClick();
  EXPECT_EQ(MarkerPositions(), (Positions{2, 7}));
  EXPECT_EQ(VisibleLines(screen), (std::vector<int>{1, 2}));
  EXPECT_DOUBLE_EQ(screen.lneColumnMarker[2].X, 630.0);
  EXPECT_EQ(screen.LastMarker, -1);
  EXPECT_TRUE(Run().ReloadNeeded);
  screen.DoubleClick();  // nothing released since: nothing to delete
  EXPECT_EQ(MarkerPositions(), (Positions{2, 7}));
}

TEST_F(ColumnsScreen, DoubleClickOnAnEmptyPlaceMakesAndDeletesAMarker) {
  frmColumns& screen = LoadFixed("abcdefgh\r\n");
  ClickAt(screen, {4});
  screen.DoubleClick();
  EXPECT_EQ(Markers().NumMarkers, 0);
  EXPECT_TRUE(VisibleLines(screen).empty());
}

TEST_F(ColumnsScreen, WithTwentyNineMarkersAnotherClickGivesTheMaximumMessage) {
  frmColumns& screen = LoadFixed("abcdefgh\r\n");
  for (int position = 1; position <= 29; ++position) {
    screen.MouseDownAt(position * 2);
    screen.MouseUpAt(position * 2);
  }
  ASSERT_EQ(Markers().NumMarkers, 29);
  const Positions before = MarkerPositions();
  screen.MouseDownAt(61);
  EXPECT_EQ(ui.Texts(), (std::vector<std::string>{"Maximum of 30 columns."}));
  EXPECT_EQ(MarkerPositions(), before);
  EXPECT_EQ(screen.SelectedMarker, -1);
  screen.MouseDownAt(10);
  EXPECT_EQ(screen.SelectedMarker, 5);
  EXPECT_EQ(ui.boxes.size(), 1u);
}

TEST_F(ColumnsScreen, ClickBeyondPosition255SelectsNothing) {
  frmColumns& screen = LoadFixed("abcdefgh\r\n");
  ClickAt(screen, {3});
  screen.MouseDownAt(3);
  EXPECT_EQ(screen.SelectedMarker, 1);
  screen.MouseDownAt(256);
  EXPECT_EQ(screen.SelectedMarker, -1);
  EXPECT_EQ(screen.LastMarker, -1);
  EXPECT_EQ(MarkerPositions(), (Positions{3}));
  screen.MouseDownAt(0);
  EXPECT_EQ(Markers().NumMarkers, 1);
  screen.MouseDownAt(255);
  EXPECT_EQ(MarkerPositions(), (Positions{3, 255}));
}

TEST_F(ColumnsScreen, MouseInDelimitedModePlacesNoMarker) {
  frmColumns& screen = LoadWith("a,b\r\n");
  ClickAt(screen, {3});
  EXPECT_EQ(Markers().NumMarkers, 0);
  EXPECT_EQ(screen.SelectedMarker, -1);
}

TEST_F(ColumnsScreen, FixedWidthCutsWithTheMarkersAsTheyStand) {
  frmColumns& screen = LoadFixed("abcdefgh\r\n");
  ClickAt(screen, {2, 6});
  const ParsedLine parsed = screen.PullColumns(1, "");
  ASSERT_EQ(parsed.Count, 3);
  EXPECT_EQ(parsed.Column(1), "ab");
  EXPECT_EQ(parsed.Column(2), "cdef");
  EXPECT_EQ(parsed.Column(3), "gh");
  // Made out of order, the markers are not sorted until the load.
  ClickAt(screen, {4});
  try {
    screen.PullColumns(1, "");
    FAIL() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), 5);
  }
}

// --- the pixel rule ---

TEST(CharacterPosition, ClickLandsOnTheNearestBoundary) {
  EXPECT_EQ(CharacterPositionAt(0, 90), 0);
  EXPECT_EQ(CharacterPositionAt(44, 90), 0);
  EXPECT_EQ(CharacterPositionAt(45, 90), 1);
  EXPECT_EQ(CharacterPositionAt(134, 90), 1);
  EXPECT_EQ(CharacterPositionAt(135, 90), 2);
  EXPECT_EQ(CharacterPositionAt(7.6, 8), 1);
  EXPECT_EQ(CharacterPositionAt(3.4, 8), 0);
}

TEST(CharacterPosition, HalvesRoundToEven) {
  // 2.5 + 4 = 6.5 rounds to 6, below one width of 8; 3.5 + 4 = 7.5 rounds to 8.
  EXPECT_EQ(CharacterPositionAt(2.5, 8), 0);
  EXPECT_EQ(CharacterPositionAt(3.5, 8), 1);
  // A width of 8.5 counts as 8, one of 9.5 as 10.
  EXPECT_EQ(CharacterPositionAt(12, 8.5), 2);
  EXPECT_EQ(CharacterPositionAt(10, 9.5), 1);
}

}  // namespace
}  // namespace corvalin
