#include "app/kit/Gauge.h"

#include <QPainter>
#include <QPainterPath>
#include <QQuickWindow>
#include <algorithm>
#include <cmath>
#include <numbers>

namespace ambrel {
namespace {

constexpr qreal smallestMovement = 1.5;  // pixels

qreal drawn(qreal value) { return std::isfinite(value) ? std::clamp(value, 0.0, 100.0) : 0; }

}  // namespace

void Gauge::setValue(qreal value) {
  if (value_ == value || (std::isnan(value_) && std::isnan(value))) return;
  value_ = value;
  const qreal target = drawn(value);
  const bool isSeen = isComponentComplete() && isVisible() && window() && window()->isVisible();
  const bool moves = isSeen && duration_ > 0 && std::abs(target - shown_) / 100 * reach() >= smallestMovement;
  if (!moves) {
    if (easing_) easing_->stop();
    show(target);
  } else {
    if (!easing_) {
      easing_ = std::make_unique<QVariantAnimation>();
      easing_->setEasingCurve(QEasingCurve::OutCubic);
      connect(easing_.get(), &QVariantAnimation::valueChanged, this, [this](const QVariant& at) { show(at.toReal()); });
    }
    easing_->stop();
    easing_->setDuration(duration_);
    easing_->setStartValue(shown_);
    easing_->setEndValue(target);
    easing_->start();
  }
  Q_EMIT valueChanged();
}

void Gauge::itemChange(ItemChange change, const ItemChangeData& data) {
  const bool hides = change == ItemVisibleHasChanged && !data.boolValue;
  if ((hides || change == ItemSceneChange) && easing_ && easing_->state() == QAbstractAnimation::Running) {
    easing_->stop();
    show(drawn(value_));
  }
  StyledItem::itemChange(change, data);
}

void Gauge::show(qreal value) {
  if (shown_ == value) return;
  shown_ = value;
  update();
}

qreal RingArc::reach() const { return std::numbers::pi * (std::min(width(), height()) - lineWidth_); }

void RingArc::paint(QPainter* painter) {
  const qreal side = std::min(width(), height()) - lineWidth_;
  if (side <= 0) return;
  const QRectF box((width() - side) / 2, (height() - side) / 2, side, side);
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setBrush(Qt::NoBrush);
  painter->setPen(QPen(trackColor_, lineWidth_));
  painter->drawEllipse(box);
  if (shown() <= 0) return;
  painter->setPen(QPen(color_, lineWidth_, Qt::SolidLine, Qt::RoundCap));
  if (shown() >= 100) {
    painter->drawEllipse(box);
  } else {
    // drawArc counts sixteenths of a degree, anticlockwise from three o'clock.
    painter->drawArc(box, 90 * 16, -qRound(shown() * 3.6 * 16));
  }
}

void MeterBar::paint(QPainter* painter) {
  const qreal radius = height() / 2;
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setPen(Qt::NoPen);
  painter->setBrush(trackColor_);
  painter->drawRoundedRect(boundingRect(), radius, radius);
  if (shown() <= 0) return;
  painter->setBrush(color_);
  const qreal length = std::max(height(), width() * shown() / 100);
  painter->drawRoundedRect(QRectF(0, 0, std::min(length, width()), height()), radius, radius);
}

}  // namespace ambrel
