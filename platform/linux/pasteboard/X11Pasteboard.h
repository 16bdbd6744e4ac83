#pragma once
// The clipboard of an X server.

#include <memory>
#include <string>

#include "platform/linux/pasteboard/PasteboardThread.h"

namespace ambrel {

// `display` as in DISPLAY; empty for the default. Null when there is no such X server, or it lacks XFixes.
// At its end it hands what it still offers to the clipboard manager, if there is one that takes it at once.
std::unique_ptr<Pasteboard> openX11Pasteboard(const std::string& display, PostToMain post,
                                              SelectionPatience patience = {});

}  // namespace ambrel
