#include "app/disk/SunburstChart.h"

#include <QPainter>
#include <QPainterPath>
#include <array>
#include <cmath>
#include <numbers>

#include "app/disk/DiskExplorer.h"
#include "app/disk/DiskTexts.h"
#include "app/kit/Palette.h"

namespace ambrel {
namespace {

// The edges of the rings in a chart of 272 across.
constexpr std::array<qreal, 4> edges{60, 92, 118, 136};
constexpr int rings = 3;
constexpr qreal room = 138;  // with the line around the highlighted segment
constexpr qreal gap = 1.5, highlightWidth = 2;
// The share of the background colour in each ring.
constexpr std::array<qreal, rings> groundShares{0, 0.28, 0.52};
// In turns; about four pixels of the outer ring. Smaller segments would be mostly gaps.
constexpr double smallestArc = 0.005;

qreal degrees(double turns) { return turns * 360; }

}  // namespace

SunburstChart::SunburstChart(QQuickItem* parent) : QQuickPaintedItem(parent) {
  setAcceptHoverEvents(true);
  setAcceptedMouseButtons(Qt::LeftButton | Qt::RightButton);
  setActiveFocusOnTab(true);
  connect(this, &SunburstChart::styleChanged, this, [this] { update(); });
}

void SunburstChart::setCenter(const DiskNode& center) {
  if (center == center_) return;
  center_ = center;
  segments_ = center_.item ? sunburst(*center_.item, rings, smallestArc) : std::vector<SunburstSegment>();
  for (SunburstSegment& segment : segments_) {
    segment.start *= center_.share;
    segment.sweep *= center_.share;
  }
  branchColors_ = center_.item ? sunburstColors(*center_.item) : std::vector<int>();
  pressedID_.clear();
  update();
  Q_EMIT centerChanged();
}

void SunburstChart::setHighlightedID(const QString& id) {
  if (id == highlightedID_) return;
  highlightedID_ = id;
  update();
  Q_EMIT highlightedChanged();
}

qreal SunburstChart::scale() const { return std::min(width(), height()) / 2 / room; }
qreal SunburstChart::innerRadius(int ring) const { return edges[static_cast<std::size_t>(ring)] * scale(); }
qreal SunburstChart::outerRadius(int ring) const { return edges[static_cast<std::size_t>(ring) + 1] * scale(); }
qreal SunburstChart::holeDiameter() const { return 2 * innerRadius(0); }

void SunburstChart::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) {
  QQuickPaintedItem::geometryChange(newGeometry, oldGeometry);
  if (newGeometry.size() != oldGeometry.size()) Q_EMIT holeChanged();
}

QPointF SunburstChart::middleOf(const SunburstSegment& segment) const {
  const double angle = (segment.start + segment.sweep / 2) * 2 * std::numbers::pi;
  const qreal radius = (innerRadius(segment.ring) + outerRadius(segment.ring)) / 2;
  return {width() / 2 + radius * std::sin(angle), height() / 2 - radius * std::cos(angle)};
}

bool SunburstChart::isInHole(QPointF point) const {
  return std::hypot(point.x() - width() / 2, point.y() - height() / 2) < innerRadius(0);
}

const SunburstSegment* SunburstChart::segmentUnder(QPointF point) const {
  const qreal x = point.x() - width() / 2, y = point.y() - height() / 2;
  const qreal radius = std::hypot(x, y);
  double turn = std::atan2(x, -y) / (2 * std::numbers::pi);
  if (turn < 0) turn += 1;
  for (int ring = 0; ring < rings; ++ring)
    if (radius >= innerRadius(ring) && radius < outerRadius(ring)) return segmentAt(segments_, ring, turn);
  return nullptr;
}

QString SunburstChart::idAt(QPointF point) const {
  const SunburstSegment* segment = segmentUnder(point);
  return segment ? pathID(segment->item->id()) : QString();
}

const SunburstSegment* SunburstChart::segmentOf(const QString& id) const {
  if (id.isEmpty()) return nullptr;
  const std::string path = pathOf(id);
  for (const SunburstSegment& segment : segments_)
    if (segment.item->id() == path) return &segment;
  return nullptr;
}

void SunburstChart::walk(SunburstStep step) {
  if (segments_.empty()) return;
  const SunburstSegment* from = segmentOf(highlightedID_);
  const SunburstSegment* to = from ? neighbour(segments_, *from, step) : &segments_.front();
  if (to) Q_EMIT hovered(pathID(to->item->id()));
}

