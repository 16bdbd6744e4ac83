#include "platform/linux/PortalKeys.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <algorithm>
#include <utility>

#include "core/base/Text.h"
#include "core/settings/KeyBinding.h"
#include "platform/linux/SessionBus.h"

namespace ambrel {

QDBusArgument& operator<<(QDBusArgument& argument, const PortalShortcut& shortcut) {
  argument.beginStructure();
  argument << shortcut.id << shortcut.properties;
  argument.endStructure();
  return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, PortalShortcut& shortcut) {
  argument.beginStructure();
  argument >> shortcut.id >> shortcut.properties;
  argument.endStructure();
  return argument;
}

namespace {

using Outcome = PortalRequest::Outcome;

const auto keysPortal = QString::fromLatin1(portalService);
const auto keysPath = QString::fromLatin1(portalPath);
const auto keysInterface = QStringLiteral("org.freedesktop.portal.GlobalShortcuts");
const auto sessionInterface = QStringLiteral("org.freedesktop.portal.Session");
// The base name of our desktop entry.
const auto applicationName = QStringLiteral("tilebay");

}  // namespace

PortalKeys::PortalKeys(const QDBusConnection& bus, std::string desktop)
    : bus_(bus), desktop_(std::move(desktop)), request_(bus) {
  qDBusRegisterMetaType<PortalShortcut>();
  qDBusRegisterMetaType<QList<PortalShortcut>>();
}

PortalKeys::~PortalKeys() {
  handler_ = nullptr;
  end();
}

void PortalKeys::ask(std::vector<OfferedKey> keys) {
  keys_ = std::move(keys);
  end();
  if (keys_.empty() || !bus_.isConnected()) return become(Answer::none);
  if (!watcher_) {
    watcher_ = new QDBusServiceWatcher(keysPortal, bus_, QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(watcher_, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString&, const QString&, const QString& owner) {
              // Its sessions ended with it.
              session_.clear();
              hasAskedForName_ = false;
              end();
              if (owner.isEmpty() || keys_.empty()) return become(Answer::none);
              begin();
            });
    bus_.connect(keysPortal, keysPath, keysInterface, QStringLiteral("Activated"), this,
                 SLOT(activated(QDBusObjectPath, QString, qulonglong, QVariantMap)));
    bus_.connect(keysPortal, keysPath, keysInterface, QStringLiteral("ShortcutsChanged"), this,
                 SLOT(shortcutsChanged(QDBusMessage)));
  }
  begin();
}

void PortalKeys::begin() {
  become(Answer::waiting);
  if (std::exchange(hasAskedForName_, true)) return readVersion();
  // Portals before 1.20 know of no names, and one that finds no desktop entry refuses ours. Some bind keys for programs
  // without a name all the same.
  call(QStringLiteral("org.freedesktop.host.portal.Registry"), QStringLiteral("Register"),
       {applicationName, QVariantMap()}, [this](const QDBusMessage& answer) {
         isNamed_ = answer.type() == QDBusMessage::ReplyMessage;
         readVersion();
       });
}

void PortalKeys::readVersion() {
  call(QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"),
       {keysInterface, QStringLiteral("version")}, [this](const QDBusMessage& answer) {
         if (answer.type() != QDBusMessage::ReplyMessage) return become(Answer::none);
         version_ = answer.arguments().value(0).value<QDBusVariant>().variant().toUInt();
         createSession();
       });
}

void PortalKeys::call(const QString& interface, const QString& method, const QVariantList& arguments,
                      std::function<void(const QDBusMessage&)> done) {
  auto message = QDBusMessage::createMethodCall(keysPortal, keysPath, interface, method);
  message.setArguments(arguments);
  auto* watcher = new QDBusPendingCallWatcher(bus_.asyncCall(message), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, turn = turn_, done = std::move(done)] {
    watcher->deleteLater();
    if (turn == turn_) done(watcher->reply());
  });
}

// Plasma does so before 6.4, when its portal had the first version.
bool PortalKeys::bindsOnce() const { return version_ < 2 && asciiLower(desktop_).find("kde") != std::string::npos; }

void PortalKeys::createSession() {
  // KDE takes the token for the program's name where it knows no other, and refuses one of a session that it still has,
  // as it does after the portal before it has gone.
  ++sessions_;
  const QString token = isNamed_ ? applicationName + QString::number(sessions_) : applicationName;
  request_.ask(keysInterface, QStringLiteral("CreateSession"), {}, {{QStringLiteral("session_handle_token"), token}},
               [this](Outcome outcome, const QVariantMap& results) {
                 session_ = results.value(QStringLiteral("session_handle")).toString();
                 if (outcome != Outcome::answered || session_.isEmpty()) return become(Answer::none);
                 bus_.connect(keysPortal, session_, sessionInterface, QStringLiteral("Closed"), this, SLOT(closed()));
                 if (bindsOnce()) return list(false);
                 bind();
               });
}

