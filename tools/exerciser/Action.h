// One action of the person the exerciser plays, as it is logged and replayed:
// the window it went to, the window's caption (for the report only), the
// control by its key (object name, or class and place), the kind of action
// and its data. One line each, fields separated by tabs.
#pragma once

#include <string>
#include <vector>

namespace corvalin::exerciser {

struct Action {
  std::string window;
  std::string caption;
  std::string control;
  std::string kind;
  std::string data;
};

// Which files an action may remove (see MayRemove).
enum class Removal { None, Template };

// Tabs, line ends and backslashes of a field are escaped, so every action
// stays one line.
std::string Serialize(const Action& action);
bool Parse(const std::string& line, Action& action);

// An action list as a file: "# " lines are comments (the input and seed).
std::vector<Action> ReadActions(const std::string& path);
bool WriteActions(const std::string& path, const std::vector<Action>& actions, const std::string& header);

// Bytes as hex and back (typed text, paths).
std::string ToHex(const std::string& bytes);
std::string FromHex(const std::string& hex);

}  // namespace corvalin::exerciser
