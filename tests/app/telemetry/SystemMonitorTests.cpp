#include <QSignalSpy>
#include <QTest>

#include "app/telemetry/SystemMonitor.h"
#include "tests/fakes/FakeReadings.h"
#include "tests/fakes/HeldWork.h"

namespace ambrel {
namespace {

struct Fixture {
  FakeReadings readings;
  HeldWork held;
  SystemMonitor monitor{readings, held.background(), Calendar("UTC", "en_US")};
  const TileReading& cpu() { return monitor.cpuFace()->reading(); }
  const TileReading& memory() { return monitor.memoryFace()->reading(); }
  const TileReading& network() { return monitor.networkFace()->reading(); }
  const TileReading& disk() { return monitor.diskFace()->reading(); }
};

}  // namespace

class SystemMonitorTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void aFirstReadingPublishesNoRate();
  void ratesComeFromTheDifferences();
  void theHistoriesSpanAMinute();
  void aReaderThatFailsLeavesTheValueUnknown();
  void aNetworkThatComesBackGivesNoSpike();
  void theVolumeIsReadOffTheMainThreadAtMostOnceAMinute();
  void whatNobodyLooksAtIsUnknownAndComesBackWithoutASpike();
  void whatStaysIsNotAnnounced();
};

void SystemMonitorTests::whatStaysIsNotAnnounced() {
  Fixture f;
  QSignalSpy memory(f.monitor.memoryFace(), &LiveFace::changed), processor(f.monitor.cpuFace(), &LiveFace::changed);
  f.monitor.tick();
  QCOMPARE(memory.count(), 1);
  f.readings.pass(2, 101, 899);
  f.monitor.tick();
  QCOMPARE(processor.count(), 1);
  // A tick within one of the kernel's says nothing.
  f.monitor.tick();
  QCOMPARE(processor.count(), 1);
  QCOMPARE(memory.count(), 1);
  // A sleep leaves nothing known.
  f.readings.pass(3600, 1, 1);
  f.monitor.tick();
  QVERIFY(!f.cpu().percent);
  QVERIFY(f.cpu().history.isEmpty());
}

void SystemMonitorTests::whatNobodyLooksAtIsUnknownAndComesBackWithoutASpike() {
  Fixture f;
  f.monitor.tick();
  f.readings.pass(2, 1, 1);
  f.monitor.tick();
  QVERIFY(f.monitor.network());
  f.monitor.setWanted({.memory = false, .network = false});
  QCOMPARE(f.memory().tip, QString());
  QVERIFY(!f.monitor.network());
  f.readings.pass(2, 1, 1);
  f.monitor.tick();
  QVERIFY(!f.monitor.memory());
  QVERIFY(f.monitor.cpuUsage());
  f.readings.counters["eth0"].received += 9'000'000'000;
  f.monitor.setWanted({});
  QCOMPARE(*f.memory().percent, 75.0);
  f.readings.pass(2, 1, 1);
  f.monitor.tick();
  QVERIFY(!f.monitor.network());
  f.readings.pass(2, 1, 1);
  f.readings.counters["eth0"].received += 4000;
  f.monitor.tick();
  QCOMPARE(f.monitor.network()->receivedPerSecond, 2000.0);
  QCOMPARE(f.network().secondHistory.size(), 1);
}

void SystemMonitorTests::aFirstReadingPublishesNoRate() {
  Fixture f;
  f.monitor.tick();
  QVERIFY(!f.monitor.cpuUsage());
  QVERIFY(!f.cpu().percent);
  QVERIFY(!f.monitor.network());
  QCOMPARE(f.network().secondValue, QString());
  QVERIFY(f.cpu().history.isEmpty());
  QCOMPARE(*f.memory().percent, 75.0);
  QCOMPARE(f.memory().tip, QStringLiteral("12 GB of 16 GB in use"));
}

void SystemMonitorTests::ratesComeFromTheDifferences() {
  Fixture f;
  f.monitor.tick();
  f.readings.pass(2, 50, 150);
  f.readings.counters["eth0"] = {1'000 + 2'400'000, 500 + 6'000};
  f.monitor.tick();
  QCOMPARE(*f.cpu().percent, 25.0);
  QCOMPARE(f.monitor.network()->receivedPerSecond, 1'200'000.0);
  QCOMPARE(f.network().secondValue, QStringLiteral("1.2"));
  QCOMPARE(f.network().secondUnit, QStringLiteral("MB/s"));
  QCOMPARE(f.network().value, QStringLiteral("3"));
  QCOMPARE(f.network().unit, QStringLiteral("KB/s"));
}

