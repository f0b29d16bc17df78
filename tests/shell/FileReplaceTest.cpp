// Files replaced whole: the same bytes as a writing in place, links followed,
// permissions kept, a protected file refused, nothing left beside the file,
// and a process killed at any moment of a save leaves the old file or the new
// one.
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "TestSupport.h"
#include "shell/Error.h"
#include "shell/FileReplace.h"
#include "shell/TextFile.h"

namespace corvalin {
namespace {

namespace fs = std::filesystem;

// The user a test runs as when it must not be the super-user, who may write
// any file.
constexpr uid_t kNobody = 65534;
constexpr gid_t kNoGroup = 65534;

std::set<std::string> NamesIn(const fs::path& folder) {
  std::set<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder)) names.insert(entry.path().filename().string());
  return names;
}

mode_t ModeOf(const fs::path& path) {
  struct stat info {};
  EXPECT_EQ(::stat(path.c_str(), &info), 0);
  return info.st_mode & 07777;
}

ino_t InodeOf(const fs::path& path) {
  struct stat info {};
  EXPECT_EQ(::stat(path.c_str(), &info), 0);
  return info.st_ino;
}

// Runs the action in a child process and gives what it wrote to its pipe.
std::string InChild(const std::function<std::string()>& action) {
  int pipe[2];
  if (::pipe(pipe) != 0) return "no pipe";
  const pid_t child = ::fork();
  if (child == 0) {
    ::close(pipe[0]);
    const std::string said = action();
    if (::write(pipe[1], said.data(), said.size()) < 0) ::_exit(2);
    ::_exit(0);
  }
  ::close(pipe[1]);
  std::string said;
  char buffer[256];
  for (ssize_t n; (n = ::read(pipe[0], buffer, sizeof buffer)) > 0;) said.append(buffer, static_cast<std::size_t>(n));
  ::close(pipe[0]);
  int status = 0;
  ::waitpid(child, &status, 0);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
  return said;
}

std::string ErrorOf(const std::function<void()>& action) {
  return std::to_string(testing::ErrorNumberRaisedBy(action));
}

class FileReplacing : public testing::FreshProcess {
 protected:
  void TearDown() override {
    SetFileReplaceHook({});
    if (!shared.empty()) {
      std::error_code ec;
      fs::permissions(shared, fs::perms::owner_all, fs::perm_options::add, ec);
      fs::remove_all(shared, ec);
    }
    testing::FreshProcess::TearDown();
  }

  // A folder of its own that another user may reach (the HOME of the test
  // is the super-user's alone), owned by that user when the test runs as
  // the super-user.
  fs::path SharedFolder() {
    std::string name = (fs::temp_directory_path() / "corvalin-replace-XXXXXX").string();
    EXPECT_NE(::mkdtemp(name.data()), nullptr);
    shared = name;
    fs::permissions(shared, fs::perms::owner_all | fs::perms::group_exec | fs::perms::others_exec |
                                fs::perms::group_read | fs::perms::others_read);
    return shared;
  }

  static void GiveToOtherUser(const fs::path& path) {
    if (::geteuid() == 0) {
      ASSERT_EQ(::chown(path.c_str(), kNobody, kNoGroup), 0);
    }
  }

  // Runs the action as another user than the super-user.
  static std::string AsOrdinaryUser(const std::function<std::string()>& action) {
    return InChild([&] {
      if (::geteuid() == 0 && (::setgid(kNoGroup) != 0 || ::setuid(kNobody) != 0)) return std::string("no user");
      return action();
    });
  }

  fs::path shared;
};

TEST_F(FileReplacing, TheFileHoldsExactlyTheNewBytes) {
  const auto path = home / "list.slf";
  testing::WriteFile(path, std::string(5000, 'o') + "\r\n");
  const std::string bytes = std::string("A st1 x @\r\n\0\xe9\xff\r\nB\tst1\r\n", 19);
  ReplaceFileWhole(path.string(), bytes);
  EXPECT_EQ(testing::ReadFile(path), bytes);
  ReplaceFileWhole(path.string(), "");
  EXPECT_EQ(testing::ReadFile(path), "");
  EXPECT_EQ(NamesIn(home), (std::set<std::string>{"Data", "Work", "list.slf"}));
}

TEST_F(FileReplacing, TheLinesOfAStandListAreTheBytesTheyWereInPlace) {
  const auto path = home / "list.slf";
  WriteLinesInPlace(path.string(), {"A st1 x @", "", "B\tst1"});
  EXPECT_EQ(testing::ReadFile(path), "A st1 x @\r\n\r\nB\tst1\r\n");
}

