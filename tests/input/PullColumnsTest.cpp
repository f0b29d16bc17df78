// The splitter in its three modes, the delimiter test and the cells cleaned for
// the working table.
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "TestSupport.h"
#include "input/ColumnFormat.h"
#include "input/PullColumns.h"
#include "shell/Error.h"
#include "shell/RunState.h"

namespace corvalin {
namespace {

ColumnFormat Plain(const std::string& delimiters = ",", bool consecutive = false) {
  ColumnFormat format;
  format.ColumnDelimiters = delimiters;
  format.ConsecutiveAsOne = consecutive;
  format.TextQualifier = QualifierNone;
  return format;
}

ColumnFormat Qualified(const std::string& qualifier = QualifierDoubleQuote, const std::string& delimiters = ",",
                       bool consecutive = false) {
  ColumnFormat format = Plain(delimiters, consecutive);
  format.TextQualifier = qualifier;
  return format;
}

ColumnFormat Fixed(const std::vector<int16_t>& markers) {
  ColumnFormat format;
  format.FixedWidth = true;
  format.Markers.NumMarkers = static_cast<int16_t>(markers.size());
  for (std::size_t k = 0; k < markers.size(); ++k) format.Markers.Positions[k] = markers[k];
  return format;
}

// The first Count cells of a line.
std::vector<std::string> Cells(const ColumnFormat& format, const std::string& line) {
  ParsedLine parsed = PullColumns(format, -1, line);
  return std::vector<std::string>(parsed.Columns.begin(), parsed.Columns.begin() + parsed.Count);
}

using Row = std::vector<std::string>;

// Numbered cells, each with its comma: "x1,x2,...,xn,".
std::string NumberedCells(const std::string& prefix, int n) {
  std::string line;
  for (int k = 1; k <= n; ++k) line += prefix + std::to_string(k) + ",";
  return line;
}

std::string Commas(int n) { return NumberedCells("v", n) + "end"; }

// --- plain split ---

TEST(PlainSplit, TrailingCommaKeepsAnEmptyLastCell) {
  EXPECT_EQ(Cells(Plain(), "a,b,"), (Row{"a", "b", ""}));
}

TEST(PlainSplit, LeadingRunWithConsecutiveAsOneMakesOneEmptyCell) {
  EXPECT_EQ(Cells(Plain(",", true), ",,a,,b"), (Row{"", "a", "b"}));
}

TEST(PlainSplit, WithoutConsecutiveAsOneEveryDelimiterMakesACell) {
  EXPECT_EQ(Cells(Plain(), ",,a,,b"), (Row{"", "", "a", "", "b"}));
}

TEST(PlainSplit, EmptyLineGivesOneEmptyCell) {
  ParsedLine parsed = PullColumns(Plain(), -1, "");
  EXPECT_EQ(parsed.Count, 1);
  for (const auto& cell : parsed.Columns) EXPECT_EQ(cell, "");
  EXPECT_EQ(parsed.Columns.size(), 30u);
}

TEST(PlainSplit, QualifierCharacterIsLiteral) {
  EXPECT_EQ(Cells(Plain(), "\"a,b\",c"), (Row{"\"a", "b\"", "c"}));
}

TEST(PlainSplit, FortyCommasLeaveTheRestOfTheLineInColumnThirty) {
  const std::string line = Commas(40);
  ParsedLine parsed = PullColumns(Plain(), -1, line);
  ASSERT_EQ(parsed.Count, 30);
  EXPECT_EQ(parsed.Column(1), "v1");
  EXPECT_EQ(parsed.Column(29), "v29");
  EXPECT_EQ(parsed.Column(30), "v30,v31,v32,v33,v34,v35,v36,v37,v38,v39,v40,end");
}

TEST(PlainSplit, TwentyNinthSeparatorAtTheEndLeavesColumnThirtyEmpty) {
  const std::string line = NumberedCells("x", 29);
  ParsedLine parsed = PullColumns(Plain(), -1, line);
  ASSERT_EQ(parsed.Count, 30);
  EXPECT_EQ(parsed.Column(29), "x29");
  EXPECT_EQ(parsed.Column(30), "");
}

TEST(PlainSplit, NoDelimiterChosenKeepsTheWholeLineInOneCell) {
  EXPECT_EQ(Cells(Plain(""), "a,b;c d\te"), (Row{"a,b;c d\te"}));
}

TEST(PlainSplit, CellsAreNotTrimmed) {
  EXPECT_EQ(Cells(Plain(), " a , b "), (Row{" a ", " b "}));
}

TEST(PlainSplit, EveryChosenDelimiterCuts) {
  EXPECT_EQ(Cells(Plain("\t; "), "a\tb;c d"), (Row{"a", "b", "c", "d"}));
}

TEST(PlainSplit, OtherCharacterCutsInEitherCase) {
  EXPECT_EQ(Cells(Plain("x"), "1x2X3"), (Row{"1", "2", "3"}));
}

TEST(PlainSplit, SlotsPastTheCountAreEmptyEvenWhenReused) {
  LineSplitter splitter(Plain());
  ParsedLine parsed;
  splitter.Split("a,b,c,d,e", parsed);
  splitter.Split("z", parsed);
  EXPECT_EQ(parsed.Count, 1);
  EXPECT_EQ(parsed.Column(1), "z");
  EXPECT_EQ(parsed.Column(2), "");
  EXPECT_EQ(parsed.Column(5), "");
}

TEST(PlainSplit, DelimitedLineOf32767CharactersOverflows) {
  const std::string line(32767, 'a');
  try {
    PullColumns(Plain(), -1, line);
    FAIL() << "no overflow";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), 6);
    EXPECT_EQ(error.description(), "Overflow");
  }
}

