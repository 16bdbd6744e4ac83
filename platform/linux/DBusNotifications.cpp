#include "platform/linux/DBusNotifications.h"

#include <QDBusArgument>
#include <QDBusError>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDebug>
#include <QGuiApplication>
#include <QIcon>
#include <QImage>
#include <QVariantMap>
#include <chrono>
#include <utility>

namespace ambrel {
namespace {

using namespace std::chrono_literals;

const QString service = QStringLiteral("org.freedesktop.Notifications");
const QString path = QStringLiteral("/org/freedesktop/Notifications");
const QString interface = QStringLiteral("org.freedesktop.Notifications");

// The bus may have to start the service first, which is given longer.
constexpr int startMilliseconds = 25000;
constexpr int callMilliseconds = 5000;
constexpr auto keptWithoutService = 60s;

// Of the reasons of NotificationClosed; the others: expired, withdrawn, not said.
constexpr uint dismissedByUser = 2;

// The hint "image-data": the icon of our windows. Few icon themes have the one that our desktop entry names.
QVariant ownIcon() {
  constexpr int size = 64, bitsPerSample = 8, samples = 4;
  const QImage image =
      QGuiApplication::windowIcon().pixmap(QSize(size, size), 1.0).toImage().convertToFormat(QImage::Format_RGBA8888);
  if (image.isNull()) return {};
  QDBusArgument argument;
  argument.beginStructure();
  argument << image.width() << image.height() << static_cast<int>(image.bytesPerLine()) << image.hasAlphaChannel()
           << bitsPerSample << samples
           << QByteArray(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes());
  argument.endStructure();
  return QVariant::fromValue(argument);
}

QDBusMessage call(const QString& method, const QVariantList& arguments = {}) {
  QDBusMessage message = QDBusMessage::createMethodCall(service, path, interface, method);
  message.setArguments(arguments);
  return message;
}

// `answered` gets the reply or the error, on the main thread, as long as `owner` lives.
template <typename Function>
void callLater(QDBusConnection& bus, QObject* owner, const QDBusMessage& message, int milliseconds, Function answered) {
  auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(message, milliseconds), owner);
  QObject::connect(watcher, &QDBusPendingCallWatcher::finished, owner, [watcher, answered = std::move(answered)] {
    watcher->deleteLater();
    answered(watcher->reply());
  });
}

}  // namespace

QString notificationBody(const std::string& text, bool readsMarkup) {
  QString body = QString::fromStdString(text);
  if (!readsMarkup) return body;
  body.replace(QLatin1Char('&'), QStringLiteral("&amp;"));
  body.replace(QLatin1Char('<'), QStringLiteral("&lt;"));
  body.replace(QLatin1Char('>'), QStringLiteral("&gt;"));
  return body;
}

DBusNotifications::DBusNotifications(const QDBusConnection& bus) : bus_(bus) {
  patience_.setSingleShot(true);
  patience_.setInterval(keptWithoutService);
  connect(&patience_, &QTimer::timeout, this, [this] {
    if (service_ != Service::present) shown_.clear();
  });
  if (!bus_.isConnected()) return;
  watcher_ = new QDBusServiceWatcher(service, bus_, QDBusServiceWatcher::WatchForOwnerChange, this);
  connect(watcher_, &QDBusServiceWatcher::serviceOwnerChanged, this,
          [this](const QString&, const QString&, const QString& newOwner) { ownerChanged(newOwner); });
  // Without the name of the service: naming it would make the library ask the bus and wait.
  const auto follow = [this](const char* signal, const char* slot) {
    if (!bus_.connect(QString(), path, interface, QString::fromLatin1(signal), this, slot))
      qWarning("the bus does not tell of %s: %s", signal, qPrintable(bus_.lastError().message()));
  };
  follow("NotificationClosed", SLOT(closed(uint, uint)));
  follow("ActionInvoked", SLOT(actionInvoked(uint, QString)));
}

void DBusNotifications::requestAuthorization(std::function<void(bool)> done) {
  if (done) asked_.push_back(std::move(done));
  if (service_ == Service::present) {
    QMetaObject::invokeMethod(
        this, [this] { becomes(service_ == Service::present); }, Qt::QueuedConnection);
    return;
  }
  askCapabilities();
}

void DBusNotifications::post(const Notification& notification) {
  Shown& shown = shown_[notification.identifier];
  shown.next = notification;
  shown.isUnwanted = false;
  if (service_ == Service::present) {
    send(notification.identifier);
    return;
  }
  if (!patience_.isActive()) patience_.start();
  askCapabilities();
}

void DBusNotifications::withdraw(std::string_view identifier) {
  const auto found = shown_.find(std::string(identifier));
  if (found == shown_.end()) return;
  Shown& shown = found->second;
  shown.next.reset();
  if (shown.isUnderWay) {
    shown.isUnwanted = true;
    return;
  }
  if (shown.id != 0) close(shown.id);
  shown_.erase(found);
}

void DBusNotifications::setActivationHandler(std::function<void(const std::string&)> handler) {
  activation_ = std::move(handler);
}

void DBusNotifications::setActionHandler(std::function<void(const std::string&, const std::string&)> handler) {
  action_ = std::move(handler);
}

void DBusNotifications::setDismissalHandler(std::function<void(const std::string&)> handler) {
  dismissal_ = std::move(handler);
}

void DBusNotifications::setAvailabilityHandler(std::function<void(bool)> handler) {
  availability_ = std::move(handler);
}

