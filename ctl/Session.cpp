#include "ctl/Session.h"

#include <cstdlib>
#include <cstring>
#include <memory>
#include <poll.h>
#include <systemd/sd-bus.h>
#include <wayland-client.h>
#include <xcb/xcb.h>

namespace ambrel {
namespace {

struct Freed {
  void operator()(void* memory) const { std::free(memory); }
};
template <typename T>
using Reply = std::unique_ptr<T, Freed>;

class Server {
 public:
  explicit Server(const std::string& display) : connection_(xcb_connect(display.c_str(), &screen_)) {}
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;
  ~Server() { xcb_disconnect(connection_); }

  bool answers() const { return xcb_connection_has_error(connection_) == 0; }
  int screen() const { return screen_; }

  xcb_window_t root() const {
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection_));
    for (int i = 0; i < screen_ && screens.rem > 1; ++i) xcb_screen_next(&screens);
    return screens.data->root;
  }

  bool isOwned(const std::string& selection) const {
    const Reply<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(connection_, xcb_get_selection_owner(connection_, atom(selection)), nullptr));
    return reply && reply->owner != XCB_WINDOW_NONE;
  }

  // Its bytes; empty when it is not there.
  std::string property(xcb_window_t window, const std::string& name) const {
    constexpr std::uint32_t most = 64;  // in units of four bytes
    const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        connection_, xcb_get_property(connection_, 0, window, atom(name), XCB_ATOM_ANY, 0, most), nullptr));
    if (!reply) return {};
    return {static_cast<const char*>(xcb_get_property_value(reply.get())),
            static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))};
  }

 private:
  xcb_atom_t atom(const std::string& name) const {
    const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        connection_, xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(name.size()), name.data()), nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
  }

  int screen_ = 0;
  xcb_connection_t* connection_;
};

// The window manager shows a window of its own, which bears its name.
std::string windowManagerOf(const Server& server) {
  const std::string id = server.property(server.root(), "_NET_SUPPORTING_WM_CHECK");
  if (id.size() < sizeof(xcb_window_t)) return {};
  xcb_window_t window = 0;
  std::memcpy(&window, id.data(), sizeof window);
  // One that has ended may leave the property behind.
  if (server.property(window, "_NET_SUPPORTING_WM_CHECK") != id) return {};
  const std::string name = server.property(window, "_NET_WM_NAME");
  return name.empty() ? "one without a name" : name;
}

struct ClosedBus {
  void operator()(sd_bus* bus) const { sd_bus_flush_close_unref(bus); }
};

void take(char** names, std::set<std::string>& into) {
  for (char** name = names; name && *name; ++name) {
    if (**name != ':') into.insert(*name);
    std::free(*name);
  }
  std::free(names);
}

}  // namespace

std::optional<DoctorFacts::X11> askWindowSystem(const std::string& display) {
  if (display.empty()) return std::nullopt;
  const Server server(display);
  if (!server.answers()) return std::nullopt;
  const std::string screen = std::to_string(server.screen());
  return DoctorFacts::X11{.windowManager = windowManagerOf(server),
                          .hasCompositor = server.isOwned("_NET_WM_CM_S" + screen),
                          .hasTray = server.isOwned("_NET_SYSTEM_TRAY_S" + screen)};
}

std::optional<std::set<std::string>> askCompositor(const std::string& display) {
  if (display.empty()) return std::nullopt;
  struct Disconnected {
    void operator()(wl_display* connected) const { wl_display_disconnect(connected); }
  };
  const std::unique_ptr<wl_display, Disconnected> connected(wl_display_connect(display.c_str()));
  if (!connected) return std::nullopt;
  struct Answer {
    std::set<std::string> interfaces;
    bool isWhole = false;
  } answer;
  wl_registry* const registry = wl_display_get_registry(connected.get());
  static constexpr wl_registry_listener listener{
      .global = [](void* data, wl_registry*, std::uint32_t, const char* interface,
                   std::uint32_t) { static_cast<Answer*>(data)->interfaces.emplace(interface); },
      .global_remove = [](void*, wl_registry*, std::uint32_t) {},
  };
  wl_registry_add_listener(registry, &listener, &answer);
  wl_callback* const end = wl_display_sync(connected.get());
  static constexpr wl_callback_listener atEnd{
      .done = [](void* data, wl_callback*, std::uint32_t) { static_cast<Answer*>(data)->isWhole = true; }};
  wl_callback_add_listener(end, &atEnd, &answer);
  // One that hangs is none.
  constexpr int patience = 1000;  // milliseconds
  while (!answer.isWhole) {
    wl_display_flush(connected.get());
    pollfd file{wl_display_get_fd(connected.get()), POLLIN, 0};
    if (poll(&file, 1, patience) <= 0 || wl_display_dispatch(connected.get()) < 0) break;
  }
  wl_callback_destroy(end);
  wl_registry_destroy(registry);
  return answer.isWhole ? std::optional(std::move(answer.interfaces)) : std::nullopt;
}

std::optional<DoctorFacts::Bus> askBus(BusKind kind) {
  constexpr std::uint64_t longest = 3'000'000;  // microseconds
  sd_bus* opened = nullptr;
  if ((kind == BusKind::session ? sd_bus_open_user(&opened) : sd_bus_open_system(&opened)) < 0) return std::nullopt;
  const std::unique_ptr<sd_bus, ClosedBus> bus(opened);
  sd_bus_set_method_call_timeout(bus.get(), longest);
  char **owned = nullptr, **startable = nullptr;
  if (sd_bus_list_names(bus.get(), &owned, &startable) < 0) return std::nullopt;
  DoctorFacts::Bus names;
  take(owned, names.owned);
  take(startable, names.startable);
  return names;
}

}  // namespace ambrel
