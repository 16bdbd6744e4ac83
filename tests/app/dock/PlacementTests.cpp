#include <QTest>

#include "app/dock/BarContent.h"
#include "app/dock/BubblePlacement.h"
#include "app/window/PanelGeometry.h"
#include "tests/core/profiles/Tiles.h"

namespace ambrel {
namespace {

const std::vector<std::string> six{"agents", "cpu", "memory", "disk", "network", "clock"};

}  // namespace

class PlacementTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // Side by side, or from top to bottom.
  void theTilesAreInOrderOnTheSlab() {
    for (const DockEdge edge : allCases<DockEdge>()) {
      const bool isRow = edge == DockEdge::bottom;
      const auto items = holding(six);
      const BarContent content = barContent(items, edge, 2000, 1);
      QCOMPARE(content.tiles.size(), six.size());
      QPointF next(8, 8);
      for (std::size_t i = 0; i < six.size(); ++i) {
        const TileRecord& tile = content.tiles[i];
        QCOMPARE(tile.item.toStdString(), items[i].id.text());
        QCOMPARE(tile.widget.toStdString(), six[i]);
        QCOMPARE(tile.frame, QRectF(next, QSizeF(QList<qreal>{64, 112, 176, 240}.value(tile.span), 64)));
        next += isRow ? QPointF(tile.frame.width() + 8, 0) : QPointF(0, 72);
      }
      QCOMPARE(isRow ? content.slab.width() : content.slab.height(), isRow ? next.x() : next.y());
    }
  }

  void anUnknownWidgetIsShownAsSuch() {
    const BarContent content = barContent(holding({"cpu", "fromTheFuture"}), DockEdge::bottom, 2000, 1);
    QCOMPARE(content.tiles[0].title, QString("CPU"));
    QCOMPARE(content.tiles[1].widget, QString("fromTheFuture"));
    QCOMPARE(content.tiles[1].title, QString("fromTheFuture"));
    QCOMPARE(content.tiles[1].symbol, QString("questionmark.circle"));
    QVERIFY(!content.tiles[1].description.isEmpty());
    QCOMPARE(content.tiles[1].frame.width(), 112.0);
  }

  void slotsWithoutAWidgetTakeNoRoom() {
    auto items = holding({"cpu", "memory"});
    const BarContent without = barContent(items, DockEdge::bottom, 2000, 1);
    items.insert(items.begin() + 1, DockItem{.id = UUID::random(), .bundleID = "org.example.Editor", .widget = {}});
    const BarContent content = barContent(items, DockEdge::bottom, 2000, 1);
    QVERIFY(content.tiles == without.tiles);
    QCOMPARE(content.slab, without.slab);
  }

  void anEmptyBarHasRoomForASentence() {
    for (const DockEdge edge : allCases<DockEdge>()) {
      const BarContent content = barContent({}, edge, 1000, 2);
      QVERIFY(content.tiles.empty());
      QCOMPARE(content.slab, QSizeF(464, 160));
      QVERIFY(!content.isScrolling);
    }
  }

  void theScaleEnlargesEverything() {
    const auto items = holding({"agents", "cpu"});
    const BarContent small = barContent(items, DockEdge::bottom, 1000, 1),
                     large = barContent(items, DockEdge::bottom, 1000, 1.5);
    QCOMPARE(large.slab, small.slab * 1.5);
    for (std::size_t i = 0; i < items.size(); ++i) {
      QCOMPARE(large.tiles[i].frame.topLeft(), small.tiles[i].frame.topLeft() * 1.5);
      QCOMPARE(large.tiles[i].frame.size(), small.tiles[i].frame.size() * 1.5);
      QCOMPARE(large.tiles[i].span, small.tiles[i].span);
    }
    // The longest length is that of the screen: it does not grow with the text.
    QVERIFY(barContent(holding(six), DockEdge::bottom, 600, 1.5).slab.width() <= 600);
  }

  void aBubbleIsBesideItsTile() {
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

  void aBubbleNeverCoversTheBarNorLeavesTheScreen() {
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

  void panelsAreBesideTheBarAndOnTheScreen() {
    using enum DockEdge;
    const QRect screen(0, 0, 1600, 900), bottomBar(400, 812, 800, 80);
    const struct {
      const char* what;
      QSize size;
      QRect tile, bar, screen;
      DockEdge edge;
      QRect expected;
    } rows[] = {
        {"centred on its tile", {620, 320}, {768, 820, 64, 64}, bottomBar, screen, bottom, {490, 484, 620, 320}},
        {"without a tile, on the bar", {200, 100}, {}, bottomBar, screen, bottom, {700, 704, 200, 100}},
        {"left edge", {620, 320}, {10, 820, 64, 64}, {2, 812, 800, 80}, screen, bottom, {8, 484, 620, 320}},
        {"right edge", {620, 320}, {1520, 820, 64, 64}, {800, 812, 792, 80}, screen, bottom, {972, 484, 620, 320}},
        {"a second screen with a negative origin",
         {300, 200},
         {-1590, 820, 64, 64},
         {-1592, 812, 700, 80},
         {-1600, 0, 1600, 900},
         bottom,
         {-1592, 604, 300, 200}},
        {"a bar at the left", {620, 320}, {16, 100, 64, 64}, {8, 50, 80, 800}, screen, left, {96, 8, 620, 320}},
        {"a bar at the right",
         {620, 320},
         {1520, 700, 64, 64},
         {1512, 50, 80, 800},
         screen,
         right,
         {884, 572, 620, 320}},
        {"a small screen",
         {760, 480},
         {100, 320, 64, 64},
         {20, 312, 600, 80},
         {0, 0, 640, 400},
         bottom,
         {8, 8, 624, 296}}};
    for (const auto& row : rows)
      QVERIFY2(panelFrame(row.size, row.tile, row.bar, row.screen, row.edge) == row.expected, row.what);
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

QTEST_APPLESS_MAIN(ambrel::PlacementTests)
#include "PlacementTests.moc"
