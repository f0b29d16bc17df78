#include "Inputs.h"

#include <cctype>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <sstream>
#include <thread>

namespace corvalin::exerciser {

namespace fs = std::filesystem;

const std::vector<std::string>& InputNames() {
  static const std::vector<std::string> names{"survey", "empty", "binary", "longline", "wide", "growing"};
  return names;
}

bool IsInputName(const std::string& name) {
  for (const std::string& known : InputNames())
    if (known == name) return true;
  return false;
}

namespace {

void Write(const std::string& path, const std::string& bytes) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out << bytes;
}

// Random bytes with every kind a text reader trips on: NUL, lone CR and LF,
// and the upper half of the byte range.
std::string BinaryBytes() {
  std::mt19937 random(20221);
  std::string bytes;
  for (int i = 0; i < 64 * 1024; ++i) {
    const unsigned roll = random() % 10;
    if (roll == 0)
      bytes += '\0';
    else if (roll == 1)
      bytes += '\r';
    else if (roll == 2)
      bytes += '\n';
    else if (roll < 6)
      bytes += static_cast<char>(0x80 + random() % 0x80);
    else
      bytes += static_cast<char>(random() % 0x100);
  }
  return bytes;
}

std::string LongLine() {
  std::string line;
  for (int i = 0; i < 40000; ++i) line += static_cast<char>(i % 7 == 6 ? ',' : '0' + i % 10);
  return line + "\r\n";
}

// 32,767 lines of 30 columns: the most rows the grid holds.
std::string Wide() {
  std::string bytes;
  for (int row = 1; row <= 32767; ++row) {
    for (int column = 1; column <= 30; ++column) {
      if (column > 1) bytes += ',';
      bytes += std::to_string((row * 31 + column) % 1000);
    }
    bytes += "\r\n";
  }
  return bytes;
}

}  // namespace

std::string MakeInput(const std::string& name, const std::string& folder, const std::string& survey) {
  // A copy: the person may choose the input as the output file too.
  if (name == "survey") {
    const std::string copy = folder + "/tree.csv";
    fs::copy_file(survey, copy, fs::copy_options::overwrite_existing);
    return copy;
  }
  const std::string path = folder + "/" + name + ".csv";
  if (name == "empty" || name == "growing")
    Write(path, "");
  else if (name == "binary")
    Write(path, BinaryBytes());
  else if (name == "longline")
    Write(path, LongLine());
  else if (name == "wide")
    Write(path, Wide());
  return path;
}

void GrowWhileRunning(const std::string& path, long limitBytes) {
  std::thread([path, limitBytes] {
    long written = 0;
    for (int line = 1; written < limitBytes; ++line) {
      std::ofstream out(path, std::ios::binary | std::ios::app);
      const std::string text = "1," + std::to_string(line) + ",PL,12.5,60,Y,,," + std::to_string(line % 97) + "\r\n";
      out << text;
      written += static_cast<long>(text.size());
      out.close();
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
  }).detach();
}

namespace {

std::string ReadWhole(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void ReplaceOnce(std::string& text, const std::string& from, const std::string& to) {
  const std::size_t at = text.find(from);
  if (at != std::string::npos) text.replace(at, from.size(), to);
}

// The sample template with a damage column and, first among its commands,
// one of each kind that opens a dialog of its own from the command editor:
// with it a life reaches the damage dialog and the range exclusion.
std::string MixedTemplate(const std::string& sample) {
  std::string text = ReadWhole(sample);
  ReplaceOnce(text, "ColumnHeader8=? column\r\nColumnUnits8=? units",
              "ColumnHeader8=Damage/Severity - 1\r\nColumnUnits8=");
  const std::size_t commands = text.find("[TEMPLATE_COMMANDS]\r\n");
  if (commands == std::string::npos) return text;
  std::string out = text.substr(0, commands) + "[TEMPLATE_COMMANDS]\r\n";
  std::istringstream in(text.substr(commands + 21));
  std::string line;
  while (std::getline(in, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    const std::size_t equals = line.find('=');
    std::size_t digits = equals;
    while (digits > 0 && digits != std::string::npos && std::isdigit(static_cast<unsigned char>(line[digits - 1])))
      --digits;
    if (line.rfind("NumberOfCommands=", 0) == 0) {
      out += "NumberOfCommands=" + std::to_string(std::atoi(line.c_str() + 17) + 2) + "\r\n";
      out +=
          "CommandType1=EXCLUDE_RANGE\r\nFindString1=\r\nReplacementString1=\r\nColumnNumber1=1\r\n"
          "StartLine1=5\r\nEndLine1=9\r\nDeleteString1=\r\n";
      out +=
          "CommandType2=EXCLUDE_STARTING_WITH\r\nFindString2=\r\nReplacementString2=\r\nColumnNumber2=1\r\n"
          "StartLine2=0\r\nEndLine2=0\r\nDeleteString2=1\r\n";
    } else if (equals != std::string::npos && digits < equals) {
      const int n = std::atoi(line.substr(digits, equals - digits).c_str()) + 2;
      out += line.substr(0, digits) + std::to_string(n) + line.substr(equals) + "\r\n";
    } else {
      out += line + "\r\n";
    }
  }
  return out;
}

}  // namespace

void SeedWorkFolder(const std::string& workFolder, const std::string& installedWork) {
  fs::create_directories(workFolder);
  fs::copy_file(installedWork + "/lolo.cnv", workFolder + "/lolo.cnv", fs::copy_options::overwrite_existing);
  Write(workFolder + "/mixed.cnv", MixedTemplate(installedWork + "/lolo.cnv"));
  Write(workFolder + "/stands.slf",
        "A st1 trees\\st1.tre WithPointData bc @\r\n"
        "B st1 1995 50.5 119.5 106  @ 1950 180 20 45 @ 10 @ 5 0 1 100 0 10 0 10 10 @ @ fd 22\r\n"
        "C st1 thin1 thin2 @\r\n"
        "D st1 keys\\thin.key @\r\n"
        "A st2 & NoPointData @\r\n"
        "C st2 g1 @\r\n");
  Write(workFolder + "/places.loc",
        "A \"North Block\" @ /elsewhere/north.slf @ @\r\n"
        "A \"South\" @ " +
            workFolder + "/stands.slf @ @\r\n");
}

std::vector<std::string> WatchedFiles(const std::string& workFolder) {
  return {workFolder + "/lolo.cnv", workFolder + "/mixed.cnv", workFolder + "/stands.slf", workFolder + "/places.loc"};
}

}  // namespace corvalin::exerciser
