#include "app/shelf/EdgeSensor.h"

#include <algorithm>

namespace ambrel {
namespace {

// While the pointer moves; a tenth of a second is lost on nobody who waits for a shelf.
constexpr int movingInterval = 100;
// Where movements are not announced.
constexpr int blindInterval = 250;

bool isInZone(Point pointer, const std::vector<ScreenInfo>& screens) {
  const auto screen =
      std::ranges::find_if(screens, [&](const ScreenInfo& one) { return one.frame.contains(pointer, true); });
  if (screen == screens.end()) return false;
  // Another program's panel is at that edge, and has its own use for a pointer there.
  if (screen->visibleFrame.maxY() < screen->frame.maxY()) return false;
  const double reach = screen->frame.width * EdgeDwell::share / 2;
  return screen->frame.maxY() - pointer.y <= EdgeDwell::depth && std::abs(pointer.x - screen->frame.midX()) <= reach;
}

}  // namespace

bool EdgeDwell::update(std::optional<Point> pointer, const std::vector<ScreenInfo>& screens, Instant now) {
  if (!pointer || !isInZone(*pointer, screens)) {
    since_.reset();
    hasAsked_ = false;
    return false;
  }
  if (!since_) since_ = now;
  if (hasAsked_ || secondsBetween(*since_, now) < dwell) return false;
  hasAsked_ = true;
  return true;
}

EdgeSensor::EdgeSensor(PointerMonitor& pointer, Screens& screens, std::function<Instant()> now, QObject* parent)
    : QObject(parent), pointer_(pointer), screens_(screens), now_(std::move(now)) {
  timer_.setSingleShot(true);
  connect(&timer_, &QTimer::timeout, this, &EdgeSensor::look);
}

void EdgeSensor::setActive(bool active) {
  if (active == isActive_) return;
  isActive_ = active;
  if (active) {
    watch();
  } else {
    timer_.stop();
    pointer_.stopWaiting();
  }
}

void EdgeSensor::look() {
  if (!isActive_) return;
  const auto pointer = pointer_.location();
  // A pointer that drags a window there wants it to fill the screen.
  const bool isAsking = dwell_.update(pointer, screens_.list(), now_()) && !pointer_.isPressed();
  const bool isResting = pointer == last_ && !dwell_.isWaiting();
  last_ = pointer;
  if (isResting)
    watch();
  else
    timer_.start(movingInterval);
  if (isAsking && onEnter) onEnter();
}

void EdgeSensor::watch() {
  timer_.stop();
  if (!pointer_.wakeOnMove([this] { look(); })) timer_.start(blindInterval);
}

}  // namespace ambrel
