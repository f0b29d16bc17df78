// Input that is not a regular file: a calling program pipes its trees into
// the unattended run (/dev/stdin), or names a FIFO. The tree list, the result
// and the status are those the same bytes give from a file.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>

#include "ProgramRun.h"
#include "TestSupport.h"
#include "TreeListRun.h"

namespace corvalin {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;
using testing::Feeder;
using testing::Launch;
using testing::ProgramRun;

class PipedInput : public testing::TreeListRun {
 protected:
  // Runs "<input> out.tre trees" from the run folder with standard input
  // from the descriptor given.
  ProgramRun RunOn(const std::string& input, int standardInput = -1) {
    const Launch launch{{input, "out.tre", "trees"}, home / "run", {}, standardInput, {}};
    return testing::WaitForCorvalin(testing::StartCorvalin(home, launch), home, launch);
  }

  // The run of the same bytes from a file, for comparison: its result line,
  // status, standard error and tree list.
  struct Answer {
    std::string result, errors, treeList;
    int status;
  };
  Answer FromFile(const std::string& bytes) {
    const ProgramRun run = Translate(bytes);
    Answer answer{Result(), run.errors, fs::exists(Output()) ? TreeList() : "<none>", run.status};
    fs::remove(Output());
    fs::remove(home / "Work/result.txt");
    return answer;
  }
  // A pipe of count trees, named by input, gives every tree.
  void ExpectEveryTreeThrough(const std::string& input, int count) {
    Feeder feeder(Trees(count), false);
    const ProgramRun run = RunOn(input, feeder.readEnd());
    EXPECT_EQ(Result(), "TRANSLATION SUCCESSFUL\r\n") << run.errors;
    EXPECT_EQ(run.errors, "");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(TreeList(), TreeListOf(count));
    EXPECT_TRUE(feeder.Finished());
  }
  void ExpectSameAs(const Answer& file, const ProgramRun& run) {
    EXPECT_EQ(Result(), file.result);
    EXPECT_EQ(run.errors, file.errors);
    EXPECT_EQ(run.status, file.status);
    EXPECT_EQ(fs::exists(Output()) ? TreeList() : "<none>", file.treeList);
  }
};

// More lines than the preview of the column format holds, and more bytes
// than a pipe buffers: every tree reaches the tree list.
TEST_F(PipedInput, StandardInputGivesEveryTreeOfALongFile) { ExpectEveryTreeThrough("/dev/stdin", 5000); }

TEST_F(PipedInput, StandardInputGivesEveryTreeOfAShortFile) { ExpectEveryTreeThrough("/dev/stdin", 3); }

TEST_F(PipedInput, FifoGivesEveryTree) {
  const fs::path fifo = home / "run" / "trees.fifo";
  ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
  Feeder feeder(fifo, Trees(2500));
  const ProgramRun run = RunOn(fifo.string());
  EXPECT_EQ(Result(), "TRANSLATION SUCCESSFUL\r\n") << run.errors;
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(TreeList(), TreeListOf(2500));
  EXPECT_TRUE(feeder.Finished());
}

// A descriptor of the caller's own, as a shell's process substitution gives it.
TEST_F(PipedInput, DescriptorPathGivesEveryTree) { ExpectEveryTreeThrough("/dev/fd/0", 1500); }

// The failures of a pipe are those of a file: a null character on line 1500,
// past the preview, and a line end on the first line's byte order mark.
TEST_F(PipedInput, NullCharacterPastThePreviewFailsAsInAFile) {
  const std::string bytes = Trees(1499) + "9,9\0,1,DF,1\r\n"s + Trees(10);
  const Answer file = FromFile(bytes);
  EXPECT_EQ(file.errors,
            "Error preparing database\r\n3709 - 'Input line 1500 holds a null character: the file is not plain "
            "text'\r\nLine: CreateColumnsTable\n");
  Feeder feeder(bytes, false);
  ExpectSameAs(file, RunOn("/dev/stdin", feeder.readEnd()));
}

TEST_F(PipedInput, ByteOrderMarkAndLongLineFailAsInAFile) {
  const std::string bytes = "\xEF\xBB\xBF" + Trees(2) + "1,2,1,DF,30," + std::string(40000, 'x') + "\r\n";
  const Answer file = FromFile(bytes);
  EXPECT_EQ(file.errors, "[6] Overflow\nError preparing database\r\n6 - 'Overflow'\r\nLine: CreateColumnsTable\n");
  Feeder feeder(bytes, false);
  ExpectSameAs(file, RunOn("/dev/stdin", feeder.readEnd()));
}

TEST_F(PipedInput, EmptyPipeFailsAsAnEmptyFile) {
  const Answer file = FromFile("");
  EXPECT_EQ(file.errors, "Plot ID column is required.\n");
  Feeder feeder("", false);
  ExpectSameAs(file, RunOn("/dev/stdin", feeder.readEnd()));
}

}  // namespace
}  // namespace corvalin
