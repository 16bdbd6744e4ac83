#include "app/kit/CurveRaster.h"

#include <QColor>
#include <algorithm>
#include <cmath>

namespace ambrel {
namespace {

constexpr int full = 255;

int covered(float share) { return static_cast<int>(std::clamp(share, 0.0F, 1.0F) * full + 0.5F); }

}  // namespace

CurveRaster::CurveRaster(QSize size)
    : width_(std::max(0, size.width())),
      height_(std::max(0, size.height())),
      line_(static_cast<qsizetype>(width_) * height_, 0),
      ground_(width_) {}

void CurveRaster::addRun(const QList<QPointF>& points, qreal lineWidth) {
  addGround(points);
  const auto reach = static_cast<float>(lineWidth / 2);
  if (points.size() == 1) addSegment(points.first(), points.first(), reach);
  for (qsizetype i = 1; i < points.size(); ++i) addSegment(points[i - 1], points[i], reach);
}

void CurveRaster::addDot(QPointF centre, qreal radius) { addSegment(centre, centre, static_cast<float>(radius)); }

void CurveRaster::addSegment(QPointF from, QPointF to, float reach) {
  // A pixel whose middle is on the edge is half covered.
  const float margin = reach + 0.5F;
  const QRectF bounds = QRectF(from, to).normalized();
  const int left = std::max(0, static_cast<int>(bounds.left() - margin));
  const int right = std::min(width_ - 1, static_cast<int>(bounds.right() + margin));
  const int top = std::max(0, static_cast<int>(bounds.top() - margin));
  const int bottom = std::min(height_ - 1, static_cast<int>(bounds.bottom() + margin));
  const auto dx = static_cast<float>(to.x() - from.x()), dy = static_cast<float>(to.y() - from.y());
  const float length = std::sqrt(dx * dx + dy * dy);
  const float unitX = length > 0 ? dx / length : 1, unitY = length > 0 ? dy / length : 0;
  for (int y = top; y <= bottom; ++y) {
    quint8* row = line_.data() + static_cast<qsizetype>(y) * width_;
    const float py = static_cast<float>(y) + 0.5F - static_cast<float>(from.y());
    for (int x = left; x <= right; ++x) {
      const float px = static_cast<float>(x) + 0.5F - static_cast<float>(from.x());
      const float along = px * unitX + py * unitY, across = std::abs(px * unitY - py * unitX);
      if (across >= margin) continue;
      const float beyond = std::max(-along, along - length);
      if (beyond >= margin) continue;
      const float away = beyond <= 0 ? across : std::sqrt(beyond * beyond + across * across);
      row[x] = static_cast<quint8>(std::max<int>(row[x], covered(margin - away)));
    }
  }
}

void CurveRaster::addGround(const QList<QPointF>& points) {
  if (points.size() < 2) return;
  const qreal begin = points.first().x(), end = points.last().x();
  qsizetype segment = 0;
  const int last = std::min(width_ - 1, static_cast<int>(end));
  for (int x = std::max(0, static_cast<int>(begin)); x <= last; ++x) {
    // The column is cut where the run begins or ends, and represents what is in its middle.
    const qreal from = std::max<qreal>(x, begin), to = std::min<qreal>(x + 1, end);
    const int width = covered(static_cast<float>(to - from));
    if (width <= ground_[x].width) continue;
    const qreal middle = (from + to) / 2;
    while (segment + 2 < points.size() && points[segment + 1].x() < middle) ++segment;
    const QPointF a = points[segment], b = points[segment + 1];
    const qreal share = b.x() > a.x() ? std::clamp((middle - a.x()) / (b.x() - a.x()), 0.0, 1.0) : 1;
    ground_[x] = {static_cast<float>(a.y() + share * (b.y() - a.y())), width};
  }
}

QImage CurveRaster::image(const QColor& color, qreal groundShare) const {
  QImage image(width_, height_, QImage::Format_ARGB32_Premultiplied);
  if (image.isNull()) return image;
  const QRgb ink = color.rgb();
  const int opacity = color.alpha();
  const auto ground = static_cast<int>(std::lround(groundShare * full));
  for (int y = 0; y < height_; ++y) {
    auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
    const quint8* lines = line_.constData() + static_cast<qsizetype>(y) * width_;
    const auto lowerEdge = static_cast<float>(y + 1);
    for (int x = 0; x < width_; ++x) {
      int share = lines[x];
      if (const Ground& below = ground_[x]; share < full && below.width > 0 && below.level < lowerEdge)
        share += (full - share) * below.width / full * covered(lowerEdge - below.level) / full * ground / full;
      row[x] = share == 0 ? 0 : qPremultiply((ink & 0xFFFFFF) | static_cast<QRgb>(share * opacity / full) << 24);
    }
  }
  return image;
}

}  // namespace ambrel
