#include <QTest>

#include "app/window/PanelGeometry.h"

namespace ambrel {

class PanelGeometryTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void panelsStandBesideTheBarAndOnTheScreen_data() {
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QRect>("tile");
    QTest::addColumn<QRect>("bar");
    QTest::addColumn<QRect>("screen");
    QTest::addColumn<int>("edge");
    QTest::addColumn<QRect>("expected");
    const QRect screen(0, 0, 1600, 900), bottomBar(400, 812, 800, 80);
    const int bottom = int(DockEdge::bottom), left = int(DockEdge::left), right = int(DockEdge::right);
    QTest::newRow("centred on its tile") << QSize(620, 320) << QRect(768, 820, 64, 64) << bottomBar << screen << bottom
                                         << QRect(490, 484, 620, 320);
    QTest::newRow("without a tile, on the bar")
        << QSize(200, 100) << QRect() << bottomBar << screen << bottom << QRect(700, 704, 200, 100);
    QTest::newRow("kept from the left edge") << QSize(620, 320) << QRect(10, 820, 64, 64) << QRect(2, 812, 800, 80)
                                             << screen << bottom << QRect(8, 484, 620, 320);
    QTest::newRow("kept from the right edge") << QSize(620, 320) << QRect(1520, 820, 64, 64) << QRect(800, 812, 792, 80)
                                              << screen << bottom << QRect(972, 484, 620, 320);
    QTest::newRow("a second screen with a negative origin")
        << QSize(300, 200) << QRect(-1590, 820, 64, 64) << QRect(-1592, 812, 700, 80) << QRect(-1600, 0, 1600, 900)
        << bottom << QRect(-1592, 604, 300, 200);
    QTest::newRow("beside a bar at the left") << QSize(620, 320) << QRect(16, 100, 64, 64) << QRect(8, 50, 80, 800)
                                              << screen << left << QRect(96, 8, 620, 320);
    QTest::newRow("beside a bar at the right")
        << QSize(620, 320) << QRect(1520, 700, 64, 64) << QRect(1512, 50, 80, 800) << screen << right
        << QRect(884, 572, 620, 320);
    QTest::newRow("cut to a small screen") << QSize(760, 480) << QRect(100, 320, 64, 64) << QRect(20, 312, 600, 80)
                                           << QRect(0, 0, 640, 400) << bottom << QRect(8, 8, 624, 296);
  }

  void panelsStandBesideTheBarAndOnTheScreen() {
    QFETCH(QSize, size);
    QFETCH(QRect, tile);
    QFETCH(QRect, bar);
    QFETCH(QRect, screen);
    QFETCH(int, edge);
    QFETCH(QRect, expected);
    QCOMPARE(panelFrame(size, tile, bar, screen, static_cast<DockEdge>(edge)), expected);
  }

  void messagesMakeWayByTheShortestWay() {
    const QRect screen(0, 0, 1600, 900), message(700, 760, 200, 40);
    const auto placed = [&](const std::vector<QRect>& taken) {
      return clearOf(message, taken, screen, DockEdge::bottom);
    };
    const QRect elsewhere(100, 400, 400, 400), bubble(640, 700, 320, 100), corner(860, 300, 620, 500);
    QCOMPARE(placed({elsewhere}), message);
    QCOMPARE(placed({bubble}), message.translated(0, -108));
    QCOMPARE(placed({corner}), message.translated(-48, 0));
    // Where the shortest way leads over another one, and where there is none.
    QCOMPARE(placed({corner, QRect(600, 700, 90, 100)}), message.translated(0, -508));
    QCOMPARE(placed({screen}), message);
    QCOMPARE(clearOf({1500, 400, 90, 40}, {{1400, 300, 190, 120}}, screen, DockEdge::right), QRect(1500, 428, 90, 40));
  }
};

}  // namespace ambrel

QTEST_APPLESS_MAIN(ambrel::PanelGeometryTests)
#include "PanelGeometryTests.moc"
