#pragma once
// The window of another program that fills a screen, as the window manager tells it.

#include <functional>
#include <optional>

#include "core/base/Geometry.h"
#include "platform/linux/X11Connection.h"

namespace ambrel {

// None where the window manager does not tell.
xcb_window_t activeWindow(X11Connection& connection);
bool isInFullScreen(X11Connection& connection, xcb_window_t window);

class X11FullScreen {
 public:
  // `onChange` is called on the main thread when `frame` may say something else than before.
  X11FullScreen(X11Connection& connection, std::function<void()> onChange);

  // Where the window in full screen is that was in front last, in pixels, y downwards. It counts as long as it is on
  // the screen and no other window in front of it is on the same one; windows of our own do not count.
  std::optional<Rect> frame();

 private:
  void handle(const xcb_generic_event_t& event);
  void watch(xcb_window_t window);
  // Nothing while it cannot be seen.
  std::optional<Rect> frameOf(xcb_window_t window);

  X11Connection& connection_;
  std::function<void()> onChange_;
  xcb_window_t watched_ = XCB_WINDOW_NONE, filler_ = XCB_WINDOW_NONE;
  X11Watch watch_;
};

}  // namespace ambrel
