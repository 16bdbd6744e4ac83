#pragma once
// Calendars and task lists of the user's accounts (Evolution Data Server), over the session's bus.

#include <QDBusConnection>
#include <QObject>
#include <QTimer>
#include <chrono>
#include <map>

#include "platform/CalendarService.h"

class QDBusMessage;
class QDBusServiceWatcher;

namespace ambrel {

// A source of the service, from its key file ("Data").
struct EvolutionSource {
  enum class Kind { other, calendar, taskList };
  Kind kind = Kind::other;
  std::string name, parent;
  bool isOn = true;                      // switched on, and chosen to be shown
  std::set<std::string> ownAddresses{};  // of the account, in lower case
  friend bool operator==(const EvolutionSource&, const EvolutionSource&) = default;
};
EvolutionSource evolutionSource(std::string_view data);

class EvolutionCalendars : public QObject, public CalendarService {
  Q_OBJECT

 public:
  struct Pace {
    std::chrono::milliseconds burst{500};  // changes within it are told once
    // Before a calendar that did not answer is opened again, or the service after its end: it may have ended by what
    // it was asked.
    std::chrono::milliseconds rest{60000};
  };
  EvolutionCalendars(const QDBusConnection& bus, const Pace& pace);

  void setChangeHandler(std::function<void()> handler) override;
  std::vector<ServedCalendar> calendars() const override;
  std::set<std::string> ownAddresses() const override;

 private Q_SLOTS:
  void sourcesChanged() { soon_.start(); }
  // Of any calendar; which one does not matter.
  void objectsChanged();

 private:
  struct Opened {
    EvolutionSource source;
    QString service, path;   // where the calendar is, once it is open
    std::string ownAddress;  // of its account; empty when that has none
    std::shared_ptr<const std::string> text;
    std::uint64_t version = 0;
    bool isOpening = false;
    bool isResting = false;  // it did not answer
  };

  void askSources();
  void take(const QDBusMessage& answer);
  void open(const QString& id);
  void openAgain();
  void openLater(const QString& id);
  void read(const QString& id);
  void forget();
  void tell();

  QDBusConnection bus_;
  std::function<void()> handler_;
  QDBusServiceWatcher* watcher_ = nullptr;
  std::chrono::milliseconds rest_;
  QTimer soon_, readSoon_;
  std::map<QString, EvolutionSource> sources_;
  std::map<QString, Opened> opened_;
  std::uint64_t versions_ = 0;
  int generation_ = 0;
};

}  // namespace ambrel
