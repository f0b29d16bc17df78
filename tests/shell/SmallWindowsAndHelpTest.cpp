// The busy window, the append question and help.
#include <gtest/gtest.h>

#include "TestSupport.h"
#include "shell/Busy.h"
#include "shell/Help.h"
#include "shell/RunState.h"

namespace corvalin {
namespace {

using testing::FreshProcess;

class SmallWindows : public FreshProcess {};

TEST_F(SmallWindows, ShowBusyShowsTitleAndTextThenRunsPendingEvents) {
  ShowBusy("Loading", "Line 1");
  ASSERT_EQ(ui.busyWindow.size(), 1u);
  EXPECT_EQ(ui.busyWindow[0], std::make_pair(std::string("Loading"), std::string("Line 1")));
  EXPECT_EQ(ui.doEvents, 1);
}

TEST_F(SmallWindows, ShowBusyInABatchRunOnlyRunsPendingEvents) {
  Run().CommandLineMode = true;
  ShowBusy("Loading", "Line 1");
  EXPECT_TRUE(ui.busyWindow.empty());
  EXPECT_EQ(ui.doEvents, 1);
}

TEST_F(SmallWindows, HideBusyInABatchRunDoesNotCreateTheWindow) {
  Run().CommandLineMode = true;
  HideBusy();
  EXPECT_EQ(ui.busyHides, 0);
  EXPECT_TRUE(ui.busyWindow.empty());
  EXPECT_EQ(ui.doEvents, 1);
}

TEST_F(SmallWindows, HideBusyInAnInteractiveRunUnloadsTheWindow) {
  ShowBusy("Loading", "x");
  HideBusy();
  EXPECT_EQ(ui.busyHides, 1);
  EXPECT_EQ(ui.doEvents, 2);
}

TEST_F(SmallWindows, ABusyWindowLeftOverIsTakenDownWithoutRunningEvents) {
  ShowBusy("Loading", "x");
  HideBusyLeftOver();
  EXPECT_EQ(ui.busyHides, 1);
  EXPECT_FALSE(Run().BusyWindowLoaded);
  EXPECT_EQ(ui.doEvents, 1);
  // Nothing left over: nothing to take down.
  HideBusyLeftOver();
  EXPECT_EQ(ui.busyHides, 1);
}

TEST_F(SmallWindows, NoBusyWindowIsLeftOverInABatchRun) {
  Run().CommandLineMode = true;
  ShowBusy("Loading", "x");
  HideBusyLeftOver();
  EXPECT_EQ(ui.busyHides, 0);
}

TEST_F(SmallWindows, AppendSetsAppendToOutput) {
  ui.appendChoices = {AppendChoice::Append};
  Run().AppendCancelled = true;
  AskAppendOverwriteCancel();
  EXPECT_FALSE(Run().AppendCancelled);
  EXPECT_TRUE(Run().AppendToOutput);
  ASSERT_EQ(ui.appendQuestions.size(), 1u);
  EXPECT_EQ(ui.appendQuestions[0], "File already exists.  Append to file, overwrite, or cancel?");
  EXPECT_EQ(Run().CurrentScreen, "AppendOverwrite");
  EXPECT_EQ(ui.beeps, 1);
}

TEST_F(SmallWindows, OverwriteClearsAppendToOutput) {
  ui.appendChoices = {AppendChoice::Overwrite};
  Run().AppendToOutput = true;
  Run().AppendCancelled = true;
  AskAppendOverwriteCancel();
  EXPECT_FALSE(Run().AppendCancelled);
  EXPECT_FALSE(Run().AppendToOutput);
}

TEST_F(SmallWindows, CancelLeavesAppendToOutputAsItWas) {
  ui.appendChoices = {AppendChoice::Cancel};
  Run().AppendToOutput = true;
  AskAppendOverwriteCancel();
  EXPECT_TRUE(Run().AppendCancelled);
  EXPECT_TRUE(Run().AppendToOutput);
}

TEST_F(SmallWindows, ClosingTheAppendQuestionByItsWindowControlCancels) {
  ui.appendChoices = {AppendChoice::Closed};
  AskAppendOverwriteCancel();
  EXPECT_TRUE(Run().AppendCancelled);
  EXPECT_FALSE(Run().AppendToOutput);
}

TEST_F(SmallWindows, ShowHelpWithAContextOfZeroShowsTheContentsOnly) {
  EXPECT_TRUE(ShowHelp(4, "/h/Orvanta.html", 0));
  ASSERT_EQ(ui.helpOpened.size(), 1u);
  EXPECT_EQ(ui.helpOpened[0], std::make_pair(std::string("/h/Orvanta.html"), std::string("contents")));
}

TEST_F(SmallWindows, ShowHelpWithAContextOpensItsTopic) {
  EXPECT_TRUE(ShowHelp(4, "/h/Orvanta.html", 7));
  ASSERT_EQ(ui.helpOpened.size(), 1u);
  EXPECT_EQ(ui.helpOpened[0].second, "context-7");
}

TEST_F(SmallWindows, ShowHelpCommandsZeroToThree) {
  EXPECT_TRUE(ShowHelp(0, "f", 9));
  EXPECT_TRUE(ShowHelp(1, "f", 9));
  EXPECT_TRUE(ShowHelp(2, "f", 9));
  EXPECT_TRUE(ShowHelp(3, "f", 9));
  ASSERT_EQ(ui.helpOpened.size(), 4u);
  EXPECT_EQ(ui.helpOpened[0].second, "");
  EXPECT_EQ(ui.helpOpened[1].second, "contents");
  EXPECT_EQ(ui.helpOpened[2].second, "index");
  EXPECT_EQ(ui.helpOpened[3].second, "search");
}

TEST_F(SmallWindows, ShowHelpWithAnotherCommandDoesNothingAndGivesFalse) {
  EXPECT_FALSE(ShowHelp(5, "f", 7));
  EXPECT_FALSE(ShowHelp(-1, "f", 7));
  EXPECT_TRUE(ui.helpOpened.empty());
}

TEST_F(SmallWindows, HelpPageHasASectionForEveryContextTheProgramUses) {
  const std::string page = testing::ReadFile(testing::SourceDir() / "data" / "Help" / "Orvanta.html");
  for (int context : {6, 7, 10, 20, 24, 140, 180, 210, 220, 230, 240, 250})
    EXPECT_NE(page.find("id=\"" + HelpTopicOfContext(context) + "\""), std::string::npos) << context;
  for (const char* topic : {"contents", "index", "search"})
    EXPECT_NE(page.find(std::string("id=\"") + topic + "\""), std::string::npos) << topic;
}

}  // namespace
}  // namespace corvalin
