#include "app/kit/SpringValue.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace ambrel {

void SpringValue::setTarget(qreal target) {
  if (hasTarget_ && target == target_) return;
  const Motion now = state() == Running ? motionAt(currentTime() / 1000.0) : Motion{};
  const qreal from = value_;
  stop();
  target_ = target;
  Q_EMIT targetChanged();
  // The first target is the starting position.
  if (isInstant_ || !std::exchange(hasTarget_, true)) {
    value_ = target;
    Q_EMIT valueChanged();
    return;
  }
  start_ = {from - target, now.velocity};
  start();
}

int SpringValue::duration() const {
  const qreal decay = std::min<qreal>(damping_, 1) * 2 * std::numbers::pi / std::max(response_, 0.01);
  return static_cast<int>(std::ceil(std::log(2000.0) / decay * 1000));
}

SpringValue::Motion SpringValue::motionAt(qreal t) const {
  const qreal omega = 2 * std::numbers::pi / std::max(response_, 0.01);
  const qreal zeta = std::min<qreal>(damping_, 1);
  const qreal x0 = start_.offset, v0 = start_.velocity;
  const qreal fade = std::exp(-zeta * omega * t);
  if (zeta >= 1) {
    const qreal slope = v0 + omega * x0;
    return {fade * (x0 + slope * t), fade * (v0 - omega * slope * t)};
  }
  const qreal swing = omega * std::sqrt(1 - zeta * zeta);
  const qreal a = x0, b = (v0 + zeta * omega * x0) / swing;
  const qreal c = std::cos(swing * t), s = std::sin(swing * t);
  return {fade * (a * c + b * s), fade * ((b * swing - zeta * omega * a) * c - (a * swing + zeta * omega * b) * s)};
}

void SpringValue::updateCurrentTime(int milliseconds) {
  value_ = milliseconds >= duration() ? target_ : target_ + motionAt(milliseconds / 1000.0).offset;
  Q_EMIT valueChanged();
}

void SpringValue::updateState(State newState, State oldState) {
  if (newState != oldState) Q_EMIT settledChanged();
}

}  // namespace ambrel
