// Survey-like tree files for the benchmarks: one tree per line, cells that
// look like a forest inventory (plot and tree numbers, species codes,
// diameters, heights, crown ratios, damage codes, a remark now and then),
// comma-separated, CR LF line ends. The same seed gives the same file.
#pragma once

#include <array>
#include <cstdint>
#include <random>
#include <string>

namespace corvalin::bench {

inline std::string TreeLine(std::mt19937& rng, int lineNumber, int columns) {
  static constexpr std::array<const char*, 12> kSpecies = {"DF", "WH", "RC", "PP", "LP", "SS",
                                                           "WL", "GF", "ES", "AF", "RA", "BM"};
  static constexpr std::array<const char*, 6> kRemarks = {"", "", "", "broken top", "fork, dead top", "\"leaning\""};
  std::uniform_int_distribution<int> any(0, 1 << 30);
  std::string line;
  for (int c = 1; c <= columns; ++c) {
    if (c > 1) line += ',';
    switch ((c - 1) % 10) {
      case 0: line += std::to_string(1000 + lineNumber / 40); break;                      // plot
      case 1: line += std::to_string(1 + lineNumber % 40); break;                          // tree
      case 2: line += std::to_string(1 + any(rng) % 9); break;                             // tree count
      case 3: line += kSpecies[static_cast<std::size_t>(any(rng)) % kSpecies.size()]; break;
      case 4: {                                                                             // diameter
        const int tenths = 50 + any(rng) % 900;
        line += std::to_string(tenths / 10) + "." + std::to_string(tenths % 10);
        break;
      }
      case 5: line += std::to_string(3 + any(rng) % 55); break;                            // height
      case 6: line += std::to_string(10 + any(rng) % 90); break;                           // crown ratio
      case 7: line += (any(rng) % 4 == 0) ? std::to_string(any(rng) % 100) : ""; break;    // damage
      case 8: line += (any(rng) % 2 == 0) ? "  " + std::to_string(any(rng) % 7) : "0"; break;
      default: line += kRemarks[static_cast<std::size_t>(any(rng)) % kRemarks.size()]; break;
    }
  }
  return line;
}

// lines lines of columns cells each.
inline std::string TreeFile(int lines, int columns, unsigned seed = 20220601u) {
  std::mt19937 rng(seed);
  std::string text;
  text.reserve(static_cast<std::size_t>(lines) * static_cast<std::size_t>(columns) * 5);
  for (int n = 1; n <= lines; ++n) {
    text += TreeLine(rng, n, columns);
    text += "\r\n";
  }
  return text;
}

}  // namespace corvalin::bench
