#include "platform/linux/services/LinuxTray.h"

#include <QDBusArgument>
#include <QDBusServiceWatcher>
#include <utility>

#include "platform/linux/services/ManagedObjects.h"

namespace ambrel {
namespace {

constexpr int trayPatienceMilliseconds = 5000;
const QString trayList = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString trayListPath = QStringLiteral("/StatusNotifierWatcher");

}  // namespace

LinuxTray::LinuxTray(const QDBusConnection& bus, X11Connection* connection) : bus_(bus), connection_(connection) {}

void LinuxTray::whenThere(std::function<void()> handler) {
  const bool isWatching = handler_ != nullptr;
  handler_ = std::move(handler);
  if (!handler_ || isWatching) return;
  if (bus_.isConnected()) {
    auto* watcher = new QDBusServiceWatcher(trayList, bus_, QDBusServiceWatcher::WatchForRegistration, this);
    connect(watcher, &QDBusServiceWatcher::serviceRegistered, this, &LinuxTray::askBus);
    // Without the name of the service: naming it would make the library ask the bus and wait.
    bus_.connect(QString(), trayListPath, trayList, QStringLiteral("StatusNotifierHostRegistered"), this,
                 SLOT(askBus()));
    askBus();
  }
  if (!connection_) return;
  connection_->selectRootEvents(XCB_EVENT_MASK_STRUCTURE_NOTIFY);
  watch_ = connection_->watch([this](const xcb_generic_event_t& event) {
    if ((event.response_type & 0x7f) != XCB_CLIENT_MESSAGE) return;
    if (reinterpret_cast<const xcb_client_message_event_t&>(event).type == connection_->atom("MANAGER")) askServer();
  });
  askServer();
}

void LinuxTray::askBus() {
  if (!handler_) return;
  callLater(bus_, this,
            quietCall(trayList, trayListPath, QStringLiteral("org.freedesktop.DBus.Properties"),
                      QStringLiteral("GetAll"), {trayList}),
            trayPatienceMilliseconds, [this](const QDBusMessage& answer) {
              if (!isReply(answer) || answer.signature() != QLatin1String("a{sv}")) return;
              const auto properties = qdbus_cast<QVariantMap>(answer.arguments().constFirst());
              if (properties.value(QStringLiteral("IsStatusNotifierHostRegistered")).toBool()) found();
            });
}

void LinuxTray::askServer() {
  const std::string selection = "_NET_SYSTEM_TRAY_S" + std::to_string(connection_->screenNumber());
  const XcbPtr<xcb_get_selection_owner_reply_t> owner(xcb_get_selection_owner_reply(
      connection_->xcb(), xcb_get_selection_owner(connection_->xcb(), connection_->atom(selection.c_str())), nullptr));
  connection_->repliesWereRead();
  if (owner && owner->owner != XCB_WINDOW_NONE) found();
}

void LinuxTray::found() {
  if (const auto handler = std::exchange(handler_, nullptr)) handler();
}

}  // namespace ambrel
