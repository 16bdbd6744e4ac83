#include "platform/linux/services/MprisPlayers.h"

#include <QDBusArgument>
#include <QDBusError>
#include <QDBusObjectPath>
#include <QDBusPendingCall>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <QUrl>
#include <algorithm>

#include "core/base/SentLine.h"
#include "core/base/Text.h"
#include "platform/linux/services/ManagedObjects.h"

namespace ambrel {
namespace {

constexpr int patienceMilliseconds = 3000;
constexpr std::size_t mostPlayers = 32;
const QString prefix = QStringLiteral("org.mpris.MediaPlayer2");
const QString root = prefix;
const QString playerInterface = QStringLiteral("org.mpris.MediaPlayer2.Player");
const QString path = QStringLiteral("/org/mpris/MediaPlayer2");
const QString properties = QStringLiteral("org.freedesktop.DBus.Properties");

// Relays are no players: what they tell, the players tell themselves.
bool isPlayer(const QString& service) {
  return service.startsWith(prefix + u'.') && service != prefix + QStringLiteral(".playerctld");
}

QVariantMap mapFrom(const QVariant& value) {
  if (value.metaType() == QMetaType::fromType<QVariantMap>()) return value.toMap();
  if (value.metaType() != QMetaType::fromType<QDBusArgument>()) return {};
  const auto argument = value.value<QDBusArgument>();
  return argument.currentSignature() == QLatin1String("a{sv}") ? qdbus_cast<QVariantMap>(argument) : QVariantMap();
}

std::string line(const QVariant& value) {
  const QString text = value.metaType() == QMetaType::fromType<QStringList>()
                           ? value.toStringList().mid(0, 8).join(QStringLiteral(", "))
                           : value.toString();
  return sentLine(text.left(4000).toStdString());
}

std::string coverFrom(const QVariant& value) {
  constexpr qsizetype longest = 4096;
  const QString text = value.toString();
  const QString scheme = QUrl(text.left(longest)).scheme();
  const bool mayBeRead = scheme == QLatin1String("file") || scheme == QLatin1String("https");
  return mayBeRead && text.size() <= longest ? text.toStdString() : std::string();
}

std::string trackFrom(const QVariant& value) {
  const QString id = value.metaType() == QMetaType::fromType<QDBusObjectPath>() ? value.value<QDBusObjectPath>().path()
                                                                                : value.toString();
  return id.startsWith(u'/') ? id.toStdString() : std::string();
}

QString nameFrom(const QString& service, const QVariantMap& told) {
  const std::string name = line(told.value(QStringLiteral("Identity")));
  return name.empty() ? service.section(u'.', 3, 3) : QString::fromStdString(name);
}

QDBusMessage busCall(const QString& method, const QVariantList& arguments = {}) {
  return quietCall(QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
                   QStringLiteral("org.freedesktop.DBus"), method, arguments);
}

}  // namespace

MediaPlayer mediaPlayer(const QString& service, const QString& name, const QVariantMap& properties) {
  const auto is = [&](const char* key) { return properties.value(QString::fromLatin1(key)).toBool(); };
  const QVariantMap data = mapFrom(properties.value(QStringLiteral("Metadata")));
  MediaPlayer player{.id = service.toStdString(), .name = name.toStdString()};
  const QString status = properties.value(QStringLiteral("PlaybackStatus")).toString();
  player.status = status == QLatin1String("Playing")  ? PlaybackStatus::playing
                  : status == QLatin1String("Paused") ? PlaybackStatus::paused
                                                      : PlaybackStatus::stopped;
  player.track = trackFrom(data.value(QStringLiteral("mpris:trackid")));
  player.title = line(data.value(QStringLiteral("xesam:title")));
  player.artist = line(data.value(QStringLiteral("xesam:artist")));
  player.album = line(data.value(QStringLiteral("xesam:album")));
  player.cover = coverFrom(data.value(QStringLiteral("mpris:artUrl")));
  // A stream without a title has an address, of which the end says most.
  if (player.title.empty())
    player.title = line(QUrl(data.value(QStringLiteral("xesam:url")).toString().left(4096)).fileName());
  const qlonglong microseconds = data.value(QStringLiteral("mpris:length")).toLongLong();
  if (microseconds > 0) player.length = std::chrono::microseconds(microseconds);
  // A player that cannot be controlled says so once for everything.
  if (!properties.contains(QStringLiteral("CanControl")) || is("CanControl")) {
    player.canPlay = is("CanPlay");
    player.canPause = is("CanPause");
    player.canGoNext = is("CanGoNext");
    player.canGoPrevious = is("CanGoPrevious");
    player.canSeek = is("CanSeek") && player.length && !player.track.empty();
  }
  return player;
}

MprisPlayers::MprisPlayers(const QDBusConnection& bus, std::chrono::milliseconds burst) : bus_(bus) {
  soon_.setSingleShot(true);
  soon_.setInterval(burst);
  connect(&soon_, &QTimer::timeout, this, [this] {
    for (const QString& service : std::exchange(stale_, {})) ask(service, false);
  });
}

void MprisPlayers::setChangeHandler(std::function<void()> handler) {
  const bool wasWatched = handler_ != nullptr;
  handler_ = std::move(handler);
  if ((handler_ != nullptr) == wasWatched || !bus_.isConnected()) return;
  watch(handler_ != nullptr);
}

void MprisPlayers::watch(bool isWatched) {
  ++generation_;
  soon_.stop();
  stale_.clear();
  entries_.clear();
  // Without the name of a service: naming one would make the library ask the bus and wait.
  const QString member = QStringLiteral("PropertiesChanged");
  const char* slot = SLOT(propertiesChanged(QString, QVariantMap, QStringList, QDBusMessage));
  if (!isWatched) {
    bus_.disconnect(QString(), path, properties, member, {playerInterface}, QString(), this, slot);
    delete watcher_;
    watcher_ = nullptr;
    return;
  }
  if (!bus_.connect(QString(), path, properties, member, {playerInterface}, QString(), this, slot))
    qWarning("the bus does not tell of players: %s", qPrintable(bus_.lastError().message()));
  watcher_ = new QDBusServiceWatcher(prefix + u'*', bus_, QDBusServiceWatcher::WatchForOwnerChange, this);
  connect(watcher_, &QDBusServiceWatcher::serviceOwnerChanged, this, &MprisPlayers::ownerChanged);
  awaited_ = 1;
  callLater(bus_, this, busCall(QStringLiteral("ListNames")), patienceMilliseconds,
            [this, generation = generation_](const QDBusMessage& answer) {
              if (generation != generation_) return;
              for (const QString& service : answer.arguments().value(0).toStringList()) add(service);
              settle();
            });
}

void MprisPlayers::settle() {
  if (--awaited_ == 0) publish();
}

void MprisPlayers::ownerChanged(const QString& service, const QString&, const QString& now) {
  entries_.erase(service);
  if (!now.isEmpty()) add(service);
  publish();
}

void MprisPlayers::add(const QString& service) {
  if (!isPlayer(service) || entries_.size() >= mostPlayers || !entries_.try_emplace(service).second) return;
  const bool isFirst = awaited_ > 0;
  if (isFirst) ++awaited_;
  // The answer of the player itself does not name its sender with every version of the library.
  callLater(bus_, this, busCall(QStringLiteral("GetNameOwner"), {service}), patienceMilliseconds,
            [this, service, generation = generation_](const QDBusMessage& answer) {
              const auto found = entries_.find(service);
              if (generation == generation_ && found != entries_.end() && isReply(answer))
                found->second.owner = answer.arguments().value(0).toString();
            });
  callLater(bus_, this, quietCall(service, path, properties, QStringLiteral("GetAll"), {root}), patienceMilliseconds,
            [this, service, isFirst, generation = generation_](const QDBusMessage& answer) {
              if (generation != generation_) return;
              if (const auto found = entries_.find(service); found != entries_.end()) {
                const auto told = isReply(answer) ? mapFrom(answer.arguments().value(0)) : QVariantMap();
                found->second.name = nameFrom(service, told);
              }
              ask(service, isFirst);
            });
}

void MprisPlayers::propertiesChanged(const QString&, const QVariantMap&, const QStringList&,
                                     const QDBusMessage& message) {
  for (const auto& [service, entry] : entries_)
    if (entry.owner == message.service()) stale_.insert(service);
  if (!stale_.empty() && !soon_.isActive()) soon_.start();
}

void MprisPlayers::ask(const QString& service, bool isFirst) {
  callLater(bus_, this, quietCall(service, path, properties, QStringLiteral("GetAll"), {playerInterface}),
            patienceMilliseconds, [this, service, isFirst, generation = generation_](const QDBusMessage& answer) {
              if (generation != generation_) return;
              const auto found = entries_.find(service);
              if (found != entries_.end() && isReply(answer))
                found->second.player = mediaPlayer(service, found->second.name, mapFrom(answer.arguments().value(0)));
              isFirst ? settle() : publish();
            });
}

void MprisPlayers::publish() {
  if (awaited_ > 0) return;
  std::vector<MediaPlayer> list;
  for (const auto& [service, entry] : entries_)
    if (entry.player) list.push_back(*entry.player);
  std::ranges::stable_sort(list, {}, [](const MediaPlayer& player) { return asciiLower(player.name); });
  if (list == known_) return;
  known_ = std::move(list);
  if (handler_) handler_();
}

void MprisPlayers::call(const std::string& id, const QString& interface, const QString& method,
                        const QVariantList& arguments) {
  bus_.asyncCall(quietCall(QString::fromStdString(id), path, interface, method, arguments), patienceMilliseconds);
}

void MprisPlayers::command(const std::string& id, PlayerCommand command) {
  switch (command) {
    case PlayerCommand::playPause:
      return call(id, playerInterface, QStringLiteral("PlayPause"));
    case PlayerCommand::next:
      return call(id, playerInterface, QStringLiteral("Next"));
    case PlayerCommand::previous:
      return call(id, playerInterface, QStringLiteral("Previous"));
    case PlayerCommand::raise:
      return call(id, root, QStringLiteral("Raise"));
  }
}

void MprisPlayers::seek(const std::string& id, const std::string& track, Seconds position) {
  call(id, playerInterface, QStringLiteral("SetPosition"),
       {QVariant::fromValue(QDBusObjectPath(QString::fromStdString(track))),
        QVariant::fromValue(qlonglong(position.count() * 1e6))});
}

void MprisPlayers::askPosition(const std::string& id, std::function<void(std::optional<Seconds>)> done) {
  callLater(bus_, this,
            quietCall(QString::fromStdString(id), path, properties, QStringLiteral("Get"),
                      {playerInterface, QStringLiteral("Position")}),
            patienceMilliseconds, [this, generation = generation_, done = std::move(done)](const QDBusMessage& answer) {
              if (generation != generation_) return;
              bool isNumber = false;
              const QVariant told = answer.arguments().value(0).value<QDBusVariant>().variant();
              const qlonglong microseconds = isReply(answer) ? told.toLongLong(&isNumber) : 0;
              done(isNumber ? std::optional<Seconds>(std::chrono::microseconds(microseconds)) : std::nullopt);
            });
}

}  // namespace ambrel
