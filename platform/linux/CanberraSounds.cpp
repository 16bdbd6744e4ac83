#include "platform/linux/CanberraSounds.h"

#include <canberra.h>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <string>
#include <thread>

namespace ambrel {
namespace {

constexpr std::uint32_t loopId = 1, onceId = 2;
// Between two rings, and before the next try where nothing sounds.
constexpr std::chrono::milliseconds loopPause{700};
// For a sound server that answers. One that hangs holds a call for half a minute or longer.
constexpr std::chrono::milliseconds endPatience{500};

}  // namespace

struct CanberraSounds::Player {
  struct Order {
    enum class Kind { play, loop, stop, quit } kind;
    std::string name;
  };
  void give(Order order);
  void run();
  void start(ca_context* context, const std::string& name, bool isLoop);

  std::mutex mutex;
  std::condition_variable changed;
  std::deque<Order> orders;
  bool loopEnded = false;  // the looped sound has come to its end
};

CanberraSounds::CanberraSounds() : player_(std::make_shared<Player>()) {
  std::promise<void> ended;
  ended_ = ended.get_future();
  std::thread([player = player_, ended = std::move(ended)]() mutable {
    player->run();
    ended.set_value();
  }).detach();
}

CanberraSounds::~CanberraSounds() {
  player_->give({Player::Order::Kind::quit, {}});
  ended_.wait_for(endPatience);
}

void CanberraSounds::play(std::string_view name) { player_->give({Player::Order::Kind::play, std::string(name)}); }
void CanberraSounds::loop(std::string_view name) { player_->give({Player::Order::Kind::loop, std::string(name)}); }
void CanberraSounds::stop() { player_->give({Player::Order::Kind::stop, {}}); }

void CanberraSounds::Player::give(Order order) {
  const std::scoped_lock lock(mutex);
  orders.push_back(std::move(order));
  changed.notify_one();
}

void CanberraSounds::Player::start(ca_context* context, const std::string& name, bool isLoop) {
  ca_proplist* properties = nullptr;
  if (ca_proplist_create(&properties) != CA_SUCCESS) return;
  ca_proplist_sets(properties, CA_PROP_EVENT_ID, name.c_str());
  // Alarms sound also where the desktop's event sounds are switched off.
  ca_proplist_sets(properties, CA_PROP_CANBERRA_ENABLE, "1");
  ca_proplist_sets(properties, CA_PROP_MEDIA_ROLE, isLoop ? "alarm" : "event");
  const auto ended = [](ca_context*, std::uint32_t, int, void* self) {
    auto& player = *static_cast<Player*>(self);
    const std::scoped_lock lock(player.mutex);
    player.loopEnded = true;
    player.changed.notify_one();
  };
  const int result = isLoop ? ca_context_play_full(context, loopId, properties, ended, this)
                            : ca_context_play_full(context, onceId, properties, nullptr, nullptr);
  if (isLoop && result != CA_SUCCESS) {
    const std::scoped_lock lock(mutex);
    loopEnded = true;
  }
  ca_proplist_destroy(properties);
}

void CanberraSounds::Player::run() {
  ca_context* context = nullptr;
  std::string looped;
  for (;;) {
    std::unique_lock lock(mutex);
    changed.wait(lock, [&] { return !orders.empty() || (loopEnded && !looped.empty()); });
    if (orders.empty()) {
      loopEnded = false;
      if (changed.wait_for(lock, loopPause, [&] { return !orders.empty(); })) continue;
      lock.unlock();
      start(context, looped, true);
      continue;
    }
    const Order order = std::move(orders.front());
    orders.pop_front();
    if (order.kind == Order::Kind::loop) loopEnded = false;
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