void SunburstChart::pointAt(QPointF point) {
  const QString id = idAt(point);
  if (id != highlightedID_) Q_EMIT hovered(id);
}

void SunburstChart::hoverEnterEvent(QHoverEvent* event) { pointAt(event->position()); }
void SunburstChart::hoverMoveEvent(QHoverEvent* event) { pointAt(event->position()); }

void SunburstChart::hoverLeaveEvent(QHoverEvent*) {
  if (!highlightedID_.isEmpty()) Q_EMIT hovered({});
}

void SunburstChart::mousePressEvent(QMouseEvent* event) {
  pressedID_ = idAt(event->position());
  isHolePressed_ = isInHole(event->position());
  event->setAccepted(!pressedID_.isEmpty() || isHolePressed_);
}

void SunburstChart::mouseReleaseEvent(QMouseEvent* event) {
  const QString id = std::exchange(pressedID_, {});
  const bool isHole = std::exchange(isHolePressed_, false);
  if (isHole && isInHole(event->position())) {
    Q_EMIT upAsked();
  } else if (!id.isEmpty() && id == idAt(event->position())) {
    if (event->button() == Qt::RightButton)
      Q_EMIT asked(id);
    else
      Q_EMIT entered(id);
  }
}

void SunburstChart::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Right:
      return walk(SunburstStep::clockwise);
    case Qt::Key_Left:
      return walk(SunburstStep::counterclockwise);
    case Qt::Key_Up:
      return walk(SunburstStep::outwards);
    case Qt::Key_Down:
      return walk(SunburstStep::inwards);
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (!highlightedID_.isEmpty()) Q_EMIT entered(highlightedID_);
      return;
    case Qt::Key_Backspace:
      Q_EMIT upAsked();
      return;
    case Qt::Key_Space:
      if (!highlightedID_.isEmpty()) Q_EMIT asked(highlightedID_);
      return;
    default:
      QQuickPaintedItem::keyPressEvent(event);
  }
}

QPainterPath SunburstChart::outline(const SunburstSegment& segment) const {
  const QPointF middle(width() / 2, height() / 2);
  const qreal inner = innerRadius(segment.ring), outer = outerRadius(segment.ring);
  const QRectF innerBox(middle.x() - inner, middle.y() - inner, 2 * inner, 2 * inner);
  const QRectF outerBox(middle.x() - outer, middle.y() - outer, 2 * outer, 2 * outer);
  // Angles count anticlockwise from three o'clock.
  const qreal start = 90 - degrees(segment.start), sweep = -degrees(segment.sweep);
  QPainterPath path;
  if (segment.sweep >= 1) {
    path.addEllipse(outerBox);
    path.addEllipse(innerBox);
    return path;
  }
  path.arcMoveTo(outerBox, start);
  path.arcTo(outerBox, start, sweep);
  path.arcTo(innerBox, start + sweep, -sweep);
  path.closeSubpath();
  return path;
}

QColor SunburstChart::colorOf(const SunburstSegment& segment) const {
  if (colors_.isEmpty() || static_cast<std::size_t>(segment.branch) >= branchColors_.size()) return ink_;
  QColor color = colors_[branchColors_[static_cast<std::size_t>(segment.branch)] % colors_.size()];
  QColor veil = ground_;
  veil.setAlphaF(static_cast<float>(groundShares[static_cast<std::size_t>(segment.ring)]));
  return laidOver(veil, color);
}

void SunburstChart::paint(QPainter* painter) {
  painter->setRenderHint(QPainter::Antialiasing);
  const SunburstSegment whole{.item = nullptr, .ring = 0, .start = 0, .sweep = 1};
  if (center_.share < 1 || segments_.empty()) painter->fillPath(outline(whole), trackColor_);
  const SunburstSegment* highlighted = segmentOf(highlightedID_);
  painter->setPen(QPen(ground_, gap * std::max(1.0, scale()), Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
  for (const SunburstSegment& segment : segments_) {
    painter->setBrush(colorOf(segment));
    painter->drawPath(outline(segment));
  }
  if (!highlighted) return;
  painter->setBrush(Qt::NoBrush);
  painter->setPen(QPen(ink_, highlightWidth, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin));
  painter->drawPath(outline(*highlighted));
}

}  // namespace ambrel
