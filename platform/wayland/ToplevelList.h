#pragma once
// The windows of all programs, as a compositor with wlr-foreign-toplevel-management lists them. It does not tell whose
// process a window is.

#include <functional>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/workspace/Applications.h"
#include "platform/wayland/WaylandConnection.h"

struct wl_seat;
struct zwlr_foreign_toplevel_handle_v1;
struct zwlr_foreign_toplevel_manager_v1;

namespace ambrel {

class ToplevelList {
 public:
  // Null when the compositor does not have the protocol, or does not answer in time. The connection has to live longer.
  static std::unique_ptr<ToplevelList> open(WaylandConnection& connection, SteadyTime until);
  ~ToplevelList();
  ToplevelList(const ToplevelList&) = delete;

  // Called when another window has the keyboard, or none.
  std::function<void()> activeChanged;

  // In the order in which they were last active, the most recent one at the end. The class is the application's id.
  std::vector<WindowRecord> windows() const;
  std::optional<std::uint32_t> active() const;
  void activate(std::uint32_t id);

 private:
  struct Toplevel {
    ToplevelList* list;
    zwlr_foreign_toplevel_handle_v1* handle;
    std::uint32_t id;
    std::string appID = {};
    bool isActive = false;
  };

  ToplevelList(zwlr_foreign_toplevel_manager_v1* manager, wl_seat* seat);
  void add(zwlr_foreign_toplevel_handle_v1* handle);
  void settled(Toplevel& toplevel);
  void remove(Toplevel& toplevel);
  void lookForActive();

  zwlr_foreign_toplevel_manager_v1* manager_;
  wl_seat* seat_;
  std::list<Toplevel> toplevels_;
  std::uint32_t lastID_ = 0;
  std::optional<std::uint32_t> active_;
};

}  // namespace ambrel
