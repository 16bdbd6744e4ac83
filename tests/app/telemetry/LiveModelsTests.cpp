#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

#include "tests/app/telemetry/Computer.h"

namespace ambrel {

using enum DockWidget;

class LiveModelsTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void aTileReadsItsOwnPartAlone();
  void nothingIsReadOutOfSight();
  void aNeedKeepsASamplerReadingInItsOwnRhythm();
  void comingIntoSightReadsAtOnce();
  void theLatencyIsProbedEveryThirtySeconds();
  void theHealthGoesWithTheBattery_data();
  void theHealthGoesWithTheBattery();
  void whatSpeaksUpByItselfIsListenedToWhileItsTileStands();
  void textsAreAnnouncedOnlyWhenTheyDiffer();
  void theThreeBusiestMoveWithoutAReset();
  void aDriveIsEjectedOnceAndSaysWhatCameOfIt();
  void aNetworkFolderHasNoSizeAndIsNotEjected();
  void beingKeptAwakeEndsWithItsTile();
  void aRefusalToStayAwakeIsSaid();
  void theUptimeIsTheTimeSinceBoot();
};

void LiveModelsTests::aTileReadsItsOwnPartAlone() {
  for (const DockWidget widget : Computer::everything()) {
    Computer computer;
    computer.show({widget});
    const SamplerBase* own = computer.live.samplerOf(widget);
    QCOMPARE(computer.telemetry.reads + computer.probe.probes, own ? 1 : 0);
    QVERIFY(!own || own->lastRun());
  }
  QVERIFY(Computer().live.samplerOf(thermal) && !Computer().live.samplerOf(cpu));
}

void LiveModelsTests::nothingIsReadOutOfSight() {
  Computer computer;
  computer.show(Computer::everything(), false);
  computer.pass(30);
  QCOMPARE(computer.telemetry.reads, 0);
  QCOMPARE(computer.probe.probes, 0);
}

void LiveModelsTests::aNeedKeepsASamplerReadingInItsOwnRhythm() {
  Computer computer;
  computer.bePlentiful();
  LiveModels::Need need = computer.live.require(computer.live.topApps(), Seconds(10));
  computer.held.letGo();
  QCOMPARE(computer.telemetry.reads, 1);
  computer.pass(15);
  QCOMPARE(computer.telemetry.reads, 4);
  QCOMPARE(computer.live.topApps().value()->front().name, std::string("cc1plus"));
  // A tile that shows it as well reads as often as it needs.
  computer.show({topApps});
  computer.pass(10);
  QCOMPARE(computer.telemetry.reads, 9);
  computer.show({});
  need.reset();
  computer.pass(10);
  QCOMPARE(computer.telemetry.reads, 9);
}

void LiveModelsTests::comingIntoSightReadsAtOnce() {
  Computer computer;
  computer.bePlentiful();
  computer.show({memoryPressure});
  QCOMPARE(computer.shown(memoryPressure).value, QStringLiteral("Normal"));
  computer.show({memoryPressure}, false);
  computer.pass(100);
  computer.telemetry.pressureReading->level = MemoryPressure::warning;
  computer.show({memoryPressure});
  QCOMPARE(computer.shown(memoryPressure).value, QStringLiteral("Warning"));
}

void LiveModelsTests::theLatencyIsProbedEveryThirtySeconds() {
  Computer computer;
  computer.show({latency});
  computer.pass(60);
  QCOMPARE(computer.probe.probes, 5);
  // A near server is not shown as 0.
  computer.probe.check = {.milliseconds = 0.38};
  computer.pass(15);
  QCOMPARE(computer.shown(latency).figure(), QStringLiteral("0.4 ms"));
  // One that hangs is not joined by a second.
  computer.live.refreshLatency();
  computer.live.tick(computer.now + std::chrono::minutes(2));
  QCOMPARE(computer.held.waiting.size(), 1u);
}

void LiveModelsTests::theHealthGoesWithTheBattery_data() {
  QTest::addColumn<bool>("isPowerShown");
  QTest::addColumn<int>("ticks");
  QTest::newRow("beside the charge") << true << 2;
  QTest::newRow("alone") << false << 15;
}

