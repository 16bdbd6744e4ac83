#pragma once

#include <utility>

#include "platform/Tray.h"

namespace ambrel {

// There is none until the test calls `come`.
class FakeTray : public Tray {
 public:
  void whenThere(std::function<void()> handler) override { handler_ = std::move(handler); }
  void come() {
    if (const auto handler = std::exchange(handler_, nullptr)) handler();
  }

 private:
  std::function<void()> handler_;
};

}  // namespace ambrel
