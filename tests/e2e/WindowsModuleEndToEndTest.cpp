// The windows are a module the program loads only when a person is to see
// them: an unattended run without a display starts without the window
// system's libraries, and one with a display loads them for its banner.
// Which libraries a run loaded is what the dynamic loader says it opened.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "ProgramRun.h"
#include "TestSupport.h"

namespace corvalin {
namespace {

namespace fs = std::filesystem;
using testing::Launch;
using testing::ProgramRun;
using testing::ReadFile;
using testing::SharedDataDir;
using testing::SourceDir;
using testing::UnattendedRun;
using testing::StartCorvalin;
using testing::WaitForCorvalin;

class WindowsModule : public UnattendedRun {
 protected:
  // Runs the sample template on the real survey extract with the loader
  // writing down every library it opens; gives the loader's record.
  std::string LoadedLibraries(std::vector<std::string> environment) {
    fs::copy_file(SourceDir() / "data/Work/lolo.cnv", home / "Work/lolo.cnv");
    const fs::path record = home / "loader";
    environment.push_back("LD_DEBUG=files");
    environment.push_back("LD_DEBUG_OUTPUT=" + record.string());
    Launch launch;
    launch.args = {(SharedDataDir() / "lolo-2022/tree.csv").string(), (home / "lolo.tre").string(), "lolo"};
    launch.environment = std::move(environment);
    run = WaitForCorvalin(StartCorvalin(home, launch), home, launch);
    // The loader adds the process id to the name it is given.
    std::string libraries;
    for (const auto& entry : fs::directory_iterator(home))
      if (entry.path().filename().string().rfind("loader.", 0) == 0) libraries += ReadFile(entry.path());
    return libraries;
  }
  ProgramRun run;
};

TEST_F(WindowsModule, AnUnattendedRunWithoutADisplayLoadsNoWindowLibrary) {
  const std::string libraries = LoadedLibraries({});
  EXPECT_EQ(run.status, 0) << run.errors;
  EXPECT_EQ(Result(), "TRANSLATION SUCCESSFUL\r\n");
  ASSERT_NE(libraries.find("libsqlite3"), std::string::npos) << "the loader wrote nothing down";
  EXPECT_EQ(libraries.find("libQt6"), std::string::npos);
  EXPECT_EQ(libraries.find("corvalin-desktop.so"), std::string::npos);
}

TEST_F(WindowsModule, AnUnattendedRunWithADisplayLoadsTheWindowsForItsBanner) {
  // The offscreen platform stands for the display a person would have.
  const std::string libraries = LoadedLibraries({"DISPLAY=:0", "QT_QPA_PLATFORM=offscreen"});
  EXPECT_EQ(run.status, 0) << run.errors;
  EXPECT_EQ(Result(), "TRANSLATION SUCCESSFUL\r\n");
  EXPECT_NE(libraries.find("corvalin-desktop.so"), std::string::npos);
  EXPECT_NE(libraries.find("libQt6Widgets"), std::string::npos);
}

}  // namespace
}  // namespace corvalin
