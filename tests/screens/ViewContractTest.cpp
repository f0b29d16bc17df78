// The view contract: a view attached to a screen is told when the screen is
// shown, hidden, changed and unloaded; changes made by any layer reach it
// when the event ends, or before the program waits on the person; the grid
// says exactly what changed; an unloaded screen and its view go at the end
// of the event.
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "GridFixture.h"
#include "screens/frmDamageSeverity.h"
#include "screens/frmTemplateName.h"
#include "shell/EventScope.h"
#include "shell/Failure.h"
#include "shell/RunState.h"
#include "templates/TemplateCommands.h"
#include "templates/TemplateFile.h"

namespace corvalin {
namespace {

// A view that writes down what it is told, and how many boxes the person had
// seen by then.
// What the views of a test saw go.
struct Tally {
  int destroyed = 0;
  // Screens alive when the last view was told of its screen's unload.
  int aliveAtUnload = -1;
};

class RecordingView : public ScreenView {
 public:
  RecordingView(const testing::ScriptedToolkit& ui, Tally& tally) : ui_(ui), tally_(tally) {}
  ~RecordingView() override { ++tally_.destroyed; }

  void Shown() override { calls.push_back("Shown"); }
  void Hidden() override { calls.push_back("Hidden"); }
  void Changed(const ScreenChanges& changes) override {
    calls.push_back("Changed");
    told.push_back(changes);
    boxesSeen.push_back(ui_.boxes.size());
  }
  void Unloaded() override {
    tally_.aliveAtUnload = Screen::Alive();
    delete this;
  }

  // The changes told since the last look, merged.
  ScreenChanges TakeTold() {
    ScreenChanges all;
    for (const ScreenChanges& c : told) {
      all.controls |= c.controls;
      all.rowsReset |= c.rowsReset;
      all.selection |= c.selection;
      all.current |= c.current;
      all.headings |= c.headings;
      if (!c.cells.Empty()) all.cells.Include(c.cells.first, c.cells.last);
      if (!c.insertedRows.Empty()) all.insertedRows.Include(c.insertedRows.first, c.insertedRows.last);
    }
    told.clear();
    calls.clear();
    boxesSeen.clear();
    return all;
  }

  std::vector<std::string> calls;
  std::vector<ScreenChanges> told;
  std::vector<std::size_t> boxesSeen;

 private:
  const testing::ScriptedToolkit& ui_;
  Tally& tally_;
};

class ViewContractTest : public testing::GridFixture {
 protected:
  void SetUp() override {
    GridFixture::SetUp();
    App().ViewFactory = [this](Screen& screen) {
      auto* view = new RecordingView(ui, tally);
      views[screen.Name()] = view;
      screen.Attach(view);
      ++made;
    };
  }
  void TearDown() override {
    App().UnloadAll();
    GridFixture::TearDown();
  }
  RecordingView& ViewOf(const std::string& name) { return *views.at(name); }

  // The grid over rows with five assigned columns, shown as the wizard
  // shows it, and its view's record cleared.
  frmHeaders& ShownGrid() {
    testing::WriteFile(TemplatePathOf("plots"),
                       "[FORMAT_INFO]\r\nOrvanVariant=BC\r\nColumnHeader1=Plot ID\r\nColumnUnits1=\r\n"
                       "ColumnHeader2=Tree ID\r\nColumnUnits2=\r\nColumnHeader3=Tree Count\r\nColumnUnits3=\r\n"
                       "ColumnHeader4=Species\r\nColumnUnits4=\r\nColumnHeader5=DBH\r\nColumnUnits5=cm\r\n"
                       "ColumnHeader6=Damage/Severity - 1\r\nColumnUnits6=\r\n");
    App().Template().lblInputFile.Caption = "trees.txt";
    Run().UseTemplate = true;
    Run().TemplateFilePath = TemplatePathOf("plots");
    frmHeaders& headers = LoadHeaders();
    RunEvent([&] { headers.Show(); });
    ViewOf("frmHeaders").TakeTold();
    return headers;
  }

