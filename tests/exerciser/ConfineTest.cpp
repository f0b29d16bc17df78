// A life of the exerciser may write only in its run's folder: a process
// confined so makes, writes and removes files there, and is refused
// everywhere else, though it still reads there.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "Confine.h"

namespace corvalin::exerciser {
namespace {

namespace fs = std::filesystem;

class ConfinedLife : public ::testing::Test {
 protected:
  void SetUp() override {
    root = fs::temp_directory_path() / ("corvalin-confine-" + std::to_string(::getpid()) + "-" +
                                        ::testing::UnitTest::GetInstance()->current_test_info()->name());
    fs::remove_all(root);
    fs::create_directories(root / "run");
    fs::create_directories(root / "elsewhere");
    std::ofstream(root / "elsewhere/kept.txt") << "kept\n";
  }
  void TearDown() override { fs::remove_all(root); }

  // Runs the steps in a child confined to the run folder; its exit status:
  // 0 when every step did as told, else the number of the step that did not,
  // 100 when the kernel cannot confine.
  template <class Steps>
  int InConfinedChild(Steps steps) {
    const pid_t child = ::fork();
    if (child == 0) {
      std::string why;
      if (!ConfineWrites({(root / "run").string()}, why)) ::_exit(100);
      ::_exit(steps());
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  fs::path root;
};

TEST_F(ConfinedLife, WritesInItsFolderAndIsRefusedElsewhere) {
  const std::string run = (root / "run").string();
  const std::string elsewhere = (root / "elsewhere").string();
  const int status = InConfinedChild([&] {
    if (std::FILE* f = std::fopen((run + "/new.txt").c_str(), "w"); f == nullptr || std::fclose(f) != 0) return 1;
    if (!fs::create_directory(run + "/folder")) return 2;
    if (std::remove((run + "/new.txt").c_str()) != 0) return 3;
    errno = 0;
    if (std::fopen((elsewhere + "/new.txt").c_str(), "w") != nullptr || errno != EACCES) return 4;
    if (std::fopen((elsewhere + "/kept.txt").c_str(), "a") != nullptr) return 5;
    if (std::remove((elsewhere + "/kept.txt").c_str()) == 0) return 6;
    std::error_code ec;
    if (fs::create_directory(elsewhere + "/folder", ec) || !ec) return 7;
    if (std::rename((elsewhere + "/kept.txt").c_str(), (run + "/moved.txt").c_str()) == 0) return 8;
    std::ifstream kept(elsewhere + "/kept.txt");
    std::string line;
    if (!std::getline(kept, line) || line != "kept") return 9;
    if (std::FILE* null = std::fopen("/dev/null", "w"); null == nullptr || std::fclose(null) != 0) return 10;
    return 0;
  });
  if (status == 100) GTEST_SKIP() << "this kernel cannot confine a process's writes (Landlock)";
  EXPECT_EQ(status, 0);
  EXPECT_TRUE(fs::exists(root / "elsewhere/kept.txt"));
  EXPECT_FALSE(fs::exists(root / "elsewhere/new.txt"));
  EXPECT_TRUE(fs::exists(root / "run/folder"));
}

}  // namespace
}  // namespace corvalin::exerciser
