// The damage/severity dialog: its lists, the texts that picking and typing
// give, and the cell text OK writes into the grid.
#include "GridFixture.h"
#include "screens/frmDamageSeverity.h"

namespace corvalin {
namespace {

class frmDamageSeverityTest : public testing::GridFixture {
 protected:
  // Picks an item of a list as a click on it would.
  void PickDamage(int index) {
    dialog.cmbDamage.Select(index);
    dialog.cmbDamage_Click();
  }
  void PickSeverity(int index) {
    dialog.cmbSeverity.Select(index);
    dialog.cmbSeverity_Click();
  }

  frmDamageSeverity dialog;
};

TEST_F(frmDamageSeverityTest, LoadFillsDamageListAndLeavesSeverityEmpty) {
  dialog.Form_Load();
  EXPECT_EQ(dialog.Caption, "Corvalin - Edit Damage/Severity Pair");
  EXPECT_EQ(Run().CurrentScreen, "DamageSeverity");
  EXPECT_EQ(dialog.cmbDamage.ListCount(), 18);
  EXPECT_EQ(dialog.cmbSeverity.ListCount(), 0);
}

TEST_F(frmDamageSeverityTest, PreloadSplitsTheCellAndTrimsTheSeverity) {
  dialog.Form_Load();
  dialog.Preload("30 6");
  EXPECT_EQ(dialog.cmbDamage.Text, "30");
  EXPECT_EQ(dialog.cmbSeverity.Text, "6");
}

TEST_F(frmDamageSeverityTest, PickingARangeGivesItsFirstCode) {
  dialog.Form_Load();
  PickDamage(0);
  EXPECT_EQ(dialog.cmbDamage.Text, "01");
}

TEST_F(frmDamageSeverityTest, SeverityListFollowsTheDamageFamily) {
  dialog.Form_Load();
  dialog.cmbDamage.Text = "75";
  dialog.cmbSeverity_GotFocus();
  EXPECT_EQ(dialog.cmbSeverity.Items, (std::vector<std::string>{"  1 : Minor", "  2 : Severe"}));
  PickSeverity(1);
  EXPECT_EQ(dialog.cmbSeverity.Text, "2");
  dialog.cmbDamage.Text = "19";
  dialog.cmbSeverity_GotFocus();
  EXPECT_EQ(dialog.cmbSeverity.ListCount(), 0);
  EXPECT_EQ(dialog.cmbSeverity.Text, "2");
}

TEST_F(frmDamageSeverityTest, SpecialStatusOffersOneItemAndTypingKeepsTwoCharacters) {
  dialog.Form_Load();
  PickDamage(8);
  EXPECT_EQ(dialog.cmbDamage.Text, "55");
  dialog.cmbSeverity_GotFocus();
  EXPECT_EQ(dialog.cmbSeverity.Items, std::vector<std::string>{"  1 : Valid values are 1 through 99"});
  PickSeverity(0);
  EXPECT_EQ(dialog.cmbSeverity.Text, "1");
  dialog.SetSeverityText("456");
  EXPECT_EQ(dialog.cmbSeverity.Text, "45");
  EXPECT_EQ(dialog.CellText(), "5545");
}

TEST_F(frmDamageSeverityTest, SingleDigitSeverityIsRightJustifiedAndEmptyGivesThreeCharacters) {
  dialog.Form_Load();
  dialog.cmbDamage.Text = "30";
  dialog.SetSeverityText("6");
  EXPECT_EQ(dialog.CellText(), "30 6");
  dialog.SetSeverityText("");
  EXPECT_EQ(dialog.CellText(), "30 ");
  dialog.cmbDamage.Text = "9";
  dialog.SetSeverityText("1");
  EXPECT_EQ(dialog.CellText(), "9 1");
}

TEST_F(frmDamageSeverityTest, OkWritesTheCellOfTheButtonColumnInTheCurrentRow) {
  MakeTable({{1, {"1", ""}}, {2, {"2", ""}}});
  frmHeaders& headers = LoadHeaders();
  headers.ButtonColumn = 2;
  headers.Adodc1.Recordset->SetBookmark(BookmarkOfLine(headers, 2));
  ui.AnswerDialog<frmDamageSeverity>([](frmDamageSeverity& d) {
    d.cmbDamage.Text = "45";
    d.SetSeverityText("0");
    d.cmdOk_Click();
  });
  headers.OpenDamageSeverityDialog("");
  EXPECT_TRUE(ui.boxes.empty()) << (ui.boxes.empty() ? "" : ui.boxes[0].text);
  EXPECT_EQ(ui.modalDialogs, std::vector<std::string>{"frmDamageSeverity"});
  EXPECT_EQ(CellOf(2, "c2"), "45 0");
  EXPECT_EQ(CellOf(1, "c2"), "");
  EXPECT_FALSE(App().DamageSeverityLoaded());
}

TEST_F(frmDamageSeverityTest, HelpOpensItsSectionAndKeepsTheDialogOpen) {
  PlaceHelpFile();
  MakeTable({{1, {"1", "12 3"}}});
  frmHeaders& headers = LoadHeaders();
  headers.ButtonColumn = 2;
  ui.AnswerDialog<frmDamageSeverity>([](frmDamageSeverity& d) {
    EXPECT_EQ(d.cmdHelp.Caption, "Help");
    d.cmdHelp_Click();
    EXPECT_TRUE(d.Visible());
    d.cmdCancel_Click();
  });
  headers.OpenDamageSeverityDialog("12 3");
  ASSERT_EQ(ui.helpOpened.size(), 1u);
  EXPECT_EQ(ui.helpOpened[0].second, "context-50");
}

TEST_F(frmDamageSeverityTest, CancelLeavesTheCell) {
  MakeTable({{1, {"1", "12 3"}}});
  frmHeaders& headers = LoadHeaders();
  headers.ButtonColumn = 2;
  ui.AnswerDialog<frmDamageSeverity>([](frmDamageSeverity& d) {
    d.cmbDamage.Text = "45";
    d.cmdCancel_Click();
  });
  headers.OpenDamageSeverityDialog("12 3");
  EXPECT_EQ(CellOf(1, "c2"), "12 3");
  EXPECT_FALSE(App().DamageSeverityLoaded());
}

TEST_F(frmDamageSeverityTest, DialogNobodyAnswersEndsAsCancelledAndIsUnloaded) {
  MakeTable({{1, {"1", "12 3"}}});
  frmHeaders& headers = LoadHeaders();
  headers.ButtonColumn = 2;
  headers.OpenDamageSeverityDialog("12 3");
  EXPECT_EQ(ui.modalDialogs, std::vector<std::string>{"frmDamageSeverity"});
  EXPECT_EQ(CellOf(1, "c2"), "12 3");
  EXPECT_FALSE(App().DamageSeverityLoaded());
}

}  // namespace
}  // namespace corvalin
