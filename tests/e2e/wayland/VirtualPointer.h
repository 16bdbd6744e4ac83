#pragma once
// A pointer that the test moves (wlr-virtual-pointer).

#include "wlr-virtual-pointer-unstable-v1-client-protocol.h"

#include <QPoint>
#include <QSize>

#include "platform/wayland/WaylandConnection.h"

namespace ambrel {

class VirtualPointer {
 public:
  VirtualPointer() {
    auto* const manager =
        static_cast<zwlr_virtual_pointer_manager_v1*>(connection_->bind(zwlr_virtual_pointer_manager_v1_interface, 1));
    pointer_ = zwlr_virtual_pointer_manager_v1_create_virtual_pointer(manager, nullptr);
    zwlr_virtual_pointer_manager_v1_destroy(manager);
  }
  ~VirtualPointer() { zwlr_virtual_pointer_v1_destroy(pointer_); }
  VirtualPointer(const VirtualPointer&) = delete;

  // `desktop`: the size of all screens together.
  void moveTo(QPoint at, QSize desktop) {
    zwlr_virtual_pointer_v1_motion_absolute(pointer_, ++time_, unsigned(at.x()), unsigned(at.y()),
                                            unsigned(desktop.width()), unsigned(desktop.height()));
    send();
  }
  void click() {
    constexpr std::uint32_t leftButton = 0x110;
    for (const auto state : {WL_POINTER_BUTTON_STATE_PRESSED, WL_POINTER_BUTTON_STATE_RELEASED}) {
      zwlr_virtual_pointer_v1_button(pointer_, ++time_, leftButton, state);
      send();
    }
  }

 private:
  void send() {
    zwlr_virtual_pointer_v1_frame(pointer_);
    bool isDone = false;
    connection_->roundTrip([&isDone] { isDone = true; });
    connection_->turnUntil([&isDone] { return isDone; }, soon());
  }
  static SteadyTime soon() { return std::chrono::steady_clock::now() + std::chrono::seconds(5); }

  std::unique_ptr<WaylandConnection> connection_ =
      WaylandConnection::open(qgetenv("WAYLAND_DISPLAY").toStdString(), soon());
  zwlr_virtual_pointer_v1* pointer_ = nullptr;
  std::uint32_t time_ = 0;
};

}  // namespace ambrel
