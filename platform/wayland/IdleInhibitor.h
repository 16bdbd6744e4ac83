#pragma once
// Keeps the screens of a Wayland session on (idle-inhibit), where the compositor itself blanks and locks them. It
// counts an inhibitor only while its surface is shown: ours is a clear point below all windows.

#include <memory>
#include <string>

namespace ambrel {

class IdleInhibitor {
 public:
  // `display` as in WAYLAND_DISPLAY; empty for none.
  explicit IdleInhibitor(std::string display);
  ~IdleInhibitor();

  // False when the compositor has no such thing, and in a build without wlr-layer-shell.
  bool hold(bool isHeld);

 private:
  class Held;
  const std::string display_;
  std::unique_ptr<Held> held_;
};

}  // namespace ambrel
