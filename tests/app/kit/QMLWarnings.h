#pragma once
// Every warning that QML or the code below it prints while this lives is kept; a test that leaves any fails. Rooms call
// `expectNone` before they go: when models are destroyed before the QML that shows them, it complains.

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
  // Fails the test when something came.
  void expectNone();

 private:
  static void handle(QtMsgType type, const QMessageLogContext& context, const QString& text);
};

}  // namespace ambrel