TEST(PlainSplit, DelimitedLineOf32766CharactersIsCut) {
  std::string line(32766, 'a');
  line[3] = ',';
  ParsedLine parsed = PullColumns(Plain(), -1, line);
  EXPECT_EQ(parsed.Count, 2);
  EXPECT_EQ(parsed.Column(1), "aaa");
  EXPECT_EQ(parsed.Column(2).size(), 32762u);
}

// --- qualifier split ---

TEST(QualifierSplit, TrailingCommaMakesNoTrailingCell) {
  EXPECT_EQ(Cells(Qualified(), "a,b,"), (Row{"a", "b"}));
}

TEST(QualifierSplit, LeadingRunWithConsecutiveAsOneMakesNoCell) {
  EXPECT_EQ(Cells(Qualified(QualifierDoubleQuote, ",", true), ",,a,,b"), (Row{"a", "b"}));
}

TEST(QualifierSplit, WithoutConsecutiveAsOneADelimiterAtCellStartMakesAnEmptyCell) {
  EXPECT_EQ(Cells(Qualified(), ",,a,,b"), (Row{"", "", "a", "", "b"}));
}

TEST(QualifierSplit, EmptyLineGivesNoCell) {
  ParsedLine parsed = PullColumns(Qualified(), -1, "");
  EXPECT_EQ(parsed.Count, 0);
  for (const auto& cell : parsed.Columns) EXPECT_EQ(cell, "");
}

TEST(QualifierSplit, DelimiterInsideQuotesStaysInTheCell) {
  EXPECT_EQ(Cells(Qualified(), "\"a,b\",c"), (Row{"a,b", "c"}));
}

TEST(QualifierSplit, DoubledQualifierStandsForOne) {
  EXPECT_EQ(Cells(Qualified(), "\"a\"\"b\""), (Row{"a\"b"}));
}

TEST(QualifierSplit, TextAfterTheClosingQualifierJoinsTheCell) {
  EXPECT_EQ(Cells(Qualified(), "\"ab\"cd,e"), (Row{"abcd", "e"}));
}

TEST(QualifierSplit, LeadingSpaceKeepsBothQuotes) {
  EXPECT_EQ(Cells(Qualified(), " \"ab\",c"), (Row{" \"ab\"", "c"}));
}

