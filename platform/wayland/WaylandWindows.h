#pragma once
// The bar's windows in a Wayland session, where the compositor lets programs put them at the edges of a screen
// (wlr-layer-shell): KWin, sway, labwc, Hyprland, COSMIC and others, but not GNOME's.

#include <functional>
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

// Calls `act` when the compositor has ended, or has closed the toolkit's connection. Nothing of the toolkit's is to be
// used from then on: `act` ends the program, or makes a new run of it. Only with QT_WAYLAND_RECONNECT set when the
// toolkit starts, which ends the process at once otherwise.
void whenCompositorEnds(std::function<void()> act);
// Waits until a compositor at `display` answers that can have the windows; false when nobody listens there, or none
// answers within ten seconds.
bool waitForWaylandWindows(const std::string& display);

}  // namespace ambrel
