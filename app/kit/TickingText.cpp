#include "app/kit/TickingText.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace ambrel {
namespace {

// Of the size: as close as letters stand without touching.
constexpr qreal tightSpacing = -0.035;

bool isDigit(QChar character) { return character >= u'0' && character <= u'9'; }

qreal digitWidth(const QFontMetricsF& metrics) {
  qreal widest = 0;
  for (char16_t digit = u'0'; digit <= u'9'; ++digit) widest = std::max(widest, metrics.horizontalAdvance(digit));
  return widest;
}

// Calls `place(part, cell)` with the width of its cell: for each digit and each run between digits, or, when the
// digits keep their own widths, once for the whole.
template <typename Place>
void eachCell(const QString& text, const QFontMetricsF& metrics, bool isFixed, const Place& place) {
  if (!isFixed) {
    place(text, metrics.horizontalAdvance(text));
    return;
  }
  const qreal digit = digitWidth(metrics);
  for (qsizetype i = 0; i < text.size();) {
    qsizetype end = i + 1;
    if (!isDigit(text[i]))
      while (end < text.size() && !isDigit(text[end])) ++end;
    const QString part = text.mid(i, end - i);
    place(part, isDigit(text[i]) ? digit : metrics.horizontalAdvance(part));
    i = end;
  }
}

}  // namespace

TickingText::TickingText(QQuickItem* parent) : QQuickPaintedItem(parent) { measure(); }

void TickingText::setText(const QString& text) {
  if (text_ == text) return;
  text_ = text;
  measure();
  update();
  Q_EMIT textChanged();
}

void TickingText::setWidest(const QString& widest) {
  if (widest_ == widest) return;
  widest_ = widest;
  measure();
  Q_EMIT styleChanged();
}

void TickingText::setFont(const QFont& font) {
  if (font_ == font) return;
  font_ = font;
  measure();
  update();
  Q_EMIT styleChanged();
}

void TickingText::setRoom(qreal room) {
  if (room_ == room) return;
  room_ = room;
  measure();
  update();
  Q_EMIT styleChanged();
}

void TickingText::setLeastSize(int size) {
  if (leastSize_ == size) return;
  leastSize_ = size;
  measure();
  update();
  Q_EMIT styleChanged();
}

void TickingText::setColor(const QColor& color) {
  if (color_ == color) return;
  color_ = color;
  update();
  Q_EMIT styleChanged();
}

void TickingText::setAlignment(Qt::Alignment alignment) {
  if (alignment_ == alignment) return;
  alignment_ = alignment;
  update();
  Q_EMIT styleChanged();
}

bool TickingText::truncated() const { return widthOf(text_) > width() + 0.5; }

qreal TickingText::widthIn(const QFont& font, const QString& text) const {
  qreal width = 0;
  eachCell(text, QFontMetricsF(font), isFixed(), [&](const QString&, qreal cell) { width += cell; });
  return width;
}

qreal TickingText::widthOf(const QString& text) const { return widthIn(shownFont_, text); }

void TickingText::geometryChange(const QRectF& now, const QRectF& before) {
  if (now.size() != before.size()) {
    const QFontMetricsF metrics(shownFont_);
    setBaselineOffset((now.height() - metrics.height()) / 2 + metrics.ascent());
    Q_EMIT textChanged();
  }
  QQuickPaintedItem::geometryChange(now, before);
}

void TickingText::measure() {
  shownFont_ = font_;
  const auto fits = [this](const QFont& font) {
    return room_ < 0 || std::ceil(std::max(widthIn(font, text_), widthIn(font, widest_))) <= room_;
  };
  QFont font = font_;
  while (!fits(font) && font.pixelSize() > leastSize_) font.setPixelSize(font.pixelSize() - 1);
  if (!fits(font)) font.setLetterSpacing(QFont::AbsoluteSpacing, tightSpacing * font.pixelSize());
  if (fits(font)) shownFont_ = font;
  const QFontMetricsF metrics(shownFont_);
  setImplicitSize(std::ceil(std::max(widthOf(text_), widthOf(widest_))), std::ceil(metrics.height()));
  setBaselineOffset((height() - metrics.height()) / 2 + metrics.ascent());
}

void TickingText::paint(QPainter* painter) {
  const QFontMetricsF metrics(shownFont_);
  const QString shown = truncated() ? metrics.elidedText(text_, Qt::ElideRight, width()) : text_;
  qreal x = 0;
  const qreal spare = width() - widthOf(shown);
  if (alignment_ & Qt::AlignRight) x = std::max(0.0, spare);
  if (alignment_ & Qt::AlignHCenter) x = std::max(0.0, spare / 2);
  painter->setRenderHint(QPainter::TextAntialiasing);
  painter->setFont(shownFont_);
  painter->setPen(color_);
  const qreal baseline = baselineOffset();
  eachCell(shown, metrics, isFixed(), [&](const QString& part, qreal cell) {
    const qreal inset = isFixed() && isDigit(part[0]) ? (cell - metrics.horizontalAdvance(part)) / 2 : 0;
    painter->drawText(QPointF(x + inset, baseline), part);
    x += cell;
  });
}

}  // namespace ambrel
