#pragma once
// Every warning that QML or the code below it prints while this lives is kept; a test that leaves any fails.

#include <QMutex>
#include <QStringList>

namespace ambrel {

class QMLWarnings {
 public:
  QMLWarnings();
  ~QMLWarnings();
  QMLWarnings(const QMLWarnings&) = delete;
  QMLWarnings& operator=(const QMLWarnings&) = delete;

  // What came since the last call.
  QStringList take();

 private:
  static void handle(QtMsgType type, const QMessageLogContext& context, const QString& text);
};

}  // namespace ambrel
