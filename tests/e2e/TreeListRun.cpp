#include "TreeListRun.h"

#include "TemplateText.h"
#include "TestSupport.h"

namespace corvalin::testing {

namespace {

std::string RightJustified(const std::string& text, std::size_t width) {
  return text.size() >= width ? text : std::string(width - text.size(), ' ') + text;
}

}  // namespace

void TreeListRun::SetUp() {
  UnattendedRun::SetUp();
  std::filesystem::create_directories(home / "run");
  PutTemplate("trees", FiveColumnTemplate("OrvanVariant=NI", "IMPERIAL", "inches"));
}

ProgramRun TreeListRun::Translate(const std::string& inputBytes, const std::string& output,
                                  const std::string& templateName) {
  WriteFile(home / "run" / "in.csv", inputBytes);
  return RunCorvalin(home, {"in.csv", output, templateName}, home / "run");
}

void TreeListRun::PutTemplate(const std::string& name, const std::string& text) {
  WriteFile(home / "Work" / (name + ".cnv"), text);
}

std::string TreeListRun::TreeList() const { return ReadFile(Output()); }

std::string TreeListRun::Record(int plot, int tree, const std::string& species, int dbhTenths) {
  // Plot 4, tree 3, count 6, history 1, species 3, DBH 4; the rest of the 59
  // characters are fields of columns the template does not have.
  return RightJustified(std::to_string(plot), 4) + RightJustified(std::to_string(tree), 3) + "     1" + " " + species +
         std::string(3 - species.size(), ' ') + RightJustified(std::to_string(dbhTenths), 4) + std::string(38, ' ') +
         "\r\n";
}

std::string TreeListRun::Trees(int count, const std::string& lineEnd) {
  std::string text;
  for (int n = 1; n <= count; ++n)
    text += std::to_string(n / 1000 + 1) + "," + std::to_string(n % 1000) + ",1,DF,25.4" + lineEnd;
  return text;
}

std::string TreeListRun::TreeListOf(int count) {
  std::string text;
  for (int n = 1; n <= count; ++n) text += Record(n / 1000 + 1, n % 1000, "DF", 254);
  return text;
}

}  // namespace corvalin::testing
