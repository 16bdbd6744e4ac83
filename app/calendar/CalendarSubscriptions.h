#pragma once
// Calendars at addresses of the web, kept in files: each is asked for now and then, and what it last was stays.

#include <QObject>
#include <QUrl>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "app/base/Background.h"
#include "app/web/Fetcher.h"
#include "core/calendar/CalendarReader.h"

namespace ambrel {

// https ("webcal" means it), or http on this machine. Absent for anything else.
std::optional<QUrl> subscriptionUrl(const std::string& address);

class CalendarSubscriptions : public QObject {
  Q_OBJECT

 public:
  static constexpr std::chrono::minutes interval{30}, firstRetry{2}, longestRetry{60};

  struct Seams {
    std::filesystem::path folder;  // of the files; made when it is needed
    Fetcher& fetcher;              // outlives it
    Background background;
    std::function<Instant()> now;
  };
  explicit CalendarSubscriptions(Seams seams, QObject* parent = nullptr);

  // New ones are asked for at once, files that belong to none are removed.
  void setAddresses(const std::vector<std::string>& addresses);
  // Where each of them is kept; there may be no file yet.
  std::vector<CalendarPlace> places() const;
  // Why the last request had no answer; empty when it had one, and before it.
  QString problem(const std::string& address) const;

  std::optional<Instant> due() const;
  void tick(Instant now);
  void clockMoved(Seconds by);

 Q_SIGNALS:
  // A file or a problem is another one.
  void changed();

 private:
  struct Subscription {
    QUrl url;
    std::filesystem::path file;
    Instant due{};
    std::chrono::seconds retry = firstRetry;
    bool isAsking = false;
    QString problem;
  };

  void ask(const std::string& address, Subscription& subscription);
  void answered(const std::string& address, Download answer);
  void removeOtherFiles();

  Seams seams_;
  bool hasCleared_ = false;
  std::map<std::string, Subscription> subscriptions_;  // by the address as the user has written it
};

}  // namespace ambrel
