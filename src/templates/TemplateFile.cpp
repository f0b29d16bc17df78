#include "templates/TemplateFile.h"

#include <cmath>
#include <cstdlib>

#include "columns/Vocabulary.h"
#include "input/ColumnFormat.h"
#include "shell/Error.h"
#include "shell/ProfileFile.h"
#include "shell/RunState.h"
#include "shell/Text.h"
#include "templates/TemplateCommands.h"

namespace corvalin {

namespace {

std::string Read(const std::string& path, const char* section, const std::string& key, const std::string& def) {
  return ReadProfileString(path, section, key, def);
}

void Write(ProfileFileEdit& file, const char* section, const std::string& key, const std::string& value) {
  file.WriteString(section, key, value);
}

// The platform's profile writer reports failures nobody looks at. What was
// written before an error is saved as it stands, as writing key by key left
// it.
template <typename Writer>
void WriteWhole(const std::string& path, Writer write) {
  ProfileFileEdit file(path);
  try {
    write(file);
  } catch (...) {
    (void)file.Save();
    throw;
  }
  (void)file.Save();
}

}  // namespace

std::string TemplatePathOf(const std::string& name) { return Run().WorkFolder + name + TemplateExtension; }

int16_t StoredInteger(const std::string& text) {
  const std::string t = TrimBlanks(text);
  if (t.empty()) Raise(err::TypeMismatch);
  std::size_t i = 0;
  if (t[0] == '-' || t[0] == '+') ++i;
  if (i == t.size()) Raise(err::TypeMismatch);
  // A decimal number is rounded to the nearest whole one, halves to even.
  bool point = false;
  for (std::size_t k = i; k < t.size(); ++k) {
    if (t[k] == '.' && !point) {
      point = true;
    } else if (t[k] < '0' || t[k] > '9') {
      Raise(err::TypeMismatch);
    }
  }
  if (t.size() > 12) Raise(err::Overflow);
  const double value = std::nearbyint(std::strtod(t.c_str(), nullptr));
  return ToInt16(static_cast<long long>(value));
}

ColumnDelimiterKeys ReadColumnDelimiters(const std::string& path) {
  const char* s = SectionColumnDelimiters;
  ColumnDelimiterKeys keys;
  keys.FixedWidth = IsYes(Read(path, s, "FixedWidth", "NO"));
  keys.Comma = IsYes(Read(path, s, "Comma", "YES"));
  keys.Tab = IsYes(Read(path, s, "Tab", "NO"));
  keys.Semicolon = IsYes(Read(path, s, "Semicolon", "NO"));
  keys.Space = IsYes(Read(path, s, "Space", "NO"));
  keys.Other = IsYes(Read(path, s, "Other", "NO"));
  keys.OtherChars = Read(path, s, "OtherChars", "");
  keys.TreatConsecutiveAsOne = IsYes(Read(path, s, "TreatConsecutiveAsOne", "NO"));
  keys.TextQualifier = Read(path, s, "TextQualifier", "NO");
  return keys;
}

int TextQualifierEntry(const std::string& stored) {
  if (stored == "\"") return 1;
  if (stored == "'") return 2;
  return 3;
}

void WriteColumnDelimiters(const std::string& path, const ColumnDelimiterKeys& keys,
                           const ColumnMarkerList& markers) {
  WriteWhole(path, [&](ProfileFileEdit& file) { WriteColumnDelimiters(file, keys, markers); });
}

void WriteColumnDelimiters(ProfileFileEdit& file, const ColumnDelimiterKeys& keys, const ColumnMarkerList& markers) {
  const char* s = SectionColumnDelimiters;
  Write(file, s, "FixedWidth", keys.FixedWidth ? "YES" : "NO");
  Write(file, s, "Comma", keys.Comma ? "YES" : "NO");
  Write(file, s, "Tab", keys.Tab ? "YES" : "NO");
  Write(file, s, "Semicolon", keys.Semicolon ? "YES" : "NO");
  Write(file, s, "Space", keys.Space ? "YES" : "NO");
  Write(file, s, "Other", keys.Other ? "YES" : "NO");
  Write(file, s, "OtherChars", keys.OtherChars);
  Write(file, s, "TreatConsecutiveAsOne", keys.TreatConsecutiveAsOne ? "YES" : "NO");
  Write(file, s, "TextQualifier", keys.TextQualifier);
  if (!keys.FixedWidth) return;
  // Written for the record; a template never brings markers back.
  Write(file, s, "NumMarkers", std::to_string(markers.NumMarkers));
  for (int k = 1; k <= markers.NumMarkers; ++k)
    Write(file, s, "FixedMarker" + std::to_string(k), std::to_string(markers.ColumnMarkers(k)));
}

void WriteFormatInfo(const std::string& path, const FormatInfoKeys& keys, int16_t columnCount,
                     const std::array<std::string, 32>& headings) {
  WriteWhole(path, [&](ProfileFileEdit& file) { WriteFormatInfo(file, keys, columnCount, headings); });
}

void WriteFormatInfo(ProfileFileEdit& file, const FormatInfoKeys& keys, int16_t columnCount,
                     const std::array<std::string, 32>& headings) {
  const char* s = SectionFormatInfo;
  Write(file, s, "MeasurementSystem", keys.MeasurementSystem);
  Write(file, s, "ShowUnassignedColumns", keys.ShowUnassignedColumns);
  Write(file, s, "ShowExcludedRows", keys.ShowExcludedRows);
  Write(file, s, "AutoValidateGridData", keys.AutoValidateGridData);
  Write(file, s, "OrvanVariant", keys.OrvanVariant);
  for (int16_t i = 1; i <= columnCount; i = Inc16(i)) {
    std::string type, units;
    SplitHeading(headings.at(static_cast<std::size_t>(i)), type, units);
    Write(file, s, "NumberOfColumns", std::to_string(columnCount));
    Write(file, s, "ColumnHeader" + std::to_string(i), type);
    Write(file, s, "ColumnUnits" + std::to_string(i), units);
  }
}

void ReadTemplateCommands(const std::string& path) {
  const char* s = SectionTemplateCommands;
  TemplateCommandState& state = Commands();
  state.CommandCount = StoredInteger(Read(path, s, "NumberOfCommands", "0"));
  for (int16_t k = 1; k <= state.CommandCount; k = Inc16(k)) {
    TemplateCommand& command = TemplateCommandAt(k);
    const std::string n = std::to_string(k);
    command.CommandType = Read(path, s, "CommandType" + n, "");
    command.FindString = Read(path, s, "FindString" + n, "");
    command.ReplacementString = Read(path, s, "ReplacementString" + n, "");
    command.ColumnNumber = StoredInteger(Read(path, s, "ColumnNumber" + n, ""));
    command.StartLine = StoredInteger(Read(path, s, "StartLine" + n, ""));
    command.EndLine = StoredInteger(Read(path, s, "EndLine" + n, ""));
    command.DeleteString = Read(path, s, "DeleteString" + n, "");
  }
}

void WriteTemplateCommands(const std::string& path) {
  WriteWhole(path, [](ProfileFileEdit& file) { WriteTemplateCommands(file); });
}

void WriteTemplateCommands(ProfileFileEdit& file) {
  const char* s = SectionTemplateCommands;
  const TemplateCommandState& state = Commands();
  Write(file, s, "NumberOfCommands", std::to_string(state.CommandCount));
  for (int16_t k = 1; k <= state.CommandCount; k = Inc16(k)) {
    const TemplateCommand& command = TemplateCommandAt(k);
    const std::string n = std::to_string(k);
    Write(file, s, "CommandType" + n, command.CommandType);
    Write(file, s, "FindString" + n, command.FindString);
    Write(file, s, "ReplacementString" + n, command.ReplacementString);
    Write(file, s, "ColumnNumber" + n, std::to_string(command.ColumnNumber));
    Write(file, s, "StartLine" + n, std::to_string(command.StartLine));
    Write(file, s, "EndLine" + n, std::to_string(command.EndLine));
    Write(file, s, "DeleteString" + n, command.DeleteString);
  }
}

}  // namespace corvalin
