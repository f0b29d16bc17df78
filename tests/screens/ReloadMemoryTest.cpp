// Unloading frees: the grid screen reloaded ten times over the largest file
// the program takes holds no more memory than after one load, since each
// unloaded grid lets go of its rows and database.
#include <malloc.h>

#include <cstddef>

#include <filesystem>
#include <iostream>
#include <string>

#include "TestSupport.h"
#include "screens/Application.h"
#include "screens/frmColumns.h"
#include "screens/frmHeaders.h"
#include "screens/frmTemplate.h"
#include "shell/RunState.h"
#include "worktable/clsDBEngine.h"

namespace corvalin {
namespace {

#if defined(__SANITIZE_ADDRESS__)
// The address sanitizer's own count of what is allocated (its allocator
// stands in for malloc's, whose figures are then empty).
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#endif

// The bytes the process holds allocated now: what it asked for and has not
// given back, whatever the allocator keeps aside of what was given back.
std::size_t BytesHeld() {
#if defined(__SANITIZE_ADDRESS__)
  return __sanitizer_get_current_allocated_bytes();
#else
  const struct mallinfo2 info = ::mallinfo2();
  return info.uordblks + info.hblkhd;
#endif
}

class ReloadMemory : public testing::FreshProcess {
 protected:
  void SetUp() override {
    FreshProcess::SetUp();
    Run().InstallFolder = (testing::BinaryDir() / "share/corvalin").string() + "/";
    Run().ReloadNeeded = true;
  }
};

TEST_F(ReloadMemory, TenReloadsOfTheLargestFileHoldNoMoreThanOneLoad) {
  const std::size_t beforeLoad = BytesHeld();
  // 32,767 lines of ten columns, as a survey file of that size has them.
  std::string text;
  for (int line = 1; line <= 32767; ++line)
    text += std::to_string(line / 20 + 1) + "," + std::to_string(line % 20 + 1) + ",75,1,LP,10.5,0.3,45,40,15\r\n";
  const auto path = home / "trees.csv";
  testing::WriteFile(path, text);
  text.clear();
  text.shrink_to_fit();
  App().Template().lblInputFile.SetCaption(path.string());

  frmColumns& columns = App().Columns();
  columns.cmdNext_Click();
  ASSERT_TRUE(ui.boxes.empty()) << ui.boxes[0].text;
  ASSERT_EQ(App().Headers().Adodc1.Recordset->RecordCount(), 32767);
  // The test's toolkit writes down every line the busy window showed; that
  // record is the test's, not the program's.
  ui.busyWindow.clear();
  ui.busyWindow.shrink_to_fit();
  const std::size_t afterOneLoad = BytesHeld();
  // The rows of the file are there to see.
  ASSERT_GT(afterOneLoad - beforeLoad, std::size_t{32767} * 40);

  for (int reload = 2; reload <= 10; ++reload) {
    App().Headers().cmdBack_Click();
    // A change of the format makes the next step load the table anew.
    columns.chkSemicolon.Value = reload % 2;
    columns.chkSemicolon_Click();
    ASSERT_TRUE(Run().ReloadNeeded);
    columns.cmdNext_Click();
    ASSERT_EQ(App().Headers().Adodc1.Recordset->RecordCount(), 32767);
    ui.busyWindow.clear();
    ui.busyWindow.shrink_to_fit();
  }
  ASSERT_TRUE(ui.boxes.empty()) << ui.boxes[0].text;
  const std::size_t afterTenLoads = BytesHeld();
  std::cout << "held after one load " << afterOneLoad / 1024 << " KB, after ten " << afterTenLoads / 1024
            << " KB\n";
  // What one load holds, and a little for what a reload leaves in the
  // caches that stay (the statements, the template's reading): never a
  // second table's rows.
  EXPECT_LE(afterTenLoads, afterOneLoad + (afterOneLoad - beforeLoad) / 10);
  // Nothing of the nine grids before waits to be destroyed.
  EXPECT_EQ(App().UnloadedWaiting(), 0u);
}

}  // namespace
}  // namespace corvalin
