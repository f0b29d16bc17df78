#include "desktop/ColumnPreview.h"

#include <QFontDatabase>
#include <QFontMetrics>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>

#include "desktop/QtToolkit.h"
#include "desktop/ScreenWindow.h"
#include "screens/frmColumns.h"

namespace corvalin {

namespace {

constexpr int kGutterCharacters = 8;
constexpr int kMargin = 4;

QStringList LinesOf(const std::string& caption) {
  return ToQt(caption).split(QLatin1Char('\n'));
}

}  // namespace

ColumnPreview::ColumnPreview(frmColumns& screen, QWidget* parent) : QWidget(parent), screen_(&screen) {
  setObjectName(QStringLiteral("lblFileView"));
  QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  font.setStyleHint(QFont::TypeWriter);
  font.setKerning(false);
  setFont(font);
  const QFontMetrics metrics(font);
  charWidth_ = std::max(1, metrics.horizontalAdvance(QLatin1Char('A')));
  lineHeight_ = metrics.height() + 2;
  gutter_ = kGutterCharacters * charWidth_ + kMargin;
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::Base);
  setMouseTracking(false);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  // Ninety characters of the file in view, and the ruler and ten lines.
  setMinimumSize(gutter_ + 90 * charWidth_, lineHeight_ * (kPreviewLinesShown + 1) + 2 * kMargin);
}

QSize ColumnPreview::sizeHint() const {
  return {gutter_ + 80 * charWidth_, lineHeight_ * (kPreviewLinesShown + 1) + 2 * kMargin};
}

int ColumnPreview::XOfPosition(int position) const { return gutter_ + position * charWidth_ - shift_; }
int ColumnPreview::RulerY() const { return kMargin + lineHeight_ / 2; }
int ColumnPreview::LineY(int line) const { return kMargin + lineHeight_ * (line + 1) + lineHeight_ / 2; }
int ColumnPreview::TextAreaWidth() const { return std::max(0, width() - gutter_); }

void ColumnPreview::SetShift(int pixels) {
  shift_ = pixels;
  update();
}

int ColumnPreview::ContentWidth() const {
  qsizetype longest = kMaxMarkerPosition + 2;
  if (screen_ != nullptr)
    for (const QString& line : LinesOf(screen_->lblFileView.Caption)) longest = std::max(longest, line.size() + 1);
  return static_cast<int>(longest) * charWidth_;
}

void ColumnPreview::paintEvent(QPaintEvent*) {
  if (screen_ == nullptr) return;
  QPainter painter(this);
  painter.setFont(font());
  const QFontMetrics metrics(font());
  const int ascent = metrics.ascent() + 1;
  const QColor text = palette().color(QPalette::Text);

  // The line numbers stay where they are; ruler and text shift.
  painter.setPen(palette().color(QPalette::PlaceholderText));
  const QStringList numbers = LinesOf(screen_->lblLineNumbers.Caption);
  for (qsizetype i = 0; i < numbers.size(); ++i)
    painter.drawText(kMargin, kMargin + lineHeight_ * static_cast<int>(i + 1) + ascent, numbers[i]);
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawLine(gutter_ - 2, 0, gutter_ - 2, height());
  painter.setClipRect(gutter_, 0, width() - gutter_, height());

  // One character a cell, so that every boundary is a whole pixel and the
  // column lines meet the text where the marker positions say.
  const auto drawRow = [&](const QString& row, int top) {
    const int first = std::max(0, shift_ / charWidth_);
    const int last = std::min<int>(static_cast<int>(row.size()), first + TextAreaWidth() / charWidth_ + 2);
    for (int c = first; c < last; ++c) painter.drawText(XOfPosition(c), top + ascent, row.at(c));
  };
  painter.setPen(text);
  drawRow(ToQt(screen_->lblFileViewRuler.Caption), kMargin);
  const QStringList rows = LinesOf(screen_->lblFileView.Caption);
  for (qsizetype i = 0; i < rows.size() && i < kPreviewLinesShown; ++i)
    drawRow(rows[i], kMargin + lineHeight_ * static_cast<int>(i + 1));

  const int bottom = kMargin + lineHeight_ * (kPreviewLinesShown + 1);
  for (std::size_t k = 1; k < screen_->lneColumnMarker.size(); ++k) {
    const ColumnLine& line = screen_->lneColumnMarker[k];
    if (!line.Visible) continue;
    // The controller places lines in character widths; this is the same
    // boundary in pixels.
    const int x = gutter_ + static_cast<int>(line.X / screen_->CharacterWidth * charWidth_ + 0.5) - shift_;
    painter.setPen(QPen(line.Grey ? QColor(0x80, 0x80, 0x80) : text, 1));
    painter.drawLine(x, kMargin, x, bottom);
  }
}

