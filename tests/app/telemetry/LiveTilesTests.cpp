#include <QAccessible>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>
#include <span>

#include "tests/app/kit/Looks.h"
#include "tests/app/kit/TileBoard.h"
#include "tests/app/telemetry/Computer.h"

namespace ambrel {
namespace {

// Every tile in every size.
bool loadTiles(Scene& scene, Computer& computer) {
  auto board = std::make_unique<TileBoard>(scene, std::vector<Area*>{&computer.area, &computer.time});
  for (const DockWidget widget : board->widgets()) board->addInEverySize(widget);
  return scene.show(std::move(board));
}

// The panels behind them.
bool loadPanels(Scene& scene, Computer& computer) {
  auto board = std::make_unique<TileBoard>(scene, std::vector<Area*>{&computer.area});
  for (const char* panel :
       {"Processor", "Network", "Latency", "Memory", "Power", "WiFi", "Volumes", "Bluetooth", "Sound"})
    board->addPanel(QStringLiteral("Telemetry/%1Panel.qml").arg(QLatin1String(panel)));
  return scene.show(std::move(board));
}

QString spoken(Scene& scene, const QString& tile) {
  QQuickItem* item = scene.find(tile);
  return item ? item->property("label").toString() : QStringLiteral("no such tile");
}

void compare(Scene& scene, std::span<const std::pair<const char*, const char*>> rows) {
  for (const auto& [tile, text] : rows) QCOMPARE(spoken(scene, QLatin1String(tile)), QString::fromUtf8(text));
}

// Looks at both schemes; AMBREL_PICTURES names a folder that keeps what was seen.
void check(Scene& scene, const char* name) {
  for (const auto choice : {Theme::Choice::Dark, Theme::Choice::Light}) {
    scene.theme().setChoice(choice);
    QImage image, before;
    int alike = 0;
    // Colours ease into the other scheme.
    QVERIFY(QTest::qWaitFor([&] {
      before = std::exchange(image, scene.grab());
      alike = image == before ? alike + 1 : 0;
      return alike == 12;
    }));
    if (const QString folder = qEnvironmentVariable("AMBREL_PICTURES"); !folder.isEmpty())
      image.save(QStringLiteral("%1/%2-%3.png")
                     .arg(folder, QLatin1String(name), choice == Theme::Choice::Dark ? "dark" : "light"));
    QCOMPARE(faultsOf(scene), QStringList());
  }
  QCOMPARE(scene.warnings().take(), QStringList());
}

}  // namespace

class LiveTilesTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void tilesShowWhatIsRead();
  void tilesWithoutAPartSayWhy();
  void tilesSayThatTheyMeasure();
  void tilesRaiseTheirVoice();
  void clicksSwitchAndEject();
  void theWheelTurnsTheVolumeOnceThePointerHasMovedThere();
  void panelsShowTheDetails();
  void panelsWithoutAPartSayWhy();
  void everyControlOfAPanelIsReachedByTab();
};

void LiveTilesTests::tilesShowWhatIsRead() {
  Computer computer;
  computer.bePlentiful();
  computer.system.tick();
  computer.show();
  computer.pass(40);
  Scene scene;
  QVERIFY(loadTiles(scene, computer));
  check(scene, "full");
  const std::pair<const char*, const char*> rows[] = {
      {"gpuMedium", "GPU, 47 %, max 47"},
      {"memoryPressureMedium", "Memory Pressure, Normal, Swap 1.2 GB"},
      {"diskActivityMedium", "Disk Activity, read 8.4 MB/s, written 1.2 MB/s"},
      {"topAppsLarge", "Top Apps, cc1plus 98 %\nfirefox 30 %\nWeb Content 4.5 %"},
      {"topAppsSmall", "Top Apps, 98 %, cc1plus"},
      {"thermalMedium", "Thermal, 54 °C, Normal"},
      {"batterySmall", "Battery, 84 %, Full in 0:42"},
      {"batteryHealthMedium", "Battery Health, 91 %, Battery · Normal"},
      {"powerMedium", "Power, 65 W, Full in 0:42"},
      {"bluetoothMedium", "Bluetooth, WH-1000XM4, 67 %, 1 more"},
      {"wifiMedium", "Wi-Fi, Lighthouse, -58 dBm"},
      {"latencyMedium", "Latency, 23 ms, avg 23"},
      {"volumesMedium", "Volumes, STICK, 12 GB free"},
      {"displayMedium", "Display, 2880 × 1800, 60 Hz @2x"},
      {"uptimeMedium", "Uptime, 18 min, since 7:43\u202fAM"},
      {"ipAddressMedium", "IP Address, 192.168.178.120, wlp3s0"},
      {"volumeMedium", "Volume, 64 %"},
      {"keepAwakeSmall", "Keep Awake, Off"},
      {"micMuteSmall", "Mic Mute, On"},
      {"cpuMedium", "CPU, 21 %, 2 cores"},
      {"cpuChartLarge", "CPU Chart, 21 %"},
      {"networkChartLarge", "Network Chart, up 90 KB/s, down 1.4 MB/s"},
  };
  compare(scene, rows);
}

