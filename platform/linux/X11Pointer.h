#pragma once
// The pointer under X11: raw motion and raw presses of XInput2, listened to only while somebody waits for it.
//
// An X server that is the guest of a Wayland compositor is told of the pointer only while it is over a window of X11.
// There, transparent windows cover the strips.

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "platform/Pointer.h"
#include "platform/linux/X11Connection.h"

namespace ambrel {

class ClearStrip;

class X11Pointer : public PointerMonitor {
 public:
  // Without a connection nothing is available.
  explicit X11Pointer(X11Connection* connection);
  ~X11Pointer() override;

  std::optional<Point> location() const override;
  bool isPressed() const override;
  bool wakeOnMove(std::function<void()> onMove) override;
  void setPressHandler(std::function<void()> onPress) override;
  void setStrips(std::vector<Rect> strips) override;
  void stopWaiting() override;

 private:
  // To what is waited for.
  void listen();

  X11Connection* connection_;
  std::uint8_t extension_ = 0;  // the major opcode of XInput; 0 without raw motion
  bool isGuest_ = false;
  bool isElsewhere_ = false;  // it has left the windows of X11
  std::vector<Rect> strips_;
  std::vector<std::unique_ptr<ClearStrip>> windows_;
  std::function<void()> onMove_, onPress_;
  X11Watch watch_;
};

}  // namespace ambrel