TEST(QualifierSplit, UnclosedQualifierKeepsTheText) {
  EXPECT_EQ(Cells(Qualified(), "\"ab"), (Row{"ab"}));
}

TEST(QualifierSplit, QualifierInsideAnUnqualifiedCellIsLiteral) {
  EXPECT_EQ(Cells(Qualified(), "ab\"c,d"), (Row{"ab\"c", "d"}));
}

TEST(QualifierSplit, SingleQuoteQualifierLeavesDoubleQuotesAlone) {
  EXPECT_EQ(Cells(Qualified(QualifierSingleQuote), "'a,b',\"c,d\""), (Row{"a,b", "\"c", "d\""}));
}

TEST(QualifierSplit, FortyCommasLeaveTheRawRestInColumnThirty) {
  const std::string line = NumberedCells("v", 29) + "\"q,r\",\"s\"\"t\",end";
  ParsedLine parsed = PullColumns(Qualified(), -1, line);
  ASSERT_EQ(parsed.Count, 30);
  EXPECT_EQ(parsed.Column(29), "v29");
  EXPECT_EQ(parsed.Column(30), "\"q,r\",\"s\"\"t\",end");
}

TEST(QualifierSplit, TwentyNinthSeparatorAtTheEndMakesNoThirtiethCell) {
  const std::string line = NumberedCells("x", 29);
  ParsedLine parsed = PullColumns(Qualified(), -1, line);
  EXPECT_EQ(parsed.Count, 29);
  EXPECT_EQ(parsed.Column(29), "x29");
  EXPECT_EQ(parsed.Column(30), "");
}

TEST(QualifierSplit, NoDelimiterChosenKeepsTheWholeLineInOneCell) {
  EXPECT_EQ(Cells(Qualified(QualifierDoubleQuote, ""), "\"a\",b c"), (Row{"a,b c"}));
}

TEST(QualifierSplit, DelimiterOfTheOtherCaseInsideQuotesStaysText) {
  // "x" as delimiter cuts at "X" too, but not inside the quotes.
  EXPECT_EQ(Cells(Qualified(QualifierDoubleQuote, "x"), "\"aXb\"X1"), (Row{"aXb", "1"}));
}

// --- fixed split ---

TEST(FixedSplit, MarkersCutAtTheirPositions) {
  EXPECT_EQ(Cells(Fixed({3, 5, 9}), "abcdefghijkl"), (Row{"abc", "de", "fghi", "jkl"}));
}

TEST(FixedSplit, NoMarkerGivesAnEmptyFirstCellAndTheWholeLine) {
  EXPECT_EQ(Cells(Fixed({}), "abc def"), (Row{"", "abc def"}));
}

TEST(FixedSplit, OneMarkerGivesTwoCells) {
  EXPECT_EQ(Cells(Fixed({4}), "abc def"), (Row{"abc ", "def"}));
}

TEST(FixedSplit, StalePositionOfMarkerOneCutsWithoutMarkers) {
  ColumnFormat format = Fixed({});
  format.Markers.Positions[0] = 2;
  EXPECT_EQ(Cells(format, "abcdef"), (Row{"ab", "cdef"}));
}

TEST(FixedSplit, EmptyLineGivesMarkerCountPlusOneEmptyCells) {
  ParsedLine parsed = PullColumns(Fixed({2, 4, 6}), -1, "");
  EXPECT_EQ(parsed.Count, 4);
  for (const auto& cell : parsed.Columns) EXPECT_EQ(cell, "");
  EXPECT_EQ(PullColumns(Fixed({}), -1, "").Count, 2);
}

TEST(FixedSplit, MarkerPastTheEndOfAShortLineGivesEmptyCells) {
  ParsedLine parsed = PullColumns(Fixed({2, 10, 20}), -1, "abcde");
  EXPECT_EQ(parsed.Count, 4);
  EXPECT_EQ(parsed.Column(1), "ab");
  EXPECT_EQ(parsed.Column(2), "cde");
  EXPECT_EQ(parsed.Column(3), "");
  EXPECT_EQ(parsed.Column(4), "");
}

