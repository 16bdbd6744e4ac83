#include "platform/linux/CanberraSounds.h"

#include <canberra.h>
#include <chrono>

namespace ambrel {
namespace {

constexpr std::uint32_t loopId = 1, onceId = 2;
// Between two rings, and before the next try where nothing sounds.
constexpr std::chrono::milliseconds loopPause{700};

}  // namespace

CanberraSounds::CanberraSounds() : thread_([this] { run(); }) {}

CanberraSounds::~CanberraSounds() {
  give({Order::Kind::quit, {}});
  thread_.join();
}

void CanberraSounds::play(std::string_view name) { give({Order::Kind::play, std::string(name)}); }
void CanberraSounds::loop(std::string_view name) { give({Order::Kind::loop, std::string(name)}); }
void CanberraSounds::stop() { give({Order::Kind::stop, {}}); }

void CanberraSounds::give(Order order) {
  const std::scoped_lock lock(mutex_);
  orders_.push_back(std::move(order));
  changed_.notify_one();
}

void CanberraSounds::start(ca_context* context, const std::string& name, bool isLoop) {
  ca_proplist* properties = nullptr;
  if (ca_proplist_create(&properties) != CA_SUCCESS) return;
  ca_proplist_sets(properties, CA_PROP_EVENT_ID, name.c_str());
  // Alarms sound also where the desktop's event sounds are switched off.
  ca_proplist_sets(properties, CA_PROP_CANBERRA_ENABLE, "1");
  ca_proplist_sets(properties, CA_PROP_MEDIA_ROLE, isLoop ? "alarm" : "event");
  const auto ended = [](ca_context*, std::uint32_t, int, void* self) {
    auto& sounds = *static_cast<CanberraSounds*>(self);
    const std::scoped_lock lock(sounds.mutex_);
    sounds.loopEnded_ = true;
    sounds.changed_.notify_one();
  };
  const int result = isLoop ? ca_context_play_full(context, loopId, properties, ended, this)
                            : ca_context_play_full(context, onceId, properties, nullptr, nullptr);
  if (isLoop && result != CA_SUCCESS) {
    const std::scoped_lock lock(mutex_);
    loopEnded_ = true;
  }
  ca_proplist_destroy(properties);
}

void CanberraSounds::run() {
  ca_context* context = nullptr;
  std::string looped;
  for (;;) {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [&] { return !orders_.empty() || (loopEnded_ && !looped.empty()); });
    if (orders_.empty()) {
      loopEnded_ = false;
      if (changed_.wait_for(lock, loopPause, [&] { return !orders_.empty(); })) continue;
      lock.unlock();
      start(context, looped, true);
      continue;
    }
    const Order order = std::move(orders_.front());
    orders_.pop_front();
    if (order.kind == Order::Kind::loop) loopEnded_ = false;
    lock.unlock();
    if (order.kind != Order::Kind::quit && !context) {
      if (ca_context_create(&context) != CA_SUCCESS) context = nullptr;
      if (context) ca_context_change_props(context, CA_PROP_APPLICATION_NAME, "Tilebay", nullptr);
    }
    switch (order.kind) {
      case Order::Kind::play:
        if (context) start(context, order.name, false);
        break;
      case Order::Kind::loop:
        looped = context ? order.name : std::string();
        if (context) start(context, looped, true);
        break;
      case Order::Kind::stop:
        looped.clear();
        if (context) ca_context_cancel(context, loopId);
        break;
      case Order::Kind::quit:
        if (context) ca_context_destroy(context);
        return;
    }
  }
}

}  // namespace ambrel
