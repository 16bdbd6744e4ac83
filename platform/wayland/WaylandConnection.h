#pragma once
// A connection to a Wayland compositor of our own, used by one thread. The toolkit's is the main thread's.

#include <chrono>
#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <optional>
#include <poll.h>
#include <string>
#include <string_view>
#include <vector>
#include <wayland-client-core.h>

#include "platform/linux/pasteboard/PasteboardThread.h"

struct wl_callback;
struct wl_registry;

namespace ambrel {

class WaylandConnection {
 public:
  // `display` as in WAYLAND_DISPLAY. Null when there is no such compositor, or it does not answer in time.
  static std::unique_ptr<WaylandConnection> open(const std::string& display, SteadyTime until);
  ~WaylandConnection();
  WaylandConnection(const WaylandConnection&) = delete;

  bool isBroken() const { return wl_display_get_error(display_) != 0; }

  // Can be read when the compositor has sent something.
  int descriptor() const { return wl_display_get_fd(display_); }

  bool offers(std::string_view interface) const;
  // Binds the first object with this interface; null when the compositor has none. At most `version`.
  void* bind(const wl_interface& interface, std::uint32_t version);
  // All of them.
  std::vector<void*> bindAll(const wl_interface& interface, std::uint32_t version);

  // `done` is called when the compositor has carried out all that was asked before.
  void roundTrip(std::function<void()> done);

  // Sends what was asked, waits for the compositor and for `files` until the time, and calls the handlers of what the
  // compositor has sent. Then `files` tell what happened to them.
  void turn(std::vector<pollfd>& files, std::optional<SteadyTime> until);
  // Turns until the condition holds; false when it does not in time, or the connection breaks.
  bool turnUntil(const std::function<bool()>& isDone, SteadyTime until);

 private:
  struct Global {
    std::uint32_t name = 0;
    std::string interface;
    std::uint32_t version = 0;
  };
  struct RoundTrip {
    WaylandConnection* connection;
    wl_callback* callback;
    std::function<void()> done;
  };

  explicit WaylandConnection(wl_display* display) : display_(display) {}

  wl_display* display_;
  wl_registry* registry_ = nullptr;
  std::vector<Global> globals_;
  std::list<RoundTrip> roundTrips_;
};

}  // namespace ambrel
