#pragma once
// The writing of a document, which is tried again while it fails. The user is told once.

#include <QObject>
#include <QString>
#include <QTimer>
#include <exception>
#include <functional>
#include <string>

namespace ambrel {

class PatientWrite : public QObject {
  Q_OBJECT

 public:
  // After a write that failed.
  static constexpr std::chrono::seconds retryPause{10};

  // `title`: "The to-do list is not saved". `logged` comes before the reason in the log. `write` throws when it fails.
  PatientWrite(QString title, std::string logged, std::function<void()> write,
               std::chrono::milliseconds pause = retryPause);

  // Says whether it is written.
  bool now();
  // A write failed that somebody else has tried.
  void failed(const std::exception& error);
  // Tries once more if the last write failed. For the destructor of the owner, when `write` can still be called.
  void end();

  // Tells the user of something else.
  void tell(const QString& title, const QString& detail);

  // Why the last write failed; empty when all is written.
  const QString& problem() const { return problem_; }

 Q_SIGNALS:
  void problemChanged();
  // For the user, and never before the event loop runs: the first problem may come before there is a bar to tell it.
  void problemFound(const QString& title, const QString& detail);

 private:
  void setProblem(const QString& problem);

  const QString title_;
  const std::string logged_;
  const std::function<void()> write_;
  QString problem_;
  QTimer pause_;
};

}  // namespace ambrel
