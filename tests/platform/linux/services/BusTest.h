#pragma once

#include <gtest/gtest.h>
#include <memory>

#include "tests/fakes/PrivateBus.h"

namespace ambrel {

// On a bus of its own; skipped without dbus-daemon.
class BusTest : public testing::Test {
 protected:
  void SetUp() override {
    if (!bus_.isRunning()) GTEST_SKIP() << "no dbus-daemon";
    play();
  }
  // Puts on the bus what is there when the test begins.
  virtual void play() {}
  std::unique_ptr<FakeService> service(const char* name) {
    return std::make_unique<FakeService>(bus_.connection(), QString::fromLatin1(name));
  }

  PrivateBus bus_;
};

// The reply of a portal that asks the user: the path of a request, whose answer follows as a signal.
inline QDBusMessage promised(FakeService& portal, const QDBusMessage& message, uint response,
                             const QVariantMap& results) {
  const QString token = qdbus_cast<QVariantMap>(message.arguments().last())["handle_token"].toString();
  const QString request = QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2")
                              .arg(message.service().mid(1).replace('.', '_'), token);
  const auto answer = [&portal, request, response, results] {
    portal.send(request, "org.freedesktop.portal.Request", "Response", {response, results});
  };
  QMetaObject::invokeMethod(&portal, answer, Qt::QueuedConnection);
  return message.createReply(QVariant::fromValue(QDBusObjectPath(request)));
}

}  // namespace ambrel
