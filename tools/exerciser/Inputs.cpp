#include "Inputs.h"

#include <chrono>
#include <filesystem>
#include <fstream>
#include <random>
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
  if (name == "survey") return fs::absolute(survey).string();
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

void SeedWorkFolder(const std::string& workFolder, const std::string& installedWork) {
  fs::create_directories(workFolder);
  fs::copy_file(installedWork + "/lolo.cnv", workFolder + "/lolo.cnv", fs::copy_options::overwrite_existing);
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
  return {workFolder + "/lolo.cnv", workFolder + "/stands.slf", workFolder + "/places.loc"};
}

}  // namespace corvalin::exerciser
