// Unattended runs of one user started at the same time, each on its own
// input and output: each must end exactly as it ends alone, with its own
// tree list, its own status and its own reason on standard error, and none
// may touch the working table of the wizard in the Data folder.
#include <gtest/gtest.h>

#include <sys/wait.h>

#include <filesystem>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "ProgramRun.h"
#include "TemplateText.h"
#include "TestSupport.h"

namespace corvalin {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;
using testing::Launch;
using testing::ProgramRun;
using testing::ReadFile;
using testing::WriteFile;

// n live trees, plot n / 1000 + 1 and tree n % 1000; the tree at badLine (if
// any) has a DBH that is no number.
std::string Trees(int count, int badLine = 0) {
  std::string text;
  for (int n = 1; n <= count; ++n)
    text += std::to_string(n / 1000 + 1) + "," + std::to_string(n % 1000) + ",1,DF," + (n == badLine ? "x" : "25.4") +
            "\r\n";
  return text;
}

// What one run left behind.
struct Outcome {
  int status = -1;
  std::string errors;
  std::optional<std::string> treeList;  // none when no output file was left
  std::string resultLine;               // result.txt, read only for a run alone

  bool operator==(const Outcome& other) const {
    return status == other.status && errors == other.errors && treeList == other.treeList;
  }
};

class ConcurrentRuns : public testing::UnattendedRun {
 protected:
  struct Job {
    std::string name;
    std::string templateName;
    fs::path input;  // given by its full path
  };

  void SetUp() override {
    UnattendedRun::SetUp();
    fs::copy_file(testing::SourceDir() / "data/Work/lolo.cnv", home / "Work/lolo.cnv");
    WriteFile(home / "Work/trees.cnv", testing::FiveColumnTemplate("OrvanVariant=NI", "IMPERIAL", "inches"));
    const auto put = [&](const std::string& name, const std::string& bytes) {
      WriteFile(home / "inputs" / name, bytes);
      return home / "inputs" / name;
    };
    fs::create_directories(home / "inputs");
    jobs = {
        {"lolo", "lolo", testing::SharedDataDir() / "lolo-2022/tree.csv"},
        {"large", "trees", put("large.csv", Trees(21390))},
        {"small", "trees", put("small.csv", Trees(3))},
        {"late-fault", "trees", put("late-fault.csv", Trees(6000, 5500))},
        {"null", "trees", put("null.csv", Trees(2000) + "9,9\0,1,DF,1\r\n"s + Trees(100))},
        {"medium", "trees", put("medium.csv", Trees(4000))},
    };
    // The wizard's working table, as an interactive session leaves it.
    WriteFile(WizardTable(), "the wizard's working table");
  }

  fs::path WizardTable() const { return home / "Data" / "TFT.mdb"; }
  fs::path Folder(const Job& job) const { return home / "runs" / job.name; }

  Launch LaunchOf(const Job& job) const {
    return Launch{{job.input.string(), "out.tre", job.templateName}, Folder(job), Folder(job) / "stderr.txt", -1, {}};
  }

  // Starts every job at once (or only the one given) and gives what each left.
  std::vector<Outcome> RunTogether(std::optional<std::size_t> only = std::nullopt) {
    std::vector<pid_t> pids(jobs.size(), -1);
    for (std::size_t i = 0; i < jobs.size(); ++i) {
      if (only && *only != i) continue;
      fs::remove_all(Folder(jobs[i]));
      fs::create_directories(Folder(jobs[i]));
      pids[i] = testing::StartCorvalin(home, LaunchOf(jobs[i]));
    }
    std::vector<Outcome> outcomes(jobs.size());
    for (std::size_t i = 0; i < jobs.size(); ++i) {
      if (pids[i] < 0) continue;
      const ProgramRun run = testing::WaitForCorvalin(pids[i], home, LaunchOf(jobs[i]));
      Outcome& outcome = outcomes[i];
      outcome.status = run.status;
      outcome.errors = run.errors;
      const fs::path output = Folder(jobs[i]) / "out.tre";
      if (fs::exists(output)) outcome.treeList = ReadFile(output);
    }
    return outcomes;
  }

  // The files of the Data folder, the wizard's table among them.
  std::vector<std::string> DataFolderNames() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(home / "Data")) names.push_back(entry.path().filename().string());
    return names;
  }

  std::vector<Job> jobs;
};

TEST_F(ConcurrentRuns, RunsStartedTogetherEachEndAsTheyEndAlone) {
  // Each run alone first: what it must give when it has company.
  std::vector<Outcome> alone(jobs.size());
  for (std::size_t i = 0; i < jobs.size(); ++i) {
    alone[i] = RunTogether(i)[i];
    alone[i].resultLine = Result();
  }
  // The runs differ, so that a mixed run cannot pass for another one.
  EXPECT_EQ(alone[0].status, 0) << alone[0].errors;
  EXPECT_EQ(alone[1].treeList->size(), 21390u * 61);
  EXPECT_EQ(alone[3].errors, "Invalid DBH value.\n");
  EXPECT_EQ(alone[4].errors,
            "Error preparing database\r\n3709 - 'Input line 2001 holds a null character: the file is not plain "
            "text'\r\nLine: CreateColumnsTable\n");
  EXPECT_FALSE(alone[4].treeList.has_value());

  constexpr int kRepetitions = 5;
  int mismatches = 0;
  for (int repetition = 1; repetition <= kRepetitions; ++repetition) {
    const std::vector<Outcome> together = RunTogether();
    for (std::size_t i = 0; i < jobs.size(); ++i) {
      if (together[i] == alone[i]) continue;
      ++mismatches;
      ADD_FAILURE() << "repetition " << repetition << ", run " << jobs[i].name << ": status " << together[i].status
                    << " (alone " << alone[i].status << "), standard error \"" << together[i].errors << "\" (alone \""
                    << alone[i].errors << "\"), tree list of "
                    << (together[i].treeList ? together[i].treeList->size() : 0) << " bytes (alone "
                    << (alone[i].treeList ? alone[i].treeList->size() : 0) << ")";
    }
    // result.txt holds the whole line of one of the runs.
    bool resultOfOneRun = false;
    for (const Outcome& outcome : alone) resultOfOneRun = resultOfOneRun || Result() == outcome.resultLine;
    EXPECT_TRUE(resultOfOneRun) << Result();
    // Nothing of the runs is left in the Data folder, and the wizard's table
    // is as it was.
    EXPECT_EQ(DataFolderNames(), std::vector<std::string>{"TFT.mdb"});
    EXPECT_EQ(ReadFile(WizardTable()), "the wizard's working table");
  }
  std::cout << "concurrent runs: " << jobs.size() << " runs started together, " << kRepetitions
            << " repetitions, mismatches: " << mismatches << "\n";
  EXPECT_EQ(mismatches, 0);
}

}  // namespace
}  // namespace corvalin