void LiveTilesTests::tilesWithoutAPartSayWhy() {
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
  QVERIFY(loadTiles(scene, computer));
  check(scene, "without");
  const std::pair<const char*, const char*> rows[] = {
      {"gpuMedium", "GPU, No GPU statistics"},
      {"memoryPressureMedium", "Memory Pressure, No memory statistics"},
      {"diskActivityMedium", "Disk Activity, No disk statistics"},
      {"topAppsLarge", "Top Apps, No process statistics"},
      {"thermalMedium", "Thermal, No sensor found"},
      {"batterySmall", "Battery, This computer runs on power"},
      {"batteryHealthMedium", "Battery Health, This computer runs on power"},
      {"powerMedium", "Power, This computer runs on power"},
      {"bluetoothMedium", "Bluetooth, No Bluetooth adapter"},
      {"wifiMedium", "Wi-Fi, This computer has no Wi-Fi"},
      {"latencyMedium", "Latency, No answer"},
      {"volumesMedium", "Volumes, No external drives"},
      {"displayMedium", "Display, No display"},
      {"ipAddressMedium", "IP Address, Not connected"},
      {"volumeMedium", "Volume, No sound output"},
      {"keepAwakeSmall", "Keep Awake, Failed"},
      {"micMuteSmall", "Mic Mute, No microphone"},
  };
  compare(scene, rows);
  QCOMPARE(scene.find("volumesMedium")->property("tip").toString(),
           QStringLiteral("No external drives\nConnect a drive to see it here"));
}

void LiveTilesTests::tilesSayThatTheyMeasure() {
  Computer computer;
  computer.bePlentiful();
  Scene scene;
  QVERIFY(loadTiles(scene, computer));
  check(scene, "measuring");
  for (const char* tile : {"gpu", "memoryPressure", "diskActivity", "topApps", "thermal", "battery", "batteryHealth",
                           "power", "wifi", "latency", "volumes", "ipAddress", "cpu"})
    QVERIFY2(spoken(scene, QLatin1String(tile) + "Medium").endsWith("–, Measuring…"), tile);
}

