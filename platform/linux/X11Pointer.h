#pragma once
// The pointer under X11: raw motion and raw presses of XInput2, listened to only while somebody waits for it.

#include <cstdint>
#include <functional>

#include "platform/Pointer.h"
#include "platform/linux/X11Connection.h"

namespace ambrel {

class X11Pointer : public PointerMonitor {
 public:
  // Without a connection nothing is available.
  explicit X11Pointer(X11Connection* connection);

  std::optional<Point> location() const override;
  bool isPressed() const override;
  bool wakeOnMove(std::function<void()> onMove) override;
  void setPressHandler(std::function<void()> onPress) override;
  void stopWaiting() override;

 private:
  // To what is waited for.
  void listen();

  X11Connection* connection_;
  std::uint8_t extension_ = 0;  // the major opcode of XInput; 0 without raw motion
  std::function<void()> onMove_, onPress_;
  X11Watch watch_;
};

}  // namespace ambrel