TEST(FixedSplit, UnsortedMarkersAreAnInvalidArgument) {
  try {
    PullColumns(Fixed({5, 2}), -1, "abcdefgh");
    FAIL() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), 5);
    EXPECT_EQ(error.description(), "Invalid procedure call or argument");
  }
}

TEST(FixedSplit, TwentyNineMarkersGiveThirtyCells) {
  std::vector<int16_t> markers;
  for (int16_t k = 1; k <= 29; ++k) markers.push_back(k);
  ParsedLine parsed = PullColumns(Fixed(markers), -1, "abcdefghijklmnopqrstuvwxyz0123456789");
  ASSERT_EQ(parsed.Count, 30);
  EXPECT_EQ(parsed.Column(1), "a");
  EXPECT_EQ(parsed.Column(29), "2");
  EXPECT_EQ(parsed.Column(30), "3456789");
}

TEST(FixedSplit, TabsAndCommasAreOrdinaryCharacters) {
  EXPECT_EQ(Cells(Fixed({2}), "a\t,b"), (Row{"a\t", ",b"}));
}

TEST(FixedSplit, LongLineDoesNotOverflow) {
  const std::string line(40000, 'z');
  ParsedLine parsed = PullColumns(Fixed({3}), -1, line);
  EXPECT_EQ(parsed.Column(2).size(), 39997u);
}

// --- markers ---

TEST(ColumnMarkers, SortPutsTheMarkersInAscendingOrder) {
  ColumnMarkerList markers;
  markers.NumMarkers = 4;
  markers.Positions = {};
  markers.Positions[0] = 9;
  markers.Positions[1] = 3;
  markers.Positions[2] = 12;
  markers.Positions[3] = 1;
  markers.Positions[4] = 7;  // past NumMarkers: left where it is
  markers.Sort();
  EXPECT_EQ(markers.ColumnMarkers(1), 1);
  EXPECT_EQ(markers.ColumnMarkers(2), 3);
  EXPECT_EQ(markers.ColumnMarkers(3), 9);
  EXPECT_EQ(markers.ColumnMarkers(4), 12);
  EXPECT_EQ(markers.ColumnMarkers(5), 7);
}

TEST(ColumnMarkers, MarkerThirtyIsOutOfRange) {
  ColumnMarkerList markers;
  try {
    markers.ColumnMarkers(30) = 1;
    FAIL() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), 9);
  }
}

// --- delimiters ---

TEST(BuildColumnDelimiters, OrderIsTabSemicolonCommaSpaceOther) {
  EXPECT_EQ(ComposeColumnDelimiters(true, true, true, true, true, "|x"), "\t;, |x");
  EXPECT_EQ(ComposeColumnDelimiters(true, true, true, false, false, "|"), "\t;,");
  EXPECT_EQ(ComposeColumnDelimiters(false, false, false, false, false, "|"), "");
  EXPECT_EQ(ComposeColumnDelimiters(false, false, false, false, true, ""), "");
}

TEST(IsDelimiter, ComparesWithoutRegardToCase) {
  EXPECT_TRUE(IsDelimiter("x", 'X'));
  EXPECT_TRUE(IsDelimiter("Q", 'q'));
  EXPECT_TRUE(IsDelimiter("\xE9", '\xC9'));  // e acute and E acute
  EXPECT_FALSE(IsDelimiter("x", 'y'));
  EXPECT_FALSE(IsDelimiter(",", ';'));
}

TEST(IsDelimiter, EmptyDelimitersAreNeverMatched) {
  EXPECT_FALSE(IsDelimiter("", ','));
  EXPECT_FALSE(IsDelimiter("", '\0'));
}

TEST(IsDelimiter, SplitterAgreesWithTheTextTest) {
  LineSplitter splitter(Plain("aZ;\xE0"));
  for (int c = 0; c < 256; ++c)
    EXPECT_EQ(splitter.IsDelimiter(static_cast<char>(c)), IsDelimiter("aZ;\xE0", static_cast<char>(c))) << c;
}

// --- cells cleaned for the working table ---

