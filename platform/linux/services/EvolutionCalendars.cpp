#include "platform/linux/services/EvolutionCalendars.h"

#include <QDBusServiceWatcher>
#include <utility>

#include "core/base/Text.h"
#include "platform/linux/services/ManagedObjects.h"

namespace ambrel {
namespace {

constexpr int patienceMilliseconds = 30000;  // an account may be opened over the network
const QString registry = QStringLiteral("org.gnome.evolution.dataserver.Sources5");
const QString sourcesPath = QStringLiteral("/org/gnome/evolution/dataserver/SourceManager");
const QString sourceInterface = QStringLiteral("org.gnome.evolution.dataserver.Source");
const QString manager = QStringLiteral("org.freedesktop.DBus.ObjectManager");
const QString properties = QStringLiteral("org.freedesktop.DBus.Properties");
const QString factory = QStringLiteral("org.gnome.evolution.dataserver.Calendar8");
const QString factoryPath = QStringLiteral("/org/gnome/evolution/dataserver/CalendarFactory");
const QString factoryInterface = QStringLiteral("org.gnome.evolution.dataserver.CalendarFactory");
const QString calendarInterface = QStringLiteral("org.gnome.evolution.dataserver.Calendar");
const QString viewInterface = QStringLiteral("org.gnome.evolution.dataserver.CalendarView");
const QString everything = QStringLiteral("#t");

// A calendar tells its properties in turn with their values, which are written as constants.
std::string addressIn(const QDBusMessage& opened) {
  if (opened.signature() != QLatin1String("as")) return {};
  const QStringList list = opened.arguments().constFirst().toStringList();
  const auto name = list.indexOf(QStringLiteral("cal-email-address"));
  return name < 0 ? std::string() : asciiLower(list.value(name + 1).remove(u'\'').toStdString());
}

}  // namespace

EvolutionSource evolutionSource(std::string_view data) {
  EvolutionSource source;
  std::string section;
  bool isSelected = true, isEnabled = true;
  for (const std::string_view raw : split(data, '\n')) {
    const std::string_view line = trimmed(raw);
    if (line.starts_with('[') && line.ends_with(']')) {
      section = line.substr(1, line.size() - 2);
      if (section == "Calendar") source.kind = EvolutionSource::Kind::calendar;
      if (section == "Task List") source.kind = EvolutionSource::Kind::taskList;
      continue;
    }
    const auto equals = line.find('=');
    if (equals == line.npos) continue;
    const std::string_view key = trimmed(line.substr(0, equals)), value = trimmed(line.substr(equals + 1));
    const bool isOff = value == "false";
    if (section == "Data Source" && key == "DisplayName") source.name = repairedUTF8(value);
    if (section == "Data Source" && key == "Parent") source.parent = value;
    if (section == "Data Source" && key == "Enabled") isEnabled = !isOff;
    if ((section == "Calendar" || section == "Task List") && key == "Selected") isSelected = !isOff;
    if (section == "Calendar" && key == "BackendName" && value == "weather") isSelected = false;
    const bool isAddress = key == "Identity" || key == "Address" || key == "User" || key == "EmailAddress";
    if (isAddress && value.find('@') != value.npos) source.ownAddresses.insert(asciiLower(value));
  }
  source.isOn = isEnabled && isSelected;
  return source;
}

EvolutionCalendars::EvolutionCalendars(const QDBusConnection& bus, const Pace& pace) : bus_(bus), rest_(pace.rest) {
  registerManagedObjects();
  for (QTimer* timer : {&soon_, &readSoon_}) {
    timer->setSingleShot(true);
    timer->setInterval(pace.burst);
  }
  connect(&soon_, &QTimer::timeout, this, &EvolutionCalendars::askSources);
  connect(&readSoon_, &QTimer::timeout, this, [this] {
    for (const auto& [id, calendar] : opened_) read(id);
  });
}

void EvolutionCalendars::setChangeHandler(std::function<void()> handler) {
  const bool wasWatched = handler_ != nullptr;
  handler_ = std::move(handler);
  if ((handler_ != nullptr) == wasWatched || !bus_.isConnected()) return;
  if (!handler_) return forget();
  watcher_ = new QDBusServiceWatcher(registry, bus_, QDBusServiceWatcher::WatchForOwnerChange, this);
  watcher_->addWatchedService(factory);
  connect(watcher_, &QDBusServiceWatcher::serviceOwnerChanged, this,
          [this](const QString& service, const QString& before) {
            if (service == registry) return sourcesChanged();
            if (!before.isEmpty()) QTimer::singleShot(rest_, watcher_, [this] { openAgain(); });
          });
  // Without the name of the service: naming it would make the library ask the bus and wait.
  for (const char* signal : {"InterfacesAdded", "InterfacesRemoved"})
    bus_.connect(QString(), sourcesPath, manager, QString::fromLatin1(signal), this, SLOT(sourcesChanged()));
  bus_.connect(QString(), QString(), properties, QStringLiteral("PropertiesChanged"), {sourceInterface}, QString(),
               this, SLOT(sourcesChanged()));
  for (const char* signal : {"ObjectsAdded", "ObjectsModified", "ObjectsRemoved"})
    bus_.connect(QString(), QString(), viewInterface, QString::fromLatin1(signal), this, SLOT(objectsChanged()));
  askSources();
}

void EvolutionCalendars::forget() {
  ++generation_;
  soon_.stop();
  readSoon_.stop();
  delete std::exchange(watcher_, nullptr);
  for (const char* signal : {"InterfacesAdded", "InterfacesRemoved"})
    bus_.disconnect(QString(), sourcesPath, manager, QString::fromLatin1(signal), this, SLOT(sourcesChanged()));
  bus_.disconnect(QString(), QString(), properties, QStringLiteral("PropertiesChanged"), {sourceInterface}, QString(),
                  this, SLOT(sourcesChanged()));
  for (const char* signal : {"ObjectsAdded", "ObjectsModified", "ObjectsRemoved"})
    bus_.disconnect(QString(), QString(), viewInterface, QString::fromLatin1(signal), this, SLOT(objectsChanged()));
  sources_.clear();
  opened_.clear();
}

void EvolutionCalendars::objectsChanged() {
  if (!opened_.empty()) readSoon_.start();
}

void EvolutionCalendars::askSources() {
  callLater(bus_, this, quietCall(registry, sourcesPath, manager, QStringLiteral("GetManagedObjects")),
            patienceMilliseconds, [this, generation = generation_](const QDBusMessage& answer) {
              if (generation == generation_) take(answer);
            });
}

void EvolutionCalendars::take(const QDBusMessage& answer) {
  sources_.clear();
  if (const auto objects = managedObjects(answer))
    for (const Interfaces& interfaces : *objects) {
      const QVariantMap source = interfaces.value(sourceInterface);
      const QString id = source.value(QStringLiteral("UID")).toString();
      if (!id.isEmpty()) sources_[id] = evolutionSource(source.value(QStringLiteral("Data")).toString().toStdString());
    }
  const auto isOn = [this](const EvolutionSource& source) {
    const auto parent = sources_.find(QString::fromStdString(source.parent));
    return source.isOn && source.kind != EvolutionSource::Kind::other &&
           (parent == sources_.end() || parent->second.isOn);
  };
  const auto gone = std::erase_if(opened_, [&](const auto& calendar) {
    const auto source = sources_.find(calendar.first);
    return source == sources_.end() || !isOn(source->second) || source->second != calendar.second.source;
  });
  for (const auto& [id, source] : sources_)
    if (isOn(source) && !opened_.contains(id)) {
      opened_[id].source = source;
      open(id);
    }
  if (gone > 0) tell();
}

void EvolutionCalendars::openAgain() {
  for (const auto& [id, calendar] : opened_) open(id);
}

void EvolutionCalendars::openLater(const QString& id) {
  if (std::exchange(opened_.at(id).isResting, true)) return;
  QTimer::singleShot(rest_, watcher_, [this, id] {
    const auto calendar = opened_.find(id);
    if (calendar != opened_.end() && std::exchange(calendar->second.isResting, false)) open(id);
  });
}

void EvolutionCalendars::open(const QString& id) {
  Opened& wanted = opened_[id];
  if (std::exchange(wanted.isOpening, true)) return;
  wanted.isResting = false;
  const bool isTaskList = wanted.source.kind == EvolutionSource::Kind::taskList;
  // The registry runs, so the session has the service; this one is started when it is needed.
  QDBusMessage call = quietCall(factory, factoryPath, factoryInterface,
                                isTaskList ? QStringLiteral("OpenTaskList") : QStringLiteral("OpenCalendar"), {id});
  call.setAutoStartService(true);
  const auto then = [this, id](QDBusMessage message, std::function<void(Opened&, const QDBusMessage&)> next) {
    callLater(bus_, this, message, patienceMilliseconds,
              [this, id, generation = generation_, next = std::move(next)](const QDBusMessage& answer) {
                const auto calendar = opened_.find(id);
                if (generation != generation_ || calendar == opened_.end()) return;
                if (isReply(answer)) return next(calendar->second, answer);
                calendar->second.isOpening = false;
                openLater(id);
              });
  };
  then(call, [this, id, then](Opened& calendar, const QDBusMessage& answer) {
    if (answer.signature() != QLatin1String("ss")) return void(calendar.isOpening = false);
    calendar.path = answer.arguments().at(0).toString();
    calendar.service = answer.arguments().at(1).toString();
    const auto ask = [&calendar](const QString& method, const QVariantList& arguments = {}) {
      return quietCall(calendar.service, calendar.path, calendarInterface, method, arguments);
    };
    then(ask(QStringLiteral("Open")), [this, id, then, view = ask(QStringLiteral("GetView"), {everything})](
                                          Opened& open, const QDBusMessage& opening) {
      open.ownAddress = addressIn(opening);
      read(id);
      // It tells of changes once it is started, and of all that is there at first.
      then(view, [this, service = open.service](Opened& watched, const QDBusMessage& made) {
        watched.isOpening = false;
        if (made.signature() != QLatin1String("o")) return;
        const QString path = made.arguments().constFirst().value<QDBusObjectPath>().path();
        callLater(bus_, this, quietCall(service, path, viewInterface, QStringLiteral("Start")), patienceMilliseconds,
                  [](const QDBusMessage&) {});
      });
    });
  });
}

void EvolutionCalendars::read(const QString& id) {
  const Opened& calendar = opened_.at(id);
  if (calendar.path.isEmpty()) return;
  callLater(
      bus_, this,
      quietCall(calendar.service, calendar.path, calendarInterface, QStringLiteral("GetObjectList"), {everything}),
      patienceMilliseconds, [this, id, generation = generation_](const QDBusMessage& answer) {
        const auto found = opened_.find(id);
        if (generation != generation_ || found == opened_.end()) return;
        if (!isReply(answer)) return openLater(id);
        if (answer.signature() != QLatin1String("as")) return;
        std::string text;
        for (const QString& component : answer.arguments().constFirst().toStringList())
          text += component.toStdString() + "\n";
        Opened& read = found->second;
        if (read.text && *read.text == text) return;
        read.text = std::make_shared<const std::string>(std::move(text));
        read.version = ++versions_;
        tell();
      });
}

void EvolutionCalendars::tell() {
  if (handler_) handler_();
}

std::vector<ServedCalendar> EvolutionCalendars::calendars() const {
  std::vector<ServedCalendar> served;
  for (const auto& [id, calendar] : opened_)
    if (calendar.text) served.push_back({id.toStdString(), calendar.source.name, calendar.text, calendar.version});
  return served;
}

std::set<std::string> EvolutionCalendars::ownAddresses() const {
  std::set<std::string> addresses;
  for (const auto& [id, source] : sources_) addresses.insert(source.ownAddresses.begin(), source.ownAddresses.end());
  for (const auto& [id, calendar] : opened_)
    if (!calendar.ownAddress.empty()) addresses.insert(calendar.ownAddress);
  return addresses;
}

}  // namespace ambrel
