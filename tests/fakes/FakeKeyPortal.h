#pragma once
// A desktop's portal for keys, as xdg-desktop-portal answers. It binds as `response` says and tells the keys of
// `bound`.

#include <QDBusMetaType>
#include <algorithm>
#include <set>

#include "platform/linux/PortalKeys.h"
#include "tests/fakes/PrivateBus.h"

namespace ambrel {

class FakeKeyPortal : public FakeService {
 public:
  explicit FakeKeyPortal(const QDBusConnection& bus)
      : FakeService(bus, QStringLiteral("org.freedesktop.portal.Desktop")) {
    qDBusRegisterMetaType<PortalShortcut>();
    qDBusRegisterMetaType<QList<PortalShortcut>>();
    answer = [this](const QDBusMessage& message) { return answerTo(message); };
  }

  void press(const QString& session, const QString& id) {
    send("/org/freedesktop/portal/desktop", "org.freedesktop.portal.GlobalShortcuts", "Activated",
         {QVariant::fromValue(QDBusObjectPath(session)), id, qulonglong(7), QVariantMap()});
  }
  int asked(const QString& member) const { return static_cast<int>(std::ranges::count(members(), member)); }

  bool hasKeys = true;
  uint response = 0, version = 2;
  QList<PortalShortcut> bound, offered;
  QString session;

 private:
  QDBusMessage answerTo(const QDBusMessage& message) {
    if (!hasKeys) return message.createErrorReply(QDBusError::UnknownMethod, "no such thing");
    if (message.member() == "Register" || message.member() == "ConfigureShortcuts") return message.createReply();
    if (message.member() == "Get") return message.createReply(QVariant::fromValue(QDBusVariant(version)));
    if (message.member() == "Close") {
      sessions_.erase(message.path());
      return message.createReply();
    }
    if (message.interface() != "org.freedesktop.portal.GlobalShortcuts")
      return message.createErrorReply(QDBusError::UnknownInterface, "not played");
    QVariantMap results{{"shortcuts", QVariant::fromValue(bound)}};
    uint code = 0;
    if (message.member() == "CreateSession") {
      const QVariantMap options = qdbus_cast<QVariantMap>(message.arguments().last());
      session = QStringLiteral("/org/freedesktop/portal/desktop/session/%1/%2")
                    .arg(message.service().mid(1).replace('.', '_'), options["session_handle_token"].toString());
      results = {{"session_handle", session}};
      if (!sessions_.insert(session).second) code = 2;
    } else if (message.member() == "BindShortcuts") {
      offered = qdbus_cast<QList<PortalShortcut>>(message.arguments().at(1));
      code = response;
      results = {};
    }
    return promised(*this, message, code, results);
  }

  std::set<QString> sessions_;  // which outlive the portal: the desktop has them
};

}  // namespace ambrel
