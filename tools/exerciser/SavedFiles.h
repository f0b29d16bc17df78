// The files of the Work folder present at the start (the template, the stand
// list, the location file) are, after every action, either as they were or a
// whole file that a save the person pressed wrote: never truncated, emptied
// or a mix of two saves.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "Action.h"

namespace corvalin::exerciser {

class SavedFiles {
 public:
  // `installedWork`: the installation's Work folder, whose files the program
  // copies into the Work folder when it is set up or chosen again; such a
  // copy is the installed file whole, whenever it comes.
  SavedFiles(std::vector<std::string> paths, const std::string& installedWork);
  // What is wrong with the files now, or empty. While a save is pressed
  // (`saving`) a file may change, to a whole file that reads back; its new
  // content is then the one to keep. While a Delete is pressed (`removal`)
  // the template may go. The files named as the stand list and the location
  // file (`linesFiles`) are judged as lines whatever their names: a person
  // may choose a template there, and the editors then write lines into it.
  std::string Check(bool saving, Removal removal, const std::vector<std::string>& linesFiles = {});

 private:
  std::vector<std::string> paths_;
  std::map<std::string, std::optional<std::string>> kept_;
  std::map<std::string, std::optional<std::string>> installed_;
};

// Why the bytes are not a whole template, or empty. A save writes a
// template key by key into the file it replaces and keeps that file's other
// lines: a line that is neither a section nor a key is whole if the file
// held it before (`before`).
std::string TemplateFault(const std::string& path, const std::string& bytes, const std::string& before = {});
// Why the bytes are not whole CR LF lines, or empty.
std::string LinesFault(const std::string& bytes);

}  // namespace corvalin::exerciser
