#pragma once

#include <QDBusConnection>
#include <QFileSystemWatcher>
#include <QObject>
#include <filesystem>

#include "platform/TimeZone.h"

namespace ambrel {

// The zone that a link such as /etc/localtime names. Links are replaced, not written, so that the folders along the way
// are watched; timedate1 on the system bus says so, too.
class SystemTimeZone : public QObject, public TimeZone {
  Q_OBJECT

 public:
  // `file`: empty where the zone is fixed, and nothing is watched.
  SystemTimeZone(std::filesystem::path file, QDBusConnection systemBus);

  std::string name() const override;
  void setChangeHandler(std::function<void()> handler) override;

 private Q_SLOTS:
  void look();

 private:
  // What tells one zone from another: the name, or where there is none the file itself.
  std::string identity() const;
  void watch();

  std::filesystem::path file_;
  QDBusConnection bus_;
  QFileSystemWatcher watcher_;
  std::string last_;
  std::function<void()> handler_;
};

}  // namespace ambrel
