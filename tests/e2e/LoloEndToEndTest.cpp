// The unattended run of the built program on a real inventory extract (the
// Lolo National Forest, 2022) with the sample template "lolo": every line of
// the tree list is worked out here from the extract itself, independently of
// the program's formatters.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "ProgramRun.h"
#include "TestSupport.h"

namespace corvalin {
namespace {

namespace fs = std::filesystem;
using testing::ProgramRun;
using testing::ReadFile;
using testing::RunCorvalin;
using testing::SharedDataDir;
using testing::SourceDir;
using testing::UnattendedRun;
using testing::WriteFile;

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

  EXPECT_EQ(Result(), "TRANSLATION SUCCESSFUL\r\n") << run.errors;
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
