#include "platform/wayland/WindowList.h"

#include <algorithm>

#include "platform/wayland/PlasmaWindows.h"
#include "platform/wayland/ToplevelList.h"

namespace ambrel {

std::unique_ptr<WindowList> WindowList::open(WaylandConnection& connection, SteadyTime until) {
  std::unique_ptr<WindowList> list;
#ifdef AMBREL_WLR_TOPLEVELS
  list = ToplevelList::bind(connection);
#endif
#ifdef AMBREL_PLASMA_WINDOWS
  if (!list) list = PlasmaWindows::bind(connection);
#endif
  if (!list) return nullptr;
  // What windows there are is told at once, and what they are when they were asked for.
  for (int turn = 0; turn < 2; ++turn) {
    bool isTold = false;
    connection.roundTrip([&isTold] { isTold = true; });
    if (!connection.turnUntil([&isTold] { return isTold; }, until)) return nullptr;
  }
  return list;
}

WindowList::Window& WindowList::add(void* handle) { return windows_.emplace_front(Window{this, handle, ++lastID_}); }

void WindowList::settled(Window& window) {
  if (window.isActive && active_ != window.id) {
    const auto place = std::ranges::find(windows_, window.id, &Window::id);
    windows_.splice(windows_.end(), windows_, place);
  }
  lookForActive();
}

void WindowList::remove(Window& window) {
  windows_.remove_if([&](const Window& one) { return &one == &window; });
  lookForActive();
}

// The one that has it last, while two still say that they are.
void WindowList::lookForActive() {
  std::optional<std::uint32_t> found;
  for (const Window& one : windows_)
    if (one.isActive) found = one.id;
  if (std::exchange(active_, found) != found && activeChanged) activeChanged();
}

std::vector<WindowRecord> WindowList::windows() const {
  std::vector<WindowRecord> list;
  for (const Window& one : windows_)
    list.push_back({.id = one.id, .pid = one.pid, .instance = one.appID, .className = one.appID});
  return list;
}

void WindowList::activate(std::uint32_t id) {
  const auto found = std::ranges::find(windows_, id, &Window::id);
  if (found != windows_.end()) bringForward(found->handle);
}

}  // namespace ambrel
