#pragma once
// Ejects by UDisks2 (org.freedesktop.UDisks2 on the system's bus), by asynchronous calls alone.

#include <QByteArray>
#include <QDBusConnection>
#include <QObject>
#include <optional>
#include <vector>

#include "platform/Volumes.h"
#include "platform/linux/services/ManagedObjects.h"

namespace ambrel {

class UDisksVolumes : public QObject, public Volumes {
  Q_OBJECT

 public:
  explicit UDisksVolumes(const QDBusConnection& bus);
  void eject(std::string_view url, std::function<void(const EjectResult&)> done) override;

 private:
  QDBusConnection bus_;
};

// A call that belongs to letting go of a drive.
struct EjectStep {
  QString path;
  QString interface;
  QString method;
  bool mayFail = false;  // the drive may be unplugged all the same
  bool operator==(const EjectStep&) const = default;
};
// For the drive that holds what is mounted there: its volumes are unmounted, encrypted ones locked, the drive is
// ejected and powered down, each where there is something to do. Absent when no drive of UDisks' is mounted there.
std::optional<std::vector<EjectStep>> ejectSteps(const ManagedObjects& objects, const QByteArray& mountPoint);

// The answer of a step that failed.
EjectResult ejectFailure(const QDBusMessage& answer);

}  // namespace ambrel
