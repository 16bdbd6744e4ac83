#include "tests/app/kit/QMLWarnings.h"

#include <QTest>
#include <utility>

namespace ambrel {
namespace {

// The handler is a plain function, so what it collects has no better place.
QMutex mutex;
QStringList collected;
QtMessageHandler previous = nullptr;

}  // namespace

QMLWarnings::QMLWarnings() {
  take();
  previous = qInstallMessageHandler(handle);
}

QMLWarnings::~QMLWarnings() {
  qInstallMessageHandler(previous);
  expectNone();
}

QStringList QMLWarnings::take() {
  const QMutexLocker lock(&mutex);
  return std::exchange(collected, {});
}

void QMLWarnings::expectNone() {
  if (const QStringList left = take(); !left.isEmpty())
    QTest::qFail(qPrintable(QStringLiteral("Warned: ") + left.join(u'|')), __FILE__, __LINE__);
}

void QMLWarnings::handle(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  // What the offscreen platform cannot do is no fault of ours.
  const bool isOurs = !text.startsWith(QLatin1String("This plugin does not support")) &&
                      !text.contains(QLatin1String("No such signal QPlatformNativeInterface::"));
  if (isOurs && (type == QtWarningMsg || type == QtCriticalMsg)) {
    const QMutexLocker lock(&mutex);
    collected << text;
  }
  if (previous) previous(type, context, text);
}

}  // namespace ambrel
