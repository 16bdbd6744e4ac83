#include <QTest>

#include "app/dock/BubblePlacement.h"
#include "app/window/PanelGeometry.h"

namespace ambrel {

class BubblePlacementTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void itIsBesideTheTile() {
    using enum DockEdge;
    const QRect longBar(200, 812, 1200, 80), shortBar(700, 812, 200, 80), leftBar(8, 100, 80, 700),
        rightBar(1512, 100, 80, 700);
    // The bubble is 320 x 140; its tail reaches 13 beyond.
    const struct {
      const char* where;
      DockEdge edge;
      QRect tile, bar, frame;
      int tail;  // -1: none
    } rows[] = {{"over the middle tile", bottom, {768, 820, 64, 64}, longBar, {640, 651, 320, 153}, 160},
                {"over the first tile", bottom, {208, 820, 64, 64}, longBar, {208, 651, 320, 153}, 32},
                {"over the last tile", bottom, {1328, 820, 64, 64}, longBar, {1072, 651, 320, 153}, 288},
                {"over a bar that is shorter", bottom, {768, 820, 64, 64}, shortBar, {640, 651, 320, 153}, 160},
                {"without a tile", bottom, {}, longBar, {640, 664, 320, 140}, -1},
                {"beside the left bar", left, {16, 418, 64, 64}, leftBar, {96, 380, 333, 140}, 70},
                {"beside its first tile", left, {16, 108, 64, 64}, leftBar, {96, 108, 333, 140}, 32},
                {"beside the right bar", right, {1520, 418, 64, 64}, rightBar, {1171, 380, 333, 140}, 70},
                {"beside its last tile", right, {1520, 728, 64, 64}, rightBar, {1171, 652, 333, 140}, 108},
                {"beside a bar without the tile", right, {}, rightBar, {1184, 380, 320, 140}, -1}};
    for (const auto& row : rows) {
      const BubblePlacement placed = placedBubble({320, 140}, row.tile, row.bar, QRect(0, 0, 1600, 900), row.edge);
      QVERIFY2(placed.frame == row.frame && placed.hasTail == (row.tail >= 0), row.where);
      if (placed.hasTail) QCOMPARE(placed.tailAt, row.tail);
    }
  }

  void itNeverCoversTheBarNorLeavesTheScreen() {
    // A usual one, one to the left of another, a small, an upright one, and one that is narrower than the bubble.
    const QRect screens[] = {
        {0, 0, 1600, 900}, {-1920, 200, 1920, 1080}, {0, 0, 640, 400}, {0, 0, 480, 800}, {0, 0, 300, 500}};
    for (const QRect& screen : screens)
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
};

}  // namespace ambrel

QTEST_APPLESS_MAIN(ambrel::BubblePlacementTests)
#include "BubblePlacementTests.moc"
