#include "ui/grid/grid_text.h"

#include <QGlyphRun>
#include <algorithm>
#include <cmath>

#include "base/text.h"
#include "ui/controls/widgets.h"

namespace vistaplot {

namespace {

constexpr std::string_view kFigures = "0123456789+-./";
constexpr int kMargin = 4;     // pixels between a text and its cell's edge
constexpr int kWidest = 4000;  // pixels that a column may ask for

// The part of a text that `pixels` can show, and a little more, as a character takes one at least.
// A foreign file may be a single line: laid out whole, its cell would take minutes and gigabytes.
std::string_view Seen(std::string_view text, int pixels) {
  return LeftCharacters(text, static_cast<std::size_t>(std::max(pixels, 0)) + 1);
}

}  // namespace

GridText::GridText(const QFont& font)
    : font_(font), metrics_(font), raw_(QRawFont::fromFont(font)) {
  const QList<quint32> glyphs = raw_.glyphIndexesForString(QtText(kFigures));
  if (!raw_.isValid() || glyphs.size() != static_cast<qsizetype>(kFigures.size())) return;
  for (std::size_t i = 0; i < kFigures.size(); ++i) {
    const auto character = static_cast<unsigned char>(kFigures[i]);
    // The widths of the toolkit's own layout, so that both ways look alike.
    figures_[character] = {
        .glyph = glyphs[static_cast<qsizetype>(i)],
        .advance = QFontMetricsF(font).horizontalAdvance(QLatin1Char(kFigures[i]))};
  }
}

double GridText::FigureWidth(std::string_view text) const {
  double width = 0.0;
  for (const char character : text) {
    const auto code = static_cast<unsigned char>(character);
    if (code >= figures_.size() || figures_[code].glyph == 0) return -1.0;
    width += figures_[code].advance;
  }
  return width;
}

int GridText::Width(std::string_view text) const {
  text = Seen(text, kWidest);
  const double width = FigureWidth(text);
  if (width >= 0.0) return std::min(static_cast<int>(std::ceil(width)), kWidest);
  return std::min(metrics_.horizontalAdvance(QtText(TrimRightBlanks(text))), kWidest);
}

double GridText::TailWidth(int places) const {
  if (places <= 0) return 0.0;
  return figures_['.'].advance + (places - 1) * figures_['0'].advance;
}

void GridText::Draw(
    QPainter& painter, const QRect& cell, std::string_view text, bool at_right, double inset) {
  if (text.empty()) return;
  const QRect room = cell.adjusted(kMargin, 0, -kMargin, 0);
  text = Seen(text, room.width());
  const double width = FigureWidth(text);
  if (width < 0.0 || width > room.width()) {
    DrawOther(painter, room, text, at_right);
    return;
  }
  const double free = std::clamp(room.width() - width, 0.0, inset);
  const double start = at_right ? room.right() + 1 - std::ceil(width) - free : room.left();
  const int top = room.top() + (room.height() - metrics_.height()) / 2;
  QPointF position(start, top + metrics_.ascent());
  for (const char character : text) {
    const Figure& figure = figures_[static_cast<unsigned char>(character)];
    glyphs_.push_back(figure.glyph);
    positions_.push_back(position);
    position.rx() += figure.advance;
  }
}

void GridText::DrawOther(QPainter& painter,
                         const QRect& room,
                         std::string_view text,
                         bool at_right) {
  const int top = room.top() + (room.height() - metrics_.height()) / 2;
  QString shown = QtText(TrimRightBlanks(text));
  int width = metrics_.horizontalAdvance(shown);
  if (width > room.width()) {
    shown = metrics_.elidedText(shown, Qt::ElideRight, room.width());
    width = metrics_.horizontalAdvance(shown);
  }
  const int start = at_right ? room.right() + 1 - width : room.left();
  painter.drawText(QPoint(start, top + metrics_.ascent()), shown);
}

void GridText::Flush(QPainter& painter) {
  if (glyphs_.isEmpty()) return;
  QGlyphRun run;
  run.setRawFont(raw_);
  run.setGlyphIndexes(glyphs_);
  run.setPositions(positions_);
  painter.drawGlyphRun(QPointF(), run);
  glyphs_.clear();
  positions_.clear();
}

}  // namespace vistaplot
