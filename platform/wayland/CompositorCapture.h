#pragma once
// The picture of a screen that the compositor gives to every program that asks (wlr-screencopy: sway, labwc, river,
// Wayfire, Hyprland).

#include "platform/ScreenCapture.h"

namespace ambrel {

// `display` as in WAYLAND_DISPLAY, `screen` by its connector ("DP-1"); the first one where there is none of that name.
// Takes a frame's time, at most two seconds. Our own windows are in it.
ScreenPicture captureByCompositor(const std::string& display, const std::string& screen);

}  // namespace ambrel