// The cells CutCleaned gives, Count of them.
std::vector<std::string> CleanedOf(const LineSplitter& splitter, const std::string& line) {
  CleanedCells cleaned;
  splitter.CutCleaned(line, cleaned);
  std::vector<std::string> cells;
  for (int slot = 0; slot < cleaned.Count; ++slot) cells.emplace_back(cleaned.Cell(slot));
  return cells;
}

// A cell as the working table takes it, worked out the plain way: spaces
// trimmed from both ends, then the first 100 characters.
std::string Cleaned(std::string_view cell) {
  while (!cell.empty() && cell.front() == ' ') cell.remove_prefix(1);
  while (!cell.empty() && cell.back() == ' ') cell.remove_suffix(1);
  return std::string(cell.substr(0, kMaxCellLength));
}

TEST(CutCleaned, TrimsSpacesButNotTabs) {
  EXPECT_EQ(CleanedOf(LineSplitter(Plain()), "  ab c  ,\t ab \t,   "), (Row{"ab c", "\t ab \t", ""}));
}

TEST(CutCleaned, CellOf150CharactersKeepsItsFirst100AfterTrimming) {
  std::string cell(20, ' ');
  for (int k = 0; k < 150; ++k) cell += static_cast<char>('a' + k % 26);
  std::string expected;
  for (int k = 0; k < 100; ++k) expected += static_cast<char>('a' + k % 26);
  EXPECT_EQ(CleanedOf(LineSplitter(Plain()), "x," + cell + "   ,y"), (Row{"x", expected, "y"}));
}

TEST(CutCleaned, SpacesInsideTheFirstHundredStayWhenTheCellIsCut) {
  // Trimmed first, then cut: the spaces that end the first 100 characters stay.
  const std::string cell = "a" + std::string(99, ' ') + "b";
  EXPECT_EQ(CleanedOf(LineSplitter(Plain()), cell), (Row{"a" + std::string(99, ' ')}));
}

TEST(CutCleaned, QuotedSpacesAreTrimmedLikeAnyOther) {
  EXPECT_EQ(CleanedOf(LineSplitter(Qualified()), "\"  a, b  \",  \"c\"  ,\" \"\"d\"\" \""),
            (Row{"a, b", "\"c\"", "\"d\""}));
}

TEST(CutCleaned, TheRestOfALongLineInColumnThirtyIsCleaned) {
  const std::string line = NumberedCells(" v", 29) + "  v30, v31  ";
  CleanedCells cleaned;
  LineSplitter(Plain()).CutCleaned(line, cleaned);
  ASSERT_EQ(cleaned.Count, 30);
  EXPECT_EQ(cleaned.Cell(0), "v1");
  EXPECT_EQ(cleaned.Cell(28), "v29");
  EXPECT_EQ(cleaned.Cell(29), "v30, v31");
}

TEST(CutCleaned, AQualifierThatAlsoCutsStillOpensACell) {
  EXPECT_EQ(CleanedOf(LineSplitter(Qualified(QualifierDoubleQuote, ",\"")), "a,\"b,c\"d,e"), (Row{"a", "b,cd", "e"}));
}

TEST(CutCleaned, SlotsPastTheCountEndWhereTheLastCellEnds) {
  CleanedCells cleaned;
  const LineSplitter splitter(Plain());
  splitter.CutCleaned("a long first line,with,several,cells,in,it", cleaned);
  splitter.CutCleaned(" z , y ", cleaned);
  ASSERT_EQ(cleaned.Count, 2);
  EXPECT_EQ(cleaned.Cell(0), "z");
  EXPECT_EQ(cleaned.Cell(1), "y");
  EXPECT_EQ(cleaned.Length(), 2u);
  for (std::size_t slot = 2; slot < cleaned.Ends.size(); ++slot) EXPECT_EQ(cleaned.Ends[slot], 2u) << slot;
}

