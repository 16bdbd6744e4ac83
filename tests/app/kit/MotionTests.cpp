#include <QSignalSpy>
#include <QTest>

#include "app/kit/LiveTimeline.h"
#include "app/kit/SpringValue.h"

namespace ambrel {
namespace {

using Schedule = LiveTimeline::Schedule;

QDateTime at(const char* text) { return QDateTime::fromString(QLatin1String(text), Qt::ISODateWithMs); }

}  // namespace

class MotionTests : public QObject {
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

  void waitsUntilTheNextTurnAndOnlyWhenItIsWanted() {
    LiveTimeline timeline;
    timeline.setClock([] { return at("2026-11-21T10:42:07.250"); });
    timeline.setSchedule(Schedule::EveryMinute);
    QVERIFY(!timeline.remaining());
    timeline.setActive(true);
    // The turn is 52.75 s away; the timer may be a little late, never early by more than it has run already.
    QVERIFY(timeline.remaining());
    QVERIFY2(*timeline.remaining() > 45'000 && *timeline.remaining() <= 56'000,
             qPrintable(QString::number(*timeline.remaining())));
    timeline.setSchedule(Schedule::EveryDay);
    // Nothing waits longer than an hour: the clock may be set.
    QVERIFY(*timeline.remaining() <= 3'600'000 * 1.05);
    timeline.setActive(false);
    QVERIFY(!timeline.remaining());
    timeline.setActive(true);
    timeline.setSchedule(Schedule::Never);
    QVERIFY(!timeline.remaining());
  }

  void theFirstTargetIsTakenAtOnceAndEveryOneWhenItIsInstant() {
    SpringValue spring;
    spring.setTarget(120);
    QCOMPARE(spring.value(), 120.0);
    spring.setProperty("isInstant", true);
    spring.setTarget(50);
    QCOMPARE(spring.value(), 50.0);
    QVERIFY(spring.isSettled());
  }

  void itEndsExactlyOnItsTarget() {
    for (const qreal damping : {0.55, 0.86, 1.0}) {
      SpringValue spring;
      spring.setProperty("damping", damping);
      spring.setTarget(0);
      spring.setTarget(100);
      qreal farthest = 0;
      for (int time = 0; time <= spring.duration(); time += 8) {
        spring.setCurrentTime(time);
        farthest = std::max(farthest, spring.value());
      }
      spring.setCurrentTime(spring.duration());
      QCOMPARE(spring.value(), 100.0);
      QCOMPARE(farthest > 100.01, damping < 1);  // only an underdamped spring goes past
    }
  }

  void aNewTargetOnTheWayKeepsPlaceAndSpeed() {
    SpringValue spring;
    spring.setTarget(0);
    spring.setTarget(100);
    spring.setCurrentTime(80);
    const qreal before = spring.value();
    spring.setCurrentTime(81);
    const qreal speed = spring.value() - before;
    const qreal place = spring.value();
    spring.setTarget(0);
    spring.setCurrentTime(1);
    // It still moves on for a moment, nearly as fast, before it turns.
    QVERIFY(spring.value() > place);
    QVERIFY(spring.value() - place > speed * 0.7);
  }
};

}  // namespace ambrel

QTEST_MAIN(ambrel::MotionTests)
#include "MotionTests.moc"
