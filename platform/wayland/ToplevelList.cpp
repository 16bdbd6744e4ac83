#include "platform/wayland/ToplevelList.h"

#include "wlr-foreign-toplevel-management-unstable-v1-client-protocol.h"

#include <algorithm>
#include <span>

namespace ambrel {
namespace {

zwlr_foreign_toplevel_handle_v1* toplevel(void* handle) {
  return static_cast<zwlr_foreign_toplevel_handle_v1*>(handle);
}

}  // namespace

std::unique_ptr<WindowList> ToplevelList::bind(WaylandConnection& connection) {
  auto* const seat = static_cast<wl_seat*>(connection.bind(wl_seat_interface, 1));
  if (seat == nullptr) return nullptr;
  auto* const manager =
      static_cast<zwlr_foreign_toplevel_manager_v1*>(connection.bind(zwlr_foreign_toplevel_manager_v1_interface, 1));
  if (manager == nullptr) {
    wl_seat_destroy(seat);
    return nullptr;
  }
  return std::unique_ptr<WindowList>(new ToplevelList(manager, seat));
}

ToplevelList::ToplevelList(zwlr_foreign_toplevel_manager_v1* manager, wl_seat* seat) : manager_(manager), seat_(seat) {
  static constexpr zwlr_foreign_toplevel_manager_v1_listener listener{
      .toplevel = [](void* self, auto*, auto* handle) { static_cast<ToplevelList*>(self)->take(handle); },
      .finished = [](void*, auto*) {},
  };
  zwlr_foreign_toplevel_manager_v1_add_listener(manager_, &listener, this);
}

ToplevelList::~ToplevelList() {
  for (const Window& one : windows_) zwlr_foreign_toplevel_handle_v1_destroy(toplevel(one.handle));
  zwlr_foreign_toplevel_manager_v1_destroy(manager_);
  wl_seat_destroy(seat_);
}

void ToplevelList::take(zwlr_foreign_toplevel_handle_v1* handle) {
  static constexpr zwlr_foreign_toplevel_handle_v1_listener listener{
      .title = [](void*, auto*, const char*) {},
      .app_id = [](void* window, auto*, const char* appID) { of(window).appID = appID; },
      .output_enter = [](void*, auto*, wl_output*) {},
      .output_leave = [](void*, auto*, wl_output*) {},
      .state =
          [](void* window, auto*, wl_array* states) {
            const std::span all(static_cast<const std::uint32_t*>(states->data), states->size / sizeof(std::uint32_t));
            of(window).isActive = std::ranges::find(all, ZWLR_FOREIGN_TOPLEVEL_HANDLE_V1_STATE_ACTIVATED) != all.end();
          },
      .done = [](void* window, auto*) { static_cast<ToplevelList*>(of(window).list)->settled(of(window)); },
      .closed =
          [](void* window, auto* closed) {
            zwlr_foreign_toplevel_handle_v1_destroy(closed);
            static_cast<ToplevelList*>(of(window).list)->remove(of(window));
          },
      .parent = [](void*, auto*, auto*) {},
  };
  zwlr_foreign_toplevel_handle_v1_add_listener(handle, &listener, &add(handle));
}

void ToplevelList::bringForward(void* handle) { zwlr_foreign_toplevel_handle_v1_activate(toplevel(handle), seat_); }

}  // namespace ambrel
