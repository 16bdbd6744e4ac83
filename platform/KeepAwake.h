#pragma once
// Keeps the computer from falling asleep, and its screens from going dark, while it is not used.

#include <functional>

namespace ambrel {

// Main thread. No call waits. What is held ends with the program.
class KeepAwake {
 public:
  virtual ~KeepAwake() = default;

  // `done` is told, later and on the main thread, whether it is held now. Taking it twice is as good as once.
  virtual void take(std::function<void(bool isHeld)> done) = 0;
  virtual void release() = 0;
  virtual bool isHeld() const = 0;
};

}  // namespace ambrel
