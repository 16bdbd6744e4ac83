#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>
#include <algorithm>

#include "tests/app/kit/TileBoard.h"
#include "tests/app/telemetry/Computer.h"

namespace ambrel {
namespace {

// The panels behind them.
bool loadPanels(Scene& scene, Computer& computer) {
  return showPanels(scene, computer.area,
                    {"Processor", "Network", "Latency", "Memory", "Power", "WiFi", "Volumes", "Bluetooth", "Sound"});
}

QString spoken(Scene& scene, const QString& tile) {
  QQuickItem* item = scene.find(tile);
  return item ? item->property("label").toString() : QStringLiteral("no such tile");
}

// Figures and states that end in an ellipsis. Names that somebody has given may.
QStringList cutValuesOf(QQuickItem* tile, const QStringList& names) {
  QStringList cut;
  visitShown(tile, [&](QQuickItem* item) {
    if (!item->property("truncated").toBool()) return;
    const QString text = item->property("text").toString();
    const bool isValue = item->inherits("ambrel::TickingText");
    const bool isName = std::ranges::any_of(names, [&](const QString& name) { return text.contains(name); });
    if (isName ? tile->property("tip").toString().isEmpty() : isValue) cut << tile->objectName() + ": " + text;
  });
  return cut;
}

// As much of everything as there can be.
void beExtreme(Computer& computer) {
  computer.bePlentiful();
  FakeTelemetry& telemetry = computer.telemetry;
  telemetry.gpuLoad = 1;
  telemetry.pressureReading = {.level = MemoryPressure::critical, .fraction = 0, .swapUsedBytes = 888'880'000'000};
  telemetry.thermalReading = {.level = ThermalLevel::nominal, .celsius = 108};
  telemetry.health->health = BatteryHealth{.cycleCount = 12345, .maximumCapacity = 100};
  telemetry.powerReading = {
      .adapterWatts = 240, .isOnAdapter = true, .isCharging = true, .percent = 100, .minutesToFull = 12 * 60 + 42};
  telemetry.wifiReading = {.isOn = true,
                           .rssi = -100,
                           .noise = -94,
                           .networkName = "A network of thirty-two letters.",
                           .megabitsPerSecond = 9608};
  telemetry.drives->front() = {.url = "file:///media/anna/0",
                               .name = "An uncommonly long name for a stick",
                               .freeBytes = 888'880'000'000,
                               .totalBytes = 8'888'880'000'000};
  telemetry.networkAddresses = {{.interface = "enp0s20f0u1u4", .text = "208.208.208.208", .isDefault = true}};
  computer.probe.check = {.milliseconds = 888.8};
  computer.bluetooth.present->devices.front() = {"1", "Anna's Very Comfortable Headphones", "audio-headphones", 100};
  computer.sound.speaker = SoundLevel{.volume = 1.5};
  computer.live.setDisplay(
      DisplayReading{.name = "DP-1", .width = 15360, .height = 8640, .refreshRate = 239.98, .scale = 1.25});
  computer.readings.memoryReading = MemoryReading{.totalBytes = 888'880'000'000, .availableBytes = 0};
  computer.readings.volume =
      VolumeSizes{.freeBytes = 888'880'000'000, .totalBytes = 888'880'000'000'000, .usedBytes = 887'991'120'000'000};
  computer.readings.boot = std::chrono::hours(24 * 888 + 23);
  computer.everyTick = [&computer] {
    FakeTelemetry& telemetry = computer.telemetry;
    telemetry.disks->uptimeNanoseconds += 2'000'000'000;
    telemetry.disks->read += 2 * 888'800'000;
    telemetry.disks->written += 2 * 88'880'000;
    telemetry.snapshot->uptimeNanoseconds += 2'000'000'000;
    for (ProcessSample& sample : telemetry.snapshot->samples) sample.cpuNanoseconds += 128'000'000'000;
    computer.readings.pass(0, 1'000'000'000, 0);
    computer.readings.counters["eth0"].received += 2 * 888'800'000;
    computer.readings.counters["eth0"].sent += 2 * 88'880;
  };
}

}  // namespace

class LiveTilesTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void tilesShowWhatIsRead() {
    Computer computer;
    computer.bePlentiful();
    computer.show();
    computer.pass(40);
    Scene scene;
    QVERIFY(showTiles(scene, {&computer.area}));
    QCOMPARE(faultsInBothSchemes(scene, "full"), QStringList());
    // One of each kind of tile.
    const std::pair<const char*, const char*> rows[] = {
        {"memoryPressureMedium", "Memory Pressure, Normal, Swap 1.2 GB"},
        {"diskActivityMedium", "Disk Activity, read 8.4 MB/s, written 1.2 MB/s"},
        {"topAppsLarge", "Top Apps, cc1plus 98 %\nfirefox 30 %\nWeb Content 4.5 %"},
        {"topAppsSmall", "Top Apps, 98 %, cc1plus"},
        {"bluetoothMedium", "Bluetooth, WH-1000XM4, 67 %, 1 more"},
        {"cpuMedium", "CPU, 21 %, 2 cores"},
        {"cpuChartLarge", "CPU Chart, 21 %"},
        {"networkChartLarge", "Network Chart, up 90 KB/s, down 1.4 MB/s"},
    };
    for (const auto& [tile, text] : rows) QCOMPARE(spoken(scene, QLatin1String(tile)), QString::fromUtf8(text));
  }

  void tilesWithoutAPartSayWhy() {
    Computer computer;
    computer.probe.check = {};
    computer.sound.speaker.reset();
    computer.sound.mic.reset();
    computer.bluetooth.present.reset();
    computer.keepAwake.canHold = false;
    computer.live.setDisplay(std::nullopt);
    computer.show();
    computer.live.keepAwake()->toggle();
    Scene scene;
    QVERIFY(showTiles(scene, {&computer.area}));
    QCOMPARE(faultsInBothSchemes(scene, "without"), QStringList());
    QCOMPARE(spoken(scene, QStringLiteral("gpuMedium")), QStringLiteral("GPU, No GPU statistics"));
    QCOMPARE(spoken(scene, QStringLiteral("micMuteSmall")), QStringLiteral("Mic Mute, No microphone"));
    QCOMPARE(scene.find("volumesMedium")->property("tip").toString(),
             QStringLiteral("No external drives\nConnect a drive to see it here"));
  }

  void tilesSayThatTheyMeasure() {
    Computer computer;
    computer.bePlentiful();
    Scene scene;
    QVERIFY(showTiles(scene, {&computer.area}));
    QCOMPARE(faultsInBothSchemes(scene, "measuring"), QStringList());
    for (const char* tile : {"gpu", "memoryPressure", "diskActivity", "topApps", "thermal", "battery", "batteryHealth",
                             "power", "wifi", "latency", "volumes", "ipAddress", "cpu"})
      QVERIFY2(spoken(scene, QLatin1String(tile) + "Medium").endsWith("–, Measuring…"), tile);
  }

  void clicksSwitchAndEject() {
    Computer computer;
    computer.bePlentiful();
    computer.show();
    Scene scene;
    QVERIFY(showTiles(scene, {&computer.area}));
    const auto click = [&](const char* tile, QPointF at) {
      QTest::mouseClick(&scene.window(), Qt::LeftButton, {}, scene.find(tile)->mapToScene(at).toPoint());
    };
    click("keepAwakeSmall", {30, 30});
    QVERIFY(computer.keepAwake.isHeld());
    click("keepAwakeMedium", {30, 30});
    QVERIFY(!computer.keepAwake.isHeld());
    click("micMuteSmall", {30, 30});
    QVERIFY(computer.sound.mic->isMuted);

    QSignalSpy opened(scene.find("volumesMedium"), SIGNAL(clicked()));
    click("volumesMedium", {90, 44});
    QCOMPARE(computer.volumes.asked, std::vector<std::string>{"file:///media/anna/STICK"});
    QCOMPARE(opened.count(), 0);
    QCOMPARE(spoken(scene, "volumesMedium"), QStringLiteral("Volumes, STICK, Ejecting…"));
    click("volumesMedium", {30, 20});
    QCOMPARE(opened.count(), 1);
  }

  void theWheelTurnsTheVolumeOnceThePointerHasMovedThere() {
    Computer computer;
    computer.bePlentiful();
    computer.show();
    Scene scene;
    QVERIFY(showTiles(scene, {&computer.area}));
    const QPointF at = scene.find("volumeMedium")->mapToScene({40, 30});
    const auto turn = [&] {
      QWheelEvent up(at, scene.window().mapToGlobal(at), {}, {0, 120}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
      QCoreApplication::sendEvent(&scene.window(), &up);
    };
    QTest::mouseMove(&scene.window(), at.toPoint());
    turn();
    QVERIFY2(computer.sound.speaker->volume == 0.64, "the bar was scrolled, and the tile came under the pointer");
    QTest::mouseMove(&scene.window(), at.toPoint() + QPoint(6, 2));
    turn();
    QCOMPARE(computer.sound.speaker->volume, 0.69);
  }

  void panelsShowTheDetails() {
    Computer computer;
    computer.bePlentiful();
    computer.show();
    computer.pass(40);
    computer.live.eject(QStringLiteral("file:///media/anna/STICK"));
    computer.volumes.answer({.outcome = EjectOutcome::busy, .reason = "target is busy"});
    computer.live.eject(QStringLiteral("file:///media/anna/Archive"));
    Scene scene;
    QVERIFY(loadPanels(scene, computer));
    QCOMPARE(faultsInBothSchemes(scene, "panels"), QStringList());
    // Each has the list of its part.
    const QStringList texts = textsOf(scene.root());
    for (const char* text : {"cc1plus", "192.168.178.120", "Jitter", "Cycles", "Link speed", "Archive", "MX Keys"})
      QVERIFY2(texts.contains(QLatin1String(text)), text);
  }

  void panelsWithoutAPartSayWhy() {
    Computer computer;
    computer.sound.speaker.reset();
    computer.sound.mic.reset();
    computer.bluetooth.present->isOn = false;
    computer.show();
    Scene scene;
    QVERIFY(loadPanels(scene, computer));
    QCOMPARE(faultsInBothSchemes(scene, "panels-without"), QStringList());
  }

  void everyControlOfAPanelIsReachedByTab() {
    Computer computer;
    computer.bePlentiful();
    computer.show();
    computer.pass(1);
    Scene scene;
    QVERIFY(loadPanels(scene, computer));
    const QStringList names = namesByTab(scene);
    for (const char* wanted : {"Top Apps", "192.168.178.120, wlp3s0", "Ask again", "Eject STICK", "Eject Archive",
                               "Bluetooth", "Mute", "Output volume, 64 %", "Output", "Microphone"})
      QVERIFY2(names.contains(QLatin1String(wanted)), qPrintable(names.join(QStringLiteral("; "))));
    QCOMPARE(names.filter("nameless"), QStringList());
  }

  // With the greatest that the parts can come to.
  void valuesStayWhole() {
    for (const char* locale : {"en_US", "de_DE"})
      for (const bool isSlow : {false, true}) {
        Computer computer(locale);
        beExtreme(computer);
        if (isSlow) {
          // What there is of the rest: long times, and a battery that is used.
          computer.probe.check = {.milliseconds = 9876};
          computer.telemetry.powerReading = {.isOnAdapter = false, .percent = 100, .minutesToEmpty = 18 * 60 + 48};
          computer.telemetry.thermalReading->level = ThermalLevel::critical;
          computer.telemetry.health->health->condition = BatteryCondition::serviceRecommended;
          computer.sound.speaker->isMuted = computer.sound.mic->isMuted = true;
          computer.live.keepAwake()->toggle();
        }
        computer.now = parseISO8601("2026-09-23T22:58:00Z").value();
        computer.show();
        computer.pass(60);
        Scene scene;
        QVERIFY(showTiles(scene, {&computer.area}));
        const QStringList names{"A network", "An uncommonly", "Anna's"};
        QStringList faults = faultsOf(scene);
        for (QQuickItem* tile : tilesOf(scene)) faults += collisionsOf(tile) + cutValuesOf(tile, names);
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
      }
  }
};

}  // namespace ambrel

QTEST_MAIN(ambrel::LiveTilesTests)
#include "LiveTilesTests.moc"
