#include "app/base/Background.h"

#include <QMetaObject>
#include <QPointer>
#include <QThreadPool>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <thread>
#include <utility>

namespace ambrel {
namespace {

struct Queue {
  std::mutex mutex;
  std::condition_variable changed;
  std::deque<std::pair<std::function<void()>, std::function<void()>>> jobs;
  QObject* context = nullptr;  // null once it is destroyed
  bool isRunning = false;

  void run() {
    std::unique_lock lock(mutex);
    for (;;) {
      changed.wait(lock, [this] { return context == nullptr || !jobs.empty(); });
      if (context == nullptr) return;
      auto [work, done] = std::move(jobs.front());
      jobs.pop_front();
      lock.unlock();
      work();
      lock.lock();
      if (context) QMetaObject::invokeMethod(context, std::move(done), Qt::QueuedConnection);
    }
  }
};

}  // namespace

Background makeBackground(QObject& context) {
  auto* pool = new QThreadPool(&context);
  pool->setMaxThreadCount(2);
  pool->setThreadPriority(QThread::LowPriority);
  return [pool, context = QPointer(&context)](std::function<void()> work, std::function<void()> done) {
    pool->start([context, work = std::move(work), done = std::move(done)] {
      work();
      // The pool waits for its threads before the context is destroyed, so the pointer is valid here.
      if (context) QMetaObject::invokeMethod(context.data(), done, Qt::QueuedConnection);
    });
  };
}

Background makeDetachedBackground(QObject& context) {
  auto queue = std::make_shared<Queue>();
  queue->context = &context;
  QObject::connect(&context, &QObject::destroyed, [queue] {
    const std::scoped_lock lock(queue->mutex);
    queue->context = nullptr;
    queue->changed.notify_all();
  });
  return [queue](std::function<void()> work, std::function<void()> done) {
    const std::scoped_lock lock(queue->mutex);
    queue->jobs.emplace_back(std::move(work), std::move(done));
    queue->changed.notify_all();
    if (std::exchange(queue->isRunning, true)) return;
    std::thread([queue] { queue->run(); }).detach();
  };
}

}  // namespace ambrel
