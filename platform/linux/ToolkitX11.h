#pragma once
// The toolkit's own connection to the X server. What is said of a window before it is shown goes through it: on ours
// a request could overtake the window's creation.

#include <QGuiApplication>
#include <xcb/xcb.h>

namespace ambrel {

// Null under every other window system.
inline xcb_connection_t* toolkitConnection() {
  const auto* x11 = qGuiApp ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
  return x11 ? x11->connection() : nullptr;
}

}  // namespace ambrel
