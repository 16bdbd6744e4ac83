#include "app/time/MoonDisc.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

namespace ambrel {

void MoonDisc::paint(QPainter* painter) {
  const qreal radius = std::min(width(), height()) / 2;
  painter->setRenderHint(QPainter::Antialiasing);
  painter->translate(width() / 2, height() / 2);
  painter->setPen(Qt::NoPen);
  painter->setBrush(dark_);
  painter->drawEllipse(QPointF(), radius, radius);

  // Down along the limb at the right, and back along the terminator, which is half an ellipse.
  const qreal half = radius * std::abs(2 * percent_ / 100.0 - 1);
  const QRectF disc(-radius, -radius, 2 * radius, 2 * radius), terminator(-half, -radius, 2 * half, 2 * radius);
  QPainterPath path(QPointF(0, -radius));
  path.arcTo(disc, 90, -180);
  path.arcTo(terminator, 270, percent_ > 50 ? -180 : 180);
  if (!isWaxing_) painter->scale(-1, 1);
  painter->setBrush(lit_);
  painter->drawPath(path);
}

}  // namespace ambrel
