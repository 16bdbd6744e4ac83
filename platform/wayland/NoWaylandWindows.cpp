// Where LayerShellQt or the protocol's description was missing at build time.

#include "platform/wayland/WaylandWindows.h"

namespace ambrel {

bool canHaveWaylandWindows(const std::string&) { return false; }
std::optional<WaylandWindows> openWaylandWindows() { return std::nullopt; }

}  // namespace ambrel
