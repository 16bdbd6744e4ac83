#include <QQuickWindow>
#include <QSignalSpy>
#include <QTest>

#include "app/disk/DiskTexts.h"
#include "app/disk/SunburstChart.h"
#include "tests/core/disk/SyntheticTree.h"

namespace ambrel {
namespace {

// Half of it is "a", of which three quarters are "a/x"; a quarter "b"; an eighth each "c" and what was folded.
DiskTree someTree() {
  return test::treeOf("/base",
                      {{"a/x/deep", 30'000'000},
                       {"a/y", 10'000'000},
                       {"b/file", 20'000'000},
                       {"c", 10'000'000},
                       {"tiny", 500'000},
                       {"tiny too", 9'500'000}},
                      /*minItemSize=*/9'600'000);
}

struct Fixture {
  QQuickWindow window;
  SunburstChart chart{window.contentItem()};
  QSignalSpy hovered{&chart, &SunburstChart::hovered}, entered{&chart, &SunburstChart::entered};
  QSignalSpy asked{&chart, &SunburstChart::asked}, up{&chart, &SunburstChart::upAsked};

  explicit Fixture(DiskTree tree = someTree(), double share = 1) {
    window.resize(276, 276);
    chart.setSize({276, 276});
    chart.setProperty("colors",
                      QVariant::fromValue(QList<QColor>{Qt::red, Qt::green, Qt::blue, Qt::yellow, Qt::cyan, Qt::gray}));
    chart.setProperty("ground", QColor(Qt::black));
    chart.setProperty("ink", QColor(Qt::white));
    chart.setProperty("trackColor", QColor(Qt::darkGray));
    chart.setCenter({.item = std::move(tree), .share = share});
    // As the view does.
    QObject::connect(&chart, &SunburstChart::hovered, &chart, &SunburstChart::setHighlightedID);
    window.show();
    window.requestActivate();
    chart.forceActiveFocus();
  }
  const SunburstSegment& segment(const std::string& path) const {
    for (const SunburstSegment& each : chart.segments())
      if (each.item->id() == path) return each;
    qFatal("no segment of that path");
  }
  QPoint point(const std::string& path) const { return chart.middleOf(segment(path)).toPoint(); }
  QString last(const QSignalSpy& spy) const { return spy.isEmpty() ? QString("none") : spy.last().first().toString(); }
};

// On the circle of a ring (60 to 92, 92 to 118, 118 to 136), clockwise from twelve o'clock.
QPointF at(double radius, double turns) {
  const double angle = turns * 2 * M_PI;
  return {138 + radius * std::sin(angle), 138 - radius * std::cos(angle)};
}

}  // namespace

class SunburstChartTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void pointsLeadToTheirSegments() {
    const std::tuple<const char*, QPointF, QString> rows[] = {
        {"the hole", at(30, 0.1), ""},
        {"the largest begins at twelve", at(76, 0.01), "/base/a"},
        {"and ends after its half", at(76, 0.49), "/base/a"},
        {"then comes the next", at(76, 0.51), "/base/b"},
        {"files are in the ring too", at(76, 0.8), "/base/c"},
        {"and what was folded", at(76, 0.95), pathID("/base/\x01small")},
        {"the second ring", at(105, 0.3), "/base/a/x"},
        {"its end", at(105, 0.45), "/base/a/y"},
        {"the third ring", at(127, 0.2), "/base/a/x/deep"},
        {"nothing is above a file", at(105, 0.8), ""},
        {"beyond the chart", QPointF(2, 2), ""}};
    Fixture fixture;
    for (const auto& [what, point, id] : rows) QVERIFY2(fixture.chart.idAt(point) == id, what);
  }

  void itScalesWithItsSize() {
    Fixture fixture;
    fixture.chart.setSize({552, 700});
    QCOMPARE(fixture.chart.holeDiameter(), 240.0);
    QCOMPARE(fixture.chart.idAt({276 + 2 * 76.0, 350}), "/base/a");
  }

  void aHalfReadTreeFillsItsShare() {
    Fixture fixture(someTree(), 0.5);
    QCOMPARE(fixture.chart.idAt(at(76, 0.2)), "/base/a");
    QCOMPARE(fixture.chart.idAt(at(76, 0.3)), "/base/b");
    QCOMPARE(fixture.chart.idAt(at(76, 0.6)), "");
  }

