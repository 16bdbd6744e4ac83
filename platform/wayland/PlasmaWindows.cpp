#include "platform/wayland/PlasmaWindows.h"

#include "plasma-window-management-client-protocol.h"

namespace ambrel {
namespace {

// From 17 on there are events that this does not take; before 13 windows come without the name by which KWin 6 wants
// them to be asked for.
constexpr std::uint32_t version = 16;

org_kde_plasma_window* plasmaWindow(void* handle) { return static_cast<org_kde_plasma_window*>(handle); }

}  // namespace

std::unique_ptr<WindowList> PlasmaWindows::bind(WaylandConnection& connection) {
  auto* const manager = static_cast<org_kde_plasma_window_management*>(
      connection.bind(org_kde_plasma_window_management_interface, version));
  return manager ? std::unique_ptr<WindowList>(new PlasmaWindows(manager)) : nullptr;
}

PlasmaWindows::PlasmaWindows(org_kde_plasma_window_management* manager) : manager_(manager) {
  static constexpr auto listener = [] {
    org_kde_plasma_window_management_listener all{};
    all.show_desktop_changed = [](void*, auto*, std::uint32_t) {};
    all.window = [](void* self, auto* from, std::uint32_t id) {
      static_cast<PlasmaWindows*>(self)->take(org_kde_plasma_window_management_get_window(from, id));
    };
    all.stacking_order_changed = [](void*, auto*, wl_array*) {};
    all.stacking_order_uuid_changed = [](void*, auto*, const char*) {};
    all.window_with_uuid = [](void* self, auto* from, std::uint32_t, const char* uuid) {
      static_cast<PlasmaWindows*>(self)->take(org_kde_plasma_window_management_get_window_by_uuid(from, uuid));
    };
    return all;
  }();
  org_kde_plasma_window_management_add_listener(manager_, &listener, this);
}

PlasmaWindows::~PlasmaWindows() {
  for (const Window& one : windows_) org_kde_plasma_window_destroy(plasmaWindow(one.handle));
  org_kde_plasma_window_management_destroy(manager_);
}

void PlasmaWindows::take(org_kde_plasma_window* handle) {
  static constexpr auto ours = [](void* window) { return static_cast<PlasmaWindows*>(of(window).list); };
  static constexpr auto listener = [] {
    org_kde_plasma_window_listener all{};
    all.title_changed = [](void*, auto*, const char*) {};
    all.app_id_changed = [](void* window, auto*, const char* appID) { of(window).appID = appID; };
    all.state_changed = [](void* window, auto*, std::uint32_t flags) {
      of(window).isActive = (flags & ORG_KDE_PLASMA_WINDOW_MANAGEMENT_STATE_ACTIVE) != 0;
      ours(window)->settled(of(window));
    };
    all.virtual_desktop_changed = [](void*, auto*, std::int32_t) {};
    all.themed_icon_name_changed = [](void*, auto*, const char*) {};
    all.unmapped = [](void* window, auto* gone) {
      org_kde_plasma_window_destroy(gone);
      ours(window)->remove(of(window));
    };
    all.initial_state = [](void*, auto*) {};
    all.parent_window = [](void*, auto*, auto*) {};
    all.geometry = [](void*, auto*, std::int32_t, std::int32_t, std::uint32_t, std::uint32_t) {};
    all.icon_changed = [](void*, auto*) {};
    all.pid_changed = [](void* window, auto*, std::uint32_t pid) {
      of(window).pid = pid > 1 ? std::optional(static_cast<int>(pid)) : std::nullopt;
    };
    all.virtual_desktop_entered = [](void*, auto*, const char*) {};
    all.virtual_desktop_left = [](void*, auto*, const char*) {};
    all.application_menu = [](void*, auto*, const char*, const char*) {};
    all.activity_entered = [](void*, auto*, const char*) {};
    all.activity_left = [](void*, auto*, const char*) {};
    all.resource_name_changed = [](void*, auto*, const char*) {};
    return all;
  }();
  org_kde_plasma_window_add_listener(handle, &listener, &add(handle));
}

void PlasmaWindows::bringForward(void* handle) {
  constexpr std::uint32_t active = ORG_KDE_PLASMA_WINDOW_MANAGEMENT_STATE_ACTIVE;
  org_kde_plasma_window_set_state(plasmaWindow(handle), active, active);
}

}  // namespace ambrel