TEST_F(FileReplacing, ALinkStaysALinkAndTheFileItLeadsToGetsTheBytes) {
  fs::create_directory(home / "lists");
  testing::WriteFile(home / "lists" / "real.slf", "old\r\n");
  fs::create_symlink("lists/real.slf", home / "link.slf");
  WriteLinesInPlace((home / "link.slf").string(), {"new"});
  EXPECT_TRUE(fs::is_symlink(home / "link.slf"));
  EXPECT_EQ(fs::read_symlink(home / "link.slf"), fs::path("lists/real.slf"));
  EXPECT_EQ(testing::ReadFile(home / "lists" / "real.slf"), "new\r\n");
  EXPECT_EQ(NamesIn(home / "lists"), std::set<std::string>{"real.slf"});
}

TEST_F(FileReplacing, AChainOfRelativeAndAbsoluteLinksIsFollowedToItsEnd) {
  fs::create_directories(home / "a");
  fs::create_directories(home / "b" / "c");
  testing::WriteFile(home / "b" / "c" / "real.loc", "old\r\n");
  // a/first -> ../b/second (relative to a/), b/second -> the absolute path
  // of b/c/third, b/c/third -> real.loc (relative to b/c/).
  fs::create_symlink("real.loc", home / "b" / "c" / "third");
  fs::create_symlink(home / "b" / "c" / "third", home / "b" / "second");
  fs::create_symlink("../b/second", home / "a" / "first");
  WriteLinesInPlace((home / "a" / "first").string(), {"A \"x\" @ y @ @"});
  EXPECT_EQ(testing::ReadFile(home / "b" / "c" / "real.loc"), "A \"x\" @ y @ @\r\n");
  EXPECT_TRUE(fs::is_symlink(home / "a" / "first"));
  EXPECT_TRUE(fs::is_symlink(home / "b" / "second"));
  EXPECT_TRUE(fs::is_symlink(home / "b" / "c" / "third"));
  EXPECT_EQ(NamesIn(home / "b" / "c"), (std::set<std::string>{"real.loc", "third"}));
}

TEST_F(FileReplacing, ALinkThatLeadsNowhereMakesTheFileWhereItPoints) {
  fs::create_directory(home / "lists");
  fs::create_symlink("lists/new.slf", home / "link.slf");
  WriteLinesInPlace((home / "link.slf").string(), {"A"});
  EXPECT_TRUE(fs::is_symlink(home / "link.slf"));
  EXPECT_EQ(testing::ReadFile(home / "lists" / "new.slf"), "A\r\n");
}

TEST_F(FileReplacing, ALoopOfLinksIsAPathFileAccessError) {
  fs::create_symlink("two.slf", home / "one.slf");
  fs::create_symlink("one.slf", home / "two.slf");
  EXPECT_EQ(testing::ErrorNumberRaisedBy([&] { WriteLinesInPlace((home / "one.slf").string(), {"A"}); }),
            err::PathFileAccess);
}

TEST_F(FileReplacing, TheFileKeepsItsPermissionBits) {
  const auto shared = home / "shared.slf";
  const auto own = home / "own.slf";
  testing::WriteFile(shared, "old\r\n");
  testing::WriteFile(own, "old\r\n");
  fs::permissions(shared, static_cast<fs::perms>(0640));
  fs::permissions(own, static_cast<fs::perms>(0600));
  WriteLinesInPlace(shared.string(), {"new"});
  WriteLinesInPlace(own.string(), {"new"});
  EXPECT_EQ(ModeOf(shared), 0640u);
  EXPECT_EQ(ModeOf(own), 0600u);
  EXPECT_EQ(testing::ReadFile(shared), "new\r\n");
}

TEST_F(FileReplacing, AFileOfAnotherOwnerKeepsItsOwnerWhereTheProcessMayGiveIt) {
  if (::geteuid() != 0) GTEST_SKIP() << "only the super-user gives a file to another user";
  const auto path = home / "theirs.slf";
  testing::WriteFile(path, "old\r\n");
  ASSERT_EQ(::chown(path.c_str(), kNobody, kNoGroup), 0);
  WriteLinesInPlace(path.string(), {"new"});
  struct stat info {};
  ASSERT_EQ(::stat(path.c_str(), &info), 0);
  EXPECT_EQ(info.st_uid, kNobody);
  EXPECT_EQ(info.st_gid, kNoGroup);
}