void ColumnPreview::DescribeForReaders() {
  if (screen_ == nullptr) return;
  QStringList text;
  const QStringList numbers = LinesOf(screen_->lblLineNumbers.Caption);
  const QStringList rows = LinesOf(screen_->lblFileView.Caption);
  for (qsizetype i = 0; i < rows.size() && i < kPreviewLinesShown; ++i)
    text << (i < numbers.size() ? numbers[i] : QString()) + QStringLiteral(": ") + rows[i];
  QStringList positions;
  for (std::size_t k = 1; k < screen_->lneColumnMarker.size(); ++k) {
    const ColumnLine& line = screen_->lneColumnMarker[k];
    if (!line.Visible || screen_->CharacterWidth <= 0) continue;
    positions << QString::number(static_cast<int>(line.X / screen_->CharacterWidth + 0.5));
  }
  text << (positions.isEmpty() ? QStringLiteral("No column lines.")
                               : QStringLiteral("Column lines after characters ") + positions.join(QStringLiteral(", ")) +
                                     QLatin1Char('.'));
  const QString description = text.join(QLatin1Char('\n'));
  if (accessibleDescription() != description) setAccessibleDescription(description);
}

bool ColumnPreview::PositionAt(const QPointF& point, int& position) const {
  if (point.x() < gutter_) return false;
  // The controller adds half a character and divides by the character's
  // width, both in pixels: a click lands on the nearest boundary.
  position = CharacterPositionAt(point.x() - gutter_ + shift_, charWidth_);
  return true;
}

void ColumnPreview::mousePressEvent(QMouseEvent* event) {
  int position = 0;
  if (screen_ == nullptr || event->button() != Qt::LeftButton || !PositionAt(event->position(), position)) return;
  ScreenWindow::Fire([this, position] { screen_->MouseDownAt(position); });
}

void ColumnPreview::mouseMoveEvent(QMouseEvent* event) {
  int position = 0;
  if (screen_ == nullptr || !(event->buttons() & Qt::LeftButton) || !PositionAt(event->position(), position)) return;
  if (screen_->SelectedMarker == -1) return;
  ScreenWindow::Fire([this, position] { screen_->MouseMoveAt(position); });
}

void ColumnPreview::mouseReleaseEvent(QMouseEvent* event) {
  int position = 0;
  if (screen_ == nullptr || event->button() != Qt::LeftButton) return;
  if (!PositionAt(event->position(), position)) position = 0;
  ScreenWindow::Fire([this, position] { screen_->MouseUpAt(position); });
}

// Qt's own double click handling would press again; here the double click
// is the one event the controller hears of.
void ColumnPreview::mouseDoubleClickEvent(QMouseEvent* event) {
  int position = 0;
  if (screen_ == nullptr || event->button() != Qt::LeftButton || !PositionAt(event->position(), position)) return;
  ScreenWindow::Fire([this] { screen_->DoubleClick(); });
}

void ColumnPreview::wheelEvent(QWheelEvent* event) {
  const int steps = -event->angleDelta().y() / 40;
  if (steps != 0) emit WheelLines(steps);
  event->accept();
}

}  // namespace corvalin
