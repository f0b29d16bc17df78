// The input line reader on any file: the lines read from the file are the
// lines of the same text in memory, and both are the lines a plain reading
// of the rule gives: a line ends at CR, CR LF or LF, the end of the file ends
// the last line, and a file that ends with a line end has no empty line after
// it. No line holds a CR or an LF.
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "FuzzSupport.h"
#include "worktable/InputLines.h"

using namespace corvalin;
using fuzz::Require;

namespace {

std::vector<std::string> LinesByTheRule(const std::string& text) {
  std::vector<std::string> lines;
  std::string line;
  std::size_t i = 0;
  while (i < text.size()) {
    const char ch = text[i++];
    if (ch == '\r' || ch == '\n') {
      if (ch == '\r' && i < text.size() && text[i] == '\n') ++i;
      lines.push_back(line);
      line.clear();
    } else {
      line += ch;
    }
  }
  if (!line.empty()) lines.push_back(line);
  return lines;
}

std::vector<std::string> AllLines(InputLines& reader) {
  std::vector<std::string> lines;
  std::string_view line;
  while (!reader.AtEnd()) {
    reader.Next(line);
    lines.emplace_back(line);
  }
  return lines;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  static const std::string path = fuzz::ScratchHome() + "Data/input.txt";
  fuzz::WriteBytes(path, text);

  InputLines fromFile(path);
  InputLines inMemory = InputLines::FromText(text);
  const std::vector<std::string> read = AllLines(fromFile);
  Require(read == AllLines(inMemory), "the file and the same text in memory give different lines");
  Require(read == LinesByTheRule(text), "the lines are not those of CR, CR LF and LF line ends");
  return 0;
}
