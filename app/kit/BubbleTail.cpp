#include "app/kit/BubbleTail.h"

#include <QPainter>
#include <QPainterPath>

namespace ambrel {

BubbleTail::BubbleTail(QQuickItem* parent) : QQuickPaintedItem(parent) { setImplicitSize(28, 14); }

void BubbleTail::setColor(const QColor& color) {
  if (color_ == color) return;
  color_ = color;
  update();
  Q_EMIT colorsChanged();
}

void BubbleTail::setLineColor(const QColor& color) {
  if (lineColor_ == color) return;
  lineColor_ = color;
  update();
  Q_EMIT colorsChanged();
}

void BubbleTail::paint(QPainter* painter) {
  painter->setRenderHint(QPainter::Antialiasing);
  painter->scale(width() / 28, height() / 14);
  QPainterPath flanks(QPointF(0, 0.5));
  flanks.cubicTo(6.5, 0.5, 8.8, 4, 11.6, 10.4);
  flanks.cubicTo(12.8, 13.9, 15.2, 13.9, 16.4, 10.4);
  flanks.cubicTo(19.2, 4, 21.5, 0.5, 28, 0.5);
  QPainterPath body = flanks;
  body.lineTo(28, 0);
  body.lineTo(0, 0);
  body.closeSubpath();
  painter->fillPath(body, color_);
  painter->strokePath(flanks, QPen(lineColor_, 1));
}

}  // namespace ambrel
