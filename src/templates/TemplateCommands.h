// The replayable editing commands of a template: whole-cell replacements and
// row exclusions, kept in order, at most 100.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace corvalin {

struct ListControl;

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

// The four routines, each on a clone of the grid's row set; index is 1..100.
void ApplyReplaceAll(int16_t& index);
void ApplyExcludeContaining(int16_t& index);
void ApplyExcludeStartingWith(int16_t& index);
void ApplyExcludeRange(int16_t& index);

// The limit message of a 101st command.
std::string CommandLimitMessage();

// Refills a list box with one line per edited command, as the command
// editor shows them ("1/  Exclude rows in range ...").
void BuildCommandList(ListControl& list);

// Runs all commands in list order, silently; a kind that is none of the four
// is skipped. The replay after a fresh load of the working table.
void ReplayTemplateCommands();

}  // namespace corvalin
