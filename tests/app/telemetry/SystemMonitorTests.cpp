#include <QSignalSpy>
#include <QTest>
#include <cmath>

#include "app/telemetry/SystemMonitor.h"
#include "tests/fakes/FakeReadings.h"
#include "tests/fakes/HeldWork.h"

namespace ambrel {
namespace {

struct Fixture {
  FakeReadings readings;
  HeldWork held;
  SystemMonitor monitor{readings, held.background(), Calendar("UTC", "en_US")};
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
  void aShareThatStaysIsNotAnnounced();
};

void SystemMonitorTests::aShareThatStaysIsNotAnnounced() {
  Fixture f;
  QSignalSpy share(&f.monitor, &SystemMonitor::cpuChanged), history(&f.monitor, &SystemMonitor::cpuHistoryChanged);
  QSignalSpy memory(&f.monitor, &SystemMonitor::memoryChanged);
  f.monitor.tick();
  QCOMPARE(memory.count(), 1);
  f.readings.pass(2, 101, 899);
  f.monitor.tick();
  f.readings.pass(2, 102, 898);
  f.monitor.tick();
  QCOMPARE(f.monitor.cpuText(), QStringLiteral("10 %"));
  QCOMPARE(share.count(), 1);
  QCOMPARE(history.count(), 2);
  QCOMPARE(memory.count(), 1);
  f.readings.pass(2, 120, 880);
  f.monitor.tick();
  QCOMPARE(share.count(), 2);
  // A sleep leaves nothing known.
  f.readings.pass(3600, 1, 1);
  f.monitor.tick();
  QVERIFY(std::isnan(f.monitor.cpuPercent()));
  QCOMPARE(share.count(), 3);
}

void SystemMonitorTests::whatNobodyLooksAtIsUnknownAndComesBackWithoutASpike() {
  Fixture f;
  f.monitor.tick();
  f.readings.pass(2, 1, 1);
  f.monitor.tick();
  QVERIFY(f.monitor.network());
  f.monitor.setWanted({.memory = false, .network = false});
  QCOMPARE(f.monitor.memoryText(), QString());
  QVERIFY(!f.monitor.network());
  f.readings.pass(2, 1, 1);
  f.monitor.tick();
  QVERIFY(!f.monitor.memory());
  QVERIFY(f.monitor.cpuUsage());
  f.readings.counters["eth0"].received += 9'000'000'000;
  f.monitor.setWanted({});
  QCOMPARE(f.monitor.memoryPercent(), 75.0);
  f.readings.pass(2, 1, 1);
  f.monitor.tick();
  QVERIFY(!f.monitor.network());
  f.readings.pass(2, 1, 1);
  f.readings.counters["eth0"].received += 4000;
  f.monitor.tick();
  QCOMPARE(f.monitor.network()->receivedPerSecond, 2000.0);
  QCOMPARE(f.monitor.downloadHistory().size(), 1);
}

void SystemMonitorTests::aFirstReadingPublishesNoRate() {
  Fixture f;
  f.monitor.tick();
  QVERIFY(!f.monitor.cpuUsage());
  QVERIFY(std::isnan(f.monitor.cpuPercent()));
  QVERIFY(!f.monitor.network());
  QCOMPARE(f.monitor.downloadFigure(), QString());
  QVERIFY(f.monitor.cpuHistory().isEmpty());
  QCOMPARE(f.monitor.memoryPercent(), 75.0);
  QCOMPARE(f.monitor.memoryText(), QStringLiteral("12 GB of 16 GB in use"));
}

void SystemMonitorTests::ratesComeFromTheDifferences() {
  Fixture f;
  f.monitor.tick();
  f.readings.pass(2, 50, 150);
  f.readings.counters["eth0"] = {1'000 + 2'400'000, 500 + 6'000};
  f.monitor.tick();
  QCOMPARE(f.monitor.cpuPercent(), 25.0);
  QCOMPARE(f.monitor.network()->receivedPerSecond, 1'200'000.0);
  QCOMPARE(f.monitor.downloadFigure(), QStringLiteral("1.2"));
  QCOMPARE(f.monitor.downloadUnit(), QStringLiteral("MB/s"));
  QCOMPARE(f.monitor.uploadFigure(), QStringLiteral("3"));
  QCOMPARE(f.monitor.uploadUnit(), QStringLiteral("KB/s"));
}

void SystemMonitorTests::theHistoriesSpanAMinute() {
  Fixture f;
  f.monitor.tick();
  for (int i = 1; i <= 40; ++i) {
    f.readings.pass(2, static_cast<std::uint64_t>(i), static_cast<std::uint64_t>(100 - i));
    f.readings.counters["eth0"].received += 2000;
    f.monitor.tick();
  }
  QCOMPARE(f.monitor.cpuHistory().size(), 30);
  QCOMPARE(f.monitor.cpuHistory().first(), 11.0);
  QCOMPARE(f.monitor.cpuHistory().last(), 40.0);
  QCOMPARE(f.monitor.downloadHistory().size(), 30);
  QCOMPARE(f.monitor.downloadHistory().last(), 1000.0);
  QCOMPARE(f.monitor.uploadHistory().last(), 0.0);
}

void SystemMonitorTests::aReaderThatFailsLeavesTheValueUnknown() {
  Fixture f;
  f.monitor.tick();
  f.readings.pass(2, 50, 50);
  f.monitor.tick();
  QCOMPARE(f.monitor.cpuPercent(), 50.0);
  f.readings.memoryReading.reset();
  const auto ticks = std::exchange(f.readings.ticks, std::nullopt);
  f.monitor.tick();
  QVERIFY(std::isnan(f.monitor.cpuPercent()));
  QVERIFY(std::isnan(f.monitor.memoryPercent()));
  QCOMPARE(f.monitor.memoryText(), QString());
  // What comes back primes anew.
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
  QSignalSpy changed(&f.monitor, &SystemMonitor::diskChanged);
  f.monitor.tick();
  QCOMPARE(f.readings.volumeReads, 0);
  QVERIFY(std::isnan(f.monitor.diskPercent()));
  // A read that hangs is not joined by a second one.
  f.readings.boot = start + Seconds(120);
  f.monitor.tick();
  QCOMPARE(f.held.waiting.size(), 1u);
  f.held.letGo();
  QVERIFY2(f.monitor.diskPercent() == 60.0, "what is reserved for root is not used");
  QCOMPARE(f.monitor.diskText(), QStringLiteral("250 GB of 1 TB free"));
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
  QCOMPARE(f.monitor.diskPercent(), 100.0);
  QCOMPARE(changed.count(), 2);
}

}  // namespace ambrel

QTEST_GUILESS_MAIN(ambrel::SystemMonitorTests)
#include "SystemMonitorTests.moc"
