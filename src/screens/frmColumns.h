// frmColumns: the column format screen. The user says how the input file is
// cut into columns and sees the effect at once on a preview of its first
// lines; in fixed width mode the cuts are set by clicking in the preview.
// The screen is loaded (unseen in an unattended run) before the first line is
// cut, because its controls hold the format.
//
// Mouse events take character positions; a view turns its pixel coordinate
// into one with CharacterPositionAt. Check boxes, the text box and the list
// are changed by the view first, then their event is called; the two option
// events select their option themselves.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "input/ColumnFormat.h"
#include "input/PullColumns.h"
#include "screens/Controls.h"
#include "screens/Screen.h"

namespace corvalin {

class StateDigest;

struct ScrollBar : Control {
  int Min = 1;
  int Max = 1;
  int Value = 1;
};

// A column line over the preview: where it stands (in the unit of the screen)
// and whether it is drawn grey (the marker being dragged).
struct ColumnLine : Control {
  double X = 0;
  bool Grey = false;
};

// Why a close of the window was asked for.
// The ruler above the preview, one mark per character, a digit every ten.
inline constexpr const char* PreviewRuler = "0....:....1....:....2....:....3....:....4";
// Markers can be placed up to this character position.
inline constexpr int kMaxMarkerPosition = 255;
// The preview shows at most this many lines at a time.
inline constexpr int16_t kPreviewLinesShown = 10;

// The character position of a mouse point x on the preview or the ruler: half
// a character is added so that a click lands on the nearest boundary, and both
// numbers are rounded to whole numbers before the division.
int CharacterPositionAt(double x, double characterWidth);

class frmColumns : public Screen {
 public:
  frmColumns();
  const char* Name() const override { return "frmColumns"; }

  // The screen's help context: its section of the help.
  static constexpr int kHelpContext = 30;

  // --- controls ---
  Label lblInputFile;
  Label lblFileView;
  Label lblFileViewRuler;
  Label lblLineNumbers;
  OptionButton optCharacterDelimited;
  OptionButton optFixedWidth;
  Control fraCharacterDelimiters;
  CheckBox chkTab;
  CheckBox chkComma;
  CheckBox chkSemicolon;
  CheckBox chkSpace;
  CheckBox chkOther;
  TextBox txtOtherCharacter;
  CheckBox chkConsecutiveAsOne;
  Label lblTextQualifiers;
  ListControl cmbTextQualifiers;
  // Element 0 is the pattern; 1 to 29 are the column lines.
  std::array<ColumnLine, kMaxMarkers + 1> lneColumnMarker{};
  ScrollBar VScroll1;
  ScrollBar scrFileViewHorizontal;
  int fraScrollerLeft = 0;
  Button cmdNext;
  Button cmdBack;
  Button cmdFinish;
  Button cmdQuit;
  Button cmdHelp;

  // --- state ---
  int16_t PreviewFirstLine = 1;
  // The width of one preview character in the unit of the screen; a view
  // measures its font and sets it before the load.
  double CharacterWidth = 90.0;
  int16_t SelectedMarker = -1;
  int16_t LastMarker = -1;

  // --- the format ---
  // The format as the controls and the markers hold it now.
  ColumnFormat Format() const;
  // Rebuilds ColumnDelimiters from the delimiter controls; the input must be
  // read again afterwards (ReloadNeeded), also when nothing changed.
  void BuildColumnDelimiters();
  // The cells of a line of the input (lineIndex -1) or of the preview.
  ParsedLine PullColumns(int16_t lineIndex, std::string_view lineText) const;
  // Redraws the preview text, the line numbers and, in delimited mode, the
  // column lines.
  void RefreshColumnPreview();

  // --- events ---
  void Form_Load() override;
  void optCharacterDelimited_Click();
  void optFixedWidth_Click();
  void chkTab_Click();
  void chkComma_Click();
  void chkSemicolon_Click();
  void chkSpace_Click();
  void chkOther_Click();
  void txtOtherCharacter_Change();
  void chkConsecutiveAsOne_Click();
  void cmbTextQualifiers_Click();
  void VScroll1_Change();
  void scrFileViewHorizontal_Change();
  // Mouse on the preview or the ruler, at a character position.
  void MouseDownAt(int position);
  void MouseMoveAt(int position);
  void MouseUpAt(int position);
  void DoubleClick();
  void cmdNext_Click();
  void cmdBack_Click();
  void cmdFinish_Click();
  void cmdQuit_Click();
  void cmdHelp_Click();
  // The close box: asks the quit question and keeps the window. Returns
  // whether the close is cancelled.
  bool Form_QueryUnload(CloseReason reason);

 protected:
  void DescribeControls(StateDigest& digest) const override;

 private:
  void ReadFormat();
  void SetDelimiterControlsEnabled(bool enabled);
  void ShowMarkerLines();
  void DeleteLastMarker();
  void DelimiterChanged();
};

// The format in force: loads frmColumns first when it is not loaded, so the
// format has been read before the first line is cut.
ColumnFormat CurrentColumnFormat();

}  // namespace corvalin
