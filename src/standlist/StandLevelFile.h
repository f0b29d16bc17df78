// The records of a stand list file (.slf): one record per line, of type A
// (tree data and variants), B (site and sampling attributes), C (group codes)
// or D (add files). The line text is the stored truth: a line is read into
// fields only when it is opened for editing and rebuilt whole when the
// dialog is confirmed. These routines turn a line into the dialog's field
// texts and the field texts into a line; the dialog's lists and look-ups are
// the dialog's own.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "standlist/VariantTables.h"

namespace corvalin {

// A field without a value is written as "@"; a token that begins with "@"
// reads back as empty.
inline constexpr const char* BlankFieldMark = "@";
// The caption of the tree data set of a bare ground stand, and its token.
inline constexpr const char* BareGroundCaption = "*** Bare ground ***";
inline constexpr const char* BareGroundToken = "&";
inline constexpr const char* WithPointDataWord = "WithPointData";
inline constexpr const char* NoPointDataWord = "NoPointData";
inline constexpr const char* InvalidSlfRecordMessage =
    "Invalid SLF record - should start with 'A', 'B', 'C', or 'D'.";

// Token number index (1-based) of a record line: blank-separated, a double
// quote opens a quoted token only as a token's first character, a token that
// begins with "@" is empty, a token past the end is empty. Token 1 starts at
// the first character, so a leading blank shifts every token by one.
std::string GetRecordToken(std::string_view line, int16_t index);

// The text lower-cased, or "@" when it is empty (blanks are not empty).
std::string FieldOrBlank(std::string_view text);

// The number value of a text: its leading numeric part, 0 when there is none
// (" 106x" is 106, "" and "abc" are 0).
double LeadingNumberValue(std::string_view text);

// Record A: the stand's tree data set, point data and applicable variants.
struct StandRecordA {
  std::string code;          // the code combo's text
  std::string treeDataSet;   // the label's caption: a path, BareGroundCaption or empty
  bool withPointData = true;
  std::array<bool, kVariantCount> variants{};  // ticked boxes, VariantNames() order
};

// Record B: token 2 is the code; tokens 3 to 27 are the texts of the
// dialog's controls in token order (a combo's whole text).
inline constexpr int kRecordBFirstValueToken = 3;
inline constexpr int kRecordBLastToken = 27;
inline constexpr int kRecordBValues = kRecordBLastToken - kRecordBFirstValueToken + 1;
struct StandRecordB {
  std::string code;
  std::array<std::string, kRecordBValues> values;  // values[0] is token 3
};
// How many leading characters of a control's text token t stores: the list
// fields store their code part (6: 4, 7: 3, 19 and 21: 1, 26: 2); 0 for the
// text boxes, which store the whole text.
std::size_t RecordBStoredWidth(int token);

// Record C: the group codes as typed, one text.
struct StandRecordC {
  std::string code;
  std::string groupCodes;
};

// Record D: the add files, one entry each.
struct StandRecordD {
  std::string code;
  std::vector<std::string> addFiles;
};

// Building a line. Everything the program writes is lower-cased, apart from
// the record letter, the point data words and the group codes.
std::string BuildRecordA(const StandRecordA& record);
std::string BuildRecordB(const StandRecordB& record);
std::string BuildRecordC(const StandRecordC& record);
std::string BuildRecordD(const StandRecordD& record);

// Reading a line into the field texts the dialog shows. A short or odd line
// never fails: missing tokens read as empty.
// A: a tree data token "&" is the bare ground caption, any other goes
// through ExpandWorkPath and is upper-cased; tags are read from token 5 to
// the first empty token, and only exact lower-case tags tick a box.
StandRecordA ReadRecordA(std::string_view line);
// B: each token as it stands; the list look-ups are the dialog's.
StandRecordB ReadRecordB(std::string_view line);
// C: tokens 3 on, up to the first empty one, each followed by one blank.
StandRecordC ReadRecordC(std::string_view line);
// D: tokens 3 on, up to the first empty one, upper-cased, not expanded.
StandRecordD ReadRecordD(std::string_view line);

// The list look-ups of reading a record B. Each returns the index of the
// last matching row (the look-up does not stop at a match), or -1.
// By number value of the row's first `width` characters (location, habitat).
int LastRowWithNumber(const std::vector<std::string>& rows, std::string_view token, std::size_t width);
// The row's first character equals the token exactly (growth translation).
int LastRowWithFirstCharacter(const std::vector<std::string>& rows, std::string_view token);
// The row's first two characters equal the token, both lower-cased (site
// species).
int LastRowWithSpeciesCode(const std::vector<std::string>& rows, std::string_view token);

}  // namespace corvalin
