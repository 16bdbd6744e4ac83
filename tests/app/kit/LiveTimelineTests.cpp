#include <QSignalSpy>
#include <QTest>
#include <QTimeZone>

#include "app/kit/LiveTimeline.h"

namespace ambrel {

using Schedule = LiveTimeline::Schedule;

class LiveTimelineTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void nextTurns_data();
  void nextTurns();
  void runsNoTimerWithoutNeed();
  void becomingActiveTicksOnlyAfterATurn_data();
  void becomingActiveTicksOnlyAfterATurn();
  void waitsUntilTheNextTurn();
  void clockSetBackTicks();
};

static QDateTime at(const char* text) { return QDateTime::fromString(QLatin1String(text), Qt::ISODateWithMs); }

void LiveTimelineTests::nextTurns_data() {
  QTest::addColumn<Schedule>("schedule");
  QTest::addColumn<QString>("now");
  QTest::addColumn<QString>("next");
  const auto row = [](const char* name, Schedule schedule, const char* now, const char* next) {
    QTest::newRow(name) << schedule << QString(now) << QString(next);
  };
  row("never", Schedule::Never, "2026-11-21T10:42:07.250", "");
  row("second", Schedule::EverySecond, "2026-11-21T10:42:07.250", "2026-11-21T10:42:08.000");
  row("second on the turn", Schedule::EverySecond, "2026-11-21T10:42:07.000", "2026-11-21T10:42:08.000");
  row("minute", Schedule::EveryMinute, "2026-11-21T10:42:07.250", "2026-11-21T10:43:00.000");
  row("minute at the end of a day", Schedule::EveryMinute, "2026-12-31T23:59:59.999", "2027-01-01T00:00:00.000");
  row("hour", Schedule::EveryHour, "2026-11-21T10:42:07.250", "2026-11-21T11:00:00.000");
  row("day", Schedule::EveryDay, "2026-02-28T10:42:07.250", "2026-03-01T00:00:00.000");
}

void LiveTimelineTests::nextTurns() {
  QFETCH(Schedule, schedule);
  QFETCH(QString, now);
  QFETCH(QString, next);
  const QDateTime from = QDateTime::fromString(now, Qt::ISODateWithMs);
  QCOMPARE(nextTurn(schedule, from), QDateTime::fromString(next, Qt::ISODateWithMs));
}

void LiveTimelineTests::runsNoTimerWithoutNeed() {
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

void LiveTimelineTests::becomingActiveTicksOnlyAfterATurn_data() {
  QTest::addColumn<QString>("later");
  QTest::addColumn<int>("ticks");
  QTest::newRow("in the same minute") << "2026-11-21T10:42:59.999" << 1;
  QTest::newRow("in the next minute") << "2026-11-21T10:43:00.000" << 2;
  QTest::newRow("hours later") << "2026-11-21T15:00:00.000" << 2;
}

void LiveTimelineTests::becomingActiveTicksOnlyAfterATurn() {
  QFETCH(QString, later);
  QFETCH(int, ticks);
  QDateTime now = at("2026-11-21T10:42:07.250");
  LiveTimeline timeline;
  timeline.setClock([&] { return now; });
  timeline.setSchedule(Schedule::EveryMinute);
  QSignalSpy spy(&timeline, &LiveTimeline::ticked);
  timeline.setActive(true);
  QCOMPARE(spy.count(), 1);
  QCOMPARE(timeline.now(), now);
  timeline.setActive(false);
  now = QDateTime::fromString(later, Qt::ISODateWithMs);
  timeline.setActive(true);
  QCOMPARE(spy.count(), ticks);
}

void LiveTimelineTests::waitsUntilTheNextTurn() {
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

void LiveTimelineTests::clockSetBackTicks() {
  QDateTime now = at("2026-11-21T10:42:07.250");
  LiveTimeline timeline;
  timeline.setClock([&] { return now; });
  timeline.setSchedule(Schedule::EveryDay);
  timeline.setActive(true);
  timeline.setActive(false);
  now = at("2026-11-20T23:00:00.000");
  timeline.setActive(true);
  QCOMPARE(timeline.now(), now);
}

}  // namespace ambrel

QTEST_MAIN(ambrel::LiveTimelineTests)
#include "LiveTimelineTests.moc"
