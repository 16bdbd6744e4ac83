#include <QSignalSpy>
#include <QTest>

#include "app/kit/LiveTimeline.h"

namespace ambrel {

using Schedule = LiveTimeline::Schedule;

static QDateTime at(const char* text) { return QDateTime::fromString(QLatin1String(text), Qt::ISODateWithMs); }

class LiveTimelineTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void turnsAreThoseOfTheUnit() {
    const struct {
      Schedule schedule;
      const char *now, *next;
    } rows[] = {
        {Schedule::Never, "2026-11-21T10:42:07.250", ""},
        {Schedule::EverySecond, "2026-11-21T10:42:07.250", "2026-11-21T10:42:08.000"},
        {Schedule::EverySecond, "2026-11-21T10:42:07.000", "2026-11-21T10:42:08.000"},
        {Schedule::EveryMinute, "2026-12-31T23:59:59.999", "2027-01-01T00:00:00.000"},
        {Schedule::EveryHour, "2026-11-21T10:42:07.250", "2026-11-21T11:00:00.000"},
        {Schedule::EveryDay, "2026-02-28T10:42:07.250", "2026-03-01T00:00:00.000"},
    };
    for (const auto& [schedule, now, next] : rows) QCOMPARE(nextTurn(schedule, at(now)), at(next));
  }

  void runsNoTimerWithoutNeed() {
    LiveTimeline timeline;
    timeline.setClock([] { return at("2026-11-21T10:42:07.250"); });
    timeline.setSchedule(Schedule::EverySecond);
    QVERIFY(!timeline.remaining());
    timeline.setActive(true);
    QVERIFY(timeline.remaining());
    timeline.setActive(false);
    QVERIFY(!timeline.remaining());
    timeline.setActive(true);
    timeline.setSchedule(Schedule::Never);
    QVERIFY(!timeline.remaining());
  }

  void becomingActiveTicksOnlyAfterATurn() {
    const std::pair<const char*, int> rows[] = {
        {"2026-11-21T10:42:59.999", 1}, {"2026-11-21T10:43:00.000", 2}, {"2026-11-21T09:00:00.000", 2}};
    for (const auto& [later, ticks] : rows) {
      QDateTime now = at("2026-11-21T10:42:07.250");
      LiveTimeline timeline;
      timeline.setClock([&] { return now; });
      timeline.setSchedule(Schedule::EveryMinute);
      QSignalSpy spy(&timeline, &LiveTimeline::ticked);
      timeline.setActive(true);
      timeline.setActive(false);
      now = at(later);
      timeline.setActive(true);
      QVERIFY2(spy.count() == ticks, later);
    }
  }

  void waitsUntilTheNextTurn() {
    LiveTimeline timeline;
    timeline.setClock([] { return at("2026-11-21T10:42:07.250"); });
    timeline.setSchedule(Schedule::EveryMinute);
    timeline.setActive(true);
    QVERIFY(timeline.remaining());
    // The turn is 52.75 s away; the timer may be a little late, never early by more than it has run already.
    QVERIFY2(*timeline.remaining() > 45'000 && *timeline.remaining() <= 56'000,
             qPrintable(QString::number(*timeline.remaining())));
    timeline.setSchedule(Schedule::EveryDay);
    // Nothing waits longer than an hour: the clock may be set.
    QVERIFY(*timeline.remaining() <= 3'600'000 * 1.05);
  }
};

}  // namespace ambrel

QTEST_MAIN(ambrel::LiveTimelineTests)
#include "LiveTimelineTests.moc"
