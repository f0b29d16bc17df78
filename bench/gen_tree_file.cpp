// Writes a survey-like tree file: gen_tree_file lines columns output-path.
#include <cstdio>
#include <cstdlib>
#include <string>

#include "tree_file.h"

int main(int argc, char** argv) {
  if (argc != 4) {
    std::fprintf(stderr, "usage: gen_tree_file lines columns output-path\n");
    return 2;
  }
  const int lines = std::atoi(argv[1]);
  const int columns = std::atoi(argv[2]);
  if (lines < 0 || columns < 1) {
    std::fprintf(stderr, "gen_tree_file: lines must be 0 or more and columns 1 or more\n");
    return 2;
  }
  const std::string text = corvalin::bench::TreeFile(lines, columns);
  std::FILE* out = std::fopen(argv[3], "wb");
  if (out == nullptr || std::fwrite(text.data(), 1, text.size(), out) != text.size() || std::fclose(out) != 0) {
    std::perror(argv[3]);
    return 1;
  }
  return 0;
}