void SystemMonitorTests::theHistoriesSpanAMinute() {
  Fixture f;
  f.monitor.tick();
  for (int i = 1; i <= 40; ++i) {
    f.readings.pass(2, static_cast<std::uint64_t>(i), static_cast<std::uint64_t>(100 - i));
    f.readings.counters["eth0"].received += 2000;
    f.monitor.tick();
  }
  QCOMPARE(f.cpu().history.size(), 30);
  QCOMPARE(f.cpu().history.first(), 11.0);
  QCOMPARE(f.cpu().history.last(), 40.0);
  QCOMPARE(f.network().secondHistory.size(), 30);
  QCOMPARE(f.network().secondHistory.last(), 1000.0);
  QCOMPARE(f.network().history.last(), 0.0);
}

void SystemMonitorTests::aReaderThatFailsLeavesTheValueUnknown() {
  Fixture f;
  f.monitor.tick();
  f.readings.pass(2, 50, 50);
  f.monitor.tick();
  QCOMPARE(*f.cpu().percent, 50.0);
  f.readings.memoryReading.reset();
  const auto ticks = std::exchange(f.readings.ticks, std::nullopt);
  f.monitor.tick();
  QVERIFY(!f.cpu().percent);
  QVERIFY(!f.memory().percent);
  QCOMPARE(f.memory().tip, QString());
  // What comes back primes again.
  f.readings.ticks = ticks;
  f.readings.pass(4, 1000, 0);
  f.monitor.tick();
  QVERIFY(!f.monitor.cpuUsage());
}

void SystemMonitorTests::aNetworkThatComesBackGivesNoSpike() {
  Fixture f;
  f.monitor.tick();
  f.readings.pass(2, 1, 1);
  f.readings.counters.clear();
  f.monitor.tick();
  QVERIFY(!f.monitor.network());
  f.readings.pass(2, 1, 1);
  f.readings.counters["eth0"] = {9'000'000'000, 9'000'000'000};
  f.monitor.tick();
  QVERIFY(!f.monitor.network() || f.monitor.network()->receivedPerSecond == 0);
  f.readings.pass(2, 1, 1);
  f.readings.counters["eth0"].received += 4000;
  f.monitor.tick();
  QCOMPARE(f.monitor.network()->receivedPerSecond, 2000.0);
}

void SystemMonitorTests::theVolumeIsReadOffTheMainThreadAtMostOnceAMinute() {
  Fixture f;
  const Seconds start = f.readings.boot;
  QSignalSpy changed(f.monitor.diskFace(), &LiveFace::changed);
  f.monitor.tick();
  QCOMPARE(f.readings.volumeReads, 0);
  QVERIFY(!f.disk().percent);
  // A read that hangs is not joined by a second one.
  f.readings.boot = start + Seconds(120);
  f.monitor.tick();
  QCOMPARE(f.held.waiting.size(), 1u);
  f.held.letGo();
  QVERIFY2(*f.disk().percent == 60.0, "what is reserved for root is not used");
  QCOMPARE(f.disk().tip, QStringLiteral("250 GB of 1 TB free"));
  QCOMPARE(changed.count(), 1);

  f.readings.boot = start + Seconds(122);
  f.monitor.tick();
  QCOMPARE(f.held.waiting.size(), 1u);
  f.held.letGo();
  QCOMPARE(changed.count(), 1);
  f.readings.boot = start + Seconds(181.9);
  f.monitor.tick();
  QCOMPARE(f.held.waiting.size(), 0u);
  f.readings.volume->freeBytes = 0;
  f.readings.boot = start + Seconds(182);
  f.monitor.tick();
  f.held.letGo();
  QCOMPARE(*f.disk().percent, 100.0);
  QCOMPARE(changed.count(), 2);
}

}  // namespace ambrel

QTEST_GUILESS_MAIN(ambrel::SystemMonitorTests)
#include "SystemMonitorTests.moc"
