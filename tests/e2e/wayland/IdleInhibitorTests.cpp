// Whether a compositor counts the user as gone.

#include "ext-idle-notify-v1-client-protocol.h"

#include <gtest/gtest.h>

#include "platform/wayland/IdleInhibitor.h"
#include "platform/wayland/WaylandConnection.h"
#include "tests/e2e/Desktop.h"

namespace ambrel {
namespace {

const std::string compositor = qgetenv("WAYLAND_DISPLAY").toStdString();

// Hears of a user who does nothing for a moment.
class Watcher {
 public:
  Watcher() {
    auto* const notifier = static_cast<ext_idle_notifier_v1*>(connection_->bind(ext_idle_notifier_v1_interface, 1));
    auto* const seat = static_cast<wl_seat*>(connection_->bind(wl_seat_interface, 1));
    auto* const notification = ext_idle_notifier_v1_get_idle_notification(notifier, 100, seat);
    static constexpr ext_idle_notification_v1_listener listener{
        .idled = [](void* self, auto*) { static_cast<Watcher*>(self)->isGone_ = true; },
        .resumed = [](void* self, auto*) { static_cast<Watcher*>(self)->isGone_ = false; },
    };
    ext_idle_notification_v1_add_listener(notification, &listener, this);
  }
  bool sees(bool isGone, std::chrono::milliseconds patience) {
    return connection_->turnUntil([&] { return isGone_ == isGone; }, std::chrono::steady_clock::now() + patience);
  }

 private:
  std::unique_ptr<WaylandConnection> connection_ =
      WaylandConnection::open(compositor, std::chrono::steady_clock::now() + std::chrono::seconds(5));
  bool isGone_ = false;
};

TEST(IdleInhibitorOnWayland, KeepsTheUserThere) {
  using namespace std::chrono_literals;
  Watcher watcher;
  ASSERT_TRUE(watcher.sees(true, 5s));
  IdleInhibitor inhibitor(compositor);
  ASSERT_TRUE(inhibitor.hold(true));
  EXPECT_TRUE(watcher.sees(false, 5s));
  EXPECT_FALSE(watcher.sees(true, 500ms)) << "five times as long as the compositor waits";
  inhibitor.hold(false);
  EXPECT_TRUE(watcher.sees(true, 5s));
  EXPECT_FALSE(IdleInhibitor("no such compositor").hold(true));
}

}  // namespace
}  // namespace ambrel
