#include "app/kit/DesktopAppearance.h"

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QEvent>
#include <QGuiApplication>
#include <QPalette>
#include <utility>

namespace ambrel {
namespace {

const auto service = QStringLiteral("org.freedesktop.portal.Desktop");
const auto path = QStringLiteral("/org/freedesktop/portal/desktop");
const auto interface = QStringLiteral("org.freedesktop.portal.Settings");
const auto appearance = QStringLiteral("org.freedesktop.appearance");
const auto colorScheme = QStringLiteral("color-scheme");
const auto desktopInterface = QStringLiteral("org.gnome.desktop.interface");
const auto enableAnimations = QStringLiteral("enable-animations");
const auto textScalingFactor = QStringLiteral("text-scaling-factor");

// `Read` wraps its answer in a variant of a variant.
QVariant unwrapped(QVariant value) {
  while (value.canConvert<QDBusVariant>()) value = value.value<QDBusVariant>().variant();
  return value;
}

}  // namespace

DesktopAppearance::DesktopAppearance(const QString& platform, QObject* parent)
    : QObject(parent), isToldTextScale_(!platform.startsWith(QLatin1String("wayland"))) {
  if (qGuiApp) qGuiApp->installEventFilter(this);
  QDBusConnection bus = QDBusConnection::sessionBus();
  if (!bus.isConnected()) return;
  // The bus knows the types of a signal's arguments by their registration, which nothing else has done yet.
  qDBusRegisterMetaType<QDBusVariant>();
  // Without the name of the service: naming it would make the library ask the bus and wait.
  if (!bus.connect(QString(), path, interface, QStringLiteral("SettingChanged"), this,
                   SLOT(settingChanged(QString, QString, QDBusVariant))))
    qWarning("changes of the desktop's looks cannot be followed: %s", qPrintable(bus.lastError().message()));
  ask(appearance, colorScheme);
  ask(desktopInterface, enableAnimations);
  if (!isToldTextScale_) ask(desktopInterface, textScalingFactor);
}

bool DesktopAppearance::isDark() const {
  if (asksForDark_) return *asksForDark_;
  if (hasDarkTheme_) return true;
  const QPalette palette = QGuiApplication::palette();
  return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

void DesktopAppearance::setThemeName(const QString& name) {
  const bool isDark = name.contains(QLatin1String("dark"), Qt::CaseInsensitive);
  if (std::exchange(hasDarkTheme_, isDark) != isDark && !asksForDark_) Q_EMIT changed();
}

void DesktopAppearance::take(const QString& group, const QString& key, const QVariant& wrapped) {
  const QVariant value = unwrapped(wrapped);
  if (group == appearance && key == colorScheme && value.typeId() == QMetaType::UInt) {
    // 0 means no preference, 1 dark, 2 light.
    const uint scheme = value.toUInt();
    const auto wanted = scheme == 1 || scheme == 2 ? std::optional(scheme == 1) : std::nullopt;
    if (asksForDark_ == wanted) return;
    asksForDark_ = wanted;
    Q_EMIT changed();
  } else if (group == desktopInterface && key == enableAnimations && value.typeId() == QMetaType::Bool) {
    if (reducesMotion_ == !value.toBool()) return;
    reducesMotion_ = !value.toBool();
    Q_EMIT changed();
  } else if (group == desktopInterface && key == textScalingFactor && value.typeId() == QMetaType::Double) {
    if (isToldTextScale_ || qFuzzyCompare(textScale_, value.toDouble())) return;
    textScale_ = value.toDouble();
    Q_EMIT changed();
  }
}

bool DesktopAppearance::eventFilter(QObject* watched, QEvent* event) {
  if (watched == qGuiApp && event->type() == QEvent::ApplicationPaletteChange && !asksForDark_) Q_EMIT changed();
  return QObject::eventFilter(watched, event);
}

void DesktopAppearance::settingChanged(const QString& group, const QString& key, const QDBusVariant& value) {
  take(group, key, QVariant::fromValue(value));
}

void DesktopAppearance::ask(const QString& group, const QString& key) {
  QDBusMessage call = QDBusMessage::createMethodCall(service, path, interface, QStringLiteral("Read"));
  call << group << key;
  auto* watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, group, key](QDBusPendingCallWatcher* finished) {
    finished->deleteLater();
    const QDBusPendingReply<QDBusVariant> reply = *finished;
    if (!reply.isError()) take(group, key, QVariant::fromValue(reply.value()));
  });
}

}  // namespace ambrel
