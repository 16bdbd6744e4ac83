#pragma once
// What end-to-end tests need of the virtual desktop: waiting for a condition, running clients, a folder of their own.

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>

#include "platform/linux/X11Connection.h"

namespace ambrel {

// Runs the event loop until the condition holds; false when it does not within the deadline.
inline bool waitFor(const std::function<bool()>& condition, int milliseconds = 8000) {
  QElapsedTimer elapsed;
  elapsed.start();
  while (!condition()) {
    if (elapsed.elapsed() > milliseconds) return false;
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 10);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QThread::msleep(1);
  }
  return true;
}

// A program that runs beside the test and ends with it.
class Client {
 public:
  Client(const QString& program, const QStringList& arguments) {
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_.start(program, arguments);
    process_.waitForStarted();
  }
  ~Client() { stop(); }
  int pid() const { return static_cast<int>(process_.processId()); }
  void stop() {
    if (process_.state() == QProcess::NotRunning) return;
    process_.terminate();
    if (!process_.waitForFinished(3000)) process_.kill();
    process_.waitForFinished(1000);
  }

 private:
  QProcess process_;
};

struct Outcome {
  int status = -1;
  std::string output;
};

// Runs a program to its end while our own events go on.
inline Outcome run(const QString& program, const QStringList& arguments) {
  QProcess process;
  process.setProcessChannelMode(QProcess::MergedChannels);
  process.start(program, arguments);
  if (!waitFor([&] { return process.state() == QProcess::NotRunning; })) process.kill();
  process.waitForFinished(1000);
  return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1, process.readAll().toStdString()};
}

inline void writeFile(const QString& path, const QByteArray& text, bool isProgram = false) {
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly)) qFatal("cannot write %s", qPrintable(path));
  file.write(text);
  file.close();
  if (isProgram) file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

inline std::unique_ptr<X11Connection> connectToDesktop() {
  return X11Connection::open(qgetenv("DISPLAY").toStdString());
}

class X11Test : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(connection_) << "no X server"; }

  std::unique_ptr<X11Connection> connection_ = connectToDesktop();
};

}  // namespace ambrel
