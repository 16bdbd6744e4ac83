#include "platform/linux/services/UDisksVolumes.h"

#include <QDBusArgument>
#include <memory>

#include "core/base/Text.h"

namespace ambrel {
namespace {

// Looking is quick; writing out what is still in memory is not.
constexpr int lookMilliseconds = 10'000;
constexpr int stepMilliseconds = 15 * 60 * 1000;

const QString service = QStringLiteral("org.freedesktop.UDisks2");
const QString blockInterface = QStringLiteral("org.freedesktop.UDisks2.Block");
const QString fileSystem = QStringLiteral("org.freedesktop.UDisks2.Filesystem");
const QString encrypted = QStringLiteral("org.freedesktop.UDisks2.Encrypted");
const QString driveInterface = QStringLiteral("org.freedesktop.UDisks2.Drive");

QString pathProperty(const QVariantMap& properties, const QString& key) {
  return properties.value(key).value<QDBusObjectPath>().path();
}

// Paths end with a NUL byte.
QList<QByteArray> mountPoints(const Interfaces& interfaces) {
  const QVariant value = interfaces.value(fileSystem).value(QStringLiteral("MountPoints"));
  QList<QByteArray> paths = value.canConvert<QDBusArgument>()
                                ? qdbus_cast<QList<QByteArray>>(value.value<QDBusArgument>())
                                : value.value<QList<QByteArray>>();
  for (QByteArray& path : paths)
    if (path.endsWith('\0')) path.chop(1);
  return paths;
}

// The drive that a block device is on; what an encrypted one was opened to has none of its own.
QString driveOf(const ManagedObjects& objects, const Interfaces& interfaces) {
  const QVariantMap block = interfaces.value(blockInterface);
  const QString backing = pathProperty(block, QStringLiteral("CryptoBackingDevice"));
  if (backing.size() > 1)
    return pathProperty(objects.value(QDBusObjectPath(backing)).value(blockInterface), QStringLiteral("Drive"));
  return pathProperty(block, QStringLiteral("Drive"));
}

bool isCardReader(const QVariantMap& drive) {
  for (const QString& media : drive.value(QStringLiteral("MediaCompatibility")).toStringList())
    if (media.startsWith(QLatin1String("flash"))) return true;
  return false;
}

// One drive on its way out.
class Ejection : public QObject {
 public:
  Ejection(const QDBusConnection& bus, std::function<void(const EjectResult&)> done, QObject* parent)
      : QObject(parent), bus_(bus), done_(std::move(done)) {}

  void start(QByteArray mountPoint) {
    callLater(bus_, this,
              quietCall(service, QStringLiteral("/org/freedesktop/UDisks2"),
                        QStringLiteral("org.freedesktop.DBus.ObjectManager"), QStringLiteral("GetManagedObjects")),
              lookMilliseconds, [this, mountPoint = std::move(mountPoint)](const QDBusMessage& answer) {
                const auto objects = managedObjects(answer);
                if (!objects) return finish(ejectFailure(answer));
                auto steps = ejectSteps(*objects, mountPoint);
                if (!steps) return finish({EjectOutcome::failed, "No drive that can be ejected is mounted there."});
                steps_ = std::move(*steps);
                next();
              });
  }

 private:
  void next() {
    if (step_ == steps_.size()) return finish({EjectOutcome::ejected, {}});
    const EjectStep& step = steps_[step_++];
    QDBusMessage message = quietCall(service, step.path, step.interface, step.method, {QVariantMap()});
    message.setInteractiveAuthorizationAllowed(true);
    callLater(bus_, this, message, stepMilliseconds, [this, mayFail = step.mayFail](const QDBusMessage& answer) {
      if (!isReply(answer) && !mayFail) return finish(ejectFailure(answer));
      next();
    });
  }
  void finish(const EjectResult& result) {
    deleteLater();
    done_(result);
  }

  QDBusConnection bus_;
  std::function<void(const EjectResult&)> done_;
  std::vector<EjectStep> steps_;
  std::size_t step_ = 0;
};

}  // namespace

std::optional<std::vector<EjectStep>> ejectSteps(const ManagedObjects& objects, const QByteArray& mountPoint) {
  QString drive;
  for (const Interfaces& interfaces : objects)
    if (mountPoints(interfaces).contains(mountPoint)) drive = driveOf(objects, interfaces);
  if (drive.size() <= 1) return std::nullopt;
  const auto found = objects.find(QDBusObjectPath(drive));
  if (found == objects.end() || !found->contains(driveInterface)) return std::nullopt;

  std::vector<EjectStep> unmount, lock, last;
  for (auto object = objects.begin(); object != objects.end(); ++object) {
    if (driveOf(objects, *object) != drive) continue;
    const QString path = object.key().path();
    for (qsizetype i = mountPoints(*object).size(); i > 0; --i)
      unmount.push_back({path, fileSystem, QStringLiteral("Unmount"), false});
    const QString opened = pathProperty(object->value(encrypted), QStringLiteral("CleartextDevice"));
    if (object->contains(encrypted) && opened.size() > 1)
      lock.push_back({path, encrypted, QStringLiteral("Lock"), false});
  }
  const QVariantMap properties = found->value(driveInterface);
  const bool isOptical = properties.value(QStringLiteral("Optical")).toBool();
  if (properties.value(QStringLiteral("Ejectable")).toBool())
    last.push_back({drive, driveInterface, QStringLiteral("Eject"), !isOptical});
  // A reader without power would take no other card.
  if (properties.value(QStringLiteral("CanPowerOff")).toBool() && !isOptical && !isCardReader(properties))
    last.push_back({drive, driveInterface, QStringLiteral("PowerOff"), true});
  unmount.insert(unmount.end(), lock.begin(), lock.end());
  unmount.insert(unmount.end(), last.begin(), last.end());
  return unmount;
}

EjectResult ejectFailure(const QDBusMessage& answer) {
  const QString name = answer.errorName();
  EjectOutcome outcome = EjectOutcome::failed;
  if (name == QLatin1String("org.freedesktop.UDisks2.Error.DeviceBusy"))
    outcome = EjectOutcome::busy;
  else if (name.startsWith(QLatin1String("org.freedesktop.UDisks2.Error.NotAuthorized")) ||
           name == QLatin1String("org.freedesktop.DBus.Error.AccessDenied"))
    outcome = EjectOutcome::notPermitted;
  return {outcome, answer.errorMessage().toStdString()};
}

UDisksVolumes::UDisksVolumes(const QDBusConnection& bus) : bus_(bus) { registerManagedObjects(); }

void UDisksVolumes::eject(std::string_view url, std::function<void(const EjectResult&)> done) {
  constexpr std::string_view scheme = "file://";
  const auto path = url.starts_with(scheme) ? percentDecoded(url.substr(scheme.size())) : std::nullopt;
  if (!bus_.isConnected() || !path) {
    QMetaObject::invokeMethod(
        this,
        [done = std::move(done)] {
          done({EjectOutcome::failed, "No service of this system ejects drives."});
        },
        Qt::QueuedConnection);
    return;
  }
  (new Ejection(bus_, std::move(done), this))->start(QByteArray::fromStdString(*path));
}

}  // namespace ambrel
