#include "app/time/ClockDial.h"

#include <QPainter>
#include <algorithm>

namespace ambrel {

void ClockDial::paint(QPainter* painter) {
  const qreal radius = std::min(width(), height()) / 2;
  painter->setRenderHint(QPainter::Antialiasing);
  painter->translate(width() / 2, height() / 2);
  painter->setPen(Qt::NoPen);
  painter->setBrush(ground_);
  painter->drawEllipse(QPointF(), radius, radius);

  // From the middle upwards, turned clockwise; lengths are shares of the radius.
  const auto line = [&](qreal degrees, qreal from, qreal to, qreal thickness, const QColor& color) {
    painter->save();
    painter->rotate(degrees);
    painter->setPen(QPen(color, thickness, Qt::SolidLine, Qt::RoundCap));
    painter->drawLine(QPointF(0, -from * radius), QPointF(0, -to * radius));
    painter->restore();
  };
  for (int i = 0; i < 12; ++i) line(i * 30, i % 3 == 0 ? 0.76 : 0.84, 0.88, i % 3 == 0 ? 1.5 : 1, marks_);
  line((hour_ % 12 + minute_ / 60.0) * 30, 0, 0.5, 2.5, hands_);
  line(minute_ * 6, 0, 0.74, 2, hands_);
  painter->setPen(Qt::NoPen);
  painter->setBrush(accent_);
  painter->drawEllipse(QPointF(), 2.5, 2.5);
}

}  // namespace ambrel
