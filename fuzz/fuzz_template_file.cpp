// The template reader and writer on any .cnv file: the column format keys
// always read; the commands read or raise only the type mismatch, overflow
// or subscript error of a bad count or number; and what was read, saved over
// the same file as a save does (and into a new file), reads back the same.
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "FuzzSupport.h"
#include "input/ColumnFormat.h"
#include "shell/Error.h"
#include "templates/TemplateCommands.h"
#include "templates/TemplateFile.h"

using namespace corvalin;
using fuzz::Require;

namespace {

bool SameKeys(const ColumnDelimiterKeys& a, const ColumnDelimiterKeys& b) {
  return a.FixedWidth == b.FixedWidth && a.Comma == b.Comma && a.Tab == b.Tab && a.Semicolon == b.Semicolon &&
         a.Space == b.Space && a.Other == b.Other && a.OtherChars == b.OtherChars &&
         a.TreatConsecutiveAsOne == b.TreatConsecutiveAsOne && a.TextQualifier == b.TextQualifier;
}

bool SameCommand(const TemplateCommand& a, const TemplateCommand& b) {
  return a.CommandType == b.CommandType && a.FindString == b.FindString &&
         a.ReplacementString == b.ReplacementString && a.ColumnNumber == b.ColumnNumber &&
         a.StartLine == b.StartLine && a.EndLine == b.EndLine && a.DeleteString == b.DeleteString;
}

std::vector<TemplateCommand> CommandsInForce() {
  std::vector<TemplateCommand> commands;
  for (int16_t k = 1; k <= Commands().CommandCount; ++k) commands.push_back(TemplateCommandAt(k));
  return commands;
}

// Saves the keys and the commands in force into path, then reads both back.
void SaveAndReadBack(const std::string& path, const ColumnDelimiterKeys& keys,
                     const std::vector<TemplateCommand>& commands, int16_t count) {
  WriteColumnDelimiters(path, keys, Markers());
  WriteTemplateCommands(path);
  ResetCommands();
  Require(SameKeys(ReadColumnDelimiters(path), keys), "saved column format keys read back otherwise");
  ReadTemplateCommands(path);
  Require(Commands().CommandCount == count, "a saved command count read back otherwise");
  const std::vector<TemplateCommand> again = CommandsInForce();
  for (std::size_t i = 0; i < commands.size(); ++i)
    Require(SameCommand(again[i], commands[i]), "a saved command read back otherwise");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  static const std::string path = fuzz::ScratchHome() + "Work/fuzz.cnv";
  static const std::string fresh = fuzz::ScratchHome() + "Work/fresh.cnv";
  fuzz::WriteBytes(path, std::string_view(reinterpret_cast<const char*>(data), size));
  ResetCommands();

  const ColumnDelimiterKeys keys = ReadColumnDelimiters(path);
  Require(TextQualifierEntry(keys.TextQualifier) >= 1 && TextQualifierEntry(keys.TextQualifier) <= 3,
          "a qualifier selects no list entry");
  try {
    ReadTemplateCommands(path);
  } catch (const RuntimeError& error) {
    Require(error.number() == err::TypeMismatch || error.number() == err::Overflow ||
                error.number() == err::SubscriptOutOfRange,
            "reading the commands raised an error other than a bad number or count");
    return 0;
  }
  const int16_t count = Commands().CommandCount;
  const std::vector<TemplateCommand> commands = CommandsInForce();

  SaveAndReadBack(path, keys, commands, count);
  std::remove(fresh.c_str());
  SaveAndReadBack(fresh, keys, commands, count);
  return 0;
}
