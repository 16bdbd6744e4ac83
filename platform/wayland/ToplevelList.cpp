#include "platform/wayland/ToplevelList.h"

#include "wlr-foreign-toplevel-management-unstable-v1-client-protocol.h"

#include <algorithm>
#include <span>

namespace ambrel {

std::unique_ptr<ToplevelList> ToplevelList::open(WaylandConnection& connection, SteadyTime until) {
  auto* const seat = static_cast<wl_seat*>(connection.bind(wl_seat_interface, 1));
  if (seat == nullptr) return nullptr;
  auto* const manager =
      static_cast<zwlr_foreign_toplevel_manager_v1*>(connection.bind(zwlr_foreign_toplevel_manager_v1_interface, 1));
  if (manager == nullptr) {
    wl_seat_destroy(seat);
    return nullptr;
  }
  std::unique_ptr<ToplevelList> made(new ToplevelList(manager, seat));
  // What windows there are is told at once.
  bool isTold = false;
  connection.roundTrip([&isTold] { isTold = true; });
  return connection.turnUntil([&isTold] { return isTold; }, until) ? std::move(made) : nullptr;
}

ToplevelList::ToplevelList(zwlr_foreign_toplevel_manager_v1* manager, wl_seat* seat) : manager_(manager), seat_(seat) {
  static constexpr zwlr_foreign_toplevel_manager_v1_listener listener{
      .toplevel = [](void* self, auto*, auto* handle) { static_cast<ToplevelList*>(self)->add(handle); },
      .finished = [](void*, auto*) {},
  };
  zwlr_foreign_toplevel_manager_v1_add_listener(manager_, &listener, this);
}

ToplevelList::~ToplevelList() {
  for (const Toplevel& one : toplevels_) zwlr_foreign_toplevel_handle_v1_destroy(one.handle);
  zwlr_foreign_toplevel_manager_v1_destroy(manager_);
  wl_seat_destroy(seat_);
}

void ToplevelList::add(zwlr_foreign_toplevel_handle_v1* handle) {
  Toplevel& made = toplevels_.emplace_front(Toplevel{this, handle, ++lastID_});
  static constexpr auto of = [](void* data) -> Toplevel& { return *static_cast<Toplevel*>(data); };
  static constexpr zwlr_foreign_toplevel_handle_v1_listener listener{
      .title = [](void*, auto*, const char*) {},
      .app_id = [](void* data, auto*, const char* appID) { of(data).appID = appID; },
      .output_enter = [](void*, auto*, wl_output*) {},
      .output_leave = [](void*, auto*, wl_output*) {},
      .state =
          [](void* data, auto*, wl_array* states) {
            const std::span all(static_cast<const std::uint32_t*>(states->data), states->size / sizeof(std::uint32_t));
            of(data).isActive = std::ranges::find(all, ZWLR_FOREIGN_TOPLEVEL_HANDLE_V1_STATE_ACTIVATED) != all.end();
          },
      .done = [](void* data, auto*) { of(data).list->settled(of(data)); },
      .closed = [](void* data, auto*) { of(data).list->remove(of(data)); },
      .parent = [](void*, auto*, auto*) {},
  };
  zwlr_foreign_toplevel_handle_v1_add_listener(handle, &listener, &made);
}

void ToplevelList::settled(Toplevel& toplevel) {
  if (toplevel.isActive && active_ != toplevel.id) {
    const auto place = std::ranges::find(toplevels_, toplevel.id, &Toplevel::id);
    toplevels_.splice(toplevels_.end(), toplevels_, place);
  }
  lookForActive();
}

void ToplevelList::remove(Toplevel& toplevel) {
  zwlr_foreign_toplevel_handle_v1_destroy(toplevel.handle);
  toplevels_.remove_if([&](const Toplevel& one) { return &one == &toplevel; });
  lookForActive();
}

// The one that has it last, while two still say that they are.
void ToplevelList::lookForActive() {
  std::optional<std::uint32_t> found;
  for (const Toplevel& one : toplevels_)
    if (one.isActive) found = one.id;
  if (std::exchange(active_, found) != found && activeChanged) activeChanged();
}

std::vector<WindowRecord> ToplevelList::windows() const {
  std::vector<WindowRecord> list;
  for (const Toplevel& one : toplevels_)
    list.push_back({.id = one.id, .pid = {}, .instance = one.appID, .className = one.appID});
  return list;
}

std::optional<std::uint32_t> ToplevelList::active() const { return active_; }

void ToplevelList::activate(std::uint32_t id) {
  const auto found = std::ranges::find(toplevels_, id, &Toplevel::id);
  if (found != toplevels_.end()) zwlr_foreign_toplevel_handle_v1_activate(found->handle, seat_);
}

}  // namespace ambrel
