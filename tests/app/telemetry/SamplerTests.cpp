#include <QSignalSpy>
#include <QTest>

#include "app/telemetry/Sampler.h"
#include "tests/fakes/HeldWork.h"

namespace ambrel {
namespace {

// Since boot.
Seconds at(double seconds) { return Seconds(1000 + seconds); }

// A counter whose growth is published, read every 4 seconds; the newest three values are kept.
struct Fixture {
  std::optional<int> counter = 100;
  int reads = 0;
  HeldWork held;
  Sampler<int, int> sampler{{.interval = Seconds(4),
                             .historyLength = 3,
                             .read =
                                 [this] {
                                   ++reads;
                                   return counter;
                                 },
                             .combine =
                                 [](const std::optional<int>& previous, const int& current) {
                                   return previous && current >= *previous ? std::optional(current - *previous)
                                                                           : std::nullopt;
                                 }},
                            held.background()};

  void sample(double seconds, std::optional<int> reading) {
    counter = reading;
    sampler.poll(at(seconds));
    held.letGo();
  }
};

}  // namespace

class SamplerTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void valuesComeFromTwoReadings() {
    Fixture f;
    QSignalSpy sampled(&f.sampler, &SamplerBase::sampled);
    QVERIFY(!f.sampler.lastRun());
    f.sample(0, 100);
    QVERIFY(!f.sampler.value() && !f.sampler.isUnavailable() && f.sampler.history().empty());
    f.sample(4, 130);
    QCOMPARE(f.sampler.value(), std::optional(30));
    f.sample(8, 3);
    QVERIFY2(f.sampler.value() == 30, "a counter that was reset keeps the last value");
    for (int i = 1; i <= 3; ++i) f.sample(8 + 4.0 * i, 3 + i * i);
    QCOMPARE(f.sampler.history(), (std::deque<int>{1, 3, 5}));
    QCOMPARE(sampled.count(), 6);
  }

  void readsAreSpacedByTheInterval() {
    // Timers come a little early at times.
    const std::pair<double, bool> rows[] = {{0, false}, {2, false}, {3.7, false}, {3.8, true}, {4, true}, {9, true}};
    for (const auto& [seconds, isRead] : rows) {
      Fixture f;
      f.sample(0, 100);
      f.sample(seconds, 100);
      QCOMPARE(f.reads, isRead ? 2 : 1);
      QCOMPARE(f.sampler.lastRun(), std::optional(at(isRead ? seconds : 0)));
    }
  }

  void oneReadIsInFlightAtATime() {
    Fixture f;
    f.sampler.poll(at(0));
    QVERIFY(f.sampler.isRunning());
    f.sampler.poll(at(40));
    QCOMPARE(f.held.waiting.size(), 1u);
    // A read that is asked for during another follows it.
    f.sampler.refresh(at(41));
    f.sampler.refresh(at(42));
    QCOMPARE(f.held.waiting.size(), 1u);
    f.held.letGo();
    QVERIFY(f.sampler.isRunning());
    QCOMPARE(f.held.waiting.size(), 1u);
    f.held.letGo();
    QVERIFY(!f.sampler.isRunning());
    QCOMPARE(f.reads, 2);
  }

  void aReaderThatGivesNothingMakesItUnavailable() {
    Fixture f;
    f.sample(0, 100);
    f.sample(4, 110);
    f.sample(8, std::nullopt);
    QVERIFY(f.sampler.isUnavailable());
    QVERIFY(!f.sampler.value());
    // The first reading after the failure is only a starting point.
    f.sample(12, 5000);
    QVERIFY(!f.sampler.isUnavailable());
    QVERIFY(!f.sampler.value());
    f.sample(16, 5004);
    QCOMPARE(f.sampler.value(), std::optional(4));
  }

  void aPauseBeginsAgain() {
    Fixture f;
    f.sample(0, 100);
    f.sample(4, 110);
    f.sample(24, 130);
    QCOMPARE(f.sampler.history(), (std::deque<int>{10, 20}));
    // The bar was hidden, or the computer slept.
    f.sample(45, 9000);
    QVERIFY(!f.sampler.value());
    QVERIFY(f.sampler.history().empty());
    f.sample(49, 9007);
    QCOMPARE(f.sampler.value(), std::optional(7));
    QCOMPARE(f.sampler.history(), std::deque<int>{7});
  }

  void aHistoryThatIsNoTimeAxisOutlivesAPause() {
    HeldWork held;
    int reading = 1;
    Sampler<int> sampler({.interval = Seconds(30),
                          .historyLength = 5,
                          .read = [&] { return std::optional(reading++); },
                          .keepsHistory = true},
                         held.background());
    for (const double seconds : {0.0, 30.0, 4000.0}) {
      sampler.poll(at(seconds));
      held.letGo();
    }
    QCOMPARE(sampler.history(), (std::deque<int>{1, 2, 3}));
  }

  void aReadThatComesBackAfterItsSamplerIsDropped() {
    HeldWork held;
    int reads = 0;
    {
      Sampler<int> sampler({.interval = Seconds(2), .read = [&reads] { return std::optional(++reads); }},
                           held.background());
      sampler.poll(at(0));
    }
    held.letGo();
    QCOMPARE(reads, 1);
  }
};

}  // namespace ambrel

QTEST_GUILESS_MAIN(ambrel::SamplerTests)
#include "SamplerTests.moc"
