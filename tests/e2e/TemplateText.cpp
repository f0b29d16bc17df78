#include "TemplateText.h"

namespace corvalin::testing {

std::string TemplateText(const std::string& variantLine, const std::string& system,
                         const std::vector<ColumnAssignment>& columns, const std::vector<CommandKeys>& commands,
                         const std::string& numberOfCommands) {
  std::string t =
      "[COLUMN_DELIMITERS]\r\nFixedWidth=NO\r\nComma=YES\r\nTab=NO\r\nSemicolon=NO\r\nSpace=NO\r\nOther=NO\r\n"
      "OtherChars=\r\nTreatConsecutiveAsOne=NO\r\nTextQualifier=None\r\n"
      "[FORMAT_INFO]\r\nMeasurementSystem=" + system + "\r\nShowUnassignedColumns=YES\r\nShowExcludedRows=YES\r\n"
      "AutoValidateGridData=YES\r\n" + variantLine + "\r\nNumberOfColumns=" + std::to_string(columns.size()) + "\r\n";
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const std::string n = std::to_string(i + 1);
    t += "ColumnHeader" + n + "=" + columns[i].header + "\r\nColumnUnits" + n + "=" + columns[i].units + "\r\n";
  }
  t += "[TEMPLATE_COMMANDS]\r\nNumberOfCommands=" +
       (numberOfCommands.empty() ? std::to_string(commands.size()) : numberOfCommands) + "\r\n";
  for (std::size_t k = 0; k < commands.size(); ++k) {
    const std::string n = std::to_string(k + 1);
    const CommandKeys& c = commands[k];
    t += "CommandType" + n + "=" + c.type + "\r\nFindString" + n + "=" + c.find + "\r\nReplacementString" + n + "=" +
         c.replacement + "\r\nColumnNumber" + n + "=" + c.column + "\r\nStartLine" + n + "=" + c.startLine +
         "\r\nEndLine" + n + "=" + c.endLine + "\r\nDeleteString" + n + "=" + c.deleteString + "\r\n";
  }
  return t;
}

std::vector<ColumnAssignment> FiveColumns(const std::string& dbhUnits, const std::string& firstHeader) {
  return {{firstHeader, firstHeader[0] == '?' ? "? units" : ""},
          {"Tree ID", ""},
          {"Tree Count", ""},
          {"Species", ""},
          {"DBH", dbhUnits}};
}

std::string FiveColumnTemplate(const std::string& variantLine, const std::string& system, const std::string& dbhUnits,
                               const std::string& firstHeader) {
  return TemplateText(variantLine, system, FiveColumns(dbhUnits, firstHeader));
}

}  // namespace corvalin::testing
