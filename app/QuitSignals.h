#pragma once
// SIGTERM, SIGINT and SIGHUP end the program as its menu does, so that what is pending is written.

#include <QSocketNotifier>
#include <functional>

namespace ambrel {

// One in a process. The second of the same signal ends a program that does not get to its event loop.
class QuitSignals {
 public:
  // `quit` is called from the event loop.
  explicit QuitSignals(std::function<void()> quit);
  ~QuitSignals();
  QuitSignals(const QuitSignals&) = delete;
  QuitSignals& operator=(const QuitSignals&) = delete;

 private:
  QSocketNotifier notifier_;
};

}  // namespace ambrel
