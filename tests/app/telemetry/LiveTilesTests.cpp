#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

#include "tests/app/kit/Looks.h"
#include "tests/app/kit/TileBoard.h"
#include "tests/app/telemetry/Computer.h"

namespace ambrel {
namespace {

// Every tile in every size.
bool loadTiles(Scene& scene, Computer& computer) {
  auto board = std::make_unique<TileBoard>(scene, std::vector<Area*>{&computer.area});
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
    QVERIFY(loadTiles(scene, computer));
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
    QVERIFY(loadTiles(scene, computer));
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
    QVERIFY(loadTiles(scene, computer));
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

  void theWheelTurnsTheVolumeOnceThePointerHasMovedThere() {
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
    QStringList texts;
    visitShown(scene.root(), [&](QQuickItem* item) { texts << item->property("text").toString(); });
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
};

}  // namespace ambrel

QTEST_MAIN(ambrel::LiveTilesTests)
#include "LiveTilesTests.moc"
