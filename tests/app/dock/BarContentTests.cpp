#include <QTest>

#include "app/dock/BarContent.h"

namespace ambrel {
namespace {

std::vector<DockItem> holding(const std::vector<std::string>& widgets) {
  std::vector<DockItem> items;
  for (const std::string& widget : widgets) items.push_back(DockItem::holding(widget));
  return items;
}

const std::vector<std::string> six{"agents", "cpu", "memory", "disk", "network", "clock"};

}  // namespace

class BarContentTests : public QObject {
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
};

}  // namespace ambrel

QTEST_APPLESS_MAIN(ambrel::BarContentTests)
#include "BarContentTests.moc"
