// The unattended run of the built program on a real inventory extract (the
// Lolo National Forest, 2022) with the sample template "lolo": every line of
// the tree list is worked out here from the extract itself, independently of
// the program's formatters.
#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "TestSupport.h"

extern char** environ;

namespace corvalin {
namespace {

namespace fs = std::filesystem;
using testing::BinaryDir;
using testing::ReadFile;
using testing::SharedDataDir;
using testing::SourceDir;
using testing::WriteFile;

struct ProgramRun {
  int status = -1;
  std::string errors;  // what the program wrote to standard error
};

// Runs the built program with exactly these arguments, its settings under
// home, no display, and waits for it.
ProgramRun RunCorvalin(const fs::path& home, const std::vector<std::string>& args) {
  std::vector<std::string> env;
  for (char** e = environ; *e != nullptr; ++e) {
    const std::string entry = *e;
    if (entry.rfind("DISPLAY=", 0) == 0 || entry.rfind("WAYLAND_DISPLAY=", 0) == 0 || entry.rfind("HOME=", 0) == 0 ||
        entry.rfind("XDG_CONFIG_HOME=", 0) == 0)
      continue;
    env.push_back(entry);
  }
  env.push_back("HOME=" + home.string());
  env.push_back("XDG_CONFIG_HOME=" + (home / ".config").string());
  const std::string program = (BinaryDir() / "bin/corvalin").string();
  std::vector<char*> argv{const_cast<char*>(program.c_str())};
  for (const auto& a : args) argv.push_back(const_cast<char*>(a.c_str()));
  argv.push_back(nullptr);
  std::vector<char*> envp;
  for (auto& e : env) envp.push_back(e.data());
  envp.push_back(nullptr);
  const fs::path errorsPath = home / "stderr.txt";
  const pid_t pid = ::fork();
  if (pid == 0) {
    const int in = ::open("/dev/null", O_RDONLY);
    const int err = ::open(errorsPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    ::dup2(in, 0);
    ::dup2(err, 2);
    ::execve(program.c_str(), argv.data(), envp.data());
    ::_exit(127);
  }
  int status = 0;
  ::waitpid(pid, &status, 0);
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ReadFile(errorsPath)};
}

// A temporary HOME whose settings name existing Data and Work folders.
class UnattendedRun : public ::testing::Test {
 protected:
  void SetUp() override {
    static std::mt19937_64 rng{std::random_device{}()};
    home = fs::temp_directory_path() / ("corvalin-e2e-" + std::to_string(::getpid()) + "-" + std::to_string(rng()));
    fs::create_directories(home / "Data");
    fs::create_directories(home / "Work");
    fs::create_directories(home / ".config/Orvanta");
    WriteFile(home / ".config/Orvanta/Orvanta.ini", "[Common]\r\nDataDir=" + (home / "Data").string() +
                                                        "/\r\nWorkDir=" + (home / "Work").string() + "/\r\n");
  }
  void TearDown() override {
    std::error_code ec;
    fs::remove_all(home, ec);
  }
  fs::path home;
};

std::vector<std::string> Split(const std::string& line, char by) {
  std::vector<std::string> cells;
  std::string cell;
  std::istringstream in(line);
  while (std::getline(in, cell, by)) cells.push_back(cell);
  if (!line.empty() && line.back() == by) cells.push_back("");
  return cells;
}

std::string RightJustified(const std::string& text, std::size_t width) {
  return text.size() >= width ? text.substr(0, width) : std::string(width - text.size(), ' ') + text;
}

// A positive decimal text rounded to a whole number, a half going up.
std::string RoundedWhole(const std::string& text) {
  const std::size_t point = text.find('.');
  std::string whole = text.substr(0, point);
  if (point != std::string::npos && point + 1 < text.size() && text[point + 1] >= '5') {
    int i = static_cast<int>(whole.size()) - 1;
    while (i >= 0 && whole[static_cast<std::size_t>(i)] == '9') whole[static_cast<std::size_t>(i--)] = '0';
    if (i < 0)
      whole.insert(whole.begin(), '1');
    else
      ++whole[static_cast<std::size_t>(i)];
  }
  return whole;
}

// A diameter of one decimal in inches, in tenths of an inch: the point goes.
std::string Tenths(const std::string& inches) {
  const std::size_t point = inches.find('.');
  std::string tenths = inches.substr(0, point) + inches.substr(point + 1, 1);
  const std::size_t first = tenths.find_first_not_of('0');
  return first == std::string::npos ? "0" : tenths.substr(first);
}

// The imperial tree list the extract must give with the "lolo" template.
std::string ExpectedLoloTreeList(const fs::path& extract, std::size_t& records) {
  const std::map<std::string, std::string> species = {
      {"119.0", "WP"}, {"73.0", "L"}, {"202.0", "DF"}, {"17.0", "GF"}, {"263.0", "WH"}, {"242.0", "C"},
      {"108.0", "LP"}, {"93.0", "S"}, {"19.0", "AF"}, {"122.0", "PP"}, {"264.0", "MH"}};
  std::ifstream in(extract, std::ios::binary);
  std::string line;
  std::getline(in, line);  // the heading line
  EXPECT_EQ(line, "PLT_CN,SUBP,TREE,STATUSCD,SPCD,DIA,HT,ACTUALHT,CCLCD,TPA_UNADJ");
  std::map<std::string, int> plotNumber;
  std::string expected;
  records = 0;
  while (std::getline(in, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    const std::vector<std::string> c = Split(line, ',');
    EXPECT_EQ(c.size(), 10u) << line;
    // Plots are numbered in the order they first appear in the extract.
    plotNumber.emplace(c[0], static_cast<int>(plotNumber.size()) + 1);
    const std::string& dia = c[5];
    const std::string& tpa = c[9];
    if (dia.empty() || tpa.empty() || c[4] == "66.0" || c[4] == "746.0") continue;
    EXPECT_TRUE(species.count(c[4])) << c[4];
    std::string record;
    record += RightJustified(std::to_string(plotNumber[c[0]]), 4);
    record += RightJustified(c[2], 3);
    record += RightJustified(RoundedWhole(tpa), 6);
    record += c[3] == "2" ? "6" : c[3];
    record += species.at(c[4]) + std::string(3 - species.at(c[4]).size(), ' ');
    record += RightJustified(Tenths(dia), 4);
    record += "   ";                          // periodic DBH increment
    record += RightJustified(c[6], 3);       // total height, feet
    record += std::string(59 - 27, ' ');     // topkill height to site preparation
    expected += record + "\r\n";
    ++records;
  }
  EXPECT_EQ(plotNumber.size(), 22u);
  return expected;
}

TEST_F(UnattendedRun, LoloExtractTranslatesLineForLineWithTheSampleTemplate) {
  fs::copy_file(SourceDir() / "data/Work/lolo.cnv", home / "Work/lolo.cnv");
  const fs::path extract = SharedDataDir() / "lolo-2022/tree.csv";
  const fs::path output = home / "lolo.tre";

  const ProgramRun run = RunCorvalin(home, {extract.string(), output.string(), "lolo"});

  EXPECT_EQ(ReadFile(home / "Work/result.txt"), "TRANSLATION SUCCESSFUL\r\n") << run.errors;
  EXPECT_EQ(run.status, 0) << run.errors;
  std::size_t records = 0;
  const std::string expected = ExpectedLoloTreeList(extract, records);
  EXPECT_EQ(records, 713u);
  const std::string written = ReadFile(output);
  const std::vector<std::string> want = Split(expected, '\n');
  const std::vector<std::string> got = Split(written, '\n');
  ASSERT_EQ(got.size(), want.size());
  for (std::size_t i = 0; i < want.size(); ++i) EXPECT_EQ(got[i], want[i]) << "record " << i + 1;
  EXPECT_EQ(written, expected);
}

TEST_F(UnattendedRun, LoloRecordsHaveTheImperialLength) {
  fs::copy_file(SourceDir() / "data/Work/lolo.cnv", home / "Work/lolo.cnv");
  const fs::path output = home / "lolo.tre";
  RunCorvalin(home, {(SharedDataDir() / "lolo-2022/tree.csv").string(), output.string(), "lolo"});
  std::ifstream in(output, std::ios::binary);
  std::string line;
  int lines = 0;
  while (std::getline(in, line)) {
    ++lines;
    EXPECT_EQ(line.size(), 60u) << "line " << lines;  // 59 and the CR
  }
  EXPECT_EQ(lines, 713);
}

}  // namespace
}  // namespace corvalin
