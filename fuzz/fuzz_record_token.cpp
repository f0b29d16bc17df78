// The stand list record reader and builder on any line. GetRecordToken gives
// the tokens of a plain line of blank-separated words as they stand, and the
// same tokens as the record readers; the readers never fail; and a record
// read and built again, read and built once more, gives the same line, as
// long as its fields are texts a record line can hold (no blank, no quote,
// no "@" in front). A quoted token may hold blanks, which the builder writes
// as they are, so such a line changes once before it settles.
#include <fuzzer/FuzzedDataProvider.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "FuzzSupport.h"
#include "shell/Error.h"
#include "shell/RunState.h"
#include "standlist/StandLevelFile.h"

using namespace corvalin;
using fuzz::Require;

namespace {

// The words between single blanks, when the line is such a plain line: no
// empty word, none that begins with a quote or "@". Nothing otherwise.
bool PlainWords(const std::string& line, std::vector<std::string>& words) {
  words.clear();
  std::size_t start = 0;
  for (;;) {
    const std::size_t blank = line.find(' ', start);
    const std::string word = line.substr(start, blank == std::string::npos ? std::string::npos : blank - start);
    if (word.empty() || word[0] == '"' || word[0] == '@') return false;
    words.push_back(word);
    if (blank == std::string::npos) return true;
    start = blank + 1;
  }
}

bool Holdable(const std::string& field) {
  return field.find_first_of(" \"") == std::string::npos && (field.empty() || field[0] != '@');
}

// A code is a word: the dialog refuses an empty one, whose blanks would run
// together with the next token's.
bool HoldableCode(const std::string& code) { return !code.empty() && Holdable(code); }

void CheckPlainTokens(const std::string& line) {
  std::vector<std::string> words;
  if (!PlainWords(line, words) || words.size() > 200) return;
  for (std::size_t i = 0; i < words.size(); ++i)
    Require(GetRecordToken(line, static_cast<int16_t>(i + 1)) == words[i], "a plain word is not its token");
  Require(GetRecordToken(line, static_cast<int16_t>(words.size() + 1)).empty(), "a token past the end holds text");
}

void CheckRecordA(const std::string& line) {
  const StandRecordA first = ReadRecordA(line);
  Require(first.code == GetRecordToken(line, 2), "record A's code is not token 2");
  if (!HoldableCode(first.code) || !Holdable(first.treeDataSet) || first.treeDataSet.empty()) return;
  const std::string built = BuildRecordA(first);
  const StandRecordA again = ReadRecordA(built);
  if (!Holdable(again.treeDataSet)) return;
  Require(BuildRecordA(again) == built, "record A read and built again changed");
}

void CheckRecordB(const std::string& line) {
  const StandRecordB first = ReadRecordB(line);
  Require(first.code == GetRecordToken(line, 2), "record B's code is not token 2");
  for (int token = kRecordBFirstValueToken; token <= kRecordBLastToken; ++token)
    Require(first.values[static_cast<std::size_t>(token - kRecordBFirstValueToken)] ==
                GetRecordToken(line, static_cast<int16_t>(token)),
            "a record B value is not its token");
  if (!HoldableCode(first.code)) return;
  for (const std::string& value : first.values)
    if (!Holdable(value)) return;
  const std::string built = BuildRecordB(first);
  Require(BuildRecordB(ReadRecordB(built)) == built, "record B read and built again changed");
}

// Without quotes no token holds a blank: the group codes and add files of
// such a line are words the builder writes back as they were read.
bool Unquoted(const std::string& line) { return line.find('"') == std::string::npos; }

void CheckRecordC(const std::string& line) {
  const StandRecordC first = ReadRecordC(line);
  if (!Unquoted(line) || first.code.empty()) return;
  const std::string built = BuildRecordC(first);
  Require(BuildRecordC(ReadRecordC(built)) == built, "record C read and built again changed");
}

void CheckRecordD(const std::string& line) {
  const StandRecordD first = ReadRecordD(line);
  if (!Unquoted(line) || first.code.empty()) return;
  const std::string built = BuildRecordD(first);
  Require(BuildRecordD(ReadRecordD(built)) == built, "record D read and built again changed");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  static const bool workFolder = (Run().WorkFolder = fuzz::ScratchHome() + "Work/", true);
  (void)workFolder;
  FuzzedDataProvider in(data, size);
  const int16_t index = in.ConsumeIntegral<int16_t>();
  const std::string line = in.ConsumeRemainingBytesAsString();
  try {
    (void)GetRecordToken(line, index);
    CheckPlainTokens(line);
    CheckRecordA(line);
    CheckRecordB(line);
    CheckRecordC(line);
    CheckRecordD(line);
  } catch (const RuntimeError& error) {
    // Token numbers are 16-bit: only a line of more tokens than that fails.
    Require(error.number() == err::Overflow && line.size() > 32767, "a record line raised an error");
  }
  return 0;
}
