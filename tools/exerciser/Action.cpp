#include "Action.h"

#include <fstream>
#include <sstream>

namespace corvalin::exerciser {

namespace {

std::string Escape(const std::string& field) {
  std::string out;
  for (const char c : field) {
    switch (c) {
      case '\\':
        out += "\\\\";
        break;
      case '\t':
        out += "\\t";
        break;
      case '\n':
        out += "\\n";
        break;
      case '\r':
        out += "\\r";
        break;
      default:
        out += c;
    }
  }
  return out;
}

std::string Unescape(const std::string& field) {
  std::string out;
  for (std::size_t i = 0; i < field.size(); ++i) {
    if (field[i] != '\\' || i + 1 == field.size()) {
      out += field[i];
      continue;
    }
    const char next = field[++i];
    out += next == 't' ? '\t' : next == 'n' ? '\n' : next == 'r' ? '\r' : next;
  }
  return out;
}

}  // namespace

std::string Serialize(const Action& action) {
  return Escape(action.window) + '\t' + Escape(action.caption) + '\t' + Escape(action.control) + '\t' +
         Escape(action.kind) + '\t' + Escape(action.data);
}

bool Parse(const std::string& line, Action& action) {
  std::vector<std::string> fields;
  std::string field;
  std::istringstream in(line);
  while (std::getline(in, field, '\t')) fields.push_back(Unescape(field));
  if (!line.empty() && line.back() == '\t') fields.emplace_back();
  if (fields.size() != 5) return false;
  action = {fields[0], fields[1], fields[2], fields[3], fields[4]};
  return true;
}

std::vector<Action> ReadActions(const std::string& path) {
  std::vector<Action> actions;
  std::ifstream in(path);
  std::string line;
  while (std::getline(in, line)) {
    if (line.empty() || line[0] == '#') continue;
    Action action;
    if (Parse(line, action)) actions.push_back(action);
  }
  return actions;
}

bool WriteActions(const std::string& path, const std::vector<Action>& actions, const std::string& header) {
  std::ofstream out(path, std::ios::trunc);
  if (!header.empty()) out << header;
  for (const Action& action : actions) out << Serialize(action) << '\n';
  return static_cast<bool>(out.flush());
}

std::string ToHex(const std::string& bytes) {
  static const char* digits = "0123456789abcdef";
  std::string hex;
  for (const unsigned char c : bytes) {
    hex += digits[c >> 4];
    hex += digits[c & 15];
  }
  return hex;
}

std::string FromHex(const std::string& hex) {
  auto value = [](char c) { return c <= '9' ? c - '0' : c - 'a' + 10; };
  std::string bytes;
  for (std::size_t i = 0; i + 1 < hex.size(); i += 2)
    bytes += static_cast<char>(value(hex[i]) * 16 + value(hex[i + 1]));
  return bytes;
}

}  // namespace corvalin::exerciser
