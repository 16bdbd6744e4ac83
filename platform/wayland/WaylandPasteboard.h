#pragma once
// The clipboard of a Wayland session.

#include <memory>
#include <string>

#include "platform/linux/pasteboard/PasteboardThread.h"

namespace ambrel {

// `display` as in WAYLAND_DISPLAY. Null when there is no such compositor, when it lets no program look after the
// clipboard (ext-data-control and wlr-data-control), or when the build went without.
//
// No compositor tells whether the clipboard is empty because its owner has ended or because it was cleared; both count
// as the owner's end. `restore` therefore leaves a text that looks like a secret alone.
std::unique_ptr<Pasteboard> openWaylandPasteboard(const std::string& display, PostToMain post,
                                                  SelectionPatience patience = {});

}  // namespace ambrel
