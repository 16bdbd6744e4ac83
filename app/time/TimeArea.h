#pragma once
// The time of day and the calendar.

#include <set>
#include <vector>

#include "app/base/Area.h"
#include "app/base/DueTimer.h"
#include "app/time/ClockModel.h"
#include "app/time/CountdownModel.h"
#include "app/time/MeetingModel.h"
#include "app/time/MonthModel.h"
#include "app/time/MoonModel.h"
#include "app/time/TimeConverter.h"
#include "app/time/TimeReading.h"
#include "app/time/WorldClockModel.h"

namespace ambrel {

// A model is woken only while a tile that shows it can be seen.
class TimeArea : public Area {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::ClockModel* clock READ clock CONSTANT FINAL)
  Q_PROPERTY(ambrel::MonthModel* month READ month CONSTANT FINAL)
  Q_PROPERTY(ambrel::WorldClockModel* worldClock READ worldClock CONSTANT FINAL)
  Q_PROPERTY(ambrel::MeetingModel* meeting READ meeting CONSTANT FINAL)
  Q_PROPERTY(ambrel::CountdownModel* countdown READ countdown CONSTANT FINAL)
  Q_PROPERTY(ambrel::MoonModel* moon READ moon CONSTANT FINAL)
  Q_PROPERTY(ambrel::TimeConverter* converter READ converter CONSTANT FINAL)
  Q_PROPERTY(ambrel::TimeReadingModel* dayProgress READ dayProgress CONSTANT FINAL)
  Q_PROPERTY(ambrel::TimeReadingModel* weekProgress READ weekProgress CONSTANT FINAL)
  Q_PROPERTY(ambrel::TimeReadingModel* monthProgress READ monthProgress CONSTANT FINAL)
  Q_PROPERTY(ambrel::TimeReadingModel* yearProgress READ yearProgress CONSTANT FINAL)
  Q_PROPERTY(ambrel::TimeReadingModel* weekend READ weekend CONSTANT FINAL)
  Q_PROPERTY(ambrel::TimeReadingModel* weekNumber READ weekNumber CONSTANT FINAL)
  Q_PROPERTY(ambrel::TimeReadingModel* binaryClock READ binaryClock CONSTANT FINAL)
  Q_PROPERTY(ambrel::TimeReadingModel* unixTime READ unixTime CONSTANT FINAL)

 public:
  // `due` outlives it, as does what the seams refer to.
  TimeArea(TimeSeams seams, DueTimer& due, QObject* parent = nullptr);

  ClockModel* clock() { return &clock_; }
  MonthModel* month() { return &month_; }
  WorldClockModel* worldClock() { return &worldClock_; }
  MeetingModel* meeting() { return &meeting_; }
  CountdownModel* countdown() { return &countdown_; }
  MoonModel* moon() { return &moon_; }
  TimeConverter* converter() { return &converter_; }
  TimeReadingModel* dayProgress() { return &day_; }
  TimeReadingModel* weekProgress() { return &week_; }
  TimeReadingModel* monthProgress() { return &monthOfYear_; }
  TimeReadingModel* yearProgress() { return &year_; }
  TimeReadingModel* weekend() { return &weekend_; }
  TimeReadingModel* weekNumber() { return &weekNumber_; }
  TimeReadingModel* binaryClock() { return &binary_; }
  TimeReadingModel* unixTime() { return &unix_; }

  void widgetsChanged(const std::set<DockWidget>& onBar, bool areSeen, Instant now) override;
  QVariantMap sample(DockWidget widget) override;
  void defaultsChanged(const std::set<std::string>& keys) override;

 private:
  struct Shown {
    TimeModel* model;
    std::set<DockWidget> widgets;  // whose tiles show it; a panel asks when it opens
  };
  std::vector<Shown> whoShowsWhat();

  ClockModel clock_;
  MonthModel month_;
  WorldClockModel worldClock_;
  MeetingModel meeting_;
  CountdownModel countdown_;
  MoonModel moon_;
  TimeConverter converter_;
  TimeReadingModel day_, week_, monthOfYear_, year_, weekend_, weekNumber_, binary_, unix_;
  const std::vector<Shown> shown_;
};

}  // namespace ambrel
