#include "screens/frmColumns.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <vector>

#include "columns/ValidateTable.h"
#include "screens/Application.h"
#include "screens/StateDigest.h"
#include "screens/frmHeaders.h"
#include "screens/frmMain.h"
#include "screens/frmTemplate.h"
#include "shell/Error.h"
#include "shell/Failure.h"
#include "shell/Help.h"
#include "shell/ProfileFile.h"
#include "shell/RunState.h"
#include "shell/Settings.h"
#include "shell/Text.h"
#include "shell/Toolkit.h"
#include "translation/RunTranslation.h"
#include "screens/PrepareDatabase.h"
#include "screens/TranslateAtOnce.h"

namespace corvalin {

namespace {

constexpr const char* kFormatSection = "COLUMN_DELIMITERS";
constexpr const char* kSettingsSection = "Corvalin";
constexpr const char* kLineBreak = "\r\n";

// A whole number read from the settings store, as the platform converts one:
// rounded to the nearest (halves to even), a text that is no number is a type
// mismatch, one outside 16 bits an overflow.
int16_t WholeNumberOf(const std::string& value) {
  const std::string text = TrimBlanks(value);
  if (text.empty()) Raise(err::TypeMismatch);
  char* end = nullptr;
  errno = 0;
  const double number = std::strtod(text.c_str(), &end);
  if (end != text.c_str() + text.size() || errno == ERANGE || !std::isfinite(number)) Raise(err::TypeMismatch);
  const double rounded = std::nearbyint(number);
  if (rounded > 32767.0 || rounded < -32768.0) Raise(err::Overflow);
  return static_cast<int16_t>(rounded);
}

// Rounding to the nearest whole number with halves to even, as the
// platform's integer division rounds its operands.
long long RoundHalfEven(double value) { return static_cast<long long>(std::nearbyint(value)); }

}  // namespace

int CharacterPositionAt(double x, double characterWidth) {
  const long long width = RoundHalfEven(characterWidth);
  if (width == 0) Raise(11, "Corvalin", "Division by zero");
  const long long point = RoundHalfEven(x + characterWidth / 2.0);
  return static_cast<int>(point / width);
}

frmColumns::frmColumns() {
  optCharacterDelimited.Caption = "Character Delimited";
  optCharacterDelimited.Value = true;
  optFixedWidth.Caption = "Fixed Width";
  chkTab.Caption = "Tab";
  chkComma.Caption = "Comma";
  chkComma.Value = 1;
  chkSemicolon.Caption = "Semicolon";
  chkSpace.Caption = "Space";
  chkOther.Caption = "Other";
  chkConsecutiveAsOne.Caption = "Treat consecutive delimiters as one";
  lblTextQualifiers.Caption = "Text Qualifier";
  lblFileViewRuler.Caption = PreviewRuler;
  cmdNext.Caption = "Next >>";
  cmdBack.Caption = "<< Back";
  cmdFinish.Caption = "Translate";
  cmdQuit.Caption = "Quit";
  cmdHelp.Caption = "Help";
  for (auto& line : lneColumnMarker) line.Visible = false;
}

// --- the format ---

ColumnFormat frmColumns::Format() const {
  ColumnFormat format;
  format.FixedWidth = optFixedWidth.Value;
  format.ColumnDelimiters = Run().ColumnDelimiters;
  format.ConsecutiveAsOne = chkConsecutiveAsOne.Checked();
  format.TextQualifier = cmbTextQualifiers.Text;
  format.Markers = Markers();
  return format;
}

void frmColumns::BuildColumnDelimiters() {
  Run().ColumnDelimiters = ComposeColumnDelimiters(chkTab.Checked(), chkSemicolon.Checked(), chkComma.Checked(),
                                                   chkSpace.Checked(), chkOther.Checked(), txtOtherCharacter.Text);
  Run().ReloadNeeded = true;
}

ParsedLine frmColumns::PullColumns(int16_t lineIndex, std::string_view lineText) const {
  return corvalin::PullColumns(Format(), lineIndex, lineText);
}

void frmColumns::RefreshColumnPreview() {
  Assert(Run().InputPreviewLoaded);
  const int count = Run().InputPreviewCount;
  const int first = PreviewFirstLine;
  const int shown = std::clamp(count - first + 1, 0, static_cast<int>(kPreviewLinesShown));

  std::string numbers;
  for (int i = 0; i < kPreviewLinesShown; ++i) {
    const int n = first + i;
    if (n > count) {
      numbers += "- end -";
      break;
    }
    numbers += std::to_string(n) + kLineBreak;
  }
  lblLineNumbers.SetCaption(numbers);

  // Lines after the first start with one blank, behind the line break.
  const std::string joint = std::string(kLineBreak) + " ";
  std::string text;
  if (optFixedWidth.Value) {
    for (int k = 0; k < shown; ++k) {
      if (k > 0) text += joint;
      text += GetPreviewLine(ToInt16(first + k));
    }
  } else {
    // Each column as wide as its widest cell, plus one blank between columns;
    // the column lines stand at the cumulative widths.
    const LineSplitter splitter(Format());
    std::vector<ParsedLine> rows(static_cast<std::size_t>(shown));
    std::array<std::size_t, kMaxColumns> widths{};
    int highestCount = 0;
    for (int k = 0; k < shown; ++k) {
      ParsedLine& row = rows[static_cast<std::size_t>(k)];
      splitter.Split(GetPreviewLine(ToInt16(first + k)), row);
      highestCount = std::max(highestCount, static_cast<int>(row.Count));
      for (int j = 0; j < row.Count; ++j)
        widths[static_cast<std::size_t>(j)] = std::max(widths[static_cast<std::size_t>(j)], row.Columns[static_cast<std::size_t>(j)].size());
    }
    for (int k = 0; k < shown; ++k) {
      const ParsedLine& row = rows[static_cast<std::size_t>(k)];
      if (k > 0) text += joint;
      for (int j = 0; j < row.Count; ++j) {
        const std::string& cell = row.Columns[static_cast<std::size_t>(j)];
        text += cell;
        text.append(widths[static_cast<std::size_t>(j)] + 1 - cell.size(), ' ');
      }
    }
    long long position = 0;
    for (int k = 1; k <= kMaxMarkers; ++k) {
      ColumnLine& line = lneColumnMarker[static_cast<std::size_t>(k)];
      if (k <= highestCount - 1) {
        position += static_cast<long long>(widths[static_cast<std::size_t>(k - 1)]) + 1;
        line.X = static_cast<double>(position) * CharacterWidth;
        line.Grey = false;
        line.Visible = true;
      } else {
        line.Visible = false;
      }
    }
  }
  lblFileView.SetCaption(MarkTabs(text));
}

// --- load ---

void frmColumns::Form_Load() {
  RunEvent([&] {
    Run().CurrentScreen = "Columns";
    HelpContextID = kHelpContext;
    Caption = std::string(ApplicationTitle) + " - Specify Column Format";
    if (!Run().InputPreviewLoaded) ReadInputPreview();
    PreviewFirstLine = 1;
    VScroll1.Value = 1;
    VScroll1.Max = PreviewScrollMaximum(Run().InputPreviewCount);
    for (std::size_t k = 1; k < lneColumnMarker.size(); ++k) lneColumnMarker[k] = ColumnLine{{true, false}, 0.0, false};
    cmbTextQualifiers.Clear();
    cmbTextQualifiers.AddItem(QualifierDoubleQuote);
    cmbTextQualifiers.AddItem(QualifierSingleQuote);
    cmbTextQualifiers.AddItem(QualifierNone);
    cmbTextQualifiers.Select(0);
    ReadFormat();
    frmTemplate& templateScreen = App().Template();
    lblInputFile.SetCaption(templateScreen.lblInputFile.Caption);
    BuildColumnDelimiters();
    RefreshColumnPreview();
    if (templateScreen.cmbTemplate.ListIndex == 0) cmdFinish.Enabled = false;
  });
}

// The format comes from the template in force, or else from the settings
// store. Only the settings store gives back the fixed width markers: a
// template leaves the markers of the run as they stand.
void frmColumns::ReadFormat() {
  const bool fromTemplate = Run().UseTemplate;
  const std::string templatePath = Run().TemplateFilePath;
  auto read = [&](const std::string& key, const std::string& def) {
    return fromTemplate ? ReadProfileString(templatePath, kFormatSection, key, def)
                        : GetSetting(SettingsApplication, kSettingsSection, key, def);
  };
  const bool fixedWidth = IsYes(read("FixedWidth", "NO"));
  chkComma.Value = IsYesValue(read("Comma", "YES"));
  chkTab.Value = IsYesValue(read("Tab", "NO"));
  chkSemicolon.Value = IsYesValue(read("Semicolon", "NO"));
  chkSpace.Value = IsYesValue(read("Space", "NO"));
  chkOther.Value = IsYesValue(read("Other", "NO"));
  txtOtherCharacter.Text = read("OtherChars", "");
  chkConsecutiveAsOne.Value = IsYesValue(read("TreatConsecutiveAsOne", "NO"));
  const std::string qualifier = read("TextQualifier", "NO");
  cmbTextQualifiers.Select(qualifier == QualifierDoubleQuote ? 0 : qualifier == QualifierSingleQuote ? 1 : 2);

  ColumnMarkerList& markers = Markers();
  if (!fixedWidth) {
    markers.NumMarkers = 0;
    return;
  }
  optFixedWidth.Value = true;
  optCharacterDelimited.Value = false;
  SetDelimiterControlsEnabled(false);
  ShowMarkerLines();
  if (fromTemplate) return;
  markers.NumMarkers = WholeNumberOf(read("NumMarkers", "0"));
  for (int k = 1; k <= markers.NumMarkers; ++k) {
    int16_t& position = markers.ColumnMarkers(k);
    position = WholeNumberOf(read("FixedMarker" + std::to_string(k), "0"));
    ColumnLine& line = lneColumnMarker[static_cast<std::size_t>(k)];
    line.X = position * CharacterWidth;
    line.Grey = false;
    line.Visible = true;
  }
}

// --- mode and delimiters ---

void frmColumns::SetDelimiterControlsEnabled(bool enabled) {
  for (Control* control : std::initializer_list<Control*>{&fraCharacterDelimiters, &chkTab, &chkSemicolon, &chkComma,
                                                          &chkSpace, &chkOther, &txtOtherCharacter,
                                                          &chkConsecutiveAsOne, &cmbTextQualifiers, &lblTextQualifiers})
    control->Enabled = enabled;
}

// All 29 lines hidden, then the markers' lines shown where they stand.
void frmColumns::ShowMarkerLines() {
  for (std::size_t k = 1; k < lneColumnMarker.size(); ++k) lneColumnMarker[k].Visible = false;
  const ColumnMarkerList& markers = Markers();
  for (int k = 1; k <= markers.NumMarkers; ++k) {
    ColumnLine& line = lneColumnMarker[static_cast<std::size_t>(k)];
    line.X = markers.ColumnMarkers(k) * CharacterWidth;
    line.Grey = false;
    line.Visible = true;
  }
}

void frmColumns::optCharacterDelimited_Click() {
  RunEvent([&] {
    optCharacterDelimited.Value = true;
    optFixedWidth.Value = false;
    for (int k = 1; k <= Markers().NumMarkers; ++k) lneColumnMarker[static_cast<std::size_t>(k)].Visible = false;
    SetDelimiterControlsEnabled(true);
    RefreshColumnPreview();
    Run().ReloadNeeded = true;
  });
}

void frmColumns::optFixedWidth_Click() {
  RunEvent([&] {
    optFixedWidth.Value = true;
    optCharacterDelimited.Value = false;
    SetDelimiterControlsEnabled(false);
    RefreshColumnPreview();
    SelectedMarker = -1;
    ShowMarkerLines();
    Run().ReloadNeeded = true;
  });
}

void frmColumns::DelimiterChanged() {
  RunEvent([&] {
    BuildColumnDelimiters();
    RefreshColumnPreview();
  });
}

void frmColumns::chkTab_Click() { DelimiterChanged(); }
void frmColumns::chkComma_Click() { DelimiterChanged(); }
void frmColumns::chkSemicolon_Click() { DelimiterChanged(); }
void frmColumns::chkSpace_Click() { DelimiterChanged(); }
void frmColumns::chkOther_Click() { DelimiterChanged(); }
void frmColumns::txtOtherCharacter_Change() { DelimiterChanged(); }

void frmColumns::chkConsecutiveAsOne_Click() {
  RunEvent([&] {
    RefreshColumnPreview();
    Run().ReloadNeeded = true;
  });
}

void frmColumns::cmbTextQualifiers_Click() {
  RunEvent([&] {
    RefreshColumnPreview();
    Run().ReloadNeeded = true;
  });
}

void frmColumns::VScroll1_Change() {
  RunEvent([&] {
    PreviewFirstLine = ToInt16(VScroll1.Value);
    RefreshColumnPreview();
  });
}

void frmColumns::scrFileViewHorizontal_Change() { fraScrollerLeft = -scrFileViewHorizontal.Value; }

// --- markers ---

void frmColumns::MouseDownAt(int position) {
  RunEvent([&] {
    if (!optFixedWidth.Value) return;
    if (position < 1 || position > kMaxMarkerPosition) {
      SelectedMarker = -1;
      LastMarker = -1;
      return;
    }
    ColumnMarkerList& markers = Markers();
    for (int k = 1; k <= markers.NumMarkers; ++k) {
      if (markers.ColumnMarkers(k) == position) {
        SelectedMarker = static_cast<int16_t>(k);
        lneColumnMarker[static_cast<std::size_t>(k)].Grey = true;
        return;
      }
    }
    if (markers.NumMarkers >= kMaxMarkers) {
      ShowMessage("Maximum of " + std::to_string(kMaxColumns) + " columns.");
      return;
    }
    markers.NumMarkers = Inc16(markers.NumMarkers);
    markers.ColumnMarkers(markers.NumMarkers) = ToInt16(position);
    SelectedMarker = markers.NumMarkers;
    ColumnLine& line = lneColumnMarker[static_cast<std::size_t>(SelectedMarker)];
    line.Grey = true;
    line.X = position * CharacterWidth;
    line.Visible = true;
    Run().ReloadNeeded = true;
  });
}

void frmColumns::MouseMoveAt(int position) {
  RunEvent([&] {
    if (!optFixedWidth.Value || SelectedMarker == -1) return;
    if (position < 1 || position > kMaxMarkerPosition) return;
    lneColumnMarker[static_cast<std::size_t>(SelectedMarker)].X = position * CharacterWidth;
    Markers().ColumnMarkers(SelectedMarker) = ToInt16(position);
    Run().ReloadNeeded = true;
  });
}

// Releasing a marker on the position of another merges the two.
void frmColumns::MouseUpAt(int /*position*/) {
  RunEvent([&] {
    if (!optFixedWidth.Value || SelectedMarker == -1) return;
    lneColumnMarker[static_cast<std::size_t>(SelectedMarker)].Grey = false;
    LastMarker = SelectedMarker;
    SelectedMarker = -1;
    const ColumnMarkerList& markers = Markers();
    for (int k = 1; k <= markers.NumMarkers; ++k) {
      if (k != LastMarker && markers.ColumnMarkers(k) == markers.ColumnMarkers(LastMarker)) {
        DeleteLastMarker();
        return;
      }
    }
  });
}

// A double click follows a first press and release, so on an empty place it
// makes a marker and deletes it again.
void frmColumns::DoubleClick() {
  RunEvent([&] {
    if (!optFixedWidth.Value) {
      Run().ReloadNeeded = true;
      return;
    }
    if (LastMarker == -1) return;
    DeleteLastMarker();
  });
}

void frmColumns::DeleteLastMarker() {
  ColumnMarkerList& markers = Markers();
  for (int k = LastMarker; k <= markers.NumMarkers - 1; ++k) {
    markers.ColumnMarkers(k) = markers.ColumnMarkers(k + 1);
    lneColumnMarker[static_cast<std::size_t>(k)].X = lneColumnMarker[static_cast<std::size_t>(k + 1)].X;
  }
  lneColumnMarker[static_cast<std::size_t>(markers.NumMarkers)].Visible = false;
  markers.NumMarkers = ToInt16(markers.NumMarkers - 1);
  LastMarker = -1;
  Run().ReloadNeeded = true;
}

// --- buttons ---

void frmColumns::cmdNext_Click() {
  RunEvent([&] {
    PrepareDatabase();
    frmHeaders& headers = App().Headers();
    headers.cmdNext.Caption = App().Template().chkEditStandListFile.Checked() ? "Next >>" : "Done";
    HandOverTo(headers);
  });
}

void frmColumns::cmdBack_Click() {
  RunEvent([&] {
    UI().SetBusyPointer(true);
    HandOverTo(App().Template());
    UI().SetBusyPointer(false);
  });
}

// The short way to the tree list; after the translation the wizard goes on
// to the stand list editor or back to the first screen.
void frmColumns::cmdFinish_Click() {
  RunEvent([&] {
    if (TranslateAtOnce(*this)) HandOverTo(App().Headers().ScreenAfterTranslation());
  });
}

void frmColumns::cmdQuit_Click() { RunEvent([] { ConfirmQuit(); }); }

void frmColumns::cmdHelp_Click() {
  RunEvent([&] { ShowHelp(HelpContext, Run().HelpFile, HelpContextID); });
}

bool frmColumns::Form_QueryUnload(CloseReason reason) {
  bool cancelled = reason == CloseReason::ControlMenu;
  RunEvent([&] { cancelled = CloseAsQuit(reason); });
  return cancelled;
}

ColumnFormat CurrentColumnFormat() { return App().Columns().Format(); }

void frmColumns::DescribeControls(StateDigest& digest) const {
  Screen::DescribeControls(digest);
  digest << lblInputFile << lblFileView << lblFileViewRuler << lblLineNumbers << optCharacterDelimited << optFixedWidth
         << fraCharacterDelimiters << chkTab << chkComma << chkSemicolon << chkSpace << chkOther << txtOtherCharacter
         << chkConsecutiveAsOne << lblTextQualifiers << cmbTextQualifiers;
  for (const ColumnLine& line : lneColumnMarker) digest << line << line.X << line.Grey;
  for (const ScrollBar* bar : {&VScroll1, &scrFileViewHorizontal}) digest << *bar << bar->Min << bar->Max << bar->Value;
  digest << fraScrollerLeft << cmdNext << cmdBack << cmdFinish << cmdQuit << cmdHelp << PreviewFirstLine
         << SelectedMarker << LastMarker;
}

}  // namespace corvalin
