#pragma once
// Notices a pointer that rests at the middle of a screen's upper edge. There is no window, so clicks reach what
// is below.

#include <QObject>
#include <QTimer>
#include <functional>
#include <optional>

#include "core/dock/EdgeDwell.h"
#include "platform/Pointer.h"
#include "platform/Screens.h"

namespace ambrel {

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
