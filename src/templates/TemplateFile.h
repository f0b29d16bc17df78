// The template file (.cnv): a profile file with the sections
// COLUMN_DELIMITERS, FORMAT_INFO and TEMPLATE_COMMANDS. There is no single
// reader: each screen reads its own section when it loads or comes to the
// front. Writing only adds and replaces keys, so keys of an earlier, wider
// save stay in the file; the counts decide what is read. Each writer below
// takes the file's path, and writes its section with one replacement of the
// whole file, or an edit of the file in memory, so that the three sections
// of a save go to the disk at once (see frmHeaders).
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace corvalin {

struct ColumnMarkerList;
class ProfileFileEdit;

inline constexpr const char* SectionColumnDelimiters = "COLUMN_DELIMITERS";
inline constexpr const char* SectionFormatInfo = "FORMAT_INFO";
inline constexpr const char* SectionTemplateCommands = "TEMPLATE_COMMANDS";
inline constexpr const char* TemplateExtension = ".cnv";

// The path of the template of this name in the Work folder.
std::string TemplatePathOf(const std::string& name);

// The format keys as frmColumns reads and writes them. The qualifier is the
// shown text of the qualifier list; reading gives "NO" when it is missing.
struct ColumnDelimiterKeys {
  bool FixedWidth = false;
  bool Comma = true;
  bool Tab = false;
  bool Semicolon = false;
  bool Space = false;
  bool Other = false;
  std::string OtherChars;
  bool TreatConsecutiveAsOne = false;
  std::string TextQualifier = "NO";
};

// Reads COLUMN_DELIMITERS down to TextQualifier with the template defaults.
// NumMarkers and the markers are never read back from a template.
ColumnDelimiterKeys ReadColumnDelimiters(const std::string& path);
// The entry of the qualifier list a stored qualifier selects: 1 for a double
// quote, 2 for a single quote, 3 ("None") for anything else.
int TextQualifierEntry(const std::string& stored);
// Writes COLUMN_DELIMITERS in key order; in fixed width mode also NumMarkers
// and FixedMarker1..NumMarkers from the markers.
void WriteColumnDelimiters(const std::string& path, const ColumnDelimiterKeys& keys,
                           const ColumnMarkerList& markers);
void WriteColumnDelimiters(ProfileFileEdit& file, const ColumnDelimiterKeys& keys, const ColumnMarkerList& markers);

// The view of FORMAT_INFO as the grid screen writes it.
struct FormatInfoKeys {
  std::string MeasurementSystem;      // "METRIC" or "IMPERIAL"
  std::string ShowUnassignedColumns;  // "YES" or "NO"
  std::string ShowExcludedRows;
  std::string AutoValidateGridData;
  std::string OrvanVariant;
};

// Writes the five view keys, then for each column 1..columnCount
// NumberOfColumns, ColumnHeader<i> and ColumnUnits<i>. A heading that is not
// split in two lines cannot be saved (the invalid procedure call error); the
// keys before it are written all the same.
void WriteFormatInfo(const std::string& path, const FormatInfoKeys& keys, int16_t columnCount,
                     const std::array<std::string, 32>& headings);
void WriteFormatInfo(ProfileFileEdit& file, const FormatInfoKeys& keys, int16_t columnCount,
                     const std::array<std::string, 32>& headings);

// Reads TEMPLATE_COMMANDS into the commands in force: NumberOfCommands into
// CommandCount, then the seven keys of each. A missing or non-numeric number
// is the type mismatch error; a 101st command the subscript error.
void ReadTemplateCommands(const std::string& path);
// Writes NumberOfCommands and the seven keys of every command in force.
void WriteTemplateCommands(const std::string& path);
void WriteTemplateCommands(ProfileFileEdit& file);

// The integer of a stored number, as a 16-bit count: blanks around it are
// allowed, anything else that is not a whole number is the type mismatch
// error (13), and a number past the 16-bit range the overflow error (6).
int16_t StoredInteger(const std::string& text);

}  // namespace corvalin
