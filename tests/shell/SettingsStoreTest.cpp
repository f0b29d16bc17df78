// The per-user settings store: one profile file per application under the
// user's configuration folder.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>

#include "TestSupport.h"
#include "shell/ProfileFile.h"
#include "shell/Settings.h"

namespace corvalin {
namespace {

using testing::FreshProcess;
using testing::ReadFile;
using testing::WriteFile;

class SettingsStore : public FreshProcess {
 protected:
  std::filesystem::path Ini() const { return home / ".config" / "Orvanta" / "Orvanta.ini"; }
};

TEST_F(SettingsStore, LivesUnderXdgConfigHome) {
  EXPECT_EQ(SettingsFilePath("Orvanta"), (home / ".config" / "Orvanta" / "Orvanta.ini").string());
}

TEST_F(SettingsStore, LivesUnderDotConfigWhenXdgConfigHomeIsUnset) {
  ::unsetenv("XDG_CONFIG_HOME");
  EXPECT_EQ(SettingsFilePath("Orvanta"), home.string() + "/.config/Orvanta/Orvanta.ini");
}

TEST_F(SettingsStore, MissingKeyGivesTheDefault) {
  EXPECT_EQ(GetSetting("Orvanta", "Corvalin", "Configured", "NO"), "NO");
  SaveSetting("Orvanta", "Corvalin", "Other", "x");
  EXPECT_EQ(GetSetting("Orvanta", "Corvalin", "Configured", "NO"), "NO");
}

TEST_F(SettingsStore, SaveWritesTheSectionAndKeyWithCrLf) {
  SaveSetting("Orvanta", "Common", "DataDir", "/d/");
  EXPECT_EQ(ReadFile(Ini()), "[Common]\r\nDataDir=/d/\r\n");
}

TEST_F(SettingsStore, KeysAndSectionsAreFoundWithoutRegardToCase) {
  std::filesystem::create_directories(Ini().parent_path());
  WriteFile(Ini(), "[COMMON]\nworkdir=/w/\n");
  EXPECT_EQ(GetSetting("Orvanta", "Common", "WorkDir", ""), "/w/");
}

TEST_F(SettingsStore, ValuesAreTrimmedOfBlanks) {
  std::filesystem::create_directories(Ini().parent_path());
  WriteFile(Ini(), "[Corvalin]\r\nOrvanVariant =  BC  \r\n");
  EXPECT_EQ(GetSetting("Orvanta", "Corvalin", "OrvanVariant", ""), "BC");
}

TEST_F(SettingsStore, SavingOneKeyKeepsTheRest) {
  std::filesystem::create_directories(Ini().parent_path());
  WriteFile(Ini(), "[Common]\nDataDir=/d/\nWorkDir=/w/\n[Corvalin]\nConfigured=NO\n");
  SaveSetting("Orvanta", "Common", "WorkDir", "/x/");
  SaveSetting("Orvanta", "Brenwick", "HelpDir", "/h.html");
  EXPECT_EQ(ReadFile(Ini()),
            "[Common]\r\nDataDir=/d/\r\nWorkDir=/x/\r\n[Corvalin]\r\nConfigured=NO\r\n[Brenwick]\r\nHelpDir=/h.html\r\n");
}

TEST_F(SettingsStore, DeleteRemovesOneKeyOnly) {
  SaveSetting("Orvanta", "Brenwick", "DataDir", "/old/");
  SaveSetting("Orvanta", "Brenwick", "HelpDir", "/h");
  DeleteSetting("Orvanta", "Brenwick", "DataDir");
  EXPECT_EQ(GetSetting("Orvanta", "Brenwick", "DataDir", "gone"), "gone");
  EXPECT_EQ(GetSetting("Orvanta", "Brenwick", "HelpDir", ""), "/h");
}

TEST_F(SettingsStore, DeletingAMissingKeyIsNoFailure) {
  EXPECT_NO_THROW(DeleteSetting("Orvanta", "Brenwick", "DataDir"));
}

TEST_F(SettingsStore, SectionsOfTheSameKeyAreApart) {
  SaveSetting("Orvanta", "Common", "DataDir", "/new/");
  SaveSetting("Orvanta", "Brenwick", "DataDir", "/old/");
  EXPECT_EQ(GetSetting("Orvanta", "Common", "DataDir", ""), "/new/");
  EXPECT_EQ(GetSetting("Orvanta", "Brenwick", "DataDir", ""), "/old/");
}

// A lone CR ends a line, as CR LF and LF do: the value ends there, and what
// follows is a line of its own.
TEST_F(SettingsStore, LoneCrEndsTheValue) {
  std::filesystem::create_directories(Ini().parent_path());
  WriteFile(Ini(), "[Common]\r\nDataDir=/d/\rWorkDir=/w/\r\n");
  EXPECT_EQ(GetSetting("Orvanta", "Common", "DataDir", "?"), "/d/");
  EXPECT_EQ(GetSetting("Orvanta", "Common", "WorkDir", "?"), "/w/");
}

TEST_F(SettingsStore, FirstSectionAndFirstKeyOfANameCount) {
  std::filesystem::create_directories(Ini().parent_path());
  WriteFile(Ini(), "[Common]\r\nDataDir=/first/\r\nDataDir=/second/\r\n[Other]\r\n[common]\r\nWorkDir=/w/\r\n");
  EXPECT_EQ(GetSetting("Orvanta", "Common", "DataDir", "?"), "/first/");
  EXPECT_EQ(GetSetting("Orvanta", "Common", "WorkDir", "?"), "?");
}

// A change of the file, by this program or another, is read, even one of
// the same size a moment later.
TEST_F(SettingsStore, ChangedFileIsReadAgain) {
  std::filesystem::create_directories(Ini().parent_path());
  WriteFile(Ini(), "[Common]\r\nDataDir=/a/\r\n");
  EXPECT_EQ(GetSetting("Orvanta", "Common", "DataDir", "?"), "/a/");
  WriteFile(Ini(), "[Common]\r\nDataDir=/b/\r\n");
  EXPECT_EQ(GetSetting("Orvanta", "Common", "DataDir", "?"), "/b/");
  SaveSetting("Orvanta", "Common", "DataDir", "/c/");
  EXPECT_EQ(GetSetting("Orvanta", "Common", "DataDir", "?"), "/c/");
  // Written over with the same size and its modification time set back an
  // hour: the change time, which nobody can set back, says it is new.
  const auto old = std::filesystem::file_time_type::clock::now() - std::chrono::hours(1);
  std::filesystem::last_write_time(Ini(), old);
  WriteFile(Ini(), "[Common]\r\nDataDir=/d/\r\n");
  std::filesystem::last_write_time(Ini(), old);
  EXPECT_EQ(GetSetting("Orvanta", "Common", "DataDir", "?"), "/d/");
  std::filesystem::remove(Ini());
  EXPECT_EQ(GetSetting("Orvanta", "Common", "DataDir", "?"), "?");
}

// The clock the settings files are judged by, set for one test.
class ProfileClockSetTo {
 public:
  explicit ProfileClockSetTo(std::chrono::system_clock::time_point now) {
    SetProfileClock([now] { return now; });
  }
  ~ProfileClockSetTo() { SetProfileClock(nullptr); }
};

// A file whose last change is long past is read once and kept while it
// stays as it was: many keys cost one reading.
TEST_F(SettingsStore, SettledFileIsReadOnceAndKeptWhileItStaysAsItWas) {
  std::filesystem::create_directories(Ini().parent_path());
  WriteFile(Ini(), "[Common]\r\nDataDir=/a/\r\nWorkDir=/w/\r\n");
  const ProfileClockSetTo anHourLater(std::chrono::system_clock::now() + std::chrono::hours(1));
  const std::size_t before = ProfileFileReads();
  EXPECT_EQ(GetSetting("Orvanta", "Common", "DataDir", "?"), "/a/");
  EXPECT_EQ(ProfileFileReads(), before + 1);
  EXPECT_EQ(GetSetting("Orvanta", "Common", "WorkDir", "?"), "/w/");
  EXPECT_EQ(GetSetting("Orvanta", "Common", "DataDir", "?"), "/a/");
  EXPECT_EQ(ProfileFileReads(), before + 1);
  // Changed by another program: its stamp tells, and it is read again.
  WriteFile(Ini(), "[Common]\r\nDataDir=/changed/\r\n");
  EXPECT_EQ(GetSetting("Orvanta", "Common", "DataDir", "?"), "/changed/");
  EXPECT_EQ(ProfileFileReads(), before + 2);
}

// A file changed in the last moments may change again within one tick of
// the file system's clock, unseen by its stamp: it is read at every lookup
// until it has settled.
TEST_F(SettingsStore, RecentlyChangedFileIsReadAtEveryLookupUntilItSettles) {
  std::filesystem::create_directories(Ini().parent_path());
  WriteFile(Ini(), "[Common]\r\nDataDir=/a/\r\n");
  struct stat info {};
  ASSERT_EQ(::stat(Ini().c_str(), &info), 0);
  const std::chrono::system_clock::time_point changed(std::chrono::duration_cast<std::chrono::system_clock::duration>(
      std::chrono::seconds(info.st_ctim.tv_sec) + std::chrono::nanoseconds(info.st_ctim.tv_nsec)));
  std::size_t before = ProfileFileReads();
  {
    const ProfileClockSetTo aMomentLater(changed + kProfileSettledAfter - std::chrono::milliseconds(1));
    EXPECT_EQ(GetSetting("Orvanta", "Common", "DataDir", "?"), "/a/");
    EXPECT_EQ(GetSetting("Orvanta", "Common", "DataDir", "?"), "/a/");
    EXPECT_EQ(ProfileFileReads(), before + 2);
  }
  before = ProfileFileReads();
  const ProfileClockSetTo settled(changed + kProfileSettledAfter);
  EXPECT_EQ(GetSetting("Orvanta", "Common", "DataDir", "?"), "/a/");
  EXPECT_EQ(GetSetting("Orvanta", "Common", "DataDir", "?"), "/a/");
  EXPECT_EQ(ProfileFileReads(), before + 1);
}

}  // namespace
}  // namespace corvalin
