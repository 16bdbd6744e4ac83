#pragma once
// The pointer in a Wayland session, which a program is told of over its own windows alone. Clear windows of one point
// are at the edges where it is waited for, and below our own over all screens while presses are: those do not reach
// what is under them.

#include <QObject>
#include <QTimer>
#include <memory>
#include <optional>

#include "platform/Pointer.h"
#include "platform/Screens.h"
#include "platform/wayland/LayerWindow.h"

namespace ambrel {

class ClearStrip;

class WaylandPointer : public QObject, public PointerMonitor {
 public:
  // `screens` outlives it.
  WaylandPointer(const Screens& screens, OriginOf originOf);
  ~WaylandPointer() override;

  std::optional<Point> location() const override;
  bool isPressed() const override;
  bool wakeOnMove(std::function<void()> onMove) override;
  void setPressHandler(std::function<void()> onPress) override;
  void setStrips(std::vector<Rect> strips) override;
  void stopWaiting() override { onMove_ = nullptr; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  using Strips = std::vector<std::unique_ptr<ClearStrip>>;

  void moved(const QWindow* window, QPointF at);
  // Ends them. Whoever waits is told later that the pointer is over none of them any more: the one who asked for this
  // may be about to end, too.
  void end(Strips& strips);
  void tellOfMove();
  void makeStrips();
  void makeCatchers();

  const Screens& screens_;
  OriginOf originOf_;
  const QWindow* window_ = nullptr;  // that it is over; not to be looked into
  std::optional<QPointF> at_;        // in the toolkit's coordinates; absent where it is over no window of ours
  std::vector<Rect> wanted_;
  Strips strips_, catchers_;
  QTimer remake_, left_;
  bool wereScreensChanged_ = false;
  std::function<void()> onMove_, onPress_;
};

}  // namespace ambrel