TEST_F(FileReplacing, ANewFileGetsWhatAPlainCreateGivesUnderTheUmask) {
  const mode_t before = ::umask(027);
  WriteLinesInPlace((home / "new.slf").string(), {"A"});
  std::FILE* plain = std::fopen((home / "plain.slf").c_str(), "wb");
  ASSERT_NE(plain, nullptr);
  std::fclose(plain);
  ::umask(0);
  WriteLinesInPlace((home / "open.slf").string(), {"A"});
  ::umask(before);
  EXPECT_EQ(ModeOf(home / "new.slf"), 0640u);
  EXPECT_EQ(ModeOf(home / "plain.slf"), 0640u);
  EXPECT_EQ(ModeOf(home / "open.slf"), 0666u);
}

TEST_F(FileReplacing, AReadOnlyFileStaysAsItWasAndTheSaveFailsAsInPlace) {
  const fs::path folder = SharedFolder();
  const fs::path path = folder / "kept.slf";
  testing::WriteFile(path, "old\r\n");
  fs::permissions(path, static_cast<fs::perms>(0444));
  GiveToOtherUser(folder);
  GiveToOtherUser(path);
  const std::string said = AsOrdinaryUser([&] {
    // What the writing in place met, and what the replacement meets.
    std::FILE* file = std::fopen(path.c_str(), "wb");
    const int code = errno;
    const std::string inPlace = file == nullptr ? ErrorOf([code] { RaiseFileError(code); }) : "opened";
    if (file != nullptr) std::fclose(file);
    const std::string first = ErrorOf([&] { WriteLinesInPlace(path.string(), {"new"}); });
    return inPlace + " " + first + " " + ErrorOf([&] { WriteLinesInPlace(path.string(), {"new"}); });
  });
  // Refused before the open: the second save is refused the same way, not
  // as a file left open.
  EXPECT_EQ(said, "75 75 75");
  EXPECT_EQ(testing::ReadFile(path), "old\r\n");
  EXPECT_EQ(ModeOf(path), 0444u);
  EXPECT_EQ(NamesIn(folder), std::set<std::string>{"kept.slf"});
}

TEST_F(FileReplacing, AFolderWhereNothingMayBeMadeRefusesANewFile) {
  const fs::path folder = SharedFolder();
  GiveToOtherUser(folder);
  fs::permissions(folder, static_cast<fs::perms>(0555));
  const std::string said =
      AsOrdinaryUser([&] { return ErrorOf([&] { WriteLinesInPlace((folder / "new.slf").string(), {"A"}); }); });
  EXPECT_EQ(said, "75");
  EXPECT_TRUE(NamesIn(folder).empty());
}

TEST_F(FileReplacing, AWritableFileInAFolderWhereNothingMayBeMadeIsWrittenInPlace) {
  const fs::path folder = SharedFolder();
  const fs::path path = folder / "open.slf";
  testing::WriteFile(path, "old content\r\n");
  fs::permissions(path, static_cast<fs::perms>(0666));
  GiveToOtherUser(folder);
  GiveToOtherUser(path);
  fs::permissions(folder, static_cast<fs::perms>(0555));
  const ino_t inode = InodeOf(path);
  const std::string said = AsOrdinaryUser([&] { return ErrorOf([&] { WriteLinesInPlace(path.string(), {"new"}); }); });
  EXPECT_EQ(said, "0");
  EXPECT_EQ(testing::ReadFile(path), "new\r\n");
  EXPECT_EQ(InodeOf(path), inode);
  EXPECT_EQ(NamesIn(folder), std::set<std::string>{"open.slf"});
}

TEST_F(FileReplacing, AFailureWhileWritingLeavesTheOldFileAndNoNewOneAndCountsAsLeftOpen) {
  const fs::path path = home / "list.slf";
  testing::WriteFile(path, "old\r\n");
  const std::string said = InChild([&] {
    // The process may make files of 4,096 bytes at most: the 8,000 bytes of
    // the new file fail after the open, as a full disk does.
    const rlimit limit{4096, 4096};
    ::setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, SIG_IGN);
    const std::vector<std::string> lines(1000, "A st1 x");  // 9 bytes a line with CR LF
    const std::string first = ErrorOf([&] { WriteLinesInPlace(path.string(), lines); });
    return first + " " + ErrorOf([&] { WriteLinesInPlace(path.string(), lines); });
  });
  // A file too large for the process is a path/file access error (75), as
  // it was in place; then the file counts as open (55).
  EXPECT_EQ(said, "75 55");
  EXPECT_EQ(testing::ReadFile(path), "old\r\n");
  EXPECT_EQ(NamesIn(home), (std::set<std::string>{"Data", "Work", "list.slf"}));
}

