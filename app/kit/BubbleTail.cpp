#include "app/kit/BubbleTail.h"

#include <QPainter>
#include <QPainterPath>

namespace ambrel {
namespace {

constexpr qreal length = 28, depth = 14;

}  // namespace

BubbleTail::BubbleTail(QQuickItem* parent) : StyledItem(parent) { BubbleTail::restyle(); }

void BubbleTail::restyle() {
  const bool isBelow = side_ == QLatin1String("bottom");
  setImplicitSize(isBelow ? length : depth, isBelow ? depth : length);
  update();
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
