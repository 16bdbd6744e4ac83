#pragma once
// Work that must not hold up the main thread.

#include <functional>

class QObject;

namespace ambrel {

// Runs `work` off the main thread, and then `done` on it. Tests pass one that waits until they let it go.
using Background = std::function<void(std::function<void()> work, std::function<void()> done)>;

// A small pool of low-priority threads that belongs to `context`; nothing is `done` after `context` is destroyed.
Background makeBackground(QObject& context);

// One thread, which the end of the program does not wait for: for work that may hang, as on a network disk that does
// not answer. It holds up only what comes after it here.
Background makeDetachedBackground(QObject& context);

}  // namespace ambrel
