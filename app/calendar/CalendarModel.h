#pragma once
// The user's calendars: what is next, what the coming days bring, and what is due. They are only read.

#include <QVariantList>
#include <functional>

#include "app/base/Background.h"
#include "app/base/GadgetListModel.h"
#include "app/base/Presentation.h"
#include "app/base/TimedModel.h"
#include "app/calendar/CalendarFaces.h"
#include "app/calendar/CalendarSubscriptions.h"
#include "core/base/PresentCalendar.h"
#include "core/buddy.h"
#include "core/calendar/CalendarFolders.h"
#include "core/dock.h"
#include "platform/CalendarService.h"
#include "platform/FolderWatch.h"

namespace ambrel {

class AppSettings;

class CalendarModel : public ambrel::TimedModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::CalendarFace face READ face NOTIFY changed FINAL)
  // The next two weeks; EventRow.
  Q_PROPERTY(ambrel::RowList* agenda READ agenda CONSTANT FINAL)
  // What is left of today.
  Q_PROPERTY(ambrel::RowList* today READ today CONSTANT FINAL)
  // TaskRow
  Q_PROPERTY(ambrel::RowList* tasks READ tasks CONSTANT FINAL)
  // SourceRow
  Q_PROPERTY(ambrel::RowList* sources READ sources CONSTANT FINAL)

 public:
  struct Seams {
    UserHome home;
    AppSettings& settings;
    FolderWatch& folders;
    CalendarService& service;
    Fetcher& fetcher;
    Background background;
    PresentCalendar calendar;
    std::function<Instant()> now;
    DelayedStep later;
  };
  // What the seams refer to outlives it.
  explicit CalendarModel(Seams seams, QObject* parent = nullptr);

  // Reads the calendars, and again whenever they change.
  void start();
  // The settings have changed.
  void reload() { look(); }
  // Whether somebody looks: only then are the minutes counted.
  void setSeen(bool isSeen, Instant now);

  const CalendarFace& face() const { return face_; }
  CalendarFace sampleFace() const { return sampleCalendarFace(seams_.calendar(), seams_.now()); }
  RowList* agenda() { return &agenda_; }
  RowList* today() { return &today_; }
  RowList* tasks() { return &tasks_; }
  RowList* sources() { return &sources_; }

  // Of any day, as "2026-11-22": EventRow, in the order of the day.
  Q_INVOKABLE QVariantList eventsOf(const QString& day);
  // Opens where the event's meeting is held.
  Q_INVOKABLE void join(const QString& eventId);
  // Adds a folder, a file or an address. Says why not in words; empty when it was taken.
  Q_INVOKABLE QString addPlace(const QString& text);
  Q_INVOKABLE void removePlace(const QString& text);
  Q_INVOKABLE void setShown(const QString& calendar, bool isShown);

  // Those that begin soon or have just begun.
  std::vector<BuddySignals::Meeting> meetings(Instant now) const;
  std::optional<PeekSignals::Event> nextEvent(Instant now) const;

  std::optional<Instant> due() const override { return due_; }
  void tick(Instant now) override;
  void clockMoved(Seconds by, Instant now) override;

 Q_SIGNALS:
  void changed();
  // The events have changed, of any day.
  void eventsChanged();
  void linkAsked(const QString& address);

 private:
  // Of the files those that have changed, as far as the watch knows them, or all.
  void look(bool isAll = true);
  void lookSoon();
  // found: the folders of other programs. They are watched once they have answered.
  void follow(std::vector<std::filesystem::path> found);
  CalendarQuestion question(Instant now) const;
  void publish(Instant now);
  void publishSources();
  void publishTasks(const Calendar& calendar, Instant now, CalendarFace& face, Instant& change);

  Seams seams_;
  // Lives on the background's thread while it reads.
  std::shared_ptr<CalendarReader> reader_ = std::make_shared<CalendarReader>();
  CalendarReading reading_;
  CalendarSubscriptions subscriptions_;
  bool hasRead_ = false, isReading_ = false, isSeen_ = false, isLookingSoon_ = false;
  bool mustReadAgain_ = false;  // what has changed while it reads
  std::vector<std::filesystem::path> followed_;
  Instant day_{};  // the beginning of the day for which it was read
  CalendarFace face_;
  GadgetListModel<EventRow> agenda_, today_;
  GadgetListModel<TaskRow> tasks_;
  GadgetListModel<SourceRow> sources_;
  std::map<QString, QString> links_, linksOfDay_;  // by event; of the day that was asked for last
  std::optional<Instant> due_;
};

}  // namespace ambrel
