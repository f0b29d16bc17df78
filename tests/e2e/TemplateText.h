// Template files written by the end-to-end tests: the comma-separated format,
// the view, the columns' assignments and the commands, as the program saves
// them.
#pragma once

#include <string>
#include <vector>

namespace corvalin::testing {

// One column's assignment: its header and units keys.
struct ColumnAssignment {
  std::string header;
  std::string units;
};

// The seven keys of one command.
struct CommandKeys {
  std::string type;
  std::string find;
  std::string replacement;
  std::string column;
  std::string startLine = "0";
  std::string endLine = "0";
  std::string deleteString;
};

// A comma-separated template with these assignments (columns 1 on) and
// commands; NumberOfCommands says how many commands there are unless a text
// is given for it.
std::string TemplateText(const std::string& variantLine, const std::string& system,
                         const std::vector<ColumnAssignment>& columns, const std::vector<CommandKeys>& commands = {},
                         const std::string& numberOfCommands = "");

// Plot ID, Tree ID, Tree Count, Species and DBH in the given units.
std::vector<ColumnAssignment> FiveColumns(const std::string& dbhUnits, const std::string& firstHeader = "Plot ID");

// TemplateText of the five columns, without commands.
std::string FiveColumnTemplate(const std::string& variantLine, const std::string& system, const std::string& dbhUnits,
                               const std::string& firstHeader = "Plot ID");

}  // namespace corvalin::testing
