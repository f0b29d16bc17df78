// The busy window, the append question and help.
#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>
#include <vector>

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
  const std::string help = PlaceHelpFile();
  EXPECT_TRUE(ShowHelp(4, help, 0));
  ASSERT_EQ(ui.helpOpened.size(), 1u);
  EXPECT_EQ(ui.helpOpened[0], std::make_pair(help, std::string("contents")));
  EXPECT_TRUE(ui.boxes.empty());
}

TEST_F(SmallWindows, ShowHelpWithAContextOpensItsTopic) {
  const std::string help = PlaceHelpFile();
  EXPECT_TRUE(ShowHelp(4, help, 7));
  ASSERT_EQ(ui.helpOpened.size(), 1u);
  EXPECT_EQ(ui.helpOpened[0].second, "context-7");
}

TEST_F(SmallWindows, ShowHelpCommandsZeroToThree) {
  const std::string help = PlaceHelpFile();
  EXPECT_TRUE(ShowHelp(0, help, 9));
  EXPECT_TRUE(ShowHelp(1, help, 9));
  EXPECT_TRUE(ShowHelp(2, help, 9));
  EXPECT_TRUE(ShowHelp(3, help, 9));
  ASSERT_EQ(ui.helpOpened.size(), 4u);
  EXPECT_EQ(ui.helpOpened[0].second, "");
  EXPECT_EQ(ui.helpOpened[1].second, "contents");
  EXPECT_EQ(ui.helpOpened[2].second, "index");
  EXPECT_EQ(ui.helpOpened[3].second, "search");
}

TEST_F(SmallWindows, ShowHelpWithAnotherCommandDoesNothingAndGivesFalse) {
  const std::string help = PlaceHelpFile();
  EXPECT_FALSE(ShowHelp(5, help, 7));
  EXPECT_FALSE(ShowHelp(-1, help, 7));
  EXPECT_TRUE(ui.helpOpened.empty());
  EXPECT_TRUE(ui.boxes.empty());
}

TEST_F(SmallWindows, AMissingHelpFileIsSaidWithItsPathAndNoBrowserIsAsked) {
  const std::string help = (home / "Help" / "Orvanta.html").string();
  EXPECT_FALSE(ShowHelp(4, help, 7));
  EXPECT_TRUE(ui.helpOpened.empty());
  ASSERT_EQ(ui.boxes.size(), 1u);
  EXPECT_EQ(ui.boxes[0].text, "The help file could not be found:\r\n\r\n" + help);
  EXPECT_EQ(ui.boxes[0].title, "Orvanta - Corvalin - Help");
  EXPECT_EQ(ui.boxes[0].icon, Icon::Exclamation);
  EXPECT_EQ(ui.boxes[0].buttons, Buttons::OK);
}

TEST_F(SmallWindows, AFolderInPlaceOfTheHelpFileIsAMissingFile) {
  const std::string folder = (home / "Help").string();
  std::filesystem::create_directories(folder);
  EXPECT_FALSE(ShowHelp(4, folder, 0));
  EXPECT_TRUE(ui.helpOpened.empty());
  ASSERT_EQ(ui.boxes.size(), 1u);
  EXPECT_EQ(ui.boxes[0].text, "The help file could not be found:\r\n\r\n" + folder);
}

TEST_F(SmallWindows, NoBrowserToShowTheHelpIsSaidWithTheFilesPath) {
  const std::string help = PlaceHelpFile();
  ui.browserStarts = false;
  EXPECT_FALSE(ShowHelp(4, help, 24));
  ASSERT_EQ(ui.helpOpened.size(), 1u);
  EXPECT_EQ(ui.helpOpened[0].second, "context-24");
  ASSERT_EQ(ui.boxes.size(), 1u);
  EXPECT_EQ(ui.boxes[0].text,
            "No web browser could be started to show the help. Open this file in your browser:\r\n\r\n" + help);
  EXPECT_EQ(ui.boxes[0].title, "Orvanta - Corvalin - Help");
  EXPECT_EQ(ui.boxes[0].icon, Icon::Exclamation);
  EXPECT_EQ(ui.boxes[0].buttons, Buttons::OK);
}

TEST_F(SmallWindows, HelpPageHasASectionForEveryContextTheProgramUses) {
  const std::string page = testing::ReadFile(testing::SourceDir() / "data" / "Help" / "Orvanta.html");
  for (int context : {6, 7, 10, 20, 24, 30, 40, 50, 60, 70, 80, 90, 100, 140, 180, 210, 220, 230, 240, 250})
    EXPECT_NE(page.find("id=\"" + HelpTopicOfContext(context) + "\""), std::string::npos) << context;
  for (const char* topic : {"contents", "index", "search"})
    EXPECT_NE(page.find(std::string("id=\"") + topic + "\""), std::string::npos) << topic;
}

// The text from at up to the next double quote.
std::string QuotedAt(const std::string& page, std::size_t at) {
  const std::size_t end = page.find('"', at);
  return end == std::string::npos ? page.substr(at) : page.substr(at, end - at);
}

// The quoted values that follow each occurrence of marker, which ends with
// the opening quote: the ids of a page after ' id="'.
std::vector<std::string> QuotedAfter(const std::string& page, const std::string& marker) {
  std::vector<std::string> values;
  for (std::size_t at = page.find(marker); at != std::string::npos; at = page.find(marker, at + 1))
    values.push_back(QuotedAt(page, at + marker.size()));
  return values;
}

// Every picture of the installed help is installed beside it, every link
// within the page has its target, and no id is given twice.
TEST_F(SmallWindows, InstalledHelpHasEveryPictureAndEveryLinkTarget) {
  const std::filesystem::path helpFolder = testing::BinaryDir() / "share" / "corvalin" / "Help";
  const std::string page = testing::ReadFile(helpFolder / HelpFileName);
  EXPECT_EQ(page, testing::ReadFile(testing::SourceDir() / "data" / "Help" / HelpFileName));

  std::set<std::string> ids;
  for (const std::string& id : QuotedAfter(page, " id=\""))
    EXPECT_TRUE(ids.insert(id).second) << "id given twice: " << id;

  const std::vector<std::string> links = QuotedAfter(page, "href=\"#");
  for (const std::string& link : links) EXPECT_EQ(ids.count(link), 1u) << "no target for #" << link;
  EXPECT_GT(links.size(), 40u);

  int pictures = 0;
  for (std::size_t at = page.find("<img src=\""); at != std::string::npos; at = page.find("<img src=\"", at + 1)) {
    const std::string source = QuotedAt(page, at + std::string("<img src=\"").size());
    const std::size_t altAt = at + std::string("<img src=\"").size() + source.size() + 1;
    EXPECT_EQ(page.compare(altAt, 6, " alt=\""), 0) << source << " has no alt text";
    EXPECT_TRUE(std::filesystem::is_regular_file(helpFolder / source)) << source;
    EXPECT_FALSE(QuotedAt(page, altAt + 6).empty()) << source;
    ++pictures;
  }
  // Every picture is written as <img src="..." alt="...">.
  std::size_t tags = 0;
  for (std::size_t at = page.find("<img"); at != std::string::npos; at = page.find("<img", at + 1)) ++tags;
  EXPECT_EQ(static_cast<std::size_t>(pictures), tags);
  EXPECT_GE(pictures, 28);
}

}  // namespace
}  // namespace corvalin
