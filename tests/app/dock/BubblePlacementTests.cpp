#include <QTest>

#include "app/dock/BubblePlacement.h"
#include "app/window/PanelGeometry.h"

namespace ambrel {

class BubblePlacementTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void itStandsBesideTheTile_data();
  void itStandsBesideTheTile();
  void itNeverCoversTheBarNorLeavesTheScreen_data();
  void itNeverCoversTheBarNorLeavesTheScreen();
};

void BubblePlacementTests::itStandsBesideTheTile_data() {
  QTest::addColumn<int>("edge");
  QTest::addColumn<QRect>("tile");
  QTest::addColumn<QRect>("bar");
  QTest::addColumn<QRect>("frame");
  QTest::addColumn<int>("tail");  // -1: none
  const auto bottom = static_cast<int>(DockEdge::bottom), left = static_cast<int>(DockEdge::left),
             right = static_cast<int>(DockEdge::right);
  const QRect longBar(200, 812, 1200, 80), shortBar(700, 812, 200, 80);
  // The bubble is 320 x 140; its tail reaches 13 beyond.
  QTest::newRow("over the middle tile") << bottom << QRect(768, 820, 64, 64) << longBar << QRect(640, 651, 320, 153)
                                        << 160;
  QTest::newRow("over the first tile") << bottom << QRect(208, 820, 64, 64) << longBar << QRect(208, 651, 320, 153)
                                       << 32;
  QTest::newRow("over the last tile") << bottom << QRect(1328, 820, 64, 64) << longBar << QRect(1072, 651, 320, 153)
                                      << 288;
  QTest::newRow("over a bar that is shorter")
      << bottom << QRect(768, 820, 64, 64) << shortBar << QRect(640, 651, 320, 153) << 160;
  QTest::newRow("without a tile") << bottom << QRect() << longBar << QRect(640, 664, 320, 140) << -1;
  QTest::newRow("beside the left bar") << left << QRect(16, 418, 64, 64) << QRect(8, 100, 80, 700)
                                       << QRect(96, 380, 333, 140) << 70;
  QTest::newRow("beside its first tile") << left << QRect(16, 108, 64, 64) << QRect(8, 100, 80, 700)
                                         << QRect(96, 108, 333, 140) << 32;
  QTest::newRow("beside the right bar") << right << QRect(1520, 418, 64, 64) << QRect(1512, 100, 80, 700)
                                        << QRect(1171, 380, 333, 140) << 70;
  QTest::newRow("beside its last tile") << right << QRect(1520, 728, 64, 64) << QRect(1512, 100, 80, 700)
                                        << QRect(1171, 652, 333, 140) << 108;
  QTest::newRow("beside a bar without the tile")
      << right << QRect() << QRect(1512, 100, 80, 700) << QRect(1184, 380, 320, 140) << -1;
}

void BubblePlacementTests::itStandsBesideTheTile() {
  QFETCH(int, edge);
  QFETCH(QRect, tile);
  QFETCH(QRect, bar);
  QFETCH(QRect, frame);
  QFETCH(int, tail);
  const BubblePlacement placed =
      placedBubble({320, 140}, tile, bar, QRect(0, 0, 1600, 900), static_cast<DockEdge>(edge));
  QCOMPARE(placed.frame, frame);
  QCOMPARE(placed.hasTail, tail >= 0);
  if (tail >= 0) QCOMPARE(placed.tailAt, tail);
}

void BubblePlacementTests::itNeverCoversTheBarNorLeavesTheScreen_data() {
  QTest::addColumn<QRect>("screen");
  QTest::newRow("usual") << QRect(0, 0, 1600, 900);
  QTest::newRow("left of another") << QRect(-1920, 200, 1920, 1080);
  QTest::newRow("small") << QRect(0, 0, 640, 400);
  QTest::newRow("upright") << QRect(0, 0, 480, 800);
  QTest::newRow("narrower than the bubble") << QRect(0, 0, 300, 500);
}

void BubblePlacementTests::itNeverCoversTheBarNorLeavesTheScreen() {
  QFETCH(QRect, screen);
  for (const DockEdge edge : allCases<DockEdge>()) {
    const bool isRow = edge == DockEdge::bottom;
    const int length = (isRow ? screen.width() : screen.height()) - 40;
    const QPoint corner = edge == DockEdge::bottom ? QPoint(screen.x() + 20, screen.y() + screen.height() - 88)
                          : edge == DockEdge::left ? QPoint(screen.x() + 8, screen.y() + 20)
                                                   : QPoint(screen.x() + screen.width() - 88, screen.y() + 20);
    const QRect bar(corner, isRow ? QSize(length, 80) : QSize(80, length));
    for (int at = 8; at + 72 <= length; at += 7) {
      const QRect tile(isRow ? bar.topLeft() + QPoint(at, 8) : bar.topLeft() + QPoint(8, at), QSize(64, 64));
      const BubblePlacement placed = placedBubble({320, 140}, tile, bar, screen, edge);
      QVERIFY(screen.contains(placed.frame));
      QVERIFY(!placed.frame.intersects(bar));
      if (!placed.hasTail) continue;
      QVERIFY(placed.tailAt >= tailClearance);
      QVERIFY(placed.tailAt <= (isRow ? placed.frame.width() : placed.frame.height()) - tailClearance);
    }
  }
}

}  // namespace ambrel

QTEST_APPLESS_MAIN(ambrel::BubblePlacementTests)
#include "BubblePlacementTests.moc"
