#include "app/notes/CaptureView.h"

#include <QPainter>
#include <QQuickWindow>
#include <algorithm>

namespace ambrel {
namespace {

constexpr qreal leastZoom = 0.1, greatestZoom = 8;
// Of the item's edge, kept free of what is revealed.
constexpr qreal revealMargin = 24;

// Centred where it is smaller than the room, else without a gap at either end.
qreal placed(qreal at, qreal length, qreal room) {
  return length <= room ? (room - length) / 2 : std::clamp(at, room - length, 0.0);
}

}  // namespace

CaptureView::CaptureView(QQuickItem* parent) : QQuickPaintedItem(parent) {}

void CaptureView::setPicture(const QImage& picture) {
  if (picture.cacheKey() == picture_.cacheKey()) return;
  const bool isOther = picture.size() != picture_.size();
  picture_ = picture;
  scaled_ = {};
  if (isOther) zoom_.reset();
  place(frame_.topLeft());
  Q_EMIT pictureChanged();
  update();
}

qreal CaptureView::fitting() const {
  if (picture_.isNull()) return 1;
  return std::min({qreal(1), width() / picture_.width(), height() / picture_.height()});
}

void CaptureView::place(QPointF origin) {
  const QSizeF size = QSizeF(picture_.size()) * zoom();
  const QRectF frame(QPointF(placed(origin.x(), size.width(), width()), placed(origin.y(), size.height(), height())),
                     size);
  if (frame == frame_) return;
  frame_ = frame;
  Q_EMIT frameChanged();
  update();
}

void CaptureView::fit() {
  zoom_.reset();
  place({});
}

void CaptureView::zoomBy(qreal factor, QPointF at) {
  const qreal before = zoom();
  const qreal now = std::clamp(before * factor, std::min(leastZoom, fitting()), greatestZoom);
  zoom_ = now;
  place(at - (at - frame_.topLeft()) * (now / before));
}

void CaptureView::pan(qreal dx, qreal dy) { place(frame_.topLeft() + QPointF(dx, dy)); }

void CaptureView::reveal(QPointF at) {
  const QPointF point(frame_.x() + at.x() * frame_.width(), frame_.y() + at.y() * frame_.height());
  const auto shift = [](qreal value, qreal room) {
    return std::clamp(value, std::min(revealMargin, room / 2), std::max(room - revealMargin, room / 2)) - value;
  };
  pan(shift(point.x(), width()), shift(point.y(), height()));
}

QPointF CaptureView::placeOf(QPointF point) const {
  if (frame_.isEmpty()) return {};
  return {std::clamp((point.x() - frame_.x()) / frame_.width(), 0.0, 1.0),
          std::clamp((point.y() - frame_.y()) / frame_.height(), 0.0, 1.0)};
}

void CaptureView::geometryChange(const QRectF& now, const QRectF& before) {
  QQuickPaintedItem::geometryChange(now, before);
  place(frame_.topLeft());
}

void CaptureView::paint(QPainter* painter) {
  if (picture_.isNull()) return;
  // In the screen's pixels, so that a scaled screen shows it sharp.
  const qreal ratio = window() ? window()->effectiveDevicePixelRatio() : 1;
  const QSize wanted = (frame_.size() * ratio).toSize();
  if (wanted.width() >= picture_.width()) {
    painter->drawImage(frame_, picture_);
    return;
  }
  if (scaled_.size() != wanted) scaled_ = picture_.scaled(wanted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  painter->drawImage(frame_, scaled_);
}

}  // namespace ambrel
