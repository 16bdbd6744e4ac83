#pragma once
// By wlr-foreign-toplevel-management, which does not tell whose process a window is.

#include "platform/wayland/WindowList.h"

struct wl_seat;
struct zwlr_foreign_toplevel_handle_v1;
struct zwlr_foreign_toplevel_manager_v1;

namespace ambrel {

class ToplevelList : public WindowList {
 public:
  // Null when the compositor does not have the protocol.
  static std::unique_ptr<WindowList> bind(WaylandConnection& connection);
  ~ToplevelList() override;

 private:
  ToplevelList(zwlr_foreign_toplevel_manager_v1* manager, wl_seat* seat);
  void take(zwlr_foreign_toplevel_handle_v1* handle);
  void bringForward(void* handle) override;

  zwlr_foreign_toplevel_manager_v1* manager_;
  wl_seat* seat_;
};

}  // namespace ambrel
