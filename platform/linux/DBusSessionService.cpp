#include "platform/linux/DBusSessionService.h"

#include <QDBusConnectionInterface>
#include <QDBusError>
#include <QDBusMessage>
#include <utility>

#include "core/base/Text.h"

namespace ambrel {
namespace {

const QString ownName = QStringLiteral("dev.qorvin.ambrel");
const QString ownPath = QStringLiteral("/dev/qorvin/ambrel");
constexpr int handOverMilliseconds = 5000;

// The method and its arguments that say this wish.
struct MethodOf {
  std::pair<QString, QVariantList> operator()(const wish::Reveal&) const { return {QStringLiteral("Reveal"), {}}; }
  std::pair<QString, QVariantList> operator()(const wish::ToggleClipboard&) const {
    return {QStringLiteral("ToggleClipboard"), {}};
  }
  std::pair<QString, QVariantList> operator()(const wish::ToggleAgents&) const {
    return {QStringLiteral("ToggleAgents"), {}};
  }
  std::pair<QString, QVariantList> operator()(const wish::ToggleAssistant&) const {
    return {QStringLiteral("ToggleAssistant"), {}};
  }
  std::pair<QString, QVariantList> operator()(const wish::CaptureNotes&) const {
    return {QStringLiteral("CaptureNotes"), {}};
  }
  std::pair<QString, QVariantList> operator()(const wish::CopyPinned& copy) const {
    return {QStringLiteral("CopyPinned"), {copy.number}};
  }
  std::pair<QString, QVariantList> operator()(const wish::Ask& ask) const {
    return {QStringLiteral("Ask"), {QString::fromStdString(ask.text)}};
  }
  std::pair<QString, QVariantList> operator()(const wish::OpenDiskDoctor&) const {
    return {QStringLiteral("OpenDiskDoctor"), {}};
  }
  std::pair<QString, QVariantList> operator()(const wish::Settings&) const { return {QStringLiteral("Settings"), {}}; }
  std::pair<QString, QVariantList> operator()(const wish::Customize&) const {
    return {QStringLiteral("Customize"), {}};
  }
  std::pair<QString, QVariantList> operator()(const wish::Quit&) const { return {QStringLiteral("Quit"), {}}; }
};

}  // namespace

void SessionServiceObject::CopyPinned(int number) {
  if (number >= 1 && number <= 9) {
    receive_(wish::CopyPinned{number});
    return;
  }
  if (calledFromDBus()) sendErrorReply(QDBusError::InvalidArgs, QStringLiteral("the number goes from 1 to 9"));
}

void SessionServiceObject::Ask(const QString& text) {
  if (!text.trimmed().isEmpty()) {
    receive_(wish::Ask{text.toStdString()});
    return;
  }
  if (calledFromDBus()) sendErrorReply(QDBusError::InvalidArgs, QStringLiteral("the text is empty"));
}

DBusSessionService::DBusSessionService(const QDBusConnection& bus)
    : bus_(bus), object_([this](const Wish& wish) { receive(wish); }) {}

DBusSessionService::~DBusSessionService() {
  if (!isOwner_) return;
  bus_.unregisterObject(ownPath);
  bus_.unregisterService(ownName);
}

SessionRole DBusSessionService::start(const std::optional<Wish>& wish) {
  if (!bus_.isConnected()) return SessionRole::alone;
  // Before the name: whoever sees the name may call at once.
  bus_.registerObject(ownPath, &object_, QDBusConnection::ExportAllSlots);
  // A bar that ends while it is asked leaves its name to the second attempt.
  for (int attempt = 0; attempt < 2; ++attempt) {
    const auto owned = bus_.interface()->registerService(ownName, QDBusConnectionInterface::DontQueueService,
                                                         QDBusConnectionInterface::DontAllowReplacement);
    if (owned.isValid() && owned.value() == QDBusConnectionInterface::ServiceRegistered) {
      isOwner_ = true;
      return SessionRole::owner;
    }
    if (handOver(wish.value_or(wish::Reveal{}))) {
      bus_.unregisterObject(ownPath);
      return SessionRole::handedOver;
    }
  }
  bus_.unregisterObject(ownPath);
  return SessionRole::notAnswered;
}

bool DBusSessionService::handOver(const Wish& wish) {
  const auto [method, arguments] = std::visit(MethodOf{}, wish);
  QDBusMessage message = QDBusMessage::createMethodCall(ownName, ownPath, ownName, method);
  message.setArguments(arguments);
  message.setAutoStartService(false);
  return bus_.call(message, QDBus::Block, handOverMilliseconds).type() == QDBusMessage::ReplyMessage;
}

void DBusSessionService::setWishHandler(std::function<void(const Wish&)> handler) {
  handler_ = std::move(handler);
  if (!handler_) return;
  for (const Wish& wish : std::exchange(early_, {})) handler_(wish);
}

void DBusSessionService::receive(const Wish& wish) {
  if (!handler_) {
    early_.push_back(wish);
    return;
  }
  // After the caller has its answer: a wish may take long, or end the program.
  QMetaObject::invokeMethod(
      this,
      [this, wish] {
        if (handler_) handler_(wish);
      },
      Qt::QueuedConnection);
}

}  // namespace ambrel
