#pragma once
// libcanberra, on a thread of its own: a sound server that hangs must not hang the bar, nor its end.

#include <future>
#include <memory>

#include "platform/Sounds.h"

namespace ambrel {

class CanberraSounds : public Sounds {
 public:
  CanberraSounds();
  ~CanberraSounds() override;

  void play(std::string_view name) override;
  void loop(std::string_view name) override;
  void stop() override;

 private:
  struct Player;
  std::shared_ptr<Player> player_;  // the thread's too, which may outlive this
  std::future<void> ended_;
};

}  // namespace ambrel
