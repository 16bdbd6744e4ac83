#pragma once
// Detects a pointer that rests at the middle of a screen's upper edge. It uses no window, so that clicks reach what
// is below.

#include <QObject>
#include <QTimer>
#include <functional>
#include <optional>
#include <vector>

#include "core/dock/EdgeDwell.h"
#include "platform/Pointer.h"
#include "platform/Screens.h"

namespace ambrel {

class EdgeSensor : public QObject {
  Q_OBJECT

 public:
  EdgeSensor(PointerMonitor& pointer, Screens& screens, std::function<Instant()> now, QObject* parent = nullptr);
  ~EdgeSensor() override { setActive(false); }

  std::function<void()> onEnter;

  bool isActive() const { return isActive_; }
  // It does no work while it is inactive.
  void setActive(bool active);
  void look();
  // Whether a timer is running, rather than a wait for the next movement.
  bool isLooking() const { return timer_.isActive(); }

 private:
  void watch();
  std::vector<ScreenFrames> screens() const;

  PointerMonitor& pointer_;
  Screens& screens_;
  std::function<Instant()> now_;
  EdgeDwell dwell_;
  QTimer timer_;
  std::optional<Point> last_;
  bool isActive_ = false;
};

}  // namespace ambrel
