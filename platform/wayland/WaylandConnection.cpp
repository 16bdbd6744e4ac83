#include "platform/wayland/WaylandConnection.h"

#include <algorithm>
#include <cerrno>
#include <wayland-client-protocol.h>

namespace ambrel {

std::unique_ptr<WaylandConnection> WaylandConnection::open(const std::string& display, SteadyTime until) {
  wl_display* const connected = wl_display_connect(display.c_str());
  if (connected == nullptr) return nullptr;
  std::unique_ptr<WaylandConnection> made(new WaylandConnection(connected));
  made->registry_ = wl_display_get_registry(connected);
  static constexpr wl_registry_listener listener{
      .global =
          [](void* self, wl_registry*, std::uint32_t name, const char* interface, std::uint32_t version) {
            static_cast<WaylandConnection*>(self)->globals_.push_back({name, interface, version});
          },
      .global_remove =
          [](void* self, wl_registry*, std::uint32_t name) {
            std::erase_if(static_cast<WaylandConnection*>(self)->globals_,
                          [name](const Global& one) { return one.name == name; });
          },
  };
  wl_registry_add_listener(made->registry_, &listener, made.get());
  bool isListed = false;
  made->roundTrip([&isListed] { isListed = true; });
  return made->turnUntil([&isListed] { return isListed; }, until) ? std::move(made) : nullptr;
}

WaylandConnection::~WaylandConnection() {
  for (const RoundTrip& one : roundTrips_) wl_callback_destroy(one.callback);
  wl_registry_destroy(registry_);
  wl_display_disconnect(display_);
}

bool WaylandConnection::offers(std::string_view interface) const {
  return std::ranges::find(globals_, interface, &Global::interface) != globals_.end();
}

void* WaylandConnection::bind(const wl_interface& interface, std::uint32_t version) {
  const auto global = std::ranges::find(globals_, interface.name, &Global::interface);
  if (global == globals_.end()) return nullptr;
  return wl_registry_bind(registry_, global->name, &interface, std::min(version, global->version));
}

std::vector<void*> WaylandConnection::bindAll(const wl_interface& interface, std::uint32_t version) {
  std::vector<void*> bound;
  for (const Global& each : globals_)
    if (each.interface == interface.name)
      bound.push_back(wl_registry_bind(registry_, each.name, &interface, std::min(version, each.version)));
  return bound;
}

void WaylandConnection::roundTrip(std::function<void()> done) {
  RoundTrip& made = roundTrips_.emplace_back(RoundTrip{this, wl_display_sync(display_), std::move(done)});
  static constexpr wl_callback_listener listener{.done = [](void* data, wl_callback* callback, std::uint32_t) {
    auto& roundTrip = *static_cast<RoundTrip*>(data);
    const auto finish = std::move(roundTrip.done);
    roundTrip.connection->roundTrips_.remove_if([&](const RoundTrip& one) { return &one == data; });
    wl_callback_destroy(callback);
    finish();
  }};
  wl_callback_add_listener(made.callback, &listener, &made);
}

void WaylandConnection::turn(std::vector<pollfd>& files, std::optional<SteadyTime> until) {
  // What has come already may change whom there is to wait for.
  if (wl_display_prepare_read(display_) != 0) {
    wl_display_dispatch_pending(display_);
    return;
  }
  const bool isFull = wl_display_flush(display_) < 0 && errno == EAGAIN;
  files.push_back({descriptor(), static_cast<short>(isFull ? POLLIN | POLLOUT : POLLIN), 0});
  poll(files.data(), files.size(), millisecondsUntil(until));
  const bool hasCome = (files.back().revents & (POLLIN | POLLERR | POLLHUP)) != 0;
  files.pop_back();
  if (hasCome)
    wl_display_read_events(display_);
  else
    wl_display_cancel_read(display_);
  wl_display_dispatch_pending(display_);
}

bool WaylandConnection::turnUntil(const std::function<bool()>& isDone, SteadyTime until) {
  std::vector<pollfd> none;
  while (!isDone()) {
    if (isBroken() || std::chrono::steady_clock::now() >= until) return false;
    turn(none, until);
  }
  return true;
}

}  // namespace ambrel
