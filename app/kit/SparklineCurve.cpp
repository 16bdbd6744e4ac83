#include "app/kit/SparklineCurve.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "app/kit/CurveRaster.h"

namespace ambrel {
namespace {

constexpr qreal lineWidth = 1.5;
constexpr qreal dotRadius = 2.5;
constexpr qreal fillAlpha = 0.16;

}  // namespace

SparklineCurve::SparklineCurve(QQuickItem* parent) : StyledItem(parent) { setImplicitSize(44, 32); }

void SparklineCurve::paint(QPainter* painter) {
  const int capacity = std::max(2, capacity_);
  const auto count = std::min<qsizetype>(values_.size(), capacity);
  const auto recent = values_.last(count);
  qreal top = maximum_;
  if (top <= 0) {
    for (const qreal value : recent) top = std::isfinite(value) ? std::max(top, value) : top;
  }
  if (count == 0 || width() <= 2 * dotRadius || height() <= 2 * dotRadius) return;

  // The dot and the line's own width stay inside.
  const qreal right = width() - (marksLast_ ? dotRadius : lineWidth / 2);
  const qreal step = (right - lineWidth / 2) / (capacity - 1);
  const qreal ceiling = dotRadius;
  const qreal floor = height() - (marksLast_ ? dotRadius : lineWidth / 2);
  const auto point = [&](qsizetype i) {
    const qreal share = top > 0 ? std::clamp(recent[i] / top, 0.0, 1.0) : 0;
    return QPointF(right - step * static_cast<qreal>(count - 1 - i), floor - share * (floor - ceiling));
  };

  // Pixel by pixel on what is painted on, which may have more of them than the item has units.
  const qreal scale = painter->device()->devicePixelRatioF();
  CurveRaster raster((size() * scale).toSize());
  for (qsizetype i = 0; i < count;) {
    QPolygonF run;
    for (; i < count && std::isfinite(recent[i]); ++i) run << point(i) * scale;
    if (run.isEmpty())
      ++i;
    else
      raster.addRun(run, lineWidth * scale);
  }
  if (marksLast_ && std::isfinite(recent.last())) raster.addDot(point(count - 1) * scale, dotRadius * scale);
  QImage image = raster.image(color_, fillAlpha);
  image.setDevicePixelRatio(scale);
  painter->drawImage(QPointF(0, 0), image);
}

}  // namespace ambrel