  void clicksEnterAskAndLeadUp() {
    Fixture fixture;
    QTest::mouseClick(&fixture.window, Qt::LeftButton, {}, fixture.point("/base/b"));
    QCOMPARE(fixture.last(fixture.entered), "/base/b");
    QTest::mouseClick(&fixture.window, Qt::LeftButton, {}, {138, 138});
    QCOMPARE(fixture.up.count(), 1);
    QTest::mouseClick(&fixture.window, Qt::RightButton, {}, fixture.point("/base/a/x"));
    QCOMPARE(fixture.last(fixture.asked), "/base/a/x");
    QTest::mousePress(&fixture.window, Qt::LeftButton, {}, fixture.point("/base/a"));
    QTest::mouseRelease(&fixture.window, Qt::LeftButton, {}, fixture.point("/base/b"));
    QCOMPARE(fixture.entered.count(), 1);
    // Nor may the tree change under a pressed button.
    QTest::mousePress(&fixture.window, Qt::LeftButton, {}, fixture.point("/base/b"));
    fixture.chart.setCenter({.item = test::treeOf("/base", {{"b", 50'000'000}}), .share = 1});
    QTest::mouseRelease(&fixture.window, Qt::LeftButton, {}, fixture.point("/base/b"));
    QCOMPARE(fixture.entered.count(), 1);
  }

  void thePointerLightsUpWhatItIsOn() {
    Fixture fixture;
    QVERIFY(QTest::qWaitForWindowExposed(&fixture.window));
    QTest::mouseMove(&fixture.window, {1, 1});
    // The pointer comes in by one jump.
    QTest::mouseMove(&fixture.window, fixture.point("/base/b"));
    QTRY_COMPARE(fixture.chart.highlightedID(), "/base/b");
    QTest::mouseMove(&fixture.window, fixture.point("/base/a/x"));
    QTRY_COMPARE(fixture.chart.highlightedID(), "/base/a/x");
    QTest::mouseMove(&fixture.window, {138, 138});
    QTRY_COMPARE(fixture.chart.highlightedID(), "");
  }

  void theKeyboardWalksAround() {
    Fixture fixture;
    const auto press = [&](Qt::Key key) { QTest::keyClick(&fixture.window, key); };
    press(Qt::Key_Return);
    QCOMPARE(fixture.entered.count(), 0);
    const std::pair<Qt::Key, const char*> steps[] = {{Qt::Key_Right, "/base/a"},   {Qt::Key_Right, "/base/b"},
                                                     {Qt::Key_Up, "/base/b/file"}, {Qt::Key_Up, "/base/b/file"},
                                                     {Qt::Key_Down, "/base/b"},    {Qt::Key_Left, "/base/a"}};
    for (const auto& [key, id] : steps) {
      press(key);
      QCOMPARE(fixture.chart.highlightedID(), id);
    }
    press(Qt::Key_Return);
    QCOMPARE(fixture.last(fixture.entered), "/base/a");
    press(Qt::Key_Space);
    QCOMPARE(fixture.last(fixture.asked), "/base/a");
    press(Qt::Key_Backspace);
    QCOMPARE(fixture.up.count(), 1);
    // Without anything to walk along.
    fixture.chart.setCenter({});
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Up, Qt::Key_Return}) press(key);
  }

  void itDrawsWhatItKnows() {
    Fixture fixture;
    QVERIFY(QTest::qWaitForWindowExposed(&fixture.window));
    const auto color = [&](QPointF point) { return QColor(fixture.window.grabWindow().pixel(point.toPoint())); };
    QCOMPARE(color(at(76, 0.25)), QColor(Qt::red));
    QCOMPARE(color(at(76, 0.62)), QColor(Qt::green));
    // What was folded has the last colour, and every further ring is nearer to the ground.
    QCOMPARE(color(at(76, 0.94)), QColor(Qt::gray));
    QCOMPARE(color(at(105, 0.2)).red(), 184);
    QCOMPARE(color(at(127, 0.2)).red(), 122);
    fixture.chart.setHighlightedID("/base/b");
    QCOMPARE(color(at(92, 0.62)), QColor(Qt::white));
    fixture.chart.setCenter({.item = someTree(), .share = 0.5});
    QCOMPARE(color(at(76, 0.75)), QColor(Qt::darkGray));
  }
};

}  // namespace ambrel

QTEST_MAIN(ambrel::SunburstChartTests)
#include "SunburstChartTests.moc"
