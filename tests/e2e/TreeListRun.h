// An unattended run from a folder of its own, on an input file written by the
// test, with a template of the five required columns ("trees": Plot ID, Tree
// ID, Tree Count, Species, DBH in inches, variant NI).
#pragma once

#include <filesystem>
#include <string>

#include "ProgramRun.h"

namespace corvalin::testing {

class TreeListRun : public UnattendedRun {
 protected:
  void SetUp() override;

  // Writes these bytes as run/in.csv and runs "in.csv <output> <templateName>"
  // from the run folder.
  ProgramRun Translate(const std::string& inputBytes, const std::string& output = "out.tre",
                       const std::string& templateName = "trees");
  // Puts a template in the Work folder.
  void PutTemplate(const std::string& name, const std::string& text);

  // run/out.tre, and what it holds.
  std::filesystem::path Output() const { return home / "run" / "out.tre"; }
  std::string TreeList() const;

  // The imperial record of a live tree with a tree count of 1 and a DBH in
  // tenths of an inch, with its CR LF.
  static std::string Record(int plot, int tree, const std::string& species, int dbhTenths);

  // n lines of live trees, plot n / 1000 + 1 and tree n % 1000, each ended
  // with the given line end; and the tree list they give.
  static std::string Trees(int count, const std::string& lineEnd = "\r\n");
  static std::string TreeListOf(int count);
};

}  // namespace corvalin::testing
