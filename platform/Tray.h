#pragma once
// Where programs show their icons.

#include <functional>

namespace ambrel {

class Tray {
 public:
  virtual ~Tray() = default;

  // `handler` is called once, on the main thread, when a tray is there: now or later. An empty one takes the wish back.
  virtual void whenThere(std::function<void()> handler) = 0;
};

}  // namespace ambrel
