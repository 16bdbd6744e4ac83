#pragma once
// Other programs in a Wayland session. The compositor lists the windows of both window systems; only KWin tells whose
// processes they are. Those of X11's windows are known to the X server that runs as its guest.

#include <memory>
#include <string>

#include "platform/Workspace.h"
#include "platform/linux/ProgramsInWindows.h"

namespace ambrel {

// `display` as in WAYLAND_DISPLAY. `x11`: what the guest knows; it also names programs and opens them. Gives `x11` back
// when there is no such compositor, when it lists no windows for us, or when the build went without. Agents in the
// terminals of Wayland are known on KWin alone.
std::unique_ptr<Workspace> withWaylandWindows(const std::string& display, std::unique_ptr<Workspace> x11,
                                              ProgramFolders folders);

}  // namespace ambrel
