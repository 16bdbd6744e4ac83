#include "app/base/Background.h"

#include <QMetaObject>
#include <QPointer>
#include <QThreadPool>

namespace ambrel {

Background makeBackground(QObject& context) {
  auto* pool = new QThreadPool(&context);
  pool->setMaxThreadCount(2);
  pool->setThreadPriority(QThread::LowPriority);
  return [pool, context = QPointer(&context)](std::function<void()> work, std::function<void()> done) {
    pool->start([context, work = std::move(work), done = std::move(done)] {
      work();
      // The pool waits for its threads before the context goes, so the pointer is sound here.
      if (context) QMetaObject::invokeMethod(context.data(), done, Qt::QueuedConnection);
    });
  };
}

}  // namespace ambrel
