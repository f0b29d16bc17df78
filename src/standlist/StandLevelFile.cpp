#include "standlist/StandLevelFile.h"

#include <cctype>
#include <cstdlib>

#include "shell/AppUtil.h"
#include "shell/Error.h"
#include "shell/Text.h"
#include "columns/Vocabulary.h"

namespace corvalin {

namespace {

// The tokeniser's state machine, one token at a time: a token is complete
// when the blank behind it is met, or at the end of the line. Token numbers
// are 16-bit, as the index that asks for them.
class RecordTokenReader {
 public:
  explicit RecordTokenReader(std::string_view line) : line_(line) {}

  // The next token as GetRecordToken gives it; false past the last one.
  bool Next(std::string& token) {
    if (done_) return false;
    for (; position_ < line_.size(); ++position_) {
      const char ch = line_[position_];
      if (between_) {
        if (ch == ' ') continue;
        tokenNo_ = Inc16(tokenNo_);
        between_ = false;
        if (ch == '@') {
          // The marker's token reads as empty; what follows it in the token
          // is gathered but never returned.
          blank_ = true;
        } else {
          blank_ = false;
          if (ch == '"') {
            quoted_ = true;
            current_.clear();
          } else {
            quoted_ = false;
            current_.assign(1, ch);
          }
        }
      } else if (ch == ' ' && !quoted_) {
        between_ = true;
        ++position_;
        token = blank_ ? std::string() : current_;
        return true;
      } else if (ch == '"' && quoted_) {
        // The closing quote is dropped; the token goes on to the next blank.
        quoted_ = false;
      } else {
        current_.push_back(ch);
      }
    }
    done_ = true;
    if (between_) return false;
    token = blank_ ? std::string() : current_;
    return true;
  }