void LiveTilesTests::tilesRaiseTheirVoice() {
  Computer computer;
  computer.bePlentiful();
  computer.telemetry.pressureReading->level = MemoryPressure::critical;
  computer.telemetry.thermalReading = {.level = ThermalLevel::serious, .celsius = 96};
  computer.telemetry.powerReading = {.isOnAdapter = false, .percent = 7, .minutesToEmpty = 19};
  computer.telemetry.health->health->maximumCapacity = 71;
  computer.telemetry.health->health->condition = BatteryCondition::serviceRecommended;
  computer.telemetry.wifiReading->rssi = -83;
  computer.telemetry.networkAddresses = {
      {.interface = "wlp3s0", .text = "2001:db8:aaaa:bbbb:cccc:dddd:eeee:ffff", .isIPv6 = true}};
  computer.telemetry.drives->front().name = "An uncommonly long name\nfor a stick";
  computer.probe.check = {.milliseconds = 1234.5};
  computer.sound.speaker = SoundLevel{.volume = 1.5, .isMuted = true};
  computer.sound.mic->isMuted = true;
  computer.bluetooth.present->devices.front() = {"1", "Anna's Very Comfortable Headphones", "audio-headphones", 4};
  computer.live.keepAwake()->toggle();
  computer.live.setDisplay(
      DisplayReading{.name = "DP-1", .width = 15360, .height = 8640, .refreshRate = 143.98, .scale = 1.25});
  computer.readings.boot = std::chrono::hours(24 * 412 + 23);
  computer.system.tick();
  computer.show();
  computer.pass(40);
  Scene scene;
  QVERIFY(loadTiles(scene, computer));
  check(scene, "loud");
  const std::pair<const char*, const char*> rows[] = {
      {"memoryPressureMedium", "Memory Pressure, Critical, Swap 1.2 GB"},
      {"thermalMedium", "Thermal, Slowing down to cool"},
      {"batterySmall", "Battery, 7 %, 0:19 left"},
      {"batteryHealthMedium", "Battery Health, Service recommended"},
      {"powerMedium", "Power, Battery, 0:19 left"},
      {"wifiMedium", "Wi-Fi, Lighthouse, -83 dBm"},
      {"latencyMedium", "Latency, 1.2 s, avg 1.2"},
      {"volumesMedium", "Volumes, An uncommonly long name for a stick, 12 GB free"},
      {"displayMedium", "Display, 15360 × 8640, 144 Hz @1.3x"},
      {"volumeMedium", "Volume, Muted"},
      {"keepAwakeSmall", "Keep Awake, Awake"},
      {"micMuteSmall", "Mic Mute, Muted"},
  };
  compare(scene, rows);
}

void LiveTilesTests::clicksSwitchAndEject() {
  Computer computer;
  computer.bePlentiful();
  computer.show();
  Scene scene;
  QVERIFY(loadTiles(scene, computer));
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

  QCOMPARE(scene.warnings().take(), QStringList());
}

void LiveTilesTests::theWheelTurnsTheVolumeOnceThePointerHasMovedThere() {
  Computer computer;
  computer.bePlentiful();
  computer.show();
  Scene scene;
  QVERIFY(loadTiles(scene, computer));
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
  QCOMPARE(scene.warnings().take(), QStringList());
}

void LiveTilesTests::panelsShowTheDetails() {
  Computer computer;
  computer.bePlentiful();
  computer.system.tick();
  computer.show();
  computer.pass(40);
  computer.live.eject(QStringLiteral("file:///media/anna/STICK"));
  computer.volumes.answer({.outcome = EjectOutcome::busy, .reason = "target is busy"});
  computer.live.eject(QStringLiteral("file:///media/anna/Archive"));
  Scene scene;
  QVERIFY(loadPanels(scene, computer));
  check(scene, "panels");
}

void LiveTilesTests::panelsWithoutAPartSayWhy() {
  Computer computer;
  computer.sound.speaker.reset();
  computer.sound.mic.reset();
  computer.bluetooth.present->isOn = false;
  computer.show();
  Scene scene;
  QVERIFY(loadPanels(scene, computer));
  check(scene, "panels-without");
}

void LiveTilesTests::everyControlOfAPanelIsReachedByTab() {
  Computer computer;
  computer.bePlentiful();
  computer.show();
  computer.pass(1);
  Scene scene;
  QVERIFY(loadPanels(scene, computer));
  QStringList names;
  QSet<QQuickItem*> seen;
  for (int i = 0; i < 100; ++i) {
    QTest::keyClick(&scene.window(), Qt::Key_Tab);
    QQuickItem* item = scene.window().activeFocusItem();
    QVERIFY(item);
    if (seen.contains(item)) break;
    seen.insert(item);
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(item);
    const QString name = interface ? interface->text(QAccessible::Name) : QString();
    QVERIFY2(!name.isEmpty(), item->metaObject()->className());
    names.append(name);
  }
  for (const char* wanted : {"Top Apps", "192.168.178.120, wlp3s0", "Ask again", "Eject STICK", "Eject Archive",
                             "Bluetooth", "Mute", "Output volume, 64 %", "Output", "Microphone"})
    QVERIFY2(names.contains(QLatin1String(wanted)), qPrintable(names.join(QStringLiteral("; "))));
}

}  // namespace ambrel

QTEST_MAIN(ambrel::LiveTilesTests)
#include "LiveTilesTests.moc"
