#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

#include "app/telemetry/Sampler.h"
#include "tests/app/telemetry/Computer.h"
#include "tests/fakes/HeldWork.h"

namespace ambrel {
namespace {

using enum DockWidget;

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

class LiveModelsTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void aTileReadsItsOwnPartAlone() {
    for (const DockWidget widget : Computer::everything()) {
      Computer computer;
      computer.show({widget});
      const SamplerBase* own = computer.live.samplerOf(widget);
      const bool isOfTheKernel = std::set{cpu, cpuChart, memory, network, networkChart, disk}.contains(widget);
      QCOMPARE(computer.telemetry.reads + computer.probe.probes, own && !isOfTheKernel ? 1 : 0);
      QVERIFY(!own || own->lastRun());
      QCOMPARE(computer.live.memory().lastRun().has_value(), widget == memory || widget == memoryPressure);
    }
  }

  void nothingIsReadOutOfSight() {
    Computer computer;
    computer.show(Computer::everything(), false);
    computer.pass(30);
    QCOMPARE(computer.telemetry.reads, 0);
    QCOMPARE(computer.probe.probes, 0);
  }

  void aNeedKeepsASamplerReadingInItsOwnRhythm() {
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

  void comingIntoSightReadsAtOnce() {
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

  void ratesComeFromTheDifferences() {
    Computer computer;
    computer.show({cpu, memory, network});
    QVERIFY2(!computer.shown(cpu).percent && computer.shown(network).value == "–", "one reading makes no rate");
    QCOMPARE(computer.shown(memory).tip, QStringLiteral("12 GB of 16 GB in use"));
    computer.everyTick = [&] {
      computer.readings.counters["eth0"].received += 2'400'000;
      computer.readings.counters["eth0"].sent += 6'000;
    };
    computer.pass(1);
    QCOMPARE(*computer.shown(cpu).percent, 23.0);
    QCOMPARE(computer.shown(network).spoken, QStringLiteral("up 3 KB/s, down 1.2 MB/s"));
    QSignalSpy changed(&computer.face(cpu), &LiveFace::changed);
    computer.readings.pass(2, 0, 0);
    computer.live.tick(computer.now);
    QVERIFY2(changed.isEmpty(), "two readings within one tick of the kernel");
  }

  void aMinuteIsKeptAlsoWhileTheBarIsHidden() {
    Computer computer;
    computer.show({cpu, network}, false);
    computer.pass(40);
    QCOMPARE(computer.shown(cpu).history.size() + computer.shown(network).history.size(), 60);
    // A sleep leaves nothing known.
    computer.readings.pass(3600, 1, 1);
    computer.pass(1);
    QVERIFY(!computer.shown(cpu).percent && computer.shown(cpu).history.isEmpty());
  }

  void whatIsNoLongerThereIsUnknown() {
    Computer computer;
    computer.show({cpu, memory, network});
    computer.pass(2);
    computer.readings.memoryReading.reset();
    const NetworkCounters counters = std::exchange(computer.readings.counters, {});
    computer.pass(1);
    QVERIFY(!computer.shown(memory).percent && computer.shown(network).unit.isEmpty());
    // An interface that comes back gives no spike.
    computer.readings.counters["eth0"] = {9'000'000'000, 9'000'000'000};
    computer.pass(1);
    QVERIFY(computer.shown(network).unit.isEmpty());
    computer.pass(1);
    QCOMPARE(computer.shown(network).spoken, QStringLiteral("up 0 B/s, down 0 B/s"));
  }

  void theVolumeIsReadOffTheMainThreadOnceAMinute() {
    Computer computer;
    QCOMPARE(computer.readings.volumeReads, 0);
    QVERIFY(!computer.shown(disk).percent);
    computer.held.letGo();
    QVERIFY2(*computer.shown(disk).percent == 60.0, "what is reserved for root is not used");
    QCOMPARE(computer.shown(disk).tip, QStringLiteral("250 GB of 1 TB free"));
    computer.pass(29);
    QCOMPARE(computer.readings.volumeReads, 1);
    computer.pass(1);
    QCOMPARE(computer.readings.volumeReads, 2);
  }

  void theLatencyIsProbedEveryThirtySeconds() {
    Computer computer;
    computer.show({latency});
    computer.pass(60);
    QCOMPARE(computer.probe.probes, 5);
    // A near server is not shown as 0.
    computer.probe.check = {.milliseconds = 0.38};
    computer.pass(15);
    QCOMPARE(computer.shown(latency).figure(), QStringLiteral("0.4 ms"));
  }

  void theHealthGoesWithTheBattery() {
    // Beside the charge, and alone, when it is read less often.
    const std::pair<std::set<DockWidget>, int> rows[] = {{{batteryHealth, power}, 2}, {{batteryHealth}, 15}};
    for (const auto& [widgets, ticks] : rows) {
      Computer computer;
      computer.bePlentiful();
      computer.show(widgets);
      const TileReading& shown = computer.shown(batteryHealth);
      QCOMPARE(shown.value, QStringLiteral("91"));
      // The battery is taken out, or its service ends; later it is back.
      const auto health = std::exchange(computer.telemetry.health, BatteryHealthReading{});
      const auto reading = std::exchange(computer.telemetry.powerReading, PowerReading{.isOnAdapter = true});
      computer.pass(ticks);
      computer.held.letGo();
      QCOMPARE(shown.message, QStringLiteral("This computer runs on power"));
      computer.telemetry.health = health;
      computer.telemetry.powerReading = reading;
      computer.pass(ticks);
      computer.held.letGo();
      QCOMPARE(shown.value, QStringLiteral("91"));
    }
  }

  void whatSpeaksUpByItselfIsListenedToWhileItHasATile() {
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

  void theThreeBusiestMoveWithoutAReset() {
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

  void aDriveIsEjectedOnceAndSaysWhatCameOfIt() {
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
    computer.telemetry.drives->push_back({.url = "file:///mnt/nas", .name = "nas", .isRemote = true});
    computer.pass(2);
    for (const char* none : {"file:///etc", "file:///mnt/nas"}) computer.live.eject(QLatin1String(none));
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

  void beingKeptAwakeEndsWithItsTile() {
    Computer computer;
    computer.keepAwake.canHold = false;
    computer.show({keepAwake});
    computer.live.keepAwake()->toggle();
    QCOMPARE(computer.shown(keepAwake).value, QStringLiteral("Failed"));
    computer.keepAwake.canHold = true;
    computer.live.keepAwake()->toggle();
    QCOMPARE(computer.shown(keepAwake).value, QStringLiteral("Awake"));
    computer.show({keepAwake}, false);
    QVERIFY2(computer.keepAwake.isHeld(), "out of sight is not gone");
    computer.show({cpu});
    QVERIFY(!computer.keepAwake.isHeld());
    QCOMPARE(computer.shown(keepAwake).value, QStringLiteral("Off"));
  }

  void theUptimeIsShownAtTheTurnOfTheMinute() {
    Computer computer;
    computer.readings.boot = Seconds(59 * 60);
    computer.show({uptime});
    QSignalSpy changed(&computer.face(uptime), &LiveFace::changed);
    computer.pass(29);
    QCOMPARE(changed.count(), 0);
    computer.pass(1);
    QCOMPARE(computer.shown(uptime).value, QStringLiteral("1 h 0 min"));
  }

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
    QVERIFY(f.sampler.isUnavailable() && !f.sampler.value());
    // The first reading after the failure is only a starting point.
    f.sample(12, 5000);
    QVERIFY(!f.sampler.isUnavailable() && !f.sampler.value());
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
    QVERIFY(!f.sampler.value() && f.sampler.history().empty());
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

QTEST_GUILESS_MAIN(ambrel::LiveModelsTests)
#include "LiveModelsTests.moc"