// The error number CutCleaned raises on line, or 0.
int ErrorOfCutCleaned(const ColumnFormat& format, const std::string& line) {
  CleanedCells cleaned;
  try {
    LineSplitter(format).CutCleaned(line, cleaned);
  } catch (const RuntimeError& error) {
    return error.number();
  }
  return 0;
}

TEST(CutCleaned, RaisesAsTheCutDoes) {
  EXPECT_EQ(ErrorOfCutCleaned(Plain(), std::string(kLongestDelimitedLine + 1, 'a')), 6);
  EXPECT_EQ(ErrorOfCutCleaned(Plain(), std::string(kLongestDelimitedLine, 'a')), 0);
  EXPECT_EQ(ErrorOfCutCleaned(Fixed({5, 3}), "abcdefgh"), 5);
}

// Every way of cutting, on lines made of the characters that matter to it:
// the cleaned cells are the cut's cells, each cleaned.
TEST(CutCleaned, GivesTheCutsCellsCleanedInEveryMode) {
  std::mt19937 random(29);
  const std::string alphabet = "ab1  ,,;\"'xX\t";
  std::uniform_int_distribution<std::size_t> pick(0, alphabet.size() - 1);
  std::uniform_int_distribution<int> length(0, 160);
  std::vector<ColumnFormat> formats;
  for (const bool consecutive : {false, true}) {
    for (const std::string delimiters : {",", ",;", " ", "x", ",\"", ""}) {
      formats.push_back(Plain(delimiters, consecutive));
      formats.push_back(Qualified(QualifierDoubleQuote, delimiters, consecutive));
      formats.push_back(Qualified(QualifierSingleQuote, delimiters, consecutive));
    }
  }
  formats.push_back(Fixed({}));
  formats.push_back(Fixed({3, 3, 10, 40}));
  formats.push_back(Fixed({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24,
                           25, 26, 27, 140}));
  for (const ColumnFormat& format : formats) {
    const LineSplitter splitter(format);
    CleanedCells cleaned;
    LineCells cut;
    for (int n = 0; n < 3000; ++n) {
      std::string line;
      const int size = length(random);
      for (int k = 0; k < size; ++k) line += alphabet[pick(random)];
      splitter.Cut(line, cut);
      splitter.CutCleaned(line, cleaned);
      ASSERT_EQ(cleaned.Count, cut.Count) << line;
      for (int slot = 0; slot < kMaxColumns; ++slot)
        ASSERT_EQ(cleaned.Cell(slot), Cleaned(cut.Cells[static_cast<std::size_t>(slot)])) << line << " cell " << slot;
    }
  }
}

// --- the preview as a source of lines ---

class PreviewLines : public testing::FreshProcess {};

TEST_F(PreviewLines, IndexTakesTheLineFromThePreviewAndIgnoresTheText) {
  Run().InputPreview = {"a,b", "c,d,e"};
  Run().InputPreviewCount = 2;
  Run().InputPreviewLoaded = true;
  ParsedLine parsed = PullColumns(Plain(), 2, "ignored,text");
  EXPECT_EQ(parsed.Count, 3);
  EXPECT_EQ(parsed.Column(1), "c");
  EXPECT_EQ(parsed.Column(3), "e");
}

TEST_F(PreviewLines, IndexPastTheCountFailsTheAssertion) {
  Run().InputPreview = {"a,b"};
  Run().InputPreviewCount = 1;
  EXPECT_THROW(PullColumns(Plain(), 2, ""), ProcessEnded);
  EXPECT_EQ(ui.Texts(), (std::vector<std::string>{"Assertion failure!"}));
}

// --- the real survey file ---

class SurveyFile : public ::testing::Test {
 protected:
  void SetUp() override {
    std::string text = testing::ReadFile(testing::SharedDataDir() / "lolo-2022" / "tree.csv");
    std::size_t start = 0;
    while (start < text.size()) {
      std::size_t end = text.find_first_of("\r\n", start);
      if (end == std::string::npos) end = text.size();
      lines.push_back(text.substr(start, end - start));
      start = end + ((text.compare(end, 2, "\r\n") == 0) ? 2 : 1);
    }
  }
  std::vector<std::string> lines;
};