void PortalKeys::bind() {
  QList<PortalShortcut> shortcuts;
  for (const OfferedKey& key : keys_) {
    QVariantMap properties{{QStringLiteral("description"), QString::fromStdString(key.description)}};
    if (key.preferred.key != 0)
      properties.insert(QStringLiteral("preferred_trigger"), QString::fromStdString(portalTrigger(key.preferred)));
    shortcuts.append({QString::fromStdString(key.id), properties});
  }
  request_.ask(keysInterface, QStringLiteral("BindShortcuts"),
               {QVariant::fromValue(QDBusObjectPath(session_)), QVariant::fromValue(shortcuts), QString()}, {},
               [this](Outcome outcome, const QVariantMap& results) {
                 if (outcome != Outcome::answered) {
                   end();
                   return become(outcome == Outcome::calledOff ? Answer::refused : Answer::none);
                 }
                 take(results.value(QStringLiteral("shortcuts")));
                 // Some answer with nothing and tell only who asks.
                 list(true);
               });
}

void PortalKeys::list(bool isBound) {
  request_.ask(keysInterface, QStringLiteral("ListShortcuts"), {QVariant::fromValue(QDBusObjectPath(session_))}, {},
               [this, isBound](Outcome, const QVariantMap& results) {
                 take(results.value(QStringLiteral("shortcuts")));
                 const bool knowsAll =
                     std::ranges::all_of(keys_, [this](const OfferedKey& key) { return triggers_.contains(key.id); });
                 if (!isBound && !knowsAll) return bind();
                 become(Answer::given);
               });
}

// The portal ends a request with its session.
void PortalKeys::end() {
  ++turn_;
  request_.abandon();
  triggers_.clear();
  const QString session = std::exchange(session_, QString());
  if (session.isEmpty()) return;
  bus_.disconnect(keysPortal, session, sessionInterface, QStringLiteral("Closed"), this, SLOT(closed()));
  bus_.send(QDBusMessage::createMethodCall(keysPortal, session, sessionInterface, QStringLiteral("Close")));
}

// A portal that closes each session at once would be asked without end. It is asked again when it has restarted, or
// when the user wants it.
void PortalKeys::closed() {
  session_.clear();
  end();
  become(Answer::none);
}

void PortalKeys::configure() {
  auto call = QDBusMessage::createMethodCall(keysPortal, keysPath, keysInterface, QStringLiteral("ConfigureShortcuts"));
  call << QVariant::fromValue(QDBusObjectPath(session_)) << QString() << QVariantMap();
  bus_.send(call);
}

void PortalKeys::activated(const QDBusObjectPath& session, const QString& id, qulonglong, const QVariantMap&) {
  if (session_.isEmpty() || session.path() != session_) return;
  const auto key = std::ranges::find(keys_, id.toStdString(), &OfferedKey::id);
  if (key == keys_.end()) return;
  // A copy: the action may ask for other keys.
  const auto action = key->action;
  action();
}

void PortalKeys::shortcutsChanged(const QDBusMessage& message) {
  if (message.arguments().size() != 2 || session_.isEmpty() ||
      message.arguments().at(0).value<QDBusObjectPath>().path() != session_)
    return;
  take(message.arguments().at(1));
  if (answer_ == Answer::given && handler_) handler_();
}

void PortalKeys::take(const QVariant& shortcuts) {
  const auto argument = shortcuts.value<QDBusArgument>();
  if (argument.currentSignature() != QLatin1String("a(sa{sv})")) return;
  for (const PortalShortcut& shortcut : qdbus_cast<QList<PortalShortcut>>(argument))
    triggers_[shortcut.id.toStdString()] =
        shortcut.properties.value(QStringLiteral("trigger_description")).toString().trimmed().toStdString();
}

std::string PortalKeys::trigger(const std::string& id) const {
  const auto found = triggers_.find(id);
  return found == triggers_.end() ? std::string() : found->second;
}

void PortalKeys::become(Answer answer) {
  if (std::exchange(answer_, answer) != answer && handler_) handler_();
}

std::unique_ptr<KeyKeeper> openPortalKeys(const std::string& desktop) {
  return std::make_unique<PortalKeys>(openSessionBus(QStringLiteral("keys")), desktop);
}

}  // namespace ambrel
