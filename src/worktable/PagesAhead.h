// Memory made ready on a thread of its own: the pages a load is about to
// fill are mapped before it gets to them, so that the thread that reads and
// cuts the lines does not stop at each new page it writes. Only the mapping
// is done ahead; what the pages hold is left as it is, so the load may
// write them at the same time.
#pragma once

#include <span>
#include <thread>
#include <vector>

namespace corvalin {

class PagesAhead {
 public:
  PagesAhead() = default;
  // Waits for the pages being mapped.
  ~PagesAhead();
  PagesAhead(const PagesAhead&) = delete;
  PagesAhead& operator=(const PagesAhead&) = delete;

  // Maps the whole pages within each range, on a thread of its own. Where
  // the system cannot map pages ahead nothing is done: each page is then
  // mapped when first written, as it would be without this. Called once.
  void Prepare(std::vector<std::span<char>> ranges);

 private:
  std::thread thread_;
};

}  // namespace corvalin