TEST_F(SurveyFile, HasTheExpectedLines) {
  ASSERT_EQ(lines.size(), 911u);
  EXPECT_EQ(lines[0], "PLT_CN,SUBP,TREE,STATUSCD,SPCD,DIA,HT,ACTUALHT,CCLCD,TPA_UNADJ");
}

TEST_F(SurveyFile, PlainSplitCutsHeaderAndTreesIntoTenCells) {
  EXPECT_EQ(Cells(Plain(), lines[0]),
            (Row{"PLT_CN", "SUBP", "TREE", "STATUSCD", "SPCD", "DIA", "HT", "ACTUALHT", "CCLCD", "TPA_UNADJ"}));
  EXPECT_EQ(Cells(Plain(), lines[1]), (Row{"670951075126144", "1", "1", "2", "108.0", "", "", "", "", ""}));
  EXPECT_EQ(Cells(Plain(), lines[2]),
            (Row{"670951075126144", "1", "2", "1", "108.0", "1.0", "9", "9", "3", "74.965282"}));
  for (const auto& line : lines) EXPECT_EQ(PullColumns(Plain(), -1, line).Count, 10) << line;
}

TEST_F(SurveyFile, QualifierSplitDropsTheEmptyTrailingCells) {
  // The second line ends in a run of commas: the qualifier split makes no cell
  // for the delimiter that ends the line.
  EXPECT_EQ(Cells(Qualified(), lines[1]), (Row{"670951075126144", "1", "1", "2", "108.0", "", "", "", ""}));
  EXPECT_EQ(Cells(Qualified(), lines[2]),
            (Row{"670951075126144", "1", "2", "1", "108.0", "1.0", "9", "9", "3", "74.965282"}));
  EXPECT_EQ(Cells(Qualified(QualifierDoubleQuote, ",", true), lines[1]),
            (Row{"670951075126144", "1", "1", "2", "108.0"}));
}

TEST_F(SurveyFile, FixedSplitCutsThePlotNumberAndTheRest) {
  EXPECT_EQ(Cells(Fixed({15, 17, 19}), lines[2]), (Row{"670951075126144", ",1", ",2", ",1,108.0,1.0,9,9,3,74.965282"}));
  EXPECT_EQ(Cells(Fixed({6, 11}), lines[0]), (Row{"PLT_CN", ",SUBP", ",TREE,STATUSCD,SPCD,DIA,HT,ACTUALHT,CCLCD,TPA_UNADJ"}));
}

// A line without the qualifier is cut in one piece per cell; the cells must be
// those of the character-by-character reading. A single quote inside a cell
// is text to that reading, so the same line with the single quote as the
// qualifier goes the long way and must give the same cells.
TEST(QualifierSplit, ALineWithoutTheQualifierGivesTheCellsOfTheLongReading) {
  std::mt19937 random(11);
  const std::string alphabet = "ab1.,, ;'";
  std::uniform_int_distribution<std::size_t> pick(0, alphabet.size() - 1);
  std::uniform_int_distribution<int> length(0, 90);
  for (const bool consecutive : {false, true}) {
    const LineSplitter quick(Qualified(QualifierDoubleQuote, ",;", consecutive));
    const LineSplitter slow(Qualified(QualifierSingleQuote, ",;", consecutive));
    for (int n = 0; n < 20000; ++n) {
      std::string line;
      const int size = length(random);
      for (int k = 0; k < size; ++k) {
        char c = alphabet[pick(random)];
        // A single quote only inside a cell, where it is no qualifier.
        if (c == '\'' && (line.empty() || line.back() == ',' || line.back() == ';')) c = 'q';
        line += c;
      }
      ParsedLine a;
      ParsedLine b;
      quick.Split(line, a);
      slow.Split(line, b);
      ASSERT_EQ(a.Count, b.Count) << line;
      for (int c = 1; c <= kMaxColumns; ++c) ASSERT_EQ(a.Column(c), b.Column(c)) << line << " cell " << c;
    }
  }
}

}  // namespace
}  // namespace corvalin
