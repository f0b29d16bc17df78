// The fuzz targets without the fuzzer: each input file named on the command
// line (or each file of a folder named there) goes once through the
// target's checks, in name order. The ordinary test suite replays the kept
// seeds and findings so, with the ordinary compiler: a finding that comes
// back fails the suite, not only a fuzzing run. A failed check aborts with
// its finding; the input in hand was named just before.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "FuzzSupport.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size);

int main(int argc, char** argv) {
  namespace fs = std::filesystem;
  std::vector<fs::path> inputs;
  for (int i = 1; i < argc; ++i) {
    const fs::path named = argv[i];
    if (fs::is_directory(named)) {
      std::vector<fs::path> files;
      for (const auto& entry : fs::directory_iterator(named))
        if (entry.is_regular_file()) files.push_back(entry.path());
      std::sort(files.begin(), files.end());
      inputs.insert(inputs.end(), files.begin(), files.end());
    } else if (fs::is_regular_file(named)) {
      inputs.push_back(named);
    } else {
      std::fprintf(stderr, "no input file or folder: %s\n", named.c_str());
      return 2;
    }
  }
  if (inputs.empty()) {
    std::fprintf(stderr, "nothing to replay\n");
    return 2;
  }
  for (const fs::path& input : inputs) {
    std::fprintf(stderr, "replaying %s\n", input.c_str());
    const std::string bytes = corvalin::fuzz::ReadBytes(input.string());
    LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
  }
  std::printf("%zu inputs replayed, every check held\n", inputs.size());
  return 0;
}
