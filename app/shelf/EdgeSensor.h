#pragma once
// Notices a pointer that rests at the middle of a screen's upper edge. There is no window, so clicks reach what
// is below.

#include <QObject>
#include <QTimer>
#include <functional>
#include <optional>

#include "core/base/Instant.h"
#include "platform/Pointer.h"
#include "platform/Screens.h"

namespace ambrel {

// Whether a resting pointer asks for something. A value: what it is told decides. Where another program's panel is at
// the edge, a pointer on that is the panel's; the strip right below it counts.
class EdgeDwell {
 public:
  // From the edge, in points; and how much of the edge's length counts.
  static constexpr double depth = 1.5;
  static constexpr double share = 0.25;
  static constexpr Seconds dwell{0.25};
  // Below a panel the pointer has no edge to stop at, and windows have their title bars there.
  static constexpr double depthBelowPanel = 4;
  static constexpr Seconds dwellBelowPanel{0.5};

  // True once for each visit, when the pointer has been in the zone for that long.
  bool update(std::optional<Point> pointer, const std::vector<ScreenInfo>& screens, Instant now);
  // In the zone and not yet asked.
  bool isWaiting() const { return since_.has_value() && !hasAsked_; }

 private:
  std::optional<Instant> since_;  // in the zone
  bool hasAsked_ = false;
};

class EdgeSensor : public QObject {
  Q_OBJECT

 public:
  EdgeSensor(PointerMonitor& pointer, Screens& screens, std::function<Instant()> now, QObject* parent = nullptr);

  std::function<void()> onEnter;

  bool isActive() const { return isActive_; }
  // While it is not active it costs nothing.
  void setActive(bool active);
  void look();
  // Whether it will look again by itself, before the pointer moves.
  bool isLooking() const { return timer_.isActive(); }

 private:
  void watch();

  PointerMonitor& pointer_;
  Screens& screens_;
  std::function<Instant()> now_;
  EdgeDwell dwell_;
  QTimer timer_;
  std::optional<Point> last_;
  bool isActive_ = false;
};

}  // namespace ambrel
