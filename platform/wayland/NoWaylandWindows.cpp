// Where LayerShellQt or the protocol's description was missing at build time.

#include "platform/wayland/IdleInhibitor.h"
#include "platform/wayland/WaylandWindows.h"

namespace ambrel {

bool canHaveWaylandWindows(const std::string&) { return false; }
std::optional<WaylandWindows> openWaylandWindows() { return std::nullopt; }
void whenCompositorEnds(std::function<void()>) {}
bool waitForWaylandWindows(const std::string&) { return false; }

class IdleInhibitor::Held {};
IdleInhibitor::IdleInhibitor(std::string display) : display_(std::move(display)) {}
IdleInhibitor::~IdleInhibitor() = default;
bool IdleInhibitor::hold(bool isHeld) { return !isHeld; }

}  // namespace ambrel
