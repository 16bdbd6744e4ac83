#include "app/shelf/EdgeSensor.h"

#include <utility>

#include "core/dock/EdgeStrips.h"

namespace ambrel {
namespace {

// While the pointer moves.
constexpr int movingInterval = 100;
// Where the platform does not report movements.
constexpr int blindInterval = 250;

}  // namespace

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
    pointer_.setStrips({});
  }
}

void EdgeSensor::look() {
  if (!isActive_) return;
  const auto pointer = pointer_.location();
  // With a button pressed, a window is being dragged to the edge to maximise it.
  const bool isAsking = dwell_.update(pointer, screens(), now_()) && !pointer_.isPressed();
  const bool isResting = pointer == last_ && !dwell_.isWaiting();
  last_ = pointer;
  if (isResting)
    watch();
  else
    timer_.start(movingInterval);
  if (isAsking && onEnter) onEnter();
}

std::vector<ScreenFrames> EdgeSensor::screens() const {
  std::vector<ScreenFrames> screens;
  for (const ScreenInfo& screen : screens_.list()) screens.push_back({screen.frame, screen.visibleFrame});
  return screens;
}

void EdgeSensor::watch() {
  timer_.stop();
  std::vector<Rect> strips;
  for (const ScreenFrames& screen : screens()) strips.push_back(shelfStrip(screen));
  pointer_.setStrips(std::move(strips));
  if (!pointer_.wakeOnMove([this] { look(); })) timer_.start(blindInterval);
}

}  // namespace ambrel
