// The replayable editing commands of a template: whole-cell replacements and
// row exclusions, kept in order, at most 100.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace corvalin {

class Recordset;

inline constexpr int16_t kMaxTemplateCommands = 100;

struct TemplateCommand {
  std::string CommandType;  // "REPLACE_ALL", "EXCLUDE_CONTAINING", "EXCLUDE_STARTING_WITH", "EXCLUDE_RANGE"
  std::string FindString;
  std::string ReplacementString;
  int16_t ColumnNumber = 0;
  int16_t StartLine = 0;
  int16_t EndLine = 0;
  std::string DeleteString;
};

struct TemplateCommandState {
  std::array<TemplateCommand, kMaxTemplateCommands> TemplateCommands{};  // entry 0 is command 1
  int16_t CommandCount = 0;
  std::array<TemplateCommand, kMaxTemplateCommands> EditedCommands{};
  int16_t EditedCommandCount = 0;
  int16_t CommandHitCount = 0;
};

// The commands in force, process-wide.
TemplateCommandState& Commands();
void ResetCommands();

// Command k (1..100); outside that range the subscript error (9).
TemplateCommand& TemplateCommandAt(int16_t k);

// The four routines, each on a clone of the grid's row set (a grid that was
// never bound has none: the object error, 91); index is 1..100. The rows
// they change tell the grid's view so themselves.
void ApplyReplaceAll(int16_t& index, const std::shared_ptr<Recordset>& gridRows);
void ApplyExcludeContaining(int16_t& index, const std::shared_ptr<Recordset>& gridRows);
void ApplyExcludeStartingWith(int16_t& index, const std::shared_ptr<Recordset>& gridRows);
void ApplyExcludeRange(int16_t& index, const std::shared_ptr<Recordset>& gridRows);

// The limit message of a 101st command.
std::string CommandLimitMessage();

// One line per edited command, as the command editor lists them ("1/  Exclude
// rows in range ..."); a command's column is named by the type on its grid
// heading (headings 0..31 of the grid).
std::vector<std::string> BuildCommandList(const std::array<std::string, 32>& headings);

// Runs all commands in list order on the grid's rows, silently; a kind that
// is none of the four is skipped. The replay after a fresh load of the
// working table.
void ReplayTemplateCommands(const std::shared_ptr<Recordset>& gridRows);

}  // namespace corvalin
