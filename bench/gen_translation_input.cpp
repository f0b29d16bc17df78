// Writes a tree file of N lines with ten comma-separated columns, and
// optionally the template that assigns all ten for the "NI" variant:
//   gen_translation_input LINES INPUT.csv [TEMPLATE.cnv]
// The columns: plot, tree, tree count, history, species, DBH (inches),
// DBH increment (inches), total height (feet), crown ratio (%), slope (%).
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

int main(int argc, char** argv) {
  if (argc < 3) {
    std::fprintf(stderr, "usage: %s LINES INPUT.csv [TEMPLATE.cnv]\n", argv[0]);
    return 2;
  }
  const long lines = std::strtol(argv[1], nullptr, 10);
  std::ofstream input(argv[2], std::ios::binary);
  const char* species[] = {"WP", "L", "DF", "GF", "WH", "C", "LP", "S", "AF", "PP", "MH"};
  unsigned seed = 12345;
  auto next = [&seed](unsigned range) {
    seed = seed * 1103515245u + 12345u;
    return (seed >> 16) % range;
  };
  for (long i = 0; i < lines; ++i) {
    const long plot = i / 40 + 1;
    const long tree = i % 40 + 1;
    input << plot << ',' << tree << ',' << (next(400) + 1) / 10.0 << ',' << (next(9) + 1) << ','
          << species[next(11)] << ',' << (next(400) + 10) / 10.0 << ',' << next(30) / 10.0 << ','
          << (next(150) + 10) << ',' << next(100) << ',' << next(80) << "\r\n";
  }
  if (argc > 3) {
    std::ofstream t(argv[3], std::ios::binary);
    t << "[COLUMN_DELIMITERS]\r\nFixedWidth=NO\r\nComma=YES\r\nTab=NO\r\nSemicolon=NO\r\nSpace=NO\r\nOther=NO\r\n"
         "OtherChars=\r\nTreatConsecutiveAsOne=NO\r\nTextQualifier=None\r\n"
         "[FORMAT_INFO]\r\nMeasurementSystem=IMPERIAL\r\nShowUnassignedColumns=YES\r\nShowExcludedRows=YES\r\n"
         "AutoValidateGridData=YES\r\nOrvanVariant=NI\r\nNumberOfColumns=10\r\n";
    const char* headers[][2] = {{"Plot ID", ""},      {"Tree ID", ""},          {"Tree Count", ""},
                                {"Tree History", ""}, {"Species", ""},          {"DBH", "inches"},
                                {"Periodic DBH Inc.", "inches"}, {"Total Height", "feet"},
                                {"Crown Ratio", "%"}, {"Plot Slope", "%"}};
    for (int n = 1; n <= 10; ++n)
      t << "ColumnHeader" << n << '=' << headers[n - 1][0] << "\r\nColumnUnits" << n << '=' << headers[n - 1][1]
        << "\r\n";
    t << "[TEMPLATE_COMMANDS]\r\nNumberOfCommands=0\r\n";
  }
  return 0;
}
