#include <QTest>

#include "app/window/PanelGeometry.h"

namespace ambrel {

class PanelGeometryTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
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

QTEST_APPLESS_MAIN(ambrel::PanelGeometryTests)
#include "PanelGeometryTests.moc"
