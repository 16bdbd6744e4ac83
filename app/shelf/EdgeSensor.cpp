#include "app/shelf/EdgeSensor.h"

#include <algorithm>

namespace ambrel {
namespace {

// While the pointer moves; a tenth of a second is lost on nobody who waits for a shelf.
constexpr int movingInterval = 100;
// Where movements are not announced.
constexpr int blindInterval = 250;

// How long a pointer has to rest where it is; nothing outside the zone.
std::optional<Seconds> neededRest(Point pointer, const std::vector<ScreenInfo>& screens) {
  const auto screen =
      std::ranges::find_if(screens, [&](const ScreenInfo& one) { return one.frame.contains(pointer, true); });
  if (screen == screens.end()) return std::nullopt;
  const double reach = screen->frame.width * EdgeDwell::share / 2;
  if (std::abs(pointer.x - screen->frame.midX()) > reach) return std::nullopt;
  const double upper = screen->visibleFrame.maxY();
  const bool hasPanel = upper < screen->frame.maxY();
  const double depth = hasPanel ? EdgeDwell::depthBelowPanel : EdgeDwell::depth;
  if (pointer.y > upper || upper - pointer.y > depth) return std::nullopt;
  return hasPanel ? EdgeDwell::dwellBelowPanel : EdgeDwell::dwell;
}

}  // namespace

bool EdgeDwell::update(std::optional<Point> pointer, const std::vector<ScreenInfo>& screens, Instant now) {
  const auto needed = pointer ? neededRest(*pointer, screens) : std::nullopt;
  if (!needed) {
    since_.reset();
    hasAsked_ = false;
    return false;
  }
  if (!since_) since_ = now;
  if (hasAsked_ || secondsBetween(*since_, now) < *needed) return false;
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
