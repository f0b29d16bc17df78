// Pages mapped ahead of the load on a thread of their own: they are there
// once it is done, and what they held is left as it was.
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstring>
#include <vector>

#include "worktable/PagesAhead.h"

namespace corvalin {
namespace {

const std::size_t kPage = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));

// Fresh memory that no page backs yet.
class FreshMemory {
 public:
  explicit FreshMemory(std::size_t pages) : size_(pages * kPage) {
    memory_ = static_cast<char*>(::mmap(nullptr, size_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
  }
  ~FreshMemory() { ::munmap(memory_, size_); }
  char* data() const { return memory_; }

  // Which of its pages are mapped.
  std::vector<bool> Mapped() const {
    std::vector<unsigned char> flags(size_ / kPage);
    ::mincore(memory_, size_, flags.data());
    std::vector<bool> mapped;
    for (const unsigned char flag : flags) mapped.push_back((flag & 1) != 0);
    return mapped;
  }

 private:
  std::size_t size_;
  char* memory_;
};

// Whether this system maps pages ahead at all; where it does not, the pages
// are mapped as they are written and there is nothing to see.
bool SystemMapsAhead() {
#ifdef MADV_POPULATE_WRITE
  FreshMemory probe(1);
  return ::madvise(probe.data(), kPage, MADV_POPULATE_WRITE) == 0;
#else
  return false;
#endif
}

TEST(PagesAhead, TheWholePagesOfEachRangeAreMapped) {
  if (!SystemMapsAhead()) GTEST_SKIP() << "this system does not map pages ahead";
  FreshMemory memory(16);
  ASSERT_EQ(memory.Mapped(), std::vector<bool>(16, false));
  {
    PagesAhead ahead;
    // From inside page 1 to inside page 5, and pages 9 to 11 exactly.
    ahead.Prepare({{memory.data() + kPage + 10, 4 * kPage}, {memory.data() + 9 * kPage, 3 * kPage}});
  }
  const std::vector<bool> expected{false, false, true,  true,  true,  false, false, false,
                                   false, true,  true,  true,  false, false, false, false};
  EXPECT_EQ(memory.Mapped(), expected);
}

TEST(PagesAhead, WhatThePagesHoldIsLeftAsItWas) {
  FreshMemory memory(8);
  std::memset(memory.data(), 'x', 3 * kPage + 7);
  {
    PagesAhead ahead;
    ahead.Prepare({{memory.data(), 8 * kPage}});
  }
  for (std::size_t at = 0; at < 8 * kPage; ++at)
    ASSERT_EQ(memory.data()[at], at < 3 * kPage + 7 ? 'x' : '\0') << at;
}

TEST(PagesAhead, RangesWithinAPageOrEmptyAreLeftAlone) {
  FreshMemory memory(4);
  {
    PagesAhead ahead;
    ahead.Prepare({{memory.data() + 1, kPage - 2}, {memory.data() + kPage, 0}, {}});
  }
  EXPECT_EQ(memory.Mapped(), std::vector<bool>(4, false));
}

// A load prepares its pages once; a second call is not a second thread.
TEST(PagesAhead, OnlyTheFirstPrepareMapsPages) {
  if (!SystemMapsAhead()) GTEST_SKIP() << "this system does not map pages ahead";
  FreshMemory memory(8);
  {
    PagesAhead ahead;
    ahead.Prepare({{memory.data(), 2 * kPage}});
    ahead.Prepare({{memory.data() + 4 * kPage, 4 * kPage}});
  }
  EXPECT_EQ(memory.Mapped(), (std::vector<bool>{true, true, false, false, false, false, false, false}));
}

}  // namespace
}  // namespace corvalin