void LiveModelsTests::theHealthGoesWithTheBattery() {
  QFETCH(bool, isPowerShown);
  QFETCH(int, ticks);
  Computer computer;
  computer.bePlentiful();
  computer.show(isPowerShown ? std::set{batteryHealth, power} : std::set{batteryHealth});
  const TileReading& shown = computer.shown(batteryHealth);
  QCOMPARE(shown.value, QStringLiteral("91"));
  // The battery is taken out, or its service ends; later it is back.
  const auto healthWas = computer.telemetry.health;
  const auto powerWas = computer.telemetry.powerReading;
  computer.telemetry.health = BatteryHealthReading{};
  computer.telemetry.powerReading = PowerReading{.isOnAdapter = true};
  computer.pass(ticks);
  computer.held.letGo();
  QCOMPARE(shown.message, QStringLiteral("This computer runs on power"));
  computer.telemetry.health = healthWas;
  computer.telemetry.powerReading = powerWas;
  computer.pass(ticks);
  computer.held.letGo();
  QCOMPARE(shown.value, QStringLiteral("91"));
}

void LiveModelsTests::whatSpeaksUpByItselfIsListenedToWhileItsTileStands() {
  Computer computer;
  computer.bePlentiful();
  QVERIFY(!computer.sound.isListenedTo() && !computer.bluetooth.isListenedTo());
  computer.show({micMute, bluetooth}, false);
  QVERIFY(computer.sound.isListenedTo() && computer.bluetooth.isListenedTo());
  QSignalSpy changed(&computer.face(micMute), &LiveFace::changed);
  computer.sound.change([&] { computer.sound.mic->isMuted = true; });
  QCOMPARE(changed.count(), 1);
  QCOMPARE(computer.shown(micMute).value, QStringLiteral("Muted"));
  computer.bluetooth.change([&] { computer.bluetooth.present->devices.clear(); });
  QCOMPARE(computer.shown(bluetooth).message, QStringLiteral("No devices connected"));
  computer.show({cpu});
  QVERIFY(!computer.sound.isListenedTo() && !computer.bluetooth.isListenedTo());
}

void LiveModelsTests::textsAreAnnouncedOnlyWhenTheyDiffer() {
  Computer computer;
  computer.bePlentiful();
  computer.everyTick = nullptr;
  computer.show();
  computer.pass(1);
  std::vector<std::unique_ptr<QSignalSpy>> spies;
  for (const DockWidget widget : {memoryPressure, power, wifi, DockWidget::volumes, thermal, ipAddress})
    spies.push_back(std::make_unique<QSignalSpy>(&computer.face(widget), &LiveFace::changed));
  computer.pass(8);
  for (const auto& spy : spies) QCOMPARE(spy->count(), 0);
}

void LiveModelsTests::theThreeBusiestMoveWithoutAReset() {
  Computer computer;
  computer.bePlentiful();
  QAbstractItemModelTester tester(computer.face(topApps).rows(),
                                  QAbstractItemModelTester::FailureReportingMode::QtTest);
  QSignalSpy reset(computer.face(topApps).rows(), &QAbstractItemModel::modelReset);
  computer.show({topApps});
  computer.pass(4);
  const auto names = [&] {
    QStringList list;
    for (const LiveRow& row : computer.face(topApps).rows()->rows()) list << row.title + u' ' + row.figure;
    return list;
  };
  QCOMPARE(names(), (QStringList{"cc1plus 98 %", "firefox 30 %", "Web Content 4.5 %"}));
  // The compiler ends, and the browser goes on.
  computer.telemetry.snapshot->samples.erase(computer.telemetry.snapshot->samples.begin() + 2);
  computer.telemetry.snapshot->samples.push_back({500, "ld", 0});
  computer.everyTick = [&] {
    computer.telemetry.snapshot->uptimeNanoseconds += 2'000'000'000;
    computer.telemetry.snapshot->samples[0].cpuNanoseconds += 600'000'000;
    computer.telemetry.snapshot->samples[3].cpuNanoseconds += 3'000'000'000;
  };
  computer.pass(4);
  QCOMPARE(names(), (QStringList{"ld 150 %", "firefox 30 %"}));
  QCOMPARE(reset.count(), 0);
}

