// The files of the Work folder present at the start (the template, the stand
// list, the location file) are, after every action, either as they were or a
// whole file that a save the person pressed wrote: never truncated, emptied
// or a mix of two saves.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace corvalin::exerciser {

class SavedFiles {
 public:
  explicit SavedFiles(std::vector<std::string> paths);
  // What is wrong with the files now, or empty. While a save is pressed
  // (`saving`) a file may change, to a whole file that reads back; its new
  // content is then the one to keep. While a Delete is pressed (`removing`)
  // the template may go.
  std::string Check(bool saving, bool removing);

 private:
  std::vector<std::string> paths_;
  std::map<std::string, std::optional<std::string>> kept_;
};

// Why the bytes are not a whole template, or empty.
std::string TemplateFault(const std::string& path, const std::string& bytes);
// Why the bytes are not whole CR LF lines, or empty.
std::string LinesFault(const std::string& bytes);

}  // namespace corvalin::exerciser