// Three whole contents of 8 MB, each different at every place a part of one
// could show: a mix or a cut is none of them.
std::array<std::string, 3> BigContents() {
  constexpr std::size_t kSize = 8u << 20;
  std::array<std::string, 3> contents;
  for (std::size_t k = 0; k < contents.size(); ++k) {
    contents[k].resize(kSize);
    for (std::size_t i = 0; i < kSize; ++i) contents[k][i] = static_cast<char>('a' + (i / 1000 + k * 7) % 26);
  }
  return contents;
}

// A child that saves the contents in turn, from the first, until it is
// killed. With a stop, it tells the pipe when the save of that round
// reaches that moment, and waits there to be killed.
struct Stop {
  int round;
  ReplaceMoment moment;
  std::size_t written;
};

pid_t StartSaving(const fs::path& path, const std::array<std::string, 3>& contents, const Stop* stop, int tell) {
  const pid_t child = ::fork();
  if (child != 0) return child;
  int round = 0;
  SetFileReplaceHook([&](const std::string&, ReplaceMoment moment, std::size_t written) {
    if (stop == nullptr || round != stop->round || moment != stop->moment || written != stop->written) return;
    if (::write(tell, "s", 1) != 1) ::_exit(3);
    for (;;) ::pause();
  });
  if (stop == nullptr && ::write(tell, "s", 1) != 1) ::_exit(3);
  try {
    for (;; ++round) {
      ReplaceFileWhole(path.string(), contents[static_cast<std::size_t>(round) % contents.size()]);
      // A save that went past its stop says so rather than going on.
      if (stop != nullptr && round == stop->round) {
        if (::write(tell, "x", 1) != 1) ::_exit(3);
        for (;;) ::pause();
      }
    }
  } catch (...) {
    ::_exit(4);
  }
}

int WhichContent(const fs::path& path, const std::array<std::string, 3>& contents) {
  const std::string bytes = testing::ReadFile(path);
  for (std::size_t k = 0; k < contents.size(); ++k)
    if (bytes == contents[k]) return static_cast<int>(k);
  return -1;
}

std::size_t NewFilesBeside(const fs::path& folder) {
  std::size_t count = 0;
  for (const std::string& name : NamesIn(folder))
    if (name.rfind(".big.bin.", 0) == 0) ++count;
  return count;
}

TEST_F(FileReplacing, AProcessKilledWhileSavingLeavesTheOldFileOrTheNewOneNeverAPart) {
  const auto contents = BigContents();
  const fs::path folder = home / "kill";
  fs::create_directory(folder);
  const fs::path path = folder / "big.bin";
  const std::string before(100, 'z');
  // The moments of the save of round 1 (the second content) the child is
  // killed at, and the content the file must then hold: the one of round 0
  // until the new file takes the name.
  const std::vector<std::pair<Stop, int>> stops = {
      {{1, ReplaceMoment::Written, 0}, 0},
      {{1, ReplaceMoment::Written, kReplacePieceBytes}, 0},
      {{1, ReplaceMoment::Written, 5 * kReplacePieceBytes}, 0},
      {{1, ReplaceMoment::Written, contents[1].size()}, 0},
      {{1, ReplaceMoment::Replaced, contents[1].size()}, 1},
      {{0, ReplaceMoment::Written, 3 * kReplacePieceBytes}, -1},
  };
  for (const auto& [stop, expected] : stops) {
    testing::WriteFile(path, before);
    int pipe[2];
    ASSERT_EQ(::pipe(pipe), 0);
    const pid_t child = StartSaving(path, contents, &stop, pipe[1]);
    ::close(pipe[1]);
    char said = 0;
    ASSERT_EQ(::read(pipe[0], &said, 1), 1);
    ::close(pipe[0]);
    ::kill(child, SIGKILL);
    EXPECT_EQ(said, 's') << "the save of round " << stop.round << " never reached " << stop.written << " bytes";
    int status = 0;
    ::waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL);
    if (expected < 0) {
      EXPECT_EQ(testing::ReadFile(path), before) << "killed in the first save at " << stop.written;
    } else {
      EXPECT_EQ(WhichContent(path, contents), expected)
          << "killed in round " << stop.round << " at " << stop.written << " bytes";
    }
    // The new file of the killed save is left, hidden and named after the
    // file, until it took the name; the child's first save removed what the
    // child before it left.
    EXPECT_EQ(NewFilesBeside(folder), stop.moment == ReplaceMoment::Written ? 1u : 0u)
        << "killed in round " << stop.round << " at " << stop.written << " bytes";
  }
  // Killed at random moments of a run of saves: always one whole content.
  std::mt19937 random(20261121);
  for (int run = 0; run < 6; ++run) {
    int pipe[2];
    ASSERT_EQ(::pipe(pipe), 0);
    const pid_t child = StartSaving(path, contents, nullptr, pipe[1]);
    ::close(pipe[1]);
    char said = 0;
    ASSERT_EQ(::read(pipe[0], &said, 1), 1);
    ::close(pipe[0]);
    ::usleep(std::uniform_int_distribution<unsigned>(0, 150000)(random));
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    EXPECT_NE(WhichContent(path, contents), -1) << "run " << run;
  }
  // The next save of the file removes what the killed saves left.
  ReplaceFileWhole(path.string(), "whole\r\n");
  EXPECT_EQ(NamesIn(folder), std::set<std::string>{"big.bin"});
  EXPECT_EQ(testing::ReadFile(path), "whole\r\n");
}