void DBusNotifications::askCapabilities() {
  if (service_ != Service::unknown) return;
  service_ = Service::asking;
  if (!bus_.isConnected()) {
    QMetaObject::invokeMethod(
        this, [this] { becomes(false); }, Qt::QueuedConnection);
    return;
  }
  callLater(bus_, this, call(QStringLiteral("GetCapabilities")), startMilliseconds,
            [this, generation = generation_](const QDBusMessage& answer) {
              if (generation == generation_) capabilitiesAnswered(answer);
            });
}

void DBusNotifications::capabilitiesAnswered(const QDBusMessage& answer) {
  const QDBusPendingReply<QStringList> reply(answer);
  if (reply.isError()) {
    becomes(false);
    return;
  }
  capabilities_ = reply.value();
  becomes(true);
  sendWaiting();
}

void DBusNotifications::ownerChanged(const QString& newOwner) {
  // The bus starts the service for our own question; that it appears is then not reported.
  if (service_ == Service::asking && !newOwner.isEmpty()) return;
  ++generation_;
  std::erase_if(shown_, [](const auto& entry) { return !entry.second.next; });
  for (auto& [identifier, shown] : shown_) shown = Shown{0, false, false, std::move(shown.next)};
  service_ = Service::unknown;
  if (newOwner.isEmpty())
    becomes(false);
  else
    askCapabilities();
}

void DBusNotifications::becomes(bool isAvailable) {
  service_ = isAvailable ? Service::present : Service::unknown;
  for (auto& done : std::exchange(asked_, {})) done(isAvailable);
  if (std::exchange(isReportedAvailable_, isAvailable) == isAvailable) return;
  if (!isAvailable) qWarning("Ambrel: no notification service answers; notifications are shown once one runs");
  if (availability_) availability_(isAvailable);
}

void DBusNotifications::sendWaiting() {
  patience_.stop();
  std::vector<std::string> waiting;
  for (const auto& [identifier, shown] : shown_)
    if (shown.next) waiting.push_back(identifier);
  for (const std::string& identifier : waiting) send(identifier);
}

void DBusNotifications::send(const std::string& identifier) {
  Shown& shown = shown_.at(identifier);
  // Until the answer is here it is not known which notification to replace.
  if (shown.isUnderWay || !shown.next) return;
  const Notification notification = *std::exchange(shown.next, std::nullopt);
  shown.isUnderWay = true;

  QVariantMap hints;
  hints.insert(QStringLiteral("urgency"), QVariant::fromValue(static_cast<uchar>(notification.isUrgent ? 2 : 1)));
  if (notification.sound)
    hints.insert(QStringLiteral("sound-name"), QStringLiteral("message-new-instant"));
  else
    hints.insert(QStringLiteral("suppress-sound"), true);
  if (const QVariant icon = ownIcon(); icon.isValid()) hints.insert(QStringLiteral("image-data"), icon);
  QStringList actions;
  if (capabilities_.contains(QStringLiteral("actions"))) {
    actions << QStringLiteral("default") << QStringLiteral("Show");
    for (const NotificationAction& action : notification.actions)
      actions << QString::fromStdString(action.id) << QString::fromStdString(action.label);
  }
  const bool readsMarkup = capabilities_.contains(QStringLiteral("body-markup"));
  const QVariantList arguments{QStringLiteral("Tilebay"),
                               shown.id,
                               QStringLiteral("utilities-system-monitor"),  // as in our desktop entry
                               QString::fromStdString(notification.title),
                               notificationBody(notification.body, readsMarkup),
                               actions,
                               hints,
                               -1};
  callLater(bus_, this, call(QStringLiteral("Notify"), arguments), callMilliseconds,
            [this, identifier, generation = generation_](const QDBusMessage& answer) {
              if (generation == generation_) sent(identifier, answer);
            });
}

void DBusNotifications::sent(const std::string& identifier, const QDBusMessage& answer) {
  const auto found = shown_.find(identifier);
  if (found == shown_.end()) return;
  Shown& shown = found->second;
  shown.isUnderWay = false;
  const QDBusPendingReply<uint> reply(answer);
  if (reply.isError()) qWarning().noquote() << "Ambrel: cannot show a notification:" << reply.error().message();
  shown.id = reply.isError() ? 0 : reply.value();
  if (shown.next) {
    send(identifier);
    return;
  }
  if (shown.isUnwanted && shown.id != 0) close(shown.id);
  if (shown.isUnwanted || shown.id == 0) shown_.erase(found);
}

void DBusNotifications::close(uint id) {
  callLater(bus_, this, call(QStringLiteral("CloseNotification"), {id}), callMilliseconds, [](const QDBusMessage&) {});
}

std::map<std::string, DBusNotifications::Shown>::iterator DBusNotifications::find(uint id) {
  auto entry = shown_.begin();
  while (entry != shown_.end() && (id == 0 || entry->second.id != id)) ++entry;
  return entry;
}

void DBusNotifications::closed(uint id, uint reason) {
  const auto entry = find(id);
  if (entry == shown_.end()) return;
  // A replacement that is under way may come as a new notification, whose id its answer tells.
  entry->second.id = 0;
  if (entry->second.isUnderWay || entry->second.next) return;
  const std::string identifier = entry->first;
  shown_.erase(entry);
  if (reason == dismissedByUser && dismissal_) dismissal_(identifier);
}

void DBusNotifications::actionInvoked(uint id, const QString& action) {
  const auto entry = find(id);
  if (entry == shown_.end()) return;
  const std::string identifier = entry->first;
  if (action == QLatin1String("default")) {
    if (activation_) activation_(identifier);
  } else if (action_) {
    action_(identifier, action.toStdString());
  }
}

}  // namespace ambrel
