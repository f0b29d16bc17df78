// The naming rules of templates, checked at OK in their order.
#include "TestSupport.h"
#include "screens/Application.h"
#include "screens/frmTemplate.h"
#include "screens/frmTemplateName.h"
#include "shell/RunState.h"

namespace corvalin {
namespace {

class frmTemplateNameTest : public testing::FreshProcess {
 protected:
  frmTemplateName dialog;
  void Ok(const std::string& text) {
    dialog.Form_Load();
    dialog.SetText(text);
    dialog.cmdOk_Click();
  }
};

TEST_F(frmTemplateNameTest, LoadTitlesTheDialogAndListsExistingTemplates) {
  testing::WriteFile(home / "Work" / "beta.cnv", "");
  testing::WriteFile(home / "Work" / "alpha.cnv", "");
  testing::WriteFile(home / "Work" / "notes.txt", "");
  Run().TemplateSaved = true;
  dialog.Form_Load();
  EXPECT_EQ(dialog.Caption, "Corvalin - Save Template As...");
  EXPECT_EQ(Run().CurrentScreen, "templateName");
  EXPECT_FALSE(Run().TemplateSaved);
  EXPECT_EQ(dialog.cmbTemplateName.Items, (std::vector<std::string>{"alpha", "beta"}));
}

TEST_F(frmTemplateNameTest, ListsTheFirstScreensTemplatesAndLeavesOutWhatItLeavesOut) {
  testing::WriteFile(home / "Work" / "Plot.CNV", "");
  testing::WriteFile(home / "Work" / "beta.cnv", "");
  testing::WriteFile(home / "Work" / "Alpha.cnv", "");
  testing::WriteFile(home / "Work" / "gamma.two.cnv", "");
  testing::WriteFile(home / "Work" / ".cnv", "");
  std::filesystem::create_directory(home / "Work" / "folder.cnv");
  dialog.Form_Load();
  const std::vector<std::string>& setup = App().Template().cmbTemplate.Items;
  ASSERT_FALSE(setup.empty());
  EXPECT_EQ(dialog.cmbTemplateName.Items, std::vector<std::string>(setup.begin() + 1, setup.end()));
  EXPECT_EQ(dialog.cmbTemplateName.Items, (std::vector<std::string>{"Alpha", "beta", "gamma"}));
}

TEST_F(frmTemplateNameTest, TheListIsTheFirstScreensAsItStandsUntilThatIsRefreshed) {
  App().Template();
  testing::WriteFile(home / "Work" / "later.cnv", "");
  dialog.Form_Load();
  EXPECT_TRUE(dialog.cmbTemplateName.Items.empty());
  App().Template().RefreshTemplateList("later");
  frmTemplateName again;
  again.Form_Load();
  EXPECT_EQ(again.cmbTemplateName.Items, std::vector<std::string>{"later"});
}

TEST_F(frmTemplateNameTest, UpperCaseNameIsSavedLowerCase) {
  Ok("ABC");
  EXPECT_EQ(dialog.cmbTemplateName.Text, "abc");
  EXPECT_TRUE(Run().TemplateSaved);
  EXPECT_TRUE(ui.boxes.empty());
}

TEST_F(frmTemplateNameTest, ExistingNameAsksToSaveOverAndNoKeepsTheDialogOpen) {
  testing::WriteFile(home / "Work" / "abc.cnv", "");
  ui.answers.push_back(Answer::No);
  Ok("ABC");
  ASSERT_EQ(ui.boxes.size(), 1u);
  EXPECT_EQ(ui.boxes[0].text, "Save over existing template?");
  EXPECT_EQ(ui.boxes[0].buttons, Buttons::YesNo);
  EXPECT_EQ(ui.boxes[0].icon, Icon::Question);
  EXPECT_FALSE(Run().TemplateSaved);
  ui.answers.push_back(Answer::Yes);
  dialog.cmdOk_Click();
  EXPECT_TRUE(Run().TemplateSaved);
}

TEST_F(frmTemplateNameTest, DeviceNameIsRefusedAfterLowerCasing) {
  Ok("Com1");
  EXPECT_EQ(ui.Texts(), std::vector<std::string>{"Invalid name - reserved by system."});
  EXPECT_FALSE(Run().TemplateSaved);
  ui.boxes.clear();
  dialog.SetText("com5");
  dialog.cmdOk_Click();
  EXPECT_TRUE(ui.boxes.empty());
  EXPECT_TRUE(Run().TemplateSaved);
}

TEST_F(frmTemplateNameTest, BlankAndPointAreRefused) {
  Ok("my plot");
  dialog.SetText("a.b");
  dialog.cmdOk_Click();
  EXPECT_EQ(ui.Texts(), (std::vector<std::string>{
                            "Template name may contain only alpha-numeric or underscore characters.",
                            "Template name may contain only alpha-numeric or underscore characters."}));
  EXPECT_FALSE(Run().TemplateSaved);
}

TEST_F(frmTemplateNameTest, TypingMoreThanEightCharactersIsCutBack) {
  dialog.SetText("plots_2024");
  EXPECT_EQ(dialog.cmbTemplateName.Text, "plots_20");
}

TEST_F(frmTemplateNameTest, EmptyNamePassesEveryCheck) {
  Ok("");
  EXPECT_TRUE(Run().TemplateSaved);
  EXPECT_TRUE(ui.boxes.empty());
}

TEST_F(frmTemplateNameTest, CancelAndCloseBoxLeaveTemplateUnsaved) {
  Run().TemplateSaved = true;
  dialog.cmdCancel_Click();
  EXPECT_FALSE(Run().TemplateSaved);
  Run().TemplateSaved = true;
  dialog.Form_QueryUnload(1);
  EXPECT_TRUE(Run().TemplateSaved);
  dialog.Form_QueryUnload(0);
  EXPECT_FALSE(Run().TemplateSaved);
}

TEST_F(frmTemplateNameTest, HelpOpensItsSectionAndLeavesTheNameAlone) {
  PlaceHelpFile();
  dialog.Form_Load();
  dialog.SetText("plots");
  dialog.cmdHelp_Click();
  ASSERT_EQ(ui.helpOpened.size(), 1u);
  EXPECT_EQ(ui.helpOpened[0].second, "context-40");
  EXPECT_EQ(dialog.cmbTemplateName.Text, "plots");
  EXPECT_EQ(dialog.cmdOk.Caption, "OK");
  EXPECT_EQ(dialog.cmdCancel.Caption, "Cancel");
}

}  // namespace
}  // namespace corvalin
