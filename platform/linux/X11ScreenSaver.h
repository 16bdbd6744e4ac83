#pragma once

namespace ambrel {

class X11Connection;

// The X server's own screen saver, which blanks the screens of desktops that have no other.
class X11ScreenSaver {
 public:
  // connection: may be null.
  explicit X11ScreenSaver(X11Connection* connection) : connection_(connection) {}

  // Stops the server's timers, or lets them go on; they go on by themselves when the connection ends. False when the
  // server cannot do it.
  bool suspend(bool isSuspended);

 private:
  X11Connection* connection_;
};

}  // namespace ambrel
