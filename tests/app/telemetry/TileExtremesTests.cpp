#include <QTest>
#include <algorithm>
#include <vector>

#include "tests/app/kit/Looks.h"
#include "tests/app/kit/TileBoard.h"
#include "tests/app/telemetry/Computer.h"

namespace ambrel {
namespace {

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

// Every system tile in every size, with the greatest that its parts can come to.
class TileExtremesTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void valuesStayWhole_data() {
    QTest::addColumn<QString>("locale");
    QTest::addColumn<bool>("isSlow");
    for (const char* locale : {"en_US", "de_DE"})
      for (const bool isSlow : {false, true})
        QTest::addRow("%s, %s", locale, isSlow ? "slow" : "quick") << QString::fromLatin1(locale) << isSlow;
  }

  void valuesStayWhole() {
    QFETCH(QString, locale);
    QFETCH(bool, isSlow);
    Computer computer(locale.toStdString());
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
    auto board = std::make_unique<TileBoard>(scene, std::vector<Area*>{&computer.area});
    const std::vector<DockWidget> widgets = board->widgets();
    for (const DockWidget widget : widgets) board->addInEverySize(widget);
    QVERIFY(scene.show(std::move(board)));
    const QStringList names{"A network", "An uncommonly", "Anna's"};
    QStringList faults = faultsOf(scene);
    int tiles = 0;
    visitShown(scene.root(), [&](QQuickItem* item) {
      if (!item->inherits("ambrel::Pressable") && !item->property("span").isValid()) return;
      ++tiles;
      faults += collisionsOf(item) + cutValuesOf(item, names);
    });
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
    QCOMPARE(tiles, static_cast<int>(widgets.size()) * 4);
  }
};

}  // namespace ambrel

QTEST_MAIN(ambrel::TileExtremesTests)
#include "TileExtremesTests.moc"
