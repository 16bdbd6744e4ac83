#pragma once
// What a service on the network tells: asked for at its times while somebody looks, and kept in a file between runs.

#include <filesystem>
#include <functional>

#include "app/base/Area.h"
#include "app/base/Log.h"
#include "app/base/SeenModel.h"
#include "app/web/Fetcher.h"
#include "core/base/JSON.h"
#include "core/base/JSONFileStore.h"
#include "core/base/PresentCalendar.h"
#include "core/base/UserDefaults.h"

namespace ambrel {

// What the feeds are given. All of it outlives them.
struct FeedSeams {
  Fetcher& fetcher;
  UserDefaults& defaults;
  Shell& shell;
  std::filesystem::path documents;  // the folder that holds what is kept
  PresentCalendar calendar;
  std::function<Instant()> now;
  std::function<bool(const QUrl&)> open;  // in the browser; false when there is none
  double mostJitter = 0.05;               // the largest share by which pauses are lengthened, at random
};

// Requests go out only while it is needed.
class Feed : public ambrel::SeenModel {
  Q_OBJECT
  QML_ANONYMOUS

 public:
  // The user asks.
  Q_INVOKABLE void refresh();
  // Another server: what was asked of the old one does not count.
  void restart();

  std::optional<Instant> due() const override { return schedule_.due(); }
  void tick(Instant now) override;
  void slept(Seconds span, Instant now) override;
  void clockMoved(Seconds by, Instant now) override;
  void zoneChanged(Instant now) override { show(now); }

 Q_SIGNALS:
  void changed();

 protected:
  Feed(FeedSeams seams, std::chrono::seconds interval, QObject* parent);

  // What an earlier run has kept; returns when that was asked for.
  virtual std::optional<Instant> load() = 0;
  // Sends the requests. What comes for an older question than `question_` is not looked at.
  virtual void ask() = 0;
  // Publishes what there is.
  virtual void show(Instant now) = 0;
  void get(const QUrl& address, qint64 mostBytes, std::function<void(Download)> answered);
  void succeeded();
  void failed(const Download& download);

  // A file that cannot be read counts as none.
  template <typename Value>
  std::optional<Value> loaded(const char* name) const {
    try {
      return JSONFileStore<Value>{seams_.documents / name}.load();
    } catch (const std::exception& error) {
      logLine("cannot read " + std::string(name) + ": " + error.what());
      return std::nullopt;
    }
  }
  template <typename Value>
  void keepIn(const char* name, const Value& value) const {
    try {
      JSONFileStore<Value>{seams_.documents / name}.save(value);
    } catch (const FileError& error) {
      logLine("cannot save " + std::string(name) + ": " + error.what());
    }
  }
  QString problem() const { return fetchProblem(failure_, isOnline_); }

  FeedSeams seams_;
  int question_ = 0;

 private:
  void neededChanged() override;
  void askIf(bool isDue);

  AskSchedule schedule_;
  std::optional<FetchFailure> failure_;
  bool isLoaded_ = false, isOnline_ = true;
};

}  // namespace ambrel
