#pragma once
// A pointer and keys that the test moves: by wlr-virtual-pointer and wtype, or by the X server in whose window the
// compositor runs.

#include "wlr-virtual-pointer-unstable-v1-client-protocol.h"

#include <QPoint>
#include <QSize>

#include "platform/wayland/WaylandConnection.h"
#include "tests/e2e/Desktop.h"

namespace ambrel {

// The X server around the compositor; empty for none.
inline QString hostDisplay() { return qEnvironmentVariable("VIRTUAL_DESKTOP_HOST"); }
inline Outcome runOnHost(const QStringList& command) {
  return run("env", QStringList{"DISPLAY=" + hostDisplay()} + command);
}

class VirtualInput {
 public:
  VirtualInput() {
    if (!hostDisplay().isEmpty()) return;
    connection_ = WaylandConnection::open(qgetenv("WAYLAND_DISPLAY").toStdString(), soon());
    auto* const manager =
        static_cast<zwlr_virtual_pointer_manager_v1*>(connection_->bind(zwlr_virtual_pointer_manager_v1_interface, 1));
    pointer_ = zwlr_virtual_pointer_manager_v1_create_virtual_pointer(manager, nullptr);
    zwlr_virtual_pointer_manager_v1_destroy(manager);
    // Without one a compositor has no keyboard to give to anybody.
    keyboard_ = std::make_unique<Client>("wtype", QStringList{"-s", "600000"});
  }
  ~VirtualInput() {
    if (pointer_) zwlr_virtual_pointer_v1_destroy(pointer_);
  }
  VirtualInput(const VirtualInput&) = delete;

  // `desktop`: the size of all screens together.
  void moveTo(QPoint at, QSize desktop) {
    if (!pointer_) return host({"mousemove", QString::number(at.x()), QString::number(at.y())});
    zwlr_virtual_pointer_v1_motion_absolute(pointer_, ++time_, unsigned(at.x()), unsigned(at.y()),
                                            unsigned(desktop.width()), unsigned(desktop.height()));
    send();
  }
  void click() {
    if (!pointer_) return host({"click", "1"});
    constexpr std::uint32_t leftButton = 0x110;
    for (const auto state : {WL_POINTER_BUTTON_STATE_PRESSED, WL_POINTER_BUTTON_STATE_RELEASED}) {
      zwlr_virtual_pointer_v1_button(pointer_, ++time_, leftButton, state);
      send();
    }
  }
  // By its name: "Escape".
  void press(const char* key) {
    if (!pointer_) return host({"key", key});
    run("wtype", {"-k", key});
  }
  void type(const QString& text) {
    if (!pointer_) return host({"type", text});
    run("wtype", {text});
  }

 private:
  static void host(const QStringList& act) { runOnHost(QStringList{"xdotool"} + act); }
  void send() {
    zwlr_virtual_pointer_v1_frame(pointer_);
    bool isDone = false;
    connection_->roundTrip([&isDone] { isDone = true; });
    connection_->turnUntil([&isDone] { return isDone; }, soon());
  }
  static SteadyTime soon() { return std::chrono::steady_clock::now() + std::chrono::seconds(5); }

  std::unique_ptr<WaylandConnection> connection_;
  zwlr_virtual_pointer_v1* pointer_ = nullptr;
  std::unique_ptr<Client> keyboard_;
  std::uint32_t time_ = 0;
};

}  // namespace ambrel