 private:
  std::string_view line_;
  std::size_t position_ = 0;
  int16_t tokenNo_ = 1;
  std::string current_;
  bool between_ = false;  // the last token has ended and the next has not begun
  bool blank_ = false;    // the current token began with "@"
  bool quoted_ = false;
  bool done_ = false;
};

// The tokens 1 to upTo of a line (fewer when the line has fewer).
std::vector<std::string> RecordTokens(std::string_view line, int16_t upTo) {
  std::vector<std::string> tokens;
  RecordTokenReader reader(line);
  std::string token;
  while (static_cast<int>(tokens.size()) < upTo && reader.Next(token)) tokens.push_back(token);
  return tokens;
}

std::string TokenOf(const std::vector<std::string>& tokens, std::size_t number) {
  return number >= 1 && number <= tokens.size() ? tokens[number - 1] : std::string();
}

// Tokens from `first` on, up to (not including) the first empty one.
std::vector<std::string> TokensUntilEmpty(std::string_view line, std::size_t first) {
  RecordTokenReader reader(line);
  std::string token;
  std::vector<std::string> run;
  for (std::size_t number = 1; reader.Next(token); ++number) {
    if (number < first) continue;
    if (token.empty()) break;
    run.push_back(token);
  }
  return run;
}

std::string LowerCode(const std::string& code) { return ToLower(code); }

}  // namespace

std::string GetRecordToken(std::string_view line, int16_t index) {
  if (index < 1) return "";
  return TokenOf(RecordTokens(line, index), static_cast<std::size_t>(index));
}

std::string FieldOrBlank(std::string_view text) { return text.empty() ? std::string(BlankFieldMark) : ToLower(text); }

double LeadingNumberValue(std::string_view text) {
  std::size_t i = 0;
  while (i < text.size() && (text[i] == ' ' || text[i] == '\t')) ++i;
  std::string number;
  if (i < text.size() && (text[i] == '+' || text[i] == '-')) number.push_back(text[i++]);
  bool digits = false;
  bool point = false;
  for (; i < text.size(); ++i) {
    const unsigned char ch = static_cast<unsigned char>(text[i]);
    if (std::isdigit(ch)) {
      digits = true;
    } else if (ch == '.' && !point) {
      point = true;
    } else {
      break;
    }
    number.push_back(static_cast<char>(ch));
  }
  if (!digits) return 0.0;
  // An exponent counts only with digits behind it.
  if (i + 1 < text.size() && (text[i] == 'e' || text[i] == 'E')) {
    std::size_t j = i + 1;
    std::string exponent = "e";
    if (text[j] == '+' || text[j] == '-') exponent.push_back(text[j++]);
    const std::size_t firstDigit = j;
    while (j < text.size() && std::isdigit(static_cast<unsigned char>(text[j]))) exponent.push_back(text[j++]);
    if (j > firstDigit) number += exponent;
  }
  return std::strtod(number.c_str(), nullptr);
}

std::size_t RecordBStoredWidth(int token) {
  switch (token) {
    case 6: return 4;   // location code
    case 7: return 3;   // habitat type
    case 19:            // diameter growth translation code
    case 21: return 1;  // height growth translation code
    case 26: return 2;  // site species
    default: return 0;
  }
}

std::string BuildRecordA(const StandRecordA& record) {
  std::string line = "A " + LowerCode(record.code);
  if (record.treeDataSet == BareGroundCaption) {
    // The bare ground mark stands between two blanks of its own, so the line
    // shows two blanks before the point data word.
    line += " & ";
  } else {
    line += " " + ToLower(ShortenWorkPath(record.treeDataSet));
  }
  line += record.withPointData ? " WithPointData" : " NoPointData";
  for (std::size_t v = 0; v < record.variants.size(); ++v)
    if (record.variants[v]) line += " " + ToLower(VariantNames()[v]);
  return line + " @";
}

std::string BuildRecordB(const StandRecordB& record) {
  std::string line = "B " + LowerCode(record.code);
  for (int token = kRecordBFirstValueToken; token <= kRecordBLastToken; ++token) {
    const std::string& text = record.values[static_cast<std::size_t>(token - kRecordBFirstValueToken)];
    const std::size_t width = RecordBStoredWidth(token);
    line += " " + FieldOrBlank(width == 0 ? std::string_view(text) : std::string_view(text).substr(0, width));
  }
  return line;
}

std::string BuildRecordC(const StandRecordC& record) {
  return "C " + LowerCode(record.code) + " " + record.groupCodes + " @";
}

std::string BuildRecordD(const StandRecordD& record) {
  std::string line = "D " + LowerCode(record.code);
  for (const std::string& entry : record.addFiles) line += " " + ToLower(entry);
  return line + " @";
}

StandRecordA ReadRecordA(std::string_view line) {
  const std::vector<std::string> tokens = RecordTokens(line, 4);
  StandRecordA record;
  record.code = TokenOf(tokens, 2);
  const std::string treeDataSet = TokenOf(tokens, 3);
  record.treeDataSet = treeDataSet == BareGroundToken ? BareGroundCaption : ToUpper(ExpandWorkPath(treeDataSet));
  record.withPointData = TokenOf(tokens, 4) == WithPointDataWord;
  for (const std::string& tag : TokensUntilEmpty(line, 5)) {
    // Tags are compared exactly: an upper-case "BC" ticks nothing, and any
    // other word is passed over.
    for (std::size_t v = 0; v < record.variants.size(); ++v)
      if (tag == ToLower(VariantNames()[v])) record.variants[v] = true;
  }
  return record;
}

StandRecordB ReadRecordB(std::string_view line) {
  const std::vector<std::string> tokens = RecordTokens(line, kRecordBLastToken);
  StandRecordB record;
  record.code = TokenOf(tokens, 2);
  for (int token = kRecordBFirstValueToken; token <= kRecordBLastToken; ++token)
    record.values[static_cast<std::size_t>(token - kRecordBFirstValueToken)] =
        TokenOf(tokens, static_cast<std::size_t>(token));
  return record;
}

StandRecordC ReadRecordC(std::string_view line) {
  StandRecordC record;
  record.code = GetRecordToken(line, 2);
  // Each code is followed by one blank, so the box ends in a blank.
  for (const std::string& code : TokensUntilEmpty(line, 3)) record.groupCodes += code + " ";
  return record;
}

StandRecordD ReadRecordD(std::string_view line) {
  StandRecordD record;
  record.code = GetRecordToken(line, 2);
  for (const std::string& entry : TokensUntilEmpty(line, 3)) record.addFiles.push_back(ToUpper(entry));
  return record;
}

int LastRowWithNumber(const std::vector<std::string>& rows, std::string_view token, std::size_t width) {
  const double value = LeadingNumberValue(token);
  int found = -1;
  for (std::size_t i = 0; i < rows.size(); ++i)
    if (LeadingNumberValue(std::string_view(rows[i]).substr(0, width)) == value) found = static_cast<int>(i);
  return found;
}

int LastRowWithFirstCharacter(const std::vector<std::string>& rows, std::string_view token) {
  int found = -1;
  for (std::size_t i = 0; i < rows.size(); ++i)
    if (std::string_view(rows[i]).substr(0, 1) == token) found = static_cast<int>(i);
  return found;
}

int LastRowWithSpeciesCode(const std::vector<std::string>& rows, std::string_view token) {
  const std::string code = ToLower(token);
  int found = -1;
  for (std::size_t i = 0; i < rows.size(); ++i)
    if (ToLower(std::string_view(rows[i]).substr(0, 2)) == code) found = static_cast<int>(i);
  return found;
}

}  // namespace corvalin
