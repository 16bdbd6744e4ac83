#pragma once
// The connected screens.

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/base/Geometry.h"

namespace ambrel {

struct ScreenInfo {
  std::string name;        // of the connector ("eDP-1", "HDMI-1"); QScreen::name()
  Rect frame;              // y upwards, in points
  Rect visibleFrame;       // without what the docks and panels of others reserve on this screen
  bool isBuiltin = false;  // a panel of the computer itself: eDP, LVDS or DSI
  // A dock of another program that reserves nothing at its lower edge, as one that hides by itself does: how high it
  // is when it can be seen. While it can, the visible frame ends above it.
  std::optional<double> hidingDockHeight = {};
  // A window of another program in full screen is in front on it.
  bool isFilled = false;
  bool operator==(const ScreenInfo&) const = default;
};

class Screens {
 public:
  virtual ~Screens() = default;

  // The main screen first; y is 0 at its lower edge, x is the window system's. Empty while no screen is connected.
  virtual std::vector<ScreenInfo> list() const = 0;
  // What `flipped` needs to go between these frames and the window system's coordinates.
  virtual double mainHeight() const = 0;
  // `handler` is called on the main thread after screens, their frames or their reserved edges changed.
  virtual void setChangeHandler(std::function<void()> handler) = 0;
};

}  // namespace ambrel
