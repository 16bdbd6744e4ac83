#pragma once
// Players by MPRIS (org.mpris.MediaPlayer2.* on the session's bus), by asynchronous calls alone.

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QTimer>
#include <QVariantMap>
#include <chrono>
#include <map>
#include <set>

#include "platform/MediaPlayers.h"

class QDBusServiceWatcher;

namespace ambrel {

class MprisPlayers : public QObject, public MediaPlayers {
  Q_OBJECT

 public:
  // burst: how long is waited for further changes after one; they come in bursts.
  explicit MprisPlayers(const QDBusConnection& bus, std::chrono::milliseconds burst = std::chrono::milliseconds(100));

  void setChangeHandler(std::function<void()> handler) override;
  std::vector<MediaPlayer> players() const override { return known_; }
  void command(const std::string& id, PlayerCommand command) override;
  void seek(const std::string& id, const std::string& track, Seconds position) override;
  void askPosition(const std::string& id, std::function<void(std::optional<Seconds>)> done) override;

 private Q_SLOTS:
  void propertiesChanged(const QString& interface, const QVariantMap& changed, const QStringList& invalidated,
                         const QDBusMessage& message);

 private:
  struct Entry {
    QString owner;                      // its unique name, once the bus has told it
    QString name;                       // as people know it
    std::optional<MediaPlayer> player;  // absent before the first answer
  };

  void watch(bool isWatched);
  void ownerChanged(const QString& service, const QString& before, const QString& now);
  void add(const QString& service);
  void ask(const QString& service, bool isFirst);
  // One of the first answers is there, or will not come.
  void settle();
  void publish();
  void call(const std::string& id, const QString& interface, const QString& method, const QVariantList& arguments = {});

  QDBusConnection bus_;
  QDBusServiceWatcher* watcher_ = nullptr;
  std::function<void()> handler_;
  std::map<QString, Entry> entries_;  // by their names on the bus
  std::vector<MediaPlayer> known_;
  int awaited_ = 0;          // of the first answers of the watch
  std::set<QString> stale_;  // to be asked again
  QTimer soon_;
  uint generation_ = 0;  // of the watch; later answers to earlier questions mean nothing
};

// A player as its properties (of org.mpris.MediaPlayer2.Player) tell; what is of another type than it should be counts
// as not told.
MediaPlayer mediaPlayer(const QString& service, const QString& name, const QVariantMap& properties);

}  // namespace ambrel
