// Template values as they reach the tree list through the unattended run.
#include <gtest/gtest.h>

#include <string>

#include "ProgramRun.h"
#include "TemplateText.h"
#include "TreeListRun.h"

namespace corvalin {
namespace {

using testing::FiveColumns;
using testing::ProgramRun;
using testing::TemplateText;

class TemplateValue : public testing::TreeListRun {};

// A template edited on another system can carry a lone CR inside a line. It
// ends the line there, as CR LF and LF do, so the plot number is "7" and
// the record keeps its one line.
TEST_F(TemplateValue, LoneCrEndsTheValue) {
  PutTemplate("lonecr", TemplateText("OrvanVariant=NI", "IMPERIAL", FiveColumns("inches"),
                                     {{"REPLACE_ALL", "A", "7\r2", "1", "0", "0", ""}}));
  const ProgramRun run = Translate("A,1,1,DF,25.4\r\n", "out.tre", "lonecr");
  EXPECT_EQ(Result(), "TRANSLATION SUCCESSFUL\r\n") << run.errors;
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(TreeList(), Record(7, 1, "DF", 254));
}

}  // namespace
}  // namespace corvalin