  std::map<std::string, RecordingView*> views;
  Tally tally;
  int made = 0;
};

const std::vector<testing::TableRow> kTrees = {{1, {"1", "1", "1", "FD", "20", "12 3"}},
                                                {2, {"1", "2", "1", "XX", "21", ""}},
                                                {3, {"2", "1", "1", "PL", "22", ""}}};

TEST_F(ViewContractTest, ShowingAScreenTellsItsViewToDrawAllOfItBeforeItsActivation) {
  MakeTable(kTrees);
  App().Template();
  frmHeaders& headers = LoadHeaders();
  RecordingView& view = ViewOf("frmHeaders");
  view.TakeTold();
  RunEvent([&] { headers.Show(); });
  ASSERT_FALSE(view.calls.empty());
  EXPECT_EQ(view.calls.front(), "Shown");
  // The activation bound new rows and wrote the headings after the view drew.
  const ScreenChanges told = view.TakeTold();
  EXPECT_TRUE(told.rowsReset);
  EXPECT_TRUE(told.headings);
  EXPECT_TRUE(told.controls);
}

TEST_F(ViewContractTest, ValidationSelectingTheCellTellsTheGridsViewBeforeTheMessage) {
  MakeTable(kTrees);
  frmHeaders& headers = ShownGrid();
  RecordingView& view = ViewOf("frmHeaders");
  headers.cmdValidate_Click();
  ASSERT_EQ(ui.Texts(), std::vector<std::string>{"Invalid Species Code."});
  ASSERT_FALSE(view.told.empty());
  // The person sees the row selected when the message comes up.
  EXPECT_TRUE(view.told.front().selection);
  EXPECT_TRUE(view.told.front().current);
  EXPECT_EQ(view.boxesSeen.front(), 0u);
  ASSERT_EQ(headers.SelBookmarks.size(), 1u);
  EXPECT_EQ(headers.SelBookmarks[0], BookmarkOfLine(headers, 2));
}

TEST_F(ViewContractTest, ACommandReplayTellsTheGridsViewWhichRowsChanged) {
  MakeTable(kTrees);
  frmHeaders& headers = ShownGrid();
  RecordingView& view = ViewOf("frmHeaders");
  AddCommand({"EXCLUDE_STARTING_WITH", "", "", 4, 0, 0, "P"});
  RunEvent([&] { ReplayTemplateCommands(headers.Adodc1.Recordset); });
  ASSERT_EQ(view.told.size(), 1u);
  EXPECT_EQ(view.told[0].cells, (RowSpan{2, 2}));
  EXPECT_FALSE(view.told[0].rowsReset);
  EXPECT_TRUE(view.told[0].insertedRows.Empty());
  EXPECT_FALSE(view.told[0].controls);
}

TEST_F(ViewContractTest, TheDamageDialogWritingACellTellsTheGridsViewAndTheDialogGoesWithItsView) {
  MakeTable(kTrees);
  frmHeaders& headers = ShownGrid();
  RecordingView& grid = ViewOf("frmHeaders");
  headers.ButtonColumn = 6;
  headers.Adodc1.Recordset->SetBookmark(BookmarkOfLine(headers, 1));
  std::vector<std::string> dialogCalls;
  ui.AnswerDialog<frmDamageSeverity>([&](frmDamageSeverity& dialog) {
    dialog.cmbDamage.Text = "45";
    dialog.SetSeverityText("0");
    dialog.cmdOk_Click();
    dialogCalls = ViewOf("frmDamageSeverity").calls;
  });
  const int destroyedBefore = tally.destroyed;
  RunEvent([&] { headers.OpenDamageSeverityDialog("12 3"); });
  EXPECT_EQ(CellOf(1, "c6"), "45 0");
  const ScreenChanges told = grid.TakeTold();
  EXPECT_FALSE(told.cells.Empty());
  EXPECT_EQ(told.cells.first, 0);
  // The dialog was shown, drew its OK, hid; then, the event over, it went.
  ASSERT_GE(dialogCalls.size(), 2u);
  EXPECT_EQ(dialogCalls.front(), "Shown");
  EXPECT_EQ(dialogCalls.back(), "Hidden");
  EXPECT_EQ(tally.destroyed, destroyedBefore + 1);
  EXPECT_FALSE(App().DamageSeverityLoaded());
}

TEST_F(ViewContractTest, GridTellsANewRowSetAsAReset) {
  MakeTable(kTrees);
  frmHeaders& headers = ShownGrid();
  headers.chkShowExcludedRows.Value = 0;
  headers.chkShowExcludedRows_Click();
  const ScreenChanges told = ViewOf("frmHeaders").TakeTold();
  EXPECT_TRUE(told.rowsReset);
  EXPECT_TRUE(told.controls);
}

TEST_F(ViewContractTest, GridTellsEditedRowsAsARangeAndAddedRowsApart) {
  std::vector<testing::TableRow> rows;
  for (int line = 1; line <= 10; ++line) rows.push_back({line, {std::to_string(line)}});
  MakeTable(rows);
  frmHeaders& headers = ShownGrid();
  RecordingView& view = ViewOf("frmHeaders");
  RunEvent([&] {
    auto clone = headers.Adodc1.Recordset->Clone();
    for (long bookmark : {6L, 2L}) {
      clone->SetBookmark(bookmark);
      clone->SetValue("c1", "x");
      clone->Update();
    }
  });
  ScreenChanges told = view.TakeTold();
  EXPECT_EQ(told.cells, (RowSpan{2, 6}));
  EXPECT_TRUE(told.insertedRows.Empty());
  RunEvent([&] {
    Recordset& grid = *headers.Adodc1.Recordset;
    grid.AddNew();
    grid.SetValue("LineNum", "11");
    grid.SetValue("Excluded", "N");
    grid.Update();
  });
  told = view.TakeTold();
  EXPECT_EQ(told.insertedRows, (RowSpan{10, 10}));
  EXPECT_TRUE(told.cells.Empty());
  EXPECT_EQ(headers.Adodc1.Recordset->RecordCount(), 11);
  EXPECT_EQ(CellOf(11, "Excluded"), "N");
}

TEST_F(ViewContractTest, GridTellsTheSelectionTheCurrentRowAndTheHeadingsApart) {
  MakeTable(kTrees);
  frmHeaders& headers = ShownGrid();
  RecordingView& view = ViewOf("frmHeaders");
  RunEvent([&] { headers.SelectGridRow(BookmarkOfLine(headers, 3)); });
  ScreenChanges told = view.TakeTold();
  EXPECT_TRUE(told.selection);
  EXPECT_TRUE(told.current);
  EXPECT_FALSE(told.headings);
  EXPECT_FALSE(told.rowsReset);
  RunEvent([&] { headers.SelectGridColumn(2); });
  told = view.TakeTold();
  EXPECT_TRUE(told.selection);
  EXPECT_TRUE(told.controls);  // the assign lists show column 2
  headers.SelectHeaderChoice(7);
  told = view.TakeTold();
  EXPECT_TRUE(told.headings);
  EXPECT_FALSE(told.selection);
}

TEST_F(ViewContractTest, ARepaintOfTheGridTellsEveryRowAndAViewIsToldOncePerEvent) {
  MakeTable(kTrees);
  frmHeaders& headers = ShownGrid();
  RecordingView& view = ViewOf("frmHeaders");
  headers.SelectVariant(3);
  ASSERT_EQ(view.told.size(), 1u);
  EXPECT_EQ(view.told[0].cells, (RowSpan{0, 2}));
}

TEST_F(ViewContractTest, OnlyTheScreensWhoseStateChangedAreTold) {
  MakeTable(kTrees);
  frmHeaders& headers = ShownGrid();
  RecordingView& setup = ViewOf("frmTemplate");
  setup.TakeTold();
  headers.chkShowAllColumns.Value = 0;
  headers.chkShowAllColumns_Click();
  EXPECT_TRUE(setup.told.empty());
  EXPECT_FALSE(ViewOf("frmHeaders").told.empty());
  // A change one screen makes on another is told to that other's view.
  RunEvent([&] { App().Template().lblOutputFile.Caption = "/somewhere/else.tre"; });
  ASSERT_EQ(setup.told.size(), 1u);
  EXPECT_TRUE(setup.told[0].controls);
}

TEST_F(ViewContractTest, NestedRoutinesTellTheViewOnceWhenTheOutermostEventEnds) {
  MakeTable(kTrees);
  frmHeaders& headers = ShownGrid();
  RecordingView& view = ViewOf("frmHeaders");
  headers.CurrentColumn = 2;
  RunEvent([&] {
    headers.SelectHeaderChoice(3);
    headers.SelectUnitChoice(-1);
    EXPECT_TRUE(view.told.empty());
  });
  EXPECT_EQ(view.told.size(), 1u);
}

TEST_F(ViewContractTest, UnloadedScreenAndItsViewGoAtTheEndOfTheEventNotDuringIt) {
  MakeTable(kTrees);
  frmHeaders& headers = ShownGrid();
  RecordingView& view = ViewOf("frmHeaders");
  std::weak_ptr<Recordset> rows = headers.Adodc1.Recordset;
  const int alive = Screen::Alive();
  const int destroyedBefore = tally.destroyed;
  RunEvent([&] {
    App().UnloadHeaders();
    // Still there while the event runs, but its rows and database are let go.
    EXPECT_EQ(Screen::Alive(), alive);
    EXPECT_EQ(tally.destroyed, destroyedBefore);
    EXPECT_FALSE(App().HeadersLoaded());
    EXPECT_TRUE(rows.expired());
    EXPECT_FALSE(DatabaseEngine().IsOpen());
    EXPECT_EQ(view.calls.back(), "Hidden");
  });
  EXPECT_EQ(tally.destroyed, destroyedBefore + 1);
  // The view was told while its screen still existed; then the screen went.
  EXPECT_EQ(tally.aliveAtUnload, alive);
  EXPECT_EQ(Screen::Alive(), alive - 1);
  EXPECT_EQ(App().UnloadedWaiting(), 0u);
  // Loading it again makes a fresh screen with a fresh view.
  const int madeBefore = made;
  LoadHeaders();
  EXPECT_EQ(made, madeBefore + 1);
  EXPECT_EQ(Screen::Alive(), alive);
}

TEST_F(ViewContractTest, ADialogNobodyAnswersEndsAsCancelled) {
  MakeTable(kTrees);
  App().Template();
  frmTemplateName& dialog = App().TemplateName();
  dialog.SetText("abc");
  ViewOf("frmTemplateName").TakeTold();
  RunEvent([&] { App().ShowModal(dialog); });
  EXPECT_EQ(ui.modalDialogs, std::vector<std::string>{"frmTemplateName"});
  EXPECT_FALSE(dialog.Visible());
  EXPECT_FALSE(Run().TemplateSaved);
  EXPECT_EQ(ViewOf("frmTemplateName").calls.front(), "Shown");
  EXPECT_EQ(ViewOf("frmTemplateName").calls.back(), "Hidden");
}

TEST_F(ViewContractTest, EventsThePersonCausesDuringAModalDialogTellTheViewsAsTheyEnd) {
  MakeTable(kTrees);
  App().Template();
  frmTemplateName& dialog = App().TemplateName();
  RecordingView& view = ViewOf("frmTemplateName");
  std::size_t toldDuringTheDialog = 0;
  ui.AnswerDialog<frmTemplateName>([&](frmTemplateName& d) {
    view.TakeTold();
    RunEvent([&] { d.SetText("stands"); });
    toldDuringTheDialog = view.told.size();
    d.cmdCancel_Click();
  });
  RunEvent([&] { App().ShowModal(dialog); });
  EXPECT_EQ(toldDuringTheDialog, 1u);
}

}  // namespace
}  // namespace corvalin
