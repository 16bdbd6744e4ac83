#pragma once
// Reading something again and again off the main thread: once at a time, with a pause after each, and once more where
// it was asked for meanwhile.

#include <QTimer>
#include <memory>
#include <optional>
#include <utility>

#include "app/base/Background.h"

namespace ambrel {

class PacedWork {
 public:
  struct Job {
    std::function<void()> work, done;
  };
  // A job that reads something off the main thread and takes it on it.
  template <typename Read, typename Take>
  static Job job(Read read, Take take) {
    auto answer = std::make_shared<std::optional<std::invoke_result_t<Read>>>();
    return {[answer, read = std::move(read)] { answer->emplace(read()); },
            [answer, take = std::move(take)] { take(std::move(**answer)); }};
  }

  // next: what is to be done when its time has come, asked for on the main thread; nothing where it has no work.
  PacedWork(Background background, std::chrono::milliseconds pause, std::function<Job()> next)
      : background_(std::move(background)), next_(std::move(next)) {
    timer_.setSingleShot(true);
    timer_.setInterval(pause);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] {
      if (std::exchange(isWanted_, false)) ask();
    });
  }

  void ask() {
    if (isRunning_ || timer_.isActive()) {
      isWanted_ = true;
      return;
    }
    Job job = next_();
    if (!job.work) return;
    isRunning_ = true;
    background_(std::move(job.work), [this, generation = generation_, done = std::move(job.done)] {
      if (generation != generation_) return;
      isRunning_ = false;
      timer_.start();
      done();
    });
  }
  // What is under way is taken by nobody, and the next job need not wait for it.
  void forget() {
    ++generation_;
    isRunning_ = isWanted_ = false;
    timer_.stop();
  }
  void setPause(std::chrono::milliseconds pause) { timer_.setInterval(pause); }

 private:
  Background background_;
  std::function<Job()> next_;
  QTimer timer_;
  bool isRunning_ = false, isWanted_ = false;
  int generation_ = 0;
};

}  // namespace ambrel
