#pragma once
// libcanberra, on a thread of its own: a sound server that hangs must not hang the bar.

#include <condition_variable>
#include <deque>
#include <mutex>
#include <string>
#include <thread>

#include "platform/Sounds.h"

struct ca_context;

namespace ambrel {

class CanberraSounds : public Sounds {
 public:
  CanberraSounds();
  ~CanberraSounds() override;

  void play(std::string_view name) override;
  void loop(std::string_view name) override;
  void stop() override;

 private:
  struct Order {
    enum class Kind { play, loop, stop, quit } kind;
    std::string name;
  };
  void give(Order order);
  void run();
  void start(ca_context* context, const std::string& name, bool isLoop);

  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<Order> orders_;
  bool loopEnded_ = false;  // the looped sound has come to its end
  std::thread thread_;
};

}  // namespace ambrel