void LiveModelsTests::aDriveIsEjectedOnceAndSaysWhatCameOfIt() {
  Computer computer;
  computer.bePlentiful();
  QList<QPair<QString, EjectOutcome>> told;
  computer.live.onEjected = [&](const QString& name, const EjectResult& result) {
    told.append({name, result.outcome});
  };
  computer.show({DockWidget::volumes});
  const auto detail = [&](int row) {
    return computer.face(DockWidget::volumes).rows()->rows()[static_cast<std::size_t>(row)].detail;
  };
  const QString stick = QStringLiteral("file:///media/anna/STICK");
  computer.live.eject(QStringLiteral("file:///etc"));
  QVERIFY(computer.volumes.asked.empty());
  computer.live.eject(stick);
  computer.live.eject(stick);
  QCOMPARE(computer.volumes.asked.size(), 1u);
  QCOMPARE(detail(0), QStringLiteral("Ejecting…"));
  QCOMPARE(detail(1), QStringLiteral("900 GB of 4 TB free"));

  computer.volumes.answer({.outcome = EjectOutcome::busy, .reason = "target is busy"});
  QCOMPARE(detail(0), QStringLiteral("A program still uses it"));
  QCOMPARE(computer.shown(DockWidget::volumes).subLine, QStringLiteral("A program still uses it"));
  computer.pass(20);
  QCOMPARE(detail(0), QStringLiteral("12 GB of 64 GB free"));
  computer.live.eject(stick);
  QCOMPARE(computer.volumes.asked.size(), 2u);
  computer.telemetry.drives->erase(computer.telemetry.drives->begin());
  computer.volumes.answer({.outcome = EjectOutcome::ejected});
  computer.held.letGo();
  QCOMPARE(computer.shown(DockWidget::volumes).value, QStringLiteral("Archive"));
  QCOMPARE(told,
           (QList<QPair<QString, EjectOutcome>>{{"STICK", EjectOutcome::busy}, {"STICK", EjectOutcome::ejected}}));
  // The same stick again: what went wrong once is no longer said.
  computer.telemetry.drives->insert(computer.telemetry.drives->begin(),
                                    {.url = stick.toStdString(), .name = "STICK", .freeBytes = 1, .totalBytes = 2});
  computer.pass(2);
  QCOMPARE(detail(0), QStringLiteral("1 byte of 2 bytes free"));
}

void LiveModelsTests::aNetworkFolderHasNoSizeAndIsNotEjected() {
  Computer computer;
  computer.telemetry.drives = {{.url = "file:///mnt/nas", .name = "nas", .isRemote = true}};
  computer.show({DockWidget::volumes});
  const LiveRow& row = computer.face(DockWidget::volumes).rows()->rows().front();
  QCOMPARE(row.detail, QStringLiteral("Network folder"));
  QVERIFY(!row.hasAction);
  QCOMPARE(computer.shown(DockWidget::volumes).subLine, QStringLiteral("Network folder"));
  QVERIFY(!computer.shown(DockWidget::volumes).percent);
  computer.live.ejectFirst();
  QVERIFY(computer.volumes.asked.empty());
}

void LiveModelsTests::beingKeptAwakeEndsWithItsTile() {
  Computer computer;
  computer.show({keepAwake});
  computer.live.keepAwake()->toggle();
  QVERIFY(computer.keepAwake.isHeld());
  QCOMPARE(computer.shown(keepAwake).value, QStringLiteral("Awake"));
  // Out of sight is not gone.
  computer.show({keepAwake}, false);
  QVERIFY(computer.keepAwake.isHeld());
  computer.show({cpu});
  QVERIFY(!computer.keepAwake.isHeld());
  QCOMPARE(computer.shown(keepAwake).value, QStringLiteral("Off"));
}

void LiveModelsTests::aRefusalToStayAwakeIsSaid() {
  Computer computer;
  computer.keepAwake.canHold = false;
  computer.show({keepAwake});
  computer.live.keepAwake()->toggle();
  QCOMPARE(computer.shown(keepAwake).value, QStringLiteral("Failed"));
  computer.keepAwake.canHold = true;
  computer.live.keepAwake()->toggle();
  QCOMPARE(computer.shown(keepAwake).value, QStringLiteral("Awake"));
}

void LiveModelsTests::theUptimeIsTheTimeSinceBoot() {
  Computer computer;
  computer.readings.boot = Seconds(59 * 60);
  computer.show({uptime});
  QCOMPARE(computer.shown(uptime).value, QStringLiteral("59 min"));
  QSignalSpy changed(&computer.face(uptime), &LiveFace::changed);
  computer.pass(29);
  QCOMPARE(changed.count(), 0);
  computer.pass(1);
  QCOMPARE(computer.shown(uptime).value, QStringLiteral("1 h 0 min"));
  computer.readings.boot = Seconds(3 * 86400 + 5 * 3600);
  computer.pass(1);
  QCOMPARE(computer.shown(uptime).value, QStringLiteral("3 d 5 h"));
}

}  // namespace ambrel

QTEST_GUILESS_MAIN(ambrel::LiveModelsTests)
#include "LiveModelsTests.moc"
