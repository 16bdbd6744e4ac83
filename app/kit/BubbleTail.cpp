#include "app/kit/BubbleTail.h"

#include <QPainter>
#include <QPainterPath>

namespace ambrel {
namespace {

constexpr qreal length = 28, depth = 14;

}  // namespace

BubbleTail::BubbleTail(QQuickItem* parent) : QQuickPaintedItem(parent) { setImplicitSize(length, depth); }

void BubbleTail::setSide(const QString& side) {
  if (side_ == side) return;
  side_ = side;
  if (side_ == QLatin1String("bottom"))
    setImplicitSize(length, depth);
  else
    setImplicitSize(depth, length);
  update();
  Q_EMIT sideChanged();
}

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
  painter->scale(width() / implicitWidth(), height() / implicitHeight());
  // The upper edge, which touches the bubble, comes to its right or its left.
  if (side_ == QLatin1String("left"))
    painter->setTransform(QTransform(0, 1, -1, 0, depth, 0), true);
  else if (side_ == QLatin1String("right"))
    painter->setTransform(QTransform(0, 1, 1, 0, 0, 0), true);
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