TEST_F(FileReplacing, AProcessTerminatedWhileSavingRemovesItsNewFile) {
  const auto contents = BigContents();
  const fs::path folder = home / "kill";
  fs::create_directory(folder);
  const fs::path path = folder / "big.bin";
  const Stop stop{1, ReplaceMoment::Written, 2 * kReplacePieceBytes};
  int pipe[2];
  ASSERT_EQ(::pipe(pipe), 0);
  const pid_t child = StartSaving(path, contents, &stop, pipe[1]);
  ::close(pipe[1]);
  char said = 0;
  ASSERT_EQ(::read(pipe[0], &said, 1), 1);
  ::close(pipe[0]);
  ASSERT_EQ(said, 's');
  EXPECT_EQ(NewFilesBeside(folder), 1u);
  ::kill(child, SIGTERM);
  int status = 0;
  ::waitpid(child, &status, 0);
  EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGTERM);
  EXPECT_EQ(WhichContent(path, contents), 0);
  EXPECT_EQ(NamesIn(folder), std::set<std::string>{"big.bin"});
}

TEST_F(FileReplacing, TheNewFileOfAProcessStillGoingIsLeftAlone) {
  const fs::path path = home / "list.slf";
  std::string newName;
  SetFileReplaceHook([&](const std::string&, ReplaceMoment moment, std::size_t) {
    if (moment != ReplaceMoment::Written || !newName.empty()) return;
    for (const std::string& name : NamesIn(home))
      if (name.rfind(".list.slf.", 0) == 0) newName = name;
  });
  ReplaceFileWhole(path.string(), "A\r\n");
  SetFileReplaceHook({});
  // ".list.slf.<host>-<pid>-XXXXXX": the same name with the process id of a
  // process that is going (the first one), as another save of it would be.
  ASSERT_EQ(newName.rfind(".list.slf.", 0), 0u);
  const std::string pid = "-" + std::to_string(::getpid()) + "-";
  const auto at = newName.rfind(pid);
  ASSERT_NE(at, std::string::npos);
  const std::string going = newName.substr(0, at) + "-1-" + newName.substr(at + pid.size());
  testing::WriteFile(home / going, "half");
  ReplaceFileWhole(path.string(), "B\r\n");
  EXPECT_EQ(NamesIn(home), (std::set<std::string>{"Data", "Work", "list.slf", going}));
}

TEST_F(FileReplacing, ADeviceIsWrittenInPlaceAndAFullOneCountsAsLeftOpen) {
  if (!fs::exists("/dev/full")) GTEST_SKIP() << "no /dev/full on this system";
  fs::create_symlink("/dev/full", home / "full.slf");
  EXPECT_EQ(testing::ErrorNumberRaisedBy([&] { WriteLinesInPlace((home / "full.slf").string(), {"A"}); }),
            err::DiskFull);
  EXPECT_EQ(testing::ErrorNumberRaisedBy([&] { WriteLinesInPlace((home / "full.slf").string(), {"A"}); }),
            err::FileAlreadyOpen);
  EXPECT_TRUE(fs::is_character_file("/dev/full"));
  EXPECT_TRUE(fs::is_symlink(home / "full.slf"));
}

}  // namespace
}  // namespace corvalin
