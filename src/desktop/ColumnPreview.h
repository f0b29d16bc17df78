// The preview of the column screen: the line numbers at the left, the ruler
// on top, the first lines of the input below it, one byte a character in a
// fixed-pitch font, and the column lines over ruler and text. It draws what
// frmColumns holds and turns the mouse into character positions for it:
// a press, a drag and a release place, move and merge markers; a double
// click deletes one, and never reaches the controller as a further press.
#pragma once

#include <QWidget>

namespace corvalin {

class frmColumns;

class ColumnPreview : public QWidget {
  Q_OBJECT

 public:
  ColumnPreview(frmColumns& screen, QWidget* parent);

  // The width of one character in pixels (the font's own advance, a whole
  // number so that character boundaries fall on pixels).
  int CharacterWidth() const { return charWidth_; }
  int LineHeight() const { return lineHeight_; }
  // Where things are drawn, in this widget's coordinates: the left edge of
  // character position p (before the horizontal shift), the middle of the
  // ruler, the middle of a preview line (0 to 9).
  int XOfPosition(int position) const;
  int RulerY() const;
  int LineY(int line) const;
  // The horizontal shift of ruler, text and markers, in pixels.
  void SetShift(int pixels);
  int Shift() const { return shift_; }
  // The width the text would need to show its longest line and the whole
  // range of marker positions.
  int ContentWidth() const;
  int TextAreaWidth() const;

  void Detach() { screen_ = nullptr; }
  // Tells a screen reader what the preview shows: its lines, numbered, and
  // after which characters the column lines stand. Called at each redraw.
  void DescribeForReaders();

 signals:
  // The mouse wheel over the preview: lines to scroll (positive: down).
  void WheelLines(int lines);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  QSize sizeHint() const override;

 private:
  // The character position of a point on the ruler or the text, or false
  // when the point is in the line numbers.
  bool PositionAt(const QPointF& point, int& position) const;

  frmColumns* screen_;
  int charWidth_;
  int lineHeight_;
  int gutter_;
  int shift_ = 0;
};

}  // namespace corvalin
