#pragma once

#include <functional>
#include <utility>
#include <vector>

#include "app/base/Background.h"

namespace ambrel {

// Work that waits until the test lets it go.
struct HeldWork {
  std::vector<std::pair<std::function<void()>, std::function<void()>>> waiting;
  Background background() {
    return [this](auto work, auto done) { waiting.emplace_back(std::move(work), std::move(done)); };
  }
  void letGo() {
    for (auto& [work, done] : std::exchange(waiting, {})) {
      work();
      done();
    }
  }
};

}  // namespace ambrel
