#include "app/kit/TickingText.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <numeric>

namespace ambrel {
namespace {

// As a share of the font size: the tightest spacing at which letters do not touch.
constexpr qreal tightSpacing = -0.035;

bool isDigit(QChar character) { return character >= u'0' && character <= u'9'; }

}  // namespace

TickingText::Ruler::Ruler(const QFont& of) : font(of) {
  const QFontMetricsF metrics(font);
  height = metrics.height();
  ascent = metrics.ascent();
  for (std::size_t digit = 0; digit < digits.size(); ++digit)
    digits[digit] = metrics.horizontalAdvance(QChar(static_cast<char16_t>(u'0' + digit)));
  widestDigit = *std::ranges::max_element(digits);
}

TickingText::TickingText(QQuickItem* parent) : StyledItem(parent) { measure(); }

// For each digit and each run between digits one cell, or, when the digits keep their own widths, one for the whole.
QList<TickingText::Cell> TickingText::cellsOf(const Ruler& ruler, const QString& text) const {
  const QFontMetricsF metrics(ruler.font);
  if (!isFixed()) return {{text, 0, metrics.horizontalAdvance(text)}};
  QList<Cell> cells;
  for (qsizetype i = 0; i < text.size();) {
    qsizetype end = i + 1;
    const bool isFigure = isDigit(text[i]);
    if (!isFigure)
      while (end < text.size() && !isDigit(text[end])) ++end;
    const QString part = text.mid(i, end - i);
    const qreal advance =
        isFigure ? ruler.digits[static_cast<std::size_t>(text[i].unicode() - u'0')] : metrics.horizontalAdvance(part);
    const qreal width = isFigure ? ruler.widestDigit : advance;
    cells.append({part, (width - advance) / 2, width});
    i = end;
  }
  return cells;
}

qreal TickingText::widthOf(const QList<Cell>& cells) {
  return std::accumulate(cells.begin(), cells.end(), 0.0, [](qreal sum, const Cell& cell) { return sum + cell.width; });
}

qreal TickingText::widthOf(const QString& text) const { return widthOf(cellsOf(shown_, text)); }

void TickingText::setText(const QString& text) {
  if (text_ == text) return;
  text_ = text;
  measure();
  update();
  Q_EMIT textChanged();
}

void TickingText::restyle() {
  // What depends on the font alone is asked once: a text that ticks is measured at each tick.
  if (own_.font != font_) own_ = Ruler(font_);
  widestWidth_ = widthOf(cellsOf(own_, widest_));
  measure();
  update();
}

bool TickingText::truncated() const { return textWidth_ > width() + 0.5; }

void TickingText::geometryChange(const QRectF& now, const QRectF& before) {
  if (now.size() != before.size()) {
    placeBaseline();
    Q_EMIT textChanged();
  }
  StyledItem::geometryChange(now, before);
}

void TickingText::measure() {
  shown_ = own_;
  cells_ = cellsOf(own_, text_);
  textWidth_ = widthOf(cells_);
  qreal width = std::max(textWidth_, widestWidth_);
  const auto fits = [this](qreal each) { return room_ < 0 || std::ceil(each) <= room_; };
  if (!fits(width)) {
    QFont font = font_;
    const auto widthIn = [this](const QFont& each) {
      const Ruler ruler(each);
      return std::max(widthOf(cellsOf(ruler, text_)), widthOf(cellsOf(ruler, widest_)));
    };
    while (!fits(widthIn(font)) && font.pixelSize() > leastSize_) font.setPixelSize(font.pixelSize() - 1);
    if (!fits(widthIn(font))) font.setLetterSpacing(QFont::AbsoluteSpacing, tightSpacing * font.pixelSize());
    if (const qreal smaller = widthIn(font); fits(smaller)) {
      width = smaller;
      shown_ = Ruler(font);
      cells_ = cellsOf(shown_, text_);
      textWidth_ = widthOf(cells_);
    }
  }
  setImplicitSize(std::ceil(width), std::ceil(shown_.height));
  placeBaseline();
}

void TickingText::placeBaseline() { setBaselineOffset((height() - shown_.height) / 2 + shown_.ascent); }

void TickingText::paint(QPainter* painter) {
  const bool isCut = truncated();
  const QList<Cell> cells =
      isCut ? cellsOf(shown_, QFontMetricsF(shown_.font).elidedText(text_, Qt::ElideRight, width())) : cells_;
  qreal x = 0;
  const qreal spare = width() - (isCut ? widthOf(cells) : textWidth_);
  if (alignment_ & Qt::AlignRight) x = std::max(0.0, spare);
  if (alignment_ & Qt::AlignHCenter) x = std::max(0.0, spare / 2);
  painter->setRenderHint(QPainter::TextAntialiasing);
  painter->setFont(shown_.font);
  painter->setPen(color_);
  for (const Cell& cell : cells) {
    painter->drawText(QPointF(x + cell.inset, baselineOffset()), cell.text);
    x += cell.width;
  }
}

}  // namespace ambrel
