#include <QTest>

#include "platform/linux/TimerfdClock.h"

namespace ambrel {

using std::chrono::milliseconds;

class TimerfdClockTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void wakesAtItsTimeAndOnce();
  void wakesAtOnceForATimeThatHasPassed();
  void aLaterWishReplacesTheEarlier();
};

void TimerfdClockTests::wakesAtItsTimeAndOnce() {
  TimerfdClock clock;
  const Instant wanted = clock.read().now + milliseconds(40);
  std::vector<Instant> woken;
  clock.wakeAt(wanted, [&] { woken.push_back(clock.read().now); });
  QVERIFY(QTest::qWaitFor([&] { return !woken.empty(); }, 15000));
  QVERIFY(woken.front() >= wanted);
  bool hasPassed = false;
  TimerfdClock fence;
  fence.wakeAt(clock.read().now + milliseconds(60), [&] { hasPassed = true; });
  QVERIFY(QTest::qWaitFor([&] { return hasPassed; }, 15000));
  QCOMPARE(woken.size(), 1u);
}

void TimerfdClockTests::wakesAtOnceForATimeThatHasPassed() {
  TimerfdClock clock;
  for (const Instant past : {clock.read().now - std::chrono::hours(1), Instant{}, Instant{} - milliseconds(1500)}) {
    int times = 0;
    clock.wakeAt(past, [&] { ++times; });
    QVERIFY(QTest::qWaitFor([&] { return times == 1; }, 15000));
  }
}

void TimerfdClockTests::aLaterWishReplacesTheEarlier() {
  TimerfdClock clock;
  QStringList heard;
  clock.wakeAt(clock.read().now - milliseconds(1), [&] { heard << QStringLiteral("first"); });
  clock.wakeAt(clock.read().now + milliseconds(20), [&] { heard << QStringLiteral("second"); });
  QVERIFY(QTest::qWaitFor([&] { return !heard.isEmpty(); }, 15000));
  QCOMPARE(heard, QStringList{"second"});
  clock.wakeAt({}, [&] { heard << QStringLiteral("third"); });
  TimerfdClock fence;
  bool hasPassed = false;
  fence.wakeAt(clock.read().now + milliseconds(40), [&] { hasPassed = true; });
  QVERIFY(QTest::qWaitFor([&] { return hasPassed; }, 15000));
  QCOMPARE(heard.size(), 1);
}

}  // namespace ambrel

QTEST_GUILESS_MAIN(ambrel::TimerfdClockTests)
#include "TimerfdClockTests.moc"
