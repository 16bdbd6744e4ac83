#pragma once
// A D-Bus of the test's own, and a service on it that the test plays.

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <functional>
#include <vector>

#include "platform/linux/services/ManagedObjects.h"

namespace ambrel {

class PrivateBus {
 public:
  PrivateBus() {
    QFile configuration(folder_.filePath(QStringLiteral("bus.conf")));
    if (!configuration.open(QIODevice::WriteOnly)) return;
    configuration.write(
        "<!DOCTYPE busconfig PUBLIC \"-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN\" "
        "\"http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd\"><busconfig><type>session</type>"
        "<listen>unix:path=" +
        folder_.filePath(QStringLiteral("bus")).toUtf8() +
        "</listen><auth>EXTERNAL</auth><policy context=\"default\"><allow send_destination=\"*\" eavesdrop=\"true\"/>"
        "<allow eavesdrop=\"true\"/><allow own=\"*\"/></policy></busconfig>\n");
    configuration.close();
    daemon_.start(QStringLiteral("dbus-daemon"), {QStringLiteral("--nofork"), QStringLiteral("--print-address"),
                                                  QStringLiteral("--config-file=") + configuration.fileName()});
    if (daemon_.waitForStarted() && daemon_.waitForReadyRead(10'000))
      address_ = QString::fromUtf8(daemon_.readLine()).trimmed();
  }
  ~PrivateBus() {
    for (const QString& name : names_) QDBusConnection::disconnectFromBus(name);
    daemon_.kill();
    daemon_.waitForFinished(3000);
  }

  // False where there is no dbus-daemon.
  bool isRunning() const { return !address_.isEmpty(); }
  QString address() const { return address_; }
  // Each call makes a connection of its own.
  QDBusConnection connection() {
    static int count = 0;
    names_ << QStringLiteral("private-%1").arg(++count);
    return QDBusConnection::connectToBus(address_, names_.last());
  }

 private:
  QTemporaryDir folder_;
  QProcess daemon_;
  QString address_;
  QStringList names_;
};

// Answers for all objects of a service: their interfaces and properties are `objects`, other methods go to `answer`.
// Everything that was asked is in `calls`.
class FakeService : public QDBusVirtualObject {
 public:
  struct Call {
    QString path, member;
    QVariantList arguments;
  };
  struct Refusal {
    QString name, text;
  };

  FakeService(const QDBusConnection& bus, const QString& name) : bus_(bus), name_(name) {
    registerManagedObjects();
    bus_.registerVirtualObject(QStringLiteral("/"), this, QDBusConnection::SubPath);
    start();
  }
  ~FakeService() override {
    stop();
    bus_.unregisterObject(QStringLiteral("/"), QDBusConnection::UnregisterTree);
  }
  void start() { bus_.registerService(name_); }
  void stop() { bus_.unregisterService(name_); }

  QString introspect(const QString&) const override { return {}; }
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
    calls.push_back({message.path(), message.member(), message.arguments()});
    connection.send(replyTo(message));
    return true;
  }

  // Changes a property and tells about it.
  void set(const QString& path, const QString& interface, const QString& property, const QVariant& value) {
    objects[QDBusObjectPath(path)][interface][property] = value;
    send(path, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("PropertiesChanged"),
         {interface, QVariantMap{{property, value}}, QStringList()});
  }
  void announce(const QString& member, const QVariantList& arguments) {
    send(QStringLiteral("/"), QStringLiteral("org.freedesktop.DBus.ObjectManager"), member, arguments);
  }
  void send(const QString& path, const QString& interface, const QString& member, const QVariantList& arguments) {
    QDBusMessage signal = QDBusMessage::createSignal(path, interface, member);
    signal.setArguments(arguments);
    bus_.send(signal);
  }
  std::vector<QString> members() const {
    std::vector<QString> list;
    for (const Call& call : calls) list.push_back(call.member);
    return list;
  }

  ManagedObjects objects;
  std::vector<Call> calls;
  std::function<QDBusMessage(const QDBusMessage&)> answer = [](const QDBusMessage& message) {
    return message.createErrorReply(QDBusError::UnknownMethod, QStringLiteral("not played"));
  };

 private:
  QDBusMessage replyTo(const QDBusMessage& message) {
    if (message.member() == QLatin1String("GetManagedObjects"))
      return message.createReply(QVariant::fromValue(objects));
    if (message.member() == QLatin1String("GetAll"))
      return message.createReply(
          QVariant(objects.value(QDBusObjectPath(message.path())).value(message.arguments().constFirst().toString())));
    return answer(message);
  }

  QDBusConnection bus_;
  QString name_;
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

// Lets events happen until the condition holds; false when it does not within the deadline.
inline bool happens(const std::function<bool()>& condition, int milliseconds = 10'000) {
  QElapsedTimer elapsed;
  elapsed.start();
  while (!condition()) {
    if (elapsed.elapsed() > milliseconds) return false;
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 20);
  }
  return true;
}

}  // namespace ambrel
