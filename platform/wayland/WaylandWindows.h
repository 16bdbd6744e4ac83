#pragma once
// The bar's windows in a Wayland session, where the compositor lets programs put them at the edges of a screen
// (wlr-layer-shell): KWin, sway, labwc, Hyprland, COSMIC and others, but not GNOME's.

#include <memory>
#include <optional>
#include <string>

#include "platform/Pointer.h"
#include "platform/Screens.h"
#include "platform/WindowStyle.h"

namespace ambrel {

struct WaylandWindows {
  std::unique_ptr<Screens> screens;
  std::unique_ptr<PointerMonitor> pointer;
  std::unique_ptr<WindowStyle> windowStyle;
};

// Whether the compositor at `display`, as in WAYLAND_DISPLAY, can have them; asked before the toolkit has chosen its
// platform. False in a build without LayerShellQt.
bool canHaveWaylandWindows(const std::string& display);
// Null where the toolkit runs on another platform.
std::optional<WaylandWindows> openWaylandWindows();

}  // namespace ambrel
