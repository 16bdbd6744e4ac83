#include <QCoreApplication>
#include <QTest>

#include "app/base/DueTimer.h"
#include "tests/Time.h"
#include "tests/fakes/FakeClock.h"

namespace ambrel {
namespace {

// Writes down what it is told.
class Listener : public TimedModel {
 public:
  std::optional<Instant> due() const override { return next; }
  void tick(Instant now) override {
    told << QStringLiteral("tick");
    if (next && *next <= now) next.reset();
    announceDue();
  }
  void slept(Seconds span, Instant) override { told << QStringLiteral("slept %1").arg(span.count()); }
  void clockMoved(Seconds by, Instant) override { told << QStringLiteral("moved %1").arg(by.count()); }
  void waitFor(std::optional<Instant> time) {
    next = time;
    announceDue();
  }

  std::optional<Instant> next;
  QStringList told;
};

void settle() { QCoreApplication::processEvents(); }

}  // namespace

class DueTimerTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void waitsForTheFirstOfAll() {
    FakeClock clock(*parseISO8601("2026-11-21T09:00:00Z"));
    DueTimer timer(clock);
    Listener one, two;
    timer.add(one);
    timer.add(two);
    settle();
    QVERIFY(!clock.wakeTime);
    one.waitFor(clock.now() + minutes(10));
    two.waitFor(clock.now() + minutes(5));
    settle();
    QVERIFY(clock.wakeTime == clock.now() + minutes(5));
    clock.pass(minutes(5));
    clock.ring();
    settle();
    QCOMPARE(two.told, QStringList{"tick"});
    QVERIFY(one.told.isEmpty());
    QVERIFY(clock.wakeTime == clock.now() + minutes(5));
    one.waitFor({});
    settle();
    QVERIFY(!clock.wakeTime);
  }

  void tellsOfSleepBeforeAnythingFallsDue() {
    FakeClock clock(*parseISO8601("2026-11-21T09:00:00Z"));
    DueTimer timer(clock);
    Listener listener;
    timer.add(listener);
    listener.waitFor(clock.now() + minutes(10));
    settle();
    clock.pass(minutes(1));
    clock.sleep(hours(8));
    clock.ring();
    QCOMPARE(listener.told, (QStringList{"slept 28800", "tick"}));
    clock.sleep(Seconds(1));
    clock.ring();
    QCOMPARE(listener.told.size(), 2);
  }

  void tellsThatTheClockWasSet() {
    FakeClock clock(*parseISO8601("2026-11-21T09:00:00Z"));
    DueTimer timer(clock);
    Listener listener;
    timer.add(listener);
    settle();
    clock.pass(minutes(3));
    clock.set(clock.now() - hours(1));
    clock.ring();
    QCOMPARE(listener.told, QStringList{"moved -3600"});
    clock.pass(minutes(3));
    clock.set(clock.now() + std::chrono::milliseconds(900));
    clock.ring();
    QCOMPARE(listener.told.size(), 1);
  }
};

}  // namespace ambrel

QTEST_GUILESS_MAIN(ambrel::DueTimerTests)
#include "DueTimerTests.moc"
